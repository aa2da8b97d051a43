// What every classic number rendering promises about its field, checked over
// widths 1 to 32, a spread of decimals and awkward values: exactly `width`
// bytes, right-aligned, "*" exactly when the result says so, the value read
// back from the text within half a unit of its last digit, no more than 15
// trusted digits, guards and request fields intact, flags bit 4 invisible.
#include <algorithm>
#include <cctype>
#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "classic_render.h"
#include "corvinel/missing.h"

namespace corvinel::numeric::testing {
namespace {

// A rendered text read back as a number.
struct ReadBack {
  bool ok = false;
  long double value = 0;  // long, so that 1.79769313486232E308 reads back
  int last_place = 0;   // place of the last digit written
  bool below = false;   // PVALUE's "<" form: the value is under 10^last_place
  std::string error;
};

// Reads the text of a field (blanks trimmed) written by `format`.
ReadBack read_back(const std::string &field, const ClassicFormat &format) {
  ReadBack out;
  std::string text = field;
  bool bracketed = false;
  if (format.render == zfmpct) {
    const std::size_t w = text.size();
    if (text[w - 2] != '%') return {false, 0, 0, false, "no % before the last byte"};
    bracketed = text[0] == '(';
    if (bracketed != (text[w - 1] == ')') || (!bracketed && (text[0] != ' ' || text[w - 1] != ' '))) {
      return {false, 0, 0, false, "unpaired brackets"};
    }
    if (text[w - 3] == ' ') return {false, 0, 0, false, "number zone not right-aligned"};
    text = text.substr(1, w - 3);
  }
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {false, 0, 0, false, "blank field"};
  if (text.back() == ' ') return {false, 0, 0, false, "not right-aligned"};
  text = text.substr(first);
  if (text.find(' ') != std::string::npos) return {false, 0, 0, false, "blank inside"};

  if (format.render == zfmdlr && text[0] == '$') text.erase(0, 1);
  if (text[0] == '<') {
    out.below = true;
    text.erase(0, 1);
  }
  // Commas: groups of three integer digits, nowhere else.
  const std::size_t point = text.find('.');
  const std::string integer = text.substr(0, point == std::string::npos ? text.size() : point);
  if (integer.find(',') != std::string::npos) {
    if (format.render != zfmcma && format.render != zfmdlr) return {false, 0, 0, false, "comma"};
    std::size_t digits_after = 0;
    for (std::size_t i = integer.size(); i-- > 0;) {
      if (integer[i] == ',') {
        if (digits_after != 3) return {false, 0, 0, false, "bad grouping"};
        digits_after = 0;
      } else if (std::isdigit(static_cast<unsigned char>(integer[i]))) {
        ++digits_after;
      }
    }
  }
  text.erase(std::remove(text.begin(), text.end(), ','), text.end());

  const std::size_t e = text.find('E');
  const std::string mantissa = text.substr(0, e);
  const int exponent = e == std::string::npos ? 0 : std::atoi(text.c_str() + e + 1);
  const std::size_t mantissa_point = mantissa.find('.');
  const int fraction =
      mantissa_point == std::string::npos ? 0 : static_cast<int>(mantissa.size() - mantissa_point - 1);
  out.last_place = exponent - fraction;
  char *end = nullptr;
  out.value = std::strtold(text.c_str(), &end);
  if (end != text.c_str() + text.size()) return {false, 0, 0, false, "not a number: " + text};
  if (bracketed) out.value = -out.value;
  // Nothing past the fifteenth significant digit but zeros.
  std::string digits;
  for (char c : mantissa) {
    if (std::isdigit(static_cast<unsigned char>(c)) && !(digits.empty() && c == '0')) digits += c;
  }
  if (digits.size() > 15 && digits.find_first_not_of('0', 15) != std::string::npos) {
    return {false, 0, 0, false, "more than 15 significant digits"};
  }
  out.ok = true;
  return out;
}

struct SweepCase {
  ClassicFormat format;
  int32_t decimals;
  double value;
};

void PrintTo(const SweepCase &c, std::ostream *out) {
  *out << c.format.name << " d=" << c.decimals << " value=" << show_value(c.value);
}

class FieldContract : public ::testing::TestWithParam<SweepCase> {};

TEST_P(FieldContract, HoldsAtEveryWidthFrom1To32) {
  const SweepCase &c = GetParam();
  const bool percent = c.format.render == zfmpct;
  const double shown_value = percent && c.value != 0 ? c.value * 100 : c.value;
  for (int32_t width = 1; width <= 32; ++width) {
    SCOPED_TRACE("width " + std::to_string(width));
    const Rendered rendered = render(c.format.render, width, c.decimals, c.value);
    ASSERT_EQ(rendered.outlen, width);
    ASSERT_TRUE(rendered.guards_intact);
    ASSERT_TRUE(rendered.restored);

    const Rendered from_locale_caller =
        render(c.format.render, width, c.decimals, c.value, -1, FMTREQ_LOCALE_CALLER);
    EXPECT_EQ(from_locale_caller.field, rendered.field);
    EXPECT_EQ(from_locale_caller.result, rendered.result);

    const bool stars = rendered.field == std::string(static_cast<std::size_t>(width), '*');
    if (rendered.result == CORVINEL_DOES_NOT_FIT) {
      EXPECT_TRUE(stars) << "|" << rendered.field << "|";
      // Only what is out of reach overflows: non-finite values, magnitudes
      // that round to an integer too long for the field and for E notation,
      // PERCENT's frame below width 4.
      if (std::isfinite(shown_value) && !(percent && width < 4)) {
        EXPECT_GE(std::fabs(shown_value), 0.5);
      }
      continue;
    }
    ASSERT_EQ(rendered.result, CORVINEL_OK);
    ASSERT_FALSE(stars) << "|" << rendered.field << "|";
    ASSERT_TRUE(std::isfinite(shown_value));

    const ReadBack back = read_back(rendered.field, c.format);
    ASSERT_TRUE(back.ok) << back.error << " in |" << rendered.field << "|";
    if (back.below) {
      EXPECT_GE(c.value, 0.0) << "|" << rendered.field << "|";
      EXPECT_LT(c.value, std::pow(10.0, back.last_place)) << "|" << rendered.field << "|";
      continue;
    }
    // Half a unit of the last digit written, widened by zround's tolerance
    // and by the zeros that stand for digits past the fifteenth.
    const long double unit = std::pow(10.0L, back.last_place);
    const long double magnitude = std::fabs(shown_value);
    const long double untrusted =
        magnitude == 0 ? 0 : std::pow(10.0L, std::floor(std::log10(magnitude)) - 14);
    const long double allowed = 0.5L * unit * (1 + 1e-9L) + untrusted + magnitude * 1e-15L;
    EXPECT_LE(std::fabs(back.value - shown_value), allowed) << "|" << rendered.field << "|";
    if (back.value != 0) {
      EXPECT_EQ(back.value < 0, shown_value < 0) << "|" << rendered.field << "|";
    }
  }
}

std::vector<SweepCase> sweep_cases() {
  const double values[] = {0,        -0.0,       1,          -1,          0.5,
                           -0.5,     0.004,      -0.004,     123.456,     -123.456,
                           99.995,   0.999999,   1234567.891, -98765.4321, 2.5,
                           1e15,     1e20,       -1e20,      1e300,       DBL_MAX,
                           -DBL_MAX, 5e-324,     -5e-324,    1e-10,       -2.2e-308,
                           123456789012345678.0,  std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()};
  std::vector<SweepCase> cases;
  for (const ClassicFormat &format : kAllFormats) {
    for (int32_t decimals : {std::numeric_limits<int32_t>::min(), -1, 0, 1, 2, 5, 31, kBest, 100,
                             std::numeric_limits<int32_t>::max()}) {
      for (double value : values) cases.push_back({format, decimals, value});
    }
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(AllFormats, FieldContract, ::testing::ValuesIn(sweep_cases()));

// Fields wider than the registered formats allow, up to the buffer.
TEST(WideField, UsesTheWholeWidth) {
  for (const ClassicFormat &format : kAllFormats) {
    for (int32_t width : {33, 64, 255, 400}) {
      const Rendered rendered = render(format.render, width, 2, -1234.5);
      EXPECT_EQ(rendered.result, CORVINEL_OK) << format.name << width;
      EXPECT_EQ(rendered.field.size(), static_cast<std::size_t>(width));
      EXPECT_NE(rendered.field.find("1"), std::string::npos) << format.name << width;
      EXPECT_TRUE(rendered.guards_intact);
    }
  }
  // Every digit of DBL_MAX's integer part, zeros past the fifteenth.
  const Rendered huge = render(zfmcma, 420, 2, DBL_MAX);
  EXPECT_EQ(huge.field.substr(huge.field.size() - 11), ",000,000.00") << huge.field;
  EXPECT_EQ(huge.field.find_first_not_of(' '), 420u - (309 + 102 + 3)) << huge.field;
  EXPECT_NE(huge.field.find("179,769,313,486,232,000"), std::string::npos) << huge.field;
  // Decimals far below any double's digits: the smallest subnormal rounded
  // at 10^-330.
  const Rendered tiny = render(zfmt, 340, 330, 5e-324);
  EXPECT_EQ(tiny.field.substr(340 - 332), "0." + std::string(323, '0') + "4940656");
}

struct BadField {
  int32_t width;
  int32_t capacity;
};

void PrintTo(const BadField &c, std::ostream *out) {
  *out << "width " << c.width << " capacity " << c.capacity;
}

class UnusableField : public ::testing::TestWithParam<BadField> {};

TEST_P(UnusableField, WritesNothing) {
  for (const ClassicFormat &format : kAllFormats) {
    for (double value : {12.5, -0.0, std_miss_val, std::numeric_limits<double>::quiet_NaN()}) {
      const int32_t capacity = GetParam().capacity;
      corvinel::testing::Request request(GetParam().width, 2, value, std::max(capacity, 0));
      request->capacity = capacity;
      EXPECT_EQ(format.render(request.get()), CORVINEL_DOES_NOT_FIT) << format.name;
      EXPECT_EQ(request->outlen, 0) << format.name;
      EXPECT_TRUE(request.guards_intact()) << format.name;
      if (capacity > 0) {
        EXPECT_EQ(request.field().find_first_not_of(corvinel::testing::Request::kGuardByte),
                  std::string::npos)
            << format.name;
      }
      EXPECT_TRUE(request.restored()) << format.name;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Widths, UnusableField,
                         ::testing::Values(BadField{0, 8}, BadField{-5, 8},
                                           BadField{std::numeric_limits<int32_t>::min(), 8},
                                           BadField{9, 8}, BadField{1, 0}, BadField{4, -1}));

}  // namespace
}  // namespace corvinel::numeric::testing

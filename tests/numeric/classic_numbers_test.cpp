// The classic number renderings: their documented examples and the cases
// around them, each field as wide as its text ("*" comes with
// CORVINEL_DOES_NOT_FIT, any other field with 0); what every rendering
// promises about its field, over widths 1 to 32 for awkward and for random
// values, w.d also against printf of zround's multiple; fields wider than
// 32 or outside their buffer.
#include <algorithm>
#include <bit>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "corvinel/classic_numbers.h"
#include "corvinel/missing.h"
#include "corvinel/rounding.h"
#include "support/request_builder.h"

namespace corvinel::numeric::testing {
namespace {

using corvinel::testing::missing;

constexpr double kInf = INFINITY, kNaN = NAN;

struct ClassicFormat {
  const char *name;
  fmt_render_fn render;
};

constexpr ClassicFormat kWd{"w.d", zfmt}, kComma{"COMMA", zfmcma}, kDollar{"DOLLAR", zfmdlr},
    kPercent{"PERCENT", zfmpct}, kPvalue{"PVALUE", zfmpval}, kD{"D", zfmd};
constexpr ClassicFormat kAllFormats[] = {kWd, kComma, kDollar, kPercent, kPvalue, kD};
constexpr int32_t kBest = 99;  // decimals that make zfmt render BEST

struct Rendered {
  std::string field;  // the first `width` bytes of the buffer
  int32_t result = 0;
  bool intact = false;  // outlen = width, guards and request fields as they were
};

Rendered render(fmt_render_fn format, int32_t width, int32_t decimals, double value,
                uint8_t flags = 0) {
  corvinel::testing::Request request(width, decimals, value);
  request->flags = flags;
  const int32_t result = format(request.get());
  return {request.field(), result,
          request->outlen == width && request.guards_intact() && request.restored()};
}

// The value as the tests print it: shortest round-trip text.
std::string show_value(double value) {
  char text[40];
  return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

struct Example {
  ClassicFormat format;
  int32_t decimals;
  double value;
  std::string field;
};

void PrintTo(const Example &e, std::ostream *out) {
  *out << e.format.name << e.field.size() << "." << e.decimals << "(" << show_value(e.value)
       << ") -> |" << e.field << "|";
}

class ClassicExample : public ::testing::TestWithParam<Example> {};

TEST_P(ClassicExample, RendersTheField) {
  const Example &e = GetParam();
  const Rendered rendered =
      render(e.format.render, static_cast<int32_t>(e.field.size()), e.decimals, e.value);
  EXPECT_EQ(rendered.field, e.field);
  const bool stars = e.field.find_first_not_of('*') == std::string::npos;
  EXPECT_EQ(rendered.result, stars ? CORVINEL_DOES_NOT_FIT : CORVINEL_OK);
  EXPECT_TRUE(rendered.intact);
}

const Example kExamples[] = {
    {kWd, 3, 23.45, "23.450"}, {kWd, 0, -1234, " -1234"}, {kWd, 5, 22026.465795, "22026.4658"},
    {kWd, 5, 24154952.754, "24154952.8"}, {kWd, 0, 12345, "12E3"}, {kWd, 0, 123, "**"},
    // zround's rounding, no minus sign on zero, the leading zero dropped
    // before any decimal is, negative decimals as none.
    {kWd, 1, 0.15, " 0.2"}, {kWd, 1, -0.15, " -0.2"}, {kWd, 2, 1.005, " 1.01"},
    {kWd, 0, -2.5, " -3"}, {kWd, 2, -0.001, " 0.00"}, {kWd, 2, -0.0, " 0.00"},
    {kWd, 2, 0.5, ".50"}, {kWd, 2, 0.5, ".5"}, {kWd, -3, 12.5, "  13"},
    // Fifteen trusted digits; places beyond them are zeros.
    {kWd, 20, 0.1, "          0.10000000000000000000"}, {kWd, 0, 1e20, "100000000000000000000"},
    {kWd, 2, 1234567890123456.7, "             1234567890123460.00"},
    // BEST; 98 asks for it as 99 does (w.d would keep trailing zeros).
    {kWd, kBest, std::exp(-20.0), "2.06115E-9"}, {kWd, kBest, std::exp(-18.0), "  1.523E-8"},
    {kWd, kBest, std::exp(-14.0), "8.31529E-7"}, {kWd, kBest, std::exp(-11.0), " 0.0000167"},
    {kWd, kBest, std::exp(-9.0), "0.00012341"}, {kWd, kBest, std::exp(-3.0), "0.04978707"},
    {kWd, kBest, std::exp(1.0), "2.71828183"}, {kWd, kBest, std::exp(4.0), "  54.59815"},
    {kWd, kBest, std::exp(18.0), "65659969.1"}, {kWd, kBest, 1257000, "1E6"},
    {kWd, kBest, -1257000, "***"}, {kWd, kBest, 1257000, "1.26E6"}, {kWd, 98, 0.1, "  0.1"},
    {kWd, kBest, -1257000, "-126E4"}, {kWd, kBest, 0.1, "0.1"}, {kWd, kBest, -0.1, "-.1"},
    {kWd, kBest, 123456789, "1.23E8"}, {kWd, kBest, 123456789, "1.2346E8"},
    {kWd, kBest, 3626885, "36E5"}, {kWd, kBest, 3626885, "*"}, {kWd, kBest, 0.000005, "0"},
    {kWd, kBest, 0.000005, "        5E-6"}, {kWd, kBest, 0.000123456, "123E-6"},
    {kWd, kBest, 0.000123456, "0.000123"}, {kWd, kBest, 0.00012345, "1.23E-4"},
    // Carries that change the exponent's length; integer mantissas.
    {kWd, kBest, 9.9996e9, "  1E10"}, {kWd, kBest, 9.996e-10, "   1E-9"},
    {kWd, kBest, 3.6e10, "36E9"}, {kWd, kBest, 99999.7, "  1E5"}, {kWd, kBest, 0.96, " 1"},
    {kWd, kBest, 1000000, "1000000"}, {kWd, kBest, 1e300, "     1E300"},
    // The "0" goes where the decimals beside it would all be zero.
    {kWd, kBest, 0.0201, ".02"}, {kWd, kBest, 0.004, "  0"}, {kWd, kBest, -0.0001, "  0"},
    {kWd, kBest, 0.125, "0.13"}, {kWd, kBest, -0.0, "         0"}, {kWd, kBest, 0.5, ".5"},
    {kWd, kBest, 0.00004, ".00004"},
    {kWd, kBest, 123456789012345678901.0, "           123456789012346000000"},
    {kWd, kBest, DBL_MAX, "1.7977E308"}, {kWd, kBest, DBL_MAX, "2E308"},
    {kWd, kBest, 5e-324, "4.941E-324"}, {kWd, kBest, 5e-324, "5E-324"},
    // COMMA drops its commas, then decimals, then turns BEST; DOLLAR keeps
    // its "$" until BEST.
    {kComma, 2, -1234.56789, "                       -1,234.57"},
    {kComma, 2, 123451.234, "123,451.23"}, {kComma, 2, 1234567.891, "1234567.89"},
    {kComma, 2, 1234567.891, " 1234568"}, {kComma, 2, 1234567.891, "1.23E6"},
    {kComma, 0, -1234567890, "-1,234,567,890"}, {kComma, 0, 999.6, "  1,000"},
    {kDollar, 2, 1254.71, " $1,254.71"}, {kDollar, 2, -1234.567, "  $-1,234.57"},
    {kDollar, 2, -1234.567, "$-1234.57"}, {kDollar, 2, -1234.567, "$-1234.6"},
    {kDollar, 2, -1234.567, "$-1235"}, {kDollar, 2, -1234.567, "-1235"},
    {kDollar, 2, 0.5, "$.50"}, {kDollar, 2, -0.001, "$0.00"}, {kDollar, 0, 12, "*"},
    // PERCENT: right-aligned, brackets beside the digits and only around
    // what does not round to zero; "," between groups, dropped before decimals.
    {kPercent, 0, 0.1, "      10% "}, {kPercent, 0, -0.05, "      (5%)"},
    {kPercent, 2, -12.3456789, "                     (1,234.57%)"},
    {kPercent, 1, 1234.5678, "  123,456.8% "}, {kPercent, 1, -1234.5678, "(123,456.8%)"},
    {kPercent, 1, 1234.5678, " 123456.8% "}, {kPercent, 1, -1234.5678, "(123457%)"},
    {kPercent, 0, -0.05, "(5%)"},
    {kPercent, 1, 0.125, "  12.5% "}, {kPercent, 0, 0.05, " 5% "}, {kPercent, 2, 0.005, " .5% "},
    {kPercent, 2, -0.999, "(100%)"}, {kPercent, 2, -0.0000001, "    0.00% "},
    {kPercent, 0, -0.0, "   0% "}, {kPercent, 0, 12.34, "*****"}, {kPercent, 0, 0.1, "***"},
    {kPercent, 0, 1e307, "**********"},
    // PVALUE: fewer decimals test against their own unit.
    {kPvalue, 4, 0.000001, "<.0001"}, {kPvalue, 4, 0, "<.0001"}, {kPvalue, 4, -0.0, "<.0001"},
    {kPvalue, 4, 0.05, "0.0500"}, {kPvalue, 4, 0.0123456, "0.0123"}, {kPvalue, 4, 0.0001, "0.0001"},
    {kPvalue, 0, 0.4, " <1"}, {kPvalue, 4, 0.00012, "<.01"}, {kPvalue, 4, 0.00012, ".0001"},
    {kPvalue, 4, -0.05, "-.0500"}, {kPvalue, 2, 12345678, "1.23E7"},
    // D: p 0 means 3; a carry into the next decade moves the value into the
    // next group of decimals; too wide for the column: BEST.
    {kD, 4, 12345, "   12345.0"}, {kD, 4, 1234.5, "    1234.5"}, {kD, 4, 123.45, " 123.45000"},
    {kD, 4, 12.345, "  12.34500"}, {kD, 4, 1.2345, "   1.23450"}, {kD, 4, 0.12345, "   0.12345"},
    {kD, 0, 123.45, "     123.5"}, {kD, 0, 12.345, "   12.3450"}, {kD, 0, 0.012345, " 0.0123450"},
    {kD, 4, 0, "   0.00000"}, {kD, 4, -1.5, "  -1.50000"}, {kD, 4, 999.999996, "    1000.0"},
    {kD, 4, -12345678, " -12345678"}, {kD, 4, 0.012345, "  0.012345"}, {kD, 4, 1e10, "***"},
    {kD, 0, 0.12345, "    0.1235"},
    // Missing values: the mark where a point with `decimals` places would be,
    // else (and for BEST and D) at the right edge; PERCENT's in its number zone.
    {kWd, 2, missing('A'), "     A  "}, {kWd, 7, missing('.'), ".       "},
    {kWd, 8, missing('_'), "       _"}, {kWd, -1, missing('Z'), "       Z"},
    {kWd, kBest, missing('A'), "       A"}, {kWd, 98, missing('A'), "   A"},
    {kComma, 2, missing('B'), "     B  "}, {kDollar, 1, missing('C'), "  C "},
    {kPvalue, 4, missing('.'), " .    "}, {kD, 2, missing('D'), "       D"},
    {kPercent, 2, missing('E'), "   E    "}, {kPercent, 6, missing('F'), "     F  "},
    {kPercent, 0, missing('G'), " G  "}, {kPercent, 5, missing('H'), " H"},
    {kPercent, 2, missing('.'), ".  "}, {kPercent, 0, missing('I'), "I"},
    {kWd, 2, std::bit_cast<double>(0xFFFF000000000000ull), "      "},  // a code without a mark
};

INSTANTIATE_TEST_SUITE_P(Classic, ClassicExample, ::testing::ValuesIn(kExamples));

struct ReadBack {
  long double value;  // long, so that 1.79769313486232E308 reads back
  int last_place;     // place of the last digit written
  bool below;         // PVALUE's "<" form: the value is under 10^last_place
};

// Reads back the field `format` wrote, or nothing when the field breaks its
// layout: PERCENT's frame, right alignment, "$" and "<" where they belong,
// commas in groups of three for COMMA, DOLLAR and PERCENT only, at most 15
// significant digits followed by zeros.
std::optional<ReadBack> read_back(std::string text, const ClassicFormat &format) {
  bool negate = false;
  if (format.render == zfmpct) {
    // The number ends before "%" and ")" (or a blank); "(" stands right
    // before it, and a positive value leaves the first byte free for it.
    const std::size_t w = text.size();
    negate = text[w - 1] == ')';
    if (w < 4 || text[w - 2] != '%' || text[w - 3] == ' ' ||
        (!negate && (text[0] != ' ' || text[w - 1] != ' '))) {
      return {};
    }
    text = text.substr(0, w - 2);
    text.erase(0, text.find_first_not_of(' '));
    if (negate != text.starts_with('(')) return {};
    text.erase(0, negate ? 1 : 0);
  }
  text.erase(0, text.find_first_not_of(' '));
  const bool dollar = format.render == zfmdlr && text.starts_with('$');
  const bool below = text.substr(dollar).starts_with('<');
  std::string number = text.substr(dollar + below);
  const std::size_t sign = number.starts_with('-') ? 1 : 0;
  const std::string integer = number.substr(sign, number.find_first_of(".E") - sign);
  if (integer.find(',') != std::string::npos) {
    if ((format.render != zfmcma && format.render != zfmdlr && format.render != zfmpct) ||
        integer[0] == ',') {
      return {};
    }
    for (std::size_t i = 0; i < integer.size(); ++i) {
      if ((integer[i] == ',') != ((integer.size() - i) % 4 == 0)) return {};
    }
    std::erase(number, ',');
  }
  char *end = nullptr;
  const long double value = std::strtold(number.c_str(), &end);
  if (number.empty() || number[0] == ' ' || end != number.c_str() + number.size()) return {};
  const std::size_t e = std::min(number.find('E'), number.size()), point = number.find('.');
  const int fraction = point < e ? static_cast<int>(e - point - 1) : 0;
  const int exponent = e < number.size() ? std::atoi(number.c_str() + e + 1) : 0;
  std::string mantissa = number.substr(0, e);
  std::erase_if(mantissa, [](char c) { return c < '0' || c > '9'; });
  mantissa.erase(0, mantissa.find_first_not_of('0'));
  if (mantissa.size() > 15 && mantissa.find_first_not_of('0', 15) != std::string::npos) return {};
  return ReadBack{negate ? -value : value, exponent - fraction, below};
}

// printf's text of zround's multiple with `decimals` places, without "-" on
// zero, and in the short form without the "0" before the point.
std::string printf_fixed(double value, int decimals, bool short_form) {
  double multiple = 0;
  zround(&multiple, value, zpow10(-decimals));
  if (multiple == 0) multiple = 0;  // -0.0 prints as 0
  char text[400];
  std::snprintf(text, sizeof text, "%.*f", decimals, multiple);
  std::string fixed = text;
  const std::size_t zero = fixed.find("0.");
  if (short_form && (zero == 0 || (zero == 1 && fixed[0] == '-'))) fixed.erase(zero, 1);
  return fixed;
}

// A field: "*" only with its result and for what is out of reach, else the value read back
// within half a unit of its last digit; the request intact; flags bit 4 invisible.
void check_field(const ClassicFormat &format, int32_t width, int32_t decimals, double value) {
  SCOPED_TRACE(::testing::Message() << format.name << width << "." << decimals << " of "
                                    << show_value(value));
  const Rendered rendered = render(format.render, width, decimals, value);
  ASSERT_TRUE(rendered.intact);
  const Rendered flagged = render(format.render, width, decimals, value, FMTREQ_LOCALE_CALLER);
  EXPECT_TRUE(flagged.field == rendered.field && flagged.result == rendered.result);
  const std::string &field = rendered.field;
  const bool percent = format.render == zfmpct;
  const double shown = percent && value != 0 ? value * 100 : value;
  const bool stars = field.find_first_not_of('*') == std::string::npos;
  // w.d within 15 digits, where printf's exact digits are the trusted ones:
  // printf's text with the most decimals, from the requested ones down, that
  // fits, keeping the "0" before the point while that fits too; else BEST.
  if (format.render == zfmt && decimals >= 0 && decimals <= 12 &&
      std::fabs(value) < std::pow(10.0, 14.5 - decimals)) {
    std::string expected;
    for (int places = decimals; places >= 0 && expected.empty(); --places) {
      for (bool short_form : {false, true}) {
        const std::string candidate = printf_fixed(value, places, short_form);
        if (expected.empty() && candidate.size() <= field.size()) expected = candidate;
      }
    }
    const std::string text = field.substr(field.find_first_not_of(' '));
    EXPECT_TRUE(expected.empty() ? text.find_first_of("E*") != std::string::npos : text == expected)
        << text << " instead of " << expected;
  }
  ASSERT_EQ(rendered.result, stars ? CORVINEL_DOES_NOT_FIT : CORVINEL_OK) << "|" << field << "|";
  if (stars) {
    // Only non-finite values, magnitudes that round to an integer too long
    // for the field and for E notation, and PERCENT's frame below width 4.
    EXPECT_TRUE(!std::isfinite(shown) || std::fabs(shown) >= 0.5 || (percent && width < 4));
    return;
  }
  // BEST drops the trailing zeros of a fraction.
  const std::string mantissa = field.substr(0, field.find('E'));
  const bool best = format.render == zfmt && (decimals == 98 || decimals == kBest);
  EXPECT_FALSE(best && mantissa.find('.') != std::string::npos && mantissa.back() == '0') << field;
  const std::optional<ReadBack> back = read_back(field, format);
  ASSERT_TRUE(back && std::isfinite(shown)) << "|" << field << "|";
  if (back->below) {
    EXPECT_TRUE(value >= 0 && value < std::pow(10.0, back->last_place)) << "|" << field << "|";
    return;
  }
  // Half a unit of the last digit written, widened by zround's tolerance
  // and by the zeros that stand for digits past the fifteenth.
  const long double magnitude = std::fabs(shown);
  const long double untrusted =
      magnitude == 0 ? 0 : std::pow(10.0L, std::floor(std::log10(magnitude)) - 14);
  const long double allowed =
      0.5L * std::pow(10.0L, back->last_place) * (1 + 1e-9L) + untrusted + magnitude * 1e-15L;
  EXPECT_LE(std::fabs(back->value - shown), allowed) << "|" << field << "|";
}

TEST(FieldContract, HoldsForAwkwardValuesAtEveryWidthFrom1To32) {
  const double values[] = {0, -0.0, 1, -1, 0.5, -0.5, 0.004, -0.004, 123.456, -123.456, 99.995,
                           0.999999, 1234567.891, -98765.4321, 2.5, 1e15, 1e20, -1e20, 1e300,
                           DBL_MAX, -DBL_MAX, 5e-324, -5e-324, 1e-10, -2.2e-308,
                           123456789012345678.0, kInf, -kInf, kNaN};
  for (const ClassicFormat &format : kAllFormats) {
    for (int32_t decimals : {INT32_MIN, -1, 0, 1, 2, 5, 31, kBest, 100, INT32_MAX}) {
      for (double value : values) {
        for (int32_t width = 1; width <= 32; ++width) check_field(format, width, decimals, value);
      }
    }
  }
}

// A value with a random sign and a magnitude spread evenly over decades.
double random_value(std::mt19937_64 &random, double low, double high) {
  const double magnitude = std::pow(10.0, std::uniform_real_distribution(low, high)(random));
  return (random() & 1) ? -magnitude : magnitude;
}

// Within 15 digits for the w.d reference; BEST over a wider span.
TEST(FieldContract, HoldsForRandomValues) {
  std::mt19937_64 random(12);
  std::uniform_int_distribution<int32_t> width_of(1, 32), decimals_of(0, 16);
  for (int i = 0; i < 40000 && !::testing::Test::HasFatalFailure(); ++i) {
    const int32_t decimals = decimals_of(random);
    const double value = decimals > 12 ? random_value(random, -40, 40)
                                       : random_value(random, -decimals - 2, 14.5 - decimals);
    for (const ClassicFormat &format : kAllFormats) {
      check_field(format, width_of(random), decimals > 12 ? kBest : decimals, value);
    }
  }
}

// Fields wider than the registered formats allow, up to the buffer: every
// digit of DBL_MAX's integer part (zeros past the fifteenth), and decimals
// far below any double's digits.
TEST(WideField, UsesTheWholeWidth) {
  for (const ClassicFormat &format : kAllFormats) {
    for (int32_t width : {33, 255, 400}) check_field(format, width, 2, -1234.5);
  }
  std::string huge = std::string(6, ' ') + "179,769,313,486,232";
  for (int group = 0; group < 98; ++group) huge += ",000";
  EXPECT_EQ(render(zfmcma, 420, 2, DBL_MAX).field, huge + ".00");
  EXPECT_EQ(render(zfmt, 340, 330, 5e-324).field,
            std::string(8, ' ') + "0." + std::string(323, '0') + "4940656");
}

// A field that does not lie in its buffer: nothing written, outlen 0.
TEST(UnusableField, WritesNothing) {
  const std::pair<int, int> fields[] = {{0, 8}, {-5, 8}, {INT32_MIN, 8}, {9, 8}, {1, 0}, {4, -1}};
  for (const ClassicFormat &format : kAllFormats) {
    for (const auto &[width, capacity] : fields) {
      for (double value : {12.5, -0.0, std_miss_val, kNaN}) {
        corvinel::testing::Request request(width, 2, value, std::max(capacity, 0));
        request->capacity = capacity;
        EXPECT_EQ(format.render(request.get()), CORVINEL_DOES_NOT_FIT) << format.name << width;
        EXPECT_TRUE(request->outlen == 0 && request.guards_intact() && request.restored());
        const std::string buffer(request->output, static_cast<std::size_t>(std::max(capacity, 0)));
        EXPECT_EQ(buffer, std::string(buffer.size(), corvinel::testing::Request::kGuardByte));
      }
    }
  }
}

}  // namespace
}  // namespace corvinel::numeric::testing

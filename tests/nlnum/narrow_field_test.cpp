// Numbers in fields too narrow for them, as a reader sees them: every
// number, percent and currency-code format in twenty locales (the eighty
// currency formats, which share two routines, two locales each), decimals
// 0 to 3, every width from 1 to 16, values from below 1 to 1e300 of both
// signs.  An exponent text is one number, never grouped: all the digits of
// the field stand in "digits [mark digits] E sign digits", and it reads
// back with strtod to the value within half a unit of its last digit.  And
// no exponent text stands where plain digits would fit: the same value
// without decimals is no fixed text then, and (number and percent formats,
// whose layout keeps its parts whatever the width) its integer part with
// the sign and symbol around it is wider than the field.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/format_catalogue.h"
#include "locale/orb_locale_env.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace {

using namespace corvinel::testing;

constexpr const char *kLocales[] = {
    "en_US", "de_DE", "fr_FR", "de_CH", "hi_IN", "ar_SA", "ja_JP", "pt_BR", "pl_PL", "ar_DZ",
    "zh_TW", "da_DK", "it_IT", "es_ES", "ru_RU", "sv_SE", "nl_NL", "tr_TR", "el_GR", "af_ZA"};

constexpr double kValues[] = {0.004,      1.5,         99.995,     1234.5,       12345.6,
                              99999.5,    123456.789,  999999.5,   1234567.891,  9.99995e6,
                              2.5e8,      98765432109.8, 1e15,     1.234e20,     6.02e23,
                              1e100,      9.99e299,    1e300};

// The field a format writes, in the C.UTF-8 session; a currency code in it
// (a run of capitals, which may hold an "E") masked by "#".
std::string render(const FormatCase &format, int32_t width, int32_t decimals, double value) {
  Request r(width, decimals, value, 2 * width + 8);
  EXPECT_EQ(format.render(r.get()), CORVINEL_OK);
  EXPECT_TRUE(r.guards_intact());
  std::string field = r.text();
  const auto capital = [&](std::size_t i) { return i < field.size() && field[i] >= 'A' && field[i] <= 'Z'; };
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (capital(i) && (capital(i + 1) || (i > 0 && field[i - 1] == '#'))) field[i] = '#';
  }
  return field;
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// The locale's marks as a format writes them: the bytes between the first
// two digit runs of 1234567.5 with one decimal (the group separator, when
// there are three runs or more) and between the last two (the decimal mark).
struct Marks {
  std::string separator, decimal;
};

Marks marks_of(const FormatCase &format) {
  const std::string text = render(format, 32, 1, 1234567.5);
  std::vector<std::string> between;
  std::size_t at = text.find_first_of("0123456789");
  const std::size_t last = text.find_last_of("0123456789");
  while (at < last) {
    std::size_t end = at;
    while (end <= last && is_digit(text[end])) ++end;
    const std::size_t next = text.find_first_of("0123456789", end);
    if (next == std::string::npos || next > last) break;
    between.push_back(text.substr(end, next - end));
    at = next;
  }
  Marks marks;
  if (!between.empty()) marks.decimal = between.back();
  if (between.size() >= 2) marks.separator = between.front();
  return marks;
}

// The bytes from the first non-blank to the end of the field.
std::string trimmed(const std::string &field) {
  const std::size_t first = field.find_first_not_of(' ');
  return first == std::string::npos ? "" : field.substr(first);
}

bool is_fixed_text(const std::string &field) {
  return field.find('E') == std::string::npos && field.find_first_of("0123456789") != std::string::npos;
}

// Checks an exponent text; `shown` is the value the number stands for.
void check_exponent_text(const std::string &field, const Marks &marks, double shown) {
  const std::size_t e = field.find('E');
  ASSERT_EQ(field.find('E', e + 1), std::string::npos) << "|" << field << "|";
  // Leftwards from "E": digits, at most one decimal mark, a digit first.
  std::size_t begin = e;
  std::size_t mark_at = std::string::npos;
  while (begin > 0) {
    if (is_digit(field[begin - 1])) {
      --begin;
    } else if (mark_at == std::string::npos && !marks.decimal.empty() &&
               begin >= marks.decimal.size() && begin < e &&
               field.compare(begin - marks.decimal.size(), marks.decimal.size(), marks.decimal) == 0 &&
               begin - marks.decimal.size() > 0 &&
               is_digit(field[begin - marks.decimal.size() - 1])) {
      begin -= marks.decimal.size();
      mark_at = begin;
    } else {
      break;
    }
  }
  ASSERT_TRUE(begin < e && is_digit(field[begin])) << "no digits before E: |" << field << "|";
  std::size_t end = e + 1;
  ASSERT_TRUE(end < field.size() && (field[end] == '+' || field[end] == '-')) << "|" << field << "|";
  ++end;
  const std::size_t exponent_digits = end;
  while (end < field.size() && is_digit(field[end])) ++end;
  ASSERT_GE(end - exponent_digits, 2u) << "|" << field << "|";
  // Every digit of the field is in the number: nothing grouped apart.
  for (std::size_t i = 0; i < field.size(); ++i) {
    EXPECT_FALSE(is_digit(field[i]) && (i < begin || i >= end))
        << "a digit outside the exponent text: |" << field << "|";
  }
  std::string number = field.substr(begin, end - begin);
  int fraction = 0;
  if (mark_at != std::string::npos) {
    const std::size_t at = mark_at - begin;
    number.replace(at, marks.decimal.size(), ".");
    fraction = static_cast<int>(e - mark_at - marks.decimal.size());
  }
  char *stop = nullptr;
  const double read = std::strtod(number.c_str(), &stop);
  ASSERT_EQ(stop, number.c_str() + number.size()) << number;
  const int exponent = std::atoi(field.c_str() + e + 1);
  const double unit = std::pow(10.0, exponent - fraction);
  EXPECT_LE(std::fabs(read - std::fabs(shown)), 0.5 * unit * (1 + 1e-9))
      << "|" << field << "| reads " << number << " for " << shown;
}

struct Family {
  const char *name;
  bool layout_kept;  // the sign and symbol stay whatever the width
  double scale;      // the value the number stands for, per unit of value
};

class NarrowField : public ::testing::TestWithParam<Family> {};

TEST_P(NarrowField, ShowsPlainDigitsFirstAndExponentTextsWhole) {
  ScopedSessionLocale session(kUtf8Locale);
  ASSERT_TRUE(session.active());
  const Family family = GetParam();
  std::vector<const FormatCase *> formats;
  for (const FormatCase &f : all_formats()) {
    if (f.family == family.name) formats.push_back(&f);
  }
  ASSERT_FALSE(formats.empty());
  int exponent_texts = 0;
  for (std::size_t l = 0; l < std::size(kLocales); ++l) {
    ScopedOrbLocale locale(kLocales[l]);
    for (std::size_t k = 0; k < formats.size(); ++k) {
      // Eighty currency formats share two routines: each takes two locales.
      if (formats.size() > 10 && (k + l) % 10 > 1) continue;
      const FormatCase &format = *formats[k];
      const Marks marks = marks_of(format);
      for (const double magnitude : kValues) {
        for (const double value : {magnitude, -magnitude}) {
          const double shown = value * family.scale;
          // The integer part with what stands around the number: "1" shown
          // with no decimals in a wide field stands in for the digits.
          std::size_t integer_text = 0;
          if (family.layout_kept) {
            char digits[400];
            const int n = std::snprintf(digits, sizeof digits, "%.0f", std::fabs(shown));
            integer_text = static_cast<std::size_t>(n) - 1 +
                           trimmed(render(format, 32, 0, std::copysign(1.0 / family.scale, value))).size();
          }
          for (int32_t width = 1; width <= 16; ++width) {
            const std::string plain = render(format, width, 0, value);
            for (int32_t decimals = 0; decimals <= 3; ++decimals) {
              const std::string field = decimals == 0 ? plain : render(format, width, decimals, value);
              SCOPED_TRACE(format.name + std::to_string(width) + "." + std::to_string(decimals) +
                           " " + kLocales[l] + " of " + std::to_string(value));
              if (field.find('E') == std::string::npos) continue;
              ++exponent_texts;
              check_exponent_text(field, marks, shown);
              EXPECT_FALSE(is_fixed_text(plain)) << "|" << field << "| where |" << plain << "| fits";
              if (family.layout_kept) {
                EXPECT_GT(integer_text, static_cast<std::size_t>(width)) << "|" << field << "|";
              }
            }
          }
        }
      }
    }
  }
  EXPECT_GT(exponent_texts, 1000);
}

INSTANTIATE_TEST_SUITE_P(Formats, NarrowField,
                         ::testing::Values(Family{"number", true, 1}, Family{"percent", true, 100},
                                           Family{"currency", false, 1}),
                         [](const auto &info) { return std::string(info.param.name); });

}  // namespace

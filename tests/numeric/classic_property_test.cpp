// Randomised checks against references built another way: w.d against
// printf of zround's multiple, the fitting order against printf's lengths,
// BEST against the value it stands for and its choice of shape.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "classic_render.h"
#include "corvinel/rounding.h"

namespace corvinel::numeric::testing {
namespace {

std::string trimmed(const std::string &field) {
  const std::size_t first = field.find_first_not_of(' ');
  return first == std::string::npos ? "" : field.substr(first);
}

// w.d text of zround's multiple as printf writes it, without "-" on zero.
std::string printf_fixed(double value, int decimals) {
  double multiple = 0;
  zround(&multiple, value, zpow10(-decimals));
  if (multiple == 0) multiple = 0;  // -0.0 prints as 0
  char text[400];
  std::snprintf(text, sizeof text, "%.*f", decimals, multiple);
  return text;
}

// Significant digits of a number's text, trailing zeros not counted.
int significant_digits(const std::string &text) {
  std::string digits;
  for (char c : text) {
    if (c >= '0' && c <= '9' && !(digits.empty() && c == '0')) digits += c;
  }
  while (!digits.empty() && digits.back() == '0') digits.pop_back();
  return static_cast<int>(digits.size());
}

// Characters of the exponent of a value rounded to one digit ("-5" for
// 1.2e-5, "10" for 9.9e9).
int exponent_width(double value) {
  char text[16];
  std::snprintf(text, sizeof text, "%.0e", value);
  return static_cast<int>(std::to_string(std::atoi(std::strchr(text, 'e') + 1)).size());
}

// A value with a random sign and a magnitude spread evenly over decades.
double random_value(std::mt19937_64 &random, double lowest_decade, double highest_decade) {
  std::uniform_real_distribution<double> decade(lowest_decade, highest_decade);
  const double magnitude = std::pow(10.0, decade(random));
  return (random() & 1) ? -magnitude : magnitude;
}

TEST(FixedPoint, AgreesWithPrintfOfZroundsMultiple) {
  std::mt19937_64 random(11);
  std::uniform_int_distribution<int> decimals_of(0, 12);
  for (int i = 0; i < 100000; ++i) {
    const int decimals = decimals_of(random);
    // Keep within 15 digits, where printf's exact digits are the trusted ones.
    const double value = random_value(random, -decimals - 2, 14.5 - decimals);
    const Rendered rendered = render(zfmt, 40, decimals, value);
    ASSERT_EQ(trimmed(rendered.field), printf_fixed(value, decimals))
        << show_value(value) << " with " << decimals << " decimals";
  }
}

// The w.d text with `decimals` places, as short as it may be written.
std::size_t shortest_length(double value, int decimals) {
  std::string text = printf_fixed(value, decimals);
  const std::size_t zero = text.find("0.");
  if (zero == 0 || (zero == 1 && text[0] == '-')) text.erase(zero, 1);
  return text.size();
}

TEST(FixedPoint, DropsDecimalsOnlyWhenTheyDoNotFit) {
  std::mt19937_64 random(12);
  std::uniform_int_distribution<int> decimals_of(0, 8);
  std::uniform_int_distribution<int> width_of(1, 16);
  for (int i = 0; i < 50000; ++i) {
    const int decimals = decimals_of(random);
    const int width = width_of(random);
    const double value = random_value(random, -6, 12);
    const std::string text = trimmed(render(zfmt, width, decimals, value).field);
    // The first count of decimals, from the requested one down, that fits.
    int fitting = decimals;
    while (fitting >= 0 && shortest_length(value, fitting) > static_cast<std::size_t>(width)) {
      --fitting;
    }
    if (fitting < 0) {
      // None fits: BEST takes over, which has E notation or stars here.
      EXPECT_TRUE(text.find('E') != std::string::npos || text.find('*') != std::string::npos)
          << show_value(value) << " in " << width << "." << decimals << ": " << text;
      continue;
    }
    const std::size_t point = text.find('.');
    const int shown = point == std::string::npos ? 0 : static_cast<int>(text.size() - point - 1);
    ASSERT_EQ(shown, fitting) << show_value(value) << " in " << width << "." << decimals << ": "
                              << text;
  }
}

TEST(Best, StandsForTheValueWithinHalfItsLastDigit) {
  std::mt19937_64 random(13);
  std::uniform_int_distribution<int> width_of(1, 32);
  for (int i = 0; i < 100000; ++i) {
    const double value = random_value(random, -40, 40);
    const int width = width_of(random);
    const Rendered rendered = render(zfmt, width, kBest, value);
    const std::string text = trimmed(rendered.field);
    const int sign = value < 0 ? 1 : 0;
    const std::string where = show_value(value) + " in " + std::to_string(width) + ": " + text;
    if (rendered.result == CORVINEL_DOES_NOT_FIT) {
      // Stars only for a value that rounds to an integer too long for the
      // field, whose exponent leaves no room beside one mantissa digit.
      EXPECT_GE(std::fabs(value), (std::pow(10.0, width - sign) - 0.5) * (1 - 1e-12)) << where;
      EXPECT_GT(sign + 2 + exponent_width(value), width) << where;
      continue;
    }
    ASSERT_EQ(rendered.result, CORVINEL_OK) << where;
    if (text == "0") {
      // Nothing fits but zero: below half a unit of the finest place a
      // plain text can hold, and too many exponent digits for E notation.
      EXPECT_LT(std::fabs(value), 0.5 * std::pow(10.0, -(width - sign - 1)) * 1.0000001) << where;
      EXPECT_GT(sign + 2 + exponent_width(value), width) << where;
      continue;
    }
    const std::size_t e = text.find('E');
    const std::string mantissa = text.substr(0, e);
    const int exponent = e == std::string::npos ? 0 : std::atoi(text.c_str() + e + 1);
    const std::size_t point = mantissa.find('.');
    const int fraction = point == std::string::npos ? 0 : static_cast<int>(mantissa.size() - point - 1);
    const long double unit = std::pow(10.0L, exponent - fraction);
    const long double back = std::strtold(text.c_str(), nullptr);
    const long double magnitude = std::fabs(value);
    const long double allowed = 0.5L * unit * (1 + 1e-9L) + magnitude * 1e-14L;
    EXPECT_LE(std::fabs(back - value), allowed) << where;
    // Trailing zeros of a fraction are dropped.
    if (point != std::string::npos) {
      EXPECT_NE(mantissa.back(), '0') << where;
    }
    if (magnitude < 1) {
      const int places = width - sign - (width < sign + 3 ? 1 : 2);
      const int plain_digits = significant_digits(printf_fixed(value, std::max(places, 0)));
      if (e != std::string::npos && magnitude >= 1e-5) {
        // E notation between 1e-5 and 1: only when the plain text would show
        // fewer than 3 digits and E notation shows more.
        EXPECT_LT(plain_digits, 3) << where;
        EXPECT_GT(significant_digits(mantissa), plain_digits) << where;
      }
      if (e == std::string::npos && magnitude < 1e-5) {
        // Plain text below 1e-5: E notation had no room.
        EXPECT_GT(sign + 2 + exponent_width(value), width) << where;
      }
    }
  }
}

}  // namespace
}  // namespace corvinel::numeric::testing

// Digit generation: the integer read-back of zround's multiple must give the
// same digits as printing that multiple, for every magnitude and place.
#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/rounding.h"
#include "numeric/decimal_digits.h"

namespace corvinel::numeric {
namespace {

// "digits@exponent" of a Decimal, "0" for zero.
std::string describe(const Decimal &decimal) {
  if (decimal.is_zero()) return "0";
  return std::string(decimal.digits, decimal.count) + "@" + std::to_string(decimal.exponent);
}

// The same description read from printf's "%e" text, trailing zeros dropped.
std::string described_text(const char *text) {
  std::string digits;
  const char *cursor = text;
  for (; *cursor != 'e'; ++cursor) {
    if (*cursor != '.') digits += *cursor;
  }
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  return digits + "@" + std::to_string(std::atoi(cursor + 1));
}

// 15 significant digits of a double as printf writes them.
std::string printed(double magnitude) {
  if (magnitude == 0) return "0";
  char text[40];
  std::snprintf(text, sizeof text, "%.14e", magnitude);
  return described_text(text);
}

TEST(RoundToPlace, AgreesWithPrintingZroundsMultiple) {
  std::mt19937_64 random(20240611);
  std::uniform_real_distribution<double> decade(-320, 308);
  std::uniform_int_distribution<int> offset(-3, 22);
  for (int i = 0; i < 200000; ++i) {
    const double magnitude = std::pow(10.0, decade(random));
    if (!(magnitude > 0) || std::isinf(magnitude)) continue;
    const int exponent = decimal_exponent(magnitude);
    // Below 10^-307 the units are subnormal and exact rounding takes over;
    // RoundsExactlyWhereUnitsAreSubnormal covers it.
    const int place = std::clamp(exponent - offset(random), -307, 308);
    double multiple = 0;
    zround(&multiple, magnitude, zpow10(place));
    ASSERT_EQ(describe(round_to_place(magnitude, place)), printed(multiple))
        << magnitude << " at 10^" << place;
  }
}

TEST(RoundToPlace, TiesAndCarries) {
  struct Case {
    double magnitude;
    int place;
    const char *expected;
  };
  const Case cases[] = {
      {0.125, -2, "13@-1"},           {1.005, -2, "101@0"},
      {0.15, -1, "2@-1"},             {2.5, 0, "3@0"},
      {999.9996, -3, "1@3"},          {0.0004, -3, "0"},
      {0.0005, -3, "1@-3"},           {1e300, -3, "1@300"},
      {123456789012345678.0, 0, "123456789012346@17"},
      // Rounding DBL_MAX up overflows the doubles; the digits survive.
      {DBL_MAX, 308, "2@308"},        {DBL_MAX, 293, "179769313486232@308"},
      // No double unit exists below 10^-323: the exact value is rounded.
      {5e-324, -330, "4940656@-324"}, {1e-310, -400, "999999999999997@-311"},
      {DBL_MAX, 309, "0"},
      // Units below 10^-307 are subnormal and inexact: the exact value is
      // rounded (-2.2e-308 counted in units of 10^-322 would be 2.226e-308).
      {9.3896558574089264e-308, -315, "93896559@-308"},
      {2.2e-308, -322, "22@-308"},
      {6e-321, -320, "1@-320"},      {4e-321, -320, "0"},
      {5e-324, -320, "0"},
  };
  for (const Case &c : cases) {
    EXPECT_EQ(describe(round_to_place(c.magnitude, c.place)), c.expected)
        << c.magnitude << " at 10^" << c.place;
  }
}

TEST(RoundToPlace, RoundsExactlyWhereUnitsAreSubnormal) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> decade(-323.5, -300);
  std::uniform_int_distribution<int> offset(0, 20);
  for (int i = 0; i < 20000; ++i) {
    const double magnitude = std::pow(10.0, decade(random));
    if (!(magnitude > 0)) continue;
    const int exponent = decimal_exponent(magnitude);
    const int place = exponent - offset(random);
    if (place >= -307) continue;
    char text[40];
    std::snprintf(text, sizeof text, "%.*e", std::min(exponent - place, 14), magnitude);
    ASSERT_EQ(describe(round_to_place(magnitude, place)), described_text(text))
        << magnitude << " at 10^" << place;
  }
}

TEST(DecimalExponent, EveryPowerOfTenAndItsNeighbours) {
  for (int n = -323; n <= 308; ++n) {
    const double power = zpow10(n);
    EXPECT_EQ(decimal_exponent(power), n) << n;
    EXPECT_EQ(decimal_exponent(std::nextafter(power, 0.0)), n - 1) << n;
    if (n < 308) {
      EXPECT_EQ(decimal_exponent(std::nextafter(power, DBL_MAX)), n) << n;
    }
  }
  EXPECT_EQ(decimal_exponent(5e-324), -324);
  EXPECT_EQ(decimal_exponent(DBL_MAX), 308);
}

TEST(TrustedDigits, FifteenDigitsRoundedFromTheBinaryValue) {
  EXPECT_EQ(describe(trusted_digits(0.1)), "1@-1");
  EXPECT_EQ(describe(trusted_digits(2.0 / 3.0)), "666666666666667@-1");
  EXPECT_EQ(describe(trusted_digits(9.9999999999999995)), "1@1");
  EXPECT_EQ(describe(trusted_digits(5e-324)), "494065645841247@-324");
}

}  // namespace
}  // namespace corvinel::numeric

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/missing.h"
#include "corvinel/rounding.h"

namespace {

double rounded(double value, double unit) {
  double result = -999;
  EXPECT_EQ(zround(&result, value, unit), 0);
  return result;
}

TEST(Zround, HalfAwayFromZeroWithTolerance) {
  struct Case {
    double value, unit, expected;
  };
  const Case cases[] = {
      {2.5, 1, 3},          {-2.5, 1, -3},       {2.4999, 1, 2},
      {0.15, 0.1, 0.2},     {-0.15, 0.1, -0.2},  {1.23456, 0.001, 1.235},
      {0.125, 0.01, 0.13},  {1e300, 0.001, 1e300}, {0, 0.5, 0},
      {86399.9996, 0.001, 86400}, {7, 0.5, 7},   {1.4999999, 1, 1},
  };
  for (const auto &c : cases) {
    // The result is a multiple of the unit computed as floor(q) * unit, so
    // compare against the same product rather than a decimal literal.
    const double q = std::round(c.expected / c.unit);
    EXPECT_EQ(rounded(c.value, c.unit), c.expected == 1e300 ? c.expected : q * c.unit)
        << c.value << " / " << c.unit;
  }
}

TEST(Zround, ToleranceIsBoundedBySixtyBitsOfTheQuotient) {
  // q = 0.4999999 falls short of a half by 1e-7, far more than the
  // tolerance min(2^-24, q * 2^-40), so it rounds down.
  EXPECT_EQ(rounded(0.4999999, 1), 0);
  // Short by less than q * 2^-40: rounds up.
  EXPECT_EQ(rounded(1000.5 - 1e-10, 1), 1001);
}

TEST(Zround, MissingAndNonFiniteValuesPassThrough) {
  const double missing = std_miss_val;
  double result = 0;
  zround(&result, missing, 0.01);
  EXPECT_EQ(std::bit_cast<uint64_t>(result), std::bit_cast<uint64_t>(missing));
  zround(&result, std::numeric_limits<double>::infinity(), 1);
  EXPECT_TRUE(std::isinf(result));
  // Units that are not positive numbers leave the value alone.
  EXPECT_EQ(rounded(1.26, 0), 1.26);
  EXPECT_EQ(rounded(1.26, -0.1), 1.26);
  EXPECT_EQ(rounded(1.26, std::nan("")), 1.26);
}

TEST(Zpow10, EveryEntryIsTheCorrectlyRoundedPower) {
  char text[16];
  for (int n = -323; n <= 308; ++n) {
    std::snprintf(text, sizeof text, "1e%d", n);
    EXPECT_EQ(zpow10(n), std::strtod(text, nullptr)) << n;
  }
}

TEST(Zpow10, OutsideTheTablesIsTheStandardMissingValue) {
  for (int n : {309, 400, -324, -1000, std::numeric_limits<int32_t>::min(),
                std::numeric_limits<int32_t>::max()}) {
    EXPECT_EQ(std::bit_cast<uint64_t>(zpow10(n)), 0xFFFFFE0000000000ull) << n;
  }
  EXPECT_GT(zpow10(-323), 0.0);
  EXPECT_LT(zpow10(-323), std::numeric_limits<double>::min());  // subnormal
}

TEST(Zisint, AndGuardedLogarithm) {
  EXPECT_EQ(zisint(3.0), 1);
  EXPECT_EQ(zisint(-3.0), 1);
  EXPECT_EQ(zisint(3.5), 0);
  EXPECT_EQ(zisint(std::numeric_limits<double>::infinity()), 1);
  EXPECT_EQ(zisint(std::nan("")), 0);

  EXPECT_EQ(zlog10(1000), 3);
  EXPECT_EQ(zlog10(0), 0);
  EXPECT_EQ(zlog10(-5), -5);
  EXPECT_EQ(vzlog10(-5), -5);
  EXPECT_EQ(std::bit_cast<uint64_t>(zlog10(std_miss_val)),
            0xFFFFFE0000000000ull);
}

}  // namespace

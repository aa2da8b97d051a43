// zround, the powers of ten and the small guards, and the digits the
// renderings take from them: reading zround's multiple back as a count of
// units must give the digits that printing the multiple gives, rounded at
// the place or at the fifteenth significant digit if that is coarser; below
// 10^-307, where the units are subnormal, the exact value is rounded as
// printf rounds it.
#include <algorithm>
#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/missing.h"
#include "corvinel/rounding.h"
#include "numeric/decimal_digits.h"

namespace corvinel::numeric {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr uint64_t kStandardMissing = 0xFFFFFE0000000000ull;

uint64_t bits(double x) { return std::bit_cast<uint64_t>(x); }

// Results are multiples of the unit, written as the product zround forms.
TEST(Zround, HalfAwayFromZeroWithTolerance) {
  const struct {
    double value, unit, expected;
  } cases[] = {
      {2.5, 1, 3}, {-2.5, 1, -3}, {2.4999, 1, 2}, {0.15, 0.1, 2 * 0.1}, {-0.15, 0.1, -2 * 0.1},
      {1.23456, 0.001, 1235 * 0.001}, {86399.9996, 0.001, 86400000 * 0.001}, {0, 0.5, 0},
      // Short of the half by far more than the tolerance min(2^-24, q 2^-40),
      // then by less.
      {0.4999999, 1, 0}, {1000.5 - 1e-10, 1, 1001},
      // A unit below the value's precision, or one that is no positive
      // number, leaves the value alone; so are infinities and missing values.
      {1e300, 0.001, 1e300}, {1.26, 0, 1.26}, {1.26, -0.1, 1.26}, {1.26, std::nan(""), 1.26},
      {kInf, 1, kInf}, {std_miss_val, 0.01, std_miss_val}};
  for (const auto &c : cases) {
    double result = -999;
    EXPECT_EQ(zround(&result, c.value, c.unit), 0);
    EXPECT_EQ(bits(result), bits(c.expected)) << c.value << " / " << c.unit << ": " << result;
  }
}

// Whole values to a unit of 1, the datetimes of every format call: the
// rounding formula written out, over magnitudes up to and past 2^53.
TEST(Zround, WholeValuesToUnitOneFollowTheFormula) {
  std::mt19937_64 random(1960);
  std::vector<double> values = {1, -1, 0x1p51 - 1, -(0x1p51 - 1), 0x1p51, 0x1p52 + 1, 0x1p53 - 1,
                                569318630399, -11928470400};
  for (int i = 0; i < 100000; ++i) {
    const double v = std::trunc(std::ldexp(std::generate_canonical<double, 53>(random),
                                           static_cast<int>(random() % 56)));
    if (v != 0) values.push_back(random() % 2 ? v : -v);
  }
  for (const double v : values) {
    const double q = std::fabs(v);
    // From 2^52 on the unit lies below the value's precision: left alone.
    const double formula =
        q >= 0x1p52 ? v : std::floor(q + 0.5 + std::fmin(0x1p-24, q * 0x1p-40)) * (v > 0 ? 1.0 : -1.0);
    double result = 0;
    zround(&result, v, 1.0);
    ASSERT_EQ(bits(result), bits(formula)) << v;
  }
  double result = 1;
  zround(&result, -0.0, 1.0);
  EXPECT_EQ(bits(result), bits(0.0));  // zero is always +0
}

TEST(Zpow10, EveryEntryIsTheCorrectlyRoundedPower) {
  char text[16];
  for (int n = -323; n <= 308; ++n) {
    std::snprintf(text, sizeof text, "1e%d", n);
    EXPECT_EQ(zpow10(n), std::strtod(text, nullptr)) << n;
    // Judged against these powers, 1e23, whose double lies below the true
    // power, still has exponent 23.
    EXPECT_EQ(decimal_exponent(zpow10(n)), n) << n;
    EXPECT_EQ(decimal_exponent(std::nextafter(zpow10(n), 0.0)), n - 1) << n;
    EXPECT_EQ(decimal_exponent(std::nextafter(zpow10(n), DBL_MAX)), n) << n;
  }
  for (int n : {309, -324, INT32_MIN, INT32_MAX}) EXPECT_EQ(bits(zpow10(n)), kStandardMissing) << n;
}

TEST(Zisint, AndGuardedLogarithm) {
  EXPECT_TRUE(zisint(-3.0) && zisint(kInf) && !zisint(3.5) && !zisint(std::nan("")));
  EXPECT_TRUE(zlog10(1000) == 3 && zlog10(0) == 0 && zlog10(-5) == -5 && vzlog10(-5) == -5);
  EXPECT_EQ(bits(zlog10(std_miss_val)), kStandardMissing);
}

// "digits@exponent" of a Decimal, "0" for zero.
std::string describe(const Decimal &d) {
  return d.is_zero() ? "0" : std::string(d.digits, d.count) + "@" + std::to_string(d.exponent);
}

// The same description of `significant` digits of a magnitude as printf
// writes them, trailing zeros dropped.
std::string printed(double magnitude, int significant) {
  if (magnitude == 0) return "0";
  char text[40];
  std::snprintf(text, sizeof text, "%.*e", significant - 1, magnitude);
  std::string digits(text, std::strchr(text, 'e'));
  std::erase(digits, '.');
  digits.erase(std::max<std::size_t>(digits.find_last_not_of('0') + 1, 1));
  return digits + "@" + std::to_string(std::atoi(std::strchr(text, 'e') + 1));
}

TEST(RoundToPlace, AgreesWithPrintingZroundsMultiple) {
  std::mt19937_64 random(20240611);
  std::uniform_real_distribution<double> decade(-323.5, 308);
  std::uniform_int_distribution<int> offset(-3, 22);
  for (int i = 0; i < 200000; ++i) {
    const double magnitude = std::pow(10.0, decade(random));
    if (!(magnitude > 0)) continue;
    const int exponent = decimal_exponent(magnitude);
    const int place = std::min(exponent - offset(random), 308);
    const int rounded_place = std::max(place, exponent - 14);
    double multiple = 0;
    zround(&multiple, magnitude, zpow10(rounded_place));
    if (place < -307 && place > exponent) continue;
    const std::string expected = rounded_place >= -307
                                     ? printed(multiple, 15)
                                     : printed(magnitude, std::min(exponent - place + 1, 15));
    ASSERT_EQ(describe(round_to_place(magnitude, place)), expected) << magnitude << " at " << place;
  }
}

// Carries; places below the fifteenth digit, rounded at the fifteenth
// once (not at the place, then again at the fifteenth); DBL_MAX rounded
// beyond the doubles (the digits survive); and
// below 10^-307 the exact value rounded (2.2e-308 counted in units of
// 10^-322 would be 2.226e-308), to one unit or to none.
TEST(RoundToPlace, Edges) {
  const struct {
    double magnitude;
    int place;
    const char *expected;
  } cases[] = {
      {999.9996, -3, "1@3"}, {0.0004, -3, "0"}, {1.2345678901234568e17, 0, "123456789012346@17"},
      {208141875261.24753, -4, "208141875261248@11"}, {7878399991.413355, -6, "787839999141335@9"},
      {999999999999999.5, -1, "1@15"}, {5.3179261038530848e-109, -124, "531792610385308@-109"},
      {DBL_MAX, 308, "2@308"}, {DBL_MAX, 293, "179769313486232@308"}, {DBL_MAX, 309, "0"},
      {5e-324, -330, "4940656@-324"}, {1e-310, -400, "999999999999997@-311"},
      {2.2e-308, -322, "22@-308"}, {6e-321, -320, "1@-320"}, {4e-321, -320, "0"}};
  for (const auto &c : cases) {
    EXPECT_EQ(describe(round_to_place(c.magnitude, c.place)), c.expected) << c.magnitude;
  }
}

}  // namespace
}  // namespace corvinel::numeric

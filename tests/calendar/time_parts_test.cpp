// The clock remainder the time routines take (by a day, an hour, a minute
// and a second) against the C library's fmod,
// bit for bit (signed zeros included): random doubles of every magnitude up
// to and past 2^53, whole multiples of the divisors and their neighbours
// one unit in the last place away, both signs.  The parts of a count taken
// at once against the four routines that take them one by one.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "calendar/calendar_rules.h"
#include "calendar/time_split.h"
#include "corvinel/calendar.h"
#include "corvinel/missing.h"

namespace {

using corvinel::calendar::exact_remainder;

TEST(ExactRemainder, IsFmodBitForBit) {
  std::mt19937_64 random(86400);
  std::vector<double> values = {0.0,   -0.0,  1e-300, -1e-300, 0x1p53,  -0x1p53, 0x1p53 - 1,
                                1e300, -1e300, std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()};
  for (int i = 0; i < 200000; ++i) {
    // Magnitudes spread over the exponents, not only the large ones.
    const double magnitude = std::ldexp(std::generate_canonical<double, 53>(random),
                                        static_cast<int>(random() % 60) - 4);
    values.push_back(random() % 2 ? magnitude : -magnitude);
  }
  for (const double divisor : {86400.0, 3600.0, 60.0}) {
    for (int64_t k = -7000000; k <= 7000000; k += 9973) {
      const double multiple = static_cast<double>(k) * divisor;
      values.push_back(multiple);
      values.push_back(std::nextafter(multiple, INFINITY));
      values.push_back(std::nextafter(multiple, -INFINITY));
    }
  }
  for (const double divisor : {86400.0, 3600.0, 60.0, 1.0}) {
    for (const double x : values) {
      const double ours = exact_remainder(x, divisor);
      const double theirs = std::fmod(x, divisor);
      ASSERT_EQ(std::bit_cast<uint64_t>(ours), std::bit_cast<uint64_t>(theirs))
          << x << " mod " << divisor;
    }
  }
}

TEST(SplitSeconds, IsZdatprtZhourZminuteZsecond) {
  std::mt19937_64 random(1582);
  std::vector<double> values = {0.0, -0.0, 1, 59, 86399, 86401, 2e9, 0x1p32 - 1, 0x1p32,
                                0x1p32 - 0.5, -1, -1e-12, 86399.9999999, 86400, -86400,
                                -11928470400.0, -11928470400.5, 569318630399.999, 569318630400.0,
                                std_miss_val, std::numeric_limits<double>::quiet_NaN(),
                                -std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::denorm_min(),
                                std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity()};
  for (int i = 0; i < 100000; ++i) {
    values.push_back(-1.2e10 + std::generate_canonical<double, 53>(random) * 5.82e11);
    values.push_back(std::trunc(values.back()));
  }
  const auto bits = [](double x) { return std::bit_cast<uint64_t>(x); };
  for (const double v : values) {
    const corvinel::calendar::ClockParts parts = corvinel::calendar::split_seconds(v);
    ASSERT_EQ(bits(parts.date), bits(zdatprt(v))) << v;
    ASSERT_EQ(bits(parts.hour), bits(zhour(v))) << v;
    ASSERT_EQ(bits(parts.minute), bits(zminute(v))) << v;
    ASSERT_EQ(bits(parts.second), bits(zsecond(v))) << v;
  }
}

}  // namespace

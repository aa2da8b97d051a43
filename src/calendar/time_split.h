// The parts of a seconds count that zdatprt, zhour, zminute and zsecond
// give, at once: the remainder by the day is taken once for all four.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace corvinel::calendar {

struct ClockParts {
  double date;  // zdatprt
  double hour, minute, second;  // zhour, zminute, zsecond
};

// split_seconds past its first case.
ClockParts split_other_seconds(double seconds);

// Exactly the four routines' results for `seconds` (all the standard
// missing value when they would be).  A whole count from +0 up to 2^32
// (times of day, datetimes to 2096) lies in the valid range and is its own
// remainder's sign, and date_of's floor is the plain quotient: it splits by
// 32-bit divisions by constants, here where the caller can inline them.
// The range is one unsigned compare of the bits: +0 up to 2^32 are the
// doubles whose bits lie below those of 2^32; -0, negatives and NaNs lie
// above.
inline ClockParts split_seconds(double seconds) {
  uint64_t bits;
  std::memcpy(&bits, &seconds, sizeof bits);
  if (bits < 0x41F0000000000000u) {  // the bits of 0x1p32
    static_assert(std::bit_cast<uint64_t>(0x1p32) == 0x41F0000000000000u);
    const auto count = static_cast<uint32_t>(seconds);
    if (static_cast<double>(count) == seconds) {
      const uint32_t into_day = count % 86400;
      return {static_cast<double>(count / 86400), static_cast<double>(into_day / 3600),
              static_cast<double>(into_day % 3600 / 60), static_cast<double>(into_day % 60)};
    }
  }
  return split_other_seconds(seconds);
}

}  // namespace corvinel::calendar

// The parts of a seconds count that zdatprt, zhour, zminute and zsecond
// give, at once: the remainder by the day is taken once for all four.
#pragma once

#include <cstdint>

namespace corvinel::calendar {

struct ClockParts {
  double date;  // zdatprt
  double hour, minute, second;  // zhour, zminute, zsecond
};

// split_seconds past its first case.
ClockParts split_other_seconds(double seconds);

// Exactly the four routines' results for `seconds` (all the standard
// missing value when they would be).  A positive whole count below 2^32
// (times of day, datetimes to 2096) lies in the valid range and is its own
// remainder's sign, and date_of's floor is the plain quotient: it splits by
// 32-bit divisions by constants, here where the caller can inline them.
inline ClockParts split_seconds(double seconds) {
  if (seconds > 0 && seconds < 0x1p32) {
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

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

// Whether `seconds` is a whole count from +0 up to below 2^32 (times of
// day, datetimes to 2096), and the count.  The range is one unsigned
// compare of the bits: +0 up to 2^32 are the doubles whose bits lie below
// those of 2^32; -0, negatives and NaNs lie above.
inline bool whole_count_below_2_32(double seconds, uint32_t &count) {
  uint64_t bits;
  std::memcpy(&bits, &seconds, sizeof bits);
  static_assert(std::bit_cast<uint64_t>(0x1p32) == 0x41F0000000000000u);
  if (bits >= 0x41F0000000000000u) return false;
  count = static_cast<uint32_t>(seconds);
  return static_cast<double>(count) == seconds;
}

// The four routines' results for such a count: it lies in the valid range
// and is its own remainder's sign, and date_of's floor is the plain
// quotient, so it splits by 32-bit divisions by constants.
inline ClockParts split_count(uint32_t count) {
  const uint32_t into_day = count % 86400;
  return {static_cast<double>(count / 86400), static_cast<double>(into_day / 3600),
          static_cast<double>(into_day % 3600 / 60), static_cast<double>(into_day % 60)};
}

// Exactly the four routines' results for `seconds` (all the standard
// missing value when they would be): a whole count in line, where the
// caller can inline it.
inline ClockParts split_seconds(double seconds) {
  uint32_t count;
  if (whole_count_below_2_32(seconds, count)) return split_count(count);
  return split_other_seconds(seconds);
}

}  // namespace corvinel::calendar

// Seconds rounded to a number of fraction digits in integer arithmetic.
//
// A datetime or time shown with d fraction digits is its double's exact
// binary value rounded to units of 10^-d (half away from zero), and only
// then split into date, hour, minute, second and fraction: a carry reaches
// the second, the minute, the hour and the date (23:59:59.9996 with three
// digits is the next day at 00:00:00.000), and the digits are the decimal
// value's own, never one too low because the double lies a hair below it.
//
// The rounded second goes on to the digit writers as a double below 64
// (second + units / 10^d), which keeps kExactFractionDigits places apart
// with a wide margin; the writers take the units back by rounding the same
// way.  Digits past those places are written as zeros: a double holds
// about sixteen significant digits, none of them that far down a datetime.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace corvinel::nldate {

inline constexpr int32_t kExactFractionDigits = 12;

inline constexpr uint64_t kPowersOfTen[kExactFractionDigits + 1] = {
    1,         10,         100,         1000,         10000,         100000,       1000000,
    10000000,  100000000,  1000000000,  10000000000,  100000000000,  1000000000000};

// A value rounded: `seconds` + `units` / 10^digits, units in 0 .. 10^digits - 1,
// seconds the floor (so a negative value's fraction counts up from it).
struct RoundedSeconds {
  int64_t seconds;
  uint64_t units;
};

// `value` rounded to units of 10^-digits (digits 0 .. kExactFractionDigits).
// The value is finite with a magnitude below 2^62.
inline RoundedSeconds round_seconds(double value, int32_t digits) noexcept {
  const uint64_t scale = kPowersOfTen[digits];
  const auto bits = std::bit_cast<uint64_t>(value);
  const int biased = static_cast<int>((bits >> 52) & 0x7FF);
  const bool negative = (bits >> 63) != 0;
  uint64_t whole = 0;
  uint64_t units = 0;
  // Magnitudes below 2^-64 scale to less than half a unit.
  if (biased >= 1023 - 64) {
    const uint64_t mantissa = (bits & ((uint64_t{1} << 52) - 1)) | (uint64_t{1} << 52);
    const int shift = 1075 - biased;  // magnitude = mantissa / 2^shift
    if (shift <= 0) {
      whole = mantissa << -shift;
    } else {
      whole = shift >= 64 ? 0 : mantissa >> shift;
      const uint64_t fraction = shift >= 64 ? mantissa : mantissa & ((uint64_t{1} << shift) - 1);
      // fraction * scale < 2^93; adding half of 2^shift (shift <= 116) and
      // shifting rounds half up, exactly.
      const unsigned __int128 scaled = static_cast<unsigned __int128>(fraction) * scale +
                                       (static_cast<unsigned __int128>(1) << (shift - 1));
      units = static_cast<uint64_t>(scaled >> shift);
      if (units == scale) {
        ++whole;
        units = 0;
      }
    }
  }
  if (!negative) return {static_cast<int64_t>(whole), units};
  if (units == 0) return {-static_cast<int64_t>(whole), 0};
  return {-static_cast<int64_t>(whole) - 1, scale - units};
}

// A count of seconds as its day (the floor, so a negative count lies in a
// day before 1 January 1960) and the seconds into that day.
struct DaySplit {
  int64_t day;
  int64_t into_day;
};
inline DaySplit split_days(int64_t seconds) noexcept {
  DaySplit split{seconds / 86400, seconds % 86400};
  if (split.into_day < 0) {
    split.into_day += 86400;
    --split.day;
  }
  return split;
}

// The seconds of a rounded value as the writers take them: the second of
// the minute with its fraction.
inline double second_with_fraction(int64_t second, uint64_t units, int32_t digits) noexcept {
  if (units == 0) return static_cast<double>(second);
  return static_cast<double>(second) +
         static_cast<double>(units) / static_cast<double>(kPowersOfTen[digits]);
}

// The units of 10^-digits in the fraction of a second (its magnitude) as
// the writers show them: rounded like round_seconds, and never carrying
// into the second already written (a second rounded by the entry routines
// never does).
inline uint64_t fraction_units(double second, int32_t digits) noexcept {
  const double magnitude = std::fabs(second);
  if (!(magnitude < 0x1p62)) return 0;
  const RoundedSeconds rounded = round_seconds(magnitude, digits);
  if (static_cast<double>(rounded.seconds) > magnitude) return kPowersOfTen[digits] - 1;
  return rounded.units;
}

}  // namespace corvinel::nldate

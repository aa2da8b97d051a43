// The calendar's rules in integer form: the two-digit-year window, the leap
// year test with its 4000-year exception, the day-count formula and the
// limits of the valid range.  Shared by the calendar routines and the
// classic renderings; nothing here is exported.
#pragma once

#include <cmath>
#include <cstdint>

namespace corvinel::calendar {

// Two-digit years fall in the hundred years that begin at this year.  The
// window is derived from this one constant and nowhere else.
inline constexpr int64_t kCutoffYear = 1950;

// yy (0..99) as a four-digit year: the century of the cut-off year, plus a
// hundred when yy lies before the cut-off's own two digits.
constexpr int64_t widen_two_digit_year(int64_t yy) {
  constexpr int64_t century = kCutoffYear - kCutoffYear % 100;
  constexpr int64_t first_yy = kCutoffYear % 100;
  return century + yy + (yy < first_yy ? 100 : 0);
}

// 1 for a leap year, else 0.  Deliberate: a year divisible by 4000 is not a
// leap year, so 4000, 8000, ... 20000 have 365 days.
constexpr int is_leap_year(int64_t year) {
  if (year % 4000 == 0) return 0;
  if (year % 400 == 0) return 1;
  if (year % 100 == 0) return 0;
  return year % 4 == 0 ? 1 : 0;
}

// Leap days in the years 1 .. y (y >= 0), by the same rule.
constexpr int64_t leap_days_through(int64_t y) {
  return y / 4 - y / 100 + y / 400 - y / 4000;
}

// The day-count formula: the date value of day ddd of year y (y >= 1).
// 365*y + leap_days_through(y - 1) + ddd counts days from the start of a
// 365-day year 0; 1 January 1960 is 1 + 365*1960 + (489 - 19 + 4 - 0) =
// 715875 on that count, which the subtraction moves to 0.
inline constexpr int64_t kEpochOffset = 715875;
constexpr int64_t day_number(int64_t y, int64_t ddd) {
  return ddd + 365 * y + leap_days_through(y - 1) - kEpochOffset;
}
static_assert(day_number(1960, 1) == 0);

// The valid range: 1 January 1582 .. 31 December 20000 as date values, and
// the same days in seconds (end exclusive).
inline constexpr int64_t kFirstDay = -138061;
inline constexpr int64_t kEndDay = 6589336;
inline constexpr double kFirstSecond = -11928470400.0;
inline constexpr double kEndSecond = 569318630400.0;
inline constexpr int64_t kSecondsPerDay = 86400;
static_assert(day_number(1582, 1) == kFirstDay);
static_assert(day_number(20000, 365) == kEndDay - 1);
static_assert(kFirstDay * kSecondsPerDay == static_cast<int64_t>(kFirstSecond));
static_assert(kEndDay * kSecondsPerDay == static_cast<int64_t>(kEndSecond));

// The largest Julian value any routine accepts (31 December 20000).
inline constexpr double kLastJulian = 20000365.0;

constexpr bool is_valid_date(double date) {
  return date >= static_cast<double>(kFirstDay) && date < static_cast<double>(kEndDay);
}
constexpr bool is_valid_seconds(double seconds) {
  return seconds >= kFirstSecond && seconds < kEndSecond;
}

// Julian value yyyy*1000 + ddd of a whole day number inside the valid range,
// in integer arithmetic and without a loop: Howard Hinnant's civil_from_days
// adapted to the 4000-year rule.
//
// Count days from 1 March of year 0 (z = 0), so that every leap day is the
// last day of its year and of every cycle it ends.  The day-count formula
// puts 1 March of year 0 at 60 - 715875 (year 0 is divisible by 4000, so
// its February has 28 days), hence z = day + 715815.  Over the valid range z
// runs from 577754 to 7175150, so all divisions below are of non-negative
// numbers and truncate like floors; by constant divisors, they compile to
// multiplications by reciprocals and shifts.
//
// Cycles, counted in March-based years (March y .. February y+1):
// - 4000 years: the Februaries of years 1 .. 4000, of which 4000 is not a
//   leap year: 10 * 146097 - 1 = 1460969 days.  The missing day, 29
//   February 4000, would have been the cycle's last day.
// - 400 years inside it: 146097 days (97 leap days), except the tenth,
//   which lacks that last day (146096).  Its first 146096 days are laid out
//   exactly as in any other 400-year cycle, so the Gregorian formulas below
//   hold for it unchanged.
// - Within 400 years (doe = day of era, 0..146096), Hinnant's year of era:
//   yoe = (doe - doe/1460 + doe/36524 - doe/146096) / 365.  doe/1460 takes
//   out the leap day ending each 4-year block (1460 = 4*365), doe/36524 puts
//   back the one a century lacks (36524 = 100*365 + 24), doe/146096 takes
//   out the leap day ending the era; what is left counts 365-day years.
// - doy = doe - (365*yoe + yoe/4 - yoe/100) is the day of the March-based
//   year, 0..365; doy >= 306 (March to December have 306 days) lies in
//   January or February of the next calendar year.
constexpr int64_t julian_of_day(int64_t day) {
  constexpr int64_t kMarchZeroOffset = kEpochOffset - 60;  // 715815
  constexpr int64_t kDaysPer4000 = 10 * 146097 - 1;        // 1460969
  const int64_t z = day + kMarchZeroOffset;
  const int64_t cycle4000 = z / kDaysPer4000;
  const int64_t day_of_cycle = z - cycle4000 * kDaysPer4000;  // 0..1460968
  const int64_t era = day_of_cycle / 146097;                   // 0..9
  const int64_t doe = day_of_cycle - era * 146097;
  const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const int64_t year = 4000 * cycle4000 + 400 * era + yoe + (doy >= 306 ? 1 : 0);
  // Day of year by the day-count formula: day - (31 December of year - 1).
  return 1000 * year + (day - day_number(year, 0));
}

static_assert(julian_of_day(0) == 1960001);
static_assert(julian_of_day(-1) == 1959365);
static_assert(julian_of_day(kFirstDay) == 1582001);
static_assert(julian_of_day(kEndDay - 1) == 20000365);

// fmod(x, y) for the divisors of a clock (86400, 3600, 60) and |x| below
// 2^53, in a few instructions: glibc's fmod reduces a large quotient bit by
// bit, hundreds of instructions for a datetime.  The quotient is taken by a
// division and may be one off; x - q*y is then still exact (q*y is an
// integer below 2^53, so a multiple of x's last place, and the difference
// lies within two divisors), and one step in either direction brings it
// into the remainder's range exactly.  A zero takes x's sign, as fmod's
// result does.  Other arguments go to fmod.
inline double exact_remainder(double x, double y) {
  if (!(std::fabs(x) < 0x1p53)) return std::fmod(x, y);
  const double q = std::trunc(x / y);
  double r = x - q * y;
  if (x >= 0) {
    if (r < 0) r += y;
    else if (r >= y) r -= y;
  } else {
    if (r > 0) r -= y;
    else if (r <= -y) r += y;
  }
  return r == 0 ? std::copysign(0.0, x) : r;
}

}  // namespace corvinel::calendar

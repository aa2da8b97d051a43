// The date helpers behind get_yywwdd and the digit writer the expander
// uses for numbers wider than 32 bits.
#pragma once

#include <cstdint>

namespace corvinel::nldate {

// Month, day and year of a valid date value; returns the month.
int32_t getMonthDayYear(int32_t *month, int32_t *day, int32_t *year, double date);

// Days from the first date to the second, and the actual/actual year
// fraction of that span (days in common years / 365 + days in leap years /
// 366).  Months after February are counted with the correction
// int(0.4 * month + 2.3) and leap years by the Gregorian rule, also for
// years divisible by 4000 (where the host's calendar has no 29 February).
void diff_actact(int32_t month1, int32_t day1, int32_t year1, int32_t month2, int32_t day2,
                 int32_t year2, int64_t *days, double *year_fraction);

// i2s for a 64-bit magnitude: the lowest `width` digits (all of them with
// pad 0), leading zeros replaced by a pad other than '0'.  Returns the
// count written; `destination` needs room for 20 bytes with pad 0.
int32_t write_digits(uint64_t value, char *destination, int32_t width, char pad);

// True for a year that is a leap year by the Gregorian rule.
constexpr bool gregorian_leap(int64_t year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

}  // namespace corvinel::nldate

/* Calendar arithmetic in the host's date conventions.

   Date value:     days since 1 January 1960 (day 0); valid from 1 January
                   1582 (day -138061) to 31 December 20000 (day 6589335).
   Datetime value: seconds since 1 January 1960 00:00:00; valid from
                   -11928470400 inclusive to 569318630400 exclusive.
   Time value:     seconds since midnight.
   Julian value:   yyyy * 1000 + ddd, ddd the day of the year (1..366).

   The calendar is Gregorian except that a year divisible by 4000 is not a
   leap year (deliberate; every date after 28 February 4000 lies one day
   off the plain Gregorian count).  Years 100..1581 are invalid; years 0..99
   are two-digit years and fall in the hundred years from 1950 (0..49 ->
   2000..2049, 50..99 -> 1950..1999).

   Every routine is a pure function of its arguments.  Invalid or missing
   arguments give the standard missing value std_miss_val; zjuldat and zqtr
   hand a missing argument back unchanged (so special missing values
   survive).  Non-missing NaNs and infinities are invalid. */
#ifndef CORVINEL_CALENDAR_H
#define CORVINEL_CALENDAR_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* Days of each month, January first.  February's entry is 0 on purpose:
   every user puts 28 plus the leap-year flag in its place. */
CORVINEL_API extern const int32_t dpm[12];

/* Julian value of year/month/day.  The bounds are tested on the unrounded
   arguments (month 1..12, day 1..31, year 0..99 or 1582..20000); then the
   year and month are truncated and the day must not exceed the month's
   length (30.5 is accepted in a 31-day month, 28.5 refused in a 28-day
   February). */
CORVINEL_API double zjulymd(double year, double month, double day);
/* Splits a Julian value into four-digit year, month and day; all three
   become missing when the value is invalid.  ddd 0 (yyyy000) yields month 1,
   day 0. */
CORVINEL_API void zymdjul(double *year, double *month, double *day, double julian);
/* Date value of a Julian value.  yyyy000 is accepted and gives 31 December
   of the year before. */
CORVINEL_API double zdatjul(double julian);
/* Julian value (four-digit year) of a date value; the fraction is floored. */
CORVINEL_API double zjuldat(double date);
/* Date value of month/day/year: zdatjul(zjulymd(year, month, day)). */
CORVINEL_API double zmdy(double month, double day, double year);
/* Date value of the first day of a quarter. */
CORVINEL_API double zyyq(double year, double quarter);

/* Parts of a date value. */
CORVINEL_API double zday(double date);   /* 1..31 */
CORVINEL_API double zmonth(double date); /* 1..12 */
CORVINEL_API double zyear(double date);  /* four-digit year */
CORVINEL_API double zqtr(double date);   /* 1..4 */
/* 1 = Sunday .. 7 = Saturday from 2 January 1600 on.  Before that the
   remainder is taken toward zero on a negative number, so every weekday but
   Sunday comes out 7 lower (-5..0) while Sundays still give 1; deliberate,
   the host's users rely on it. */
CORVINEL_API double zwekday(double date);

/* Parts of a time or datetime in seconds (negative values count back from
   midnight: -0.5 is 23:59:59.5). */
CORVINEL_API double zhour(double seconds);   /* 0..23 */
CORVINEL_API double zminute(double seconds); /* 0..59 */
CORVINEL_API double zsecond(double seconds); /* 0 <= s < 60, fraction kept */
/* Date value of the day a datetime falls on. */
CORVINEL_API double zdatprt(double datetime);
/* Time of day of a datetime, 0 <= t < 86400, fraction kept. */
CORVINEL_API double ztimprt(double datetime);

CORVINEL_EXTERN_C_END

#endif

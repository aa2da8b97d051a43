// get_yywwdd, zkfweek and i2s: week numbers in three styles and the digit
// writer of the date formats.
#include "nldate/week_numbering.h"

#include <cmath>
#include <cstring>

#include "calendar/calendar_rules.h"
#include "corvinel/calendar.h"
#include "corvinel/missing.h"
#include "corvinel/weeks.h"

namespace corvinel::nldate {
namespace {

// A day count from a fixed origin with 31 days per month, the usual
// correction for the months after February and the Gregorian leap days of
// the years before (for January and February, of the years before the one
// before): the classic actual-day-count formula.
int64_t day_serial(int64_t year, int64_t month, int64_t day) {
  int64_t serial = 365 * year + day + 31 * (month - 1);
  const int64_t leap_base = month <= 2 ? year - 1 : year;
  if (month > 2) serial -= static_cast<int64_t>(0.4 * static_cast<double>(month) + 2.3);
  // Leap days before the leap_base's end: every fourth year, less the
  // centuries that are not divisible by 400.
  const auto floor_div = [](int64_t a, int64_t b) { return a >= 0 ? a / b : -((-a + b - 1) / b); };
  serial += floor_div(leap_base, 4) - floor_div(leap_base, 100) + floor_div(leap_base, 400);
  return serial;
}

double year_length(int64_t year) { return gregorian_leap(year) ? 366.0 : 365.0; }

// The date's parts when it is a valid date value.
bool valid_date(double date) { return !zmiss(date) && date >= -138061 && date < 6589336; }

// The weekday of a valid date, 1 = Sunday .. 7 = Saturday, for every day of
// the range: days counted from 2 January 1600, a Sunday, with the
// remainder taken non-negative.
int64_t true_weekday(double date) {
  const int64_t k = static_cast<int64_t>(std::floor(date)) + 131486;
  return (k % 7 + 7) % 7 + 1;
}

}  // namespace

int32_t getMonthDayYear(int32_t *month, int32_t *day, int32_t *year, double date) {
  double y = 0, m = 0, d = 0;
  zymdjul(&y, &m, &d, zjuldat(date));
  const bool ok = !zmiss(y);
  *month = ok ? static_cast<int32_t>(m) : -1;
  *day = ok ? static_cast<int32_t>(d) : -1;
  *year = ok ? static_cast<int32_t>(y) : -1;
  return *month;
}

void diff_actact(int32_t month1, int32_t day1, int32_t year1, int32_t month2, int32_t day2,
                 int32_t year2, int64_t *days, double *year_fraction) {
  const int64_t first = day_serial(year1, month1, day1);
  const int64_t second = day_serial(year2, month2, day2);
  *days = second - first;
  if (year1 == year2) {
    *year_fraction = static_cast<double>(*days) / year_length(year1);
    return;
  }
  // The first year's rest, the whole years between, the last year's part.
  double fraction = static_cast<double>(day_serial(int64_t{year1} + 1, 1, 1) - first) /
                    year_length(year1);
  for (int64_t y = int64_t{year1} + 1; y < year2; ++y) fraction += 1.0;
  fraction += static_cast<double>(second - day_serial(year2, 1, 1)) / year_length(year2);
  *year_fraction = fraction;
}

int32_t write_digits(uint64_t value, char *destination, int32_t width, char pad) {
  if (pad == 0) {
    width = 1;
    for (uint64_t rest = value / 10; rest != 0; rest /= 10) ++width;
  }
  if (width <= 0) return 0;
  if (destination == nullptr) return width;
  for (int32_t i = width - 1; i >= 0; --i) {
    destination[i] = static_cast<char>('0' + value % 10);
    value /= 10;
  }
  if (pad != '0' && pad != 0) {
    for (int32_t i = 0; i < width - 1 && destination[i] == '0'; ++i) destination[i] = pad;
  }
  return width;
}

}  // namespace corvinel::nldate

using namespace corvinel::nldate;

extern "C" int32_t i2s(int32_t value, char *destination, int32_t width, char pad) {
  const uint64_t magnitude =
      value < 0 ? static_cast<uint64_t>(-static_cast<int64_t>(value)) : static_cast<uint64_t>(value);
  return write_digits(magnitude, destination, width, pad);
}

// The three styles counted in the module's own calendar: the day of the
// year from zjuldat (so a year divisible by 4000 has no 29 February here
// either) and the true weekday, also for the days before 1600, where
// zwekday keeps its odd negative numbers.
extern "C" int32_t get_yywwdd(const char *style, void * /*passthrough*/, double *year, double *week,
                              double *day, double date) {
  if (year == nullptr || week == nullptr || day == nullptr) return 0;
  *year = *week = *day = -1;
  if (style == nullptr || !valid_date(date)) return 0;

  const double julian = zjuldat(date);
  const auto y = static_cast<int64_t>(julian / 1000);
  const int64_t n = static_cast<int64_t>(julian) - 1000 * y - 1;  // 0 on 1 January
  const int64_t wd = true_weekday(date);  // 1 = Sunday .. 7 = Saturday
  *year = static_cast<double>(y);
  *day = static_cast<double>(((n + 2) % 7) + 1);

  switch (*style) {
    case 'U':
      *week = static_cast<double>(n - wd + 8) / 7.0;
      *day = static_cast<double>(wd);
      break;
    case 'W':
      *week = static_cast<double>(n - ((wd + 5) % 7) + 7) / 7.0;
      *day = static_cast<double>(wd == 1 ? 7 : wd - 1);
      break;
    case 'V': {
      int64_t iso_year = y;
      int64_t k = n - ((n - wd + 383) % 7) + 3;
      if (k < 0) {
        // The last week of the previous year.
        iso_year = y - 1;
        const int64_t leap = corvinel::calendar::is_leap_year(iso_year);
        k = n + leap - ((leap + n - wd + 748) % 7) + 368;
      } else {
        const int64_t leap = corvinel::calendar::is_leap_year(y);
        const int64_t t = n - leap - ((n - wd - leap + 18) % 7) - 362;
        if (t >= 0) {
          // Week 1 of the next year.
          iso_year = y + 1;
          k = t;
        }
      }
      *week = static_cast<double>(k / 7 + 1);
      *year = static_cast<double>(iso_year);
      *day = static_cast<double>(wd == 1 ? 7 : wd - 1);
      break;
    }
    default:
      break;
  }
  return 0;
}

extern "C" int32_t zkfweek(char *output, int32_t *width, const char *style, void *passthrough,
                           double date) {
  if (output == nullptr || width == nullptr) return 0;
  const int32_t field = *width > 0 ? *width : 0;
  if (field > 0) std::memset(output, ' ', static_cast<size_t>(field));

  double year = -1, week = -1, day = -1;
  get_yywwdd(style, passthrough, &year, &week, &day, date);
  if (year < 0 || week < 0 || day < 0) {
    if (field > 0) std::memset(output, '*', static_cast<size_t>(field));
    return 0;
  }
  const auto y = static_cast<int32_t>(year);
  const auto ww = static_cast<int32_t>(week);
  const auto dd = static_cast<int32_t>(day);

  char *p = output;
  if (field <= 2) {
    p += i2s(ww, p, 2, '0');
  } else if (field <= 4) {
    *p++ = 'W';
    p += i2s(ww, p, 2, '0');
  } else {
    if (field <= 8) {
      p += i2s(y % 100, p, 2, '0');
    } else {
      p += i2s(y / 100, p, 2, '0');
      p += i2s(y % 100, p, 2, '0');
    }
    const bool dashed = field >= 11;
    if (dashed) *p++ = '-';
    *p++ = 'W';
    p += i2s(ww, p, 2, '0');
    if (field >= 7) {
      if (dashed) *p++ = '-';
      p += i2s(dd, p, 2, '0');
    }
  }
  *width = static_cast<int32_t>(p - output);
  return 0;
}

// Conversions between date values, Julian values (yyyy*1000 + ddd) and
// year/month/day, and the parts of a date value.
#include <cmath>
#include <cstdint>

#include "calendar/calendar_rules.h"
#include "corvinel/calendar.h"
#include "corvinel/missing.h"

extern "C" constexpr int32_t dpm[12] = {31, 0, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

namespace corvinel::calendar {
namespace {

constexpr int32_t month_length(int month_index, int leap) {
  return month_index == 1 ? 28 + leap : dpm[month_index];
}

// Days of a common year before each month.
constexpr int32_t kDaysBeforeMonth[12] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
static_assert([] {
  for (int m = 1; m < 12; ++m) {
    if (kDaysBeforeMonth[m] != kDaysBeforeMonth[m - 1] + month_length(m - 1, 0)) return false;
  }
  return true;
}());

// Year (widened to four digits) and day of year of a Julian value, or
// valid = false when zymdjul and zdatjul refuse it.
struct SplitJulian {
  int64_t year;
  int64_t ddd;
  bool valid;
};

SplitJulian split_julian(double julian) {
  constexpr SplitJulian kInvalid{0, 0, false};
  if (!(julian > 0 && julian <= kLastJulian)) return kInvalid;  // NaNs too
  const auto v = static_cast<int64_t>(julian);
  if (v < 1) return kInvalid;
  int64_t year = v / 1000;
  const int64_t ddd = v - 1000 * year;
  if ((year >= 100 && year <= 1581) || ddd > 366) return kInvalid;
  if (year < 100) year = widen_two_digit_year(year);
  if (ddd > 365 + is_leap_year(year)) return kInvalid;
  return {year, ddd, true};
}

struct CivilDate {
  double year;
  double month;
  double day;
};

// zymdjul's answer by value.
CivilDate civil_of_julian(double julian) {
  const SplitJulian split = split_julian(julian);
  if (!split.valid) return {std_miss_val, std_miss_val, std_miss_val};
  const int leap = is_leap_year(split.year);
  if (leap == 1 && split.ddd == 60) return {static_cast<double>(split.year), 2, 29};
  // The month, found without walking the months: for day c of a common
  // year in month m (from 0), (c - 1) / 31 is m or m - 1, because at least
  // 31 * (m - 1) days precede month m and it ends by day 31 * (m + 1).  One
  // comparison settles which.  ddd 0 gives month 1, day 0, as walking the
  // months would.
  const int64_t common_day = (leap == 1 && split.ddd > 60) ? split.ddd - 1 : split.ddd;
  auto m = static_cast<int>((common_day - 1) / 31);
  if (m < 11 && common_day > kDaysBeforeMonth[m + 1]) ++m;
  return {static_cast<double>(split.year), static_cast<double>(m + 1),
          static_cast<double>(common_day - kDaysBeforeMonth[m])};
}

}  // namespace

}  // namespace corvinel::calendar

using namespace corvinel::calendar;

extern "C" {

double zjulymd(double year, double month, double day) {
  const bool in_bounds = month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
                         year >= 0 && (year <= 99 || (year >= 1582 && year <= 20000));
  if (!in_bounds) return std_miss_val;
  auto y = static_cast<int64_t>(year);
  if (y <= 99) y = widen_two_digit_year(y);
  const int leap = is_leap_year(y);
  const auto m = static_cast<int>(month - 1);
  if (day > month_length(m, leap)) return std_miss_val;
  const int64_t before = kDaysBeforeMonth[m] + (m > 1 ? leap : 0);
  return std::trunc(day) + static_cast<double>(1000 * y + before);
}

void zymdjul(double *year, double *month, double *day, double julian) {
  const CivilDate civil = civil_of_julian(julian);
  *year = civil.year;
  *month = civil.month;
  *day = civil.day;
}

double zdatjul(double julian) {
  const SplitJulian split = split_julian(julian);
  if (!split.valid) return std_miss_val;
  return static_cast<double>(day_number(split.year, split.ddd));
}
double zjuldat(double date) {
  if (zmiss(date)) return date;
  if (!is_valid_date(date)) return std_miss_val;
  // The floor, without the library call: the date lies well inside int64.
  auto day = static_cast<int64_t>(date);
  if (static_cast<double>(day) > date) --day;
  return static_cast<double>(julian_of_day(day));
}

double zmdy(double month, double day, double year) {
  const double julian = zjulymd(year, month, day);
  return zmiss(julian) ? julian : zdatjul(julian);
}

double zyyq(double year, double quarter) { return zmdy((quarter - 1) * 3 + 1, 1, year); }

}  // extern "C"

namespace {

enum class DatePart { kYear, kMonth, kDay };

double date_part(double date, DatePart part) {
  const double julian = zjuldat(date);
  if (zmiss(julian)) return julian;
  const CivilDate civil = civil_of_julian(julian);
  switch (part) {
    case DatePart::kYear: return civil.year;
    case DatePart::kMonth: return civil.month;
    case DatePart::kDay: break;
  }
  return civil.day;
}

}  // namespace

extern "C" {

double zday(double date) { return date_part(date, DatePart::kDay); }
double zmonth(double date) { return date_part(date, DatePart::kMonth); }
double zyear(double date) { return date_part(date, DatePart::kYear); }

double zqtr(double date) {
  if (zmiss(date)) return date;
  const double month = zmonth(date);
  if (zmiss(month)) return month;
  return std::floor((month - 1) / 3) + 1;
}

// 1 January 1600 is day -131487: the 360 years 1600..1959 have 360*365 days
// and 87 leap days (the 90 multiples of 4 from 1600 to 1956, less 1700, 1800
// and 1900).  So day -131486 is 2 January 1600, a Sunday, and k = day +
// 131486 is a multiple of 7 on every Sunday from then on.  Earlier days make
// k negative, and the remainder toward zero shifts every weekday but Sunday
// down by 7: the host's behaviour, kept on purpose.
double zwekday(double date) {
  if (zmiss(date) || !is_valid_date(date)) return std_miss_val;
  const auto k = static_cast<int64_t>(date + 131486);
  return static_cast<double>(k % 7 + 1);
}

}  // extern "C"

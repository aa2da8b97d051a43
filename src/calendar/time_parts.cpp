// Hours, minutes and seconds of a seconds count, and the date and time of
// day of a datetime.  Negative counts reach back from midnight, so -1 is
// 23:59:59 of the day before.
#include <cmath>

#include "calendar/calendar_rules.h"
#include "corvinel/calendar.h"
#include "corvinel/missing.h"

namespace {

using corvinel::calendar::is_valid_seconds;

constexpr double kDay = 86400;
// Seconds from 1 January 1582 to 1 January 1960: a whole number of days.
constexpr double kFirstSecondMagnitude = -corvinel::calendar::kFirstSecond;

bool usable(double seconds) { return !zmiss(seconds) && is_valid_seconds(seconds); }

// The seconds into the day that zminute and zsecond look at: for a negative
// count, the day's length less the magnitude of the remainder.
double seconds_into_day(double seconds) {
  const double r = std::fmod(seconds, kDay);
  return seconds < 0 ? kDay - std::fabs(r) : r;
}

}  // namespace

extern "C" {

double zhour(double seconds) {
  if (!usable(seconds)) return std_miss_val;
  double r = std::fmod(seconds, kDay);
  if (r < 0) r += kDay;
  // A remainder just below zero (-1e-12) rounds to a whole day when the day
  // is added; it belongs to hour 0, where zminute and zsecond put it too.
  if (r >= kDay) r = 0;
  return std::trunc(std::fabs(r / 3600));
}

double zminute(double seconds) {
  if (!usable(seconds)) return std_miss_val;
  return std::trunc(std::trunc(std::fmod(seconds_into_day(seconds), 3600)) / 60);
}

double zsecond(double seconds) {
  if (!usable(seconds)) return std_miss_val;
  return std::fmod(seconds_into_day(seconds), 60);
}

// The floor of datetime / 86400, taken on the non-negative count from
// 1 January 1582 so that truncation and floor agree.
double zdatprt(double datetime) {
  if (!usable(datetime)) return std_miss_val;
  return std::trunc((std::floor(datetime) + kFirstSecondMagnitude) / kDay) -
         static_cast<double>(-corvinel::calendar::kFirstDay);
}

double ztimprt(double datetime) {
  if (!usable(datetime)) return std_miss_val;
  if (datetime <= 0) datetime += kFirstSecondMagnitude;
  return std::fmod(datetime, kDay);
}

}  // extern "C"

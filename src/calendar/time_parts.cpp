// Hours, minutes and seconds of a seconds count, and the date and time of
// day of a datetime.  Negative counts reach back from midnight, so -1 is
// 23:59:59 of the day before.
#include <cmath>
#include <cstdint>

#include "calendar/calendar_rules.h"
#include "calendar/time_split.h"
#include "corvinel/calendar.h"
#include "corvinel/missing.h"

namespace {

using corvinel::calendar::exact_remainder;
using corvinel::calendar::is_valid_seconds;

constexpr double kDay = 86400;
// Seconds from 1 January 1582 to 1 January 1960: a whole number of days.
constexpr double kFirstSecondMagnitude = -corvinel::calendar::kFirstSecond;

// Missing values, like every NaN, lie outside the valid range.
bool usable(double seconds) { return is_valid_seconds(seconds); }

// The parts of a usable count from its remainder by the day r: the hour,
// and the seconds into the day that the minute and second look at (for a
// negative count, the day's length less the magnitude of the remainder).
double hour_of(double r) {
  if (r < 0) r += kDay;
  // A remainder just below zero (-1e-12) rounds to a whole day when the day
  // is added; it belongs to hour 0, where zminute and zsecond put it too.
  if (r >= kDay) r = 0;
  return std::trunc(std::fabs(r / 3600));
}
double seconds_into_day(double seconds, double r) { return seconds < 0 ? kDay - std::fabs(r) : r; }
double minute_of(double into_day) { return std::trunc(std::trunc(exact_remainder(into_day, 3600)) / 60); }
double second_of(double into_day) { return exact_remainder(into_day, 60); }

// The floor of datetime / 86400, taken on the non-negative count from
// 1 January 1582 so that truncation and floor agree.
double date_of(double datetime) {
  return std::trunc((std::floor(datetime) + kFirstSecondMagnitude) / kDay) -
         static_cast<double>(-corvinel::calendar::kFirstDay);
}

}  // namespace

namespace corvinel::calendar {

ClockParts split_other_seconds(double seconds) {
  if (!usable(seconds)) return {std_miss_val, std_miss_val, std_miss_val, std_miss_val};
  // A whole count (every datetime shown without fractions) splits in
  // integers: the remainders are those fmod gives, and the quotient by the
  // day on the non-negative count from 1582 is date_of's.  A positive count
  // splits as in split_seconds, in 64 bits.  Zero keeps its sign in the
  // minute and second, as fmod carries it.
  const auto whole = static_cast<int64_t>(seconds);
  if (seconds > 0 && static_cast<double>(whole) == seconds) {
    constexpr uint64_t kWholeDay = 86400;
    const auto count = static_cast<uint64_t>(whole);
    const auto days = static_cast<int64_t>(count / kWholeDay);
    const auto into_day = static_cast<uint32_t>(count % kWholeDay);
    return {static_cast<double>(days), static_cast<double>(into_day / 3600),
            static_cast<double>(into_day % 3600 / 60), static_cast<double>(into_day % 60)};
  }
  if (seconds == 0) return {0.0, 0.0, seconds, seconds};
  if (static_cast<double>(whole) == seconds) {
    constexpr int64_t kWholeDay = 86400;
    const int64_t r = whole % kWholeDay;  // the sign of the count, as fmod
    const int64_t hour = (r < 0 ? r + kWholeDay : r) / 3600;
    const int64_t into_day = whole < 0 ? kWholeDay - (r < 0 ? -r : r) : r;
    const auto first_second = static_cast<int64_t>(kFirstSecondMagnitude);
    return {static_cast<double>((whole + first_second) / kWholeDay + corvinel::calendar::kFirstDay),
            static_cast<double>(hour), static_cast<double>(into_day % 3600 / 60),
            static_cast<double>(into_day % 60)};
  }
  const double r = exact_remainder(seconds, kDay);
  const double into_day = seconds_into_day(seconds, r);
  return {date_of(seconds), hour_of(r), minute_of(into_day), second_of(into_day)};
}

}  // namespace corvinel::calendar

extern "C" {

double zhour(double seconds) {
  if (!usable(seconds)) return std_miss_val;
  return hour_of(exact_remainder(seconds, kDay));
}

double zminute(double seconds) {
  if (!usable(seconds)) return std_miss_val;
  return minute_of(seconds_into_day(seconds, exact_remainder(seconds, kDay)));
}

double zsecond(double seconds) {
  if (!usable(seconds)) return std_miss_val;
  return second_of(seconds_into_day(seconds, exact_remainder(seconds, kDay)));
}

double zdatprt(double datetime) {
  if (!usable(datetime)) return std_miss_val;
  return date_of(datetime);
}

double ztimprt(double datetime) {
  if (!usable(datetime)) return std_miss_val;
  if (datetime <= 0) datetime += kFirstSecondMagnitude;
  return exact_remainder(datetime, kDay);
}

}  // extern "C"

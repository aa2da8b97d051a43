// TIME (zfmtime), TOD (zfmtod) and TIMEAMPM (zfmtimm).
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "calendar/calendar_rules.h"
#include "calendar/classic_field.h"
#include "calendar/time_split.h"
#include "calendar/time_texts.h"
#include "corvinel/calendar.h"
#include "corvinel/classic_dates.h"
#include "corvinel/rounding.h"

namespace corvinel::calendar {

const double zpowten[32] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22, 1e23,
                            1e24, 1e25, 1e26, 1e27, 1e28, 1e29, 1e30, 1e31};

namespace {

constexpr double kDay = 86400;
constexpr double kMaxHours = 9007199254740992.0;  // 2^53
// The seconds field shows at most this many decimals (zpowten's last
// power); of its digits, whole seconds included, at most 15 significant
// ones are taken from the value, as in every classic number, and the
// places beyond them are zeros.
constexpr int32_t kMaxSecondDecimals = 31;
constexpr int32_t kTrustedDigits = 15;

int32_t digit_count(int64_t value) {
  int32_t digits = 1;
  for (; value >= 10; value /= 10) ++digits;
  return digits;
}

// Half a unit of the last requested decimal, plus 1e-8: a value that close
// to the next minute or hour is shown there.
double half_unit(int32_t decimals) {
  return 5 / zpowten[std::min(decimals, 30) + 1] + 0.00000001;
}

// Whether the seconds' fraction rounds up into the next whole second at n
// decimals.  The test at n > 0 is deliberately a little generous (a
// fraction digit of .4999999 already carries).
bool seconds_carry(double fraction, int32_t decimals) {
  if (decimals == 0) return fraction >= 0.5;
  if (!(fraction > 0.9)) return false;
  const double scale = zpowten[decimals];
  const double units = fraction * scale;
  return scale - units < 1 && units - std::trunc(units) > 0.4999999;
}

// The seconds field: whole seconds in two positions with a leading zero,
// then with n > 0 the point and n decimals, the fraction rounded half up at
// n decimals (as zround rounds), or at the fifteenth significant digit when
// that comes first.  The caller has taken every carry into the
// whole seconds, so the decimals stop at 9...9 and never show 60.  Returns
// the length, n + 2 (+1 for the point).  This is the fixed-point rendering
// of the classic w.d format at width n + 2 (+1) with its leading blank
// turned into "0"; it could be handed to zfmt.
int32_t put_seconds(char *out, int64_t whole, double fraction, int32_t decimals) {
  put_two_digits(out, static_cast<double>(whole));
  if (decimals == 0) return 2;
  out[2] = '.';
  const int32_t whole_digits = whole == 0 ? 0 : (whole < 10 ? 1 : 2);
  const int32_t significant = std::min(decimals, kTrustedDigits - whole_digits);
  double units = 0;
  zround(&units, fraction * zpowten[significant], 1);
  units = std::min(units, zpowten[significant] - 1);
  auto digits = static_cast<int64_t>(units);
  for (int32_t i = significant; i >= 1; --i, digits /= 10) {
    out[2 + i] = static_cast<char>('0' + digits % 10);
  }
  std::memset(out + 3 + significant, '0', static_cast<size_t>(decimals - significant));
  return 3 + decimals;
}

// Rewrites a rendering that shows hour 24 into the last instant of the day
// at the same precision: 24:00:00.000 becomes 23:59:59.999.
void clamp_to_last_instant(char *out, int64_t width) {
  int64_t i = 0;
  while (i < width && out[i] == ' ') ++i;
  if (i + 1 >= width || out[i] != '2' || out[i + 1] != '4') return;
  out[i + 1] = '3';
  const auto is_digit = [&](int64_t j) { return j < width && out[j] >= '0' && out[j] <= '9'; };
  int64_t j = i + 2;
  for (int group = 0; group < 2; ++group) {
    if (j < width && !is_digit(j)) ++j;
    for (char c : {'5', '9'}) {
      if (is_digit(j)) out[j++] = c;
    }
  }
  if (j < width && !is_digit(j)) ++j;
  while (is_digit(j)) out[j++] = '9';
}

}  // namespace

int32_t render_duration(char *out, int64_t width, int32_t decimals, double seconds) {
  const int32_t d = std::max(decimals, 0);
  const bool negative = seconds < 0;
  const int64_t sign_length = negative ? 1 : 0;
  double a = std::fabs(seconds);
  double hours = 0;
  if (a >= kDay) {
    hours = std::trunc(a / kDay) * 24;
    a = exact_remainder(a, kDay);
  }
  // Early carry: 3599.9999 shows the next hour rather than 60 seconds.
  double extra_minute = 0;
  const double near = half_unit(d);
  const double into_hour = exact_remainder(a, 3600);
  if (into_hour + near >= 3600) {
    a -= into_hour;
    hours += 1;
  } else if (const double into_minute = exact_remainder(a, 60); into_minute + near >= 60) {
    a -= into_minute;
    extra_minute = 1;
  }
  // zhour, zminute and zsecond of a, the day's remainder taken once.
  const ClockParts parts = split_seconds(a);
  hours += parts.hour;
  if (!(hours <= kMaxHours)) {
    std::memset(out, '*', static_cast<size_t>(width));
    return CORVINEL_HOURS_TOO_LARGE;
  }
  auto whole_hours = static_cast<int64_t>(hours);
  auto minutes = static_cast<int64_t>(std::trunc(extra_minute + parts.minute));
  const double second = parts.second;
  auto whole_seconds = static_cast<int64_t>(second);
  double fraction = second - std::trunc(second);

  // Decimals that fit beside the hour digits, the colons, the minute and
  // second digits and the point; a carry into a new hour may widen the
  // hour and so take a decimal away.
  int32_t hour_digits = 0;
  int32_t shown_decimals = 0;
  for (;;) {
    hour_digits = digit_count(whole_hours);
    shown_decimals = static_cast<int32_t>(std::clamp<int64_t>(
        width - hour_digits - sign_length - 7, 0, std::min(d, kMaxSecondDecimals)));
    if (!seconds_carry(fraction, shown_decimals)) break;
    fraction = 0;
    if (++whole_seconds == 60) {
      whole_seconds = 0;
      if (++minutes == 60) {
        minutes = 0;
        ++whole_hours;
      }
    }
  }

  const int64_t hour_end = hour_digits + sign_length;
  if (width < hour_end) {
    std::memset(out, '*', static_cast<size_t>(width));
    return CORVINEL_OK;
  }
  // Sign, 16 hour digits, ":mm:ss." and 31 decimals at the most.
  char text[64];
  int32_t length = 0;
  if (negative) text[length++] = '-';
  for (int64_t i = hour_digits - 1, rest = whole_hours; i >= 0; --i, rest /= 10) {
    text[length + i] = static_cast<char>('0' + rest % 10);
  }
  length += hour_digits;
  if (width >= hour_end + 3) {
    text[length++] = ':';
    put_two_digits(text + length, static_cast<double>(minutes));
    length += 2;
  }
  if (width >= hour_end + 6) {
    text[length++] = ':';
    length += put_seconds(text + length, whole_seconds, fraction, shown_decimals);
  }
  place_right_aligned(out, width, text, length);
  return CORVINEL_OK;
}

int32_t whole_clock_text(double seconds, char *out) {
  if (!(seconds >= 0 && seconds < kDay)) return 0;
  const auto count = static_cast<uint32_t>(seconds);
  if (static_cast<double>(count) != seconds) return 0;
  // No carry to round and no decimals: the parts as they stand.
  const uint32_t hour = count / 3600, into_hour = count - hour * 3600;
  const uint32_t minute = into_hour / 60, second = into_hour - minute * 60;
  const auto digit = [](uint32_t value) { return static_cast<char>('0' + value); };
  int32_t length = 0;
  if (hour >= 10) out[length++] = digit(hour / 10);
  out[length++] = digit(hour % 10);
  const char rest[] = {':', digit(minute / 10), digit(minute % 10), ':', digit(second / 10),
                       digit(second % 10)};
  std::memcpy(out + length, rest, sizeof rest);
  return length + static_cast<int32_t>(sizeof rest);
}

int32_t render_time_of_day(char *out, int64_t width, int32_t decimals, double time_of_day) {
  const int32_t result = render_duration(out, width, decimals, time_of_day);
  if (result != CORVINEL_OK) return result;
  // Two-digit hour: the place two before the first colon (or before the
  // end of a field too narrow for the minutes).
  const void *colon = std::memchr(out, ':', static_cast<size_t>(width));
  const int64_t hour_end = colon ? static_cast<const char *>(colon) - out : width;
  if (hour_end >= 2 && out[hour_end - 2] == ' ') out[hour_end - 2] = '0';
  // Deliberate: the last second of the day never rounds up to 24:00.
  if (time_of_day > kDay - 1 && time_of_day < kDay) clamp_to_last_instant(out, width);
  return CORVINEL_OK;
}

}  // namespace corvinel::calendar

using namespace corvinel::calendar;

extern "C" {

int32_t zfmtime(fmtreq *request) {
  int32_t result = CORVINEL_OK;
  if (!begin_rendering(request, CORVINEL_GATE_TIME, &result)) return result;
  request->outlen = request->width;
  return render_duration(request->output, request->width, request->decimals, *request->value);
}

int32_t zfmtod(fmtreq *request) {
  int32_t result = CORVINEL_OK;
  if (!begin_rendering(request, CORVINEL_GATE_TIME, &result)) return result;
  request->outlen = request->width;
  return render_time_of_day(request->output, request->width, request->decimals,
                            ztimprt(*request->value));
}

int32_t zfmtimm(fmtreq *request) {
  int32_t result = CORVINEL_OK;
  if (!begin_rendering(request, CORVINEL_GATE_TIME, &result)) return result;
  const int64_t width = request->width;
  const int32_t d = std::max(request->decimals, 0);
  request->outlen = request->width;

  // A value whose fraction will round up at this precision is taken to the
  // next second first, so that 11:59:59.6 is already noon when the half of
  // the day is chosen.
  double x = *request->value;
  const double fraction = exact_remainder(x, 1);
  if ((d == 0 && fraction >= 0.5) || (d == 1 && fraction >= 0.95)) {
    if (std::fabs(x) > kMaxHours) {
      x += 1;
    } else {
      x = x > 0 ? std::floor(x + 1.000000000001e-12) + 1 : std::ceil(x - 1.000000000001e-12) + 1;
    }
  }
  double t = exact_remainder(x, kDay);
  if (t < 0) t += kDay;
  const auto hour = static_cast<int64_t>(std::trunc(t + half_unit(d))) / 3600;
  const bool pm = hour >= 12;
  const char *suffix = pm ? " PM" : " AM";
  if (width < 5) {
    // AM or PM alone at the right; at width 1 its first letter.
    place_right_aligned(request->output, width, suffix + 1, 2);
    return CORVINEL_OK;
  }
  // Midnight shows as 12 AM, noon as 12 PM.
  if (pm && hour > 12) t -= 43200;
  if (!pm && hour == 0) t += 43200;
  result = render_duration(request->output, width - 3, request->decimals, t);
  if (result == CORVINEL_OK) std::memcpy(request->output + width - 3, suffix, 3);
  return result;
}

}  // extern "C"

// The time renderings' bodies, behind their gates, for the renderings that
// build on them (TOD, TIMEAMPM, DATETIME).
#pragma once

#include <cstdint>

namespace corvinel::calendar {

// 10^0 .. 10^31.
extern const double zpowten[32];

// zfmtime's rendering of `seconds` into the `width` bytes at out (right-
// aligned h:mm:ss.fff).  Returns 0, or CORVINEL_HOURS_TOO_LARGE with a
// field of "*" when the hours exceed 2^53 (or the value is not a number),
// which the range gate in front of zfmtime never lets through.
int32_t render_duration(char *out, int64_t width, int32_t decimals, double seconds);

// zfmtime's text without decimals of a whole number of seconds within a
// day, 0 <= seconds < 86400, without the leading blanks of its field:
// "h:mm:ss", the hour in one or two digits, in out[0..7].  A field of 8 or
// more positions shows all of it.  Returns its length, or 0 for any other
// value (render_duration renders those).
int32_t whole_clock_text(double seconds, char *out);

// zfmtod's rendering of a time of day, 0 <= time_of_day < 86400: the
// duration with a two-digit hour, never showing hour 24.
int32_t render_time_of_day(char *out, int64_t width, int32_t decimals, double time_of_day);

}  // namespace corvinel::calendar

// Whole columns rendered with one format: numpy's numbers, datetime64 and
// timedelta64 ticks turned into the host's values, each rendered by the
// format's own function, the bytes decoded from the session encoding
// straight into numpy's fixed-width UCS-4 text.  Nothing here touches
// Python, so the caller may release the interpreter lock around it.
#pragma once

#include <locale.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "corvinel/fmtreq.h"

namespace corvinel::python {

// What a format reads its value as (the host tool decides it the same way,
// by the format's name).
enum class ValueKind : int { kNumber = 0, kDate = 1, kDatetime = 2, kTime = 3 };

// How the column's elements are stored.
enum class ColumnStorage : int {
  kDouble = 0,      // numbers, or the host's own values
  kDatetime64 = 1,  // ticks from 1970-01-01T00:00, NaT is INT64_MIN
  kTimedelta64 = 2  // ticks, NaT is INT64_MIN
};

struct Column {
  ColumnStorage storage = ColumnStorage::kDouble;
  const void *data = nullptr;
  std::size_t count = 0;
  // Ticks per second for s, ms, us and ns ticks; 0 for datetime64 days.
  int64_t ticks_per_second = 0;
  // Seconds east of UTC of each element's own zone, which "%z" writes; null
  // for values without a zone (then "%z" writes the machine's offset).
  const int32_t *zone_offsets = nullptr;
};

// The session: a C library locale whose codeset is the encoding the format
// writes, installed on each rendering thread for the duration of its work.
struct Session {
  locale_t locale = nullptr;
  bool utf8 = true;
  std::string codeset;  // for iconv when not UTF-8
};

struct Rendering {
  fmt_render_fn render = nullptr;
  int32_t width = 0;
  int32_t decimals = 0;
  int32_t locale_number = 0;  // 1..136
  ValueKind kind = ValueKind::kNumber;
  bool strip = false;
};

// The host's values of a column's elements for a format of `kind`: a date
// as its day number from 1 January 1960 (by year, month and day through the
// module's calendar, so that the host shows the date numpy holds), a
// datetime as seconds from that midnight, a time as seconds since midnight.
// NaN, NaT and dates the host's calendar lacks give the standard missing
// value; a NaN that already is one of the host's missing values is kept.
class HostValues {
 public:
  HostValues(const Column &column, ValueKind kind) : column_(column), kind_(kind) {}
  double operator()(std::size_t index);

 private:
  double from_datetime64(int64_t ticks);

  const Column &column_;
  ValueKind kind_;
};

// The host's day number of a day count from 1970-01-01 in numpy's
// (proleptic Gregorian) calendar: the same as host_day_number of its year,
// month and day, or the standard missing value for the 29 February of a year
// divisible by 4000, which the module's calendar lacks.
double day_number(int64_t days_from_1970);

// The host's day number of a proleptic Gregorian date: zmdy's within the
// module's calendar, the host tool's count of days from 1 January 1960
// outside it.
double host_day_number(int64_t year, int64_t month, int64_t day);

// Renders every element into `out`: `slot` UCS-4 characters per element,
// NUL-padded as numpy keeps them.  The calling thread and up to `threads` - 1
// others take chunks of the column in turn; the text does not depend on
// their number.  Returns 0, or the result other than 0 a format gave for the
// first element it failed on.
int32_t render_column(const Column &column, const Rendering &rendering, const Session &session,
                      char32_t *out, std::size_t slot, unsigned threads);

}  // namespace corvinel::python

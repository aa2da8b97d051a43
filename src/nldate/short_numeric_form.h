// The short numeric date forms, built from the locale's order of month, day
// and year (or of year and quarter).
#pragma once

#include <cstdint>

#include "corvinel/fmtreq.h"

namespace corvinel::nldate {

enum class ShortForm {
  Date,                  // NLDATES
  DateYearMonth,         // NLDATEYMS
  DatetimeYearMonth,     // NLDATMYMS
  DateMonthDay,          // NLDATEMDS
  DatetimeMonthDay,      // NLDATMMDS
  DateYearQuarter,       // NLDATEYQS
  DatetimeYearQuarter,   // NLDATMYQS
  DatetimeSeconds,       // nldatmss: the short date and the time of a datetime
  DatetimeDate,          // nldatmssd: the short date of a datetime
  None,                  // the format has no short form
};

// Renders a present, valid value in the short form into the request's field
// (1 <= width <= capacity) and returns the result code.
int32_t render_short_numeric(fmtreq &request, ShortForm form, double value);

}  // namespace corvinel::nldate

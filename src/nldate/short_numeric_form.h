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

// The order of day, month and year in the locale's dates (item 6: "DMY",
// "MDY" or "YMD"; anything else, or a locale without a record, is "MDY").
enum class DateOrder { kMonthDayYear, kDayMonthYear, kYearMonthDay };
DateOrder mdy_order(int32_t locale);

// The order of year and quarter: the year first in every locale.
enum class QuarterOrder { kYearQuarter };
QuarterOrder qtr_order(int32_t locale);

// Renders a present, valid value in the short form into the request's field
// (1 <= width <= capacity): the widest variant of the form whose expanded
// text fits the width, at the start of a blank-filled field with `outlen`
// its length; when none fits, the field of "*" (`outlen` = width).  Returns
// 0 in both cases; ShortForm::None renders the "*" field.
int32_t render_short_numeric(fmtreq &request, ShortForm form, double value);

}  // namespace corvinel::nldate

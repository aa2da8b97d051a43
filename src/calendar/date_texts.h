// The names and the day-month-abbreviation-year texts that the DATE,
// MONYY and DATETIME renderings share.
#pragma once

#include <cstdint>

namespace corvinel::calendar {

// Month names (0..11), month abbreviations (12..23: month m at 11 + m) and
// weekday names (24..30, Sunday first).
extern const char *const datestgs[31];

// The texts of a date that zfmdate and zfmdttm lay out: ddMONyy,
// ddMONyyyy and dd-MON-yyyy.
enum class DayMonthYearForm { kTwoDigitYear, kFourDigitYear, kDashed };

// Writes the form's text (7, 9 or 11 characters) to out and returns its
// length.  The day has a leading zero; a year with more digits than its
// positions leaves them blank.
int32_t put_day_month_year(char *out, DayMonthYearForm form, double year, double month,
                           double day);

}  // namespace corvinel::calendar

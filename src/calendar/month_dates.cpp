// Dates with the month abbreviation: MONYY (zfmmony) and DATE (zfmdate).
#include <algorithm>
#include <cmath>
#include <cstring>

#include "calendar/classic_field.h"
#include "calendar/date_texts.h"
#include "corvinel/classic_dates.h"

namespace corvinel::calendar {

const char *const datestgs[31] = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December",
    "JAN",     "FEB",      "MAR",       "APR",     "MAY",      "JUN",
    "JUL",     "AUG",      "SEP",       "OCT",     "NOV",      "DEC",
    "Sunday",  "Monday",   "Tuesday",   "Wednesday", "Thursday", "Friday", "Saturday"};

namespace {

void put_month_abbreviation(char *out, double month) {
  // Months come from a split date and are 1..12.
  const bool known = month >= 1 && month <= 12;
  std::memcpy(out, known ? datestgs[11 + static_cast<int>(month)] : "   ", 3);
}

// MONyyyy, or MONyy with the year reduced mod 100 and a leading zero.
int32_t put_month_year(char *out, bool four_digit_year, double year, double month) {
  put_month_abbreviation(out, month);
  if (four_digit_year) {
    put_whole_number(out + 3, 4, year);
    return 7;
  }
  if (year > 100) year = std::fmod(year, 100);
  put_two_digits(out + 3, year);
  return 5;
}

}  // namespace

int32_t put_day_month_year(char *out, DayMonthYearForm form, double year, double month,
                           double day) {
  put_two_digits(out, day);
  if (form != DayMonthYearForm::kDashed) {
    return 2 + put_month_year(out + 2, form == DayMonthYearForm::kFourDigitYear, year, month);
  }
  out[2] = '-';
  put_month_abbreviation(out + 3, month);
  out[6] = '-';
  put_whole_number(out + 7, 4, year);
  return 11;
}

}  // namespace corvinel::calendar

using namespace corvinel::calendar;

extern "C" {

// MAR60 at width 5, " MAR60" at 6, MAR1960 at 7 and right-aligned beyond;
// below 5 the first characters of MAR60.
int32_t zfmmony(fmtreq *request) {
  DateParts date;
  int32_t result = CORVINEL_OK;
  if (!begin_date_rendering(request, date, &result)) return result;
  const int64_t width = request->width;
  char text[7];
  int64_t length = 0;
  if (width >= 7) {
    length = put_month_year(text, true, date.year, date.month);
  } else {
    length = std::min<int64_t>(put_month_year(text, false, date.year, date.month), width);
  }
  place_right_aligned(request->output, width, text, length);
  return CORVINEL_OK;
}

// 15MAR (5), 15MAR60 (7), 15MAR1960 (9), 15-MAR-1960 (11).  Widths 6, 8
// and 10 show the form one narrower after a blank, wider fields right-align
// the dashed form, narrower ones show the first characters of 15MAR60.
int32_t zfmdate(fmtreq *request) {
  DateParts date;
  int32_t result = CORVINEL_OK;
  if (!begin_date_rendering(request, date, &result)) return result;
  const int64_t width = request->width;
  const DayMonthYearForm form = width >= 11  ? DayMonthYearForm::kDashed
                                : width >= 9 ? DayMonthYearForm::kFourDigitYear
                                             : DayMonthYearForm::kTwoDigitYear;
  char text[11];
  int64_t length = put_day_month_year(text, form, date.year, date.month, date.day);
  if (form != DayMonthYearForm::kDashed) {
    const bool leading_blank = width == 6 || width == 8 || width == 10;
    length = std::min(length, leading_blank ? width - 1 : width);
  }
  place_right_aligned(request->output, width, text, length);
  return CORVINEL_OK;
}

}  // extern "C"

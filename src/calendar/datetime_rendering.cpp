// DATETIME (zfmdttm) and DTDATE (zfmdtda).
#include <algorithm>
#include <cmath>
#include <cstring>

#include "calendar/classic_field.h"
#include "calendar/date_texts.h"
#include "calendar/time_texts.h"
#include "corvinel/calendar.h"
#include "corvinel/classic_dates.h"
#include "corvinel/missing.h"

using namespace corvinel::calendar;

extern "C" {

// ddMONyy or ddMONyyyy, ":" and the time of day, as much of the time as the
// width leaves room for: 01JAN60:00 (10), 01JAN60:00:00 (13),
// 01JAN60:00:00:00 (16), 01JAN1960:00:00:00 from 19 (after a blank there),
// and the decimals beyond.
int32_t zfmdttm(fmtreq *request) {
  int32_t result = CORVINEL_OK;
  if (!begin_rendering(request, CORVINEL_GATE_DATETIME, &result)) return result;
  const int64_t width = request->width;
  const double value = *request->value;
  request->outlen = request->width;

  double year = 0;
  double month = 0;
  double day = 0;
  zfmcymd(&year, &month, &day, zdatprt(value));
  // The date and the whole time keep 16 positions before any decimals.
  int64_t decimals = std::max(request->decimals, 0);
  int64_t room = width - decimals;
  if (decimals != 0 && room < 16) {
    decimals = std::max<int64_t>(width - 16, 0);
    room = width - decimals;
  }

  // The composed text is at most 40 characters.
  char text[48];
  const bool two_digit_year = room < 19 && room != 9;
  int64_t length = put_day_month_year(
      text, two_digit_year ? DayMonthYearForm::kTwoDigitYear : DayMonthYearForm::kFourDigitYear,
      year, month, day);
  if (width > 9) text[length++] = ':';
  if (width > 9 && width >= length + 2) {
    double time_of_day = std::fmod(value, 86400);
    if (time_of_day < 0) time_of_day += 86400;
    int64_t time_width = decimals + 8 + (decimals != 0 ? 1 : 0);  // hh:mm:ss.f..
    if (width < length + 5) {
      time_width = 2;  // hh
      decimals = 0;
    } else if (width < length + 8) {
      time_width = 5;  // hh:mm
      decimals = 0;
    }
    if (time_width > 40 - length) {
      time_width = 40 - length;
      decimals = 31 - length;
    }
    render_time_of_day(text + length, time_width, static_cast<int32_t>(decimals), time_of_day);
    if (text[length] == ' ') text[length] = '0';
    length += time_width;
  }
  place_right_aligned(request->output, width, text, length);
  return CORVINEL_OK;
}

int32_t zfmdtda(fmtreq *request) {
  if (!field_fits_buffer(*request)) return CORVINEL_DOES_NOT_FIT;
  const double *datetime = request->value;
  if (zmiss(*datetime)) return zfmmiss(request);
  const double date = std::floor(*datetime / 86400);
  request->value = &date;
  const int32_t result = zfmdate(request);
  request->value = datetime;
  return result;
}

}  // extern "C"

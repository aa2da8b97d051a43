// The gate every classic date and time rendering passes first, and the
// split of a date into year, month and day that they share.
#include <algorithm>
#include <cstring>

#include "calendar/calendar_rules.h"
#include "calendar/classic_field.h"
#include "corvinel/calendar.h"
#include "corvinel/classic_dates.h"
#include "corvinel/missing.h"

using namespace corvinel::calendar;

extern "C" {

int32_t zdatrng(fmtreq *request, int32_t kind) {
  const double value = *request->value;
  if (zmiss(value)) {
    render_missing_value(request, value);
    return CORVINEL_GATE_MISSING;
  }
  bool in_range = true;
  if (kind == CORVINEL_GATE_DATE) in_range = is_valid_date(value);
  if (kind == CORVINEL_GATE_TIME || kind == CORVINEL_GATE_DATETIME) {
    in_range = is_valid_seconds(value);
  }
  if (in_range) return CORVINEL_GATE_GO_ON;
  const int32_t stars = std::clamp(request->width, 0, std::max(request->capacity, 0));
  std::memset(request->output, '*', static_cast<size_t>(stars));
  request->outlen = request->width;
  return CORVINEL_GATE_OUT_OF_RANGE;
}

int32_t zfmcymd(double *year, double *month, double *day, double date) {
  if (zmiss(date)) return -1;
  const double julian = zjuldat(date);
  if (zmiss(julian)) return -1;
  zymdjul(year, month, day, julian);
  return (zmiss(*year) || zmiss(*month) || zmiss(*day)) ? -1 : 1;
}

}  // extern "C"

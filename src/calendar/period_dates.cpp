// Month-year, year-month and year-quarter renderings.  Each worker lays
// its parts out from the right end of the field: the part that ends the
// text takes fixed positions at the right, the part that starts it takes
// whatever room is left, right-justified.
#include <cmath>
#include <cstdint>
#include <string_view>

#include "calendar/classic_field.h"
#include "corvinel/classic_dates.h"

using namespace corvinel::calendar;

namespace {

struct PeriodParts {
  int64_t width;
  int64_t sep_room;  // 1 with a separator, 0 without
  double year;
  double month;
  double quarter;
};

// Gate and parts of the date; false when the rendering is over, with
// *result set.
bool begin_period(fmtreq *request, char sep, PeriodParts &parts, int32_t *result) {
  DateParts date;
  if (!begin_date_rendering(request, date, result)) return false;
  parts = {request->width, sep != 0 ? 1 : 0, date.year, date.month,
           std::floor((date.month - 1) / 3) + 1};
  return true;
}

// The year right-justified in [start, start + length), two digits when
// `two_digits`, with "0" before a year below 10.
void put_year(RightAnchoredField &field, int64_t start, int64_t length, double year,
              bool two_digits) {
  if (two_digits) year = std::fmod(year, 100);
  field.put_number(start, length, year);
  if (year < 10) field.put(start + length - 2, '0');
}

// Month in the two positions from `start`, with a leading zero.
void put_month(RightAnchoredField &field, int64_t start, double month) {
  field.put_number(start, 2, month);
  if (field.get(start) == ' ') field.put(start, '0');
}

int32_t finish(fmtreq *request, const RightAnchoredField &field) {
  field.copy_to(request->output);
  return CORVINEL_OK;
}

std::string_view roman_quarter(double quarter) {
  if (quarter == 1) return "I";
  if (quarter == 2) return "II";
  if (quarter == 3) return "III";
  if (quarter == 4) return "IV";
  return "";
}

}  // namespace

extern "C" {

// mm<sep>yy(yy): the year ends the field, the month has what is left.
int32_t zfmdlmy(fmtreq *request, char sep) {
  PeriodParts p{};
  int32_t result = CORVINEL_OK;
  if (!begin_period(request, sep, p, &result)) return result;
  const bool two_digits = p.width < 7 - (1 - p.sep_room);
  const int64_t year_length = two_digits ? 2 : 4;
  const int64_t month_room = p.width - p.sep_room - year_length;
  RightAnchoredField field(p.width);
  field.put_number(0, month_room, p.month);
  if (month_room >= 2 && field.get(month_room - 2) == ' ') field.put(month_room - 2, '0');
  if (sep != 0) field.put(month_room, sep);
  put_year(field, p.width - year_length, year_length, p.year, two_digits);
  return finish(request, field);
}

// yy(yy)<sep>mm: the month ends the field, the year has what is left.
int32_t zfmdlym(fmtreq *request, char sep) {
  PeriodParts p{};
  int32_t result = CORVINEL_OK;
  if (!begin_period(request, sep, p, &result)) return result;
  const bool two_digits = p.width < 7 - (1 - p.sep_room);
  RightAnchoredField field(p.width);
  // The year's "0" goes four positions before the end (less the
  // separator), which is where its tens digit stands.
  put_year(field, 0, p.width - p.sep_room - 2, p.year, two_digits);
  if (sep != 0) field.put(p.width - 3, sep);
  put_month(field, p.width - 2, p.month);
  return finish(request, field);
}

// yy(yy)<sep>q with the quarter digit.
int32_t zfmdlqy(fmtreq *request, char sep) {
  PeriodParts p{};
  int32_t result = CORVINEL_OK;
  if (!begin_period(request, sep, p, &result)) return result;
  const bool two_digits = p.width < 6 - (1 - p.sep_room);
  RightAnchoredField field(p.width);
  put_year(field, 0, p.width - p.sep_room - 1, p.year, two_digits);
  if (sep != 0) field.put(p.width - 2, sep);
  field.put_number(p.width - 1, 1, p.quarter);
  return finish(request, field);
}

// yy(yy)<sep>I..IV.  The two-digit threshold depends on the numeral's
// length on purpose: the same width shows 2024QI but 24QIII.
int32_t zfmdlyq(fmtreq *request, char sep) {
  PeriodParts p{};
  int32_t result = CORVINEL_OK;
  if (!begin_period(request, sep, p, &result)) return result;
  const std::string_view numeral = roman_quarter(p.quarter);
  const auto numeral_length = static_cast<int64_t>(numeral.size());
  const bool two_digits = p.width < numeral_length - (1 - p.sep_room) + 5;
  RightAnchoredField field(p.width);
  put_year(field, 0, p.width - p.sep_room - numeral_length, p.year, two_digits);
  if (sep != 0) field.put(p.width - numeral_length - 1, sep);
  field.put_text(p.width - numeral_length, numeral);
  return finish(request, field);
}

int32_t zfmmmy(fmtreq *r) { return zfmdlmy(r, 'M'); }
int32_t zfmmmyc(fmtreq *r) { return zfmdlmy(r, ':'); }
int32_t zfmmmyd(fmtreq *r) { return zfmdlmy(r, '-'); }
int32_t zfmmmyn(fmtreq *r) { return zfmdlmy(r, 0); }
int32_t zfmmmyp(fmtreq *r) { return zfmdlmy(r, '.'); }
int32_t zfmmmys(fmtreq *r) { return zfmdlmy(r, '/'); }

int32_t zfmyym(fmtreq *r) { return zfmdlym(r, 'M'); }
int32_t zfmyymc(fmtreq *r) { return zfmdlym(r, ':'); }
int32_t zfmyymd(fmtreq *r) { return zfmdlym(r, '-'); }
int32_t zfmyymn(fmtreq *r) { return zfmdlym(r, 0); }
int32_t zfmyymp(fmtreq *r) { return zfmdlym(r, '.'); }
int32_t zfmyyms(fmtreq *r) { return zfmdlym(r, '/'); }

int32_t zfmyyqc(fmtreq *r) { return zfmdlqy(r, ':'); }
int32_t zfmyyqd(fmtreq *r) { return zfmdlqy(r, '-'); }
int32_t zfmyyqn(fmtreq *r) { return zfmdlqy(r, 0); }
int32_t zfmyyqp(fmtreq *r) { return zfmdlqy(r, '.'); }
int32_t zfmyyqs(fmtreq *r) { return zfmdlqy(r, '/'); }

int32_t zfmyyqr(fmtreq *r) { return zfmdlyq(r, 'Q'); }
int32_t zfmyqrc(fmtreq *r) { return zfmdlyq(r, ':'); }
int32_t zfmyqrd(fmtreq *r) { return zfmdlyq(r, '-'); }
int32_t zfmyqrn(fmtreq *r) { return zfmdlyq(r, 0); }
int32_t zfmyqrp(fmtreq *r) { return zfmdlyq(r, '.'); }
int32_t zfmyqrs(fmtreq *r) { return zfmdlyq(r, '/'); }

}  // extern "C"

// Dates as three numbers with a separator: month-day-year, day-month-year
// and year-month-day in every separator variant.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "calendar/classic_field.h"
#include "corvinel/classic_dates.h"

using namespace corvinel::calendar;

namespace {

enum class Order { kMonthDayYear, kDayMonthYear, kYearMonthDay };

// The shared body of the eighteen members.
int32_t render_three_part_date(fmtreq *request, Order order, char sep) {
  DateParts date;
  int32_t result = CORVINEL_OK;
  if (!begin_date_rendering(request, date, &result)) return result;
  if (request->width < 10) date.year = std::fmod(date.year, 100);
  char *out = request->output;
  const int32_t width = request->width;
  switch (order) {
    case Order::kMonthDayYear: zfmcprt(width, sep, out, date.month, date.day, date.year); break;
    case Order::kDayMonthYear: zfmcprt(width, sep, out, date.day, date.month, date.year); break;
    case Order::kYearMonthDay: zfmcprt(width, sep, out, date.year, date.month, date.day); break;
  }
  return CORVINEL_OK;
}

}  // namespace

extern "C" {

// Built right to left in a scratch area: c, then b, then a, each 4 digits
// above 99 and 2 otherwise, with the separators only where the layouts of
// the day-month-year family put them.
void zfmcprt(int32_t width, char sep, char *out, double a, double b, double c) {
  if (width <= 0) return;
  // Three four-digit numbers and two separators are the longest text.
  constexpr int kScratch = 16;
  char scratch[kScratch];
  std::memset(scratch, ' ', sizeof scratch);
  int start = kScratch;
  const auto put = [&](double value) {
    if (value > 99) {
      start -= 4;
      put_whole_number(scratch + start, 4, value);
    } else {
      start -= 2;
      put_two_digits(scratch + start, value);
    }
  };
  if (width > 5) {
    put(c);
    if (width >= 8 && sep != 0) scratch[--start] = sep;
  }
  if (width > 3) {
    put(b);
    if ((width == 5 || width >= 8) && sep != 0) scratch[--start] = sep;
  }
  put(a);
  const int copied = std::min(width, 10);
  if (width > 10) std::memset(out, ' ', static_cast<size_t>(width - 10));
  std::memcpy(out + (width - copied), scratch + (kScratch - copied), static_cast<size_t>(copied));
}

int32_t zfmmdy(fmtreq *r) { return render_three_part_date(r, Order::kMonthDayYear, '/'); }
int32_t zfmmdyb(fmtreq *r) { return render_three_part_date(r, Order::kMonthDayYear, ' '); }
int32_t zfmmdyc(fmtreq *r) { return render_three_part_date(r, Order::kMonthDayYear, ':'); }
int32_t zfmmdyd(fmtreq *r) { return render_three_part_date(r, Order::kMonthDayYear, '-'); }
int32_t zfmmdyn(fmtreq *r) { return render_three_part_date(r, Order::kMonthDayYear, 0); }
int32_t zfmmdyp(fmtreq *r) { return render_three_part_date(r, Order::kMonthDayYear, '.'); }
int32_t zfmdmy(fmtreq *r) { return render_three_part_date(r, Order::kDayMonthYear, '/'); }
int32_t zfmdmyb(fmtreq *r) { return render_three_part_date(r, Order::kDayMonthYear, ' '); }
int32_t zfmdmyc(fmtreq *r) { return render_three_part_date(r, Order::kDayMonthYear, ':'); }
int32_t zfmdmyd(fmtreq *r) { return render_three_part_date(r, Order::kDayMonthYear, '-'); }
int32_t zfmdmyn(fmtreq *r) { return render_three_part_date(r, Order::kDayMonthYear, 0); }
int32_t zfmdmyp(fmtreq *r) { return render_three_part_date(r, Order::kDayMonthYear, '.'); }
// Deliberate asymmetry: the unsuffixed year-first member uses a dash and the
// slash has a member of its own.
int32_t zfmymd(fmtreq *r) { return render_three_part_date(r, Order::kYearMonthDay, '-'); }
int32_t zfmymdb(fmtreq *r) { return render_three_part_date(r, Order::kYearMonthDay, ' '); }
int32_t zfmymdc(fmtreq *r) { return render_three_part_date(r, Order::kYearMonthDay, ':'); }
int32_t zfmymdn(fmtreq *r) { return render_three_part_date(r, Order::kYearMonthDay, 0); }
int32_t zfmymdp(fmtreq *r) { return render_three_part_date(r, Order::kYearMonthDay, '.'); }
int32_t zfmymds(fmtreq *r) { return render_three_part_date(r, Order::kYearMonthDay, '/'); }

}  // extern "C"

// Year-month, month-day, year, year-quarter and year-week of a date or a
// datetime, each in the locale's long pattern, else its short one.  There is
// deliberately no fallback format: what fits neither shows "*".
#include "corvinel/formats.h"
#include "nldate/pattern_format.h"

namespace corvinel::nldate {
namespace {

struct Component {
  int32_t min_width;
  int32_t long_item;
  int32_t short_item;
};

constexpr Component kYearMonth{6, 34, 35};
constexpr Component kMonthDay{6, 36, 37};
constexpr Component kYear{2, 38, 39};
constexpr Component kYearQuarter{4, 40, 41};
constexpr Component kYearWeek{5, 42, 43};

constexpr PatternFormat component(const Component &c, ValueKind kind) {
  return {{c.min_width, 200, 0, 0}, kind, c.long_item, c.short_item, Fallback::None};
}

int32_t date_component(fmtreq *request, const Component &c) {
  return pattern_format_frame(request, component(c, ValueKind::Date));
}

int32_t datetime_component(fmtreq *request, const Component &c) {
  return pattern_format_frame(request, component(c, ValueKind::Datetime));
}

}  // namespace
}  // namespace corvinel::nldate

using corvinel::nldate::date_component;
using corvinel::nldate::datetime_component;
using corvinel::nldate::kMonthDay;
using corvinel::nldate::kYear;
using corvinel::nldate::kYearMonth;
using corvinel::nldate::kYearQuarter;
using corvinel::nldate::kYearWeek;

extern "C" {

int32_t nldateym(fmtreq *request) { return date_component(request, kYearMonth); }
int32_t nldatemd(fmtreq *request) { return date_component(request, kMonthDay); }
int32_t nldateyr(fmtreq *request) { return date_component(request, kYear); }
int32_t nldateyq(fmtreq *request) { return date_component(request, kYearQuarter); }
int32_t nldateyw(fmtreq *request) { return date_component(request, kYearWeek); }

int32_t nldatmym(fmtreq *request) { return datetime_component(request, kYearMonth); }
int32_t nldatmmd(fmtreq *request) { return datetime_component(request, kMonthDay); }
int32_t nldatmyr(fmtreq *request) { return datetime_component(request, kYear); }
int32_t nldatmyq(fmtreq *request) {
  return datetime_component(request, kYearQuarter);
}
int32_t nldatmyw(fmtreq *request) { return datetime_component(request, kYearWeek); }

}  // extern "C"

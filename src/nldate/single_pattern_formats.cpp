// The single-pattern date and datetime formats: the long (L) and medium (M)
// forms of the date, year-month, year-quarter and month-day, the month and
// weekday names (MN, WN), the weekday date (W) and the datetime forms.  Each
// expands exactly one pattern, without a shorter retry or a fallback, and
// takes its limits from its own registry descriptor.
#include <string_view>

#include "corvinel/formats.h"
#include "frame/format_frame.h"
#include "frame/registry.h"
#include "nldate/date_value.h"
#include "nldate/pattern_format.h"
#include "nldate/short_numeric_form.h"

namespace corvinel::nldate {
namespace {

// A selector that names no item (items run 0..188): the format shows its
// short numeric form instead of expanding a pattern.
constexpr int32_t kShortFormSentinel = 190;

struct SinglePatternFormat {
  std::string_view name;  // the registry name, for the limits
  ValueKind kind;         // Date or Datetime
  const char *pattern;    // the pattern text, or nullptr: `selector` is an item
  int32_t selector;       // item number (+ kSelectorMark), or kShortFormSentinel
  ShortForm short_form;
};


constexpr SinglePatternFormat kNldatel{"NLDATEL", ValueKind::Date, nullptr, 31, ShortForm::Date};
constexpr SinglePatternFormat kNldatem{"NLDATEM", ValueKind::Date, nullptr, 30, ShortForm::Date};
constexpr SinglePatternFormat kNldateyml{"NLDATEYML", ValueKind::Date, nullptr, 34,
                                         ShortForm::DateYearMonth};
constexpr SinglePatternFormat kNldateymm{"NLDATEYMM", ValueKind::Date, nullptr, 35,
                                         ShortForm::DateYearMonth};
constexpr SinglePatternFormat kNldateyql{"NLDATEYQL", ValueKind::Date, nullptr, 40,
                                         ShortForm::DateYearQuarter};
constexpr SinglePatternFormat kNldateyqm{"NLDATEYQM", ValueKind::Date, nullptr, 41,
                                         ShortForm::DateYearQuarter};
constexpr SinglePatternFormat kNldatemdl{"NLDATEMDL", ValueKind::Date, nullptr, 36,
                                         ShortForm::DateMonthDay};
constexpr SinglePatternFormat kNldatemdm{"NLDATEMDM", ValueKind::Date, nullptr, 37,
                                         ShortForm::DateMonthDay};
constexpr SinglePatternFormat kNldatemn{"NLDATEMN", ValueKind::Date, "%#B", 3, ShortForm::None};
constexpr SinglePatternFormat kNldatewn{"NLDATEWN", ValueKind::Date, "%#A", 3, ShortForm::None};
constexpr SinglePatternFormat kNldatew{"NLDATEW", ValueKind::Date, nullptr, 32, ShortForm::None};
constexpr SinglePatternFormat kNldatmyml{"NLDATMYML", ValueKind::Datetime, nullptr, 34,
                                         ShortForm::DatetimeYearMonth};
constexpr SinglePatternFormat kNldatmymm{"NLDATMYMM", ValueKind::Datetime, nullptr, 35,
                                         ShortForm::DatetimeYearMonth};
constexpr SinglePatternFormat kNldatmyql{"NLDATMYQL", ValueKind::Datetime, nullptr, 40,
                                         ShortForm::DatetimeYearQuarter};
constexpr SinglePatternFormat kNldatmyqm{"NLDATMYQM", ValueKind::Datetime, nullptr, 41,
                                         ShortForm::DatetimeYearQuarter};
constexpr SinglePatternFormat kNldatmmdl{"NLDATMMDL", ValueKind::Datetime, nullptr, 36,
                                         ShortForm::DatetimeMonthDay};
constexpr SinglePatternFormat kNldatmmdm{"NLDATMMDM", ValueKind::Datetime, nullptr, 37,
                                         ShortForm::DatetimeMonthDay};
constexpr SinglePatternFormat kNldatmmn{"NLDATMMN", ValueKind::Datetime, "%#B", 3,
                                        ShortForm::None};
constexpr SinglePatternFormat kNldatmwn{"NLDATMWN", ValueKind::Datetime, "%#A", 3,
                                        ShortForm::None};
constexpr SinglePatternFormat kNldatml{"NLDATML", ValueKind::Datetime, nullptr,
                                       49 + kSelectorMark, ShortForm::DatetimeSeconds};
constexpr SinglePatternFormat kNldatmm{"NLDATMM", ValueKind::Datetime, nullptr,
                                       48 + kSelectorMark, ShortForm::DatetimeSeconds};
constexpr SinglePatternFormat kNldatms{"NLDATMS", ValueKind::Datetime, nullptr,
                                       kShortFormSentinel, ShortForm::DatetimeSeconds};
constexpr SinglePatternFormat kNldatmw{"NLDATMW", ValueKind::Datetime, nullptr,
                                       50 + kSelectorMark, ShortForm::None};
constexpr SinglePatternFormat kNldatmdt{"NLDATMDT", ValueKind::Datetime, nullptr, 31,
                                        ShortForm::DatetimeDate};

// The one pattern expanded (datetime members with `decimals` fraction
// digits) and kept when output expansion reports 1 or less; above 1 the
// output stays as the host passed it and that result is returned.  Not
// built yet: the field shows "*".
int32_t render_single_pattern(fmtreq &request, const SinglePatternFormat & /*format*/,
                              double /*value*/) {
  return frame::fill_stars(request);
}

int32_t single_pattern_frame(fmtreq *request, const SinglePatternFormat &format) {
  fmtreq &r = *request;
  if ((r.flags & FMTREQ_CHECK_LIMITS) != 0) {
    // Read from the registry directly: going through corvinel() would repeat
    // its setlocale on every call.
    if (const fmtdesc *own = frame::find_format(format.name)) {
      if (const int32_t code = frame::check_limits(r, frame::limits_of(*own))) return code;
    }
  }
  const double value = frame::read_value(r);
  if (frame::is_missing(value)) return frame::render_missing_at_right_edge(r);
  // Deliberate: a value out of range leaves the output as the host passed it.
  if (!in_valid_range(format.kind, value)) return CORVINEL_OK;
  if (!frame::field_fits_buffer(r)) return frame::fill_stars(r);
  if (format.selector == kShortFormSentinel) {
    return render_short_numeric(r, format.short_form, value);
  }
  return render_single_pattern(r, format, value);
}

}  // namespace
}  // namespace corvinel::nldate

using corvinel::nldate::single_pattern_frame;

extern "C" {

int32_t nldatel(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatel); }
int32_t nldatem(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatem); }
int32_t nldateyml(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldateyml); }
int32_t nldateymm(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldateymm); }
int32_t nldateyql(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldateyql); }
int32_t nldateyqm(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldateyqm); }
int32_t nldatemdl(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatemdl); }
int32_t nldatemdm(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatemdm); }
int32_t nldatemn(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatemn); }
int32_t nldatewn(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatewn); }
int32_t nldatew(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatew); }
int32_t nldatmyml(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmyml); }
int32_t nldatmymm(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmymm); }
int32_t nldatmyql(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmyql); }
int32_t nldatmyqm(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmyqm); }
int32_t nldatmmdl(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmmdl); }
int32_t nldatmmdm(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmmdm); }
int32_t nldatmmn(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmmn); }
int32_t nldatmwn(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmwn); }
int32_t nldatml(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatml); }
int32_t nldatmm(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmm); }
int32_t nldatms(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatms); }
int32_t nldatmw(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmw); }
int32_t nldatmdt(fmtreq *request) { return single_pattern_frame(request, corvinel::nldate::kNldatmdt); }

}  // extern "C"

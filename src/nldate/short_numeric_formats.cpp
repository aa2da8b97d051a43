// The short numeric forms of a date or datetime: NLDATES, NLDATEYMS,
// NLDATMYMS, NLDATEMDS, NLDATMMDS, NLDATEYQS and NLDATMYQS, and the shared
// renderers the single-pattern formats reach through their short form.
#include "corvinel/formats.h"
#include "frame/format_frame.h"
#include "nldate/date_frame.h"
#include "nldate/short_numeric_form.h"

namespace corvinel::nldate {
namespace {

struct ShortNumericFormat {
  frame::Limits limits;
  ValueKind kind;
  ShortForm form;
};

constexpr ShortNumericFormat kNldates{{2, 200, 0, 0}, ValueKind::Date, ShortForm::Date};
constexpr ShortNumericFormat kNldateyms{{5, 200, 0, 0}, ValueKind::Date,
                                        ShortForm::DateYearMonth};
constexpr ShortNumericFormat kNldatmyms{{5, 200, 0, 0}, ValueKind::Datetime,
                                        ShortForm::DatetimeYearMonth};
constexpr ShortNumericFormat kNldatemds{{5, 200, 0, 0}, ValueKind::Date,
                                        ShortForm::DateMonthDay};
constexpr ShortNumericFormat kNldatmmds{{5, 200, 0, 0}, ValueKind::Datetime,
                                        ShortForm::DatetimeMonthDay};
constexpr ShortNumericFormat kNldateyqs{{4, 200, 0, 0}, ValueKind::Date,
                                        ShortForm::DateYearQuarter};
constexpr ShortNumericFormat kNldatmyqs{{4, 200, 0, 0}, ValueKind::Datetime,
                                        ShortForm::DatetimeYearQuarter};

int32_t short_numeric_frame(fmtreq *request, const ShortNumericFormat &format) {
  const double value = frame::read_value(*request);
  if (auto settled = settle_before_rendering(*request, format.limits, format.kind, value)) {
    return *settled;
  }
  return render_short_numeric(*request, format.form, value);
}

}  // namespace

// The digits of the value's components in the locale's order with its date
// separator.  Not built yet: the field shows "*".
int32_t render_short_numeric(fmtreq &request, ShortForm /*form*/, double /*value*/) {
  return frame::fill_stars(request);
}

}  // namespace corvinel::nldate

using corvinel::nldate::short_numeric_frame;

extern "C" {

int32_t nldates(fmtreq *request) { return short_numeric_frame(request, corvinel::nldate::kNldates); }
int32_t nldateyms(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldateyms);
}
int32_t nldatmyms(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldatmyms);
}
int32_t nldatemds(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldatemds);
}
int32_t nldatmmds(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldatmmds);
}
int32_t nldateyqs(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldateyqs);
}
int32_t nldatmyqs(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldatmyqs);
}

}  // extern "C"

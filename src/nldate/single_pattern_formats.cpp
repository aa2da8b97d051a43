// The single-pattern date and datetime formats: the long (L) and medium (M)
// forms of the date, year-month, year-quarter and month-day, the month and
// weekday names (MN, WN), the weekday date (W) and the datetime forms.  Each
// walks its own pattern table in order and shows the first text that fits
// the field whole, else "*"; it takes its limits from its own registry
// descriptor.
#include <algorithm>
#include <cstring>
#include <string_view>

#include "corvinel/formats.h"
#include "encoding/output_expansion.h"
#include "frame/format_frame.h"
#include "frame/registry.h"
#include "locale/locale_records.h"
#include "nldate/date_placement.h"
#include "nldate/date_value.h"
#include "nldate/field_attempt.h"
#include "nldate/pattern_expander.h"
#include "nldate/pattern_format.h"
#include "nldate/short_numeric_form.h"

namespace corvinel::nldate {
namespace {

// A selector that names no item (items run 0..188): the format shows its
// short numeric form instead of expanding a pattern.
constexpr int32_t kShortFormSentinel = 190;

// One entry of a format's pattern table: a pattern text (its length is
// passed as the selector) or, without a text, a locale item selector.  An
// entry that is no pattern (the weekday-name tables end with one, kept as
// the table's data) ends the walk.
struct PatternEntry {
  const char *text;
  int32_t selector;
  bool pattern = true;
};

struct SinglePatternFormat {
  std::string_view name;  // the registry name, for the limits
  ValueKind kind;         // Date or Datetime
  // The pattern table, longest text first.
  const PatternEntry *entries;
  std::size_t entry_count;
  ShortForm short_form;
};

template <std::size_t N>
constexpr SinglePatternFormat single(std::string_view name, ValueKind kind,
                                     const PatternEntry (&entries)[N], ShortForm short_form) {
  return {name, kind, entries, N, short_form};
}

constexpr int32_t kMark = kSelectorMark;
constexpr PatternEntry kShortForm{nullptr, kShortFormSentinel};
constexpr PatternEntry item(int32_t selector) { return {nullptr, selector}; }

constexpr PatternEntry kLongDate[] = {item(31), item(30), kShortForm};
constexpr PatternEntry kMediumDate[] = {item(30), kShortForm};
constexpr PatternEntry kLongYearMonth[] = {item(34), item(35), kShortForm};
constexpr PatternEntry kMediumYearMonth[] = {item(35), kShortForm};
constexpr PatternEntry kLongYearQuarter[] = {item(40), item(41), kShortForm};
constexpr PatternEntry kMediumYearQuarter[] = {item(41), kShortForm};
constexpr PatternEntry kLongMonthDay[] = {item(36), item(37), kShortForm};
constexpr PatternEntry kMediumMonthDay[] = {item(37), kShortForm};
constexpr PatternEntry kMonthName[] = {{"%#B", 95}, {"%#b", 83}, {"%o", 2}};
constexpr PatternEntry kWeekdayName[] = {{"%#A", 128}, {"%#a", 121}, {"uw", 42, false}};
constexpr PatternEntry kWeekdayDate[] = {item(32), item(33), {"%#A", 128}, {"%#a", 121}};
constexpr PatternEntry kLongDatetime[] = {item(49 + kMark), item(48 + kMark), item(47 + kMark),
                                          kShortForm};
constexpr PatternEntry kMediumDatetime[] = {item(48 + kMark), item(47 + kMark), kShortForm};
constexpr PatternEntry kShortDatetime[] = {kShortForm};
constexpr PatternEntry kWeekdayDatetime[] = {item(50 + kMark), item(51 + kMark), item(32),
                                             item(33), {"%#A", 128}, {"%#a", 121}};
constexpr PatternEntry kDateOfDatetime[] = {item(31), item(30), kShortForm};

constexpr ValueKind kDate = ValueKind::Date;
constexpr ValueKind kDatetime = ValueKind::Datetime;

constexpr SinglePatternFormat kNldatel = single("NLDATEL", kDate, kLongDate, ShortForm::Date);
constexpr SinglePatternFormat kNldatem = single("NLDATEM", kDate, kMediumDate, ShortForm::Date);
constexpr SinglePatternFormat kNldateyml =
    single("NLDATEYML", kDate, kLongYearMonth, ShortForm::DateYearMonth);
constexpr SinglePatternFormat kNldateymm =
    single("NLDATEYMM", kDate, kMediumYearMonth, ShortForm::DateYearMonth);
constexpr SinglePatternFormat kNldateyql =
    single("NLDATEYQL", kDate, kLongYearQuarter, ShortForm::DateYearQuarter);
constexpr SinglePatternFormat kNldateyqm =
    single("NLDATEYQM", kDate, kMediumYearQuarter, ShortForm::DateYearQuarter);
constexpr SinglePatternFormat kNldatemdl =
    single("NLDATEMDL", kDate, kLongMonthDay, ShortForm::DateMonthDay);
constexpr SinglePatternFormat kNldatemdm =
    single("NLDATEMDM", kDate, kMediumMonthDay, ShortForm::DateMonthDay);
constexpr SinglePatternFormat kNldatemn = single("NLDATEMN", kDate, kMonthName, ShortForm::None);
constexpr SinglePatternFormat kNldatewn = single("NLDATEWN", kDate, kWeekdayName, ShortForm::None);
constexpr SinglePatternFormat kNldatew = single("NLDATEW", kDate, kWeekdayDate, ShortForm::None);
constexpr SinglePatternFormat kNldatmyml =
    single("NLDATMYML", kDatetime, kLongYearMonth, ShortForm::DatetimeYearMonth);
constexpr SinglePatternFormat kNldatmymm =
    single("NLDATMYMM", kDatetime, kMediumYearMonth, ShortForm::DatetimeYearMonth);
constexpr SinglePatternFormat kNldatmyql =
    single("NLDATMYQL", kDatetime, kLongYearQuarter, ShortForm::DatetimeYearQuarter);
constexpr SinglePatternFormat kNldatmyqm =
    single("NLDATMYQM", kDatetime, kMediumYearQuarter, ShortForm::DatetimeYearQuarter);
constexpr SinglePatternFormat kNldatmmdl =
    single("NLDATMMDL", kDatetime, kLongMonthDay, ShortForm::DatetimeMonthDay);
constexpr SinglePatternFormat kNldatmmdm =
    single("NLDATMMDM", kDatetime, kMediumMonthDay, ShortForm::DatetimeMonthDay);
constexpr SinglePatternFormat kNldatmmn =
    single("NLDATMMN", kDatetime, kMonthName, ShortForm::None);
constexpr SinglePatternFormat kNldatmwn =
    single("NLDATMWN", kDatetime, kWeekdayName, ShortForm::None);
constexpr SinglePatternFormat kNldatml =
    single("NLDATML", kDatetime, kLongDatetime, ShortForm::DatetimeSeconds);
constexpr SinglePatternFormat kNldatmm =
    single("NLDATMM", kDatetime, kMediumDatetime, ShortForm::DatetimeSeconds);
constexpr SinglePatternFormat kNldatms =
    single("NLDATMS", kDatetime, kShortDatetime, ShortForm::DatetimeSeconds);
constexpr SinglePatternFormat kNldatmw =
    single("NLDATMW", kDatetime, kWeekdayDatetime, ShortForm::None);
constexpr SinglePatternFormat kNldatmdt =
    single("NLDATMDT", kDatetime, kDateOfDatetime, ShortForm::DatetimeDate);

// Fraction digits past output expansion's units cannot show (the text
// would not fit); the datetime members start their walk there at most.
constexpr int32_t kMostFractionDigits = 200;

// The table walked: each entry (the datetime members from `decimals`
// fraction digits down to none) expanded and kept when output expansion
// takes it whole; the short numeric form when the walk reaches it.  An
// entry that cannot be expanded (its item not fetched, an unknown
// directive) is passed over.  Nothing fits: all "*".
int32_t render_single_pattern(fmtreq &request, const SinglePatternFormat &format, double value) {
  const locitem *record = locale::select_record(request.locale);
  const int32_t most = format.kind == ValueKind::Datetime
                           ? std::clamp(request.decimals, 0, kMostFractionDigits)
                           : 0;
  const AttemptSession session = read_attempt_session(request);
  for (std::size_t i = 0; i < format.entry_count && format.entries[i].pattern; ++i) {
    const PatternEntry &entry = format.entries[i];
    if (entry.text == nullptr && entry.selector == kShortFormSentinel) {
      return render_short_numeric(request, format.short_form, value);
    }
    const int32_t selector =
        entry.text != nullptr ? static_cast<int32_t>(std::strlen(entry.text)) : entry.selector;
    for (int32_t digits = most; digits >= 0; --digits) {
      EntryExpansion expansion;
      const int32_t prepared =
          expansion.prepare(format.kind, record, entry.text, selector, digits, value);
      // Rounded past the end of the range: so with fewer digits too.
      if (prepared == kValueRejected) return frame::fill_stars(request);
      if (prepared != 0) break;
      bool placed = false;
      const int32_t result = attempt_in_field(request, expansion, session, placed);
      if (placed) return CORVINEL_OK;
      if (result < 0 || result > encoding::kExpansionShortened) break;
    }
  }
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
  if (!in_valid_range(format.kind, value) || !frame::field_fits_buffer(r)) {
    return frame::fill_stars(r);
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

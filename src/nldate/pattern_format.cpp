#include "nldate/pattern_format.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "calendar/time_texts.h"
#include "corvinel/classic_dates.h"
#include "nldate/date_frame.h"
#include "locale/environment_value.h"
#include "locale/locale_records.h"
#include "nldate/date_placement.h"
#include "nldate/field_attempt.h"
#include "nldate/pattern_expander.h"
#include "nldate/short_numeric_form.h"

namespace corvinel::nldate {
namespace {

// The time of day of a time value: a negative time counts back from the
// end of a day, a time of a day or more is reduced modulo one day.
double brought_into_one_day(double time) {
  if (time < 0) time = 86400 - std::fmod(std::fabs(time), 86400);
  if (time >= 86400) time = std::fmod(time, 86400);
  return time;
}

constexpr int32_t kMostFractionDigits = 200;

// One pass: the pattern of `selector` expanded for each number of fraction
// digits from the request's decimals down to 0 (a date is expanded once),
// kept when output expansion says it fits.  Returns 0 when the text was
// placed, else the last result (1: the text was too long).
template <ValueKind kind>
int32_t try_pattern(fmtreq &request, const locitem *record, const AttemptSession &session,
                    int32_t selector, double value) {
  int32_t last = 0;
  // Attempts with more fraction digits than output expansion converts
  // units (200) cannot show their fraction, and a pattern without one
  // gives the same text at 200 digits as above (rounding to 1e-200 leaves
  // every value it could show unchanged): they start at the same results.
  const int32_t most = kind == ValueKind::Date ? std::min(request.decimals, 0)
                                               : std::min(request.decimals, kMostFractionDigits);
  for (int32_t digits = most; digits >= 0; --digits) {
    EntryExpansion entry;
    // A time of day that rounds up to the end of its day is midnight.
    const bool next_midnight =
        kind == ValueKind::Time && value > 86399 &&
        round_seconds(value, std::min(digits, kExactFractionDigits)).seconds >= 86400;
    last = entry.prepare(kind, record, nullptr, selector, digits, next_midnight ? 0.0 : value);
    // A value that rounds past the end of the range does so with fewer
    // digits too.
    if (last == kValueRejected) return last;
    if (last != 0) continue;
    bool placed = false;
    last = attempt_in_field(request, entry, session, placed);
    if (placed) return 0;
  }
  return last == 0 ? kExpandTooLong + 1 : last;
}

// A classic rendering of `value` into the request (the value pointer
// pointed at it for the call), then stripped, left-justified and expanded.
int32_t classic_fallback(fmtreq &request, int32_t (*render)(fmtreq *), double value,
                         encoding::SessionCodeset codeset) {
  const double *own = request.value;
  request.value = &value;
  const int32_t result = render(&request);
  request.value = own;
  if (result != CORVINEL_OK) return frame::fill_stars(request);
  if (left_justify_and_expand(request, codeset) <= 0) return CORVINEL_OK;
  return frame::fill_stars(request);
}

// The classic TIME of a time brought into one day.  A whole number of
// seconds without decimals in a field of 8 or more is "h:mm:ss" in full,
// plain ASCII, which output expansion in a session the compiled patterns
// take leaves as it is: it is laid straight into the field.
int32_t classic_time_fallback(fmtreq &request, double value, const AttemptSession &session) {
  if (session.compiled && request.decimals <= 0 && request.width >= 8) {
    char text[8];
    if (const int32_t length = calendar::whole_clock_text(value, text)) {
      std::memcpy(request.output, text, static_cast<std::size_t>(length));
      request.outlen = length;
      return CORVINEL_OK;
    }
  }
  return classic_fallback(request, zfmtime, value, session.codeset);
}

int32_t render_fallback(fmtreq &request, Fallback fallback, double value,
                        const AttemptSession &session) {
  std::memset(request.output, ' ', static_cast<std::size_t>(request.capacity));
  switch (fallback) {
    case Fallback::None:
      break;
    case Fallback::ShortDate:
      return render_short_numeric(request, ShortForm::Date, value);
    case Fallback::ShortDatetime:
      return render_short_numeric(request, ShortForm::DatetimeSeconds, value);
    case Fallback::ClassicTime:
      return classic_time_fallback(request, value, session);
    case Fallback::ClassicTimeOfDay:
      return classic_fallback(request, zfmtod, value, session.codeset);
    case Fallback::ClassicTimeAmPm:
      return classic_fallback(request, zfmtimm, value, session.codeset);
  }
  return frame::fill_stars(request);
}

// A present value in range: the first pattern, the second when the first
// was too long, then the fallback.
int32_t render_with_locale_patterns(fmtreq &request, const PatternFormat &format, double value) {
  if (format.kind == ValueKind::Time) value = brought_into_one_day(value);
  // The locale and the session are read once for every attempt of the
  // call; a format that shows the zone offset reads TZ in the same walk
  // over the environment as ORB_LOCALE.
  const bool shows_zone =
      ((format.first_selector | format.second_selector) & kAppendZoneOffset) != 0;
  const locitem *record = nullptr;
  ZoneReading zone;
  if (shows_zone) {
    const locale::EnvironmentPair values = locale::orb_locale_and_zone_values();
    record = locale::select_record_with(request.locale, values.first);
    zone = {true, values.second};
  } else {
    record = locale::select_record(request.locale);
  }
  const AttemptSession session = read_attempt_session(request, zone);
  const auto passes = [&]<ValueKind kind>() {
    int32_t last = try_pattern<kind>(request, record, session, format.first_selector, value);
    if (last == kExpandTooLong && format.second_selector != kNoPattern) {
      last = try_pattern<kind>(request, record, session, format.second_selector, value);
    }
    return last;
  };
  int32_t last = 0;
  switch (format.kind) {
    case ValueKind::Date: last = passes.template operator()<ValueKind::Date>(); break;
    case ValueKind::Datetime: last = passes.template operator()<ValueKind::Datetime>(); break;
    case ValueKind::Time: last = passes.template operator()<ValueKind::Time>(); break;
  }
  if (last == 0) return CORVINEL_OK;
  if (last == kValueRejected) return frame::fill_stars(request);
  return render_fallback(request, format.fallback, value, session);
}

}  // namespace

int32_t pattern_format_frame(fmtreq *request, const PatternFormat &format) {
  const double value = frame::read_value(*request);
  if (auto settled = settle_before_rendering(*request, format.limits, format.kind, value)) {
    return *settled;
  }
  return render_with_locale_patterns(*request, format, value);
}

}  // namespace corvinel::nldate

// NLNUM, NLNUMI, NLMNY, NLMNYI, NLPCT and NLPCTI: a number in the conventions
// of the request's locale, through the locale number engine.
#include "corvinel/classic_numbers.h"
#include "corvinel/formats.h"
#include "frame/format_frame.h"
#include "nlnum/field_placement.h"
#include "nlnum/number_engine.h"

namespace corvinel::nlnum {
namespace {

// The host's rendering that stands in when the locale lacks the convention.
enum class ClassicFallback { Comma, Dollar, Percent };

struct NumberFormat {
  frame::Limits limits;
  int32_t convention_item;  // the locale item holding the number pattern
  ClassicFallback fallback;
  bool percent;  // renders 100 times the value; the mark leaves room for "%"
};

constexpr frame::Limits kNumberLimits{1, 32, 0, 31};
constexpr frame::Limits kPercentLimits{4, 32, 0, 31};

constexpr NumberFormat kNlnum{kNumberLimits, 183, ClassicFallback::Comma, false};
constexpr NumberFormat kNlnumi{kNumberLimits, 184, ClassicFallback::Comma, false};
constexpr NumberFormat kNlmny{kNumberLimits, 170, ClassicFallback::Dollar, false};
constexpr NumberFormat kNlmnyi{kNumberLimits, 171, ClassicFallback::Dollar, false};
constexpr NumberFormat kNlpct{kPercentLimits, 185, ClassicFallback::Percent, true};
constexpr NumberFormat kNlpcti{kPercentLimits, 186, ClassicFallback::Percent, true};

int32_t render_classic(fmtreq &request, ClassicFallback fallback) {
  switch (fallback) {
    case ClassicFallback::Comma: return zfmcma(&request);
    case ClassicFallback::Dollar: return zfmdlr(&request);
    case ClassicFallback::Percent: return zfmpct(&request);
  }
  return CORVINEL_DOES_NOT_FIT;
}

// A present value: the locale's convention through the engine, else the
// classic rendering passed through output expansion, else "*".
int32_t render_number(fmtreq &request, const NumberFormat &format, double value) {
  // Percent formats hand the engine 100 times the value (zero as it is) and
  // give the classic PERCENT the value itself, which it scales on its own.
  const double scaled = (format.percent && value != 0) ? value * 100 : value;
  if (zkfnum_value(request.output, request.width, format.convention_item, &request, scaled) ==
      CORVINEL_OK) {
    return CORVINEL_OK;
  }

  if (render_classic(request, format.fallback) == CORVINEL_OK &&
      expand_field_in_place(request) <= 0) {
    return CORVINEL_OK;
  }
  return frame::fill_stars(request);
}

int32_t number_frame(fmtreq *request, const NumberFormat &format) {
  fmtreq &r = *request;
  if (const int32_t code = frame::check_limits(r, format.limits)) return code;
  const double value = frame::read_value(r);
  // A present value in a field that fits the buffer is written whole by
  // every way out of render_number, so the field is not blanked first.
  if (!frame::is_missing(value) && frame::field_fits_buffer(r)) {
    r.outlen = r.width;
    return render_number(r, format, value);
  }
  frame::blank_field(r);
  if (frame::is_missing(value)) {
    return format.percent ? frame::render_missing_percent(r) : frame::render_missing_number(r);
  }
  return frame::fill_stars(r);
}

}  // namespace
}  // namespace corvinel::nlnum

using corvinel::nlnum::number_frame;

extern "C" {

int32_t nlnum(fmtreq *request) { return number_frame(request, corvinel::nlnum::kNlnum); }
int32_t nlnumi(fmtreq *request) { return number_frame(request, corvinel::nlnum::kNlnumi); }
int32_t nlmny(fmtreq *request) { return number_frame(request, corvinel::nlnum::kNlmny); }
int32_t nlmnyi(fmtreq *request) { return number_frame(request, corvinel::nlnum::kNlmnyi); }
int32_t nlpct(fmtreq *request) { return number_frame(request, corvinel::nlnum::kNlpct); }
int32_t nlpcti(fmtreq *request) { return number_frame(request, corvinel::nlnum::kNlpcti); }

}  // extern "C"

// NLBEST, NLD, NLPVALUE, NLPCTN and NLPCTP: the host's classic renderings
// with the locale's decimal and group separators put in afterwards.
#include <algorithm>

#include "corvinel/formats.h"
#include "corvinel/missing.h"
#include "frame/format_frame.h"

namespace corvinel::nlnum {
namespace {

enum class ClassicRendering {
  Best,              // zfmt with decimals 99
  D,                 // zfmd
  PValue,            // zfmpval
  PercentWithMinus,  // pctn: PERCENT with a minus sign instead of brackets
  Percent,           // zfmpct
};

struct ClassicBasedFormat {
  frame::Limits limits;
  ClassicRendering classic;
};

constexpr ClassicBasedFormat kNlbest{{1, 32, 0, 31}, ClassicRendering::Best};
constexpr ClassicBasedFormat kNld{{1, 32, 0, 16}, ClassicRendering::D};
constexpr ClassicBasedFormat kNlpvalue{{3, 32, 1, 30}, ClassicRendering::PValue};
constexpr ClassicBasedFormat kNlpctn{{4, 32, 0, 31}, ClassicRendering::PercentWithMinus};
constexpr ClassicBasedFormat kNlpctp{{4, 32, 0, 31}, ClassicRendering::Percent};

// The classic rendering of the request, the locale's one-byte separators in
// place of "." and ",", then output expansion with the caller's capacity.
// Not built yet: a missing value shows its mark where the classic renderings
// put it (the units place of `decimals`), anything else "*".
int32_t render_with_locale_separators(fmtreq &request, const ClassicBasedFormat & /*format*/,
                                      int32_t /*caller_capacity*/, double value) {
  if (frame::is_missing(value)) return frame::render_missing_number(request);
  return frame::fill_stars(request);
}

int32_t classic_based_frame(fmtreq *request, const ClassicBasedFormat &format) {
  fmtreq &r = *request;
  if (const int32_t code = frame::check_limits(r, format.limits)) return code;
  const double value = frame::read_value(r);
  r.outlen = r.width;
  const int32_t caller_capacity = r.capacity;
  const bool best = format.classic == ClassicRendering::Best;
  // Deliberately not put back: the classic rendering sees no more room than
  // the field, and the host finds the request so afterwards.  Expansion is
  // still given the caller's capacity.
  if (!best) r.capacity = std::min(r.capacity, r.width);
  // Tells the classic rendering that a locale-aware format called it; left set.
  r.flags |= FMTREQ_LOCALE_CALLER;

  // The classic renderings read the value through the request: a request
  // without one gets the missing value read_value stands in for.
  const double *caller_value = r.value;
  if (caller_value == nullptr) r.value = &std_miss_val;
  const int32_t caller_decimals = r.decimals;
  if (best) r.decimals = 99;  // BEST: the most precise text that fits
  // A field the buffer cannot hold is never handed to a classic rendering.
  int32_t result = CORVINEL_OK;
  if (frame::field_fits_buffer(r)) {
    result = render_with_locale_separators(r, format, caller_capacity, value);
  } else if (frame::is_missing(value)) {
    result = frame::render_missing_number(r);
  } else {
    result = frame::fill_stars(r);
  }
  r.decimals = caller_decimals;
  r.value = caller_value;
  return result;
}

}  // namespace
}  // namespace corvinel::nlnum

using corvinel::nlnum::classic_based_frame;

extern "C" {

int32_t nlbest(fmtreq *request) { return classic_based_frame(request, corvinel::nlnum::kNlbest); }
int32_t nldfmt(fmtreq *request) { return classic_based_frame(request, corvinel::nlnum::kNld); }
int32_t nlpvalue(fmtreq *request) {
  return classic_based_frame(request, corvinel::nlnum::kNlpvalue);
}
int32_t nlpctn(fmtreq *request) { return classic_based_frame(request, corvinel::nlnum::kNlpctn); }
int32_t nlpctp(fmtreq *request) { return classic_based_frame(request, corvinel::nlnum::kNlpctp); }

}  // extern "C"

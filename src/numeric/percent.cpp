// PERCENT (zfmpct): 100 times the value in four zones,
//   "(" or blank | number right-aligned in width - 3 bytes | "%" | ")" or blank
// with brackets only around a value that does not round to zero.  The zones
// stay where they are whatever the number, so NLPCTN can turn the brackets
// into a minus sign in place.
#include <cmath>
#include <cstdint>

#include "corvinel/classic_numbers.h"
#include "numeric/classic_field.h"
#include "numeric/fixed_point.h"

namespace {

// Bytes of the layout that are not the number: "(", "%" and ")".
constexpr int64_t kFrameBytes = 3;
// Bytes right of the number zone: "%" and ")".
constexpr int64_t kSuffixBytes = 2;

}  // namespace

extern "C" int32_t zfmpct(fmtreq *request) {
  using namespace corvinel::numeric;
  const OpenedRequest opened = open_request(request, MissingMark::kPercentZone);
  if (!opened.render) return opened.result;
  const int64_t width = request->width;
  const int64_t zone = width - kFrameBytes;
  // Zero is not multiplied, so that -0.0 stays a plain zero.
  const double scaled = opened.value == 0 ? opened.value : opened.value * 100;
  if (zone < 1 || !std::isfinite(scaled)) return fill_overflow(request);

  const auto text = fit_decimals(std::fabs(scaled), request->decimals, false, zone);
  if (!text) return fill_overflow(request);
  place_text(request, *text, kSuffixBytes);
  request->output[width - 2] = '%';
  if (scaled < 0 && !text->magnitude.is_zero()) {
    request->output[0] = '(';
    request->output[width - 1] = ')';
  }
  return CORVINEL_OK;
}

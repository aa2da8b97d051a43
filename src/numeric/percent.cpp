// PERCENT (zfmpct): 100 times the value, right-aligned, with "," between
// groups of three integer digits and "%" after the digits:
//   number "%" ")"   a negative value, "(" directly before the number;
//   number "%" " "   any other, the blank lining it up with the ")".
// The number ends three bytes before the edge and may take every byte left
// of that but the first, which stays free for the "(", so that a value
// fits whatever its sign.  Brackets only around a value that does not
// round to zero.
#include <cmath>
#include <cstdint>

#include "corvinel/classic_numbers.h"
#include "numeric/classic_field.h"
#include "numeric/fixed_point.h"

namespace {

// Bytes of the layout that are not the number: "(", "%" and ")".
constexpr int64_t kFrameBytes = 3;
// Bytes right of the number: "%" and ")".
constexpr int64_t kSuffixBytes = 2;

}  // namespace

extern "C" int32_t zfmpct(fmtreq *request) {
  using namespace corvinel::numeric;
  const OpenedRequest opened = open_request(request, MissingMark::kPercentZone);
  if (!opened.render) return opened.result;
  const int64_t width = request->width;
  const int64_t room = width - kFrameBytes;
  // Zero is not multiplied, so that -0.0 stays a plain zero.
  const double scaled = opened.value == 0 ? opened.value : opened.value * 100;
  if (room < 1 || !std::isfinite(scaled)) return fill_overflow(request);

  const auto text = fit_grouped(std::fabs(scaled), request->decimals, room);
  if (!text) return fill_overflow(request);
  place_text(request, *text, kSuffixBytes);
  request->output[width - 2] = '%';
  if (scaled < 0 && !text->magnitude.is_zero()) {
    request->output[width - kSuffixBytes - text->length() - 1] = '(';
    request->output[width - 1] = ')';
  }
  return CORVINEL_OK;
}

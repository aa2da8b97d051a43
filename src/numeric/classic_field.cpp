// Opening a request for a classic number rendering.
#include "numeric/classic_field.h"

#include <cmath>
#include <cstring>

#include "corvinel/missing.h"

namespace corvinel::numeric {
namespace {

// The right-edge selector of zfmmiss.
constexpr int32_t kRightEdgeDecimals = 99;

// Renders a missing value with zfmmiss, placing the mark as `mark` says, and
// puts back every field it changes for the call.
void render_missing(fmtreq *request, MissingMark mark) {
  const int32_t width = request->width;
  const int32_t decimals = request->decimals;
  // The percent layout keeps "%" and ")" right of its number zone: a field
  // two bytes narrower puts the mark where the zone's point would be, or at
  // the zone's last byte.  A field of one or two bytes has no zone and takes
  // the mark at its edge.
  const int32_t mark_width = mark == MissingMark::kPercentZone && width > 2 ? width - 2 : width;
  const bool decimals_in_field = decimals >= 0 && decimals < mark_width;
  if (mark == MissingMark::kRightEdge || !decimals_in_field) {
    request->decimals = kRightEdgeDecimals;
  }
  request->width = mark_width;
  zfmmiss(request);
  request->width = width;
  request->decimals = decimals;
  request->outlen = width;
}

}  // namespace

int32_t fill_overflow(fmtreq *request) {
  std::memset(request->output, '*', static_cast<size_t>(request->width));
  return CORVINEL_DOES_NOT_FIT;
}

OpenedRequest open_request(fmtreq *request, MissingMark mark) {
  if (request->width <= 0 || request->width > request->capacity ||
      request->output == nullptr || request->value == nullptr) {
    request->outlen = 0;
    return {false, CORVINEL_DOES_NOT_FIT, 0};
  }
  const double value = *request->value;
  if (zmiss(value)) {
    render_missing(request, mark);
    return {false, CORVINEL_OK, value};
  }
  request->outlen = request->width;
  if (!std::isfinite(value)) return {false, fill_overflow(request), value};
  std::memset(request->output, ' ', static_cast<size_t>(request->width));
  return {true, CORVINEL_OK, value};
}

}  // namespace corvinel::numeric

// The request side shared by the classic number renderings: checking the
// field, missing values, values without digits, placing a text, overflow.
#pragma once

#include <cstdint>
#include <variant>

#include "corvinel/fmtreq.h"
#include "numeric/number_text.h"

namespace corvinel::numeric {

// Where a rendering puts the mark of a missing value.
enum class MissingMark {
  kDecimalsPlace,  // where the point of a number with `decimals` places stands
  kRightEdge,      // the last byte of the field
  kPercentZone,    // as kDecimalsPlace, in the number zone two bytes left of the edge
};

// Outcome of opening a request: either a finite value to render into a
// blank-filled field, or the request is already answered with `result`.
struct OpenedRequest {
  bool render = false;
  int32_t result = CORVINEL_OK;
  double value = 0;
};

// Reads the value once.  A field that cannot be written (width 0 or less,
// width above capacity, no buffer, no value) writes nothing, sets outlen to 0
// and answers CORVINEL_DOES_NOT_FIT.  A missing value is rendered with
// zfmmiss and answers 0; a NaN or an infinity fills "*".  Otherwise the
// field is blank-filled and outlen is width.
OpenedRequest open_request(fmtreq *request, MissingMark mark);

// Fills the field with "*" and answers CORVINEL_DOES_NOT_FIT.
int32_t fill_overflow(fmtreq *request);

// Writes `text` (which fits) right-aligned into the blank field, ending
// `right_margin` bytes before the edge.
template <class Text>
int32_t place_text(fmtreq *request, const Text &text, int64_t right_margin = 0) {
  text.write(request->output + (request->width - right_margin - text.length()));
  return CORVINEL_OK;
}

inline int32_t place_text(fmtreq *request, const NumberText &text) {
  return std::visit([request](const auto &shape) { return place_text(request, shape); },
                    text);
}

}  // namespace corvinel::numeric

// The last step of the number engine and the currency-code formats: the
// composed text through output expansion into the session encoding (or
// 16-bit units) and right-aligned into the request's field.
#pragma once

#include <cstdint>

#include "corvinel/fmtreq.h"
#include "encoding/simple_expansion.h"

namespace corvinel::nlnum {

enum class Placement {
  kPlaced,   // the text stands in the field
  kTooWide,  // expansion had to shorten it: try a shorter text
  kFailed,   // it cannot be shown at all: the caller fills the field with "*"
};

// Expands `length` bytes of `text` with the request's transcoding words and
// the field width `width` (in the session `codeset` read for this call);
// `expansion_capacity` is the room the expansion may use.  When the text fits, blank-fills `capacity` bytes of `output`
// (in 16-bit units when the delivered encoding, the low word of
// `xcode_state`, is 24 or 25: high byte first for 24, low byte first for
// 25) and copies the text so that it ends at the field's right edge:
//   - 16-bit: starting 2 x (width - its length in the session encoding)
//     bytes in, `outlen` = that offset + the bytes copied;
//   - otherwise: starting width - its length bytes in, `outlen` = width.
// A text that would pass `capacity` there fails.  Nothing is written unless
// the text is placed.  Requires 1 <= width <= capacity.
Placement place_right_aligned(fmtreq &request, encoding::SessionCodeset codeset, char *output,
                              int32_t width, const char *text, int32_t length,
                              int32_t expansion_capacity);

// Output expansion in place of the `outlen` bytes the request's `output`
// holds, with the request's width and capacity (the text of a classic
// rendering); returns the expansion's result (0 or below: it fits).
int32_t expand_field_in_place(fmtreq &request);

// The overflow field: `capacity` bytes of blanks, then `width` "*", `outlen`
// = width; returns 0.
int32_t fill_overflow(fmtreq &request, char *output, int32_t width);

}  // namespace corvinel::nlnum

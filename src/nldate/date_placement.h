// The last step of the date, datetime and time formats: a narrow text
// through output expansion into the session encoding (or 16-bit units),
// placed at the start of the request's field.
#pragma once

#include <cstdint>

#include "corvinel/fmtreq.h"
#include "encoding/simple_expansion.h"

namespace corvinel::nldate {

// Expands `length` bytes of `text` with the request's transcoding words,
// width and capacity.  When the whole text fits (result 0 or less),
// blank-fills `capacity` bytes of `output`, copies the expanded text to its
// start and sets `outlen` to its length; otherwise writes nothing.  Returns the
// expansion's result.  Requires 1 <= width <= capacity.
int32_t place_at_start(fmtreq &request, const char *text, int32_t length);

// The text `outlen` bytes of the field hold (a classic rendering or a short
// form), trailing blanks stripped and moved left over its leading blanks
// (the freed tail blank-filled and `outlen` reduced), then expanded in
// place; returns the expansion's result.
int32_t left_justify_and_expand(fmtreq &request);

// The same with the session codeset already read for the call (output
// expansion's shortcut, which gives the same results).
int32_t left_justify_and_expand(fmtreq &request, encoding::SessionCodeset codeset);

}  // namespace corvinel::nldate

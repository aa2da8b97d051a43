#include "nldate/date_placement.h"

#include <algorithm>
#include <cstring>

#include "corvinel/text.h"
#include "encoding/output_expansion.h"
#include "encoding/request_expansion.h"
#include "encoding/transcode_steps.h"

namespace corvinel::nldate {
namespace {

constexpr int32_t kEscapeLength = 7;  // "<U20AC>"

// A hexadecimal digit's value; any other byte counts as 0, as in expansion.
int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return 0;
}

bool is_escape(const char *at) { return at[0] == '<' && (at[1] & ~0x20) == 'U' && at[6] == '>'; }

// Output expansion cuts a text that is too wide back one unit at a time and
// converts it again each time.  Every unit that is no surrogate half turns
// into at least one byte, so a text of such units only, with more units
// than the width, is cut back to at most `width` units: its first width + 1
// units take the same last steps to the same result.  Returns the byte
// length of those units (or the whole length when the shortcut does not
// apply).  Units are counted as expansion counts them: an escape lying
// wholly inside the text is one unit, every other byte one.
int32_t cut_for_result_only(const char *text, int32_t length, int32_t width) {
  int32_t units = 0, cut = length;
  for (int32_t i = 0; i < length;) {
    int32_t step = 1;
    if (length - i >= kEscapeLength && is_escape(text + i)) {
      // A surrogate half, D800..DFFF, read as expansion reads the digits.
      if (hex_digit(text[i + 2]) == 0xD && hex_digit(text[i + 3]) >= 8) return length;
      step = kEscapeLength;
    }
    ++units;
    i += step;
    if (units == width + 1) cut = i;
  }
  return units > width && units <= encoding::kMaxUnits ? cut : length;
}

}  // namespace

int32_t place_at_start(fmtreq &request, const char *text, int32_t length) {
  // Expansion never yields more than one conversion step, so a work buffer
  // of that size with the room cut to it gives the same results as
  // expanding in a buffer of the request's capacity.
  if (length > encoding::kStepCapacity) return encoding::kExpansionImpossible;
  // A text of no more bytes than the width has no more units either.
  if (length > request.width) {
    length = cut_for_result_only(text, length, request.width);
  }
  char work[encoding::kStepCapacity];
  std::memcpy(work, text, static_cast<std::size_t>(std::max(length, 0)));
  int32_t expanded = length;
  const int32_t room = std::min(request.capacity, encoding::kStepCapacity);
  const int32_t result = encoding::expand_for_request(request, work, &expanded, room);
  if (result > 0) return result;
  std::memset(request.output, ' ', static_cast<std::size_t>(request.capacity));
  std::memcpy(request.output, work, static_cast<std::size_t>(expanded));
  request.outlen = expanded;
  return result;
}

namespace {

// The text the field holds stripped and moved left; returns its length.
int32_t left_justify(fmtreq &request) {
  const int32_t field = std::clamp(request.outlen, 0, request.capacity);
  int32_t length = field > 0 ? wzstrip(request.output, field) : 0;
  int32_t start = 0;
  while (start < length && request.output[start] == ' ') ++start;
  if (start > 0) {
    std::memmove(request.output, request.output + start, static_cast<std::size_t>(length - start));
    std::memset(request.output + length - start, ' ', static_cast<std::size_t>(start));
  }
  length -= start;
  request.outlen = length;
  return length;
}

}  // namespace

int32_t left_justify_and_expand(fmtreq &request) {
  left_justify(request);
  return encoding::expand_for_request(request, request.output, &request.outlen, request.capacity);
}

int32_t left_justify_and_expand(fmtreq &request, encoding::SessionCodeset codeset) {
  left_justify(request);
  int32_t delivered = encoding::delivered_encoding(request);
  const int32_t result = encoding::expand_output(codeset, request.xcode_b, &delivered, request.output,
                                              &request.outlen, request.width, request.capacity);
  encoding::set_delivered_encoding(request, delivered);
  return result;
}

}  // namespace corvinel::nldate

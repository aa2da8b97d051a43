// Output expansion driven by a request's transcoding words: the requested
// encoding (`xcode_b`), and the delivered encoding kept in the low 32 bits of
// `xcode_state`, which expansion sets to 25 when it hands back 16-bit units.
#pragma once

#include <cstdint>

#include "corvinel/fmtreq.h"
#include "encoding/output_expansion.h"

namespace corvinel::encoding {

// The encoding of the text the request's `output` holds (low 32 bits of
// `xcode_state`).
inline int32_t delivered_encoding(const fmtreq &request) {
  return static_cast<int32_t>(request.xcode_state);
}

// Records `encoding` in the low 32 bits of `xcode_state`, leaving the high
// half to the host.
inline void set_delivered_encoding(fmtreq &request, int32_t encoding) {
  const uint64_t high = static_cast<uint64_t>(request.xcode_state) & 0xFFFFFFFF00000000u;
  request.xcode_state = static_cast<int64_t>(high | static_cast<uint32_t>(encoding));
}

inline bool delivers_16_bit_units(const fmtreq &request) {
  const int32_t encoding = delivered_encoding(request);
  return encoding == CORVINEL_ENC_UTF16BE || encoding == CORVINEL_ENC_UTF16LE;
}

// Expands and transcodes *length bytes of `text` in place, at most the
// request's width in session-encoding bytes and `capacity` bytes in all;
// the high half of `xcode_state` is left alone.  Returns what expansion
// returns (0 or less: the text fits).
inline int32_t expand_for_request(fmtreq &request, char *text, int32_t *length, int32_t capacity) {
  int32_t delivered = delivered_encoding(request);
  const int32_t result = getExpResultFromNarrowCharBuf(
      request.xcode_a, request.xcode_b, &delivered, text, length, request.width, capacity);
  set_delivered_encoding(request, delivered);
  return result;
}

}  // namespace corvinel::encoding

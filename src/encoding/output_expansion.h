// Output expansion: the last step of every locale-aware format.  The narrow
// text, in which non-ASCII characters are still written "<Uxxxx>", becomes
// UTF-16 code units, is transcoded into the session encoding (the codeset of
// the process locale) and cut back unit by unit until it fits the width.
#pragma once

#include <cstdint>

namespace corvinel::encoding {

// Results of getExpResultFromNarrowCharBuf besides "fits" (0 or negative:
// the result length minus the width).
inline constexpr int32_t kExpansionShortened = 1;  // cut back to fit `width`
inline constexpr int32_t kExpansionNoRoom = 2;     // result longer than `capacity`; buf untouched
inline constexpr int32_t kExpansionImpossible = 4;  // no conversion; buf untouched

// Expands and transcodes the *len bytes of `buf` in place.
//   reserved  not used (the formats pass a word of their request)
//   outenc    25 delivers the UTF-16 code units themselves, low byte first
//             (and sets *encout to 25); any other value the session encoding
//   width     the longest result the format allows, in session-encoding bytes
//             (a negative width counts as 0)
//   capacity  the room of `buf` for the result
// Escapes: "<", "U" or "u", four hexadecimal digits, ">" make one unit (a
// non-hex digit counts as 0; U+00A4 becomes the currency marker U+0001); an
// escape must lie wholly inside the text; a text shorter than 7 bytes has
// none.  Every other byte becomes one unit.  A text of more than 200 units
// cannot be converted (4).  A unit that does not convert becomes "?"; a
// result that would pass the 402-byte step is cut back like one that passes
// the width.  Returns 4, 2, 1, or the result length minus `width` when the
// text fits as it is.  Thread-safe; no allocation besides
// what iconv does when a new codeset is first met on a thread.
int32_t getExpResultFromNarrowCharBuf(int32_t reserved, int32_t outenc, int32_t *encout, char *buf,
                                      int32_t *len, int32_t width, int32_t capacity);

// The same through the straightforward converter (iconv opened for every
// step): the reference the fast path is compared with.
int32_t expand_output_per_call(int32_t reserved, int32_t outenc, int32_t *encout, char *buf,
                               int32_t *len, int32_t width, int32_t capacity);

// obnlsTranscodeUnicode through the straightforward converter.
int32_t transcode_unicode_per_call(const char *encoding, const unsigned char *units,
                                   int32_t nbytes, char *out, int32_t outcap, int32_t *outlen);

// Escape expansion alone: the unit text (low byte first) of `text` in
// `units` (402 bytes); returns its length in bytes, or -1 beyond 200 units.
int32_t expand_escapes(const char *text, int32_t length, unsigned char *units);

}  // namespace corvinel::encoding

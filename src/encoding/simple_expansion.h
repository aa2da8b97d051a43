// Output expansion without the conversion machinery for the texts the number
// formats build most: under a UTF-8, ISO-8859-1 or ASCII session a text
// whose characters all convert is expanded and encoded here in one pass.
// Everything else goes to getExpResultFromNarrowCharBuf.  Results, bytes
// and the delivered encoding are the same in every case (the tests compare
// the two over generated texts).
#pragma once

#include <langinfo.h>

#include <cstdint>
#include <string_view>

namespace corvinel::encoding {

// The session codesets expanded here; kOther always takes the general path.
enum class SessionCodeset { kOther, kUtf8, kLatin1, kAscii };

// The process locale's codeset, named by the rules of output expansion
// (nl_langinfo(CODESET): "utf8" or "utf-8" at its start in any case is
// UTF-8; "ISO-8859-1" and "ANSI_X3.4-1968" exactly).  Read once per format
// call: the process locale does not change during a call.
SessionCodeset codeset_named(const char *name);

// "utf8" or "utf-8" at the start of a codeset name, in any case.
inline bool is_utf8_codeset(const char *name) {
  return (name[0] | 0x20) == 'u' && (name[1] | 0x20) == 't' && (name[2] | 0x20) == 'f' &&
         (name[3] == '8' || (name[3] == '-' && name[4] == '8'));
}

// The common session, UTF-8, told in line; the others by codeset_named.
inline SessionCodeset read_session_codeset() {
  const char *name = nl_langinfo(CODESET);
  if (name != nullptr && is_utf8_codeset(name)) return SessionCodeset::kUtf8;
  return codeset_named(name);
}

// getExpResultFromNarrowCharBuf(0, outenc, encout, buf, len, width,
// capacity), given the session codeset read for this call.  The shortcut
// takes texts of at most 200 units without surrogate halves whose
// characters the codeset has and whose UTF-8 form fits the 402-byte step.
// The bytes the shortcut writes for `text` in `codeset`, without any width
// cut: the same characters, escapes and units as expand_output.  Returns
// their length, or -1 when the shortcut would not take the text (kOther, a
// surrogate half, a character the codeset lacks) or it needs more than
// `capacity` bytes.
int32_t encode_in_session(SessionCodeset codeset, std::string_view text, char *out,
                          int32_t capacity);

// The unit of the character at `at` (`remaining` bytes left in the text)
// and the bytes it takes: an escape "<Uxxxx>" lying wholly inside the text
// is one unit (the symbolic currency sign the currency marker), any other
// byte is the unit of its value.
int32_t next_symbolic_unit(const char *at, int32_t remaining, uint16_t &unit);

// Whether the shortcut writes `unit` in `codeset`: no surrogate halves, and
// only the characters ISO-8859-1 and ASCII have.
bool session_has(SessionCodeset codeset, uint16_t unit);

// The bytes of `unit` in UTF-8.
inline int utf8_length(uint16_t unit) { return unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3; }

int32_t expand_output(SessionCodeset codeset, int32_t outenc, int32_t *encout, char *buf,
                      int32_t *len, int32_t width, int32_t capacity);

}  // namespace corvinel::encoding

// The conversion steps behind output expansion, and the two ways of running
// them: iconv opened for every step (the straightforward converter) and the
// fast converters (UTF-16 to UTF-8 in code, Latin-1 and ASCII in code, other
// codesets through an iconv descriptor kept per thread).  Both give the same
// bytes and results for every input; the tests compare them.
#pragma once

#include <cstdint>

namespace corvinel::encoding {

// Every conversion step works in a buffer of this size; a text that does not
// fit is a failure of that step.
inline constexpr int32_t kStepCapacity = 402;
// Units the unit text holds: 400 bytes and a terminating zero unit.
inline constexpr int32_t kMaxUnits = (kStepCapacity - 2) / 2;

// The session encoding: the codeset name of the process locale, cut to 401
// bytes and NUL-terminated.
struct SessionEncoding {
  char name[kStepCapacity];
  bool utf8;  // the name starts with "utf8" or "utf-8", in any case
};

// The session encoding from an explicit codeset name.
void name_session_encoding(const char *codeset, SessionEncoding &encoding);

// Outcome of a conversion step.  A step that meets a character it cannot
// convert and one that runs out of room both fail; which of the two comes
// first is the C library's order: room is checked before the character.
enum class CodesetStep { kConverted, kUnconvertible, kNoRoom, kCannotOpen };

// Converts n bytes with iconv through `cd`, closing any shift state at the
// end; *len gets the bytes written.  Resets `cd` for the next use.
CodesetStep run_iconv(void *cd, const char *in, int32_t n, char *out, int32_t cap, int32_t *len);

// Opens a converter for every step, as the conversion was first written.
struct PerCallIconv {
  static void read_session_encoding(SessionEncoding &encoding);
  // Units stored low byte first to UTF-8; false when the converter cannot be
  // opened or the text does not convert completely into `cap` bytes.
  static bool units_to_utf8(const unsigned char *units, int32_t n, char *out, int32_t cap,
                            int32_t *len);
  static CodesetStep utf8_to_codeset(const SessionEncoding &encoding, const char *in, int32_t n,
                                     char *out, int32_t cap, int32_t *len);
};

// Same results, without opening converters on the format path.
struct FastConverters {
  static void read_session_encoding(SessionEncoding &encoding);
  static bool units_to_utf8(const unsigned char *units, int32_t n, char *out, int32_t cap,
                            int32_t *len);
  static CodesetStep utf8_to_codeset(const SessionEncoding &encoding, const char *in, int32_t n,
                                     char *out, int32_t cap, int32_t *len);
};

}  // namespace corvinel::encoding

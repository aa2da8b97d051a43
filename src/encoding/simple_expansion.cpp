#include "encoding/simple_expansion.h"

#include <langinfo.h>

#include <cstring>

#include "corvinel/fmtreq.h"
#include "encoding/output_expansion.h"
#include "encoding/transcode_steps.h"

namespace corvinel::encoding {
namespace {

constexpr int32_t kEscapeLength = 7;  // "<U20AC>"
constexpr uint16_t kSymbolicCurrencySign = 0x00A4;
constexpr uint16_t kCurrencyMarker = 0x0001;

uint16_t hex_digit(char c) {
  if (c >= '0' && c <= '9') return static_cast<uint16_t>(c - '0');
  if (c >= 'A' && c <= 'F') return static_cast<uint16_t>(c - 'A' + 10);
  if (c >= 'a' && c <= 'f') return static_cast<uint16_t>(c - 'a' + 10);
  return 0;  // deliberately: the escape is still taken
}

char *write_utf8(uint16_t unit, char *out) {
  if (unit < 0x80) {
    *out++ = static_cast<char>(unit);
  } else if (unit < 0x800) {
    *out++ = static_cast<char>(0xC0 | (unit >> 6));
    *out++ = static_cast<char>(0x80 | (unit & 0x3F));
  } else {
    *out++ = static_cast<char>(0xE0 | (unit >> 12));
    *out++ = static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
    *out++ = static_cast<char>(0x80 | (unit & 0x3F));
  }
  return out;
}

void write_unit(SessionCodeset codeset, uint16_t unit, char *&out) {
  if (codeset == SessionCodeset::kUtf8) {
    out = write_utf8(unit, out);
  } else {
    *out++ = static_cast<char>(unit);
  }
}

// Without escapes and bytes above 0x7F every byte is one unit and one byte
// in each of the codesets here.
bool is_plain_ascii(const char *text, int32_t length) {
  unsigned char seen = 0;
  for (int32_t i = 0; i < length; ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == '<') return false;
    seen |= c;
  }
  return seen < 0x80;
}

int32_t expand_plain_ascii(int32_t outenc, int32_t *encout, char *buf, int32_t *len, int32_t width,
                           int32_t capacity) {
  const int32_t length = *len;
  if (width < 0) width = 0;
  const bool shortened = length > width;
  const int32_t kept = shortened ? width : length;
  if (outenc == CORVINEL_ENC_UTF16LE) {
    if (capacity < 2 * kept) return kExpansionNoRoom;
    for (int32_t k = kept - 1; k >= 0; --k) {  // from the end: the units overlap the bytes
      buf[2 * k + 1] = '\0';
      buf[2 * k] = buf[k];
    }
    *len = 2 * kept;
    if (encout != nullptr) *encout = CORVINEL_ENC_UTF16LE;
  } else {
    if (capacity < kept) return kExpansionNoRoom;
    *len = kept;
  }
  return shortened ? kExpansionShortened : length - width;
}

}  // namespace

int32_t next_symbolic_unit(const char *at, int32_t remaining, uint16_t &unit) {
  const auto byte = static_cast<unsigned char>(*at);
  if (byte != '<' || remaining < kEscapeLength || (at[1] & ~0x20) != 'U' || at[6] != '>') {
    unit = byte;
    return 1;
  }
  unit = static_cast<uint16_t>(hex_digit(at[2]) << 12 | hex_digit(at[3]) << 8 |
                               hex_digit(at[4]) << 4 | hex_digit(at[5]));
  if (unit == kSymbolicCurrencySign) unit = kCurrencyMarker;
  return kEscapeLength;
}

bool session_has(SessionCodeset codeset, uint16_t unit) {
  if (unit >= 0xD800 && unit <= 0xDFFF) return false;
  if (codeset == SessionCodeset::kLatin1) return unit < 0x100;
  if (codeset == SessionCodeset::kAscii) return unit < 0x80;
  return true;
}

SessionCodeset codeset_named(const char *name) {
  if (name == nullptr) return SessionCodeset::kOther;
  if (is_utf8_codeset(name)) return SessionCodeset::kUtf8;
  if (name[0] == 'I') {
    return std::strcmp(name, "ISO-8859-1") == 0 ? SessionCodeset::kLatin1 : SessionCodeset::kOther;
  }
  if (name[0] == 'A') {
    return std::strcmp(name, "ANSI_X3.4-1968") == 0 ? SessionCodeset::kAscii : SessionCodeset::kOther;
  }
  return SessionCodeset::kOther;
}

int32_t encode_in_session(SessionCodeset codeset, std::string_view text, char *out,
                          int32_t capacity) {
  if (codeset == SessionCodeset::kOther) return -1;
  char *next = out;
  const auto length = static_cast<int32_t>(text.size());
  for (int32_t i = 0; i < length;) {
    uint16_t unit;
    i += next_symbolic_unit(text.data() + i, length - i, unit);
    if (!session_has(codeset, unit)) return -1;
    const int32_t bytes = codeset == SessionCodeset::kUtf8 ? utf8_length(unit) : 1;
    if (next - out + bytes > capacity) return -1;
    write_unit(codeset, unit, next);
  }
  return static_cast<int32_t>(next - out);
}

int32_t expand_output(SessionCodeset codeset, int32_t outenc, int32_t *encout, char *buf,
                      int32_t *len, int32_t width, int32_t capacity) {
  const auto general = [&] {
    return getExpResultFromNarrowCharBuf(0, outenc, encout, buf, len, width, capacity);
  };
  if (codeset == SessionCodeset::kOther || buf == nullptr || len == nullptr || *len < 0) {
    return general();
  }
  if (*len <= kMaxUnits && is_plain_ascii(buf, *len)) {
    return expand_plain_ascii(outenc, encout, buf, len, width, capacity);
  }
  // Character by character: its unit and the bytes it takes in the session.
  uint16_t units[kMaxUnits];
  int32_t count = 0;
  int32_t session_length = 0;
  int32_t utf8_length_total = 0;
  const int32_t length = *len;
  for (int32_t i = 0; i < length;) {
    uint16_t unit;
    i += next_symbolic_unit(buf + i, length - i, unit);
    if (count == kMaxUnits || !session_has(codeset, unit)) return general();
    units[count++] = unit;
    utf8_length_total += utf8_length(unit);
    session_length += codeset == SessionCodeset::kUtf8 ? utf8_length(unit) : 1;
  }
  if (utf8_length_total > kStepCapacity) return general();

  // Cut back a character at a time until the text fits the width.
  if (width < 0) width = 0;
  int32_t kept = count;
  bool shortened = false;
  while (session_length > width && kept > 0) {
    --kept;
    session_length -= codeset == SessionCodeset::kUtf8 ? utf8_length(units[kept]) : 1;
    shortened = true;
  }

  if (outenc == CORVINEL_ENC_UTF16LE) {
    if (capacity < 2 * kept) return kExpansionNoRoom;
    for (int32_t k = 0; k < kept; ++k) {
      buf[2 * k] = static_cast<char>(units[k] & 0xFF);
      buf[2 * k + 1] = static_cast<char>(units[k] >> 8);
    }
    *len = 2 * kept;
    if (encout != nullptr) *encout = CORVINEL_ENC_UTF16LE;
  } else {
    if (capacity < session_length) return kExpansionNoRoom;
    char *out = buf;
    for (int32_t k = 0; k < kept; ++k) write_unit(codeset, units[k], out);
    *len = session_length;
  }
  return shortened ? kExpansionShortened : session_length - width;
}

}  // namespace corvinel::encoding

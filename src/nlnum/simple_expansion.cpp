#include "nlnum/simple_expansion.h"

#include <langinfo.h>

#include <cstring>

#include "corvinel/fmtreq.h"
#include "locale/output_expansion.h"
#include "locale/transcode_steps.h"

namespace corvinel::nlnum {
namespace {

constexpr int32_t kEscapeLength = 7;  // "<U20AC>"
constexpr uint16_t kSymbolicCurrencySign = 0x00A4;
constexpr uint16_t kCurrencyMarker = 0x0001;

bool starts_with_ignoring_case(const char *text, const char *lower_prefix) {
  for (; *lower_prefix != '\0'; ++text, ++lower_prefix) {
    const char c = (*text >= 'A' && *text <= 'Z') ? static_cast<char>(*text + ('a' - 'A')) : *text;
    if (c != *lower_prefix) return false;
  }
  return true;
}

uint16_t hex_digit(char c) {
  if (c >= '0' && c <= '9') return static_cast<uint16_t>(c - '0');
  if (c >= 'A' && c <= 'F') return static_cast<uint16_t>(c - 'A' + 10);
  if (c >= 'a' && c <= 'f') return static_cast<uint16_t>(c - 'a' + 10);
  return 0;  // deliberately: the escape is still taken
}

int utf8_length(uint16_t unit) { return unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3; }

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
    if (capacity < 2 * kept) return locale::kExpansionNoRoom;
    for (int32_t k = kept - 1; k >= 0; --k) {  // from the end: the units overlap the bytes
      buf[2 * k + 1] = '\0';
      buf[2 * k] = buf[k];
    }
    *len = 2 * kept;
    if (encout != nullptr) *encout = CORVINEL_ENC_UTF16LE;
  } else {
    if (capacity < kept) return locale::kExpansionNoRoom;
    *len = kept;
  }
  return shortened ? locale::kExpansionShortened : length - width;
}

}  // namespace

SessionCodeset read_session_codeset() {
  const char *name = nl_langinfo(CODESET);
  if (name == nullptr) return SessionCodeset::kOther;
  if (starts_with_ignoring_case(name, "utf8") || starts_with_ignoring_case(name, "utf-8")) {
    return SessionCodeset::kUtf8;
  }
  if (std::strcmp(name, "ISO-8859-1") == 0) return SessionCodeset::kLatin1;
  if (std::strcmp(name, "ANSI_X3.4-1968") == 0) return SessionCodeset::kAscii;
  return SessionCodeset::kOther;
}

int32_t expand_output(SessionCodeset codeset, int32_t outenc, int32_t *encout, char *buf,
                      int32_t *len, int32_t width, int32_t capacity) {
  const auto general = [&] {
    return locale::getExpResultFromNarrowCharBuf(0, outenc, encout, buf, len, width, capacity);
  };
  if (codeset == SessionCodeset::kOther || buf == nullptr || len == nullptr || *len < 0) {
    return general();
  }
  if (*len <= locale::kMaxUnits && is_plain_ascii(buf, *len)) {
    return expand_plain_ascii(outenc, encout, buf, len, width, capacity);
  }
  // Character by character: its unit and the bytes it takes in the session.
  uint16_t units[locale::kMaxUnits];
  int32_t count = 0;
  int32_t session_length = 0;
  int32_t utf8_length_total = 0;
  const int32_t length = *len;
  for (int32_t i = 0; i < length;) {
    const char *at = buf + i;
    const auto byte = static_cast<unsigned char>(*at);
    if (byte < 0x80 && byte != '<') {  // the common character: one unit, one byte everywhere
      if (count == locale::kMaxUnits) return general();
      units[count++] = byte;
      ++utf8_length_total;
      ++session_length;
      ++i;
      continue;
    }
    uint16_t unit;
    if (length - i >= kEscapeLength && at[0] == '<' && (at[1] & ~0x20) == 'U' && at[6] == '>') {
      unit = static_cast<uint16_t>(hex_digit(at[2]) << 12 | hex_digit(at[3]) << 8 |
                                   hex_digit(at[4]) << 4 | hex_digit(at[5]));
      if (unit == kSymbolicCurrencySign) unit = kCurrencyMarker;
      i += kEscapeLength;
    } else {
      unit = static_cast<unsigned char>(*at);
      i += 1;
    }
    if (count == locale::kMaxUnits || (unit >= 0xD800 && unit <= 0xDFFF)) return general();
    if ((codeset == SessionCodeset::kLatin1 && unit >= 0x100) ||
        (codeset == SessionCodeset::kAscii && unit >= 0x80)) {
      return general();
    }
    units[count++] = unit;
    utf8_length_total += utf8_length(unit);
    session_length += codeset == SessionCodeset::kUtf8 ? utf8_length(unit) : 1;
  }
  if (utf8_length_total > locale::kStepCapacity) return general();

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
    if (capacity < 2 * kept) return locale::kExpansionNoRoom;
    for (int32_t k = 0; k < kept; ++k) {
      buf[2 * k] = static_cast<char>(units[k] & 0xFF);
      buf[2 * k + 1] = static_cast<char>(units[k] >> 8);
    }
    *len = 2 * kept;
    if (encout != nullptr) *encout = CORVINEL_ENC_UTF16LE;
  } else {
    if (capacity < session_length) return locale::kExpansionNoRoom;
    char *out = buf;
    for (int32_t k = 0; k < kept; ++k) {
      if (codeset == SessionCodeset::kUtf8) {
        out = write_utf8(units[k], out);
      } else {
        *out++ = static_cast<char>(units[k]);
      }
    }
    *len = session_length;
  }
  return shortened ? locale::kExpansionShortened : session_length - width;
}

}  // namespace corvinel::nlnum

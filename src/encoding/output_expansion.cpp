// getExpResultFromNarrowCharBuf and obnlsTranscodeUnicode.
#include "encoding/output_expansion.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <type_traits>

#include "corvinel/fmtreq.h"
#include "corvinel/transcode.h"
#include "encoding/transcode_steps.h"
#include "encoding/transcode_units.h"

namespace corvinel::encoding {

namespace {

constexpr uint16_t kSymbolicCurrencySign = 0x00A4;
constexpr uint16_t kCurrencyMarker = 0x0001;
constexpr int32_t kEscapeLength = 7;  // "<U20AC>"

// Value of a hexadecimal digit; any other byte counts as 0 (deliberately:
// the escape is still taken).
uint16_t hex_digit(char c) {
  if (c >= '0' && c <= '9') return static_cast<uint16_t>(c - '0');
  if (c >= 'A' && c <= 'F') return static_cast<uint16_t>(c - 'A' + 10);
  if (c >= 'a' && c <= 'f') return static_cast<uint16_t>(c - 'a' + 10);
  return 0;
}

bool is_escape(const char *at) {
  return at[0] == '<' && (at[1] & ~0x20) == 'U' && at[6] == '>';
}

// A text of ASCII bytes (no "<", so no escape; no NUL) under a UTF-8
// session: each byte is one unit and converts to itself, so the text is its
// own result, cut back to the width one byte at a time.  Nothing for any
// other text.
std::optional<int32_t> expand_plain_ascii(char *buf, int32_t *len, int32_t width,
                                          int32_t capacity) {
  const int32_t length = *len;
  if (length > kMaxUnits) return std::nullopt;
  for (int32_t i = 0; i < length; ++i) {
    const auto c = static_cast<unsigned char>(buf[i]);
    if (c == 0 || c >= 0x80 || c == '<') return std::nullopt;
  }
  const int32_t kept = std::min(length, width);
  if (capacity < kept) return kExpansionNoRoom;
  *len = kept;
  return length > width ? kExpansionShortened : length - width;
}

template <typename Converters>
int32_t expand_output(int32_t outenc, int32_t *encout, char *buf, int32_t *len, int32_t width,
                      int32_t capacity) {
  if (buf == nullptr || len == nullptr || *len < 0) return kExpansionImpossible;
  if (width < 0) width = 0;  // no text is shorter than empty
  SessionEncoding encoding;
  Converters::read_session_encoding(encoding);
  if constexpr (std::is_same_v<Converters, FastConverters>) {
    if (outenc != CORVINEL_ENC_UTF16LE && encoding.utf8) {
      if (const auto result = expand_plain_ascii(buf, len, width, capacity)) return *result;
    }
  }
  unsigned char units[kStepCapacity];
  int32_t n = expand_escapes(buf, *len, units);
  if (n < 0) return kExpansionImpossible;

  char result[kStepCapacity];
  int32_t result_len = 0;
  TranscodeNotes notes;
  if (transcode_units<Converters>(encoding, units, n, result, kStepCapacity, &result_len,
                                  FailingUnit::kFails, notes) != kTranscoded) {
    return kExpansionImpossible;
  }
  // Fitting to the width: drop the last unit and convert again, so that a
  // character is never split (a surrogate pair may be: its first half then
  // shows as "?").  A text that overflowed the 402-byte step is incomplete
  // and is cut back the same way until it fits the step.
  bool shortened = false;
  while ((result_len > width || notes.overflowed) && n > 0) {
    n -= 2;
    shortened = true;
    if (transcode_units<Converters>(encoding, units, n, result, kStepCapacity, &result_len,
                                    FailingUnit::kEndsText, notes) != kTranscoded) {
      return kExpansionImpossible;
    }
  }

  if (outenc == CORVINEL_ENC_UTF16LE) {
    if (capacity < n) return kExpansionNoRoom;
    std::memcpy(buf, units, static_cast<size_t>(n));
    *len = n;
    if (encout != nullptr) *encout = CORVINEL_ENC_UTF16LE;
  } else {
    if (capacity < result_len) return kExpansionNoRoom;
    std::memcpy(buf, result, static_cast<size_t>(result_len));
    *len = result_len;
  }
  return shortened ? kExpansionShortened : result_len - width;
}

template <typename Converters>
int32_t transcode_unicode(const char *encoding_name, const unsigned char *units, int32_t nbytes,
                          char *out, int32_t outcap, int32_t *outlen) {
  if (outlen == nullptr) return kTooShort;
  *outlen = 0;
  if (encoding_name == nullptr || units == nullptr || out == nullptr || nbytes < 0) {
    return kTooShort;
  }
  // A host may pass a negative capacity: it is no room at all.
  outcap = std::max(outcap, 0);
  SessionEncoding encoding;
  name_session_encoding(encoding_name, encoding);
  TranscodeNotes notes;
  return transcode_units<Converters>(encoding, units, nbytes, out, outcap, outlen,
                                     FailingUnit::kFails, notes);
}

}  // namespace

int32_t expand_escapes(const char *text, int32_t length, unsigned char *units) {
  int32_t count = 0;
  auto append = [&](uint16_t unit) {
    if (count == kMaxUnits) return false;
    units[2 * count] = static_cast<unsigned char>(unit & 0xFF);
    units[2 * count + 1] = static_cast<unsigned char>(unit >> 8);
    ++count;
    return true;
  };
  for (int32_t i = 0; i < length;) {
    uint16_t unit;
    // Nothing past the text is read: an escape must end inside it (so a text
    // shorter than 7 bytes is widened byte by byte).
    if (length - i >= kEscapeLength && is_escape(text + i)) {
      unit = static_cast<uint16_t>(hex_digit(text[i + 2]) << 12 | hex_digit(text[i + 3]) << 8 |
                                   hex_digit(text[i + 4]) << 4 | hex_digit(text[i + 5]));
      if (unit == kSymbolicCurrencySign) unit = kCurrencyMarker;
      i += kEscapeLength;
    } else {
      unit = static_cast<unsigned char>(text[i]);
      i += 1;
    }
    if (!append(unit)) return -1;
  }
  units[2 * count] = 0;
  units[2 * count + 1] = 0;
  return 2 * count;
}

int32_t getExpResultFromNarrowCharBuf(int32_t /*reserved*/, int32_t outenc, int32_t *encout,
                                      char *buf, int32_t *len, int32_t width, int32_t capacity) {
  return expand_output<FastConverters>(outenc, encout, buf, len, width, capacity);
}

int32_t expand_output_per_call(int32_t /*reserved*/, int32_t outenc, int32_t *encout, char *buf,
                               int32_t *len, int32_t width, int32_t capacity) {
  return expand_output<PerCallIconv>(outenc, encout, buf, len, width, capacity);
}

int32_t transcode_unicode_per_call(const char *encoding, const unsigned char *units,
                                   int32_t nbytes, char *out, int32_t outcap, int32_t *outlen) {
  return transcode_unicode<PerCallIconv>(encoding, units, nbytes, out, outcap, outlen);
}

}  // namespace corvinel::encoding

extern "C" int32_t getExpResultFromNarrowCharBuf(int32_t reserved, int32_t outenc,
                                                 int32_t *encout, char *buf, int32_t *len,
                                                 int32_t width, int32_t capacity) {
  return corvinel::encoding::getExpResultFromNarrowCharBuf(reserved, outenc, encout, buf, len, width,
                                                         capacity);
}

extern "C" int32_t obnlsTranscodeUnicode(const char *encoding, const unsigned char *units,
                                         int32_t nbytes, char *out, int32_t outcap,
                                         int32_t *outlen) {
  return corvinel::encoding::transcode_unicode<corvinel::encoding::FastConverters>(
      encoding, units, nbytes, out, outcap, outlen);
}

// The fast converters: UTF-16 to UTF-8 and UTF-8 to Latin-1 or ASCII in
// code, every other codeset through an iconv descriptor kept per thread.
// Each mirrors what the C library's iconv does for the same step, failures
// included, so that results stay byte for byte those of PerCallIconv.
#include <iconv.h>
#include <langinfo.h>

#include <cstring>

#include "encoding/transcode_steps.h"

namespace corvinel::encoding {

namespace {

const iconv_t kNoConverter = reinterpret_cast<iconv_t>(-1);

// One UTF-8 to codeset descriptor per thread, for the codeset used last.
// Opening a descriptor costs far more than a conversion; a change of codeset
// replaces it.  Failures to open are not remembered: the next call tries
// again, as the straightforward converter would.
class ThreadConverter {
 public:
  ThreadConverter() = default;
  ThreadConverter(const ThreadConverter &) = delete;
  ThreadConverter &operator=(const ThreadConverter &) = delete;
  ~ThreadConverter() { close(); }

  iconv_t for_codeset(const char *codeset) {
    if (cd_ != kNoConverter && std::strcmp(codeset, codeset_) == 0) return cd_;
    close();
    cd_ = iconv_open(codeset, "UTF-8");
    if (cd_ != kNoConverter) std::strcpy(codeset_, codeset);
    return cd_;
  }

 private:
  void close() {
    if (cd_ != kNoConverter) iconv_close(cd_);
    cd_ = kNoConverter;
  }

  iconv_t cd_ = kNoConverter;
  char codeset_[kStepCapacity] = {};
};

thread_local ThreadConverter thread_converter;

uint32_t unit_at(const unsigned char *units, int32_t index) {
  return units[2 * index] | (static_cast<uint32_t>(units[2 * index + 1]) << 8);
}

// Decodes one UTF-8 sequence of a text this module wrote (always well formed).
uint32_t next_code_point(const unsigned char *&in) {
  const uint32_t lead = *in++;
  if (lead < 0x80) return lead;
  const int following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  uint32_t value = lead & (0x3Fu >> following);
  for (int i = 0; i < following; ++i) value = (value << 6) | (*in++ & 0x3Fu);
  return value;
}

// Unicode's language tag characters, U+E0000-U+E007F: iconv drops them
// without a trace when the target codeset has no place for them.
bool is_tag_character(uint32_t c) { return (c >> 7) == (0xE0000u >> 7); }

// Latin-1 and ASCII take the code points below their limit as they are, drop
// tag characters and refuse every other, like iconv's ISO-8859-1 and
// ANSI_X3.4-1968 (which, too, want room for a character before they look at it).
CodesetStep utf8_to_single_byte(uint32_t limit, const char *in, int32_t n, char *out,
                                int32_t cap, int32_t *len) {
  const auto *next = reinterpret_cast<const unsigned char *>(in);
  const auto *end = next + n;
  int32_t written = 0;
  CodesetStep step = CodesetStep::kConverted;
  while (next < end) {
    if (written >= cap) {
      step = CodesetStep::kNoRoom;
      break;
    }
    const uint32_t c = next_code_point(next);
    if (is_tag_character(c)) continue;
    if (c >= limit) {
      step = CodesetStep::kUnconvertible;
      break;
    }
    out[written++] = static_cast<char>(c);
  }
  *len = written;
  return step;
}

bool starts_with_ignoring_case(const char *text, const char *lower_prefix) {
  for (; *lower_prefix != '\0'; ++text, ++lower_prefix) {
    const char c = (*text >= 'A' && *text <= 'Z') ? static_cast<char>(*text + ('a' - 'A')) : *text;
    if (c != *lower_prefix) return false;
  }
  return true;
}

}  // namespace

void name_session_encoding(const char *codeset, SessionEncoding &encoding) {
  const size_t length = codeset == nullptr ? 0 : strnlen(codeset, sizeof encoding.name - 1);
  if (length > 0) std::memcpy(encoding.name, codeset, length);
  encoding.name[length] = '\0';
  encoding.utf8 = starts_with_ignoring_case(encoding.name, "utf8") ||
                  starts_with_ignoring_case(encoding.name, "utf-8");
}

void FastConverters::read_session_encoding(SessionEncoding &encoding) {
  name_session_encoding(nl_langinfo(CODESET), encoding);
}

bool FastConverters::units_to_utf8(const unsigned char *units, int32_t n, char *out, int32_t cap,
                                   int32_t *len) {
  auto *next = reinterpret_cast<unsigned char *>(out);
  const int32_t count = n / 2;
  int32_t written = 0;
  bool converted = n % 2 == 0;  // a stray last byte is an incomplete unit
  for (int32_t i = 0; i < count; ++i) {
    uint32_t c = unit_at(units, i);
    if (c >= 0xDC00 && c <= 0xDFFF) {  // second half without a first
      converted = false;
      break;
    }
    if (c >= 0xD800 && c <= 0xDBFF) {
      const uint32_t low = i + 1 < count ? unit_at(units, i + 1) : 0;
      if (low < 0xDC00 || low > 0xDFFF) {  // first half without a second
        converted = false;
        break;
      }
      c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
      ++i;
    }
    const int32_t length = c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
    if (length > cap - written) {
      converted = false;
      break;
    }
    switch (length) {
      case 1:
        next[written] = static_cast<unsigned char>(c);
        break;
      case 2:
        next[written] = static_cast<unsigned char>(0xC0 | (c >> 6));
        next[written + 1] = static_cast<unsigned char>(0x80 | (c & 0x3F));
        break;
      case 3:
        next[written] = static_cast<unsigned char>(0xE0 | (c >> 12));
        next[written + 1] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
        next[written + 2] = static_cast<unsigned char>(0x80 | (c & 0x3F));
        break;
      default:
        next[written] = static_cast<unsigned char>(0xF0 | (c >> 18));
        next[written + 1] = static_cast<unsigned char>(0x80 | ((c >> 12) & 0x3F));
        next[written + 2] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
        next[written + 3] = static_cast<unsigned char>(0x80 | (c & 0x3F));
        break;
    }
    written += length;
  }
  *len = written;
  return converted;
}

CodesetStep FastConverters::utf8_to_codeset(const SessionEncoding &encoding, const char *in,
                                            int32_t n, char *out, int32_t cap, int32_t *len) {
  if (std::strcmp(encoding.name, "ISO-8859-1") == 0) {
    return utf8_to_single_byte(0x100, in, n, out, cap, len);
  }
  if (std::strcmp(encoding.name, "ANSI_X3.4-1968") == 0) {
    return utf8_to_single_byte(0x80, in, n, out, cap, len);
  }
  iconv_t cd = thread_converter.for_codeset(encoding.name);
  if (cd == kNoConverter) return CodesetStep::kCannotOpen;
  return run_iconv(cd, in, n, out, cap, len);
}

}  // namespace corvinel::encoding

// NLSTRMON, NLSTRQTR and NLSTRWK: a month, quarter or weekday number shown as
// its name in the request's locale.  `decimals` selects the form: bit 0 the
// abbreviated name, bit 1 upper case.
#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <cwctype>

#include "corvinel/formats.h"
#include "corvinel/locale_db.h"
#include "corvinel/unicode.h"
#include "encoding/request_expansion.h"
#include "encoding/transcode_steps.h"
#include "frame/format_frame.h"

namespace corvinel::nlnum {
namespace {

struct NameFormat {
  double last;                // highest value with a name: 12, 4 or 7
  int32_t full_names;         // item of the first full name
  int32_t abbreviated_names;  // item of the first abbreviated name
};

constexpr frame::Limits kNameLimits{1, 200, 0, 3};

// Bits of `decimals`.
constexpr int32_t kAbbreviatedBit = 1;
constexpr int32_t kUpperCaseBit = 2;

constexpr NameFormat kMonths{12, 95, 83};
constexpr NameFormat kQuarters{4, 147, 143};
constexpr NameFormat kWeekdays{7, 128, 121};

// Room of the work buffer: a name (at most an item text) and what output
// expansion makes of it, which is never more than one conversion step.
constexpr int32_t kWorkBytes = encoding::kStepCapacity;

// Upper case of 16-bit units in the byte order of the delivered encoding.
void upper_case_units(char *text, int32_t length, bool high_byte_first) {
  std::array<uint16_t, kWorkBytes / 2> units;
  const int32_t count = length / 2;
  auto *bytes = reinterpret_cast<unsigned char *>(text);
  for (int32_t i = 0; i < count; ++i) {
    const unsigned first = bytes[2 * i], second = bytes[2 * i + 1];
    units[i] = static_cast<uint16_t>(high_byte_first ? first << 8 | second : second << 8 | first);
  }
  UPCASE(units.data(), count);
  for (int32_t i = 0; i < count; ++i) {
    const auto high = static_cast<unsigned char>(units[i] >> 8);
    const auto low = static_cast<unsigned char>(units[i] & 0xFF);
    bytes[2 * i] = high_byte_first ? high : low;
    bytes[2 * i + 1] = high_byte_first ? low : high;
  }
}

// Upper case of text in the session encoding through the C library, with
// conversion states of our own and fixed buffers.  A character whose upper
// case the encoding cannot show keeps its stored form; text that is not
// valid in the session encoding is left as it is.  Returns false when the
// upper-case text would be longer than `limit` bytes.
bool upper_case_in_session_encoding(char *text, int32_t &length, int32_t limit) {
  std::array<char, kWorkBytes + 1> narrow{};
  const auto size = static_cast<std::size_t>(length);
  if (std::memchr(text, '\0', size) != nullptr) return true;
  std::memcpy(narrow.data(), text, size);
  std::array<wchar_t, kWorkBytes> wide;
  const char *source = narrow.data();
  std::mbstate_t to_wide{};
  const std::size_t count = std::mbsrtowcs(wide.data(), &source, wide.size(), &to_wide);
  if (count == static_cast<std::size_t>(-1)) return true;

  std::array<char, kWorkBytes> upper;
  std::size_t upper_length = 0;
  std::mbstate_t to_narrow{};
  std::array<char, MB_LEN_MAX> bytes;
  const auto append = [&](std::size_t n) {
    if (upper_length + n > static_cast<std::size_t>(limit)) return false;
    std::memcpy(upper.data() + upper_length, bytes.data(), n);
    upper_length += n;
    return true;
  };
  for (std::size_t i = 0; i < count; ++i) {
    const std::mbstate_t before = to_narrow;
    std::size_t n =
        std::wcrtomb(bytes.data(), static_cast<wchar_t>(std::towupper(wide[i])), &to_narrow);
    if (n == static_cast<std::size_t>(-1)) {
      to_narrow = before;
      n = std::wcrtomb(bytes.data(), wide[i], &to_narrow);
      if (n == static_cast<std::size_t>(-1)) return true;
    }
    if (!append(n)) return false;
  }
  // A stateful encoding returns to its initial shift state; the NUL that
  // wcrtomb writes after the shift bytes is not part of the text.
  const std::size_t closing = std::wcrtomb(bytes.data(), L'\0', &to_narrow);
  if (closing != static_cast<std::size_t>(-1) && closing > 1 && !append(closing - 1)) {
    return false;
  }
  std::memcpy(text, upper.data(), upper_length);
  length = static_cast<int32_t>(upper_length);
  return true;
}

// The name of a value in 1 .. last, left-aligned, with outlen its length;
// "*" when the locale lacks the name or it does not fit.
int32_t render_name(fmtreq &request, const NameFormat &format, double value) {
  const int32_t base =
      (request.decimals & kAbbreviatedBit) != 0 ? format.abbreviated_names : format.full_names;
  // Truncated toward zero: 2.7 names the second.
  const auto item = static_cast<int32_t>(base + (value - 1.0));
  std::array<char, kWorkBytes> work;
  const int32_t length = getORBLocDB(work.data(), CORVINEL_LOCALE_TEXT, item, request.locale);
  if (length < 0) return frame::fill_stars(request);

  std::memset(request.output, ' ', static_cast<std::size_t>(request.width));
  request.outlen = length;
  const int32_t room = std::min(request.capacity, kWorkBytes);
  if (encoding::expand_for_request(request, work.data(), &request.outlen, room) >= 1) {
    return frame::fill_stars(request);
  }
  if ((request.decimals & kUpperCaseBit) != 0) {
    if (encoding::delivers_16_bit_units(request)) {
      upper_case_units(work.data(), request.outlen,
                       encoding::delivered_encoding(request) == CORVINEL_ENC_UTF16BE);
    } else if (!upper_case_in_session_encoding(work.data(), request.outlen,
                                               std::min(request.width, room))) {
      return frame::fill_stars(request);
    }
  }
  std::memcpy(request.output, work.data(), static_cast<std::size_t>(request.outlen));
  return CORVINEL_OK;
}

int32_t name_frame(fmtreq *request, const NameFormat &format) {
  fmtreq &r = *request;
  if (const int32_t code = frame::check_limits(r, kNameLimits)) return code;
  const double value = frame::read_value(r);
  r.outlen = r.width;
  // A value without a name shows a blank field, a missing value its mark at
  // the right edge.  NaNs that are not missing values also take this path,
  // as no item can be computed from them.
  if (frame::is_missing(value) || !(value >= 1 && value <= format.last)) {
    return frame::render_missing_at_right_edge(r);
  }
  if (!frame::field_fits_buffer(r)) return frame::fill_stars(r);
  return render_name(r, format, value);
}

}  // namespace
}  // namespace corvinel::nlnum

using corvinel::nlnum::name_frame;

extern "C" {

int32_t nlstrmon(fmtreq *request) { return name_frame(request, corvinel::nlnum::kMonths); }
int32_t nlstrqtr(fmtreq *request) { return name_frame(request, corvinel::nlnum::kQuarters); }
int32_t nlstrwk(fmtreq *request) { return name_frame(request, corvinel::nlnum::kWeekdays); }

}  // extern "C"

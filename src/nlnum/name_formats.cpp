// NLSTRMON, NLSTRQTR and NLSTRWK: a month, quarter or weekday number shown as
// its name in the request's locale.  `decimals` selects the form: bit 0 the
// abbreviated name, bit 1 upper case.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "corvinel/formats.h"
#include "corvinel/locale_db.h"
#include "encoding/locale_upper_case.h"
#include "encoding/output_expansion.h"
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

// The locale item that holds the language code ("tr").
constexpr int32_t kLanguageItem = 4;

// Room of the work buffer: a name (at most an item text) and what output
// expansion makes of it, which is never more than one conversion step.
constexpr int32_t kWorkBytes = encoding::kStepCapacity;

// Room of the upper-case text in the symbolic notation: output expansion
// takes at most kMaxUnits units, each written back as at most one escape.
constexpr int32_t kEscapeBytes = 7;  // "<Uxxxx>"
constexpr int32_t kSymbolicBytes = encoding::kMaxUnits * kEscapeBytes;

// The item text `text` (`length` bytes, non-ASCII characters as "<Uxxxx>")
// in upper case by the rules of the locale's language, written back in the
// same notation to `text` (kSymbolicBytes of room) before output expansion:
// the session encoding and 16-bit units then show the same characters,
// whatever the process locale.  A text too long for expansion is left as it
// is (expansion refuses it).
void upper_case_symbolic(char *text, int32_t &length, int32_t locale) {
  std::array<unsigned char, encoding::kStepCapacity> bytes;
  const int32_t count = encoding::expand_escapes(text, length, bytes.data());
  if (count < 0) return;
  std::array<uint16_t, encoding::kMaxUnits> units;
  const int32_t n = count / 2;
  for (int32_t i = 0; i < n; ++i) {
    units[i] = static_cast<uint16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8);
  }
  char language[CORVINEL_LOCALE_TEXT];
  const int32_t language_length = getORBLocDB(language, sizeof language, kLanguageItem, locale);
  encoding::upper_case_units(
      units.data(), n,
      encoding::case_rules_of(std::string_view(language, static_cast<std::size_t>(std::max(language_length, 0)))));
  // "<" is written as an escape too, so that no escape forms anew.
  constexpr char kHex[] = "0123456789ABCDEF";
  int32_t out = 0;
  for (int32_t i = 0; i < n; ++i) {
    const uint16_t unit = units[i];
    if (unit < 0x80 && unit != '<') {
      text[out++] = static_cast<char>(unit);
      continue;
    }
    const char escape[kEscapeBytes] = {'<', 'U', kHex[unit >> 12], kHex[(unit >> 8) & 15],
                                       kHex[(unit >> 4) & 15], kHex[unit & 15], '>'};
    std::memcpy(text + out, escape, kEscapeBytes);
    out += kEscapeBytes;
  }
  length = out;
}

// The name of a value in 1 .. last, left-aligned, with outlen its length;
// "*" when the locale lacks the name or it does not fit.
int32_t render_name(fmtreq &request, const NameFormat &format, double value) {
  const int32_t base =
      (request.decimals & kAbbreviatedBit) != 0 ? format.abbreviated_names : format.full_names;
  // Truncated toward zero: 2.7 names the second.
  const auto item = static_cast<int32_t>(base + (value - 1.0));
  std::array<char, std::max(kWorkBytes, kSymbolicBytes)> work;
  int32_t length = getORBLocDB(work.data(), CORVINEL_LOCALE_TEXT, item, request.locale);
  if (length < 0) return frame::fill_stars(request);
  if ((request.decimals & kUpperCaseBit) != 0) upper_case_symbolic(work.data(), length, request.locale);

  std::memset(request.output, ' ', static_cast<std::size_t>(request.width));
  request.outlen = length;
  const int32_t room = std::min(request.capacity, kWorkBytes);
  if (encoding::expand_for_request(request, work.data(), &request.outlen, room) >= 1) {
    return frame::fill_stars(request);
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

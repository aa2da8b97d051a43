// Unit text (UTF-16 code units, low byte first) to the session encoding: the
// whole text at once, else unit by unit with "?" for a unit that does not
// convert.  Written once over the converter pair, so that the straightforward
// and the fast converters share every rule.
#pragma once

#include <cstdint>
#include <cstring>

#include "encoding/transcode_steps.h"

namespace corvinel::encoding {

// Results of transcode_units (those of obnlsTranscodeUnicode).
inline constexpr int32_t kTranscoded = 0;
inline constexpr int32_t kTooShort = -1;          // fewer than two bytes to fall back on
inline constexpr int32_t kCodesetUnavailable = -2;  // no converter to the codeset

// What the unit-by-unit fallback does when a unit cannot be converted.
enum class FailingUnit { kFails, kEndsText };

namespace detail {

inline void write_question_mark(char *out, int32_t cap, int32_t *len) {
  if (cap >= 1) {
    out[0] = '?';
    *len = 1;
  } else {
    *len = 0;  // no room left at all: the unit is dropped
  }
}

inline int32_t room_of(int32_t cap) { return cap < kStepCapacity ? cap : kStepCapacity; }

}  // namespace detail

// How a conversion went besides its result code.
struct TranscodeNotes {
  // Some unit found no room left in the 402-byte step (or in `cap`): the
  // text is incomplete, whatever its length.
  bool overflowed = false;
};

// One unit (two bytes) into `out`: its characters, "?" when it does not
// convert (half of a surrogate pair, a character the codeset lacks, or too
// little room), or kCodesetUnavailable with *len left at the unit's UTF-8
// length.
template <typename Converters>
int32_t transcode_one_unit(const SessionEncoding &encoding, const unsigned char *unit, char *out,
                           int32_t cap, int32_t *len, TranscodeNotes &notes) {
  char utf8[kStepCapacity];
  int32_t utf8_len = 0;
  if (!Converters::units_to_utf8(unit, 2, utf8, kStepCapacity, &utf8_len)) {
    detail::write_question_mark(out, cap, len);
    return kTranscoded;
  }
  if (encoding.utf8) {
    if (utf8_len <= cap) {
      std::memcpy(out, utf8, static_cast<size_t>(utf8_len));
      *len = utf8_len;
    } else {
      notes.overflowed = true;
      detail::write_question_mark(out, cap, len);
    }
    return kTranscoded;
  }
  *len = utf8_len;
  int32_t converted_len = 0;
  switch (Converters::utf8_to_codeset(encoding, utf8, utf8_len, out, cap, &converted_len)) {
    case CodesetStep::kCannotOpen:
      return kCodesetUnavailable;
    case CodesetStep::kConverted:
      *len = converted_len;
      return kTranscoded;
    case CodesetStep::kNoRoom:
      notes.overflowed = true;
      break;
    case CodesetStep::kUnconvertible:
      break;
  }
  detail::write_question_mark(out, cap, len);
  return kTranscoded;
}

// n bytes of unit text into `out` (at most min(cap, 402) bytes are written).
template <typename Converters>
int32_t transcode_units(const SessionEncoding &encoding, const unsigned char *units, int32_t n,
                        char *out, int32_t cap, int32_t *len, FailingUnit failing_unit,
                        TranscodeNotes &notes) {
  const int32_t room = detail::room_of(cap);
  *len = 0;
  notes = TranscodeNotes{};
  char utf8[kStepCapacity];
  int32_t utf8_len = 0;
  if (Converters::units_to_utf8(units, n, utf8, kStepCapacity, &utf8_len)) {
    if (encoding.utf8) {
      if (utf8_len <= room) {
        std::memcpy(out, utf8, static_cast<size_t>(utf8_len));
        *len = utf8_len;
        return kTranscoded;
      }
    } else {
      int32_t converted_len = 0;
      switch (Converters::utf8_to_codeset(encoding, utf8, utf8_len, out, room, &converted_len)) {
        case CodesetStep::kCannotOpen:
          return kCodesetUnavailable;
        case CodesetStep::kConverted:
          *len = converted_len;
          return kTranscoded;
        case CodesetStep::kNoRoom:
        case CodesetStep::kUnconvertible:
          break;
      }
    }
  }

  // The whole text did not convert: one unit at a time.
  if (n < 2) return kTooShort;
  if (n < 4) {
    detail::write_question_mark(out, room, len);
    return kTranscoded;
  }
  int32_t written = 0;
  for (int32_t i = 0; i + 1 < n; i += 2) {
    int32_t unit_len = 0;
    const int32_t result = transcode_one_unit<Converters>(encoding, units + i, out + written,
                                                          room - written, &unit_len, notes);
    if (result != kTranscoded) {
      if (failing_unit == FailingUnit::kFails) return result;
      break;
    }
    written += unit_len;
  }
  *len = written;
  return kTranscoded;
}

}  // namespace corvinel::encoding

// The attempts of the number engine and the currency-code formats that lay
// out a fixed digit text, in one pass: the number grouped or not, with
// sign, symbol and brackets, written straight into the field in the session
// encoding.
//
// The general attempt composes the text in the locale's symbolic notation
// and hands it to output expansion, which decides whether it fits.  Here the
// parts that do not depend on the value (what stands before and after the
// number for each sign, the group separator and the decimal mark) are
// composed, stripped and encoded once per locale, convention and session
// codeset; a call only lays the digits between them.  The bytes are those of
// the general attempt whenever the one pass takes the call; it declines
// (nothing written) whenever it could differ, and the caller then runs the
// general attempts.
#pragma once

#include <cstdint>
#include <string_view>

#include "corvinel/fmtreq.h"
#include "encoding/request_expansion.h"
#include "encoding/simple_expansion.h"
#include "nlnum/digit_texts.h"

namespace corvinel::nlnum {

// The widest field either caller fills; a longer part never fits.
inline constexpr int kPieceCapacity = 32;

struct EncodedPiece {
  uint8_t length = 0;      // in session bytes
  uint16_t symbolic = 0;   // the length of the text it came from
  char bytes[kPieceCapacity] = {};

  std::string_view view() const { return {bytes, length}; }
};

// Layouts of CurrencyFormatPatterns, texts in symbolic notation: what the
// one pass is compiled from.
struct LayoutParts {
  std::string_view symbol, positive, negative;  // symbol, sign strings
  std::string_view decimal, separator;
  int32_t grouping = 0;
  const char *positive_layout = "";
  const char *negative_layout = "";
  bool bracket_blank = false;  // n_sign_posn 0: a positive value gets a blank for the ")"
};

// The one pass of one convention in one session codeset.
struct OnePassLayout {
  bool usable = false;  // false: every call takes the general attempts
  EncodedPiece decimal, separator;
  int32_t grouping = 0;
  // Indexed by sign class: negative, zero (either sign), positive.
  EncodedPiece before[3], after[3];
  // Bytes of what stands before and after the number, by sign class.
  uint8_t around_length[3] = {};
  // No number of up to 20 digits makes the text pass the general
  // attempt's limits, so a call need not check them.
  bool within_limits = false;
  // Nor does an exponent text.
  bool exponent_within_limits = false;
};

OnePassLayout compile_one_pass(const LayoutParts &parts, encoding::SessionCodeset codeset);

enum class OnePass {
  kPlaced,    // the text stands in the field
  kTooWide,   // as the general attempt, expansion would shorten it
  kDeclined,  // the general attempt must decide: nothing written
};

struct OnePassAttempt {
  OnePass outcome = OnePass::kDeclined;
  bool grouped = false;  // too wide: it has a group separator (not an empty one)
  int symbolic_length = 0;  // too wide: the composed text's length in the symbolic notation
  // Too wide and grouped: the same text without its group separators is too
  // wide as well, and this is its symbolic length (else 0).
  int ungrouped_symbolic_length = 0;
};

// One attempt with the fixed text of `number` (whose text assemble_number
// would split at its decimal point: FastNumberTexts::splits_at_decimal_point)
// for `value`, grouped when `grouping_allowed`.  When the text fits `width`
// session bytes: blank-fills `capacity` bytes of `output`, writes the text
// ending at the field's right edge, sets `outlen` to `width`.  When it does
// not, reports what the general attempt would have learnt.  The caller has
// made sure that the request delivers session bytes, not 16-bit units, and
// that 1 <= width <= capacity.  Defined in line in one_pass_placement.h.
[[gnu::always_inline]] inline OnePassAttempt place_one_pass(
    const OnePassLayout &layout, const ScaledDecimal &number, bool grouping_allowed, double value,
    fmtreq &request, char *output, int32_t width);

// One attempt with the exponent-form "%G" text of `number` (its padding
// no part of it): placed or reported as place_one_pass does.  The caller
// has made sure, besides what place_one_pass needs, that the process
// locale's decimal point is "." or ",", which becomes the locale's decimal
// mark, as assemble_number turns an exponent text.
OnePassAttempt place_exponent_one_pass(const OnePassLayout &layout, const SignificantDigits &number,
                                       fmtreq &request, char *output, int32_t width);

// Whether the request's field is written in session bytes (no 16-bit units
// asked for or already delivered).
inline bool delivers_session_bytes(const fmtreq &request) {
  return request.xcode_b != CORVINEL_ENC_UTF16LE && !encoding::delivers_16_bit_units(request);
}

}  // namespace corvinel::nlnum

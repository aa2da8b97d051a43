// place_one_pass, in line: the number engine and the currency-code formats
// settle most calls with it, so its arguments stay in their registers and it
// makes no call of its own on the way to a placed text.  Its helpers are
// shared with the exponent form's placement.
#pragma once

#include <cstddef>
#include <cstdint>

#include "encoding/transcode_steps.h"
#include "frame/exact_copy.h"
#include "nlnum/digit_writing.h"
#include "nlnum/number_assembly.h"
#include "nlnum/one_pass_layout.h"

namespace corvinel::nlnum {
namespace one_pass {

// The sign classes that index a layout's parts.
inline constexpr int kNegative = 0;
inline constexpr int kZero = 1;
inline constexpr int kPositive = 2;

// Past these the general attempt's buffers cut the text or expansion leaves
// its shortcut, so such texts are left to it.  A session byte is at most
// three bytes of UTF-8 and at least one unit.
inline constexpr std::size_t kMostSessionBytes = encoding::kStepCapacity / 3;

// Whether a text passes the general attempt's limits: its number (as
// assemble_number counts it) or its composed text is cut, or expansion
// leaves its shortcut.
inline bool passes_limits(std::size_t assembled, std::size_t symbolic, std::size_t length) {
  return assembled > static_cast<std::size_t>(kMaxAssembledNumber) ||
         symbolic > static_cast<std::size_t>(kComposedCapacity) || length > kMostSessionBytes;
}

// Writes `bytes` (2 .. kPieceCapacity of them) so that they end at `end`;
// returns where they start.  Out of line: most pieces are shorter.
char *put_longer_before(char *end, const char *bytes, std::size_t length);

// Writes `piece` so that it ends at `end`; returns where it starts.  Most
// pieces are empty or one byte (a sign, a separator, a decimal mark).
inline char *put_before(char *end, const EncodedPiece &piece) {
  const std::size_t length = piece.length;
  if (length > 1) return put_longer_before(end, piece.bytes, length);
  if (length == 1) *--end = piece.bytes[0];
  return end;
}

// Writes the number `digits` (`integer` digits, then `fraction` after the
// decimal mark, a separator before each `group` digits from the point
// leftwards, `separators` of them) so that it ends at `end`; returns where
// it starts.
template <typename Digits>
[[gnu::always_inline]] inline char *put_number_before(char *out, Digits digits,
                                                      std::size_t integer, std::size_t fraction,
                                                      std::size_t group, std::size_t separators,
                                                      const OnePassLayout &layout) {
  if (fraction > 0) {
    out = put_digits_before(out, digits, fraction);
    out = put_before(out, layout.decimal);
  }
  // Whole groups from the right, each followed on its left by a separator,
  // then the first group (at least one digit).
  if (group == 3) {  // the common grouping, a group at a time
    for (std::size_t s = 0; s < separators; ++s) {
      out = put_three_digits_before(out, digits);
      out = put_before(out, layout.separator);
    }
  } else {
    for (std::size_t s = 0; s < separators; ++s) {
      out = put_digits_before(out, digits, group);
      out = put_before(out, layout.separator);
    }
  }
  return put_digits_before(out, digits, integer - separators * group);
}

// What place_one_pass reports for a text too wide, of `length` session
// bytes with `separators` group separators.  Out of line: the placed text
// is the common case.
OnePassAttempt too_wide(const OnePassLayout &layout, const EncodedPiece &before,
                        const EncodedPiece &after, std::size_t integer, std::size_t fraction,
                        std::size_t separators, std::size_t length, int32_t width);

// The layout's limits for a layout that may pass them: true when the text
// must be left to the general attempt.  Out of line: no common layout may.
bool passes_layout_limits(const OnePassLayout &layout, const EncodedPiece &before,
                          const EncodedPiece &after, std::size_t integer, std::size_t fraction,
                          std::size_t separators, std::size_t length);

}  // namespace one_pass

[[gnu::always_inline]] inline OnePassAttempt place_one_pass(
    const OnePassLayout &layout, const ScaledDecimal &number, bool grouping_allowed, double value,
    fmtreq &request, char *output, int32_t width) {
  using namespace one_pass;
  // assemble_number's parts: the integer digits, grouped, and with decimals
  // the decimal mark and the fraction digits.
  const auto fraction = static_cast<std::size_t>(number.precision);
  const std::size_t integer = static_cast<std::size_t>(number.digit_count) - fraction;
  const std::size_t group =
      grouping_allowed && layout.grouping > 0 ? static_cast<std::size_t>(layout.grouping) : 0;
  const std::size_t separators = (group > 0 && group < integer) ? (integer - 1) / group : 0;

  const int sign_class = value < 0 ? kNegative : value > 0 ? kPositive : kZero;
  const EncodedPiece &before = layout.before[sign_class];
  const EncodedPiece &after = layout.after[sign_class];
  const std::size_t length = integer + separators * layout.separator.length +
                             (fraction > 0 ? layout.decimal.length + fraction : 0) +
                             layout.around_length[sign_class];
  if (!layout.within_limits &&
      passes_layout_limits(layout, before, after, integer, fraction, separators, length)) {
    return {};
  }
  if (length > static_cast<std::size_t>(width)) [[unlikely]] {
    return too_wide(layout, before, after, integer, fraction, separators, length, width);
  }

  // From the right edge of the field leftwards.
  frame::fill_exactly(output, ' ', static_cast<std::size_t>(request.capacity));
  char *out = put_before(output + width, after);
  out = number.digits <= UINT32_MAX
            ? put_number_before(out, static_cast<uint32_t>(number.digits), integer, fraction,
                                group, separators, layout)
            : put_number_before(out, number.digits, integer, fraction, group, separators, layout);
  put_before(out, before);
  request.outlen = width;
  return {OnePass::kPlaced, false, 0, 0};
}

}  // namespace corvinel::nlnum

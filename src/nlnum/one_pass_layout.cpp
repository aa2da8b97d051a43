#include "nlnum/one_pass_layout.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "frame/exact_copy.h"
#include "locale/transcode_steps.h"
#include "nlnum/number_assembly.h"
#include "nlnum/request_expansion.h"

namespace corvinel::nlnum {
namespace {

constexpr int kNegative = 0;
constexpr int kZero = 1;
constexpr int kPositive = 2;

// An escape is judged on the seven bytes from its "<"; a "<" closer than
// that to the end of a part could become an escape with the bytes after it
// in the composed text, so such a part is only ever expanded whole.
constexpr std::size_t kEscapeReach = 6;

bool may_join_next_part(std::string_view part) {
  const std::size_t tail = part.size() < kEscapeReach ? 0 : part.size() - kEscapeReach;
  return part.find('<', tail) != std::string_view::npos;
}

bool encode(SessionCodeset codeset, std::string_view text, EncodedPiece &piece) {
  const int32_t length = encode_in_session(codeset, text, piece.bytes, kPieceCapacity);
  if (length < 0) return false;
  piece.length = static_cast<uint8_t>(length);
  piece.symbolic = static_cast<uint16_t>(text.size());
  return true;
}

// Past these the general attempt's buffers cut the text or expansion leaves
// its shortcut, so such texts are left to it.  A session byte is at most
// three bytes of UTF-8 and at least one unit.
constexpr std::size_t kMostSessionBytes = locale::kStepCapacity / 3;

// A layout part being built: what stands before or after the number.
class PartText {
 public:
  void append(std::string_view text) {
    if (text.empty()) return;  // an empty item may have no bytes at all
    if (text.size() > sizeof text_ - length_) {
      overflow_ = true;
      return;
    }
    std::memcpy(text_ + length_, text.data(), text.size());
    length_ += text.size();
  }
  void append(char c) { append(std::string_view(&c, 1)); }
  bool overflow() const { return overflow_; }
  std::string_view view() const { return {text_, length_}; }

 private:
  char text_[kComposedCapacity];
  std::size_t length_ = 0;
  bool overflow_ = false;
};

// Composes, strips and encodes what stands before and after the number for
// one sign class, as compose_layout does for the whole text.
bool compile_sign_class(const LayoutParts &parts, int sign_class, SessionCodeset codeset,
                        OnePassLayout &layout) {
  const bool negative = sign_class == kNegative;
  const char *pattern = negative ? parts.negative_layout : parts.positive_layout;
  const std::string_view sign = negative ? parts.negative : parts.positive;
  PartText before, after;
  PartText *part = &before;
  for (const char *c = pattern; *c != '\0'; ++c) {
    switch (*c) {
      case '$': part->append(parts.symbol); break;
      case '-': part->append(sign); break;
      case 'V': part = &after; break;
      case '(':
      case ')':
        if (negative) part->append(*c);
        break;
      default: part->append(*c); break;
    }
  }
  if (before.overflow() || after.overflow()) return false;
  // The number starts and ends with a digit, so the blanks stripped from the
  // ends of the composed text are those at the outer ends of the parts.
  std::string_view lead = before.view();
  lead.remove_prefix(std::min(lead.find_first_not_of(' '), lead.size()));
  std::string_view trail = after.view();
  const std::size_t last = trail.find_last_not_of(' ');
  trail = trail.substr(0, last == std::string_view::npos ? 0 : last + 1);
  if (may_join_next_part(lead)) return false;
  if (!encode(codeset, lead, layout.before[sign_class]) ||
      !encode(codeset, trail, layout.after[sign_class])) {
    return false;
  }
  if (sign_class == kPositive && parts.bracket_blank) {
    EncodedPiece &piece = layout.after[sign_class];
    if (piece.length == kPieceCapacity) return false;
    piece.bytes[piece.length++] = ' ';
    ++piece.symbolic;
  }
  return true;
}

// Writes `bytes` (2 .. kPieceCapacity of them) so that they end at `end`;
// returns where they start.  Two fixed-size copies that overlap in the
// middle instead of a call to memcpy.
[[gnu::noinline]] char *put_longer_before(char *end, const char *bytes, std::size_t length) {
  end -= length;
  if (length <= 3) {
    std::memcpy(end, bytes, 2);
    std::memcpy(end + length - 2, bytes + length - 2, 2);
  } else if (length <= 7) {
    std::memcpy(end, bytes, 4);
    std::memcpy(end + length - 4, bytes + length - 4, 4);
  } else if (length <= 15) {
    std::memcpy(end, bytes, 8);
    std::memcpy(end + length - 8, bytes + length - 8, 8);
  } else {
    std::memcpy(end, bytes, 16);
    std::memcpy(end + length - 16, bytes + length - 16, 16);
  }
  return end;
}

// Writes `piece` so that it ends at `end`; returns where it starts.  Most
// pieces are empty or one byte (a sign, a separator, a decimal mark).
inline char *put_before(char *end, const EncodedPiece &piece) {
  const std::size_t length = piece.length;
  if (length > 1) return put_longer_before(end, piece.bytes, length);
  if (length == 1) *--end = piece.bytes[0];
  return end;
}

// "00" .. "99".
constexpr auto kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (int i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

// "000" .. "999", four bytes apart.
constexpr auto kDigitTriples = [] {
  std::array<char, 4000> triples{};
  for (int i = 0; i < 1000; ++i) {
    triples[4 * i] = static_cast<char>('0' + i / 100);
    triples[4 * i + 1] = static_cast<char>('0' + i / 10 % 10);
    triples[4 * i + 2] = static_cast<char>('0' + i % 10);
  }
  return triples;
}();

// Writes the lowest three digits of `digits` so that they end at `end`;
// returns where they start, and the digits left in `digits`.
template <typename Digits>
[[gnu::always_inline]] inline char *put_three_digits_before(char *end, Digits &digits) {
  const Digits rest = digits / 1000;
  end -= 3;
  std::memcpy(end, &kDigitTriples[4 * (digits - rest * 1000)], 3);
  digits = rest;
  return end;
}

// Writes the lowest `count` digits of `digits` so that they end at `end`,
// three at a time and then the two or one left; returns where they start,
// and the digits left in `digits`.  Most counts are 1 to 3 (a group, two
// decimals), which take no loop.
template <typename Digits>
[[gnu::always_inline]] inline char *put_digits_before(char *end, Digits &digits,
                                                      std::size_t count) {
  for (; count >= 3; count -= 3) end = put_three_digits_before(end, digits);
  if (count == 2) {
    end -= 2;
    std::memcpy(end, &kDigitPairs[2 * (digits % 100)], 2);
    digits /= 100;
  } else if (count == 1) {
    *--end = static_cast<char>('0' + digits % 10);
    digits /= 10;
  }
  return end;
}

// Whether a text passes the general attempt's limits: its number (as
// assemble_number counts it) or its composed text is cut, or expansion
// leaves its shortcut.
bool passes_limits(std::size_t assembled, std::size_t symbolic, std::size_t length) {
  return assembled > static_cast<std::size_t>(kMaxAssembledNumber) ||
         symbolic > static_cast<std::size_t>(kComposedCapacity) || length > kMostSessionBytes;
}

// Writes the number `digits` (`integer` digits, then `fraction` after the
// decimal mark, a separator before each `group` digits from the point
// leftwards, `separators` of them) so that it ends at `end`; returns where
// it starts.  Digits is uint32_t for numbers that fit it: divisions of 32
// bits take fewer instructions.
template <typename Digits>
char *put_number_before(char *out, Digits digits, std::size_t integer, std::size_t fraction,
                        std::size_t group, std::size_t separators, const OnePassLayout &layout) {
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
// bytes and `symbolic` bytes of symbolic notation with `separators` group
// separators.  Out of line: the placed text is the common case.
[[gnu::noinline]] OnePassAttempt too_wide(const OnePassLayout &layout, std::size_t separators,
                                          std::size_t length, std::size_t symbolic, bool grouped,
                                          int32_t width) {
  // Without the separators every length only shrinks, so that text passes
  // no limit either.
  const std::size_t ungrouped = length - separators * layout.separator.length;
  const std::size_t ungrouped_symbolic =
      grouped && ungrouped > static_cast<std::size_t>(width)
          ? symbolic - separators * layout.separator.symbolic
          : 0;
  return {OnePass::kTooWide, grouped, static_cast<int>(symbolic),
          static_cast<int>(ungrouped_symbolic)};
}

}  // namespace

OnePassLayout compile_one_pass(const LayoutParts &parts, SessionCodeset codeset) {
  OnePassLayout layout;
  if (may_join_next_part(parts.decimal) || may_join_next_part(parts.separator) ||
      !encode(codeset, parts.decimal, layout.decimal) ||
      !encode(codeset, parts.separator, layout.separator)) {
    return layout;
  }
  layout.grouping = parts.grouping;
  // The widest number a scaled form holds: 20 digits, a separator between
  // each two, the decimal mark.
  constexpr std::size_t kMostDigits = 20;
  std::size_t widest_assembled =
      kMostDigits + (kMostDigits - 1) * layout.separator.symbolic + layout.decimal.symbolic;
  std::size_t widest_length =
      kMostDigits + (kMostDigits - 1) * layout.separator.length + layout.decimal.length;
  std::size_t widest_around_symbolic = 0, widest_around_length = 0;
  for (const int sign_class : {kNegative, kZero, kPositive}) {
    if (!compile_sign_class(parts, sign_class, codeset, layout)) return layout;
    const EncodedPiece &before = layout.before[sign_class], &after = layout.after[sign_class];
    layout.around_length[sign_class] = static_cast<uint8_t>(before.length + after.length);
    widest_around_symbolic =
        std::max<std::size_t>(widest_around_symbolic, before.symbolic + after.symbolic);
    widest_around_length = std::max<std::size_t>(widest_around_length, before.length + after.length);
  }
  layout.within_limits =
      !passes_limits(widest_assembled, widest_assembled + widest_around_symbolic,
                     widest_length + widest_around_length);
  // The widest exponent text: 19 digits, the decimal mark, "E+" and two
  // digits; assemble_number counts it padded to its field.
  constexpr std::size_t kMostExponentText = kMostDigits - 1 + 4;
  layout.exponent_within_limits = !passes_limits(
      kPieceCapacity + layout.decimal.symbolic,
      kMostExponentText + layout.decimal.symbolic + widest_around_symbolic,
      kMostExponentText + layout.decimal.length + widest_around_length);
  layout.usable = true;
  return layout;
}

OnePassAttempt place_one_pass(const OnePassLayout &layout, const ScaledDecimal &number,
                              bool grouping_allowed, double value, fmtreq &request, char *output,
                              int32_t width) {
  // assemble_number's parts: the integer digits, grouped, and with decimals
  // the decimal mark and the fraction digits.
  const auto fraction = static_cast<std::size_t>(number.precision);
  const std::size_t integer = static_cast<std::size_t>(number.digit_count) - fraction;
  const bool has_fraction = fraction > 0;
  const std::size_t group =
      grouping_allowed && layout.grouping > 0 ? static_cast<std::size_t>(layout.grouping) : 0;
  const std::size_t separators = (group > 0 && group < integer) ? (integer - 1) / group : 0;

  const int sign_class = value < 0 ? kNegative : value > 0 ? kPositive : kZero;
  const EncodedPiece &before = layout.before[sign_class];
  const EncodedPiece &after = layout.after[sign_class];
  std::size_t length = integer + separators * layout.separator.length +
                       (has_fraction ? layout.decimal.length + fraction : 0) +
                       layout.around_length[sign_class];
  // The text's length in the symbolic notation, worked out only when it is
  // needed: for the limits of a layout that may pass them, and for a text
  // too wide.
  const auto symbolic_length = [&] {
    return integer + separators * layout.separator.symbolic +
           (has_fraction ? layout.decimal.symbolic + fraction : 0) + before.symbolic +
           after.symbolic;
  };
  if (!layout.within_limits) {
    const std::size_t symbolic = symbolic_length();
    if (passes_limits(symbolic - before.symbolic - after.symbolic, symbolic, length)) return {};
  }
  const bool grouped = separators > 0 && layout.separator.symbolic > 0;
  if (length > static_cast<std::size_t>(width)) {
    return too_wide(layout, separators, length, symbolic_length(), grouped, width);
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
  return {OnePass::kPlaced, grouped, 0, 0};
}

OnePassAttempt place_exponent_one_pass(const OnePassLayout &layout, const SignificantDigits &number,
                                       int text_field, fmtreq &request, char *output,
                                       int32_t width) {
  // The number: the first digit, the decimal mark and the other digits when
  // there are more, the exponent ("E+" and two digits).
  const auto count = static_cast<std::size_t>(number.count);
  const bool has_point = count > 1;
  const std::size_t plain = count + 4;  // digits and exponent
  const int sign_class = number.minus ? kNegative : kPositive;
  const EncodedPiece &before = layout.before[sign_class];
  const EncodedPiece &after = layout.after[sign_class];
  const std::size_t length =
      plain + (has_point ? layout.decimal.length : 0) + layout.around_length[sign_class];
  // Worked out only for limits a layout may pass and for a text too wide.
  const auto symbolic_length = [&] {
    return plain + (has_point ? layout.decimal.symbolic : 0) + before.symbolic + after.symbolic;
  };
  if (!layout.exponent_within_limits || text_field > kPieceCapacity) {
    // assemble_number keeps the text's padding blanks (compose_layout drops
    // them) and counts them against its limit.
    const auto text_length = static_cast<std::size_t>(number.exponent_text_length());
    const std::size_t padded =
        std::max(text_length, static_cast<std::size_t>(std::max(text_field, 0)));
    const std::size_t assembled =
        padded - (number.minus ? 1 : 0) + (has_point ? layout.decimal.symbolic - 1 : 0);
    if (passes_limits(assembled, symbolic_length(), length)) return {};
  }
  if (length > static_cast<std::size_t>(width)) {
    return {OnePass::kTooWide, false, static_cast<int>(symbolic_length()), 0};
  }

  // From the right edge of the field leftwards.
  frame::fill_exactly(output, ' ', static_cast<std::size_t>(request.capacity));
  char *out = put_before(output + width, after);
  auto exponent = static_cast<uint32_t>(number.exponent);
  out = put_digits_before(out, exponent, 2);
  *--out = '+';
  *--out = 'E';
  uint64_t digits = number.digits;
  if (has_point) {
    out = put_digits_before(out, digits, count - 1);
    out = put_before(out, layout.decimal);
  }
  *--out = static_cast<char>('0' + digits);
  put_before(out, before);
  request.outlen = width;
  return {OnePass::kPlaced, false, 0, 0};
}

}  // namespace corvinel::nlnum

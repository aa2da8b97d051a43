#include "nlnum/one_pass_layout.h"

#include <algorithm>
#include <cstring>

#include "encoding/request_expansion.h"
#include "frame/exact_copy.h"
#include "nlnum/digit_writing.h"
#include "nlnum/number_assembly.h"
#include "nlnum/one_pass_placement.h"

namespace corvinel::nlnum {
using one_pass::kNegative;
using one_pass::kPositive;
using one_pass::kZero;
using one_pass::passes_limits;
using one_pass::put_before;

namespace {

// An escape is judged on the seven bytes from its "<"; a "<" closer than
// that to the end of a part could become an escape with the bytes after it
// in the composed text, so such a part is only ever expanded whole.
constexpr std::size_t kEscapeReach = 6;

bool may_join_next_part(std::string_view part) {
  const std::size_t tail = part.size() < kEscapeReach ? 0 : part.size() - kEscapeReach;
  return part.find('<', tail) != std::string_view::npos;
}

bool encode(encoding::SessionCodeset codeset, std::string_view text, EncodedPiece &piece) {
  const int32_t length = encoding::encode_in_session(codeset, text, piece.bytes, kPieceCapacity);
  if (length < 0) return false;
  piece.length = static_cast<uint8_t>(length);
  piece.symbolic = static_cast<uint16_t>(text.size());
  return true;
}

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
bool compile_sign_class(const LayoutParts &parts, int sign_class, encoding::SessionCodeset codeset,
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

}  // namespace

namespace one_pass {
namespace {

// The number's length as assemble_number counts it, in the symbolic notation.
std::size_t assembled_symbolic(const OnePassLayout &layout, std::size_t integer,
                               std::size_t fraction, std::size_t separators) {
  return integer + separators * layout.separator.symbolic +
         (fraction > 0 ? layout.decimal.symbolic + fraction : 0);
}

}  // namespace

char *put_longer_before(char *end, const char *bytes, std::size_t length) {
  end -= length;
  frame::copy_exactly(end, bytes, length);
  return end;
}

OnePassAttempt too_wide(const OnePassLayout &layout, const EncodedPiece &before,
                        const EncodedPiece &after, std::size_t integer, std::size_t fraction,
                        std::size_t separators, std::size_t length, int32_t width) {
  const std::size_t symbolic = assembled_symbolic(layout, integer, fraction, separators) +
                               before.symbolic + after.symbolic;
  const bool grouped = separators > 0 && layout.separator.symbolic > 0;
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

bool passes_layout_limits(const OnePassLayout &layout, const EncodedPiece &before,
                          const EncodedPiece &after, std::size_t integer, std::size_t fraction,
                          std::size_t separators, std::size_t length) {
  const std::size_t assembled = assembled_symbolic(layout, integer, fraction, separators);
  return passes_limits(assembled, assembled + before.symbolic + after.symbolic, length);
}

}  // namespace one_pass

OnePassLayout compile_one_pass(const LayoutParts &parts, encoding::SessionCodeset codeset) {
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
  // digits.
  constexpr std::size_t kMostExponentText = kMostDigits - 1 + 4;
  layout.exponent_within_limits = !passes_limits(
      kMostExponentText + layout.decimal.symbolic,
      kMostExponentText + layout.decimal.symbolic + widest_around_symbolic,
      kMostExponentText + layout.decimal.length + widest_around_length);
  layout.usable = true;
  return layout;
}

OnePassAttempt place_exponent_one_pass(const OnePassLayout &layout, const SignificantDigits &number,
                                       fmtreq &request, char *output, int32_t width) {
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
  if (!layout.exponent_within_limits) {
    const std::size_t assembled = plain + (has_point ? layout.decimal.symbolic : 0);
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

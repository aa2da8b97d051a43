// The two text steps that the number engine and the currency-code formats
// share: the number itself (a printf digit text with the locale's group
// separator and decimal mark) and the layout around it (sign, symbol,
// brackets).  Texts stay in the symbolic notation of the locale data; output
// expansion turns them into the session encoding.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvinel::nlnum {

// The longest number the engine hands on; a longer one does not fit.
inline constexpr int kMaxAssembledNumber = 256;
// Room for a composed text: symbol and sign (each at most a locale item of
// 159 bytes), the number, brackets, blanks.
inline constexpr int kComposedCapacity = 640;

// The locale's marks for the digits.
struct NumberMarks {
  std::string_view decimal;    // empty: the convention has no fraction part
  std::string_view separator;
  int32_t grouping;            // digits per group; 0 or less: no grouping
};

struct AssembledNumber {
  char text[kMaxAssembledNumber];
  int length = 0;  // the whole length; only the first kMaxAssembledNumber bytes are kept
  bool grouped = false;           // a group separator (not an empty one) was written
  bool two_byte_decimal = false;  // an exponent text's "." became a decimal mark of two bytes

  std::string_view view() const {
    return {text, static_cast<std::size_t>(length < kMaxAssembledNumber ? length : kMaxAssembledNumber)};
  }
};

// The number of the digit text `digits` (NUL-terminated, as printf wrote it
// with `decimals` places, or "%G"): its leading "-" dropped (the layout
// writes the sign), then
//   - an exponent text (one that holds "E", with a point or not): its
//     padding blanks dropped, the digits before the point, the locale's
//     decimal mark, the rest unchanged; never grouped.  The point is "."
//     or, with decimals, the process locale's monetary decimal point as
//     below; a text without one is kept as it is;
//   - otherwise the whole text is the integer part when `decimals` is 0;
//     else it is split at the process locale's monetary decimal point
//     (`mon_decimal_point`, or "." when that is empty), and a text without
//     it is all integer part and is not grouped; the fraction follows the
//     locale's decimal mark.  With grouping allowed and an integer part
//     longer than one group, groups of `grouping` digits counted from the
//     right are joined by the separator.
void assemble_number(const char *digits, int decimals, const NumberMarks &marks,
                     bool grouping_allowed, const char *mon_decimal_point,
                     AssembledNumber &number);

// The text of one attempt: `layout` (see layout_for) walked with the
// symbol, the sign string and the number (its trailing blanks dropped);
// brackets only when `negative`.  Leading and trailing blanks are stripped;
// with `bracket_blank` one blank is appended, so that a positive value lines
// up with the ")" of negative ones.  Writes at most kComposedCapacity bytes
// to `out` and returns the length.
int compose_layout(const char *layout, std::string_view symbol, std::string_view sign,
                   bool negative, std::string_view number, bool bracket_blank, char *out);

}  // namespace corvinel::nlnum

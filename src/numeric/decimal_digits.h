// Decimal digits of doubles: exact generation, rounding with zround, and the
// cap at fifteen trusted significant digits that every classic rendering
// shares.
#pragma once

#include <cstdint>

namespace corvinel::numeric {

// A double carries 15 to 17 significant decimal digits; the renderings never
// print more than 15 and write zeros for the places beyond.
inline constexpr int kTrustedDigits = 15;

// A non-negative decimal number with at most kTrustedDigits significant
// digits.  digits[0] stands at the place of 10^exponent, digits[count - 1] is
// the last nonzero digit; count 0 is the number zero.
struct Decimal {
  char digits[kTrustedDigits] = {};
  int count = 0;
  int exponent = 0;

  bool is_zero() const { return count == 0; }
  // The digit at the place of 10^place, '0' outside the significant digits.
  char digit_at(int64_t place) const {
    const int64_t index = exponent - place;
    return (index >= 0 && index < count) ? digits[index] : '0';
  }
  // The place of the last significant digit (meaningless for zero).
  int last_place() const { return exponent - count + 1; }
};

// floor(log10(magnitude)) for a positive finite magnitude, judged against the
// correctly rounded powers of ten (so 1e23, whose double lies below the true
// power, still has exponent 23).
int decimal_exponent(double magnitude);

// The positive finite magnitude rounded by zround to a multiple of 10^place,
// or of the unit of its fifteenth significant digit when that is coarser, so
// that it has at most kTrustedDigits significant digits.  Below 10^-307,
// where the units are subnormal and inexact, the exact binary value is
// rounded instead (half to even, which a binary value almost never meets);
// a place above 308 gives zero, since every double is below half of 10^309.
Decimal round_to_place(double magnitude, int64_t place);

}  // namespace corvinel::numeric

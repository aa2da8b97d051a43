// Digit generation for the classic renderings.  Rounding to a decimal place
// goes through zround, so the renderings agree with every other user of it.
// A place below the fifteenth significant digit is not rounded at: the
// digits past the fifteenth are not shown, so the value is rounded at the
// fifteenth instead, once (rounding at the requested place first and then
// cutting would round twice: 7878399991.41335487 to six places is
// ...413355, cut to ...41336).  Either way the count of units has at most 15
// digits (16 after a carry) and is read back without text conversion; only
// subnormal places go through std::to_chars, which is exact and does not
// allocate.
#include "numeric/decimal_digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "corvinel/rounding.h"

namespace corvinel::numeric {
namespace {

constexpr int64_t kSmallestNormalPlace = -307;  // 10^-307 is the last normal power

// Drops trailing zero digits (the number stays the same).
void strip_trailing_zeros(Decimal &decimal) {
  while (decimal.count > 0 && decimal.digits[decimal.count - 1] == '0') {
    --decimal.count;
  }
}

// `significant` (1..kTrustedDigits) digits of the magnitude, rounded from its
// exact binary value by std::to_chars in scientific form "d.ddde-XX".
Decimal digits_from_binary(double magnitude, int significant) {
  char text[40];
  const auto end = std::to_chars(text, text + sizeof text, magnitude,
                                 std::chars_format::scientific, significant - 1)
                       .ptr;
  Decimal decimal;
  const char *cursor = text;
  for (; cursor < end && *cursor != 'e'; ++cursor) {
    if (*cursor != '.') decimal.digits[decimal.count++] = *cursor;
  }
  ++cursor;  // 'e'
  const bool negative_exponent = *cursor == '-';
  ++cursor;  // sign
  int exponent = 0;
  std::from_chars(cursor, end, exponent);
  decimal.exponent = negative_exponent ? -exponent : exponent;
  strip_trailing_zeros(decimal);
  return decimal;
}

// count × 10^place for an integral count of at most 16 digits, cut to
// kTrustedDigits significant digits (a sixteenth digit arises only from a
// carry, 999999999999999.5 to 10^15, and is a zero).
Decimal digits_of_count(double count, int64_t place) {
  constexpr uint64_t kSmallestSixteenDigitCount = 1000000000000000;  // 10^15
  auto units = static_cast<uint64_t>(count);
  if (units >= kSmallestSixteenDigitCount) {
    const bool round_up = units % 10 >= 5;
    units = units / 10 + (round_up ? 1 : 0);
    ++place;
  }
  Decimal decimal;
  if (units == 0) return decimal;
  while (units % 10 == 0) {  // trailing zeros move into the place
    units /= 10;
    ++place;
  }
  int length = 1;
  for (uint64_t power = 10; length < 16 && units >= power; power *= 10) ++length;
  decimal.count = length;
  decimal.exponent = static_cast<int>(place) + length - 1;
  for (int index = length - 1; index >= 0; --index) {
    decimal.digits[index] = static_cast<char>('0' + units % 10);
    units /= 10;
  }
  return decimal;
}

// The first kTrustedDigits significant digits of the magnitude, rounded
// from its exact binary value.
Decimal trusted_digits(double magnitude) {
  return digits_from_binary(magnitude, kTrustedDigits);
}

}  // namespace

int decimal_exponent(double magnitude) {
  // magnitude lies in [2^(binary - 1), 2^binary), so its decimal exponent is
  // floor((binary - 1) * log10(2)) or one more; the table decides, and also
  // absorbs a slip of the estimate.  Out of the table's range zpow10 gives a
  // NaN, and the comparisons fail as they should.
  int binary = 0;
  std::frexp(magnitude, &binary);
  constexpr double kLog10Of2 = 0.30102999566398120;
  int exponent = static_cast<int>(std::floor((binary - 1) * kLog10Of2));
  while (exponent < 308 && magnitude >= zpow10(exponent + 1)) ++exponent;
  while (magnitude < zpow10(exponent)) --exponent;
  return exponent;
}

Decimal round_to_place(double magnitude, int64_t place) {
  if (!(magnitude > 0) || place > 308) return Decimal{};
  place = std::max<int64_t>(place, decimal_exponent(magnitude) - (kTrustedDigits - 1));
  if (place < kSmallestNormalPlace) {
    // Units below 10^-307 are subnormal: too coarse to count in (10^-322 is
    // off by 1.2%).  Round the exact value at the place instead.
    const int64_t significant = decimal_exponent(magnitude) - place + 1;
    if (significant < 0) return Decimal{};
    if (significant == 0) {
      // The leading digit stands just below the place: the value rounds to
      // one unit when that digit is 5 or more, else to zero.
      Decimal unit;
      if (trusted_digits(magnitude).digits[0] < '5') return unit;
      unit.digits[0] = '1';
      unit.count = 1;
      unit.exponent = static_cast<int>(place);
      return unit;
    }
    return digits_from_binary(
        magnitude, static_cast<int>(significant < kTrustedDigits ? significant
                                                                 : kTrustedDigits));
  }
  const double unit = zpow10(static_cast<int32_t>(place));
  double rounded = 0;
  zround(&rounded, magnitude, unit);
  if (rounded == 0) return Decimal{};
  if (std::isinf(rounded)) {
    // The multiple lies beyond the largest double; its count of units is
    // the same quotient zround rounded, which is small and exact.
    double count = 0;
    zround(&count, magnitude / unit, 1.0);
    return digits_of_count(count, place);
  }
  // rounded = count × unit with one rounding error, and the count is at
  // most 10^15, so the quotient lies within a quarter of it.
  return digits_of_count(std::nearbyint(rounded / unit), place);
}

}  // namespace corvinel::numeric

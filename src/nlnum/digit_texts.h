// The digit texts the number engine starts from: a value with a fixed count
// of decimals ("%.*f") and left-justified in a field with a count of
// significant digits ("%-*.*G"), exactly as the C library's printf writes
// them in the process locale (its LC_NUMERIC decimal point, "E" exponents,
// negative zero as "-0").  The engine also splits fixed texts at the process
// locale's monetary decimal point (LC_MONETARY), so that point comes from
// the same source.
//
// Two sources give the same bytes in every case:
//   - PrintfNumberTexts asks snprintf and localeconv, as the engine was first
//     written; it is the reference the tests hold the fast one to;
//   - FastNumberTexts generates the digits itself (std::to_chars, which is
//     exact like printf and rounds ties of the binary value to even like it)
//     and reads the process locale's marks with nl_langinfo.  A process locale
//     whose decimal point is not a single byte goes to snprintf.
// Both read the process locale when they are made, once per format call, so
// a change of the process locale takes effect at the next call.
#pragma once

#include <langinfo.h>

#include <bit>
#include <cstdint>
#include <iterator>

namespace corvinel::nlnum {

// Bytes a digit text keeps, with its terminating NUL.  Longer texts are cut
// (as snprintf cuts them) and only their length is exact.
inline constexpr int kDigitTextCapacity = 64;

// No double has more than 767 significant decimal digits, so every larger
// precision gives the same "%G" text, and every fixed text with that many
// decimals is far wider than any field.  Callers cap precisions here.
inline constexpr int kMaxPrecision = 767;

// Every text function writes its text and a NUL into `out`
// (kDigitTextCapacity bytes) and returns its length, or a negative number
// when the C library fails.  A text of kDigitTextCapacity bytes or more is
// wider than any field it is compared with: its length is reported as at
// least kDigitTextCapacity, and `out` then holds the text's first bytes for
// "%G" texts (the engine looks at how they begin) and nothing that counts
// for fixed texts.  precision lies in 0 .. kMaxPrecision; field in
// 0 .. kDigitTextCapacity.
class PrintfNumberTexts {
 public:
  PrintfNumberTexts();
  // "%.*f"
  int fixed(double value, int precision, char *out) const;
  // "%-*.*G"
  int general(double value, int field, int precision, char *out) const;
  // LC_MONETARY's decimal point; may be empty.
  const char *mon_decimal_point() const { return mon_decimal_point_; }

 private:
  const char *mon_decimal_point_;
};

// A "%.*f" text as a number: `digits` is the value times 10^precision,
// written with at least precision + 1 digits, "-" first when `minus`.
struct ScaledDecimal {
  uint64_t digits = 0;
  int precision = 0;
  int digit_count = 1;
  bool minus = false;
  bool zero_integer = false;  // the digits before the point are "0"

  // The length of the text fixed() writes for it.
  int text_length() const { return (minus ? 1 : 0) + digit_count + (precision > 0 ? 1 : 0); }
  // The text begins "0" and a "." (the decimal point of the process locale
  // being `decimal_point`).
  bool starts_zero_point(char decimal_point) const {
    return !minus && precision > 0 && zero_integer && decimal_point == '.';
  }
};

// 10^0 .. 10^19.
inline constexpr uint64_t kPowersOfTen[] = {1ull,
                                            10ull,
                                            100ull,
                                            1000ull,
                                            10000ull,
                                            100000ull,
                                            1000000ull,
                                            10000000ull,
                                            100000000ull,
                                            1000000000ull,
                                            10000000000ull,
                                            100000000000ull,
                                            1000000000000ull,
                                            10000000000000ull,
                                            100000000000000ull,
                                            1000000000000000ull,
                                            10000000000000000ull,
                                            100000000000000000ull,
                                            1000000000000000000ull,
                                            10000000000000000000ull};

// Precisions below this scale by a power of ten of kPowersOfTen.
inline constexpr int kExactPrecisions = static_cast<int>(std::size(kPowersOfTen));

using u128 = unsigned __int128;

// The count of decimal digits of `value` (0 has one): from its bit length
// (log10(2) ~ 1233 / 4096), one more when it reaches the next power of ten.
inline int decimal_digits(uint64_t value) {
  const int bits = 64 - std::countl_zero(value | 1);
  const int count = (bits * 1233) >> 12;
  return (value | 1) >= kPowersOfTen[count] ? count + 1 : count;
}

// The count of decimal digits of `digits` written with at least
// `precision` + 1 of them, into `number`.
inline void count_digits(uint64_t digits, int precision, ScaledDecimal &number) {
  const int bits = 64 - std::countl_zero(digits | 1);
  int count = (bits * 1233) >> 12;
  if ((digits | 1) >= kPowersOfTen[count]) ++count;  // 0 has one digit too
  number.digit_count = count > precision ? count : precision + 1;
  number.zero_integer = count <= precision;
}

// A "%.*G" text of a value from 1 up to below 2^63 as a number: `digits`
// holds the `count` digits it writes, the first of them standing for
// 10^exponent (0 .. 19).  In exponent form the text is the first digit,
// then the decimal point and the rest when there are more, then "E+" and
// the exponent in two digits; otherwise it is the fixed text of those
// digits (count is at least exponent + 1, and a point stands before the
// digits past those).  "%G" drops the zeros that would end a fraction, so
// `digits` ends in a zero only before the point of a fixed text.
struct SignificantDigits {
  uint64_t digits = 0;
  int count = 1;
  int exponent = 0;
  bool minus = false;
  bool exponent_form = false;

  // The length of the text general() writes for it in exponent form,
  // before the padding.
  int exponent_text_length() const { return (minus ? 1 : 0) + count + (count > 1 ? 1 : 0) + 4; }
};

class FastNumberTexts {
 public:
  FastNumberTexts() : mon_decimal_point_(nl_langinfo(MON_DECIMAL_POINT)) {
    const char *decimal_point = nl_langinfo(RADIXCHAR);
    decimal_point_ = decimal_point[0];
    one_byte_decimal_point_ = decimal_point[0] != '\0' && decimal_point[1] == '\0';
  }
  int fixed(double value, int precision, char *out) const;
  // The text fixed() would write, as a number, when fixed() generates it by
  // integer arithmetic and the scaled value fits 64 bits; false otherwise.
  // In line the common case, exact_scaled's 64-bit one: a normal value from
  // 2^-11 up to below 2^52 with at most three decimals.
  bool scaled(double value, int precision, ScaledDecimal &number) const {
    const auto bits = std::bit_cast<uint64_t>(value);
    const int biased = static_cast<int>((bits >> 52) & 0x7FF);
    const int shift = 1075 - biased;  // a normal value is its significand / 2^shift
    if (one_byte_decimal_point_ && precision <= 3 && biased != 0 && shift >= 1 && shift < 64) {
      const uint64_t significand = (bits & ((uint64_t{1} << 52) - 1)) | uint64_t{1} << 52;
      const uint64_t product = significand * kPowersOfTen[precision];
      uint64_t whole = product >> shift;
      const uint64_t rest = product & ((uint64_t{1} << shift) - 1);
      const uint64_t half = uint64_t{1} << (shift - 1);
      if (rest > half || (rest == half && (whole & 1) != 0)) ++whole;  // ties to even
      number.digits = whole;
      number.precision = precision;
      number.minus = (bits >> 63) != 0;
      count_digits(whole, precision, number);
      return true;
    }
    return scaled_in_general(value, precision, number);
  }
  // scaled() for every value it takes.
  bool scaled_in_general(double value, int precision, ScaledDecimal &number) const;
  // Whether assemble_number splits every fixed text with decimals exactly at
  // its decimal point: the monetary decimal point (or "." when that is
  // empty) is the one-byte decimal point, which is not a digit.
  bool splits_at_decimal_point() const {
    if (!one_byte_decimal_point_ || (decimal_point_ >= '0' && decimal_point_ <= '9')) return false;
    if (mon_decimal_point_[0] == '\0') return decimal_point_ == '.';
    return mon_decimal_point_[0] == decimal_point_ && mon_decimal_point_[1] == '\0';
  }
  char decimal_point() const { return decimal_point_; }
  int general(double value, int field, int precision, char *out) const;
  // The text general() would write, as a number, when it generates it by
  // integer arithmetic: a finite value whose magnitude lies from 1 up to
  // below 2^63, at most 19 significant digits, a one-byte decimal point.
  // False otherwise.
  // In line: the exponent attempts of the engine take it on every call that
  // reaches them.
  bool significant(double value, int precision, SignificantDigits &number) const;
  const char *mon_decimal_point() const { return mon_decimal_point_; }

 private:
  // Finite values under a one-byte decimal point are generated here; the
  // rest goes to snprintf.
  bool generates(double value) const;

  char decimal_point_;  // LC_NUMERIC's, when it is one byte
  bool one_byte_decimal_point_;
  const char *mon_decimal_point_;
};

inline bool FastNumberTexts::significant(double value, int precision,
                                         SignificantDigits &number) const {
  // printf reads a precision of 0 as 1 significant digit.
  const int wanted = precision > 0 ? precision : 1;
  const auto bits = std::bit_cast<uint64_t>(value);
  const int biased = static_cast<int>((bits >> 52) & 0x7FF);
  // 1 <= |value| < 2^63: the value is significand * 2^exponent, its integer
  // part fits 63 bits.
  if (!one_byte_decimal_point_ || wanted >= kExactPrecisions || biased < 1023 ||
      biased > 1085) {
    return false;
  }
  const uint64_t significand = (bits & ((uint64_t{1} << 52) - 1)) | uint64_t{1} << 52;
  const int exponent = biased - 1075;  // -52 .. 10
  const uint64_t integer = exponent >= 0 ? significand << exponent : significand >> -exponent;
  const int integer_digits = decimal_digits(integer);

  // The value with `wanted` significant digits, rounded from its exact
  // binary value to the nearest, a tie to the even one, as printf rounds.
  uint64_t digits;
  if (wanted >= integer_digits) {
    // value * 10^(wanted - integer_digits): a 53-bit significand times at
    // most 10^18 needs at most 113 bits.
    const u128 product = static_cast<u128>(significand) * kPowersOfTen[wanted - integer_digits];
    if (exponent >= 0) {
      digits = static_cast<uint64_t>(product << exponent);  // an integer below 10^wanted
    } else {
      const int shift = -exponent;
      digits = static_cast<uint64_t>(product >> shift);
      const u128 rest = product & ((u128{1} << shift) - 1);
      const u128 half = u128{1} << (shift - 1);
      if (rest > half || (rest == half && (digits & 1) != 0)) ++digits;
    }
  } else {
    // The integer part divided by a power of ten; a remainder of exactly
    // half is a tie only when the value has no fraction bits.
    const uint64_t scale = kPowersOfTen[integer_digits - wanted];
    digits = integer / scale;
    const uint64_t rest = integer - digits * scale;
    const uint64_t half = scale / 2;
    const auto fraction_bits = [&] {
      return exponent < 0 && (significand & ((uint64_t{1} << -exponent) - 1)) != 0;
    };
    if (rest > half || (rest == half && ((digits & 1) != 0 || fraction_bits()))) ++digits;
  }
  number.exponent = integer_digits - 1;
  if (digits == kPowersOfTen[wanted]) {  // rounded up into a new digit
    digits = kPowersOfTen[wanted - 1];
    ++number.exponent;
  }
  // Exponent form when the exponent reaches the precision (it is not below
  // -4 here); trailing zeros go, in a fixed text only after the point.
  number.exponent_form = number.exponent >= wanted;
  const int kept = number.exponent_form ? 1 : number.exponent + 1;
  int count = wanted;
  while (count > kept && digits % 10 == 0) {
    digits /= 10;
    --count;
  }
  number.digits = digits;
  number.count = count;
  number.minus = (bits >> 63) != 0;
  return true;
}

}  // namespace corvinel::nlnum

#include "nlnum/digit_texts.h"

#include <langinfo.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "nlnum/digit_writing.h"

namespace corvinel::nlnum {
namespace {

// Room for a fixed text below 1e70 with fewer than 62 decimals, and for any
// "%G" text with up to kMaxPrecision digits.
constexpr int kWholeTextCapacity = 1100;

int print_fixed(double value, int precision, char *out) {
  return std::snprintf(out, kDigitTextCapacity, "%.*f", precision, value);
}

int print_general(double value, int field, int precision, char *out) {
  return std::snprintf(out, kDigitTextCapacity, "%-*.*G", field, precision, value);
}

// Keeps the first bytes of a text of `length` bytes as snprintf would, with
// blanks after it up to `field`; returns the padded length.
int keep(const char *text, int length, int field, char *out) {
  const int padded = length < field ? field : length;
  const int kept = padded < kDigitTextCapacity ? padded : kDigitTextCapacity - 1;
  const int copied = length < kept ? length : kept;
  std::memcpy(out, text, static_cast<std::size_t>(copied));
  std::memset(out + copied, ' ', static_cast<std::size_t>(kept - copied));
  out[kept] = '\0';
  return padded;
}

// value * 10^precision for a finite value below 2^63 with at most 19
// decimals, by integer arithmetic on its exact binary value: rounded to the
// nearest integer, a tie to the even one, as printf rounds in the default
// rounding mode.  The product of a 53-bit significand and 10^19 needs at
// most 117 bits.  False for values it does not take.
[[gnu::always_inline]] inline bool exact_scaled(double value, int precision, u128 &scaled) {
  if (precision >= kExactPrecisions) return false;
  uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  const int biased = static_cast<int>((bits >> 52) & 0x7FF);
  uint64_t significand = bits & ((uint64_t{1} << 52) - 1);
  int exponent = -1074;  // value = significand * 2^exponent
  if (biased != 0) {
    significand |= uint64_t{1} << 52;
    exponent = biased - 1075;
  }
  if (exponent > 10) return false;
  const uint64_t scale = kPowersOfTen[precision];
  if (exponent >= 0) {
    scaled = static_cast<u128>(significand << exponent) * scale;
  } else if (-exponent >= 118) {
    scaled = 0;  // below half a unit of the last place
  } else if (precision <= 3 && exponent > -64) {
    // The common case in 64 bits: a 53-bit significand times at most 10^3
    // stays below 2^63.
    const int shift = -exponent;
    const uint64_t product = significand * scale;
    uint64_t whole = product >> shift;
    const uint64_t rest = product & ((uint64_t{1} << shift) - 1);
    const uint64_t half = uint64_t{1} << (shift - 1);
    if (rest > half || (rest == half && (whole & 1) != 0)) ++whole;
    scaled = whole;
  } else {
    const int shift = -exponent;
    const u128 product = static_cast<u128>(significand) * scale;
    scaled = product >> shift;
    const u128 rest = product & ((u128{1} << shift) - 1);
    const u128 half = u128{1} << (shift - 1);
    if (rest > half || (rest == half && (scaled & 1) != 0)) ++scaled;
  }
  return true;
}

// The "%.*f" text of exact_scaled's values.  Returns the text's length, or
// -1 for values it does not take.
int exact_fixed(double value, int precision, char decimal_point, char *out) {
  u128 scaled;
  if (!exact_scaled(value, precision, scaled)) return -1;
  uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);

  // Digits from the right, two at a time, at least one before the point.
  char digits[48];
  char *const end = digits + sizeof digits;
  char *first = end;
  while (scaled > UINT64_MAX) {
    uint64_t chunk = static_cast<uint64_t>(scaled % kPowersOfTen[19]);
    scaled /= kPowersOfTen[19];
    for (int i = 0; i < 19; ++i, chunk /= 10) *--first = static_cast<char>('0' + chunk % 10);
  }
  uint64_t rest = static_cast<uint64_t>(scaled);
  first = put_digits_before(first, rest, static_cast<std::size_t>(decimal_digits(rest)));
  while (end - first <= precision) *--first = '0';

  const auto count = static_cast<std::size_t>(end - first);
  const auto fraction = static_cast<std::size_t>(precision);
  char *next = out;
  if ((bits >> 63) != 0) *next++ = '-';
  std::memcpy(next, first, count - fraction);
  next += count - fraction;
  if (fraction > 0) {
    *next++ = decimal_point;
    std::memcpy(next, end - fraction, fraction);
    next += fraction;
  }
  *next = '\0';
  return static_cast<int>(next - out);
}

// The "%-*.*G" text of `number` in a field of `field` bytes.
int write_general(const SignificantDigits &number, char decimal_point, int field, char *out) {
  char text[32];  // a sign, 19 digits, a point, "E+", 2 exponent digits
  char *const end = text + sizeof text;
  char *first = end;
  int before_point = number.exponent + 1;
  if (number.exponent_form) {
    auto exponent = static_cast<uint32_t>(number.exponent);
    first = put_digits_before(first, exponent, 2);
    *--first = '+';
    *--first = 'E';
    before_point = 1;
  }
  const int after_point = number.count - before_point;
  uint64_t digits = number.digits;
  if (after_point > 0) {
    first = put_digits_before(first, digits, static_cast<std::size_t>(after_point));
    *--first = decimal_point;
  }
  first = put_digits_before(first, digits, static_cast<std::size_t>(before_point));
  if (number.minus) *--first = '-';
  return keep(first, static_cast<int>(end - first), field, out);
}

}  // namespace

PrintfNumberTexts::PrintfNumberTexts() : mon_decimal_point_(std::localeconv()->mon_decimal_point) {}

int PrintfNumberTexts::fixed(double value, int precision, char *out) const {
  return print_fixed(value, precision, out);
}

int PrintfNumberTexts::general(double value, int field, int precision, char *out) const {
  return print_general(value, field, precision, out);
}

bool FastNumberTexts::generates(double value) const {
  return one_byte_decimal_point_ && std::isfinite(value);
}

int FastNumberTexts::fixed(double value, int precision, char *out) const {
  if (!generates(value)) return print_fixed(value, precision, out);
  // Texts sure to be too wide are not written: a point and `precision`
  // digits follow the first digit, and 1e70 has more than 64 digits.
  if (precision >= kDigitTextCapacity - 2 || std::fabs(value) >= 1e70) {
    out[0] = '\0';
    return kDigitTextCapacity;
  }
  // At most 19 + 19 digits, a sign and a point: it always fits `out`.
  if (const int length = exact_fixed(value, precision, decimal_point_, out); length >= 0) return length;
  char text[kWholeTextCapacity];
  const auto [end, error] =
      std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, precision);
  if (error != std::errc{}) return print_fixed(value, precision, out);
  if (decimal_point_ != '.') {
    if (char *point = static_cast<char *>(std::memchr(text, '.', static_cast<std::size_t>(end - text)))) {
      *point = decimal_point_;
    }
  }
  return keep(text, static_cast<int>(end - text), 0, out);
}

bool FastNumberTexts::scaled_in_general(double value, int precision, ScaledDecimal &number) const {
  // exact_scaled takes no infinity, NaN or value of 2^63 or more.
  if (!one_byte_decimal_point_) return false;
  u128 scaled;
  if (!exact_scaled(value, precision, scaled) || scaled > UINT64_MAX) return false;
  number.digits = static_cast<uint64_t>(scaled);
  number.precision = precision;
  number.minus = std::signbit(value);
  count_digits(number.digits, precision, number);
  return true;
}

int FastNumberTexts::general(double value, int field, int precision, char *out) const {
  if (SignificantDigits number; significant(value, precision, number)) {
    return write_general(number, decimal_point_, field, out);
  }
  if (!generates(value)) return print_general(value, field, precision, out);
  char text[kWholeTextCapacity];
  // printf reads a precision of 0 as 1 significant digit.
  const auto [end, error] = std::to_chars(text, text + sizeof text, value,
                                          std::chars_format::general, precision > 0 ? precision : 1);
  if (error != std::errc{}) return print_general(value, field, precision, out);
  for (char *c = text; c != end; ++c) {
    if (*c == 'e') {
      *c = 'E';
    } else if (*c == '.') {
      *c = decimal_point_;
    }
  }
  return keep(text, static_cast<int>(end - text), field, out);
}

}  // namespace corvinel::nlnum

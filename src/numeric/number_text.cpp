// Writing positional and E texts.
#include "numeric/number_text.h"

#include <cstdint>

namespace corvinel::numeric {
namespace {

// Writes the decimal digits of a non-negative value, returns the end.
char *write_unsigned(char *out, uint64_t value) {
  char reversed[20];
  int length = 0;
  do {
    reversed[length++] = static_cast<char>('0' + value % 10);
    value /= 10;
  } while (value != 0);
  while (length > 0) *out++ = reversed[--length];
  return out;
}

}  // namespace

int64_t decimal_width(int64_t value) {
  int64_t width = value < 0 ? 2 : 1;
  for (uint64_t rest = value < 0 ? 0 - static_cast<uint64_t>(value)
                                 : static_cast<uint64_t>(value);
       rest >= 10; rest /= 10) {
    ++width;
  }
  return width;
}

int64_t PositionalText::integer_digits() const {
  return (magnitude.is_zero() || magnitude.exponent < 0) ? 0 : magnitude.exponent + 1;
}

int64_t PositionalText::length() const {
  const int64_t digits = integer_digits();
  int64_t length = shows_sign() ? 1 : 0;
  if (digits > 0) {
    length += digits + (grouped ? (digits - 1) / 3 : 0);
  } else if (writes_zero_integer()) {
    length += 1;
  }
  if (decimals > 0) length += 1 + decimals;
  return length;
}

void PositionalText::write(char *out) const {
  if (shows_sign()) *out++ = '-';
  const int64_t digits = integer_digits();
  if (digits > 0) {
    for (int64_t place = digits - 1; place >= 0; --place) {
      *out++ = magnitude.digit_at(place);
      if (grouped && place > 0 && place % 3 == 0) *out++ = ',';
    }
  } else if (writes_zero_integer()) {
    *out++ = '0';
  }
  if (decimals > 0) {
    *out++ = '.';
    for (int64_t place = -1; place >= -decimals; --place) {
      *out++ = magnitude.digit_at(place);
    }
  }
}

ScientificText ScientificText::with_fraction(const Decimal &digits, bool negative) {
  return ScientificText{digits, negative, digits.count > 1, digits.exponent};
}

ScientificText ScientificText::with_integer(const Decimal &digits, bool negative) {
  return ScientificText{digits, negative, false, digits.last_place()};
}

int64_t ScientificText::length() const {
  return (negative ? 1 : 0) + mantissa.count + (point_after_first ? 1 : 0) + 1 +
         decimal_width(exponent);
}

void ScientificText::write(char *out) const {
  if (negative) *out++ = '-';
  for (int i = 0; i < mantissa.count; ++i) {
    *out++ = mantissa.digits[i];
    if (i == 0 && point_after_first) *out++ = '.';
  }
  *out++ = 'E';
  if (exponent < 0) *out++ = '-';
  write_unsigned(out, static_cast<uint64_t>(exponent < 0 ? -static_cast<int64_t>(exponent)
                                                         : exponent));
}

}  // namespace corvinel::numeric

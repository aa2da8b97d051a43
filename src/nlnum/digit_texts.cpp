#include "nlnum/digit_texts.h"

#include <langinfo.h>

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>

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

}  // namespace

PrintfNumberTexts::PrintfNumberTexts() : mon_decimal_point_(std::localeconv()->mon_decimal_point) {}

int PrintfNumberTexts::fixed(double value, int precision, char *out) const {
  return print_fixed(value, precision, out);
}

int PrintfNumberTexts::general(double value, int field, int precision, char *out) const {
  return print_general(value, field, precision, out);
}

FastNumberTexts::FastNumberTexts() : mon_decimal_point_(nl_langinfo(MON_DECIMAL_POINT)) {
  const char *decimal_point = nl_langinfo(RADIXCHAR);
  decimal_point_ = decimal_point[0];
  one_byte_decimal_point_ = decimal_point[0] != '\0' && decimal_point[1] == '\0';
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

int FastNumberTexts::general(double value, int field, int precision, char *out) const {
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

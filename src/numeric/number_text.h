// The two shapes a classic number takes in its field: positional
// ("-1,234.50", ".5") and E notation ("1.26E6", "-126E4").  Each knows its
// length before it is written, so the renderings choose a shape by length
// and write it straight into the host's buffer, whatever the width.
#pragma once

#include <cstdint>
#include <variant>

#include "numeric/decimal_digits.h"

namespace corvinel::numeric {

// [-] integer digits ["." decimals], the digits already rounded.
struct PositionalText {
  Decimal magnitude;
  bool negative = false;      // the sign is written only for a nonzero magnitude
  int64_t decimals = 0;       // digits after the point, zeros past the last significant one
  bool leading_zero = true;   // "0" before the point when the integer part is zero
  bool grouped = false;       // "," between groups of three integer digits

  int64_t length() const;
  void write(char *first) const;

 private:
  bool shows_sign() const { return negative && !magnitude.is_zero(); }
  int64_t integer_digits() const;
  bool writes_zero_integer() const { return leading_zero || decimals == 0; }
};

// [-] mantissa "E" exponent.  A fraction mantissa puts its point after the
// first digit (none when it has one digit); an integer mantissa has none.
struct ScientificText {
  Decimal mantissa;  // only the digits are used; never zero
  bool negative = false;
  bool point_after_first = false;
  int exponent = 0;  // the exponent as printed

  // The E text of `digits` with one digit before the point.
  static ScientificText with_fraction(const Decimal &digits, bool negative);
  // The E text of `digits` read as an integer, trailing zeros moved into the
  // exponent.
  static ScientificText with_integer(const Decimal &digits, bool negative);

  int64_t length() const;
  void write(char *first) const;
};

// What BEST may produce.
using NumberText = std::variant<PositionalText, ScientificText>;

// Number of characters of the decimal text of `value` ("-12" has 3).
int64_t decimal_width(int64_t value);

}  // namespace corvinel::numeric

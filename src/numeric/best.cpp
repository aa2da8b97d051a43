// BEST chooses between two shapes of the value:
//
//  - positional: integers without a point, otherwise as many decimals as the
//    width holds (and 15 significant digits allow), trailing zeros dropped.
//    Below 1 the "0" before the point is written unless the field cannot
//    hold a sign, "0", "." and one digit ("-.1" in 3 bytes), or the
//    decimals beside it would all be zero (".02" in 3 bytes).
//  - E notation: "E", then the exponent without "+" or leading zeros.  The
//    mantissa has one digit, a point and as many fraction digits as fit as
//    long as at least two fit ("1.26E6"); otherwise it is an integer of as
//    many digits as fit ("-126E4", "36E5").  Trailing zeros are dropped.
//
// E notation wins when the positional text does not fit, when the magnitude
// is below 1e-5, or when the positional text shows fewer than 3 significant
// digits and E notation shows more.  So 0.0000167 stays positional in 10
// bytes while 5E-6 and 8.31529E-7 do not, and a value that rounds to nothing
// in either shape is "0".
#include "numeric/best.h"

#include <algorithm>
#include <cmath>

#include "numeric/classic_field.h"

namespace corvinel::numeric {
namespace {

// Magnitudes below this are written in E notation whenever it fits.
constexpr double kSmallMagnitude = 1e-5;
// A positional text with fewer significant digits gives way to E notation
// that shows more.
constexpr int kFewDigits = 3;

// The positional text with as many decimals as fit `width`, written with or
// without the "0" before the point of a value below 1.
std::optional<PositionalText> positional_with(double magnitude, bool negative, int exponent,
                                              int64_t width, bool leading_zero) {
  const int64_t sign = negative ? 1 : 0;
  const int64_t integer_chars = exponent >= 0 ? exponent + 1 : (leading_zero ? 1 : 0);
  // Places after the point that fit, and no more than the trusted digits.
  int64_t places = std::min<int64_t>(width - sign - integer_chars - 1,
                                     kTrustedDigits - 1 - exponent);
  for (places = std::max<int64_t>(places, 0);; --places) {
    const Decimal rounded = round_to_place(magnitude, -places);
    const int64_t shown = rounded.is_zero() ? 0 : std::max(0, -rounded.last_place());
    const PositionalText text{rounded, negative, shown, leading_zero, false};
    if (text.length() <= width) return text;
    if (places == 0) return std::nullopt;
  }
}

std::optional<PositionalText> best_positional(double value, int64_t width) {
  const double magnitude = std::fabs(value);
  const bool negative = value < 0;
  const int exponent = decimal_exponent(magnitude);
  if (exponent > width) return std::nullopt;  // at least `exponent` integer digits
  if (exponent >= 0) return positional_with(magnitude, negative, exponent, width, true);
  // Below 1 the "0" goes when there is no room for it and a decimal, or when
  // the decimals beside it would all be zero.
  const bool room_for_zero = width >= (negative ? 1 : 0) + 3;
  if (room_for_zero) {
    const auto text = positional_with(magnitude, negative, exponent, width, true);
    if (text && !text->magnitude.is_zero()) return text;
  }
  return positional_with(magnitude, negative, exponent, width, false);
}

std::optional<ScientificText> best_scientific(double value, int64_t width) {
  const double magnitude = std::fabs(value);
  const bool negative = value < 0;
  const int exponent = decimal_exponent(magnitude);
  const int64_t sign = negative ? 1 : 0;

  // Fraction mantissa "d.dd...": one digit, the point, `fraction` digits.
  int64_t fraction = std::min<int64_t>(width - sign - 2 - 1 - decimal_width(exponent),
                                       kTrustedDigits - 1);
  for (; fraction >= 2; --fraction) {
    const Decimal rounded = round_to_place(magnitude, exponent - fraction);
    // A carry may move the exponent and change its length.
    const auto text = ScientificText::with_fraction(rounded, negative);
    if (text.length() <= width) return text;
  }
  // Integer mantissa: as many digits as fit beside "E" and the exponent.
  for (int64_t digits = std::min<int64_t>(width - sign - 2, kTrustedDigits); digits >= 1;
       --digits) {
    const Decimal rounded = round_to_place(magnitude, exponent - digits + 1);
    const auto text = ScientificText::with_integer(rounded, negative);
    if (text.length() <= width) return text;
  }
  return std::nullopt;
}

}  // namespace

std::optional<NumberText> best_text(double value, int64_t width) {
  if (value == 0) return PositionalText{};
  const auto positional = best_positional(value, width);
  const bool small = std::fabs(value) < kSmallMagnitude;
  const int positional_digits = positional ? positional->magnitude.count : 0;
  if (positional && !small && positional_digits >= kFewDigits) return *positional;

  const auto scientific = best_scientific(value, width);
  if (scientific && (!positional || small || scientific->mantissa.count > positional_digits)) {
    return *scientific;
  }
  if (positional) return *positional;
  return std::nullopt;
}

int32_t render_best(fmtreq *request, double value) {
  if (const auto text = best_text(value, request->width)) return place_text(request, *text);
  return fill_overflow(request);
}

}  // namespace corvinel::numeric

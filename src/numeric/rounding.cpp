// Rounding to a unit, and the small numeric guards.
#include <bit>
#include <cmath>
#include <cstdint>

#include "corvinel/rounding.h"

namespace {

// The 11-bit biased exponent field of a double, sign ignored.
int biased_exponent(double x) {
  return static_cast<int>((std::bit_cast<uint64_t>(x) >> 52) & 0x7FF);
}

}  // namespace

extern "C" {

int32_t zround(double *result, double value, double unit) {
  if (value == 0) {
    *result = 0;
    return 0;
  }
  // A whole value rounded to a unit of 1 is its own result: the quotient is
  // its magnitude, and adding 0.5 and the tolerance (at most 2^-24) cannot
  // reach the next integer below 2^51.  Datetimes brought to whole seconds
  // take this way on every call.
  if (unit == 1.0 && std::fabs(value) < 0x1p51 &&
      static_cast<double>(static_cast<int64_t>(value)) == value) {
    *result = value;
    return 0;
  }
  // A unit that is not a positive finite number cannot be rounded to.
  if (!(unit > 0) || std::isinf(unit)) {
    *result = value;
    return 0;
  }
  // When the value's exponent exceeds the unit's by 52 or more, the unit lies
  // below the value's precision and the value is already a multiple of it.
  // NaNs (and so all missing values) have the largest exponent and pass here.
  if (biased_exponent(value) - biased_exponent(unit) >= 52) {
    *result = value;
    return 0;
  }
  const double signed_unit = value > 0 ? unit : -unit;
  const double quotient = std::fabs(value) / unit;
  // Half away from zero; a quotient that misses the half by less than the
  // tolerance still rounds up, which absorbs the representation error of
  // decimal fractions (0.15 / 0.1 is 1.4999999999999998).
  const double tolerance = std::fmin(0x1p-24, quotient * 0x1p-40);
  *result = std::floor(quotient + 0.5 + tolerance) * signed_unit;
  return 0;
}

int32_t zisint(double value) { return std::floor(value) == value ? 1 : 0; }

double zlog10(double value) { return value > 0 ? std::log10(value) : value; }

double vzlog10(double value) { return zlog10(value); }

}  // extern "C"

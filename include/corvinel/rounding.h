/* Rounding to a unit, exact powers of ten, and small numeric guards. */
#ifndef CORVINEL_ROUNDING_H
#define CORVINEL_ROUNDING_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* Rounds value half away from zero to a multiple of unit (with a small
   tolerance for binary representation error) and stores it in *result.
   Always returns 0.  A unit that is not a positive number leaves the value
   unchanged. */
CORVINEL_API int32_t zround(double *result, double value, double unit);
/* 10^exponent, correctly rounded; the standard missing value outside
   -323..308. */
CORVINEL_API double zpow10(int32_t exponent);
/* 1 when floor(value) == value (infinities included), else 0. */
CORVINEL_API int32_t zisint(double value);
/* log10(value) for value > 0; any other value (0, negative, NaN, missing)
   comes back unchanged. */
CORVINEL_API double zlog10(double value);
CORVINEL_API double vzlog10(double value);

CORVINEL_EXTERN_C_END

#endif

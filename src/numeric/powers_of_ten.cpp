// Exact powers of ten.  Every entry is a decimal literal, which the compiler
// converts to the correctly rounded double; multiplying at run time would
// accumulate rounding error.
#include <cstdint>

#include "corvinel/missing.h"
#include "corvinel/rounding.h"

namespace {

// POW(n) pastes the digits n onto "1e" (and NPOW onto "1e-"), so DECADE(3)
// lists 1e30 .. 1e39.
#define POW(n) 1e##n
#define NPOW(n) 1e-##n
#define DECADE(P, d) P(d##0), P(d##1), P(d##2), P(d##3), P(d##4), \
                     P(d##5), P(d##6), P(d##7), P(d##8), P(d##9)
#define UNITS(P) P(0), P(1), P(2), P(3), P(4), P(5), P(6), P(7), P(8), P(9)
#define CENTURY(P, c) DECADE(P, c##0), DECADE(P, c##1), DECADE(P, c##2), \
    DECADE(P, c##3), DECADE(P, c##4), DECADE(P, c##5), DECADE(P, c##6), \
    DECADE(P, c##7), DECADE(P, c##8), DECADE(P, c##9)
#define FIRST_CENTURY(P) UNITS(P), DECADE(P, 1), DECADE(P, 2), DECADE(P, 3), \
    DECADE(P, 4), DECADE(P, 5), DECADE(P, 6), DECADE(P, 7), DECADE(P, 8),   \
    DECADE(P, 9)

// 10^0 .. 10^308.
constexpr double kNonNegative[309] = {
    FIRST_CENTURY(POW), CENTURY(POW, 1), CENTURY(POW, 2),
    POW(300), POW(301), POW(302), POW(303), POW(304), POW(305), POW(306),
    POW(307), POW(308)};

// 10^-0 .. 10^-323 (the last one subnormal).
constexpr double kNegative[324] = {
    FIRST_CENTURY(NPOW), CENTURY(NPOW, 1), CENTURY(NPOW, 2),
    DECADE(NPOW, 30), DECADE(NPOW, 31), NPOW(320), NPOW(321), NPOW(322),
    NPOW(323)};

#undef POW
#undef NPOW
#undef DECADE
#undef UNITS
#undef CENTURY
#undef FIRST_CENTURY

static_assert(kNonNegative[0] == 1.0 && kNonNegative[22] == 1e22 &&
              kNonNegative[308] == 1e308);
static_assert(kNegative[1] == 0.1 && kNegative[323] == 1e-323);

}  // namespace

extern "C" double zpow10(int32_t exponent) {
  if (exponent >= 0 && exponent <= 308) return kNonNegative[exponent];
  if (exponent < 0 && exponent >= -323) return kNegative[-exponent];
  return std_miss_val;
}

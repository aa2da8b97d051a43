// D (zfmd, w.p): numbers with about p significant digits whose points line
// up in a column.
//
// The point takes one of a few places: a value whose leading digit stands at
// 10^e gets the smallest of 1, 1 + p, 1 + 2p, ... decimals that is at least
// p - e, so it shows at least p + 1 significant digits, trailing zeros kept.
// Values within p decades of each other therefore share their decimals
// (with p = 4: 1234.5 and 12345 get one, 0.12345 to 123.45 get five) and
// stand with their points in the same byte.  Zero is placed like a value of
// magnitude 1.  A value that does not fit so falls back to BEST, then "*":
// fewer decimals would break the column.
#include <cmath>
#include <cstdint>

#include "corvinel/classic_numbers.h"
#include "numeric/best.h"
#include "numeric/classic_field.h"

namespace {

// p when the request asks for 0 (or less).
constexpr int64_t kDefaultPrecision = 3;

int64_t column_decimals(int64_t precision, int64_t exponent) {
  const int64_t needed = precision - exponent;
  if (needed <= 1) return 1;
  const int64_t steps = (needed - 1 + precision - 1) / precision;  // ceil((needed-1)/p)
  return 1 + precision * steps;
}

}  // namespace

extern "C" int32_t zfmd(fmtreq *request) {
  using namespace corvinel::numeric;
  // p is no count of decimals, so the mark of a missing value goes to the
  // right edge as in BEST.
  const OpenedRequest opened = open_request(request, MissingMark::kRightEdge);
  if (!opened.render) return opened.result;
  const double value = opened.value;
  const double magnitude = std::fabs(value);
  const int64_t precision = request->decimals > 0 ? request->decimals : kDefaultPrecision;

  int64_t exponent = magnitude == 0 ? 0 : decimal_exponent(magnitude);
  int64_t decimals = column_decimals(precision, exponent);
  if (decimals < request->width) {
    Decimal rounded = round_to_place(magnitude, -decimals);
    // A carry into the next decade (999.999996 -> 1000.00000) may move the
    // value into the next group of decimals.
    if (!rounded.is_zero() && rounded.exponent != exponent) {
      exponent = rounded.exponent;
      const int64_t regrouped = column_decimals(precision, exponent);
      if (regrouped != decimals) {
        decimals = regrouped;
        rounded = round_to_place(magnitude, -decimals);
      }
    }
    const PositionalText text{rounded, value < 0, decimals, true, false};
    if (text.length() <= request->width) return place_text(request, text);
  }
  return render_best(request, value);
}

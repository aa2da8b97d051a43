// PVALUE (zfmpval): w.d for p-values, where a value too small to show with
// the decimals at hand reads "below one unit": 0 <= x < 10^-d is written "<"
// and the unit without its leading zero ("<.0001", "<1" for no decimals).
#include <cstdint>

#include "corvinel/classic_numbers.h"
#include "corvinel/rounding.h"
#include "numeric/best.h"
#include "numeric/classic_field.h"
#include "numeric/fixed_point.h"

namespace {

// The smallest exponent whose power of ten is a double.
constexpr int64_t kSmallestPowerOfTen = -323;

// "<" and 10^-places without its leading zero.
struct BelowUnitText {
  int64_t places;

  int64_t length() const { return places > 0 ? places + 2 : 2; }
  void write(char *out) const {
    *out++ = '<';
    if (places > 0) {
      *out++ = '.';
      for (int64_t zero = 1; zero < places; ++zero) *out++ = '0';
    }
    *out = '1';
  }
};

// 0 <= value < 10^-places.  No double lies between 0 and a power of ten
// below the table, so there only zero qualifies.
bool below_unit(double value, int64_t places) {
  if (!(value >= 0)) return false;
  if (-places < kSmallestPowerOfTen) return value == 0;
  return value < zpow10(static_cast<int32_t>(-places));
}

}  // namespace

extern "C" int32_t zfmpval(fmtreq *request) {
  using namespace corvinel::numeric;
  const OpenedRequest opened = open_request(request, MissingMark::kDecimalsPlace);
  if (!opened.render) return opened.result;
  const double value = opened.value;
  const int64_t width = request->width;
  for (int64_t places = widest_decimals(value, request->decimals, width); places >= 0;
       --places) {
    if (below_unit(value, places)) {
      const BelowUnitText text{places};
      if (text.length() <= width) return place_text(request, text);
    } else if (auto text = fixed_text(value, places, false, width)) {
      return place_text(request, *text);
    }
  }
  return render_best(request, value);
}

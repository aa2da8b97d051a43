// w.d (zfmt): fixed decimals, dropped one at a time until the text fits,
// then BEST, then "*".
#include "numeric/fixed_point.h"

#include <algorithm>
#include <cmath>

#include "corvinel/classic_numbers.h"
#include "numeric/best.h"
#include "numeric/classic_field.h"

namespace corvinel::numeric {

std::optional<PositionalText> fixed_text(double value, int64_t decimals, bool grouped,
                                         int64_t room) {
  PositionalText text{round_to_place(std::fabs(value), -decimals), value < 0, decimals,
                      true, grouped};
  if (text.length() <= room) return text;
  text.leading_zero = false;
  if (text.length() <= room) return text;
  return std::nullopt;
}

int64_t widest_decimals(double value, int64_t decimals, int64_t room) {
  const double magnitude = std::fabs(value);
  // Rounding never shortens the integer part, which has at least
  // decimal_exponent digits (one fewer than it may have, should the table's
  // power lie above the true one) when the magnitude is 1 or more.
  const int64_t integer_digits = magnitude >= 1 ? decimal_exponent(magnitude) : 0;
  return std::clamp<int64_t>(room - 1 - integer_digits, 0, std::max<int64_t>(decimals, 0));
}

std::optional<PositionalText> fit_decimals(double value, int64_t decimals, bool grouped,
                                           int64_t room) {
  // Most texts fit as asked; only the others need the starting point.
  if (decimals >= 0 && decimals < room) {
    if (auto text = fixed_text(value, decimals, grouped, room)) return text;
    if (decimals == 0) return std::nullopt;
    --decimals;
  }
  for (int64_t places = widest_decimals(value, decimals, room); places >= 0; --places) {
    if (auto text = fixed_text(value, places, grouped, room)) return text;
  }
  return std::nullopt;
}

std::optional<PositionalText> fit_grouped(double value, int64_t decimals, int64_t room) {
  const int64_t places = decimals > 0 ? decimals : 0;
  if (auto grouped = fixed_text(value, places, true, room)) return grouped;
  return fit_decimals(value, places, false, room);
}

}  // namespace corvinel::numeric

namespace {

// `decimals` values that ask zfmt for BEST.
bool asks_for_best(int32_t decimals) { return decimals == 98 || decimals == 99; }

}  // namespace

extern "C" int32_t zfmt(fmtreq *request) {
  using namespace corvinel::numeric;
  const bool best = asks_for_best(request->decimals);
  const OpenedRequest opened =
      open_request(request, best ? MissingMark::kRightEdge : MissingMark::kDecimalsPlace);
  if (!opened.render) return opened.result;
  if (!best) {
    if (auto text = fit_decimals(opened.value, request->decimals, false, request->width)) {
      return place_text(request, *text);
    }
  }
  return render_best(request, opened.value);
}

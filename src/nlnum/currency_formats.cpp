// nlmnyint and nlmnyloc: an amount in one named currency, shown with its
// international code or its local symbol and laid out by the monetary
// conventions of the request's locale.
#include "corvinel/currency.h"
#include "frame/format_frame.h"

namespace corvinel::nlnum {
namespace {

enum class CurrencySymbol { InternationalCode, LocalSymbol };

constexpr frame::Limits kCurrencyLimits{8, 32, 0, 28};

// A present amount: the attempts from grouped with the symbol down to the
// bare value.  Not built yet: the field shows "*".
int32_t render_amount(fmtreq &request, const monetary_conventions & /*currency*/,
                      CurrencySymbol /*symbol*/, double /*value*/) {
  return frame::fill_stars(request);
}

int32_t currency_frame(fmtreq *request, const monetary_conventions *currency,
                       CurrencySymbol symbol) {
  fmtreq &r = *request;
  if (const int32_t code = frame::check_limits(r, kCurrencyLimits)) return code;
  const double value = frame::read_value(r);
  r.outlen = r.width;
  if (frame::is_missing(value)) return frame::render_missing_at_right_edge(r);
  // Without a currency record there is no symbol to show.
  if (currency == nullptr || !frame::field_fits_buffer(r)) return frame::fill_stars(r);
  frame::blank_field(r);
  return render_amount(r, *currency, symbol, value);
}

}  // namespace
}  // namespace corvinel::nlnum

extern "C" {

int32_t nlmnyint(fmtreq *request, const struct monetary_conventions *currency) {
  return corvinel::nlnum::currency_frame(request, currency,
                                         corvinel::nlnum::CurrencySymbol::InternationalCode);
}

int32_t nlmnyloc(fmtreq *request, const struct monetary_conventions *currency) {
  return corvinel::nlnum::currency_frame(request, currency,
                                         corvinel::nlnum::CurrencySymbol::LocalSymbol);
}

}  // extern "C"

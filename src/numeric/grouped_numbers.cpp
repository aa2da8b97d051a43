// COMMA (zfmcma) and DOLLAR (zfmdlr): w.d with "," between groups of three
// integer digits, DOLLAR with a "$" in front ("$-1,234.57").
#include <cstdint>
#include <optional>

#include "corvinel/classic_numbers.h"
#include "numeric/best.h"
#include "numeric/classic_field.h"
#include "numeric/fixed_point.h"

namespace {

using corvinel::numeric::PositionalText;

// The COMMA text in `room` bytes: grouped with every decimal asked for; then
// without the commas, dropping decimals one at a time.
std::optional<PositionalText> comma_text(double value, int32_t decimals, int64_t room) {
  const int64_t places = decimals > 0 ? decimals : 0;
  if (auto grouped = corvinel::numeric::fixed_text(value, places, true, room)) return grouped;
  return corvinel::numeric::fit_decimals(value, places, false, room);
}

}  // namespace

extern "C" {

int32_t zfmcma(fmtreq *request) {
  using namespace corvinel::numeric;
  const OpenedRequest opened = open_request(request, MissingMark::kDecimalsPlace);
  if (!opened.render) return opened.result;
  if (auto text = comma_text(opened.value, request->decimals, request->width)) {
    return place_text(request, *text);
  }
  return render_best(request, opened.value);
}

int32_t zfmdlr(fmtreq *request) {
  using namespace corvinel::numeric;
  const OpenedRequest opened = open_request(request, MissingMark::kDecimalsPlace);
  if (!opened.render) return opened.result;
  // The "$" stays while the COMMA text fits beside it; BEST goes without.
  if (auto text = comma_text(opened.value, request->decimals, request->width - 1)) {
    place_text(request, *text);
    request->output[request->width - text->length() - 1] = '$';
    return CORVINEL_OK;
  }
  return render_best(request, opened.value);
}

}  // extern "C"

// COMMA (zfmcma) and DOLLAR (zfmdlr): w.d with "," between groups of three
// integer digits, DOLLAR with a "$" in front ("$-1,234.57").
#include <cstdint>

#include "corvinel/classic_numbers.h"
#include "numeric/best.h"
#include "numeric/classic_field.h"
#include "numeric/fixed_point.h"

extern "C" {

int32_t zfmcma(fmtreq *request) {
  using namespace corvinel::numeric;
  const OpenedRequest opened = open_request(request, MissingMark::kDecimalsPlace);
  if (!opened.render) return opened.result;
  if (auto text = fit_grouped(opened.value, request->decimals, request->width)) {
    return place_text(request, *text);
  }
  return render_best(request, opened.value);
}

int32_t zfmdlr(fmtreq *request) {
  using namespace corvinel::numeric;
  const OpenedRequest opened = open_request(request, MissingMark::kDecimalsPlace);
  if (!opened.render) return opened.result;
  // The "$" stays while the COMMA text fits beside it; BEST goes without.
  if (auto text = fit_grouped(opened.value, request->decimals, request->width - 1)) {
    place_text(request, *text);
    request->output[request->width - text->length() - 1] = '$';
    return CORVINEL_OK;
  }
  return render_best(request, opened.value);
}

}  // extern "C"

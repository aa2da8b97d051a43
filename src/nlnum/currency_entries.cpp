// The 80 currency-code formats: each hands its request to nlmnyint or
// nlmnyloc with its currency's record of lconv_monetary.
#include "corvinel/currency.h"
#include "corvinel/formats.h"
#include "frame/currency_format_list.h"
#include "locale/currency_index.h"

using corvinel::locale::currency_record;

#define CORVINEL_CURRENCY_ENTRIES(CODE, code, decimals)             \
  int32_t nlmni##code(fmtreq *request) {                            \
    return nlmnyint(request, currency_record(#CODE));               \
  }                                                                 \
  int32_t nlmnl##code(fmtreq *request) {                            \
    return nlmnyloc(request, currency_record(#CODE));               \
  }

extern "C" {
CORVINEL_CURRENCY_FORMATS(CORVINEL_CURRENCY_ENTRIES)
}  // extern "C"

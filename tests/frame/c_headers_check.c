/* The public headers as a C host includes them: this file only has to
   compile. */
#include "corvinel/currency.h"
#include "corvinel/export.h"
#include "corvinel/fmtinfo.h"
#include "corvinel/fmtreq.h"
#include "corvinel/formats.h"
#include "corvinel/missing.h"
#include "corvinel/rounding.h"
#include "corvinel/text.h"

const struct fmtinfo *(*const corvinel_c_entry)(void) = corvinel;
const fmt_render_fn corvinel_c_formats[] = {nlnum, nldfmt, nltimeap, nlmniusd, nlmnlzar};

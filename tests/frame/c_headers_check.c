/* The public headers as a C host includes them: this file only has to
   compile. */
#include "corvinel/calendar.h"
#include "corvinel/classic_dates.h"
#include "corvinel/classic_numbers.h"
#include "corvinel/currency.h"
#include "corvinel/ebcdic.h"
#include "corvinel/export.h"
#include "corvinel/fmtinfo.h"
#include "corvinel/fmtreq.h"
#include "corvinel/formats.h"
#include "corvinel/locale_db.h"
#include "corvinel/missing.h"
#include "corvinel/names.h"
#include "corvinel/rounding.h"
#include "corvinel/text.h"
#include "corvinel/transcode.h"
#include "corvinel/unicode.h"
#include "corvinel/version.h"
#include "corvinel/weeks.h"
#include "corvinel/zone_offset.h"

const struct fmtinfo *(*const corvinel_c_entry)(void) = corvinel;
const fmt_render_fn corvinel_c_formats[] = {nlnum, nldfmt, nltimeap, nlmniusd, nlmnlzar};

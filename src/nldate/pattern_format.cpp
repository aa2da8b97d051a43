#include "nldate/pattern_format.h"

#include "nldate/date_frame.h"

namespace corvinel::nldate {
namespace {

// A present value in range: for each number of fraction digits from
// `decimals` down to 0 the first pattern, then the second, then the fallback,
// each kept when output expansion says it fits.  Not built yet: the field
// shows "*".
int32_t render_with_locale_patterns(fmtreq &request, const PatternFormat & /*format*/,
                                    double /*value*/) {
  return frame::fill_stars(request);
}

}  // namespace

int32_t pattern_format_frame(fmtreq *request, const PatternFormat &format) {
  const double value = frame::read_value(*request);
  if (auto settled = settle_before_rendering(*request, format.limits, format.kind, value)) {
    return *settled;
  }
  return render_with_locale_patterns(*request, format, value);
}

}  // namespace corvinel::nldate

#include "nldate/pattern_format.h"

#include "nldate/date_value.h"

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
  fmtreq &r = *request;
  if (const int32_t code = frame::check_limits(r, format.limits)) return code;
  const double value = frame::read_value(r);
  if (frame::is_missing(value)) return frame::render_missing_at_right_edge(r);
  if (!in_valid_range(format.kind, value) || !frame::field_fits_buffer(r)) {
    return frame::fill_stars(r);
  }
  return render_with_locale_patterns(r, format, value);
}

}  // namespace corvinel::nldate

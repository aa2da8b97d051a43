#include "nldate/date_frame.h"

#include <cmath>

namespace corvinel::nldate {

std::optional<int32_t> settle_in_detail(fmtreq &request, const frame::Limits &limits,
                                        ValueKind kind, double value) {
  if (const int32_t code = frame::check_limits(request, limits)) return code;
  // Missing values are NaNs: a number in its kind's range is present, and
  // only the field's place in its buffer is left to check.
  if (!std::isnan(value) && in_valid_range(kind, value)) {
    if (frame::field_fits_buffer(request)) return std::nullopt;
    return frame::fill_stars(request);
  }
  if (frame::is_missing(value)) return frame::render_missing_at_right_edge(request);
  if (!in_valid_range(kind, value) || !frame::field_fits_buffer(request)) {
    return frame::fill_stars(request);
  }
  return std::nullopt;
}

}  // namespace corvinel::nldate

#include "nldate/date_frame.h"

namespace corvinel::nldate {

std::optional<int32_t> settle_before_rendering(fmtreq &request, const frame::Limits &limits,
                                               ValueKind kind, double value) {
  if (const int32_t code = frame::check_limits(request, limits)) return code;
  if (frame::is_missing(value)) return frame::render_missing_at_right_edge(request);
  if (!in_valid_range(kind, value) || !frame::field_fits_buffer(request)) {
    return frame::fill_stars(request);
  }
  return std::nullopt;
}

}  // namespace corvinel::nldate

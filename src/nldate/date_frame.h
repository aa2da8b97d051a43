// The steps the date, datetime and time formats share before rendering.
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>

#include "corvinel/fmtreq.h"
#include "frame/format_frame.h"
#include "nldate/date_value.h"

namespace corvinel::nldate {

// The limit check, a missing value (its mark at the right edge, as for
// decimals 0), a value outside its kind's range ("*") and a field that does
// not fit its buffer ("*"): the result when one of them settles the request,
// nothing when the value is to be rendered.
std::optional<int32_t> settle_in_detail(fmtreq &request, const frame::Limits &limits,
                                        ValueKind kind, double value);

// The common request, unchecked with a value in range in a field inside its
// buffer, told in line.
inline std::optional<int32_t> settle_before_rendering(fmtreq &request,
                                                      const frame::Limits &limits, ValueKind kind,
                                                      double value) {
  // Missing values are NaNs, which no range holds but a time's.
  if ((request.flags & FMTREQ_CHECK_LIMITS) == 0 && !std::isnan(value) &&
      in_valid_range(kind, value) && frame::field_fits_buffer(request)) {
    return std::nullopt;
  }
  return settle_in_detail(request, limits, kind, value);
}

}  // namespace corvinel::nldate

// The steps the date, datetime and time formats share before rendering.
#pragma once

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
std::optional<int32_t> settle_before_rendering(fmtreq &request, const frame::Limits &limits,
                                               ValueKind kind, double value);

}  // namespace corvinel::nldate

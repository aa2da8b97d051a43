// BEST: the most precise text of a value that fits a width.
#pragma once

#include <cstdint>
#include <optional>

#include "corvinel/fmtreq.h"
#include "numeric/number_text.h"

namespace corvinel::numeric {

// The BEST text of a finite value in `width` bytes, or nullopt when nothing
// fits (then the field shows "*").
std::optional<NumberText> best_text(double value, int64_t width);

// Writes BEST of `value` into the request's blank field, or "*".
int32_t render_best(fmtreq *request, double value);

}  // namespace corvinel::numeric

// w.d: a number with a fixed count of decimals, and the fitting by fewer
// decimals that COMMA, DOLLAR, PERCENT and PVALUE share.
#pragma once

#include <cstdint>
#include <optional>

#include "numeric/number_text.h"

namespace corvinel::numeric {

// The text of `value` rounded to `decimals` places (at least 0) when it fits
// `room` bytes: with the leading zero of a value below 1, or without it when
// only that makes it fit.
std::optional<PositionalText> fixed_text(double value, int64_t decimals, bool grouped,
                                         int64_t room);

// The largest count of decimals, at most `decimals` and at least 0, whose
// text might fit `room` bytes; every larger count is sure not to.  Fitting
// starts there, so that a huge width or decimals count costs no more than a
// small one.
int64_t widest_decimals(double value, int64_t decimals, int64_t room);

// fixed_text with `decimals` places, then one fewer at a time down to 0.
std::optional<PositionalText> fit_decimals(double value, int64_t decimals, bool grouped,
                                           int64_t room);

// The text of COMMA and PERCENT in `room` bytes: grouped with every decimal
// asked for (at least 0); then without the commas, dropping decimals one at
// a time.
std::optional<PositionalText> fit_grouped(double value, int64_t decimals, int64_t room);

}  // namespace corvinel::numeric

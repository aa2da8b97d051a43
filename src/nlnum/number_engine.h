// zkfnum, the locale number engine: a double in the number, currency or
// percent convention of the request's locale, fitted into the field by
// dropping the group separators, then decimals, then by exponent notation
// in a narrowing field, and at the end by a field of "*".
#pragma once

#include <cstdint>

#include "corvinel/fmtreq.h"

namespace corvinel::nlnum {

// zkfnum returns this when the locale's convention could not be fetched;
// nothing is written and the caller renders with its classic format.
inline constexpr int32_t kNoConvention = -1;

// The widest field the engine fills; wider requests get 32 "*".
inline constexpr int32_t kWidestNumberField = 32;

// Renders the request's value in the convention of locale item `item`
// (170, 171, 183..186, as wzssglc fetches it for the request's locale) into
// `output` with field width `width`; callers pass the request's own output
// and width, and mode 0 (another mode or item has no convention to use:
// kNoConvention).
//   - width 0 or below: nothing is written, 0;
//   - width above 32: the request's width becomes 32 and the field 32 "*"
//     (deliberate: the field never grows past 32; the width stays changed);
//   - a missing value: its mark at the right edge;
//   - a NaN that is not a missing value, or an infinity, is shown as printf
//     writes it ("inf", "nan") in the locale's layout;
//   - decimals below 0 count as 0; `decimals` is left as it was.
// Returns 0 or kNoConvention.  Needs width <= capacity.
int32_t zkfnum(char *output, int32_t width, int32_t mode, int32_t item, fmtreq *request);

// zkfnum in mode 0 for `value`, which stands in for the request's value
// (that is not read): the number formats hand the engine a value they have
// already read, scaled for the percent formats.
int32_t zkfnum_value(char *output, int32_t width, int32_t item, fmtreq *request, double value);

// zkfnum as first written, with the convention from wzssglc and the digit
// texts of snprintf and localeconv: the reference the tests compare zkfnum
// with.
int32_t zkfnum_reference(char *output, int32_t width, int32_t mode, int32_t item,
                         fmtreq *request);

}  // namespace corvinel::nlnum

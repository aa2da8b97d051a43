// Where a value's sign, currency symbol and number stand: the twenty layouts
// of CurrencyFormatPatterns, chosen by the POSIX-style selectors
// cs_precedes, sep_by_space and sign_posn of a locale's convention.
#pragma once

#include <cstdint>

namespace corvinel::nlnum {

// The layout for one set of selectors.  In a layout "V" stands for the
// number, "$" for the symbol, "-" for the sign string, "(" and ")" for
// brackets (written for negative values only) and a blank for a blank.
//
// The table knows cs_precedes and sep_by_space 0 or 1 and sign_posn 0 to 4.
// Other values are read as follows (deliberate, so that every convention of
// the locale data lands on a layout):
//   - cs_precedes other than 0 counts as 1 (the symbol precedes);
//   - sep_by_space other than 0 counts as 1: the value 2 of nine records
//     (Danish, Dutch, Kazakh, Thai, ...) asks for a blank between symbol and
//     sign or between sign and number, which the layouts with a blank
//     between symbol and number come closest to ("kr. -1.234,56");
//   - sign_posn outside 0..4 counts as 1 (sign before number and symbol).
const char *layout_for(int32_t cs_precedes, int32_t sep_by_space, int32_t sign_posn);

}  // namespace corvinel::nlnum

// expand: the date pattern expander every locale-aware date, datetime and
// time format renders through.  A strftime-like pattern (a locale item or a
// format's own text) becomes a narrow text with the locale's names, still in
// the symbolic "<Uxxxx>" notation, placed in a blank-filled field.
#pragma once

#include <cstdint>

namespace corvinel::nldate {

// Results of expand besides the length asked for with a null output.
inline constexpr int32_t kExpandFits = 0;               // *field_width holds the length
inline constexpr int32_t kExpandTooLong = 1;            // the field holds the text's first bytes
inline constexpr int32_t kExpandUnknownDirective = -2;  // nothing written

// Expands `pattern` (pattern_length bytes, not NUL-terminated) for the
// value split into its parts: a day number and hour, minute and second,
// each of which may be the missing value.  `locale` is passed to every item
// lookup (1..136 a record, else ORB_LOCALE).  A null `output` asks only for
// the length of the text.  *field_width is the field's width; negative
// asks for right alignment in a field of the absolute width.
int32_t expand(int32_t locale, const char *pattern, int32_t pattern_length, char *output,
               int32_t *field_width, int32_t fraction_digits, double date, double hour,
               double minute, double second);

}  // namespace corvinel::nldate

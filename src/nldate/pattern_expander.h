// expand: the date pattern expander every locale-aware date, datetime and
// time format renders through.  A strftime-like pattern (a locale item or a
// format's own text) becomes a narrow text with the locale's names, still in
// the symbolic "<Uxxxx>" notation, placed in a blank-filled field.
#pragma once

#include <cstdint>

struct locitem;

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

// expand with the locale record already chosen: `record` is what
// locale::select_record(locale) gave (null when it found none).  The entry
// routines choose it once for the pattern item and the names alike.  The
// pattern is compiled for the record once per thread (compiled_pattern.h)
// and interpreted only when the compiled form declines.
int32_t expand_in_record(const locitem *record, const char *pattern, int32_t pattern_length,
                         char *output, int32_t *field_width, int32_t fraction_digits,
                         double date, double hour, double minute, double second);

}  // namespace corvinel::nldate

namespace corvinel::nldate {

// Bounds of the expander's stack work areas.  The pattern after the
// substitution of "%x" and "%X" must fit kPatternBound bytes, else the
// pattern is refused like one with an unknown directive (-2, nothing
// written).  The text is kept up to kTextBound bytes and counted beyond:
// a null output still gets the full length, a field narrower than the
// bound still gets its first bytes (result 1), and only a field wider than
// the bound for a text longer than it is refused (-2).  Every locale item
// is shorter than 160 bytes, so locale patterns stay far inside both.
// More than kTextBound fraction digits count as kTextBound.
inline constexpr int32_t kPatternBound = 1024;
inline constexpr int32_t kTextBound = 4096;

// expand_in_record walking the pattern on every call, items read in place,
// without the compiled patterns.
int32_t expand_interpreted(const locitem *record, const char *pattern, int32_t pattern_length,
                           char *output, int32_t *field_width, int32_t fraction_digits,
                           double date, double hour, double minute, double second);

// expand with every locale item fetched through wzssglc into an item
// buffer: the straightforward path the tests compare expand with.
int32_t expand_reference(int32_t locale, const char *pattern, int32_t pattern_length,
                         char *output, int32_t *field_width, int32_t fraction_digits, double date,
                         double hour, double minute, double second);

}  // namespace corvinel::nldate

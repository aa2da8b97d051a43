// zkfdate, zkfdttm and zkftime: the entry routines through which every
// locale-aware date, datetime and time format reaches the pattern expander.
// Each takes a pattern text or a locale item, splits its value into the
// parts the expander needs and calls expand.
#pragma once

#include <cstdint>

namespace corvinel::nldate {

// The work area every format expands into (passed as the field width).
inline constexpr int32_t kWorkAreaSize = 320;

// Results besides those of expand.
inline constexpr int32_t kItemNotFetched = -1;  // the pattern item could not be fetched
inline constexpr int32_t kValueRejected = -3;   // missing or outside the valid range

// Selector bits (zkfdttm and zkftime read the item from the low 8 bits).
inline constexpr int32_t kSelectorItemMask = 0xFF;
inline constexpr int32_t kAppendZoneOffset = 256;  // " %z" follows the item's text
inline constexpr int32_t kSelectorMark = 4096;     // carried, not read

// With `pattern` null and selector >= 1 the selector names the locale item
// whose text is the pattern; otherwise `pattern` holds `selector` bytes.
int32_t zkfdate(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, double date);
// The datetime is rounded to `fraction_digits` places before it is split.
int32_t zkfdttm(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, int32_t fraction_digits, double datetime);
// A negative time is rejected; the hour is not reduced modulo 24.
int32_t zkftime(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, int32_t fraction_digits, double time);

}  // namespace corvinel::nldate

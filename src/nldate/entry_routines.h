// zkfdate, zkfdttm and zkftime: the entry routines through which every
// locale-aware date, datetime and time format reaches the pattern expander.
// Each takes a pattern text or a locale item, splits its value into the
// parts the expander needs and calls expand.
#pragma once

#include <cmath>
#include <cstdint>
#include <string_view>

#include "corvinel/locale_db.h"
#include "corvinel/rounding.h"
#include "nldate/date_value.h"

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

// The value rounded to `digits` fraction digits, a unit of 1/10^digits, as
// zround rounds it.  A whole value at no digits is its own result (zero
// becomes +0, as in zround), known without the call: every date, datetime
// and time the host keeps in whole seconds.
inline double rounded_to_digits(double value, int32_t digits) noexcept {
  if (digits == 0 && std::fabs(value) < 0x1p51 &&
      static_cast<double>(static_cast<int64_t>(value)) == value) {
    return value == 0 ? 0.0 : value;
  }
  double result = value;
  zround(&result, value, zpow10(-digits));
  return result;
}

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

// What an entry routine does before it expands: the pattern taken from the
// caller or from an item of `record` (with the zone suffix when the
// selector asks for it) and the value split into the expander's parts.
// The formats prepare once per attempt and then expand or lay the text
// straight into their field.
class EntryExpansion {
 public:
  EntryExpansion() = default;
  EntryExpansion(const EntryExpansion &) = delete;  // the pattern may point into it
  EntryExpansion &operator=(const EntryExpansion &) = delete;

  // zkfdate (kind Date), zkfdttm (Datetime) or zkftime (Time) up to the
  // call of expand: 0 when the parts are ready, else the routine's result
  // (kItemNotFetched, kValueRejected).
  int32_t prepare(ValueKind kind, const locitem *record, const char *pattern, int32_t selector,
                  int32_t fraction_digits, double value) noexcept;

  // expand with the prepared parts.
  int32_t expand(char *buffer, int32_t *field_width) const noexcept;

  const locitem *record() const noexcept { return record_; }
  const char *pattern() const noexcept { return pattern_; }
  int32_t pattern_length() const noexcept { return length_; }
  // The pattern is a compiled-in item text as it stands (no suffix added).
  bool pattern_is_item() const noexcept { return pattern_is_item_; }
  int32_t fraction_digits() const noexcept { return digits_; }
  double date() const noexcept { return date_; }
  double hour() const noexcept { return hour_; }
  double minute() const noexcept { return minute_; }
  double second() const noexcept { return second_; }

 private:
  bool take_pattern(const locitem *record, const char *pattern, int32_t selector,
                    int32_t item_mask) noexcept;

  static constexpr std::string_view kZoneSuffix = " %z";
  const locitem *record_ = nullptr;
  const char *pattern_ = nullptr;
  int32_t length_ = 0;
  bool pattern_is_item_ = false;
  int32_t digits_ = 0;
  double date_ = 0, hour_ = 0, minute_ = 0, second_ = 0;
  char with_suffix_[CORVINEL_LOCALE_TEXT + kZoneSuffix.size()];
};

}  // namespace corvinel::nldate

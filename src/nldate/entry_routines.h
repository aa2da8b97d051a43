// zkfdate, zkfdttm and zkftime: the entry routines through which every
// locale-aware date, datetime and time format reaches the pattern expander.
// Each takes a pattern text or a locale item, splits its value into the
// parts the expander needs and calls expand.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "calendar/time_split.h"
#include "corvinel/locale_db.h"
#include "corvinel/missing.h"
#include "corvinel/rounding.h"
#include "locale/locale_records.h"
#include "nldate/date_value.h"
#include "nldate/fraction_rounding.h"

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
  // A datetime or time is rounded to its fraction digits first (see
  // fraction_rounding.h); one that rounds past the end of the valid range
  // is rejected like any value outside it.
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
  // The seconds into the day, when the value split as a whole count of
  // seconds whose hour, minute and second are those of that time of day
  // (the parts above as integers); -1 otherwise.
  int32_t whole_clock() const noexcept { return whole_clock_; }

 private:
  // split_seconds, noting the seconds into the day of a whole count.
  calendar::ClockParts split_noting_clock(double seconds) noexcept {
    uint32_t count;
    if (!calendar::whole_count_below_2_32(seconds, count)) {
      return calendar::split_other_seconds(seconds);
    }
    whole_clock_ = static_cast<int32_t>(count % 86400);
    return calendar::split_count(count);
  }
  // A value that needs no rounding at any number of digits: a whole number
  // (the seconds the host usually keeps), or one too large to hold a
  // fraction, or not finite.
  static bool is_whole(double value) noexcept {
    return !(std::fabs(value) < 0x1p52) ||
           static_cast<double>(static_cast<int64_t>(value)) == value;
  }
  // Hour (not reduced modulo 24), minute and second of a rounded count of
  // seconds, with its fraction.
  void set_clock(int64_t seconds, uint64_t units, int32_t digits) noexcept {
    hour_ = static_cast<double>(seconds / 3600);
    minute_ = static_cast<double>(seconds / 60 % 60);
    second_ = second_with_fraction(seconds % 60, units, digits);
  }
  bool take_pattern(const locitem *record, const char *pattern, int32_t selector,
                    int32_t item_mask) noexcept;

  static constexpr std::string_view kZoneSuffix = " %z";
  const locitem *record_ = nullptr;
  const char *pattern_ = nullptr;
  int32_t length_ = 0;
  bool pattern_is_item_ = false;
  int32_t digits_ = 0;
  double date_ = 0, hour_ = 0, minute_ = 0, second_ = 0;
  int32_t whole_clock_ = -1;
  char with_suffix_[CORVINEL_LOCALE_TEXT + kZoneSuffix.size()];
};

// Fraction digits beyond the work area cannot show in any format's text (it
// would be longer than the work area), so more are not worth computing.
inline int32_t clamp_digits(int32_t digits) noexcept {
  return digits < 0 ? 0 : (digits > kWorkAreaSize ? kWorkAreaSize : digits);
}

// Items are read in place from the compiled-in record, as wzssglc would
// fetch them: false when the item cannot be fetched.
[[gnu::always_inline]] inline bool EntryExpansion::take_pattern(const locitem *record,
                                                                const char *pattern,
                                                                int32_t selector,
                                                                int32_t item_mask) noexcept {
  record_ = record;
  pattern_is_item_ = false;
  if (pattern != nullptr || selector < 1) {
    pattern_ = pattern;
    length_ = pattern != nullptr && selector > 0 ? selector : 0;
    return true;
  }
  const int32_t item = selector & item_mask;
  if (record == nullptr || item >= CORVINEL_LOCALE_ITEMS) return false;
  const locitem &entry = record[item];
  if (entry.length > CORVINEL_LOCALE_TEXT) return false;
  pattern_ = entry.text;
  length_ = entry.text != nullptr && entry.length > 0 ? entry.length : 0;
  pattern_is_item_ = true;
  if ((selector & kAppendZoneOffset) != 0) {
    pattern_is_item_ = false;
    // An empty item may have no text at all: nothing to copy then.
    if (length_ > 0) std::memcpy(with_suffix_, pattern_, static_cast<std::size_t>(length_));
    std::memcpy(with_suffix_ + length_, kZoneSuffix.data(), kZoneSuffix.size());
    pattern_ = with_suffix_;
    length_ += static_cast<int32_t>(kZoneSuffix.size());
  }
  return true;
}

[[gnu::always_inline]] inline int32_t EntryExpansion::prepare(ValueKind kind, const locitem *record,
                                                              const char *pattern, int32_t selector,
                                                              int32_t fraction_digits,
                                                              double value) noexcept {
  // zkfdate takes the whole selector as the item, the others its low 8 bits.
  const int32_t item_mask = kind == ValueKind::Date ? ~0 : kSelectorItemMask;
  if (!take_pattern(record, pattern, selector, item_mask)) return kItemNotFetched;
  whole_clock_ = -1;
  switch (kind) {
    case ValueKind::Date:
      // Missing values, like every NaN, lie outside the valid range.
      if (!in_valid_range(kind, value)) return kValueRejected;
      digits_ = 0;
      date_ = value;
      hour_ = minute_ = second_ = std_miss_val;
      return 0;
    case ValueKind::Datetime: {
      if (!in_valid_range(kind, value)) return kValueRejected;
      digits_ = clamp_digits(fraction_digits);
      if (is_whole(value)) {
        const calendar::ClockParts parts = split_noting_clock(value == 0 ? 0.0 : value);
        date_ = parts.date;
        hour_ = parts.hour;
        minute_ = parts.minute;
        second_ = parts.second;
        return 0;
      }
      const int32_t exact = std::min(digits_, kExactFractionDigits);
      const RoundedSeconds rounded = round_seconds(value, exact);
      // Rounded up past the last second of the range: out of range too.
      if (rounded.seconds >= static_cast<int64_t>(kEndDatetime)) return kValueRejected;
      const DaySplit split = split_days(rounded.seconds);
      if (rounded.units == 0 && split.day >= 0) whole_clock_ = static_cast<int32_t>(split.into_day);
      date_ = static_cast<double>(split.day);
      set_clock(split.into_day, rounded.units, exact);
      return 0;
    }
    case ValueKind::Time: {
      if (std::isnan(value) || value < 0) return kValueRejected;  // missing values are NaNs
      digits_ = clamp_digits(fraction_digits);
      date_ = std_miss_val;
      if (is_whole(value)) {
        const calendar::ClockParts parts = split_noting_clock(value);
        // The hour is deliberately not reduced modulo 24; within the first
        // day it is the split's (the value is its own remainder by the
        // day), and only there is the time its own time of day.
        if (value >= 86400) whole_clock_ = -1;
        hour_ = value < 86400 ? parts.hour : std::trunc(value / 3600);
        minute_ = parts.minute;
        second_ = parts.second;
        return 0;
      }
      const int32_t exact = std::min(digits_, kExactFractionDigits);
      const RoundedSeconds rounded = round_seconds(value, exact);
      if (rounded.units == 0 && rounded.seconds < 86400) {
        whole_clock_ = static_cast<int32_t>(rounded.seconds);
      }
      set_clock(rounded.seconds, rounded.units, exact);
      return 0;
    }
  }
  return kValueRejected;
}

}  // namespace corvinel::nldate

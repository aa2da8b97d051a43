// zkfdate, zkfdttm, zkftime: from a format's value and pattern (or locale
// item) to the parts the expander takes.
#include "nldate/entry_routines.h"

#include <cmath>
#include <cstring>

#include "calendar/time_split.h"
#include "corvinel/calendar.h"
#include "corvinel/missing.h"
#include "corvinel/rounding.h"
#include "locale/locale_records.h"
#include "nldate/pattern_expander.h"

namespace corvinel::nldate {
namespace {

// Fraction digits beyond the work area cannot show in any format's text (it
// would be longer than the work area), so more are not worth computing.
int32_t clamp_digits(int32_t digits) {
  return digits < 0 ? 0 : (digits > kWorkAreaSize ? kWorkAreaSize : digits);
}

}  // namespace

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

int32_t EntryExpansion::prepare(ValueKind kind, const locitem *record, const char *pattern,
                                int32_t selector, int32_t fraction_digits, double value) noexcept {
  // zkfdate takes the whole selector as the item, the others its low 8 bits.
  const int32_t item_mask = kind == ValueKind::Date ? ~0 : kSelectorItemMask;
  if (!take_pattern(record, pattern, selector, item_mask)) return kItemNotFetched;
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
      const calendar::ClockParts parts = calendar::split_seconds(rounded_to_digits(value, digits_));
      date_ = parts.date;
      hour_ = parts.hour;
      minute_ = parts.minute;
      second_ = parts.second;
      return 0;
    }
    case ValueKind::Time: {
      if (std::isnan(value) || value < 0) return kValueRejected;  // missing values are NaNs
      digits_ = clamp_digits(fraction_digits);
      const double v = rounded_to_digits(value, digits_);
      date_ = std_miss_val;
      const calendar::ClockParts parts = calendar::split_seconds(v);
      // The hour is deliberately not reduced modulo 24; within the first
      // day it is the split's (v is its own remainder by the day).
      hour_ = v < 86400 ? parts.hour : std::trunc(std::fabs(v / 3600));
      minute_ = parts.minute;
      second_ = parts.second;
      return 0;
    }
  }
  return kValueRejected;
}

int32_t EntryExpansion::expand(char *buffer, int32_t *field_width) const noexcept {
  return expand_in_record(record_, pattern_, length_, buffer, field_width, digits_, date_, hour_,
                          minute_, second_);
}

namespace {

int32_t enter(ValueKind kind, int32_t locale, char *buffer, int32_t *field_width,
              const char *pattern, int32_t selector, int32_t fraction_digits, double value) {
  EntryExpansion entry;
  const int32_t prepared =
      entry.prepare(kind, locale::select_record(locale), pattern, selector, fraction_digits, value);
  return prepared != 0 ? prepared : entry.expand(buffer, field_width);
}

}  // namespace

int32_t zkfdate(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, double date) {
  return enter(ValueKind::Date, locale, buffer, field_width, pattern, selector, 0, date);
}

int32_t zkfdttm(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, int32_t fraction_digits, double datetime) {
  return enter(ValueKind::Datetime, locale, buffer, field_width, pattern, selector,
               fraction_digits, datetime);
}

int32_t zkftime(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, int32_t fraction_digits, double time) {
  return enter(ValueKind::Time, locale, buffer, field_width, pattern, selector, fraction_digits,
               time);
}

}  // namespace corvinel::nldate

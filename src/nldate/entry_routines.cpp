// zkfdate, zkfdttm, zkftime: from a format's value and pattern (or locale
// item) to the parts the expander takes.
#include "nldate/entry_routines.h"

#include <cmath>
#include <cstring>
#include <string_view>

#include "corvinel/calendar.h"
#include "corvinel/locale_db.h"
#include "corvinel/missing.h"
#include "corvinel/rounding.h"
#include "locale/locale_records.h"
#include "nldate/date_value.h"
#include "nldate/pattern_expander.h"

namespace corvinel::nldate {
namespace {

// The suffix that asks the expander for the zone offset.
constexpr std::string_view kZoneSuffix = " %z";

// A pattern taken from the caller or from a locale item, with room for the
// zone suffix.  Items are read in place from the compiled-in record, as
// wzssglc would fetch them.  The record is chosen once per call and serves
// the expander's names too.
class Pattern {
 public:
  // False when the item cannot be fetched.
  bool take(int32_t locale, const char *pattern, int32_t selector, int32_t item_mask) noexcept {
    record_ = locale::select_record(locale);
    if (pattern != nullptr || selector < 1) {
      text_ = pattern;
      length_ = pattern != nullptr && selector > 0 ? selector : 0;
      return true;
    }
    const locitem *record = record_;
    const int32_t item = selector & item_mask;
    if (record == nullptr || item >= CORVINEL_LOCALE_ITEMS) return false;
    const locitem &entry = record[item];
    if (entry.length > CORVINEL_LOCALE_TEXT) return false;
    text_ = entry.text;
    length_ = entry.text != nullptr ? entry.length : 0;
    if ((selector & kAppendZoneOffset) != 0) {
      std::memcpy(with_suffix_, text_, static_cast<std::size_t>(length_));
      std::memcpy(with_suffix_ + length_, kZoneSuffix.data(), kZoneSuffix.size());
      text_ = with_suffix_;
      length_ += static_cast<int32_t>(kZoneSuffix.size());
    }
    return true;
  }

  const locitem *record() const noexcept { return record_; }
  const char *text() const noexcept { return text_; }
  int32_t length() const noexcept { return length_; }

 private:
  const locitem *record_ = nullptr;
  const char *text_ = nullptr;
  int32_t length_ = 0;
  char with_suffix_[CORVINEL_LOCALE_TEXT + kZoneSuffix.size()];
};

// The value rounded to `digits` fraction digits (a unit of 1/10^digits).
double rounded(double value, int32_t digits) {
  double result = value;
  zround(&result, value, zpow10(-digits));
  return result;
}

// Fraction digits beyond the work area cannot show in any format's text (it
// would be longer than the work area), so more are not worth computing.
int32_t clamp_digits(int32_t digits) {
  return digits < 0 ? 0 : (digits > kWorkAreaSize ? kWorkAreaSize : digits);
}

}  // namespace

int32_t zkfdate(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, double date) {
  Pattern p;
  if (!p.take(locale, pattern, selector, ~0)) return kItemNotFetched;
  if (zmiss(date) || !in_valid_range(ValueKind::Date, date)) return kValueRejected;
  return expand_in_record(p.record(), p.text(), p.length(), buffer, field_width, 0, date,
                          std_miss_val, std_miss_val, std_miss_val);
}

int32_t zkfdttm(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, int32_t fraction_digits, double datetime) {
  Pattern p;
  if (!p.take(locale, pattern, selector, kSelectorItemMask)) return kItemNotFetched;
  if (zmiss(datetime) || !in_valid_range(ValueKind::Datetime, datetime)) return kValueRejected;
  const int32_t digits = clamp_digits(fraction_digits);
  const double value = rounded(datetime, digits);
  return expand_in_record(p.record(), p.text(), p.length(), buffer, field_width, digits,
                          zdatprt(value), zhour(value), zminute(value), zsecond(value));
}

int32_t zkftime(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, int32_t fraction_digits, double time) {
  Pattern p;
  if (!p.take(locale, pattern, selector, kSelectorItemMask)) return kItemNotFetched;
  if (zmiss(time) || std::isnan(time) || time < 0) return kValueRejected;
  const int32_t digits = clamp_digits(fraction_digits);
  const double value = rounded(time, digits);
  // The hour is deliberately not reduced modulo 24.
  const double hour = std::trunc(std::fabs(value / 3600));
  return expand_in_record(p.record(), p.text(), p.length(), buffer, field_width, digits,
                          std_miss_val, hour, zminute(value), zsecond(value));
}

}  // namespace corvinel::nldate

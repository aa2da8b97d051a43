// The date pattern expander: one walk over the pattern, one case per
// directive, every piece written into a bounded text on the stack.
#include "nldate/pattern_expander.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <ctime>
#include <optional>
#include <string_view>

#include "corvinel/calendar.h"
#include "corvinel/locale_db.h"
#include "corvinel/missing.h"
#include "corvinel/text.h"
#include "corvinel/weeks.h"
#include "locale/locale_records.h"
#include "nldate/week_numbering.h"

namespace corvinel::nldate {
namespace {

// Locale items the expander reads.
constexpr int32_t kRegionCode = 5;
constexpr int32_t kDateRepresentation = 28;
constexpr int32_t kTimeRepresentation = 53;
constexpr int32_t kMonthAbbreviated = 59;
constexpr int32_t kMonthFull = 71;
constexpr int32_t kMonthAbbreviatedAlternate = 83;
constexpr int32_t kMonthFullAlternate = 95;
constexpr int32_t kWeekdayAbbreviated = 107;
constexpr int32_t kWeekdayFull = 114;
constexpr int32_t kWeekdayAbbreviatedAlternate = 121;
constexpr int32_t kWeekdayFullAlternate = 128;
constexpr int32_t kQuarterShort = 135;
constexpr int32_t kQuarterLong = 139;
constexpr int32_t kQuarterShortAlternate = 143;
constexpr int32_t kQuarterLongAlternate = 147;
constexpr int32_t kMorning = 151;
constexpr int32_t kAfternoon = 152;
constexpr int32_t kDecimalSeparator = 172;

// The eras of the Japanese calendar this expander knows: first day (day
// number) and first calendar year.  It deliberately ends with the era that
// began in 1989; the classic era rendering keeps a longer table of its own.
struct Reign {
  double first_day;
  double first_year;
};
constexpr Reign reigns[4] = {
    {-33506, 1868},  // 6 April 1868
    {-17321, 1912},  // 30 July 1912
    {-12060, 1926},  // 25 December 1926
    {10600, 1989},   // 8 January 1989
};

// Items read in place from the compiled-in record chosen once per call.
// An item can be fetched when there is a record and its text fits an item
// buffer, exactly when wzssglc would fetch it.
class RecordItems {
 public:
  explicit RecordItems(const locitem *record) noexcept : record_(record) {}

  std::optional<std::string_view> get(int32_t item) const noexcept {
    if (record_ == nullptr || item < 0 || item >= CORVINEL_LOCALE_ITEMS) return std::nullopt;
    const locitem &entry = record_[item];
    if (entry.length > CORVINEL_LOCALE_TEXT) return std::nullopt;
    if (entry.length <= 0 || entry.text == nullptr) return std::string_view{};
    return std::string_view{entry.text, static_cast<std::size_t>(entry.length)};
  }

 private:
  const locitem *record_;
};

// Items fetched one by one through wzssglc, as the host's own lookups do.
// A text stays valid until the next get.
class LookupItems {
 public:
  explicit LookupItems(int32_t locale) noexcept : locale_(locale) {}

  std::optional<std::string_view> get(int32_t item) const noexcept {
    locbuf *handle = &buffer_;
    if (wzssglc(locale_, item, &handle) != 0 || buffer_.length < 0) return std::nullopt;
    return std::string_view{buffer_.text, static_cast<std::size_t>(buffer_.length)};
  }

 private:
  int32_t locale_;
  mutable locbuf buffer_{};
};

// The text being built: kept up to kTextBound bytes, counted beyond.
class Text {
 public:
  void put(char c) noexcept {
    if (length_ < kTextBound) bytes_[length_] = c;
    ++length_;
  }
  void put(std::string_view s) noexcept {
    if (length_ < kTextBound) {
      const auto room = static_cast<std::size_t>(kTextBound - length_);
      std::memcpy(bytes_ + length_, s.data(), std::min(room, s.size()));
    }
    length_ += static_cast<int64_t>(s.size());
  }
  void put_blanks(int64_t count) noexcept {
    for (int64_t i = 0; i < count; ++i) put(' ');
  }
  // Digits of a magnitude, as i2s writes them.
  void put_number(uint64_t value, int32_t width, char pad) noexcept {
    char digits[24];
    const int32_t n = write_digits(value, digits, std::min(width, 20), pad);
    put(std::string_view{digits, static_cast<std::size_t>(n)});
  }
  void put_missing() noexcept { put("**"); }

  int64_t length() const noexcept { return length_; }
  const char *bytes() const noexcept { return bytes_; }

 private:
  char bytes_[kTextBound];
  int64_t length_ = 0;
};

// A missing value is a NaN (its top 16 bits are all ones), so one test
// covers the host's missing values and every other NaN.
bool is_missing(double value) noexcept { return std::isnan(value); }

// The integer part of a part of the value as a magnitude for the digit
// writer; infinities and values beyond 64 bits saturate.
uint64_t magnitude(double value) noexcept {
  const double m = std::fabs(std::trunc(value));
  if (!(m < 1.8e19)) return UINT64_MAX;
  return static_cast<uint64_t>(m);
}

int64_t whole(double value) noexcept {
  if (std::isnan(value)) return 0;
  if (value >= 9.2e18) return INT64_MAX;
  if (value <= -9.2e18) return INT64_MIN;
  return static_cast<int64_t>(value);
}

// The parts of the value, derived once per expansion.
struct Parts {
  bool date_present;
  double date;          // the day number; 0 when missing, for the week directives
  int64_t weekday;      // zwekday - 1 (0 = Sunday), -1 when the date is missing
  int64_t day_of_year;  // the julian form modulo 1000, 0 when missing
  double year, month, day;  // missing when the date is
  double hour, minute, second;
  double clock12;  // the 12-hour clock value, 0 when the hour is missing
};

// Year, month, day and day of year of a day number whose year lies before
// 4000, where the calendar is the proleptic Gregorian one: days counted
// from 1 March of year 0 split into 400-year eras (the civil-from-days
// algorithm), in integers, instead of the general routines' floating-point
// steps.  The 4000-year rule starts to matter only in year 4000.
struct CivilDay {
  int64_t year, month, day, day_of_year;
};

constexpr int64_t kDaysFromMarch0ToEpoch = 715815;  // 1 March of year 0 to 1 January 1960
constexpr int64_t kFirstValidDay = -138061;         // 1 January 1582
constexpr int64_t kLastDayBefore4000 = 745094;      // 31 December 3999

CivilDay civil_day(int64_t day_number) noexcept {
  const int64_t days = day_number + kDaysFromMarch0ToEpoch;  // positive in range
  const int64_t era = days / 146097;
  const int64_t day_of_era = days - era * 146097;
  const int64_t year_of_era =
      (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const int64_t day_of_march_year =
      day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const int64_t shifted_month = (5 * day_of_march_year + 2) / 153;  // 0 = March
  CivilDay civil{};
  civil.day = day_of_march_year - (153 * shifted_month + 2) / 5 + 1;
  civil.month = shifted_month < 10 ? shifted_month + 3 : shifted_month - 9;
  civil.year = year_of_era + era * 400 + (civil.month <= 2 ? 1 : 0);
  const bool leap = civil.year % 4 == 0 && (civil.year % 100 != 0 || civil.year % 400 == 0);
  // Day of year from the day of the March-based year: January and February
  // close the March-based year before.
  civil.day_of_year = shifted_month < 10 ? day_of_march_year + 60 + (leap ? 1 : 0)
                                         : day_of_march_year - 305;
  return civil;
}

Parts derive_parts(double date, double hour, double minute, double second) noexcept {
  Parts p{};
  p.year = p.month = p.day = std_miss_val;
  const double day = std::floor(date);
  if (!is_missing(date) && day >= kFirstValidDay && day <= kLastDayBefore4000) {
    const CivilDay civil = civil_day(static_cast<int64_t>(day));
    p.date_present = true;
    p.day_of_year = civil.day_of_year;
    p.year = static_cast<double>(civil.year);
    p.month = static_cast<double>(civil.month);
    p.day = static_cast<double>(civil.day);
  } else {
    const double julian = is_missing(date) ? std_miss_val : zjuldat(date);
    p.date_present = !is_missing(julian);
    p.day_of_year = p.date_present ? whole(std::fmod(julian, 1000.0)) : 0;
    if (p.date_present) zymdjul(&p.year, &p.month, &p.day, julian);
  }
  p.date = p.date_present ? date : 0;
  p.weekday = p.date_present ? whole(zwekday(date)) - 1 : -1;
  p.hour = hour;
  p.minute = minute;
  p.second = second;
  p.clock12 = is_missing(hour) ? 0 : (hour <= 12.0 ? hour : std::fmod(hour, 12.0));
  return p;
}

// The year under the era of the locale's region (the "+" flag).
double era_year(std::string_view region, double year, double date) noexcept {
  if (region == "TW") {
    const double y = year - 1911;
    return y <= 0 ? 1 - y : y;
  }
  if (region == "TH") return year + 543;
  if (region == "JP") {
    for (int i = 3; i >= 0; --i) {
      if (reigns[i].first_day <= date) return year + 1 - reigns[i].first_year;
    }
  }
  return year;
}

// The machine's numeric zone offset now, "+hhmm" or "-hhmm".  tzset first
// so that a changed TZ is seen as localtime itself would see it; then
// localtime_r, not localtime, because localtime's result lives in one
// buffer shared by every thread and formats may run on many threads at
// once.  The offset is the standard one (timezone), an hour added while
// daylight saving is in effect.
void put_zone_offset(Text &out) noexcept {
  tzset();
  const time_t now = time(nullptr);
  struct tm local {};
  const bool daylight_saving = localtime_r(&now, &local) != nullptr && local.tm_isdst > 0;
  const long offset = -timezone;
  const long hours = offset / 3600;
  const long minutes = (std::labs(offset) - std::labs(hours) * 3600) / 60;
  out.put(offset >= 0 ? '+' : '-');
  out.put_number(static_cast<uint64_t>(daylight_saving ? std::labs(hours + 1) : std::labs(hours)),
                 2, '0');
  out.put_number(static_cast<uint64_t>(minutes), 2, '0');
}

// One directive after its "%": the flags read, the letter to handle.
struct Directive {
  char pad;           // '0', or 0 for no padding ("#")
  bool alternate;     // "#": the alternate name sets
  bool lower;         // the lower-case variant
  bool exact_second;  // the letter was written "S"
  char letter;        // upper case; "%m" becomes 'N'
};

template <class Items>
class Expansion {
 public:
  Expansion(const Items &items, const Parts &parts, int32_t fraction_digits) noexcept
      : items_(items), parts_(parts), fraction_digits_(fraction_digits) {}

  // Pass 2 over the work area; false on an unknown directive.
  bool run(const char *work, int32_t length) noexcept {
    for (int32_t i = 0; i < length; ++i) {
      if (work[i] != '%') {
        out_.put(work[i]);
        continue;
      }
      Directive d{'0', false, false, false, 0};
      ++i;
      if (i < length && (work[i] == '#' || work[i] == '0')) {
        if (work[i] == '#') {
          d.pad = 0;
          d.alternate = true;
        }
        ++i;
      }
      if (i < length && work[i] >= '1' && work[i] <= '9') ++i;  // a width, not supported
      if (i < length && work[i] == '+') {
        era_ = true;
        ++i;
      }
      if (i < length && work[i] == '?') {
        d.lower = true;
        ++i;
      }
      if (i >= length) return false;  // a lone "%" at the end
      const char c = work[i];
      d.exact_second = c == 'S';
      if (c >= 'a' && c <= 'z') {
        d.lower = true;
        d.letter = static_cast<char>(c - 'a' + 'A');
      } else {
        d.letter = c;
      }
      if (d.letter == 'M' && d.lower) {
        d.letter = 'N';
        d.lower = false;
      }
      if (!write(d)) return false;
    }
    return true;
  }

  const Text &text() const noexcept { return out_; }

 private:
  bool write(const Directive &d) noexcept {
    const Parts &p = parts_;
    switch (d.letter) {
      case '%':
        out_.put('%');
        return true;
      case 'A':
        put_weekday(d, false);
        return true;
      case 'F':
        put_weekday(d, true);
        return true;
      case 'B':
        if (d.lower) {
          put_month_name(d.alternate ? kMonthAbbreviatedAlternate : kMonthAbbreviated);
        } else {
          put_month_name(d.alternate ? kMonthFullAlternate : kMonthFull);
        }
        return true;
      case 'C':
        put_widest_month(d.alternate ? kMonthFullAlternate : kMonthFull);
        return true;
      case 'D':
        put_date_number(p.day, 2, d.pad);
        return true;
      case 'E':
        put_date_number(p.day, 2, blank_pad(d));
        return true;
      case 'N':
        if (d.lower) {
          // Whole days in the hour value.
          if (is_missing(p.hour)) return out_.put_missing(), true;
          out_.put_number(magnitude(p.hour / 24), 1, 0);
        } else {
          put_date_number(p.month, 2, d.pad);
        }
        return true;
      case 'O':
        put_date_number(p.month, 2, blank_pad(d));
        return true;
      case 'J':
        if (!p.date_present) return out_.put_missing(), true;
        out_.put_number(magnitude(static_cast<double>(p.day_of_year)), 3, d.pad);
        return true;
      case 'Y':
        put_year(d);
        return true;
      case 'H':
      case 'K':
        put_hour(d, d.letter == 'K');
        return true;
      case 'I':
        put_clock12(d, true);
        return true;
      case 'L':
        put_clock12(d, false);
        return true;
      case 'S':
        put_second(d.pad, d.exact_second && fraction_digits_ > 0);
        return true;
      case 'T':
        if (d.lower) return true;
        put_hour(d, false);
        out_.put(':');
        put_time_number(p.minute, d.pad);
        out_.put(':');
        put_second(d.pad, false);
        return true;
      case 'P':
        put_marker();
        return true;
      case 'Q':
        put_quarter(d);
        return true;
      case 'U':
        if (d.lower) {
          put_weekday_digit(true);
        } else {
          out_.put_number(magnitude(static_cast<double>(sunday_week())), 2, d.pad);
        }
        return true;
      case 'W':
        if (d.lower) {
          put_weekday_digit(false);
        } else {
          put_week(d, 'W', false);
        }
        return true;
      case 'V':
        if (!d.lower) put_week(d, 'V', false);
        return true;
      case 'G':
        put_week(d, 'V', true);
        return true;
      case 'Z':
        if (d.lower) {
          put_zone_offset(out_);
        } else {
          out_.put("XST");
        }
        return true;
      case 'M':
        put_time_number(p.minute, d.pad);
        return true;
      default:
        return false;  // "%R", "%r", a "%x" or "%X" in pass 2, any other byte
    }
  }

  static char blank_pad(const Directive &d) noexcept { return d.pad == 0 ? 0 : ' '; }

  void put_date_number(double value, int32_t width, char pad) noexcept {
    if (is_missing(value)) return out_.put_missing();
    out_.put_number(magnitude(value), width, pad);
  }

  void put_time_number(double value, char pad) noexcept {
    if (is_missing(value)) return out_.put_missing();
    out_.put_number(magnitude(value), 2, pad);
  }

  void put_hour(const Directive &d, bool midnight_is_24) noexcept {
    if (is_missing(parts_.hour)) return out_.put_missing();
    uint64_t hour = magnitude(parts_.hour);
    if (midnight_is_24 && hour == 0) hour = 24;
    if (hour > 99) return out_.put_number(hour, 1, 0);  // in full
    out_.put_number(hour, 2, d.pad);
  }

  void put_clock12(const Directive &d, bool midnight_is_12) noexcept {
    uint64_t hour = magnitude(parts_.clock12);
    if (midnight_is_12 && hour == 0) hour = 12;
    out_.put_number(hour, 2, d.pad);
  }

  // The second's integer part, then with a fraction the decimal separator
  // and fraction_digits_ digits by repeated multiplication.  Only the last
  // digit is rounded, never a 9 and never carrying into earlier digits: the
  // entry routines have rounded the value already.
  void put_second(char pad, bool with_fraction) noexcept {
    const double second = parts_.second;
    const bool missing = is_missing(second);
    if (missing) {
      out_.put_missing();
    } else {
      out_.put_number(magnitude(second), 2, pad);
    }
    if (!with_fraction) return;
    if (const auto separator = items_.get(kDecimalSeparator)) out_.put(*separator);
    const int32_t n = std::min(fraction_digits_, kTextBound);
    if (missing) {
      for (int32_t i = 0; i < n; ++i) out_.put('*');
      return;
    }
    double s = std::fabs(second);
    if (!std::isfinite(s)) s = 0;
    double k = std::trunc(s);
    for (int32_t i = 1; i <= n; ++i) {
      s = (s - k) * 10;
      k = std::trunc(s);
      if (i == n && std::trunc((s - k) * 10) >= 5 && k < 9) {
        s += 1;
        k += 1;
      }
      out_.put(static_cast<char>('0' + static_cast<int>(k)));
    }
  }

  void put_marker() noexcept {
    if (is_missing(parts_.hour)) return out_.put_missing();
    const bool afternoon = static_cast<int64_t>(magnitude(parts_.hour) % 24) >= 12;
    if (const auto name = items_.get(afternoon ? kAfternoon : kMorning)) return out_.put(*name);
    out_.put(afternoon ? "PM" : "AM");
  }

  // A name item, or "**" when it cannot be fetched.
  void put_item(int32_t item) noexcept {
    if (const auto name = items_.get(item)) return out_.put(*name);
    out_.put_missing();
  }

  // The name `chosen` of the set base .. base+count-1, left-aligned in a
  // field as wide as the longest name of the set.
  void put_widest(int32_t base, int32_t count, int32_t chosen) noexcept {
    std::size_t widest = 0;
    for (int32_t i = 0; i < count; ++i) {
      if (const auto name = items_.get(base + i)) widest = std::max(widest, name->size());
    }
    const auto name = items_.get(chosen);
    if (!name) return out_.put_missing();
    out_.put(*name);
    if (name->size() < widest) out_.put_blanks(static_cast<int64_t>(widest - name->size()));
  }

  void put_weekday(const Directive &d, bool widest) noexcept {
    int32_t base = 0;
    if (d.lower) {
      base = d.alternate ? kWeekdayAbbreviatedAlternate : kWeekdayAbbreviated;
    } else {
      base = d.alternate ? kWeekdayFullAlternate : kWeekdayFull;
    }
    if (!parts_.date_present || !items_.get(base)) return out_.put_missing();
    const auto item = static_cast<int32_t>(base + parts_.weekday);
    if (widest) return put_widest(base, 7, item);
    put_item(item);
  }

  // The month of the date, or 0 when it is missing.
  int32_t month() const noexcept {
    return is_missing(parts_.month) ? 0 : static_cast<int32_t>(parts_.month);
  }

  void put_month_name(int32_t base) noexcept {
    if (month() < 1 || month() > 12) return out_.put_missing();
    put_item(base + month() - 1);
  }

  void put_widest_month(int32_t base) noexcept {
    if (month() < 1 || month() > 12) return out_.put_missing();
    put_widest(base, 12, base + month() - 1);
  }

  void put_quarter(const Directive &d) noexcept {
    int32_t base = 0;
    if (d.lower) {
      base = d.alternate ? kQuarterShortAlternate : kQuarterShort;
    } else {
      base = d.alternate ? kQuarterLongAlternate : kQuarterLong;
    }
    if (month() < 1 || month() > 12 || !items_.get(base)) return out_.put_missing();
    put_item(base + (month() - 1) / 3);
  }

  double shown_year(double year) noexcept {
    if (!era_) return year;
    const auto region = items_.get(kRegionCode);
    if (!region || region->size() != 2) return year;
    return era_year(*region, year, parts_.date);
  }

  void put_year(const Directive &d) noexcept {
    if (is_missing(parts_.year)) return out_.put_missing();
    const int64_t year = whole(shown_year(parts_.year));
    if (d.lower) return out_.put_number(static_cast<uint64_t>(std::llabs(year % 100)), 2, d.pad);
    put_two_groups(year);
  }

  // A year as two groups of two digits with "0" padding, whatever the pad:
  // always four digits, a year above 9999 losing its leading ones.
  void put_two_groups(int64_t year) noexcept {
    out_.put_number(static_cast<uint64_t>(std::llabs(year / 100)), 2, '0');
    out_.put_number(static_cast<uint64_t>(std::llabs(year % 100)), 2, '0');
  }

  // Week of the year with weeks starting on Sunday; days before the first
  // Sunday are week 0.
  int64_t sunday_week() const noexcept {
    const double date = parts_.date;
    const double first_of_year = date - static_cast<double>(parts_.day_of_year) + 1;
    const int64_t weekday = whole(zwekday(first_of_year));
    const double first_sunday =
        weekday == 1 ? first_of_year : first_of_year - static_cast<double>(weekday) + 8;
    if (date < first_sunday) return 0;
    return whole((date - first_sunday) / 7) + 1;
  }

  void put_weekday_digit(bool monday_first) noexcept {
    if (!parts_.date_present) return out_.put_missing();
    int64_t digit = parts_.weekday;
    if (monday_first && digit == 0) digit = 7;
    out_.put_number(static_cast<uint64_t>(std::llabs(digit)), 1, '0');
  }

  void put_week(const Directive &d, char style, bool year_of_week) noexcept {
    double year = -1, week = -1, day = -1;
    get_yywwdd(&style, nullptr, &year, &week, &day, parts_.date);
    if (year < 0 || week < 0) return out_.put_missing();
    if (!year_of_week) return out_.put_number(magnitude(week), 2, d.pad);
    const int64_t y = whole(year);
    if (d.lower) return out_.put_number(static_cast<uint64_t>(y % 100), 2, d.pad);
    put_two_groups(y);
  }

  const Items &items_;
  const Parts &parts_;
  int32_t fraction_digits_;
  bool era_ = false;  // "+" seen: stays on for the rest of the expansion
  Text out_;
};

// Pass 1: the pattern with "%x" and "%X" replaced once by items 28 and 53,
// trailing blanks stripped.  Returns the length, or -1 past kPatternBound.
template <class Items>
int32_t substitute_representations(const Items &items, const char *pattern, int32_t length,
                                   char *work) noexcept {
  int32_t n = 0;
  const auto append = [&](std::string_view s) {
    if (static_cast<int64_t>(n) + static_cast<int64_t>(s.size()) > kPatternBound) return false;
    std::memcpy(work + n, s.data(), s.size());
    n += static_cast<int32_t>(s.size());
    return true;
  };
  for (int32_t i = 0; i < length; ++i) {
    if (pattern[i] == '%' && i + 1 < length) {
      const char next = pattern[i + 1];
      bool ok = true;
      if (next == 'x' || next == 'X') {
        const auto item = items.get(next == 'x' ? kDateRepresentation : kTimeRepresentation);
        if (item) ok = append(*item);
      } else {
        ok = append({pattern + i, 2});
      }
      if (!ok) return -1;
      ++i;
      continue;
    }
    if (!append({pattern + i, 1})) return -1;
  }
  return n == 0 ? 0 : wzstrip(work, n);
}

template <class Items>
int32_t expand_with(const Items &items, const char *pattern, int32_t pattern_length,
                    char *output, int32_t *field_width, int32_t fraction_digits, double date,
                    double hour, double minute, double second) noexcept {
  int32_t width = field_width != nullptr ? *field_width : 0;
  const bool right_aligned = width < 0;
  if (right_aligned) width = width == INT32_MIN ? INT32_MAX : -width;

  const Parts parts = derive_parts(date, hour, minute, second);

  char work[kPatternBound];
  const int32_t work_length = (pattern == nullptr || pattern_length <= 0)
                                  ? 0
                                  : substitute_representations(items, pattern, pattern_length, work);
  if (work_length < 0) return kExpandUnknownDirective;

  Expansion<Items> expansion(items, parts, std::max(fraction_digits, 0));
  if (!expansion.run(work, work_length)) return kExpandUnknownDirective;
  const Text &text = expansion.text();
  const int64_t length = text.length();

  if (output == nullptr) return static_cast<int32_t>(std::min<int64_t>(length, INT32_MAX));
  if (length > kTextBound && width > kTextBound) return kExpandUnknownDirective;
  std::memset(output, ' ', static_cast<std::size_t>(width));
  if (length > width) {
    std::memcpy(output, text.bytes(), static_cast<std::size_t>(width));
    return kExpandTooLong;
  }
  const auto n = static_cast<std::size_t>(length);
  std::memcpy(right_aligned ? output + (width - length) : output, text.bytes(), n);
  if (field_width != nullptr) *field_width = static_cast<int32_t>(length);
  return kExpandFits;
}

}  // namespace

int32_t expand(int32_t locale, const char *pattern, int32_t pattern_length, char *output,
               int32_t *field_width, int32_t fraction_digits, double date, double hour,
               double minute, double second) {
  return expand_in_record(locale::select_record(locale), pattern, pattern_length, output,
                          field_width, fraction_digits, date, hour, minute, second);
}

int32_t expand_in_record(const locitem *record, const char *pattern, int32_t pattern_length,
                         char *output, int32_t *field_width, int32_t fraction_digits,
                         double date, double hour, double minute, double second) {
  const RecordItems items(record);
  return expand_with(items, pattern, pattern_length, output, field_width, fraction_digits, date,
                     hour, minute, second);
}

int32_t expand_reference(int32_t locale, const char *pattern, int32_t pattern_length,
                         char *output, int32_t *field_width, int32_t fraction_digits, double date,
                         double hour, double minute, double second) {
  const LookupItems items(locale);
  return expand_with(items, pattern, pattern_length, output, field_width, fraction_digits, date,
                     hour, minute, second);
}

}  // namespace corvinel::nldate

// The steps of a date pattern expansion that do not depend on how the text
// is kept: the locale items it reads, the value split into its parts, the
// directive syntax, the substitution of "%x" and "%X", era years, the
// Sunday-based week, fraction digits and the zone offset.  The expander
// that interprets a pattern on every call and the compiled patterns both
// take them from here, so the two cannot drift apart on any of them.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

#include "corvinel/locale_db.h"
#include "corvinel/text.h"
#include "nldate/fraction_rounding.h"
#include "nldate/pattern_expander.h"
#include "nldate/week_numbering.h"

namespace corvinel::nldate {

// Locale items the expander reads.
inline constexpr int32_t kRegionCode = 5;
inline constexpr int32_t kDateRepresentation = 28;
inline constexpr int32_t kTimeRepresentation = 53;
inline constexpr int32_t kMonthAbbreviated = 59;
inline constexpr int32_t kMonthFull = 71;
inline constexpr int32_t kMonthAbbreviatedAlternate = 83;
inline constexpr int32_t kMonthFullAlternate = 95;
inline constexpr int32_t kWeekdayAbbreviated = 107;
inline constexpr int32_t kWeekdayFull = 114;
inline constexpr int32_t kWeekdayAbbreviatedAlternate = 121;
inline constexpr int32_t kWeekdayFullAlternate = 128;
inline constexpr int32_t kQuarterShort = 135;
inline constexpr int32_t kQuarterLong = 139;
inline constexpr int32_t kQuarterShortAlternate = 143;
inline constexpr int32_t kQuarterLongAlternate = 147;
inline constexpr int32_t kMorning = 151;
inline constexpr int32_t kAfternoon = 152;
inline constexpr int32_t kDecimalSeparator = 172;

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

// A missing value is a NaN (its top 16 bits are all ones), so one test
// covers the host's missing values and every other NaN.
inline bool is_missing(double value) noexcept { return std::isnan(value); }

// The integer part of a part of the value as a magnitude for the digit
// writer; infinities and values beyond 64 bits saturate.
inline uint64_t magnitude(double value) noexcept {
  const double m = std::fabs(value);
  // The conversions drop the fraction; the signed one is one instruction.
  if (m < 0x1p63) return static_cast<uint64_t>(static_cast<int64_t>(m));
  if (!(m < 1.8e19)) return UINT64_MAX;
  return static_cast<uint64_t>(m);
}

inline int64_t whole(double value) noexcept {
  if (std::isnan(value)) return 0;
  if (value >= 9.2e18) return INT64_MAX;
  if (value <= -9.2e18) return INT64_MIN;
  return static_cast<int64_t>(value);
}

// The parts of the value, derived once per expansion.
struct Parts {
  bool date_present;
  double date;              // the day number; 0 when missing, for the week directives
  int64_t weekday;          // zwekday - 1 (0 = Sunday), -1 when the date is missing
  int64_t day_of_year;      // the julian form modulo 1000, 0 when missing
  double year, month, day;  // missing when the date is
  double hour, minute, second;
  double clock12;  // the 12-hour clock value, 0 when the hour is missing
};

Parts derive_parts(double date, double hour, double minute, double second) noexcept;

// The 12-hour clock value of an hour: the hour itself up to 12 (so 12
// stays 12 and 0 stays 0), else the hour modulo 12; 0 for a missing hour.
inline double clock12_of(double hour) noexcept {
  return is_missing(hour) ? 0 : (hour <= 12.0 ? hour : std::fmod(hour, 12.0));
}

// Year, month, day and day of year of the day `date` falls on, when its
// year lies in 1582..3999: there the calendar is the proleptic Gregorian
// one and the split takes integers only.  False for any other date (the
// host's routines then split it), NaNs included.
struct CivilDay {
  int64_t year, month, day, day_of_year;
};

inline constexpr int64_t kDaysFromMarch0ToEpoch = 715815;  // 1 March of year 0 to 1 January 1960
inline constexpr int64_t kFirstValidDay = -138061;         // 1 January 1582
inline constexpr int64_t kLastDayBefore4000 = 745094;      // 31 December 3999

// Days counted from 1 March of year 0, split by Neri and Schneider's
// Euclidean affine functions ("Euclidean affine functions and their
// application to calendar algorithms", 2022): 400-year eras by a division,
// the year of the era and the day of the March-based year by one 64-bit
// multiplication (2939745 / 2^32 is 4 / 1461 with the centuries' days
// folded in), the month and the day by another (2141 / 2^16 is 5 / 153).
// The 4000-year rule starts to matter only in year 4000.
inline bool civil_day_of(double date, CivilDay &civil) noexcept {
  if (!(date >= kFirstValidDay && date < kLastDayBefore4000 + 1)) return false;
  // The conversion drops the fraction toward zero; one less below zero floors it.
  auto day_number = static_cast<int64_t>(date);
  if (static_cast<double>(day_number) > date) --day_number;
  const auto n = static_cast<uint32_t>(day_number + kDaysFromMarch0ToEpoch);  // below 2^21
  const uint32_t n1 = 4 * n + 3;
  const uint32_t century = n1 / 146097;
  const uint32_t n2 = (n1 % 146097) | 3;  // 4 * (day of the century) + 3
  const uint64_t p2 = uint64_t{2939745} * n2;
  const auto year_of_century = static_cast<uint32_t>(p2 >> 32);
  const uint32_t day_of_march_year = static_cast<uint32_t>(p2) / 2939745 / 4;  // 0 = 1 March
  const uint32_t n3 = 2141 * day_of_march_year + 197913;
  const bool january_or_february = day_of_march_year >= 306;
  civil.year = int64_t{100} * century + year_of_century + (january_or_february ? 1 : 0);
  civil.month = (n3 >> 16) - (january_or_february ? 12 : 0);
  civil.day = (n3 & 0xFFFF) / 2141 + 1;
  // Day of year from the day of the March-based year: January and February
  // close the March-based year before.
  civil.day_of_year = january_or_february
                          ? int64_t{day_of_march_year} - 305
                          : int64_t{day_of_march_year} + 60 + (gregorian_leap(civil.year) ? 1 : 0);
  return true;
}

// The weekday index (0 = Sunday) of a date civil_day_of splits, without
// zwekday's checks: days counted from 2 January 1600, a Sunday, moved on by
// a thousand weeks so that the count is positive from 1 January 1582 on and
// the conversion's truncation is the floor; the true weekday also before
// 1600, where zwekday's own numbers run below Sunday.
inline int64_t weekday_of(double date) noexcept {
  return static_cast<int64_t>(date + (131486 + 7000)) % 7;
}

// The month of the date, or 0 when it is missing.
inline int32_t month_of(const Parts &parts) noexcept {
  return is_missing(parts.month) ? 0 : static_cast<int32_t>(parts.month);
}

// Week of the year with weeks starting on Sunday; days before the first
// Sunday are week 0.
int64_t sunday_week(double date, int64_t day_of_year) noexcept;

// The calendar whose years "%+Y" and "%+y" show, from the locale's
// two-letter region code.
enum class Era : uint8_t { kGregorian, kTaiwan, kThai, kJapan };
Era era_of_region(std::optional<std::string_view> region) noexcept;
double era_year(Era era, double year, double date) noexcept;

// One directive after its "%": the flags read, the letter to handle.
struct Directive {
  char pad;           // '0', or 0 for no padding ("#")
  bool alternate;     // "#": the alternate name sets
  bool lower;         // the lower-case variant
  bool exact_second;  // the letter was written "S"
  char letter;        // upper case; "%m" becomes 'N'
};

// The first item of the name set a directive shows: the abbreviated or
// full names (lower or upper case), from the alternate sets with "#".
inline int32_t weekday_names(const Directive &d) noexcept {
  if (d.lower) return d.alternate ? kWeekdayAbbreviatedAlternate : kWeekdayAbbreviated;
  return d.alternate ? kWeekdayFullAlternate : kWeekdayFull;
}
inline int32_t month_names(const Directive &d) noexcept {
  if (d.lower) return d.alternate ? kMonthAbbreviatedAlternate : kMonthAbbreviated;
  return d.alternate ? kMonthFullAlternate : kMonthFull;
}
inline int32_t full_month_names(const Directive &d) noexcept {
  return d.alternate ? kMonthFullAlternate : kMonthFull;
}
inline int32_t quarter_names(const Directive &d) noexcept {
  if (d.lower) return d.alternate ? kQuarterShortAlternate : kQuarterShort;
  return d.alternate ? kQuarterLongAlternate : kQuarterLong;
}

// Reads the flags and letter of the directive whose "%" stands at work[i]:
// pad or "#", one skipped digit, "+" (sets `era`, which stays set), "?",
// the letter.  Leaves i on the letter.  False for a "%" with no letter
// after it.
bool read_directive(const char *work, int32_t length, int32_t &i, bool &era,
                    Directive &directive) noexcept;

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

// The n fraction digits of a second, each handed to put: the fraction
// rounded to n places (the entry routines have rounded the value itself,
// carries included, so this gives back their digits), zeros past the
// places kept exactly.  A missing second gives n asterisks.
template <class Put>
void put_fraction_digits(double second, int32_t n, Put put) noexcept {
  if (is_missing(second)) {
    for (int32_t i = 0; i < n; ++i) put('*');
    return;
  }
  const int32_t exact = n < kExactFractionDigits ? n : kExactFractionDigits;
  uint64_t units = fraction_units(second, exact);
  char digits[kExactFractionDigits];
  for (int32_t i = exact - 1; i >= 0; --i) {
    digits[i] = static_cast<char>('0' + units % 10);
    units /= 10;
  }
  for (int32_t i = 0; i < exact; ++i) put(digits[i]);
  for (int32_t i = exact; i < n; ++i) put('0');
}

// The TZ value when a format read it with ORB_LOCALE in one walk over the
// environment, or not read yet.
struct ZoneReading {
  bool read = false;
  const char *value = nullptr;  // null: TZ is unset
};

// The machine's numeric zone offset now, "+hhmm" or "-hhmm", in out[0..4].
// TZ is read here unless `zone` holds it.
inline constexpr int32_t kZoneOffsetLength = 5;
void write_zone_offset(char *out, const ZoneReading &zone = {}) noexcept;

// The same, worked out afresh on every call: tzset, then the local time of
// now.  The reference write_zone_offset is compared with.
void write_zone_offset_uncached(char *out) noexcept;

}  // namespace corvinel::nldate

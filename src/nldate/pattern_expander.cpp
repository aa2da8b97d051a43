// The date pattern expander: one walk over the pattern, one case per
// directive, every piece written into a bounded text on the stack.
#include "nldate/pattern_expander.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "corvinel/locale_db.h"
#include "corvinel/weeks.h"
#include "locale/locale_records.h"
#include "nldate/compiled_pattern.h"
#include "nldate/expansion_steps.h"
#include "nldate/week_numbering.h"

namespace corvinel::nldate {
namespace {

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
      Directive d{};
      if (!read_directive(work, length, i, era_, d)) return false;
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
        put_month_name(month_names(d));
        return true;
      case 'C':
        put_widest_month(full_month_names(d));
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
          out_.put_number(magnitude(static_cast<double>(sunday_week(parts_.date, parts_.day_of_year))), 2, d.pad);
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
          char offset[kZoneOffsetLength];
          write_zone_offset(offset);
          out_.put(std::string_view{offset, sizeof offset});
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
    if (is_missing(second)) {
      out_.put_missing();
    } else {
      out_.put_number(magnitude(second), 2, pad);
    }
    if (!with_fraction) return;
    if (const auto separator = items_.get(kDecimalSeparator)) out_.put(*separator);
    put_fraction_digits(second, std::min(fraction_digits_, kTextBound),
                        [this](char c) { out_.put(c); });
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
    const int32_t base = weekday_names(d);
    if (!parts_.date_present || !items_.get(base)) return out_.put_missing();
    const auto item = static_cast<int32_t>(base + parts_.weekday);
    if (widest) return put_widest(base, 7, item);
    put_item(item);
  }

  // The month of the date, or 0 when it is missing.
  int32_t month() const noexcept { return month_of(parts_); }

  void put_month_name(int32_t base) noexcept {
    if (month() < 1 || month() > 12) return out_.put_missing();
    put_item(base + month() - 1);
  }

  void put_widest_month(int32_t base) noexcept {
    if (month() < 1 || month() > 12) return out_.put_missing();
    put_widest(base, 12, base + month() - 1);
  }

  void put_quarter(const Directive &d) noexcept {
    const int32_t base = quarter_names(d);
    if (month() < 1 || month() > 12 || !items_.get(base)) return out_.put_missing();
    put_item(base + (month() - 1) / 3);
  }

  double shown_year(double year) noexcept {
    if (!era_) return year;
    return era_year(era_of_region(items_.get(kRegionCode)), year, parts_.date);
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

// The last step of expand: the text (kept up to kTextBound bytes of
// `length`) placed in the field, or its length for a null output.
int32_t place_in_field(const char *text, int64_t length, char *output,
                       int32_t *field_width) noexcept {
  int32_t width = field_width != nullptr ? *field_width : 0;
  const bool right_aligned = width < 0;
  if (right_aligned) width = width == INT32_MIN ? INT32_MAX : -width;
  if (output == nullptr) return static_cast<int32_t>(std::min<int64_t>(length, INT32_MAX));
  if (length > kTextBound && width > kTextBound) return kExpandUnknownDirective;
  std::memset(output, ' ', static_cast<std::size_t>(width));
  if (length > width) {
    std::memcpy(output, text, static_cast<std::size_t>(width));
    return kExpandTooLong;
  }
  const auto n = static_cast<std::size_t>(length);
  std::memcpy(right_aligned ? output + (width - length) : output, text, n);
  if (field_width != nullptr) *field_width = static_cast<int32_t>(length);
  return kExpandFits;
}

template <class Items>
int32_t expand_with(const Items &items, const char *pattern, int32_t pattern_length,
                    char *output, int32_t *field_width, int32_t fraction_digits, double date,
                    double hour, double minute, double second) noexcept {
  const Parts parts = derive_parts(date, hour, minute, second);

  char work[kPatternBound];
  const int32_t work_length = (pattern == nullptr || pattern_length <= 0)
                                  ? 0
                                  : substitute_representations(items, pattern, pattern_length, work);
  if (work_length < 0) return kExpandUnknownDirective;

  Expansion<Items> expansion(items, parts, std::max(fraction_digits, 0));
  if (!expansion.run(work, work_length)) return kExpandUnknownDirective;
  const Text &text = expansion.text();
  return place_in_field(text.bytes(), text.length(), output, field_width);
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
  // The pattern compiled for this record once per thread, when it can be.
  if (const CompiledPattern *program =
          compiled_pattern(record, pattern, pattern_length, PieceEncoding::kSymbolic)) {
    char text[kRenderBufferSize];
    const RenderedText rendered =
        render(*program, date, hour, minute, second, fraction_digits, text);
    if (rendered.outcome == RenderOutcome::kUnknownDirective) return kExpandUnknownDirective;
    if (rendered.outcome == RenderOutcome::kRendered) {
      return place_in_field(text, rendered.length, output, field_width);
    }
  }
  return expand_interpreted(record, pattern, pattern_length, output, field_width,
                            fraction_digits, date, hour, minute, second);
}

int32_t expand_interpreted(const locitem *record, const char *pattern, int32_t pattern_length,
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

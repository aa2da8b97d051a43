// The short numeric forms of a date or datetime: NLDATES, NLDATEYMS,
// NLDATMYMS, NLDATEMDS, NLDATMMDS, NLDATEYQS and NLDATMYQS, and the shared
// renderers the single-pattern formats reach through their short form.
#include <algorithm>
#include <cstring>
#include <string_view>

#include "corvinel/calendar.h"
#include "corvinel/formats.h"
#include "corvinel/missing.h"
#include "encoding/transcode_steps.h"
#include "frame/format_frame.h"
#include "locale/locale_records.h"
#include "nldate/date_frame.h"
#include "nldate/date_placement.h"
#include "nldate/entry_routines.h"
#include "nldate/fraction_rounding.h"
#include "nldate/pattern_expander.h"
#include "nldate/short_numeric_form.h"
#include "nldate/week_numbering.h"

namespace corvinel::nldate {
namespace {

struct ShortNumericFormat {
  frame::Limits limits;
  ValueKind kind;
  ShortForm form;
};

constexpr ShortNumericFormat kNldates{{2, 200, 0, 0}, ValueKind::Date, ShortForm::Date};
constexpr ShortNumericFormat kNldateyms{{5, 200, 0, 0}, ValueKind::Date,
                                        ShortForm::DateYearMonth};
constexpr ShortNumericFormat kNldatmyms{{5, 200, 0, 0}, ValueKind::Datetime,
                                        ShortForm::DatetimeYearMonth};
constexpr ShortNumericFormat kNldatemds{{5, 200, 0, 0}, ValueKind::Date,
                                        ShortForm::DateMonthDay};
constexpr ShortNumericFormat kNldatmmds{{5, 200, 0, 0}, ValueKind::Datetime,
                                        ShortForm::DatetimeMonthDay};
constexpr ShortNumericFormat kNldateyqs{{4, 200, 0, 0}, ValueKind::Date,
                                        ShortForm::DateYearQuarter};
constexpr ShortNumericFormat kNldatmyqs{{4, 200, 0, 0}, ValueKind::Datetime,
                                        ShortForm::DatetimeYearQuarter};

int32_t short_numeric_frame(fmtreq *request, const ShortNumericFormat &format) {
  const double value = frame::read_value(*request);
  if (auto settled = settle_before_rendering(*request, format.limits, format.kind, value)) {
    return *settled;
  }
  return render_short_numeric(*request, format.form, value);
}

// Locale items of the short forms.
constexpr int32_t kDateOrderItem = 6;
constexpr int32_t kDateSeparatorItem = 153;

// What a variant shows of the date: the year in full (all its digits, at
// least four) or as two digits, and the locale's separator between the
// numbers or nothing.
struct DateVariant {
  bool full_year;
  bool separated;
};

// The components of a form, in the order the locale gives them.
enum class Components { kDayMonthYear, kMonthYear, kMonthDay, kYearQuarter };

struct FormShape {
  Components components;
  DateVariant variants[3];
  int count;
};

constexpr FormShape kDateShape{Components::kDayMonthYear,
                               {{true, true}, {false, true}, {false, false}}, 3};
constexpr FormShape kYearMonthShape{Components::kMonthYear, {{true, true}, {false, true}}, 2};
constexpr FormShape kMonthDayShape{Components::kMonthDay, {{true, true}}, 1};
constexpr FormShape kYearQuarterShape{Components::kYearQuarter, {{true, true}, {false, true}}, 2};

// The time of day that follows the date of the short datetime, longest
// first; kSeconds also carries the fraction digits.
enum class TimeVariant { kSeconds, kMinutes, kHours };

// A narrow text built within a fixed buffer; past it the text is marked
// too long and can never be placed.
class ShortText {
 public:
  void put(const char *text, int32_t length) {
    if (length < 0 || length_ + length > static_cast<int32_t>(sizeof bytes_)) {
      overflow_ = true;
      return;
    }
    // An empty piece (a locale without a separator) may come as a null text.
    if (length > 0) std::memcpy(bytes_ + length_, text, static_cast<std::size_t>(length));
    length_ += length;
  }
  void put_number(int64_t value, int32_t digits) {
    char buffer[24];
    const int32_t n = write_digits(static_cast<uint64_t>(value < 0 ? -value : value), buffer,
                                   std::max(digits, count_digits(value)), '0');
    put(buffer, n);
  }
  char *end() { return bytes_ + length_; }
  int32_t room() const { return static_cast<int32_t>(sizeof bytes_) - length_; }
  void grow(int32_t n) { length_ += n; }
  const char *bytes() const { return bytes_; }
  int32_t length() const { return overflow_ ? encoding::kStepCapacity + 1 : length_; }

 private:
  static int32_t count_digits(int64_t value) {
    int32_t n = 1;
    for (uint64_t rest = static_cast<uint64_t>(value < 0 ? -value : value) / 10; rest != 0;
         rest /= 10) {
      ++n;
    }
    return n;
  }
  char bytes_[encoding::kStepCapacity];
  int32_t length_ = 0;
  bool overflow_ = false;
};

// The parts of a date value, and the locale's order and separator.
struct DateParts {
  int64_t year, month, day, quarter;
};

DateParts parts_of(double date) {
  int32_t month = 0, day = 0, year = 0;
  getMonthDayYear(&month, &day, &year, date);
  return {year, month, day, (month - 1) / 3 + 1};
}

std::string_view item_text(const locitem *record, int32_t item) {
  if (record == nullptr || record[item].text == nullptr || record[item].length <= 0 ||
      record[item].length > CORVINEL_LOCALE_TEXT) {
    return {};
  }
  return {record[item].text, static_cast<std::size_t>(record[item].length)};
}

void put_date(ShortText &text, const FormShape &shape, const DateVariant &variant,
              DateOrder order, std::string_view separator, const DateParts &date) {
  enum Piece { kDay, kMonth, kYear, kQuarter };
  Piece pieces[3];
  int count = 0;
  switch (shape.components) {
    case Components::kDayMonthYear:
      if (order == DateOrder::kDayMonthYear) {
        pieces[0] = kDay, pieces[1] = kMonth, pieces[2] = kYear;
      } else if (order == DateOrder::kYearMonthDay) {
        pieces[0] = kYear, pieces[1] = kMonth, pieces[2] = kDay;
      } else {
        pieces[0] = kMonth, pieces[1] = kDay, pieces[2] = kYear;
      }
      count = 3;
      break;
    case Components::kMonthYear:
      if (order == DateOrder::kYearMonthDay) {
        pieces[0] = kYear, pieces[1] = kMonth;
      } else {
        pieces[0] = kMonth, pieces[1] = kYear;
      }
      count = 2;
      break;
    case Components::kMonthDay:
      if (order == DateOrder::kDayMonthYear) {
        pieces[0] = kDay, pieces[1] = kMonth;
      } else {
        pieces[0] = kMonth, pieces[1] = kDay;
      }
      count = 2;
      break;
    case Components::kYearQuarter:
      pieces[0] = kYear, pieces[1] = kQuarter;
      count = 2;
      break;
  }
  for (int i = 0; i < count; ++i) {
    if (i > 0 && variant.separated) {
      text.put(separator.data(), static_cast<int32_t>(separator.size()));
    }
    switch (pieces[i]) {
      case kDay:
        text.put_number(date.day, 2);
        break;
      case kMonth:
        text.put_number(date.month, 2);
        break;
      case kYear:
        if (variant.full_year) {
          text.put_number(date.year, 4);
        } else {
          text.put_number(date.year % 100, 2);
        }
        break;
      case kQuarter:
        text.put_number(date.quarter, 1);
        break;
    }
  }
}

// The time of day of a rounded datetime, `into_day` seconds and `units`
// of 10^-digits, through the pattern expander (the locale's decimal
// separator and the fraction digits as the datetime formats write them).
void put_time(ShortText &text, int32_t locale, int64_t into_day, uint64_t units,
              TimeVariant variant, int32_t digits) {
  static constexpr std::string_view kPatterns[] = {"%H:%M:%S", "%H:%M", "%H"};
  const std::string_view pattern = kPatterns[static_cast<int>(variant)];
  int32_t width = text.room();
  const int32_t exact = std::min(digits, kExactFractionDigits);
  const int32_t result =
      expand(locale, pattern.data(), static_cast<int32_t>(pattern.size()), text.end(), &width,
             variant == TimeVariant::kSeconds ? digits : 0, std_miss_val,
             static_cast<double>(into_day / 3600), static_cast<double>(into_day / 60 % 60),
             second_with_fraction(into_day % 60, units, exact));
  if (result == kExpandFits) {
    text.grow(width);
  } else {
    text.put(nullptr, -1);
  }
}

const FormShape &shape_of(ShortForm form) {
  switch (form) {
    case ShortForm::DateYearMonth:
    case ShortForm::DatetimeYearMonth:
      return kYearMonthShape;
    case ShortForm::DateMonthDay:
    case ShortForm::DatetimeMonthDay:
      return kMonthDayShape;
    case ShortForm::DateYearQuarter:
    case ShortForm::DatetimeYearQuarter:
      return kYearQuarterShape;
    default:
      return kDateShape;
  }
}

bool is_datetime_form(ShortForm form) {
  return form == ShortForm::DatetimeYearMonth || form == ShortForm::DatetimeMonthDay ||
         form == ShortForm::DatetimeYearQuarter || form == ShortForm::DatetimeSeconds ||
         form == ShortForm::DatetimeDate;
}

// The short datetime: the date and the time of day, shortened in this
// order: fraction digits one by one, then the date (two-digit year, then
// no separators), then the time (hh:mm, then hh).
int32_t render_short_datetime(fmtreq &request, double value, DateOrder order,
                              std::string_view separator) {
  struct Step {
    int8_t date_variant;  // index into kDateShape.variants
    TimeVariant time;
  };
  static constexpr Step kSteps[] = {{0, TimeVariant::kSeconds}, {1, TimeVariant::kSeconds},
                                    {2, TimeVariant::kSeconds}, {2, TimeVariant::kMinutes},
                                    {2, TimeVariant::kHours}};
  const int32_t most_digits = std::clamp(request.decimals, 0, kWorkAreaSize);
  for (const Step &step : kSteps) {
    const bool with_fraction = step.date_variant == 0 && step.time == TimeVariant::kSeconds;
    for (int32_t digits = with_fraction ? most_digits : 0; digits >= 0; --digits) {
      // Rounded first, carries into the date included; past the end of the
      // range with fewer digits too.
      const RoundedSeconds rounded =
          round_seconds(value, std::min(digits, kExactFractionDigits));
      if (rounded.seconds >= static_cast<int64_t>(kEndDatetime)) return frame::fill_stars(request);
      const DaySplit split = split_days(rounded.seconds);
      ShortText text;
      put_date(text, kDateShape, kDateShape.variants[step.date_variant], order, separator,
               parts_of(static_cast<double>(split.day)));
      text.put(" ", 1);
      put_time(text, request.locale, split.into_day, rounded.units, step.time, digits);
      if (place_at_start(request, text.bytes(), text.length()) <= 0) {
        return CORVINEL_OK;
      }
    }
  }
  return frame::fill_stars(request);
}

}  // namespace

DateOrder mdy_order(int32_t locale) {
  const std::string_view order = item_text(locale::select_record(locale), kDateOrderItem);
  if (order == "DMY") return DateOrder::kDayMonthYear;
  if (order == "YMD") return DateOrder::kYearMonthDay;
  return DateOrder::kMonthDayYear;
}

QuarterOrder qtr_order(int32_t /*locale*/) { return QuarterOrder::kYearQuarter; }

int32_t render_short_numeric(fmtreq &request, ShortForm form, double value) {
  if (form == ShortForm::None) return frame::fill_stars(request);
  const locitem *record = locale::select_record(request.locale);
  const DateOrder order = mdy_order(request.locale);
  const std::string_view separator = item_text(record, kDateSeparatorItem);
  if (form == ShortForm::DatetimeSeconds) {
    return render_short_datetime(request, value, order, separator);
  }
  const double date = is_datetime_form(form) ? zdatprt(value) : value;
  const FormShape &shape = shape_of(form);
  const DateParts parts = parts_of(date);
  for (int i = 0; i < shape.count; ++i) {
    ShortText text;
    put_date(text, shape, shape.variants[i], order, separator, parts);
    if (place_at_start(request, text.bytes(), text.length()) <= 0) {
      return CORVINEL_OK;
    }
  }
  return frame::fill_stars(request);
}

}  // namespace corvinel::nldate

using corvinel::nldate::short_numeric_frame;

extern "C" {

int32_t nldates(fmtreq *request) { return short_numeric_frame(request, corvinel::nldate::kNldates); }
int32_t nldateyms(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldateyms);
}
int32_t nldatmyms(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldatmyms);
}
int32_t nldatemds(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldatemds);
}
int32_t nldatmmds(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldatmmds);
}
int32_t nldateyqs(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldateyqs);
}
int32_t nldatmyqs(fmtreq *request) {
  return short_numeric_frame(request, corvinel::nldate::kNldatmyqs);
}

}  // extern "C"

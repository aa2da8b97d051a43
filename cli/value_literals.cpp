#include "value_literals.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <string>

#include "arguments.h"

namespace corvinel::cli {
namespace {

constexpr double kSecondsPerDay = 86400;

struct CivilDate {
  int64_t year, month, day;
};

struct TimeOfDay {
  int64_t hour, minute;
  double second;
};

// A literal split into the parts it has.
struct Literal {
  std::optional<CivilDate> date;
  std::optional<TimeOfDay> time;
};

// Reads a run of digits from the front of `text`, between `fewest` and
// `most` of them; consumes them.
std::optional<int64_t> take_digits(std::string_view &text, std::size_t fewest, std::size_t most) {
  std::size_t count = 0;
  int64_t number = 0;
  while (count < text.size() && count < most && text[count] >= '0' && text[count] <= '9') {
    number = number * 10 + (text[count] - '0');
    ++count;
  }
  if (count < fewest) return std::nullopt;
  text.remove_prefix(count);
  return number;
}

// Consumes a run of digits of any length; whether there was one.
bool skip_digits(std::string_view &text) {
  const std::size_t count = text.find_first_not_of("0123456789");
  const std::size_t length = count == std::string_view::npos ? text.size() : count;
  text.remove_prefix(length);
  return length > 0;
}

bool take_char(std::string_view &text, char c) {
  if (text.empty() || text.front() != c) return false;
  text.remove_prefix(1);
  return true;
}

char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

constexpr std::array<std::string_view, 12> kMonthAbbreviations = {
    "JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

std::optional<int64_t> take_month_abbreviation(std::string_view &text) {
  if (text.size() < 3) return std::nullopt;
  const std::string word{upper(text[0]), upper(text[1]), upper(text[2])};
  for (std::size_t i = 0; i < kMonthAbbreviations.size(); ++i) {
    if (word == kMonthAbbreviations[i]) {
      text.remove_prefix(3);
      return static_cast<int64_t>(i + 1);
    }
  }
  return std::nullopt;
}

// HH:MM, HH:MM:SS or HH:MM:SS.fff; the fields are checked later.
std::optional<TimeOfDay> take_time(std::string_view &text) {
  const auto hour = take_digits(text, 1, 2);
  if (!hour || !take_char(text, ':')) return std::nullopt;
  const auto minute = take_digits(text, 2, 2);
  if (!minute) return std::nullopt;
  TimeOfDay time{*hour, *minute, 0};
  if (!take_char(text, ':')) return time;
  // Two digits, then an optional fraction read by from_chars so that
  // "43.25" is the double nearest 43.25.
  std::string_view second_text = text;
  if (!take_digits(text, 2, 2)) return std::nullopt;
  if (take_char(text, '.') && !skip_digits(text)) return std::nullopt;
  second_text = second_text.substr(0, second_text.size() - text.size());
  std::from_chars(second_text.data(), second_text.data() + second_text.size(), time.second);
  return time;
}

// 2003-02-24, optionally followed by T and a time.
std::optional<Literal> read_iso(std::string_view text) {
  Literal literal;
  const auto year = take_digits(text, 4, 5);
  if (!year || !take_char(text, '-')) return std::nullopt;
  const auto month = take_digits(text, 2, 2);
  if (!month || !take_char(text, '-')) return std::nullopt;
  const auto day = take_digits(text, 2, 2);
  if (!day) return std::nullopt;
  literal.date = CivilDate{*year, *month, *day};
  if (take_char(text, 'T') || take_char(text, 't')) {
    literal.time = take_time(text);
    if (!literal.time) return std::nullopt;
  }
  if (!text.empty()) return std::nullopt;
  return literal;
}

// 24FEB2003, optionally followed by ":" and a time.
std::optional<Literal> read_host(std::string_view text) {
  Literal literal;
  const auto day = take_digits(text, 1, 2);
  if (!day) return std::nullopt;
  const auto month = take_month_abbreviation(text);
  if (!month) return std::nullopt;
  const auto year = take_digits(text, 4, 5);
  if (!year) return std::nullopt;
  literal.date = CivilDate{*year, *month, *day};
  if (take_char(text, ':')) {
    literal.time = take_time(text);
    if (!literal.time) return std::nullopt;
  }
  if (!text.empty()) return std::nullopt;
  return literal;
}

std::optional<Literal> read_time_only(std::string_view text) {
  Literal literal;
  literal.time = take_time(text);
  if (!literal.time || !text.empty()) return std::nullopt;
  return literal;
}

// The calendar of the module: Gregorian, except that years divisible by
// 4000 are not leap years.
bool is_leap(int64_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) && year % 4000 != 0;
}

int64_t days_in_month(int64_t year, int64_t month) {
  constexpr int64_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && is_leap(year) ? 29 : kDays[month - 1];
}

// Days from 1 January 1960 by the day-count formula of year and day of year.
int64_t day_number(const CivilDate &date) {
  int64_t day_of_year = date.day;
  for (int64_t month = 1; month < date.month; ++month) {
    day_of_year += days_in_month(date.year, month);
  }
  const int64_t y = date.year - 1;
  return day_of_year + 365 * date.year + y / 4 - y / 100 + y / 400 - y / 4000 - 715875;
}

void check_date(const CivilDate &date, std::string_view text) {
  if (date.year < 1 || date.month < 1 || date.month > 12 || date.day < 1 ||
      date.day > days_in_month(date.year, date.month)) {
    throw UsageError("not a real date: \"" + shown_argument(text) + "\"");
  }
}

void check_time(const TimeOfDay &time, std::string_view text) {
  if (time.hour > 23 || time.minute > 59 || time.second >= 60) {
    throw UsageError("not a real time of day: \"" + shown_argument(text) + "\"");
  }
}

double seconds_of(const TimeOfDay &time) {
  return static_cast<double>(time.hour * 3600 + time.minute * 60) + time.second;
}

}  // namespace

ValueKind value_kind_of_format(std::string_view name) {
  if (name.starts_with("NLDATM")) return ValueKind::kDatetime;
  if (name.starts_with("NLDATE")) return ValueKind::kDate;
  if (name == "NLTIME" || name == "NLTIMAP") return ValueKind::kTime;
  return ValueKind::kNumber;
}

std::optional<double> parse_literal(std::string_view text, ValueKind kind) {
  std::optional<Literal> literal = read_iso(text);
  if (!literal) literal = read_host(text);
  if (!literal) literal = read_time_only(text);
  if (!literal) return std::nullopt;
  if (literal->date) check_date(*literal->date, text);
  if (literal->time) check_time(*literal->time, text);

  const std::string quoted = "\"" + shown_argument(text) + "\"";
  if (!literal->date) {
    if (kind == ValueKind::kDate || kind == ValueKind::kDatetime) {
      throw UsageError("a time has no date: " + quoted);
    }
    return seconds_of(*literal->time);
  }
  const auto days = static_cast<double>(day_number(*literal->date));
  const double time_of_day = literal->time ? seconds_of(*literal->time) : 0;
  switch (kind) {
    case ValueKind::kDate:
      return days;
    case ValueKind::kDatetime:
      return days * kSecondsPerDay + time_of_day;
    case ValueKind::kTime:
      if (!literal->time) throw UsageError("a date has no time of day: " + quoted);
      return time_of_day;
    case ValueKind::kNumber:
      break;
  }
  return literal->time ? days * kSecondsPerDay + time_of_day : days;
}

}  // namespace corvinel::cli

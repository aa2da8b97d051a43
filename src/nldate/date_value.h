// The kinds of value the date and time formats render, and their valid ranges.
#pragma once

namespace corvinel::nldate {

enum class ValueKind {
  Date,      // days since 1 January 1960
  Datetime,  // seconds since 1 January 1960 00:00:00
  Time,      // seconds since midnight; any number is accepted
};

// 1 January 1582 up to and including 31 December 20000, in days and seconds.
inline constexpr double kFirstDate = -138061;
inline constexpr double kEndDate = 6589336;  // first day past the range
inline constexpr double kFirstDatetime = kFirstDate * 86400;
inline constexpr double kEndDatetime = kEndDate * 86400;

// True when a present (not missing) value lies in its kind's valid range.
// NaNs and infinities lie outside every bounded range.
constexpr bool in_valid_range(ValueKind kind, double value) {
  switch (kind) {
    case ValueKind::Date:
      return value >= kFirstDate && value < kEndDate;
    case ValueKind::Datetime:
      return value >= kFirstDatetime && value < kEndDatetime;
    case ValueKind::Time:
      return true;
  }
  return false;
}

static_assert(kFirstDatetime == -11928470400.0 && kEndDatetime == 569318630400.0);

}  // namespace corvinel::nldate

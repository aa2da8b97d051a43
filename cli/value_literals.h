// Dates, datetimes and times written as people write them, turned into the
// host's numbers: days from 1 January 1960, seconds from its midnight, or
// seconds since midnight.
#pragma once

#include <optional>
#include <string_view>

namespace corvinel::cli {

// What a format reads its value as.
enum class ValueKind { kNumber, kDate, kDatetime, kTime };

// The kind a registry format's name implies: NLDATE... date, NLDATM...
// datetime, NLTIME and NLTIMAP time, every other format a number.
ValueKind value_kind_of_format(std::string_view name);

// Reads `text` as a literal and converts it to what `kind` expects:
//   ISO 8601   2003-02-24, 2003-02-24T12:39:43[.25], 16:24[:43[.5]]
//   the host's 24FEB2003, 24FEB2003:12:39:43[.25] (month in any case)
// A date gives its day number, or its midnight to a datetime format; a
// datetime gives its seconds, its date to a date format and its time of day
// to a time format; a time gives its seconds.  A number format takes the
// literal's own number.  Nothing when `text` has none of these shapes; a
// UsageError when it has one but names no real date or time, or when a time
// goes to a date or datetime format (or a date to a time format).
std::optional<double> parse_literal(std::string_view text, ValueKind kind);

}  // namespace corvinel::cli

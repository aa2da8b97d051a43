// Rules over the date and time items of a finished record (after the fixed
// values): numeric dates zero-padded, quarter patterns that do not repeat
// the words of the quarter names, era years where the locale counts them,
// and the datetime items joined from the date items and the locale's own
// clock.  Each rule reports what it changed; `date_item_problems` names
// what a record still breaks, so that the generator can refuse it.
#pragma once

#include <string>
#include <vector>

#include "locale_record.h"

namespace corvinel::locale_data {

// What the sources say of a record's dates and times beside its items.
struct RecordClock {
  bool twelve_hour = true;      // the locale's own clock
  bool era_years = false;       // its default calendar counts another era (Buddhist)
  std::string gregorian_marker;  // the era name that marks a Gregorian year, escaped
};

struct DateRuleChange {
  std::string rule;
  int item;
  ItemText before;
  ItemText after;
};

// Applies the rules to one record; items in `fixed` (their codes) keep
// their values.  Returns the changes in rule order.
std::vector<DateRuleChange> apply_date_item_rules(LocaleRecord &record, const RecordClock &clock,
                                                  const std::vector<int> &fixed);

// What the record's date items break: a blank-padded number in an
// all-digit date, a quarter pattern that repeats words of the quarter
// names, a 12-hour marker where the locale keeps a 24-hour clock.
std::vector<std::string> date_item_problems(const LocaleRecord &record, const RecordClock &clock);

// True when a date pattern names no month, weekday or quarter: its numbers
// are the whole date.
bool all_digit_date(const std::string &pattern);

}  // namespace corvinel::locale_data

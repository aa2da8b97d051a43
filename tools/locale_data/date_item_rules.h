// Rules over the date and time items of a finished record (after the fixed
// values): quarter patterns that do not repeat the words of the quarter
// names, era years where the locale counts them, the datetime items joined
// from the date items and the locale's own clock, no number padded with a
// blank, and short items that fit their formats' default widths.  Each rule reports what it changed; `date_item_problems` names
// what a record still breaks, so that the generator can refuse it.
#pragma once

#include <string>
#include <vector>

#include "locale_record.h"

namespace corvinel::locale_data {

// What the sources say of a record's dates and times beside its items.
// A shorter pattern for a short item, from CLDR's next shorter skeleton
// (for a datetime item, its date part), escaped.
struct ShorterPattern {
  int item;
  std::string pattern;
  const char *reason;
  bool numeric_quarter = false;  // needs the narrow quarter names below
  bool twenty_four_hour = false;  // a datetime joined with item 53's 24-hour time
};

struct RecordClock {
  bool twelve_hour = true;      // the locale's own clock
  bool era_years = false;       // its default calendar counts another era (Buddhist)
  std::string gregorian_marker;  // the era name that marks a Gregorian year, escaped
  std::string era_marker;        // with era_years: the name of the locale's era, escaped
  std::vector<ShorterPattern> shorter;  // in the order of the short item table
  std::vector<std::string> narrow_quarters;  // CLDR's narrow quarter names, escaped
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

// What the record's date items (those not in `fixed`) break: a number
// padded with a blank, two blanks in a row, a quarter pattern that repeats
// words of the quarter names, a 12-hour marker where the locale keeps a
// 24-hour clock, a Gregorian year in a record of another era, a four-digit
// year of that era without its marker outside the short items, an
// ISO-style week date not numbered as ISO weeks.
std::vector<std::string> date_item_problems(const LocaleRecord &record, const RecordClock &clock,
                                            const std::vector<int> &fixed);

// The short items (not in `fixed`) that are still wider than their formats'
// default widths when no shorter skeleton fits: "item 41: 26 bytes > 16".
std::vector<std::string> short_item_overflows(const LocaleRecord &record, const std::vector<int> &fixed);

}  // namespace corvinel::locale_data

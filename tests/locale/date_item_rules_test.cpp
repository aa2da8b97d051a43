// The generator's rules over the date items of a finished record.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "date_item_rules.h"
#include "short_items.h"

namespace {

using namespace corvinel::locale_data;

LocaleRecord record_with(std::initializer_list<std::pair<int, const char *>> items) {
  LocaleRecord record;
  for (const auto &[code, text] : items) record[code] = text;
  return record;
}

TEST(DateItemRules, NoNumberPaddedWithABlank) {
  // 32 is fixed with "%e"; the datetime joined from it is generated.
  LocaleRecord record = record_with({{32, "%A, %e. %B %Y"}, {53, "%H:%M:%S"}, {30, "%o/%E/%Y"}});
  RecordClock clock;
  clock.twelve_hour = false;
  apply_date_item_rules(record, clock, {32});
  EXPECT_EQ(*record[32], "%A, %e. %B %Y");
  EXPECT_EQ(*record[50], "%A, %#d. %B %Y %H:%M:%S");
  EXPECT_EQ(*record[30], "%#m/%#d/%Y");
  EXPECT_TRUE(date_item_problems(record, clock, {32}).empty());
  EXPECT_EQ(date_item_problems(record, clock, {}).size(), 1u);  // 32 itself, were it generated
}

TEST(DateItemRules, IsoStyleWeeksNumberedAsIsoWeeks) {
  LocaleRecord record = record_with({{42, "%Y-W%W"}, {43, "%y-W%U"}});
  apply_date_item_rules(record, RecordClock{}, {});
  EXPECT_EQ(*record[42] + " " + *record[43], "%G-W%V %g-W%V");
  record = record_with({{42, "%Y-W%U"}, {43, "W%W %y"}});
  apply_date_item_rules(record, RecordClock{}, {42});
  EXPECT_EQ(*record[42] + " " + *record[43], "%Y-W%U W%W %y");
}

TEST(DateItemRules, ProblemsOfGeneratedItems) {
  struct Case {
    int code;
    const char *pattern;
    bool era_years;
    const char *problem;  // nullptr: none
  };
  const Case cases[] = {
      {29, "%#d/%#m/%Y", false, nullptr},
      {31, "%e %B %Y", false, "item 31 pads a number with a blank"},
      {37, "%b  %#d", false, "item 37 writes two blanks in a row"},
      {42, "%Y-W%W", false, "item 42 writes an ISO-style week date not numbered as ISO weeks"},
      {43, "%g-W%V", false, nullptr},
      {42, "Week %W %Y", false, nullptr},
      {35, "%#b %Y", true, "item 35 shows a Gregorian year"},
      {35, "%#b %+Y", true, nullptr},
      {28, "%#d %B <U0E04>.<U0E28>. %+Y", true, "item 28 names the common era"},
  };
  for (const Case &c : cases) {
    RecordClock clock;
    clock.era_years = c.era_years;
    clock.gregorian_marker = "<U0E04>.<U0E28>.";
    const auto problems = date_item_problems(record_with({{c.code, c.pattern}}), clock, {});
    if (c.problem == nullptr) {
      EXPECT_TRUE(problems.empty()) << c.pattern << ": " << (problems.empty() ? "" : problems.front());
    } else {
      ASSERT_EQ(problems.size(), 1u) << c.pattern;
      EXPECT_EQ(problems.front(), c.problem);
    }
  }
}

TEST(DateItemRules, NameTheQuarterOnce) {
  LocaleRecord record = record_with({{40, "%Y<U5E74><U7B2C>%q<U5B63><U5EA6>"}, {41, "Q%q %Y"}});
  for (int i = 0; i < 4; ++i) {
    record[135 + i] = std::to_string(i + 1) + "<U5B63><U5EA6>";
    record[139 + i] = "Q" + std::to_string(i + 1);
  }
  record[41] = "Q%Q %Y";
  apply_date_item_rules(record, RecordClock{}, {});
  EXPECT_EQ(*record[40], "%Y<U5E74><U7B2C>%q");
  EXPECT_EQ(*record[41], "%Q %Y");
}

// The era's marker stands before each four-digit year, once, in the
// item's escape letter; two-digit years stay as CLDR writes them.
TEST(DateItemRules, EraYearsInEveryItemThatShowsAYear) {
  LocaleRecord record = record_with({{28, "%#d %B %Y"}, {29, "%#d/%#m/%y"}, {32, "%A %#d %B <u0E1E>.<u0E28>. %Y"},
                                     {33, "%a %#d %b %Y"}, {38, "<U0E1E>.<U0E28>. %+Y"}, {42, "Week %U %Y"},
                                     {43, "W%U %y"}, {53, "%H:%M:%S"}});
  RecordClock clock;
  clock.era_years = true;
  clock.twelve_hour = false;
  clock.era_marker = "<U0E1E>.<U0E28>.";
  apply_date_item_rules(record, clock, {});
  const struct {
    int code;
    const char *pattern;
  } cases[] = {{28, "%#d %B <U0E1E>.<U0E28>. %+Y"},
               {29, "%#d/%#m/%+y"},
               {32, "%A %#d %B <u0E1E>.<u0E28>. %+Y"},
               {33, "%a %#d %b <u0E1E>.<u0E28>. %+Y"},
               {38, "<U0E1E>.<U0E28>. %+Y"},
               {42, "Week %U <U0E1E>.<U0E28>. %+Y"},
               {43, "W%U %+y"},
               {46, "%#d %B <U0E1E>.<U0E28>. %+Y %H:%M:%S"},
               {47, "%#d/%#m/%+y %H:%M:%S"}};
  for (const auto &c : cases) EXPECT_EQ(*record[c.code], c.pattern) << c.code;
  EXPECT_TRUE(date_item_problems(record, clock, {}).empty());
  // Outside the short items an unmarked era year is refused.
  for (const auto &[code, problems] : {std::pair{30, 1u}, std::pair{35, 0u}}) {
    EXPECT_EQ(date_item_problems(record_with({{code, "%#d %b %+Y"}}), clock, {}).size(), problems) << code;
  }
}

TEST(DateItemRules, DatetimesJoinTheDateAndTheLocalesClock) {
  const auto build = [](bool twelve_hour) {
    LocaleRecord record = record_with({{28, "%d %B %Y"}, {29, "%d/%m/%Y"}, {30, "%d %b %Y"}, {31, "%e %B %Y"},
                                       {32, "%A <u00E9> %e %B %Y"}, {33, "%a %e %b %Y"},
                                       {52, "%I:%M:%S %p"}, {53, "%H:%M:%S"}, {47, "fixed"}});
    RecordClock clock;
    clock.twelve_hour = twelve_hour;
    apply_date_item_rules(record, clock, {47});
    return record;
  };
  const LocaleRecord day = build(false);
  EXPECT_EQ(*day[44], "%#d %B %Y %I:%M:%S %p");  // 44 and 45 keep the 12-hour clock
  EXPECT_EQ(*day[46], "%d %B %Y %H:%M:%S");
  EXPECT_EQ(*day[47], "fixed");
  EXPECT_EQ(*day[50], "%A <u00E9> %#d %B %Y %H:%M:%S");
  EXPECT_EQ(*day[55], "%H:%M:%S");
  RecordClock twenty_four_hours;
  twenty_four_hours.twelve_hour = false;
  EXPECT_TRUE(date_item_problems(day, twenty_four_hours, {}).empty());
  const LocaleRecord half_day = build(true);
  EXPECT_EQ(*half_day[50], "%A <u00E9> %#d %B %Y %I:%M:%S %p");
  // 48 to 51 and 55; 47 is fixed, 54 absent.
  EXPECT_EQ(date_item_problems(half_day, twenty_four_hours, {47}).size(), 5u);
}

// A record with names of known widths: months of 3 and 10 bytes
// (abbreviated, wide), weekdays of 3 and 6, quarters of 19 bytes ("<U0627>"
// is two bytes in UTF-8), markers of 2.
LocaleRecord named_record() {
  LocaleRecord record;
  for (int i = 0; i < 12; ++i) {
    record[item::kMonthsAbbreviated + i] = record[item::kStandaloneMonthsAbbreviated + i] = "Abc";
    record[item::kMonthsWide + i] = record[item::kStandaloneMonthsWide + i] = "Abcdefghij";
  }
  for (int i = 0; i < 7; ++i) {
    record[item::kWeekdaysAbbreviated + i] = record[item::kStandaloneWeekdaysAbbreviated + i] = "Mon";
    record[item::kWeekdaysWide + i] = record[item::kStandaloneWeekdaysWide + i] = "Monday";
  }
  for (int i = 0; i < 4; ++i) {
    for (const int base : {135, 139, 143, 147}) record[base + i] = "<U0627><U0627><U0627><U0627><U0627> Quarter" + std::to_string(i + 1);
  }
  record[item::kAm] = "AM";
  record[item::kPm] = "PM";
  return record;
}

TEST(ShortItems, WidestExpansionInUtf8Bytes) {
  const LocaleRecord record = named_record();
  const struct {
    const char *pattern;
    std::size_t bytes;
  } cases[] = {{"%#d/%#m/%Y", 10}, {"%#b %Y", 8}, {"%B %+y", 13}, {"%q %Y", 24}, {"%A, %#d<u00E9>", 12},
               {"%#I:%M:%S %p", 11}, {"%G-W%V %j %u", 14}, {"%x", 13}, {"100%% %Z %z", 14}};
  LocaleRecord with_long_date = record;
  with_long_date[item::kLongDate] = "%#d %B";
  for (const auto &c : cases) EXPECT_EQ(widest_bytes(c.pattern, with_long_date), c.bytes) << c.pattern;
  EXPECT_EQ(widest_bytes("%#I:%M:%S %p", record, true), 10u);  // hours 1 to 9
  EXPECT_EQ(widest_bytes("%I:%M:%S %p", record, true), 11u);
}

// Items wider than their formats take the first shorter candidate that fits;
// fixed items and items that fit stay.
TEST(ShortItems, TakeTheFirstShorterSkeletonThatFits) {
  LocaleRecord record = named_record();
  record[35] = "%#B %Y <U0433>.";        // 17 bytes > 16
  record[37] = "%b %#d";                 // fits
  record[41] = "%q %Y";                  // 25 bytes
  record[33] = "%A, %#d %B %Y";          // 51 = 33 + time: 25 + 1 + 19 + 6 > 40
  record[53] = "%H:%M:%S Uhr <U0627>";   // 15 bytes
  record[29] = "%#d.%#m.%Y %#d.%#m.%Y %#d";  // 24 bytes, but fixed (and 47 with it)
  RecordClock clock;
  clock.twelve_hour = false;
  clock.shorter = {{35, "%#m.%Y", "numeric month"},
                   {41, "%#q %Y", "standalone"},  // the same long names
                   {41, "%q %Y", "numeric quarter", true},
                   {51, "%a %#d %b %Y", "abbreviated"},
                   {51, "%a %#d.%#m.%Y", "numeric month"}};
  clock.narrow_quarters = {"1", "2", "3", "4"};
  const auto changes = apply_date_item_rules(record, clock, {29, 47});
  EXPECT_EQ(*record[35], "%#m.%Y");
  EXPECT_EQ(*record[37], "%b %#d");
  EXPECT_EQ(*record[41], "%q %Y");
  EXPECT_EQ(*record[135] + *record[138] + *record[143], "14<U0627><U0627><U0627><U0627><U0627> Quarter1");
  EXPECT_EQ(*record[51], "%a %#d %b %Y %H:%M:%S Uhr <u0627>");
  EXPECT_EQ(*record[29], "%#d.%#m.%Y %#d.%#m.%Y %#d");
  std::string rules;
  for (const DateRuleChange &c : changes) {
    if (c.rule.starts_with("short items fit: ")) rules += std::to_string(c.item) + " " + c.rule.substr(17) + "; ";
  }
  EXPECT_EQ(rules,
            "35 numeric month; 135 numeric quarter; 136 numeric quarter; 137 numeric quarter; 138 numeric quarter; "
            "51 abbreviated; ");
  EXPECT_TRUE(short_item_overflows(record, {29, 47}).empty());
  EXPECT_EQ(short_item_overflows(record, {47}), std::vector<std::string>{"item 29 (NLDATE): 24 bytes > 20"});
}

// In a record of another era a short item drops the era's marker only where
// it does not fit with it; a datetime whose 12-hour day periods overflow
// every date part takes the 24-hour time.
TEST(ShortItems, DropTheEraMarkerOrTheTwelveHourClockLast) {
  LocaleRecord record = named_record();
  record[item::kAm] = record[item::kPm] = "<U0B95><U0BBE><U0BB2><U0BC8><U0B95><U0BBE><U0BB2><U0BC8>";  // 24 bytes
  record[33] = "%a, %#d %b %Y";
  record[35] = "%#b %Y";   // "Abc X.Y. 2546": 8 + 9 bytes with the marker
  record[41] = "%q %Y";    // the narrow quarter fits with it
  record[52] = "%#I:%M:%S %p";
  record[53] = "%H:%M:%S";
  RecordClock clock;
  clock.era_years = true;
  clock.era_marker = "<U0E1E>.<U0E28>.";
  clock.shorter = {{41, "%q %Y", "numeric quarter", true},
                   {51, "%#d/%#m/%Y", "numeric date"},
                   {51, "%#d/%#m/%Y", "24-hour time", false, true}};
  clock.narrow_quarters = {"1", "2", "3", "4"};
  const auto changes = apply_date_item_rules(record, clock, {});
  EXPECT_EQ(*record[35], "%#b %+Y");
  EXPECT_EQ(*record[41], "%q <U0E1E>.<U0E28>. %+Y");
  EXPECT_EQ(*record[51], "%#d/%#m/<u0E1E>.<u0E28>. %+Y %H:%M:%S");  // 34 bytes with the zone
  std::string rules;
  for (const DateRuleChange &c : changes) {
    if (c.rule.starts_with("short items fit: ") && c.item != 41 && c.item < 135) rules += c.rule.substr(17) + "; ";
  }
  EXPECT_EQ(rules, "the era marker makes it too long for NLDATEYM's 16 bytes: the era's year without it; 24-hour time; ");
  EXPECT_EQ(short_item_overflows(record, {}), std::vector<std::string>{"item 52 (NLTIMAP): 32 bytes > 10"});
}

}  // namespace

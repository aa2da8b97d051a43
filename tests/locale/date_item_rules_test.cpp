// The generator's rules over the date items of a finished record.
#include <gtest/gtest.h>

#include <string>

#include "date_item_rules.h"

namespace {

using namespace corvinel::locale_data;

LocaleRecord record_with(std::initializer_list<std::pair<int, const char *>> items) {
  LocaleRecord record;
  for (const auto &[code, text] : items) record[code] = text;
  return record;
}

TEST(DateItemRules, PadNumericDatesWithZerosOnly) {
  LocaleRecord record = record_with({{30, "%e.%o.%Y"}, {31, "%e. %B %Y"}, {29, "%Y. %o. %e."}});
  apply_date_item_rules(record, RecordClock{}, {});
  EXPECT_EQ(*record[30], "%d.%m.%Y");
  EXPECT_EQ(*record[29], "%Y. %m. %d.");
  EXPECT_EQ(*record[31], "%e. %B %Y");  // a name beside the day keeps the blank
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

TEST(DateItemRules, EraYearsWhereTheYearIsNotMarkedGregorian) {
  LocaleRecord record = record_with({{28, "%d %B <U0E04>.<U0E28>. %Y"}, {29, "%d/%m/%y"},
                                     {32, "%A %e %B <u0E04>.<u0E28>. %Y"}, {38, "%+Y"}});
  RecordClock clock;
  clock.era_years = true;
  clock.gregorian_marker = "<U0E04>.<U0E28>.";
  apply_date_item_rules(record, clock, {});
  EXPECT_EQ(*record[28], "%d %B <U0E04>.<U0E28>. %Y");
  EXPECT_EQ(*record[29], "%d/%m/%+y");
  EXPECT_EQ(*record[32], "%A %e %B <u0E04>.<u0E28>. %Y");
  EXPECT_EQ(*record[38], "%+Y");
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
  EXPECT_EQ(*day[44], "%e %B %Y %I:%M:%S %p");  // 44 and 45 keep the 12-hour clock
  EXPECT_EQ(*day[46], "%d %B %Y %H:%M:%S");
  EXPECT_EQ(*day[47], "fixed");
  EXPECT_EQ(*day[50], "%A <u00E9> %e %B %Y %H:%M:%S");
  EXPECT_EQ(*day[55], "%H:%M:%S");
  RecordClock twenty_four_hours;
  twenty_four_hours.twelve_hour = false;
  EXPECT_TRUE(date_item_problems(day, twenty_four_hours).empty());
  const LocaleRecord half_day = build(true);
  EXPECT_EQ(*half_day[50], "%A <u00E9> %e %B %Y %I:%M:%S %p");
  // 48 to 51 and 55; 47 is fixed, 54 absent.
  EXPECT_EQ(date_item_problems(half_day, twenty_four_hours).size(), 5u);
}

}  // namespace

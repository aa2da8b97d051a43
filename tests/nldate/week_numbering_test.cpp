// Week numbers against std::chrono over four centuries, the week renderings
// of zkfweek, the digit writer, and the entry routines' value handling.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <string>

#include "corvinel/missing.h"
#include "corvinel/weeks.h"
#include "nldate/entry_routines.h"
#include "nldate/expander_support.h"
#include "nldate/week_numbering.h"

namespace corvinel::testing {
namespace {

using namespace std::chrono;

// The ISO 8601 week of a day: the week of its Thursday, counted from the
// week holding 4 January.
struct IsoWeek {
  int year;
  int week;
  unsigned day;  // 1 = Monday .. 7 = Sunday
};
IsoWeek iso_week(sys_days day) {
  const unsigned iso_day = weekday{day}.iso_encoding();
  const sys_days thursday = day - days{iso_day - 1} + days{3};
  const std::chrono::year y = year_month_day{thursday}.year();
  const sys_days week1_thursday = sys_days{y / January / 1} +
                                  days{(11 - weekday{sys_days{y / January / 1}}.iso_encoding()) % 7};
  return {static_cast<int>(y), static_cast<int>((thursday - week1_thursday).count() / 7 + 1), iso_day};
}

TEST(WeekNumbering, AgreesWithTheCivilCalendarFrom1582To3999) {
  const sys_days origin = std::chrono::year{1960} / January / 1;
  const sys_days first = std::chrono::year{1582} / January / 1;
  const sys_days last = std::chrono::year{3999} / December / 31;
  const char u = 'U', w = 'W', v = 'V';
  for (sys_days day = first; day <= last; day += days{1}) {
    const double date = static_cast<double>((day - origin).count());
    const year_month_day ymd{day};
    const int yday = static_cast<int>((day - sys_days{ymd.year() / January / 1}).count());
    const int wday = static_cast<int>(weekday{day}.c_encoding());  // 0 = Sunday
    double year = 0, week = 0, dow = 0;

    get_yywwdd(&u, nullptr, &year, &week, &dow, date);
    ASSERT_EQ(static_cast<int>(week), (yday + 7 - wday) / 7) << date;
    ASSERT_EQ(dow, wday + 1);
    ASSERT_EQ(year, static_cast<int>(ymd.year()));

    get_yywwdd(&w, nullptr, &year, &week, &dow, date);
    ASSERT_EQ(static_cast<int>(week), (yday + 7 - (wday + 6) % 7) / 7) << date;
    ASSERT_EQ(dow, wday == 0 ? 7 : wday);

    const IsoWeek iso = iso_week(day);
    get_yywwdd(&v, nullptr, &year, &week, &dow, date);
    ASSERT_EQ(year, iso.year) << date;
    ASSERT_EQ(week, iso.week) << date;
    ASSERT_EQ(dow, iso.day) << date;
  }
}

// The ISO week date in the module's own calendar, where a year divisible
// by 4000 has no 29 February: worked out from the day-count formula and the
// weekday of day 0 (a Friday), independently of the calendar routines.
struct OwnCalendarWeek {
  int64_t year, week, day;
};
int64_t own_leap_days_through(int64_t y) { return y / 4 - y / 100 + y / 400 - y / 4000; }
int64_t own_first_of_year(int64_t y) { return 1 + 365 * y + own_leap_days_through(y - 1) - 715875; }
int64_t iso_weekday(int64_t day) { return ((day + 4) % 7 + 7) % 7 + 1; }  // 1 = Monday
int64_t own_first_monday(int64_t y) {
  const int64_t january4 = own_first_of_year(y) + 3;
  return january4 - (iso_weekday(january4) - 1);
}
OwnCalendarWeek own_iso_week(int64_t day, int64_t calendar_year) {
  int64_t y = calendar_year + 1;
  while (own_first_monday(y) > day) --y;
  return {y, (day - own_first_monday(y)) / 7 + 1, iso_weekday(day)};
}

// Every day of the years around 1600 and each 4000-year turn, and a sample
// of the rest of the range.
TEST(WeekNumbering, IsoWeeksCountTheModulesOwnCalendar) {
  const auto in_dense_years = [](int64_t year) {
    if (year < 1602) return true;
    const int64_t into = year % 4000;
    return into >= 3999 || into <= 1;
  };
  const char v = 'V';
  int checked = 0;
  for (int64_t year = 1582; year <= 20000; ++year) {
    const int64_t first = own_first_of_year(year), next = own_first_of_year(year + 1);
    const int64_t step = in_dense_years(year) ? 1 : 37;
    for (int64_t day = first + year % step; day < next; day += step) {
      const OwnCalendarWeek want = own_iso_week(day, year);
      double y = 0, week = 0, dow = 0;
      get_yywwdd(&v, nullptr, &y, &week, &dow, static_cast<double>(day));
      ASSERT_EQ(y, want.year) << day;
      ASSERT_EQ(week, want.week) << day;
      ASSERT_EQ(dow, want.day) << day;
      ++checked;
    }
  }
  EXPECT_GT(checked, 150000);
}

TEST(WeekNumbering, EdgeDaysOfTheStyles) {
  const struct {
    char style;
    double date;
    double year, week, day;
  } kRows[] = {
      {'V', day_number(2021, 1, 1), 2020, 53, 5},
      {'V', day_number(2024, 12, 31), 2025, 1, 2},
      {'V', day_number(2015, 1, 4), 2015, 1, 7},
      {'U', day_number(2023, 1, 1), 2023, 1, 1},
      {'U', day_number(2024, 1, 1), 2024, 6.0 / 7.0, 2},
      {'W', day_number(2023, 1, 1), 2023, 1.0 / 7.0, 7},
      {'W', day_number(2023, 1, 2), 2023, 8.0 / 7.0, 1},
      {'X', day_number(2023, 1, 2), 2023, -1, 4},
  };
  for (const auto &row : kRows) {
    double year = 0, week = 0, day = 0;
    EXPECT_EQ(get_yywwdd(&row.style, nullptr, &year, &week, &day, row.date), 0);
    EXPECT_EQ(year, row.year) << row.style << row.date;
    EXPECT_DOUBLE_EQ(week, row.week) << row.style << row.date;
    EXPECT_EQ(day, row.day) << row.style << row.date;
  }
  // Days it cannot number: every part -1.
  for (const double date : {std_miss_val, double{NAN}, double{INFINITY}, -138062.0, 6589336.0}) {
    const char style = 'V';
    double year = 0, week = 0, day = 0;
    get_yywwdd(&style, nullptr, &year, &week, &day, date);
    EXPECT_EQ(year, -1);
    EXPECT_EQ(week, -1);
    EXPECT_EQ(day, -1);
  }
}

TEST(WeekRendering, WidthChoosesTheForm) {
  const double jan1_2021 = day_number(2021, 1, 1);
  const struct {
    int32_t width;
    const char *field;
  } kRows[] = {
      {0, "53"},          {1, "53"},          {2, "53"},           {3, "W53"},
      {4, "W53 "},        {5, "20W53"},       {6, "20W53 "},       {7, "20W5305"},
      {8, "20W5305 "},    {9, "2020W5305"},   {10, "2020W5305 "},  {11, "2020-W53-05"},
      {14, "2020-W53-05   "},
  };
  const char style = 'V';
  for (const auto &row : kRows) {
    std::string buffer(20, '~');
    int32_t width = row.width;
    EXPECT_EQ(zkfweek(buffer.data(), &width, &style, nullptr, jan1_2021), 0);
    const std::string field = row.field;
    EXPECT_EQ(buffer.substr(0, field.size()), field) << row.width;
    EXPECT_EQ(buffer.substr(field.size()), std::string(20 - field.size(), '~')) << row.width;
    const std::string text = field.substr(0, field.find(' '));
    EXPECT_EQ(width, static_cast<int32_t>(text.size())) << row.width;
  }
  // Days before 1600, after the 28 February of 4000 and the last of the range.
  const struct {
    double date;
    const char *text;
  } kDays[] = {
      {day_number(1600, 1, 1), "1599-W52-06"},
      {day_number(1582, 1, 1), "1581-W53-05"},
      // 1 March 4000, the day the Gregorian count calls 29 February, a Tuesday.
      {static_cast<double>(own_first_of_year(4000) + 59), "4000-W09-02"},
      // 31 December 20000 lies in week 1 of 20001 (the year's last four digits).
      {static_cast<double>(own_first_of_year(20001) - 1), "0001-W01-02"},
  };
  for (const auto &row : kDays) {
    char field[12];
    int32_t field_width = 11;
    zkfweek(field, &field_width, &style, nullptr, row.date);
    EXPECT_EQ(std::string(field, static_cast<std::size_t>(field_width)), row.text) << row.date;
  }
  // A date it cannot number: the field of "*", the width kept.
  std::string buffer(8, '~');
  int32_t width = 6;
  zkfweek(buffer.data(), &width, &style, nullptr, std_miss_val);
  EXPECT_EQ(buffer, "******~~");
  EXPECT_EQ(width, 6);
}

TEST(DigitWriter, PadsAndCuts) {
  const struct {
    int32_t value, width;
    char pad;
    const char *written;
  } kRows[] = {
      {5, 2, ' ', " 5"}, {5, 2, 0, "5"},     {123, 2, '0', "23"}, {0, 2, ' ', " 0"},
      {7, 4, '*', "***7"}, {1234567890, 0, 0, "1234567890"}, {-42, 3, '0', "042"},
      {0, 0, 0, "0"},    {5, 0, '0', ""},
  };
  for (const auto &row : kRows) {
    char buffer[16] = {};
    const int32_t n = i2s(row.value, buffer, row.width, row.pad);
    EXPECT_EQ(std::string(buffer, static_cast<std::size_t>(n)), row.written) << row.value;
  }
}

TEST(EntryRoutines, RejectValuesAndItemsAsTheFormatsExpect) {
  char buffer[nldate::kWorkAreaSize];
  int32_t width = nldate::kWorkAreaSize;
  EXPECT_EQ(nldate::zkfdate(1, buffer, &width, nullptr, 189, 0), nldate::kItemNotFetched);
  EXPECT_EQ(nldate::zkfdate(1, buffer, &width, nullptr, 28, std_miss_val), nldate::kValueRejected);
  EXPECT_EQ(nldate::zkfdate(1, buffer, &width, nullptr, 28, -138062), nldate::kValueRejected);
  EXPECT_EQ(nldate::zkfdttm(1, buffer, &width, nullptr, 46, 0, 569318630400.0),
            nldate::kValueRejected);
  EXPECT_EQ(nldate::zkftime(1, buffer, &width, nullptr, 53, 0, -1), nldate::kValueRejected);
}

// The value each routine hands the expander: a datetime rounded before it
// is split (rolling into the next day), a time whose hour is not reduced,
// the zone suffix of bit 8, the item in the selector's low 8 bits.
TEST(EntryRoutines, SplitTheValueAfterRounding) {
  const int32_t en_us = record_number("en", "US");
  const auto run = [](auto routine) {
    char buffer[nldate::kWorkAreaSize];
    int32_t width = nldate::kWorkAreaSize;
    const int32_t result = routine(buffer, &width);
    return result == 0 ? std::string(buffer, static_cast<std::size_t>(width))
                       : "result " + std::to_string(result);
  };
  const double last_second = 19316 * 86400.0 + 86399.9995;  // 19 November 2012
  EXPECT_EQ(run([&](char *b, int32_t *w) {
              return nldate::zkfdttm(en_us, b, w, "%d %T %S", 8, 3, last_second);
            }),
            "20 00:00:00 00.000");
  EXPECT_EQ(run([&](char *b, int32_t *w) {
              return nldate::zkfdttm(en_us, b, w, "%d %T %S", 8, 2, last_second);
            }),
            "20 00:00:00 00.00");
  EXPECT_EQ(run([&](char *b, int32_t *w) {
              return nldate::zkftime(en_us, b, w, "%H:%M", 5, 0, 90000 + 3599.6);
            }),
            "26:00");
  EXPECT_EQ(run([&](char *b, int32_t *w) {
              return nldate::zkfdttm(en_us, b, w, nullptr, 53 + nldate::kSelectorMark, 0, 52732);
            }),
            "14:38:52");
  const std::string zoned = run([&](char *b, int32_t *w) {
    return nldate::zkfdttm(en_us, b, w, nullptr, 53 + nldate::kAppendZoneOffset, 0, 52732);
  });
  ASSERT_EQ(zoned.size(), 14u);
  EXPECT_EQ(zoned.substr(0, 9), "14:38:52 ");
  EXPECT_NE(std::string("+-").find(zoned[9]), std::string::npos);
  EXPECT_EQ(run([&](char *b, int32_t *w) {
              return nldate::zkfdate(en_us, b, w, nullptr, 28, day_number(2003, 2, 24));
            }),
            "February 24, 2003");
}

}  // namespace
}  // namespace corvinel::testing

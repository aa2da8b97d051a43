// The date pattern expander: its directives against worked-out texts and
// against strftime, the in-place item reads against the wzssglc path, the
// zone offset against the C library, and its bounds with guard bytes.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "corvinel/calendar.h"
#include "corvinel/missing.h"
#include "nldate/expander_support.h"
#include "nldate/pattern_expander.h"

namespace corvinel::testing {
namespace {

const double kMissing = std_miss_val;

struct Row {
  const char *language;  // of the record, with the country
  const char *country;
  const char *pattern;
  double date;
  double hour, minute, second;
  int32_t digits;
  int32_t result;
  const char *expected;
};

// 5 March 2003 is a Wednesday, 2 March 2003 a Sunday.
const double k5Mar2003 = day_number(2003, 3, 5);
const double k3Mar2003 = day_number(2003, 3, 3);

const Row kRows[] = {
    {"en", "US", "%%", k5Mar2003, kMissing, kMissing, kMissing, 0, 0, "%"},
    {"en", "US", "%d.%m.%Y", k5Mar2003, kMissing, kMissing, kMissing, 0, 0, "05.03.2003"},
    {"en", "US", "%#d|%e|%d|%o|%#m", k5Mar2003, kMissing, kMissing, kMissing, 0, 0,
     "5| 5|05| 3|3"},
    {"en", "US", "%x", k5Mar2003, kMissing, kMissing, kMissing, 0, 0, "March 05, 2003"},
    {"en", "US", "%X", kMissing, 13, 7, 9, 0, 0, "13:07:09"},
    {"en", "US", "%a %A %b %B", k5Mar2003, kMissing, kMissing, kMissing, 0, 0,
     "Wed Wednesday Mar March"},
    // The widest-name fields: "Wednesday" and "September" are nine bytes.
    {"en", "US", "%F|%f|%C|%c|", k3Mar2003, kMissing, kMissing, kMissing, 0, 0,
     "Monday   |Mon|March    |March    |"},
    {"en", "US", "%j", k5Mar2003, kMissing, kMissing, kMissing, 0, 0, "064"},
    {"en", "US", "%Y|%y", day_number(12345, 6, 1), kMissing, kMissing, kMissing, 0, 0, "2345|45"},
    {"en", "US", "%I %L", kMissing, 0, 0, 0, 0, 0, "12 00"},
    {"en", "US", "%I %L %p", kMissing, 12, 0, 0, 0, 0, "12 12 PM"},
    {"en", "US", "%I %L %p %H", kMissing, 13, 0, 0, 0, 0, "01 01 PM 13"},
    {"en", "US", "%k|%H|%#H", kMissing, 0, 0, 0, 0, 0, "24|00|0"},
    {"en", "US", "%H|%K", kMissing, 105, 0, 0, 0, 0, "105|105"},
    {"en", "US", "%n", kMissing, 50, 0, 0, 0, 0, "2"},
    {"en", "US", "%q %Q", k5Mar2003, kMissing, kMissing, kMissing, 0, 0, "Q1 1st quarter"},
    {"en", "US", "%u %w", day_number(2003, 3, 2), kMissing, kMissing, kMissing, 0, 0, "7 0"},
    {"en", "US", "%U", day_number(2024, 1, 1), kMissing, kMissing, kMissing, 0, 0, "00"},
    {"en", "US", "%U", day_number(2023, 1, 1), kMissing, kMissing, kMissing, 0, 0, "01"},
    {"en", "US", "%V %G %g", day_number(2021, 1, 1), kMissing, kMissing, kMissing, 0, 0,
     "53 2020 20"},
    {"en", "US", "%W|%W", day_number(2023, 1, 1), kMissing, kMissing, kMissing, 0, 0, "00|00"},
    {"en", "US", "%W", day_number(2023, 1, 2), kMissing, kMissing, kMissing, 0, 0, "01"},
    {"en", "US", "%Z|%t|%v|", k5Mar2003, 1, 2, 3, 0, 0, "XST|||"},
    // Fractions: the last digit rounds, but never a 9 and never with a carry.
    {"en", "US", "%S", kMissing, 0, 0, 5.996, 2, 0, "05.99"},
    {"en", "US", "%S", kMissing, 0, 0, 5.125, 2, 0, "05.13"},
    {"en", "US", "%S|%s|%?S", kMissing, 0, 0, 5.125, 1, 0, "05.1|05|05.1"},
    {"en", "US", "%S", kMissing, 0, 0, kMissing, 3, 0, "**.***"},
    {"en", "US", "%T", kMissing, 13, 7, 9.5, 2, 0, "13:07:09"},
    {"en", "US", "%T", kMissing, kMissing, 7, kMissing, 0, 0, "**:07:**"},
    {"en", "US", "%?M|%M", k5Mar2003, 1, 2, 3, 0, 0, "03|02"},
    // A missing date: "**" for its parts and names.
    {"en", "US", "%d %B %a %u %Y %q", kMissing, kMissing, kMissing, kMissing, 0, 0,
     "** ** ** ** ** **"},
    {"en", "US", "%p", kMissing, kMissing, kMissing, kMissing, 0, 0, "**"},
    // Trailing blanks go before the walk; escapes stay as they are.
    {"en", "US", "%d   ", k5Mar2003, kMissing, kMissing, kMissing, 0, 0, "05"},
    {"en", "US", "<U00E9>%d?", k5Mar2003, kMissing, kMissing, kMissing, 0, 0, "<U00E9>05?"},
    // Only one digit of a width is skipped, a "0" is consumed as the pad.
    {"en", "US", "%05d|%+d", k5Mar2003, kMissing, kMissing, kMissing, 0, 0, "05|05"},
    // Unknown directives stop the whole expansion.
    {"en", "US", "%d %R", k5Mar2003, kMissing, kMissing, kMissing, 0, -2, ""},
    {"en", "US", "%r", k5Mar2003, kMissing, kMissing, kMissing, 0, -2, ""},
    {"en", "US", "%d%", k5Mar2003, kMissing, kMissing, kMissing, 0, -2, ""},
    {"en", "US", "%#x", k5Mar2003, kMissing, kMissing, kMissing, 0, -2, ""},
    {"en", "US", "%55d", k5Mar2003, kMissing, kMissing, kMissing, 0, -2, ""},
    // Era years.
    {"zh", "TW", "%+Y", day_number(1911, 6, 1), kMissing, kMissing, kMissing, 0, 0, "0001"},
    {"zh", "TW", "%+Y|%Y", day_number(1910, 6, 1), kMissing, kMissing, kMissing, 0, 0,
     "0002|0002"},  // the flag stays on
    {"zh", "TW", "%+y", day_number(2012, 6, 1), kMissing, kMissing, kMissing, 0, 0, "01"},
    {"th", "TH", "%+Y", day_number(2024, 1, 1), kMissing, kMissing, kMissing, 0, 0, "2567"},
    {"ja", "JP", "%+Y", day_number(1989, 1, 8), kMissing, kMissing, kMissing, 0, 0, "0001"},
    {"ja", "JP", "%+Y", day_number(1989, 1, 7), kMissing, kMissing, kMissing, 0, 0, "0064"},
    {"ja", "JP", "%+Y", day_number(1868, 4, 5), kMissing, kMissing, kMissing, 0, 0, "1868"},
    {"ja", "JP", "%+Y", day_number(2020, 1, 1), kMissing, kMissing, kMissing, 0, 0, "0032"},
    {"en", "US", "%+Y", day_number(2020, 1, 1), kMissing, kMissing, kMissing, 0, 0, "2020"},
    // Format and standalone (alternate) names differ in Polish and Finnish.
    {"pl", "PL", "%B|%#B", k5Mar2003, kMissing, kMissing, kMissing, 0, 0, "marca|marzec"},
    {"fi", "FI", "%B|%#B", k5Mar2003, kMissing, kMissing, kMissing, 0, 0,
     "maaliskuuta|maaliskuu"},
};

class ExpanderRows : public ::testing::TestWithParam<Row> {};

TEST_P(ExpanderRows, WritesTheWorkedOutText) {
  const Row &row = GetParam();
  const int32_t locale = record_number(row.language, row.country);
  ASSERT_GT(locale, 0);
  const Expanded e =
      expand_text(locale, row.pattern, row.date, row.hour, row.minute, row.second, row.digits);
  EXPECT_EQ(e.result, row.result);
  EXPECT_EQ(e.text, row.expected);
}

INSTANTIATE_TEST_SUITE_P(Directives, ExpanderRows, ::testing::ValuesIn(kRows));

// strftime in the C locale writes the same digits for the numeric
// directives; "%o" is glibc's "%_m" and "%k" counts midnight as 24 here.
TEST(Expander, NumericDirectivesAgreeWithStrftime) {
  const char *kOurs = "%a %A %d %e %m %o %y %Y %j %H %M %S %T %U %W %V %G %g %u %w %% %I %L";
  const char *kTheirs = "%a %A %d %e %m %_m %y %Y %j %H %M %S %T %U %W %V %G %g %u %w %% %I %I";
  ASSERT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
  const int32_t en_us = record_number("en", "US");
  std::mt19937 random(20031);
  using namespace std::chrono;
  // From the first day of the range: the weekdays before 1600 are true ones.
  const sys_days first = std::chrono::year{1582} / January / 1;
  const sys_days last = std::chrono::year{3999} / December / 31;
  const sys_days origin = std::chrono::year{1960} / January / 1;
  int checked = 0;
  for (sys_days day = first; day <= last; day += days{1}) {
    const year_month_day ymd{day};
    // Every day around the turn of each year, every 11th day otherwise.
    const bool year_edge = (ymd.month() == January && ymd.day() <= std::chrono::day{10}) ||
                           (ymd.month() == December && ymd.day() >= std::chrono::day{20});
    if (!year_edge && (day - first).count() % 11 != 0) continue;
    const int hour = static_cast<int>(random() % 24), minute = static_cast<int>(random() % 60),
              second = static_cast<int>(random() % 60);
    std::tm tm{};
    tm.tm_year = static_cast<int>(ymd.year()) - 1900;
    tm.tm_mon = static_cast<int>(static_cast<unsigned>(ymd.month())) - 1;
    tm.tm_mday = static_cast<int>(static_cast<unsigned>(ymd.day()));
    tm.tm_wday = static_cast<int>(weekday{day}.c_encoding());
    tm.tm_yday = static_cast<int>((day - sys_days{ymd.year() / January / 1}).count());
    tm.tm_hour = hour % 12 == 0 ? 12 : hour;  // %L differs from %I only at midnight
    tm.tm_min = minute;
    tm.tm_sec = second;
    char theirs[160];
    std::strftime(theirs, sizeof theirs, kTheirs, &tm);
    const Expanded ours = expand_text(en_us, kOurs, static_cast<double>((day - origin).count()),
                                      tm.tm_hour, minute, second);
    ASSERT_EQ(ours.text, theirs) << static_cast<int>(ymd.year()) << "-"
                                 << static_cast<unsigned>(ymd.month()) << "-"
                                 << static_cast<unsigned>(ymd.day());
    ++checked;
  }
  EXPECT_GT(checked, 100000);
}

// The year, month, day and day of year the expander writes agree with the
// calendar routines for every day up to the year 4000 rule (where the
// expander's own integer path ends) and a sample beyond, whole and with a
// fraction (which both floor away).
TEST(Expander, CalendarPartsAgreeWithTheCalendarRoutines) {
  const int32_t en_us = record_number("en", "US");
  const double first = day_number(1582, 1, 1), last = 6589335;  // 31 December 20000
  const double dense_until = day_number(4010, 12, 31);
  char expected[64];
  for (double day = first; day <= last; day += day < dense_until ? 1 : 97) {
    for (const double value : {day, day + 0.75}) {
      double year = 0, month = 0, day_of_month = 0;
      const double julian = zjuldat(value);
      zymdjul(&year, &month, &day_of_month, julian);
      // "%Y" keeps the last four digits of a five-digit year.
      std::snprintf(expected, sizeof expected, "%04.0f %02.0f %02.0f %03.0f",
                    std::fmod(year, 10000.0), month, day_of_month, std::fmod(julian, 1000.0));
      ASSERT_EQ(expand_text(en_us, "%Y %m %d %j", value).text, expected) << value;
    }
  }
}

// Every directive, in every locale, through the in-place item reads and
// through wzssglc: the same bytes and results.
TEST(Expander, InPlaceItemsMatchTheLookupPath) {
  const char *kPatterns[] = {
      "%x %X",   "%a %A %#a %#A %f %F %#f %#F", "%b %B %#b %#B %c %C %#C", "%q %Q %#q %#Q",
      "%p %P",   "%d %e %m %o %j %y %Y %+Y %+y", "%H:%M:%S %k %I %L %n %T", "%U %W %V %G %g %u %w",
      "%Z %% <U20AC>", "%S %?S %s"};
  const double kDates[] = {day_number(2003, 2, 24), day_number(1582, 1, 1),
                           day_number(20000, 12, 31), day_number(1989, 1, 7), kMissing};
  char fast[400], reference[400];
  for (int32_t locale = 0; locale <= CORVINEL_LOCALE_RECORDS + 1; ++locale) {
    for (const char *pattern : kPatterns) {
      for (const double date : kDates) {
        for (const int32_t width : {320, 12, -40}) {
          std::memset(fast, '~', sizeof fast);
          std::memset(reference, '~', sizeof reference);
          int32_t fast_width = width, reference_width = width;
          const auto length = static_cast<int32_t>(std::strlen(pattern));
          const int32_t a = nldate::expand(locale, pattern, length, fast, &fast_width, 3, date,
                                           14, 38, 52.125);
          const int32_t b = nldate::expand_reference(locale, pattern, length, reference,
                                                     &reference_width, 3, date, 14, 38, 52.125);
          ASSERT_EQ(a, b) << locale << " " << pattern;
          ASSERT_EQ(fast_width, reference_width) << locale << " " << pattern;
          ASSERT_EQ(std::string(fast, sizeof fast), std::string(reference, sizeof reference))
              << locale << " " << pattern;
        }
      }
    }
  }
}

// The offset "%z" writes, under fixed zones, and under the machine's own
// against strftime's "%z" for a zone without daylight saving.
TEST(Expander, ZoneOffsetFollowsTheMachinesZone) {
  const SavedZone saved;
  const struct {
    const char *tz;
    const char *expected;
  } kZones[] = {{"UTC0", "+0000"}, {"EST5", "-0500"}, {"IST-5:30", "+0530"},
                {"NST3:30", "-0330"}};
  for (const auto &zone : kZones) {
    setenv("TZ", zone.tz, 1);
    EXPECT_EQ(expand_text(1, "%z", kMissing).text, zone.expected) << zone.tz;
    // The C library's own view of the same zone.
    tzset();
    const time_t now = time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char theirs[16];
    std::strftime(theirs, sizeof theirs, "%z", &local);
    EXPECT_STREQ(theirs, zone.expected) << zone.tz;
  }
}

// Placing the text: cut to the field with result 1, right alignment, a
// null output asking for the length, and nothing written past the field.
TEST(Expander, PlacesTheTextInsideTheField) {
  const int32_t en_us = record_number("en", "US");
  const std::string text = "March 05, 2003";
  const auto length = static_cast<int32_t>(text.size());
  EXPECT_EQ(nldate::expand(en_us, "%x", 2, nullptr, nullptr, 0, k5Mar2003, 0, 0, 0), length);
  for (int32_t width = 0; width <= length + 2; ++width) {
    for (const int32_t sign : {1, -1}) {
      std::string field(static_cast<std::size_t>(width) + 8, '~');
      int32_t w = sign * width;
      const int32_t result =
          nldate::expand(en_us, "%x", 2, field.data(), &w, 0, k5Mar2003, 0, 0, 0);
      EXPECT_EQ(field.substr(static_cast<std::size_t>(width)), "~~~~~~~~") << width;
      if (width < length) {
        EXPECT_EQ(result, 1);
        EXPECT_EQ(w, sign * width);
        EXPECT_EQ(field.substr(0, static_cast<std::size_t>(width)), text.substr(0, width));
      } else {
        EXPECT_EQ(result, 0);
        EXPECT_EQ(w, length);
        const std::string blanks(static_cast<std::size_t>(width - length), ' ');
        EXPECT_EQ(field.substr(0, static_cast<std::size_t>(width)),
                  sign > 0 ? text + blanks : blanks + text);
      }
    }
  }
}

// Patterns up to the work area's bound and past it; texts past the kept
// bound.  Nothing is read or written outside a buffer (the sanitizer build
// sees every access), and the result says what happened.
TEST(Expander, LongPatternsStayInsideTheBounds) {
  const int32_t en_us = record_number("en", "US");
  // "%C" writes "March" in a field of nine ("September"): 512 of them pass
  // the kept text, 513 the pattern bound.
  for (const int32_t count : {1, 100, nldate::kPatternBound / 2, nldate::kPatternBound / 2 + 1}) {
    std::string pattern;
    for (int32_t i = 0; i < count; ++i) pattern += "%C";
    const bool refused = pattern.size() > static_cast<std::size_t>(nldate::kPatternBound);
    const int64_t text_length = 9LL * count;
    std::vector<char> field(600, '~');
    int32_t width = 500;
    const int32_t result = nldate::expand(en_us, pattern.data(), static_cast<int32_t>(pattern.size()),
                                          field.data(), &width, 0, k5Mar2003, 0, 0, 0);
    EXPECT_EQ(result, refused ? -2 : (text_length <= 500 ? 0 : 1)) << count;
    if (result == 1) {
      EXPECT_EQ(std::string(field.begin(), field.begin() + 9), "March    ");
    }
    EXPECT_EQ(std::string(field.begin() + 500, field.end()), std::string(100, '~'));
    const int32_t asked =
        nldate::expand(en_us, pattern.data(), static_cast<int32_t>(pattern.size()), nullptr,
                       &width, 0, k5Mar2003, 0, 0, 0);
    EXPECT_EQ(asked, refused ? -2 : text_length) << count;
  }
  // A text past the kept bound into a field wider than the bound: refused.
  {
    std::string pattern;
    for (int32_t i = 0; i < 500; ++i) pattern += "%C";
    std::vector<char> field(5000, '~');
    int32_t width = 5000;
    EXPECT_EQ(nldate::expand(en_us, pattern.data(), static_cast<int32_t>(pattern.size()),
                             field.data(), &width, 0, k5Mar2003, 0, 0, 0),
              -2);
    EXPECT_EQ(std::string(field.begin(), field.end()), std::string(5000, '~'));
  }
  // Past the pattern bound after "%x" substitution: refused, untouched.
  std::string pattern;
  while (pattern.size() < static_cast<std::size_t>(nldate::kPatternBound)) pattern += "%x";
  std::string field(100, '~');
  int32_t width = 100;
  EXPECT_EQ(nldate::expand(en_us, pattern.data(), static_cast<int32_t>(pattern.size()),
                           field.data(), &width, 0, k5Mar2003, 0, 0, 0),
            -2);
  EXPECT_EQ(field, std::string(100, '~'));
  // A fraction longer than the kept text, into a narrow field.
  field.assign(20, '~');
  width = 10;
  EXPECT_EQ(nldate::expand(en_us, "%S", 2, field.data(), &width, 100000, kMissing, 0, 0, 1.5), 1);
  EXPECT_EQ(field, "01.5000000~~~~~~~~~~");
}

}  // namespace
}  // namespace corvinel::testing

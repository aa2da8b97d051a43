// Every day of the valid range against std::chrono's civil calendar.  The
// two calendars agree up to 28 February 4000; from then on each 29 February
// of a year divisible by 4000 exists only in the Gregorian one, and the
// day count runs one day behind the Gregorian one for each that passed.
#include <chrono>
#include <cmath>
#include <cstdint>

#include <gtest/gtest.h>

#include "corvinel/calendar.h"

namespace {

using namespace std::chrono;

constexpr int64_t kFirstDay = -138061;  // 1 January 1582
constexpr int64_t kEndDay = 6589336;    // 1 January 20001
constexpr int64_t kFirstSunday1600 = -131486;
const sys_days kEpoch{1960y / January / 1};

// Stops a test after a handful of reports instead of millions.
class FailureBudget {
 public:
  bool spent() const { return failures_ >= 10; }
  template <typename T>
  void expect_eq(T actual, T expected, const char *what, int64_t day) {
    if (actual == expected) return;
    ++failures_;
    ADD_FAILURE() << what << " of day " << day << ": " << actual << ", expected " << expected;
  }

 private:
  int failures_ = 0;
};

struct CivilDay {
  int64_t year;
  int64_t month;
  int64_t day;
  int64_t day_of_year;
  int64_t weekday;  // 1 = Sunday .. 7 = Saturday
};

// Walks the days of the valid range with the civil date the host's
// calendar gives each.  The oracle is asked once a month (the month's
// length, 29 February 4000, 8000, ... left out) and once a year (the day
// count and weekday of 1 January, which must agree with the walk); the days
// in between are counted.
template <typename Visit>
void for_every_day(Visit visit) {
  int64_t n = kFirstDay;
  int64_t weekday_number = weekday{kEpoch + days{n}}.c_encoding() + 1;
  int64_t skipped = 0;  // 29 Februaries of years divisible by 4000 so far
  for (int y = 1582; y <= 20000; ++y) {
    const sys_days new_year{year{y} / January / 1};
    EXPECT_EQ(n, (new_year - kEpoch).count() - skipped) << "1 January " << y;
    EXPECT_EQ(weekday_number, weekday{kEpoch + days{n}}.c_encoding() + 1) << y;
    int64_t day_of_year = 0;
    for (unsigned m = 1; m <= 12; ++m) {
      auto length = static_cast<unsigned>(year_month_day_last{year{y} / month{m} / last}.day());
      if (m == 2 && length == 29 && y % 4000 == 0) {
        length = 28;
        ++skipped;
      }
      for (unsigned d = 1; d <= length; ++d) {
        if (!visit(n, CivilDay{y, m, d, ++day_of_year, weekday_number})) return;
        ++n;
        weekday_number = weekday_number % 7 + 1;
      }
    }
  }
  EXPECT_EQ(n, kEndDay);
}

// Every day: the Julian value both ways, the split of the Julian value and
// the weekday.  The routines composed of those (zmdy, and zday, zmonth,
// zyear, zqtr, which are zjuldat followed by the split) and the floor of a
// fraction take turns, one per day, so each still meets some 1.1 million
// days spread over the whole range while the walk stays fast under the
// sanitizers.
TEST(CalendarOracle, EveryDayOfTheRange) {
  FailureBudget budget;
  int64_t turn = 0;
  for_every_day([&](int64_t n, const CivilDay &c) {
    const auto day = static_cast<double>(n);
    const auto julian = static_cast<double>(c.year * 1000 + c.day_of_year);
    const auto year = static_cast<double>(c.year);
    const auto month = static_cast<double>(c.month);
    const auto mday = static_cast<double>(c.day);
    budget.expect_eq(zjuldat(day), julian, "zjuldat", n);
    budget.expect_eq(zdatjul(julian), day, "zdatjul", n);
    budget.expect_eq(zjulymd(year, month, mday), julian, "zjulymd", n);
    double split[3] = {0, 0, 0};
    zymdjul(&split[0], &split[1], &split[2], julian);
    budget.expect_eq(split[0] * 10000 + split[1] * 100 + split[2],
                     year * 10000 + month * 100 + mday, "zymdjul", n);
    const bool shifted = n < kFirstSunday1600 && c.weekday != 1;
    budget.expect_eq(zwekday(day), static_cast<double>(shifted ? c.weekday - 7 : c.weekday),
                     "zwekday", n);
    switch (turn++ % 6) {
      case 0: budget.expect_eq(zjuldat(day + 0.75), julian, "zjuldat (fraction)", n); break;
      case 1: budget.expect_eq(zmdy(month, mday, year), day, "zmdy", n); break;
      case 2: budget.expect_eq(zyear(day), year, "zyear", n); break;
      case 3: budget.expect_eq(zmonth(day), month, "zmonth", n); break;
      case 4: budget.expect_eq(zday(day), mday, "zday", n); break;
      default: budget.expect_eq(zqtr(day), std::floor((month - 1) / 3) + 1, "zqtr", n); break;
    }
    if (c.year >= 1950 && c.year <= 2049) {
      budget.expect_eq(zmdy(month, mday, year - (c.year < 2000 ? 1900 : 2000)), day,
                       "zmdy (two-digit year)", n);
    }
    return !budget.spent();
  });
}

}  // namespace

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

// The walk gives each day its civil date: the oracle gives each month's
// length (29 February 4000, 8000, ... left out) and each 1 January's day
// count and weekday, which must agree with the walk.  Every day is checked
// for the Julian value both ways, its split and the weekday; the routines
// composed of those and the floor of a fraction take turns, one per day, so
// each meets some 1.1 million days while the walk stays fast under the
// sanitizers.  The test stops after ten failures.
TEST(CalendarOracle, EveryDayOfTheRange) {
  int failures = 0;
  const auto expect = [&](double actual, double expected, const char *what, int64_t n) {
    if (actual == expected || ++failures > 10) return;
    ADD_FAILURE() << what << " of day " << n << ": " << actual << ", expected " << expected;
  };
  int64_t n = kFirstDay;
  int64_t weekday_number = weekday{kEpoch + days{n}}.c_encoding() + 1;  // 1 = Sunday
  int64_t skipped = 0;  // 29 Februaries of years divisible by 4000 so far
  int64_t turn = 0;
  for (int y = 1582; y <= 20000 && failures < 10; ++y) {
    EXPECT_EQ(n, (sys_days{year{y} / January / 1} - kEpoch).count() - skipped) << y;
    EXPECT_EQ(weekday_number, weekday{kEpoch + days{n}}.c_encoding() + 1) << y;
    const auto yy = static_cast<double>(y);
    double day_of_year = 0;
    for (unsigned m = 1; m <= 12; ++m) {
      auto length = static_cast<unsigned>(year_month_day_last{year{y} / month{m} / last}.day());
      const bool skip = m == 2 && length == 29 && y % 4000 == 0;  // no 29 February
      skipped += skip;
      length -= skip;
      const auto mm = static_cast<double>(m);
      for (unsigned d = 1; d <= length; ++d, ++n, weekday_number = weekday_number % 7 + 1) {
        const auto day = static_cast<double>(n);
        const auto dd = static_cast<double>(d);
        const double julian = yy * 1000 + ++day_of_year;
        expect(zjuldat(day), julian, "zjuldat", n);
        expect(zdatjul(julian), day, "zdatjul", n);
        expect(zjulymd(yy, mm, dd), julian, "zjulymd", n);
        double split[3] = {0, 0, 0};
        zymdjul(&split[0], &split[1], &split[2], julian);
        expect(split[0] * 10000 + split[1] * 100 + split[2], yy * 10000 + mm * 100 + dd,
               "zymdjul", n);
        const bool shifted = n < kFirstSunday1600 && weekday_number != 1;
        expect(zwekday(day), static_cast<double>(weekday_number - (shifted ? 7 : 0)), "zwekday", n);
        switch (turn++ % 6) {
          case 0: expect(zjuldat(day + 0.75), julian, "zjuldat (fraction)", n); break;
          case 1: expect(zmdy(mm, dd, yy), day, "zmdy", n); break;
          case 2: expect(zyear(day), yy, "zyear", n); break;
          case 3: expect(zmonth(day), mm, "zmonth", n); break;
          case 4: expect(zday(day), dd, "zday", n); break;
          default: expect(zqtr(day), std::floor((mm - 1) / 3) + 1, "zqtr", n); break;
        }
        if (y >= 1950 && y <= 2049) {
          expect(zmdy(mm, dd, yy - (y < 2000 ? 1900 : 2000)), day, "zmdy (two-digit year)", n);
        }
      }
    }
  }
  EXPECT_TRUE(failures > 0 || n == kEndDay) << n;
}

}  // namespace

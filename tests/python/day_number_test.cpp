// The binding's day count against the module's own calendar on every day
// from 1 January 1400 to 31 December 20100: numpy's dates are proleptic
// Gregorian, the module's years divisible by 4000 have no 29 February, and
// the count must follow the module past each of them and give the missing
// value on the days it lacks.
#include <chrono>
#include <cstdint>
#include <cstring>

#include <gtest/gtest.h>

#include "corvinel/calendar.h"
#include "corvinel/missing.h"
#include "render_columns.h"

namespace {

using namespace std::chrono;
using corvinel::python::day_number;
using corvinel::python::host_day_number;

bool same_value(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

TEST(DayNumber, EveryDayAgreesWithTheModulesCalendar) {
  const int64_t first = (sys_days{year{1400} / January / 1}).time_since_epoch().count();
  const int64_t last = (sys_days{year{20100} / December / 31}).time_since_epoch().count();
  int failures = 0;
  int64_t missing = 0;
  for (int64_t d = first; d <= last && failures < 10; ++d) {
    const year_month_day civil{sys_days{days{d}}};
    const int y = static_cast<int>(civil.year());
    const unsigned m = static_cast<unsigned>(civil.month()), day = static_cast<unsigned>(civil.day());
    // Within the module's range zmdy decides; outside it the host tool's count.
    const double expected = y >= 1582 && y <= 20000 ? zmdy(m, day, y) : host_day_number(y, m, day);
    missing += zmiss(expected) != 0;
    if (!same_value(day_number(d), expected)) {
      ++failures;
      ADD_FAILURE() << y << '-' << m << '-' << day << ": " << day_number(d) << ", expected " << expected;
    }
  }
  EXPECT_EQ(missing, 5);  // 29 February 4000, 8000, 12000, 16000 and 20000
  EXPECT_EQ(day_number(0), 3653);  // 1 January 1970
}

}  // namespace

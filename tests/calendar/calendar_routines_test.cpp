// The calendar routines where the walk over every valid day does not reach:
// the range limits, the two-digit years, the 4000-year rule, fractions,
// invalid and missing arguments, and the parts of times and datetimes.
// Results are compared bit for bit, so that missing values are exact.
#include <bit>
#include <cstdint>
#include <limits>
#include <ostream>

#include <gtest/gtest.h>

#include "corvinel/calendar.h"
#include "corvinel/missing.h"
#include "support/request_builder.h"

namespace {

using ::testing::PrintToString;
using corvinel::testing::missing;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
const double kMiss = std_miss_val;
const double kMissA = missing('A');
constexpr double kFirstSecond = -11928470400;
constexpr double kEndSecond = 569318630400;  // first second after the range

::testing::AssertionResult same(double actual, double expected) {
  if (std::bit_cast<uint64_t>(actual) == std::bit_cast<uint64_t>(expected)) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << actual << ", expected " << expected;
}

// A date value and what the routines that take one give for it.
struct DateCase {
  double date, julian = kMiss, weekday = kMiss, day = kMiss, quarter = kMiss;
};

void PrintTo(const DateCase &c, std::ostream *os) { *os << "date " << PrintToString(c.date); }

class DateParts : public ::testing::TestWithParam<DateCase> {};

TEST_P(DateParts, Answer) {
  const DateCase &c = GetParam();
  EXPECT_TRUE(same(zjuldat(c.date), c.julian)) << "zjuldat";
  EXPECT_TRUE(same(zwekday(c.date), c.weekday)) << "zwekday";
  EXPECT_TRUE(same(zday(c.date), c.day)) << "zday";
  EXPECT_TRUE(same(zqtr(c.date), c.quarter)) << "zqtr";
}

// zjuldat and the parts built on it keep a special missing value.  Before
// 1600 a fraction takes the weekday of the day after (deliberate).
const DateCase kDateCases[] = {
    {6589335.999, 20000365, 3, 31, 4}, {-0.5, 1959365, 5, 31, 4}, {0.99, 1960001, 6, 1, 1},
    {-138060.5, 1582001, 0, 1, 1}, {6589336}, {-138061.5}, {kNaN}, {kInf},
    {kMissA, kMissA, kMiss, kMissA, kMissA}};
INSTANTIATE_TEST_SUITE_P(Edges, DateParts, ::testing::ValuesIn(kDateCases));

// A Julian value: its date, and its year, month and day.
struct JulianCase {
  double julian, date = kMiss, year = kMiss, month = kMiss, day = kMiss;
};

void PrintTo(const JulianCase &c, std::ostream *os) { *os << "julian " << PrintToString(c.julian); }

class JulianValues : public ::testing::TestWithParam<JulianCase> {};

TEST_P(JulianValues, Answer) {
  const JulianCase &c = GetParam();
  EXPECT_TRUE(same(zdatjul(c.julian), c.date)) << "zdatjul";
  double year = -7, month = -7, day = -7;
  zymdjul(&year, &month, &day, c.julian);
  EXPECT_TRUE(same(year, c.year) && same(month, c.month) && same(day, c.day))
      << year << "-" << month << "-" << day;
}

// Deliberate: day 0 of a year passes, as 31 December of the year before or
// as month 1, day 0.
const JulianCase kJulianCases[] = {
    {1960000, -1, 1960, 1, 0}, {60, 14669, 2000, 2, 29}, {99365, 14609, 1999, 12, 31},
    {50365.7, -3288, 1950, 12, 31}, {1582001.9, -138061, 1582, 1, 1},
    {1960367}, {1961366}, {4000366}, {20000365.5}, {1581365}, {100001}, {0.5}, {kMissA}};
INSTANTIATE_TEST_SUITE_P(Edges, JulianValues, ::testing::ValuesIn(kJulianCases));

// An instant in seconds and its parts.  Negative seconds reach back from
// midnight; the range ends where the date range ends.
struct InstantCase {
  double seconds, hour = kMiss, minute = kMiss, second = kMiss, date = kMiss, time = kMiss;
};

void PrintTo(const InstantCase &c, std::ostream *os) { *os << PrintToString(c.seconds) << " s"; }

class InstantParts : public ::testing::TestWithParam<InstantCase> {};

TEST_P(InstantParts, Answer) {
  const InstantCase &c = GetParam();
  EXPECT_TRUE(same(zhour(c.seconds), c.hour)) << "zhour";
  EXPECT_TRUE(same(zminute(c.seconds), c.minute)) << "zminute";
  EXPECT_TRUE(same(zsecond(c.seconds), c.second)) << "zsecond";
  EXPECT_TRUE(same(zdatprt(c.seconds), c.date)) << "zdatprt";
  EXPECT_TRUE(same(ztimprt(c.seconds), c.time)) << "ztimprt";
}

const InstantCase kInstantCases[] = {
    {-1, 23, 59, 59, -1, 86399}, {-0.25, 23, 59, 59.75, -1, 86399.75},
    {59.75, 0, 0, 59.75, 0, 59.75}, {3723.5, 1, 2, 3.5, 0, 3723.5},
    {90030, 1, 0, 30, 1, 3630}, {-86400, 0, 0, 0, -1, 0},
    {-86400.5, 23, 59, 59.5, -2, 86399.5},
    {-1e-12, 0, 0, 0, -1, 0},  // 86400 less 1e-12 is 86400 in binary, in hour 0
    {kFirstSecond, 0, 0, 0, -138061, 0}, {kEndSecond - 0.5, 23, 59, 59.5, 6589335, 86399.5},
    {kEndSecond}, {kFirstSecond - 0.5}, {kNaN}, {kMissA}};
INSTANTIATE_TEST_SUITE_P(Edges, InstantParts, ::testing::ValuesIn(kInstantCases));

struct YmdCase {
  double year, month, day, julian = kMiss;
};

void PrintTo(const YmdCase &c, std::ostream *os) {
  *os << c.year << "-" << c.month << "-" << c.day;
}

class YearMonthDay : public ::testing::TestWithParam<YmdCase> {};

// zmdy is zdatjul of zjulymd, with the arguments in its own order.
TEST_P(YearMonthDay, ToJulianAndDate) {
  const YmdCase &c = GetParam();
  EXPECT_TRUE(same(zjulymd(c.year, c.month, c.day), c.julian));
  EXPECT_TRUE(same(zmdy(c.month, c.day, c.year), zdatjul(c.julian)));
}

// Tests on the unrounded arguments, then truncation.
const YmdCase kYmdCases[] = {
    {1581, 12, 31}, {20001, 1, 1}, {20000.5, 1, 1}, {150, 1, 1}, {99.5, 1, 1}, {-1, 1, 1},
    {49, 3, 1, 2049060}, {50, 3, 1, 1950060}, {49.9, 1, 1, 2049001},
    {1900, 2, 29}, {4000, 2, 29}, {8000, 2, 29}, {20000, 2, 29}, {4400, 2, 29, 4400060},
    {2023, 2, 28.5}, {2023, 1, 30.5, 2023030}, {2024, 11.9, 1, 2024306}, {2024, 12.9, 1},
    {2024, 1, 0.5}, {2024, 0, 1}, {2024, 4, 31}, {kNaN, 1, 1}, {2024, 1, kMiss}};
INSTANTIATE_TEST_SUITE_P(Edges, YearMonthDay, ::testing::ValuesIn(kYmdCases));

TEST(Zyyq, FirstDayOfTheQuarter) {
  EXPECT_EQ(zyyq(2024, 3), 23558);
  EXPECT_EQ(zyyq(60, 1), 0);
  EXPECT_TRUE(same(zyyq(2024, 5), kMiss) && same(zyyq(2024, 0), kMiss));
}

// Deliberate: February is left to the leap rule.
TEST(Dpm, HoldsTheMonthLengths) {
  const int32_t expected[12] = {31, 0, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int m = 0; m < 12; ++m) EXPECT_EQ(dpm[m], expected[m]) << m;
}

}  // namespace

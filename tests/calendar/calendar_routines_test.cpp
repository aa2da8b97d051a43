// The calendar routines at the edges of their contracts: the range limits,
// the two-digit-year window, the 4000-year rule, fractions, invalid and
// missing arguments, and the time parts of negative values.
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/calendar.h"
#include "corvinel/missing.h"
#include "support/request_builder.h"

namespace {

using corvinel::testing::missing;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
const double kMiss = std_miss_val;

uint64_t bits(double x) { return std::bit_cast<uint64_t>(x); }

// A routine of one double, by name, so that each row names what it calls.
struct Unary {
  const char *name;
  double (*routine)(double);
};
const Unary kZjuldat{"zjuldat", zjuldat};
const Unary kZdatjul{"zdatjul", zdatjul};
const Unary kZwekday{"zwekday", zwekday};
const Unary kZday{"zday", zday};
const Unary kZmonth{"zmonth", zmonth};
const Unary kZyear{"zyear", zyear};
const Unary kZqtr{"zqtr", zqtr};
const Unary kZhour{"zhour", zhour};
const Unary kZminute{"zminute", zminute};
const Unary kZsecond{"zsecond", zsecond};
const Unary kZdatprt{"zdatprt", zdatprt};
const Unary kZtimprt{"ztimprt", ztimprt};

struct UnaryCase {
  Unary routine;
  double argument;
  double expected;  // compared bit for bit, so missing values are exact
};

void PrintTo(const UnaryCase &c, std::ostream *os) {
  *os << c.routine.name << "(" << c.argument << ")";
}

class UnaryRoutine : public ::testing::TestWithParam<UnaryCase> {};

TEST_P(UnaryRoutine, Answers) {
  const UnaryCase &c = GetParam();
  const double actual = c.routine.routine(c.argument);
  EXPECT_EQ(bits(actual), bits(c.expected)) << actual << " vs " << c.expected;
}

INSTANTIATE_TEST_SUITE_P(
    DateLimits, UnaryRoutine,
    ::testing::Values(
        UnaryCase{kZjuldat, 6589335, 20000365}, UnaryCase{kZjuldat, 6589336, kMiss},
        UnaryCase{kZjuldat, -138061, 1582001}, UnaryCase{kZjuldat, -138062, kMiss},
        UnaryCase{kZjuldat, -138061.5, kMiss}, UnaryCase{kZjuldat, 6589335.999, 20000365},
        UnaryCase{kZjuldat, 0.99, 1960001}, UnaryCase{kZjuldat, -0.5, 1959365},
        UnaryCase{kZjuldat, 745153, 4000059}, UnaryCase{kZjuldat, 745154, 4000060},
        UnaryCase{kZjuldat, 745459, 4000365}, UnaryCase{kZjuldat, kNaN, kMiss},
        UnaryCase{kZjuldat, kInf, kMiss}, UnaryCase{kZjuldat, -kInf, kMiss},
        UnaryCase{kZdatjul, 1960000, -1}, UnaryCase{kZdatjul, 1960367, kMiss},
        UnaryCase{kZdatjul, 1961366, kMiss}, UnaryCase{kZdatjul, 1960366, 365},
        UnaryCase{kZdatjul, 20000365, 6589335}, UnaryCase{kZdatjul, 20000365.5, kMiss},
        UnaryCase{kZdatjul, 1582001, -138061}, UnaryCase{kZdatjul, 1582001.9, -138061},
        UnaryCase{kZdatjul, 1581365, kMiss}, UnaryCase{kZdatjul, 100001, kMiss},
        UnaryCase{kZdatjul, 99365, 14609}, UnaryCase{kZdatjul, 60, 14669},
        UnaryCase{kZdatjul, 49001, 32508}, UnaryCase{kZdatjul, 50001, -3652},
        UnaryCase{kZdatjul, 4000060, 745154}, UnaryCase{kZdatjul, 4000366, kMiss},
        UnaryCase{kZdatjul, 0.5, kMiss}, UnaryCase{kZdatjul, 0, kMiss},
        UnaryCase{kZdatjul, -1960001, kMiss}, UnaryCase{kZdatjul, kNaN, kMiss},
        UnaryCase{kZdatjul, kInf, kMiss}));

// 1 January 1600 is a Saturday and 1 January 1582 a Friday; before 2
// January 1600 weekdays other than Sunday come out 7 lower.
INSTANTIATE_TEST_SUITE_P(
    Weekdays, UnaryRoutine,
    ::testing::Values(UnaryCase{kZwekday, 0, 6}, UnaryCase{kZwekday, 0.99, 6},
                      UnaryCase{kZwekday, -0.5, 5}, UnaryCase{kZwekday, -131486, 1},
                      UnaryCase{kZwekday, -131487, 0}, UnaryCase{kZwekday, -131493, 1},
                      UnaryCase{kZwekday, -138061, -1}, UnaryCase{kZwekday, 6589335, 3},
                      UnaryCase{kZwekday, 6589336, kMiss}, UnaryCase{kZwekday, -138062, kMiss},
                      UnaryCase{kZwekday, kNaN, kMiss}));

// The parts of a missing date: zjuldat hands the argument back, and so do
// the routines built on it, keeping a special missing value special.
INSTANTIATE_TEST_SUITE_P(
    MissingDates, UnaryRoutine,
    ::testing::Values(UnaryCase{kZjuldat, missing('A'), missing('A')},
                      UnaryCase{kZjuldat, missing('_'), missing('_')},
                      UnaryCase{kZday, missing('Z'), missing('Z')},
                      UnaryCase{kZmonth, missing('.'), missing('.')},
                      UnaryCase{kZyear, missing('B'), missing('B')},
                      UnaryCase{kZqtr, missing('_'), missing('_')},
                      UnaryCase{kZqtr, 6589336, kMiss}, UnaryCase{kZday, kNaN, kMiss},
                      UnaryCase{kZwekday, missing('A'), kMiss},
                      UnaryCase{kZdatjul, missing('A'), kMiss},
                      UnaryCase{kZhour, missing('C'), kMiss},
                      UnaryCase{kZdatprt, missing('.'), kMiss}));

// Negative seconds reach back from midnight; the range ends where the date
// range ends.
INSTANTIATE_TEST_SUITE_P(
    TimeParts, UnaryRoutine,
    ::testing::Values(
        UnaryCase{kZhour, -1, 23}, UnaryCase{kZminute, -1, 59}, UnaryCase{kZsecond, -1, 59},
        UnaryCase{kZsecond, -0.5, 59.5}, UnaryCase{kZsecond, 59.75, 59.75},
        UnaryCase{kZhour, 3723.5, 1}, UnaryCase{kZminute, 3723.5, 2},
        UnaryCase{kZsecond, 3723.5, 3.5}, UnaryCase{kZhour, 90000, 1},
        UnaryCase{kZhour, -86400, 0}, UnaryCase{kZminute, -86400, 0},
        UnaryCase{kZsecond, -86400, 0}, UnaryCase{kZhour, -3600.5, 22},
        UnaryCase{kZminute, -3600.5, 59}, UnaryCase{kZsecond, -3600.5, 59.5},
        // Just below zero: the day's length less 1e-12 is 86400 in binary,
        // which belongs to hour 0 like its minute and second.
        UnaryCase{kZhour, -1e-12, 0}, UnaryCase{kZminute, -1e-12, 0},
        UnaryCase{kZsecond, -1e-12, 0},
        UnaryCase{kZtimprt, -0.25, 86399.75}, UnaryCase{kZdatprt, -0.25, -1},
        UnaryCase{kZtimprt, 0, 0}, UnaryCase{kZtimprt, 86400, 0},
        UnaryCase{kZtimprt, -86400, 0}, UnaryCase{kZtimprt, 86430, 30},
        UnaryCase{kZdatprt, 86399.9, 0}, UnaryCase{kZdatprt, 86400, 1},
        UnaryCase{kZdatprt, -86400, -1}, UnaryCase{kZdatprt, -86400.5, -2},
        UnaryCase{kZdatprt, -11928470400, -138061}, UnaryCase{kZhour, -11928470400, 0},
        UnaryCase{kZdatprt, 569318630399.5, 6589335},
        UnaryCase{kZtimprt, 569318630399.5, 86399.5},
        UnaryCase{kZhour, 569318630400, kMiss}, UnaryCase{kZminute, 569318630400, kMiss},
        UnaryCase{kZsecond, 569318630400, kMiss}, UnaryCase{kZdatprt, 569318630400, kMiss},
        UnaryCase{kZtimprt, 569318630400, kMiss}, UnaryCase{kZhour, -11928470400.5, kMiss},
        UnaryCase{kZtimprt, -11928470401, kMiss}, UnaryCase{kZsecond, kNaN, kMiss},
        UnaryCase{kZminute, -kInf, kMiss}));

struct YmdCase {
  double year, month, day;
  double julian;  // zjulymd
  double date;    // zmdy
};

void PrintTo(const YmdCase &c, std::ostream *os) {
  *os << c.year << "-" << c.month << "-" << c.day;
}

class YearMonthDay : public ::testing::TestWithParam<YmdCase> {};

TEST_P(YearMonthDay, ToJulianAndDate) {
  const YmdCase &c = GetParam();
  EXPECT_EQ(bits(zjulymd(c.year, c.month, c.day)), bits(c.julian));
  EXPECT_EQ(bits(zmdy(c.month, c.day, c.year)), bits(c.date));
}

INSTANTIATE_TEST_SUITE_P(
    Edges, YearMonthDay,
    ::testing::Values(
        YmdCase{1960, 1, 1, 1960001, 0}, YmdCase{1582, 1, 1, 1582001, -138061},
        YmdCase{20000, 12, 31, 20000365, 6589335}, YmdCase{1581, 12, 31, kMiss, kMiss},
        YmdCase{20001, 1, 1, kMiss, kMiss}, YmdCase{20000.5, 1, 1, kMiss, kMiss},
        YmdCase{150, 1, 1, kMiss, kMiss}, YmdCase{100, 1, 1, kMiss, kMiss},
        YmdCase{99.5, 1, 1, kMiss, kMiss}, YmdCase{-1, 1, 1, kMiss, kMiss},
        // The two-digit window: 0..49 are 2000..2049, 50..99 1950..1999.
        YmdCase{49, 3, 1, 2049060, 32567}, YmdCase{50, 3, 1, 1950060, -3593},
        YmdCase{0, 2, 29, 2000060, 14669}, YmdCase{99, 12, 31, 1999365, 14609},
        YmdCase{49.9, 1, 1, 2049001, 32508},
        // Leap years, with 4000 and its multiples left out.
        YmdCase{2000, 2, 29, 2000060, 14669}, YmdCase{1600, 2, 29, 1600060, -131428},
        YmdCase{1900, 2, 29, kMiss, kMiss}, YmdCase{4000, 2, 29, kMiss, kMiss},
        YmdCase{8000, 2, 29, kMiss, kMiss}, YmdCase{12000, 2, 29, kMiss, kMiss},
        YmdCase{16000, 2, 29, kMiss, kMiss}, YmdCase{20000, 2, 29, kMiss, kMiss},
        YmdCase{4400, 2, 29, 4400060, 891250},
        YmdCase{4000, 3, 1, 4000060, 745154}, YmdCase{4000, 12, 31, 4000365, 745459},
        // Fractions: tested unrounded, then truncated.
        YmdCase{2023, 2, 28.5, kMiss, kMiss}, YmdCase{2023, 1, 30.5, 2023030, 23040},
        YmdCase{2023, 1, 31.5, kMiss, kMiss}, YmdCase{2024, 11.9, 1, 2024306, 23681},
        YmdCase{2024, 12.9, 1, kMiss, kMiss},
        YmdCase{2024, 2.5, 29, 2024060, 23435}, YmdCase{2024, 1, 0.5, kMiss, kMiss},
        // Months and days outside their bounds, and non-numbers.
        YmdCase{2024, 0, 1, kMiss, kMiss}, YmdCase{2024, 13, 1, kMiss, kMiss},
        YmdCase{2024, 4, 31, kMiss, kMiss}, YmdCase{2024, 1, 32, kMiss, kMiss},
        YmdCase{kNaN, 1, 1, kMiss, kMiss}, YmdCase{2024, kNaN, 1, kMiss, kMiss},
        YmdCase{2024, 1, kInf, kMiss, kMiss}, YmdCase{2024, 1, std_miss_val, kMiss, kMiss}));

struct SplitCase {
  double julian;
  double year, month, day;
};

void PrintTo(const SplitCase &c, std::ostream *os) { *os << std::to_string(c.julian); }

class JulianSplit : public ::testing::TestWithParam<SplitCase> {};

TEST_P(JulianSplit, FillsAllThreePlaces) {
  const SplitCase &c = GetParam();
  double year = -7, month = -7, day = -7;
  zymdjul(&year, &month, &day, c.julian);
  EXPECT_EQ(bits(year), bits(c.year));
  EXPECT_EQ(bits(month), bits(c.month));
  EXPECT_EQ(bits(day), bits(c.day));
}

INSTANTIATE_TEST_SUITE_P(
    Edges, JulianSplit,
    ::testing::Values(
        // Every valid day is split in the walk over the range; here the
        // two-digit years, fractions and refusals.
        SplitCase{60, 2000, 2, 29}, SplitCase{49032, 2049, 2, 1},
        SplitCase{50365.7, 1950, 12, 31},
        // Day 0 of a year passes the tests and gives month 1, day 0.
        SplitCase{1960000, 1960, 1, 0},
        SplitCase{1999366, kMiss, kMiss, kMiss}, SplitCase{4000366, kMiss, kMiss, kMiss},
        SplitCase{1960367, kMiss, kMiss, kMiss}, SplitCase{1000100, kMiss, kMiss, kMiss},
        SplitCase{20000366, kMiss, kMiss, kMiss}, SplitCase{0.5, kMiss, kMiss, kMiss},
        SplitCase{-2000001, kMiss, kMiss, kMiss}, SplitCase{kNaN, kMiss, kMiss, kMiss}));

TEST(Zyyq, FirstDayOfTheQuarter) {
  EXPECT_EQ(zyyq(2024, 3), 23558);
  EXPECT_EQ(zyyq(1960, 1), 0);
  EXPECT_EQ(zyyq(60, 1), 0);
  EXPECT_EQ(bits(zyyq(2024, 5)), bits(kMiss));
  EXPECT_EQ(bits(zyyq(2024, 0)), bits(kMiss));
}

TEST(Dpm, FebruaryIsLeftToTheLeapRule) {
  const int32_t expected[12] = {31, 0, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int m = 0; m < 12; ++m) EXPECT_EQ(dpm[m], expected[m]) << m;
}

}  // namespace

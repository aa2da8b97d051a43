#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "arguments.h"
#include "classic_names.h"

namespace {

using corvinel::cli::find_classic;
using corvinel::cli::parse_format;
using corvinel::cli::parse_value;
using corvinel::cli::UsageError;

struct FormatCase {
  const char *text;
  const char *name;
  std::optional<int32_t> width, decimals;
};

void PrintTo(const FormatCase &c, std::ostream *os) { *os << '"' << c.text << '"'; }

class ParseFormat : public ::testing::TestWithParam<FormatCase> {};

TEST_P(ParseFormat, SplitsNameWidthAndDecimals) {
  const FormatCase &c = GetParam();
  const auto parsed = parse_format(c.text);
  EXPECT_EQ(parsed.name, c.name);
  EXPECT_EQ(parsed.width, c.width);
  EXPECT_EQ(parsed.decimals, c.decimals);
}

INSTANTIATE_TEST_SUITE_P(
    HostSpellings, ParseFormat,
    ::testing::Values(FormatCase{"NLDATE", "NLDATE", {}, {}},
                      FormatCase{"NLDATE20.", "NLDATE", 20, {}},
                      FormatCase{"nlnum12.2", "NLNUM", 12, 2},
                      FormatCase{"NlMnIeUr.3", "NLMNIEUR", {}, 3},
                      FormatCase{"NLNUM0.0", "NLNUM", 0, 0},
                      FormatCase{"NLNUM7", "NLNUM", 7, {}},
                      FormatCase{"NLNUM.", "NLNUM", {}, {}},
                      FormatCase{"zfmt6.3", "ZFMT", 6, 3},
                      FormatCase{"NLNUM65535.2147483647", "NLNUM", 65535, 2147483647}));

TEST(ParseFormat, RefusesWhatIsNotAFormat) {
  for (const char *text : {"", "12.2", ".2", "NLNUM-1.", "NLNUM1x.", "NLNUM12.x", "NLNUM12.-1",
                           "NLNUM12.2.", "NLNUM65536.", "NLNUM12.2147483648", "NL_NUM",
                           "NLNUM 12.", "NLNUM+12."}) {
    EXPECT_THROW(parse_format(text), UsageError) << '"' << text << '"';
  }
}

uint64_t bits(double value) { return std::bit_cast<uint64_t>(value); }

TEST(ParseValue, MissingValuesHaveTheHostsBitPatterns) {
  struct Case {
    const char *text;
    uint64_t bits;
  };
  const Case cases[] = {
      {".", 0xFFFFFE0000000000ull},  {"._", 0xFFFFFF0000000000ull},
      {".A", 0xFFFFFD0000000000ull}, {".a", 0xFFFFFD0000000000ull},
      {".Z", 0xFFFFE40000000000ull}, {".m", 0xFFFFF10000000000ull},
  };
  for (const Case &c : cases) EXPECT_EQ(bits(parse_value(c.text)), c.bits) << c.text;
}

TEST(ParseValue, NumbersAsStrtodReadsThem) {
  struct Case {
    const char *text;
    double value;
  };
  const Case cases[] = {
      {"15760", 15760},   {"-1.5e3", -1500}, {".5", 0.5},     {"-.5", -0.5},
      {"inf", INFINITY},  {"-inf", -INFINITY}, {"Infinity", INFINITY}, {"1e999", INFINITY},
      {"0x10", 16},       {"-0", -0.0},
  };
  for (const Case &c : cases) {
    EXPECT_EQ(bits(parse_value(c.text)), bits(c.value)) << c.text;
  }
  EXPECT_TRUE(std::isnan(parse_value("nan")));
  EXPECT_TRUE(std::isnan(parse_value("-NAN")));
}

TEST(ParseValue, RefusesTheRest) {
  for (const char *text : {"", " ", " 1", "1 ", "abc", "1e", "..", ".AB", ".1A", ".-", "1,5",
                           ".\xc3\xa9"}) {
    EXPECT_THROW(parse_value(text), UsageError) << '"' << text << '"';
  }
}

TEST(ParseArguments, ValueOptionsInBothSpellings) {
  const auto options = corvinel::cli::parse_arguments(
      {"--capacity=40", "--locale-number", "-1", "NLNUM", "-2", "--locale", "de_DE", "3"});
  EXPECT_EQ(options.capacity, 40);
  EXPECT_EQ(options.locale_number, -1);
  EXPECT_EQ(options.locale_name, "de_DE");
  EXPECT_EQ(options.format, "NLNUM");
  EXPECT_EQ(options.values, (std::vector<std::string>{"-2", "3"}));
}

struct ClassicCase {
  const char *name;
  const char *symbol;
  int32_t width, decimals;
};

void PrintTo(const ClassicCase &c, std::ostream *os) { *os << c.name; }

class FindClassic : public ::testing::TestWithParam<ClassicCase> {};

TEST_P(FindClassic, MapsTheFamilyToItsRoutine) {
  const ClassicCase &c = GetParam();
  const auto routine = find_classic(c.name);
  ASSERT_TRUE(routine.has_value());
  EXPECT_EQ(routine->symbol, c.symbol);
  EXPECT_EQ(routine->default_width, c.width);
  EXPECT_EQ(routine->default_decimals, c.decimals);
  EXPECT_EQ(routine->best, std::string(c.name) == "BEST");
}

INSTANTIATE_TEST_SUITE_P(
    Families, FindClassic,
    ::testing::Values(
        ClassicCase{"BEST", "zfmt", 12, 99}, ClassicCase{"COMMA", "zfmcma", 6, 0},
        ClassicCase{"DOLLAR", "zfmdlr", 6, 0}, ClassicCase{"PERCENT", "zfmpct", 6, 0},
        ClassicCase{"PVALUE", "zfmpval", 6, 4}, ClassicCase{"D", "zfmd", 12, 0},
        ClassicCase{"DATE", "zfmdate", 7, 0}, ClassicCase{"TIME", "zfmtime", 8, 0},
        ClassicCase{"TOD", "zfmtod", 8, 0}, ClassicCase{"TIMEAMPM", "zfmtimm", 11, 0},
        ClassicCase{"DATETIME", "zfmdttm", 16, 0}, ClassicCase{"DTDATE", "zfmdtda", 7, 0},
        ClassicCase{"MONYY", "zfmmony", 5, 0}, ClassicCase{"MMDDYY", "zfmmdy", 8, 0},
        ClassicCase{"MMDDYYB", "zfmmdyb", 8, 0}, ClassicCase{"MMDDYYS", "zfmmdy", 8, 0},
        ClassicCase{"MMDDYYN", "zfmmdyn", 8, 0}, ClassicCase{"DDMMYYP", "zfmdmyp", 8, 0},
        ClassicCase{"DDMMYYD", "zfmdmyd", 8, 0}, ClassicCase{"YYMMDD", "zfmymd", 8, 0},
        ClassicCase{"YYMMDDD", "zfmymd", 8, 0}, ClassicCase{"YYMMDDS", "zfmymds", 8, 0},
        ClassicCase{"YYMMDDC", "zfmymdc", 8, 0}, ClassicCase{"MMYY", "zfmmmy", 7, 0},
        ClassicCase{"MMYYS", "zfmmmys", 7, 0}, ClassicCase{"YYMMN", "zfmyymn", 7, 0},
        ClassicCase{"YYQ", "zfmyyq", 6, 0}, ClassicCase{"YYQC", "zfmyyqc", 6, 0},
        ClassicCase{"YYQR", "zfmyyqr", 8, 0}, ClassicCase{"YYQRD", "zfmyqrd", 8, 0},
        ClassicCase{"ZFMYMDS", "zfmymds", 8, 0}, ClassicCase{"ZFMT", "zfmt", 8, 0}));

TEST(FindClassic, UnknownNames) {
  for (const char *name : {"NLNUM", "MMDDYYX", "YYQB", "MMYYB", "COMMAX", "", "YYQRR"}) {
    EXPECT_FALSE(find_classic(name).has_value()) << name;
  }
}

}  // namespace

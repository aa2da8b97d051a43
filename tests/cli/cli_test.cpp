// corvinel-fmt: its command-line parsing, and the tool as a person runs it,
// against the real module for the frame's behaviour and against a stand-in
// module for exactly what the tool hands over.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "arguments.h"
#include "classic_names.h"
#include "item_codes.h"

namespace {

using corvinel::cli::parse_format;
using corvinel::cli::parse_value;
using corvinel::cli::UsageError;
using corvinel::cli::ValueKind;

TEST(ParseFormat, SplitsNameWidthAndDecimals) {
  const struct {
    const char *text, *name;
    std::optional<int32_t> width, decimals;
  } cases[] = {
      {"NLDATE", "NLDATE", {}, {}},        {"nlnum12.2", "NLNUM", 12, 2},
      {"NlMnIeUr.3", "NLMNIEUR", {}, 3},   {"NLNUM7", "NLNUM", 7, {}},
      {"NLNUM0.0", "NLNUM", 0, 0},         {"N65535.2147483647", "N", 65535, INT32_MAX}};
  for (const auto &c : cases) {
    const auto parsed = parse_format(c.text);
    EXPECT_TRUE(parsed.name == c.name && parsed.width == c.width && parsed.decimals == c.decimals)
        << c.text;
  }
  for (const char *text : {"", "12.2", ".2", "NLNUM-1.", "NLNUM1x.", "NLNUM12.-1", "NLNUM12.2.",
                           "NLNUM65536.", "NLNUM12.2147483648", "NL_NUM", "NLNUM 12.", "NLNUM+12."}) {
    EXPECT_THROW(parse_format(text), UsageError) << '"' << text << '"';
  }
}

TEST(ParseValue, ReadsMissingValuesAndNumbersAsStrtodDoes) {
  const std::pair<const char *, uint64_t> cases[] = {
      {".", 0xFFFFFE0000000000ull},  {"._", 0xFFFFFF0000000000ull}, {".a", 0xFFFFFD0000000000ull},
      {".Z", 0xFFFFE40000000000ull}, {".m", 0xFFFFF10000000000ull}, {"-0", 0x8000000000000000ull},
      {"-1.5e3", 0xC097700000000000ull}, {".5", 0x3FE0000000000000ull}, {"1e-999", 0},
      {"Infinity", 0x7FF0000000000000ull}, {"-inf", 0xFFF0000000000000ull}};
  for (const auto &[text, bits] : cases) {
    EXPECT_EQ(std::bit_cast<uint64_t>(parse_value(text)), bits) << text;
  }
  EXPECT_TRUE(std::isnan(parse_value("-NAN")));
  for (const char *text :
       {"", " 1", "1 ", "abc", "1e", "..", ".AB", ".1A", ".-", "1,5", ".\xc3\xa9",
        // A silent infinity or base 16 is not what people meant.
        "1e999", "-1e999", "0x10", "-0X1p3", "nan(1)", "infinite"}) {
    EXPECT_THROW(parse_value(text), UsageError) << '"' << text << '"';
  }
}

constexpr auto kNumber = ValueKind::kNumber;
constexpr auto kDate = ValueKind::kDate;
constexpr auto kDatetime = ValueKind::kDatetime;
constexpr auto kTime = ValueKind::kTime;

// Each literal shape, converted to what each kind of format reads.
TEST(ParseValue, TurnsLiteralsIntoTheNumberTheFormatReads) {
  const struct {
    const char *text;
    ValueKind kind;
    double value;
  } cases[] = {
      {"2003-02-24", kDate, 15760},
      {"2003-02-24", kDatetime, 15760 * 86400.0},
      {"2003-02-24", kNumber, 15760},
      {"24feb2003", kDate, 15760},
      {"1Jan1960", kDate, 0},
      {"1960-01-01T00:00:00", kDatetime, 0},
      {"1582-01-01", kDate, -138061},
      {"20000-12-31", kDate, 6589335},
      {"2003-02-24T12:39:43", kDatetime, 15760 * 86400.0 + 45583},
      {"2003-02-24t12:39:43.25", kDatetime, 15760 * 86400.0 + 45583.25},
      {"24FEB2003:12:39:43", kDatetime, 15760 * 86400.0 + 45583},
      {"24FEB2003:12:39", kNumber, 15760 * 86400.0 + 45540},
      {"2003-02-24T12:39:43", kDate, 15760},
      {"2003-02-24T12:39:43.5", kTime, 45583.5},
      {"1959-12-31T23:59:59", kDatetime, -1},
      {"16:24:43", kTime, 59083},
      {"0:00", kTime, 0},
      {"23:59:59.999", kNumber, 86399.999},
      {"2000-02-29", kDate, 14669},
  };
  for (const auto &c : cases) {
    EXPECT_EQ(parse_value(c.text, c.kind), c.value) << c.text;
  }
}

// Literals that name no real date or time, and mismatched kinds, are
// refused; other shapes are not literals at all.
TEST(ParseValue, RefusesLiteralsThatNameNoRealDateOrTime) {
  const struct {
    const char *text;
    ValueKind kind;
    const char *message;
  } cases[] = {
      {"2003-02-30", kDate, "not a real date"},
      {"2003-13-01", kDate, "not a real date"},
      {"31APR2003", kDatetime, "not a real date"},
      {"2001-02-29", kDate, "not a real date"},
      {"1900-02-29", kDate, "not a real date"},
      {"4000-02-29", kDate, "not a real date"},  // the 4000-year rule
      {"0000-01-01", kDate, "not a real date"},
      {"25:00:00", kTime, "not a real time of day"},
      {"12:60", kTime, "not a real time of day"},
      {"2003-02-24T24:00:00", kDatetime, "not a real time of day"},
      {"12:00:60", kTime, "not a real time of day"},
      {"16:24:43", kDate, "a time has no date"},
      {"16:24:43", kDatetime, "a time has no date"},
      {"2003-02-24", kTime, "a date has no time of day"},
      {"2003-2-24", kDate, "not a number, date or time"},
      {"24FEB03", kDate, "not a number, date or time"},
      {"24FEBR2003", kDate, "not a number, date or time"},
      {"2003-02-24T", kDatetime, "not a number, date or time"},
      {"2003-02-24 12:00", kDatetime, "not a number, date or time"},
      {"12:00:00.", kTime, "not a number, date or time"},
      {"123:00", kTime, "not a number, date or time"},
      {"100000-01-01", kDate, "not a number, date or time"},
  };
  for (const auto &c : cases) {
    try {
      parse_value(c.text, c.kind);
      ADD_FAILURE() << c.text << " accepted";
    } catch (const UsageError &error) {
      EXPECT_NE(std::string(error.what()).find(c.message), std::string::npos)
          << c.text << ": " << error.what();
    }
  }
}

// Every day of the years the standard library and the module's calendar
// share (they part at year 4000), in both literal shapes.
TEST(ParseValue, DayNumbersAgreeWithTheCivilCalendar) {
  using namespace std::chrono;
  constexpr const char *kMonths[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                     "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
  const sys_days epoch = year{1960} / January / 1;
  for (sys_days day = year{1582} / January / 1; day <= sys_days{year{3999} / December / 31};
       day += days{1}) {
    const year_month_day ymd{day};
    const int y = int{ymd.year()};
    const unsigned m = unsigned{ymd.month()}, d = unsigned{ymd.day()};
    char iso[16], host[16];
    std::snprintf(iso, sizeof iso, "%04d-%02u-%02u", y, m, d);
    std::snprintf(host, sizeof host, "%u%s%d", d, kMonths[m - 1], y);
    const auto expected = static_cast<double>((day - epoch).count());
    ASSERT_EQ(parse_value(iso, kDate), expected) << iso;
    ASSERT_EQ(parse_value(host, kDate), expected) << host;
  }
}

// The family names whose routine is worked out (separator letters, the
// year-first family's D, YYQR's stem), BEST, routine names, and non-names.
TEST(FindClassic, MapsAFamilyToItsRoutine) {
  const struct {
    const char *name, *symbol;
    int32_t width, decimals;
  } cases[] = {
      {"BEST", "zfmt", 12, 99},     {"PVALUE", "zfmpval", 6, 4},  {"MMDDYY", "zfmmdy", 8, 0},
      {"MMDDYYB", "zfmmdyb", 8, 0}, {"MMDDYYS", "zfmmdy", 8, 0},  {"DDMMYYP", "zfmdmyp", 8, 0},
      {"YYMMDDD", "zfmymd", 8, 0},  {"YYMMDDS", "zfmymds", 8, 0}, {"MMYYS", "zfmmmys", 7, 0},
      {"YYMMN", "zfmyymn", 7, 0},   {"YYQC", "zfmyyqc", 6, 0},    {"YYQR", "zfmyyqr", 8, 0},
      {"YYQRD", "zfmyqrd", 8, 0},   {"ZFMYMDS", "zfmymds", 8, 0}, {"ZFMT", "zfmt", 8, 0},
      {"ZFMYQRS", "zfmyqrs", 8, 0}, {"ZFMTIMM", "zfmtimm", 8, 0}};
  for (const auto &c : cases) {
    const auto routine = corvinel::cli::find_classic(c.name);
    ASSERT_TRUE(routine.has_value()) << c.name;
    EXPECT_TRUE(routine->symbol == c.symbol && routine->default_width == c.width &&
                routine->default_decimals == c.decimals && routine->best == (c.decimals == 99))
        << c.name;
  }
  // YYQ has no unsuffixed member; the workers and helpers take no request.
  for (const char *name : {"NLNUM", "MMDDYYX", "YYQB", "MMYYB", "COMMAX", "", "YYQRR", "YYQ",
                           "ZFMYYQ", "ZFMCPRT", "ZFMDLMY", "ZROUND", "ZDATRNG", "ZFMTX"}) {
    EXPECT_FALSE(corvinel::cli::find_classic(name).has_value()) << name;
  }
}

struct ToolRun {
  int exit_status = -1;  // -1 when the tool did not exit normally
  std::string out, err;
};

std::string take_file(const std::string &path) {
  std::ifstream in(path);
  std::string text{std::istreambuf_iterator<char>(in), {}};
  std::remove(path.c_str());
  return text;
}

// Runs the tool without ORB_LOCALE in its environment, plus `environment`
// ("NAME=value"); no argument holds a quote.
ToolRun run_tool(const std::vector<std::string> &arguments, const std::string &environment = "") {
  const std::string files = ::testing::TempDir() + "corvinel-fmt-" + std::to_string(getpid());
  std::string command = "env -u ORB_LOCALE " + environment + " " + std::getenv("CORVINEL_FMT");
  for (const std::string &argument : arguments) command += " '" + argument + "'";
  const int status = std::system((command + " >" + files + ".out 2>" + files + ".err").c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, take_file(files + ".out"),
          take_file(files + ".err")};
}

const std::string kStub = std::string("--module=") + CORVINEL_STUB_MODULE;

struct ToolCase {
  std::string label;
  std::vector<std::string> arguments;
  int exit_status;
  std::string out;  // all of standard output
  std::string err;  // a part of standard error, or empty for none at all
  std::string environment = "";
};

void PrintTo(const ToolCase &c, std::ostream *os) { *os << c.label; }

class Tool : public ::testing::TestWithParam<ToolCase> {};

TEST_P(Tool, PrintsAndExitsAsExpected) {
  const ToolCase &c = GetParam();
  const ToolRun run = run_tool(c.arguments, c.environment);
  EXPECT_EQ(run.exit_status, c.exit_status) << run.err;
  EXPECT_EQ(run.out, c.out);
  EXPECT_TRUE(c.err.empty() ? run.err.empty() : run.err.find(c.err) != std::string::npos)
      << run.err;
}

std::string name_of(const ::testing::TestParamInfo<ToolCase> &info) { return info.param.label; }

INSTANTIATE_TEST_SUITE_P(
    RealModule, Tool,
    ::testing::Values(
        ToolCase{"WidthBelowMinimum", {"--check", "NLNUM0.", "1"}, 3, "",
                 "note: NLNUM: width 0 is below the minimum 1\n"
                 "corvinel-fmt: width below the format's minimum (result 39)\n"},
        ToolCase{"PvalueRefusesNoDecimals", {"--check", "NLPVALUE6.0", "1", "2"}, 3, "",
                 "corvinel-fmt: decimals below the format's minimum (result 41)\n"
                 "corvinel-fmt: decimals below the format's minimum (result 41)\n"},
        // Unchecked, the format renders what it is given; the tool says why
        // the host would refuse it, unless told not to.
        ToolCase{"WidthAboveMaximumNoted", {"NLNUM200.", "1"}, 0, std::string(32, '*') + "\n",
                 "corvinel-fmt: note: NLNUM: width 200 is above the maximum 32\n"},
        ToolCase{"NoCheckSilencesTheNote", {"--no-check", "--bars", "NLNUM12.99", "1"}, 0, "|1.0000000000|\n", ""},
        ToolCase{"ClassicResultNamed", {"--classic", "DATE9.", "1e15"}, 3, "",
                 "corvinel-fmt: value out of range (result -2147362795, 0x8001d815)\n"},
        ToolCase{"LocaleNameWithEncoding", {"--locale", "de_DE.UTF-8", "NLSTRMON8.", "3"}, 0, "M\xC3\xA4rz\n", "",
                 "LC_ALL= LC_CTYPE= LANG=C.UTF-8"},
        ToolCase{"MarksAtUnitsPlace", {"--bars", "nlnum8.2", ".", "._", ".z"}, 0,
                 "|     .  |\n|     _  |\n|     Z  |\n", ""},
        ToolCase{"PercentLeavesRoomForTheSign", {"--bars", "NLPCT6.99", "."}, 0, "|   .  |\n",
                 "note: NLPCT: decimals 99 is above the maximum 31"},
        ToolCase{"DefaultsFromTheDescriptor", {"--bars", "NLMNY", ".B"}, 0, "|        B|\n", ""},
        ToolCase{"DateMarkAndOutOfRange", {"--bars", "NLDATE.", ".C", "-138062"}, 0,
                 "|" + std::string(19, ' ') + "C|\n|" + std::string(20, '*') + "|\n", ""},
        ToolCase{"UnitsAsHexadecimal", {"--utf16", "--bars", "NLDATE10.", "."}, 0,
                 "|20 20 20 20 20 20 20 20 20 2e|\n", ""},
        ToolCase{"FieldWiderThanCapacity", {"--capacity", "3", "NLNUM8.", "."}, 0, "   \n", ""},
        // Item 156 of de_DE, the currency symbol "<U20AC>", in the session encoding the entry sets from LANG.
        ToolCase{"ItemExpandedToUtf8", {"--locale", "de_DE", "--item", "156", "--expand"}, 0, "\xE2\x82\xAC\n", "",
                 "LC_ALL= LC_CTYPE= LANG=C.UTF-8"},
        ToolCase{"ItemExpandedToAscii", {"--locale", "de_DE", "--item", "156", "--expand"}, 0, "?\n", "",
                 "LC_ALL= LC_CTYPE= LANG=C"},
        ToolCase{"ClassicBareWidthAndDecimals", {"--bars", "--classic", "6.3", "23.45", "-1234"}, 0,
                 "|23.450|\n| -1234|\n", ""},
        ToolCase{"ClassicOverflowReportedNotPrinted", {"--bars", "--classic", "2.", "123", "12"}, 3,
                 "|12|\n", "corvinel-fmt: number does not fit (result -2147362777, 0x8001d827)\n"},
        // Literals reach each format as the number its kind reads.
        ToolCase{"DateLiterals", {"--locale", "de_DE", "NLDATE20.", "2003-02-24", "1jan1960"}, 0,
                 "24. Februar 2003\n01. Januar 1960\n", "", "LANG=C.UTF-8"},
        ToolCase{"DateLiteralToDatetimeIsMidnight", {"--locale", "en_US", "NLDATM30.", "24FEB2003"}, 0,
                 "24Feb2003:00:00:00\n", "", "LANG=C.UTF-8"},
        ToolCase{"DatetimeLiteral", {"--classic", "DATETIME20.", "2003-02-24T12:39:43"}, 0,
                 "  24FEB2003:12:39:43\n", ""},
        ToolCase{"TimeLiteral", {"--classic", "TIME8.", "16:24:43"}, 0, "16:24:43\n", ""}),
    name_of);

// Command lines that are refused: one line on stderr, status 2.
INSTANTIATE_TEST_SUITE_P(
    BadArguments, Tool,
    ::testing::Values(
        ToolCase{"Nothing", {}, 2, "", "missing FORMAT"},
        ToolCase{"NoValue", {"NLNUM8."}, 2, "", "missing VALUE"},
        ToolCase{"UnknownFormat", {"NLNOPE", "1"}, 2, "",
                 "corvinel-fmt: unknown format \"NLNOPE\" (corvinel-fmt --list shows the formats)\n"},
        ToolCase{"ValueNotANumber", {"NLNUM", "abc"}, 2, "", "VALUE is not a number, date or time: \"abc\""},
        ToolCase{"NotARealDate", {"NLDATE", "2003-02-30"}, 2, "",
                 "corvinel-fmt: not a real date: \"2003-02-30\"\n"},
        ToolCase{"NotARealTime", {"NLTIME", "25:00:00"}, 2, "",
                 "corvinel-fmt: not a real time of day: \"25:00:00\"\n"},
        ToolCase{"UnknownOption", {"--bogus", "NLNUM", "1"}, 2, "", "unknown option \"--bogus\""},
        ToolCase{"OptionWithoutValue", {"NLNUM", "1", "--capacity"}, 2, "", "--capacity needs a value"},
        ToolCase{"ItemOutOfRange", {"--item", "189"}, 2, "", "--item 189 is out of range"},
        ToolCase{"ExpandWithoutItem", {"--expand", "NLNUM", "1"}, 2, "", "--expand needs --item"},
        ToolCase{"ListWithFormat", {"--list", "NLNUM"}, 2, "", "unexpected argument"},
        ToolCase{"NoModule", {"--module", "/nonexistent/libcorvinel.so", "NLNUM", "1"}, 2, "",
                 "cannot load module /nonexistent/libcorvinel.so"},
        ToolCase{"UnknownClassic", {"--classic", "NOPE6.", "1"}, 2, "", "unknown classic rendering NOPE"},
        ToolCase{"UnknownLocale", {"--locale", "xx_YY", "NLNUM", "1"}, 2, "", "unknown locale \"xx_YY\"\n"},
        ToolCase{"LocaleInWords", {"--locale", "German", "NLNUM", "1"}, 2, "",
                 "unknown locale \"German\"; nearest: de_AT de_DE de_LI de_LU de_CH\n"},
        ToolCase{"LocaleLanguageOnly", {"--locale", "fr", "NLNUM", "1"}, 2, "", "; nearest: fr_BE fr_CA"},
        ToolCase{"LocaleEmpty", {"--locale", "", "NLNUM", "1"}, 2, "", "unknown locale \"\""},
        ToolCase{"LocaleNumberZero", {"--locale-number", "0", "NLNUM", "1"}, 2, "", "--locale-number 0 is out of range (1..136)"},
        ToolCase{"LocaleNumberAbove", {"--locale-number=137", "NLNUM", "1"}, 2, "", "out of range (1..136)"},
        ToolCase{"LocaleNumberNegative", {"--locale-number", "-5", "NLNUM", "1"}, 2, "", "out of range (1..136)"},
        ToolCase{"HexadecimalValue", {"NLNUM", "0x10"}, 2, "", "VALUE is hexadecimal, write it in decimal: \"0x10\""},
        ToolCase{"ValueOverflows", {"NLNUM", "1e999"}, 2, "", "VALUE is too large for a double: \"1e999\""},
        ToolCase{"CheckAndNoCheck", {"--check", "--no-check", "NLNUM", "1"}, 2, "", "exclude each other"},
        ToolCase{"AllLocalesAndLocale", {"--all-locales", "--locale", "de_DE", "NLNUM", "1"}, 2, "", "--all-locales excludes"}),
    name_of);

// The stand-in reports the request it receives: w<width> d<decimals>
// c<capacity> f<flags> l<locale> x<xcode_b> o<outlen> v<bits> e=<ORB_LOCALE>.
INSTANTIATE_TEST_SUITE_P(
    Handover, Tool,
    ::testing::Values(
        ToolCase{"DecimalsOnly", {kStub, "NlEcho.5", "-0"}, 0,
                 "w20 d5 c402 f0 l0 x0 o0 v8000000000000000 e=-\n", ""},
        ToolCase{"EveryRequestOption", {kStub, "--check", "--locale-number", "7", "--capacity=60",
                                        "--locale", "de_DE", "NLECHO12.3", "."},
                 0, "w12 d3 c60 f1 l7 x0 o0 vfffffe0000000000 e=de_DE\n", ""},
        ToolCase{"UnitsInHexadecimal", {kStub, "--utf16", "--capacity=20", "NLECHO", "1"}, 0,
                 "77 32 30 20 64 32 20 63 32 30 20 66 30 20 6c 30 20 78 32 35\n", ""},
        ToolCase{"OptionsAfterTheFormat", {"NLECHO", "inf", kStub, "--locale-number=3"}, 0,
                 "w20 d2 c402 f0 l3 x0 o0 v7ff0000000000000 e=-\n", ""},
        ToolCase{"DoubleDashEndsOptions", {kStub, "--", "NLECHO", "-inf"}, 0,
                 "w20 d2 c402 f0 l0 x0 o0 vfff0000000000000 e=-\n", ""},
        ToolCase{"LocaleFromTheEnvironmentIsReplaced", {kStub, "--locale", "ja_JP", "NLECHO", "0"}, 0,
                 "w20 d2 c402 f0 l0 x0 o0 v0000000000000000 e=ja_JP\n", "", "ORB_LOCALE=fr_FR"},
        ToolCase{"OneValueFails", {kStub, "--capacity", "6", "NLFLAKY", "1", "-1", "2"}, 3,
                 "w20 d2\nw20 d2\n", "corvinel-fmt: result 7\n"},
        ToolCase{"FormatWritesPastItsBuffer", {kStub, "NLOVERRUN", "1"}, 3, "", "wrote past its buffer"},
        ToolCase{"FormatClaimsTooMuch", {kStub, "NLOVERLONG", "1"}, 3, "", "outlen 403 lies outside"},
        ToolCase{"ClassicBestWidthAndDecimals99", {kStub, "--classic", "best.2", "1"}, 0,
                 "w12 d99 c402 f0 l0 x0 o0 v3ff0000000000000 e=-\n", ""},
        ToolCase{"ClassicResultReported", {kStub, "--classic", "PVALUE", "1"}, 3, "",
                 "corvinel-fmt: number does not fit (result -2147362777, 0x8001d827)\n"},
        ToolCase{"ClassicRoutineAbsent", {kStub, "--classic", "COMMA10.2", "1"}, 2, "",
                 "the module has no classic routine zfmcma"},
        ToolCase{"Item", {kStub, "--item", "7", "--locale-number", "3"}, 0, "item 7 of locale 3\n", ""},
        // Each locale by its number, its code read from the module.
        ToolCase{"AllLocalesByNumber", {kStub, "--all-locales", "--capacity=8", "NLECHO", "1"}, 0, [] {
                   std::string out = "de_DE  w20 d2 c\nja_JP  w20 d2 c\nfr_FR  w20 d2 c\n";
                   for (int n = 4; n <= 136; ++n) out += "zz_ZZ  w20 d2 c\n";
                   return out;
                 }(), ""},
        ToolCase{"ItemAbsent", {kStub, "--item", "9"}, 3, "", "locale item 9: result -1"},
        ToolCase{"ItemExpanded", {kStub, "--bars", "--item=12", "--expand"}, 0,
                 "|item 12 of locale 0 [reserved 0 width 402 capacity 402]|\n", ""},
        ToolCase{"ItemExpandedToUnits", {kStub, "--utf16", "--item", "12", "--expand"}, 0, "41 00\n", ""},
        ToolCase{"ItemExpansionFails", {kStub, "--item", "13", "--expand"}, 3, "", "expansion result 4"}),
    name_of);

// --items covers every code once, in order, from 0 to 188.
TEST(ItemCodes, CoverEveryCodeOnceInOrder) {
  int32_t next = 0;
  for (int32_t i = 0; i < corvinel::cli::kItemCodeRows; ++i) {
    const auto &row = corvinel::cli::kItemCodes[i];
    EXPECT_EQ(row.first, next) << row.meaning;
    EXPECT_LE(row.first, row.last) << row.meaning;
    EXPECT_FALSE(row.meaning.empty());
    next = row.last + 1;
  }
  EXPECT_EQ(next, 189);
}

TEST(ToolList, PrintsTheWholeRegistry) {
  const ToolRun list = run_tool({"--list"});
  ASSERT_EQ(list.exit_status, 0) << list.err;
  EXPECT_EQ(std::count(list.out.begin(), list.out.end(), '\n'), 144);
  EXPECT_TRUE(list.out.starts_with("NLBEST          width 1..32 (12)  decimals 0..31 (0)  kind 1\n"));
  EXPECT_TRUE(list.out.ends_with("NLMNLZAR        width 8..32 (12)  decimals 0..28 (2)  kind 0\n"));
  const ToolRun help = run_tool({"-h"});
  EXPECT_EQ(help.exit_status, 0);
  EXPECT_TRUE(help.out.starts_with("usage: corvinel-fmt [options] FORMAT VALUE...\n"));
}

}  // namespace

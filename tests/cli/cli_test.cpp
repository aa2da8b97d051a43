// corvinel-fmt as a person runs it: against the real module for the frame's
// behaviour, against a stand-in module for exactly what the tool hands over.
#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli/run_tool.h"

namespace {

using corvinel::testing::run_tool;
using corvinel::testing::ToolRun;

const std::string kStub = std::string("--module=") + CORVINEL_STUB_MODULE;

struct ToolCase {
  std::string label;
  std::vector<std::string> arguments;
  int exit_status;
  std::string out;  // exact standard output
  std::string err;  // standard error: a part of it, or empty for none at all
  std::vector<std::string> environment = {};
};

void PrintTo(const ToolCase &c, std::ostream *os) { *os << c.label; }

class Tool : public ::testing::TestWithParam<ToolCase> {};

TEST_P(Tool, PrintsAndExitsAsExpected) {
  const ToolCase &c = GetParam();
  const ToolRun run = run_tool(c.arguments, c.environment);
  EXPECT_EQ(run.exit_status, c.exit_status) << run.err;
  EXPECT_EQ(run.out, c.out);
  if (c.err.empty()) {
    EXPECT_EQ(run.err, "");
  } else {
    EXPECT_NE(run.err.find(c.err), std::string::npos) << run.err;
  }
}

std::string name_of(const ::testing::TestParamInfo<ToolCase> &info) { return info.param.label; }

// The real module: limit checks, missing values, the output shapes.
INSTANTIATE_TEST_SUITE_P(
    RealModule, Tool,
    ::testing::Values(
        ToolCase{"WidthBelowMinimum", {"--check", "NLNUM0.", "1"}, 3, "", "corvinel-fmt: result 39\n"},
        ToolCase{"DecimalsBelowMinimum", {"--check", "NLPVALUE6.0", "1"}, 3, "", "corvinel-fmt: result 41\n"},
        ToolCase{"WidthAboveMaximum", {"--check", "nlmniusd33.", "."}, 3, "", "result 40"},
        ToolCase{"DatetimeDecimalsRefused", {"--check", "NLDATM30.1", "."}, 3, "", "result 42"},
        ToolCase{"NoCheckNoRefusal", {"NLNUM40.", "."}, 0, std::string(39, ' ') + ".\n", ""},
        ToolCase{"MarkAtUnitsPlace", {"NLNUM8.2", ".A"}, 0, "     A  \n", ""},
        ToolCase{"EveryMissingValue", {"--bars", "nlnum6", ".", "._", ".z", ".Q"}, 0,
                 "|     .|\n|     _|\n|     Z|\n|     Q|\n", ""},
        ToolCase{"PercentLeavesRoomForTheSign", {"--bars", "NLPCT6.99", "."}, 0, "|   .  |\n", ""},
        ToolCase{"DefaultsFromTheDescriptor", {"--bars", "NLMNY", ".B"}, 0, "|        B|\n", ""},
        ToolCase{"DateMarkAtTheRightEdge", {"--bars", "NLDATE.", ".C"}, 0,
                 "|" + std::string(19, ' ') + "C|\n", ""},
        ToolCase{"DateOutOfRange", {"--bars", "NLDATE10.", "-138062"}, 0, "|**********|\n", ""},
        ToolCase{"SinglePatternOutOfRangeLeavesNothing", {"--bars", "NLDATEL", "-1e9"}, 0, "||\n", ""},
        ToolCase{"UnitsAsHexadecimal", {"--utf16", "--bars", "NLDATE10.", "."}, 0,
                 "|20 20 20 20 20 20 20 20 20 2e|\n", ""},
        ToolCase{"FieldWiderThanCapacity", {"--capacity", "3", "NLNUM8.", "."}, 0, "   \n", ""}),
    name_of);

// Command lines that are refused: one line on stderr, status 2.
INSTANTIATE_TEST_SUITE_P(
    BadArguments, Tool,
    ::testing::Values(
        ToolCase{"Nothing", {}, 2, "", "missing FORMAT"},
        ToolCase{"NoValue", {"NLNUM8."}, 2, "", "missing VALUE"},
        ToolCase{"UnknownFormat", {"NLNOPE", "1"}, 2, "", "unknown format NLNOPE"},
        ToolCase{"DecimalsNotANumber", {"NLNUM12.x", "1"}, 2, "", "decimals in \"NLNUM12.x\""},
        ToolCase{"WidthTooLarge", {"NLNUM70000.", "1"}, 2, "", "out of range"},
        ToolCase{"ValueNotANumber", {"NLNUM", "abc"}, 2, "", "VALUE is not a number: \"abc\""},
        ToolCase{"UnknownOption", {"--bogus", "NLNUM", "1"}, 2, "", "unknown option \"--bogus\""},
        ToolCase{"OptionWithoutValue", {"NLNUM", "1", "--capacity"}, 2, "", "--capacity needs a value"},
        ToolCase{"NegativeCapacity", {"--capacity=-1", "NLNUM", "1"}, 2, "", "out of range"},
        ToolCase{"LocaleNumberNotANumber", {"--locale-number", "x", "NLNUM", "1"}, 2, "", "is not a number"},
        ToolCase{"ItemOutOfRange", {"--item", "189"}, 2, "", "--item 189 is out of range"},
        ToolCase{"ExpandWithoutItem", {"--expand", "NLNUM", "1"}, 2, "", "--expand needs --item"},
        ToolCase{"ListWithFormat", {"--list", "NLNUM"}, 2, "", "unexpected argument"},
        ToolCase{"NoModule", {"--module", "/nonexistent/libcorvinel.so", "NLNUM", "1"}, 2, "",
                 "cannot load module /nonexistent/libcorvinel.so"},
        ToolCase{"UnknownClassic", {"--classic", "NOPE6.", "1"}, 2, "", "unknown classic rendering NOPE"}),
    name_of);

// The stand-in module reports the request it receives:
// w<width> d<decimals> c<capacity> f<flags> l<locale> x<xcode_b> o<outlen> v<bits> e=<ORB_LOCALE>.
INSTANTIATE_TEST_SUITE_P(
    Handover, Tool,
    ::testing::Values(
        ToolCase{"Defaults", {kStub, "NLECHO", "2"}, 0,
                 "w20 d2 c402 f0 l0 x0 o0 v4000000000000000 e=-\n", ""},
        ToolCase{"WidthOnly", {kStub, "nlecho7.", "1"}, 0, "w7 d2 c402 f0 l0 x0 o0 v3ff0000000000000 e=-\n", ""},
        ToolCase{"DecimalsOnly", {kStub, "NlEcho.5", "-0"}, 0,
                 "w20 d5 c402 f0 l0 x0 o0 v8000000000000000 e=-\n", ""},
        ToolCase{"EveryRequestOption",
                 {kStub, "--check", "--locale-number", "7", "--utf16", "--capacity=60",
                  "--locale", "de_DE", "NLECHO12.3", "."},
                 0,
                 "77 31 32 20 64 33 20 63 36 30 20 66 31 20 6c 37 20 78 32 35 20 6f 30 20 76 66 66 "
                 "66 66 66 65 30 30 30 30 30 30 30 30 30 30 20 65 3d 64 65 5f 44 45\n",
                 ""},
        ToolCase{"OptionsAfterTheFormat", {"NLECHO", "inf", kStub, "--locale-number=-3"}, 0,
                 "w20 d2 c402 f0 l-3 x0 o0 v7ff0000000000000 e=-\n", ""},
        ToolCase{"DoubleDashEndsOptions", {kStub, "--", "NLECHO", "-inf"}, 0,
                 "w20 d2 c402 f0 l0 x0 o0 vfff0000000000000 e=-\n", ""},
        ToolCase{"LocaleFromTheEnvironmentIsReplaced", {kStub, "--locale", "ja_JP", "NLECHO", "0"}, 0,
                 "w20 d2 c402 f0 l0 x0 o0 v0000000000000000 e=ja_JP\n", "", {"ORB_LOCALE=fr_FR"}},
        ToolCase{"OneValueFails", {kStub, "--capacity", "6", "NLFLAKY", "1", "-1", "2"}, 3,
                 "w20 d2\nw20 d2\n", "corvinel-fmt: result 7\n"},
        ToolCase{"FormatWritesPastItsBuffer", {kStub, "NLOVERRUN", "1"}, 3, "", "wrote past its buffer"},
        ToolCase{"FormatClaimsTooMuch", {kStub, "NLOVERLONG", "1"}, 3, "", "outlen 403 lies outside"},
        ToolCase{"ClassicByRoutineName", {kStub, "--classic", "zfmecho5.1", "."}, 0,
                 "w5 d1 c402 f0 l0 x0 o0 vfffffe0000000000 e=-\n", ""},
        ToolCase{"ClassicBestAsksForDecimals99", {kStub, "--classic", "best10.2", "1"}, 0,
                 "w10 d99 c402 f0 l0 x0 o0 v3ff0000000000000 e=-\n", ""},
        ToolCase{"ClassicFamilyDefaultWidth", {kStub, "--capacity", "20", "--classic", "BEST", "1"}, 0,
                 "w12 d99 c20 f0 l0 x0\n", ""},
        ToolCase{"ClassicResultReported", {kStub, "--classic", "PVALUE", "1"}, 3, "",
                 "corvinel-fmt: result -2147362777 (0x8001d827)\n"},
        ToolCase{"ClassicRoutineAbsent", {kStub, "--classic", "COMMA10.2", "1"}, 2, "",
                 "the module has no classic routine zfmcma"},
        ToolCase{"Item", {kStub, "--item", "5", "--locale-number", "3"}, 0, "item 5 of locale 3\n", ""},
        ToolCase{"ItemAbsent", {kStub, "--item", "9"}, 3, "", "locale item 9: result -1"},
        ToolCase{"ItemExpanded", {kStub, "--bars", "--item=12", "--expand"}, 0,
                 "|item 12 of locale 0 [reserved 0 width 402 capacity 402]|\n", ""},
        ToolCase{"ItemExpandedToUnits", {kStub, "--utf16", "--item", "12", "--expand"}, 0, "41 00\n", ""},
        ToolCase{"ItemExpansionFails", {kStub, "--item", "13", "--expand"}, 3, "", "expansion result 4"},
        ToolCase{"List", {kStub, "--list"}, 0,
                 "NLECHO          width 1..60 (20)  decimals 0..9 (2)  kind 1\n"
                 "NLFLAKY         width 1..60 (20)  decimals 0..9 (2)  kind 1\n"
                 "NLOVERLONG      width 1..60 (20)  decimals 0..9 (2)  kind 1\n"
                 "NLOVERRUN       width 1..60 (20)  decimals 0..9 (2)  kind 1\n",
                 ""}),
    name_of);

TEST(ToolList, PrintsTheWholeRegistry) {
  const ToolRun run = run_tool({"--list"});
  ASSERT_EQ(run.exit_status, 0) << run.err;
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 144);
  EXPECT_TRUE(run.out.starts_with("NLBEST          width 1..32 (12)  decimals 0..31 (0)  kind 1\n"));
  EXPECT_NE(run.out.find("\nNLPVALUE        width 3..32 (6)  decimals 1..30 (4)  kind 1\n"),
            std::string::npos);
  EXPECT_TRUE(run.out.ends_with("NLMNLZAR        width 8..32 (12)  decimals 0..28 (2)  kind 0\n"));
}

TEST(ToolHelp, NamesEveryOption) {
  const ToolRun run = run_tool({"-h"});
  ASSERT_EQ(run.exit_status, 0);
  for (const char *option : {"--module", "--locale", "--locale-number", "--check", "--utf16",
                             "--capacity", "--bars", "--classic", "--list", "--item", "--expand"}) {
    EXPECT_NE(run.out.find(option), std::string::npos) << option;
  }
}

}  // namespace

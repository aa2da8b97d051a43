// Day-month-year renderings and their layout routine zfmcprt.
#include <cstring>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "calendar/render_helpers.h"
#include "corvinel/classic_dates.h"

namespace corvinel::testing {
namespace {

using namespace renderers;

constexpr double kDay0 = 0;             // 1 January 1960
constexpr double kMarch16th2012 = 19068;
constexpr double kLastDay = 6589335;    // 31 December 20000

// Date 0 with the slash at every width the layout table gives.
INSTANTIATE_TEST_SUITE_P(
    MonthDayYearWidths, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmmdy, 2, 0, kDay0, "01"}, RenderCase{zfmmdy, 3, 0, kDay0, " 01"},
        RenderCase{zfmmdy, 4, 0, kDay0, "0101"}, RenderCase{zfmmdy, 5, 0, kDay0, "01/01"},
        RenderCase{zfmmdy, 6, 0, kDay0, "010160"}, RenderCase{zfmmdy, 7, 0, kDay0, " 010160"},
        RenderCase{zfmmdy, 8, 0, kDay0, "01/01/60"},
        RenderCase{zfmmdy, 9, 0, kDay0, " 01/01/60"},
        RenderCase{zfmmdy, 10, 0, kDay0, "01/01/1960"},
        RenderCase{zfmmdy, 11, 0, kDay0, " 01/01/1960"},
        RenderCase{zfmmdy, 12, 0, kDay0, "  01/01/1960"},
        RenderCase{zfmmdy, 1, 0, kDay0, "1"},
        RenderCase{zfmmdyn, 5, 0, kDay0, " 0101"}, RenderCase{zfmmdyn, 6, 0, kDay0, "010160"},
        RenderCase{zfmmdyn, 7, 0, kDay0, " 010160"},
        // The no-separator members leave blanks where the separators would be.
        RenderCase{zfmmdyn, 8, 0, kDay0, "  010160"},
        RenderCase{zfmmdyn, 10, 0, kDay0, "  01011960"},
        RenderCase{zfmmdyn, 12, 0, kDay0, "    01011960"}));

// Every member at widths 8 and 10.
INSTANTIATE_TEST_SUITE_P(
    EveryMember, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmmdy, 10, 0, kMarch16th2012, "03/16/2012"},
        RenderCase{zfmmdyb, 10, 0, kMarch16th2012, "03 16 2012"},
        RenderCase{zfmmdyc, 10, 0, kMarch16th2012, "03:16:2012"},
        RenderCase{zfmmdyd, 10, 0, kMarch16th2012, "03-16-2012"},
        RenderCase{zfmmdyn, 10, 0, kMarch16th2012, "  03162012"},
        RenderCase{zfmmdyp, 10, 0, kMarch16th2012, "03.16.2012"},
        RenderCase{zfmdmy, 10, 0, kMarch16th2012, "16/03/2012"},
        RenderCase{zfmdmyb, 10, 0, kMarch16th2012, "16 03 2012"},
        RenderCase{zfmdmyc, 10, 0, kMarch16th2012, "16:03:2012"},
        RenderCase{zfmdmyd, 10, 0, kMarch16th2012, "16-03-2012"},
        RenderCase{zfmdmyn, 10, 0, kMarch16th2012, "  16032012"},
        RenderCase{zfmdmyp, 10, 0, kMarch16th2012, "16.03.2012"},
        RenderCase{zfmymd, 10, 0, kMarch16th2012, "2012-03-16"},
        RenderCase{zfmymdb, 10, 0, kMarch16th2012, "2012 03 16"},
        RenderCase{zfmymdc, 10, 0, kMarch16th2012, "2012:03:16"},
        RenderCase{zfmymdn, 10, 0, kMarch16th2012, "  20120316"},
        RenderCase{zfmymdp, 10, 0, kMarch16th2012, "2012.03.16"},
        RenderCase{zfmymds, 10, 0, kMarch16th2012, "2012/03/16"},
        RenderCase{zfmmdyb, 8, 0, kMarch16th2012, "03 16 12"},
        RenderCase{zfmmdyc, 8, 0, kMarch16th2012, "03:16:12"},
        RenderCase{zfmmdyd, 8, 0, kMarch16th2012, "03-16-12"},
        RenderCase{zfmmdyp, 8, 0, kMarch16th2012, "03.16.12"},
        RenderCase{zfmdmy, 8, 0, kMarch16th2012, "16/03/12"},
        RenderCase{zfmdmyb, 8, 0, kMarch16th2012, "16 03 12"},
        RenderCase{zfmdmyc, 8, 0, kMarch16th2012, "16:03:12"},
        RenderCase{zfmdmyd, 8, 0, kMarch16th2012, "16-03-12"},
        RenderCase{zfmdmyp, 8, 0, kDay0, "01.01.60"},
        RenderCase{zfmymd, 8, 0, kDay0, "60-01-01"},
        RenderCase{zfmymdb, 8, 0, kMarch16th2012, "12 03 16"},
        RenderCase{zfmymdc, 8, 0, kMarch16th2012, "12:03:16"},
        RenderCase{zfmymdp, 8, 0, kMarch16th2012, "12.03.16"},
        RenderCase{zfmymds, 10, 0, kDay0, "1960/01/01"},
        RenderCase{zfmymd, 2, 0, kMarch16th2012, "12"},
        RenderCase{zfmymd, 4, 0, kMarch16th2012, "1203"},
        RenderCase{zfmymd, 5, 0, kMarch16th2012, "12-03"},
        RenderCase{zfmymdn, 6, 0, kMarch16th2012, "120316"},
        RenderCase{zfmdmyn, 6, 0, kMarch16th2012, "160312"},
        RenderCase{zfmdmyd, 5, 0, kMarch16th2012, "16-03"}));

// The ends of the range, negative dates, fractions, and the five-digit year
// that the four year positions cannot hold.
INSTANTIATE_TEST_SUITE_P(
    RangeAndValues, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmmdy, 10, 0, -138061, "01/01/1582"},
        RenderCase{zfmmdy, 10, 0, -1, "12/31/1959"},
        RenderCase{zfmmdy, 10, 0, -0.25, "12/31/1959"},
        RenderCase{zfmmdy, 10, 0, 0.999, "01/01/1960"},
        RenderCase{zfmymd, 10, 0, 14669, "2000-02-29"},
        RenderCase{zfmmdy, 10, 0, kLastDay, "12/31/    "},
        RenderCase{zfmymd, 10, 0, kLastDay, "    -12-31"},
        RenderCase{zfmmdy, 8, 0, kLastDay, "12/31/00"},
        RenderCase{zfmmdy, 8, 0, 6589336, "********", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmdmy, 10, 0, -138062, "**********", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmymd, 10, 0, std::numeric_limits<double>::quiet_NaN(), "**********",
                   CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmymd, 10, 0, -std::numeric_limits<double>::infinity(), "**********",
                   CORVINEL_OUT_OF_RANGE},
        // Missing values: the mark at the right edge whatever the decimals.
        RenderCase{zfmmdy, 8, 0, missing('.'), "       ."},
        RenderCase{zfmmdy, 8, 3, missing('_'), "       _"},
        RenderCase{zfmymds, 10, 0, missing('Z'), "         Z"}));

struct LayoutCase {
  int32_t width;
  char sep;
  double a, b, c;
  const char *expected;
};

void PrintTo(const LayoutCase &c, std::ostream *os) {
  *os << "w" << c.width << " " << c.a << "," << c.b << "," << c.c;
}

class Zfmcprt : public ::testing::TestWithParam<LayoutCase> {};

TEST_P(Zfmcprt, LaysOutThreeNumbers) {
  const LayoutCase &c = GetParam();
  std::string buffer(static_cast<size_t>(c.width) + 8, '#');
  zfmcprt(c.width, c.sep, buffer.data(), c.a, c.b, c.c);
  EXPECT_EQ(buffer.substr(0, static_cast<size_t>(c.width)), c.expected);
  EXPECT_EQ(buffer.substr(static_cast<size_t>(c.width)), "########");
}

// Numbers above 99 take four positions wherever they stand; the text is cut
// to its last ten characters; a number that does not fit its positions
// leaves them blank.
INSTANTIATE_TEST_SUITE_P(
    Layouts, Zfmcprt,
    ::testing::Values(LayoutCase{10, '/', 1, 2, 2024, "01/02/2024"},
                      LayoutCase{12, '/', 1234, 5, 6789, "  34/05/6789"},
                      LayoutCase{10, 0, 7, 8, 9, "    070809"},
                      LayoutCase{8, '-', 7, 8, 10000, "-08-    "},
                      LayoutCase{8, '-', 7, -5, 9, "07--5-09"},
                      LayoutCase{8, '-', 7, -50, 9, "07-  -09"},
                      LayoutCase{5, '.', 12, 31, 99, "12.31"},
                      LayoutCase{3, '.', 12, 31, 99, " 12"},
                      LayoutCase{1, '.', 12, 31, 99, "2"}, LayoutCase{0, '.', 1, 2, 3, ""}));

}  // namespace
}  // namespace corvinel::testing

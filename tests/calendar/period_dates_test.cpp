// Month-year, year-month, year-quarter, MONYY and DATE renderings.
#include <gtest/gtest.h>

#include "calendar/render_helpers.h"

namespace corvinel::testing {
namespace {

using namespace renderers;

constexpr double kMarch15th2024 = 23450;
constexpr double kAugust15th2024 = 23603;
constexpr double kFebruary15th2024 = 23421;
constexpr double kNovember30th2024 = 23710;
constexpr double kMarch15th2005 = 16510;
constexpr double kMarch1st2000 = 14670;
constexpr double kMarch15th1960 = 74;
constexpr double kMarch16th2012 = 19068;
constexpr double kLastDay = 6589335;  // 31 December 20000

INSTANTIATE_TEST_SUITE_P(
    MonthYear, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmmmy, 7, 0, kMarch15th2024, "03M2024"},
        RenderCase{zfmmmyc, 7, 0, kMarch15th2024, "03:2024"},
        RenderCase{zfmmmyd, 7, 0, kMarch15th2024, "03-2024"},
        RenderCase{zfmmmyn, 7, 0, kMarch15th2024, " 032024"},
        RenderCase{zfmmmyp, 7, 0, kMarch15th2024, "03.2024"},
        RenderCase{zfmmmys, 7, 0, kMarch15th2024, "03/2024"},
        // Two-digit years below width 7 with a separator, 6 without.
        RenderCase{zfmmmys, 6, 0, kMarch15th2024, " 03/24"},
        RenderCase{zfmmmys, 5, 0, kMarch15th2024, "03/24"},
        RenderCase{zfmmmyn, 6, 0, kMarch15th2024, "032024"},
        RenderCase{zfmmmyn, 5, 0, kMarch15th2024, " 0324"},
        RenderCase{zfmmmyn, 4, 0, kMarch15th2024, "0324"},
        RenderCase{zfmmmy, 10, 0, kNovember30th2024, "   11M2024"},
        RenderCase{zfmmmy, 5, 0, kMarch15th2005, "03M05"},
        RenderCase{zfmmmy, 5, 0, kMarch1st2000, "03M00"},
        // Narrower than the layout: cut at the left edge.
        RenderCase{zfmmmyd, 3, 0, kMarch15th2024, "-24"},
        RenderCase{zfmmmyd, 2, 0, kMarch15th2024, "24"},
        RenderCase{zfmmmy, 7, 0, kLastDay, "12M    "}));

INSTANTIATE_TEST_SUITE_P(
    YearMonth, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmyym, 7, 0, kMarch15th2024, "2024M03"},
        RenderCase{zfmyymc, 7, 0, kMarch15th2024, "2024:03"},
        RenderCase{zfmyymd, 7, 0, kMarch15th2024, "2024-03"},
        RenderCase{zfmyymn, 7, 0, kMarch15th2024, " 202403"},
        RenderCase{zfmyymp, 7, 0, kMarch15th2024, "2024.03"},
        RenderCase{zfmyyms, 7, 0, kMarch15th2024, "2024/03"},
        RenderCase{zfmyymd, 5, 0, kMarch15th2024, "24-03"},
        RenderCase{zfmyymd, 10, 0, kNovember30th2024, "   2024-11"},
        RenderCase{zfmyymn, 6, 0, kMarch15th2024, "202403"},
        RenderCase{zfmyymn, 4, 0, kMarch15th2024, "2403"},
        RenderCase{zfmyymn, 5, 0, kMarch15th2005, " 0503"},
        RenderCase{zfmyym, 5, 0, kMarch15th2005, "05M03"},
        RenderCase{zfmyym, 5, 0, kMarch1st2000, "00M03"},
        RenderCase{zfmyym, 3, 0, kMarch15th2024, "M03"},
        // Five digits fit when the year has five positions.
        RenderCase{zfmyym, 7, 0, kLastDay, "    M12"},
        RenderCase{zfmyym, 8, 0, kLastDay, "20000M12"}));

INSTANTIATE_TEST_SUITE_P(
    YearQuarter, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmyyqc, 6, 0, kMarch15th2024, "2024:1"},
        RenderCase{zfmyyqd, 6, 0, kAugust15th2024, "2024-3"},
        RenderCase{zfmyyqn, 5, 0, kNovember30th2024, "20244"},
        RenderCase{zfmyyqp, 6, 0, kMarch15th2024, "2024.1"},
        RenderCase{zfmyyqs, 6, 0, kMarch15th2024, "2024/1"},
        RenderCase{zfmyyqs, 5, 0, kMarch15th2024, " 24/1"},
        RenderCase{zfmyyqd, 4, 0, kMarch15th2005, "05-1"},
        RenderCase{zfmyyqn, 4, 0, kMarch15th2024, " 241"},
        RenderCase{zfmyyqn, 3, 0, kMarch15th2024, "241"},
        RenderCase{zfmyyqc, 8, 0, kAugust15th2024, "  2024:3"},
        // The Roman numeral's length moves the two-digit threshold.
        RenderCase{zfmyyqr, 6, 0, kAugust15th2024, "24QIII"},
        RenderCase{zfmyyqr, 8, 0, kAugust15th2024, "2024QIII"},
        RenderCase{zfmyyqr, 6, 0, kFebruary15th2024, "2024QI"},
        RenderCase{zfmyyqr, 7, 0, kNovember30th2024, "2024QIV"},
        RenderCase{zfmyyqr, 6, 0, kNovember30th2024, " 24QIV"},
        RenderCase{zfmyyqr, 5, 0, kMarch15th2005, " 05QI"},
        RenderCase{zfmyqrc, 8, 0, kAugust15th2024, "2024:III"},
        RenderCase{zfmyqrc, 7, 0, kAugust15th2024, " 24:III"},
        RenderCase{zfmyqrd, 7, 0, kMarch15th2024, " 2024-I"},
        RenderCase{zfmyqrn, 7, 0, kAugust15th2024, "2024III"},
        RenderCase{zfmyqrn, 6, 0, kAugust15th2024, " 24III"},
        RenderCase{zfmyqrp, 7, 0, kNovember30th2024, "2024.IV"},
        RenderCase{zfmyqrs, 7, 0, kNovember30th2024, "2024/IV"},
        RenderCase{zfmyyqr, 3, 0, kAugust15th2024, "III"}));

INSTANTIATE_TEST_SUITE_P(
    MonthAbbreviationAndYear, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmmony, 5, 0, kMarch15th1960, "MAR60"},
        RenderCase{zfmmony, 6, 0, kMarch15th1960, " MAR60"},
        RenderCase{zfmmony, 7, 0, kMarch15th1960, "MAR1960"},
        RenderCase{zfmmony, 9, 0, kMarch15th1960, "  MAR1960"},
        RenderCase{zfmmony, 5, 0, kMarch15th2005, "MAR05"},
        RenderCase{zfmmony, 5, 0, kMarch1st2000, "MAR00"},
        RenderCase{zfmmony, 4, 0, kMarch15th1960, "MAR6"},
        RenderCase{zfmmony, 3, 0, kNovember30th2024, "NOV"},
        RenderCase{zfmmony, 7, 0, kLastDay, "DEC    "},
        RenderCase{zfmmony, 5, 0, kLastDay, "DEC00"}));

// 16 March 2012 at every width of the DATE layouts, and around them.
INSTANTIATE_TEST_SUITE_P(
    DayMonthAbbreviationYear, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmdate, 5, 0, kMarch16th2012, "16MAR"},
        RenderCase{zfmdate, 6, 0, kMarch16th2012, " 16MAR"},
        RenderCase{zfmdate, 7, 0, kMarch16th2012, "16MAR12"},
        RenderCase{zfmdate, 8, 0, kMarch16th2012, " 16MAR12"},
        RenderCase{zfmdate, 9, 0, kMarch16th2012, "16MAR2012"},
        RenderCase{zfmdate, 10, 0, kMarch16th2012, " 16MAR2012"},
        RenderCase{zfmdate, 11, 0, kMarch16th2012, "16-MAR-2012"},
        RenderCase{zfmdate, 13, 0, kMarch16th2012, "  16-MAR-2012"},
        RenderCase{zfmdate, 4, 0, kMarch16th2012, "16MA"},
        RenderCase{zfmdate, 2, 0, kMarch16th2012, "16"},
        RenderCase{zfmdate, 1, 0, kMarch16th2012, "1"},
        RenderCase{zfmdate, 7, 0, 4, "05JAN60"},
        RenderCase{zfmdate, 9, 0, -138061, "01JAN1582"},
        RenderCase{zfmdate, 11, 0, kLastDay, "31-DEC-    "},
        RenderCase{zfmdate, 9, 0, 6589336, "*********", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmdate, 9, 2, missing('.'), "        ."},
        RenderCase{zfmmony, 7, 0, missing('K'), "      K"}));

// DTDATE: the day of a datetime, as DATE shows it.
INSTANTIATE_TEST_SUITE_P(
    DateOfDatetime, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmdtda, 9, 0, kMarch16th2012 * 86400 + 45296, "16MAR2012"},
        RenderCase{zfmdtda, 7, 0, -1, "31DEC59"},
        RenderCase{zfmdtda, 7, 0, 86399.9, "01JAN60"},
        RenderCase{zfmdtda, 7, 0, 569318630400, "*******", CORVINEL_OUT_OF_RANGE},
        // A missing value keeps the request's decimals.
        RenderCase{zfmdtda, 7, 2, missing('.'), "    .  "},
        RenderCase{zfmdtda, 7, 0, missing('_'), "      _"}));

}  // namespace
}  // namespace corvinel::testing

// TIME, TOD, TIMEAMPM and DATETIME renderings.
#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "calendar/render_helpers.h"
#include "calendar/time_texts.h"

namespace corvinel::testing {
namespace {

using namespace renderers;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kEndSecond = 569318630400;  // first second after the range
constexpr double kDay = 86400;

INSTANTIATE_TEST_SUITE_P(
    Time, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmtime, 8, 0, 3723.5, " 1:02:04"},  // frac .5 rounds the second up
        RenderCase{zfmtime, 10, 2, 3723.5, "1:02:03.50"},
        RenderCase{zfmtime, 5, 0, 3723.5, " 1:02"}, RenderCase{zfmtime, 2, 0, 3723.5, " 1"},
        RenderCase{zfmtime, 8, 0, -3723, "-1:02:03"},
        // Early carry into the next hour or minute; hours are not reduced.
        RenderCase{zfmtime, 11, 2, 86399.9999, "24:00:00.00"},
        RenderCase{zfmtime, 10, 2, 3599.9999, "1:00:00.00"},
        RenderCase{zfmtime, 8, 0, 59.96, " 0:01:00"},
        RenderCase{zfmtime, 8, 0, 90000, "25:00:00"},
        RenderCase{zfmtime, 9, 0, -90000, "-25:00:00"},
        RenderCase{zfmtime, 5, 0, 45296, "12:34"}, RenderCase{zfmtime, 4, 0, 45296, "  12"},
        RenderCase{zfmtime, 1, 0, 45296, "*"}, RenderCase{zfmtime, 2, 0, -3600, "-1"},
        RenderCase{zfmtime, 1, 0, -3600, "*"}, RenderCase{zfmtime, 0, 0, 45296, ""},
        // Decimals as the width allows: none at 8, then one per position.
        RenderCase{zfmtime, 8, 2, 7.25, " 0:00:07"},
        RenderCase{zfmtime, 10, 2, 7.25, "0:00:07.25"},
        RenderCase{zfmtime, 12, 2, 7.25, "  0:00:07.25"},
        RenderCase{zfmtime, 11, 3, 7.25, "0:00:07.250"},
        RenderCase{zfmtime, 10, 2, 7.256, "0:00:07.26"},
        RenderCase{zfmtime, 10, 2, 7.254, "0:00:07.25"},
        RenderCase{zfmtime, 11, 2, 36000.5, "10:00:00.50"},
        RenderCase{zfmtime, 8, -3, 7.25, " 0:00:07"},
        // Second rounding at the decimals that fit, into the minute and
        // into an hour with one more digit, which then leaves no decimal.
        RenderCase{zfmtime, 8, 2, 3.6, " 0:00:04"},
        RenderCase{zfmtime, 8, 2, 59.7, " 0:01:00"},
        RenderCase{zfmtime, 9, 3, 59.97, "0:01:00.0"},
        RenderCase{zfmtime, 8, 3, 35999.6, "10:00:00"},
        RenderCase{zfmtime, 9, 3, 35999.6, "9:59:59.6"},
        // Many decimals: a double has about 15; the rest are zeros.
        RenderCase{zfmtime, 40, 40, 7.25, " 0:00:07.2500000000000000000000000000000"},
        RenderCase{zfmtime, 26, 18, 1.0 / 3, "0:00:00.333333333333333000"},
        // The ends of the range.
        RenderCase{zfmtime, 15, 0, kEndSecond - 1, "158144063:59:59"},
        RenderCase{zfmtime, 15, 0, -11928470400, " -3313464:00:00"},
        RenderCase{zfmtime, 8, 0, kEndSecond, "********", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmtime, 8, 0, -11928470400.5, "********", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmtime, 8, 0, kNaN, "********", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmtime, 8, 0, kInf, "********", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmtime, 8, 2, missing('.'), "       ."},
        RenderCase{zfmtime, 8, 2, missing('X'), "       X"}));

INSTANTIATE_TEST_SUITE_P(
    TimeOfDay, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmtod, 12, 3, 86399.9996, "23:59:59.999"},
        RenderCase{zfmtod, 8, 0, 86399.6, "23:59:59"},
        RenderCase{zfmtod, 5, 0, 86399.9, "23:59"}, RenderCase{zfmtod, 2, 0, 86399.9, "23"},
        RenderCase{zfmtod, 11, 2, 86399.9999, "23:59:59.99"},
        RenderCase{zfmtod, 8, 0, 3600, "01:00:00"}, RenderCase{zfmtod, 2, 0, 3600, "01"},
        RenderCase{zfmtod, 3, 0, 3600, " 01"}, RenderCase{zfmtod, 1, 0, 3600, "1"},
        RenderCase{zfmtod, 4, 0, 3600, "1:00"},
        RenderCase{zfmtod, 8, 0, kDay + 30, "00:00:30"},
        RenderCase{zfmtod, 8, 0, -1, "23:59:59"},
        RenderCase{zfmtod, 8, 0, 19068 * kDay + 45296, "12:34:56"},
        RenderCase{zfmtod, 10, 0, 3723, "  01:02:03"},
        RenderCase{zfmtod, 8, 0, kEndSecond, "********", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmtod, 8, 0, missing('_'), "       _"}));

INSTANTIATE_TEST_SUITE_P(
    TwelveHourClock, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmtimm, 11, 0, 0, "12:00:00 AM"},
        RenderCase{zfmtimm, 11, 0, 43200, "12:00:00 PM"},
        RenderCase{zfmtimm, 11, 0, 46800, " 1:00:00 PM"},
        RenderCase{zfmtimm, 11, 0, 3723, " 1:02:03 AM"},
        RenderCase{zfmtimm, 14, 2, 3723.25, " 1:02:03.25 AM"},
        RenderCase{zfmtimm, 11, 0, 43199.6, "12:00:00 PM"},
        RenderCase{zfmtimm, 11, 0, 86399.6, "12:00:00 AM"},
        RenderCase{zfmtimm, 13, 1, 86399.97, "12:00:00.0 AM"},
        RenderCase{zfmtimm, 11, 0, -1, "11:59:59 PM"},
        RenderCase{zfmtimm, 11, 0, 3 * kDay + 15 * 3600, " 3:00:00 PM"},
        RenderCase{zfmtimm, 8, 0, 46800, " 1:00 PM"},
        RenderCase{zfmtimm, 5, 0, 46800, " 1 PM"},
        RenderCase{zfmtimm, 4, 0, 0, "  AM"}, RenderCase{zfmtimm, 4, 0, 43200, "  PM"},
        RenderCase{zfmtimm, 2, 0, 50000, "PM"}, RenderCase{zfmtimm, 1, 0, 50000, "P"},
        RenderCase{zfmtimm, 11, 0, kEndSecond, "***********", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmtimm, 11, 0, missing('.'), "          ."}));

INSTANTIATE_TEST_SUITE_P(
    Datetime, ClassicRendering,
    ::testing::Values(
        RenderCase{zfmdttm, 16, 0, 0, "01JAN60:00:00:00"},
        RenderCase{zfmdttm, 13, 0, 0, "01JAN60:00:00"},
        RenderCase{zfmdttm, 10, 0, 0, "01JAN60:00"},
        RenderCase{zfmdttm, 9, 0, 0, "01JAN1960"},
        RenderCase{zfmdttm, 19, 0, 0, " 01JAN1960:00:00:00"},
        RenderCase{zfmdttm, 21, 2, 0, "01JAN1960:00:00:00.00"},
        RenderCase{zfmdttm, 18, 0, 0, "  01JAN60:00:00:00"},
        RenderCase{zfmdttm, 11, 0, 0, " 01JAN60:00"},
        RenderCase{zfmdttm, 8, 0, 0, " 01JAN60"}, RenderCase{zfmdttm, 7, 0, 0, "01JAN60"},
        RenderCase{zfmdttm, 5, 0, 0, "01JAN"},
        // Decimals give way until 16 positions are left for the date and
        // time; the point is not counted, so at width - decimals = 16 the
        // text is one position longer than the field and loses its end.
        RenderCase{zfmdttm, 16, 2, 0, "01JAN60:00:00:00"},
        RenderCase{zfmdttm, 17, 3, 0, "01JAN60:00:00:00."},
        RenderCase{zfmdttm, 18, 2, 0, "01JAN60:00:00:00.0"},
        RenderCase{zfmdttm, 19, 2, 0, "01JAN60:00:00:00.00"},
        RenderCase{zfmdttm, 22, 2, 19068 * kDay + 45296.25, " 16MAR2012:12:34:56.25"},
        RenderCase{zfmdttm, 16, 0, -1, "31DEC59:23:59:59"},
        RenderCase{zfmdttm, 16, 0, -11928470400, "01JAN82:00:00:00"},
        RenderCase{zfmdttm, 19, 0, kEndSecond - 0.5, " 31DEC    :23:59:59"},
        RenderCase{zfmdttm, 40, 30, 1.5,
                   "01JAN60:00:00:01.50000000000000000000000"},
        RenderCase{zfmdttm, 16, 0, kEndSecond, "****************", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmdttm, 16, 0, kNaN, "****************", CORVINEL_OUT_OF_RANGE},
        RenderCase{zfmdttm, 16, 3, missing('.'), "               ."}));

// Hours beyond 2^53 cannot pass the range gate of zfmtime; the renderer
// behind it refuses them itself.
TEST(RenderDuration, RefusesHoursBeyondTwoToThe53) {
  std::string field(24, '#');
  const double hours_2_53 = 9007199254740992.0;
  EXPECT_EQ(calendar::render_duration(field.data(), 22, 0, hours_2_53 * 3600), CORVINEL_OK);
  EXPECT_EQ(field.substr(0, 22), "9007199254740992:00:00");
  EXPECT_EQ(calendar::render_duration(field.data(), 22, 0, hours_2_53 * 7200),
            CORVINEL_HOURS_TOO_LARGE);
  EXPECT_EQ(field.substr(0, 22), std::string(22, '*'));
  EXPECT_EQ(calendar::render_duration(field.data(), 22, 0, -1e300), CORVINEL_HOURS_TOO_LARGE);
  EXPECT_EQ(calendar::render_duration(field.data(), 22, 0, kNaN), CORVINEL_HOURS_TOO_LARGE);
  EXPECT_EQ(field.substr(22), "##");
}

}  // namespace
}  // namespace corvinel::testing

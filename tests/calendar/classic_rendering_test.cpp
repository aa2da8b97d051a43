// The classic date, time and datetime renderings: golden fields of every
// layout, then every rendering at every width from 0 to 32 with values at
// and beyond the ends of the range, every missing mark and fields outside
// their buffer; the gate, split and layout routines they share.
#include <algorithm>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "calendar/time_texts.h"
#include "corvinel/classic_dates.h"
#include "corvinel/missing.h"
#include "support/request_builder.h"

namespace corvinel::testing {
namespace {

struct Renderer {
  const char *name;
  fmt_render_fn render;
};

#define RENDERER(f) Renderer{#f, ::f}

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kDay0 = 0;  // 1 January 1960
constexpr double kMar1960 = 74;  // 15 March 1960
constexpr double kMar2005 = 16510;  // 15 March 2005
constexpr double kMar2012 = 19068;  // 16 March 2012
constexpr double kFeb2024 = 23421;  // 15 February 2024
constexpr double kMar2024 = 23450;  // 15 March 2024
constexpr double kAug2024 = 23603;  // 15 August 2024
constexpr double kNov2024 = 23710;  // 30 November 2024
constexpr double kLastDay = 6589335;  // 31 December 20000
constexpr double kDay = 86400;
constexpr double kEndSecond = 569318630400;  // first second after the range

// One rendering of a value at several widths: each expected field is as
// wide as the field it stands for.
struct RenderCase {
  Renderer renderer;
  double value;
  std::vector<std::string> fields;
  int32_t decimals = 0;
};

void PrintTo(const RenderCase &c, std::ostream *os) {
  *os << c.renderer.name << " ." << c.decimals << " of " << ::testing::PrintToString(c.value)
      << " from width " << c.fields.front().size();
}

class ClassicRendering : public ::testing::TestWithParam<RenderCase> {};

TEST_P(ClassicRendering, FillsTheField) {
  const RenderCase &c = GetParam();
  for (const std::string &expected : c.fields) {
    const auto width = static_cast<int32_t>(expected.size());
    Request request(width, c.decimals, c.value);
    EXPECT_EQ(c.renderer.render(request.get()), CORVINEL_OK) << width;
    EXPECT_EQ(request.field(), expected) << width;
    EXPECT_TRUE(request->outlen == width && request.guards_intact() && request.restored()) << width;
  }
}

const RenderCase kDayMonthYear[] = {
    {RENDERER(zfmmdy), kDay0, {"1", "01", " 01", "0101", "01/01", "010160", " 010160", "01/01/60"}},
    {RENDERER(zfmmdy), kDay0, {" 01/01/60", "01/01/1960", " 01/01/1960", "  01/01/1960"}},
    {RENDERER(zfmmdyn), kDay0, {" 0101", "010160", " 010160", "  010160", "   010160"}},
    {RENDERER(zfmymd), kMar2012, {"12", " 12", "1203", "12-03", "120316", " 120316"}},
    // Fractions, and the five-digit year the four positions cannot hold.
    {RENDERER(zfmmdy), -0.25, {"12/31/1959"}},
    {RENDERER(zfmmdy), kLastDay, {"12/31/00", " 12/31/00", "12/31/    "}},
    // Every member's order and separator, blanks where a member has none.
    {RENDERER(zfmmdyb), kMar2012, {"03 16 2012"}}, {RENDERER(zfmmdyc), kMar2012, {"03:16:2012"}},
    {RENDERER(zfmmdyd), kMar2012, {"03-16-2012"}}, {RENDERER(zfmmdyp), kMar2012, {"03.16.2012"}},
    {RENDERER(zfmdmy), kMar2012, {"16/03/2012"}}, {RENDERER(zfmdmyb), kMar2012, {"16 03 2012"}},
    {RENDERER(zfmdmyc), kMar2012, {"16:03:2012"}}, {RENDERER(zfmdmyd), kMar2012, {"16-03-2012"}},
    {RENDERER(zfmdmyn), kMar2012, {"  16032012"}}, {RENDERER(zfmdmyp), kDay0, {"01.01.60"}},
    {RENDERER(zfmymd), kDay0, {"60-01-01"}}, {RENDERER(zfmymdb), kMar2012, {"2012 03 16"}},
    {RENDERER(zfmymdc), kMar2012, {"2012:03:16"}}, {RENDERER(zfmymdn), kMar2012, {"  20120316"}},
    {RENDERER(zfmymdp), kMar2012, {"2012.03.16"}}, {RENDERER(zfmymds), kDay0, {"1960/01/01"}},
};

// Two-digit years below width 7 with a separator, below 6 without; for the
// Roman quarter the numeral's length moves that threshold.
const RenderCase kPeriods[] = {
    {RENDERER(zfmmmy), kMar2024, {"03M24", " 03M24", "03M2024"}},
    {RENDERER(zfmmmyd), kMar2024, {"24", "-24", "03-2024"}},
    {RENDERER(zfmmmyn), kMar2024, {"0324", " 0324", "032024", " 032024"}},
    {RENDERER(zfmmmy), kNov2024, {"   11M2024"}},
    {RENDERER(zfmmmy), kMar2005, {"03M05"}}, {RENDERER(zfmmmy), kLastDay, {"12M    "}},
    {RENDERER(zfmyym), kMar2024, {"M03", " M03", "24M03", " 24M03", "2024M03"}},
    {RENDERER(zfmyymd), kMar2024, {"24-03", " 24-03", "2024-03"}},
    {RENDERER(zfmyymn), kMar2024, {"2403", " 2403", "202403"}},
    {RENDERER(zfmyym), 14670, {"00M03"}}, {RENDERER(zfmyymn), kMar2005, {" 0503"}},  // 2000, 2005
    {RENDERER(zfmyym), kLastDay, {"    M12", "20000M12"}},
    {RENDERER(zfmyyqd), kMar2005, {"05-1", " 05-1", "2005-1"}},
    {RENDERER(zfmyyqn), kNov2024, {"244", " 244", "20244"}},
    {RENDERER(zfmyyqs), kAug2024, {"24/3", " 24/3", "2024/3"}},
    {RENDERER(zfmyyqr), kAug2024, {"III", "QIII", " QIII", "24QIII", " 24QIII", "2024QIII"}},
    {RENDERER(zfmyyqr), kFeb2024, {" 24QI", "2024QI"}},
    {RENDERER(zfmyyqr), kNov2024, {" 24QIV", "2024QIV"}},
    {RENDERER(zfmyyqr), kMar2005, {" 05QI"}},
    {RENDERER(zfmyqrn), kAug2024, {"24III", " 24III", "2024III"}},
    {RENDERER(zfmmmyc), kMar2024, {"03:2024"}}, {RENDERER(zfmmmyp), kMar2024, {"03.2024"}},
    {RENDERER(zfmmmys), kMar2024, {"03/2024"}}, {RENDERER(zfmyymc), kMar2024, {"2024:03"}},
    {RENDERER(zfmyymp), kMar2024, {"2024.03"}}, {RENDERER(zfmyyms), kMar2024, {"2024/03"}},
    {RENDERER(zfmyyqc), kMar2024, {"2024:1"}},  {RENDERER(zfmyyqp), kMar2024, {"2024.1"}},
    {RENDERER(zfmyqrc), kAug2024, {"2024:III"}}, {RENDERER(zfmyqrd), kMar2024, {" 2024-I"}},
    {RENDERER(zfmyqrp), kNov2024, {"2024.IV"}}, {RENDERER(zfmyqrs), kNov2024, {"2024/IV"}},
};

const RenderCase kMonthNames[] = {
    {RENDERER(zfmmony), kMar1960, {"MAR", "MAR6", "MAR60", " MAR60", "MAR1960", " MAR1960"}},
    {RENDERER(zfmmony), kMar2005, {"MAR05"}},
    {RENDERER(zfmmony), kLastDay, {"DEC00", " DEC00", "DEC    "}},
    {RENDERER(zfmdate), kMar2012, {"1", "16", "16MA", "16MAR", " 16MAR", "16MAR12", " 16MAR12"}},
    {RENDERER(zfmdate), kMar2012, {"16MAR2012", " 16MAR2012", "16-MAR-2012", " 16-MAR-2012"}},
    {RENDERER(zfmdate), 4, {"05JAN60"}}, {RENDERER(zfmdate), kLastDay, {"31-DEC-    "}},
    {RENDERER(zfmdtda), kMar2012 * kDay + 45296, {"16MAR2012"}},
    {RENDERER(zfmdtda), -1, {"31DEC59"}}, {RENDERER(zfmdtda), 86399.9, {"01JAN60"}},
    // Deliberate: DTDATE renders a missing value with the request's decimals.
    {RENDERER(zfmdtda), missing('.'), {"    .  "}, 2},
};

const RenderCase kTimes[] = {
    {RENDERER(zfmtime), 3723.5, {"1", " 1", "  1", "1:02", " 1:02", "1:02:04", " 1:02:04"}},
    {RENDERER(zfmtime), 3723.5, {"1:02:03.5", "1:02:03.50", " 1:02:03.50"}, 2},
    {RENDERER(zfmtime), -3723.25, {"-1:02:03", " -1:02:03", "-1:02:03.3", "-1:02:03.25"}, 2},
    {RENDERER(zfmtime), -3600, {"*", "-1", " -1"}},
    {RENDERER(zfmtime), 45296, {" 12", "  12", "12:34"}},
    // Early carry into the next hour or minute; hours are not reduced.
    {RENDERER(zfmtime), 86399.9999, {"24:00:00.00"}, 2}, {RENDERER(zfmtime), 59.96, {" 0:01:00"}},
    {RENDERER(zfmtime), 90000, {"25:00:00"}},
    {RENDERER(zfmtime), kEndSecond - 1, {"158144063:59:59"}},
    // Decimals as the width allows, negative ones as none; the second
    // rounds at the decimals that fit, and a longer hour leaves fewer.
    {RENDERER(zfmtime), 7.256, {" 0:00:07", "0:00:07.3", "0:00:07.26", " 0:00:07.26"}, 2},
    {RENDERER(zfmtime), 7.25, {" 0:00:07"}, -3},
    {RENDERER(zfmtime), 7.25, {" 0:00:07.2500000000000000000000000000000"}, 40},
    // Fifteen significant digits of the seconds, whole seconds included.
    {RENDERER(zfmtime), 16239.99996, {"4:30:39.999959999999200"}, 15},
    {RENDERER(zfmtime), 59.97, {" 0:01:00", "0:01:00.0", "0:00:59.97"}, 3},
    {RENDERER(zfmtime), 35999.6, {"10:00:00", "9:59:59.6"}, 3},
    {RENDERER(zfmtime), missing('.'), {"       ."}, 2},
    // TOD: two-digit hours, and the clamp that never shows hour 24.
    {RENDERER(zfmtod), 86399.9996, {"23:59:59.99", "23:59:59.999"}, 3},
    {RENDERER(zfmtod), 86399.9, {"23", " 23", "  23", "23:59", " 23:59", "  23:59", "23:59:59"}},
    {RENDERER(zfmtod), 3600, {"1", "01", " 01", "1:00", "01:00", "01:00:00"}},
    {RENDERER(zfmtod), kDay + 30, {"00:00:30"}},
    // TIMEAMPM: AM or PM alone below width 5.
    {RENDERER(zfmtimm), 46800, {"P", "PM", " PM", "  PM", " 1 PM", "1:00 PM", " 1:00:00 PM"}},
    {RENDERER(zfmtimm), 0, {"  AM", "12:00:00 AM"}},
    {RENDERER(zfmtimm), 43200, {"12:00:00 PM"}}, {RENDERER(zfmtimm), 43199.6, {"12:00:00 PM"}},
    {RENDERER(zfmtimm), 3723.25, {" 1:02:03.25 AM"}, 2},
    {RENDERER(zfmtimm), 86399.97, {"12:00:00 AM", "12:00:00.0 AM"}, 1},
    {RENDERER(zfmtimm), -1, {"11:59:59 PM"}},
    // DATETIME: decimals give way to 16 positions of date and time; the
    // point is not counted, so at width - decimals = 16 the text loses its end.
    {RENDERER(zfmdttm), 0, {"01JAN", "01JAN6", "01JAN60", " 01JAN60", "01JAN1960", "01JAN60:00"}},
    {RENDERER(zfmdttm), 0, {"01JAN60:00:00", "01JAN60:00:00:00", "  01JAN60:00:00:00"}},
    {RENDERER(zfmdttm), 0, {" 01JAN1960:00:00:00"}},
    {RENDERER(zfmdttm), 0, {"01JAN60:00:00:00", "01JAN60:00:00:00.", "01JAN60:00:00:00.0"}, 2},
    {RENDERER(zfmdttm), 0, {" 01JAN60:00:00:00.00", "01JAN1960:00:00:00.00"}, 2},
    {RENDERER(zfmdttm), kMar2012 * kDay + 45296.25, {" 16MAR2012:12:34:56.25"}, 2},
    {RENDERER(zfmdttm), -1, {"31DEC59:23:59:59"}},
    {RENDERER(zfmdttm), kEndSecond - 0.5, {" 31DEC    :23:59:59"}},
    {RENDERER(zfmdttm), 1.5, {"01JAN60:00:00:01.50000000000000000000000"}, 30},
};

INSTANTIATE_TEST_SUITE_P(DayMonthYear, ClassicRendering, ::testing::ValuesIn(kDayMonthYear));
INSTANTIATE_TEST_SUITE_P(Periods, ClassicRendering, ::testing::ValuesIn(kPeriods));
INSTANTIATE_TEST_SUITE_P(MonthNames, ClassicRendering, ::testing::ValuesIn(kMonthNames));
INSTANTIATE_TEST_SUITE_P(Times, ClassicRendering, ::testing::ValuesIn(kTimes));

constexpr Renderer kDateRenderers[] = {
    RENDERER(zfmmdy),  RENDERER(zfmmdyb), RENDERER(zfmmdyc), RENDERER(zfmmdyd), RENDERER(zfmmdyn),
    RENDERER(zfmmdyp), RENDERER(zfmdmy),  RENDERER(zfmdmyb), RENDERER(zfmdmyc), RENDERER(zfmdmyd),
    RENDERER(zfmdmyn), RENDERER(zfmdmyp), RENDERER(zfmymd),  RENDERER(zfmymdb), RENDERER(zfmymdc),
    RENDERER(zfmymdn), RENDERER(zfmymdp), RENDERER(zfmymds), RENDERER(zfmmmy),  RENDERER(zfmmmyc),
    RENDERER(zfmmmyd), RENDERER(zfmmmyn), RENDERER(zfmmmyp), RENDERER(zfmmmys), RENDERER(zfmyym),
    RENDERER(zfmyymc), RENDERER(zfmyymd), RENDERER(zfmyymn), RENDERER(zfmyymp), RENDERER(zfmyyms),
    RENDERER(zfmyyqc), RENDERER(zfmyyqd), RENDERER(zfmyyqn), RENDERER(zfmyyqp), RENDERER(zfmyyqs),
    RENDERER(zfmyyqr), RENDERER(zfmyqrc), RENDERER(zfmyqrd), RENDERER(zfmyqrn), RENDERER(zfmyqrp),
    RENDERER(zfmyqrs), RENDERER(zfmmony), RENDERER(zfmdate)};
// Renderings of seconds: times and datetimes.
constexpr Renderer kTimeRenderers[] = {RENDERER(zfmtime), RENDERER(zfmtod), RENDERER(zfmtimm),
                                       RENDERER(zfmdttm), RENDERER(zfmdtda)};

void PrintTo(const Renderer &r, std::ostream *os) { *os << r.name; }

class EveryWidth : public ::testing::TestWithParam<Renderer> {};

// Every width from 0 to 32: values in range give text without "*" (only a
// time too narrow for its hour shows it), values beyond give "*", every
// missing mark stands at the right edge, and nothing lands after the field
// (though a missing value's renderer blanks the whole buffer).
TEST_P(EveryWidth, FillsExactlyTheField) {
  const Renderer &r = GetParam();
  const bool seconds = std::ranges::count(kTimeRenderers, r.render, &Renderer::render) > 0;
  const std::vector<double> inside = seconds
      ? std::vector<double>{0, -1, 3723.25, 86399.9996, -11928470400, 569318630399.5}
      : std::vector<double>{-138061, -1, 0, 23603.5, 6589335};
  const std::vector<double> outside = seconds
      ? std::vector<double>{kEndSecond, -11928470400.5, 1e300, kNaN, -kInf}
      : std::vector<double>{6589336, -138062, kNaN, kInf};
  for (int32_t width = 0; width <= 32; ++width) {
    const auto render = [&](double value, int32_t decimals, int32_t result) {
      SCOPED_TRACE(::testing::Message() << "w" << width << "." << decimals << " of " << value);
      const int32_t spare = zmiss(value) ? 0 : 8;
      Request request(width, decimals, value, width + spare);
      EXPECT_EQ(r.render(request.get()), result);
      EXPECT_EQ(request->outlen, width);
      EXPECT_TRUE(request.restored());
      EXPECT_EQ(std::string(request->output + width, static_cast<size_t>(spare)),
                std::string(static_cast<size_t>(spare), Request::kGuardByte));
      EXPECT_TRUE(request.guards_intact());
      return request.field();
    };
    for (double value : inside) {
      for (int32_t decimals : {0, 2, 31}) {
        const std::string field = render(value, decimals, CORVINEL_OK);
        EXPECT_TRUE(std::ranges::all_of(field, [](char c) { return c >= ' ' && c <= '~'; }))
            << field;
        EXPECT_TRUE(seconds || field.find('*') == std::string::npos) << field;
      }
    }
    const auto size = static_cast<size_t>(width);
    for (double value : outside) {
      EXPECT_EQ(render(value, 0, CORVINEL_OUT_OF_RANGE), std::string(size, '*'));
    }
    for (char mark : width > 0 ? std::string("._ABCDEFGHIJKLMNOPQRSTUVWXYZ") : "") {
      EXPECT_EQ(render(missing(mark), 0, CORVINEL_OK), std::string(size - 1, ' ') + mark);
    }
  }
}

// A field that does not lie in its buffer is refused before anything is
// written.
TEST_P(EveryWidth, RefusesFieldsOutsideTheBuffer) {
  for (double value : {0.0, missing('.'), 1e300}) {
    for (int32_t width : {-1, 9, std::numeric_limits<int32_t>::max()}) {
      Request request(width, 0, value, 8);
      EXPECT_EQ(GetParam().render(request.get()), CORVINEL_DOES_NOT_FIT) << width;
      EXPECT_EQ(request->outlen, -12345);
      EXPECT_EQ(std::string(request->output, 8), std::string(8, Request::kGuardByte));
    }
  }
}

const auto kName = [](const auto &info) { return std::string(info.param.name); };
INSTANTIATE_TEST_SUITE_P(Dates, EveryWidth, ::testing::ValuesIn(kDateRenderers), kName);
INSTANTIATE_TEST_SUITE_P(Times, EveryWidth, ::testing::ValuesIn(kTimeRenderers), kName);

// The gate: a missing value is rendered with decimals 0 (the mark at the
// right edge); any kind but 1, 2, 3 makes no range test; the "*" of an
// out-of-range value stop at the buffer's end.  "Z" is the guard byte.
TEST(Zdatrng, SortsValues) {
  const struct {
    int32_t kind, capacity;
    double value;
    int32_t answer;
    const char *field;
  } cases[] = {{CORVINEL_GATE_DATE, 6, 6589335.9, CORVINEL_GATE_GO_ON, "ZZZZZZ"},
               {CORVINEL_GATE_TIME, 6, 6589336, CORVINEL_GATE_GO_ON, "ZZZZZZ"},
               {CORVINEL_GATE_TIME, 4, 1e300, CORVINEL_GATE_OUT_OF_RANGE, "****"},
               {0, 6, kNaN, CORVINEL_GATE_GO_ON, "ZZZZZZ"},
               {4, 6, 1e300, CORVINEL_GATE_GO_ON, "ZZZZZZ"},
               {0, 6, missing('.'), CORVINEL_GATE_MISSING, "     ."}};
  for (const auto &c : cases) {
    Request request(6, 3, c.value, c.capacity);
    EXPECT_EQ(zdatrng(request.get(), c.kind), c.answer) << c.kind << " " << c.value;
    EXPECT_EQ(std::string(request->output, static_cast<size_t>(c.capacity)), c.field);
    EXPECT_TRUE(request.restored() && request.guards_intact());
  }
}

TEST(Zfmcymd, SplitsValidDatesOnly) {
  double y = -7, m = -7, d = -7;
  EXPECT_EQ(zfmcymd(&y, &m, &d, -0.5), 1);
  EXPECT_EQ(y * 10000 + m * 100 + d, 19591231);
  for (double bad : {6589336.0, kNaN, missing('A')}) EXPECT_EQ(zfmcymd(&y, &m, &d, bad), -1) << bad;
}

// Numbers above 99 take four positions wherever they stand; the text is cut
// to its last ten characters; a number too long for its positions leaves
// them blank.
TEST(Zfmcprt, LaysOutThreeNumbers) {
  const struct {
    int32_t width;
    char sep;
    double a, b, c;
    const char *expected;
  } cases[] = {{12, '/', 1234, 5, 6789, "  34/05/6789"}, {10, 0, 7, 8, 9, "    070809"},
               {8, '-', 7, 8, 10000, "-08-    "},       {8, '-', 7, -5, 9, "07--5-09"},
               {8, '-', 7, -50, 9, "07-  -09"},          {0, '.', 1, 2, 3, ""}};
  for (const auto &c : cases) {
    std::string buffer(static_cast<size_t>(c.width) + 8, '#');
    zfmcprt(c.width, c.sep, buffer.data(), c.a, c.b, c.c);
    EXPECT_EQ(buffer, c.expected + std::string(8, '#'));
  }
}

// Hours beyond 2^53 cannot pass the range gate of zfmtime; the renderer
// behind it refuses them itself, within its field.
TEST(RenderDuration, RefusesHoursBeyondTwoToThe53) {
  const double hours_2_53 = 9007199254740992.0;
  std::string field(24, '#');
  EXPECT_EQ(calendar::render_duration(field.data(), 22, 0, hours_2_53 * 3600), CORVINEL_OK);
  EXPECT_EQ(field, "9007199254740992:00:00##");
  for (double seconds : {hours_2_53 * 7200, -1e300}) {
    EXPECT_EQ(calendar::render_duration(field.data(), 22, 0, seconds), CORVINEL_HOURS_TOO_LARGE);
    EXPECT_EQ(field, std::string(22, '*') + "##");
  }
}

// The whole clock text is TIME's field without its leading blanks, for
// every second of the day in every field that shows it whole; any other
// value is left to the renderer.
TEST(WholeClockText, IsTimesFieldStripped) {
  char text[8];
  for (int32_t second = 0; second < 86400; ++second) {
    const auto value = static_cast<double>(second);
    const int32_t length = calendar::whole_clock_text(value, text);
    for (const int32_t width : {8, 10}) {
      Request request(width, 0, value);
      ASSERT_EQ(zfmtime(request.get()), CORVINEL_OK);
      const std::string field = request.field();
      ASSERT_EQ(std::string(text, static_cast<size_t>(length)),
                field.substr(field.find_first_not_of(' ')))
          << second << " " << width;
    }
  }
  EXPECT_EQ(calendar::whole_clock_text(-0.0, text), 7);
  EXPECT_EQ(std::string(text, 7), "0:00:00");
  for (const double refused : {-1.0, 0.5, 86399.5, 86400.0, kNaN, kInf, missing('.')}) {
    EXPECT_EQ(calendar::whole_clock_text(refused, text), 0) << refused;
  }
}

}  // namespace
}  // namespace corvinel::testing

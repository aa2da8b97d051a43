// Every classic rendering at every width from 0 to 32, with values inside
// and outside the range, non-numbers, every missing value, and requests
// whose field does not lie in their buffer.
#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "calendar/render_helpers.h"
#include "corvinel/missing.h"

namespace corvinel::testing {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct Family {
  Renderer renderer;
  bool takes_seconds;  // times and datetimes, else dates
};

void PrintTo(const Family &f, std::ostream *os) { *os << f.renderer.name; }

std::vector<Family> every_rendering() {
  std::vector<Family> families;
  for (const Renderer &r : renderers::kDates) families.push_back({r, false});
  for (const Renderer &r : renderers::kTimes) families.push_back({r, true});
  return families;
}

class EveryWidth : public ::testing::TestWithParam<Family> {
 protected:
  std::vector<double> values_in_range() const {
    if (GetParam().takes_seconds) {
      return {0, -1, 3723.25, 86399.9996, 45296, -11928470400, 569318630399.5};
    }
    return {-138061, -1, 0, 23603.5, 6589335};
  }
  std::vector<double> values_out_of_range() const {
    if (GetParam().takes_seconds) return {569318630400, -11928470400.5, 1e300, kNaN, -kInf};
    return {6589336, -138062, -1e300, kNaN, kInf};
  }
};

// The field is exactly `width` bytes of text, nothing is written beyond it
// even when the buffer is larger, and the request comes back as it went.
TEST_P(EveryWidth, ValuesInRangeFillExactlyTheField) {
  const Family &family = GetParam();
  for (int32_t width = 0; width <= 32; ++width) {
    for (int32_t decimals : {0, 2, 31}) {
      for (double value : values_in_range()) {
        Request request(width, decimals, value, width + 8);
        const int32_t result = family.renderer.render(request.get());
        SCOPED_TRACE(::testing::Message() << "w" << width << "." << decimals << " of " << value);
        EXPECT_EQ(result, CORVINEL_OK);
        EXPECT_EQ(request->outlen, width);
        EXPECT_TRUE(request.restored());
        EXPECT_TRUE(request.guards_intact());
        const std::string field = request.field();
        EXPECT_TRUE(std::all_of(field.begin(), field.end(),
                                [](char c) { return c >= ' ' && c <= '~'; }))
            << field;
        // Dates always show digits and letters; only a time too narrow for
        // its hour digits shows "*".
        if (!family.takes_seconds) {
          EXPECT_EQ(field.find('*'), std::string::npos) << field;
        }
        EXPECT_EQ(std::string(request->output + width, 8), std::string(8, Request::kGuardByte));
      }
    }
  }
}

TEST_P(EveryWidth, ValuesOutOfRangeGiveAsterisks) {
  const Family &family = GetParam();
  for (int32_t width = 0; width <= 32; ++width) {
    for (double value : values_out_of_range()) {
      const Rendered r = render(family.renderer, width, 0, value);
      SCOPED_TRACE(::testing::Message() << "w" << width << " of " << value);
      EXPECT_EQ(r.result, CORVINEL_OUT_OF_RANGE);
      EXPECT_EQ(r.field, std::string(static_cast<size_t>(width), '*'));
      EXPECT_EQ(r.outlen, width);
      EXPECT_TRUE(r.guards_intact);
    }
  }
}

// Every missing value shows its mark alone at the right edge.
TEST_P(EveryWidth, MissingValuesShowTheirMark) {
  const Family &family = GetParam();
  const std::string marks = std::string("._") + "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (int32_t width = 1; width <= 32; ++width) {
    for (char mark : marks) {
      const Rendered r = render(family.renderer, width, 0, missing(mark));
      std::string expected(static_cast<size_t>(width), ' ');
      expected.back() = mark;
      EXPECT_EQ(r.field, expected) << "w" << width;
      EXPECT_EQ(r.result, CORVINEL_OK);
      EXPECT_TRUE(r.guards_intact);
      EXPECT_TRUE(r.restored);
    }
  }
}

// A field that does not lie in its buffer is refused before anything is
// written.
TEST_P(EveryWidth, FieldsOutsideTheBufferAreRefused) {
  const Family &family = GetParam();
  for (double value : {0.0, missing('.'), 6589336.0 * 86400}) {
    for (int32_t width : {-1, -100, 9, std::numeric_limits<int32_t>::max()}) {
      Request request(width, 0, value, 8);
      EXPECT_EQ(family.renderer.render(request.get()), CORVINEL_DOES_NOT_FIT) << width;
      EXPECT_EQ(request->outlen, -12345);
      EXPECT_EQ(std::string(request->output, 8), std::string(8, Request::kGuardByte));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Classic, EveryWidth, ::testing::ValuesIn(every_rendering()),
                         [](const auto &info) { return std::string(info.param.renderer.name); });

struct GateCase {
  int32_t kind;
  double value;
  int32_t answer;
};

void PrintTo(const GateCase &c, std::ostream *os) { *os << "kind " << c.kind << " " << c.value; }

class Zdatrng : public ::testing::TestWithParam<GateCase> {};

TEST_P(Zdatrng, SortsValues) {
  const GateCase &c = GetParam();
  Request request(6, 3, c.value);
  EXPECT_EQ(zdatrng(request.get(), c.kind), c.answer);
  const std::string expected[] = {std::string(6, Request::kGuardByte), "******", "     ."};
  EXPECT_EQ(request.field(), expected[c.answer]);
  EXPECT_TRUE(request.restored());
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, Zdatrng,
    ::testing::Values(
        GateCase{CORVINEL_GATE_DATE, -138061, CORVINEL_GATE_GO_ON},
        GateCase{CORVINEL_GATE_DATE, 6589335.9, CORVINEL_GATE_GO_ON},
        GateCase{CORVINEL_GATE_DATE, 6589336, CORVINEL_GATE_OUT_OF_RANGE},
        GateCase{CORVINEL_GATE_DATE, -138061.1, CORVINEL_GATE_OUT_OF_RANGE},
        GateCase{CORVINEL_GATE_DATE, kNaN, CORVINEL_GATE_OUT_OF_RANGE},
        GateCase{CORVINEL_GATE_TIME, 6589336, CORVINEL_GATE_GO_ON},
        GateCase{CORVINEL_GATE_TIME, 569318630400, CORVINEL_GATE_OUT_OF_RANGE},
        GateCase{CORVINEL_GATE_DATETIME, -11928470400, CORVINEL_GATE_GO_ON},
        GateCase{CORVINEL_GATE_DATETIME, -11928470401, CORVINEL_GATE_OUT_OF_RANGE},
        GateCase{CORVINEL_GATE_DATETIME, kInf, CORVINEL_GATE_OUT_OF_RANGE},
        GateCase{0, kNaN, CORVINEL_GATE_GO_ON}, GateCase{4, 1e300, CORVINEL_GATE_GO_ON},
        GateCase{0, missing('.'), CORVINEL_GATE_MISSING},
        GateCase{CORVINEL_GATE_DATE, missing('.'), CORVINEL_GATE_MISSING}));

// The asterisks of an out-of-range value stop at the buffer's end.
TEST(Zdatrng, AsterisksStayInsideTheBuffer) {
  Request request(12, 0, 1e300, 4);
  EXPECT_EQ(zdatrng(request.get(), CORVINEL_GATE_TIME), CORVINEL_GATE_OUT_OF_RANGE);
  EXPECT_EQ(std::string(request->output, 4), "****");
  EXPECT_TRUE(request.guards_intact());
}

struct SplitCase {
  double date;
  int32_t answer;
  double year, month, day;
};

void PrintTo(const SplitCase &c, std::ostream *os) { *os << c.date; }

class Zfmcymd : public ::testing::TestWithParam<SplitCase> {};

TEST_P(Zfmcymd, SplitsValidDates) {
  const SplitCase &c = GetParam();
  double year = -7, month = -7, day = -7;
  EXPECT_EQ(zfmcymd(&year, &month, &day, c.date), c.answer);
  if (c.answer == 1) {
    EXPECT_EQ(year, c.year);
    EXPECT_EQ(month, c.month);
    EXPECT_EQ(day, c.day);
  }
}

INSTANTIATE_TEST_SUITE_P(Dates, Zfmcymd,
                         ::testing::Values(SplitCase{0, 1, 1960, 1, 1},
                                           SplitCase{-0.5, 1, 1959, 12, 31},
                                           SplitCase{6589335, 1, 20000, 12, 31},
                                           SplitCase{6589336, -1, 0, 0, 0},
                                           SplitCase{kNaN, -1, 0, 0, 0},
                                           SplitCase{missing('A'), -1, 0, 0, 0}));

}  // namespace
}  // namespace corvinel::testing

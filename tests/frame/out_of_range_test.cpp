// Present values outside a format's range: "*" for the date and datetime
// families, the output left alone for the single-pattern family, a blank
// field for the name formats.
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/format_catalogue.h"
#include "frame/guarded_request.h"
#include "nldate/date_value.h"

namespace {

using corvinel::nldate::in_valid_range;
using corvinel::nldate::ValueKind;
using corvinel::testing::all_formats;
using corvinel::testing::FormatCase;
using corvinel::testing::GuardedRequest;
using corvinel::testing::OutOfRange;

std::vector<FormatCase> formats_with_a_range() {
  std::vector<FormatCase> cases;
  for (const FormatCase &c : all_formats()) {
    if (c.out_of_range() != OutOfRange::NotApplicable) cases.push_back(c);
  }
  return cases;
}

class OutOfRangeValue : public ::testing::TestWithParam<FormatCase> {};

TEST_P(OutOfRangeValue, ShowsWhatTheFamilyShows) {
  const FormatCase &c = GetParam();
  for (const double value : c.values_out_of_range()) {
    for (const int32_t width : {c.minw, c.defw}) {
      for (const int32_t decimals : {0, c.maxd}) {
        GuardedRequest r(width, decimals, value, width + 4);
        SCOPED_TRACE(::testing::Message() << "value " << value << " width " << width);
        ASSERT_EQ(c.render(r.get()), 0);
        EXPECT_TRUE(r.guards_intact());
        EXPECT_TRUE(r.restored());
        const auto w = static_cast<std::size_t>(width);
        switch (c.out_of_range()) {
          case OutOfRange::Stars:
            EXPECT_EQ(r.field(), std::string(w, '*'));
            EXPECT_EQ(r->outlen, width);
            break;
          case OutOfRange::Blank:
            EXPECT_EQ(r.buffer(), std::string(w + 4, ' '));
            EXPECT_EQ(r->outlen, width);
            break;
          case OutOfRange::Untouched:
            EXPECT_TRUE(r.buffer_untouched());
            EXPECT_EQ(r->outlen, GuardedRequest::kUnsetOutlen);
            break;
          case OutOfRange::NotApplicable:
            break;
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(GatedFormats, OutOfRangeValue,
                         ::testing::ValuesIn(formats_with_a_range()),
                         [](const auto &info) { return info.param.name; });

TEST(ValidRange, BoundsOfEachKind) {
  constexpr double inf = std::numeric_limits<double>::infinity();
  struct Case {
    ValueKind kind;
    double value;
    bool valid;
  };
  const Case cases[] = {
      {ValueKind::Date, -138061, true},         {ValueKind::Date, -138061.0001, false},
      {ValueKind::Date, 6589335.9999, true},    {ValueKind::Date, 6589336, false},
      {ValueKind::Date, 0, true},               {ValueKind::Date, -0.0, true},
      {ValueKind::Date, std::nan(""), false},   {ValueKind::Date, -inf, false},
      {ValueKind::Datetime, -11928470400.0, true},
      {ValueKind::Datetime, -11928470400.001, false},
      {ValueKind::Datetime, 569318630399.999, true},
      {ValueKind::Datetime, 569318630400.0, false},
      {ValueKind::Datetime, std::nan(""), false},
      {ValueKind::Datetime, inf, false},
      {ValueKind::Time, -1e300, true},          {ValueKind::Time, std::nan(""), true},
  };
  for (const Case &c : cases) {
    EXPECT_EQ(in_valid_range(c.kind, c.value), c.valid)
        << static_cast<int>(c.kind) << " " << c.value;
  }
}

// A name format's range test is on the value, not on its integer part: 0.5
// and 12.5 have no month, 1 and 12 have.
TEST(NameRange, FirstAndLastValuesAreNamed) {
  for (const FormatCase &c : all_formats()) {
    if (c.out_of_range() != OutOfRange::Blank) continue;
    const double last = c.name == "NLSTRMON" ? 12 : c.name == "NLSTRQTR" ? 4 : 7;
    for (const double value : {1.0, 1.5, last, last - 0.25}) {
      GuardedRequest r(20, 0, value, 20);
      ASSERT_EQ(c.render(r.get()), 0);
      EXPECT_NE(r.field(), std::string(20, ' ')) << c.name << " " << value;
      EXPECT_TRUE(r.guards_intact());
    }
  }
}

}  // namespace

// Missing values in the classic renderings: every mark, at the place each
// rendering gives it, and the request handed back as it came.
#include <bit>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "classic_render.h"
#include "corvinel/missing.h"

namespace corvinel::numeric::testing {
namespace {

// Where the mark goes: the point of a number with `decimals` places, the
// right edge, or the point in PERCENT's number zone.
enum class Place { kDecimals, kRightEdge, kPercentZone };

struct MissingCase {
  ClassicFormat format;
  Place place;
  int32_t width;
  int32_t decimals;
};

void PrintTo(const MissingCase &c, std::ostream *out) {
  *out << c.format.name << c.width << "." << c.decimals;
}

// Zero-based position of the mark, or -1 for none.
int64_t expected_position(const MissingCase &c) {
  const bool in_field = c.decimals >= 0 && c.decimals < c.width;
  switch (c.place) {
    case Place::kRightEdge:
      return c.width - 1;
    case Place::kDecimals:
      return in_field ? c.width - 1 - c.decimals : c.width - 1;
    case Place::kPercentZone: {
      const int64_t position = in_field ? c.width - 3 - c.decimals : c.width - 3;
      return position >= 0 ? position : -1;
    }
  }
  return -1;
}

class MissingMark : public ::testing::TestWithParam<MissingCase> {};

TEST_P(MissingMark, EveryMarkAtItsPlace) {
  const MissingCase &c = GetParam();
  const std::string marks = "_.ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (char mark : marks) {
    corvinel::testing::Request request(c.width, c.decimals, corvinel::testing::missing(mark),
                                       c.width + 4);
    ASSERT_EQ(c.format.render(request.get()), CORVINEL_OK) << mark;
    std::string expected(static_cast<std::size_t>(c.width) + 4, ' ');
    const int64_t position = expected_position(c);
    if (position >= 0) expected[static_cast<std::size_t>(position)] = mark;
    // zfmmiss clears the whole buffer, not just the field.
    EXPECT_EQ(std::string(request->output, request->capacity), expected) << mark;
    EXPECT_EQ(request->outlen, c.width) << mark;
    EXPECT_TRUE(request.restored()) << mark;
    EXPECT_TRUE(request.guards_intact()) << mark;
  }
}

std::vector<MissingCase> missing_cases() {
  std::vector<MissingCase> cases;
  const int32_t decimals[] = {-1, 0, 1, 2, 5, 7, 8, 31, 98, 99};
  for (int32_t width : {1, 4, 8, 32}) {
    for (int32_t d : decimals) {
      cases.push_back({kWd, d == 98 || d == 99 ? Place::kRightEdge : Place::kDecimals, width, d});
      cases.push_back({kComma, Place::kDecimals, width, d});
      cases.push_back({kDollar, Place::kDecimals, width, d});
      cases.push_back({kPvalue, Place::kDecimals, width, d});
      cases.push_back({kPercent, Place::kPercentZone, width, d});
      cases.push_back({kD, Place::kRightEdge, width, d});
    }
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(AllFormats, MissingMark, ::testing::ValuesIn(missing_cases()));

TEST(MissingMark, ACodeWithoutAMarkLeavesTheFieldBlank) {
  const double no_mark = std::bit_cast<double>(0xFFFF000000000000ull);
  for (const ClassicFormat &format : kAllFormats) {
    const Rendered rendered = render(format.render, 6, 2, no_mark);
    EXPECT_EQ(rendered.result, CORVINEL_OK) << format.name;
    EXPECT_EQ(rendered.field, "      ") << format.name;
  }
}

}  // namespace
}  // namespace corvinel::numeric::testing

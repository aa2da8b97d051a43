// Every format against widths and decimals at and around its limits, with
// and without the check.
#include <climits>
#include <cstdint>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/fmtreq.h"
#include "frame/format_catalogue.h"
#include "frame/guarded_request.h"
#include "support/request_builder.h"

namespace {

using corvinel::testing::all_formats;
using corvinel::testing::FormatCase;
using corvinel::testing::GuardedRequest;
using corvinel::testing::missing;

// The first check that fails, in the order 39, 40, 41, 42.
int32_t expected_result(const FormatCase &c, int32_t width, int32_t decimals) {
  if (width < c.minw) return CORVINEL_WIDTH_TOO_SMALL;
  if (width > c.maxw) return CORVINEL_WIDTH_TOO_LARGE;
  if (decimals < c.mind) return CORVINEL_DECIMALS_TOO_SMALL;
  if (decimals > c.checked_max_decimals()) return CORVINEL_DECIMALS_TOO_LARGE;
  return CORVINEL_OK;
}

std::vector<int32_t> around(std::initializer_list<int32_t> limits) {
  std::set<int32_t> values{INT_MIN, -1, 0, 99, INT_MAX};
  for (int32_t limit : limits) values.insert({limit - 1, limit, limit + 1});
  return {values.begin(), values.end()};
}

class LimitCheck : public ::testing::TestWithParam<FormatCase> {};

TEST_P(LimitCheck, RefusesInOrderAndLeavesTheRequestAlone) {
  const FormatCase &c = GetParam();
  ASSERT_NE(c.render, nullptr);
  for (const int32_t width : around({c.minw, c.maxw})) {
    for (const int32_t decimals : around({c.mind, c.checked_max_decimals(), c.maxd})) {
      // A missing value: every format renders it with result 0 once the
      // limits pass, whatever later rendering work does with present values.
      const int32_t capacity = (width > 0 && width <= 300) ? width : 8;
      GuardedRequest r(width, decimals, missing('.'), capacity, FMTREQ_CHECK_LIMITS);
      const int32_t want = expected_result(c, width, decimals);
      SCOPED_TRACE(::testing::Message() << "width " << width << " decimals " << decimals);
      ASSERT_EQ(c.render(r.get()), want);
      EXPECT_TRUE(r.guards_intact());
      EXPECT_TRUE(r.restored());
      if (want != CORVINEL_OK) {
        EXPECT_TRUE(r.buffer_untouched());
        EXPECT_EQ(r->outlen, GuardedRequest::kUnsetOutlen);
        EXPECT_EQ(r->capacity, capacity);
        EXPECT_EQ(r->flags, FMTREQ_CHECK_LIMITS);
      }
    }
  }
}

TEST_P(LimitCheck, TrustsTheHostWithoutTheCheckFlag) {
  const FormatCase &c = GetParam();
  for (const int32_t width : around({c.minw, c.maxw})) {
    for (const int32_t decimals : around({c.mind, c.maxd})) {
      const int32_t capacity = (width > 0 && width <= 300) ? width : 8;
      GuardedRequest r(width, decimals, missing('A'), capacity);
      SCOPED_TRACE(::testing::Message() << "width " << width << " decimals " << decimals);
      EXPECT_EQ(c.render(r.get()), CORVINEL_OK);
      EXPECT_TRUE(r.guards_intact());
      EXPECT_TRUE(r.restored());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(AllFormats, LimitCheck, ::testing::ValuesIn(all_formats()),
                         [](const auto &info) { return info.param.name; });

// Rows the description singles out, as a check on the catalogue itself.
TEST(LimitCheckExamples, SingledOutRows) {
  struct Case {
    const char *name;
    int32_t width, decimals, expected;
  };
  const Case cases[] = {
      {"NLNUM", 0, 0, 39},     {"NLNUM", 33, 0, 40},    {"NLNUM", 32, -1, 41},
      {"NLNUM", 32, 32, 42},   {"NLNUM", 0, 99, 39},    {"NLNUM", 3, 0, 0},
      {"NLPCT", 3, 0, 39},     {"NLPVALUE", 6, 0, 41},  {"NLD", 12, 17, 42},
      {"NLMNIUSD", 7, 2, 39},  {"NLMNIUSD", 12, 29, 42}, {"NLSTRWK", 200, 0, 0},
      {"NLSTRWK", 201, 0, 40}, {"NLSTRWK", 20, 4, 42},  {"NLDATEYR", 2, 0, 0},
      {"NLDATEYR", 1, 0, 39},  {"NLDATMAP", 15, 0, 39}, {"NLTIMAP", 4, 0, 0},
      {"NLDATM", 30, 1, 42},   {"NLTIME", 20, 3, 42},   {"NLDATML", 30, 3, 0},
      {"NLDATML", 30, 4, 42},  {"NLDATEMN", 3, 0, 39},  {"NLDATMS", 19, 3, 0},
  };
  for (const Case &k : cases) {
    for (const FormatCase &c : all_formats()) {
      if (c.name != k.name) continue;
      GuardedRequest r(k.width, k.decimals, missing('.'), 300, FMTREQ_CHECK_LIMITS);
      EXPECT_EQ(c.render(r.get()), k.expected) << k.name << " " << k.width << "." << k.decimals;
    }
  }
}

}  // namespace

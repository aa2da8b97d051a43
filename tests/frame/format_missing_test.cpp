// Missing values through every format: where the mark stands, what else the
// buffer holds, and that the request comes back as it went in.
#include <algorithm>
#include <bit>
#include <cstdint>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "frame/format_catalogue.h"
#include "frame/guarded_request.h"
#include "support/request_builder.h"

namespace {

using corvinel::testing::all_formats;
using corvinel::testing::expected_mark_position;
using corvinel::testing::FormatCase;
using corvinel::testing::GuardedRequest;
using corvinel::testing::MarkRule;
using corvinel::testing::missing;

std::set<int32_t> widths_for(const FormatCase &c) {
  return {c.minw, c.defw, std::min(c.maxw, 40), c.minw + 3};
}

std::set<int32_t> decimals_for(int32_t width) {
  return {0, 1, 2, width - 4, width - 3, width - 2, width - 1, width, 31, 98, 99, -1, -7};
}

class MissingValue : public ::testing::TestWithParam<FormatCase> {};

TEST_P(MissingValue, ShowsOnlyTheMarkWhereTheFamilyPutsIt) {
  const FormatCase &c = GetParam();
  ASSERT_NE(c.render, nullptr);
  for (const char mark : {'.', '_', 'A', 'Q', 'Z'}) {
    for (const int32_t width : widths_for(c)) {
      for (const int32_t decimals : decimals_for(width)) {
        const int32_t capacity = width + 5;
        GuardedRequest r(width, decimals, missing(mark), capacity);
        SCOPED_TRACE(::testing::Message() << "'" << mark << "' width " << width << " decimals "
                                          << decimals);
        ASSERT_EQ(c.render(r.get()), 0);
        EXPECT_TRUE(r.guards_intact());
        EXPECT_TRUE(r.restored());
        EXPECT_EQ(r->outlen, width);

        const std::string field = r.field();
        if (c.mark_rule() == MarkRule::ClassicChoice) {
          // Placed by the classic rendering: blanks and at most one mark.
          const auto marks = std::count(field.begin(), field.end(), mark);
          const auto blanks = std::count(field.begin(), field.end(), ' ');
          EXPECT_LE(marks, 1) << '|' << field << '|';
          EXPECT_EQ(marks + blanks, width) << '|' << field << '|';
          continue;
        }
        std::string expected(static_cast<std::size_t>(width), ' ');
        const int64_t position = expected_mark_position(c.mark_rule(), width, decimals);
        if (position >= 0) expected[static_cast<std::size_t>(position)] = mark;
        EXPECT_EQ(field, expected);
        // The renderings clear the whole buffer, not only the field.
        EXPECT_EQ(r.buffer().substr(static_cast<std::size_t>(width)), "     ");
      }
    }
  }
}

TEST_P(MissingValue, CodeByteZeroLeavesTheFieldBlank) {
  const FormatCase &c = GetParam();
  GuardedRequest r(c.defw, c.defd, std::bit_cast<double>(0xFFFF000000000000ull), c.defw);
  ASSERT_EQ(c.render(r.get()), 0);
  EXPECT_EQ(r.field(), std::string(static_cast<std::size_t>(c.defw), ' '));
  EXPECT_TRUE(r.guards_intact());
}

TEST_P(MissingValue, LeavesCapacityAndFlagsAsTheFamilyDoes) {
  const FormatCase &c = GetParam();
  GuardedRequest r(c.defw, c.defd, missing('.'), c.defw + 10);
  ASSERT_EQ(c.render(r.get()), 0);
  // The classic-based formats narrow capacity to the width for their
  // classic rendering and mark themselves as its locale-aware caller.
  EXPECT_EQ(r->capacity, c.narrows_capacity() ? c.defw : c.defw + 10);
  EXPECT_EQ(r->flags, c.calls_classic_rendering() ? FMTREQ_LOCALE_CALLER : 0);
}

INSTANTIATE_TEST_SUITE_P(AllFormats, MissingValue, ::testing::ValuesIn(all_formats()),
                         [](const auto &info) { return info.param.name; });

// The positions the description spells out, as a check on the rules above.
TEST(MissingValueExamples, SpelledOutPositions) {
  struct Case {
    const char *name;
    char mark;
    int32_t width, decimals;
    const char *field;
  };
  const Case cases[] = {
      {"NLNUM", '.', 6, 0, "     ."},     {"NLNUM", 'A', 8, 2, "     A  "},
      {"NLNUM", 'Z', 8, 99, "       Z"},  {"NLNUM", '_', 6, 6, "     _"},
      {"NLPCT", '.', 6, 99, "   .  "},    {"NLPCT", 'B', 8, 1, "    B   "},
      {"NLPCT", 'C', 8, 5, "C       "},   {"NLPCT", 'D', 8, 6, "        "},
      {"NLPCT", 'E', 8, 7, "        "},   {"NLPCTI", '.', 4, 8, " .  "},
      {"NLDATE", '.', 10, 0, "         ."}, {"NLMNIEUR", 'X', 12, 2, "           X"},
      {"NLSTRMON", 'M', 5, 3, "    M"},    {"NLDATML", '.', 19, 3, "                  ."},
      {"NLBEST", 'K', 6, 2, "     K"},
  };
  for (const Case &k : cases) {
    for (const FormatCase &c : all_formats()) {
      if (c.name != k.name) continue;
      GuardedRequest r(k.width, k.decimals, missing(k.mark), k.width);
      EXPECT_EQ(c.render(r.get()), 0);
      EXPECT_EQ(r.field(), k.field) << k.name << " " << k.width << "." << k.decimals;
      EXPECT_TRUE(r.guards_intact());
    }
  }
}

}  // namespace

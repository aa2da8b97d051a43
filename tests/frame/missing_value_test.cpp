#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/missing.h"
#include "support/request_builder.h"

namespace {

using corvinel::testing::missing;
using corvinel::testing::Request;

double from_bits(uint64_t bits) { return std::bit_cast<double>(bits); }

TEST(Zmiss, RecognisesOnlyTheMissingLayout) {
  struct Case {
    uint64_t bits;
    int expected;
  };
  const Case cases[] = {
      {0xFFFFFE0000000000ull, 1},  // "."
      {0xFFFFFF0000000000ull, 1},  // "._"
      {0xFFFFE40000000000ull, 1},  // ".Z"
      {0xFFFF000000000000ull, 1},  // code byte 0: missing, no mark
      {0xFFFFFE0000000001ull, 0},  // low bits set
      {0xFFFFFE8000000000ull, 0},  // bit 39 set
      {0xFFF8000000000000ull, 0},  // arithmetic NaN
      {0x7FF8000000000000ull, 0},  // quiet NaN
      {0x7FF0000000000000ull, 0},  // +inf
      {0xFFF0000000000000ull, 0},  // -inf
      {0x0000000000000000ull, 0},
  };
  for (const auto &c : cases) {
    EXPECT_EQ(zmiss(from_bits(c.bits)), c.expected) << std::hex << c.bits;
  }
  EXPECT_EQ(std::bit_cast<uint64_t>(std_miss_val), 0xFFFFFE0000000000ull);
}

struct MarkCase {
  char mark;
  int32_t width;
  int32_t decimals;
  const char *expected;
};

void PrintTo(const MarkCase &c, std::ostream *os) {
  *os << "'" << c.mark << "' w" << c.width << " d" << c.decimals;
}

class ZfmmissMark : public ::testing::TestWithParam<MarkCase> {};

TEST_P(ZfmmissMark, PutsTheMarkWhereTheUnitsDigitWouldStand) {
  const MarkCase &c = GetParam();
  Request r(c.width, c.decimals, missing(c.mark), c.width + 4);
  EXPECT_EQ(zfmmiss(r.get()), 0);
  EXPECT_EQ(r->outlen, c.width);
  EXPECT_EQ(r.field(), c.expected);
  EXPECT_TRUE(r.guards_intact());
  EXPECT_TRUE(r.restored());
}

INSTANTIATE_TEST_SUITE_P(
    Positions, ZfmmissMark,
    ::testing::Values(MarkCase{'.', 6, 0, "     ."},
                      MarkCase{'_', 6, 0, "     _"},
                      MarkCase{'Z', 8, 2, "     Z  "},
                      MarkCase{'A', 8, 98, "       A"},
                      MarkCase{'.', 8, 99, "       ."},
                      MarkCase{'.', 3, 2, ".  "},
                      // Positions outside the buffer write nothing.
                      MarkCase{'.', 3, 3, "   "},
                      MarkCase{'.', 3, -20, "   "}));

TEST(Zfmmiss, BlankFillsTheWholeCapacity) {
  Request r(4, 0, missing('B'), 10);
  std::fill_n(r->output, 10, 'x');
  zfmmiss(r.get());
  EXPECT_EQ(std::string(r->output, 10), "   B      ");
  EXPECT_TRUE(r.guards_intact());
}

TEST(Zfmmiss, CodeByteZeroLeavesABlankField) {
  Request r(5, 0, from_bits(0xFFFF000000000000ull));
  zfmmiss(r.get());
  EXPECT_EQ(r.field(), "     ");
}

}  // namespace

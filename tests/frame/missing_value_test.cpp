#include <bit>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/missing.h"
#include "support/request_builder.h"

namespace {

TEST(Zmiss, RecognisesOnlyTheMissingLayout) {
  const struct {
    uint64_t bits;
    int expected;
  } cases[] = {
      {0xFFFFFE0000000000ull, 1}, {0xFFFFFF0000000000ull, 1}, {0xFFFFE40000000000ull, 1},
      {0xFFFF000000000000ull, 1},  // code byte 0: missing, no mark
      {0xFFFFFE0000000001ull, 0}, {0xFFFFFE8000000000ull, 0},  // bits 0 and 39
      {0xFFF8000000000000ull, 0}, {0x7FF8000000000000ull, 0}, {0xFFF0000000000000ull, 0},
  };
  for (const auto &c : cases) {
    EXPECT_EQ(zmiss(std::bit_cast<double>(c.bits)), c.expected) << std::hex << c.bits;
  }
  EXPECT_EQ(std::bit_cast<uint64_t>(std_miss_val), 0xFFFFFE0000000000ull);
}

// The mark where the units digit of a number with `decimals` places would
// stand (the right edge for 98 and 99), nothing where that is outside the
// buffer, and the whole capacity blank-filled.
TEST(Zfmmiss, PutsTheMarkAtTheUnitsPlace) {
  const struct {
    char mark;
    int32_t width, decimals;
    const char *buffer;
  } cases[] = {
      {'.', 6, 0, "     .    "},  {'_', 3, 2, "_         "},  {'Z', 8, 2, "     Z    "},
      {'A', 8, 98, "       A  "}, {'.', 8, 99, "       .  "}, {'.', 3, 3, "          "},
      {'.', 3, -20, "          "},
  };
  for (const auto &c : cases) {
    corvinel::testing::Request r(c.width, c.decimals, corvinel::testing::missing(c.mark), 10);
    std::fill_n(r->output, 10, 'x');
    EXPECT_EQ(zfmmiss(r.get()), 0);
    EXPECT_EQ(std::string(r->output, 10), c.buffer) << c.mark << c.width << "." << c.decimals;
    EXPECT_EQ(r->outlen, c.width);
    EXPECT_TRUE(r.guards_intact() && r.restored());
  }
}

}  // namespace

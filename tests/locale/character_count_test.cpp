#include <cstdint>
#include <ostream>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/unicode.h"

namespace {

struct Budget {
  const char *what;
  int32_t encid;
  std::vector<uint16_t> units;
  uint32_t nbytes;
  uint32_t expected;
};

void PrintTo(const Budget &c, std::ostream *os) { *os << c.what; }

class Nlsnumchar : public ::testing::TestWithParam<Budget> {};

TEST_P(Nlsnumchar, CountsUnitsThatFit) {
  const Budget &c = GetParam();
  EXPECT_EQ(NLSNUMCHAR(c.units.data(), static_cast<uint32_t>(c.units.size()), c.encid, c.nbytes),
            c.expected);
}

const std::vector<uint16_t> kMixed = {0x61, 0xE9, 0x20AC};          // 1, 2, 3 bytes in UTF-8
const std::vector<uint16_t> kShifted = {0x41, 0x3042, 0x3044, 0x41};  // 1, 3, 2, 2 when shifted

INSTANTIATE_TEST_SUITE_P(
    Encodings, Nlsnumchar,
    ::testing::Values(
        Budget{"utf8_stops_before_euro", 20, kMixed, 5, 2},
        Budget{"utf8_exact", 20, kMixed, 6, 3}, Budget{"utf8_none", 20, kMixed, 0, 0},
        Budget{"utf8_second_id", 21, kMixed, 3, 2},
        Budget{"utf16_half_bytes", 25, kMixed, 5, 2}, Budget{"utf16_runs_out", 24, kMixed, 100, 3},
        Budget{"utf32_below_four", 26, kMixed, 3, 0}, Budget{"utf32", 27, kMixed, 9, 2},
        Budget{"shifted_open", 130, kShifted, 3, 1}, Budget{"shifted_in_run", 130, kShifted, 6, 3},
        Budget{"shifted_close", 130, kShifted, 8, 4},
        Budget{"shifted_first_wide", 158, {0x3042}, 2, 0},
        Budget{"shifted_first_wide_fits", 158, {0x3042}, 3, 1},
        Budget{"double_byte", 134, {0x41, 0x3042, 0xE9, 0x7F}, 4, 2},
        Budget{"double_byte_all", 125, {0x41, 0x3042, 0xE9, 0x7F}, 6, 4},
        Budget{"single_byte", 29, kMixed, 2, 2}, Budget{"single_byte_runs_out", 62, kMixed, 9, 3},
        Budget{"no_class_id", 0, kMixed, 2, 2}, Budget{"id_out_of_range", 249, kMixed, 2, 2},
        Budget{"negative_id", -1, kMixed, 1, 1}, Budget{"no_units", 20, {}, 10, 0}));

}  // namespace

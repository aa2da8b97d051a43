#include <cstring>
#include <ostream>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/text.h"

namespace {

struct Packed {
  int64_t value;
  int32_t n;
  std::vector<unsigned char> bytes;
  int32_t result;
};

void PrintTo(const Packed &p, std::ostream *os) { *os << p.value << " in " << p.n << " bytes"; }

class Wzctint : public ::testing::TestWithParam<Packed> {};

TEST_P(Wzctint, StoresMostSignificantByteFirst) {
  const Packed &p = GetParam();
  std::vector<unsigned char> buf(p.bytes.size() + 4, 0xAA);
  EXPECT_EQ(wzctint(p.value, buf.data(), p.n), p.result);
  std::vector<unsigned char> expected = p.bytes;
  expected.resize(buf.size(), 0xAA);
  EXPECT_EQ(buf, expected);
}

constexpr int64_t kEightBytes = 0x0102030405060708;

INSTANTIATE_TEST_SUITE_P(
    Widths, Wzctint,
    ::testing::Values(
        Packed{kEightBytes, 1, {0x08}, 0}, Packed{kEightBytes, 3, {0x06, 0x07, 0x08}, 0},
        Packed{kEightBytes, 4, {0x05, 0x06, 0x07, 0x08}, 0},
        Packed{kEightBytes, 5, {0x04, 0x05, 0x06, 0x07, 0x08}, 0},
        Packed{kEightBytes, 6, {0x03, 0x04, 0x05, 0x06, 0x07, 0x08}, 0},
        Packed{kEightBytes, 7, {0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08}, 0},
        Packed{kEightBytes, 8, {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08}, 0},
        Packed{-2, 3, {0xFF, 0xFF, 0xFE}, 0}, Packed{40000, 4, {0x00, 0x00, 0x9C, 0x40}, 0},
        Packed{-2, 10, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFE}, 0},
        Packed{0x1234, 10, {0, 0, 0, 0, 0, 0, 0, 0, 0x12, 0x34}, 0},
        Packed{300, 1, {0x2C}, 0}, Packed{7, 0, {}, 0}, Packed{7, -3, {}, 0}));

// Two bytes clamp to a signed 16-bit range and say so; other widths never do.
INSTANTIATE_TEST_SUITE_P(
    TwoBytes, Wzctint,
    ::testing::Values(Packed{40000, 2, {0x7F, 0xFF}, CORVINEL_INTEGER_CLAMPED},
                      Packed{32768, 2, {0x7F, 0xFF}, CORVINEL_INTEGER_CLAMPED},
                      Packed{32767, 2, {0x7F, 0xFF}, 0}, Packed{-32768, 2, {0x80, 0x00}, 0},
                      Packed{-32769, 2, {0x80, 0x00}, CORVINEL_INTEGER_CLAMPED},
                      Packed{INT64_MIN, 2, {0x80, 0x00}, CORVINEL_INTEGER_CLAMPED},
                      Packed{kEightBytes, 2, {0x7F, 0xFF}, CORVINEL_INTEGER_CLAMPED},
                      Packed{-1, 2, {0xFF, 0xFF}, 0}, Packed{0x0102, 2, {0x01, 0x02}, 0}));

TEST(Wzctdbl, CopiesTheLeadingBytesOfTheInMemoryForm) {
  const double x = -1234.5678;
  unsigned char whole[8];
  std::memcpy(whole, &x, 8);
  for (int32_t n : {-1, 0, 1, 3, 8, 12}) {
    std::vector<unsigned char> buf(16, 0xAA);
    EXPECT_EQ(wzctdbl(buf.data(), n, x), 0);
    const int32_t copied = n < 0 ? 0 : n > 8 ? 8 : n;
    for (int32_t i = 0; i < 16; ++i)
      EXPECT_EQ(buf[i], i < copied ? whole[i] : 0xAA) << "n = " << n << ", byte " << i;
  }
}

}  // namespace

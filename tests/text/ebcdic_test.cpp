#include <iconv.h>

#include <array>
#include <cstdint>
#include <ostream>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/ebcdic.h"

namespace {

std::vector<unsigned char> all_bytes() {
  std::vector<unsigned char> v(256);
  for (int i = 0; i < 256; ++i) v[i] = static_cast<unsigned char>(i);
  return v;
}

// Both names of a direction use the same table; the tables are inverse
// permutations of the 256 byte values.
TEST(Ebcdic, EveryByteRoundTripsUnderEitherName) {
  std::vector<unsigned char> buf = all_bytes(), other = all_bytes();
  EXPECT_EQ(wztxatoe(buf.data(), 256), 0);
  zas2eb(other.data(), 256);
  EXPECT_EQ(buf, other);
  EXPECT_EQ(std::set<unsigned char>(buf.begin(), buf.end()).size(), 256u);
  EXPECT_EQ(wztxetoa(buf.data(), 256), 0);
  zeb2as(other.data(), 256);
  EXPECT_EQ(buf, all_bytes());
  EXPECT_EQ(other, all_bytes());
}

TEST(Ebcdic, TranslatesExactlyTheFirstNBytes) {
  // No terminator is looked for: the NUL byte is translated like any other.
  using Bytes = std::array<unsigned char, 4>;
  const Bytes original{'A', 0x00, '0', ' '}, translated{0xC1, 0x00, 0xF0, 0x40};
  for (int32_t n : {-5, 0, 1, 2, 3}) {
    Bytes buf = original;
    wztxatoe(buf.data(), n);
    for (int32_t i = 0; i < 4; ++i)
      EXPECT_EQ(buf[i], i < n ? translated[i] : original[i]) << "n = " << n << ", byte " << i;
  }
  zas2eb(nullptr, 4);
  zeb2as(nullptr, 4);
}

// Rows that identify the code page: IBM-1047 against 037 and 500.
struct Row {
  unsigned char latin1, ibm1047;
  const char *what;
};

void PrintTo(const Row &r, std::ostream *os) { *os << r.what; }

class Ibm1047 : public ::testing::TestWithParam<Row> {};

TEST_P(Ibm1047, MapsTheRowBothWays) {
  EXPECT_EQ(as2eb[GetParam().latin1], GetParam().ibm1047);
  EXPECT_EQ(eb2as[GetParam().ibm1047], GetParam().latin1);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Ibm1047,
    ::testing::Values(Row{'A', 0xC1, "A"}, Row{' ', 0x40, "blank"}, Row{'0', 0xF0, "zero"},
                      Row{0x00, 0x00, "NUL"}, Row{0x0A, 0x15, "line feed"},
                      Row{0x85, 0x25, "next line"}, Row{'[', 0xAD, "["}, Row{']', 0xBD, "]"},
                      Row{'^', 0x5F, "^"}, Row{0xAC, 0xB0, "not sign"},
                      Row{0xA8, 0xBB, "diaeresis"}, Row{0xDD, 0xBA, "Y acute"},
                      Row{'!', 0x5A, "!"}, Row{'|', 0x4F, "|"}));

// The rows in which the table differs from the system converter's table for
// a code page.
std::set<int> rows_differing_from(const char *code_page) {
  iconv_t cd = iconv_open(code_page, "ISO-8859-1");
  if (cd == reinterpret_cast<iconv_t>(-1)) return {-1};
  std::vector<unsigned char> in = all_bytes(), out(256);
  char *src = reinterpret_cast<char *>(in.data()), *dst = reinterpret_cast<char *>(out.data());
  size_t in_left = 256, out_left = 256;
  const size_t converted = iconv(cd, &src, &in_left, &dst, &out_left);
  iconv_close(cd);
  if (converted == static_cast<size_t>(-1) || out_left != 0) return {-1};
  std::set<int> differing;
  for (int i = 0; i < 256; ++i)
    if (out[i] != as2eb[i]) differing.insert(i);
  return differing;
}

TEST(Ebcdic, DiffersFromOtherCodePagesExactlyWhereExpected) {
  const std::set<int> from_1047 = rows_differing_from("IBM1047");
  if (from_1047.count(-1)) GTEST_SKIP() << "the system converter lacks IBM1047";
  // The converter keeps the mainframe line ends; the open-systems table swaps them.
  EXPECT_EQ(from_1047, (std::set<int>{0x0A, 0x85}));
  const std::set<int> from_037 = rows_differing_from("IBM037");
  EXPECT_EQ(from_037, (std::set<int>{0x0A, '[', ']', '^', 0x85, 0xA8, 0xAC, 0xDD}));
  const std::set<int> from_500 = rows_differing_from("IBM500");
  EXPECT_TRUE(from_500.count('!') && from_500.count('|'));
  EXPECT_FALSE(from_500.count(-1));
}

}  // namespace

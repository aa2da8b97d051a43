#include <iconv.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/ebcdic.h"

namespace {

std::string all_bytes() {
  std::string bytes(256, '\0');
  for (int i = 0; i < 256; ++i) bytes[i] = static_cast<char>(i);
  return bytes;
}

// Both names of a direction use the same table; the tables are inverse
// permutations of the 256 byte values.  No terminator is looked for: the NUL
// byte is translated like any other.
TEST(Ebcdic, EveryByteRoundTripsUnderEitherName) {
  std::string buf = all_bytes(), other = all_bytes();
  EXPECT_EQ(wztxatoe(buf.data(), 256), 0);
  zas2eb(other.data(), 256);
  EXPECT_TRUE(buf == other && std::set<char>(buf.begin(), buf.end()).size() == 256);
  EXPECT_EQ(wztxetoa(buf.data(), 256), 0);
  zeb2as(other.data(), 256);
  EXPECT_TRUE(buf == all_bytes() && other == all_bytes());
  const std::string original("A\0" "0 ", 4);
  for (const int32_t n : {-5, 0, 3}) {
    std::string text = original;
    wztxatoe(text.data(), n);
    const auto k = static_cast<std::size_t>(std::max(n, 0));
    EXPECT_EQ(text, std::string("\xC1\0\xF0", k) + original.substr(k)) << n;
  }
  zas2eb(nullptr, 4);
  zeb2as(nullptr, 4);
}

// Rows that tell IBM-1047 from 037 and 500, and the line ends.
TEST(Ebcdic, MapsTheDistinguishingRowsBothWays) {
  const std::pair<unsigned char, unsigned char> rows[] = {
      {'A', 0xC1}, {' ', 0x40}, {'0', 0xF0}, {0x0A, 0x15}, {0x85, 0x25}, {'[', 0xAD}, {']', 0xBD},
      {'^', 0x5F}, {0xAC, 0xB0}, {0xA8, 0xBB}, {0xDD, 0xBA}, {'!', 0x5A}, {'|', 0x4F}};
  for (const auto &[latin1, ibm1047] : rows) {
    EXPECT_EQ(as2eb[latin1], ibm1047) << std::hex << +latin1;
    EXPECT_EQ(eb2as[ibm1047], latin1) << std::hex << +ibm1047;
  }
}

// The rows in which the table differs from the system converter's table for
// a code page, or {-1} when the converter lacks it.
std::set<int> rows_differing_from(const char *code_page) {
  iconv_t cd = iconv_open(code_page, "ISO-8859-1");
  if (cd == reinterpret_cast<iconv_t>(-1)) return {-1};
  std::string in = all_bytes(), out(256, '\0');
  char *src = in.data(), *dst = out.data();
  std::size_t in_left = 256, out_left = 256;
  const std::size_t converted = iconv(cd, &src, &in_left, &dst, &out_left);
  iconv_close(cd);
  if (converted == static_cast<std::size_t>(-1) || out_left != 0) return {-1};
  std::set<int> differing;
  for (int i = 0; i < 256; ++i) {
    if (static_cast<unsigned char>(out[i]) != as2eb[i]) differing.insert(i);
  }
  return differing;
}

TEST(Ebcdic, DiffersFromOtherCodePagesExactlyWhereExpected) {
  const std::set<int> from_1047 = rows_differing_from("IBM1047");
  if (from_1047.contains(-1)) GTEST_SKIP() << "the system converter lacks IBM1047";
  // The converter keeps the mainframe line ends; the open-systems table swaps them.
  EXPECT_EQ(from_1047, (std::set<int>{0x0A, 0x85}));
  EXPECT_EQ(rows_differing_from("IBM037"), (std::set<int>{0x0A, '[', ']', '^', 0x85, 0xA8, 0xAC, 0xDD}));
  const std::set<int> from_500 = rows_differing_from("IBM500");
  EXPECT_TRUE(from_500.contains('!') && from_500.contains('|') && !from_500.contains(-1));
}

}  // namespace

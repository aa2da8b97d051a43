#include <cstdint>
#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/fmtreq.h"
#include "corvinel/text.h"

namespace {

struct Case {
  int64_t value;
  int32_t width;
  const char *expected;
  int32_t result;
};

void PrintTo(const Case &c, std::ostream *os) { *os << c.value << " in " << c.width; }

class Wzclchr : public ::testing::TestWithParam<Case> {};

TEST_P(Wzclchr, WritesRightJustifiedOrStars) {
  const Case &c = GetParam();
  std::string buf(static_cast<size_t>(c.width) + 4, '#');
  EXPECT_EQ(wzclchr(c.value, buf.data(), c.width), c.result);
  EXPECT_EQ(buf.substr(0, static_cast<size_t>(c.width)), c.expected);
  EXPECT_EQ(buf.substr(static_cast<size_t>(c.width)), "####");
}

INSTANTIATE_TEST_SUITE_P(
    Fields, Wzclchr,
    ::testing::Values(
        Case{-42, 5, "  -42", 0}, Case{123456, 5, "*****", CORVINEL_INTEGER_OVERFLOW},
        Case{-1234, 4, "****", CORVINEL_INTEGER_OVERFLOW}, Case{12345, 5, "12345", 0},
        Case{-1234, 5, "-1234", 0}, Case{0, 1, "0", 0}, Case{0, 3, "  0", 0},
        Case{7, 2, " 7", 0}, Case{-7, 1, "*", CORVINEL_INTEGER_OVERFLOW},
        Case{std::numeric_limits<int64_t>::min(), 20, "-9223372036854775808", 0},
        Case{std::numeric_limits<int64_t>::max(), 19, "9223372036854775807", 0},
        Case{std::numeric_limits<int64_t>::min(), 19, "*******************",
             CORVINEL_INTEGER_OVERFLOW}));

TEST(Wzclchr, EmptyFieldWritesNothing) {
  char buf[2] = {'#', '#'};
  EXPECT_EQ(wzclchr(1, buf, 0), CORVINEL_INTEGER_OVERFLOW);
  EXPECT_EQ(wzclchr(1, buf, -5), CORVINEL_INTEGER_OVERFLOW);
  EXPECT_EQ(buf[0], '#');
}

}  // namespace

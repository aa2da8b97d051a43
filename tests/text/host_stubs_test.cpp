#include <bit>
#include <climits>
#include <cstdint>
#include <ostream>

#include <gtest/gtest.h>

#include "corvinel/text.h"
#include "text/text_cases.h"

namespace corvinel::text::testing {
namespace {

INSTANTIATE_TEST_SUITE_P(
    MinMax, Answers,
    ::testing::Values(Answer{"min", [] { return ::min(3, -4); }, -4},
                      Answer{"max", [] { return ::max(3, -4); }, 3},
                      Answer{"min extremes", [] { return ::min(INT_MAX, INT_MIN); }, INT_MIN},
                      Answer{"max extremes", [] { return ::max(INT_MIN, INT_MAX); }, INT_MAX},
                      Answer{"min equal", [] { return ::min(5, 5); }, 5}));

struct MiscCase {
  uint64_t bits;
  int32_t low_byte;
};

void PrintTo(const MiscCase &c, std::ostream *os) { *os << std::hex << c.bits; }

class Wzmisc : public ::testing::TestWithParam<MiscCase> {};

TEST_P(Wzmisc, PrintsItsLineAndAnswersTheLowByte) {
  ::testing::internal::CaptureStdout();
  const int32_t result = wzmisc(std::bit_cast<double>(GetParam().bits));
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "in wzmisc in mvsextra...\n");
  EXPECT_EQ(result, GetParam().low_byte);
}

INSTANTIATE_TEST_SUITE_P(Values, Wzmisc,
                         ::testing::Values(MiscCase{0x3FF0000000000000, 0},  // 1.0
                                           MiscCase{0x3FF00000000000AB, 0xAB},
                                           MiscCase{0xFFFFFE00000000FF, 0xFF},
                                           MiscCase{0x8000000000000000, 0}));  // -0.0

TEST(Wztxlit, ReturnsItsArgument) {
  const char *literal = "ABC";
  EXPECT_EQ(wztxlit(literal), literal);
  EXPECT_EQ(wztxlit(nullptr), nullptr);
}

TEST(VacrashDeathTest, ExitsAtOnceWithStatusZero) {
  EXPECT_EXIT(
      {
        vaterm();
        vacrash();
      },
      ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace corvinel::text::testing

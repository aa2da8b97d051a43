// The renderings' documented examples and the hand-checked cases around
// them, one row each: format, width, decimals, value, the field and result.
#include <cfloat>
#include <cmath>
#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "classic_render.h"

namespace corvinel::numeric::testing {
namespace {

constexpr int32_t kFits = CORVINEL_OK;
constexpr int32_t kStars = CORVINEL_DOES_NOT_FIT;

struct Example {
  ClassicFormat format;
  int32_t width;
  int32_t decimals;
  double value;
  const char *field;
  int32_t result = kFits;
};

void PrintTo(const Example &example, std::ostream *out) {
  *out << example.format.name << example.width << "." << example.decimals << "("
       << show_value(example.value) << ") -> |" << example.field << "|";
}

class ClassicExample : public ::testing::TestWithParam<Example> {};

TEST_P(ClassicExample, RendersTheField) {
  const Example &example = GetParam();
  const Rendered rendered =
      render(example.format.render, example.width, example.decimals, example.value);
  EXPECT_EQ(rendered.field, example.field);
  EXPECT_EQ(rendered.result, example.result);
  EXPECT_EQ(rendered.outlen, example.width);
  EXPECT_TRUE(rendered.guards_intact);
  EXPECT_TRUE(rendered.restored);
}

const Example kFixedExamples[] = {
    {kWd, 6, 3, 23.45, "23.450"},
    {kWd, 6, 0, -1234, " -1234"},
    {kWd, 10, 5, 22026.465795, "22026.4658"},
    {kWd, 10, 5, 24154952.754, "24154952.8"},
    {kWd, 4, 0, 12345, "12E3"},
    {kWd, 2, 0, 123, "**", kStars},
    // Rounding is zround's: half away from zero, with its tolerance.
    {kWd, 4, 1, 0.15, " 0.2"},
    {kWd, 5, 1, -0.15, " -0.2"},
    {kWd, 5, 2, 0.125, " 0.13"},
    {kWd, 5, 2, 1.005, " 1.01"},
    {kWd, 3, 0, 2.5, "  3"},
    {kWd, 3, 0, -2.5, " -3"},
    // No minus sign on a value that rounds to zero.
    {kWd, 5, 2, -0.001, " 0.00"},
    {kWd, 5, 2, -0.0, " 0.00"},
    {kWd, 3, 0, -0.4, "  0"},
    // The leading zero goes before any decimal does.
    {kWd, 3, 2, 0.5, ".50"},
    {kWd, 4, 2, -0.5, "-.50"},
    {kWd, 2, 2, 0.5, ".5"},
    // Fifteen trusted digits; places beyond them are zeros.
    {kWd, 32, 20, 0.1, "          0.10000000000000000000"},
    {kWd, 32, 2, 1234567890123456.7, "             1234567890123460.00"},
    {kWd, 21, 0, 1e20, "100000000000000000000"},
    // Negative decimals count as none.
    {kWd, 4, -3, 12.5, "  13"},
};

const Example kBestExamples[] = {
    {kWd, 10, kBest, std::exp(-20.0), "2.06115E-9"},
    {kWd, 10, kBest, std::exp(-18.0), "  1.523E-8"},
    {kWd, 10, kBest, std::exp(-14.0), "8.31529E-7"},
    {kWd, 10, kBest, std::exp(-11.0), " 0.0000167"},
    {kWd, 10, kBest, std::exp(-9.0), "0.00012341"},
    {kWd, 10, kBest, std::exp(-3.0), "0.04978707"},
    {kWd, 10, kBest, std::exp(1.0), "2.71828183"},
    {kWd, 10, kBest, std::exp(4.0), "  54.59815"},
    {kWd, 10, kBest, std::exp(18.0), "65659969.1"},
    {kWd, 3, kBest, 1257000, "1E6"},
    {kWd, 3, kBest, -1257000, "***", kStars},
    {kWd, 6, kBest, 1257000, "1.26E6"},
    {kWd, 6, kBest, -1257000, "-126E4"},
    {kWd, 3, kBest, 0.1, "0.1"},
    {kWd, 3, kBest, -0.1, "-.1"},
    {kWd, 6, kBest, 123456789, "1.23E8"},
    {kWd, 8, kBest, 123456789, "1.2346E8"},
    {kWd, 4, kBest, 3626885, "36E5"},
    {kWd, 1, kBest, 3626885, "*", kStars},
    {kWd, 1, kBest, 0.000005, "0"},
    {kWd, 12, kBest, 0.000005, "        5E-6"},
    // 98 asks for BEST as 99 does.
    {kWd, 6, 98, 1257000, "1.26E6"},
    // A carry that lengthens or shortens the exponent.
    {kWd, 6, kBest, 9.9996e9, "  1E10"},
    {kWd, 7, kBest, 9.996e-10, "   1E-9"},
    // An integer mantissa finds room where the exponent is shorter.
    {kWd, 4, kBest, 3.6e10, "36E9"},
    // Plain text that shows few digits gives way to E notation with more.
    {kWd, 6, kBest, 0.000123456, "123E-6"},
    {kWd, 8, kBest, 0.000123456, "0.000123"},
    {kWd, 7, kBest, 1000000, "1000000"},
    {kWd, 5, kBest, 99999.7, "  1E5"},
    {kWd, 2, kBest, 0.5, ".5"},
    // The "0" goes where the decimals beside it would all be zero.
    {kWd, 3, kBest, 0.0201, ".02"},
    {kWd, 4, kBest, -0.0201, "-.02"},
    {kWd, 6, kBest, 0.00004, ".00004"},
    {kWd, 3, kBest, 0.004, "  0"},
    {kWd, 2, kBest, 0.96, " 1"},
    {kWd, 4, kBest, 0.125, "0.13"},
    {kWd, 32, kBest, 0.1, "                             0.1"},
    {kWd, 32, kBest, 123456789012345678901.0, "           123456789012346000000"},
    {kWd, 10, kBest, 1e300, "     1E300"},
    {kWd, 10, kBest, DBL_MAX, "1.7977E308"},
    {kWd, 5, kBest, DBL_MAX, "2E308"},
    {kWd, 10, kBest, -DBL_MAX, "-1.798E308"},
    {kWd, 10, kBest, 5e-324, "4.941E-324"},
    {kWd, 6, kBest, 5e-324, "5E-324"},
    {kWd, 10, kBest, -0.0, "         0"},
    {kWd, 3, kBest, -0.0001, "  0"},
};

const Example kGroupedExamples[] = {
    {kComma, 32, 2, -1234.56789, "                       -1,234.57"},
    {kComma, 10, 2, 123451.234, "123,451.23"},
    // Commas go first, then decimals, then BEST.
    {kComma, 10, 2, 1234567.891, "1234567.89"},
    {kComma, 8, 2, 1234567.891, " 1234568"},
    {kComma, 6, 2, 1234567.891, "1.23E6"},
    {kComma, 3, 2, 0.5, ".50"},
    {kComma, 14, 0, -1234567890, "-1,234,567,890"},
    {kComma, 7, 0, 999.6, "  1,000"},
    {kDollar, 10, 2, 1254.71, " $1,254.71"},
    {kDollar, 12, 2, -1234.567, "  $-1,234.57"},
    {kDollar, 9, 2, -1234.567, "$-1234.57"},
    {kDollar, 8, 2, -1234.567, "$-1234.6"},
    {kDollar, 6, 2, -1234.567, "$-1235"},
    {kDollar, 5, 2, -1234.567, "-1235"},
    {kDollar, 4, 2, 0.5, "$.50"},
    {kDollar, 5, 2, -0.001, "$0.00"},
    {kDollar, 1, 0, 12, "*", kStars},
};

const Example kPercentExamples[] = {
    {kPercent, 10, 0, 0.1, "      10% "},
    {kPercent, 10, 0, -0.05, "(      5%)"},
    {kPercent, 32, 2, -12.3456789, "(                      1234.57%)"},
    {kPercent, 8, 1, 0.125, "  12.5% "},
    {kPercent, 4, 0, 0.05, " 5% "},
    {kPercent, 5, 2, 0.005, " .5% "},
    {kPercent, 6, 2, -0.999, "(100%)"},
    {kPercent, 10, 2, -0.0000001, "    0.00% "},
    {kPercent, 6, 0, -0.0, "   0% "},
    {kPercent, 5, 0, 12.34, "*****", kStars},
    {kPercent, 3, 0, 0.1, "***", kStars},
    {kPercent, 10, 0, 1e307, "**********", kStars},
};

const Example kPvalueExamples[] = {
    {kPvalue, 6, 4, 0.000001, "<.0001"},
    {kPvalue, 6, 4, 0, "<.0001"},
    {kPvalue, 6, 4, 0.05, "0.0500"},
    {kPvalue, 6, 4, 0.0123456, "0.0123"},
    {kPvalue, 6, 4, -0.0, "<.0001"},
    {kPvalue, 6, 4, 0.0001, "0.0001"},
    {kPvalue, 3, 0, 0.4, " <1"},
    // Fewer decimals test against their own unit.
    {kPvalue, 4, 4, 0.00012, "<.01"},
    {kPvalue, 5, 4, 0.00012, ".0001"},
    {kPvalue, 7, 4, -0.05, "-0.0500"},
    {kPvalue, 6, 4, -0.05, "-.0500"},
    {kPvalue, 6, 2, 12345678, "1.23E7"},
};

const Example kDExamples[] = {
    {kD, 10, 4, 12345, "   12345.0"},
    {kD, 10, 4, 1234.5, "    1234.5"},
    {kD, 10, 4, 123.45, " 123.45000"},
    {kD, 10, 4, 12.345, "  12.34500"},
    {kD, 10, 4, 1.2345, "   1.23450"},
    {kD, 10, 4, 0.12345, "   0.12345"},
    // p 0 means 3: decimals 1, 4, 7, ...
    {kD, 10, 0, 123.45, "     123.5"},
    {kD, 10, 0, 12.345, "   12.3450"},
    {kD, 10, 0, 0.012345, " 0.0123450"},
    {kD, 10, 4, 0, "   0.00000"},
    {kD, 10, 4, -1.5, "  -1.50000"},
    // A carry into the next decade moves the value into the next group.
    {kD, 10, 4, 999.999996, "    1000.0"},
    // Too wide for the column: BEST.
    {kD, 10, 4, -12345678, " -12345678"},
    {kD, 10, 4, 0.012345, "  0.012345"},
    {kD, 3, 4, 1e10, "***", kStars},
};

INSTANTIATE_TEST_SUITE_P(Fixed, ClassicExample, ::testing::ValuesIn(kFixedExamples));
INSTANTIATE_TEST_SUITE_P(Best, ClassicExample, ::testing::ValuesIn(kBestExamples));
INSTANTIATE_TEST_SUITE_P(Grouped, ClassicExample, ::testing::ValuesIn(kGroupedExamples));
INSTANTIATE_TEST_SUITE_P(Percent, ClassicExample, ::testing::ValuesIn(kPercentExamples));
INSTANTIATE_TEST_SUITE_P(Pvalue, ClassicExample, ::testing::ValuesIn(kPvalueExamples));
INSTANTIATE_TEST_SUITE_P(D, ClassicExample, ::testing::ValuesIn(kDExamples));

}  // namespace
}  // namespace corvinel::numeric::testing

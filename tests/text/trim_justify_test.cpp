#include <ostream>
#include <string>

#include "corvinel/text.h"
#include "text/text_cases.h"

namespace corvinel::text::testing {
namespace {

INSTANTIATE_TEST_SUITE_P(
    TrailingBlanks, Answers,
    ::testing::Values(
        Answer{"wzstrip AB and two blanks", [] { return wzstrip("AB  ", 4); }, 2},
        Answer{"wzstrip all blank", [] { return wzstrip("    ", 4); }, 0},
        Answer{"wzstrip n<0", [] { return wzstrip("AB  ", -1); }, 2},
        Answer{"wzstrip inner blanks kept", [] { return wzstrip(" A B ", 5); }, 4},
        Answer{"wzstrip NUL is no blank", [] { return wzstrip("AB\0 ", 4); }, 3},
        Answer{"wzstrip looks only at n", [] { return wzstrip("A B", 2); }, 1},
        Answer{"wzstrip null", [] { return wzstrip(nullptr, 3); }, 0}));

struct Justify {
  std::string field;
  char mode;
  std::string after;
  int32_t len;
  int32_t start;
};

void PrintTo(const Justify &j, std::ostream *os) {
  *os << '"' << j.field << "\" mode ";
  if (j.mode == '\0') *os << "NUL";
  else *os << j.mode;
}

class Wzstjls : public ::testing::TestWithParam<Justify> {};

TEST_P(Wzstjls, JustifiesInPlaceAndReportsTheContent) {
  const Justify &j = GetParam();
  std::string buf = j.field + "##";
  int32_t len = -7, start = -7;
  wzstjls(buf.data(), static_cast<int32_t>(j.field.size()), j.mode, &len, &start);
  EXPECT_EQ(buf, j.after + "##");
  EXPECT_EQ(len, j.len);
  EXPECT_EQ(start, j.start);
}

TEST_P(Wzstjls, LenAndStartMayBeNull) {
  const Justify &j = GetParam();
  std::string buf = j.field;
  wzstjls(buf.data(), static_cast<int32_t>(j.field.size()), j.mode, nullptr, nullptr);
  EXPECT_EQ(buf, j.after);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, Wzstjls,
    ::testing::Values(Justify{"  AB      ", 'C', "    AB    ", 2, 4},
                      Justify{"  AB      ", 'c', "    AB    ", 2, 4},
                      Justify{"  AB      ", 'R', "        AB", 2, 8},
                      Justify{"  AB      ", 'r', "        AB", 2, 8},
                      Justify{"  AB      ", 'L', "AB        ", 2, 0},
                      Justify{"  AB      ", 'l', "AB        ", 2, 0},
                      Justify{"  AB      ", 'X', "  AB      ", 2, 2},
                      Justify{"  AB      ", '\0', "  AB      ", 2, 2},
                      // The odd blank goes to the right.
                      Justify{"ABC       ", 'C', "   ABC    ", 3, 3},
                      Justify{"AB   ", 'C', " AB  ", 2, 1},
                      // Moves shorter than the content overlap it.
                      Justify{"  ABCDEF", 'L', "ABCDEF  ", 6, 0},
                      Justify{"ABCDEF  ", 'R', "  ABCDEF", 6, 2},
                      Justify{"       A B", 'C', "   A B    ", 3, 3},
                      Justify{"AB", 'R', "AB", 2, 0},
                      Justify{"X", 'C', "X", 1, 0},
                      Justify{"     ", 'R', "     ", 0, 0},
                      Justify{"", 'C', "", 0, 0}));

TEST(Wzstjls, NegativeCountOrNullFieldIsEmpty) {
  char field[] = " A ";
  int32_t len = -7, start = -7;
  wzstjls(field, -3, 'L', &len, &start);
  EXPECT_STREQ(field, " A ");
  EXPECT_EQ(len, 0);
  EXPECT_EQ(start, 0);
  wzstjls(nullptr, 4, 'R', &len, &start);
  EXPECT_EQ(len, 0);
}

}  // namespace
}  // namespace corvinel::text::testing

#include <cstdint>
#include <map>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/names.h"

namespace {

TEST(EncodingMethod, ClassTotals) {
  std::map<int32_t, int> totals;
  for (int32_t cls : EncodingMethod) ++totals[cls];
  EXPECT_EQ(totals[0], 159);
  EXPECT_EQ(totals[1], 2);
  EXPECT_EQ(totals[2], 2);
  EXPECT_EQ(totals[3], 2);
  EXPECT_EQ(totals[4], 49);
  EXPECT_EQ(totals[5], 34);
  EXPECT_EQ(totals.size(), 7u);  // and one ID without a class
}

struct Family {
  std::string name;
  int32_t cls;
};

void PrintTo(const Family &c, std::ostream *os) { *os << c.name; }

class EncodingFamily : public ::testing::TestWithParam<Family> {};

// The class follows the encoding's family, reached through its name.
TEST_P(EncodingFamily, ClassOfNamedEncoding) {
  std::string name = GetParam().name;
  uint32_t id = 0;
  ASSERT_EQ(EncnameToID(name.data(), static_cast<int32_t>(name.size()), &id), 0);
  EXPECT_EQ(EncodingMethod[id], GetParam().cls);
}

INSTANTIATE_TEST_SUITE_P(
    Names, EncodingFamily,
    ::testing::Values(Family{"UTF-8", 1}, Family{"UTF-16BE", 2}, Family{"UTF-16LE", 2},
                      Family{"UTF-32BE", 3}, Family{"UTF-32LE", 3}, Family{"US-ASCII", 0},
                      Family{"LATIN1", 0}, Family{"LATIN10", 0}, Family{"PCOEM850", 0},
                      Family{"WLATIN1", 0}, Family{"AROMAN", 0}, Family{"EBCDIC1047", 0},
                      Family{"OPEN_ED-1148", 0}, Family{"ROMAN8", 0}, Family{"USER", 0},
                      Family{"EUC-CN", 5}, Family{"EUC-JP", 5}, Family{"EUC-KR", 5},
                      Family{"EUC-TW", 5}, Family{"SHIFT-JIS", 5}, Family{"SHIFT-JIS04", 5},
                      Family{"MS-932", 5}, Family{"BIG5", 5}, Family{"GB18030", 5},
                      Family{"PCJIS", 5}, Family{"DEC-JP", 5}, Family{"IBM-930", 4},
                      Family{"IBM-939E", 4}, Family{"OPEN_ED-930E", 4}, Family{"FUJITSU-JP", 4},
                      Family{"HITACHI-KANA", 4}, Family{"HITORB-KO", 4}, Family{"JIS-7", 4},
                      Family{"ISO2022JP", 4}, Family{"ISO2022CNCNS", 4}));

}  // namespace

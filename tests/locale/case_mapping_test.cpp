#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <ostream>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/unicode.h"
#include "locale/unicode_tables.h"

namespace {

using corvinel::locale::CasePair;
using Pairs = std::vector<std::pair<uint16_t, uint16_t>>;

Pairs read_aux(const CasePair *aux) {
  Pairs pairs;
  for (; aux->from != 0; ++aux) pairs.emplace_back(aux->from, aux->to);
  return pairs;
}

// The code points whose difference does not fit a byte, exactly as the
// host's tables have them.
const Pairs kUpperAux = {
    {0x017F, 0x0053}, {0x0253, 0x0181}, {0x0254, 0x0186}, {0x0257, 0x018A}, {0x0258, 0x018E},
    {0x0259, 0x018F}, {0x025B, 0x0190}, {0x0260, 0x0193}, {0x0263, 0x0194}, {0x0268, 0x0197},
    {0x0269, 0x0196}, {0x026F, 0x019C}, {0x0272, 0x019D}, {0x0283, 0x01A9}, {0x0288, 0x01AE},
    {0x028A, 0x01B1}, {0x028B, 0x01B2}, {0x0292, 0x01B7}, {0x1F78, 0x1FF8}, {0x1F79, 0x1FF9}};

TEST(CaseTables, UpperAuxList) { EXPECT_EQ(read_aux(corvinel::locale::skz_upaux), kUpperAux); }

TEST(CaseTables, LowerAuxListInvertsTheUpperOneButLongS) {
  Pairs expected;
  for (const auto &[from, to] : kUpperAux) {
    if (from != 0x017F) expected.emplace_back(to, from);
  }
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(read_aux(corvinel::locale::skz_downaux), expected);
}

TEST(CaseTables, NineteenBlocksHaveMappings) {
  const std::vector<int> expected = {0,  1,  2,  3,  4,  5,  7,  8,  9,  10,
                                     11, 33, 60, 61, 62, 63, 66, 73, 510};
  std::vector<int> blocks;
  for (int b = 0; b < 512; ++b) {
    const int16_t offset = corvinel::locale::skz_metatable[b];
    if (offset < 0) continue;
    blocks.push_back(b);
    EXPECT_EQ(offset % 128, 0);
    EXPECT_LT(offset, corvinel::locale::kCaseBlocks * 128);
  }
  EXPECT_EQ(blocks, expected);
}

struct Mapping {
  uint16_t from;
  uint16_t upper;
  uint16_t lower;
};

void PrintTo(const Mapping &c, std::ostream *os) {
  *os << "U+" << std::hex << std::uppercase << std::setw(4) << std::setfill('0') << c.from;
}

class CaseMapping : public ::testing::TestWithParam<Mapping> {};

TEST_P(CaseMapping, MapsOneUnit) {
  uint16_t unit = GetParam().from;
  UPCASE(&unit, 1);
  EXPECT_EQ(unit, GetParam().upper);
  unit = GetParam().from;
  LOWCASE(&unit, 1);
  EXPECT_EQ(unit, GetParam().lower);
}

INSTANTIATE_TEST_SUITE_P(
    CodePoints, CaseMapping,
    ::testing::Values(
        Mapping{0x0061, 0x0041, 0x0061}, Mapping{0x0053, 0x0053, 0x0073},
        Mapping{0x017F, 0x0053, 0x017F},  // long s: up to S, not back
        Mapping{0x00E9, 0x00C9, 0x00E9}, Mapping{0x00FF, 0x0178, 0x00FF},
        Mapping{0x0178, 0x0178, 0x00FF}, Mapping{0x00DF, 0x00DF, 0x00DF},
        Mapping{0x00B5, 0x00B5, 0x00B5}, Mapping{0x0131, 0x0131, 0x0131},
        Mapping{0x0130, 0x0130, 0x0130}, Mapping{0x01C5, 0x01C4, 0x01C6},
        Mapping{0x0253, 0x0181, 0x0253}, Mapping{0x0181, 0x0181, 0x0253},
        Mapping{0x0258, 0x018E, 0x0258}, Mapping{0x018E, 0x018E, 0x0258},
        Mapping{0x01DD, 0x018E, 0x01DD}, Mapping{0x0256, 0x0256, 0x0256},
        Mapping{0x03C2, 0x03A3, 0x03C2}, Mapping{0x03AC, 0x0386, 0x03AC},
        Mapping{0x0430, 0x0410, 0x0430}, Mapping{0x0401, 0x0401, 0x0451},
        Mapping{0x0561, 0x0531, 0x0561}, Mapping{0x10A0, 0x10A0, 0x10D0},
        Mapping{0x10D0, 0x10A0, 0x10D0}, Mapping{0x1E01, 0x1E00, 0x1E01},
        Mapping{0x1F78, 0x1FF8, 0x1F78}, Mapping{0x1FF9, 0x1FF9, 0x1F79},
        Mapping{0x1F00, 0x1F08, 0x1F00}, Mapping{0x2170, 0x2160, 0x2170},
        Mapping{0x212A, 0x212A, 0x212A}, Mapping{0x24D0, 0x24B6, 0x24D0},
        Mapping{0x24B6, 0x24B6, 0x24D0}, Mapping{0xFF41, 0xFF21, 0xFF41},
        Mapping{0xFF3A, 0xFF3A, 0xFF5A}, Mapping{0x4E00, 0x4E00, 0x4E00},
        Mapping{0x0345, 0x0345, 0x0345}, Mapping{0x0000, 0x0000, 0x0000},
        Mapping{0xFFFF, 0xFFFF, 0xFFFF}));

TEST(CaseMapping, MapsInPlaceAndOnlyTheGivenCount) {
  std::vector<uint16_t> units = {'a', 0x00E9, 0x017F, 'z', 'q'};
  UPCASE(units.data(), 4);
  EXPECT_EQ(units, (std::vector<uint16_t>{'A', 0x00C9, 'S', 'Z', 'q'}));
  LOWCASE(units.data(), 3);
  EXPECT_EQ(units, (std::vector<uint16_t>{'a', 0x00E9, 's', 'Z', 'q'}));
  UPCASE(units.data(), 0);
  LOWCASE(nullptr, 0);
  EXPECT_EQ(units[0], 'a');
}

// Upper- and lower-casing stay inverse wherever a pair is one-to-one.
TEST(CaseMapping, PairsAreConsistent) {
  for (uint32_t c = 0; c <= 0xFFFF; ++c) {
    uint16_t upper = static_cast<uint16_t>(c);
    UPCASE(&upper, 1);
    if (upper == c) continue;
    uint16_t back = upper;
    LOWCASE(&back, 1);
    uint16_t again = back;
    UPCASE(&again, 1);
    EXPECT_EQ(again, upper) << "U+" << std::hex << c;
  }
}

}  // namespace

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "corvinel/text.h"
#include "text/text_cases.h"

namespace corvinel::text::testing {
namespace {

// Overlapping calls work on one 8-byte buffer "ABCDEFGH": s + 2 as the
// destination of s moves right, s as the destination of s + 2 moves left.
INSTANTIATE_TEST_SUITE_P(
    PaddedCopy, Edits,
    ::testing::Values(
        Edit{"wzstmov pads", "*****", [](char *s) { return wzstmov("AB", 2, s, 5); }, "AB   "},
        Edit{"wzstmov truncates", "***", [](char *s) { return wzstmov("ABCDE", 5, s, 3); }, "ABC"},
        Edit{"vzmp nsrc=0 blanks all", "***", [](char *s) { return vzmp("A", 0, s, 3); }, "   "},
        Edit{"vzmp nsrc<0 blanks all", "***", [](char *s) { return vzmp("A", -4, s, 3); }, "   "},
        Edit{"vzmp null source", "***", [](char *s) { return vzmp(nullptr, 2, s, 3); }, "   "},
        Edit{"vzmp ndst=0", "***", [](char *s) { return vzmp("A", 1, s, 0); }, "***"},
        Edit{"vzmp ndst<0", "***", [](char *s) { return vzmp("A", 1, s, -1); }, "***"},
        Edit{"vzmp dst inside src", "ABCDEFGH", [](char *s) { return vzmp(s, 6, s + 2, 6); }, "ABABCDEF"},
        Edit{"vzmp dst inside src, padded", "ABCDEFGH", [](char *s) { return vzmp(s, 3, s + 2, 6); },
             "ABABC   "},
        Edit{"vzMP src inside dst", "ABCDEFGH", [](char *s) { return vzMP(s + 2, 6, s, 8); }, "CDEFGH  "}));

INSTANTIATE_TEST_SUITE_P(
    PlainCopy, Edits,
    ::testing::Values(
        Edit{"vzni shorter source", "*****", [](char *s) { vzni("AB", s, 2, 5); return 0; }, "AB***"},
        Edit{"vzni shorter field", "**", [](char *s) { vzni("ABC", s, 3, 2); return 0; }, "AB"},
        Edit{"vzni moves right", "ABCDEFGH", [](char *s) { vzni(s, s + 2, 6, 6); return 0; }, "ABABCDEF"},
        Edit{"vzni moves left", "ABCDEFGH", [](char *s) { vzni(s + 2, s, 6, 6); return 0; }, "CDEFGHGH"},
        Edit{"vzni nsrc<0", "**", [](char *s) { vzni("AB", s, -2, 2); return 0; }, "**"},
        Edit{"vzmi", "****", [](char *s) { vzmi("ABC", s, 3, 4); return 0; }, "ABC*"},
        Edit{"MBL_OPT", "****", [](char *s) { MBL_OPT("ABCD", s, 3); return 0; }, "ABC*"},
        Edit{"MBL_OPT n<0", "**", [](char *s) { MBL_OPT("AB", s, -1); return 0; }, "**"},
        Edit{"vznl moves right", "ABCDEFGH", [](char *s) { vznl(s, s + 2, 6); return 0; }, "ABABCDEF"},
        Edit{"vznl moves left", "ABCDEFGH", [](char *s) { vznl(s + 2, s, 6); return 0; }, "CDEFGHGH"},
        Edit{"vznl n=0", "AB", [](char *s) { vznl(s + 1, s, 0); return 0; }, "AB"}));

INSTANTIATE_TEST_SUITE_P(
    Fill, Edits,
    ::testing::Values(
        Edit{"vzzl n<m", "ABCDE", [](char *s) { vzzl(s, 3, 5); return 0; }, std::string("\0\0\0DE", 5)},
        Edit{"vzzl m<n", "ABCDE", [](char *s) { vzzl(s, 5, 2); return 0; }, std::string("\0\0CDE", 5)},
        Edit{"vzzl m<0", "AB", [](char *s) { vzzl(s, 2, -1); return 0; }, "AB"},
        Edit{"vzzi", "ABCD", [](char *s) { vzzi(s, 4, 3); return 0; }, std::string("\0\0\0D", 4)},
        Edit{"vzzi n<0", "AB", [](char *s) { vzzi(s, -1, 2); return 0; }, "AB"},
        Edit{"vzftl", "ABCD", [](char *s) { vzftl('\xFF', s, 3); return 0; }, "\xFF\xFF\xFF" "D"},
        Edit{"vzfbl", "ABCD", [](char *s) { vzfbl('x', s, 2); return 0; }, "xxCD"},
        Edit{"vzfbl n<0", "AB", [](char *s) { vzfbl('x', s, -2); return 0; }, "AB"},
        Edit{"wzbfcl", "ABCD", [](char *s) { wzbfcl('0', s, 4); return 0; }, "0000"},
        Edit{"vzbtl", "ABCD", [](char *s) { vzbtl(s, 3); return 0; }, "   D"},
        Edit{"vzbtl extra arguments", "ABCD", [](char *s) { vzbtl(s, 2, 99, "x"); return 0; }, "  CD"},
        Edit{"vzBL", "ABCD", [](char *s) { vzBL(s, 1); return 0; }, " BCD"},
        Edit{"vzBL null", "", [](char *) { vzBL(nullptr, 4); return 0; }, ""}));

// Copies through a scratch buffer (how an overlap-safe copy is usually
// pictured) against vzni, for overlaps in both directions and for lengths
// on both sides of 256.
TEST(Vzni, AgreesWithACopyThroughAScratchBuffer) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::vector<char> buf(1200);
    for (char &c : buf) c = static_cast<char>(random());
    const std::size_t from = random() % 600, to = random() % 600;
    const int32_t nsrc = static_cast<int32_t>(random() % 600), ndst = static_cast<int32_t>(random() % 600);
    std::vector<char> model = buf;
    const std::vector<char> scratch(model.begin() + from, model.begin() + from + nsrc);
    std::copy_n(scratch.begin(), std::min(nsrc, ndst), model.begin() + to);
    vzni(buf.data() + from, buf.data() + to, nsrc, ndst);
    ASSERT_EQ(buf, model) << "round " << round;
  }
}

}  // namespace
}  // namespace corvinel::text::testing

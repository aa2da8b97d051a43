#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "corvinel/text.h"
#include "text/text_cases.h"

namespace corvinel::text::testing {
namespace {

INSTANTIATE_TEST_SUITE_P(
    Delete, Edits,
    ::testing::Values(
        Edit{"wzstdel A-B-C", "A-B-C", [](char *s) { return wzstdel(s, 5, "-", 1); }, "ABC-C", 3},
        Edit{"wzstdel all deleted", "-+-", [](char *s) { return wzstdel(s, 3, "+-", 2); }, "-+-", 0},
        Edit{"wzstdel none deleted", "ABC", [](char *s) { return wzstdel(s, 3, "x", 1); }, "ABC", 3},
        Edit{"wzstdel empty set", "ABC", [](char *s) { return wzstdel(s, 3, "", 0); }, "ABC", 3},
        Edit{"wzstdel NUL in set", std::string("A\0B", 3),
             [](char *s) { return wzstdel(s, 3, "\0", 1); }, std::string("ABB", 3), 2},
        Edit{"wzstdel only first n", "--A-", [](char *s) { return wzstdel(s, 2, "-", 1); }, "--A-", 0},
        Edit{"wzstdel n<0", "--", [](char *s) { return wzstdel(s, -2, "-", 1); }, "--", 0}));

INSTANTIATE_TEST_SUITE_P(
    Replace, Edits,
    ::testing::Values(
        Edit{"wzstrnc", "a.b.c", [](char *s) { wzstrnc(s, 5, ',', '.'); return 0; }, "a,b,c"},
        Edit{"wzstrnc first n", "a.b.c", [](char *s) { wzstrnc(s, 3, ',', '.'); return 0; }, "a,b.c"},
        Edit{"wzstrnc null", "", [](char *) { wzstrnc(nullptr, 3, ',', '.'); return 0; }, ""},
        // One pass: a swapped pair does not translate back.
        Edit{"wzstrns swap", "abcab", [](char *s) { return wzstrns(s, 5, "ba", "ab", 2); }, "bacba"},
        Edit{"wzstrns first listing wins", "aa", [](char *s) { return wzstrns(s, 2, "xy", "aa", 2); }, "xx"},
        Edit{"wzstrns high bytes", "\xE9.",
             [](char *s) { return wzstrns(s, 2, "e,", "\xE9.", 2); }, "e,"},
        Edit{"wzstrns nfrom=0", "ab", [](char *s) { return wzstrns(s, 2, "x", "a", 0); }, "ab"}));

// The gather-into-scratch-buffer-and-copy-back behaviour callers know,
// against the in-place routine, for texts well past 200 bytes.
std::string delete_through_scratch_buffer(std::string s, const std::string &set) {
  std::vector<char> kept;
  for (char c : s)
    if (set.find(c) == std::string::npos) kept.push_back(c);
  std::copy(kept.begin(), kept.end(), s.begin());
  return s;
}

TEST(Wzstdel, AgreesWithTheScratchBufferModel) {
  std::mt19937 random(20240611);
  const std::string set("- \0", 3);
  for (int round = 0; round < 500; ++round) {
    std::string text(random() % 600, ' ');
    for (char &c : text) c = "AB- \0"[random() % 5];
    std::string buf = text;
    const int32_t kept = wzstdel(buf.data(), static_cast<int32_t>(buf.size()), set.data(), 3);
    const std::string model = delete_through_scratch_buffer(text, set);
    ASSERT_EQ(buf, model) << "round " << round;
    ASSERT_EQ(kept, static_cast<int32_t>(std::count_if(text.begin(), text.end(), [&](char c) {
                return set.find(c) == std::string::npos;
              })));
  }
}

}  // namespace
}  // namespace corvinel::text::testing

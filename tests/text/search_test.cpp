#include "corvinel/text.h"
#include "text/text_cases.h"

namespace corvinel::text::testing {
namespace {

// Counted texts may hold NUL bytes; "A\0C" below is three bytes long.
INSTANTIATE_TEST_SUITE_P(
    AllEqual, Answers,
    ::testing::Values(
        Answer{"vzabl all x", [] { return vzabl('x', "xxx", 3); }, 1},
        Answer{"vzabl last differs", [] { return vzabl('x', "xxy", 3); }, 0},
        Answer{"vzabl stops at n", [] { return vzabl('x', "xxy", 2); }, 1},
        Answer{"vzabl high byte", [] { return vzabl('\xE9', "\xE9\xE9", 2); }, 1},
        Answer{"vzabl n=0", [] { return vzabl('x', "abc", 0); }, 1},
        Answer{"vzabl n<0", [] { return vzabl('x', "abc", -3); }, 1},
        Answer{"vzabl null", [] { return vzabl('x', nullptr, 0); }, 1},
        Answer{"ATL all blank", [] { return ATL(' ', "   ", 3); }, 1},
        Answer{"ATL not all", [] { return ATL(' ', "  a", 3); }, 0}));

INSTANTIATE_TEST_SUITE_P(
    BytePosition, Answers,
    ::testing::Values(
        Answer{"wzstpos ABC n=-1 C", [] { return wzstpos("ABC", -1, 'C'); }, 2},
        Answer{"wzstpos ABC n=2 C", [] { return wzstpos("ABC", 2, 'C'); }, -1},
        Answer{"wzstpos first of two", [] { return wzstpos("ACAC", 4, 'C'); }, 1},
        Answer{"wzstpos past NUL counted", [] { return wzstpos("A\0C", 3, 'C'); }, 2},
        Answer{"wzstpos stops at NUL", [] { return wzstpos("A\0C", -1, 'C'); }, -1},
        Answer{"wzstpos high byte", [] { return wzstpos("a\xFF", 2, '\xFF'); }, 1},
        Answer{"wzstpos n=0", [] { return wzstpos("C", 0, 'C'); }, -1},
        Answer{"wzstpos null", [] { return wzstpos(nullptr, 5, 'C'); }, -1},
        Answer{"wzstnot", [] { return wzstnot("**7*", 4, '*'); }, 2},
        Answer{"wzstnot all equal", [] { return wzstnot("***", 3, '*'); }, -1},
        Answer{"wzstnot n<0", [] { return wzstnot("7", -1, '*'); }, -1}));

INSTANTIATE_TEST_SUITE_P(
    Substring, Answers,
    ::testing::Values(
        Answer{"wzstndx", [] { return wzstndx("ABCABC", 6, "CA", 2); }, 2},
        Answer{"wzstndx after partial match", [] { return wzstndx("AAAB", 4, "AAB", 3); }, 1},
        Answer{"wzstndx at the end", [] { return wzstndx("ABC", 3, "BC", 2); }, 1},
        Answer{"wzstndx only beyond n", [] { return wzstndx("ABCD", 3, "CD", 2); }, -1},
        Answer{"wzstndx nsub>n", [] { return wzstndx("ABC", 3, "ABCD", 4); }, -1},
        Answer{"wzstndx absent", [] { return wzstndx("ABC", 3, "X", 1); }, -1},
        Answer{"wzstndx through NUL", [] { return wzstndx("A\0B\0C", 5, "\0C", 2); }, 3},
        Answer{"wzstndx empty sub", [] { return wzstndx("ABC", 3, "", 0); }, 0},
        Answer{"wzstndx n<0", [] { return wzstndx("ABC", -1, "A", 1); }, -1}));

INSTANTIATE_TEST_SUITE_P(
    ByteSets, Answers,
    ::testing::Values(
        Answer{"wzstver", [] { return wzstver(" -+7", 4, "+- ", 3); }, 3},
        Answer{"wzstver all in set", [] { return wzstver("+-", 2, "+-", 2); }, -1},
        Answer{"wzstver set counted past NUL", [] { return wzstver("\0x7", 3, "\0x", 2); }, 2},
        Answer{"wzstver empty set", [] { return wzstver("ab", 2, "a", 0); }, 0},
        Answer{"wzstver n=0", [] { return wzstver("ab", 0, "x", 1); }, -1},
        Answer{"STQX", [] { return STQX("AB,C;", 5, ";,"); }, 2},
        Answer{"STQX none", [] { return STQX("ABC", 3, ";,"); }, -1},
        Answer{"STQX NUL is no member", [] { return STQX("A\0B", 3, "B"); }, 2},
        Answer{"STQX null set", [] { return STQX(",", 1, nullptr); }, -1},
        Answer{"STQXN", [] { return STQXN("  .x", 4, " ."); }, 3},
        Answer{"STQXN NUL is no member", [] { return STQXN("A\0", 2, "A"); }, 1},
        Answer{"STQXN all in set", [] { return STQXN("  ", 2, " "); }, -1}));

}  // namespace
}  // namespace corvinel::text::testing

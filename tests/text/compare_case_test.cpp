#include <clocale>
#include <string>

#include "corvinel/text.h"
#include "support/session_locales.h"
#include "text/text_cases.h"

namespace corvinel::text::testing {
namespace {

// "[" and "{", "@" and "`" differ only in bit 0x20, like letters of two
// cases: folding by bit arithmetic would take them for equal.
INSTANTIATE_TEST_SUITE_P(
    CaseInsensitive, Answers,
    ::testing::Values(
        Answer{"wzsteqn cases differ", [] { return wzsteqn("abC", 3, "ABc", 3); }, 1},
        Answer{"wzsteqn last byte differs", [] { return wzsteqn("abc", 3, "ABD", 3); }, 0},
        Answer{"wzsteqn lengths differ", [] { return wzsteqn("abc", 3, "ABCD", 4); }, 0},
        Answer{"wzsteqn equal prefixes", [] { return wzsteqn("abcd", 3, "ABCx", 3); }, 1},
        Answer{"wzsteqn two empty", [] { return wzsteqn("a", 0, "b", 0); }, 1},
        Answer{"wzsteqn two null", [] { return wzsteqn(nullptr, 0, nullptr, 0); }, 1},
        Answer{"wzsteqn n<0 is empty", [] { return wzsteqn("a", -1, "", 0); }, 1},
        Answer{"wzsteqn [ and {", [] { return wzsteqn("[", 1, "{", 1); }, 0},
        Answer{"wzsteqn @ and `", [] { return wzsteqn("@", 1, "`", 1); }, 0},
        Answer{"wzsteqn NUL bytes", [] { return wzsteqn("a\0b", 3, "A\0B", 3); }, 1},
        Answer{"wzsteqn accents in C locale", [] { return wzsteqn("\xE9", 1, "\xC9", 1); }, 0}));

INSTANTIATE_TEST_SUITE_P(
    UpperCase, Edits,
    ::testing::Values(
        Edit{"wzstrup n=4", "ab1z", [](char *s) { wzstrup(s, 4); return 0; }, "AB1Z"},
        Edit{"wzstrup n=2", "abcd", [](char *s) { wzstrup(s, 2); return 0; }, "ABcd"},
        Edit{"wzstrup n<0 stops at NUL", std::string("ab\0c", 4),
             [](char *s) { wzstrup(s, -1); return 0; }, std::string("AB\0c", 4)},
        Edit{"wzstrup keeps accents in C locale", "\xE9x",
             [](char *s) { wzstrup(s, 2); return 0; }, "\xE9X"},
        Edit{"wzstrup n=0", "ab", [](char *s) { wzstrup(s, 0); return 0; }, "ab"}));

// Under a Latin-1 locale the accented letters fold too: the routines go
// through the process locale, not an ASCII rule.
TEST(ProcessLocale, Latin1LocaleFoldsAccentedLetters) {
  const corvinel::testing::ScopedSessionLocale latin1(corvinel::testing::kLatin1Locale);
  ASSERT_TRUE(latin1.active());
  char text[] = "\xE9t\xE9";
  wzstrup(text, 3);
  EXPECT_STREQ(text, "\xC9T\xC9");
  EXPECT_EQ(wzsteqn("\xE9t\xE9", 3, "\xC9T\xC9", 3), 1);
}

}  // namespace
}  // namespace corvinel::text::testing

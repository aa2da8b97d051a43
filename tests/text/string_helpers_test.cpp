// The exported string and byte helpers: a table of calls and the numbers
// they answer, a table of calls and the bytes they leave in a buffer, and
// the byte-by-byte models some of them must agree with.
#include <algorithm>
#include <bit>
#include <climits>
#include <cstdint>
#include <iterator>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/fmtreq.h"
#include "corvinel/text.h"
#include "support/session_locales.h"

namespace {

using S = std::string;

struct Answer {
  const char *call;
  int32_t (*run)();
  int32_t expected;
};

// A call on a buffer holding `before` and guard bytes, the buffer it must
// leave and its result (0 for routines without one).
struct Edit {
  const char *call;
  S before;
  int32_t (*run)(char *buf);
  S after;
  int32_t result = 0;
};

void PrintTo(const Answer &a, std::ostream *os) { *os << a.call; }
void PrintTo(const Edit &e, std::ostream *os) { *os << e.call; }

class Answers : public ::testing::TestWithParam<Answer> {};
class Edits : public ::testing::TestWithParam<Edit> {};

TEST_P(Answers, GiveTheExpectedNumber) { EXPECT_EQ(GetParam().run(), GetParam().expected); }

TEST_P(Edits, LeaveTheExpectedBytesAndNothingBeyond) {
  const Edit &e = GetParam();
  S buf = e.before + "########";
  EXPECT_EQ(e.run(buf.data()), e.result);
  EXPECT_EQ(buf, e.after + "########");
}

// Counted texts may hold NUL bytes ("A\0C" is three bytes long); a negative
// count means "up to the NUL" only where noted.
INSTANTIATE_TEST_SUITE_P(
    Search, Answers,
    ::testing::Values(
        Answer{"vzabl last differs", [] { return vzabl('x', "xxy", 3); }, 0},
        Answer{"vzabl high byte", [] { return vzabl('\xE9', "\xE9\xE9", 2); }, 1},
        Answer{"vzabl n=0", [] { return vzabl('x', "abc", 0); }, 1},
        Answer{"ATL not all", [] { return ATL(' ', "  a", 3); }, 0},
        Answer{"wzstpos n<0 up to NUL", [] { return wzstpos("ABC", -1, 'C'); }, 2},
        Answer{"wzstpos n<0 stops at NUL", [] { return wzstpos("A\0C", -1, 'C'); }, -1},
        Answer{"wzstpos past NUL counted", [] { return wzstpos("A\0C", 3, 'C'); }, 2},
        Answer{"wzstpos only first n", [] { return wzstpos("ABC", 2, 'C'); }, -1},
        Answer{"wzstpos high byte", [] { return wzstpos("a\xFF", 2, '\xFF'); }, 1},
        Answer{"wzstnot", [] { return wzstnot("**7*", 4, '*'); }, 2},
        Answer{"wzstnot all equal", [] { return wzstnot("***", 3, '*'); }, -1},
        Answer{"wzstndx", [] { return wzstndx("ABCABC", 6, "CA", 2); }, 2},
        Answer{"wzstndx after partial match", [] { return wzstndx("AAAB", 4, "AAB", 3); }, 1},
        Answer{"wzstndx at the end", [] { return wzstndx("ABC", 3, "BC", 2); }, 1},
        Answer{"wzstndx only beyond n", [] { return wzstndx("ABCD", 3, "CD", 2); }, -1},
        Answer{"wzstndx through NUL", [] { return wzstndx("A\0B\0C", 5, "\0C", 2); }, 3},
        Answer{"wzstndx empty sub", [] { return wzstndx("ABC", 3, "", 0); }, 0},
        Answer{"wzstver", [] { return wzstver(" -+7", 4, "+- ", 3); }, 3},
        Answer{"wzstver set counted past NUL", [] { return wzstver("\0x7", 3, "\0x", 2); }, 2},
        Answer{"wzstver empty set", [] { return wzstver("ab", 2, "a", 0); }, 0},
        Answer{"STQX", [] { return STQX("AB,C;", 5, ";,"); }, 2},
        Answer{"STQX NUL is no member", [] { return STQX("A\0B", 3, "B"); }, 2},
        Answer{"STQXN", [] { return STQXN("  .x", 4, " ."); }, 3}));

// "[" and "{", like letters of two cases, differ only in bit 0x20: folding
// by bit arithmetic would take them for equal.
INSTANTIATE_TEST_SUITE_P(
    CompareAndTrim, Answers,
    ::testing::Values(
        Answer{"wzsteqn cases differ", [] { return wzsteqn("abC", 3, "ABc", 3); }, 1},
        Answer{"wzsteqn last byte differs", [] { return wzsteqn("abc", 3, "ABD", 3); }, 0},
        Answer{"wzsteqn lengths differ", [] { return wzsteqn("abc", 3, "ABCD", 4); }, 0},
        Answer{"wzsteqn [ and {", [] { return wzsteqn("[", 1, "{", 1); }, 0},
        Answer{"wzsteqn past NUL", [] { return wzsteqn("a\0b", 3, "A\0C", 3); }, 0},
        Answer{"wzsteqn accents in C locale", [] { return wzsteqn("\xE9", 1, "\xC9", 1); }, 0},
        Answer{"wzstrip", [] { return wzstrip(" A B  ", 6); }, 4},
        Answer{"wzstrip all blank", [] { return wzstrip("    ", 4); }, 0},
        Answer{"wzstrip n<0 up to NUL", [] { return wzstrip("AB  ", -1); }, 2},
        Answer{"wzstrip NUL is no blank", [] { return wzstrip("AB\0 ", 4); }, 3},
        Answer{"min", [] { return ::min(INT_MAX, INT_MIN); }, INT_MIN},
        Answer{"max", [] { return ::max(INT_MIN, INT_MAX); }, INT_MAX},
        Answer{"wzstjls null field", [] { int32_t len = -7; wzstjls(nullptr, 4, 'R', &len, nullptr); return len; }, 0},
        Answer{"wzclchr null field", [] { return wzclchr(19807, nullptr, 22); }, CORVINEL_INTEGER_OVERFLOW}));

// Overlapping calls work on "ABCDEFGH": s + 2 as the destination of s moves
// right, s as the destination of s + 2 moves left.
INSTANTIATE_TEST_SUITE_P(
    CopyAndFill, Edits,
    ::testing::Values(
        Edit{"wzstmov pads", "*****", [](char *s) { return wzstmov("AB", 2, s, 5); }, "AB   "},
        Edit{"vzmp truncates", "***", [](char *s) { return vzmp("ABCDE", 5, s, 3); }, "ABC"},
        Edit{"vzmp nsrc<0 blanks all", "***", [](char *s) { return vzmp("A", -4, s, 3); }, "   "},
        Edit{"vzmp ndst<0", "***", [](char *s) { return vzmp("A", 1, s, -1); }, "***"},
        Edit{"vzmp moves right, padded", "ABCDEFGH", [](char *s) { return vzmp(s, 3, s + 2, 6); }, "ABABC   "},
        Edit{"vzMP moves left, padded", "ABCDEFGH", [](char *s) { return vzMP(s + 2, 6, s, 8); }, "CDEFGH  "},
        Edit{"vzni", "*****", [](char *s) { vzni("AB", s, 2, 5); return 0; }, "AB***"},
        Edit{"vzmi", "****", [](char *s) { vzmi("ABC", s, 3, 4); return 0; }, "ABC*"},
        Edit{"MBL_OPT", "****", [](char *s) { MBL_OPT("ABCD", s, 3); return 0; }, "ABC*"},
        Edit{"vznl moves left", "ABCDEFGH", [](char *s) { vznl(s + 2, s, 6); return 0; }, "CDEFGHGH"},
        Edit{"vzzl", "ABCDE", [](char *s) { vzzl(s, 5, 2); return 0; }, S("\0\0CDE", 5)},
        Edit{"vzzi", "ABCD", [](char *s) { vzzi(s, 3, 4); return 0; }, S("\0\0\0D", 4)},
        Edit{"vzftl", "ABCD", [](char *s) { vzftl('\xFF', s, 3); return 0; }, "\xFF\xFF\xFF" "D"},
        Edit{"vzfbl", "ABCD", [](char *s) { vzfbl('x', s, 2); return 0; }, "xxCD"},
        Edit{"wzbfcl", "ABCD", [](char *s) { wzbfcl('0', s, 4); return 0; }, "0000"},
        Edit{"vzbtl ignores more arguments", "ABCD", [](char *s) { vzbtl(s, 2, 99, "x"); return 0; }, "  CD"},
        Edit{"vzBL", "ABCD", [](char *s) { vzBL(s, 1); return 0; }, " BCD"},
        Edit{"vzBL null", "", [](char *) { vzBL(nullptr, 4); return 0; }, ""}));

// wzstdel leaves the bytes past the kept ones, and the text when it keeps
// none; wzstrns translates in one pass, the first listing of a byte winning.
INSTANTIATE_TEST_SUITE_P(
    DeleteReplaceAndCase, Edits,
    ::testing::Values(
        Edit{"wzstdel", "A-B-C", [](char *s) { return wzstdel(s, 5, "-", 1); }, "ABC-C", 3},
        Edit{"wzstdel all deleted", "-+-", [](char *s) { return wzstdel(s, 3, "+-", 2); }, "-+-", 0},
        Edit{"wzstdel NUL in set", S("A\0B", 3), [](char *s) { return wzstdel(s, 3, "\0", 1); }, "ABB", 2},
        Edit{"wzstrnc first n", "a.b.c", [](char *s) { wzstrnc(s, 3, ',', '.'); return 0; }, "a,b.c"},
        Edit{"wzstrns swap", "abcab", [](char *s) { return wzstrns(s, 5, "ba", "ab", 2); }, "bacba"},
        Edit{"wzstrns first listing wins", "aa", [](char *s) { return wzstrns(s, 2, "xy", "aa", 2); }, "xx"},
        Edit{"wzstrns high bytes", "\xE9.", [](char *s) { return wzstrns(s, 2, "e,", "\xE9.", 2); }, "e,"},
        Edit{"wzstrup first n", "abcd", [](char *s) { wzstrup(s, 2); return 0; }, "ABcd"},
        Edit{"wzstrup n<0 up to NUL", S("ab\0c", 4), [](char *s) { wzstrup(s, -1); return 0; }, S("AB\0c", 4)},
        Edit{"wzstrup accents in C locale", "\xE9x", [](char *s) { wzstrup(s, 2); return 0; }, "\xE9X"}));

// wzstjls on the first n bytes, answering 100 * len + start, or -1 when the
// call without len and start leaves other bytes.
int32_t justified(char *s, int32_t n, char mode) {
  S quiet(s, static_cast<std::size_t>(std::max(n, 0)));
  int32_t len = -7, start = -7;
  wzstjls(quiet.data(), n, mode, nullptr, nullptr);
  wzstjls(s, n, mode, &len, &start);
  return quiet == S(s, quiet.size()) ? 100 * len + start : -1;
}

// The odd blank of a centred field goes to the right; moves shorter than the
// content overlap it; an unknown mode moves nothing.
INSTANTIATE_TEST_SUITE_P(
    Justify, Edits,
    ::testing::Values(
        Edit{"wzstjls C", "  AB      ", [](char *s) { return justified(s, 10, 'C'); }, "    AB    ", 204},
        Edit{"wzstjls r", "  AB      ", [](char *s) { return justified(s, 10, 'r'); }, "        AB", 208},
        Edit{"wzstjls L", "  AB      ", [](char *s) { return justified(s, 10, 'L'); }, "AB        ", 200},
        Edit{"wzstjls X", "  AB      ", [](char *s) { return justified(s, 10, 'X'); }, "  AB      ", 202},
        Edit{"wzstjls odd c", "ABC       ", [](char *s) { return justified(s, 10, 'c'); }, "   ABC    ", 303},
        Edit{"wzstjls l overlaps", "  ABCDEF", [](char *s) { return justified(s, 8, 'l'); }, "ABCDEF  ", 600},
        Edit{"wzstjls R overlaps", "ABCDEF  ", [](char *s) { return justified(s, 8, 'R'); }, "  ABCDEF", 602},
        Edit{"wzstjls inner blank", "       A B", [](char *s) { return justified(s, 10, 'C'); }, "   A B    ", 303},
        Edit{"wzstjls all blank", "     ", [](char *s) { return justified(s, 5, 'R'); }, "     ", 0},
        Edit{"wzstjls n<0", " A ", [](char *s) { return justified(s, -3, 'L'); }, " A ", 0}));

// Most significant byte first; two bytes clamp to 16 bits and say so, other
// widths carry the sign on.  wzctdbl copies the double as it lies in memory.
constexpr int64_t k8 = 0x0102030405060708;
INSTANTIATE_TEST_SUITE_P(
    Integers, Edits,
    ::testing::Values(
        Edit{"wzctint 3 bytes", "***", [](char *s) { return wzctint(k8, s, 3); }, "\x06\x07\x08"},
        Edit{"wzctint 8 bytes", "********", [](char *s) { return wzctint(k8, s, 8); }, "\x01\x02\x03\x04\x05\x06\x07\x08"},
        Edit{"wzctint 10 bytes", "**********", [](char *s) { return wzctint(-2, s, 10); }, S(9, '\xFF') + "\xFE"},
        Edit{"wzctint 0 bytes", "*", [](char *s) { return wzctint(7, s, 0); }, "*"},
        Edit{"wzctdbl 3 bytes", "****", [](char *s) { return wzctdbl(s, 3, std::bit_cast<double>(k8)); }, "\x08\x07\x06*"},
        Edit{"wzctdbl 10 bytes", S(10, '*'), [](char *s) { return wzctdbl(s, 10, std::bit_cast<double>(k8)); }, "\x08\x07\x06\x05\x04\x03\x02\x01**"},
        Edit{"wzctdbl n<0", "*", [](char *s) { return wzctdbl(s, -1, 1.0); }, "*"},
        Edit{"wzctint 2 bytes", "**", [](char *s) { return wzctint(-32768, s, 2); }, S("\x80\0", 2)},
        Edit{"wzctint 2 bytes, 32767", "**", [](char *s) { return wzctint(32767, s, 2); }, "\x7F\xFF"},
        Edit{"wzctint 2 bytes, 32768", "**", [](char *s) { return wzctint(32768, s, 2); }, "\x7F\xFF", CORVINEL_INTEGER_CLAMPED},
        Edit{"wzctint 2 bytes, -32769", "**", [](char *s) { return wzctint(-32769, s, 2); }, S("\x80\0", 2), CORVINEL_INTEGER_CLAMPED},
        Edit{"wzclchr", "#####", [](char *s) { return wzclchr(-42, s, 5); }, "  -42"},
        Edit{"wzclchr fills", "*", [](char *s) { return wzclchr(0, s, 1); }, "0"},
        Edit{"wzclchr too long", "*****", [](char *s) { return wzclchr(123456, s, 5); }, "*****", CORVINEL_INTEGER_OVERFLOW},
        Edit{"wzclchr no room for the sign", "....", [](char *s) { return wzclchr(-1234, s, 4); }, "****", CORVINEL_INTEGER_OVERFLOW},
        Edit{"wzclchr INT64_MIN", S(20, '.'), [](char *s) { return wzclchr(INT64_MIN, s, 20); }, "-9223372036854775808"},
        Edit{"wzclchr INT64_MIN too long", S(19, '.'), [](char *s) { return wzclchr(INT64_MIN, s, 19); }, S(19, '*'), CORVINEL_INTEGER_OVERFLOW},
        Edit{"wzclchr no field", ".", [](char *s) { return wzclchr(1, s, 0); }, ".", CORVINEL_INTEGER_OVERFLOW}));

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

// The copy through a scratch buffer (how vzni is pictured) and the gathering
// of kept bytes into one (how wzstdel is), against the routines, for
// overlaps both ways and lengths either side of 256.
TEST(ScratchBufferModels, AgreeWithVzniAndWzstdel) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::vector<char> buf(1200);
    for (char &c : buf) c = "AB- \0"[random() % 5];
    const std::size_t from = random() % 600, to = random() % 600;
    const auto nsrc = static_cast<int32_t>(random() % 600), ndst = static_cast<int32_t>(random() % 600);
    std::vector<char> model = buf;
    const std::vector<char> scratch(model.begin() + from, model.begin() + from + nsrc);
    std::copy_n(scratch.begin(), std::min(nsrc, ndst), model.begin() + to);
    vzni(buf.data() + from, buf.data() + to, nsrc, ndst);
    ASSERT_EQ(buf, model) << "vzni, round " << round;

    const std::size_t n = random() % 1200;
    const S deleted("- \0", 3);
    std::vector<char> kept;
    std::copy_if(model.begin(), model.begin() + n, std::back_inserter(kept),
                 [&](char c) { return deleted.find(c) == S::npos; });
    std::copy(kept.begin(), kept.end(), model.begin());
    ASSERT_EQ(wzstdel(buf.data(), static_cast<int32_t>(n), deleted.data(), 3), std::ssize(kept));
    ASSERT_EQ(buf, model) << "wzstdel, round " << round;
  }
}

TEST(Wzmisc, PrintsItsLineAndAnswersTheLowByte) {
  for (const uint64_t bits : {0x3FF00000000000ABull, 0xFFFFFE00000000FFull, 0x8000000000000000ull}) {
    ::testing::internal::CaptureStdout();
    const int32_t result = wzmisc(std::bit_cast<double>(bits));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "in wzmisc in mvsextra...\n");
    EXPECT_EQ(result, static_cast<int32_t>(bits & 0xFF));
  }
  const char *literal = "ABC";
  EXPECT_EQ(wztxlit(literal), literal);
}

TEST(VacrashDeathTest, ExitsAtOnceWithStatusZero) {
  EXPECT_EXIT((vaterm(), vacrash()), ::testing::ExitedWithCode(0), "");
}

}  // namespace

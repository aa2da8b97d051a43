// The rules of the locale data generator: CLDR patterns into directives and
// record patterns, the glibc locale source reader, the escape notation.

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <ostream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "glibc_locale.h"
#include "pattern_rules.h"
#include "unicode_text.h"

namespace {

using namespace corvinel::locale_data;

std::string shown(const std::u16string &text) { return escape_text(text, EscapeForm::kUpper); }

constexpr DateFieldStyle kFormat{false}, kStandalone{true};
constexpr const char *kThrows = nullptr;  // the pattern has a field without a directive

struct DateCase {
  const char16_t *pattern;
  DateFieldStyle style;
  const char *expected;  // escaped
};

void PrintTo(const DateCase &c, std::ostream *out) {
  *out << shown(c.pattern) << (c.style.standalone_month ? " standalone" : "");
}

class DatePatterns : public ::testing::TestWithParam<DateCase> {};

TEST_P(DatePatterns, BecomeDirectives) {
  const DateCase &c = GetParam();
  if (c.expected == kThrows) {
    EXPECT_THROW(convert_date_pattern(c.pattern, c.style, u"AD"), std::runtime_error);
  } else {
    EXPECT_EQ(shown(convert_date_pattern(c.pattern, c.style, u"AD")), c.expected);
  }
}

INSTANTIATE_TEST_SUITE_P(
    LocaleDataRules, DatePatterns,
    ::testing::Values(DateCase{u"MMMM d, y", kFormat, "%B %#d, %Y"}, DateCase{u"MMMM dd, y", kFormat, "%B %d, %Y"},
                      DateCase{u"dd.MM.yy", kFormat, "%d.%m.%y"}, DateCase{u"d. M. y", kFormat, "%#d. %#m. %Y"},
                      DateCase{u"y\u5E74M\u6708d\u65E5EEEE", kFormat, "%Y<U5E74>%#m<U6708>%#d<U65E5>%A"},
                      DateCase{u"EEE, MMM d", kFormat, "%a, %b %#d"}, DateCase{u"MMMM y", kStandalone, "%#B %Y"},
                      DateCase{u"LLL y", kFormat, "%#b %Y"}, DateCase{u"L/y", kFormat, "%#m/%Y"},
                      DateCase{u"cccc d. MMMM", kFormat, "%#A %#d. %B"},
                      DateCase{u"QQQQ y", kFormat, "%Q %Y"}, DateCase{u"qqq", kFormat, "%#q"},
                      DateCase{u"h:mm:ss a zzzz", kFormat, "%#I:%M:%S %p %Z"}, DateCase{u"hh:mm:ss a", kFormat, "%I:%M:%S %p"},
                      DateCase{u"H:mm", kFormat, "%#H:%M"}, DateCase{u"HH:mm", kFormat, "%H:%M"},
                      DateCase{u"aK:mm", kFormat, "%p%#L:%M"}, DateCase{u"KK", kFormat, "%L"},
                      DateCase{u"k 'h'", kFormat, "%#K h"}, DateCase{u"kk", kFormat, "%K"},
                      DateCase{u"h 'o''clock'", kFormat, "%#I o'clock"},
                      DateCase{u"''yy", kFormat, "'%y"}, DateCase{u"y 'r'. 100%", kFormat, "%Y r. 100%%"},
                      DateCase{u"YYYY-'W'ww", kFormat, kThrows}, DateCase{u"EEEE d MMMM G y", kFormat, "%A %#d %B AD %Y"},
                      DateCase{u"d\u200F/M\u200F/y", kFormat, "%#d/%#m/%Y"}, DateCase{u"h:mm\u202Fa", kFormat, "%#I:%M %p"}));

struct NumberCase {
  const char16_t *pattern, *decimal, *group;
  const char *localised, *canonical;
  int negative_position;
};

void PrintTo(const NumberCase &c, std::ostream *out) { *out << shown(c.pattern); }

class NumberPatterns : public ::testing::TestWithParam<NumberCase> {};

TEST_P(NumberPatterns, TakeTheLocaleMarksOrTheCanonicalForm) {
  const NumberCase &c = GetParam();
  EXPECT_EQ(shown(localise_number_pattern(c.pattern, c.decimal, c.group)), c.localised);
  EXPECT_EQ(shown(canonical_number_pattern(c.pattern)), c.canonical);
  EXPECT_EQ(negative_sign_position(c.pattern), c.negative_position);
}

INSTANTIATE_TEST_SUITE_P(
    LocaleDataRules, NumberPatterns,
    ::testing::Values(
        NumberCase{u"#,##0.00\u00A0\u00A4", u",", u".", "#.##0,00 <U00A4>", "#,##0.# <U00A4>", 1},
        NumberCase{u"\u00A4#,##0.00;(\u00A4#,##0.00)", u".", u",", "<U00A4>#,##0.00;(<U00A4>#,##0.00)",
                   "<U00A4>#,##0.#;(<U00A4>#,##0.#)", 0},
        NumberCase{u"#,##0\u00A0%", u",", u"\u202F", "#<U202F>##0 %", "#,##0.# %", 1},
        NumberCase{u"#,##,##0.###", u".", u",", "#,##,##0.###", "#,##,##0.#", 1},
        NumberCase{u"#,##0.###;#,##0.###-", u",", u".", "#.##0,###;#.##0,###-", "#,##0.#;#,##0.#-", 2},
        NumberCase{u"\u200F#,##0.00\u00A0\u00A4;\u200F-#,##0.00\u00A0\u00A4", u".", u",",
                   "#,##0.00 <U00A4>;-#,##0.00 <U00A4>", "#,##0.# <U00A4>;-#,##0.# <U00A4>", 1},
        NumberCase{u"#,##0.###", u".", u"", "###0.###", "#,##0.#", 1},
        NumberCase{u"'.'#0.0", u",", u".", "'.'#0,0", "'.'#0.#", 1}));

TEST(LocaleDataRules, CombinationsEscapesAndGroupings) {
  EXPECT_EQ(shown(convert_combination_pattern(u"{0} {1}")), "%X %x");
  EXPECT_EQ(shown(convert_combination_pattern(u"{1} 'klo' {0}")), "%x %X");
  EXPECT_EQ(shown(convert_combination_pattern(u"{1}, '\u0432\u043E' {0}")), "%x, %X");
  EXPECT_EQ(shown(convert_combination_pattern(u"{1}\u060C {0}")), "%x<U060C> %X");
  const std::u16string text = u"a\u00a4\u65E5\U0001F600";
  EXPECT_EQ(escape_text(text, EscapeForm::kUpper) + escape_text(text, EscapeForm::kLowerU) + escape_text(text, EscapeForm::kLowerUAndHex),
            "a<U00A4><U65E5><UD83D><UDE00>a<u00A4><u65E5><uD83D><uDE00>a<u00a4><u65e5><ud83d><ude00>");
  EXPECT_EQ(utf16_to_utf8(utf8_to_utf16("z\xC5\x82\xF0\x9F\x98\x80")), "z\xC5\x82\xF0\x9F\x98\x80");
  for (const char *bad : {"\xC5", "\xC5z", "\xFF"}) EXPECT_THROW(utf8_to_utf16(bad), std::runtime_error);
  EXPECT_EQ(grouping_text({u"3", u"3"}) + "|" + grouping_text({u"3", u"2", u"2"}) + "|" + grouping_text({u"-1"}) +
                "|" + grouping_text({u"0", u"0"}) + "|" + grouping_text({}),
            "3|3;2|0|0|0");
}

// A locale directory of two sources, one copying a category of the other.
TEST(GlibcSources, ReadStringsNumbersContinuationsAndCopies) {
  const auto directory = std::filesystem::path(::testing::TempDir()) / ("corvinel_glibc_" + std::to_string(getpid()));
  std::filesystem::create_directories(directory);
  std::ofstream(directory / "xx_XX") << "comment_char %\nescape_char /\n% a comment\nLC_MONETARY\n"
                                        "currency_symbol \"<U20AC>/\"q\xC5\x82\"\nmon_grouping 3;2\n% inside\n"
                                        "p_sign_posn -1\nabmon \"Jan\";/\n      \"M<U00E4>r\"\nEND LC_MONETARY\n";
  std::ofstream(directory / "yy_YY") << "LC_MONETARY\ncopy \"xx_XX\"\np_sign_posn 2\nEND LC_MONETARY\n";
  GlibcLocales sources(directory.string());
  auto monetary = [&](const char *locale, const char *keyword, int index = 0) {
    return shown(sources.text(locale, "LC_MONETARY", keyword, index));
  };
  EXPECT_EQ(monetary("xx_XX", "currency_symbol") + "|" + monetary("xx_XX", "p_sign_posn") + "|" +
                monetary("xx_XX", "abmon", 1) + "|" + monetary("xx_XX", "missing"),
            "<U20AC>\"q<U0142>|-1|M<U00E4>r|");
  EXPECT_EQ(grouping_text(sources.category("xx_XX", "LC_MONETARY")["mon_grouping"]), "3;2");
  // A copy brings the other source's keywords; its own keywords win.
  EXPECT_EQ(monetary("yy_YY", "currency_symbol") + "|" + monetary("yy_YY", "p_sign_posn"), "<U20AC>\"q<U0142>|2");
  EXPECT_THROW(sources.category("yy_YY", "LC_TIME"), std::runtime_error);
  EXPECT_THROW(sources.category("zz_ZZ", "LC_MONETARY"), std::runtime_error);
  std::filesystem::remove_all(directory);
}

}  // namespace

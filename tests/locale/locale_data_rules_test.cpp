// The rules of the locale data generator: CLDR patterns into directives and
// record patterns, the glibc locale source reader, the escape notation.

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

struct DateCase {
  const char16_t *pattern;
  DateFieldStyle style;
  const char *expected;  // escaped
};

void PrintTo(const DateCase &c, std::ostream *out) {
  *out << shown(c.pattern) << (c.style.pad_day ? " padded" : " unpadded")
       << (c.style.standalone_month ? " standalone" : "");
}

constexpr DateFieldStyle kPadded{true, true, false};
constexpr DateFieldStyle kUnpadded{false, false, false};
constexpr DateFieldStyle kStandalone{true, true, true};

const DateCase kDateCases[] = {
    {u"MMMM d, y", kPadded, "%B %d, %Y"},
    {u"MMMM d, y", kUnpadded, "%B %e, %Y"},
    {u"dd.MM.yy", kUnpadded, "%d.%m.%y"},
    {u"y/M/d", kPadded, "%Y/%m/%d"},
    {u"y\u5E74M\u6708d\u65E5EEEE", kUnpadded, "%Y<U5E74>%o<U6708>%e<U65E5>%A"},
    {u"EEE, MMM d", kPadded, "%a, %b %d"},
    {u"MMMM y", kStandalone, "%#B %Y"},
    {u"MMM y", kStandalone, "%#b %Y"},
    {u"LLLL y", kPadded, "%#B %Y"},
    {u"cccc d. MMMM", kUnpadded, "%#A %e. %B"},
    {u"QQQQ y", kPadded, "%Q %Y"},
    {u"y QQQ", kPadded, "%Y %q"},
    {u"qqqq", kPadded, "%#Q"},
    {u"h:mm:ss a", kPadded, "%I:%M:%S %p"},
    {u"HH:mm:ss zzzz", kPadded, "%H:%M:%S %Z"},
    {u"aK:mm", kPadded, "%p%L:%M"},
    {u"k 'h'", kPadded, "%K h"},
    {u"Bh:mm", kPadded, "%p%I:%M"},
    {u"d 'de' MMMM 'de' y", kPadded, "%d de %B de %Y"},
    {u"h 'o''clock'", kPadded, "%I o'clock"},
    {u"''yy", kPadded, "'%y"},
    {u"y 'r'. 100%", kPadded, "%Y r. 100%%"},
    {u"YYYY-'W'ww", kPadded, nullptr},
    {u"EEEE d MMMM G y", kUnpadded, "%A %e %B AD %Y"},
    {u"d\u200F/M\u200F/y", kPadded, "%d/%m/%Y"},
    {u"h:mm\u202Fa", kPadded, "%I:%M %p"},
    {u"d\u00A0MMM", kPadded, "%d %b"},
};

class DatePatterns : public ::testing::TestWithParam<DateCase> {};

TEST_P(DatePatterns, BecomeDirectives) {
  const DateCase &c = GetParam();
  if (c.expected == nullptr) {
    EXPECT_THROW(convert_date_pattern(c.pattern, c.style, u"AD"), std::runtime_error);
  } else {
    EXPECT_EQ(shown(convert_date_pattern(c.pattern, c.style, u"AD")), c.expected);
  }
}

INSTANTIATE_TEST_SUITE_P(LocaleDataRules, DatePatterns, ::testing::ValuesIn(kDateCases));

struct ShapeCase {
  const char16_t *pattern;
  bool posix;
  const char *order;
  const char *separator;
};

void PrintTo(const ShapeCase &c, std::ostream *out) { *out << shown(c.pattern); }

const ShapeCase kShapeCases[] = {
    {u"M/d/yy", false, "MDY", "/"},
    {u"dd.MM.y", false, "DMY", "."},
    {u"y-MM-dd", false, "YMD", "-"},
    {u"d. M. y.", false, "DMY", "."},
    {u"yy. M. d.", false, "YMD", "."},
    {u"d\u200F/M\u200F/y", false, "DMY", "/"},
    {u"d.MM.yy 'г'.", false, "DMY", "."},
    {u"d MMM y", false, "DMY", ""},
    {u"y'年'M'月'd", false, "YMD", ""},
    {u"%d/%m/%Y", true, "DMY", "/"},
    {u"%Y-%m-%d", true, "YMD", "-"},
    {u"%e.%m.%Y", true, "DMY", "."},
    {u"%m/%d/%y", true, "MDY", "/"},
    {u"%A %e %B %Y", true, "DMY", ""},
};

class DateShapes : public ::testing::TestWithParam<ShapeCase> {};

TEST_P(DateShapes, GiveOrderAndSeparator) {
  const ShapeCase &c = GetParam();
  const NumericDateShape shape = c.posix ? posix_date_shape(c.pattern) : numeric_date_shape(c.pattern);
  EXPECT_EQ(shape.order, c.order);
  EXPECT_EQ(shape.separator, c.separator);
}

INSTANTIATE_TEST_SUITE_P(LocaleDataRules, DateShapes, ::testing::ValuesIn(kShapeCases));

TEST(LocaleDataRules, CombinationPatternsNameDateAndTime) {
  EXPECT_EQ(shown(convert_combination_pattern(u"{1}, {0}")), "%x, %X");
  EXPECT_EQ(shown(convert_combination_pattern(u"{0} {1}")), "%X %x");
  EXPECT_EQ(shown(convert_combination_pattern(u"{1} 'klo' {0}")), "%x klo %X");
  EXPECT_EQ(shown(convert_combination_pattern(u"{1}\u060C {0}")), "%x<U060C> %X");
}

struct NumberCase {
  const char16_t *pattern;
  const char16_t *decimal;
  const char16_t *group;
  const char *localised;
  const char *canonical;
  int negative_position;
};

void PrintTo(const NumberCase &c, std::ostream *out) { *out << shown(c.pattern); }

const NumberCase kNumberCases[] = {
    {u"#,##0.###", u".", u",", "#,##0.###", "#,##0.#", 1},
    {u"#,##0.00\u00A0\u00A4", u",", u".", "#.##0,00 <U00A4>", "#,##0.# <U00A4>", 1},
    {u"\u00A4#,##0.00;(\u00A4#,##0.00)", u".", u",", "<U00A4>#,##0.00;(<U00A4>#,##0.00)",
     "<U00A4>#,##0.#;(<U00A4>#,##0.#)", 0},
    {u"\u00A4#,##0", u".", u",", "<U00A4>#,##0", "<U00A4>#,##0.#", 1},
    {u"#,##0\u00A0%", u",", u"\u202F", "#<U202F>##0 %", "#,##0.# %", 1},
    {u"#,##,##0.###", u".", u",", "#,##,##0.###", "#,##,##0.#", 1},
    {u"#,##0.###;#,##0.###-", u",", u".", "#.##0,###;#.##0,###-", "#,##0.#;#,##0.#-", 2},
    {u"\u200F#,##0.00\u00A0\u00A4;\u200F-#,##0.00\u00A0\u00A4", u".", u",", "#,##0.00 <U00A4>;-#,##0.00 <U00A4>",
     "#,##0.# <U00A4>;-#,##0.# <U00A4>", 1},
    {u"#,##0.###", u".", u"", "###0.###", "#,##0.#", 1},
    {u"'.'#0.0", u",", u".", "'.'#0,0", "'.'#0.#", 1},
};

class NumberPatterns : public ::testing::TestWithParam<NumberCase> {};

TEST_P(NumberPatterns, TakeTheLocaleMarksOrTheCanonicalForm) {
  const NumberCase &c = GetParam();
  EXPECT_EQ(shown(localise_number_pattern(c.pattern, c.decimal, c.group)), c.localised);
  EXPECT_EQ(shown(canonical_number_pattern(c.pattern)), c.canonical);
  EXPECT_EQ(negative_sign_position(c.pattern), c.negative_position);
}

INSTANTIATE_TEST_SUITE_P(LocaleDataRules, NumberPatterns, ::testing::ValuesIn(kNumberCases));

TEST(LocaleDataRules, EscapesComeInThreeForms) {
  const std::u16string text = u"a\u00a4\u65E5\U0001F600";
  EXPECT_EQ(escape_text(text, EscapeForm::kUpper), "a<U00A4><U65E5><UD83D><UDE00>");
  EXPECT_EQ(escape_text(text, EscapeForm::kLowerU), "a<u00A4><u65E5><uD83D><uDE00>");
  EXPECT_EQ(escape_text(text, EscapeForm::kLowerUAndHex), "a<u00a4><u65e5><ud83d><ude00>");
  EXPECT_EQ(utf16_to_utf8(utf8_to_utf16("z\xC5\x82\xF0\x9F\x98\x80")), "z\xC5\x82\xF0\x9F\x98\x80");
  EXPECT_THROW(utf8_to_utf16("\xC5"), std::runtime_error);
  EXPECT_THROW(utf8_to_utf16("\xC5z"), std::runtime_error);
  EXPECT_THROW(utf8_to_utf16("\xFF"), std::runtime_error);
}

TEST(LocaleDataRules, GroupingsTakeTheRecordsCoding) {
  EXPECT_EQ(grouping_text({u"3", u"3"}), "3");
  EXPECT_EQ(grouping_text({u"3"}), "3");
  EXPECT_EQ(grouping_text({u"3", u"2"}), "3;2");
  EXPECT_EQ(grouping_text({u"3", u"2", u"2"}), "3;2");
  EXPECT_EQ(grouping_text({u"-1"}), "0");
  EXPECT_EQ(grouping_text({u"0", u"0"}), "0");
  EXPECT_EQ(grouping_text({}), "0");
}

// A locale directory of two sources, one copying a category of the other.
class GlibcSources : public ::testing::Test {
 protected:
  void SetUp() override {
    directory_ = std::filesystem::temp_directory_path() /
                 ("corvinel_glibc_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "_" +
                  ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(directory_);
    write("xx_XX",
          "comment_char %\n"
          "escape_char /\n"
          "% a comment line\n"
          "LC_MONETARY\n"
          "int_curr_symbol     \"XXD \"\n"
          "currency_symbol     \"<U20AC>/\"q\xC5\x82\"\n"
          "mon_grouping        3;2\n"
          "% comment inside\n"
          "positive_sign       \"\"\n"
          "p_sign_posn         -1\n"
          "abmon \"Jan\";\"Feb\";/\n"
          "      \"M<U00E4>r\"\n"
          "END LC_MONETARY\n"
          "LC_NUMERIC\n"
          "decimal_point \",\"\n"
          "grouping 0;0\n"
          "END LC_NUMERIC\n");
    write("yy_YY",
          "LC_MONETARY\n"
          "copy \"xx_XX\"\n"
          "p_sign_posn 2\n"
          "END LC_MONETARY\n");
  }
  void TearDown() override { std::filesystem::remove_all(directory_); }

  void write(const char *name, const char *text) { std::ofstream(directory_ / name) << text; }

  std::filesystem::path directory_;
};

TEST_F(GlibcSources, ReadKeywordsStringsAndNumbers) {
  GlibcLocales sources(directory_.string());
  EXPECT_EQ(shown(sources.text("xx_XX", "LC_MONETARY", "int_curr_symbol")), "XXD ");
  EXPECT_EQ(shown(sources.text("xx_XX", "LC_MONETARY", "currency_symbol")), "<U20AC>\"q<U0142>");
  EXPECT_EQ(shown(sources.text("xx_XX", "LC_MONETARY", "positive_sign")), "");
  EXPECT_EQ(shown(sources.text("xx_XX", "LC_MONETARY", "p_sign_posn")), "-1");
  EXPECT_EQ(shown(sources.text("xx_XX", "LC_MONETARY", "abmon", 2)), "M<U00E4>r");
  EXPECT_EQ(grouping_text(sources.category("xx_XX", "LC_MONETARY")["mon_grouping"]), "3;2");
  EXPECT_EQ(grouping_text(sources.category("xx_XX", "LC_NUMERIC")["grouping"]), "0");
  EXPECT_EQ(shown(sources.text("xx_XX", "LC_MONETARY", "missing")), "");
}

TEST_F(GlibcSources, FollowCopiesWithLocalKeywordsWinning) {
  GlibcLocales sources(directory_.string());
  EXPECT_EQ(shown(sources.text("yy_YY", "LC_MONETARY", "int_curr_symbol")), "XXD ");
  EXPECT_EQ(shown(sources.text("yy_YY", "LC_MONETARY", "p_sign_posn")), "2");
  EXPECT_THROW(sources.category("yy_YY", "LC_TIME"), std::runtime_error);
  EXPECT_THROW(sources.category("zz_ZZ", "LC_MONETARY"), std::runtime_error);
}

}  // namespace

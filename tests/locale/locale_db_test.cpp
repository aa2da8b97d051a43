// The compiled-in locale records (the documented values, the record order
// with the codes that select each record, the invariants of all items) and
// the currency table.

#include <algorithm>
#include <cstring>
#include <map>
#include <regex>
#include <ostream>
#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "corvinel/currency.h"
#include "corvinel/locale_db.h"
#include "corvinel/names.h"
#include "locale/currency_index.h"
#include "locale/orb_locale_env.h"

namespace {

using corvinel::locale::currency_record;
using corvinel::locale::kCurrencyCodes;
using corvinel::testing::locale_item;
using corvinel::testing::locale_number;
using corvinel::testing::ScopedOrbLocale;

// Consecutive items of one record from `first` on, separated by "|"; an
// empty text stands for an absent item (present items are never empty).
struct DocumentedRun {
  const char *record;
  int first;
  const char *texts;
};

void PrintTo(const DocumentedRun &run, std::ostream *out) { *out << run.record << " item " << run.first; }

constexpr DocumentedRun kDocumentedRuns[] = {
    {"English_UnitedStates", 0, "English_UnitedStates|English|en|UnitedStates|en|US"},
    {"English_UnitedStates", 6, "MDY|LETTER||||||NLDATE16.|NLDATM24.|NLTIME8.|BEST12.|PERCENT12.|COMPLEX"},
    {"English_UnitedStates", 28, "%B %d, %Y|%m/%d/%Y|%b %e, %Y|%B %e, %Y|%A, %B %e, %Y|%a, %b %e, %Y"},
    {"English_UnitedStates", 34, "%#B %Y|%#b %Y|%B %d|%b %d|%Y|%y|%Q %Y|%q %Y|Week %U %Y|W%U %y"},
    {"English_UnitedStates", 44, "%B %e, %Y %I:%M:%S %p|%b %e, %Y %I:%M:%S %p|%d%b%Y:%H:%M:%S|%m/%d/%Y %I:%M:%S %p"},
    {"English_UnitedStates", 48, "%b %e, %Y %I:%M:%S %p|%B %e, %Y %I:%M:%S %p|%A, %B %e, %Y %I:%M:%S %p"},
    {"English_UnitedStates", 51, "%a, %b %e, %Y %I:%M:%S %p|%I:%M:%S %p|%H:%M:%S|%I:%M %p|%I:%M:%S %p"},
    {"English_UnitedStates", 56, "%I:%M:%S %p %Z|%I:%M:%S %p %Z|%x %X|Jan"}, {"English_UnitedStates", 71, "January"},
    {"English_UnitedStates", 83, "Jan"}, {"English_UnitedStates", 95, "January"},
    {"English_UnitedStates", 107, "Sun"}, {"English_UnitedStates", 114, "Sunday"},
    {"English_UnitedStates", 128, "Sunday"}, {"English_UnitedStates", 135, "Q1"},
    {"English_UnitedStates", 139, "1st quarter"},
    {"English_UnitedStates", 151, "AM|PM|/|0|USD|$|.|,|3||-|2|2|1|0|1|0|1|0"},
    {"English_UnitedStates", 170, "<u00a4>#,##0.00;(<u00a4>#,##0.00)|<U00A4>#,##0.#;(<U00A4>#,##0.#)|.|,|3||-"},
    {"English_UnitedStates", 177, "1|0|1|0|1|1|#,##0.###|#,##0.#|#,##0%|#,##0.#%|279|216"},
    {"German_Germany", 4, "de|DE|DMY|A4"}, {"German_Germany", 28, "%d. %B %Y|%d.%m.%y"},
    {"German_Germany", 32, "%A, %e. %B %Y"}, {"German_Germany", 42, "Week %V %G"},
    {"German_Germany", 46, "%d. %B %Y %H.%M Uhr"}, {"German_Germany", 53, "%H.%M Uhr"},
    {"German_Germany", 56, "%H:%M:%S %Z"}, {"German_Germany", 71, "Januar"}, {"German_Germany", 107, "So."},
    {"German_Germany", 114, "Sonntag"}, {"German_Germany", 121, "So"}, {"German_Germany", 139, "1. Quartal"},
    {"German_Germany", 151, "vorm.|nachm.|.|1|EUR|<U20AC>|,|.|3"},
    {"German_Germany", 162, "2|2|0|1|0|1|1|1|#.##0,00 <u00a4>|#,##0.# <U00A4>|,|."},
    {"German_Germany", 182, "1|#.##0,###"}, {"German_Germany", 185, "#.##0%|#,##0.# %|297|210"},
    {"Japanese_Japan", 4, "ja|JP|YMD|A4"}, {"Japanese_Japan", 28, "%Y<U5E74>%m<U6708>%d<U65E5>|%Y/%m/%d"},
    {"Japanese_Japan", 32, "%Y<u5E74>%o<u6708>%e<u65E5> %A"}, {"Japanese_Japan", 42, "%Y-W%U"},
    {"Japanese_Japan", 46, "%Y<U5E74>%m<U6708>%d<U65E5> %H<U6642>%M<U5206>%S<U79D2>"},
    {"Japanese_Japan", 53, "%H<U6642>%M<U5206>%S<U79D2>"}, {"Japanese_Japan", 56, "%H:%M:%S %Z"},
    {"Japanese_Japan", 71, "1<U6708>"}, {"Japanese_Japan", 114, "<U65E5><U66DC><U65E5>"},
    {"Japanese_Japan", 139, "<U7B2C>1<U56DB><U534A><U671F>"},
    {"Japanese_Japan", 151, "<U5348><U524D>|<U5348><U5F8C>|/|0|JPY|<UFFE5>|.|,|3"},
    {"Japanese_Japan", 162, "0|0|1|0|1|0|1|1|<u00a4>#,##0|<U00A4>#,##0.#|.|,"},
    {"Japanese_Japan", 182, "1|#,##0.###"}, {"Japanese_Japan", 185, "#,##0%|#,##0.#%|297|210"},
    {"Arabic_Algeria", 4, "ar|DZ|YMD|A4"}, {"Arabic_Algeria", 28, "%d %B, %Y|%Y/%m/%d"},
    {"Arabic_Algeria", 32, "%A<u060C> %e %B<u060C> %Y"}, {"Arabic_Algeria", 42, "%Y-W%U"},
    {"Arabic_Algeria", 46, "%d %B, %Y %H:%M:%S"}, {"Arabic_Algeria", 53, "%H:%M:%S"},
    {"Arabic_Algeria", 56, "%Z %I:%M:%S %p"}, {"Arabic_Algeria", 71, "<U064A><U0646><U0627><U064A><U0631>"},
    {"Arabic_Algeria", 114, "<U0627><U0644><U0623><U062D><U062F>"},
    {"Arabic_Algeria", 139, "<U0627><U0644><U0631><U0628><U0639> <U0627><U0644><U0623><U0648><U0644>"},
    {"Arabic_Algeria", 151, "<U0635>|<U0645>|/|6|DZD|<U062F>.<U062C>.<U200F>|,|.|3"},
    {"Arabic_Algeria", 162, "2|2|1|1|1|1|1|2|<u00a4> #,##0.00;<u00a4> #,##0.00-|<U00A4> #,##0.#;<U00A4> #,##0.#-|,|."},
    {"Arabic_Algeria", 182, "2|#,##0.###;#,##0.###-"}, {"Arabic_Algeria", 185, "#,##0%|#,##0.#%|297|210"},
    {"Polish_Poland", 71, "stycznia"}, {"Polish_Poland", 95, "stycze<U0144>"}, {"Czech_CzechRepublic", 71, "ledna"},
    {"Czech_CzechRepublic", 95, "leden"}, {"Italian_Italy", 71, "gennaio"}, {"Italian_Italy", 95, "Gennaio"},
    {"Hungarian_Hungary", 139, "I. negyed<U00E9>v"}, {"Hungarian_Hungary", 147, "1. negyed<U00E9>v"},
    {"Polish_XX", 4, "pl|XX"}, {"Polish_XX", 155, "PLN|z<U0142>"}, {"Polish_XX", 183, "#<u00a0>##0,###"},
    {"Chinese_XX", 4, "zh|XX"}, {"Chinese_XX", 29, "%y-%m-%d"},
};

class DocumentedValues : public ::testing::TestWithParam<DocumentedRun> {};

TEST_P(DocumentedValues, ReadBackThroughGetORBLocDB) {
  const DocumentedRun &run = GetParam();
  const int32_t locale = locale_number(run.record);
  ASSERT_NE(locale, 0) << "no record " << run.record;
  const std::string_view texts = run.texts;
  for (std::size_t start = 0, item = run.first;; ++item) {
    const std::size_t end = texts.find('|', start);
    EXPECT_EQ(locale_item(locale, item), std::string(texts.substr(start, end - start))) << "item " << item;
    if (end == std::string_view::npos) break;
    start = end + 1;
  }
}

INSTANTIATE_TEST_SUITE_P(LocaleDb, DocumentedValues, ::testing::ValuesIn(kDocumentedRuns));

std::string text(int32_t locale, int32_t item) { return locale_item(locale, item).value_or("(failed)"); }

uint32_t code_number(std::string code) {
  uint32_t id = 0;
  EXPECT_EQ(LocnameToID(code.data(), 5, &id), 0) << code;
  return id;
}

// The records in their fixed order: each answers to its language and country
// code, by the number of the code in the name lookup and in ORB_LOCALE; the
// alternative codes answer in the name lookup only.
TEST(LocaleRecords, FollowTheFixedOrderAndAnswerToTheirCodes) {
  const std::set<std::string> traditional = {"Chinese_HongKong", "Chinese_Macau", "Chinese_Taiwan"};
  for (int32_t n = 1; n <= CORVINEL_LOCALE_RECORDS; ++n) {
    const std::string name = text(n, 0), code = text(n, 4) + "_" + text(n, 5);
    SCOPED_TRACE(name);
    EXPECT_EQ(text(n, 1) + "_" + text(n, 3), name);
    EXPECT_EQ(text(n, 2), traditional.contains(name) ? "zt" : text(n, 4));
    EXPECT_EQ(code_number(code), static_cast<uint32_t>(n));
    ScopedOrbLocale environment(code.c_str());
    EXPECT_EQ(locale_item(0, 0), name);
  }
  for (const auto &[code, number] : std::map<std::string, uint32_t>{
           {"iw_IL", 71}, {"sr_CS", 101}, {"sh_CS", 105}, {"sh_YU", 105}}) {
    EXPECT_EQ(code_number(code), number);
    ScopedOrbLocale environment(code.c_str());
    EXPECT_EQ(locale_item(0, 0), std::nullopt) << code;
  }
}

bool lower_case_escape_allowed(int item) {
  return (item >= 28 && item <= 35) || (item >= 44 && item <= 51) || item == 56 || item == 57 ||
         (item >= 59 && item <= 82) || (item >= 107 && item <= 120) || item == 170 || item == 183 || item == 185;
}

// Texts: short printable ASCII whose escapes are complete, lower-case ones only where the data has them.
TEST(LocaleRecords, ItemsAreShortAsciiWithWellFormedEscapes) {
  const std::regex notation("(?:[\\x20-\\x3B\\x3D-\\x7E]|<[Uu][0-9A-Fa-f]{4}>|<(?![Uu]))*");
  for (int32_t n = 1; n <= CORVINEL_LOCALE_RECORDS; ++n) {
    for (int item = 0; item < CORVINEL_LOCALE_ITEMS; ++item) {
      const locitem &stored = ORBlocaleData[n - 1][item];
      SCOPED_TRACE(text(n, 0) + " item " + std::to_string(item));
      if (stored.text == nullptr) {
        EXPECT_EQ(stored.length, 0);
        continue;
      }
      const std::string t = stored.text;
      EXPECT_TRUE(stored.length > 0 && stored.length <= 159 && static_cast<std::size_t>(stored.length) == t.size());
      EXPECT_TRUE(std::regex_match(t, notation)) << t;
      EXPECT_TRUE(t.find("<u") == std::string::npos || lower_case_escape_allowed(item)) << t;
    }
  }
}

// The order of the parts of a short date pattern and the mark after the first part.
std::pair<std::string, std::string> date_shape(const std::string &pattern) {
  std::string order, between;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '%' || i + 1 == pattern.size()) {
      if (order.size() == 1 && pattern[i] != ' ') between.push_back(pattern[i]);
      continue;
    }
    const char d = pattern[++i];
    const char part = d == 'd' || d == 'e' ? 'D' : std::strchr("mobB", d) ? 'M' : d == 'y' || d == 'Y' ? 'Y' : 0;
    if (part != 0) order.push_back(part);
  }
  return {order, between};
}

bool is_number(const std::string &t) { return !t.empty() && t.find_first_not_of("0123456789") == std::string::npos; }

TEST(LocaleRecords, ItemsKeepTheirConventions) {
  const std::set<std::string> positions = {"0", "1", "2", "3", "4"};
  const std::map<int, std::set<std::string>> values = {
      {6, {"DMY", "MDY", "YMD"}}, {7, {"A4", "LETTER"}}, {153, {"/", ".", "-"}}, {154, {"0", "1", "6"}},
      {159, {"3", "3;2", "0"}},   {174, {"3", "3;2", "0"}}, {168, positions},    {169, positions},
      {181, positions},           {182, positions},
      {12, {"", "cs", "de", "es", "fr", "hu", "it", "ja", "ko", "pl", "ru", "sv", "zh", "zt"}},
      {42, {"Week %U %Y", "Week %W %Y", "Week %V %G", "%Y-W%U", "%G-W%V", "%Y-W%W"}}};
  std::map<std::string, int> counts;  // by "item=value"
  std::set<std::string> pairs;
  for (int32_t n = 1; n <= CORVINEL_LOCALE_RECORDS; ++n) {
    SCOPED_TRACE(text(n, 0));
    for (const auto &[item, allowed] : values) {
      EXPECT_TRUE(allowed.contains(text(n, item))) << item;
      ++counts[std::to_string(item) + "=" + text(n, item)];
    }
    EXPECT_EQ(text(n, 9) + text(n, 11), "");
    EXPECT_EQ(text(n, 13) + text(n, 14) + text(n, 15) + text(n, 16) + text(n, 17),
              "NLDATE16.NLDATM24.NLTIME8.BEST12.PERCENT12.");
    EXPECT_NE(text(n, 170).find("<u00a4>"), std::string::npos);
    EXPECT_NE(text(n, 171).find("<U00A4>"), std::string::npos);
    // Items 6 and 153 describe the short date of item 29.
    EXPECT_EQ(date_shape(text(n, 29)), std::make_pair(text(n, 6), text(n, 153))) << text(n, 29);
    for (const int item : {162, 163, 164, 165, 166, 167, 177, 178, 179, 180, 187, 188}) {
      EXPECT_TRUE(is_number(text(n, item))) << item;
    }
    EXPECT_EQ(text(n, 187) + "x" + text(n, 188), text(n, 7) == "LETTER" ? "279x216" : "297x210");
    if (text(n, 159) == "3;2") { EXPECT_EQ(text(n, 5) + text(n, 174), "IN3;2"); }
    EXPECT_TRUE(pairs.insert(text(n, 4) + text(n, 5)).second) << "language and country pair repeats";
    // Both name sets are complete: a standalone name never stands in for a missing one.
    std::set<std::string> months;
    for (int item = 59; item <= 152; ++item) EXPECT_NE(text(n, item), "") << item;
    for (int item = 71; item <= 82; ++item) months.insert(text(n, item));
    EXPECT_EQ(months.size(), 12u);
  }
  EXPECT_EQ(counts["7=LETTER"], 15);
  EXPECT_EQ(counts["12="], 88);
  EXPECT_EQ(counts["159=3;2"] + counts["174=3;2"], 12);
}

// lconv_monetary: sorted by code, in step with the code list the currency
// formats index (the currencies with formats are checked when they
// compile), with every currency a record names but two withdrawn ones
// glibc still has (the Belarusian rouble of before 2016, the bolivar fuerte).
TEST(CurrencyTable, IsSortedAndComplete) {
  for (int i = 0; i < CORVINEL_CURRENCY_RECORDS; ++i) {
    EXPECT_EQ(kCurrencyCodes[i], lconv_monetary[i].int_curr_symbol);
    if (i > 0) { EXPECT_LT(kCurrencyCodes[i - 1], kCurrencyCodes[i]); }
    EXPECT_STRNE(lconv_monetary[i].currency_symbol, "");
  }
  for (int32_t n = 1; n <= CORVINEL_LOCALE_RECORDS; ++n) {
    const std::string code = text(n, 155);
    if (code != "BYR" && code != "VEF") { EXPECT_TRUE(std::ranges::binary_search(kCurrencyCodes, code)) << code; }
  }
}

TEST(CurrencyTable, DocumentedRecords) {
  const monetary_conventions &c = lconv_monetary[0];
  EXPECT_EQ(std::string(c.int_curr_symbol) + "|" + c.currency_symbol + "|" + c.mon_decimal_point + "|" +
                c.mon_thousands_sep + "|" + c.mon_grouping + "|" + c.positive_sign + "|" + c.negative_sign,
            "AED|<U062F>.<U0625>.|.|,|3| |-");
  EXPECT_EQ(std::string({c.int_frac_digits, c.frac_digits, c.p_cs_precedes, c.p_sep_by_space, c.n_cs_precedes,
                         c.n_sep_by_space, c.p_sign_posn, c.n_sign_posn}),
            std::string({3, 3, 1, 1, 1, 1, 1, 2}));
  EXPECT_STREQ(currency_record("AUD")->currency_symbol, "AU$");
  const monetary_conventions &bgn = *currency_record("BGN");
  EXPECT_EQ(std::string(bgn.currency_symbol) + bgn.mon_decimal_point + bgn.mon_thousands_sep, "<U043B><U0432>, ");
}

}  // namespace

// The locale database: the compiled-in records (the documented values, the
// record order with the codes that select each record, the notation and
// conventions of all items), the currency table, getORBLocDB's choice of
// the record by number or by ORB_LOCALE and its copy into the caller's
// buffer, and wzssglc's plain items and pattern conventions.

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>
#include <ostream>
#include <regex>
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
using corvinel::testing::ScopedOrbLocale;

// An item read with getORBLocDB: its text, "" for an absent item, nullopt when the fetch fails.
std::optional<std::string> locale_item(int32_t locale, int32_t item) {
  char buffer[CORVINEL_LOCALE_TEXT];
  const int32_t length = getORBLocDB(buffer, sizeof buffer, item, locale);
  return length < 0 ? std::nullopt : std::optional<std::string>(std::string(buffer, static_cast<std::size_t>(length)));
}

std::string text(int32_t locale, int32_t item) { return locale_item(locale, item).value_or("(failed)"); }

// The 1-based locale number of the record named `name`, 0 if none.
int32_t locale_number(const std::string &name) {
  for (int32_t n = 1; n <= CORVINEL_LOCALE_RECORDS; ++n) {
    if (text(n, 0) == name) return n;
  }
  return 0;
}

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
    {"English_UnitedStates", 27, "ITALIC"},
    {"English_UnitedStates", 28, "%B %d, %Y|%m/%d/%Y|%b %e, %Y|%B %e, %Y|%A, %B %e, %Y|%a, %b %e, %Y"},
    {"English_UnitedStates", 34, "%#B %Y|%#b %Y|%B %d|%b %d|%Y|%y|%Q %Y|%q %Y|Week %U %Y|W%U %y"},
    {"English_UnitedStates", 44, "%B %e, %Y %I:%M:%S %p|%b %e, %Y %I:%M:%S %p|%d%b%Y:%H:%M:%S|%m/%d/%Y %I:%M:%S %p"},
    {"English_UnitedStates", 48, "%b %e, %Y %I:%M:%S %p|%B %e, %Y %I:%M:%S %p|%A, %B %e, %Y %I:%M:%S %p"},
    {"English_UnitedStates", 51, "%a, %b %e, %Y %I:%M:%S %p|%I:%M:%S %p|%H:%M:%S|%I:%M %p|%I:%M:%S %p"},
    {"English_UnitedStates", 56, "%I:%M:%S %p %Z|%I:%M:%S %p %Z|%x %X|Jan"}, {"English_UnitedStates", 71, "January"},
    {"English_UnitedStates", 95, "January"}, {"English_UnitedStates", 114, "Sunday"},
    {"English_UnitedStates", 135, "Q1"}, {"English_UnitedStates", 139, "1st quarter"},
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
    {"Japanese_Japan", 162, "0|0|1|0|1|0|1|1|<u00a4>#,##0|<U00A4>#,##0.#|.|,"}, {"Japanese_Japan", 182, "1|#,##0.###"},
    {"Japanese_Japan", 185, "#,##0%|#,##0.#%|297|210"}, {"Arabic_Algeria", 4, "ar|DZ|YMD|A4"},
    {"Arabic_Algeria", 28, "%d %B, %Y|%Y/%m/%d"}, {"Arabic_Algeria", 32, "%A<u060C> %e %B<u060C> %Y"},
    {"Arabic_Algeria", 42, "%Y-W%U"}, {"Arabic_Algeria", 46, "%d %B, %Y %H:%M:%S"}, {"Arabic_Algeria", 53, "%H:%M:%S"},
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

// The order of the parts of a short date pattern and the mark after the first part.
std::pair<std::string, std::string> date_shape(const std::string &pattern) {
  std::string order, between;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '%' || i + 1 == pattern.size()) {
      if (order.size() == 1 && pattern[i] != ' ') between.push_back(pattern[i]);
      continue;
    }
    while (i + 1 < pattern.size() && std::strchr("#0+?", pattern[i + 1]) != nullptr) ++i;  // flags
    const char d = pattern[++i];
    const char part = d == 'd' || d == 'e' ? 'D' : std::strchr("mobB", d) ? 'M' : d == 'y' || d == 'Y' ? 'Y' : 0;
    if (part != 0) order.push_back(part);
  }
  return {order, between};
}

bool is_number(const std::string &t) { return !t.empty() && t.find_first_not_of("0123456789") == std::string::npos; }

// Texts: short printable ASCII whose escapes are complete, lower-case ones only where the data has them;
// coded items with their values; the conventions every record keeps.
TEST(LocaleRecords, ItemsKeepTheirNotationAndConventions) {
  const std::regex notation("(?:[\\x20-\\x3B\\x3D-\\x7E]|<[Uu][0-9A-Fa-f]{4}>|<(?![Uu]))*");
  const std::set<std::string> positions = {"0", "1", "2", "3", "4"};
  const std::map<int, std::set<std::string>> values = {
      {6, {"DMY", "MDY", "YMD"}}, {7, {"A4", "LETTER"}}, {153, {"/", ".", "-"}}, {154, {"0", "1", "6"}},
      {159, {"3", "3;2", "0"}},   {174, {"3", "3;2", "0"}}, {168, positions},    {169, positions},
      {181, positions},           {182, positions},
      {12, {"", "cs", "de", "es", "fr", "hu", "it", "ja", "ko", "pl", "ru", "sv", "zh", "zt"}},
      // The Buddhist record counts its weeks' years in its era, after the era's marker.
      {42, {"Week %U %Y", "Week %W %Y", "Week %V %G", "%Y-W%U", "%G-W%V", "Week %U <U0E1E>.<U0E28>. %+Y"}},
      {58, {"%x %X", "%x%X", "%x, %X", "%X %x", "%x<U060C> %X"}}};
  std::map<std::string, int> counts;  // by "item=value"
  std::set<std::string> pairs;
  for (int32_t n = 1; n <= CORVINEL_LOCALE_RECORDS; ++n) {
    SCOPED_TRACE(text(n, 0));
    for (int item = 0; item < CORVINEL_LOCALE_ITEMS; ++item) {
      const locitem &stored = ORBlocaleData[n - 1][item];
      const std::string t = stored.text ? stored.text : "";
      EXPECT_TRUE(stored.text ? stored.length > 0 && stored.length <= 159 && t.size() == std::size_t(stored.length)
                              : stored.length == 0) << item;
      EXPECT_TRUE(std::regex_match(t, notation) && (t.find("<u") == std::string::npos || lower_case_escape_allowed(item)))
          << item << ": " << t;
    }
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
    // Left out of the currency table: two withdrawn currencies glibc still has.
    if (text(n, 155) != "BYR" && text(n, 155) != "VEF") { EXPECT_TRUE(std::ranges::binary_search(kCurrencyCodes, text(n, 155))); }
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

// lconv_monetary: sorted by code, in step with the code list the currency formats index (the currencies with
// formats are checked when they compile).
TEST(CurrencyTable, IsSortedByCode) {
  for (int i = 0; i < CORVINEL_CURRENCY_RECORDS; ++i) {
    EXPECT_EQ(kCurrencyCodes[i], lconv_monetary[i].int_curr_symbol);
    if (i > 0) { EXPECT_LT(kCurrencyCodes[i - 1], kCurrencyCodes[i]); }
    EXPECT_STRNE(lconv_monetary[i].currency_symbol, "");
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

struct EnvironmentCase {
  const char *value;   // nullptr: the variable is not set
  const char *record;  // nullptr: every fetch fails
};

void PrintTo(const EnvironmentCase &c, std::ostream *out) { *out << (c.value ? c.value : "(unset)"); }

const std::string kLongValue = "fr_CA" + std::string(600, 'x');

class EnvironmentChoice : public ::testing::TestWithParam<EnvironmentCase> {};

// Numbers outside 1..136 take the environment, read anew on every call; record numbers ignore it.
TEST_P(EnvironmentChoice, SelectsTheRecordForEveryNonRecordNumber) {
  const EnvironmentCase &c = GetParam();
  ScopedOrbLocale locale(c.value);
  for (const int32_t number : {0, 137, -1, INT_MIN, INT_MAX}) {
    EXPECT_EQ(locale_item(number, 0), c.record ? std::optional<std::string>(c.record) : std::nullopt) << number;
  }
  EXPECT_EQ(text(1, 0) + " " + text(136, 0), "Afrikaans_SouthAfrica Chinese_XX");
}

INSTANTIATE_TEST_SUITE_P(
    LocaleSelection, EnvironmentChoice,
    ::testing::Values(EnvironmentCase{nullptr, "English_UnitedStates"}, EnvironmentCase{"", nullptr},
                      EnvironmentCase{"DE-de", "German_Germany"}, EnvironmentCase{"fr CA", "French_Canada"},
                      EnvironmentCase{"de_DE.UTF-8", "German_Germany"}, EnvironmentCase{"sr_RS@latin", "Serbian_Serbia"},
                      EnvironmentCase{"zt_TW", nullptr}, EnvironmentCase{"en_XX", nullptr}, EnvironmentCase{"en", nullptr},
                      EnvironmentCase{"en_U", nullptr}, EnvironmentCase{"\xC3\xA9n_US", nullptr},
                      EnvironmentCase{kLongValue.c_str(), "French_Canada"}));

struct CapacityCase {
  const char *label;
  int32_t locale, item, spare, expected;  // locale 0: ORB_LOCALE (matching nothing); spare: outcap minus the
                                          // item's length; expected: the result, kLength the item's length
};

void PrintTo(const CapacityCase &c, std::ostream *out) { *out << c.label; }

constexpr int32_t kLength = -2, kEnglish = 53;

class Capacity : public ::testing::TestWithParam<CapacityCase> {};

// The item is copied whole or not at all; exactly outcap bytes are zero-filled around it.
TEST_P(Capacity, CopiesWhatFitsAndNeverTruncates) {
  const CapacityCase &c = GetParam();
  ScopedOrbLocale environment("xx_YY");
  const locitem *stored = c.item >= 0 && c.item < CORVINEL_LOCALE_ITEMS ? &ORBlocaleData[kEnglish - 1][c.item] : nullptr;
  const int32_t outcap = (stored ? stored->length : 0) + c.spare;
  const auto room = static_cast<std::size_t>(std::max(outcap, 0));
  std::string buffer(room + 4, 'Z'), expected = std::string(room, '\0') + "ZZZZ";
  const int32_t result = getORBLocDB(buffer.data(), outcap, c.item, c.locale);
  EXPECT_EQ(result, c.expected == kLength ? stored->length : c.expected);
  if (result > 0) expected.replace(0, static_cast<std::size_t>(result), stored->text);
  EXPECT_EQ(buffer, expected);
}

INSTANTIATE_TEST_SUITE_P(
    LocaleSelection, Capacity,
    ::testing::Values(CapacityCase{"exact_fit_has_no_terminator", kEnglish, 0, 0, kLength},
                      CapacityCase{"one_short_fails", kEnglish, 0, -1, -1},
                      CapacityCase{"room_to_spare_is_zero_filled", kEnglish, 0, 5, kLength},
                      CapacityCase{"absent_item_fits_no_room", kEnglish, 9, 0, 0},
                      CapacityCase{"negative_capacity_fails_for_absent_items", kEnglish, 9, -1, -1},
                      CapacityCase{"item_below_range", kEnglish, -1, 10, -1}, CapacityCase{"item_above_range", kEnglish, 189, 10, -1},
                      CapacityCase{"no_record_leaves_zeros", 0, 0, 32, -1}));

constexpr uint64_t kReserved = 0x1234;

// An item buffer with its symbol block, filled by `fetch`; fracdigits is left as it was but for currency patterns.
struct Fetch {
  patsyms symbols{};
  locbuf buffer{kReserved, 0, {}, &symbols};
  int32_t result;
  template <typename Fn>
  Fetch(Fn fetch, int32_t locale, int32_t item) {
    symbols.fracdigits = 777;
    result = fetch(locale, item, buffer);
  }
};

int32_t fast_wzssglc(int32_t locale, int32_t item, locbuf &buffer) {
  locbuf *handle = &buffer;
  return wzssglc(locale, item, &handle);
}

// wzssglc as first written: each convention fetched into a buffer of its
// own, in the documented order; the result is that of the last fetch.
int32_t reference_wzssglc(int32_t locale, int32_t item, locbuf &buffer) {
  int32_t result = 0;
  auto fetch = [&](int32_t code) {
    char text[CORVINEL_LOCALE_TEXT];
    const int32_t length = getORBLocDB(text, sizeof text, code, locale);
    result = length < 0 ? 1 : 0;
    return std::string(text, static_cast<std::size_t>(std::max(length, 0)));
  };
  auto digits = [&](int32_t code) { return std::atoi(fetch(code).c_str()); };
  auto put = [](char *field, const std::string &text) { std::memcpy(field, text.data(), text.size()); };
  buffer.length = getORBLocDB(buffer.text, sizeof buffer.text, item, locale);
  const bool money = item == 170 || item == 171, percent = item == 185 || item == 186;
  if (!money && !percent && item != 183 && item != 184) return buffer.length < 0 ? 1 : 0;
  patsyms &s = *buffer.symbols;
  for (char *field : {s.symbol, s.decimal, s.separator, s.positive, s.negative}) std::memset(field, 0, CORVINEL_LOCALE_TEXT);
  if (money) put(s.symbol, fetch(item == 170 ? 156 : 155));
  if (percent) put(s.symbol, "%");
  if (item == 184 || item == 186) {
    put(s.decimal, ".");
    put(s.separator, ",");
    s.grouping = 3;
  } else {
    put(s.decimal, fetch(money ? 157 : 172));
    put(s.separator, fetch(money ? 158 : 173));
    s.grouping = 0;
    for (const char c : fetch(money ? 159 : 174)) s.grouping = c - '0';  // deliberately the last digit
  }
  put(s.positive, fetch(money ? 160 : 175));
  put(s.negative, fetch(money ? 161 : 176));
  if (percent) {
    s.p_cs_precedes = s.p_sep_by_space = s.n_cs_precedes = s.n_sep_by_space = 0;
    s.p_sign_posn = s.n_sign_posn = 1;
    return result;
  }
  // Items 164..169 (177..182): p_cs, p_sep, n_cs, n_sep, p_posn and, fetched last, n_posn.
  int32_t *flags[] = {&s.p_cs_precedes, &s.p_sep_by_space, &s.n_cs_precedes, &s.n_sep_by_space, &s.p_sign_posn, &s.n_sign_posn};
  for (int k = 0; k < 6; ++k) *flags[k] = digits((money ? 164 : 177) + k);
  if (money) s.fracdigits = digits(item == 170 ? 163 : 162);
  return result;
}

TEST(PatternSymbols, AgreeWithFetchingEveryConventionOnItsOwn) {
  for (const char *value : {static_cast<const char *>(nullptr), "hi_IN", "", "xx_XX"}) {
    ScopedOrbLocale environment(value);
    const int32_t last = value == nullptr ? CORVINEL_LOCALE_RECORDS : 0;
    for (int32_t locale = 0; locale <= last; ++locale) {
      for (const int32_t item : {170, 171, 183, 184, 185, 186, 0, 9, 155}) {
        SCOPED_TRACE("locale " + std::to_string(locale) + " item " + std::to_string(item));
        const Fetch fast(fast_wzssglc, locale, item), reference(reference_wzssglc, locale, item);
        EXPECT_EQ(fast.result, reference.result);
        EXPECT_EQ(fast.buffer.reserved, kReserved);
        EXPECT_EQ(fast.buffer.length, reference.buffer.length);
        EXPECT_EQ(std::memcmp(fast.buffer.text, reference.buffer.text, sizeof fast.buffer.text), 0);
        EXPECT_EQ(std::memcmp(&fast.symbols, &reference.symbols, sizeof fast.symbols), 0);
      }
    }
  }
}

std::string summary(const Fetch &f) {
  const patsyms &s = f.symbols;
  return std::to_string(f.result) + "|" + f.buffer.text + "|" + s.symbol + "|" + s.decimal + "|" + s.separator + "|" +
         std::to_string(s.grouping) + "|" + s.positive + "|" + s.negative + "|" + std::to_string(s.fracdigits) + "|" +
         std::to_string(s.p_cs_precedes) + std::to_string(s.p_sep_by_space) + std::to_string(s.p_sign_posn) +
         std::to_string(s.n_cs_precedes) + std::to_string(s.n_sep_by_space) + std::to_string(s.n_sign_posn);
}

TEST(PatternSymbols, DocumentedConventions) {
  EXPECT_EQ(summary(Fetch(fast_wzssglc, 53, 183)), "0|#,##0.###||.|,|3||-|777|101101");
  EXPECT_EQ(summary(Fetch(fast_wzssglc, 64, 170)), "0|#.##0,00 <u00a4>|<U20AC>|,|.|3||-|2|011011");
  EXPECT_EQ(Fetch(fast_wzssglc, locale_number("Hindi_India"), 185).symbols.grouping, 2) << "the last digit of 3;2";
}

// A null buffer only takes an absent item; bad handles fail without touching anything.
TEST(PatternSymbols, NullBuffersAndBadHandlesFail) {
  EXPECT_EQ(getORBLocDB(nullptr, 0, 9, kEnglish), 0);
  EXPECT_EQ(getORBLocDB(nullptr, 100, 0, kEnglish), -1);
  locbuf buffer{kReserved, 0, {}, nullptr};
  locbuf *none = nullptr, *handle = &buffer;
  EXPECT_EQ(wzssglc(53, 0, nullptr) + wzssglc(53, 0, &none), 2);
  EXPECT_EQ(wzssglc(53, 170, &handle), 1) << "a pattern item needs a symbol block";
  EXPECT_EQ(buffer.length, 33);
  EXPECT_EQ(buffer.reserved, kReserved);
}

}  // namespace

// The compiled-in locale records: the documented values, the record order,
// and the invariants every item keeps.

#include <array>
#include <cctype>
#include <cstring>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "corvinel/locale_db.h"
#include "locale/orb_locale_env.h"

namespace {

using corvinel::testing::locale_item;
using corvinel::testing::locale_number;

constexpr const char *kAbsent = nullptr;

struct DocumentedValue {
  const char *record;
  int item;
  const char *text;  // kAbsent for an absent item
};

void PrintTo(const DocumentedValue &value, std::ostream *out) {
  *out << value.record << " item " << value.item;
}

// The values the database documents for its telling records.
constexpr DocumentedValue kDocumentedValues[] = {
    {"English_UnitedStates", 0, "English_UnitedStates"},
    {"English_UnitedStates", 1, "English"},
    {"English_UnitedStates", 2, "en"},
    {"English_UnitedStates", 3, "UnitedStates"},
    {"English_UnitedStates", 4, "en"},
    {"English_UnitedStates", 5, "US"},
    {"English_UnitedStates", 6, "MDY"},
    {"English_UnitedStates", 7, "LETTER"},
    {"English_UnitedStates", 8, kAbsent},
    {"English_UnitedStates", 9, kAbsent},
    {"English_UnitedStates", 10, kAbsent},
    {"English_UnitedStates", 11, kAbsent},
    {"English_UnitedStates", 12, kAbsent},
    {"English_UnitedStates", 13, "NLDATE16."},
    {"English_UnitedStates", 14, "NLDATM24."},
    {"English_UnitedStates", 15, "NLTIME8."},
    {"English_UnitedStates", 16, "BEST12."},
    {"English_UnitedStates", 17, "PERCENT12."},
    {"English_UnitedStates", 18, "COMPLEX"},
    {"English_UnitedStates", 28, "%B %d, %Y"},
    {"English_UnitedStates", 29, "%m/%d/%Y"},
    {"English_UnitedStates", 30, "%b %e, %Y"},
    {"English_UnitedStates", 31, "%B %e, %Y"},
    {"English_UnitedStates", 32, "%A, %B %e, %Y"},
    {"English_UnitedStates", 33, "%a, %b %e, %Y"},
    {"English_UnitedStates", 34, "%#B %Y"},
    {"English_UnitedStates", 35, "%#b %Y"},
    {"English_UnitedStates", 36, "%B %d"},
    {"English_UnitedStates", 37, "%b %d"},
    {"English_UnitedStates", 38, "%Y"},
    {"English_UnitedStates", 39, "%y"},
    {"English_UnitedStates", 40, "%Q %Y"},
    {"English_UnitedStates", 41, "%q %Y"},
    {"English_UnitedStates", 42, "Week %U %Y"},
    {"English_UnitedStates", 43, "W%U %y"},
    {"English_UnitedStates", 44, "%B %e, %Y %I:%M:%S %p"},
    {"English_UnitedStates", 45, "%b %e, %Y %I:%M:%S %p"},
    {"English_UnitedStates", 46, "%d%b%Y:%H:%M:%S"},
    {"English_UnitedStates", 47, "%m/%d/%Y %I:%M:%S %p"},
    {"English_UnitedStates", 48, "%b %e, %Y %I:%M:%S %p"},
    {"English_UnitedStates", 49, "%B %e, %Y %I:%M:%S %p"},
    {"English_UnitedStates", 50, "%A, %B %e, %Y %I:%M:%S %p"},
    {"English_UnitedStates", 51, "%a, %b %e, %Y %I:%M:%S %p"},
    {"English_UnitedStates", 52, "%I:%M:%S %p"},
    {"English_UnitedStates", 53, "%H:%M:%S"},
    {"English_UnitedStates", 54, "%I:%M %p"},
    {"English_UnitedStates", 55, "%I:%M:%S %p"},
    {"English_UnitedStates", 56, "%I:%M:%S %p %Z"},
    {"English_UnitedStates", 57, "%I:%M:%S %p %Z"},
    {"English_UnitedStates", 58, "%x %X"},
    {"English_UnitedStates", 59, "Jan"},
    {"English_UnitedStates", 71, "January"},
    {"English_UnitedStates", 83, "Jan"},
    {"English_UnitedStates", 95, "January"},
    {"English_UnitedStates", 107, "Sun"},
    {"English_UnitedStates", 114, "Sunday"},
    {"English_UnitedStates", 121, "Sun"},
    {"English_UnitedStates", 128, "Sunday"},
    {"English_UnitedStates", 135, "Q1"},
    {"English_UnitedStates", 139, "1st quarter"},
    {"English_UnitedStates", 143, "Q1"},
    {"English_UnitedStates", 147, "1st quarter"},
    {"English_UnitedStates", 151, "AM"},
    {"English_UnitedStates", 152, "PM"},
    {"English_UnitedStates", 153, "/"},
    {"English_UnitedStates", 154, "0"},
    {"English_UnitedStates", 155, "USD"},
    {"English_UnitedStates", 156, "$"},
    {"English_UnitedStates", 157, "."},
    {"English_UnitedStates", 158, ","},
    {"English_UnitedStates", 159, "3"},
    {"English_UnitedStates", 160, kAbsent},
    {"English_UnitedStates", 161, "-"},
    {"English_UnitedStates", 162, "2"},
    {"English_UnitedStates", 163, "2"},
    {"English_UnitedStates", 164, "1"},
    {"English_UnitedStates", 165, "0"},
    {"English_UnitedStates", 166, "1"},
    {"English_UnitedStates", 167, "0"},
    {"English_UnitedStates", 168, "1"},
    {"English_UnitedStates", 169, "0"},
    {"English_UnitedStates", 170, "<u00a4>#,##0.00;(<u00a4>#,##0.00)"},
    {"English_UnitedStates", 171, "<U00A4>#,##0.#;(<U00A4>#,##0.#)"},
    {"English_UnitedStates", 172, "."},
    {"English_UnitedStates", 173, ","},
    {"English_UnitedStates", 174, "3"},
    {"English_UnitedStates", 175, kAbsent},
    {"English_UnitedStates", 176, "-"},
    {"English_UnitedStates", 177, "1"},
    {"English_UnitedStates", 178, "0"},
    {"English_UnitedStates", 179, "1"},
    {"English_UnitedStates", 180, "0"},
    {"English_UnitedStates", 181, "1"},
    {"English_UnitedStates", 182, "1"},
    {"English_UnitedStates", 183, "#,##0.###"},
    {"English_UnitedStates", 184, "#,##0.#"},
    {"English_UnitedStates", 185, "#,##0%"},
    {"English_UnitedStates", 186, "#,##0.#%"},
    {"English_UnitedStates", 187, "279"},
    {"English_UnitedStates", 188, "216"},

    {"German_Germany", 4, "de"},
    {"German_Germany", 5, "DE"},
    {"German_Germany", 6, "DMY"},
    {"German_Germany", 7, "A4"},
    {"German_Germany", 28, "%d. %B %Y"},
    {"German_Germany", 29, "%d.%m.%y"},
    {"German_Germany", 32, "%A, %e. %B %Y"},
    {"German_Germany", 42, "Week %V %G"},
    {"German_Germany", 46, "%d. %B %Y %H.%M Uhr"},
    {"German_Germany", 53, "%H.%M Uhr"},
    {"German_Germany", 56, "%H:%M:%S %Z"},
    {"German_Germany", 71, "Januar"},
    {"German_Germany", 107, "So."},
    {"German_Germany", 114, "Sonntag"},
    {"German_Germany", 121, "So"},
    {"German_Germany", 139, "1. Quartal"},
    {"German_Germany", 151, "vorm."},
    {"German_Germany", 152, "nachm."},
    {"German_Germany", 153, "."},
    {"German_Germany", 154, "1"},
    {"German_Germany", 155, "EUR"},
    {"German_Germany", 156, "<U20AC>"},
    {"German_Germany", 157, ","},
    {"German_Germany", 158, "."},
    {"German_Germany", 159, "3"},
    {"German_Germany", 162, "2"},
    {"German_Germany", 163, "2"},
    {"German_Germany", 164, "0"},
    {"German_Germany", 165, "1"},
    {"German_Germany", 166, "0"},
    {"German_Germany", 167, "1"},
    {"German_Germany", 168, "1"},
    {"German_Germany", 169, "1"},
    {"German_Germany", 170, "#.##0,00 <u00a4>"},
    {"German_Germany", 171, "#,##0.# <U00A4>"},
    {"German_Germany", 172, ","},
    {"German_Germany", 173, "."},
    {"German_Germany", 182, "1"},
    {"German_Germany", 183, "#.##0,###"},
    {"German_Germany", 185, "#.##0%"},
    {"German_Germany", 186, "#,##0.# %"},
    {"German_Germany", 187, "297"},
    {"German_Germany", 188, "210"},

    {"Japanese_Japan", 4, "ja"},
    {"Japanese_Japan", 5, "JP"},
    {"Japanese_Japan", 6, "YMD"},
    {"Japanese_Japan", 7, "A4"},
    {"Japanese_Japan", 28, "%Y<U5E74>%m<U6708>%d<U65E5>"},
    {"Japanese_Japan", 29, "%Y/%m/%d"},
    {"Japanese_Japan", 32, "%Y<u5E74>%o<u6708>%e<u65E5> %A"},
    {"Japanese_Japan", 42, "%Y-W%U"},
    {"Japanese_Japan", 46, "%Y<U5E74>%m<U6708>%d<U65E5> %H<U6642>%M<U5206>%S<U79D2>"},
    {"Japanese_Japan", 53, "%H<U6642>%M<U5206>%S<U79D2>"},
    {"Japanese_Japan", 56, "%H:%M:%S %Z"},
    {"Japanese_Japan", 71, "1<U6708>"},
    {"Japanese_Japan", 114, "<U65E5><U66DC><U65E5>"},
    {"Japanese_Japan", 139, "<U7B2C>1<U56DB><U534A><U671F>"},
    {"Japanese_Japan", 151, "<U5348><U524D>"},
    {"Japanese_Japan", 152, "<U5348><U5F8C>"},
    {"Japanese_Japan", 153, "/"},
    {"Japanese_Japan", 154, "0"},
    {"Japanese_Japan", 155, "JPY"},
    {"Japanese_Japan", 156, "<UFFE5>"},
    {"Japanese_Japan", 157, "."},
    {"Japanese_Japan", 158, ","},
    {"Japanese_Japan", 159, "3"},
    {"Japanese_Japan", 162, "0"},
    {"Japanese_Japan", 163, "0"},
    {"Japanese_Japan", 164, "1"},
    {"Japanese_Japan", 165, "0"},
    {"Japanese_Japan", 166, "1"},
    {"Japanese_Japan", 167, "0"},
    {"Japanese_Japan", 168, "1"},
    {"Japanese_Japan", 169, "1"},
    {"Japanese_Japan", 170, "<u00a4>#,##0"},
    {"Japanese_Japan", 171, "<U00A4>#,##0.#"},
    {"Japanese_Japan", 172, "."},
    {"Japanese_Japan", 173, ","},
    {"Japanese_Japan", 182, "1"},
    {"Japanese_Japan", 183, "#,##0.###"},
    {"Japanese_Japan", 185, "#,##0%"},
    {"Japanese_Japan", 186, "#,##0.#%"},
    {"Japanese_Japan", 187, "297"},
    {"Japanese_Japan", 188, "210"},

    {"Arabic_Algeria", 4, "ar"},
    {"Arabic_Algeria", 5, "DZ"},
    {"Arabic_Algeria", 6, "YMD"},
    {"Arabic_Algeria", 7, "A4"},
    {"Arabic_Algeria", 28, "%d %B, %Y"},
    {"Arabic_Algeria", 29, "%Y/%m/%d"},
    {"Arabic_Algeria", 32, "%A<u060C> %e %B<u060C> %Y"},
    {"Arabic_Algeria", 42, "%Y-W%U"},
    {"Arabic_Algeria", 46, "%d %B, %Y %H:%M:%S"},
    {"Arabic_Algeria", 53, "%H:%M:%S"},
    {"Arabic_Algeria", 56, "%Z %I:%M:%S %p"},
    {"Arabic_Algeria", 71, "<U064A><U0646><U0627><U064A><U0631>"},
    {"Arabic_Algeria", 114, "<U0627><U0644><U0623><U062D><U062F>"},
    {"Arabic_Algeria", 139, "<U0627><U0644><U0631><U0628><U0639> <U0627><U0644><U0623><U0648><U0644>"},
    {"Arabic_Algeria", 151, "<U0635>"},
    {"Arabic_Algeria", 152, "<U0645>"},
    {"Arabic_Algeria", 153, "/"},
    {"Arabic_Algeria", 154, "6"},
    {"Arabic_Algeria", 155, "DZD"},
    {"Arabic_Algeria", 156, "<U062F>.<U062C>.<U200F>"},
    {"Arabic_Algeria", 157, ","},
    {"Arabic_Algeria", 158, "."},
    {"Arabic_Algeria", 159, "3"},
    {"Arabic_Algeria", 162, "2"},
    {"Arabic_Algeria", 163, "2"},
    {"Arabic_Algeria", 164, "1"},
    {"Arabic_Algeria", 165, "1"},
    {"Arabic_Algeria", 166, "1"},
    {"Arabic_Algeria", 167, "1"},
    {"Arabic_Algeria", 168, "1"},
    {"Arabic_Algeria", 169, "2"},
    {"Arabic_Algeria", 170, "<u00a4> #,##0.00;<u00a4> #,##0.00-"},
    {"Arabic_Algeria", 171, "<U00A4> #,##0.#;<U00A4> #,##0.#-"},
    {"Arabic_Algeria", 172, ","},
    {"Arabic_Algeria", 173, "."},
    {"Arabic_Algeria", 182, "2"},
    {"Arabic_Algeria", 183, "#,##0.###;#,##0.###-"},
    {"Arabic_Algeria", 185, "#,##0%"},
    {"Arabic_Algeria", 186, "#,##0.#%"},
    {"Arabic_Algeria", 187, "297"},
    {"Arabic_Algeria", 188, "210"},

    {"Polish_Poland", 71, "stycznia"},
    {"Polish_Poland", 95, "stycze<U0144>"},
    {"Czech_CzechRepublic", 71, "ledna"},
    {"Czech_CzechRepublic", 95, "leden"},
    {"Italian_Italy", 71, "gennaio"},
    {"Italian_Italy", 95, "Gennaio"},
    {"Hungarian_Hungary", 139, "I. negyed<U00E9>v"},
    {"Hungarian_Hungary", 147, "1. negyed<U00E9>v"},

    {"Polish_XX", 4, "pl"},
    {"Polish_XX", 5, "XX"},
    {"Polish_XX", 155, "PLN"},
    {"Polish_XX", 156, "z<U0142>"},
    {"Polish_XX", 183, "#<u00a0>##0,###"},
    {"Chinese_XX", 4, "zh"},
    {"Chinese_XX", 5, "XX"},
    {"Chinese_XX", 29, "%y-%m-%d"},

    {"Chinese_HongKong", 2, "zt"},
    {"Chinese_HongKong", 4, "zh"},
    {"Chinese_Macau", 2, "zt"},
    {"Chinese_Macau", 4, "zh"},
    {"Chinese_Taiwan", 2, "zt"},
    {"Chinese_Taiwan", 4, "zh"},
    {"Chinese_China", 2, "zh"},
};

class DocumentedValues : public ::testing::TestWithParam<DocumentedValue> {};

TEST_P(DocumentedValues, ReadBackThroughGetORBLocDB) {
  const DocumentedValue &value = GetParam();
  const int32_t locale = locale_number(value.record);
  ASSERT_NE(locale, 0) << "no record " << value.record;
  const locitem &stored = ORBlocaleData[locale - 1][value.item];
  if (value.text == kAbsent) {
    EXPECT_EQ(stored.length, 0);
    EXPECT_EQ(stored.text, nullptr);
    EXPECT_EQ(locale_item(locale, value.item), "");
  } else {
    EXPECT_EQ(locale_item(locale, value.item), value.text);
  }
}

INSTANTIATE_TEST_SUITE_P(LocaleDb, DocumentedValues, ::testing::ValuesIn(kDocumentedValues));

// The records in their fixed order, each with the locale codes that name
// it (the first pair is the record's own items 4 and 5).
struct RecordNames {
  const char *name;
  std::array<const char *, 3> codes;
};
constexpr RecordNames kRecords[CORVINEL_LOCALE_RECORDS] = {
    {"Afrikaans_SouthAfrica", {"af_ZA"}},   {"Albanian_Albania", {"sq_AL"}},
    {"Arabic_Algeria", {"ar_DZ"}},          {"Arabic_Bahrain", {"ar_BH"}},
    {"Arabic_Egypt", {"ar_EG"}},            {"Arabic_India", {"ar_IN"}},
    {"Arabic_Iraq", {"ar_IQ"}},             {"Arabic_Jordan", {"ar_JO"}},
    {"Arabic_Kuwait", {"ar_KW"}},           {"Arabic_Lebanon", {"ar_LB"}},
    {"Arabic_Libya", {"ar_LY"}},            {"Arabic_Morocco", {"ar_MA"}},
    {"Arabic_Oman", {"ar_OM"}},             {"Arabic_Qatar", {"ar_QA"}},
    {"Arabic_SaudiArabia", {"ar_SA"}},      {"Arabic_Sudan", {"ar_SD"}},
    {"Arabic_Syria", {"ar_SY"}},            {"Arabic_Tunisia", {"ar_TN"}},
    {"Arabic_UnitedArabEmirates", {"ar_AE"}}, {"Arabic_Yemen", {"ar_YE"}},
    {"Bengali_India", {"bn_IN"}},           {"Bosnian_BosniaHerzegovina", {"bs_BA"}},
    {"Bulgarian_Bulgaria", {"bg_BG"}},      {"Belarusian_Belarus", {"be_BY"}},
    {"Catalan_Spain", {"ca_ES"}},           {"Chinese_China", {"zh_CN"}},
    {"Chinese_HongKong", {"zh_HK"}},        {"Chinese_Macau", {"zh_MO"}},
    {"Chinese_Singapore", {"zh_SG"}},       {"Chinese_Taiwan", {"zh_TW"}},
    {"Cornish_UnitedKingdom", {"kw_GB"}},   {"Croatian_BosniaHerzegovina", {"hr_BA"}},
    {"Croatian_Croatia", {"hr_HR"}},        {"Czech_CzechRepublic", {"cs_CZ"}},
    {"Danish_Denmark", {"da_DK"}},          {"Dutch_Belgium", {"nl_BE"}},
    {"Dutch_Netherlands", {"nl_NL"}},       {"English_Australia", {"en_AU"}},
    {"English_Belgium", {"en_BE"}},         {"English_Botswana", {"en_BW"}},
    {"English_Canada", {"en_CA"}},          {"English_Caribbean", {"en_CB"}},
    {"English_HongKong", {"en_HK"}},        {"English_India", {"en_IN"}},
    {"English_Ireland", {"en_IE"}},         {"English_Jamaica", {"en_JM"}},
    {"English_Malta", {"en_MT"}},           {"English_NewZealand", {"en_NZ"}},
    {"English_Philippines", {"en_PH"}},     {"English_Singapore", {"en_SG"}},
    {"English_SouthAfrica", {"en_ZA"}},     {"English_UnitedKingdom", {"en_GB"}},
    {"English_UnitedStates", {"en_US"}},    {"English_Zimbabwe", {"en_ZW"}},
    {"Estonian_Estonia", {"et_EE"}},        {"Faeroese_FaroeIsland", {"fo_FO"}},
    {"Finnish_Finland", {"fi_FI"}},         {"French_Belgium", {"fr_BE"}},
    {"French_Canada", {"fr_CA"}},           {"French_France", {"fr_FR"}},
    {"French_Luxembourg", {"fr_LU"}},       {"French_Switzerland", {"fr_CH"}},
    {"German_Austria", {"de_AT"}},          {"German_Germany", {"de_DE"}},
    {"German_Liechtenstein", {"de_LI"}},    {"German_Luxembourg", {"de_LU"}},
    {"German_Switzerland", {"de_CH"}},      {"Greek_Cyprus", {"el_CY"}},
    {"Greek_Greece", {"el_GR"}},            {"Greenlandic_Greenland", {"kl_GL"}},
    {"Hebrew_Israel", {"he_IL", "iw_IL"}},  {"Hindi_India", {"hi_IN"}},
    {"Hungarian_Hungary", {"hu_HU"}},       {"Icelandic_Iceland", {"is_IS"}},
    {"Indonesian_Indonesia", {"id_ID"}},    {"Irish_Ireland", {"ga_IE"}},
    {"Italian_Italy", {"it_IT"}},           {"Italian_Switzerland", {"it_CH"}},
    {"Japanese_Japan", {"ja_JP"}},          {"Korean_SouthKorea", {"ko_KR"}},
    {"Latvian_Latvia", {"lv_LV"}},          {"Lithuanian_Lithuania", {"lt_LT"}},
    {"Macedonian_Macedonia", {"mk_MK"}},    {"Malay_Malaysia", {"ms_MY"}},
    {"Maltese_Malta", {"mt_MT"}},           {"Basque_Spain", {"eu_ES"}},
    {"Marathi_India", {"mr_IN"}},           {"NorwegianBokmal_Norway", {"nb_NO"}},
    {"NorwegianNynorsk_Norway", {"nn_NO"}}, {"Norwegian_Norway", {"no_NO"}},
    {"Persian_India", {"fa_IN"}},           {"Persian_Iran", {"fa_IR"}},
    {"Polish_Poland", {"pl_PL"}},           {"Portuguese_Brazil", {"pt_BR"}},
    {"Portuguese_Portugal", {"pt_PT"}},     {"Romanian_Romania", {"ro_RO"}},
    {"Russian_Russia", {"ru_RU"}},          {"Russian_Ukraine", {"ru_UA"}},
    {"Serbian_BosniaHerzegovina", {"sr_BA"}}, {"Serbian_Montenegro", {"sr_ME"}},
    {"Serbian_Serbia", {"sr_RS", "sr_CS"}}, {"Kazakh_Kazakhstan", {"kk_KZ"}},
    {"SerbianLatin_BosniaHerzegovina", {"sh_BA"}}, {"SerbianLatin_Montenegro", {"sh_ME"}},
    {"SerbianLatin_Serbia", {"sh_RS", "sh_CS", "sh_YU"}}, {"Slovak_Slovakia", {"sk_SK"}},
    {"Slovenian_Slovenia", {"sl_SI"}},      {"Spanish_Argentina", {"es_AR"}},
    {"Spanish_Bolivia", {"es_BO"}},         {"Spanish_Chile", {"es_CL"}},
    {"Spanish_Colombia", {"es_CO"}},        {"Spanish_CostaRica", {"es_CR"}},
    {"Spanish_DominicanRepublic", {"es_DO"}}, {"Spanish_Ecuador", {"es_EC"}},
    {"Spanish_ElSalvador", {"es_SV"}},      {"Spanish_Guatemala", {"es_GT"}},
    {"Spanish_Honduras", {"es_HN"}},        {"Spanish_Mexico", {"es_MX"}},
    {"Spanish_Nicaragua", {"es_NI"}},       {"Spanish_Panama", {"es_PA"}},
    {"Spanish_Paraguay", {"es_PY"}},        {"Spanish_Peru", {"es_PE"}},
    {"Spanish_PuertoRico", {"es_PR"}},      {"Spanish_Spain", {"es_ES"}},
    {"Spanish_UnitedStates", {"es_US"}},    {"Spanish_Uruguay", {"es_UY"}},
    {"Spanish_Venezuela", {"es_VE"}},       {"Swedish_Sweden", {"sv_SE"}},
    {"Tamil_India", {"ta_IN"}},             {"Telugu_India", {"te_IN"}},
    {"Thai_Thailand", {"th_TH"}},           {"Turkish_Turkey", {"tr_TR"}},
    {"Ukrainian_Ukraine", {"uk_UA"}},       {"Vietnamese_Vietnam", {"vi_VN"}},
    {"Polish_XX", {"pl_XX"}},               {"Chinese_XX", {"zh_XX"}},
};

std::string item_text(int record, int item) {
  const locitem &stored = ORBlocaleData[record][item];
  return stored.text == nullptr ? std::string() : std::string(stored.text, stored.length);
}

TEST(LocaleRecords, FollowTheFixedOrderWithTheirNamesAndCodes) {
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    SCOPED_TRACE(kRecords[r].name);
    const std::string name = kRecords[r].name;
    const std::string code = kRecords[r].codes[0];
    EXPECT_EQ(item_text(r, 0), name);
    EXPECT_EQ(item_text(r, 1), name.substr(0, name.find('_')));
    EXPECT_EQ(item_text(r, 3), name.substr(name.find('_') + 1));
    EXPECT_EQ(item_text(r, 4), code.substr(0, 2));
    EXPECT_EQ(item_text(r, 5), code.substr(3, 2));
  }
}

TEST(LocaleRecords, EveryLocaleCodeSelectsItsRecord) {
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    for (const char *code : kRecords[r].codes) {
      if (code == nullptr) continue;
      SCOPED_TRACE(code);
      corvinel::testing::ScopedOrbLocale locale(code);
      const bool own_code = code == kRecords[r].codes[0];
      // Alternative codes (iw, CS, YU) belong to the name lookup only.
      EXPECT_EQ(locale_item(0, 0), own_code ? std::optional<std::string>(kRecords[r].name) : std::nullopt);
    }
  }
}

TEST(LocaleRecords, SecondaryLanguageIsZtOnlyForTraditionalChinese) {
  const std::set<std::string> traditional = {"Chinese_HongKong", "Chinese_Macau", "Chinese_Taiwan"};
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    SCOPED_TRACE(kRecords[r].name);
    EXPECT_EQ(item_text(r, 2), traditional.contains(kRecords[r].name) ? "zt" : item_text(r, 4));
  }
}

// Items whose escapes may use the lower-case letter u.
bool lower_case_escape_allowed(int item) {
  return (item >= 28 && item <= 35) || (item >= 44 && item <= 51) || item == 56 || item == 57 ||
         (item >= 59 && item <= 82) || (item >= 107 && item <= 120) || item == 170 || item == 183 ||
         item == 185;
}

bool is_hex(char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; }

TEST(LocaleItems, AreShortPrintableAsciiWithWellFormedEscapes) {
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    for (int item = 0; item < CORVINEL_LOCALE_ITEMS; ++item) {
      const locitem &stored = ORBlocaleData[r][item];
      SCOPED_TRACE(std::string(kRecords[r].name) + " item " + std::to_string(item));
      if (stored.text == nullptr) {
        EXPECT_EQ(stored.length, 0);
        continue;
      }
      ASSERT_GT(stored.length, 0) << "present items are not empty";
      ASSERT_LE(stored.length, 159);
      const std::string_view text(stored.text, static_cast<std::size_t>(stored.length));
      EXPECT_EQ(std::strlen(stored.text), text.size()) << "length and terminator agree";
      for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        ASSERT_TRUE(c >= 0x20 && c < 0x7F) << "byte " << i;
        if (c != '<' || i + 1 >= text.size() || (text[i + 1] != 'U' && text[i + 1] != 'u')) continue;
        ASSERT_LE(i + 7, text.size()) << "escape cut short at " << i;
        EXPECT_TRUE(is_hex(text[i + 2]) && is_hex(text[i + 3]) && is_hex(text[i + 4]) && is_hex(text[i + 5]) &&
                    text[i + 6] == '>')
            << "malformed escape at " << i;
        if (text[i + 1] == 'u') { EXPECT_TRUE(lower_case_escape_allowed(item)) << "lower-case escape"; }
      }
    }
  }
}

TEST(LocaleItems, SharedConventionsAreTheSameInEveryRecord) {
  const std::map<int, const char *> shared = {
      {9, nullptr},          {11, nullptr},        {13, "NLDATE16."},  {14, "NLDATM24."},
      {15, "NLTIME8."},      {16, "BEST12."},      {17, "PERCENT12."},
  };
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    SCOPED_TRACE(kRecords[r].name);
    for (const auto &[item, text] : shared) {
      const locitem &stored = ORBlocaleData[r][item];
      if (text == nullptr) {
        EXPECT_EQ(stored.text, nullptr) << item;
        EXPECT_EQ(stored.length, 0) << item;
      } else {
        EXPECT_EQ(item_text(r, item), text) << item;
      }
    }
    EXPECT_NE(item_text(r, 170).find("<u00a4>"), std::string::npos);
    EXPECT_NE(item_text(r, 171).find("<U00A4>"), std::string::npos);
  }
}

// Items whose text is a decimal number, and items with a closed set of
// values.
TEST(LocaleItems, CodedItemsHoldTheirValues) {
  const std::set<std::string> orders = {"DMY", "MDY", "YMD"};
  const std::set<std::string> separators = {"/", ".", "-"};
  const std::set<std::string> weekdays = {"0", "1", "6"};
  const std::set<std::string> groupings = {"3", "3;2", "0"};
  const std::set<std::string> sign_positions = {"0", "1", "2", "3", "4"};
  const std::set<std::string> weeks = {"Week %U %Y", "Week %W %Y", "Week %V %G",
                                       "%Y-W%U",     "%G-W%V",     "%Y-W%W"};
  std::set<std::pair<std::string, std::string>> codes;
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    SCOPED_TRACE(kRecords[r].name);
    EXPECT_TRUE(orders.contains(item_text(r, 6)));
    EXPECT_TRUE(separators.contains(item_text(r, 153)));
    EXPECT_TRUE(weekdays.contains(item_text(r, 154)));
    EXPECT_TRUE(groupings.contains(item_text(r, 159)));
    EXPECT_TRUE(groupings.contains(item_text(r, 174)));
    EXPECT_TRUE(weeks.contains(item_text(r, 42)));
    for (const int item : {162, 163, 164, 165, 166, 167, 177, 178, 179, 180, 187, 188}) {
      const std::string text = item_text(r, item);
      EXPECT_TRUE(!text.empty() && text.find_first_not_of("0123456789") == std::string::npos) << item;
    }
    for (const int item : {168, 169, 181, 182}) { EXPECT_TRUE(sign_positions.contains(item_text(r, item))) << item; }
    const bool letter = item_text(r, 7) == "LETTER";
    EXPECT_EQ(item_text(r, 187), letter ? "279" : "297");
    EXPECT_EQ(item_text(r, 188), letter ? "216" : "210");
    EXPECT_TRUE(codes.emplace(item_text(r, 4), item_text(r, 5)).second) << "language and country pair repeats";
  }
}

// Items 6 and 153 describe the short date of item 29: the order of its
// day, month and year, and the mark between its first two parts.
TEST(LocaleItems, DateOrderAndSeparatorDescribeTheShortDate) {
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    const std::string pattern = item_text(r, 29);
    SCOPED_TRACE(std::string(kRecords[r].name) + ": " + pattern);
    std::string order;
    std::string between;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
      if (pattern[i] != '%' || i + 1 == pattern.size()) {
        if (order.size() == 1 && pattern[i] != ' ') between.push_back(pattern[i]);
        continue;
      }
      const char directive = pattern[++i];
      const char part = std::string_view("de").find(directive) != std::string_view::npos    ? 'D'
                        : std::string_view("mobB").find(directive) != std::string_view::npos ? 'M'
                        : std::string_view("yY").find(directive) != std::string_view::npos   ? 'Y'
                                                                                              : 0;
      if (part != 0) order.push_back(part);
    }
    EXPECT_EQ(item_text(r, 6), order);
    EXPECT_EQ(item_text(r, 153), between);
  }
}

TEST(LocaleItems, DocumentedCountsHold) {
  int letter = 0;
  int message_languages = 0;
  int indian_grouping = 0;
  const std::set<std::string> languages = {"cs", "de", "es", "fr", "hu", "it", "ja",
                                           "ko", "pl", "ru", "sv", "zh", "zt"};
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    letter += item_text(r, 7) == "LETTER";
    const std::string message = item_text(r, 12);
    if (!message.empty()) {
      ++message_languages;
      EXPECT_TRUE(languages.contains(message)) << kRecords[r].name;
    }
    if (item_text(r, 159) == "3;2") {
      ++indian_grouping;
      EXPECT_EQ(item_text(r, 5), "IN") << kRecords[r].name;
      EXPECT_EQ(item_text(r, 174), "3;2") << kRecords[r].name;
    }
  }
  EXPECT_EQ(letter, 15);
  EXPECT_EQ(message_languages, 48);
  EXPECT_EQ(indian_grouping, 6);
}

// Every directive of the date and time patterns is one the date pattern
// expander knows; "%x" and "%X" only where the patterns are combined.
TEST(LocaleItems, DatePatternsUseKnownDirectives) {
  const std::string_view letters = "aAfFbBCcdDeEmnoOjJyYHhKkIiLlMSsTtpPqQUuwWVvGgZz%";
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    for (int item = 28; item <= 58; ++item) {
      const std::string text = item_text(r, item);
      SCOPED_TRACE(std::string(kRecords[r].name) + " item " + std::to_string(item) + ": " + text);
      for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') continue;
        std::size_t at = i + 1;
        if (at < text.size() && (text[at] == '#' || text[at] == '0')) ++at;
        if (at < text.size() && text[at] >= '1' && text[at] <= '9') ++at;
        if (at < text.size() && text[at] == '+') ++at;
        if (at < text.size() && text[at] == '?') ++at;
        ASSERT_LT(at, text.size()) << "pattern ends inside a directive";
        const char letter = text[at];
        const bool combined = item == 58 && (letter == 'x' || letter == 'X');
        EXPECT_TRUE(combined || letters.find(letter) != std::string_view::npos) << "directive %" << letter;
        i = at;
      }
    }
  }
}

// The two name sets of a record: those used inside a date and the
// standalone ones, 24 (months), 14 (weekdays) and 8 (quarters) items apart,
// are complete, and a standalone name never stands in for a missing one.
TEST(LocaleItems, NameSetsAreComplete) {
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    SCOPED_TRACE(kRecords[r].name);
    for (int item = 59; item <= 152; ++item) { EXPECT_FALSE(item_text(r, item).empty()) << item; }
    std::set<std::string> months;
    for (int item = 71; item <= 82; ++item) months.insert(item_text(r, item));
    EXPECT_EQ(months.size(), 12u) << "twelve different month names";
  }
}

}  // namespace

#include "fixed_values.h"

#include <cstring>

#include "pattern_rules.h"
#include "unicode_text.h"

namespace corvinel::locale_data {
namespace {

constexpr const char *kAbsent = nullptr;

struct FixedValue {
  const char *record;  // nullptr: every record
  int item;
  const char *text;  // kAbsent: the item is absent
};

// The conventions every record shares.
constexpr FixedValue kEveryRecord[] = {
    // Reserved items.
    {nullptr, 9, kAbsent},
    {nullptr, 11, kAbsent},
    // The host's default format names.
    {nullptr, 13, "NLDATE16."},
    {nullptr, 14, "NLDATM24."},
    {nullptr, 15, "NLTIME8."},
    {nullptr, 16, "BEST12."},
    {nullptr, 17, "PERCENT12."},
};

// Values that the database's users rely on, record by record. Where the
// sources say otherwise (newer CLDR data, glibc's conventions) the report
// of the generator lists the difference.
constexpr FixedValue kTellingValues[] = {
    // English_UnitedStates: every item the database documents.
    {"English_UnitedStates", 6, "MDY"},
    {"English_UnitedStates", 7, "LETTER"},
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

    // German_Germany.
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

    // Japanese_Japan.
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

    // Arabic_Algeria.
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

    // Forms inside a date against standalone forms.
    {"Polish_Poland", 71, "stycznia"},
    {"Polish_Poland", 95, "stycze<U0144>"},
    {"Czech_CzechRepublic", 71, "ledna"},
    {"Czech_CzechRepublic", 95, "leden"},
    {"Italian_Italy", 71, "gennaio"},
    {"Italian_Italy", 95, "Gennaio"},
    {"Hungarian_Hungary", 139, "I. negyed<U00E9>v"},
    {"Hungarian_Hungary", 147, "1. negyed<U00E9>v"},

    // The lakh grouping belongs to the six Indian-language records; the
    // Arabic and Persian records of India group by thousands.
    {"Bengali_India", 159, "3;2"},
    {"Bengali_India", 174, "3;2"},
    {"English_India", 159, "3;2"},
    {"English_India", 174, "3;2"},
    {"Hindi_India", 159, "3;2"},
    {"Hindi_India", 174, "3;2"},
    {"Marathi_India", 159, "3;2"},
    {"Marathi_India", 174, "3;2"},
    {"Tamil_India", 159, "3;2"},
    {"Tamil_India", 174, "3;2"},
    {"Telugu_India", 159, "3;2"},
    {"Telugu_India", 174, "3;2"},
    {"Arabic_India", 159, "3"},
    {"Arabic_India", 174, "3"},
    {"Persian_India", 159, "3"},
    {"Persian_India", 174, "3"},

    // The "XX" records.
    {"Polish_XX", 4, "pl"},
    {"Polish_XX", 5, "XX"},
    {"Polish_XX", 155, "PLN"},
    {"Polish_XX", 156, "z<U0142>"},
    {"Polish_XX", 183, "#<u00a0>##0,###"},
    {"Chinese_XX", 4, "zh"},
    {"Chinese_XX", 5, "XX"},
    {"Chinese_XX", 29, "%y-%m-%d"},

    // Item 2: the host's code for traditional Chinese.
    {"Chinese_HongKong", 2, "zt"},
    {"Chinese_Macau", 2, "zt"},
    {"Chinese_Taiwan", 2, "zt"},
};

// Item 12, the host's message language: languages the host's messages are
// translated into, by item 4; Chinese in traditional script is "zt".
// Catalan_Spain shows the host's Spanish messages; the other records have
// none (absent item).
struct MessageLanguage {
  const char *language;
  const char *code;
};
constexpr MessageLanguage kMessageLanguages[] = {
    {"cs", "cs"}, {"de", "de"}, {"es", "es"}, {"fr", "fr"}, {"hu", "hu"}, {"it", "it"},
    {"ja", "ja"}, {"ko", "ko"}, {"pl", "pl"}, {"ru", "ru"}, {"sv", "sv"}, {"zh", "zh"},
};
constexpr const char *kSpanishMessageRecords[] = {"Catalan_Spain"};

// Items 8 and 10: the two font settings of the East-Asian records
// (Gothic/sans-serif first, then Mincho/serif), by script.
struct EastAsianFonts {
  const char *language;
  bool traditional;
  const char *sans;
  const char *serif;
};
constexpr EastAsianFonts kEastAsianFonts[] = {
    {"ja", false, "KANJI;<ttf> MS PGothic", "KANJI;<ttf> MS PMincho"},
    {"ko", false, "KANJI;<ttf> Gulim", "KANJI;<ttf> Batang"},
    {"zh", false, "KANJI;<ttf> SimHei", "KANJI;<ttf> SimSun"},
    {"zh", true, "KANJI;<ttf> MingLiU", "KANJI;<ttf> PMingLiU"},
};

// Items 18-27: graphics fonts. The five stroke fonts, then the five again
// with ITALIC last (English_UnitedStates runs from COMPLEX to ITALIC);
// East-Asian records have their five double-byte fonts in the second half.
constexpr const char *kGraphicsFonts[] = {"COMPLEX", "SIMPLEX", "ITALIC", "BRUSH", "SWISS",
                                          "COMPLEX", "SIMPLEX", "BRUSH",  "SWISS", "ITALIC"};
constexpr const char *kEastAsianGraphicsFonts[] = {"KANJI", "MINCHO", "HEI", "YUAN", "KGOTHB1"};

bool is_traditional_chinese(const std::string &name) {
  return name == "Chinese_HongKong" || name == "Chinese_Macau" || name == "Chinese_Taiwan";
}

ItemText text_of(const char *text) { return text == kAbsent ? ItemText() : ItemText(text); }

class Applier {
 public:
  explicit Applier(std::vector<LocaleRecord> &records) : records_(records) {}

  void set(std::size_t index, int item, ItemText value) {
    ItemText &slot = records_[index][item];
    if (slot != value) {
      overrides_.push_back({kRecordSources[index].name, item, slot, value});
      slot = std::move(value);
    }
  }

  std::vector<Override> take() { return std::move(overrides_); }

 private:
  std::vector<LocaleRecord> &records_;
  std::vector<Override> overrides_;
};

}  // namespace

std::vector<int> telling_items(const std::string &record) {
  std::vector<int> items;
  for (const FixedValue &value : kTellingValues) {
    if (value.record != nullptr && record == value.record) items.push_back(value.item);
  }
  return items;
}

std::vector<Override> apply_fixed_values(std::vector<LocaleRecord> &records) {
  Applier applier(records);
  for (std::size_t index = 0; index < kRecordCount; ++index) {
    const RecordSource &source = kRecordSources[index];
    const std::string language = source.language;

    for (const FixedValue &value : kEveryRecord) applier.set(index, value.item, text_of(value.text));

    ItemText message;
    for (const MessageLanguage &entry : kMessageLanguages) {
      if (language == entry.language) message = entry.code;
    }
    for (const char *name : kSpanishMessageRecords) {
      if (std::strcmp(name, source.name) == 0) message = "es";
    }
    if (language == "zh" && is_traditional_chinese(source.name)) message = "zt";
    applier.set(index, item::kMessageLanguage, message);

    const EastAsianFonts *fonts = nullptr;
    for (const EastAsianFonts &entry : kEastAsianFonts) {
      if (language == entry.language && entry.traditional == is_traditional_chinese(source.name)) {
        fonts = &entry;
      }
    }
    applier.set(index, 8, fonts ? ItemText(fonts->sans) : ItemText());
    applier.set(index, 10, fonts ? ItemText(fonts->serif) : ItemText());
    for (int i = 0; i < 10; ++i) {
      const char *font = fonts && i >= 5 ? kEastAsianGraphicsFonts[i - 5] : kGraphicsFonts[i];
      applier.set(index, 18 + i, ItemText(font));
    }
  }
  // Italian standalone month names begin with a capital letter
  // ("Gennaio" against "gennaio" inside a date).
  for (std::size_t index = 0; index < kRecordCount; ++index) {
    if (std::strcmp(kRecordSources[index].language, "it") != 0) continue;
    for (int code = item::kStandaloneMonthsAbbreviated; code < item::kStandaloneMonthsWide + 12; ++code) {
      ItemText name = records[index][code];
      if (name && !name->empty() && (*name)[0] >= 'a' && (*name)[0] <= 'z') (*name)[0] -= 'a' - 'A';
      applier.set(index, code, name);
    }
  }
  for (const FixedValue &value : kTellingValues) {
    applier.set(record_index(value.record), value.item, text_of(value.text));
  }
  // The date order and separator describe the short date, so they follow
  // a fixed short date too.
  for (std::size_t index = 0; index < kRecordCount; ++index) {
    const NumericDateShape shape = posix_date_shape(utf8_to_utf16(*records[index][item::kShortDate]));
    if (shape.order.size() == 3) applier.set(index, item::kDateOrder, shape.order);
    if (!shape.separator.empty()) applier.set(index, item::kDateSeparator, shape.separator);
  }
  return applier.take();
}

}  // namespace corvinel::locale_data

#include "cldr_source.h"

#include <unicode/calendar.h>
#include <unicode/decimfmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>
#include <unicode/ucurr.h>
#include <unicode/ulocdata.h>
#include <unicode/ures.h>

#include <algorithm>
#include <stdexcept>

namespace corvinel::locale_data {
namespace {

void check(UErrorCode status, const std::string &what) {
  if (U_FAILURE(status)) throw std::runtime_error(what + ": " + u_errorName(status));
}

std::u16string to_u16(const icu::UnicodeString &text) {
  return std::u16string(reinterpret_cast<const char16_t *>(text.getBuffer()), text.length());
}

icu::DateFormat::EStyle icu_style(DateStyle style) {
  switch (style) {
    case DateStyle::kFull:
      return icu::DateFormat::kFull;
    case DateStyle::kLong:
      return icu::DateFormat::kLong;
    case DateStyle::kMedium:
      return icu::DateFormat::kMedium;
    case DateStyle::kShort:
      break;
  }
  return icu::DateFormat::kShort;
}

std::u16string pattern_of(icu::DateFormat *format, const std::string &what) {
  std::unique_ptr<icu::DateFormat> owned(format);
  auto *simple = dynamic_cast<icu::SimpleDateFormat *>(owned.get());
  if (simple == nullptr) throw std::runtime_error("no date pattern for " + what);
  icu::UnicodeString pattern;
  simple->toPattern(pattern);
  return to_u16(pattern);
}

std::vector<std::u16string> to_vector(const icu::UnicodeString *names, int32_t count, int32_t first) {
  std::vector<std::u16string> out;
  for (int32_t i = first; i < count; ++i) out.push_back(to_u16(names[i]));
  return out;
}

icu::DateFormatSymbols::DtContextType icu_context(NameContext context) {
  return context == NameContext::kFormat ? icu::DateFormatSymbols::FORMAT
                                         : icu::DateFormatSymbols::STANDALONE;
}

icu::DateFormatSymbols::DtWidthType icu_width(NameWidth width) {
  switch (width) {
    case NameWidth::kWide:
      return icu::DateFormatSymbols::WIDE;
    case NameWidth::kNarrow:
      return icu::DateFormatSymbols::NARROW;
    case NameWidth::kAbbreviated:
      break;
  }
  return icu::DateFormatSymbols::ABBREVIATED;
}

}  // namespace

struct CldrLocale::Data {
  std::string name;
  icu::Locale locale;         // texts and patterns in the locale's calendar
  icu::Locale region_locale;  // week and paper data
  std::string calendar_type;  // the locale's default calendar
  std::unique_ptr<icu::DateFormatSymbols> symbols;
  std::unique_ptr<icu::DateFormatSymbols> gregorian_symbols;
  std::unique_ptr<icu::DateTimePatternGenerator> generator;
  std::unique_ptr<icu::Calendar> calendar;
};

CldrLocale::CldrLocale(const std::string &locale, const std::string &region)
    : data_(std::make_unique<Data>()) {
  data_->name = locale;
  data_->calendar_type = default_calendar();
  // Patterns and era names come from the locale's own calendar where it
  // counts years of another era with the Gregorian months (the Buddhist
  // calendar of Thailand: the expander's era years show its year); every
  // other record writes Gregorian dates.
  const std::string calendar = data_->calendar_type == "buddhist" ? "buddhist" : "gregorian";
  data_->locale = icu::Locale((locale + "@calendar=" + calendar).c_str());
  data_->region_locale = icu::Locale(("und_" + region).c_str());
  UErrorCode status = U_ZERO_ERROR;
  data_->symbols = std::make_unique<icu::DateFormatSymbols>(data_->locale, calendar.c_str(), status);
  check(status, "date symbols of " + locale);
  data_->gregorian_symbols =
      std::make_unique<icu::DateFormatSymbols>(icu::Locale((locale + "@calendar=gregorian").c_str()), status);
  check(status, "Gregorian date symbols of " + locale);
  data_->generator.reset(icu::DateTimePatternGenerator::createInstance(data_->locale, status));
  check(status, "pattern generator of " + locale);
  data_->calendar.reset(icu::Calendar::createInstance(
      icu::Locale(("und_" + region + "@calendar=gregorian").c_str()), status));
  check(status, "calendar of region " + region);
}

CldrLocale::~CldrLocale() = default;

std::u16string CldrLocale::date_pattern(DateStyle style) const {
  return pattern_of(icu::DateFormat::createDateInstance(icu_style(style), data_->locale), data_->name);
}

std::u16string CldrLocale::time_pattern(DateStyle style) const {
  return pattern_of(icu::DateFormat::createTimeInstance(icu_style(style), data_->locale), data_->name);
}

std::u16string CldrLocale::best_pattern(const char *skeleton) const {
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString pattern =
      data_->generator->getBestPattern(icu::UnicodeString(skeleton), status);
  check(status, std::string("pattern for ") + skeleton + " in " + data_->name);
  return to_u16(pattern);
}

std::u16string CldrLocale::combination_pattern() const {
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString &pattern = data_->generator->getDateTimeFormat(UDAT_MEDIUM, status);
  check(status, "date-time combination of " + data_->name);
  return to_u16(pattern);
}

std::u16string CldrLocale::era_name() const {
  int32_t count = 0;
  const icu::UnicodeString *eras = data_->symbols->getEras(count);
  if (count < 1) throw std::runtime_error("no era names in " + data_->name);
  return to_u16(eras[count - 1]);  // the current era: the common era, the Buddhist era
}

std::u16string CldrLocale::gregorian_era_name() const {
  int32_t count = 0;
  const icu::UnicodeString *eras = data_->gregorian_symbols->getEras(count);
  if (count < 2) throw std::runtime_error("no Gregorian era names in " + data_->name);
  return to_u16(eras[1]);
}

std::string CldrLocale::default_calendar() const {
  if (!data_->calendar_type.empty()) return data_->calendar_type;
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(icu::Locale(data_->name.c_str()), status));
  check(status, "no calendar for " + data_->name);
  return calendar->getType();
}

std::vector<std::u16string> CldrLocale::months(NameContext context, NameWidth width) const {
  int32_t count = 0;
  const auto *names = data_->gregorian_symbols->getMonths(count, icu_context(context), icu_width(width));
  return to_vector(names, count, 0);
}

std::vector<std::u16string> CldrLocale::weekdays(NameContext context, NameWidth width) const {
  int32_t count = 0;
  const auto *names = data_->gregorian_symbols->getWeekdays(count, icu_context(context), icu_width(width));
  return to_vector(names, count, 1);  // element 0 is unused
}

std::vector<std::u16string> CldrLocale::quarters(NameContext context, NameWidth width) const {
  int32_t count = 0;
  const auto *names = data_->gregorian_symbols->getQuarters(count, icu_context(context), icu_width(width));
  return to_vector(names, count, 0);
}

std::vector<std::u16string> CldrLocale::am_pm() const {
  int32_t count = 0;
  const auto *names = data_->gregorian_symbols->getAmPmStrings(count);
  return to_vector(names, count, 0);
}

int CldrLocale::first_weekday() const {
  return static_cast<int>(data_->calendar->getFirstDayOfWeek()) - 1;
}

int CldrLocale::minimal_days_in_first_week() const {
  return data_->calendar->getMinimalDaysInFirstWeek();
}

std::pair<int, int> CldrLocale::paper_size() const {
  UErrorCode status = U_ZERO_ERROR;
  int32_t height = 0;
  int32_t width = 0;
  ulocdata_getPaperSize(data_->region_locale.getName(), &height, &width, &status);
  check(status, "paper size of " + std::string(data_->region_locale.getName()));
  return {height, width};
}

bool CldrLocale::latin_script() const {
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale maximal = data_->locale;
  maximal.addLikelySubtags(status);
  check(status, "script of " + data_->name);
  return std::string(maximal.getScript()) == "Latn";
}

std::u16string CldrLocale::number_pattern(NumberStyle style, const std::string &currency) const {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Locale locale((data_->name + "@currency=" + currency).c_str());
  std::unique_ptr<icu::NumberFormat> format;
  switch (style) {
    case NumberStyle::kDecimal:
      format.reset(icu::NumberFormat::createInstance(locale, status));
      break;
    case NumberStyle::kCurrency:
      format.reset(icu::NumberFormat::createCurrencyInstance(locale, status));
      break;
    case NumberStyle::kPercent:
      format.reset(icu::NumberFormat::createPercentInstance(locale, status));
      break;
  }
  check(status, "number format of " + data_->name);
  auto *decimal = dynamic_cast<icu::DecimalFormat *>(format.get());
  if (decimal == nullptr) throw std::runtime_error("no decimal format for " + data_->name);
  icu::UnicodeString pattern;
  decimal->toPattern(pattern);
  return to_u16(pattern);
}

std::u16string currency_symbol(const std::string &locale, const std::string &currency) {
  UChar code[4];
  u_charsToUChars(currency.c_str(), code, 4);
  UErrorCode status = U_ZERO_ERROR;
  UBool is_choice = false;
  int32_t length = 0;
  const UChar *symbol =
      ucurr_getName(code, locale.c_str(), UCURR_SYMBOL_NAME, &is_choice, &length, &status);
  check(status, "symbol of " + currency + " in " + locale);
  return std::u16string(reinterpret_cast<const char16_t *>(symbol), length);
}

namespace {

// One entry of a region's currency history in CLDR's supplemental data.
struct CurrencyUse {
  std::string code;
  bool ended;   // the entry has an end date
  bool tender;  // legal tender (funds codes are not)
};

// Read from the supplemental data directly: ucurr's date queries misread
// some regions' histories in this ICU version (und_BO crashes them).
std::vector<CurrencyUse> currency_history(const std::string &region) {
  UErrorCode status = U_ZERO_ERROR;
  using Bundle = std::unique_ptr<UResourceBundle, decltype(&ures_close)>;
  const Bundle supplemental(ures_openDirect(U_ICUDATA_NAME "-curr", "supplementalData", &status), &ures_close);
  const Bundle map(ures_getByKey(supplemental.get(), "CurrencyMap", nullptr, &status), &ures_close);
  const Bundle history(ures_getByKey(map.get(), region.c_str(), nullptr, &status), &ures_close);
  check(status, "currency history of region " + region);
  std::vector<CurrencyUse> uses;
  for (int32_t i = 0; i < ures_getSize(history.get()); ++i) {
    const Bundle entry(ures_getByIndex(history.get(), i, nullptr, &status), &ures_close);
    int32_t length = 0;
    const UChar *id = ures_getStringByKey(entry.get(), "id", &length, &status);
    check(status, "currency history of region " + region);
    CurrencyUse use{std::string(id, id + length), false, true};
    UErrorCode optional = U_ZERO_ERROR;
    const Bundle to(ures_getByKey(entry.get(), "to", nullptr, &optional), &ures_close);
    use.ended = U_SUCCESS(optional);
    optional = U_ZERO_ERROR;
    const UChar *tender = ures_getStringByKey(entry.get(), "tender", &length, &optional);
    use.tender = U_FAILURE(optional) || icu::UnicodeString(tender, length) != u"false";
    uses.push_back(std::move(use));
  }
  return uses;
}

}  // namespace

std::string region_currency(const std::string &region) {
  for (const CurrencyUse &use : currency_history(region)) {
    if (!use.ended && use.tender) return use.code;
  }
  throw std::runtime_error("no current currency in region " + region);
}

bool currency_withdrawn(const std::string &currency, const std::string &region) {
  bool withdrawn = false;
  for (const CurrencyUse &use : currency_history(region)) {
    if (use.code == currency) withdrawn = use.ended;
  }
  return withdrawn;
}

std::string likely_language(const std::string &region) {
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale locale(("und_" + region).c_str());
  locale.addLikelySubtags(status);
  check(status, "likely language of region " + region);
  return locale.getLanguage();
}

std::string data_versions() {
  UVersionInfo cldr;
  UErrorCode status = U_ZERO_ERROR;
  ulocdata_getCLDRVersion(cldr, &status);
  check(status, "CLDR version");
  char cldr_text[U_MAX_VERSION_STRING_LENGTH];
  u_versionToString(cldr, cldr_text);
  UVersionInfo icu;
  u_getVersion(icu);
  char icu_text[U_MAX_VERSION_STRING_LENGTH];
  u_versionToString(icu, icu_text);
  return std::string("ICU ") + icu_text + " (CLDR " + cldr_text + ")";
}

}  // namespace corvinel::locale_data

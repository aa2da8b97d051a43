// What the generator reads from ICU's CLDR data for one locale record.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace corvinel::locale_data {

enum class DateStyle { kFull, kLong, kMedium, kShort };
enum class NameWidth { kAbbreviated, kWide, kNarrow };
enum class NameContext { kFormat, kStandalone };
enum class NumberStyle { kDecimal, kCurrency, kPercent };

class CldrLocale {
 public:
  // `locale` names the texts and patterns, `region` the week and paper data.
  CldrLocale(const std::string &locale, const std::string &region);
  ~CldrLocale();
  CldrLocale(const CldrLocale &) = delete;
  CldrLocale &operator=(const CldrLocale &) = delete;

  std::u16string date_pattern(DateStyle style) const;
  std::u16string time_pattern(DateStyle style) const;
  // The pattern generator's best pattern for a skeleton such as "yMMMEd".
  std::u16string best_pattern(const char *skeleton) const;
  // The medium date-time combination, such as "{1}, {0}".
  std::u16string combination_pattern() const;
  // Abbreviated name of the current era of the locale's calendar (the
  // common era; the Buddhist era where that is the default calendar), and
  // of the common era.
  std::u16string era_name() const;
  std::u16string gregorian_era_name() const;
  // The calendar the locale uses by default ("gregorian", "buddhist", ...).
  std::string default_calendar() const;

  // Twelve months, seven weekdays from Sunday, four quarters.
  std::vector<std::u16string> months(NameContext context, NameWidth width) const;
  std::vector<std::u16string> weekdays(NameContext context, NameWidth width) const;
  std::vector<std::u16string> quarters(NameContext context, NameWidth width) const;
  std::vector<std::u16string> am_pm() const;

  // 0 Sunday ... 6 Saturday.
  int first_weekday() const;
  int minimal_days_in_first_week() const;
  // Height and width in millimetres.
  std::pair<int, int> paper_size() const;
  // Whether the language is written in the Latin script.
  bool latin_script() const;

  // A number pattern as ICU prints it; currency patterns with the fraction
  // digits of `currency`.
  std::u16string number_pattern(NumberStyle style, const std::string &currency) const;

 private:
  struct Data;
  std::unique_ptr<Data> data_;
};

// The symbol of a currency in a locale ("$", "<U20AC>", ...), and the
// region's current currency by CLDR's currency history (the first legal
// tender without an end; the day the generator runs plays no part).
std::u16string currency_symbol(const std::string &locale, const std::string &currency);
std::string region_currency(const std::string &region);
// Whether CLDR's currency history of a region gives the currency an end
// (BYR in Belarus, VEF in Venezuela).
bool currency_withdrawn(const std::string &currency, const std::string &region);

// The language CLDR expects in a region ("und_IN" -> "hi").
std::string likely_language(const std::string &region);

// ICU's and CLDR's versions, for the headers of the generated files.
std::string data_versions();

}  // namespace corvinel::locale_data

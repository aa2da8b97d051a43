#include "record_builder.h"

#include <stdexcept>

#include "pattern_rules.h"
#include "short_items.h"
#include "unicode_text.h"

namespace corvinel::locale_data {
namespace {

std::string ascii(std::u16string_view text) { return escape_text(text, EscapeForm::kUpper); }

// Texts that are empty in the source are absent items.
ItemText item_text(std::u16string_view text, EscapeForm form = EscapeForm::kUpper) {
  if (text.empty()) return std::nullopt;
  return escape_text(text, form);
}

ItemText digit_item(int value) {
  if (value < 0) return std::nullopt;
  return std::to_string(value);
}

std::string country_of(const std::string &glibc_locale) {
  const std::size_t underscore = glibc_locale.find('_');
  return glibc_locale.substr(underscore + 1, 2);
}

// A 12-hour time with seconds. The pattern generator drops the day period
// for a few locales (es_AR's "hh:mm:ss"); the hour-and-minute pattern
// always keeps it, so the seconds are then added to that one, with the
// separator that stands between its hour and minute.
std::u16string time12_with_seconds(const CldrLocale &cldr) {
  const std::u16string pattern = cldr.best_pattern("hmmss");
  if (pattern.find_first_of(u"abB") != std::u16string::npos) return pattern;
  std::u16string short_pattern = cldr.best_pattern("hmm");
  const std::size_t minutes = short_pattern.find(u"mm");
  const std::size_t hour_end = short_pattern.find_last_of(u"hK", minutes);
  if (minutes == std::u16string::npos || hour_end == std::u16string::npos) {
    throw std::runtime_error("no 12-hour time pattern with seconds");
  }
  const std::u16string separator = short_pattern.substr(hour_end + 1, minutes - hour_end - 1);
  short_pattern.insert(minutes + 2, separator + u"ss");
  return short_pattern;
}

// Week patterns by the locale's week rules: weeks from Sunday ("%U"), from
// Monday with the first Monday opening week 1 ("%W"), or ISO weeks ("%V"
// with the ISO year "%G") where weeks start on Monday and the first week
// needs four days. Latin-script languages write "Week 05 2024"/"W05 24".
// The others write the ISO-like "2024-W05"/"24-W05", which the rules
// number as ISO weeks (apply_date_item_rules).  A record whose calendar
// counts another era keeps its own weeks with the "Week" form, whose year
// the era rule turns into the era's year.
std::pair<std::string, std::string> week_patterns(const CldrLocale &cldr, bool era_years) {
  std::string week = "%U";
  std::string year = "%Y";
  std::string short_year = "%y";
  if (cldr.first_weekday() == 1) {
    const bool iso = cldr.minimal_days_in_first_week() >= 4;
    week = iso ? "%V" : "%W";
    year = iso ? "%G" : "%Y";
    short_year = iso ? "%g" : "%y";
  }
  if (cldr.latin_script() || era_years) return {"Week " + week + " " + year, "W" + week + " " + short_year};
  return {year + "-W" + week, short_year + "-W" + week};
}

void set_names(LocaleRecord &record, int first, const std::vector<std::u16string> &names,
               std::size_t count, EscapeForm form = EscapeForm::kUpper) {
  if (names.size() != count) throw std::runtime_error("unexpected number of names");
  for (std::size_t i = 0; i < count; ++i) record[first + i] = item_text(names[i], form);
}

}  // namespace

MonetaryFields read_monetary_fields(GlibcLocales &glibc, const std::string &locale) {
  const GlibcCategory monetary = glibc.category(locale, "LC_MONETARY");
  const auto text = [&](const char *keyword) -> std::u16string {
    const auto found = monetary.find(keyword);
    return found == monetary.end() || found->second.empty() ? std::u16string() : found->second.front();
  };
  const auto number = [&](const char *keyword) {
    const std::u16string value = text(keyword);
    if (value.empty()) throw std::runtime_error(locale + " has no " + keyword);
    return std::stoi(utf16_to_utf8(value));
  };
  MonetaryFields fields;
  fields.int_curr_symbol = text("int_curr_symbol").substr(0, 3);
  fields.currency_symbol = legacy_mark(text("currency_symbol"));
  fields.mon_decimal_point = legacy_mark(text("mon_decimal_point"));
  fields.mon_thousands_sep = legacy_mark(text("mon_thousands_sep"));
  const auto grouping = monetary.find("mon_grouping");
  fields.mon_grouping = grouping_text(grouping == monetary.end() ? std::vector<std::u16string>{}
                                                                 : grouping->second);
  fields.positive_sign = legacy_mark(text("positive_sign"));
  fields.negative_sign = legacy_mark(text("negative_sign"));
  const char *const keywords[] = {"int_frac_digits", "frac_digits",    "p_cs_precedes",
                                  "p_sep_by_space",  "n_cs_precedes",  "n_sep_by_space",
                                  "p_sign_posn",     "n_sign_posn"};
  for (std::size_t i = 0; i < fields.numbers.size(); ++i) fields.numbers[i] = number(keywords[i]);
  return fields;
}

LocaleRecord build_record(const RecordSource &source, GlibcLocales &glibc, RecordClock &clock) {
  const CldrLocale cldr(source.cldr, source.region);
  LocaleRecord record;

  // Names and codes.
  const std::string name = source.name;
  record[item::kName] = name;
  record[item::kLanguageName] = name.substr(0, name.find('_'));
  record[item::kSecondaryLanguage] = source.language;
  record[item::kCountryName] = name.substr(name.find('_') + 1);
  record[item::kLanguage] = source.language;
  record[item::kCountry] = source.country;

  // Date order and separator from CLDR's short date; glibc's d_fmt where
  // that pattern leaves them open.
  const std::u16string short_date = cldr.date_pattern(DateStyle::kShort);
  NumericDateShape shape = numeric_date_shape(short_date);
  const NumericDateShape posix = posix_date_shape(glibc.text(source.glibc, "LC_TIME", "d_fmt"));
  if (shape.order.size() != 3) shape.order = posix.order;
  if (shape.separator.empty()) shape.separator = posix.separator;
  record[item::kDateOrder] = shape.order;
  record[item::kDateSeparator] = shape.separator;

  // Paper.
  const auto [height, width] = cldr.paper_size();
  record[item::kPaperName] = height == 279 && width == 216 ? "LETTER" : "A4";
  record[item::kPaperHeight] = std::to_string(height);
  record[item::kPaperWidth] = std::to_string(width);

  // Date and time patterns. Long composite patterns (weekday dates, the
  // datetimes with a 12-hour clock, times with a zone) write their
  // characters with the lower-case escape letter.
  const std::u16string era = cldr.era_name();
  const DateFieldStyle padded{false};  // CLDR's padding: see convert_date_pattern
  const DateFieldStyle unpadded{false};
  const DateFieldStyle standalone{true};
  const auto convert = [&](const std::u16string &pattern, const DateFieldStyle &style) {
    return convert_date_pattern(pattern, style, era);
  };
  std::array<std::u16string, kItemCount> patterns;
  patterns[28] = convert(cldr.date_pattern(DateStyle::kLong), padded);
  patterns[29] = convert(short_date, padded);
  patterns[30] = convert(cldr.date_pattern(DateStyle::kMedium), unpadded);
  patterns[31] = convert(cldr.date_pattern(DateStyle::kLong), unpadded);
  patterns[32] = convert(cldr.date_pattern(DateStyle::kFull), unpadded);
  patterns[33] = convert(cldr.best_pattern("yMMMEd"), unpadded);
  // A month named without a day takes the standalone form.
  patterns[34] = convert(cldr.best_pattern("yMMMM"), standalone);
  patterns[35] = convert(cldr.best_pattern("yMMM"), standalone);
  patterns[36] = convert(cldr.best_pattern("MMMMd"), padded);
  patterns[37] = convert(cldr.best_pattern("MMMd"), padded);
  patterns[38] = convert(cldr.best_pattern("y"), padded);
  patterns[39] = convert(cldr.best_pattern("yy"), padded);
  patterns[40] = convert(cldr.best_pattern("yQQQQ"), padded);
  patterns[41] = convert(cldr.best_pattern("yQQQ"), padded);
  patterns[52] = convert(time12_with_seconds(cldr), padded);
  patterns[53] = convert(cldr.best_pattern("HHmmss"), padded);
  // The locale's own clock, as its preferred hour ("j") writes it; the
  // hour-and-minute item follows it, and so do the datetime items that the
  // rules join after the fixed values (apply_date_item_rules).
  const std::u16string own_hour = cldr.best_pattern("jmmssz");
  const std::u16string own_time = convert(own_hour, padded);
  clock.twelve_hour = false;
  for (const char16_t *hour : {u"%I", u"%#I", u"%L", u"%#L"}) {
    clock.twelve_hour = clock.twelve_hour || own_time.find(hour) != std::u16string::npos;
  }
  clock.era_years = cldr.default_calendar() == "buddhist";
  if (clock.era_years) clock.era_marker = ascii(era);
  clock.gregorian_marker = ascii(cldr.gregorian_era_name());
  patterns[54] = convert(cldr.best_pattern(clock.twelve_hour ? "hmm" : "Hmm"), padded);
  patterns[55] = patterns[clock.twelve_hour ? 52 : 53];
  patterns[56] = own_time;
  patterns[57] = convert(cldr.time_pattern(DateStyle::kLong), padded);
  // A datetime is one of the date patterns and a time pattern joined by a
  // blank, so that its date part reads like the date formats.
  const auto join = [&](int date, int time) { return patterns[date] + u" " + patterns[time]; };
  patterns[44] = join(31, 52);
  patterns[45] = join(30, 52);
  patterns[46] = join(28, 53);
  patterns[47] = join(29, 52);
  patterns[48] = join(30, 52);
  patterns[49] = join(31, 52);
  patterns[50] = join(32, 52);
  patterns[51] = join(33, 52);
  patterns[58] = convert_combination_pattern(cldr.combination_pattern());
  for (int code = 28; code <= 58; ++code) {
    if (code == item::kWeekLong || code == item::kWeekShort) continue;
    const bool lower = code == 32 || code == 33 || (code >= 44 && code <= 51 && code != 46 && code != 47) ||
                       code == 56 || code == 57;
    record[code] = item_text(patterns[code], lower ? EscapeForm::kLowerU : EscapeForm::kUpper);
  }
  const auto [week_long, week_short] = week_patterns(cldr, clock.era_years);
  record[item::kWeekLong] = week_long;
  record[item::kWeekShort] = week_short;

  // CLDR's next shorter skeletons of the short items, for the rule that
  // makes them fit their formats (apply_date_item_rules); those of the
  // datetimes are their date parts.
  for (const ShortItem &entry : short_items()) {
    for (const ShorterSkeleton &shorter : entry.shorter) {
      const DateFieldStyle &style = entry.item == 35 ? standalone : unpadded;
      std::string pattern = ascii(convert(cldr.best_pattern(shorter.skeleton), style));
      const auto replace_all = [&](const std::string &from, const std::string &to) {
        for (std::size_t at = pattern.find(from); at != std::string::npos; at = pattern.find(from, at + to.size())) {
          pattern.replace(at, from.size(), to);
        }
      };
      if (shorter.use == SkeletonUse::kAbbreviatedQuarter || shorter.use == SkeletonUse::kStandaloneQuarter) {
        replace_all("%Q", "%q");
      }
      if (shorter.use == SkeletonUse::kStandaloneQuarter) replace_all("%q", "%#q");
      clock.shorter.push_back({entry.item, pattern, shorter.reason, shorter.use == SkeletonUse::kNumericQuarter,
                               shorter.twenty_four_hour});
    }
  }
  for (const std::u16string &name : cldr.quarters(NameContext::kFormat, NameWidth::kNarrow)) {
    clock.narrow_quarters.push_back(ascii(name));
  }

  // Names: the forms used inside a date, then the standalone forms.
  using enum NameContext;
  using enum NameWidth;
  set_names(record, item::kMonthsAbbreviated, cldr.months(kFormat, kAbbreviated), 12);
  set_names(record, item::kMonthsWide, cldr.months(kFormat, kWide), 12);
  set_names(record, item::kStandaloneMonthsAbbreviated, cldr.months(kStandalone, kAbbreviated), 12);
  set_names(record, item::kStandaloneMonthsWide, cldr.months(kStandalone, kWide), 12);
  set_names(record, item::kWeekdaysAbbreviated, cldr.weekdays(kFormat, kAbbreviated), 7);
  set_names(record, item::kWeekdaysWide, cldr.weekdays(kFormat, kWide), 7);
  set_names(record, item::kStandaloneWeekdaysAbbreviated, cldr.weekdays(kStandalone, kAbbreviated), 7);
  set_names(record, item::kStandaloneWeekdaysWide, cldr.weekdays(kStandalone, kWide), 7);
  set_names(record, item::kQuartersAbbreviated, cldr.quarters(kFormat, kAbbreviated), 4);
  set_names(record, item::kQuartersWide, cldr.quarters(kFormat, kWide), 4);
  set_names(record, item::kStandaloneQuartersAbbreviated, cldr.quarters(kStandalone, kAbbreviated), 4);
  set_names(record, item::kStandaloneQuartersWide, cldr.quarters(kStandalone, kWide), 4);
  set_names(record, item::kAm, cldr.am_pm(), 2);
  record[item::kFirstWeekday] = std::to_string(cldr.first_weekday());

  // Monetary conventions (items 155-169) from the glibc source. Where that
  // source belongs to another country, the currency is the record's own,
  // with CLDR's code and symbol.
  MonetaryFields monetary = read_monetary_fields(glibc, source.glibc);
  if (country_of(source.glibc) != source.region) {
    const std::string currency = region_currency(source.region);
    monetary.int_curr_symbol = std::u16string(currency.begin(), currency.end());
    monetary.currency_symbol = legacy_mark(currency_symbol(source.cldr, currency));
  }
  record[155] = item_text(monetary.int_curr_symbol);
  record[156] = item_text(monetary.currency_symbol);
  record[157] = item_text(monetary.mon_decimal_point);
  record[158] = item_text(monetary.mon_thousands_sep);
  record[159] = monetary.mon_grouping;
  record[160] = item_text(monetary.positive_sign);
  record[161] = item_text(monetary.negative_sign);
  for (std::size_t i = 0; i < monetary.numbers.size(); ++i) record[162 + i] = digit_item(monetary.numbers[i]);

  // Numeric conventions: marks and grouping from glibc's LC_NUMERIC, the
  // sign strings from LC_MONETARY (POSIX has no others). Numbers carry no
  // symbol, so the symbol flags are the neutral "precedes, no blank"; the
  // negative sign stands where CLDR's number pattern puts it.
  const std::u16string decimal = legacy_mark(glibc.text(source.glibc, "LC_NUMERIC", "decimal_point"));
  const std::u16string group = legacy_mark(glibc.text(source.glibc, "LC_NUMERIC", "thousands_sep"));
  record[172] = item_text(decimal);
  record[173] = item_text(group);
  record[174] = grouping_text(glibc.category(source.glibc, "LC_NUMERIC")["grouping"]);
  record[175] = item_text(monetary.positive_sign);
  record[176] = item_text(monetary.negative_sign);
  record[177] = "1";
  record[178] = "0";
  record[179] = "1";
  record[180] = "0";
  record[181] = "1";

  // Number patterns from CLDR, in the locale's own marks (from the items
  // above) and in canonical marks.
  const std::string currency = ascii(monetary.int_curr_symbol);
  const std::u16string number = cldr.number_pattern(NumberStyle::kDecimal, currency);
  const std::u16string money = cldr.number_pattern(NumberStyle::kCurrency, currency);
  const std::u16string percent = cldr.number_pattern(NumberStyle::kPercent, currency);
  record[182] = std::to_string(negative_sign_position(number));
  record[item::kCurrencyPattern] = item_text(
      localise_number_pattern(money, monetary.mon_decimal_point, monetary.mon_thousands_sep),
      EscapeForm::kLowerUAndHex);
  record[item::kCurrencyPatternCanonical] = item_text(canonical_number_pattern(money));
  record[item::kNumberPattern] =
      item_text(localise_number_pattern(number, decimal, group), EscapeForm::kLowerUAndHex);
  record[item::kNumberPatternCanonical] = item_text(canonical_number_pattern(number));
  record[item::kPercentPattern] =
      item_text(localise_number_pattern(percent, decimal, group), EscapeForm::kLowerUAndHex);
  record[item::kPercentPatternCanonical] = item_text(canonical_number_pattern(percent));
  return record;
}

}  // namespace corvinel::locale_data

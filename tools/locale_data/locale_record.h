// One locale record of the database as the generator builds it.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "record_sources.h"

namespace corvinel::locale_data {

// An item's final 7-bit text; nullopt for an absent item.
using ItemText = std::optional<std::string>;
using LocaleRecord = std::array<ItemText, kItemCount>;

// Item codes the generator refers to by name.
namespace item {
inline constexpr int kName = 0;
inline constexpr int kLanguageName = 1;
inline constexpr int kSecondaryLanguage = 2;
inline constexpr int kCountryName = 3;
inline constexpr int kLanguage = 4;
inline constexpr int kCountry = 5;
inline constexpr int kDateOrder = 6;
inline constexpr int kPaperName = 7;
inline constexpr int kMessageLanguage = 12;
inline constexpr int kLongDate = 28;
inline constexpr int kShortDate = 29;
inline constexpr int kMediumDate = 30;
inline constexpr int kLongDateUnpadded = 31;
inline constexpr int kFullDate = 32;
inline constexpr int kFullDateAbbreviated = 33;
inline constexpr int kWeekLong = 42;
inline constexpr int kWeekShort = 43;
inline constexpr int kTime12 = 52;
inline constexpr int kTime24 = 53;
inline constexpr int kDateTimeCombination = 58;
inline constexpr int kMonthsAbbreviated = 59;
inline constexpr int kMonthsWide = 71;
inline constexpr int kStandaloneMonthsAbbreviated = 83;
inline constexpr int kStandaloneMonthsWide = 95;
inline constexpr int kWeekdaysAbbreviated = 107;
inline constexpr int kWeekdaysWide = 114;
inline constexpr int kStandaloneWeekdaysAbbreviated = 121;
inline constexpr int kStandaloneWeekdaysWide = 128;
inline constexpr int kQuartersAbbreviated = 135;
inline constexpr int kQuartersWide = 139;
inline constexpr int kStandaloneQuartersAbbreviated = 143;
inline constexpr int kStandaloneQuartersWide = 147;
inline constexpr int kAm = 151;
inline constexpr int kPm = 152;
inline constexpr int kDateSeparator = 153;
inline constexpr int kFirstWeekday = 154;
inline constexpr int kCurrencyCode = 155;
inline constexpr int kCurrencySymbol = 156;
inline constexpr int kMonetaryGrouping = 159;
inline constexpr int kCurrencyPattern = 170;
inline constexpr int kCurrencyPatternCanonical = 171;
inline constexpr int kNumericGrouping = 174;
inline constexpr int kNumberPattern = 183;
inline constexpr int kNumberPatternCanonical = 184;
inline constexpr int kPercentPattern = 185;
inline constexpr int kPercentPatternCanonical = 186;
inline constexpr int kPaperHeight = 187;
inline constexpr int kPaperWidth = 188;
}  // namespace item

// The lconv-shaped monetary fields of one glibc locale, shared by the
// records (items 155-169) and the currency table.
struct MonetaryFields {
  std::u16string int_curr_symbol;  // three letters, the trailing blank dropped
  std::u16string currency_symbol;
  std::u16string mon_decimal_point;
  std::u16string mon_thousands_sep;
  std::string mon_grouping;        // "3", "3;2" or "0"
  std::u16string positive_sign;
  std::u16string negative_sign;
  // int_frac_digits, frac_digits, p_cs_precedes, p_sep_by_space,
  // n_cs_precedes, n_sep_by_space, p_sign_posn, n_sign_posn; -1 where the
  // source leaves a field unspecified.
  std::array<int, 8> numbers{};
};

}  // namespace corvinel::locale_data

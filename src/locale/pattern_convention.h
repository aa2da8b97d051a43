// The conventions that go with a number, currency or percent pattern item
// (170, 171, 183..186), read in place from a locale record.  wzssglc copies
// exactly these into the caller's patsyms block; the number engine reads
// them without the copies.
#pragma once

#include <cstdint>
#include <string_view>

#include "corvinel/locale_db.h"

namespace corvinel::locale {

// Texts point into the locale database and are still in the symbolic
// notation.  An item that a 160-byte buffer could not take reads as empty,
// as a fetch of it would fail.
struct PatternConvention {
  std::string_view symbol;  // currency symbol (170), code (171), "%" (185, 186), empty
  std::string_view decimal;
  std::string_view separator;
  int32_t grouping = 0;  // the last character's digit value ("3;2" gives 2)
  std::string_view positive;
  std::string_view negative;
  bool has_fracdigits = false;  // items 170 and 171 carry fraction digits
  int32_t fracdigits = 0;
  int32_t p_cs_precedes = 0;
  int32_t p_sep_by_space = 0;
  int32_t p_sign_posn = 0;
  int32_t n_cs_precedes = 0;
  int32_t n_sep_by_space = 0;
  int32_t n_sign_posn = 0;
  // The last item of the convention could be fetched: what wzssglc reports
  // (0) for a pattern item.
  bool complete = false;
};

// The pattern items: the currency pattern and its canonical twin (170,
// 171), the number and percent patterns and theirs (183 .. 186).
inline constexpr int32_t kCurrencyPattern = 170;
inline constexpr int32_t kCurrencyPatternCanonical = 171;
inline constexpr int32_t kNumberPattern = 183;

inline bool is_pattern_item(int32_t item) noexcept {
  return item == kCurrencyPattern || item == kCurrencyPatternCanonical ||
         (item >= kNumberPattern && item <= kNumberPattern + 3);
}

// The convention of pattern item `item` of `record`.  A null record (a
// locale that ORB_LOCALE does not name) gives empty texts and zeros apart
// from the fixed parts (the percent symbol and layout, the canonical marks)
// and is not complete.  `item` must be a pattern item.
PatternConvention read_pattern_convention(const locitem *record, int32_t item) noexcept;

}  // namespace corvinel::locale

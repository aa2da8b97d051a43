// wzssglc: a locale item into the caller's item buffer and, for the number,
// currency and percent patterns, the conventions that go with the pattern.
//
// The conventions are items of the same locale fetched one by one. The
// record is chosen once per call and every fetch reads it directly: each
// fetch of the same locale would choose the same record again, and no item
// is longer than a buffer, so the texts, the numbers and the reported
// result are those of fetching every item on its own.

#include <cstring>

#include "locale/locale_records.h"

namespace corvinel::locale {
namespace {

// Item codes of the patterns and their conventions.
constexpr int32_t kCurrencyPattern = 170;
constexpr int32_t kCurrencyPatternCanonical = 171;
constexpr int32_t kNumberPattern = 183;
constexpr int32_t kNumberPatternCanonical = 184;
constexpr int32_t kPercentPattern = 185;
constexpr int32_t kPercentPatternCanonical = 186;

// The sign and symbol items of one convention, in fetch order.
struct SignItems {
  int32_t positive, negative;
  int32_t p_cs_precedes, p_sep_by_space, p_sign_posn;
  int32_t n_cs_precedes, n_sep_by_space, n_sign_posn;
};
constexpr SignItems kMonetarySigns = {160, 161, 164, 165, 168, 166, 167, 169};
constexpr SignItems kNumericSigns = {175, 176, 177, 178, 181, 179, 180, 182};

struct MarkItems {
  int32_t decimal, separator, grouping;
};
constexpr MarkItems kMonetaryMarks = {157, 158, 159};
constexpr MarkItems kNumericMarks = {172, 173, 174};

constexpr int32_t kCurrencySymbol = 156;
constexpr int32_t kCurrencyCode = 155;
constexpr int32_t kInternationalFractionDigits = 162;
constexpr int32_t kLocalFractionDigits = 163;

// One nested fetch: 0 when the item was fetched, 1 when not (as wzssglc
// reports a plain item).
class Fetcher {
 public:
  explicit Fetcher(const locitem *record) noexcept : record_(record) {}

  int32_t result() const noexcept { return result_; }

  // The item's text into a field that was zero-filled before.
  void text(int32_t item, char (&field)[CORVINEL_LOCALE_TEXT]) noexcept {
    result_ = copy_item(record_, item, field, sizeof field) < 0 ? 1 : 0;
  }

  // A digit item read as a decimal number; 0 when empty or not fetched.
  int32_t number(int32_t item) noexcept {
    char digits[CORVINEL_LOCALE_TEXT];
    const int32_t length = copy_item(record_, item, digits, sizeof digits);
    result_ = length < 0 ? 1 : 0;
    int32_t value = 0;
    for (int32_t i = 0; i < length && digits[i] >= '0' && digits[i] <= '9'; ++i) {
      value = value * 10 + (digits[i] - '0');
    }
    return value;
  }

  // The grouping item: every character in turn sets the value to its digit
  // value, so the last character decides ("3;2" gives 2). Deliberately not
  // the rule of the other digit items.
  int32_t grouping(int32_t item) noexcept {
    char text[CORVINEL_LOCALE_TEXT];
    const int32_t length = copy_item(record_, item, text, sizeof text);
    result_ = length < 0 ? 1 : 0;
    int32_t value = 0;
    for (int32_t i = 0; i < length; ++i) value = text[i] - '0';
    return value;
  }

 private:
  const locitem *record_;
  int32_t result_ = 0;
};

bool is_pattern_item(int32_t item) noexcept {
  return item == kCurrencyPattern || item == kCurrencyPatternCanonical ||
         (item >= kNumberPattern && item <= kPercentPatternCanonical);
}

void fetch_marks(Fetcher &fetch, const MarkItems &items, patsyms &symbols) noexcept {
  fetch.text(items.decimal, symbols.decimal);
  fetch.text(items.separator, symbols.separator);
  symbols.grouping = fetch.grouping(items.grouping);
}

void set_canonical_marks(patsyms &symbols) noexcept {
  symbols.decimal[0] = '.';
  symbols.separator[0] = ',';
  symbols.grouping = 3;
}

void fetch_signs(Fetcher &fetch, const SignItems &items, patsyms &symbols) noexcept {
  fetch.text(items.positive, symbols.positive);
  fetch.text(items.negative, symbols.negative);
  symbols.p_cs_precedes = fetch.number(items.p_cs_precedes);
  symbols.p_sep_by_space = fetch.number(items.p_sep_by_space);
  symbols.p_sign_posn = fetch.number(items.p_sign_posn);
  symbols.n_cs_precedes = fetch.number(items.n_cs_precedes);
  symbols.n_sep_by_space = fetch.number(items.n_sep_by_space);
  symbols.n_sign_posn = fetch.number(items.n_sign_posn);
}

// Fills the convention of a pattern item; returns the last fetch's result.
int32_t fill_symbols(const locitem *record, int32_t item, patsyms &symbols) noexcept {
  std::memset(symbols.symbol, 0, sizeof symbols.symbol);
  std::memset(symbols.decimal, 0, sizeof symbols.decimal);
  std::memset(symbols.separator, 0, sizeof symbols.separator);
  std::memset(symbols.positive, 0, sizeof symbols.positive);
  std::memset(symbols.negative, 0, sizeof symbols.negative);
  Fetcher fetch(record);

  switch (item) {
    case kCurrencyPattern:
    case kCurrencyPatternCanonical: {
      const bool local = item == kCurrencyPattern;
      fetch.text(local ? kCurrencySymbol : kCurrencyCode, symbols.symbol);
      fetch_marks(fetch, kMonetaryMarks, symbols);
      fetch_signs(fetch, kMonetarySigns, symbols);
      symbols.fracdigits = fetch.number(local ? kLocalFractionDigits : kInternationalFractionDigits);
      return fetch.result();
    }
    case kNumberPattern:
    case kNumberPatternCanonical:
      if (item == kNumberPattern) {
        fetch_marks(fetch, kNumericMarks, symbols);
      } else {
        set_canonical_marks(symbols);
      }
      fetch_signs(fetch, kNumericSigns, symbols);
      return fetch.result();
    default:
      break;
  }
  // Percent patterns: the numeric signs, and a fixed layout with the sign
  // before the number.
  symbols.symbol[0] = '%';
  if (item == kPercentPattern) {
    fetch_marks(fetch, kNumericMarks, symbols);
  } else {
    set_canonical_marks(symbols);
  }
  fetch.text(kNumericSigns.positive, symbols.positive);
  fetch.text(kNumericSigns.negative, symbols.negative);
  symbols.p_cs_precedes = 0;
  symbols.p_sep_by_space = 0;
  symbols.p_sign_posn = 1;
  symbols.n_cs_precedes = 0;
  symbols.n_sep_by_space = 0;
  symbols.n_sign_posn = 1;
  return fetch.result();
}

}  // namespace
}  // namespace corvinel::locale

extern "C" int32_t wzssglc(int32_t locale, int32_t item, struct locbuf **handle) {
  using namespace corvinel::locale;
  if (handle == nullptr || *handle == nullptr) return 1;
  locbuf &buffer = **handle;
  const locitem *record = select_record(locale);
  buffer.length = copy_item(record, item, buffer.text, sizeof buffer.text);
  if (!is_pattern_item(item)) return buffer.length < 0 ? 1 : 0;
  if (buffer.symbols == nullptr) return 1;
  return fill_symbols(record, item, *buffer.symbols);
}

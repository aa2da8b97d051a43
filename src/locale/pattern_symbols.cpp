// wzssglc: a locale item into the caller's item buffer and, for the number,
// currency and percent patterns, the conventions that go with the pattern.
//
// The conventions are items of the same locale fetched one by one. The
// record is chosen once per call and every item is read from it directly:
// each fetch of the same locale would choose the same record again, so the
// texts, the numbers and the reported result are those of fetching every
// item on its own.

#include <cstring>

#include "locale/locale_records.h"
#include "locale/pattern_convention.h"

namespace corvinel::locale {
namespace {

// Item codes of the patterns and their conventions.
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

// Reads items of one record as fetches into item buffers would see them.
class ItemReader {
 public:
  explicit ItemReader(const locitem *record) noexcept : record_(record) {}

  // Whether a fetch of the item succeeds: a record, and a text that fits
  // an item buffer.
  bool fetches(int32_t item) const noexcept {
    return record_ != nullptr && record_[item].length <= CORVINEL_LOCALE_TEXT;
  }

  std::string_view text(int32_t item) const noexcept {
    if (!fetches(item) || record_[item].text == nullptr) return {};
    return {record_[item].text, static_cast<std::size_t>(record_[item].length)};
  }

  // A digit item read as a decimal number; 0 when empty or not fetched.
  int32_t number(int32_t item) const noexcept {
    int32_t value = 0;
    for (const char c : text(item)) {
      if (c < '0' || c > '9') break;
      value = value * 10 + (c - '0');
    }
    return value;
  }

  // The grouping item: every character in turn sets the value to its digit
  // value, so the last character decides ("3;2" gives 2). Deliberately not
  // the rule of the other digit items.
  int32_t grouping(int32_t item) const noexcept {
    int32_t value = 0;
    for (const char c : text(item)) value = c - '0';
    return value;
  }

 private:
  const locitem *record_;
};

void read_marks(const ItemReader &items, const MarkItems &marks, PatternConvention &c) noexcept {
  c.decimal = items.text(marks.decimal);
  c.separator = items.text(marks.separator);
  c.grouping = items.grouping(marks.grouping);
}

void set_canonical_marks(PatternConvention &c) noexcept {
  c.decimal = ".";
  c.separator = ",";
  c.grouping = 3;
}

void read_signs(const ItemReader &items, const SignItems &signs, PatternConvention &c) noexcept {
  c.positive = items.text(signs.positive);
  c.negative = items.text(signs.negative);
  c.p_cs_precedes = items.number(signs.p_cs_precedes);
  c.p_sep_by_space = items.number(signs.p_sep_by_space);
  c.p_sign_posn = items.number(signs.p_sign_posn);
  c.n_cs_precedes = items.number(signs.n_cs_precedes);
  c.n_sep_by_space = items.number(signs.n_sep_by_space);
  c.n_sign_posn = items.number(signs.n_sign_posn);
}

void copy_text(std::string_view text, char (&field)[CORVINEL_LOCALE_TEXT]) noexcept {
  std::memset(field, 0, sizeof field);
  if (!text.empty()) std::memcpy(field, text.data(), text.size());
}

}  // namespace

PatternConvention read_pattern_convention(const locitem *record, int32_t item) noexcept {
  const ItemReader items(record);
  PatternConvention c;
  switch (item) {
    case kCurrencyPattern:
    case kCurrencyPatternCanonical: {
      const bool local = item == kCurrencyPattern;
      c.symbol = items.text(local ? kCurrencySymbol : kCurrencyCode);
      read_marks(items, kMonetaryMarks, c);
      read_signs(items, kMonetarySigns, c);
      const int32_t fraction = local ? kLocalFractionDigits : kInternationalFractionDigits;
      c.has_fracdigits = true;
      c.fracdigits = items.number(fraction);
      c.complete = items.fetches(fraction);
      return c;
    }
    case kNumberPattern:
      read_marks(items, kNumericMarks, c);
      read_signs(items, kNumericSigns, c);
      c.complete = items.fetches(kNumericSigns.n_sign_posn);
      return c;
    case kPercentPattern:
      read_marks(items, kNumericMarks, c);
      break;
    case kPercentPatternCanonical:
      set_canonical_marks(c);
      break;
    default:  // the canonical number pattern
      set_canonical_marks(c);
      read_signs(items, kNumericSigns, c);
      c.complete = items.fetches(kNumericSigns.n_sign_posn);
      return c;
  }
  // Percent patterns: the numeric signs, and a fixed layout with the sign
  // before the number.
  c.symbol = "%";
  c.positive = items.text(kNumericSigns.positive);
  c.negative = items.text(kNumericSigns.negative);
  c.p_sign_posn = 1;
  c.n_sign_posn = 1;
  c.complete = items.fetches(kNumericSigns.negative);
  return c;
}

}  // namespace corvinel::locale

extern "C" int32_t wzssglc(int32_t locale, int32_t item, struct locbuf **handle) {
  using namespace corvinel::locale;
  if (handle == nullptr || *handle == nullptr) return 1;
  locbuf &buffer = **handle;
  const locitem *record = select_record(locale);
  buffer.length = copy_item(record, item, buffer.text, sizeof buffer.text);
  if (!is_pattern_item(item)) return buffer.length < 0 ? 1 : 0;
  if (buffer.symbols == nullptr) return 1;
  const PatternConvention c = read_pattern_convention(record, item);
  patsyms &s = *buffer.symbols;
  copy_text(c.symbol, s.symbol);
  copy_text(c.decimal, s.decimal);
  copy_text(c.separator, s.separator);
  s.grouping = c.grouping;
  copy_text(c.positive, s.positive);
  copy_text(c.negative, s.negative);
  if (c.has_fracdigits) s.fracdigits = c.fracdigits;
  s.p_cs_precedes = c.p_cs_precedes;
  s.p_sep_by_space = c.p_sep_by_space;
  s.p_sign_posn = c.p_sign_posn;
  s.n_cs_precedes = c.n_cs_precedes;
  s.n_sep_by_space = c.n_sep_by_space;
  s.n_sign_posn = c.n_sign_posn;
  return c.complete ? 0 : 1;
}

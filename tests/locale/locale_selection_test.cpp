// getORBLocDB: choice of the record by number or by ORB_LOCALE and the copy
// into the caller's buffer; wzssglc: plain items, and the conventions of the
// six pattern items against fetching every convention on its own.

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/locale_db.h"
#include "locale/orb_locale_env.h"

namespace {

using corvinel::testing::locale_item;
using corvinel::testing::locale_number;
using corvinel::testing::ScopedOrbLocale;

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
  EXPECT_EQ(locale_item(1, 0), "Afrikaans_SouthAfrica");
  EXPECT_EQ(locale_item(136, 0), "Chinese_XX");
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
  int32_t locale;  // 0: ORB_LOCALE, set to a value no record matches
  int32_t item;
  int32_t spare;     // outcap minus the item's length
  int32_t expected;  // result; kLength: the item's length
};

void PrintTo(const CapacityCase &c, std::ostream *out) { *out << c.label; }

constexpr int32_t kLength = -2, kEnglish = 53;

class Capacity : public ::testing::TestWithParam<CapacityCase> {};

// The item is copied whole or not at all; exactly outcap bytes are zero-filled around it.
TEST_P(Capacity, CopiesWhatFitsAndNeverTruncates) {
  const CapacityCase &c = GetParam();
  ScopedOrbLocale environment("xx_YY");
  const bool valid = c.item >= 0 && c.item < CORVINEL_LOCALE_ITEMS;
  const locitem *stored = valid ? &ORBlocaleData[kEnglish - 1][c.item] : nullptr;
  const int32_t outcap = (stored ? stored->length : 0) + c.spare;
  const std::size_t zeroed = static_cast<std::size_t>(std::max(outcap, 0));
  std::string buffer(zeroed + 8, 'Z');
  const int32_t result = getORBLocDB(buffer.data(), outcap, c.item, c.locale);
  EXPECT_EQ(result, c.expected == kLength ? stored->length : c.expected);
  std::string expected = std::string(zeroed, '\0') + "ZZZZZZZZ";
  if (result > 0) expected.replace(0, static_cast<std::size_t>(result), stored->text);
  EXPECT_EQ(buffer, expected);
}

INSTANTIATE_TEST_SUITE_P(LocaleSelection, Capacity,
                         ::testing::Values(CapacityCase{"ExactFitHasNoTerminator", kEnglish, 0, 0, kLength},
                                           CapacityCase{"OneShortFails", kEnglish, 0, -1, -1},
                                           CapacityCase{"RoomToSpareIsZeroFilled", kEnglish, 0, 5, kLength},
                                           CapacityCase{"AbsentItemFitsNoRoom", kEnglish, 9, 0, 0},
                                           CapacityCase{"NegativeCapacityFailsForAbsentItems", kEnglish, 9, -1, -1},
                                           CapacityCase{"ItemCodeBelowRange", kEnglish, -1, 10, -1},
                                           CapacityCase{"ItemCodeAboveRange", kEnglish, 189, 10, -1},
                                           CapacityCase{"NoRecordLeavesZeros", 0, 0, 32, -1}),
                         [](const auto &info) { return std::string(info.param.label); });

TEST(LocaleSelection, NullBufferOnlyTakesAbsentItems) {
  EXPECT_EQ(getORBLocDB(nullptr, 0, 9, kEnglish), 0);
  EXPECT_EQ(getORBLocDB(nullptr, 100, 0, kEnglish), -1);
}

constexpr uint64_t kReserved = 0x1234;

// An item buffer with its symbol block, filled by `fetch`.
struct Fetch {
  locbuf buffer{kReserved, 0, {}, nullptr};
  patsyms symbols{};
  int32_t result;

  template <typename Fn>
  Fetch(Fn fetch, int32_t locale, int32_t item) {
    buffer.symbols = &symbols;
    symbols.fracdigits = 777;  // left as it was but for the currency patterns
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
  for (const char *name : {"Bengali_India", "English_India", "Hindi_India", "Marathi_India", "Tamil_India", "Telugu_India"}) {
    EXPECT_EQ(Fetch(fast_wzssglc, locale_number(name), 183).symbols.grouping, 2) << name;
  }
}

TEST(PatternSymbols, BadHandlesFailWithoutTouchingAnything) {
  EXPECT_EQ(wzssglc(53, 0, nullptr), 1);
  locbuf *none = nullptr;
  EXPECT_EQ(wzssglc(53, 0, &none), 1);
  locbuf buffer{kReserved, 0, {}, nullptr};
  locbuf *handle = &buffer;
  EXPECT_EQ(wzssglc(53, 170, &handle), 1) << "a pattern item needs a symbol block";
  EXPECT_EQ(buffer.length, 33);
  EXPECT_EQ(buffer.reserved, kReserved);
}

}  // namespace

// wzssglc: plain items, and the conventions filled for the six pattern
// items, against fetching every convention on its own.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/locale_db.h"
#include "locale/orb_locale_env.h"

namespace {

using corvinel::testing::locale_number;
using corvinel::testing::ScopedOrbLocale;

constexpr uint64_t kReserved = 0x1234;
constexpr int32_t kUntouchedFraction = 777;

// An item buffer with its symbol block, filled by `fetch`.
struct Fetch {
  locbuf buffer{kReserved, 0, {}, nullptr};
  patsyms symbols{};
  int32_t result = -99;

  template <typename Fn>
  Fetch(Fn fetch, int32_t locale, int32_t item) {
    buffer.symbols = &symbols;
    symbols.fracdigits = kUntouchedFraction;
    result = fetch(locale, item, buffer);
  }
};

int32_t fast_wzssglc(int32_t locale, int32_t item, locbuf &buffer) {
  locbuf *handle = &buffer;
  return wzssglc(locale, item, &handle);
}

// wzssglc as first written: each convention fetched into a private buffer
// of its own, in the documented order; the result is that of the last fetch.
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
  for (char *field : {s.symbol, s.decimal, s.separator, s.positive, s.negative}) {
    std::memset(field, 0, CORVINEL_LOCALE_TEXT);
  }
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
    for (const char c : fetch(money ? 159 : 174)) s.grouping = c - '0';
  }
  put(s.positive, fetch(money ? 160 : 175));
  put(s.negative, fetch(money ? 161 : 176));
  if (percent) {
    s.p_cs_precedes = s.p_sep_by_space = s.n_cs_precedes = s.n_sep_by_space = 0;
    s.p_sign_posn = s.n_sign_posn = 1;
    return result;
  }
  const int32_t flags = money ? 164 : 177;  // p_cs, p_sep, n_cs, n_sep, p_posn, n_posn
  s.p_cs_precedes = digits(flags);
  s.p_sep_by_space = digits(flags + 1);
  s.p_sign_posn = digits(flags + 4);
  s.n_cs_precedes = digits(flags + 2);
  s.n_sep_by_space = digits(flags + 3);
  s.n_sign_posn = digits(flags + 5);
  if (money) s.fracdigits = digits(item == 170 ? 163 : 162);
  return result;
}

void expect_same_as_reference(int32_t locale) {
  for (const int32_t item : {170, 171, 183, 184, 185, 186, 0, 9, 155}) {
    SCOPED_TRACE("locale " + std::to_string(locale) + " item " + std::to_string(item));
    const Fetch fast(fast_wzssglc, locale, item), reference(reference_wzssglc, locale, item);
    EXPECT_EQ(fast.result, reference.result);
    EXPECT_EQ(fast.buffer.reserved, kReserved);
    EXPECT_EQ(fast.buffer.length, reference.buffer.length);
    EXPECT_EQ(std::memcmp(fast.buffer.text, reference.buffer.text, sizeof reference.buffer.text), 0);
    EXPECT_EQ(std::memcmp(&fast.symbols, &reference.symbols, sizeof fast.symbols), 0);
  }
}

TEST(PatternSymbols, AgreeWithFetchingEveryConventionOnItsOwn) {
  for (int32_t locale = 1; locale <= CORVINEL_LOCALE_RECORDS; ++locale) expect_same_as_reference(locale);
  for (const char *value : {static_cast<const char *>(nullptr), "hi_IN", "", "xx_XX"}) {
    ScopedOrbLocale environment(value);
    expect_same_as_reference(0);
  }
}

std::string summary(const patsyms &s) {
  return std::string(s.symbol) + "|" + s.decimal + "|" + s.separator + "|" + std::to_string(s.grouping) + "|" +
         s.positive + "|" + s.negative + "|" + std::to_string(s.fracdigits) + "|" + std::to_string(s.p_cs_precedes) +
         std::to_string(s.p_sep_by_space) + std::to_string(s.p_sign_posn) + std::to_string(s.n_cs_precedes) +
         std::to_string(s.n_sep_by_space) + std::to_string(s.n_sign_posn);
}

TEST(PatternSymbols, DocumentedConventions) {
  const Fetch english(fast_wzssglc, 53, 183), german(fast_wzssglc, 64, 170);
  EXPECT_EQ(std::string(english.buffer.text) + "|" + summary(english.symbols), "#,##0.###||.|,|3||-|777|101101");
  EXPECT_EQ(std::string(german.buffer.text) + "|" + summary(german.symbols), "#.##0,00 <u00a4>|<U20AC>|,|.|3||-|2|011011");
  EXPECT_EQ(english.result + german.result, 0);
  for (const char *name : {"Bengali_India", "English_India", "Hindi_India", "Marathi_India", "Tamil_India",
                           "Telugu_India"}) {
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

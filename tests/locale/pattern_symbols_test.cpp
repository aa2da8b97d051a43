// wzssglc: plain items, and the conventions filled for the six pattern
// items.

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

// An item buffer with its symbol block, both zero-initialised.
struct Fetch {
  locbuf buffer{};
  patsyms symbols{};
  locbuf *handle = &buffer;
  int32_t result = -99;

  Fetch(int32_t locale, int32_t item, int32_t fracdigits = 0) {
    buffer.symbols = &symbols;
    symbols.fracdigits = fracdigits;
    result = wzssglc(locale, item, &handle);
  }
  std::string text() const { return buffer.text; }
};

// The fetches of the conventions done one by one, each as a plain fetch
// into its own buffer, exactly in the documented order; the result of the
// last one is reported. wzssglc must agree with it byte for byte.
int32_t plain_fetch(int32_t locale, int32_t item, char (&field)[CORVINEL_LOCALE_TEXT]) {
  locbuf own{};
  locbuf *handle = &own;
  const int32_t result = wzssglc(locale, item, &handle);
  if (own.length > 0) std::memcpy(field, own.text, static_cast<std::size_t>(own.length));
  return result;
}

int32_t digits(int32_t locale, int32_t item, int32_t &result) {
  char text[CORVINEL_LOCALE_TEXT] = {};
  result = plain_fetch(locale, item, text);
  return std::atoi(text);
}

int32_t reference_wzssglc(int32_t locale, int32_t item, locbuf &buffer) {
  buffer.length = getORBLocDB(buffer.text, sizeof buffer.text, item, locale);
  patsyms &s = *buffer.symbols;
  std::memset(s.symbol, 0, sizeof s.symbol);
  std::memset(s.decimal, 0, sizeof s.decimal);
  std::memset(s.separator, 0, sizeof s.separator);
  std::memset(s.positive, 0, sizeof s.positive);
  std::memset(s.negative, 0, sizeof s.negative);
  int32_t result = 0;
  if (item == 170 || item == 171) result = plain_fetch(locale, item == 170 ? 156 : 155, s.symbol);
  if (item == 185 || item == 186) s.symbol[0] = '%';
  const bool monetary = item == 170 || item == 171;
  if (item == 170 || item == 171 || item == 183 || item == 185) {
    result = plain_fetch(locale, monetary ? 157 : 172, s.decimal);
    result = plain_fetch(locale, monetary ? 158 : 173, s.separator);
    char grouping[CORVINEL_LOCALE_TEXT] = {};
    result = plain_fetch(locale, monetary ? 159 : 174, grouping);
    s.grouping = 0;
    for (const char *c = grouping; *c != '\0'; ++c) s.grouping = *c - '0';
  } else {
    s.decimal[0] = '.';
    s.separator[0] = ',';
    s.grouping = 3;
  }
  result = plain_fetch(locale, monetary ? 160 : 175, s.positive);
  result = plain_fetch(locale, monetary ? 161 : 176, s.negative);
  if (item == 185 || item == 186) {
    s.p_cs_precedes = 0;
    s.p_sep_by_space = 0;
    s.p_sign_posn = 1;
    s.n_cs_precedes = 0;
    s.n_sep_by_space = 0;
    s.n_sign_posn = 1;
    return result;
  }
  s.p_cs_precedes = digits(locale, monetary ? 164 : 177, result);
  s.p_sep_by_space = digits(locale, monetary ? 165 : 178, result);
  s.p_sign_posn = digits(locale, monetary ? 168 : 181, result);
  s.n_cs_precedes = digits(locale, monetary ? 166 : 179, result);
  s.n_sep_by_space = digits(locale, monetary ? 167 : 180, result);
  s.n_sign_posn = digits(locale, monetary ? 169 : 182, result);
  if (monetary) s.fracdigits = digits(locale, item == 170 ? 163 : 162, result);
  return result;
}

constexpr int32_t kPatternItems[] = {170, 171, 183, 184, 185, 186};

void expect_same_as_reference(int32_t locale) {
  for (const int32_t item : kPatternItems) {
    SCOPED_TRACE("locale " + std::to_string(locale) + " item " + std::to_string(item));
    const Fetch fast(locale, item, 777);
    locbuf buffer{};
    patsyms symbols{};
    symbols.fracdigits = 777;
    buffer.symbols = &symbols;
    const int32_t result = reference_wzssglc(locale, item, buffer);
    EXPECT_EQ(fast.result, result);
    EXPECT_EQ(fast.buffer.length, buffer.length);
    EXPECT_EQ(std::memcmp(fast.buffer.text, buffer.text, sizeof buffer.text), 0);
    EXPECT_EQ(std::memcmp(&fast.symbols, &symbols, sizeof symbols), 0);
  }
}

TEST(PatternSymbols, AgreeWithFetchingEveryConventionOnItsOwn) {
  for (int32_t locale = 1; locale <= CORVINEL_LOCALE_RECORDS; ++locale) expect_same_as_reference(locale);
  for (const char *value : {static_cast<const char *>(nullptr), "hi_IN", "", "xx_XX"}) {
    ScopedOrbLocale environment(value);
    expect_same_as_reference(0);
  }
}

TEST(PatternSymbols, EnglishNumberPattern) {
  const Fetch fetch(53, 183);
  EXPECT_EQ(fetch.result, 0);
  EXPECT_EQ(fetch.text(), "#,##0.###");
  EXPECT_EQ(fetch.buffer.length, 9);
  EXPECT_STREQ(fetch.symbols.symbol, "");
  EXPECT_STREQ(fetch.symbols.decimal, ".");
  EXPECT_STREQ(fetch.symbols.separator, ",");
  EXPECT_EQ(fetch.symbols.grouping, 3);
  EXPECT_STREQ(fetch.symbols.positive, "");
  EXPECT_STREQ(fetch.symbols.negative, "-");
  EXPECT_EQ(fetch.symbols.n_sign_posn, 1);
}

TEST(PatternSymbols, GermanCurrencyPattern) {
  const Fetch fetch(64, 170);
  EXPECT_EQ(fetch.result, 0);
  EXPECT_EQ(fetch.text(), "#.##0,00 <u00a4>");
  EXPECT_STREQ(fetch.symbols.symbol, "<U20AC>");
  EXPECT_STREQ(fetch.symbols.decimal, ",");
  EXPECT_STREQ(fetch.symbols.separator, ".");
  EXPECT_EQ(fetch.symbols.fracdigits, 2);
  EXPECT_EQ(fetch.symbols.p_cs_precedes, 0);
  EXPECT_EQ(fetch.symbols.p_sep_by_space, 1);
}

TEST(PatternSymbols, CanonicalPatternsCarryCanonicalMarksAndTheCode) {
  for (int32_t locale = 1; locale <= CORVINEL_LOCALE_RECORDS; ++locale) {
    SCOPED_TRACE(locale);
    for (const int32_t item : {184, 186}) {
      const Fetch fetch(locale, item);
      EXPECT_STREQ(fetch.symbols.decimal, ".");
      EXPECT_STREQ(fetch.symbols.separator, ",");
      EXPECT_EQ(fetch.symbols.grouping, 3);
    }
    const Fetch international(locale, 171);
    EXPECT_EQ(international.symbols.symbol, locale_item(locale, 155));
    EXPECT_EQ(international.symbols.fracdigits, std::atoi(locale_item(locale, 162)->c_str()));
  }
}

TEST(PatternSymbols, IndianGroupingCountsByItsLastDigit) {
  for (const char *name : {"Bengali_India", "English_India", "Hindi_India", "Marathi_India", "Tamil_India",
                           "Telugu_India"}) {
    SCOPED_TRACE(name);
    for (const int32_t item : {170, 183, 185}) { EXPECT_EQ(Fetch(locale_number(name), item).symbols.grouping, 2); }
  }
}

TEST(PatternSymbols, PercentPatternsHaveAFixedLayout) {
  for (int32_t locale = 1; locale <= CORVINEL_LOCALE_RECORDS; ++locale) {
    SCOPED_TRACE(locale);
    for (const int32_t item : {185, 186}) {
      const Fetch fetch(locale, item, 777);
      EXPECT_EQ(fetch.result, 0);
      EXPECT_STREQ(fetch.symbols.symbol, "%");
      EXPECT_EQ(fetch.symbols.p_sign_posn, 1);
      EXPECT_EQ(fetch.symbols.n_sign_posn, 1);
      EXPECT_EQ(fetch.symbols.p_cs_precedes + fetch.symbols.p_sep_by_space + fetch.symbols.n_cs_precedes +
                    fetch.symbols.n_sep_by_space,
                0);
      EXPECT_EQ(fetch.symbols.fracdigits, 777) << "left as it was";
    }
  }
}

TEST(PatternSymbols, PlainItemsReportWhetherTheyWereFetched) {
  const Fetch fetched(79, 155);
  EXPECT_EQ(fetched.result, 0);
  EXPECT_EQ(fetched.text(), "JPY");
  EXPECT_EQ(fetched.buffer.length, 3);
  const Fetch absent(79, 9);
  EXPECT_EQ(absent.result, 0);
  EXPECT_EQ(absent.buffer.length, 0);

  ScopedOrbLocale environment("en_XX");
  const Fetch missing(0, 155);
  EXPECT_EQ(missing.result, 1);
  EXPECT_EQ(missing.buffer.length, -1);
  EXPECT_EQ(missing.text(), "");
}

TEST(PatternSymbols, UnmatchedLocaleStillSetsTheFixedParts) {
  ScopedOrbLocale environment("en_XX");
  const Fetch percent(0, 186);
  EXPECT_EQ(percent.result, 1);
  EXPECT_EQ(percent.buffer.length, -1);
  EXPECT_STREQ(percent.symbols.symbol, "%");
  EXPECT_STREQ(percent.symbols.decimal, ".");
  EXPECT_EQ(percent.symbols.grouping, 3);
  EXPECT_STREQ(percent.symbols.negative, "");
  const Fetch number(0, 183);
  EXPECT_EQ(number.result, 1);
  EXPECT_EQ(number.symbols.grouping, 0);
  EXPECT_EQ(number.symbols.n_sign_posn, 0);
}

TEST(PatternSymbols, BadHandlesFailWithoutTouchingAnything) {
  EXPECT_EQ(wzssglc(53, 0, nullptr), 1);
  locbuf *none = nullptr;
  EXPECT_EQ(wzssglc(53, 0, &none), 1);
  locbuf buffer{};
  buffer.reserved = 0x1234;
  locbuf *handle = &buffer;
  EXPECT_EQ(wzssglc(53, 170, &handle), 1) << "a pattern item needs a symbol block";
  EXPECT_EQ(buffer.length, 33);
  EXPECT_EQ(buffer.reserved, 0x1234u);
}

}  // namespace

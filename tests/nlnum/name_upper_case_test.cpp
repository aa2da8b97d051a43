// Upper-case month, weekday and quarter names against ICU's upper casing in
// the locale's language (tools/case_tables/upper_case_names wrote them):
// Turkish dotted and dotless i, Greek capitals without accents, German
// umlauts.  The same characters in a UTF-8 session of the C locale and of a
// Turkish one, and in 16-bit units.
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/formats.h"
#include "locale/orb_locale_env.h"
#include "support/request_builder.h"
#include "support/session_locales.h"
#include "support/utf8_text.h"

namespace {

using namespace corvinel::testing;

struct UpperName {
  const char *locale;
  int32_t item;
  const char *expected;  // UTF-8
};

constexpr UpperName kNames[] = {
#include "upper_case_names.inc"
};

// The format, value and decimals (2 full, 3 abbreviated, in upper case)
// that show an item.
struct Shown {
  fmt_render_fn render;
  double value;
  int32_t decimals;
};

Shown shown(int32_t item) {
  struct Range {
    int32_t first, count;
    fmt_render_fn render;
    int32_t decimals;
  };
  constexpr Range kRanges[] = {{95, 12, nlstrmon, 2}, {83, 12, nlstrmon, 3},
                               {128, 7, nlstrwk, 2},  {121, 7, nlstrwk, 3},
                               {147, 4, nlstrqtr, 2}, {143, 4, nlstrqtr, 3}};
  for (const Range &r : kRanges) {
    if (item >= r.first && item < r.first + r.count) return {r.render, item - r.first + 1.0, r.decimals};
  }
  return {nullptr, 0, 0};
}

// UTF-8 as UTF-16 units, low byte first.
std::string units_low_first(const std::string &utf8) {
  std::string out;
  for (const char32_t c : code_points(utf8)) {
    out.push_back(static_cast<char>(c & 0xFF));
    out.push_back(static_cast<char>(c >> 8));
  }
  return out;
}

class UpperCaseNames : public ::testing::TestWithParam<const char *> {};

TEST_P(UpperCaseNames, AreIcusInTheLocalesLanguage) {
  ScopedSessionLocale session(GetParam());
  ASSERT_TRUE(session.active());
  for (const UpperName &name : kNames) {
    ScopedOrbLocale locale(name.locale);
    const Shown s = shown(name.item);
    ASSERT_NE(s.render, nullptr) << name.item;
    SCOPED_TRACE(std::string(name.locale) + " item " + std::to_string(name.item));
    for (const bool units : {false, true}) {
      Request r(40, s.decimals, s.value, 100);
      if (units) r.set_output_encoding(CORVINEL_ENC_UTF16LE);
      ASSERT_EQ(s.render(r.get()), CORVINEL_OK);
      EXPECT_EQ(r.text(), units ? units_low_first(name.expected) : std::string(name.expected));
      EXPECT_TRUE(r.guards_intact());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(ProcessLocales, UpperCaseNames,
                         ::testing::Values(kUtf8Locale, kTurkishUtf8Locale));

}  // namespace

// The one pass (conventions compiled once per thread, the fixed text laid
// straight into the field) against the general attempts, byte for byte: the
// number engine against zkfnum_reference, the currency-code formats against
// their general-only twins.  Every locale, by number and by ORB_LOCALE
// changing between calls, in four session codesets and in 16-bit units,
// every width from 1 to 32 (so every step of the fitting), over ties,
// carries into a new group, values whose scaled digits pass 64 bits, values
// that end in exponent texts, and random values.
#include <array>
#include <bit>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/currency.h"
#include "corvinel/locale_db.h"
#include "locale/orb_locale_env.h"
#include "nlnum/currency_amounts.h"
#include "nlnum/number_engine.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace {

using namespace corvinel::nlnum;
using namespace corvinel::testing;

constexpr int32_t kRecords = CORVINEL_LOCALE_RECORDS;
constexpr int32_t kWidest = 32;

std::vector<double> agreement_values() {
  std::vector<double> values = {
      0.0, -0.0, 0.5, -0.5, 1.5, 2.5, 0.125, 0.005, 1.005, 2.675, 9.995, 99.995, -999.995,
      999.5, 1000, 999999.999, 999999.995, -1234.565, 1234567.891, 0.05, 0.0049,
      // The scaled digits pass 64 bits with a few decimals.
      1.8e17, -9.2e18, 123456789012345.678, 5e-324, 1e-7,
      // Exponent texts in the narrower fields: ties and carries of the
      // significant digits, an exponent of three digits.
      9.5e6, -98765432.1, 1.25e8, 9999999.5, -2.5e7, 9.95e6, 123456789012.0, 1e100};
  std::mt19937_64 random(20261124);
  for (int i = 0; i < 24; ++i) {
    const double scale = std::pow(10.0, static_cast<int>(random() % 14) - 4);
    const auto units = static_cast<int64_t>(random() % 2000001) - 1000000;
    values.push_back(static_cast<double>(units) * scale);
  }
  return values;
}

// Locale names for ORB_LOCALE, one per record ("de_DE"), and a name no
// record has.
std::vector<std::string> orb_locale_names() {
  std::vector<std::string> names;
  for (int32_t locale = 1; locale <= kRecords; ++locale) {
    char language[CORVINEL_LOCALE_TEXT], country[CORVINEL_LOCALE_TEXT];
    const int32_t l = getORBLocDB(language, sizeof language, 4, locale);
    const int32_t c = getORBLocDB(country, sizeof country, 5, locale);
    names.push_back(std::string(language, l > 0 ? l : 0) + "_" + std::string(country, c > 0 ? c : 0));
  }
  names.emplace_back("xx_YY");
  return names;
}

struct Outcome {
  int32_t result;
  int32_t outlen;
  int64_t xcode_state;
  std::string bytes;
  bool intact;

  bool operator==(const Outcome &) const = default;
};

// The request of one turn: width, decimals and the value from the turn,
// 16-bit units on every third, a locale by number or (0) by ORB_LOCALE.
struct Turn {
  int32_t width, decimals;
  double value;
  int32_t locale;
  bool units;
};

template <typename Render>
Outcome run(const Turn &t, Render render) {
  const int32_t capacity = 2 * t.width + 4;
  Request r(t.width, t.decimals, t.value, capacity);
  r->locale = t.locale;
  if (t.units) r->xcode_b = CORVINEL_ENC_UTF16LE;
  const int32_t result = render(r);
  return {result, r->outlen, r->xcode_state, std::string(r->output, static_cast<std::size_t>(capacity)),
          r.guards_intact()};
}

std::string describe(const Turn &t) {
  return "locale " + std::to_string(t.locale) + " width " + std::to_string(t.width) + "." +
         std::to_string(t.decimals) + (t.units ? " units" : "") + " value " +
         std::to_string(t.value);
}

class OnePass : public ::testing::TestWithParam<const char *> {
 protected:
  void SetUp() override { ASSERT_TRUE(session_.active()); }

  // Runs `compare(turn)` over every locale and width, taking values,
  // decimals and delivery in turn; every other locale is reached through
  // ORB_LOCALE, set to a different record's name before each call.
  template <typename Compare>
  int sweep(Compare compare) {
    const std::vector<double> values = agreement_values();
    const std::vector<std::string> names = orb_locale_names();
    constexpr std::array kDecimals = {2, 0, 1, 3, 5};
    int failures = 0;
    uint32_t turn = 0;
    for (int32_t locale = 1; locale <= kRecords; ++locale) {
      for (int32_t width = 1; width <= kWidest; ++width) {
        for (int k = 0; k < 3; ++k, ++turn) {
          Turn t{width, kDecimals[turn % kDecimals.size()], values[turn % values.size()], locale,
                 turn % 3 == 0};
          std::string name;
          if (locale % 2 == 0) {
            t.locale = 0;
            name = names[(locale + k * 37 + width) % names.size()];
          }
          ScopedOrbLocale orb(name.empty() ? nullptr : name.c_str());
          if (!compare(t) && ++failures <= 5) ADD_FAILURE() << describe(t) << " " << name;
        }
      }
    }
    return failures;
  }

  ScopedSessionLocale session_{GetParam()};
};

TEST_P(OnePass, EngineMatchesTheGeneralAttempts) {
  const int failures = sweep([](const Turn &t) {
    for (const int32_t item : {170, 171, 183, 184, 185, 186}) {
      const Outcome fast = run(t, [&](Request &r) { return zkfnum(r->output, t.width, 0, item, r.get()); });
      const Outcome general =
          run(t, [&](Request &r) { return zkfnum_reference(r->output, t.width, 0, item, r.get()); });
      if (!(fast == general) || !fast.intact) return false;
    }
    return true;
  });
  EXPECT_EQ(failures, 0);
}

TEST_P(OnePass, CurrencyFormatsMatchTheGeneralAttempts) {
  uint32_t next = 0;
  const int failures = sweep([&](const Turn &t) {
    // Each call takes the next currency record, so every record meets many locales.
    const monetary_conventions *currency = &lconv_monetary[next++ % CORVINEL_CURRENCY_RECORDS];
    const Turn wide{t.width < 8 ? t.width + 8 : t.width, t.decimals, t.value, t.locale, t.units};
    const auto same = [&](auto format, auto general) {
      const Outcome a = run(wide, [&](Request &r) { return format(r.get(), currency); });
      const Outcome b = run(wide, [&](Request &r) { return general(r.get(), currency); });
      return a == b && a.intact;
    };
    return same(nlmnyint, nlmnyint_general) && same(nlmnyloc, nlmnyloc_general);
  });
  EXPECT_EQ(failures, 0);
}

// Symbols of every length up to the widest field, before and after the
// number in every layout: the pieces the one pass copies take every size.
TEST_P(OnePass, LongSymbolsMatchTheGeneralAttempts) {
  const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefgh";
  int failures = 0;
  for (std::size_t length = 1; length <= 32; ++length) {
    const std::string symbol = letters.substr(0, length);
    for (int layout = 0; layout < 30; ++layout) {
      monetary_conventions currency = lconv_monetary[0];
      currency.currency_symbol = symbol.c_str();
      currency.int_curr_symbol = symbol.c_str();
      currency.p_cs_precedes = currency.n_cs_precedes = static_cast<char>(layout % 2);
      currency.p_sep_by_space = currency.n_sep_by_space = static_cast<char>(layout / 2 % 3);
      currency.p_sign_posn = currency.n_sign_posn = static_cast<char>(layout / 6);
      for (const double value : {1234.5, -0.25, 7.0}) {
        for (int32_t width = static_cast<int32_t>(length); width <= 40; width += 3) {
          const Turn t{width, 2, value, 1 + layout % kRecords, false};
          const Outcome a = run(t, [&](Request &r) { return nlmnyloc(r.get(), &currency); });
          const Outcome b = run(t, [&](Request &r) { return nlmnyloc_general(r.get(), &currency); });
          const Outcome c = run(t, [&](Request &r) { return nlmnyint(r.get(), &currency); });
          const Outcome d = run(t, [&](Request &r) { return nlmnyint_general(r.get(), &currency); });
          if (!(a == b && a.intact && c == d && c.intact) && ++failures <= 5) {
            ADD_FAILURE() << describe(t) << " symbol " << symbol << " layout " << layout;
          }
        }
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

// Codes that begin like the one the memo keeps, or that it begins like,
// in one locale one after the other.
TEST_P(OnePass, CodesSharingTheirStartMatchTheGeneralAttempts) {
  const char *const kCodes[] = {"EUR", "EU", "EURO", "EUR", "", "E", "EUR", "EURO", nullptr, "EUR"};
  int failures = 0;
  for (int round = 0; round < 2; ++round) {
    for (const char *code : kCodes) {
      monetary_conventions currency = lconv_monetary[0];
      currency.int_curr_symbol = code;
      const Turn t{14, 2, round == 0 ? 1234.5 : -7.25, 1, false};
      const Outcome a = run(t, [&](Request &r) { return nlmnyint(r.get(), &currency); });
      const Outcome b = run(t, [&](Request &r) { return nlmnyint_general(r.get(), &currency); });
      if (!(a == b && a.intact) && ++failures <= 5) {
        ADD_FAILURE() << "code " << (code != nullptr ? code : "(null)") << ": " << a.bytes
                      << " against " << b.bytes;
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(Sessions, OnePass,
                         ::testing::Values(kUtf8Locale, kLatin1Locale, kEucJpLocale, kAsciiLocale),
                         [](const auto &info) {
                           std::string name = info.param;
                           for (char &c : name) {
                             if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                           }
                           return name;
                         });

}  // namespace

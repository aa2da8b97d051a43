// Fast paths against their references (digit texts against snprintf, zkfnum
// against zkfnum_reference, the expansion shortcut against the general one,
// the convention read in place against wzssglc) and the engine's edges.
#include <array>
#include <bit>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/formats.h"
#include "corvinel/locale_db.h"
#include "locale/orb_locale_env.h"
#include "locale/output_expansion.h"
#include "nlnum/digit_texts.h"
#include "nlnum/monetary_convention.h"
#include "nlnum/number_engine.h"
#include "nlnum/simple_expansion.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace {

using namespace corvinel::nlnum;
using namespace corvinel::testing;

// LC_ALL, then LC_NUMERIC (printf's decimal point) and LC_MONETARY (where
// the engine splits) from another locale where named.
struct ProcessLocale {
  const char *name, *all, *numeric, *monetary;
};

const ProcessLocale kProcessLocales[] = {
    {"utf8", kUtf8Locale, nullptr, nullptr},
    {"latin1_comma", kLatin1Locale, nullptr, nullptr},
    {"comma_without_monetary_point", kUtf8Locale, kLatin1Locale, nullptr},
    {"point_with_monetary_comma", kUtf8Locale, nullptr, kLatin1Locale},
};

void PrintTo(const ProcessLocale &locale, std::ostream *out) { *out << locale.name; }

class InProcessLocale : public ::testing::TestWithParam<ProcessLocale> {
 protected:
  void SetUp() override {
    const ProcessLocale &l = GetParam();
    ASSERT_TRUE(session_.active());
    ASSERT_TRUE(l.numeric == nullptr || std::setlocale(LC_NUMERIC, l.numeric) != nullptr);
    ASSERT_TRUE(l.monetary == nullptr || std::setlocale(LC_MONETARY, l.monetary) != nullptr);
  }
  ScopedSessionLocale session_{GetParam().all};
};

// Ties of the binary value, carries into a new digit, the ends of the
// double range, random bit patterns and random short decimals.
std::vector<double> generated_values(int random_count) {
  using Limits = std::numeric_limits<double>;
  std::vector<double> values = {
      0.0, -0.0, 0.5, 1.5, 2.5, -2.5, 0.125, 0.05, 0.15, 9.5, 9.995, 99.95, 0.000123456, 1234.5,
      1e15, 1e16, 1e17, 1e22, 1e23, 123456789012345678.0, 0.1, 1.0 / 3, DBL_MAX, -DBL_MAX,
      DBL_MIN, Limits::denorm_min(), Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()};
  std::mt19937_64 random(20240611);
  for (int i = 0; i < random_count; ++i) {
    const double value = std::bit_cast<double>(static_cast<uint64_t>(random()));
    if (std::isfinite(value)) values.push_back(value);
    const double scale = std::pow(10.0, static_cast<int>(random() % 40) - 20);
    values.push_back(static_cast<double>(static_cast<int64_t>(random() % 2000001) - 1000000) *
                     scale);
  }
  return values;
}

// The "%.*f" text a scaled form stands for.
std::string text_of(const ScaledDecimal &number, char decimal_point) {
  std::string digits = std::to_string(number.digits);
  digits.insert(0, static_cast<std::size_t>(number.digit_count) - digits.size(), '0');
  if (number.precision > 0) {
    digits.insert(digits.size() - static_cast<std::size_t>(number.precision), 1, decimal_point);
  }
  return (number.minus ? "-" : "") + digits;
}

TEST_P(InProcessLocale, DigitTextsMatchSnprintf) {
  const PrintfNumberTexts reference;
  const FastNumberTexts fast;
  EXPECT_STREQ(fast.mon_decimal_point(), reference.mon_decimal_point());
  std::vector<int> precisions = {62, 100, kMaxPrecision};
  for (int p = 0; p <= 33; ++p) precisions.push_back(p);
  char expected[kDigitTextCapacity], actual[kDigitTextCapacity];
  int failures = 0;
  for (const double value : generated_values(400)) {
    for (const int precision : precisions) {
      // Fixed texts too wide to keep count by their length only.
      const int fixed = reference.fixed(value, precision, expected);
      const int fast_fixed = fast.fixed(value, precision, actual);
      if ((fixed < kDigitTextCapacity ? fast_fixed != fixed || std::strcmp(actual, expected) != 0
                                      : fast_fixed < kDigitTextCapacity) &&
          ++failures <= 5) {
        ADD_FAILURE() << "%." << precision << "f of " << value << ": " << expected;
      }
      // The scaled form, in line or not, stands for the same text.
      ScaledDecimal number, general_number;
      const bool taken = fast.scaled(value, precision, number);
      const bool general_taken = fast.scaled_in_general(value, precision, general_number);
      if ((taken != general_taken ||
           (taken && (text_of(number, fast.decimal_point()) != expected ||
                      number.text_length() != fixed ||
                      text_of(general_number, fast.decimal_point()) != expected ||
                      number.zero_integer != general_number.zero_integer))) &&
          ++failures <= 5) {
        ADD_FAILURE() << "scaled " << precision << " of " << value << ": " << expected;
      }
      for (const int field : {0, 1, 9, 32}) {
        const int general = reference.general(value, field, precision, expected);
        if ((fast.general(value, field, precision, actual) != general ||
             std::strcmp(actual, expected) != 0) &&
            ++failures <= 5) {
          ADD_FAILURE() << "%-" << field << "." << precision << "G of " << value << ": "
                        << expected;
        }
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

// Whole renderings, 16-bit delivery too: result, field, outlen, delivered
// encoding.  The reference prints every digit of a huge value at every
// attempt, so the random values are short; the extremes are listed.
TEST_P(InProcessLocale, EngineMatchesItsReference) {
  std::vector<double> values = {1e300, -DBL_MAX, 5e-324};
  for (const double value : generated_values(12)) {
    if (std::fabs(value) < 1e30) values.push_back(value);
  }
  int failures = 0;
  for (const char *locale :
       {"en_US", "fr_FR", "ar_DZ", "hi_IN", "de_CH", "da_DK", "fa_IR", "ar_SA"}) {
    ScopedOrbLocale orb(locale);
    for (const int32_t item : {170, 171, 183, 184, 185, 186}) {
      for (std::size_t v = 0; v < values.size(); ++v) {
        for (const int32_t width : {1, 6, 12, 32}) {
          for (const int32_t decimals : {0, 2, 3, 31}) {
            Request fast(width, decimals, values[v], 2 * width + 4);
            Request reference(width, decimals, values[v], 2 * width + 4);
            if (v % 3 == 0) fast->xcode_b = reference->xcode_b = CORVINEL_ENC_UTF16LE;
            const int32_t a = zkfnum(fast->output, width, 0, item, fast.get());
            const int32_t b = zkfnum_reference(reference->output, width, 0, item, reference.get());
            const bool same = a == b && fast->outlen == reference->outlen &&
                              std::memcmp(fast->output, reference->output, 2 * width + 4) == 0 &&
                              fast->xcode_state == reference->xcode_state && fast.guards_intact();
            if (!same && ++failures <= 5) {
              ADD_FAILURE() << locale << " item " << item << " " << width << "." << decimals
                            << " of " << values[v] << ": \"" << fast.text() << "\" against \""
                            << reference.text() << "\"";
            }
          }
        }
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(ProcessLocales, InProcessLocale, ::testing::ValuesIn(kProcessLocales));

// Generated texts: escapes of every kind, raw bytes, surrogate halves,
// texts past 200 units and past the 402-byte step, every width and room.
class SimpleExpansion : public ::testing::TestWithParam<const char *> {};

TEST_P(SimpleExpansion, MatchesTheGeneralExpansion) {
  ScopedSessionLocale session(GetParam());
  ASSERT_TRUE(session.active());
  const SessionCodeset codeset = read_session_codeset();
  constexpr const char *kPieces[] = {"1",       "-",       " ",       "<U20AC>", "<u00a4>",
                                     "<U00A0>", "<U00E9>", "<UFFE5>", "<U0142>", "<UD83D>",
                                     "<UDE00>", "<UG0A0>", "<U00e",   "<",       "\xE9",
                                     "<U0041>", "<U007F>", "<U0800>"};
  std::mt19937 random(7);
  int failures = 0;
  for (int n = 0; n < 3000; ++n) {
    std::string text;
    const bool long_euros = n % 50 == 25;
    const int pieces =
        static_cast<int>(long_euros ? 120 + random() % 80 : random() % (n % 50 == 0 ? 260 : 14));
    for (int p = 0; p < pieces; ++p)
      text += long_euros ? "<U20AC>" : kPieces[random() % std::size(kPieces)];
    const int32_t width = long_euros ? 600 : static_cast<int32_t>(random() % 42) - 1;
    const int32_t room =
        std::array{0, std::max(width, 0), 2 * std::max(width, 0), 1200}[random() % 4];
    for (const int32_t outenc : {0, CORVINEL_ENC_UTF16LE}) {
      std::string expected = text + std::string(1200, '#'), actual = expected;
      int32_t expected_len = static_cast<int32_t>(text.size()), actual_len = expected_len;
      int32_t expected_enc = 7, actual_enc = 7;
      const int32_t b = corvinel::locale::getExpResultFromNarrowCharBuf(
          0, outenc, &expected_enc, expected.data(), &expected_len, width, room);
      const int32_t a =
          expand_output(codeset, outenc, &actual_enc, actual.data(), &actual_len, width, room);
      if ((a != b || actual_len != expected_len || actual != expected ||
           actual_enc != expected_enc) &&
          ++failures <= 5) {
        ADD_FAILURE() << "\"" << text << "\" width " << width << " room " << room << " outenc "
                      << outenc << ": " << a << " against " << b;
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(Sessions, SimpleExpansion,
                         ::testing::Values(kUtf8Locale, kLatin1Locale, kAsciiLocale, kEucJpLocale));

TEST(MonetaryConvention, IsWhatWzssglcFetchesItemByItem) {
  ScopedOrbLocale orb("xx_XX");  // locale 0 names no record
  for (int32_t locale = 0; locale <= CORVINEL_LOCALE_RECORDS; ++locale) {
    const auto text = [&](int32_t code) {
      locbuf buffer{};
      locbuf *handle = &buffer;
      wzssglc(locale, code, &handle);
      return std::string(buffer.text, static_cast<std::size_t>(std::max(buffer.length, 0)));
    };
    const auto number = [&](int32_t code) { return std::atol(text(code).c_str()); };
    const auto c = read_monetary_convention(locale);
    const std::string grouping = text(159);
    EXPECT_EQ(std::tie(c.decimal, c.separator, c.positive, c.negative),
              std::make_tuple(text(157), text(158), text(160), text(161)))
        << locale;
    EXPECT_EQ(std::tie(c.grouping, c.p_cs_precedes, c.p_sep_by_space, c.n_cs_precedes,
                       c.n_sep_by_space, c.p_sign_posn, c.n_sign_posn),
              std::make_tuple(grouping.empty() ? 0 : grouping[0] - '0', number(164), number(165),
                              number(166), number(167), number(168), number(169)))
        << locale;
  }
}

// Deliberate: a field wider than 32 with the check off is 32 "*", and the
// request's width stays changed to 32.
TEST(NumberEngine, ClampsWideFieldsTo32Stars) {
  for (const fmt_render_fn render : {nlnum, nlmny, nlpct}) {
    Request r(33, 2, 1.5, 40);
    EXPECT_EQ(render(r.get()), CORVINEL_OK);
    EXPECT_EQ(r->width, 32);
    EXPECT_EQ(r.text(), std::string(32, '*'));
    EXPECT_TRUE(r.guards_intact());
  }
}

// A host that presets 16-bit units high byte first gets blanks in such
// units and the text at twice the shortfall.
TEST(NumberEngine, LaysBlanksOutInUnitsOfThePresetEncoding) {
  ScopedSessionLocale session(kUtf8Locale);
  ScopedOrbLocale orb("en_US");
  Request r(6, 2, 1.5, 12);
  r->xcode_state = CORVINEL_ENC_UTF16BE;
  EXPECT_EQ(nlnum(r.get()), CORVINEL_OK);
  EXPECT_EQ(r->outlen, 8);
  EXPECT_EQ(std::string(r->output, 12), std::string("\0 \0 1.50\0 \0 ", 12));
}

}  // namespace

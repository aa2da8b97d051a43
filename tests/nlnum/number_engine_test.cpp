// The locale number engine against its reference: the digit texts of
// FastNumberTexts byte for byte against snprintf, zkfnum against
// zkfnum_reference over many generated requests, in process locales whose
// decimal point and monetary decimal point differ; the convention the
// currency-code formats read against wzssglc; and the engine's own edges.
#include <array>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/formats.h"
#include "corvinel/locale_db.h"
#include "locale/output_expansion.h"
#include "locale/orb_locale_env.h"
#include "nlnum/digit_texts.h"
#include "nlnum/monetary_convention.h"
#include "nlnum/number_engine.h"
#include "nlnum/simple_expansion.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace {

using corvinel::nlnum::FastNumberTexts;
using corvinel::nlnum::kDigitTextCapacity;
using corvinel::nlnum::PrintfNumberTexts;
using corvinel::testing::Request;
using corvinel::testing::ScopedOrbLocale;
using corvinel::testing::ScopedSessionLocale;

// A process locale: LC_ALL, then LC_NUMERIC (printf's decimal point) and
// LC_MONETARY (where the engine splits) from other locales where named.
struct ProcessLocale {
  const char *name;
  const char *all;
  const char *numeric;
  const char *monetary;
};

const ProcessLocale kProcessLocales[] = {
    {"utf8", corvinel::testing::kUtf8Locale, nullptr, nullptr},
    {"latin1_comma", corvinel::testing::kLatin1Locale, nullptr, nullptr},
    {"comma_without_monetary_point", corvinel::testing::kUtf8Locale,
     corvinel::testing::kLatin1Locale, nullptr},
    {"point_with_monetary_comma", corvinel::testing::kUtf8Locale, nullptr,
     corvinel::testing::kLatin1Locale},
};

void PrintTo(const ProcessLocale &locale, std::ostream *out) { *out << locale.name; }

class ProcessLocaleScope {
 public:
  explicit ProcessLocaleScope(const ProcessLocale &locale) : session_(locale.all) {
    ok_ = session_.active() &&
          (locale.numeric == nullptr || std::setlocale(LC_NUMERIC, locale.numeric) != nullptr) &&
          (locale.monetary == nullptr || std::setlocale(LC_MONETARY, locale.monetary) != nullptr);
  }
  bool ok() const { return ok_; }

 private:
  ScopedSessionLocale session_;
  bool ok_;
};

// Values that stress digit generation: ties of the binary value, carries
// into a new digit, the ends of the double range, random bit patterns and
// random short decimals.
std::vector<double> generated_values(std::size_t random_count) {
  std::vector<double> values = {0.0, -0.0, 0.5, 1.5, 2.5, -2.5, 0.125, 0.05, 0.15, 9.5, 9.995,
                                99.95, 0.000123456, 1234.5, 1e15, 1e16, 1e17, 1e22, 1e23,
                                123456789012345678.0, 0.1, 1.0 / 3, DBL_MAX, -DBL_MAX, DBL_MIN,
                                std::numeric_limits<double>::denorm_min(),
                                std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity()};
  std::mt19937_64 random(20240611);
  for (std::size_t i = 0; i < random_count; ++i) {
    uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (std::isfinite(value)) values.push_back(value);
    const double scale = std::pow(10.0, static_cast<int>(random() % 40) - 20);
    values.push_back(static_cast<double>(static_cast<int64_t>(random() % 2000001) - 1000000) * scale);
  }
  return values;
}

class DigitTexts : public ::testing::TestWithParam<ProcessLocale> {};

TEST_P(DigitTexts, MatchSnprintfByteForByte) {
  ProcessLocaleScope scope(GetParam());
  ASSERT_TRUE(scope.ok());
  const PrintfNumberTexts reference;
  const FastNumberTexts fast;
  EXPECT_STREQ(fast.mon_decimal_point(), reference.mon_decimal_point());
  std::vector<int> precisions;
  for (int p = 0; p <= 33; ++p) precisions.push_back(p);
  precisions.insert(precisions.end(), {62, 100, corvinel::nlnum::kMaxPrecision});
  char expected[kDigitTextCapacity];
  char actual[kDigitTextCapacity];
  int failures = 0;
  for (const double value : generated_values(400)) {
    for (const int precision : precisions) {
      // Fixed texts too wide to keep count by their length only.
      const int fixed = reference.fixed(value, precision, expected);
      const int fast_fixed = fast.fixed(value, precision, actual);
      const bool kept = fixed < kDigitTextCapacity;
      if (kept ? (fast_fixed != fixed || std::strcmp(actual, expected) != 0)
               : fast_fixed < kDigitTextCapacity) {
        if (++failures < 10) ADD_FAILURE() << "%." << precision << "f of " << value << ": " << expected;
      }
      for (const int field : {0, 1, 9, 32}) {
        const int general = reference.general(value, field, precision, expected);
        if (fast.general(value, field, precision, actual) != general ||
            std::strcmp(actual, expected) != 0) {
          if (++failures < 10) {
            ADD_FAILURE() << "%-" << field << "." << precision << "G of " << value << ": " << expected;
          }
        }
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(ProcessLocales, DigitTexts, ::testing::ValuesIn(kProcessLocales));

class EngineAgainstReference : public ::testing::TestWithParam<ProcessLocale> {};

// Whole renderings: field, outlen and request fields, for 16-bit delivery
// too, over locales of different shapes.
TEST_P(EngineAgainstReference, RendersTheSameFields) {
  ProcessLocaleScope scope(GetParam());
  ASSERT_TRUE(scope.ok());
  // The reference prints every digit of a huge value at every attempt, so
  // the random values here are short decimals; the extremes are listed.
  std::vector<double> values = {1e300, -DBL_MAX, 5e-324};
  for (const double value : generated_values(12)) {
    if (std::fabs(value) < 1e30) values.push_back(value);
  }
  int failures = 0;
  for (const char *locale : {"en_US", "fr_FR", "ar_DZ", "hi_IN", "de_CH", "da_DK", "fa_IR",
                             "ar_SA"}) {
    ScopedOrbLocale orb(locale);
    for (const int32_t item : {170, 171, 183, 184, 185, 186}) {
      for (std::size_t v = 0; v < values.size(); ++v) {
        for (const int32_t width : {1, 6, 12, 32}) {
          for (const int32_t decimals : {0, 2, 3, 31}) {
            Request fast(width, decimals, values[v], 2 * width + 4);
            Request reference(width, decimals, values[v], 2 * width + 4);
            if (v % 3 == 0) {
              fast.set_output_encoding(CORVINEL_ENC_UTF16LE);
              reference.set_output_encoding(CORVINEL_ENC_UTF16LE);
            }
            const int32_t a = corvinel::nlnum::zkfnum(fast->output, width, 0, item, fast.get());
            const int32_t b = corvinel::nlnum::zkfnum_reference(reference->output, width, 0, item,
                                                                reference.get());
            const bool same = a == b && fast.field() == reference.field() &&
                              fast->outlen == reference->outlen &&
                              std::memcmp(fast->output, reference->output,
                                          static_cast<std::size_t>(fast->capacity)) == 0 &&
                              fast->xcode_state == reference->xcode_state;
            if (!same && ++failures < 10) {
              ADD_FAILURE() << locale << " item " << item << " " << width << "." << decimals
                            << " of " << values[v] << ": \"" << fast.text() << "\" against \""
                            << reference.text() << "\"";
            }
            EXPECT_TRUE(fast.guards_intact());
          }
        }
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(ProcessLocales, EngineAgainstReference,
                         ::testing::ValuesIn(kProcessLocales));

// Output expansion through the shortcut against getExpResultFromNarrowCharBuf
// over generated texts: escapes of every kind, raw bytes, surrogate halves,
// texts past 200 units, every width and room.
class SimpleExpansion : public ::testing::TestWithParam<const char *> {};

TEST_P(SimpleExpansion, MatchesTheGeneralExpansion) {
  ScopedSessionLocale session(GetParam());
  ASSERT_TRUE(session.active());
  const corvinel::nlnum::SessionCodeset codeset = corvinel::nlnum::read_session_codeset();
  constexpr const char *kPieces[] = {"1", "-", " ", "<U20AC>", "<u00a4>", "<U00A0>", "<U00E9>",
                                     "<UFFE5>", "<U0142>", "<UD83D>", "<UDE00>", "<UG0A0>",
                                     "<U00e", "<", "\xE9", "<U0041>", "<U007F>", "<U0800>"};
  std::mt19937 random(7);
  int failures = 0;
  for (int text_number = 0; text_number < 3000; ++text_number) {
    // Mostly short texts; some past 200 units, some of three-byte
    // characters that pass the 402-byte step in UTF-8.
    std::string text;
    if (text_number % 50 == 25) {
      for (int p = 120 + static_cast<int>(random() % 80); p > 0; --p) text += "<U20AC>";
    } else {
      const int pieces = static_cast<int>(random() % (text_number % 50 == 0 ? 260 : 14));
      for (int p = 0; p < pieces; ++p) text += kPieces[random() % std::size(kPieces)];
    }
    const int32_t width = text_number % 50 == 25 ? 600 : static_cast<int32_t>(random() % 42) - 1;
    const int32_t room =
        std::array<int32_t, 4>{0, std::max(width, 0), 2 * std::max(width, 0), 1200}[random() % 4];
    for (const int32_t outenc : {0, CORVINEL_ENC_UTF16LE}) {
      std::string expected = text + std::string(1200, '#');
      std::string actual = expected;
      int32_t expected_len = static_cast<int32_t>(text.size());
      int32_t actual_len = expected_len;
      int32_t expected_enc = 7;
      int32_t actual_enc = 7;
      const int32_t b = corvinel::locale::getExpResultFromNarrowCharBuf(
          0, outenc, &expected_enc, expected.data(), &expected_len, width, room);
      const int32_t a = corvinel::nlnum::expand_output(codeset, outenc, &actual_enc, actual.data(),
                                                       &actual_len, width, room);
      const bool same = a == b && actual_len == expected_len && actual == expected &&
                        actual_enc == expected_enc;
      if (!same && ++failures < 10) {
        ADD_FAILURE() << "\"" << text << "\" width " << width << " room " << room << " outenc "
                      << outenc << ": " << a << " against " << b;
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(Sessions, SimpleExpansion,
                         ::testing::Values(corvinel::testing::kUtf8Locale,
                                           corvinel::testing::kLatin1Locale,
                                           corvinel::testing::kAsciiLocale,
                                           corvinel::testing::kEucJpLocale));

// The currency-code formats read the record once; fetching every item with
// wzssglc gives the same convention.
TEST(MonetaryConvention, IsWhatWzssglcFetchesItemByItem) {
  ScopedOrbLocale orb("xx_XX");  // locale 0 names no record
  for (int32_t locale = 0; locale <= CORVINEL_LOCALE_RECORDS; ++locale) {
    const auto item = [&](int32_t code) {
      locbuf buffer{};
      locbuf *handle = &buffer;
      wzssglc(locale, code, &handle);
      return std::string(buffer.text, static_cast<std::size_t>(std::max(buffer.length, 0)));
    };
    const auto number = [&](int32_t code) { return std::atol(item(code).c_str()); };
    const corvinel::nlnum::MonetaryConvention c = corvinel::nlnum::read_monetary_convention(locale);
    const std::string grouping = item(159);
    SCOPED_TRACE(locale);
    EXPECT_EQ(c.decimal, item(157));
    EXPECT_EQ(c.separator, item(158));
    EXPECT_EQ(c.grouping, grouping.empty() ? 0 : grouping[0] - '0');
    EXPECT_EQ(c.positive, item(160));
    EXPECT_EQ(c.negative, item(161));
    EXPECT_EQ(c.p_cs_precedes, number(164));
    EXPECT_EQ(c.p_sep_by_space, number(165));
    EXPECT_EQ(c.n_cs_precedes, number(166));
    EXPECT_EQ(c.n_sep_by_space, number(167));
    EXPECT_EQ(c.p_sign_posn, number(168));
    EXPECT_EQ(c.n_sign_posn, number(169));
  }
}

// A field wider than 32 with the check off: 32 "*", and the request's
// width stays at 32 (deliberately changed).
TEST(NumberEngine, ClampsWideFieldsTo32Stars) {
  for (const fmt_render_fn render : {nlnum, nlmny, nlpct}) {
    Request r(33, 2, 1.5, 40);
    EXPECT_EQ(render(r.get()), CORVINEL_OK);
    EXPECT_EQ(r->width, 32);
    EXPECT_EQ(r->outlen, 32);
    EXPECT_EQ(r.text(), std::string(32, '*'));
    EXPECT_TRUE(r.guards_intact());
  }
}

// A host that presets 16-bit units high byte first (24) gets blanks laid out
// in such units and the text at twice the shortfall.
TEST(NumberEngine, LaysBlanksOutInUnitsOfThePresetEncoding) {
  ScopedSessionLocale session(corvinel::testing::kUtf8Locale);
  ScopedOrbLocale orb("en_US");
  Request r(6, 2, 1.5, 12);
  r->xcode_state = CORVINEL_ENC_UTF16BE;
  EXPECT_EQ(nlnum(r.get()), CORVINEL_OK);
  EXPECT_EQ(r->outlen, 8);
  EXPECT_EQ(std::string(r->output, 12), std::string("\0 \0 1.50\0 \0 ", 12));
}

TEST(NumberEngine, PutsAMissingMarkAtTheRightEdge) {
  Request r(8, 2, corvinel::testing::missing('A'));
  EXPECT_EQ(corvinel::nlnum::zkfnum(r->output, 8, 0, 183, r.get()), CORVINEL_OK);
  EXPECT_EQ(r.text(), "       A");
  EXPECT_TRUE(r.restored());
}

TEST(NumberEngine, WithoutTheConventionWritesNothing) {
  ScopedOrbLocale orb("xx_XX");
  Request r(8, 2, 1.5);
  const std::string before = r.field();
  EXPECT_EQ(corvinel::nlnum::zkfnum(r->output, 8, 0, 183, r.get()), corvinel::nlnum::kNoConvention);
  EXPECT_EQ(r.field(), before);
}

}  // namespace

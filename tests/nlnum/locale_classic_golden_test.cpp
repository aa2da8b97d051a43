// NLBEST, NLD, NLPVALUE, NLPCTN, NLPCTP and the month, quarter and weekday
// name formats in locales of different shapes, under a UTF-8 and a Latin-1
// session and with 16-bit delivery.  Each expected text is worked out from
// the locale's items (172 decimal and 173 group separator; the name items)
// and the classic rendering's rules.
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/formats.h"
#include "locale/orb_locale_env.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace {

using corvinel::testing::missing;
using corvinel::testing::Request;
using corvinel::testing::ScopedOrbLocale;
using corvinel::testing::ScopedSessionLocale;

enum class Session { Utf8, Latin1, Units };  // Units: 16-bit delivery in a UTF-8 session

// UTF-16 code units low byte first, as 16-bit delivery leaves them.
std::string units(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

struct Golden {
  fmt_render_fn format;
  const char *name;
  int32_t width;
  int32_t decimals;
  double value;
  const char *locale;
  Session session;
  std::string expected;  // the outlen bytes left in the buffer
};

void PrintTo(const Golden &g, std::ostream *os) {
  *os << g.name << g.width << "." << g.decimals << " " << g.value << " " << g.locale;
}

#define FORMAT(f) f, #f

const std::string kBlank20(20, ' ');

const std::vector<Golden> kGolden = {
    // BEST: the most precise text; "." becomes the locale's one-byte separator.
    {FORMAT(nlbest), 12, 0, 1234.5678, "en_US", Session::Utf8, "   1234.5678"},
    {FORMAT(nlbest), 12, 0, 1234.5678, "de_DE", Session::Utf8, "   1234,5678"},
    {FORMAT(nlbest), 12, 0, 1234.5678, "de_CH", Session::Utf8, "   1234.5678"},
    {FORMAT(nlbest), 8, 5, 1.5e20, "ar_DZ", Session::Utf8, "  1,5E20"},
    {FORMAT(nlbest), 6, 0, -0.125, "pt_BR", Session::Latin1, "-0,125"},
    {FORMAT(nlbest), 3, 0, 12345, "fr_FR", Session::Utf8, "1E4"},
    {FORMAT(nlbest), 5, 2, missing('_'), "fr_FR", Session::Utf8, "    _"},
    // D: 1234.5678 leads at 10^3 and takes 1 decimal; -0.001 leads at 10^-3
    // and takes 1 + 2 * 3; zero is placed like 1 and takes 1 + 3.
    {FORMAT(nldfmt), 12, 3, 1234.5678, "hi_IN", Session::Utf8, "      1234.6"},
    {FORMAT(nldfmt), 12, 3, -0.001, "de_DE", Session::Utf8, "  -0,0010000"},
    {FORMAT(nldfmt), 12, 3, 0, "pl_PL", Session::Utf8, "      0,0000"},
    {FORMAT(nldfmt), 6, 1, -1.25, "de_DE", Session::Units, units(u"  -1,3")},
    // The missing-value mark is the host's, in every locale.
    {FORMAT(nldfmt), 12, 3, missing('.'), "de_DE", Session::Utf8, "           ."},
    {FORMAT(nlpvalue), 6, 4, 0.00001, "de_DE", Session::Utf8, "<,0001"},
    {FORMAT(nlpvalue), 6, 4, 0.5, "ja_JP", Session::Utf8, "0.5000"},
    {FORMAT(nlpvalue), 6, 2, 0.031, "pl_PL", Session::Latin1, "  0,03"},
    {FORMAT(nlpvalue), 6, 2, missing('Z'), "pt_BR", Session::Utf8, "   Z  "},
    {FORMAT(nlpctp), 8, 1, -0.12, "fr_FR", Session::Utf8, "( 12,0%)"},
    {FORMAT(nlpctp), 7, 1, -0.125, "ar_DZ", Session::Utf8, "(12,5%)"},
    // NLPCTN: the brackets become blanks, "-" stands before the first digit.
    {FORMAT(nlpctn), 8, 1, -0.12, "de_DE", Session::Utf8, " -12,0% "},
    {FORMAT(nlpctn), 6, 0, -0.5, "zh_TW", Session::Utf8, " -50% "},
    {FORMAT(nlpctn), 6, 0, -1.5, "en_US", Session::Units, units(u"-150% ")},
    {FORMAT(nlpctn), 6, 0, -0.001, "en_US", Session::Utf8, "   0% "},
    {FORMAT(nlpctn), 8, 1, 0.25, "pt_BR", Session::Utf8, "  25,0% "},
    {FORMAT(nlpctn), 8, 1, missing('A'), "de_DE", Session::Utf8, "    A   "},

    // Names: left-aligned, outlen their length; bit 0 abbreviated, bit 1
    // upper case.
    {FORMAT(nlstrmon), 20, 0, 3, "de_DE", Session::Utf8, "M\u00E4rz"},
    {FORMAT(nlstrmon), 20, 0, 3, "de_DE", Session::Latin1, "M\xE4rz"},
    {FORMAT(nlstrmon), 20, 2, 3, "de_DE", Session::Utf8, "M\u00C4RZ"},
    {FORMAT(nlstrmon), 20, 2, 3, "de_DE", Session::Latin1, "M\xC4RZ"},
    {FORMAT(nlstrmon), 20, 3, 3, "de_CH", Session::Units, units(u"M\u00C4R")},
    // Five bytes in UTF-8, four in Latin-1; 16-bit delivery is measured in
    // the session encoding.
    {FORMAT(nlstrmon), 4, 0, 3, "de_DE", Session::Utf8, "****"},
    {FORMAT(nlstrmon), 4, 0, 3, "de_DE", Session::Latin1, "M\xE4rz"},
    {FORMAT(nlstrmon), 4, 0, 3, "de_DE", Session::Units, "****"},
    {FORMAT(nlstrmon), 20, 2, 1, "pl_PL", Session::Utf8, "STYCZE\u0143"},
    {FORMAT(nlstrmon), 20, 2, 10, "pl_PL", Session::Units, units(u"PA\u0179DZIERNIK")},
    {FORMAT(nlstrmon), 20, 2, 10, "pl_PL", Session::Latin1, "PA?DZIERNIK"},
    {FORMAT(nlstrmon), 20, 2, 3, "pt_BR", Session::Utf8, "MAR\u00C7O"},
    {FORMAT(nlstrmon), 20, 0, 10, "ja_JP", Session::Utf8, "10\u6708"},
    {FORMAT(nlstrmon), 20, 1, 1, "hi_IN", Session::Utf8, "\u091C\u0928\u0970"},
    {FORMAT(nlstrmon), 10, 0, 1, "ar_DZ", Session::Utf8, "\u064A\u0646\u0627\u064A\u0631"},
    {FORMAT(nlstrmon), 8, 0, 1, "ar_DZ", Session::Utf8, "********"},
    {FORMAT(nlstrmon), 5, 0, 9, "en_US", Session::Utf8, "*****"},
    {FORMAT(nlstrmon), 20, 1, 2.7, "en_US", Session::Utf8, "Feb"},
    {FORMAT(nlstrmon), 20, 0, 13, "en_US", Session::Utf8, kBlank20},
    {FORMAT(nlstrmon), 20, 3, missing('B'), "en_US", Session::Utf8, std::string(19, ' ') + "B"},
    {FORMAT(nlstrqtr), 20, 3, 1, "en_US", Session::Utf8, "Q1"},
    {FORMAT(nlstrqtr), 20, 0, 1, "fr_FR", Session::Utf8, "1er trimestre"},
    {FORMAT(nlstrqtr), 20, 2, 1, "pl_PL", Session::Utf8, "I KWARTA\u0141"},
    {FORMAT(nlstrqtr), 20, 0, 1, "ja_JP", Session::Utf8, "\u7B2C1\u56DB\u534A\u671F"},
    {FORMAT(nlstrqtr), 20, 0, 0.5, "de_DE", Session::Utf8, kBlank20},
    {FORMAT(nlstrwk), 20, 0, 1, "zh_TW", Session::Utf8, "\u661F\u671F\u65E5"},
    {FORMAT(nlstrwk), 20, 0, 1, "zh_TW", Session::Latin1, "???"},
    {FORMAT(nlstrwk), 20, 3, 7, "pl_PL", Session::Utf8, "SOB."},
    {FORMAT(nlstrwk), 20, 3, 7, "pt_BR", Session::Latin1, "S\xC1" "B."},
    {FORMAT(nlstrwk), 20, 0, 2, "de_CH", Session::Utf8, "Montag"},
    {FORMAT(nlstrwk), 20, 2, 1, "ar_DZ", Session::Utf8, "\u0627\u0644\u0623\u062D\u062F"},
};

#undef FORMAT

class LocaleClassicGolden : public ::testing::TestWithParam<Golden> {};

TEST_P(LocaleClassicGolden, RendersTheLocalesText) {
  const Golden &g = GetParam();
  ScopedSessionLocale session(g.session == Session::Latin1 ? corvinel::testing::kLatin1Locale
                                                           : corvinel::testing::kUtf8Locale);
  ASSERT_TRUE(session.active());
  ScopedOrbLocale locale(g.locale);
  Request r(g.width, g.decimals, g.value, 2 * g.width);
  if (g.session == Session::Units) r->xcode_b = CORVINEL_ENC_UTF16LE;

  ASSERT_EQ(g.format(r.get()), CORVINEL_OK);
  // Read through outlen and the caller's capacity: the classic-based formats
  // leave `capacity` narrowed to the width.
  ASSERT_GE(r->outlen, 0);
  ASSERT_LE(r->outlen, 2 * g.width);
  EXPECT_EQ(std::string(r->output, static_cast<std::size_t>(r->outlen)), g.expected);
  EXPECT_TRUE(r.guards_intact());
}

INSTANTIATE_TEST_SUITE_P(Rows, LocaleClassicGolden, ::testing::ValuesIn(kGolden),
                         [](const auto &info) {
                           return std::string(info.param.name) + "_" + std::to_string(info.index);
                         });

}  // namespace

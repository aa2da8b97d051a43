// NLNUM, NLNUMI, NLMNY, NLMNYI, NLPCT, NLPCTI and the currency-code formats
// end to end: each row names the format, width, decimals, value, the locale
// (ORB_LOCALE) and the session, and the field a user of that locale sees.
// Expected fields are written as UTF-8 and turned into the session's bytes:
// ISO-8859-1 bytes, or UTF-16 units (low byte first) for 16-bit delivery,
// which runs under a UTF-8 session and so measures the width in UTF-8 bytes.
//
// Conventions the rows rely on (locale items 157..186):
//   en_US  "." "," groups of 3; money "$", negatives "($1.00)" (n_sign_posn
//          0, so positives get a trailing blank); numbers "-1"
//   de_DE  "," "."; money "1,00 €" with "-" first; numbers "-1"
//   fr_FR  "," and U+00A0 between groups; money as de_DE
//   pl_PL  as fr_FR, symbol "zł"
//   ja_JP  "." ","; money "-￥1" (U+FFE5)
//   ar_DZ  "," "."; numbers "1-" (n_sign_posn 2); money "د.ج.‏ 1" (9 UTF-8
//          bytes of symbol, a blank), negatives "د.ج.‏ 1-"
//   hi_IN  "." ","; grouping "3;2", which the engine reads as 2 (last
//          character) and the currency-code formats as 3 (first character)
//   zh_TW  "." ","; money "-NT$1"
//   de_CH  "." and "'" between groups; money "CHF -1" (sign_posn 4)
//   pt_BR  "," "."; money "-R$ 1"
//   da_DK  money "kr." with sep_by_space 2 and sign_posn 4: "kr. -1"
// Percent formats lay out "-12.5%" in every locale; the I forms use "."
// and "," in groups of 3 whatever the locale.
#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/formats.h"
#include "locale/orb_locale_env.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace {

using corvinel::testing::Request;
using corvinel::testing::ScopedOrbLocale;
using corvinel::testing::ScopedSessionLocale;

enum class Session { Utf8, Latin1, Units16 };

struct GoldenRow {
  const char *format;
  fmt_render_fn render;
  int32_t width, decimals;
  double value;
  const char *locale;
  Session session;
  const char *expected;  // the field, UTF-8
};

void PrintTo(const GoldenRow &row, std::ostream *out) {
  constexpr const char *kSessions[] = {"utf8", "latin1", "units16"};
  *out << row.format << row.width << "." << row.decimals << "(" << row.value << ")/" << row.locale
       << "/" << kSessions[static_cast<int>(row.session)];
}

// Code points of a UTF-8 text.
std::u32string decode(const std::string &text) {
  std::u32string out;
  for (std::size_t i = 0; i < text.size();) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const int extra = byte < 0x80 ? 0 : byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
    char32_t c = extra == 0 ? byte : byte & (0x3F >> extra);
    for (int k = 1; k <= extra; ++k) c = c << 6 | (static_cast<unsigned char>(text[i + k]) & 0x3F);
    out.push_back(c);
    i += 1 + extra;
  }
  return out;
}

std::string session_bytes(const std::string &utf8, Session session) {
  if (session == Session::Utf8) return utf8;
  std::string out;
  for (const char32_t c : decode(utf8)) {
    if (session == Session::Latin1) {
      out.push_back(static_cast<char>(c));
    } else {
      out.push_back(static_cast<char>(c & 0xFF));
      out.push_back(static_cast<char>(c >> 8));
    }
  }
  return out;
}

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

constexpr Session U8 = Session::Utf8;
constexpr Session L1 = Session::Latin1;
constexpr Session U16 = Session::Units16;

#define F(name) #name, name

const GoldenRow kRows[] = {
    // Fits grouped; one character too wide loses its separators.
    {F(nlnum), 12, 2, 1234567.891, "en_US", U8, "1,234,567.89"},
    {F(nlnum), 12, 2, -1234567.891, "en_US", U8, " -1234567.89"},
    {F(nlnum), 12, 2, -1234567.891, "en_US", U16, " -1234567.89"},
    {F(nlnum), 12, 2, 1234567.891, "de_DE", U8, "1.234.567,89"},
    // The process locale writes "1234567,89"; its monetary point "," splits it.
    {F(nlnum), 12, 2, 1234567.891, "de_DE", L1, "1.234.567,89"},
    // U+00A0 is two UTF-8 bytes (14 > 12) but one ISO-8859-1 byte.
    {F(nlnum), 12, 2, 1234567.891, "pl_PL", U8, "  1234567,89"},
    {F(nlnum), 12, 2, 1234567.891, "pl_PL", L1, "1\u00A0234\u00A0567,89"},
    // The Swiss apostrophe is one byte in every encoding.
    {F(nlnum), 16, 2, 1234567.891, "de_CH", U8, "    1'234'567.89"},
    {F(nlnum), 12, 2, 1234567.891, "de_CH", L1, "1'234'567.89"},
    {F(nlnum), 12, 0, 1234567, "hi_IN", U8, "  1,23,45,67"},
    {F(nlnum), 10, 1, -1234.5, "ar_DZ", U8, "  1.234,5-"},
    {F(nlnum), 10, 1, -1234.5, "ar_DZ", U16, "  1.234,5-"},
    {F(nlnum), 10, 2, 1234.5, "pt_BR", U8, "  1.234,50"},
    {F(nlnum), 10, 2, 1234.5, "zh_TW", U8, "  1,234.50"},
    {F(nlnum), 10, 2, 1234.5, "ja_JP", U8, "  1,234.50"},
    // "%.2f" is 10 wide: "%-8.2G" gives "1.2E+06 " (two significant digits).
    {F(nlnum), 8, 2, 1234567.891, "en_US", U8, " 1.2E+06"},
    {F(nlnum), 8, 2, 1234567.891, "de_DE", U8, " 1,2E+06"},
    // The process writes "1,2E+06"; split at its monetary point ",".
    {F(nlnum), 8, 2, 1234567.891, "de_DE", L1, " 1,2E+06"},
    // "%-8.0G" keeps one digit and no point: "1E+09", never grouped.
    {F(nlnum), 8, 0, 1234567890, "en_US", U8, "   1E+09"},
    {F(nlnum), 12, 2, 1e300, "en_US", U8, "      1E+300"},
    // "%-4.3G" of 0.5 drops the trailing zeros.
    {F(nlnum), 4, 3, 0.5, "en_US", U8, " 0.5"},
    // printf's exact digits: "%.31G" is 33 wide, "%.30G" fits 32.
    {F(nlnum), 32, 31, 0.1, "en_US", U8, "0.100000000000000005551115123126"},
    // Negative zero takes the positive layout; a tiny negative the negative one.
    {F(nlnum), 6, 2, -0.0, "en_US", U8, "  0.00"},
    {F(nlnum), 6, 2, -0.001, "en_US", U8, " -0.00"},
    {F(nlnum), 6, 2, kNaN, "en_US", U8, "******"},
    {F(nlnum), 6, 2, -kInf, "en_US", U8, "******"},
    // A locale that ORB_LOCALE does not name: COMMA, DOLLAR, PERCENT (of the
    // unscaled value).
    {F(nlnum), 10, 2, 1234.5, "en_XX", U8, "  1,234.50"},
    {F(nlnum), 10, 2, 1234.5, "en_XX", U16, "  1,234.50"},
    {F(nlmny), 10, 2, -1234.5, "en_XX", U8, "$-1,234.50"},
    {F(nlpct), 8, 1, 0.125, "en_XX", U8, "  12.5% "},

    {F(nlnumi), 12, 2, 1234567.891, "de_DE", U8, "1,234,567.89"},
    {F(nlnumi), 10, 1, -1234.5, "ar_DZ", U8, "  1,234.5-"},

    // NLMNY: the bracket blank after positives in en_US, not after zero.
    {F(nlmny), 12, 2, -1234.5, "en_US", U8, " ($1,234.50)"},
    {F(nlmny), 12, 2, 1234.5, "en_US", U8, "  $1,234.50 "},
    {F(nlmny), 12, 2, 0, "en_US", U8, "       $0.00"},
    // Without separators "$12345.68 " is 10: one decimal less, then none.
    {F(nlmny), 9, 2, 12345.678, "en_US", U8, "$12345.7 "},
    {F(nlmny), 8, 2, 12345.678, "en_US", U8, " $12346 "},
    // "$1234567 " is 9 for 8: the exponent text in a field narrowed by 1.
    {F(nlmny), 8, 0, 1234567, "en_US", U8, " $1E+06 "},
    // "$12346 " does not fit 6 and "$1E+04 " neither, however narrow.
    {F(nlmny), 6, 2, 12345.678, "en_US", U8, "******"},
    // "0.05" begins "0." under a "." process locale: the exponent field is
    // narrowed instead of dropping a decimal, and "$0.05 " never fits; under
    // the "," process locale the text is "0,05" and one decimal goes.
    {F(nlmny), 5, 2, 0.05, "en_US", U8, "*****"},
    {F(nlmny), 5, 2, 0.05, "en_US", L1, "$0.1 "},
    {F(nlmny), 12, 2, 1234.5, "de_DE", U8, "1.234,50 \u20AC"},
    {F(nlmny), 12, 2, -1234.5, "de_DE", U8, "-1234,50 \u20AC"},
    {F(nlmny), 12, 2, -1234.5, "de_DE", U16, "-1234,50 \u20AC"},
    // The euro sign has no ISO-8859-1 byte.
    {F(nlmny), 12, 2, -1234.5, "de_DE", L1, " -1.234,50 ?"},
    {F(nlmny), 14, 2, 1234.5, "fr_FR", U8, " 1\u00A0234,50 \u20AC"},
    {F(nlmny), 14, 2, 1234.5, "fr_FR", U16, " 1\u00A0234,50 \u20AC"},
    {F(nlmny), 14, 2, 1234.5, "fr_FR", L1, "    1\u00A0234,50 ?"},
    {F(nlmny), 10, 2, 1234.5, "ja_JP", U8, "\uFFE51234.50"},
    {F(nlmny), 10, 2, 1234.5, "ja_JP", U16, "\uFFE51234.50"},
    // "-￥1234567" is 11 for 10: "-￥1E+06".
    {F(nlmny), 10, 0, -1234567, "ja_JP", U8, " -\uFFE51E+06"},
    {F(nlmny), 20, 2, -1234.5, "ar_DZ", U8, " \u062F.\u062C.\u200F 1.234,50-"},
    // 19 bytes for 16: ungrouped 18, one decimal 17, none 15 ("-1234" by
    // printf's rounding of the tie to even).
    {F(nlmny), 16, 2, -1234.5, "ar_DZ", U8, " \u062F.\u062C.\u200F 1234-"},
    {F(nlmny), 16, 2, -1234.5, "ar_DZ", L1, " ?.?.? 1.234,50-"},
    {F(nlmny), 16, 2, 1234567.891, "hi_IN", U8, "\u20B91,23,45,67.89"},
    {F(nlmny), 12, 2, 1234567.891, "hi_IN", U8, "\u20B91234567.9"},
    {F(nlmny), 12, 2, -1234.5, "zh_TW", U8, "-NT$1,234.50"},
    {F(nlmny), 12, 2, -1234.5, "zh_TW", U16, "-NT$1,234.50"},
    {F(nlmny), 16, 2, -1234.5, "de_CH", U8, "   CHF -1'234.50"},
    {F(nlmny), 14, 2, -1234.5, "de_CH", L1, " CHF -1'234.50"},
    {F(nlmny), 12, 2, -1234.5, "pt_BR", U8, "-R$ 1.234,50"},
    {F(nlmny), 14, 2, -1234.5, "da_DK", U8, " kr. -1.234,50"},

    {F(nlmnyi), 12, 2, -1234.5, "en_US", U8, "(USD1234.50)"},
    {F(nlmnyi), 14, 2, 1234.5, "de_DE", U8, "  1.234,50 EUR"},

    {F(nlpct), 8, 1, 0.125, "en_US", U8, "   12.5%"},
    {F(nlpct), 8, 1, -0.125, "de_DE", U8, "  -12,5%"},
    {F(nlpct), 8, 1, 0, "de_DE", U8, "    0,0%"},
    {F(nlpct), 10, 1, 12.5, "fr_FR", U8, " 1\u00A0250,0%"},
    {F(nlpct), 10, 1, 12.5, "fr_FR", L1, "  1\u00A0250,0%"},
    {F(nlpct), 8, 1, 0.125, "ja_JP", U16, "   12.5%"},
    {F(nlpcti), 10, 1, 12.5, "fr_FR", U8, "  1,250.0%"},

    // Currency codes: grouped with the code; ungrouped; without it; the
    // exponent text with it; without it, first with `decimals` significant
    // digits, then with as many fewer as the text was too wide.
    {F(nlmnieur), 14, 2, 1234.5, "de_DE", U8, "  1.234,50 EUR"},
    {F(nlmnieur), 12, 2, -1234.5, "de_DE", U8, "-1234,50 EUR"},
    {F(nlmnieur), 10, 2, -1234.5, "de_DE", U8, "  -1234,50"},
    {F(nlmnieur), 12, 2, 1234567890.5, "de_DE", U8, " 1,2E+09 EUR"},
    {F(nlmnieur), 8, 2, 1234567890.5, "de_DE", U8, " 1,2E+09"},
    {F(nlmnieur), 8, 4, -1234567890.5, "de_DE", U8, "-1,2E+09"},
    {F(nlmnieur), 14, 2, -1234.5, "ar_DZ", U8, " EUR 1.234,50-"},
    // "1E+04 " (the bracket blank) is 6 for 5: the bare "%5.0f".
    {F(nlmniusd), 5, 0, 12345, "en_US", U8, "12345"},
    {F(nlmniusd), 4, 0, 12345, "en_US", U8, "****"},
    {F(nlmniusd), 7, 2, 12345, "en_US", U8, " 1E+04 "},
    // The currency-code formats read "3;2" by its first character.
    {F(nlmniinr), 16, 2, 1234567.891, "hi_IN", U8, " INR1,234,567.89"},
    {F(nlmnibrl), 14, 2, 1234.5, "pt_BR", U8, "  BRL 1.234,50"},
    // Local symbols; the code where the session cannot show the symbol.
    {F(nlmnleur), 12, 2, 1234.5, "de_DE", U8, "1.234,50 \u20AC"},
    {F(nlmnleur), 12, 2, -1234.5, "de_DE", L1, "-1234,50 EUR"},
    {F(nlmnleur), 12, 2, -1234.5, "de_DE", U16, "-1234,50 \u20AC"},
    {F(nlmnlpln), 14, 2, 1234.5, "pl_PL", U8, " 1\u00A0234,50 z\u0142"},
    {F(nlmnlpln), 14, 2, 1234.5, "pl_PL", L1, "  1\u00A0234,50 PLN"},
    {F(nlmnlgbp), 12, 2, 1234.5, "en_US", L1, "  \u00A31,234.50 "},
    {F(nlmnljpy), 12, 0, -1234567, "ja_JP", U8, " -\uFFE51234567"},
};

class GoldenNumbers : public ::testing::TestWithParam<GoldenRow> {};

TEST_P(GoldenNumbers, RenderTheLocalesField) {
  const GoldenRow &row = GetParam();
  ScopedSessionLocale session(row.session == Session::Latin1 ? corvinel::testing::kLatin1Locale
                                                            : corvinel::testing::kUtf8Locale);
  ASSERT_TRUE(session.active());
  ScopedOrbLocale locale(row.locale);
  Request r(row.width, row.decimals, row.value, 2 * row.width + 8);
  if (row.session == Session::Units16) r.set_output_encoding(CORVINEL_ENC_UTF16LE);

  EXPECT_EQ(row.render(r.get()), CORVINEL_OK);
  EXPECT_EQ(r.text(), session_bytes(row.expected, row.session));
  EXPECT_TRUE(r.guards_intact());
  EXPECT_TRUE(r.restored());
  if (row.session == Session::Units16) {
    EXPECT_EQ(r->xcode_state, CORVINEL_ENC_UTF16LE);
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, GoldenNumbers, ::testing::ValuesIn(kRows));

}  // namespace

// The locale-aware number, currency, percent and name formats end to end:
// format, width, decimals, value, locale (ORB_LOCALE) and session to the
// field a user of that locale sees, written as UTF-8 and turned into the
// session's bytes: ISO-8859-1, or UTF-16 units low byte first for 16-bit
// delivery (in a UTF-8 session, which measures the width in UTF-8 bytes).
//
// Locale items the rows rely on: en_US "." "," by 3, money "($1.00)" whose
// n_sign_posn 0 gives positives a trailing blank; de_DE, pt_BR, ar_DZ ","
// "."; fr_FR, pl_PL "," and U+00A0; de_CH "." "'"; ar_DZ numbers "1-"; hi_IN
// grouping "3;2", read by its last digit in the engine and by its first in
// the currency-code formats; money "-1,00 €" (de_DE), "-￥1" (ja_JP),
// "د.ج.‏ 1-" (ar_DZ, 9 bytes of symbol), "-NT$1" (zh_TW), "CHF -1" (de_CH),
// "-R$ 1" (pt_BR), "kr. -1" (da_DK).  NLNUMI and NLPCTI use "." "," by 3
// anywhere; NLMNYI uses the money marks with the code.
#include <cmath>
#include <cstdint>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/formats.h"
#include "locale/orb_locale_env.h"
#include "support/request_builder.h"
#include "support/session_locales.h"
#include "support/utf8_text.h"

namespace {

using namespace corvinel::testing;

enum class Session { U8, L1, U16 };
constexpr Session U8 = Session::U8, L1 = Session::L1, U16 = Session::U16;

struct Row {
  const char *format;
  fmt_render_fn render;
  int32_t width, decimals;
  double value;
  const char *locale;
  Session session;
  std::string expected;  // UTF-8
};

void PrintTo(const Row &row, std::ostream *out) {
  constexpr const char *kSessions[] = {"utf8", "latin1", "units16"};
  *out << row.format << row.width << "." << row.decimals << "(" << row.value << ")/" << row.locale
       << "/" << kSessions[static_cast<int>(row.session)];
}

// A UTF-8 text in the bytes of the session; a field of "*" is left as it is
// in every delivery.
std::string session_bytes(const std::string &utf8, Session session) {
  if (session == U8 || utf8.find_first_not_of('*') == std::string::npos) return utf8;
  std::string out;
  for (const char32_t c : code_points(utf8)) {
    out.push_back(static_cast<char>(c & 0xFF));
    if (session == U16) out.push_back(static_cast<char>(c >> 8));
  }
  return out;
}

#define F(name) #name, name

const Row kRows[] = {
    // The engine: grouped; one byte too wide drops the separators, then
    // decimals one by one; only when even the integer part does not fit,
    // exponent text from the requested decimals in a narrowing field, then "*".
    {F(nlnum), 12, 2, 1234567.891, "en_US", U8, "1,234,567.89"},
    // The process writes "1234567,89"; its monetary point "," splits it.
    {F(nlnum), 12, 2, 1234567.891, "de_DE", L1, "1.234.567,89"},
    // U+00A0 is two UTF-8 bytes (14 > 12) but one ISO-8859-1 byte.
    {F(nlnum), 12, 2, 1234567.891, "pl_PL", U8, "  1234567,89"},
    {F(nlnum), 12, 2, 1234567.891, "pl_PL", L1, "1\u00A0234\u00A0567,89"},
    {F(nlnum), 12, 2, 1234567.891, "de_CH", L1, "1'234'567.89"},
    {F(nlnum), 12, 0, 1234567, "hi_IN", U8, "  1,23,45,67"},
    {F(nlnum), 10, 1, -1234.5, "ar_DZ", U16, "  1.234,5-"},
    // "%.2f" is 10 wide, "%.0f" fits: plain digits before an exponent.
    {F(nlnum), 8, 2, 1234567.891, "de_DE", U8, " 1234568"},
    {F(nlnum), 8, 2, 1234567.891, "de_DE", L1, " 1234568"},
    // "%.0f" is 9 wide: "%-8.2G" gives "1.2E+08 ", its point the locale's.
    {F(nlnum), 8, 2, 123456789.1, "de_DE", U8, " 1,2E+08"},
    {F(nlnum), 8, 2, 123456789.1, "de_DE", L1, " 1,2E+08"},  // printf writes "1,2E+08"
    // Without decimals "%G" writes no "."; an exponent text is never
    // grouped, and its padding blanks are no part of it.
    {F(nlnum), 8, 0, 1234567890, "en_US", U8, "   1E+09"},
    {F(nlnum), 5, 0, 1234567890, "en_US", U8, "1E+09"},
    {F(nlnum), 12, 2, 1e300, "en_US", U8, "      1E+300"},
    // "0.500" is too wide: one decimal fewer.
    {F(nlnum), 4, 3, 0.5, "en_US", U8, "0.50"},
    {F(nlnum), 32, 31, 0.1, "en_US", U8, "0.100000000000000005551115123126"},
    {F(nlnum), 6, 2, -0.0, "en_US", U8, "  0.00"},
    {F(nlnum), 6, 2, -0.001, "en_US", U8, " -0.00"},
    // A NaN that is no missing value and the infinities as printf writes them.
    {F(nlnum), 6, 2, std::nan(""), "en_US", U8, "   nan"},
    {F(nlmny), 8, 2, -INFINITY, "en_US", U8, "  ($inf)"},
    // A locale ORB_LOCALE does not name: COMMA, DOLLAR, PERCENT.
    {F(nlnum), 10, 2, 1234.5, "en_XX", U16, "  1,234.50"},
    {F(nlmny), 10, 2, -1234.5, "en_XX", U8, "$-1,234.50"},
    {F(nlpct), 8, 1, 0.125, "en_XX", U8, "  12.5% "},
    {F(nlnumi), 10, 1, -1234.5, "ar_DZ", U8, "  1,234.5-"},

    {F(nlmny), 12, 2, -1234.5, "en_US", U8, " ($1,234.50)"},
    {F(nlmny), 12, 2, 123456.5, "en_US", U8, "$123,456.50 "},
    {F(nlmny), 12, 2, 0, "en_US", U8, "       $0.00"},
    {F(nlmny), 9, 2, 12345.678, "en_US", U8, "$12345.7 "},
    {F(nlmny), 8, 0, 1234567, "en_US", U8, " $1E+06 "},
    {F(nlmny), 6, 2, 12345.678, "en_US", U8, "******"},
    // "$0.05 " is too wide: one decimal goes, under either process.
    {F(nlmny), 5, 2, 0.05, "en_US", U8, "$0.1 "},
    {F(nlmny), 5, 2, 0.05, "en_US", L1, "$0.1 "},
    {F(nlmny), 12, 2, -1234.5, "de_DE", U8, "-1234,50 \u20AC"},
    {F(nlmny), 12, 2, -1234.5, "de_DE", L1, " -1.234,50 ?"},
    {F(nlmny), 14, 2, 1234.5, "fr_FR", U16, " 1\u00A0234,50 \u20AC"},
    {F(nlmny), 10, 0, -1234567, "ja_JP", U8, " -\uFFE51E+06"},
    // 19 bytes for 16: ungrouped 18, one decimal 17, none 15 (the tie to even).
    {F(nlmny), 16, 2, -1234.5, "ar_DZ", U8, " \u062F.\u062C.\u200F 1234-"},
    {F(nlmny), 16, 2, -1234.5, "ar_DZ", L1, " ?.?.? 1.234,50-"},
    {F(nlmny), 16, 2, 1234567.891, "hi_IN", U8, "\u20B91,23,45,67.89"},
    {F(nlmny), 12, 2, -1234.5, "zh_TW", U8, "-NT$1,234.50"},
    {F(nlmny), 16, 2, -1234.5, "de_CH", U8, "   CHF -1'234.50"},
    {F(nlmny), 12, 2, -1234.5, "pt_BR", U8, "-R$ 1.234,50"},
    {F(nlmny), 14, 2, -1234.5, "da_DK", U8, " kr. -1.234,50"},
    {F(nlmnyi), 12, 2, -1234.5, "en_US", U8, "(USD1234.50)"},
    {F(nlmnyi), 14, 2, 1234.5, "de_DE", U8, "  1.234,50 EUR"},
    {F(nlpct), 8, 1, -0.125, "de_DE", U8, "  -12,5%"},
    {F(nlpct), 10, 1, 12.5, "fr_FR", U8, " 1\u00A0250,0%"},
    {F(nlpct), 8, 1, 0.125, "ja_JP", U16, "   12.5%"},
    {F(nlpcti), 10, 1, 12.5, "fr_FR", U8, "  1,250.0%"},
    // Missing values: the units place of `decimals` places, the right edge
    // for decimals outside the field; the percent formats two places left
    // of that, for the "%" of their convention.
    {F(nlnumi), 8, 2, missing('.'), "de_DE", U8, "     .  "},
    {F(nlmny), 8, 8, missing('Z'), "en_US", L1, "       Z"},
    {F(nlpct), 6, 99, missing('.'), "en_US", U8, "   .  "},
    {F(nlpcti), 8, 2, missing('A'), "fr_FR", L1, "   A    "},

    // Currency codes: grouped with the code, ungrouped, without it, with
    // fewer decimals; when the integer part does not fit, exponent text with
    // it, without it, with fewer digits by the excess; "%*.*f".
    {F(nlmnieur), 14, 2, 1234.5, "de_DE", U8, "  1.234,50 EUR"},
    {F(nlmnieur), 12, 2, -1234.5, "de_DE", U8, "-1234,50 EUR"},
    {F(nlmnieur), 10, 2, -1234.5, "de_DE", U8, "  -1234,50"},
    {F(nlmnieur), 12, 2, 1234567890.5, "de_DE", U8, "1234567890,5"},
    {F(nlmnieur), 12, 2, 1.5e12, "de_DE", U8, " 1,5E+12 EUR"},
    {F(nlmnieur), 8, 2, 1234567890.5, "de_DE", U8, " 1,2E+09"},
    {F(nlmnieur), 8, 4, -1234567890.5, "de_DE", U8, "-1,2E+09"},
    {F(nlmnieur), 14, 2, -1234.5, "ar_DZ", U8, " EUR 1.234,50-"},
    {F(nlmnieur), 10, 2, INFINITY, "de_DE", U8, "   inf EUR"},
    // No record: no marks, signs or selectors ("(V$)"), and no fallback.
    {F(nlmnieur), 12, 2, 1234.5, "en_XX", U8, "  123450EUR "},
    {F(nlmniusd), 5, 0, 12345, "en_US", U8, "12345"},  // "1E+04 " is 6
    {F(nlmniusd), 4, 0, 12345, "en_US", U8, "****"},
    {F(nlmniusd), 7, 2, 12345, "en_US", U8, " 12345 "},
    {F(nlmniusd), 7, 2, 123456, "en_US", U8, "123456 "},
    {F(nlmniusd), 7, 2, 1234567, "en_US", U8, " 1E+06 "},
    {F(nlmniinr), 16, 2, 1234567.891, "hi_IN", U8, " INR1,234,567.89"},
    {F(nlmnibrl), 14, 2, 1234.5, "pt_BR", U8, "  BRL 1.234,50"},
    // Local symbols; the code where the session cannot show the symbol.
    {F(nlmnleur), 12, 2, 1234.5, "de_DE", U8, "1.234,50 \u20AC"},
    {F(nlmnleur), 12, 2, -1234.5, "de_DE", L1, "-1234,50 EUR"},
    {F(nlmnleur), 12, 2, -1234.5, "de_DE", U16, "-1234,50 \u20AC"},
    {F(nlmnlgbp), 12, 2, 1234.5, "en_US", L1, "  \u00A31,234.50 "},

    // Classic renderings with the locale's one-byte decimal separator.
    {F(nlbest), 12, 0, 1234.5678, "de_DE", U8, "   1234,5678"},
    {F(nlbest), 6, 0, -0.125, "pt_BR", L1, "-0,125"},
    {F(nldfmt), 12, 3, -0.001, "de_DE", U8, "  -0,0010000"},
    {F(nldfmt), 6, 1, -1.25, "de_DE", U16, "  -1,3"},
    // The swap walks the whole field: the mark "." too.
    {F(nldfmt), 12, 3, missing('.'), "de_DE", U8, "           ,"},
    {F(nlbest), 6, 0, missing('A'), "de_DE", L1, "     A"},
    {F(nlpvalue), 6, 4, 0.00001, "de_DE", U8, "<,0001"},
    // PERCENT: right-aligned, brackets beside the digits, a blank after a
    // positive value to line it up with ")", "," between groups.
    {F(nlpctp), 8, 1, -0.12, "fr_FR", U8, " (12,0%)"},
    {F(nlpctp), 20, 2, -0.004, "en_US", U8, "             (0.40%)"},
    {F(nlpctp), 20, 2, 1234.5678, "de_DE", U8, "        123.456,78% "},
    {F(nlpctp), 6, 0, -0.05, "en_US", U8, "  (5%)"},
    {F(nlpctp), 4, 0, 0.05, "en_US", U8, " 5% "},
    {F(nlpctp), 8, 2, -12345.678, "en_US", U8, "********"},
    // The brackets become blanks and "-" stands before the first digit.
    {F(nlpctn), 8, 1, -0.12, "de_DE", U8, " -12,0% "},
    {F(nlpctn), 20, 2, -1234.5678, "en_US", U8, "       -123,456.78% "},
    {F(nlpctn), 5, 0, -0.05, "en_US", U8, " -5% "},
    {F(nlpctn), 20, 2, 0.004, "en_US", U8, "              0.40% "},
    {F(nlpctn), 4, 0, 0.05, "en_US", U8, " 5% "},
    {F(nlpctn), 8, 1, -12.3456, "de_DE", U8, " -1235% "},
    {F(nlpctn), 6, 0, -1.5, "en_US", U16, "-150% "},
    // PERCENT shows a plain zero; every negative value still gets the sign.
    {F(nlpctn), 6, 0, -0.001, "en_US", U8, "  -0% "},

    // Names: left-aligned, outlen their length; bit 0 abbreviated, bit 1
    // upper case; the width counts session bytes.
    {F(nlstrmon), 20, 2, 3, "de_DE", L1, "M\u00C4RZ"},
    {F(nlstrmon), 20, 3, 3, "de_CH", U16, "M\u00C4R"},
    {F(nlstrmon), 4, 0, 3, "de_DE", U8, "****"},
    {F(nlstrmon), 4, 0, 3, "de_DE", L1, "M\u00E4rz"},
    {F(nlstrmon), 4, 0, 3, "de_DE", U16, "****"},
    {F(nlstrmon), 20, 2, 10, "pl_PL", U16, "PA\u0179DZIERNIK"},
    {F(nlstrmon), 20, 2, 10, "pl_PL", L1, "PA?DZIERNIK"},
    {F(nlstrmon), 10, 0, 1, "ar_DZ", U8, "\u064A\u0646\u0627\u064A\u0631"},
    {F(nlstrmon), 20, 1, 2.7, "en_US", U8, "Feb"},
    {F(nlstrmon), 20, 0, 13, "en_US", U8, std::string(20, ' ')},
    {F(nlstrmon), 20, 3, missing('B'), "en_US", U8, std::string(19, ' ') + "B"},
    {F(nlstrqtr), 20, 3, 1, "en_US", U8, "Q1"},
    {F(nlstrqtr), 20, 2, 1, "pl_PL", U8, "I KWARTA\u0141"},
    {F(nlstrqtr), 20, 0, 0.5, "de_DE", U8, std::string(20, ' ')},
    {F(nlstrwk), 20, 0, 1, "zh_TW", L1, "???"},
    {F(nlstrwk), 20, 3, 7, "pl_PL", U8, "SOB."},
};

class Golden : public ::testing::TestWithParam<Row> {};

TEST_P(Golden, RendersTheLocalesField) {
  const Row &row = GetParam();
  ScopedSessionLocale session(row.session == L1 ? kLatin1Locale : kUtf8Locale);
  ASSERT_TRUE(session.active());
  ScopedOrbLocale locale(row.locale);
  const int32_t capacity = 2 * row.width + 8;
  Request r(row.width, row.decimals, row.value, capacity);
  if (row.session == U16) r.set_output_encoding(CORVINEL_ENC_UTF16LE);

  EXPECT_EQ(row.render(r.get()), CORVINEL_OK);
  // Read through the caller's capacity: the classic-based formats leave
  // `capacity` narrowed to the width.
  ASSERT_GE(r->outlen, 0);
  ASSERT_LE(r->outlen, capacity);
  EXPECT_EQ(std::string(r->output, static_cast<std::size_t>(r->outlen)),
            session_bytes(row.expected, row.session));
  EXPECT_TRUE(r.guards_intact());
  EXPECT_TRUE(r.restored());
  if (row.session == U16) {
    EXPECT_EQ(r->xcode_state, CORVINEL_ENC_UTF16LE);
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, Golden, ::testing::ValuesIn(kRows));

}  // namespace

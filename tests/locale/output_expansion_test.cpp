#include <cstdint>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/fmtreq.h"
#include "corvinel/transcode.h"
#include "locale/output_expansion.h"
#include "support/session_locales.h"

namespace {

using corvinel::locale::getExpResultFromNarrowCharBuf;
using corvinel::testing::kEucJpLocale;
using corvinel::testing::kLatin1Locale;
using corvinel::testing::kUnknownCodesetLocale;
using corvinel::testing::kUtf8Locale;
using corvinel::testing::ScopedSessionLocale;

constexpr int32_t kOutputEncoding = 0;
constexpr char kGuard = '\x5A';
constexpr std::size_t kGuardBytes = 8;

struct Expansion {
  const char *what;
  const char *locale;
  std::string input;
  int32_t width;
  int32_t capacity;
  int32_t outenc;
  int32_t result;
  std::string expected;  // the result bytes; for 2 and 4 the untouched input
};

void PrintTo(const Expansion &c, std::ostream *os) { *os << c.what; }

std::string repeat(const std::string &text, int times) {
  std::string out;
  for (int i = 0; i < times; ++i) out += text;
  return out;
}

class OutputExpansion : public ::testing::TestWithParam<Expansion> {};

TEST_P(OutputExpansion, ExpandsTranscodesAndFits) {
  const Expansion &c = GetParam();
  ScopedSessionLocale session(c.locale);
  ASSERT_TRUE(session.active()) << c.locale;

  // The input sits at the start of a buffer of `capacity` bytes (at least
  // the input) followed by guard bytes.
  const std::size_t room = std::max<std::size_t>(c.input.size(), static_cast<std::size_t>(c.capacity));
  std::string buf = c.input + std::string(room - c.input.size(), '#') + std::string(kGuardBytes, kGuard);
  const std::string before = buf;
  int32_t len = static_cast<int32_t>(c.input.size());
  int32_t encout = -1;
  const int32_t result =
      getExpResultFromNarrowCharBuf(0, c.outenc, &encout, buf.data(), &len, c.width, c.capacity);

  EXPECT_EQ(result, c.result);
  EXPECT_EQ(buf.substr(room), std::string(kGuardBytes, kGuard));
  if (result == corvinel::locale::kExpansionNoRoom || result == corvinel::locale::kExpansionImpossible) {
    EXPECT_EQ(buf, before);
    EXPECT_EQ(len, static_cast<int32_t>(c.input.size()));
    EXPECT_EQ(encout, -1);
    return;
  }
  ASSERT_EQ(len, static_cast<int32_t>(c.expected.size()));
  EXPECT_EQ(buf.substr(0, static_cast<std::size_t>(len)), c.expected);
  EXPECT_EQ(buf.substr(static_cast<std::size_t>(len), room - static_cast<std::size_t>(len)),
            before.substr(static_cast<std::size_t>(len), room - static_cast<std::size_t>(len)));
  EXPECT_EQ(encout, c.outenc == CORVINEL_ENC_UTF16LE ? CORVINEL_ENC_UTF16LE : -1);
}

const std::string kEuroUtf8 = "\xE2\x82\xAC";
const std::string kYearUtf8 = "\xE5\xB9\xB4";  // U+5E74
const std::string kYearEucJp = "\xC7\xAF";

INSTANTIATE_TEST_SUITE_P(
    SessionEncodings, OutputExpansion,
    ::testing::Values(
        // Escapes and the currency marker.
        Expansion{"euro_utf8", kUtf8Locale, "<U20AC>", 10, 10, 0, 3 - 10, kEuroUtf8},
        Expansion{"euro_latin1_is_question_mark", kLatin1Locale, "<U20AC>", 10, 10, 0, 1 - 10, "?"},
        Expansion{"euro_among_text_latin1", kLatin1Locale, "<U20AC> 12,50", 10, 10, 0, 7 - 10,
                  "? 12,50"},
        Expansion{"umlaut_latin1", kLatin1Locale, "1. M<U00E4>rz", 10, 10, 0, 7 - 10,
                  "1. M\xE4rz"},
        Expansion{"umlaut_utf8", kUtf8Locale, "1. M<u00e4>rz", 8, 9, 0, 0, "1. M\xC3\xA4rz"},
        Expansion{"currency_marker", kUtf8Locale, "x<U00A4>", 10, 10, 0, 2 - 10, "x\x01"},
        Expansion{"currency_marker_lower_case", kLatin1Locale, "x<u00a4>", 10, 10, 0, 2 - 10,
                  "x\x01"},
        Expansion{"raw_0xA4_stays_currency_sign", kUtf8Locale, "x\xA4", 10, 10, 0, 3 - 10,
                  "x\xC2\xA4"},
        Expansion{"raw_0xA4_latin1", kLatin1Locale, "12 \xA4 and", 8, 10, 0, 0, "12 \xA4 and"},
        Expansion{"bad_digit_counts_as_zero", kUtf8Locale, "<U00G1>", 10, 10, 0, 1 - 10, "\x01"},
        Expansion{"not_an_escape", kUtf8Locale, "<X0041>", 10, 10, 0, 7 - 10, "<X0041>"},
        Expansion{"six_bytes_have_no_escape", kUtf8Locale, "<U0041", 10, 10, 0, 6 - 10, "<U0041"},
        Expansion{"seven_byte_escape", kUtf8Locale, "<U0041>", 10, 10, 0, 1 - 10, "A"},
        Expansion{"escape_at_the_end", kUtf8Locale, "ab<U0041>", 10, 10, 0, 3 - 10, "abA"},
        Expansion{"japanese_euc_jp", kEucJpLocale, "2024<U5E74>", 10, 10, 0, 6 - 10,
                  "2024" + kYearEucJp},
        Expansion{"empty", kUtf8Locale, "", 5, 5, 0, -5, ""},
        // Fitting to the width, by whole units.
        Expansion{"japanese_year_cut_utf8", kUtf8Locale, "2024<U5E74>", 6, 10, 0, 1, "2024"},
        Expansion{"japanese_year_fits_utf8", kUtf8Locale, "2024<U5E74>", 7, 10, 0, 0,
                  "2024" + kYearUtf8},
        Expansion{"japanese_year_cut_euc_jp", kEucJpLocale, "2024<U5E74>", 5, 10, 0, 1, "2024"},
        Expansion{"surrogate_pair_whole", kUtf8Locale, "<UD83D><UDE00>", 4, 10, 0, 0,
                  "\xF0\x9F\x98\x80"},
        Expansion{"surrogate_pair_cut_in_half", kUtf8Locale, "<UD83D><UDE00>", 3, 10, 0, 1, "?"},
        Expansion{"lone_second_half", kUtf8Locale, "a<UDE00>b", 10, 10, 0, 3 - 10, "a?b"},
        Expansion{"cut_after_fallback", kLatin1Locale, "ab<U20AC>cd", 3, 10, 0, 1, "ab?"},
        Expansion{"width_zero", kUtf8Locale, "abc", 0, 10, 0, 1, ""},
        Expansion{"negative_width", kUtf8Locale, "abc", -3, 10, 0, 1, ""},
        Expansion{"negative_width_empty_text", kUtf8Locale, "", -3, 10, 0, 0, ""},
        // The 402-byte steps: 150 CJK characters need 450 bytes of UTF-8.
        Expansion{"beyond_402_bytes_cut", kUtf8Locale, repeat("<U5E74>", 150), 30, 30, 0, 1,
                  repeat(kYearUtf8, 10)},
        Expansion{"beyond_402_bytes_cut_to_the_step", kUtf8Locale, repeat("<U5E74>", 150), 500,
                  500, 0, 1, repeat(kYearUtf8, 134)},
        Expansion{"beyond_402_bytes_latin1", kLatin1Locale, repeat("<U5E74>", 150), 500, 500, 0,
                  150 - 500, std::string(150, '?')},
        Expansion{"two_hundred_units", kUtf8Locale, std::string(200, 'a'), 200, 200, 0, 0,
                  std::string(200, 'a')},
        Expansion{"more_than_two_hundred_units", kUtf8Locale, std::string(201, 'a'), 300, 300, 0,
                  4, ""},
        // Capacity, unknown codesets.
        Expansion{"result_exceeds_capacity", kUtf8Locale, "<U20AC>", 10, 2, 0, 2, ""},
        Expansion{"unknown_codeset", kUnknownCodesetLocale, "abc", 10, 10, 0, 4, ""},
        Expansion{"unknown_codeset_escape", kUnknownCodesetLocale, "<U20AC>", 10, 10, 0, 4, ""},
        // Delivery as 16-bit units, low byte first.
        Expansion{"units_for_encoding_25", kUtf8Locale, "A", 10, 10, 25, 1 - 10,
                  std::string("A\0", 2)},
        Expansion{"units_keep_the_marker", kLatin1Locale, "<U20AC><U00A4>", 10, 10, 25, 2 - 10,
                  std::string("\xAC\x20\x01\0", 4)},
        Expansion{"units_cut_by_session_width", kUtf8Locale, "2024<U5E74>", 6, 20, 25, 1,
                  std::string("2\0" "0\0" "2\0" "4\0", 8)},
        Expansion{"units_exceed_capacity", kUtf8Locale, "AB", 10, 3, 25, 2, ""},
        Expansion{"units_need_a_known_codeset", kUnknownCodesetLocale, "A", 10, 10, 25, 4, ""},
        Expansion{"big_endian_request_gets_session_bytes", kUtf8Locale, "<U20AC>", 10, 10, 24,
                  3 - 10, kEuroUtf8}));

// The look-ahead for ">" stops at the length: bytes after the text are not
// part of an escape.
TEST(OutputExpansion, EscapeMustEndInsideTheText) {
  ScopedSessionLocale session(kUtf8Locale);
  ASSERT_TRUE(session.active());
  char buf[16] = "ab<U0041>";
  int32_t len = 8;
  EXPECT_EQ(getExpResultFromNarrowCharBuf(0, 0, nullptr, buf, &len, 10, 16), 8 - 10);
  EXPECT_EQ(std::string(buf, static_cast<std::size_t>(len)), "ab<U0041");
}

TEST(OutputExpansion, RefusesMissingBuffers) {
  char buf[4] = "abc";
  int32_t len = 3;
  EXPECT_EQ(getExpResultFromNarrowCharBuf(0, 0, nullptr, nullptr, &len, 10, 4), 4);
  EXPECT_EQ(getExpResultFromNarrowCharBuf(0, 0, nullptr, buf, nullptr, 10, 4), 4);
  len = -1;
  EXPECT_EQ(getExpResultFromNarrowCharBuf(0, 0, nullptr, buf, &len, 10, 4), 4);
}

struct UnitConversion {
  const char *what;
  const char *encoding;
  std::string units;  // low byte first
  int32_t outcap;
  int32_t result;
  std::string expected;
};

void PrintTo(const UnitConversion &c, std::ostream *os) { *os << c.what; }

class TranscodeUnicode : public ::testing::TestWithParam<UnitConversion> {};

TEST_P(TranscodeUnicode, ConvertsUnitsToTheNamedEncoding) {
  const UnitConversion &c = GetParam();
  std::string out(static_cast<std::size_t>(c.outcap) + kGuardBytes, kGuard);
  int32_t outlen = -7;
  const auto *units = reinterpret_cast<const unsigned char *>(c.units.data());
  EXPECT_EQ(obnlsTranscodeUnicode(c.encoding, units, static_cast<int32_t>(c.units.size()),
                                  out.data(), c.outcap, &outlen),
            c.result);
  ASSERT_EQ(outlen, static_cast<int32_t>(c.expected.size()));
  EXPECT_EQ(out.substr(0, c.expected.size()), c.expected);
  EXPECT_EQ(out.substr(static_cast<std::size_t>(c.outcap)), std::string(kGuardBytes, kGuard));
}

const std::string kUnitsAEuroB("A\0\xAC\x20" "B\0", 6);

INSTANTIATE_TEST_SUITE_P(
    Encodings, TranscodeUnicode,
    ::testing::Values(
        UnitConversion{"utf8", "UTF-8", kUnitsAEuroB, 16, 0, "A" + kEuroUtf8 + "B"},
        UnitConversion{"utf8_any_case", "utf8", kUnitsAEuroB, 16, 0, "A" + kEuroUtf8 + "B"},
        UnitConversion{"latin1_question_mark", "ISO-8859-1", kUnitsAEuroB, 16, 0, "A?B"},
        UnitConversion{"latin9_has_the_euro", "ISO-8859-15", kUnitsAEuroB, 16, 0, "A\xA4" "B"},
        UnitConversion{"cp1252_has_the_euro", "CP1252", kUnitsAEuroB, 16, 0, "A\x80" "B"},
        UnitConversion{"single_unconvertible_unit", "ISO-8859-1", std::string("\xAC\x20", 2), 16,
                       0, "?"},
        UnitConversion{"room_runs_out_per_unit", "UTF-8", kUnitsAEuroB, 3, 0, "A?B"},
        UnitConversion{"no_room_at_all", "UTF-8", kUnitsAEuroB, 0, 0, ""},
        UnitConversion{"unknown_encoding", "X-NO-SUCH-CODESET", kUnitsAEuroB, 16, -2, ""},
        UnitConversion{"one_byte", "UTF-8", std::string("A", 1), 16, -1, ""},
        UnitConversion{"nothing", "UTF-8", "", 16, 0, ""},
        UnitConversion{"stray_last_byte", "UTF-8", std::string("A\0B\0C", 5), 16, 0, "AB"}));

TEST(TranscodeUnicode, NullArgumentsAreRefused) {
  char out[4];
  int32_t outlen = 5;
  const unsigned char units[2] = {'A', 0};
  EXPECT_EQ(obnlsTranscodeUnicode(nullptr, units, 2, out, 4, &outlen), -1);
  EXPECT_EQ(outlen, 0);
  EXPECT_EQ(obnlsTranscodeUnicode("UTF-8", nullptr, 2, out, 4, &outlen), -1);
  EXPECT_EQ(obnlsTranscodeUnicode("UTF-8", units, 2, nullptr, 4, &outlen), -1);
  EXPECT_EQ(obnlsTranscodeUnicode("UTF-8", units, 2, out, 4, nullptr), -1);
}

}  // namespace

// getExpResultFromNarrowCharBuf and obnlsTranscodeUnicode under real
// session encodings: expansion, conversion, fitting and delivery.
#include <algorithm>
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
using corvinel::testing::ScopedSessionLocale;

constexpr const char *kU8 = corvinel::testing::kUtf8Locale;
constexpr const char *kL1 = corvinel::testing::kLatin1Locale;
constexpr const char *kEuc = corvinel::testing::kEucJpLocale;
constexpr const char *kUnknown = corvinel::testing::kUnknownCodesetLocale;
constexpr char kGuard = '\x5A';
constexpr std::size_t kGuardBytes = 8;
constexpr int32_t kNoRoom = corvinel::locale::kExpansionNoRoom;
constexpr int32_t kImpossible = corvinel::locale::kExpansionImpossible;

struct Expansion {
  const char *what;
  const char *locale;
  std::string input;
  int32_t width, capacity, outenc, result;
  std::string expected;  // the result bytes
};

void PrintTo(const Expansion &c, std::ostream *os) { *os << c.what; }

std::string repeat(const std::string &text, int times) { return times > 0 ? text + repeat(text, times - 1) : ""; }

class OutputExpansion : public ::testing::TestWithParam<Expansion> {};

// The input sits at the start of `capacity` bytes (at least the input) followed by guard bytes.
TEST_P(OutputExpansion, ExpandsTranscodesAndFits) {
  const Expansion &c = GetParam();
  ScopedSessionLocale session(c.locale);
  ASSERT_TRUE(session.active()) << c.locale;
  const std::size_t room = std::max<std::size_t>(c.input.size(), static_cast<std::size_t>(c.capacity));
  std::string buf = c.input + std::string(room - c.input.size(), '#') + std::string(kGuardBytes, kGuard);
  std::string expected = buf;
  int32_t len = static_cast<int32_t>(c.input.size()), encout = -1;
  EXPECT_EQ(getExpResultFromNarrowCharBuf(0, c.outenc, &encout, buf.data(), &len, c.width, c.capacity), c.result);
  const bool delivered = c.result != kNoRoom && c.result != kImpossible;  // else nothing changes
  if (delivered) expected.replace(0, c.expected.size(), c.expected);
  EXPECT_EQ(buf, expected);
  EXPECT_EQ(len, static_cast<int32_t>(delivered ? c.expected.size() : c.input.size()));
  EXPECT_EQ(encout, delivered && c.outenc == CORVINEL_ENC_UTF16LE ? CORVINEL_ENC_UTF16LE : -1);
}

const std::string kEuro = "\xE2\x82\xAC";
const std::string kYear = "\xE5\xB9\xB4";  // U+5E74 in UTF-8
const std::string kYearEucJp = "\xC7\xAF";

INSTANTIATE_TEST_SUITE_P(
    SessionEncodings, OutputExpansion,
    ::testing::Values(
        Expansion{"euro_utf8", kU8, "<U20AC>", 10, 10, 0, 3 - 10, kEuro},
        Expansion{"euro_latin1_is_question_mark", kL1, "<U20AC>", 10, 10, 0, 1 - 10, "?"},
        Expansion{"euro_among_text_latin1", kL1, "<U20AC> 12,50", 10, 10, 0, 7 - 10, "? 12,50"},
        Expansion{"fits_exactly", kU8, "1. M<U00E4>rz", 8, 9, 0, 0, "1. M\xC3\xA4rz"},
        Expansion{"currency_marker", kU8, "x<U00A4>", 10, 10, 0, 2 - 10, "x\x01"},
        Expansion{"raw_0xA4_stays_currency_sign", kU8, "x\xA4", 10, 10, 0, 3 - 10, "x\xC2\xA4"},
        Expansion{"bad_digit_counts_as_zero", kU8, "<U00G1>", 10, 10, 0, 1 - 10, "\x01"},
        Expansion{"not_an_escape", kU8, "<X0041>", 10, 10, 0, 7 - 10, "<X0041>"},
        Expansion{"six_bytes_have_no_escape", kU8, "<U0041", 10, 10, 0, 6 - 10, "<U0041"},
        Expansion{"seven_byte_escape", kU8, "<U0041>", 10, 10, 0, 1 - 10, "A"},
        Expansion{"umlaut_latin1_lower_case", kL1, "1. M<u00e4>rz", 10, 10, 0, 7 - 10, "1. M\xE4rz"},
        Expansion{"japanese_euc_jp_cut", kEuc, "2024<U5E74>!", 6, 10, 0, 1, "2024" + kYearEucJp},
        // Fitting to the width, by whole units.
        Expansion{"japanese_year_cut_utf8", kU8, "2024<U5E74>", 6, 10, 0, 1, "2024"},
        Expansion{"japanese_year_fits_utf8", kU8, "2024<U5E74>", 7, 10, 0, 0, "2024" + kYear},
        Expansion{"surrogate_pair_whole", kU8, "<UD83D><UDE00>", 4, 10, 0, 0, "\xF0\x9F\x98\x80"},
        Expansion{"surrogate_pair_cut_in_half", kU8, "<UD83D><UDE00>", 3, 10, 0, 1, "?"},
        Expansion{"cut_after_fallback", kL1, "ab<U20AC>cd", 3, 10, 0, 1, "ab?"},
        Expansion{"width_zero", kU8, "abc", 0, 10, 0, 1, ""},
        Expansion{"negative_width_counts_as_zero", kU8, "", -3, 10, 0, 0, ""},
        // The 402-byte steps: 150 CJK characters need 450 bytes of UTF-8; at most 200 units.
        Expansion{"beyond_402_bytes_cut_to_the_step", kU8, repeat("<U5E74>", 150), 500, 500, 0, 1, repeat(kYear, 134)},
        Expansion{"beyond_402_bytes_latin1", kL1, repeat("<U5E74>", 150), 500, 500, 0, 150 - 500, std::string(150, '?')},
        Expansion{"two_hundred_units", kU8, std::string(200, 'a'), 200, 200, 0, 0, std::string(200, 'a')},
        Expansion{"more_than_two_hundred_units", kU8, std::string(201, 'a'), 300, 300, 0, kImpossible, ""},
        Expansion{"result_exceeds_capacity", kU8, "<U20AC>", 10, 2, 0, kNoRoom, ""},
        Expansion{"unknown_codeset", kUnknown, "abc", 10, 10, 0, kImpossible, ""},
        // Delivery as 16-bit units, low byte first; the width still counts session-encoding bytes.
        Expansion{"units_for_encoding_25", kU8, "A", 10, 10, 25, 1 - 10, std::string("A\0", 2)},
        Expansion{"units_keep_the_marker", kL1, "<U20AC><U00A4>", 10, 10, 25, 2 - 10, std::string("\xAC\x20\x01\0", 4)},
        Expansion{"units_cut_by_session_width", kU8, "2024<U5E74>", 6, 20, 25, 1, std::string("2\0" "0\0" "2\0" "4\0", 8)},
        Expansion{"units_exceed_capacity", kU8, "AB", 10, 3, 25, kNoRoom, ""},
        Expansion{"units_need_a_known_codeset", kUnknown, "A", 10, 10, 25, kImpossible, ""},
        Expansion{"big_endian_request_gets_session_bytes", kU8, "<U20AC>", 10, 10, 24, 3 - 10, kEuro}));

TEST(OutputExpansion, EscapeMustEndInsideTheTextAndBuffersMustExist) {
  ScopedSessionLocale session(kU8);
  ASSERT_TRUE(session.active());
  char buf[16] = "ab<U0041>";  // the ">" lies after the text of 8 bytes
  int32_t len = 8;
  EXPECT_EQ(getExpResultFromNarrowCharBuf(0, 0, nullptr, buf, &len, 10, 16), 8 - 10);
  EXPECT_EQ(std::string(buf, static_cast<std::size_t>(len)), "ab<U0041");
  EXPECT_EQ(getExpResultFromNarrowCharBuf(0, 0, nullptr, nullptr, &len, 10, 4), kImpossible);
  EXPECT_EQ(getExpResultFromNarrowCharBuf(0, 0, nullptr, buf, nullptr, 10, 4), kImpossible);
  len = -1;
  EXPECT_EQ(getExpResultFromNarrowCharBuf(0, 0, nullptr, buf, &len, 10, 4), kImpossible);
}

// obnlsTranscodeUnicode: the whole text, else unit by unit ("?" for a unit
// that does not convert or finds no room); -2 for an unknown encoding, -1
// for fewer than two bytes or a missing argument.
TEST(TranscodeUnicode, ConvertsUnitsToTheNamedEncoding) {
  auto transcode = [](const char *encoding, const std::string &units, int32_t outcap, int32_t result) {
    std::string out(static_cast<std::size_t>(outcap) + kGuardBytes, kGuard);
    int32_t outlen = -7;
    const auto *in = reinterpret_cast<const unsigned char *>(units.data());
    EXPECT_EQ(obnlsTranscodeUnicode(encoding, in, static_cast<int32_t>(units.size()), out.data(), outcap, &outlen), result);
    EXPECT_EQ(out.substr(static_cast<std::size_t>(outcap)), std::string(kGuardBytes, kGuard));
    return out.substr(0, static_cast<std::size_t>(std::max(outlen, 0)));
  };
  const std::string units("A\0\xAC\x20" "B\0", 6);
  EXPECT_EQ(transcode("utf8", units, 16, 0), "A" + kEuro + "B");
  EXPECT_EQ(transcode("ISO-8859-1", units, 16, 0), "A?B");
  EXPECT_EQ(transcode("ISO-8859-15", units, 16, 0), "A\xA4" "B");
  EXPECT_EQ(transcode("UTF-8", units, 3, 0), "A?B");
  EXPECT_EQ(transcode("X-NO-SUCH-CODESET", units, 16, -2), "");
  EXPECT_EQ(transcode("UTF-8", "A", 16, -1), "");
  EXPECT_EQ(transcode("UTF-8", std::string("A\0B\0C", 5), 16, 0), "AB");
  const unsigned char unit[2] = {'A', 0};
  char out[4];
  int32_t outlen = 5;
  EXPECT_EQ(obnlsTranscodeUnicode(nullptr, unit, 2, out, 4, &outlen), -1);
  EXPECT_EQ(outlen, 0);
  EXPECT_EQ(obnlsTranscodeUnicode("UTF-8", nullptr, 2, out, 4, &outlen), -1);
  EXPECT_EQ(obnlsTranscodeUnicode("UTF-8", unit, 2, nullptr, 4, &outlen), -1);
  EXPECT_EQ(obnlsTranscodeUnicode("UTF-8", unit, 2, out, 4, nullptr), -1);
}

}  // namespace

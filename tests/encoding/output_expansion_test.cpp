// getExpResultFromNarrowCharBuf and obnlsTranscodeUnicode under real session
// encodings (expansion, conversion, fitting and delivery), and their fast
// converters against the straightforward ones (iconv opened for every step)
// over generated texts: results, lengths and every byte of the buffers agree.
#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <ostream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/fmtreq.h"
#include "corvinel/transcode.h"
#include "encoding/output_expansion.h"
#include "support/session_locales.h"

namespace {

using corvinel::testing::ScopedSessionLocale;

constexpr const char *kU8 = corvinel::testing::kUtf8Locale, *kL1 = corvinel::testing::kLatin1Locale,
                      *kEuc = corvinel::testing::kEucJpLocale, *kUnknown = corvinel::testing::kUnknownCodesetLocale;
constexpr char kGuard = '\x5A';
constexpr std::size_t kGuardBytes = 8;
constexpr int32_t kNoRoom = corvinel::encoding::kExpansionNoRoom, kImpossible = corvinel::encoding::kExpansionImpossible;

struct Expansion {
  const char *what, *locale;
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
const std::string kYear = "\xE5\xB9\xB4", kYearEucJp = "\xC7\xAF";  // U+5E74

INSTANTIATE_TEST_SUITE_P(
    SessionEncodings, OutputExpansion,
    ::testing::Values(
        Expansion{"euro_utf8", kU8, "<U20AC>", 10, 10, 0, 3 - 10, kEuro},
        Expansion{"euro_latin1_is_question_mark", kL1, "<U20AC>", 10, 10, 0, 1 - 10, "?"},
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
        Expansion{"surrogate_pair_whole", kU8, "<UD83D><UDE00>", 4, 10, 0, 0, "\xF0\x9F\x98\x80"},
        Expansion{"surrogate_pair_cut_in_half", kU8, "<UD83D><UDE00>", 3, 10, 0, 1, "?"},
        Expansion{"cut_after_fallback", kL1, "ab<U20AC>cd", 3, 10, 0, 1, "ab?"},
        Expansion{"tag_character_dropped_by_latin1", kL1, "a<UDB40><UDC5F>b", 10, 10, 0, 2 - 10, "ab"},
        Expansion{"width_zero", kU8, "abc", 0, 10, 0, 1, ""},
        Expansion{"negative_width_counts_as_zero", kU8, "", -3, 10, 0, 0, ""},
        // The 402-byte steps: 150 CJK characters need 450 bytes of UTF-8; at most 200 units.
        Expansion{"beyond_402_bytes_cut_to_the_step", kU8, repeat("<U5E74>", 150), 500, 500, 0, 1, repeat(kYear, 134)},
        Expansion{"beyond_402_bytes_latin1", kL1, repeat("<U5E74>", 150), 500, 500, 0, 150 - 500, std::string(150, '?')},
        Expansion{"beyond_402_bytes_of_utf8_fit_euc_jp", kEuc, repeat("<U5E74>", 150), 500, 500, 0, 300 - 500, repeat(kYearEucJp, 150)},
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
  EXPECT_EQ(transcode(nullptr, units, 4, -1), "");
  const unsigned char unit[2] = {'A', 0};
  char out[4];
  int32_t outlen;
  EXPECT_EQ(obnlsTranscodeUnicode("UTF-8", nullptr, 2, out, 4, &outlen), -1);
  EXPECT_EQ(obnlsTranscodeUnicode("UTF-8", unit, 2, nullptr, 4, &outlen), -1);
  EXPECT_EQ(obnlsTranscodeUnicode("UTF-8", unit, 2, out, 4, nullptr), -1);
}

// Code units from every range where the converters differ in what they accept or in how many bytes they write; the
// last two make up tag characters (U+E0000-U+E007F), which iconv drops where the codeset lacks them.
uint16_t draw_unit(std::mt19937 &rng) {
  static constexpr std::pair<uint16_t, uint16_t> kRanges[] = {
      {0x0000, 0x001F}, {0x0020, 0x007E}, {0x007F, 0x009F}, {0x00A0, 0x00FF}, {0x00A4, 0x00A4}, {0x0100, 0x07FF},
      {0x2000, 0x20CF}, {0x3040, 0x30FF}, {0x4E00, 0x9FFF}, {0xAC00, 0xD7A3}, {0xD800, 0xDBFF}, {0xDC00, 0xDFFF},
      {0xE000, 0xF8FF}, {0xFEFF, 0xFEFF}, {0xFFFD, 0xFFFF}, {0xFF01, 0xFF9F}, {0xDB40, 0xDB40}, {0xDC00, 0xDC7F}};
  const auto &[first, last] = kRanges[rng() % std::size(kRanges)];
  return static_cast<uint16_t>(first + rng() % (last - first + 1u));
}

std::string escape(uint32_t unit, bool lower_case) {
  char text[8];
  std::snprintf(text, sizeof text, lower_case ? "<u%04x>" : "<U%04X>", unit);
  return text;
}

// A narrow text as formats build it, with the malformed pieces they might.
std::string draw_text(std::mt19937 &rng) {
  const int pieces = rng() % 25 == 0 ? 40 + static_cast<int>(rng() % 170) : static_cast<int>(rng() % 16);
  std::string text;
  for (int i = 0; i < pieces; ++i) {
    // c: a supplementary character, in one of four cases a tag character
    const uint32_t kind = rng() % 9, c = rng() % 4 == 0 ? 0xE0000 + rng() % 0x80 : 0x10000 + rng() % 0x100000;
    if (kind < 2) text += static_cast<char>(0x20 + rng() % 0x5F);
    if (kind == 2 || kind == 3) text += escape(draw_unit(rng), rng() % 4 == 0);
    if (kind == 4) text += escape(0xD800 + ((c - 0x10000) >> 10), false) + escape(0xDC00 + (c & 0x3FF), false);
    if (kind == 5) {  // bad digits
      text += "<U";
      for (int d = 0; d < 4; ++d) text += "0123456789abcdefABCDEFGxz! "[rng() % 27];
      text += '>';
    }
    if (kind == 6) text += rng() % 2 == 0 ? "<U20A" : "<X0041>";  // an escape without its end, or none at all
    if (kind == 7) text += static_cast<char>(0x80 + rng() % 0x80);  // a raw byte above ASCII
    if (kind == 8) text += "<U5E74>";
  }
  return text;
}

// Result, length, output encoding and the buffer with its guard bytes.
struct Outcome {
  int32_t result, len, encout;
  std::string buffer;
  bool operator==(const Outcome &) const = default;
};

void PrintTo(const Outcome &o, std::ostream *os) { *os << o.result << " " << o.len << " " << o.encout << " " << o.buffer; }

template <typename Expand>
Outcome expand(Expand fn, const std::string &text, int32_t outenc, int32_t width, int32_t capacity) {
  const std::size_t room = std::max(text.size(), static_cast<std::size_t>(capacity));
  Outcome o{0, static_cast<int32_t>(text.size()), -1, text + std::string(room - text.size() + kGuardBytes, kGuard)};
  o.result = fn(0, outenc, &o.encout, o.buffer.data(), &o.len, width, capacity);
  return o;
}

class FastExpansion : public ::testing::TestWithParam<const char *> {};

TEST_P(FastExpansion, AgreesWithPerCallConverters) {
  corvinel::testing::ScopedSessionLocale session(GetParam());
  ASSERT_TRUE(session.active()) << GetParam();
  std::mt19937 rng(20240229u);
  for (int i = 0; i < 700; ++i) {
    const std::string text = draw_text(rng);
    const int32_t width = rng() % 10 == 0 ? static_cast<int32_t>(rng() % 450) : static_cast<int32_t>(rng() % 60) - 2;
    const int32_t capacity = rng() % 10 == 0 ? 450 : static_cast<int32_t>(rng() % 80);
    const int32_t outenc = std::array{0, 0, 0, 0, 0, 0, 0, 25, 25, 24}[rng() % 10];
    ASSERT_EQ(expand(getExpResultFromNarrowCharBuf, text, outenc, width, capacity),
              expand(corvinel::encoding::expand_output_per_call, text, outenc, width, capacity))
        << "text " << i << ": " << text;
  }
}

// Plain ASCII texts, the common case a shortcut serves: every length
// around the width and the capacity, "<" that starts no escape, the
// control bytes and the 200-unit limit.
TEST_P(FastExpansion, AgreesOnPlainAsciiTexts) {
  corvinel::testing::ScopedSessionLocale session(GetParam());
  ASSERT_TRUE(session.active()) << GetParam();
  std::mt19937 rng(19601001u);
  for (const int32_t length : {0, 1, 7, 19, 20, 21, 199, 200, 201}) {
    for (int i = 0; i < 12; ++i) {
      std::string text;
      for (int32_t k = 0; k < length; ++k) {
        text += i == 0 ? static_cast<char>(0x01 + rng() % 0x7F) : "Feb 24, 2003 <U!>09:"[rng() % 20];
      }
      for (const int32_t width : {length - 1, length, length + 1, 0, -1, 10}) {
        for (const int32_t room : {width, length, length - 1, 402}) {
          const int32_t capacity = std::max(room, 0);
          for (const int32_t outenc : {0, 25}) {
            ASSERT_EQ(expand(getExpResultFromNarrowCharBuf, text, outenc, width, capacity),
                      expand(corvinel::encoding::expand_output_per_call, text, outenc, width, capacity))
                << text << " width " << width << " capacity " << capacity;
          }
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(SessionEncodings, FastExpansion,
                         ::testing::Values(corvinel::testing::kUtf8Locale, corvinel::testing::kLatin1Locale,
                                           corvinel::testing::kEucJpLocale, corvinel::testing::kAsciiLocale,
                                           corvinel::testing::kUnknownCodesetLocale),
                         [](const auto &info) {
                           std::string name = info.param;
                           std::ranges::replace_if(name, [](unsigned char c) { return !std::isalnum(c); }, '_');
                           return name;
                         });

template <typename Transcode>
Outcome transcode(Transcode fn, const char *encoding, const std::string &units, int32_t outcap) {
  Outcome o{0, -7, 0, std::string(static_cast<std::size_t>(outcap) + kGuardBytes, kGuard)};
  o.result = fn(encoding, reinterpret_cast<const unsigned char *>(units.data()), static_cast<int32_t>(units.size()),
                o.buffer.data(), outcap, &o.len);
  o.buffer.erase(static_cast<std::size_t>(std::clamp(o.len, 0, outcap)), static_cast<std::size_t>(outcap - std::clamp(o.len, 0, outcap)));
  return o;  // bytes past the reported length are not part of the result
}

// Named encodings, stateful and unknown ones included, drawn in turn on several threads at once: switching between
// them exercises the converter kept per thread.
void compare_transcoding(uint32_t seed) {
  constexpr const char *kEncodings[] = {"UTF-8",  "utf8",    "ISO-8859-1",  "ANSI_X3.4-1968", "EUC-JP",           "SHIFT_JIS",
                                        "CP1252", "GB18030", "ISO-8859-15", "ISO-2022-JP",    "X-NO-SUCH-CODESET"};
  std::mt19937 rng(seed);
  for (int i = 0; i < 700; ++i) {
    const char *encoding = kEncodings[rng() % std::size(kEncodings)];
    std::string units;
    for (int count = static_cast<int>(rng() % (rng() % 20 == 0 ? 260 : 12)); count > 0; --count) {
      const uint16_t unit = draw_unit(rng);
      units += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    }
    if (rng() % 8 == 0) units += static_cast<char>(rng());  // a stray byte
    const int32_t outcap = rng() % 6 == 0 ? 450 : static_cast<int32_t>(rng() % 40);
    ASSERT_EQ(transcode(obnlsTranscodeUnicode, encoding, units, outcap),
              transcode(corvinel::encoding::transcode_unicode_per_call, encoding, units, outcap))
        << encoding << " round " << i;
  }
}

// A negative capacity is no room at all, for both kinds of converter: a
// host can pass one, and the single-byte converters once wrote past `out`.
TEST(FastTranscode, NegativeCapacityWritesNothing) {
  constexpr std::size_t kWideGuard = 512;  // wider than any text of these units
  const std::string units("\x05\0" "A\0\xAC\x20", 6);
  for (const char *encoding : {"ISO-8859-1", "ANSI_X3.4-1968", "UTF-8", "EUC-JP", "CP1252"}) {
    for (const int32_t outcap : {-1, -402, INT32_MIN}) {
      for (const std::size_t length : {std::size_t{2}, units.size()}) {
        const auto *in = reinterpret_cast<const unsigned char *>(units.data());
        const auto n = static_cast<int32_t>(length);
        std::string fast(kWideGuard, kGuard), per_call(kWideGuard, kGuard);
        int32_t fast_len = -7, per_call_len = -7;
        const int32_t a = obnlsTranscodeUnicode(encoding, in, n, fast.data(), outcap, &fast_len);
        const int32_t b = corvinel::encoding::transcode_unicode_per_call(encoding, in, n, per_call.data(),
                                                                       outcap, &per_call_len);
        EXPECT_EQ(a, b) << encoding << " " << outcap << " " << length;
        EXPECT_EQ(fast_len, 0) << encoding << " " << outcap << " " << length;
        EXPECT_EQ(per_call_len, 0) << encoding << " " << outcap << " " << length;
        EXPECT_EQ(fast, std::string(kWideGuard, kGuard)) << encoding << " " << outcap;
        EXPECT_EQ(per_call, std::string(kWideGuard, kGuard)) << encoding << " " << outcap;
      }
    }
  }
}

TEST(FastTranscode, AgreesWithPerCallConvertersOnSeveralThreadsAtOnce) {
  std::vector<std::thread> threads;
  for (uint32_t t = 0; t < 4; ++t) threads.emplace_back(compare_transcoding, 100u + t);
  for (std::thread &thread : threads) thread.join();
}

}  // namespace

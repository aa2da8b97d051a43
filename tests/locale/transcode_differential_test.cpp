// The fast converters against the straightforward one (iconv opened for
// every step), over many generated texts under every session encoding: the
// results, lengths and every byte of the buffers must agree.
#include <cstdint>
#include <cstdio>
#include <ostream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/transcode.h"
#include "locale/output_expansion.h"
#include "support/session_locales.h"

namespace {

using corvinel::testing::ScopedSessionLocale;

constexpr std::size_t kGuardBytes = 8;

// Code units worth drawing: every range where the converters differ in
// what they accept or in how many bytes they write.
uint16_t draw_unit(std::mt19937 &rng) {
  struct Range {
    uint16_t first, last;
  };
  static constexpr Range kRanges[] = {
      {0x0000, 0x001F}, {0x0020, 0x007E}, {0x007F, 0x009F}, {0x00A0, 0x00FF}, {0x00A4, 0x00A4},
      {0x0100, 0x07FF}, {0x2000, 0x20CF}, {0x3040, 0x30FF}, {0x4E00, 0x9FFF}, {0xAC00, 0xD7A3},
      {0xD800, 0xDBFF}, {0xDC00, 0xDFFF}, {0xE000, 0xF8FF}, {0xFEFF, 0xFEFF}, {0xFFFD, 0xFFFF},
      {0xFF01, 0xFF9F},
  };
  const Range &r = kRanges[rng() % std::size(kRanges)];
  return static_cast<uint16_t>(r.first + rng() % (r.last - r.first + 1u));
}

std::string escape(uint16_t unit, bool lower_case) {
  char text[8];
  std::snprintf(text, sizeof text, lower_case ? "<u%04x>" : "<U%04X>", unit);
  return text;
}

// A narrow text as formats build it, with the malformed pieces they might.
std::string draw_text(std::mt19937 &rng) {
  const int pieces = rng() % 25 == 0 ? 40 + static_cast<int>(rng() % 170) : static_cast<int>(rng() % 16);
  std::string text;
  for (int i = 0; i < pieces; ++i) {
    switch (rng() % 9) {
      case 0:
      case 1:
        text += static_cast<char>(0x20 + rng() % 0x5F);
        break;
      case 2:
      case 3:
        text += escape(draw_unit(rng), rng() % 4 == 0);
        break;
      case 4: {  // a whole surrogate pair
        const uint32_t c = 0x10000 + rng() % 0x100000;
        text += escape(static_cast<uint16_t>(0xD800 + ((c - 0x10000) >> 10)), false);
        text += escape(static_cast<uint16_t>(0xDC00 + (c & 0x3FF)), false);
        break;
      }
      case 5: {  // bad digits
        static constexpr char kDigits[] = "0123456789abcdefABCDEFGxz! ";
        text += "<U";
        for (int d = 0; d < 4; ++d) text += kDigits[rng() % (sizeof kDigits - 1)];
        text += '>';
        break;
      }
      case 6:  // an escape without its end, or not an escape at all
        text += rng() % 2 == 0 ? "<U20A" : "<X0041>";
        break;
      case 7:  // a raw byte above ASCII
        text += static_cast<char>(0x80 + rng() % 0x80);
        break;
      default:
        text += "<U5E74>";
        break;
    }
  }
  return text;
}

struct Outcome {
  int32_t result;
  int32_t len;
  int32_t encout;
  std::string buffer;
};

using ExpandFn = int32_t (*)(int32_t, int32_t, int32_t *, char *, int32_t *, int32_t, int32_t);

Outcome run_expansion(ExpandFn expand, const std::string &text, int32_t outenc, int32_t width,
                      int32_t capacity) {
  const std::size_t room = std::max(text.size(), static_cast<std::size_t>(capacity));
  Outcome outcome{0, static_cast<int32_t>(text.size()), -1,
                  text + std::string(room - text.size() + kGuardBytes, '\x5A')};
  outcome.result = expand(0, outenc, &outcome.encout, outcome.buffer.data(), &outcome.len, width,
                          capacity);
  return outcome;
}

class FastExpansion : public ::testing::TestWithParam<const char *> {};

TEST_P(FastExpansion, AgreesWithPerCallConverters) {
  ScopedSessionLocale session(GetParam());
  ASSERT_TRUE(session.active()) << GetParam();
  std::mt19937 rng(20240229u);
  for (int i = 0; i < 700; ++i) {
    const std::string text = draw_text(rng);
    const int32_t width = rng() % 10 == 0 ? static_cast<int32_t>(rng() % 450) : static_cast<int32_t>(rng() % 60) - 2;
    const int32_t capacity = rng() % 10 == 0 ? 450 : static_cast<int32_t>(rng() % 80);
    const uint32_t pick = rng() % 10;
    const int32_t outenc = pick < 7 ? 0 : pick < 9 ? 25 : 24;
    const Outcome fast = run_expansion(corvinel::locale::getExpResultFromNarrowCharBuf, text,
                                       outenc, width, capacity);
    const Outcome reference =
        run_expansion(corvinel::locale::expand_output_per_call, text, outenc, width, capacity);
    ASSERT_EQ(fast.result, reference.result) << "text " << i << ": " << text;
    ASSERT_EQ(fast.len, reference.len) << "text " << i << ": " << text;
    ASSERT_EQ(fast.encout, reference.encout) << "text " << i << ": " << text;
    ASSERT_EQ(fast.buffer, reference.buffer) << "text " << i << ": " << text;
  }
}

INSTANTIATE_TEST_SUITE_P(SessionEncodings, FastExpansion,
                         ::testing::Values(corvinel::testing::kUtf8Locale,
                                           corvinel::testing::kLatin1Locale,
                                           corvinel::testing::kEucJpLocale,
                                           corvinel::testing::kAsciiLocale,
                                           corvinel::testing::kUnknownCodesetLocale),
                         [](const auto &info) {
                           std::string name = info.param;
                           for (char &c : name) {
                             if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                           }
                           return name;
                         });

// Encodings named explicitly to obnlsTranscodeUnicode, stateful and unknown
// ones included; switching between them exercises the per-thread converter.
constexpr const char *kEncodings[] = {"UTF-8",      "utf8",        "ISO-8859-1", "ANSI_X3.4-1968",
                                      "EUC-JP",     "SHIFT_JIS",   "ISO-8859-15", "CP1252",
                                      "GB18030",    "ISO-2022-JP", "X-NO-SUCH-CODESET"};

std::string draw_units(std::mt19937 &rng) {
  const int count = static_cast<int>(rng() % (rng() % 20 == 0 ? 260 : 12));
  std::string units;
  for (int i = 0; i < count; ++i) {
    const uint16_t unit = draw_unit(rng);
    units += static_cast<char>(unit & 0xFF);
    units += static_cast<char>(unit >> 8);
  }
  if (rng() % 8 == 0) units += static_cast<char>(rng());  // a stray byte
  return units;
}

Outcome run_transcode(bool fast, const char *encoding, const std::string &units, int32_t outcap) {
  Outcome outcome{0, -7, 0, std::string(static_cast<std::size_t>(outcap) + kGuardBytes, '\x5A')};
  const auto *bytes = reinterpret_cast<const unsigned char *>(units.data());
  const auto n = static_cast<int32_t>(units.size());
  outcome.result =
      fast ? obnlsTranscodeUnicode(encoding, bytes, n, outcome.buffer.data(), outcap, &outcome.len)
           : corvinel::locale::transcode_unicode_per_call(encoding, bytes, n,
                                                          outcome.buffer.data(), outcap,
                                                          &outcome.len);
  // Bytes past the reported length are not part of the result.
  outcome.buffer = outcome.buffer.substr(0, static_cast<std::size_t>(std::max(outcome.len, 0))) +
                   outcome.buffer.substr(static_cast<std::size_t>(outcap));
  return outcome;
}

void compare_transcoding(uint32_t seed, int rounds) {
  std::mt19937 rng(seed);
  for (int i = 0; i < rounds; ++i) {
    const char *encoding = kEncodings[rng() % std::size(kEncodings)];
    const std::string units = draw_units(rng);
    const int32_t outcap = rng() % 6 == 0 ? 450 : static_cast<int32_t>(rng() % 40);
    const Outcome fast = run_transcode(true, encoding, units, outcap);
    const Outcome reference = run_transcode(false, encoding, units, outcap);
    ASSERT_EQ(fast.result, reference.result) << encoding << " round " << i;
    ASSERT_EQ(fast.len, reference.len) << encoding << " round " << i;
    ASSERT_EQ(fast.buffer, reference.buffer) << encoding << " round " << i;
  }
}

TEST(FastTranscode, AgreesWithPerCallConverters) { compare_transcoding(7u, 2500); }

TEST(FastTranscode, AgreesOnSeveralThreadsAtOnce) {
  std::vector<std::thread> threads;
  for (uint32_t t = 0; t < 4; ++t) threads.emplace_back(compare_transcoding, 100u + t, 300);
  for (std::thread &thread : threads) thread.join();
}

}  // namespace

// The fast converters against the straightforward ones (iconv opened for
// every step), over generated texts under every session encoding and over
// named encodings: results, lengths and every byte of the buffers agree.
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

#include "corvinel/transcode.h"
#include "locale/output_expansion.h"
#include "support/session_locales.h"

namespace {

// Code units from every range where the converters differ in what they accept or in how many bytes they write.
uint16_t draw_unit(std::mt19937 &rng) {
  static constexpr std::pair<uint16_t, uint16_t> kRanges[] = {
      {0x0000, 0x001F}, {0x0020, 0x007E}, {0x007F, 0x009F}, {0x00A0, 0x00FF}, {0x00A4, 0x00A4}, {0x0100, 0x07FF},
      {0x2000, 0x20CF}, {0x3040, 0x30FF}, {0x4E00, 0x9FFF}, {0xAC00, 0xD7A3}, {0xD800, 0xDBFF}, {0xDC00, 0xDFFF},
      {0xE000, 0xF8FF}, {0xFEFF, 0xFEFF}, {0xFFFD, 0xFFFF}, {0xFF01, 0xFF9F}};
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
    const uint32_t kind = rng() % 9, c = 0x10000 + rng() % 0x100000;
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
  Outcome o{0, static_cast<int32_t>(text.size()), -1, text + std::string(room - text.size() + 8, '\x5A')};
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
    ASSERT_EQ(expand(corvinel::locale::getExpResultFromNarrowCharBuf, text, outenc, width, capacity),
              expand(corvinel::locale::expand_output_per_call, text, outenc, width, capacity))
        << "text " << i << ": " << text;
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
  Outcome o{0, -7, 0, std::string(static_cast<std::size_t>(outcap) + 8, '\x5A')};
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
              transcode(corvinel::locale::transcode_unicode_per_call, encoding, units, outcap))
        << encoding << " round " << i;
  }
}

TEST(FastTranscode, AgreesWithPerCallConvertersOnSeveralThreadsAtOnce) {
  std::vector<std::thread> threads;
  for (uint32_t t = 0; t < 4; ++t) threads.emplace_back(compare_transcoding, 100u + t);
  for (std::thread &thread : threads) thread.join();
}

}  // namespace

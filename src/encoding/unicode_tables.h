// Tables of the Unicode conversions and of case mapping.
#pragma once

#include <array>
#include <cstdint>

namespace corvinel::encoding {

// Code page 1252 (WLATIN1) byte to code point.  It differs from Latin-1 only
// in 0x80-0x9F; the five positions it leaves undefined (0x81, 0x8D, 0x8F,
// 0x90, 0x9D) keep their C1 code.
inline constexpr std::array<uint16_t, 256> wlt1unic = [] {
  constexpr uint16_t kHigh[32] = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
  };
  std::array<uint16_t, 256> table{};
  for (int b = 0; b < 256; ++b) {
    table[b] = (b >= 0x80 && b <= 0x9F) ? kHigh[b - 0x80] : static_cast<uint16_t>(b);
  }
  return table;
}();

// Continuation bytes that follow a UTF-8 lead byte: 0 below 0xC0, 1 for
// 0xC0-0xDF, 2 for 0xE0-0xEF, 3 for 0xF0-0xF7, 4 for 0xF8-0xFB, 5 above.
inline constexpr std::array<uint8_t, 256> bytesFromUTF8 = [] {
  std::array<uint8_t, 256> table{};
  for (int b = 0; b < 256; ++b) {
    table[b] = b < 0xC0 ? 0 : b < 0xE0 ? 1 : b < 0xF0 ? 2 : b < 0xF8 ? 3 : b < 0xFC ? 4 : 5;
  }
  return table;
}();

// Bits a non-continuation byte contributes, indexed by the number of bytes
// still to come after it.
inline constexpr std::array<uint16_t, 6> utf8_mask = {0x7F, 0x1F, 0x0F, 0x07, 0x03, 0x01};

// Bytes of a unit in UTF-8 without surrogate handling (surrogates too take 3).
constexpr int32_t utf8_length(uint16_t unit) { return unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3; }

// Case mapping: skz_metatable[c >> 7] is negative when the block of c has
// no mappings, otherwise the offset of its 128 differences in the shift
// tables.  A difference of kCaseEscape sends the code point to the aux list,
// a run of (from, to) pairs ended by from = 0.
inline constexpr int kCaseBlocks = 19;
inline constexpr int8_t kCaseEscape = -128;

struct CasePair {
  uint16_t from;
  uint16_t to;
};

extern const int16_t skz_metatable[512];
extern const int8_t skz_upshift[kCaseBlocks * 128];
extern const int8_t skz_downshift[kCaseBlocks * 128];
extern const CasePair skz_upaux[];
extern const CasePair skz_downaux[];

// Greek letters that carry diacritics, in code point order: the capital the
// Greek rules of upper case give them (accents dropped, a dialytika kept:
// Ϊ, Ϋ) and what the letter carries.
inline constexpr uint8_t kGreekVowel = 1;
inline constexpr uint8_t kGreekAccent = 2;     // a diacritic other than dialytika and iota subscript
inline constexpr uint8_t kGreekDialytika = 4;

struct GreekCapital {
  uint16_t from;
  uint16_t capital;
  uint8_t flags;
};

extern const GreekCapital skz_greek_capitals[];
extern const int32_t skz_greek_capital_count;

}  // namespace corvinel::encoding

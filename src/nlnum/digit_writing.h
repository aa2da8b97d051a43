// Decimal digits written from the right: the number layouts build their
// texts leftwards from the end of the field, the least significant digit
// first, from tables of two and three digits.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>

namespace corvinel::nlnum {

// "00" .. "99".
inline constexpr auto kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (int i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

// "000" .. "999", four bytes apart.
inline constexpr auto kDigitTriples = [] {
  std::array<char, 4000> triples{};
  for (int i = 0; i < 1000; ++i) {
    triples[4 * i] = static_cast<char>('0' + i / 100);
    triples[4 * i + 1] = static_cast<char>('0' + i / 10 % 10);
    triples[4 * i + 2] = static_cast<char>('0' + i % 10);
  }
  return triples;
}();

// Writes the lowest three digits of `digits` so that they end at `end`;
// returns where they start, and the digits left in `digits`.
template <typename Digits>
[[gnu::always_inline]] inline char *put_three_digits_before(char *end, Digits &digits) {
  const Digits rest = digits / 1000;
  end -= 3;
  std::memcpy(end, &kDigitTriples[4 * (digits - rest * 1000)], 3);
  digits = rest;
  return end;
}

// Writes the lowest `count` digits of `digits` so that they end at `end`,
// three at a time and then the two or one left; returns where they start,
// and the digits left in `digits`.  Most counts are 1 to 3 (a group, two
// decimals), which take no loop.  Digits is uint32_t where the number fits
// it: divisions of 32 bits take fewer instructions.
template <typename Digits>
[[gnu::always_inline]] inline char *put_digits_before(char *end, Digits &digits,
                                                      std::size_t count) {
  for (; count >= 3; count -= 3) end = put_three_digits_before(end, digits);
  if (count == 2) {
    end -= 2;
    std::memcpy(end, &kDigitPairs[2 * (digits % 100)], 2);
    digits /= 100;
  } else if (count == 1) {
    *--end = static_cast<char>('0' + digits % 10);
    digits /= 10;
  }
  return end;
}

}  // namespace corvinel::nlnum

// Shared pieces of the string helpers: how a (pointer, count) pair becomes a
// byte range, and a set of bytes with constant-time membership.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace corvinel::text {

inline constexpr unsigned char kBlank = ' ';

// The byte count of a counted text: a null text and a negative count are
// empty.
inline std::size_t counted_length(const void *p, int64_t n) {
  return (p == nullptr || n <= 0) ? 0 : static_cast<std::size_t>(n);
}

// The byte count of a text whose negative count means "NUL-terminated".
inline std::size_t counted_or_terminated_length(const char *s, int32_t n) {
  if (s == nullptr) return 0;
  return n < 0 ? std::strlen(s) : static_cast<std::size_t>(n);
}

inline const unsigned char *bytes(const void *p) { return static_cast<const unsigned char *>(p); }
inline unsigned char *bytes(void *p) { return static_cast<unsigned char *>(p); }

// Positions handed back to the host are 32-bit; the texts they index have
// 32-bit counts, so the narrowing never loses anything.
inline int32_t position(std::size_t i) { return static_cast<int32_t>(i); }

// 256 membership bits, built once per call from the set argument.
class ByteSet {
 public:
  // The n bytes at p (none when p is null or n <= 0).
  static ByteSet of_counted(const void *p, int32_t n) {
    ByteSet set;
    const unsigned char *b = bytes(p);
    for (std::size_t i = 0, len = counted_length(p, n); i < len; ++i) set.add(b[i]);
    return set;
  }
  // The bytes of a NUL-terminated text (the terminator is no member).
  static ByteSet of_terminated(const char *s) {
    ByteSet set;
    if (s != nullptr)
      for (const unsigned char *b = bytes(s); *b != 0; ++b) set.add(*b);
    return set;
  }

  bool contains(unsigned char b) const { return (words_[b >> 6] >> (b & 63)) & 1; }

 private:
  void add(unsigned char b) { words_[b >> 6] |= uint64_t{1} << (b & 63); }
  std::array<uint64_t, 4> words_{};
};

// First index in [0, len) whose byte's membership in set equals wanted;
// -1 when there is none.
inline int32_t find_membership(const void *s, std::size_t len, const ByteSet &set, bool wanted) {
  const unsigned char *b = bytes(s);
  for (std::size_t i = 0; i < len; ++i)
    if (set.contains(b[i]) == wanted) return position(i);
  return -1;
}

}  // namespace corvinel::text

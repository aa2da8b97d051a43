// The in-line copies and fills that placements use instead of memcpy and
// memset: every length from 0 past the widest fixed-size case, at every
// offset within a 16-byte block, writes exactly its bytes and nothing
// around them.
#include "frame/exact_copy.h"

#include <array>
#include <cstddef>
#include <string>

#include <gtest/gtest.h>

namespace {

constexpr std::size_t kGuard = 24;
constexpr std::size_t kLongest = 100;
constexpr char kUntouched = '\x5a';

using Buffer = std::array<char, kGuard + kLongest + 16 + kGuard>;

// The buffer after writing `n` bytes of `expected` at `offset` past the
// front guard: guards and the rest untouched.
std::string expected_buffer(std::size_t offset, std::size_t n, const std::string &expected) {
  std::string buffer(Buffer{}.size(), kUntouched);
  buffer.replace(kGuard + offset, n, expected);
  return buffer;
}

TEST(ExactCopy, CopiesExactlyTheBytesAsked) {
  std::string source(kLongest, '\0');
  for (std::size_t i = 0; i < source.size(); ++i) source[i] = static_cast<char>('A' + i % 53);
  for (std::size_t offset = 0; offset < 16; ++offset) {
    for (std::size_t n = 0; n <= kLongest; ++n) {
      Buffer buffer;
      buffer.fill(kUntouched);
      corvinel::frame::copy_exactly(buffer.data() + kGuard + offset, source.data(), n);
      EXPECT_EQ(std::string(buffer.data(), buffer.size()),
                expected_buffer(offset, n, source.substr(0, n)))
          << "offset " << offset << " n " << n;
    }
  }
}

TEST(ExactCopy, FillsExactlyTheBytesAsked) {
  for (const char byte : {' ', '*', '\0', '\xff'}) {
    for (std::size_t offset = 0; offset < 16; ++offset) {
      for (std::size_t n = 0; n <= kLongest; ++n) {
        Buffer buffer;
        buffer.fill(kUntouched);
        corvinel::frame::fill_exactly(buffer.data() + kGuard + offset, byte, n);
        EXPECT_EQ(std::string(buffer.data(), buffer.size()),
                  expected_buffer(offset, n, std::string(n, byte)))
            << "byte " << int{byte} << " offset " << offset << " n " << n;
      }
    }
  }
}

}  // namespace

// Copies and fills of a few bytes, in line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace corvinel::frame {

// Copies exactly `n` bytes: up to 32 as two overlapping pieces of a fixed
// size (most field texts), more through memcpy.  Nothing past `out + n`
// is written and nothing past `in + n` is read.
inline void copy_exactly(char *out, const char *in, std::size_t n) noexcept {
  const auto two_pieces = [out, in, n]<std::size_t kPiece>() {
    std::memcpy(out, in, kPiece);
    std::memcpy(out + n - kPiece, in + n - kPiece, kPiece);
  };
  if (n >= 8 && n <= 16) {
    two_pieces.template operator()<8>();
  } else if (n > 16 && n <= 32) {
    two_pieces.template operator()<16>();
  } else if (n >= 4 && n < 8) {
    two_pieces.template operator()<4>();
  } else if (n > 32) {
    std::memcpy(out, in, n);
  } else if (n > 0) {
    out[0] = in[0];
    out[n - 1] = in[n - 1];
    if (n == 3) out[1] = in[1];
  }
}

// Sets exactly `n` bytes to `byte`: up to 64 as fixed-size pieces that
// overlap (a field and the rest of its buffer), more through memset.  In
// line, a format's placement makes no call to blank its field, so it needs
// no registers kept across one.  Nothing past `out + n` is written.
inline void fill_exactly(char *out, char byte, std::size_t n) noexcept {
  const uint64_t eight = 0x0101010101010101ull * static_cast<unsigned char>(byte);
  if (n >= 16 && n <= 64) {
    char sixteen[16];
    std::memcpy(sixteen, &eight, 8);
    std::memcpy(sixteen + 8, &eight, 8);
    std::memcpy(out, sixteen, 16);
    std::memcpy(out + n - 16, sixteen, 16);
    if (n > 32) {
      std::memcpy(out + 16, sixteen, 16);
      std::memcpy(out + n - 32, sixteen, 16);
    }
  } else if (n >= 8 && n < 16) {
    std::memcpy(out, &eight, 8);
    std::memcpy(out + n - 8, &eight, 8);
  } else if (n > 64) {
    std::memset(out, byte, n);
  } else if (n >= 4) {
    std::memcpy(out, &eight, 4);
    std::memcpy(out + n - 4, &eight, 4);
  } else if (n > 0) {
    out[0] = byte;
    out[n - 1] = byte;
    if (n == 3) out[1] = byte;
  }
}

}  // namespace corvinel::frame

// Copies of a few bytes, in line.
#pragma once

#include <cstddef>
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

}  // namespace corvinel::frame

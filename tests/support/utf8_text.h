// Expected texts are written in UTF-8; the tests turn them into the bytes
// of other deliveries through their code points.
#pragma once

#include <string>

namespace corvinel::testing {

// The code points of well-formed UTF-8.
inline std::u32string code_points(const std::string &utf8) {
  std::u32string out;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto byte = static_cast<unsigned char>(utf8[i++]);
    const int extra = byte < 0x80 ? 0 : byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
    char32_t c = extra == 0 ? byte : byte & (0x3F >> extra);
    for (int k = 0; k < extra; ++k) c = c << 6 | (static_cast<unsigned char>(utf8[i++]) & 0x3F);
    out.push_back(c);
  }
  return out;
}

}  // namespace corvinel::testing

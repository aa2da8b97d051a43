// Packing integers and doubles into byte fields.
#include <algorithm>
#include <cstring>

#include "corvinel/text.h"
#include "text/byte_text.h"

using namespace corvinel::text;

extern "C" int32_t wzctint(int64_t value, void *buf, int32_t n) {
  int32_t result = 0;
  if (n == 2 && (value < -32768 || value > 32767)) {
    value = value < 0 ? -32768 : 32767;
    result = CORVINEL_INTEGER_CLAMPED;
  }
  // Least significant byte last; the arithmetic shift (defined for negative
  // values since C++20) carries the sign into any byte beyond the eighth.
  unsigned char *b = bytes(buf);
  for (std::size_t i = counted_length(buf, n); i-- > 0;) {
    b[i] = static_cast<unsigned char>(value & 0xFF);
    value >>= 8;
  }
  return result;
}

extern "C" int32_t wzctdbl(void *dst, int32_t n, double x) {
  const std::size_t len = std::min(counted_length(dst, n), sizeof x);
  if (len != 0) std::memcpy(dst, &x, len);
  return 0;
}

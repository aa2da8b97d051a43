// wzclchr: a 64-bit integer right-justified in a fixed field.
#include <cstdint>
#include <cstring>

#include "corvinel/fmtreq.h"
#include "corvinel/text.h"

extern "C" int32_t wzclchr(int64_t value, char *buf, int32_t w) {
  if (w <= 0 || buf == nullptr) return CORVINEL_INTEGER_OVERFLOW;
  const bool negative = value < 0;
  // The magnitude in unsigned arithmetic, so that INT64_MIN has one too.
  uint64_t magnitude = negative ? 0 - static_cast<uint64_t>(value)
                                : static_cast<uint64_t>(value);
  int32_t pos = w;
  do {
    buf[--pos] = static_cast<char>('0' + magnitude % 10);
    magnitude /= 10;
  } while (magnitude != 0 && pos > 0);

  if (magnitude != 0 || (negative && pos == 0)) {
    std::memset(buf, '*', static_cast<size_t>(w));
    return CORVINEL_INTEGER_OVERFLOW;
  }
  if (negative) buf[--pos] = '-';
  std::memset(buf, ' ', static_cast<size_t>(pos));
  return 0;
}

// NLSNUMCHAR: how many units fit a byte budget in a given encoding.
#include <cstdint>

#include "corvinel/names.h"
#include "corvinel/unicode.h"
#include "encoding/unicode_tables.h"

namespace {

uint32_t smaller(uint32_t a, uint32_t b) { return a < b ? a : b; }

// Counts the units whose cumulative cost stays within nbytes.
template <typename Cost>
uint32_t count_within(uint32_t nunits, uint32_t nbytes, Cost cost) {
  uint64_t used = 0;
  uint32_t count = 0;
  for (; count < nunits; ++count) {
    used += cost(count);
    if (used > nbytes) break;
  }
  return count;
}

}  // namespace

extern "C" uint32_t NLSNUMCHAR(const uint16_t *units, uint32_t nunits, int32_t encid,
                               uint32_t nbytes) {
  if (nbytes == 0 || nunits == 0) return 0;
  const int32_t method = encid >= 0 && encid < CORVINEL_ENCODING_IDS ? EncodingMethod[encid] : 0;
  switch (method) {
    case 1:  // UTF-8
      return count_within(nunits, nbytes,
                          [&](uint32_t i) { return corvinel::encoding::utf8_length(units[i]); });
    case 2:  // UTF-16
      return smaller(nbytes / 2, nunits);
    case 3:  // UTF-32
      return smaller(nbytes / 4, nunits);
    case 4:  // stateful double-byte: a shift byte opens and closes each run
      return count_within(nunits, nbytes, [&](uint32_t i) {
        const bool wide = units[i] >= 0x80;
        const bool after_wide = i > 0 && units[i - 1] >= 0x80;
        if (wide) return after_wide ? 2 : 3;
        return after_wide ? 2 : 1;
      });
    case 5:  // double-byte
      return count_within(nunits, nbytes,
                          [&](uint32_t i) { return (units[i] & 0xFF80) != 0 ? 2 : 1; });
    default:  // single-byte
      return smaller(nbytes, nunits);
  }
}

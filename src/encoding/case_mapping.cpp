// UPCASE and LOWCASE: simple case mapping in place through the three-level
// tables of locale/data/case_tables.cpp.
#include <cstdint>

#include "corvinel/unicode.h"
#include "encoding/unicode_tables.h"

namespace {

using namespace corvinel::encoding;

uint16_t map_case(uint16_t c, const int8_t *shift, const CasePair *aux) {
  const int16_t block = skz_metatable[c >> 7];
  if (block < 0) return c;
  const int8_t difference = shift[block + (c & 127)];
  if (difference != kCaseEscape) return static_cast<uint16_t>(c + difference);
  // Every pair whose "from" equals the current value applies, in list order;
  // the lists hold no chains, so at most one does.
  uint16_t value = c;
  for (const CasePair *pair = aux; pair->from != 0; ++pair) {
    if (pair->from == value) value = pair->to;
  }
  return value;
}

void map_units(uint16_t *units, int32_t n, const int8_t *shift, const CasePair *aux) {
  for (int32_t i = 0; i < n; ++i) units[i] = map_case(units[i], shift, aux);
}

}  // namespace

extern "C" void UPCASE(uint16_t *units, int32_t n) {
  map_units(units, n, skz_upshift, skz_upaux);
}

extern "C" void LOWCASE(uint16_t *units, int32_t n) {
  map_units(units, n, skz_downshift, skz_downaux);
}

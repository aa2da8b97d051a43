// LATIN1ToUNICODE, UTF8ToUNICODE and UNICODEToUTF8.
#include <cstdint>

#include "corvinel/unicode.h"
#include "encoding/unicode_tables.h"

namespace {

using corvinel::encoding::bytesFromUTF8;
using corvinel::encoding::utf8_length;
using corvinel::encoding::utf8_mask;
using corvinel::encoding::wlt1unic;

void store(int32_t *target, int32_t value) {
  if (target != nullptr) *target = value;
}

}  // namespace

extern "C" int32_t LATIN1ToUNICODE(const unsigned char *in, int32_t nin, uint16_t *out,
                                   int32_t outcap, int32_t *nout) {
  if (nin < 0) nin = 0;
  const int32_t room = outcap > 0 ? outcap / 2 : 0;
  const int32_t count = nin < room ? nin : room;
  for (int32_t i = 0; i < count; ++i) out[i] = wlt1unic[in[i]];
  store(nout, count);
  return nin > room ? CORVINEL_UNICODE_FULL : CORVINEL_UNICODE_OK;
}

extern "C" int32_t UTF8ToUNICODE(const unsigned char *in, int32_t nin, uint16_t *out,
                                 int32_t outcap, int32_t *nunits, int32_t *nbytes) {
  const int32_t room = outcap > 0 ? outcap / 2 : 0;
  int32_t units = 0;
  int32_t result = CORVINEL_UNICODE_OK;
  for (int32_t i = 0; i < nin;) {
    const int32_t following = bytesFromUTF8[in[i]];
    if (following + 1 > nin - i) {
      result = CORVINEL_UNICODE_INCOMPLETE;
      break;
    }
    if (units == room) {
      result = CORVINEL_UNICODE_FULL;
      break;
    }
    uint32_t value = 0;
    for (int32_t still = following; still >= 0; --still) {
      const unsigned char byte = in[i++];
      value += (byte & 0xC0) == 0x80 ? (byte & 0x3Fu) : (byte & utf8_mask[still]);
      if (still > 0) value <<= 6;
    }
    out[units++] = static_cast<uint16_t>(value);
  }
  store(nunits, units);
  store(nbytes, units * 2);
  return result;
}

extern "C" int32_t UNICODEToUTF8(const uint16_t *in, int32_t nbytes_in, unsigned char *out,
                                 int32_t outcap, int32_t *nunits, int32_t *nbytes) {
  const int32_t count = nbytes_in > 0 ? nbytes_in / 2 : 0;
  int32_t written = 0;
  for (int32_t i = 0; i < count; ++i) {
    const uint16_t c = in[i];
    const int32_t length = utf8_length(c);
    if (length > outcap - written) {
      store(nunits, i);
      store(nbytes, written);
      return CORVINEL_UNICODE_FULL;
    }
    if (length == 1) {
      out[written++] = static_cast<unsigned char>(c);
    } else if (length == 2) {
      out[written++] = static_cast<unsigned char>(0xC0 | (c >> 6));
      out[written++] = static_cast<unsigned char>(0x80 | (c & 0x3F));
    } else {
      out[written++] = static_cast<unsigned char>(0xE0 | (c >> 12));
      out[written++] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
      out[written++] = static_cast<unsigned char>(0x80 | (c & 0x3F));
    }
  }
  store(nunits, count);
  store(nbytes, written);
  return CORVINEL_UNICODE_OK;
}

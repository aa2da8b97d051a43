/* Asking for 16-bit units instead of the session encoding: xcode_b 25
   (CORVINEL_ENC_UTF16LE) delivers UTF-16 code units, low byte first, and
   the module sets the low 32 bits of xcode_state to 25 to say so.  The
   width still counts what the session encoding would take. */
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "corvinel/formats.h"
#include "corvinel/names.h"

int main(void) {
  char code[] = "de_DE";
  uint32_t locale = 0;
  if (LocnameToID(code, 5, &locale) != 0) return 1;
  const double value = 15760; /* 24 February 2003 */
  char field[402];
  fmtreq request;
  memset(&request, 0, sizeof request);
  request.width = 20;
  request.value = &value;
  request.output = field;
  request.capacity = (int32_t)sizeof field;
  request.locale = (int32_t)locale;
  request.xcode_b = CORVINEL_ENC_UTF16LE;
  if (nldate(&request) != CORVINEL_OK || (int32_t)request.xcode_state != CORVINEL_ENC_UTF16LE) return 1;
  printf("%d bytes:", (int)request.outlen);
  for (int32_t i = 0; i + 1 < request.outlen; i += 2) {
    const unsigned unit = (unsigned char)field[i] | (unsigned)(unsigned char)field[i + 1] << 8;
    if (unit != ' ') printf(" U+%04X", unit);
  }
  printf("\n");
  return 0;
}

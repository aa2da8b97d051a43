/* The offset "%z" writes, chosen by the host for the calling thread: a
   database shows its session's zone rather than the machine's.  Set it
   before the call, clear it afterwards.
     cc -o zone_offset docs/samples/zone_offset.c $(pkg-config --cflags --libs corvinel) */
#include <stdint.h>
#include <stdio.h>

#include "corvinel/formats.h"
#include "corvinel/names.h"
#include "corvinel/zone_offset.h"

int main(void) {
  char name[] = "en_US";
  uint32_t locale = 0;
  if (LocnameToID(name, 5, &locale) != 0) return 1;
  const double value = 1361709583; /* 24 February 2003 12:39:43, seconds from 1960 */
  char field[402];
  fmtreq request = {.width = 40, .value = &value, .output = field, .capacity = (int32_t)sizeof field,
                    .locale = (int32_t)locale};
  const int32_t kolkata = 5 * 3600 + 30 * 60; /* seconds east of UTC */
  corvinel_set_zone_offset(&kolkata);
  const int32_t result = nldatmz(&request);
  corvinel_set_zone_offset(NULL); /* the machine's offset again */
  if (result != CORVINEL_OK) return 1;
  printf("|%.*s|\n", (int)request.outlen, field);
  return 0;
}

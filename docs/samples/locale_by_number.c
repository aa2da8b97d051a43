/* Choosing a locale by its record number: LocnameToID upper-cases the five
   bytes of the name in place, so it gets a writable copy (a string literal
   would crash).  No environment is read, so threads may use different
   locales at once.
     cc -o locale_by_number docs/samples/locale_by_number.c $(pkg-config --cflags --libs corvinel) */
#include <stdint.h>
#include <stdio.h>

#include "corvinel/formats.h"
#include "corvinel/names.h"

int main(void) {
  char name[] = "de_DE"; /* writable: LocnameToID changes it */
  uint32_t locale = 0;
  if (LocnameToID(name, 5, &locale) != 0) return 1;
  const double value = 1234567.891;
  char field[402];
  fmtreq request = {.width = 14, .decimals = 2, .value = &value, .output = field,
                    .capacity = (int32_t)sizeof field, .locale = (int32_t)locale};
  if (nlnum(&request) != CORVINEL_OK) return 1;
  printf("locale %u: |%.*s|\n", (unsigned)locale, (int)request.outlen, field);
  return 0;
}

/* Building the host's missing values and rendering them.  A missing value
   is a NaN whose top 16 bits are all ones, whose bits 47..40 hold the
   negated position of its mark in " _.ABCDEFGHIJKLMNOPQRSTUVWXYZ" (the
   module exports that string as `misscoll`), and whose low 40 bits are 0:
   "." is position 2, "._" 1, ".A" 3 ... ".Z" 28. */
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "corvinel/formats.h"
#include "corvinel/missing.h"

static double missing_value(char mark) {
  const char *at = strchr(misscoll, mark);
  const int position = at != NULL ? (int)(at - misscoll) : 2;
  const uint64_t bits = 0xFFFF000000000000ull | ((uint64_t)(uint8_t)(-position) << 40);
  double value;
  memcpy(&value, &bits, sizeof value);
  return value;
}

int main(void) {
  const char marks[] = {'.', '_', 'A', 'Z'};
  for (size_t i = 0; i < sizeof marks; ++i) {
    const double value = missing_value(marks[i]);
    char field[16];
    fmtreq request;
    memset(&request, 0, sizeof request);
    request.width = 8;
    request.decimals = 2; /* the mark stands where the units digit would */
    request.value = &value;
    request.output = field;
    request.capacity = (int32_t)sizeof field;
    if (nlnum(&request) != CORVINEL_OK || !zmiss(value)) return 1;
    printf("%c |%.*s|\n", marks[i], (int)request.outlen, field);
  }
  return 0;
}

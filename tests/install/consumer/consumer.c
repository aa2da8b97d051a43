/* A program built against an installed corvinel: the entry's registry,
   a locale by name, one value rendered. */
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include <corvinel/fmtinfo.h>
#include <corvinel/names.h>
#include <corvinel/version.h>

int main(void) {
  const struct fmtinfo *registry = corvinel();
  char code[] = "de_DE";
  uint32_t locale = 0;
  if (registry == NULL || LocnameToID(code, 5, &locale) != 0) return 1;
  for (int32_t i = 0; i < registry->count; ++i) {
    const struct fmtdesc *d = &registry->descriptors[i];
    if (d->namelen != 5 || memcmp(d->name, "NLNUM", 5) != 0) continue;
    const double value = 1234567.891;
    char field[64];
    fmtreq request;
    memset(&request, 0, sizeof request);
    request.width = 14;
    request.decimals = 2;
    request.value = &value;
    request.output = field;
    request.capacity = (int32_t)sizeof field;
    request.locale = (int32_t)locale;
    if (d->render(&request) != CORVINEL_OK) return 1;
    printf("corvinel %s: [%.*s]\n", corvinel_version, (int)request.outlen, field);
    return 0;
  }
  return 1;
}

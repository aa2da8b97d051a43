/* A minimal host: loads libcorvinel.so, takes the registry from the entry,
   finds formats by name and renders a small table of values in three
   locales chosen by locale number.

     cc -I include examples/host.c -ldl -o host && ./host build/default/libcorvinel.so

   The module writes the session encoding of the process locale that the
   entry sets from the environment (LANG, LC_ALL); run it under a UTF-8
   locale to see every name whole. */
#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "corvinel/fmtinfo.h"
#include "corvinel/fmtreq.h"

typedef const struct fmtinfo *(*entry_fn)(void);
typedef int32_t (*locname_fn)(char *name, int32_t length, uint32_t *id);

/* The registry entry named `name` (upper case), or NULL. */
static const struct fmtdesc *find_format(const struct fmtinfo *registry, const char *name) {
  for (int32_t i = 0; i < registry->count; ++i) {
    const struct fmtdesc *d = &registry->descriptors[i];
    if ((size_t)d->namelen == strlen(name) && memcmp(d->name, name, strlen(name)) == 0) return d;
  }
  return NULL;
}

/* Renders `value` with the format at `width`.`decimals` in locale `locale`
   into `text` (NUL-terminated); returns the format's result. */
static int32_t render(const struct fmtdesc *format, int32_t width, int32_t decimals, double value,
                      int32_t locale, char *text, int32_t capacity) {
  fmtreq request;
  memset(&request, 0, sizeof request);
  request.width = width;
  request.decimals = decimals;
  request.value = &value;
  request.output = text;
  request.capacity = capacity - 1; /* room for the NUL */
  request.flags = FMTREQ_CHECK_LIMITS;
  request.locale = locale;
  const int32_t result = format->render(&request);
  text[result == CORVINEL_OK ? request.outlen : 0] = '\0';
  return result;
}

int main(int argc, char **argv) {
  const char *path = argc > 1 ? argv[1] : "libcorvinel.so";
  void *module = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (module == NULL) {
    fprintf(stderr, "host: %s\n", dlerror());
    return 1;
  }
  entry_fn entry = (entry_fn)dlsym(module, "corvinel");
  locname_fn locname_to_id = (locname_fn)dlsym(module, "LocnameToID");
  if (entry == NULL || locname_to_id == NULL) {
    fprintf(stderr, "host: %s is not the module\n", path);
    return 1;
  }
  const struct fmtinfo *registry = entry();

  const struct {
    const char *format;
    int32_t width, decimals;
    double value;
  } columns[] = {
      {"NLNUM", 14, 2, 1234567.891},
      {"NLMNIEUR", 16, 2, -1234.5},
      {"NLDATE", 20, 0, 15760}, /* 24 February 2003: days since 1 January 1960 */
  };
  const char *locales[] = {"en_US", "de_DE", "fr_FR"};

  for (size_t l = 0; l < sizeof locales / sizeof locales[0]; ++l) {
    char code[6];
    uint32_t number = 0;
    memcpy(code, locales[l], sizeof code); /* LocnameToID upper-cases in place */
    if (locname_to_id(code, 5, &number) != 0) {
      fprintf(stderr, "host: no locale %s\n", locales[l]);
      return 1;
    }
    printf("%s", locales[l]);
    for (size_t c = 0; c < sizeof columns / sizeof columns[0]; ++c) {
      const struct fmtdesc *format = find_format(registry, columns[c].format);
      char text[64];
      if (format == NULL ||
          render(format, columns[c].width, columns[c].decimals, columns[c].value, (int32_t)number, text,
                 (int32_t)sizeof text) != CORVINEL_OK) {
        fprintf(stderr, "host: %s failed\n", columns[c].format);
        return 1;
      }
      printf(" | %s", text);
    }
    printf("\n");
  }
  dlclose(module);
  return 0;
}

/* The format registry and the module entry. */
#ifndef CORVINEL_FMTINFO_H
#define CORVINEL_FMTINFO_H

#include <stdint.h>

#include "corvinel/export.h"
#include "corvinel/fmtreq.h"

CORVINEL_EXTERN_C_BEGIN

/* One registry entry. */
struct fmtdesc {
  char name[16];     /* upper case, blank-padded to 15, then NUL */
  int32_t namelen;   /* characters before the padding */
  int16_t minw, maxw, defw;
  int16_t kind;      /* 1, or 0 for the currency-code formats */
  int16_t mind, maxd;
  int32_t defd;
  int32_t spare;     /* always 0 */
  fmt_render_fn render;
};
typedef struct fmtdesc fmtdesc;

/* The registry header.  The type is `struct fmtinfo`; `fmtinfo` alone names
   the registry object. */
struct fmtinfo {
  int32_t count;                  /* 144 */
  const struct fmtdesc *descriptors;
  void *unused[2];                /* always 0 */
};

#define CORVINEL_FORMAT_COUNT 144

CORVINEL_API extern const struct fmtinfo fmtinfo;
CORVINEL_API extern const struct fmtdesc fmtinfo_eachfmt[CORVINEL_FORMAT_COUNT];

/* Module entry: sets the process locale from the environment and returns the
   registry.  In C++ the name `corvinel` is the module's namespace, so C++
   code declares the entry as `corvinel_entry`; both name the symbol
   "corvinel". */
#ifdef __cplusplus
CORVINEL_API const struct fmtinfo *corvinel_entry(void) __asm__("corvinel");
#else
CORVINEL_API const struct fmtinfo *corvinel(void);
#endif

CORVINEL_EXTERN_C_END

#include <stddef.h>
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, name) == 0);
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, namelen) == 16);
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, minw) == 20);
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, maxw) == 22);
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, defw) == 24);
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, kind) == 26);
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, mind) == 28);
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, maxd) == 30);
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, defd) == 32);
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, spare) == 36);
CORVINEL_LAYOUT_CHECK(offsetof(fmtdesc, render) == 40);
CORVINEL_LAYOUT_CHECK(sizeof(fmtdesc) == 48);
CORVINEL_LAYOUT_CHECK(offsetof(struct fmtinfo, count) == 0);
CORVINEL_LAYOUT_CHECK(offsetof(struct fmtinfo, descriptors) == 8);
CORVINEL_LAYOUT_CHECK(offsetof(struct fmtinfo, unused) == 16);
CORVINEL_LAYOUT_CHECK(sizeof(struct fmtinfo) == 32);

#endif

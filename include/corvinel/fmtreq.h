/* The format request record every format receives, and the result codes. */
#ifndef CORVINEL_FMTREQ_H
#define CORVINEL_FMTREQ_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* One request: the host fills it, a format renders into `output` and reports
   the length in `outlen`.  Formats may change fields while they work and put
   them back before returning (see each format).

   Layout on LP64 (offsets in bytes):
      0 width         4 decimals      8 value        16 reserved
     24 output       32 capacity     36 outlen
     40 host_private[0]              48 host_private[1]
     56 flags  (57..59 padding)      60 locale
     64 xcode_a      68 xcode_b      72 xcode_state
     size 80, alignment 8.
   The host-private words are two pointer-sized slots that belong to the host;
   the module never reads or writes them. */
struct fmtreq {
  int32_t width;          /* field width w in bytes */
  int32_t decimals;       /* d; a selector for some formats */
  const double *value;    /* the value to render, read once */
  void *reserved;         /* not read by the module */
  char *output;           /* the host's buffer, `capacity` bytes */
  int32_t capacity;       /* size of `output`, at least `width` */
  int32_t outlen;         /* written: length of the text left in `output` */
  intptr_t host_private[2];
  uint8_t flags;          /* bit 0: check limits; bit 4: locale-aware caller */
  int32_t locale;         /* 1..136 picks a locale record; else ORB_LOCALE */
  int32_t xcode_a;        /* transcoding context word, passed through */
  int32_t xcode_b;        /* requested output encoding ID (25: UTF-16LE units) */
  int64_t xcode_state;    /* low 32 bits: encoding of the text in `output` */
};
typedef struct fmtreq fmtreq;

/* Bits of fmtreq.flags. */
#define FMTREQ_CHECK_LIMITS 0x01u
#define FMTREQ_LOCALE_CALLER 0x10u

/* Encoding IDs the formats look at. */
#define CORVINEL_ENC_UTF8 20
#define CORVINEL_ENC_UTF16BE 24
#define CORVINEL_ENC_UTF16LE 25

/* Result codes of the format functions. */
#define CORVINEL_OK 0
#define CORVINEL_WIDTH_TOO_SMALL 39
#define CORVINEL_WIDTH_TOO_LARGE 40
#define CORVINEL_DECIMALS_TOO_SMALL 41
#define CORVINEL_DECIMALS_TOO_LARGE 42
/* Result codes of the classic renderings. */
#define CORVINEL_OUT_OF_RANGE ((int32_t)0x8001D815u)
#define CORVINEL_HOURS_TOO_LARGE ((int32_t)0x8001D81Au)
#define CORVINEL_DOES_NOT_FIT ((int32_t)0x8001D827u)
/* Result of the integer writer wzclchr on overflow. */
#define CORVINEL_INTEGER_OVERFLOW ((int32_t)0x8000200Du)

/* Every format function has this shape. */
typedef int32_t (*fmt_render_fn)(fmtreq *request);

CORVINEL_EXTERN_C_END

#include <stddef.h>
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, width) == 0);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, decimals) == 4);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, value) == 8);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, reserved) == 16);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, output) == 24);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, capacity) == 32);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, outlen) == 36);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, host_private) == 40);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, flags) == 56);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, locale) == 60);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, xcode_a) == 64);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, xcode_b) == 68);
CORVINEL_LAYOUT_CHECK(offsetof(fmtreq, xcode_state) == 72);
CORVINEL_LAYOUT_CHECK(sizeof(fmtreq) == 80);

#endif

/* In-place translation between ISO-8859-1 and EBCDIC (code page IBM-1047,
   Latin-1 open systems: line feed 0x0A <-> 0x15, next-line 0x85 <-> 0x25).
 *
 * Each of the n bytes of buf is replaced through the table; NUL bytes are
 * translated like any other (0x00 stays 0x00).  A count below 1 or a null
 * buffer leaves everything untouched.  The two names of each direction
 * behave identically. */
#ifndef CORVINEL_EBCDIC_H
#define CORVINEL_EBCDIC_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* Indexed by an ISO-8859-1 byte: the IBM-1047 byte.  Both tables are
   permutations of 0-255 and each is the other's inverse. */
CORVINEL_API extern const unsigned char as2eb[256];
/* Indexed by an IBM-1047 byte: the ISO-8859-1 byte. */
CORVINEL_API extern const unsigned char eb2as[256];

/* ISO-8859-1 to EBCDIC; always returns 0. */
CORVINEL_API int32_t wztxatoe(void *buf, int32_t n);
/* EBCDIC to ISO-8859-1; always returns 0. */
CORVINEL_API int32_t wztxetoa(void *buf, int32_t n);
/* The same translations without a result. */
CORVINEL_API void zas2eb(void *buf, int32_t n);
CORVINEL_API void zeb2as(void *buf, int32_t n);

CORVINEL_EXTERN_C_END

#endif

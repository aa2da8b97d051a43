/* Conversions on 16-bit code units (UTF-16 without surrogate handling) and
   in-place case mapping.  Lengths are explicit; nothing is allocated.  The
   optional count pointers may be null. */
#ifndef CORVINEL_UNICODE_H
#define CORVINEL_UNICODE_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* Results of the conversions. */
#define CORVINEL_UNICODE_OK 0
#define CORVINEL_UNICODE_INCOMPLETE 1 /* input ends inside a UTF-8 sequence */
#define CORVINEL_UNICODE_FULL 2       /* the output has no room for the rest */

/* Widens nin bytes of code page 1252 (WLATIN1) text into units; outcap is
   the room of `out` in bytes.  Converts min(nin, outcap / 2) bytes, stores
   the units written in *nout, and returns CORVINEL_UNICODE_FULL when bytes
   were dropped, else 0. */
CORVINEL_API int32_t LATIN1ToUNICODE(const unsigned char *in, int32_t nin, uint16_t *out,
                                     int32_t outcap, int32_t *nout);

/* Decodes UTF-8 leniently into one unit per sequence (bits above 16 are
   dropped; over-long forms and stray bytes are decoded, not rejected).
   Stores the units written in *nunits and their bytes in *nbytes.  Returns
   0, CORVINEL_UNICODE_INCOMPLETE (the incomplete sequence is left
   unconverted) or CORVINEL_UNICODE_FULL. */
CORVINEL_API int32_t UTF8ToUNICODE(const unsigned char *in, int32_t nin, uint16_t *out,
                                   int32_t outcap, int32_t *nunits, int32_t *nbytes);

/* Encodes nbytes_in / 2 units as UTF-8, one to three bytes each (surrogate
   units are encoded one by one).  Stores the units consumed in *nunits and
   the bytes written in *nbytes; returns CORVINEL_UNICODE_FULL when the next
   character does not fit `outcap`, else 0. */
CORVINEL_API int32_t UNICODEToUTF8(const uint16_t *in, int32_t nbytes_in, unsigned char *out,
                                   int32_t outcap, int32_t *nunits, int32_t *nbytes);

/* Simple one-to-one case mapping of n units in place, covering Latin,
   Greek, Cyrillic, Armenian, Georgian, the Latin and Greek extended blocks,
   Roman numerals, circled letters and fullwidth Latin. */
CORVINEL_API void UPCASE(uint16_t *units, int32_t n);
CORVINEL_API void LOWCASE(uint16_t *units, int32_t n);

/* How many of the nunits units fit in nbytes bytes when written in the
   encoding `encid` (its EncodingMethod class decides the cost per unit).
   An encid outside 0..248 counts as a single-byte encoding. */
CORVINEL_API uint32_t NLSNUMCHAR(const uint16_t *units, uint32_t nunits, int32_t encid,
                                 uint32_t nbytes);

CORVINEL_EXTERN_C_END

#endif

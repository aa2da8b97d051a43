/* The host's missing values: test, standard value and rendering. */
#ifndef CORVINEL_MISSING_H
#define CORVINEL_MISSING_H

#include <stdint.h>

#include "corvinel/export.h"
#include "corvinel/fmtreq.h"

CORVINEL_EXTERN_C_BEGIN

/* The ordinary missing value ".", bit pattern FFFFFE0000000000. */
CORVINEL_API extern const double std_miss_val;
/* Marks by index: blank, "_", ".", then "A".."Z" (29 characters and NUL). */
CORVINEL_API extern const char misscoll[30];

/* 1 when the value has the missing-value layout (bits 63..48 all ones, bits
   39..0 zero), whatever its code byte; 0 otherwise. */
CORVINEL_API int32_t zmiss(double value);

/* Blank-fills `capacity` bytes of `output`, sets `outlen` to `width` and
   writes the mark of the missing value at width-1-decimals (width-1 for
   decimals 98 or 99).  A position outside the buffer writes nothing, a null
   `output` is not written to, and a null `value` counts as the standard
   missing value. */
CORVINEL_API int32_t zfmmiss(fmtreq *request);

CORVINEL_EXTERN_C_END

#endif

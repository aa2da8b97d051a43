/* Blank-padded string and buffer helpers. */
#ifndef CORVINEL_TEXT_H
#define CORVINEL_TEXT_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* Writes value right-justified in decimal into the w-byte field, blanks on
   the left, "-" before a negative value.  Returns 0, or fills the field with
   "*" and returns CORVINEL_INTEGER_OVERFLOW when the digits (and sign) do
   not fit.  w <= 0 writes nothing and reports overflow. */
CORVINEL_API int32_t wzclchr(int64_t value, char *buf, int32_t w);

CORVINEL_EXTERN_C_END

#endif

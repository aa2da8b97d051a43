/* Transcoding of UTF-16 code units into a named encoding. */
#ifndef CORVINEL_TRANSCODE_H
#define CORVINEL_TRANSCODE_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* Results of obnlsTranscodeUnicode. */
#define CORVINEL_TRANSCODE_OK 0
#define CORVINEL_TRANSCODE_TOO_SHORT (-1)          /* fewer than 2 bytes left to fall back on */
#define CORVINEL_TRANSCODE_NO_CONVERTER (-2)       /* the encoding is unknown to iconv */

/* Converts nbytes bytes of UTF-16 code units, stored low byte first, into
   `encoding` (a codeset name as nl_langinfo(CODESET) gives it; names that
   start with "utf8" or "utf-8", in any case, mean UTF-8).  The whole text is
   converted at once; when that fails (a character the encoding lacks, half
   of a surrogate pair, or more than 402 bytes in a step) every unit is
   converted on its own and one that does not convert becomes "?".  At most
   min(outcap, 402) bytes are written to `out`; their count goes to *outlen.
   Returns CORVINEL_TRANSCODE_OK, CORVINEL_TRANSCODE_NO_CONVERTER, or
   CORVINEL_TRANSCODE_TOO_SHORT when the whole conversion failed on fewer
   than two bytes (also for null pointers).  Thread-safe. */
CORVINEL_API int32_t obnlsTranscodeUnicode(const char *encoding, const unsigned char *units,
                                           int32_t nbytes, char *out, int32_t outcap,
                                           int32_t *outlen);

CORVINEL_EXTERN_C_END

#endif

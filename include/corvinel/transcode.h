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

/* Output expansion, the last step of every locale-aware format: expands the
   <Uxxxx> escapes of the *len bytes of `buf` into UTF-16 code units,
   transcodes them into the session encoding (or, for outenc 25, delivers the
   units themselves low byte first and sets *encout to 25) and cuts the text
   back one unit at a time until it is at most `width` bytes.  Returns 4 (no
   conversion), 2 (the result does not fit `capacity`), 1 (cut back to fit
   `width`) or the result length minus `width` (0 or negative: it fits);
   `buf` is untouched for 4 and 2.  `reserved` is not read. */
CORVINEL_API int32_t getExpResultFromNarrowCharBuf(int32_t reserved, int32_t outenc,
                                                   int32_t *encout, char *buf, int32_t *len,
                                                   int32_t width, int32_t capacity);

CORVINEL_EXTERN_C_END

#endif

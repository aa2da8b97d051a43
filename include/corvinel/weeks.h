/* Week numbering and the fixed-width digit writer of the date formats. */
#ifndef CORVINEL_WEEKS_H
#define CORVINEL_WEEKS_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* The (year, week, day of week) of a date value under one of three week
   styles, named by the character *style:
     'U'  weeks start on Sunday; days before the first Sunday are week 0;
          day 1 = Sunday .. 7 = Saturday;
     'W'  weeks start on Monday; days before the first Monday are week 0;
          day 1 = Monday .. 7 = Sunday;
     'V'  ISO 8601 weeks; the year is the week-based year.
   The week of 'U' and 'W' is a real quotient (callers take its integer
   part).  Another style leaves the week -1 and gives a provisional day.
   A missing, non-finite or out-of-range date (outside 1 January 1582 ..
   31 December 20000), a null style or a null result pointer leaves every
   part it can reach -1.  `passthrough` is not read.  Always returns 0. */
CORVINEL_API int32_t get_yywwdd(const char *style, void *passthrough, double *year, double *week,
                                double *day, double date);

/* The week rendering of a date in the style *style, chosen by the width
   *width (yy = year modulo 100, yyyy = the year as two groups of two
   digits, ww = week, dd = day of week, each zero-padded to two digits):
       0..2  ww              (2 bytes)     7..8   yyWwwdd     (7)
       3..4  Www             (3)           9..10  yyyyWwwdd   (9)
       5..6  yyWww           (5)           11..   yyyy-Www-dd (11)
   The first max(*width, 0) bytes of output are blank-filled first; the
   text's length is stored in *width.  The 2-byte form is written even into
   a field of 0 or 1 bytes, so output must hold at least 2 bytes.  A date
   that get_yywwdd cannot number fills the field with "*" and leaves
   *width as it was.  A null output or width writes nothing.  Returns 0. */
CORVINEL_API int32_t zkfweek(char *output, int32_t *width, const char *style, void *passthrough,
                             double date);

/* Writes the lowest `width` decimal digits of |value| into destination,
   right to left.  A pad of 0 replaces the width by the number of digits
   of the value (at least 1); a pad other than '0' replaces the leading
   zeros by itself, keeping the last digit.  Returns the number of bytes
   written (a negative width writes nothing and returns 0); a null
   destination writes nothing and returns the same count. */
CORVINEL_API int32_t i2s(int32_t value, char *destination, int32_t width, char pad);

CORVINEL_EXTERN_C_END

#endif

/* The host's classic number renderings: w.d, BEST, COMMA, DOLLAR, PERCENT,
   PVALUE and D.  The locale-aware number formats fall back on them.

   Every rendering takes one request and fills `width` bytes of `output`,
   right-aligned and blank-filled, with "." as decimal point and "," as group
   separator, sets `outlen` to `width` and returns 0.  Rules they share:

   - Rounding to d decimals is zround with a unit of 10^-d: half away from
     zero, with zround's tolerance (0.15 with one decimal is 0.2, 0.125 with
     two is 0.13).  A value that rounds to zero carries no minus sign.
   - At most 15 significant digits are printed; places beyond the fifteenth
     significant digit that the text must show are written as zeros (0.1
     with 20 decimals is 0.10000000000000000000, 1e20 is 1 and 20 zeros).
   - Below 1, the leading "0" before the point is dropped when only that
     makes the text fit (0.5 with 3.2 is ".50"); BEST also drops it when
     the decimals beside it would all be zero (0.02 in BEST3. is ".02").
   - A value that cannot be shown at all fills the field with "*" and
     returns CORVINEL_DOES_NOT_FIT.  NaNs that are not missing values and
     infinities are such values.
   - A missing value (zmiss) is rendered by zfmmiss: its mark stands where
     the point of a number with `decimals` places would stand when
     `decimals` lies in 0..width-1, else at the right edge.  `decimals` is
     put back before returning; no other request field is changed.
   - Bit 4 of `flags` (a locale-aware caller) changes nothing.
   - A width of 0 or less, a width above `capacity`, or a request without an
     output buffer or value writes nothing, sets `outlen` to 0 and returns
     CORVINEL_DOES_NOT_FIT.  Any width up to `capacity` works.
   - No heap memory, no state: the renderings are reentrant. */
#ifndef CORVINEL_CLASSIC_NUMBERS_H
#define CORVINEL_CLASSIC_NUMBERS_H

#include <stdint.h>

#include "corvinel/export.h"
#include "corvinel/fmtreq.h"

CORVINEL_EXTERN_C_BEGIN

/* w.d: the digits with d decimals ("." only when d > 0), "-" directly before
   a negative value.  When that does not fit: fewer decimals, one at a time
   down to 0; then BEST of the same width; then "*".  A negative d counts as
   0.  d = 98 or 99 is BEST: the most precise text that fits the width,
   integers without a point, otherwise as many decimals as fit with trailing
   zeros dropped, E notation ("1.26E6", "-126E4", "5E-6") for magnitudes
   below 1e-5, for integer parts too long for the field, and when the plain
   text shows fewer than 3 significant digits and E notation shows more. */
CORVINEL_API int32_t zfmt(fmtreq *request);

/* COMMA w.d: w.d with "," between groups of three integer digits.  When it
   does not fit: without the commas, then fewer decimals, then BEST, then
   "*". */
CORVINEL_API int32_t zfmcma(fmtreq *request);

/* DOLLAR w.d: "$" and the COMMA text, the minus sign after the "$"
   ("$-1,234.57").  Fits like COMMA, keeping the "$" until the BEST step. */
CORVINEL_API int32_t zfmdlr(fmtreq *request);

/* PERCENT w.d: 100 times the value, ungrouped, in four zones: "(" for a
   negative value or a blank; the number with d decimals right-aligned in
   width - 3 bytes; "%"; ")" for a negative value or a blank.  When it does
   not fit: fewer decimals, then "*" (always "*" below width 4).  A missing
   value's mark stands in the number zone: at width - 3 - decimals, or at
   width - 3 when decimals is not in 0..width-3; below width 3, where there
   is no zone, at the right edge. */
CORVINEL_API int32_t zfmpct(fmtreq *request);

/* PVALUE w.d: w.d, except that a value with 0 <= x < 10^-d is written "<"
   and the unit without its leading zero ("<.0001" for d = 4, "<1" for
   d = 0).  Each fewer-decimals attempt applies the same test with its own
   unit. */
CORVINEL_API int32_t zfmpval(fmtreq *request);

/* D w.p: at least p + 1 significant digits with trailing zeros kept, the
   point at one of a few fixed places so that columns of mixed values line
   up (p = decimals; 0 or less means 3).  A value whose leading digit stands
   at 10^e gets the smallest of 1, 1 + p, 1 + 2p, ... decimals that is at
   least p - e; zero is placed like a value of magnitude 1.  When that does
   not fit: BEST, then "*".  A missing value's mark is at the right edge. */
CORVINEL_API int32_t zfmd(fmtreq *request);

CORVINEL_EXTERN_C_END

#endif

/* Blank-padded string and buffer helpers.
 *
 * The formats work on fixed-length fields: a text is a pointer and an
 * explicit byte count, and the unused part of a field holds blanks (0x20).
 * These routines never allocate, keep no state and are reentrant.
 *
 * Argument order follows one convention: a fill character comes first, a
 * source comes before its destination.  Counts are 32-bit signed unless the
 * prototype says int64_t.  Characters are compared and stored as bytes
 * (unsigned char).
 *
 * Counts and pointers out of the ordinary:
 *  - Routines documented with "n < 0: NUL-terminated" (wzstpos, wzstrip,
 *    wzstrup) take the length of the text when the count is negative.
 *  - Everywhere else a negative count counts as 0: the text is empty, or
 *    the field has no bytes.
 *  - A null pointer is an empty text whatever its count; a routine never
 *    writes through a null destination.
 *  - Copies and moves tolerate overlap of source and destination in every
 *    routine, not only in those that promise it (vzmp, vzMP, vzni, vznl).
 */
#ifndef CORVINEL_TEXT_H
#define CORVINEL_TEXT_H

#include <stdint.h>

#include "corvinel/export.h"

/* Result of wzctint when a 2-byte field had to be clamped. */
#define CORVINEL_INTEGER_CLAMPED 8193

CORVINEL_EXTERN_C_BEGIN

/* ---- Searching ---------------------------------------------------------
   Positions are 0-based; -1 means "not found". */

/* 1 when every one of the n bytes of buf equals c (also when n <= 0), else 0. */
CORVINEL_API int32_t vzabl(char c, const void *buf, int64_t n);
/* vzabl with a 32-bit count. */
CORVINEL_API int32_t ATL(char c, const void *buf, int32_t n);

/* First byte equal to c among the first n bytes of s; n < 0: s is
   NUL-terminated.  -1 when absent, when n is 0 or s is null. */
CORVINEL_API int32_t wzstpos(const char *s, int32_t n, char c);
/* First occurrence of the nsub bytes of sub within the n bytes of s,
   byte-exact (NUL bytes included).  -1 when there is none or nsub > n; an
   empty sub is found at 0. */
CORVINEL_API int32_t wzstndx(const char *s, int32_t n, const char *sub, int32_t nsub);
/* First byte of s that is not among the nset bytes of set; -1 when every
   byte is in set or n < 1. */
CORVINEL_API int32_t wzstver(const char *s, int32_t n, const char *set, int32_t nset);
/* First byte of s not equal to c; -1 when all are c or n < 1. */
CORVINEL_API int32_t wzstnot(const char *s, int32_t n, char c);
/* First byte of s that is in the NUL-terminated set (the terminator is not
   a member: a NUL byte in s never matches); -1 when none or n <= 0. */
CORVINEL_API int32_t STQX(const char *s, int32_t n, const char *set);
/* First byte of s that is not in the NUL-terminated set; -1 when every
   byte is in set or n < 1. */
CORVINEL_API int32_t STQXN(const char *s, int32_t n, const char *set);

/* ---- Comparing and case ------------------------------------------------ */

/* 1 when na == nb and the bytes are equal ignoring case, through the
   process locale's upper-case mapping (toupper); 1 for two empty texts;
   else 0. */
CORVINEL_API int32_t wzsteqn(const char *a, int32_t na, const char *b, int32_t nb);
/* Upper-cases s in place through the process locale's toupper; n < 0: s is
   NUL-terminated. */
CORVINEL_API void wzstrup(char *s, int32_t n);

/* ---- Trimming, justifying, deleting, replacing ------------------------- */

/* Length of s without its trailing blanks (0 for an all-blank text); n < 0:
   s is NUL-terminated. */
CORVINEL_API int32_t wzstrip(const char *s, int32_t n);
/* Trims the n-byte field s and justifies its content (first to last
   non-blank, inner blanks kept) in place:
     'L'/'l'  content at offset 0,
     'R'/'r'  content ending at the end of the field,
     'C'/'c'  content at n - (n + len + 1) / 2 (an odd blank goes right),
     other    nothing moves.
   Bytes the content leaves become blanks.  *len receives the content
   length and *start its offset (both 0 for an all-blank or empty field);
   len and start may be null. */
CORVINEL_API void wzstjls(char *s, int32_t n, char mode, int32_t *len, int32_t *start);
/* Deletes every byte of s that is among the nset bytes of set, closing the
   gaps, and returns the number of bytes kept.  The kept bytes end up at the
   start of s in their order; bytes from the returned length on keep their
   old values (no padding).  Any length works. */
CORVINEL_API int32_t wzstdel(char *s, int32_t n, const char *set, int32_t nset);
/* Replaces every byte equal to old_byte by new_byte among the first n
   bytes of s. */
CORVINEL_API void wzstrnc(char *s, int32_t n, char new_byte, char old_byte);
/* Translates s in place in one pass: a byte found at index k of the nfrom
   bytes of from (its first occurrence) becomes to[k]; other bytes stay.
   to must have nfrom bytes.  Returns 0. */
CORVINEL_API int32_t wzstrns(char *s, int32_t n, const char *to, const char *from, int32_t nfrom);

/* ---- Copying, moving, filling ------------------------------------------ */

/* Copies min(nsrc, ndst) bytes of src to dst and blank-pads the rest of
   dst.  Returns 0. */
CORVINEL_API int32_t wzstmov(const void *src, int32_t nsrc, void *dst, int32_t ndst);
/* wzstmov for a destination that may start inside the source; nsrc = 0
   blank-fills all of dst.  Returns 0.  vzMP is the same routine. */
CORVINEL_API int32_t vzmp(const void *src, int32_t nsrc, void *dst, int32_t ndst);
CORVINEL_API int32_t vzMP(const void *src, int32_t nsrc, void *dst, int32_t ndst);
/* Copies min(nsrc, ndst) bytes; any overlap is safe.  No padding. */
CORVINEL_API void vzni(const void *src, void *dst, int32_t nsrc, int32_t ndst);
/* Copies min(nsrc, ndst) bytes.  No padding. */
CORVINEL_API void vzmi(const void *src, void *dst, int32_t nsrc, int32_t ndst);
/* Copies n bytes. */
CORVINEL_API void MBL_OPT(const void *src, void *dst, int32_t n);
/* Moves n bytes (overlap allowed). */
CORVINEL_API void vznl(const void *src, void *dst, int32_t n);
/* Zero-fill min(n, m) bytes. */
CORVINEL_API void vzzl(void *buf, int64_t n, int64_t m);
CORVINEL_API void vzzi(void *buf, int32_t n, int32_t m);
/* Fill n bytes with c; vzfbl is the same routine. */
CORVINEL_API void vzftl(char c, void *buf, int64_t n);
CORVINEL_API void vzfbl(char c, void *buf, int64_t n);
CORVINEL_API void wzbfcl(char c, void *buf, int32_t n);
/* Fill n bytes with blanks.  Further arguments of vzbtl are ignored. */
CORVINEL_API void vzbtl(void *buf, int32_t n, ...);
CORVINEL_API void vzBL(void *buf, int32_t n);

/* ---- Integer and double packing ---------------------------------------- */

/* Stores value in the n bytes of buf, most significant byte first (the
   least significant at buf[n - 1]).  n = 2 clamps to -32768..32767 and
   returns CORVINEL_INTEGER_CLAMPED when it had to; any other n stores the
   low 8 * n bits (sign-extended beyond 8 bytes) and returns 0. */
CORVINEL_API int32_t wzctint(int64_t value, void *buf, int32_t n);
/* Copies the first n bytes (at most 8) of the in-memory form of x to dst.
   Returns 0. */
CORVINEL_API int32_t wzctdbl(void *dst, int32_t n, double x);
/* Writes value right-justified in decimal into the w-byte field, blanks on
   the left, "-" before a negative value.  Returns 0, or fills the field with
   "*" and returns CORVINEL_INTEGER_OVERFLOW when the digits (and sign) do
   not fit.  w <= 0 or a null buf writes nothing and reports overflow. */
CORVINEL_API int32_t wzclchr(int64_t value, char *buf, int32_t w);

/* ---- Miscellany ---------------------------------------------------------
   min and max are plain C functions: C++ code that includes this header
   calls std::min / std::max qualified. */

CORVINEL_API int32_t min(int32_t a, int32_t b);
CORVINEL_API int32_t max(int32_t a, int32_t b);
/* A text literal in the native character code: returns x unchanged (this
   platform's literals already are ASCII). */
CORVINEL_API const char *wztxlit(const char *x);
/* Placeholder kept for the host: prints "in wzmisc in mvsextra..." and a
   newline on standard output and returns the low 8 bits of x's bit
   pattern. */
CORVINEL_API int32_t wzmisc(double x);
/* Does nothing. */
CORVINEL_API void vaterm(void);
/* Ends the process at once (no exit handlers, no flushing) with exit
   status 0 -- deliberately 0, not a failure status. */
CORVINEL_API __attribute__((noreturn)) void vacrash(void);

CORVINEL_EXTERN_C_END

#endif

/* The host's classic date, time and datetime renderings.

   Every rendering is a format function: it takes one request, renders the
   value into a field of exactly `width` bytes at the start of `output`,
   sets `outlen` to the width and returns
     CORVINEL_OK            success, also after a missing value was rendered
                            (the missing-value rendering, decimals 0) and when
                            a time is too narrow for its hour digits (field of
                            "*");
     CORVINEL_OUT_OF_RANGE  the value lies outside the date range (dates) or
                            the datetime range in seconds (times, datetimes);
                            the field is full of "*".  NaNs and infinities
                            that are not missing values are out of range;
     CORVINEL_HOURS_TOO_LARGE  (times) more hours than 2^53; field of "*";
     CORVINEL_DOES_NOT_FIT  the request is refused because its field does not
                            lie in its buffer (width < 0 or width > capacity);
                            nothing is written.
   Width and decimals are otherwise trusted: the calling format validates
   them.  At widths a layout is not made for, the layout is cut at the
   field's left edge, and a number with more digits than its positions
   (the year 20000 in a four-digit year) leaves them blank.  Negative
   decimals count as 0.  The request is handed back as it came, apart from
   the output and outlen. */
#ifndef CORVINEL_CLASSIC_DATES_H
#define CORVINEL_CLASSIC_DATES_H

#include <stdint.h>

#include "corvinel/export.h"
#include "corvinel/fmtreq.h"

CORVINEL_EXTERN_C_BEGIN

/* Kinds of value zdatrng checks. */
#define CORVINEL_GATE_DATE 1     /* date value, -138061 <= v < 6589336 */
#define CORVINEL_GATE_TIME 2     /* seconds, -11928470400 <= v < 569318630400 */
#define CORVINEL_GATE_DATETIME 3 /* the same range as CORVINEL_GATE_TIME */
/* Answers of zdatrng. */
#define CORVINEL_GATE_GO_ON 0
#define CORVINEL_GATE_OUT_OF_RANGE 1 /* field of "*", outlen = width */
#define CORVINEL_GATE_MISSING 2      /* missing value rendered */

/* The range and missing-value gate every classic date and time rendering
   calls first.  A missing value is rendered with decimals 0 (put back
   afterwards); a value out of the kind's range fills the field with "*"
   (never more than `capacity` bytes).  Any other kind makes no range
   test. */
CORVINEL_API int32_t zdatrng(fmtreq *request, int32_t kind);

/* Splits a date value into four-digit year, month and day: 1, or -1 when
   the date is missing or invalid (the places are then left as they were or
   hold missing values). */
CORVINEL_API int32_t zfmcymd(double *year, double *month, double *day, double date);

/* Writes the whole numbers a, b, c as a<sep>b<sep>c right-aligned in the
   `width` bytes at out (sep 0: no separator).  Each number takes 4 digits
   when above 99, else 2 with a leading zero; c is written only when
   width > 5 and b only when width > 3; the separators only at the widths
   the day-month-year layouts give them (5 and from 8 on before b, from 8
   on before c).  The text is cut to its last 10 characters; wider fields
   get blanks before it, and positions the text does not reach are blank. */
CORVINEL_API void zfmcprt(int32_t width, char sep, char *out, double a, double b, double c);

/* Day-month-year renderings: mm/dd/yy(yy), dd/mm/yy(yy), yy(yy)-mm-dd.
   A two-digit year below width 10.  Suffix: b blank, c ":", d "-",
   n none, p ".", s "/"; unsuffixed: "/" for zfmmdy and zfmdmy, "-" for
   zfmymd. */
CORVINEL_API int32_t zfmmdy(fmtreq *request);
CORVINEL_API int32_t zfmmdyb(fmtreq *request);
CORVINEL_API int32_t zfmmdyc(fmtreq *request);
CORVINEL_API int32_t zfmmdyd(fmtreq *request);
CORVINEL_API int32_t zfmmdyn(fmtreq *request);
CORVINEL_API int32_t zfmmdyp(fmtreq *request);
CORVINEL_API int32_t zfmdmy(fmtreq *request);
CORVINEL_API int32_t zfmdmyb(fmtreq *request);
CORVINEL_API int32_t zfmdmyc(fmtreq *request);
CORVINEL_API int32_t zfmdmyd(fmtreq *request);
CORVINEL_API int32_t zfmdmyn(fmtreq *request);
CORVINEL_API int32_t zfmdmyp(fmtreq *request);
CORVINEL_API int32_t zfmymd(fmtreq *request);
CORVINEL_API int32_t zfmymdb(fmtreq *request);
CORVINEL_API int32_t zfmymdc(fmtreq *request);
CORVINEL_API int32_t zfmymdn(fmtreq *request);
CORVINEL_API int32_t zfmymdp(fmtreq *request);
CORVINEL_API int32_t zfmymds(fmtreq *request);

/* The month-year, year-month, year-quarter (digit) and year-quarter (Roman
   numeral) workers; sep 0 means no separator. */
CORVINEL_API int32_t zfmdlmy(fmtreq *request, char sep); /* 03M2024 */
CORVINEL_API int32_t zfmdlym(fmtreq *request, char sep); /* 2024M03 */
CORVINEL_API int32_t zfmdlqy(fmtreq *request, char sep); /* 2024-1  */
CORVINEL_API int32_t zfmdlyq(fmtreq *request, char sep); /* 2024QIII */

/* Their members.  Suffix: c ":", d "-", n none, p ".", s "/";
   zfmmmy and zfmyym use "M", zfmyyqr uses "Q". */
CORVINEL_API int32_t zfmmmy(fmtreq *request);
CORVINEL_API int32_t zfmmmyc(fmtreq *request);
CORVINEL_API int32_t zfmmmyd(fmtreq *request);
CORVINEL_API int32_t zfmmmyn(fmtreq *request);
CORVINEL_API int32_t zfmmmyp(fmtreq *request);
CORVINEL_API int32_t zfmmmys(fmtreq *request);
CORVINEL_API int32_t zfmyym(fmtreq *request);
CORVINEL_API int32_t zfmyymc(fmtreq *request);
CORVINEL_API int32_t zfmyymd(fmtreq *request);
CORVINEL_API int32_t zfmyymn(fmtreq *request);
CORVINEL_API int32_t zfmyymp(fmtreq *request);
CORVINEL_API int32_t zfmyyms(fmtreq *request);
CORVINEL_API int32_t zfmyyqc(fmtreq *request);
CORVINEL_API int32_t zfmyyqd(fmtreq *request);
CORVINEL_API int32_t zfmyyqn(fmtreq *request);
CORVINEL_API int32_t zfmyyqp(fmtreq *request);
CORVINEL_API int32_t zfmyyqs(fmtreq *request);
CORVINEL_API int32_t zfmyyqr(fmtreq *request);
CORVINEL_API int32_t zfmyqrc(fmtreq *request);
CORVINEL_API int32_t zfmyqrd(fmtreq *request);
CORVINEL_API int32_t zfmyqrn(fmtreq *request);
CORVINEL_API int32_t zfmyqrp(fmtreq *request);
CORVINEL_API int32_t zfmyqrs(fmtreq *request);

/* Month abbreviation and year: MAR60 (width 5), " MAR60" (6), MAR1960 (7);
   wider fields right-align MAR1960, narrower ones show the first `width`
   characters of MAR60. */
CORVINEL_API int32_t zfmmony(fmtreq *request);
/* Day, month abbreviation and year: 15MAR (5), 15MAR60 (7), 15MAR1960 (9),
   15-MAR-1960 (11), with a leading blank at 6, 8 and 10; wider fields
   right-align 15-MAR-1960, narrower ones show the first `width`
   characters of 15MAR. */
CORVINEL_API int32_t zfmdate(fmtreq *request);

/* Hours, minutes and seconds of a seconds count, h:mm:ss.fff right-aligned
   with as many decimals as asked for and room allows (at most 31).  Hours
   are not reduced modulo 24 and not zero-padded. */
CORVINEL_API int32_t zfmtime(fmtreq *request);
/* Time of day of a time or datetime: hh:mm:ss.fff with a two-digit hour,
   never showing 24 (23:59:59.999 at the most). */
CORVINEL_API int32_t zfmtod(fmtreq *request);
/* Twelve-hour clock: "12:00:00 AM" .. "11:59:59 PM"; below width 5 only
   AM or PM, at the right. */
CORVINEL_API int32_t zfmtimm(fmtreq *request);
/* Datetime: 01JAN60:00:00:00 (width 16), a four-digit year from width 19
   on, the fraction digits after width - decimals reaches 16. */
CORVINEL_API int32_t zfmdttm(fmtreq *request);
/* The date of a datetime, rendered as zfmdate renders it.  A missing value
   is rendered with the request's decimals (not 0), by zfmmiss itself. */
CORVINEL_API int32_t zfmdtda(fmtreq *request);

CORVINEL_EXTERN_C_END

#endif

/* The compiled-in locale database and access to its items.

   ORBlocaleData holds 136 locale records of 189 text items each (item codes
   0..188). Texts are 7-bit ASCII; a character outside ASCII is written as
   "<Uxxxx>" or "<uxxxx>" (one UTF-16 code unit) and expanded only when a
   format's result is transcoded. */
#ifndef CORVINEL_LOCALE_DB_H
#define CORVINEL_LOCALE_DB_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

#define CORVINEL_LOCALE_RECORDS 136
#define CORVINEL_LOCALE_ITEMS 189
/* Size of an item buffer; every text of the database is shorter. */
#define CORVINEL_LOCALE_TEXT 160

/* One item: its length without terminator and its NUL-terminated text; an
   absent item has length 0 and a null text. */
struct locitem {
  int32_t length;
  const char *text;
};

/* Record r (0-based) item k is ORBlocaleData[r][k]. */
CORVINEL_API extern const struct locitem
    ORBlocaleData[CORVINEL_LOCALE_RECORDS][CORVINEL_LOCALE_ITEMS];

/* The conventions that go with a number, currency or percent pattern item
   (170, 171, 183..186), filled by wzssglc. Texts are NUL-terminated and
   still in the symbolic notation. */
struct patsyms {
  char symbol[CORVINEL_LOCALE_TEXT];    /* currency symbol or code, "%" or empty */
  char decimal[CORVINEL_LOCALE_TEXT];   /* decimal mark */
  char separator[CORVINEL_LOCALE_TEXT]; /* grouping separator */
  int32_t grouping;                     /* digits per group */
  char positive[CORVINEL_LOCALE_TEXT];  /* positive sign */
  char negative[CORVINEL_LOCALE_TEXT];  /* negative sign */
  int32_t fracdigits;                   /* fraction digits (items 170, 171) */
  int32_t p_cs_precedes;
  int32_t p_sep_by_space;
  int32_t p_sign_posn;
  int32_t n_cs_precedes;
  int32_t n_sep_by_space;
  int32_t n_sign_posn;
};

/* The caller's item buffer. */
struct locbuf {
  uint64_t reserved;                 /* the host's; never touched */
  int32_t length;                    /* length of the fetched text, -1 if none */
  char text[CORVINEL_LOCALE_TEXT];   /* the text, NUL-padded */
  struct patsyms *symbols;           /* filled for the pattern items */
};

/* Copies item `item` of the chosen locale into out (zero-filled first, all
   outcap bytes). locale 1..136 chooses that record; any other value the
   record named by the environment variable ORB_LOCALE ("en_US" when unset):
   the first record whose language code equals the value's first two
   characters and whose country code equals its fourth and fifth, ignoring
   case. Returns the text's length (0 for an absent item), or -1 when no
   record matches, the item code is outside 0..188, or the text is longer
   than outcap (nothing is truncated). */
CORVINEL_API int32_t getORBLocDB(char *out, int32_t outcap, int32_t item, int32_t locale);

/* Fetches an item into (*handle)->text and its length into
   (*handle)->length. For the pattern items 170, 171 and 183..186 it also
   fills (*handle)->symbols with the conventions of the pattern. Returns 0
   on success and 1 when the item could not be fetched (for a pattern item:
   when the last of its conventions could not be fetched). A null handle,
   or a pattern item without a symbol block, returns 1. */
CORVINEL_API int32_t wzssglc(int32_t locale, int32_t item, struct locbuf **handle);

CORVINEL_EXTERN_C_END

#include <stddef.h>
CORVINEL_LAYOUT_CHECK(sizeof(struct locitem) == 16);
CORVINEL_LAYOUT_CHECK(offsetof(struct locitem, text) == 8);
CORVINEL_LAYOUT_CHECK(offsetof(struct patsyms, decimal) == 160);
CORVINEL_LAYOUT_CHECK(offsetof(struct patsyms, grouping) == 480);
CORVINEL_LAYOUT_CHECK(offsetof(struct patsyms, positive) == 484);
CORVINEL_LAYOUT_CHECK(offsetof(struct patsyms, negative) == 644);
CORVINEL_LAYOUT_CHECK(offsetof(struct patsyms, fracdigits) == 804);
CORVINEL_LAYOUT_CHECK(offsetof(struct patsyms, n_sign_posn) == 828);
CORVINEL_LAYOUT_CHECK(sizeof(struct patsyms) == 832);
CORVINEL_LAYOUT_CHECK(offsetof(struct locbuf, length) == 8);
CORVINEL_LAYOUT_CHECK(offsetof(struct locbuf, text) == 12);
CORVINEL_LAYOUT_CHECK(offsetof(struct locbuf, symbols) == 176);
CORVINEL_LAYOUT_CHECK(sizeof(struct locbuf) == 184);

#endif

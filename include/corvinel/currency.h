/* Monetary conventions of the named currencies, and the two routines the
   80 currency-code formats hand their request to. */
#ifndef CORVINEL_CURRENCY_H
#define CORVINEL_CURRENCY_H

#include <stdint.h>

#include "corvinel/export.h"
#include "corvinel/fmtreq.h"

CORVINEL_EXTERN_C_BEGIN

/* One currency, in the field order of the monetary members of the C
   library's struct lconv.  Texts may carry <Uxxxx> escapes. */
struct monetary_conventions {
  const char *int_curr_symbol;
  const char *currency_symbol;
  const char *mon_decimal_point;
  const char *mon_thousands_sep;
  const char *mon_grouping;
  const char *positive_sign;
  const char *negative_sign;
  char int_frac_digits;
  char frac_digits;
  char p_cs_precedes;
  char p_sep_by_space;
  char n_cs_precedes;
  char n_sep_by_space;
  char p_sign_posn;
  char n_sign_posn;
};

#define CORVINEL_CURRENCY_RECORDS 82

/* Sorted by international code. */
CORVINEL_API extern const struct monetary_conventions
    lconv_monetary[CORVINEL_CURRENCY_RECORDS];

/* The layouts of sign, currency symbol and number, indexed by
   (cs_precedes + 2 * sep_by_space) * 5 + sign_posn: "V" the number, "$" the
   symbol, "-" the sign string, "(" and ")" brackets around a negative value,
   " " a blank.  The number, currency and percent formats walk them. */
#define CORVINEL_CURRENCY_LAYOUTS 20
CORVINEL_API extern const char *const CurrencyFormatPatterns[CORVINEL_CURRENCY_LAYOUTS];

/* An amount with the currency's international code (nlmnyint) or its local
   symbol (nlmnyloc), laid out by the request locale's monetary conventions. */
CORVINEL_API int32_t nlmnyint(fmtreq *request,
                              const struct monetary_conventions *currency);
CORVINEL_API int32_t nlmnyloc(fmtreq *request,
                              const struct monetary_conventions *currency);

CORVINEL_EXTERN_C_END

#include <stddef.h>
CORVINEL_LAYOUT_CHECK(offsetof(struct monetary_conventions, negative_sign) == 48);
CORVINEL_LAYOUT_CHECK(offsetof(struct monetary_conventions, int_frac_digits) == 56);
CORVINEL_LAYOUT_CHECK(offsetof(struct monetary_conventions, n_sign_posn) == 63);
CORVINEL_LAYOUT_CHECK(sizeof(struct monetary_conventions) == 64);

#endif

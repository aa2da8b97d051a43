// lconv_monetary: the generated currency table.

#include <algorithm>
#include <cstring>
#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "corvinel/currency.h"
#include "corvinel/locale_db.h"
#include "locale/currency_index.h"

namespace {

using corvinel::locale::currency_record;
using corvinel::locale::kCurrencyCodes;

// Sorted by code, in step with the code list the formats index, texts in the
// escape notation; every currency a record names is there (the currencies
// with formats are checked when the formats compile).
TEST(CurrencyTable, IsSortedWellFormedAndComplete) {
  for (int i = 0; i < CORVINEL_CURRENCY_RECORDS; ++i) {
    const monetary_conventions &c = lconv_monetary[i];
    SCOPED_TRACE(c.int_curr_symbol);
    EXPECT_EQ(kCurrencyCodes[i], c.int_curr_symbol);
    if (i > 0) { EXPECT_LT(std::strcmp(lconv_monetary[i - 1].int_curr_symbol, c.int_curr_symbol), 0); }
    EXPECT_STRNE(c.currency_symbol, "");
    for (const char *text : {c.currency_symbol, c.mon_decimal_point, c.mon_thousands_sep, c.positive_sign}) {
      for (const char *at = std::strchr(text, '<'); at != nullptr; at = std::strchr(at + 1, '<')) {
        EXPECT_TRUE(std::strlen(at) >= 7 && at[1] == 'U' && at[6] == '>') << text;
      }
      for (const char *at = text; *at != '\0'; ++at) EXPECT_TRUE(*at >= 0x20 && *at < 0x7F) << text;
    }
  }
  // Left out: two withdrawn currencies glibc still names (the Belarusian
  // rouble of before 2016, the Venezuelan bolivar fuerte).
  const std::set<std::string_view> withdrawn = {"BYR", "VEF"};
  for (int r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    const char *code = ORBlocaleData[r][155].text;
    if (code != nullptr && !withdrawn.contains(code)) { EXPECT_TRUE(std::ranges::binary_search(kCurrencyCodes, std::string_view(code))) << code; }
  }
}

TEST(CurrencyTable, DocumentedRecords) {
  const monetary_conventions &c = lconv_monetary[0];
  EXPECT_EQ(std::string(c.int_curr_symbol) + "|" + c.currency_symbol + "|" + c.mon_decimal_point + "|" +
                c.mon_thousands_sep + "|" + c.mon_grouping + "|" + c.positive_sign + "|" + c.negative_sign,
            "AED|<U062F>.<U0625>.|.|,|3| |-");
  EXPECT_EQ(std::string({c.int_frac_digits, c.frac_digits, c.p_cs_precedes, c.p_sep_by_space, c.n_cs_precedes,
                         c.n_sep_by_space, c.p_sign_posn, c.n_sign_posn}),
            std::string({3, 3, 1, 1, 1, 1, 1, 2}));
  EXPECT_STREQ(currency_record("AUD")->currency_symbol, "AU$");
  const monetary_conventions &bgn = *currency_record("BGN");
  EXPECT_EQ(std::string(bgn.currency_symbol) + bgn.mon_decimal_point + bgn.mon_thousands_sep, "<U043B><U0432>, ");
}

}  // namespace

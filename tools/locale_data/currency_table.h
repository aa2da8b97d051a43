// The currency table lconv_monetary: every currency of the locale records
// and of the currency-code formats, with the monetary conventions of its
// home locale.
#pragma once

#include <string>
#include <vector>

#include "glibc_locale.h"
#include "locale_record.h"

namespace corvinel::locale_data {

// The 40 currencies that have NLMNI/NLMNL formats.
extern const std::vector<std::string> kFormatCurrencies;

struct CurrencyRecord {
  std::string code;
  std::string home_record;  // the locale record whose conventions it carries
  std::string home_glibc;
  MonetaryFields fields;    // int_curr_symbol is the code
};

// A fixed value of the currency table that replaced a generated one.
struct CurrencyOverride {
  std::string code;
  std::string field;
  std::string generated;
  std::string fixed;
};

struct CurrencyTable {
  std::vector<CurrencyRecord> records;  // sorted by code
  std::vector<CurrencyOverride> overrides;
  std::vector<std::string> withdrawn;  // codes of records left out
};

CurrencyTable build_currency_table(const std::vector<LocaleRecord> &records, GlibcLocales &glibc);

}  // namespace corvinel::locale_data

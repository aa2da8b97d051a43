// Lookup in the format registry, for formats that read their own limits.
#pragma once

#include <string_view>

#include "corvinel/fmtinfo.h"

namespace corvinel::frame {

// The registry holds the general formats first, then the currency-code
// formats (NLMNI<ccy> for every currency, then NLMNL<ccy>).
inline constexpr int kGeneralFormatCount = 64;
inline constexpr int kCurrencyFormatCount = 40;

// The descriptor of the format called `name` (upper case, no padding), or
// nullptr (also for names in lower case or with blanks).  Binary search in
// each sorted run.
const fmtdesc *find_format(std::string_view name);

}  // namespace corvinel::frame

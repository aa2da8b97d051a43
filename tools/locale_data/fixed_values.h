// Values of the locale records that are fixed rather than generated: the
// conventions of the database itself (format names, fonts, message
// languages) and the values its users rely on for a few telling records.
// They are applied after everything generated from the sources.
#pragma once

#include <string>
#include <vector>

#include "locale_record.h"

namespace corvinel::locale_data {

// A fixed value that replaced a different generated one, for the report.
struct Override {
  std::string record;
  int item;
  ItemText generated;
  ItemText fixed;
};

// Applies every fixed value to the 136 records (in record order) and
// returns the ones that changed a generated value.
std::vector<Override> apply_fixed_values(std::vector<LocaleRecord> &records);

// The codes of the items whose values the record named `record` has fixed
// among the values its users rely on; the rules after the fixed values
// leave them alone.
std::vector<int> telling_items(const std::string &record);

}  // namespace corvinel::locale_data

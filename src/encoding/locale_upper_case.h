// Upper case by the rules of a locale's language, through the module's own
// case tables: the same characters whatever the process locale.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvinel::encoding {

enum class CaseRules {
  kPlain,   // the simple mapping of UPCASE
  kTurkic,  // Turkish, Azerbaijani: i -> İ, ı -> I
  kGreek,   // Greek: accents dropped in capitals, a dialytika kept or gained
};

// The rules of a language code ("tr", "az", "el", ...).
CaseRules case_rules_of(std::string_view language);

// Upper case of `n` UTF-16 units in place, one unit for one.
void upper_case_units(uint16_t *units, int32_t n, CaseRules rules);

}  // namespace corvinel::encoding

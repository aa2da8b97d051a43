// The host's classic renderings, reached by routine name ("zfmcma") or by
// the family name the host's users know ("COMMA").
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "value_literals.h"

namespace corvinel::cli {

struct ClassicRoutine {
  std::string symbol;        // routine name in the module
  int32_t default_width;
  int32_t default_decimals;
  bool best = false;         // BEST: zfmt with decimals 99 whatever was asked
  ValueKind kind = ValueKind::kNumber;  // what the routine reads its value as
};

// `name` in upper case (as parse_format gives it).  A family name maps to its
// routine; the name of a classic rendering's routine ("ZFMYMDS") to that
// routine.  Nothing for other names, and for routines that are not
// renderings (zfmcprt, the month-year worker zfmdlmy).
std::optional<ClassicRoutine> find_classic(std::string_view name);

}  // namespace corvinel::cli

#include <bit>
#include <cstdint>
#include <cstring>

#include "corvinel/missing.h"
#include "support/request_builder.h"

namespace corvinel::testing {

double missing(char mark) {
  const char *found = std::strchr(misscoll + 1, mark);
  const auto index = static_cast<int>(found - misscoll);
  const auto code = static_cast<uint8_t>(-index);
  return std::bit_cast<double>(0xFFFF000000000000ull | (uint64_t{code} << 40));
}

}  // namespace corvinel::testing

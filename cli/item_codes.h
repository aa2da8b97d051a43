// What each locale item code holds, for --items and --help.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvinel::cli {

struct ItemCodes {
  int32_t first, last;  // a code, or a run of codes
  std::string_view meaning;
};

// Every code from 0 to 188, in order.
extern const ItemCodes kItemCodes[];
extern const int32_t kItemCodeRows;

}  // namespace corvinel::cli

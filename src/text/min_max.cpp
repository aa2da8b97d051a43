// The exported C functions min and max.  They live alone here so that no
// translation unit sees them next to std::min / std::max.
#include "corvinel/text.h"

extern "C" int32_t min(int32_t a, int32_t b) { return a < b ? a : b; }

extern "C" int32_t max(int32_t a, int32_t b) { return a > b ? a : b; }

// The compiled-in locale and encoding name tables behind LocnameToID and
// EncnameToID (kept inside the module; see corvinel/names.h).
#pragma once

#include <array>
#include <cstdint>

#include "corvinel/names.h"

namespace corvinel::locale {

inline constexpr std::size_t kLocaleNameBuckets = 79;
inline constexpr std::size_t kLocaleNameEntries = 140;
inline constexpr std::size_t kEncodingNameBuckets = 122;
inline constexpr std::size_t kEncodingNameEntries = 438;

extern const std::array<locname_bucket, kLocaleNameBuckets> table;
extern const std::array<encname_bucket, kEncodingNameBuckets> etable;

}  // namespace corvinel::locale

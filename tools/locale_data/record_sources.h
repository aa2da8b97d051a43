// The 136 locale records in their fixed order, each with the sources its
// items are generated from.
#pragma once

#include <array>
#include <cstddef>

namespace corvinel::locale_data {

inline constexpr std::size_t kRecordCount = 136;
inline constexpr std::size_t kItemCount = 189;

struct RecordSource {
  const char *name;      // item 0: language and country joined by "_"
  const char *language;  // item 4
  const char *country;   // item 5
  const char *cldr;      // ICU locale of the names, date patterns and number patterns
  const char *region;    // region of the week, paper and currency data
  const char *glibc;     // glibc locale source of the monetary and numeric conventions
};

extern const std::array<RecordSource, kRecordCount> kRecordSources;

// 0-based position of a record by name; throws when there is none.
std::size_t record_index(const char *name);

}  // namespace corvinel::locale_data

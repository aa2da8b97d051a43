// Reading one environment variable on every format call, for less than
// getenv costs: the same first match in the same array, found by a scan
// that rejects an entry on its first byte.
#pragma once

#include <cstddef>

namespace corvinel::locale {

// The value of the variable whose name and "=" are `name_equals` (at most
// 31 bytes, e.g. "ORB_LOCALE="), or null when it is not set: exactly what
// getenv returns for the name, read from the same environment array with no
// more care for concurrent changes than getenv takes.
const char *environment_value(const char *name_equals, std::size_t length) noexcept;

// The values of two variables found in one walk: what environment_value
// gives for each.
struct EnvironmentPair {
  const char *first;
  const char *second;
};
EnvironmentPair environment_values(const char *first_name_equals, std::size_t first_length,
                                   const char *second_name_equals,
                                   std::size_t second_length) noexcept;

inline constexpr char kOrbLocaleName[] = "ORB_LOCALE=";
inline constexpr char kZoneName[] = "TZ=";

// ORB_LOCALE, the variable every format reads; TZ; and both in one walk,
// for the formats that show the zone offset.  The same entries as
// environment_value finds, by walks compiled for these names.
const char *orb_locale_value() noexcept;
const char *zone_value() noexcept;
EnvironmentPair orb_locale_and_zone_values() noexcept;

}  // namespace corvinel::locale

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

// ORB_LOCALE, the variable every format reads.
inline const char *orb_locale_value() noexcept {
  constexpr char kName[] = "ORB_LOCALE=";
  return environment_value(kName, sizeof kName - 1);
}

}  // namespace corvinel::locale

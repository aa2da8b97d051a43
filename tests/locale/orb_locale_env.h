// Test helpers around the locale database: ORB_LOCALE set for one scope,
// and items read back as text.
#pragma once

#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "corvinel/locale_db.h"

namespace corvinel::testing {

// Sets ORB_LOCALE (nullptr: unsets it) for one scope; unsets it at the end.
struct ScopedOrbLocale {
  explicit ScopedOrbLocale(const char *value) { (void)(value ? setenv("ORB_LOCALE", value, 1) : unsetenv("ORB_LOCALE")); }
  ~ScopedOrbLocale() { unsetenv("ORB_LOCALE"); }
  ScopedOrbLocale(const ScopedOrbLocale &) = delete;
  ScopedOrbLocale &operator=(const ScopedOrbLocale &) = delete;
};

// An item read with getORBLocDB: its text, "" for an absent item, nullopt when the fetch fails.
inline std::optional<std::string> locale_item(int32_t locale, int32_t item) {
  char buffer[CORVINEL_LOCALE_TEXT];
  const int32_t length = getORBLocDB(buffer, sizeof buffer, item, locale);
  return length < 0 ? std::nullopt : std::optional<std::string>(std::string(buffer, static_cast<std::size_t>(length)));
}

// The 1-based locale number of the record named `name`, 0 if none.
inline int32_t locale_number(const char *name) {
  for (int32_t r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    if (ORBlocaleData[r][0].text && std::strcmp(ORBlocaleData[r][0].text, name) == 0) return r + 1;
  }
  return 0;
}

}  // namespace corvinel::testing

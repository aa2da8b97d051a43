// Test helpers around the locale database: ORB_LOCALE set for one scope,
// and items read back as text.
#pragma once

#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "corvinel/locale_db.h"

namespace corvinel::testing {

// Sets (nullptr: unsets) ORB_LOCALE and puts the previous state back at the end of the scope.
class ScopedOrbLocale {
 public:
  explicit ScopedOrbLocale(const char *value) {
    if (const char *old = std::getenv("ORB_LOCALE")) saved_ = old;
    set(value);
  }
  ~ScopedOrbLocale() { set(saved_ ? saved_->c_str() : nullptr); }
  ScopedOrbLocale(const ScopedOrbLocale &) = delete;
  ScopedOrbLocale &operator=(const ScopedOrbLocale &) = delete;

 private:
  static void set(const char *value) { (void)(value ? setenv("ORB_LOCALE", value, 1) : unsetenv("ORB_LOCALE")); }
  std::optional<std::string> saved_;
};

// An item read with getORBLocDB: its text, "" for an absent item, nullopt when the fetch fails.
inline std::optional<std::string> locale_item(int32_t locale, int32_t item) {
  char buffer[CORVINEL_LOCALE_TEXT];
  const int32_t length = getORBLocDB(buffer, sizeof buffer, item, locale);
  if (length < 0) return std::nullopt;
  return std::string(buffer, static_cast<std::size_t>(length));
}

// The 1-based locale number of the record named `name`, 0 if none.
inline int32_t locale_number(const char *name) {
  for (int32_t r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    if (ORBlocaleData[r][0].text && std::strcmp(ORBlocaleData[r][0].text, name) == 0) return r + 1;
  }
  return 0;
}

}  // namespace corvinel::testing

// ORB_LOCALE for one scope, for the tests of the locale database and of the formats that read it.
#pragma once

#include <cstdlib>

namespace corvinel::testing {

// Sets ORB_LOCALE (nullptr: unsets it); unsets it at the end of the scope, so that locale 0 means en_US again.
struct ScopedOrbLocale {
  explicit ScopedOrbLocale(const char *value) { (void)(value ? setenv("ORB_LOCALE", value, 1) : unsetenv("ORB_LOCALE")); }
  ~ScopedOrbLocale() { unsetenv("ORB_LOCALE"); }
  ScopedOrbLocale(const ScopedOrbLocale &) = delete;
  ScopedOrbLocale &operator=(const ScopedOrbLocale &) = delete;
};

}  // namespace corvinel::testing

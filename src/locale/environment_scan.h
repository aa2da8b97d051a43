// The walk over the environment array for one variable, in line: the
// formats' own lookups compile it for their constant names.
#pragma once

#include <unistd.h>

#include <cstddef>

namespace corvinel::locale {

// The rest of the entry after its first byte against the name: byte by
// byte, stopping at the first difference, so never past the entry's NUL
// (no byte of a name is NUL).  Inlined with a constant name, the loop
// unrolls into one compare with an immediate per byte.
[[gnu::always_inline]] inline bool rest_matches(const char *entry, const char *name_equals,
                                                std::size_t length) noexcept {
#pragma GCC unroll 16
  for (std::size_t i = 1; i < length; ++i) {
    if (entry[i] != name_equals[i]) return false;
  }
  return true;
}

// getenv walks the environment comparing the first two bytes of each entry
// as one 16-bit unit before it calls strncmp.  Most entries differ from the
// name in their first byte, so this walk tests that byte alone, eight
// entries to a round, and compares the rest only when it matches: the same
// entry in about two thirds of the instructions.
[[gnu::always_inline]] inline const char *scan_for(const char *name_equals,
                                                   std::size_t length) noexcept {
  char **entries = environ;
  if (entries == nullptr || length == 0) return nullptr;
  const char first = name_equals[0];
  for (;; entries += 8) {
#pragma GCC unroll 8
    for (int k = 0; k < 8; ++k) {
      const char *entry = entries[k];
      if (entry == nullptr) return nullptr;
      if (entry[0] == first && rest_matches(entry, name_equals, length)) return entry + length;
    }
  }
}

}  // namespace corvinel::locale

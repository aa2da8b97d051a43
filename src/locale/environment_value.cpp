#include "locale/environment_value.h"

#include <unistd.h>

namespace corvinel::locale {

namespace {

// The rest of the entry after its first byte against the name: byte by
// byte, stopping at the first difference, so never past the entry's NUL.
bool rest_matches(const char *entry, const char *name_equals, std::size_t length) noexcept {
  std::size_t i = 1;
  while (i < length && entry[i] == name_equals[i]) ++i;
  return i == length;
}

}  // namespace

// getenv walks the environment comparing the first two bytes of each entry
// as one 16-bit unit before it calls strncmp.  Most entries differ from the
// name in their first byte, so this walk tests that byte alone, four
// entries to a round, and compares the rest only when it matches: the same
// entry in about two thirds of the instructions.
const char *environment_value(const char *name_equals, std::size_t length) noexcept {
  char **entries = environ;
  if (entries == nullptr || length == 0) return nullptr;
  const char first = name_equals[0];
  for (;; entries += 4) {
#pragma GCC unroll 4
    for (int k = 0; k < 4; ++k) {
      const char *entry = entries[k];
      if (entry == nullptr) return nullptr;
      if (entry[0] == first && rest_matches(entry, name_equals, length)) return entry + length;
    }
  }
}

EnvironmentPair environment_values(const char *first_name_equals, std::size_t first_length,
                                   const char *second_name_equals,
                                   std::size_t second_length) noexcept {
  char **entries = environ;
  if (entries == nullptr || first_length == 0 || second_length == 0) {
    return {environment_value(first_name_equals, first_length),
            environment_value(second_name_equals, second_length)};
  }
  // The same walk for two names: an entry that begins like either is
  // compared in full; the first match of each name is kept.
  EnvironmentPair found{nullptr, nullptr};
  const char first = first_name_equals[0], second = second_name_equals[0];
  const auto look_at = [&](const char *entry) {
    if (entry[0] != first && entry[0] != second) return;
    if (found.first == nullptr && entry[0] == first &&
        rest_matches(entry, first_name_equals, first_length)) {
      found.first = entry + first_length;
    } else if (found.second == nullptr && entry[0] == second &&
               rest_matches(entry, second_name_equals, second_length)) {
      found.second = entry + second_length;
    }
  };
  for (;; entries += 4) {
#pragma GCC unroll 4
    for (int k = 0; k < 4; ++k) {
      if (entries[k] == nullptr) return found;
      look_at(entries[k]);
    }
  }
}

}  // namespace corvinel::locale

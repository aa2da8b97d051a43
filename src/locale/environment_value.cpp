#include "locale/environment_value.h"

#include "locale/environment_scan.h"

namespace corvinel::locale {

namespace {

// The same walk for two names: an entry that begins like either is compared
// in full; the first match of each name is kept.
[[gnu::always_inline]] inline EnvironmentPair scan_for_both(const char *first_name_equals,
                                                            std::size_t first_length,
                                                            const char *second_name_equals,
                                                            std::size_t second_length) noexcept {
  char **entries = environ;
  if (entries == nullptr || first_length == 0 || second_length == 0) {
    return {scan_for(first_name_equals, first_length),
            scan_for(second_name_equals, second_length)};
  }
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
  for (;; entries += 8) {
#pragma GCC unroll 8
    for (int k = 0; k < 8; ++k) {
      if (entries[k] == nullptr) return found;
      look_at(entries[k]);
    }
  }
}

}  // namespace

const char *environment_value(const char *name_equals, std::size_t length) noexcept {
  return scan_for(name_equals, length);
}

EnvironmentPair environment_values(const char *first_name_equals, std::size_t first_length,
                                   const char *second_name_equals,
                                   std::size_t second_length) noexcept {
  return scan_for_both(first_name_equals, first_length, second_name_equals, second_length);
}

// The variables the formats read, each walk compiled for its constant name.
const char *orb_locale_value() noexcept {
  return scan_for(kOrbLocaleName, sizeof kOrbLocaleName - 1);
}

const char *zone_value() noexcept { return scan_for(kZoneName, sizeof kZoneName - 1); }

EnvironmentPair orb_locale_and_zone_values() noexcept {
  return scan_for_both(kOrbLocaleName, sizeof kOrbLocaleName - 1, kZoneName,
                       sizeof kZoneName - 1);
}

}  // namespace corvinel::locale

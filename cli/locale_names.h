// The module's compiled-in locales as the tool names them ("de_DE"), read
// through the module's own item routine, and the checks on --locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "module.h"

namespace corvinel::cli {

inline constexpr int32_t kLocaleRecords = 136;

class LocaleNames {
 public:
  explicit LocaleNames(const Module &module);

  // "de_DE" for record `number` (1-based).
  const std::string &code(int32_t number) const { return records_[number - 1].code; }

  // The record ORB_LOCALE = `name` selects, matched as the module matches
  // it: the first two characters against the language code, the fourth and
  // fifth against the country code, ignoring case; the rest is not looked at.
  std::optional<int32_t> find(std::string_view name) const;

  // Up to six codes close to `name`: same language or country code, a
  // language or country named in words ("German"), or few edits away.
  std::vector<std::string> nearest(std::string_view name) const;

  // Throws UsageError, with suggestions, unless `name` selects a record.
  void require(std::string_view name) const;

 private:
  struct Record {
    std::string code, language, country, language_name, country_name;
  };
  std::vector<Record> records_;
};

}  // namespace corvinel::cli

// Reader of the glibc locale definition files (the sources that Debian's
// "locales" package installs under /usr/share/i18n/locales).
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvinel::locale_data {

// The keywords of one category (LC_MONETARY, LC_NUMERIC, LC_TIME, ...):
// each keyword's operands in order, strings decoded to UTF-16 (both the
// <Uxxxx> symbols and raw UTF-8 are accepted), numbers kept as their text.
using GlibcCategory = std::map<std::string, std::vector<std::u16string>>;

// Parses one locale definition file's text and returns its categories by
// name. A category that holds a "copy" directive keeps it as the keyword
// "copy" (operand: the source locale); GlibcLocales resolves it.
std::map<std::string, GlibcCategory> parse_glibc_locale(std::string_view text);

// glibc's grouping operands ("3;3", "3;2", "-1", "0;0") in the records'
// coding: the group sizes from the decimal point outwards, the last one
// repeating, so a repeated size is written once ("3", "3;2"); "0" for no
// grouping.
std::string grouping_text(const std::vector<std::u16string> &operands);

// The locale sources of one directory, read on first use.
class GlibcLocales {
 public:
  explicit GlibcLocales(std::string directory) : directory_(std::move(directory)) {}

  // The category of `locale` with "copy" directives followed (keywords
  // given beside a copy override the copied ones). Throws when the file or
  // the category is missing.
  GlibcCategory category(const std::string &locale, const std::string &name);

  // One operand of a keyword ("" when absent): `index` counts operands.
  std::u16string text(const std::string &locale, const std::string &category,
                      const std::string &keyword, std::size_t index = 0);

  // The path of a locale's file, for the generated files' headers.
  std::string path(const std::string &locale) const { return directory_ + "/" + locale; }

 private:
  const std::map<std::string, GlibcCategory> &file(const std::string &locale);

  std::string directory_;
  std::map<std::string, std::map<std::string, GlibcCategory>> files_;
};

}  // namespace corvinel::locale_data

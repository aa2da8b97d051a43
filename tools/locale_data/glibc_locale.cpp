#include "glibc_locale.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "unicode_text.h"

namespace corvinel::locale_data {
namespace {

bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

// Reads one operand starting at text[pos]: a quoted string, or a bare token
// (a number, or symbols such as <U0020> outside quotes). Advances pos.
std::u16string read_operand(std::string_view line, std::size_t &pos, char escape_char) {
  std::string utf8;
  std::u16string out;
  const auto flush = [&] {
    out += utf8_to_utf16(utf8);
    utf8.clear();
  };
  const bool quoted = line[pos] == '"';
  if (quoted) ++pos;
  while (pos < line.size()) {
    const char c = line[pos];
    if (quoted && c == '"') {
      ++pos;
      break;
    }
    if (!quoted && (c == ';' || is_blank(c))) break;
    if (c == escape_char && pos + 1 < line.size()) {
      utf8.push_back(line[pos + 1]);
      pos += 2;
      continue;
    }
    if (c == '<' && pos + 2 < line.size() && line[pos + 1] == 'U') {
      const std::size_t close = line.find('>', pos);
      if (close != std::string_view::npos) {
        const std::string digits(line.substr(pos + 2, close - pos - 2));
        if (!digits.empty() && digits.size() <= 8 &&
            digits.find_first_not_of("0123456789ABCDEFabcdef") == std::string::npos) {
          flush();
          append_code_point(out, static_cast<char32_t>(std::stoul(digits, nullptr, 16)));
          pos = close + 1;
          continue;
        }
      }
    }
    utf8.push_back(c);
    ++pos;
  }
  flush();
  return out;
}

}  // namespace

std::map<std::string, GlibcCategory> parse_glibc_locale(std::string_view text) {
  char comment_char = '#';
  char escape_char = '\\';
  std::map<std::string, GlibcCategory> categories;
  std::string current;  // name of the open category, empty outside one
  std::string logical;  // a line with its continuation lines joined

  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string_view physical = text.substr(start, end - start);
    start = end + 1;
    while (!physical.empty() && is_blank(physical.back())) physical.remove_suffix(1);

    // Header lines that name the comment and escape characters.
    if (logical.empty() && (physical.starts_with("comment_char") || physical.starts_with("escape_char"))) {
      std::size_t p = physical.find_first_of(" \t");
      while (p < physical.size() && is_blank(physical[p])) ++p;
      if (p < physical.size()) {
        (physical.starts_with("comment_char") ? comment_char : escape_char) = physical[p];
      }
      continue;
    }
    std::size_t first = 0;
    while (first < physical.size() && is_blank(physical[first])) ++first;
    if (logical.empty() && first < physical.size() && physical[first] == comment_char) continue;

    if (!physical.empty() && physical.back() == escape_char) {
      logical.append(physical.substr(0, physical.size() - 1));
      continue;
    }
    logical.append(physical);
    const std::string line = std::move(logical);
    logical.clear();

    std::size_t pos = 0;
    while (pos < line.size() && is_blank(line[pos])) ++pos;
    if (pos == line.size()) continue;
    std::size_t keyword_end = pos;
    while (keyword_end < line.size() && !is_blank(line[keyword_end])) ++keyword_end;
    const std::string keyword = line.substr(pos, keyword_end - pos);

    if (current.empty()) {
      if (keyword.starts_with("LC_")) current = keyword;
      continue;
    }
    if (keyword == "END") {
      current.clear();
      continue;
    }
    std::vector<std::u16string> operands;
    pos = keyword_end;
    while (pos < line.size()) {
      while (pos < line.size() && (is_blank(line[pos]) || line[pos] == ';')) ++pos;
      if (pos == line.size() || line[pos] == comment_char) break;
      operands.push_back(read_operand(line, pos, escape_char));
    }
    categories[current][keyword] = std::move(operands);
  }
  return categories;
}

std::string grouping_text(const std::vector<std::u16string> &operands) {
  std::vector<int> sizes;
  for (const auto &operand : operands) sizes.push_back(std::stoi(utf16_to_utf8(operand)));
  if (sizes.empty() || sizes.front() <= 0) return "0";
  while (sizes.size() > 1 && sizes.back() == sizes[sizes.size() - 2]) sizes.pop_back();
  std::string text;
  for (const int size : sizes) {
    if (size <= 0) break;
    if (!text.empty()) text += ";";
    text += std::to_string(size);
  }
  return text;
}

const std::map<std::string, GlibcCategory> &GlibcLocales::file(const std::string &locale) {
  auto found = files_.find(locale);
  if (found != files_.end()) return found->second;
  std::ifstream in(path(locale), std::ios::binary);
  if (!in) throw std::runtime_error("cannot read locale source " + path(locale));
  std::ostringstream content;
  content << in.rdbuf();
  return files_.emplace(locale, parse_glibc_locale(content.str())).first->second;
}

GlibcCategory GlibcLocales::category(const std::string &locale, const std::string &name) {
  const auto &categories = file(locale);
  const auto found = categories.find(name);
  if (found == categories.end()) {
    throw std::runtime_error("locale source " + locale + " has no " + name);
  }
  GlibcCategory own = found->second;
  const auto copy = own.find("copy");
  if (copy == own.end() || copy->second.empty()) return own;
  GlibcCategory merged = category(utf16_to_utf8(copy->second.front()), name);
  own.erase("copy");
  for (auto &[keyword, operands] : own) merged[keyword] = std::move(operands);
  return merged;
}

std::u16string GlibcLocales::text(const std::string &locale, const std::string &category_name,
                                  const std::string &keyword, std::size_t index) {
  const GlibcCategory values = category(locale, category_name);
  const auto found = values.find(keyword);
  if (found == values.end() || index >= found->second.size()) return {};
  return found->second[index];
}

}  // namespace corvinel::locale_data

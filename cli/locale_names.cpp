#include "locale_names.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "arguments.h"

namespace corvinel::cli {
namespace {

using GetItemFunction = int32_t (*)(char *out, int32_t outcap, int32_t item, int32_t locale);

constexpr int32_t kLanguageName = 1;
constexpr int32_t kCountryName = 3;
constexpr int32_t kLanguageCode = 4;
constexpr int32_t kCountryCode = 5;
constexpr std::size_t kMostSuggestions = 6;

std::string lower(std::string_view text) {
  std::string out(text);
  for (char &c : out) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return out;
}

// Edits (insertions, deletions, substitutions) from a to b, ignoring case.
std::size_t edit_distance(std::string_view a, std::string_view b) {
  const std::string x = lower(a), y = lower(b);
  std::vector<std::size_t> row(y.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= x.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= y.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (x[i - 1] == y[j - 1] ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[y.size()];
}

}  // namespace

LocaleNames::LocaleNames(const Module &module) {
  const auto get_item = module.require<GetItemFunction>("getORBLocDB", "locale item routine");
  const auto item = [&](int32_t code, int32_t number) {
    std::array<char, 160> text{};
    const int32_t length = get_item(text.data(), static_cast<int32_t>(text.size()), code, number);
    return length > 0 ? std::string(text.data(), static_cast<std::size_t>(length)) : std::string();
  };
  for (int32_t number = 1; number <= kLocaleRecords; ++number) {
    Record r;
    r.language = item(kLanguageCode, number);
    r.country = item(kCountryCode, number);
    r.code = r.language + "_" + r.country;
    r.language_name = item(kLanguageName, number);
    r.country_name = item(kCountryName, number);
    records_.push_back(std::move(r));
  }
}

std::optional<int32_t> LocaleNames::find(std::string_view name) const {
  if (name.size() < 5) return std::nullopt;
  const std::string language = lower(name.substr(0, 2)), country = lower(name.substr(3, 2));
  for (std::size_t i = 0; i < records_.size(); ++i) {
    if (lower(records_[i].language) == language && lower(records_[i].country) == country) {
      return static_cast<int32_t>(i + 1);
    }
  }
  return std::nullopt;
}

std::vector<std::string> LocaleNames::nearest(std::string_view name) const {
  const std::string wanted = lower(name);
  std::vector<std::pair<std::size_t, std::string>> ranked;  // (rank, code)
  for (const Record &r : records_) {
    std::size_t rank = edit_distance(name.substr(0, std::min<std::size_t>(name.size(), 5)), r.code) + 2;
    if (wanted == lower(r.language_name) || wanted == lower(r.country_name)) rank = 0;
    if (wanted.size() >= 2 && wanted.substr(0, 2) == lower(r.language)) rank = std::min<std::size_t>(rank, 1);
    if (wanted.size() == 2 && wanted == lower(r.country)) rank = std::min<std::size_t>(rank, 1);
    if (rank <= 3) ranked.emplace_back(rank, r.code);
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto &a, const auto &b) { return a.first < b.first; });
  std::vector<std::string> codes;
  for (const auto &[rank, code] : ranked) {
    if (codes.size() == kMostSuggestions) break;
    codes.push_back(code);
  }
  return codes;
}

void LocaleNames::require(std::string_view name) const {
  if (find(name)) return;
  std::string message = "unknown locale \"" + shown_argument(name) + "\"";
  const std::vector<std::string> codes = nearest(name);
  if (!codes.empty()) {
    message += "; nearest:";
    for (const std::string &code : codes) message += " " + code;
  }
  throw UsageError(message);
}

}  // namespace corvinel::cli

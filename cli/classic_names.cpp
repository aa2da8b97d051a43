#include "classic_names.h"

#include <array>

namespace corvinel::cli {
namespace {

constexpr int32_t kRoutineDefaultWidth = 8;

struct Family {
  std::string_view name;
  std::string_view symbol;
  int32_t width;
  int32_t decimals;
  ValueKind kind = ValueKind::kNumber;
};

constexpr auto kDate = ValueKind::kDate;
constexpr auto kDatetime = ValueKind::kDatetime;
constexpr auto kTime = ValueKind::kTime;

constexpr Family kFamilies[] = {
    {"COMMA", "zfmcma", 6, 0},       {"DOLLAR", "zfmdlr", 6, 0},
    {"PERCENT", "zfmpct", 6, 0},     {"PVALUE", "zfmpval", 6, 4},
    {"D", "zfmd", 12, 0},
    {"DATE", "zfmdate", 7, 0, kDate},         {"TIME", "zfmtime", 8, 0, kTime},
    {"TOD", "zfmtod", 8, 0, kTime},           {"TIMEAMPM", "zfmtimm", 11, 0, kTime},
    {"DATETIME", "zfmdttm", 16, 0, kDatetime}, {"DTDATE", "zfmdtda", 7, 0, kDatetime},
    {"MONYY", "zfmmony", 5, 0, kDate},
};

// Families whose members differ by a separator letter after the name.  Each
// lists the letters it knows and the routine suffix of each; an empty
// suffix is the unsuffixed routine.  All of them render dates.
struct SeparatorFamily {
  std::string_view name;
  std::string_view unsuffixed;  // routine for the bare family name, if any
  std::string_view stem;        // routine stem the suffix is appended to
  std::string_view letters;     // separator letters accepted after the name
  std::array<std::string_view, 7> suffixes;
  int32_t width;
};

// The host's day-first and month-first families write "/" unsuffixed and the
// year-first family "-": S and D respectively name the unsuffixed routine.
constexpr SeparatorFamily kSeparatorFamilies[] = {
    {"MMDDYY", "zfmmdy", "zfmmdy", "BCDNPS", {"b", "c", "d", "n", "p", ""}, 8},
    {"DDMMYY", "zfmdmy", "zfmdmy", "BCDNPS", {"b", "c", "d", "n", "p", ""}, 8},
    {"YYMMDD", "zfmymd", "zfmymd", "BCDNPS", {"b", "c", "", "n", "p", "s"}, 8},
    {"MMYY", "zfmmmy", "zfmmmy", "CDNPS", {"c", "d", "n", "p", "s"}, 7},
    {"YYMM", "zfmyym", "zfmyym", "CDNPS", {"c", "d", "n", "p", "s"}, 7},
    {"YYQ", "", "zfmyyq", "CDNPS", {"c", "d", "n", "p", "s"}, 6},
    {"YYQR", "zfmyyqr", "zfmyqr", "CDNPS", {"c", "d", "n", "p", "s"}, 8},
};

std::string lower(std::string_view name) {
  std::string out(name);
  for (char &c : out) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return out;
}

std::optional<ClassicRoutine> find_separator_member(std::string_view name) {
  for (const SeparatorFamily &family : kSeparatorFamilies) {
    if (name == family.name) {
      if (family.unsuffixed.empty()) return std::nullopt;  // YYQ needs its letter
      return ClassicRoutine{std::string(family.unsuffixed), family.width, 0, false, kDate};
    }
    if (name.size() != family.name.size() + 1 || !name.starts_with(family.name)) continue;
    const std::size_t letter = family.letters.find(name.back());
    if (letter == std::string_view::npos) continue;
    const std::string_view suffix = family.suffixes[letter];
    std::string symbol(suffix.empty() ? family.unsuffixed : family.stem);
    symbol += suffix;
    return ClassicRoutine{symbol, family.width, 0, false, kDate};
  }
  return std::nullopt;
}

// The kind of value `symbol` reads when it is one of the classic renderings
// a family name reaches (w.d is zfmt); nothing for other routines of the
// module, which take other arguments and must not be called with a request.
std::optional<ValueKind> rendering_kind(std::string_view symbol) {
  if (symbol == "zfmt") return ValueKind::kNumber;
  for (const Family &family : kFamilies) {
    if (symbol == family.symbol) return family.kind;
  }
  for (const SeparatorFamily &family : kSeparatorFamilies) {
    if (!family.unsuffixed.empty() && symbol == family.unsuffixed) return kDate;
    for (const std::string_view suffix : family.suffixes) {
      if (!suffix.empty() && symbol.size() == family.stem.size() + suffix.size() &&
          symbol.starts_with(family.stem) && symbol.ends_with(suffix)) {
        return kDate;
      }
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<ClassicRoutine> find_classic(std::string_view name) {
  if (name == "BEST") return ClassicRoutine{"zfmt", 12, 99, true};
  for (const Family &family : kFamilies) {
    if (name == family.name) {
      return ClassicRoutine{std::string(family.symbol), family.width, family.decimals, false,
                            family.kind};
    }
  }
  if (auto member = find_separator_member(name)) return member;
  const std::string symbol = lower(name);
  if (const auto kind = rendering_kind(symbol)) {
    return ClassicRoutine{symbol, kRoutineDefaultWidth, 0, false, *kind};
  }
  return std::nullopt;
}

}  // namespace corvinel::cli

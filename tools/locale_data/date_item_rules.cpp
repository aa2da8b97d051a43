#include "date_item_rules.h"

#include <algorithm>
#include <cctype>

#include "short_items.h"

namespace corvinel::locale_data {
namespace {

constexpr int kFirstDateItem = 28;
constexpr int kLastDateItem = 41;  // 42 and 43 are the week patterns
constexpr int kLastYearItem = 43;
constexpr int kLastPatternItem = 58;
constexpr int kTwelveHourTime = 52;
constexpr int kTwentyFourHourTime = 53;
constexpr int kTimeOfClock = 55;

// A directive of an item: "%", flags ("#", "0", "+", "?"), one letter.
struct Directive {
  std::size_t start;   // of the "%"
  std::size_t letter;  // position of the letter
};

std::vector<Directive> directives_of(const std::string &pattern) {
  std::vector<Directive> found;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '%') continue;
    std::size_t j = i + 1;
    while (j < pattern.size() && std::string_view("#0+?").find(pattern[j]) != std::string_view::npos) ++j;
    if (j >= pattern.size()) break;
    found.push_back({i, j});
    i = j;
  }
  return found;
}

bool has_flag(const std::string &pattern, const Directive &d, char flag) {
  return pattern.find(flag, d.start + 1) < d.letter;
}

// The characters of an escaped text, one entry per unit: "<Uxxxx>" (either
// case of the u) or one byte; escapes compare by their code.
std::vector<std::string> units_of(const std::string &text) {
  std::vector<std::string> units;
  for (std::size_t i = 0; i < text.size();) {
    if (i + 7 <= text.size() && text[i] == '<' && (text[i + 1] == 'U' || text[i + 1] == 'u') &&
        text[i + 6] == '>') {
      std::string code = text.substr(i + 2, 4);
      for (char &c : code) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      units.push_back("<U" + code + ">");
      i += 7;
    } else {
      units.push_back(text.substr(i, 1));
      ++i;
    }
  }
  return units;
}

// The units every name of a set starts (or ends) with.
std::vector<std::string> common_units(const std::vector<std::vector<std::string>> &names,
                                      bool from_end) {
  std::vector<std::string> common;
  if (names.empty()) return common;
  for (std::size_t k = 0;; ++k) {
    std::string unit;
    for (const auto &name : names) {
      if (k >= name.size()) return common;
      const std::string &u = from_end ? name[name.size() - 1 - k] : name[k];
      if (&name == &names.front()) {
        unit = u;
      } else if (u != unit) {
        return common;
      }
    }
    common.push_back(unit);
  }
}

// The record's quarter names that a quarter directive shows.
std::vector<std::vector<std::string>> quarter_names(const LocaleRecord &record, bool wide,
                                                    bool alternate) {
  const int base = wide ? (alternate ? 147 : 139) : (alternate ? 143 : 135);
  std::vector<std::vector<std::string>> names;
  for (int i = base; i < base + 4; ++i) {
    if (!record[i]) return {};
    names.push_back(units_of(*record[i]));
  }
  return names;
}

// The quarter pattern without the words that stand both in it and in every
// quarter name beside the directive ("%q<U5B63><U5EA6>" with names
// "1<U5B63><U5EA6>": the words once).
std::string without_repeated_quarter_words(const LocaleRecord &record, const std::string &pattern) {
  std::string out = pattern;
  const std::vector<Directive> found = directives_of(pattern);
  for (auto it = found.rbegin(); it != found.rend(); ++it) {
    const char letter = pattern[it->letter];
    if (letter != 'q' && letter != 'Q') continue;
    const auto names = quarter_names(record, letter == 'Q', has_flag(pattern, *it, '#'));
    // After the directive: the longest ending of the names' common ending
    // that the pattern repeats.
    const std::vector<std::string> suffix = common_units(names, true);  // reversed
    const std::vector<std::string> after = units_of(out.substr(it->letter + 1));
    std::size_t drop_after = 0;
    for (std::size_t len = suffix.size(); len > 0 && drop_after == 0; --len) {
      if (after.size() < len) continue;
      bool same = true;
      for (std::size_t k = 0; k < len && same; ++k) same = after[k] == suffix[len - 1 - k];
      if (same) drop_after = len;
    }
    std::size_t bytes_after = 0;
    for (std::size_t k = 0; k < drop_after; ++k) bytes_after += after[k].size();
    out.erase(it->letter + 1, bytes_after);
    // Before it: the longest beginning of the names' common beginning.
    const std::vector<std::string> prefix = common_units(names, false);
    const std::vector<std::string> before = units_of(out.substr(0, it->start));
    std::size_t drop_before = 0;
    for (std::size_t len = prefix.size(); len > 0 && drop_before == 0; --len) {
      if (before.size() < len) continue;
      bool same = true;
      for (std::size_t k = 0; k < len && same; ++k) same = before[before.size() - len + k] == prefix[k];
      if (same) drop_before = len;
    }
    std::size_t bytes_before = 0;
    for (std::size_t k = 0; k < drop_before; ++k) bytes_before += before[before.size() - 1 - k].size();
    out.erase(it->start - bytes_before, bytes_before);
  }
  return out;
}

bool blank_padded(char letter) { return letter == 'e' || letter == 'E' || letter == 'o' || letter == 'O'; }

// The blank-padded day and month ("%e", "%o") as the unpadded "%#d" and
// "%#m": a datetime joined from a date item that the database fixes with
// "%e" writes "5 March", not "5  March" with two blanks.
std::string without_blank_padding(const std::string &pattern) {
  std::string out = pattern;
  const std::vector<Directive> found = directives_of(pattern);
  for (auto it = found.rbegin(); it != found.rend(); ++it) {
    const char letter = pattern[it->letter];
    if (!blank_padded(letter)) continue;
    out[it->letter] = letter == 'e' || letter == 'E' ? 'd' : 'm';
    if (!has_flag(pattern, *it, '#')) out.insert(it->start + 1, "#");
  }
  return out;
}

bool pads_with_blank(const std::string &pattern) {
  for (const Directive &d : directives_of(pattern)) {
    if (blank_padded(pattern[d.letter])) return true;
  }
  return false;
}

bool year_without_era(const std::string &pattern) {
  for (const Directive &d : directives_of(pattern)) {
    const char letter = pattern[d.letter];
    if ((letter == 'Y' || letter == 'y') && !has_flag(pattern, d, '+')) return true;
  }
  return false;
}

// "2008-W33": a year, "-W" and a week directive; ISO numbering is "%G"/"%g"
// with "%V".
bool iso_style_week_misnumbered(const std::string &pattern) {
  if (pattern.find("-W%") == std::string::npos) return false;
  for (const Directive &d : directives_of(pattern)) {
    if (std::string_view("YyUW").find(pattern[d.letter]) != std::string_view::npos) return true;
  }
  return false;
}

// The escape letter of a whole item: "<u" for the long composite items.
std::string with_escape_letter(std::string text, char letter) {
  for (std::size_t i = 0; i + 6 < text.size(); ++i) {
    if (text[i] == '<' && (text[i + 1] == 'U' || text[i + 1] == 'u') && text[i + 6] == '>') text[i + 1] = letter;
  }
  return text;
}

// The bytes of `pattern` before `end` that spell the era marker and a
// blank, in either case of the escape letter; 0 when they do not.
std::size_t marker_before(const std::string &pattern, std::size_t end, const std::string &marker) {
  if (marker.empty()) return 0;
  const std::vector<std::string> before = units_of(pattern.substr(0, end));
  const std::vector<std::string> wanted = units_of(marker + " ");
  if (before.size() < wanted.size() || !std::equal(wanted.begin(), wanted.end(), before.end() - wanted.size())) {
    return 0;
  }
  std::size_t bytes = 0;
  for (auto it = before.end() - wanted.size(); it != before.end(); ++it) bytes += it->size() == 1 ? 1 : 7;
  return bytes;
}

bool four_digit_year(const std::string &pattern, const Directive &d) { return pattern[d.letter] == 'Y'; }

// "%Y" and "%y" with the era flag, and the era's marker before a
// four-digit year as CLDR's Thai Buddhist patterns with an era place it
// ("d MMMM G y", "MMM G y", "EEE d MMM G y": "G y").  A two-digit year
// ("d/M/yy") stays as CLDR writes it.  `letter`: the escape letter of
// the item.
std::string with_era_years(const std::string &pattern, const std::string &marker, char letter) {
  std::string out = pattern;
  const std::vector<Directive> found = directives_of(pattern);
  for (auto it = found.rbegin(); it != found.rend(); ++it) {
    const char year = pattern[it->letter];
    if (year != 'Y' && year != 'y') continue;
    if (!has_flag(pattern, *it, '+')) out.insert(it->letter, "+");
    if (four_digit_year(pattern, *it) && !marker.empty() && marker_before(pattern, it->start, marker) == 0) {
      out.insert(it->start, with_escape_letter(marker, letter) + " ");
    }
  }
  return out;
}

// The era's marker taken from before each four-digit year.
std::string without_era_marker(const std::string &pattern, const std::string &marker) {
  std::string out = pattern;
  const std::vector<Directive> found = directives_of(pattern);
  for (auto it = found.rbegin(); it != found.rend(); ++it) {
    if (!four_digit_year(pattern, *it)) continue;
    const std::size_t bytes = marker_before(pattern, it->start, marker);
    out.erase(it->start - bytes, bytes);
  }
  return out;
}

// A four-digit year of the locale's era without the era's marker.
bool era_year_unmarked(const std::string &pattern, const std::string &marker) {
  for (const Directive &d : directives_of(pattern)) {
    if (four_digit_year(pattern, d) && marker_before(pattern, d.start, marker) == 0) return true;
  }
  return false;
}

bool lower_escape_item(int code) {
  return code == 44 || code == 45 || (code >= 48 && code <= 51);
}

bool short_item(int code) {
  const std::vector<ShortItem> &items = short_items();
  return std::any_of(items.begin(), items.end(), [&](const ShortItem &entry) { return entry.item == code; });
}

// The long date items that write their characters with "<u" too.
char escape_letter_of(int code) { return code == 32 || code == 33 || lower_escape_item(code) ? 'u' : 'U'; }

bool names_twelve_hour(const std::string &pattern) {
  for (const Directive &d : directives_of(pattern)) {
    if (std::string_view("IiLlpP").find(pattern[d.letter]) != std::string_view::npos) return true;
  }
  return false;
}

}  // namespace

std::vector<DateRuleChange> apply_date_item_rules(LocaleRecord &record, const RecordClock &clock,
                                                  const std::vector<int> &fixed) {
  std::vector<DateRuleChange> changes;
  const auto is_fixed = [&](int code) { return std::find(fixed.begin(), fixed.end(), code) != fixed.end(); };
  const auto change = [&](const std::string &rule, int code, const std::string &after) {
    if (is_fixed(code) || record[code] == after) return;
    changes.push_back({rule, code, record[code], after});
    record[code] = after;
  };
  // A date pattern as the rules below leave it: the quarter named once and
  // the years of the locale's era.
  const auto finished_date = [&](int code, std::string pattern) {
    if (code == 40 || code == 41) pattern = without_repeated_quarter_words(record, pattern);
    if (clock.era_years && code <= kLastYearItem) {
      pattern = with_era_years(pattern, clock.era_marker, escape_letter_of(code));
    }
    return pattern;
  };

  for (const int code : {40, 41}) {
    if (record[code]) change("quarter words once", code, without_repeated_quarter_words(record, *record[code]));
  }
  if (clock.era_years) {
    for (int code = kFirstDateItem; code <= kLastYearItem; ++code) {
      if (record[code]) {
        change("era years of the locale's calendar", code,
               with_era_years(*record[code], clock.era_marker, escape_letter_of(code)));
      }
    }
  }

  // "2008-W33" is read as an ISO week date: it is numbered as one.
  for (const int code : {item::kWeekLong, item::kWeekShort}) {
    if (record[code] && iso_style_week_misnumbered(*record[code])) {
      change("ISO-style weeks numbered as ISO weeks", code, code == item::kWeekLong ? "%G-W%V" : "%g-W%V");
    }
  }

  // The datetime items: a date item, one blank, a time item.
  const int own_time = clock.twelve_hour ? kTwelveHourTime : kTwentyFourHourTime;
  const struct {
    int code, date, time;
  } kJoins[] = {{44, 31, kTwelveHourTime}, {45, 30, kTwelveHourTime}, {46, 28, kTwentyFourHourTime},
                {47, 29, own_time},        {48, 30, own_time},        {49, 31, own_time},
                {50, 32, own_time},        {51, 33, own_time}};
  const auto joined = [&](int code, const std::string &date, int time) {
    return with_escape_letter(date + " " + *record[time], lower_escape_item(code) ? 'u' : 'U');
  };
  for (const auto &join : kJoins) {
    if (!record[join.date] || !record[join.time]) continue;
    change("datetimes in the locale's clock", join.code, joined(join.code, *record[join.date], join.time));
  }
  if (record[own_time]) change("datetimes in the locale's clock", kTimeOfClock, *record[own_time]);

  for (int code = kFirstDateItem; code <= kLastPatternItem; ++code) {
    if (record[code]) change("no number padded with a blank", code, without_blank_padding(*record[code]));
  }

  // Short items wider than their formats' default widths take CLDR's next
  // shorter skeleton that fits.  In a record of another era, each pattern
  // is tried with the era's marker before its year, then without it.
  for (const ShortItem &entry : short_items()) {
    const int code = entry.item;
    if (is_fixed(code) || !record[code]) continue;
    const auto fits = [&](const std::string &pattern, const LocaleRecord &names) {
      return widest_bytes(pattern, names, code == kTwelveHourTime) + entry.suffix <=
             static_cast<std::size_t>(entry.width);
    };
    const std::string unmarked_reason = without_era_marker_reason(entry);
    const auto unmarked = [&](const std::string &pattern) { return without_era_marker(pattern, clock.era_marker); };
    if (fits(*record[code], record)) continue;
    if (clock.era_years && fits(unmarked(*record[code]), record)) {
      change("short items fit: " + unmarked_reason, code, unmarked(*record[code]));
      continue;
    }
    for (const ShorterPattern &shorter : clock.shorter) {
      if (shorter.item != code) continue;
      LocaleRecord numeric;  // the record with the narrow quarter names
      if (shorter.numeric_quarter) {
        if (clock.narrow_quarters.size() != 4) continue;
        numeric = record;
        for (int i = 0; i < 4; ++i) numeric[item::kQuartersAbbreviated + i] = clock.narrow_quarters[i];
      }
      const LocaleRecord &names = shorter.numeric_quarter ? numeric : record;
      const auto datetime = std::find_if(std::begin(kJoins), std::end(kJoins), [&](const auto &j) { return j.code == code; });
      std::string pattern;
      if (datetime != std::end(kJoins)) {
        const int time = shorter.twenty_four_hour ? kTwentyFourHourTime : datetime->time;
        if (!record[time]) continue;
        pattern = joined(code, without_blank_padding(finished_date(datetime->date, shorter.pattern)), time);
      } else {
        pattern = finished_date(code, shorter.pattern);
      }
      std::string rule = std::string("short items fit: ") + shorter.reason;
      if (!fits(pattern, names)) {
        if (!clock.era_years || !fits(unmarked(pattern), names)) continue;
        pattern = unmarked(pattern);
        rule += "; " + unmarked_reason;
      }
      if (shorter.numeric_quarter) {
        for (int i = 0; i < 4; ++i) change(rule, item::kQuartersAbbreviated + i, clock.narrow_quarters[i]);
      }
      change(rule, code, pattern);
      break;
    }
  }
  return changes;
}

std::vector<std::string> date_item_problems(const LocaleRecord &record, const RecordClock &clock,
                                            const std::vector<int> &fixed) {
  std::vector<std::string> problems;
  const auto is_fixed = [&](int code) { return std::find(fixed.begin(), fixed.end(), code) != fixed.end(); };
  const auto problem = [&](int code, const std::string &what) {
    problems.push_back("item " + std::to_string(code) + " " + what);
  };
  for (int code = kFirstDateItem; code <= kLastPatternItem; ++code) {
    if (!record[code] || is_fixed(code)) continue;
    const std::string &pattern = *record[code];
    if (pads_with_blank(pattern)) problem(code, "pads a number with a blank");
    if (pattern.find("  ") != std::string::npos) problem(code, "writes two blanks in a row");
    if (iso_style_week_misnumbered(pattern)) problem(code, "writes an ISO-style week date not numbered as ISO weeks");
    if (clock.era_years && code <= kLastYearItem && year_without_era(pattern)) problem(code, "shows a Gregorian year");
    if (clock.era_years && !clock.era_marker.empty() && !short_item(code) && era_year_unmarked(pattern, clock.era_marker)) {
      problem(code, "shows the era's year without its marker");
    }
    if (clock.era_years && !clock.gregorian_marker.empty() &&
        with_escape_letter(pattern, 'U').find(clock.gregorian_marker) != std::string::npos) {
      problem(code, "names the common era");
    }
  }
  for (const int code : {40, 41}) {
    if (record[code] && without_repeated_quarter_words(record, *record[code]) != *record[code]) {
      problem(code, "repeats words of the quarter names");
    }
  }
  if (!clock.twelve_hour) {
    for (const int code : {47, 48, 49, 50, 51, 54, 55}) {
      if (record[code] && names_twelve_hour(*record[code])) problem(code, "uses a 12-hour clock in a 24-hour locale");
    }
  }
  return problems;
}

std::vector<std::string> short_item_overflows(const LocaleRecord &record, const std::vector<int> &fixed) {
  std::vector<std::string> overflows;
  for (const ShortItem &entry : short_items()) {
    const int code = entry.item;
    if (!record[code] || std::find(fixed.begin(), fixed.end(), code) != fixed.end()) continue;
    const std::size_t bytes = widest_bytes(*record[code], record, code == kTwelveHourTime) + entry.suffix;
    if (bytes > static_cast<std::size_t>(entry.width)) {
      overflows.push_back("item " + std::to_string(code) + " (" + entry.format + "): " + std::to_string(bytes) +
                          " bytes > " + std::to_string(entry.width));
    }
  }
  return overflows;
}

}  // namespace corvinel::locale_data

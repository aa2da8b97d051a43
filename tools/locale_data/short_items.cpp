#include "short_items.h"

#include <algorithm>
#include <string_view>

namespace corvinel::locale_data {
namespace {

int hex_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The UTF-8 length of one escape "<Uxxxx>" at text[i], or 0 when there is
// none; a surrogate half counts two bytes, so a pair counts four.
std::size_t escape_bytes(std::string_view text, std::size_t i) {
  if (i + 7 > text.size() || text[i] != '<' || (text[i + 1] != 'U' && text[i + 1] != 'u') || text[i + 6] != '>') {
    return 0;
  }
  int code = 0;
  for (std::size_t k = 2; k < 6; ++k) {
    const int digit = hex_value(text[i + k]);
    if (digit < 0) return 0;
    code = code * 16 + digit;
  }
  if (code < 0x80) return 1;
  if (code < 0x800) return 2;
  if (code >= 0xD800 && code < 0xE000) return 2;
  return 3;
}

// UTF-8 bytes of an escaped text.
std::size_t text_bytes(std::string_view text) {
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t escape = escape_bytes(text, i);
    bytes += escape != 0 ? escape : 1;
    i += escape != 0 ? 7 : 1;
  }
  return bytes;
}

std::size_t widest_name(const LocaleRecord &record, int first, int count) {
  std::size_t widest = 2;  // "**" when a name is absent
  for (int code = first; code < first + count; ++code) {
    if (record[code]) widest = std::max(widest, text_bytes(*record[code]));
  }
  return widest;
}

std::size_t widest_of(const std::string &pattern, const LocaleRecord &record, bool one_digit_hour, int depth) {
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < pattern.size();) {
    if (pattern[i] != '%') {
      const std::size_t escape = escape_bytes(pattern, i);
      bytes += escape != 0 ? escape : 1;
      i += escape != 0 ? 7 : 1;
      continue;
    }
    std::size_t j = i + 1;
    bool alternate = false;
    bool unpadded = false;
    while (j < pattern.size() && std::string_view("#0+?123456789").find(pattern[j]) != std::string_view::npos) {
      if (pattern[j] == '#') alternate = unpadded = true;
      ++j;
    }
    if (j >= pattern.size()) break;
    const char letter = pattern[j];
    i = j + 1;
    switch (letter) {
      case 'a':
      case 'f':
        bytes += widest_name(record, alternate ? item::kStandaloneWeekdaysAbbreviated : item::kWeekdaysAbbreviated, 7);
        break;
      case 'A':
      case 'F':
        bytes += widest_name(record, alternate ? item::kStandaloneWeekdaysWide : item::kWeekdaysWide, 7);
        break;
      case 'b':
        bytes += widest_name(record, alternate ? item::kStandaloneMonthsAbbreviated : item::kMonthsAbbreviated, 12);
        break;
      case 'B':
      case 'c':
      case 'C':
        bytes += widest_name(record, alternate ? item::kStandaloneMonthsWide : item::kMonthsWide, 12);
        break;
      case 'q':
        bytes += widest_name(record, alternate ? item::kStandaloneQuartersAbbreviated : item::kQuartersAbbreviated, 4);
        break;
      case 'Q':
        bytes += widest_name(record, alternate ? item::kStandaloneQuartersWide : item::kQuartersWide, 4);
        break;
      case 'p':
      case 'P':
        bytes += widest_name(record, item::kAm, 2);
        break;
      case 'x':
      case 'X':
        if (depth == 0 && record[letter == 'x' ? item::kLongDate : 53]) {
          bytes += widest_of(*record[letter == 'x' ? item::kLongDate : 53], record, one_digit_hour, 1);
        }
        break;
      case 'Y':
      case 'G':
        bytes += 4;
        break;
      case 'j':
      case 'J':
        bytes += 3;
        break;
      case 'u':
      case 'w':
      case '%':
        bytes += 1;
        break;
      case 'Z':
        bytes += 3;
        break;
      case 'z':
        bytes += 5;
        break;
      case 'T':
        bytes += 8;
        break;
      case 't':
      case 'v':
        break;
      case 'I':
      case 'i':
      case 'L':
      case 'l':
      case 'H':
      case 'h':
      case 'K':
      case 'k':
        bytes += unpadded && one_digit_hour ? 1 : 2;
        break;
      default:  // the other numbers: two digits at most
        bytes += 2;
        break;
    }
  }
  return bytes;
}

}  // namespace

const std::vector<ShortItem> &short_items() {
  using enum SkeletonUse;
  static const std::vector<ShortItem> items = {
      {29, 20, 0, "NLDATE", {{"yMd", kAsIs, "CLDR's short date is longer than NLDATE's 20 bytes: its numeric date"}}},
      {35, 16, 0, "NLDATEYM",
       {{"yM", kAsIs, "the abbreviated month name is too long for NLDATEYM's 16 bytes: numeric month"}}},
      {37, 16, 0, "NLDATEMD",
       {{"Md", kAsIs, "the abbreviated month name is too long for NLDATEMD's 16 bytes: numeric month"}}},
      {39, 16, 0, "NLDATEYR", {}},
      {41, 16, 0, "NLDATEYQ",
       {{"yQQQ", kAbbreviatedQuarter, "CLDR names the long quarter, too long for NLDATEYQ's 16 bytes: abbreviated quarter"},
        {"yQQQ", kStandaloneQuarter, "the standalone abbreviated quarter names fit NLDATEYQ's 16 bytes"},
        {"yyQQQ", kAbbreviatedQuarter, "the abbreviated quarter with a four-digit year is too long for NLDATEYQ's 16 bytes: two-digit year"},
        {"yQ", kNumericQuarter, "every quarter name is too long for NLDATEYQ's 16 bytes: numeric quarter"},
        {"yyQ", kNumericQuarter, "the numeric quarter with a four-digit year is too long for NLDATEYQ's 16 bytes: two-digit year"}}},
      {43, 16, 0, "NLDATEYW", {}},
      // The datetimes' time is the locale's clock; where its day-period
      // names alone overflow (Tamil), no date part helps and NLDATM falls
      // back to its short form.  NLDATMWZ has no fallback: its last step
      // writes the time in CLDR's 24-hour skeleton.
      {47, 30, 0, "NLDATM", {}},
      {51, 40, 6, "NLDATMWZ",
       {{"yMEd", kAsIs, "the month name makes the weekday datetime too long for NLDATMWZ's 40 bytes with its zone: numeric month"},
        {"yMd", kAsIs, "even the abbreviated weekday makes it too long for NLDATMWZ's 40 bytes with its zone: the numeric date"},
        {"yMd", kAsIs, "the day-period names make even the numeric date too long for NLDATMWZ's 40 bytes with its zone: 24-hour time", true}}},
      // No shorter skeleton keeps the seconds; where the day-period names
      // are long, NLTIMAP falls back to the classic time at width 10.
      {52, 10, 0, "NLTIMAP", {}},
      {53, 20, 0, "NLTIME", {}},
  };
  return items;
}

std::string without_era_marker_reason(const ShortItem &entry) {
  return std::string("the era marker makes it too long for ") + entry.format + "'s " + std::to_string(entry.width) +
         " bytes" + (entry.suffix != 0 ? " with its zone" : "") + ": the era's year without it";
}

std::size_t widest_bytes(const std::string &pattern, const LocaleRecord &record, bool one_digit_hour) {
  return widest_of(pattern, record, one_digit_hour, 0);
}

}  // namespace corvinel::locale_data

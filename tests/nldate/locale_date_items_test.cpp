// The date and time items of every record, rendered by the expander: numbers
// padded as CLDR pads them and never with a blank, quarter patterns that
// name their quarter once, a record on a 24-hour clock that shows the
// afternoon as 14, not as 02 with a marker, Buddhist years in Thai, ISO
// numbers in ISO-style weeks, and short items that fit their formats.
#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <vector>

#include "corvinel/locale_db.h"
#include "nldate/expander_support.h"

namespace corvinel::testing {
namespace {

std::string item(int32_t record, int code) {
  const locitem &entry = ORBlocaleData[record - 1][code];
  return entry.text != nullptr ? std::string(entry.text, static_cast<std::size_t>(entry.length)) : "";
}

bool has_directive(const std::string &pattern, const char *letters) {
  for (std::size_t i = 0; i + 1 < pattern.size(); ++i) {
    if (pattern[i] != '%') continue;
    std::size_t j = i + 1;
    while (j < pattern.size() && std::string("#0+?").find(pattern[j]) != std::string::npos) ++j;
    if (j < pattern.size() && std::string(letters).find(pattern[j]) != std::string::npos) return true;
    i = j;
  }
  return false;
}

// The units of a text in the symbolic notation, an escape being one.
std::vector<std::string> units_of(const std::string &text) {
  std::vector<std::string> units;
  for (std::size_t i = 0; i < text.size();) {
    const bool escape = i + 7 <= text.size() && text[i] == '<' && text[i + 6] == '>';
    units.push_back(text.substr(i, escape ? 7 : 1));
    i += escape ? 7 : 1;
  }
  return units;
}

// A run of two or more letters (no digits, blanks or punctuation) that
// stands twice in a row.
bool repeats_a_word(const std::string &text) {
  const std::vector<std::string> u = units_of(text);
  const auto letter = [](const std::string &unit) {
    return unit.size() == 7 || std::isalpha(static_cast<unsigned char>(unit[0]));
  };
  for (std::size_t len = 2; 2 * len <= u.size(); ++len) {
    for (std::size_t at = 0; at + 2 * len <= u.size(); ++at) {
      bool same = true;
      for (std::size_t k = 0; k < len && same; ++k) same = letter(u[at + k]) && u[at + k] == u[at + len + k];
      if (same) return true;
    }
  }
  return false;
}

const double k5Mar2003 = day_number(2003, 3, 5);

int32_t record_of(const char *name) {
  for (int32_t record = 1; record <= CORVINEL_LOCALE_RECORDS; ++record) {
    if (item(record, 0) == name) return record;
  }
  ADD_FAILURE() << "no record " << name;
  return 1;
}

// The items the database fixes as they stand (English_UnitedStates in
// full; the date items of the other telling records).
bool stated(int32_t record, int code) {
  const std::string name = item(record, 0);
  if (name == "English_UnitedStates") return true;
  const bool telling = name == "German_Germany" || name == "Japanese_Japan" || name == "Arabic_Algeria";
  return (telling && (code == 28 || code == 29 || code == 32 || code == 42 || code == 46 || code == 53 || code == 56)) ||
         (name == "Chinese_XX" && code == 29);
}

TEST(LocaleDateItems, GeneratedItemsPadNoNumberWithABlank) {
  for (int32_t record = 1; record <= CORVINEL_LOCALE_RECORDS; ++record) {
    for (int code = 28; code <= 58; ++code) {
      if (stated(record, code)) continue;
      const std::string pattern = item(record, code);
      EXPECT_FALSE(has_directive(pattern, "eEoO")) << item(record, 0) << " " << code << " " << pattern;
      for (const double hour : {9.0, 16.0}) {
        const std::string text = expand_text(record, pattern, k5Mar2003, hour, 5, 3).text;
        EXPECT_EQ(text.find("  "), std::string::npos) << item(record, 0) << " " << code << " |" << text << "|";
      }
    }
  }
}

TEST(LocaleDateItems, TextsAsTheLocaleWritesThem) {
  const struct {
    const char *record;
    int code;
    double date;
    const char *text;
  } cases[] = {
      {"English_UnitedKingdom", 32, k5Mar2003, "Wednesday, 5 March 2003"},
      {"English_UnitedKingdom", 29, k5Mar2003, "05/03/2003"},
      {"English_UnitedKingdom", 52, k5Mar2003, "9:05:03 am"},
      {"Czech_CzechRepublic", 30, k5Mar2003, "5. 3. 2003"},
      {"Korean_SouthKorea", 32, k5Mar2003, "2003<uB144> 3<uC6D4> 5<uC77C> <UC218><UC694><UC77C>"},
      {"Chinese_China", 31, k5Mar2003, "2003<U5E74>3<U6708>5<U65E5>"},
      {"Chinese_China", 42, day_number(2008, 8, 17), "2008-W33"},
      {"Chinese_China", 43, day_number(2008, 12, 29), "09-W01"},
      {"Hebrew_Israel", 53, k5Mar2003, "9:05:03"},
      {"Thai_Thailand", 29, day_number(2003, 2, 24), "24/2/46"},
      {"Thai_Thailand", 42, day_number(2003, 2, 24), "Week 08 <U0E1E>.<U0E28>. 2546"},
      {"Russian_Russia", 35, day_number(2012, 11, 19), "11.2012"},
  };
  for (const auto &c : cases) {
    EXPECT_EQ(expand_text(record_of(c.record), item(record_of(c.record), c.code), c.date, 9, 5, 3).text, c.text)
        << c.record << " " << c.code;
  }
}

// Every item of the Buddhist record that shows a year shows the Buddhist
// one, and never the marker of the common era.
TEST(LocaleDateItems, ThaiYearsAreBuddhist) {
  const int32_t thai = record_of("Thai_Thailand");
  int with_year = 0;
  for (int code = 28; code <= 58; ++code) {
    const std::string pattern = item(thai, code);
    EXPECT_EQ(pattern.find("<U0E04>.<U0E28>."), std::string::npos) << code;
    EXPECT_EQ(pattern.find("<u0E04>.<u0E28>."), std::string::npos) << code;
    if (!has_directive(pattern, "yYx")) continue;
    ++with_year;
    const std::string text = expand_text(thai, pattern, day_number(2003, 2, 24), 9, 5, 3).text;
    EXPECT_EQ(text.find("2003"), std::string::npos) << code << " " << text;
    EXPECT_TRUE(text.find("2546") != std::string::npos || text.find("46") != std::string::npos) << code << " " << text;
    // The four-digit year after the era's marker, but in the short items
    // the marker would make too long.
    std::string lower = text;
    for (char &ch : lower) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    const bool marked = lower.find("<u0e1e>.<u0e28>. 2546") != std::string::npos;
    const bool dropped = code == 35 || code == 51;
    if (text.find("2546") != std::string::npos) {
      EXPECT_NE(marked, dropped) << code << " " << text;
    }
  }
  EXPECT_GT(with_year, 20);
}

// UTF-8 bytes of a text in the symbolic notation.
std::size_t utf8_bytes(const std::string &text) {
  std::size_t bytes = 0;
  for (const std::string &unit : units_of(text)) {
    if (unit.size() == 1) {
      ++bytes;
      continue;
    }
    const unsigned code = static_cast<unsigned>(std::stoul(unit.substr(2, 4), nullptr, 16));
    bytes += code < 0x80 ? 1 : code < 0x800 || (code >= 0xD800 && code < 0xE000) ? 2 : 3;
  }
  return bytes;
}

// The last pattern of each date format without a fallback fits the
// format's default width (NLDATMWZ's with its zone offset).
TEST(LocaleDateItems, ShortItemsFitTheirFormats) {
  const struct {
    int code;
    std::size_t width;
  } short_items[] = {{29, 20}, {35, 16}, {37, 16}, {39, 16}, {41, 16}, {43, 16}, {51, 40 - 6}};
  for (int32_t record = 1; record <= CORVINEL_LOCALE_RECORDS; ++record) {
    for (const auto &s : short_items) {
      if (stated(record, s.code)) continue;
      for (const double date : {day_number(2003, 2, 24), day_number(2012, 11, 19), day_number(2003, 9, 27)}) {
        const std::string text = expand_text(record, item(record, s.code), date, 16, 24, 43).text;
        EXPECT_LE(utf8_bytes(text), s.width) << item(record, 0) << " " << s.code << " " << text;
      }
    }
  }
}

TEST(LocaleDateItems, QuarterPatternsNameTheQuarterOnce) {
  for (int32_t record = 1; record <= CORVINEL_LOCALE_RECORDS; ++record) {
    for (const int code : {40, 41}) {
      const std::string text = expand_text(record, item(record, code), day_number(2012, 11, 19)).text;
      EXPECT_FALSE(repeats_a_word(text)) << item(record, 0) << " " << code << " " << text;
    }
  }
}

TEST(LocaleDateItems, DatetimesFollowTheLocalesClock) {
  int twenty_four = 0;
  for (int32_t record = 1; record <= CORVINEL_LOCALE_RECORDS; ++record) {
    // Item 56 is the time in the locale's own clock.
    if (has_directive(item(record, 56), "IiLlpP")) continue;
    ++twenty_four;
    for (const int code : {46, 47, 48, 49, 50, 51, 54, 55}) {
      const Expanded e = expand_text(record, item(record, code), day_number(2012, 11, 19), 14, 38, 52);
      EXPECT_NE(e.text.find("14"), std::string::npos) << item(record, 0) << " " << code << " " << e.text;
    }
  }
  EXPECT_GT(twenty_four, 80);
}

}  // namespace
}  // namespace corvinel::testing

// The date and time items of every record, rendered by the expander for a
// day whose numbers need padding: all-digit dates zero-pad, quarter
// patterns name their quarter once, and a record on a 24-hour clock shows
// the afternoon as 14, not as 02 with a marker.
#include <gtest/gtest.h>

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

TEST(LocaleDateItems, AllDigitDatesPadWithZeros) {
  for (int32_t record = 1; record <= CORVINEL_LOCALE_RECORDS; ++record) {
    for (int code = 28; code <= 41; ++code) {
      const std::string pattern = item(record, code);
      if (has_directive(pattern, "aAbBcCfFqQpP")) continue;
      const std::string text = expand_text(record, pattern, k5Mar2003).text;
      if (has_directive(pattern, "dDeE")) {
        EXPECT_NE(text.find("05"), std::string::npos) << item(record, 0) << " " << code << " " << text;
      }
      if (has_directive(pattern, "mNoO")) {
        EXPECT_NE(text.find("03"), std::string::npos) << item(record, 0) << " " << code << " " << text;
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

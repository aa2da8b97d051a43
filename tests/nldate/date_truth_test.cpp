// What the date, datetime and time formats show is true: fraction digits
// are the exact decimal rounding of the double (carries reaching the date),
// and no format shows a text cut to its width.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "corvinel/calendar.h"
#include "corvinel/locale_db.h"
#include "corvinel/missing.h"
#include "corvinel/transcode.h"
#include "frame/format_catalogue.h"
#include "frame/registry.h"
#include "nldate/entry_routines.h"
#include "nldate/expander_support.h"
#include "nldate/fraction_test_values.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace corvinel::testing {
namespace {

// The pattern the entry routines expand for the comparisons; the expected
// text is written from the oracle's rounded seconds.
constexpr std::string_view kDatetimePattern = "%Y%m%d %H:%M:%S";
constexpr std::string_view kTimePattern = "%H:%M:%S";

std::string entry_text(nldate::ValueKind kind, double value, int32_t digits, int32_t &result) {
  const std::string_view pattern =
      kind == nldate::ValueKind::Time ? kTimePattern : kDatetimePattern;
  char field[80];
  int32_t width = sizeof field;
  const auto length = static_cast<int32_t>(pattern.size());
  result = kind == nldate::ValueKind::Time
               ? nldate::zkftime(1, field, &width, pattern.data(), length, digits, value)
               : nldate::zkfdttm(1, field, &width, pattern.data(), length, digits, value);
  return result == 0 ? std::string(field, static_cast<std::size_t>(width)) : std::string();
}

// The text the entry routine must give for exactly rounded seconds.
std::string expected_text(nldate::ValueKind kind, const ExactRounding &r, int32_t digits) {
  const int64_t seconds_of_day =
      kind == nldate::ValueKind::Time ? r.seconds : r.seconds - r.day() * 86400;
  char text[80];
  int n = 0;
  if (kind != nldate::ValueKind::Time) {
    double year = 0, month = 0, day = 0;
    zymdjul(&year, &month, &day, zjuldat(static_cast<double>(r.day())));
    const auto y = static_cast<int64_t>(year);
    n = std::snprintf(text, sizeof text, "%02lld%02lld%02d%02d ",
                      static_cast<long long>(y / 100 % 100), static_cast<long long>(y % 100),
                      static_cast<int>(month), static_cast<int>(day));
  }
  const int64_t hour = kind == nldate::ValueKind::Time ? r.seconds / 3600 : seconds_of_day / 3600;
  n += std::snprintf(text + n, sizeof text - static_cast<std::size_t>(n), "%02lld:%02lld:%02lld",
                     static_cast<long long>(hour),
                     static_cast<long long>(seconds_of_day / 60 % 60),
                     static_cast<long long>(seconds_of_day % 60));
  if (digits > 0) {
    n += std::snprintf(text + n, sizeof text - static_cast<std::size_t>(n), ".%0*llu", digits,
                       static_cast<unsigned long long>(r.units));
  }
  return std::string(text, static_cast<std::size_t>(n));
}

TEST(FractionDigits, EqualExactDecimalRounding) {
  std::mt19937_64 random(26);
  int checked = 0, out_of_range = 0, carried_into_the_day = 0;
  for (int i = 0; i < 300000; ++i) {
    const FractionCase c = fraction_case(random, i);
    const ExactRounding exact = exact_rounding(c.value, c.digits);
    int32_t result = 0;
    const std::string ours = entry_text(c.kind, c.value, c.digits, result);
    if (c.kind == nldate::ValueKind::Datetime && exact.seconds >= 569318630400) {
      ++out_of_range;
      ASSERT_EQ(result, nldate::kValueRejected) << std::hexfloat << c.value << " " << c.digits;
      continue;
    }
    ASSERT_EQ(result, 0) << std::hexfloat << c.value;
    ASSERT_EQ(ours, expected_text(c.kind, exact, c.digits))
        << std::hexfloat << c.value << std::defaultfloat << " = " << c.value << " digits "
        << c.digits;
    if (exact.seconds - exact.day() * 86400 == 0 && exact.units == 0 && c.value != 0) {
      ++carried_into_the_day;
    }
    ++checked;
  }
  EXPECT_GT(checked, 290000);
  EXPECT_GT(out_of_range, 10);
  EXPECT_GT(carried_into_the_day, 10);
}

// The formats that write a fraction, worked through by hand: the value's
// double lies just below the decimal written, or rounds into the next day,
// or past the end of the range.
TEST(FractionDigits, FormatsShowTheRoundedValue) {
  const struct {
    const char *format;
    int32_t width, decimals;
    double value;
    const char *expected;
  } kRows[] = {
      {"NLDATMS", 22, 2, 1507122473.80, "10/04/2007 13:07:53.80"},
      {"NLDATM", 30, 2, 1507122473.80, "04Oct2007:13:07:53.80"},
      {"NLDATMS", 23, 3, 86399.9996, "01/02/1960 00:00:00.000"},
      {"NLDATMS", 23, 3, -0.0004, "01/01/1960 00:00:00.000"},
      {"NLDATMS", 23, 3, -0.0006, "12/31/1959 23:59:59.999"},
      {"NLTIME", 20, 3, 86399.9996, "00:00:00.000"},
      {"NLTIME", 20, 3, -0.0001, "00:00:00.000"},
      {"NLTIME", 20, 2, 52723.005, "14:38:43.00"},  // the double lies below .005
      {"NLTIME", 20, 2, 52723.0051, "14:38:43.01"},
      {"NLDATMS", 23, 3, 569318630399.9999, "***********************"},
      {"NLDATM", 30, 3, 569318630399.9999, "******************************"},
      {"NLDATML", 40, 3, 569318630399.9999, "****************************************"},
      {"NLDATMS", 24, 3, 569318630399.9994, "12/31/20000 23:59:59.999"},
      // One byte short: two digits would round past the end.
      {"NLDATMS", 23, 3, 569318630399.9994, "***********************"},
  };
  ScopedSessionLocale session(kUtf8Locale);
  setenv("ORB_LOCALE", "en_US", 1);
  for (const auto &row : kRows) {
    Request r(row.width, row.decimals, row.value);
    EXPECT_EQ(frame::find_format(row.format)->render(r.get()), 0);
    EXPECT_EQ(r.text(), row.expected) << row.format << " " << row.value;
  }
  unsetenv("ORB_LOCALE");
}

// ---------------------------------------------------------------------------
// No cut texts.  A format that cut a text to its width would show, as the
// width grows by a byte or two, the same text with one more character; a
// format that shows only whole texts keeps its text while the width grows
// (it still fits) until a longer pattern fits, which is a different text.

#if defined(__SANITIZE_ADDRESS__)
constexpr int32_t kLocaleStep = 5;
#else
constexpr int32_t kLocaleStep = 1;
#endif
constexpr int32_t kWidestChecked = 60;
constexpr int32_t kLookAhead = 4;  // a UTF-8 character is at most four bytes

std::vector<FormatCase> date_family() {
  std::vector<FormatCase> cases;
  for (const FormatCase &c : all_formats()) {
    if (c.family.starts_with("date") || c.family.starts_with("time") ||
        c.family.starts_with("single-")) {
      cases.push_back(c);
    }
  }
  return cases;
}

// Days across the range (the years before 1600, the 4000-year rule, the
// last day) and times of day.
const double kDays[] = {
    day_number(1582, 1, 1),  day_number(1599, 5, 14), day_number(1600, 1, 1),
    day_number(1960, 1, 1),  day_number(2003, 2, 24), day_number(2012, 11, 19),
    day_number(2008, 8, 17), day_number(2999, 9, 9),  6589335,
    day_number(3999, 12, 31) + 61,  // 1 March 4000 in the module's calendar
    2884156,                        // a day in 9856
    6000000,
};
const double kClock[] = {52723, 32703, 86399, 0};

// The number of bytes of the UTF-8 character that starts with `lead`.
std::size_t character_bytes(unsigned char lead) {
  return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

// A record's text with its "<Uxxxx>" escapes in the session's UTF-8.
std::string utf8_of(std::string text) {
  int32_t encoding = 0, length = static_cast<int32_t>(text.size());
  text.resize(4 * text.size() + 8);
  const auto room = static_cast<int32_t>(text.size());
  if (getExpResultFromNarrowCharBuf(0, 0, &encoding, text.data(), &length, room, room) > 0) return {};
  text.resize(static_cast<std::size_t>(length));
  return text;
}

// Whether `text` is the whole expansion of one of the locale's date and
// time items or of a name pattern: an abbreviation one letter shorter than
// the full name ("Jul", "July") is a whole text, not a cut.
bool whole_pattern_text(int32_t locale, const std::string &text, double date, double clock) {
  static constexpr std::string_view kNamePatterns[] = {"%#A", "%#a", "%#B", "%#b", "%o"};
  const bool has_clock = !std::isnan(clock);
  const double hour = has_clock ? std::floor(clock / 3600) : std_miss_val;
  const double minute = has_clock ? std::fmod(std::floor(clock / 60), 60) : std_miss_val;
  const double second = has_clock ? std::fmod(clock, 60) : std_miss_val;
  const auto matches = [&](std::string_view pattern) {
    const Expanded e = expand_text(locale, pattern, date, hour, minute, second);
    return e.result == 0 && utf8_of(e.text) == text;
  };
  for (const std::string_view pattern : kNamePatterns) {
    if (matches(pattern)) return true;
  }
  const locitem *record = ORBlocaleData[locale - 1];
  for (int32_t item = 28; item <= 58; ++item) {
    if (record[item].text == nullptr || record[item].length <= 0) continue;
    if (matches({record[item].text, static_cast<std::size_t>(record[item].length)})) return true;
  }
  return false;
}

class NoCutTexts : public ::testing::TestWithParam<FormatCase> {};

TEST_P(NoCutTexts, AtAnyWidth) {
  const FormatCase &c = GetParam();
  ScopedSessionLocale session(kUtf8Locale);
  ASSERT_TRUE(session.active());
  const bool time = c.family.starts_with("time");
  const bool datetime = c.family.find("datetime") != std::string::npos || c.name.starts_with("NLDATM");
  int failures = 0;
  for (int32_t locale = 1; locale <= CORVINEL_LOCALE_RECORDS; locale += kLocaleStep) {
    for (int turn = 0; turn < 3; ++turn) {
      const std::size_t pick = static_cast<std::size_t>(locale * 3 + turn);
      const double day = kDays[pick % std::size(kDays)];
      const double clock = kClock[pick % std::size(kClock)];
      const double value = time ? clock : datetime ? day * 86400 + clock : day;
      std::vector<std::string> texts;
      for (int32_t width = 0; width <= kWidestChecked + kLookAhead; ++width) {
        if (width < c.minw) {
          texts.emplace_back();
          continue;
        }
        Request r(width, 0, value);
        r->locale = locale;
        ASSERT_EQ(c.render(r.get()), 0) << c.name << " locale " << locale << " width " << width;
        texts.push_back(r.text());
      }
      for (int32_t width = std::max(c.minw, 1); width <= kWidestChecked; ++width) {
        const std::string &text = texts[static_cast<std::size_t>(width)];
        if (text.find_first_not_of('*') == std::string::npos) continue;
        for (int32_t wider = width + 1; wider <= width + kLookAhead; ++wider) {
          const std::string &next = texts[static_cast<std::size_t>(wider)];
          if (next == text) continue;
          const bool one_more = next.size() > text.size() && next.starts_with(text) &&
                                next.size() - text.size() ==
                                    character_bytes(static_cast<unsigned char>(next[text.size()]));
          if (one_more && !whole_pattern_text(locale, text, time ? std_miss_val : day,
                                              time || datetime ? clock : std_miss_val) &&
              ++failures <= 5) {
            ADD_FAILURE() << c.name << " locale " << locale << " value " << value << " width "
                          << width << " shows \"" << text << "\", width " << wider << " \""
                          << next << "\"";
          }
          break;
        }
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(DateFamily, NoCutTexts, ::testing::ValuesIn(date_family()),
                         [](const auto &info) { return info.param.name; });

}  // namespace
}  // namespace corvinel::testing

// The date, datetime and time formats against texts worked out from each
// locale's items (its patterns, names, order and separators): every
// fallback step, the short numeric forms, the ends of the valid range, and
// the session encodings that change what fits.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

#include "corvinel/formats.h"
#include "corvinel/fmtinfo.h"
#include "frame/registry.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace corvinel::testing {
namespace {

enum Session { U8, L1, U16 };

struct Row {
  const char *format;
  int32_t width;
  int32_t decimals;
  const char *locale;  // ORB_LOCALE
  double value;
  const char *expected;  // UTF-8 for U8 and U16 rows, the session's bytes for L1 rows
  Session session = U8;
  const char *tz = nullptr;  // TZ for the call, for "%z"
};

void PrintTo(const Row &row, std::ostream *out) {
  *out << row.format << row.width << "." << row.decimals << " " << row.locale << " " << row.value
       << (row.session == L1 ? " latin1" : row.session == U16 ? " utf16" : "");
}

// 24 February 2003 is a Monday; 19 November 2012 14:38:52 too.
constexpr double kDate = 15760;
constexpr double kDatetime = 1668955132;
constexpr double kTime = 52732;
constexpr double kBeforeMidnight = 19316 * 86400.0 + 86399.9995;

const Row kRows[] = {
    // NLDATE: the long date, the short one, NLDATES, "*".
    {"NLDATE", 20, 0, "en_US", kDate, "February 24, 2003"},
    {"NLDATE", 16, 0, "en_US", kDate, "02/24/2003"},
    {"NLDATE", 9, 0, "en_US", kDate, "02/24/03"},
    {"NLDATE", 6, 0, "en_US", kDate, "022403"},
    {"NLDATE", 5, 0, "en_US", kDate, "*****"},
    {"NLDATE", 20, 0, "en_US", -138061, "January 01, 1582"},
    {"NLDATE", 12, 0, "en_US", -138062, "************"},
    {"NLDATE", 20, 0, "de_DE", kDate, "24. Februar 2003"},
    {"NLDATE", 15, 0, "de_DE", kDate, "24.02.03"},
    {"NLDATE", 20, 0, "fr_FR", kDate, "24 février 2003"},
    {"NLDATE", 15, 0, "fr_FR", kDate, "24/02/2003"},
    {"NLDATE", 15, 0, "fr_FR", kDate, "24 f\xe9vrier 2003", L1},
    {"NLDATE", 30, 0, "es_MX", kDate, "24 de febrero de 2003"},
    {"NLDATE", 20, 0, "ja_JP", kDate, "2003年02月24日"},
    {"NLDATE", 16, 0, "ja_JP", kDate, "2003/02/24"},
    // The width counts the 17 bytes of UTF-8; the 11 units take 22 of the 40.
    {"NLDATE", 20, 0, "ja_JP", kDate, "2003年02月24日", U16},
    {"NLDATE", 10, 0, "th_TH", kDate, "24/2/46"},
    // The Buddhist year after its era's marker: the long date takes 47 bytes.
    {"NLDATE", 47, 0, "th_TH", kDate, "24 กุมภาพันธ์ พ.ศ. 2546"},
    {"NLDATE", 46, 0, "th_TH", kDate, "24/2/46"},
    {"NLDATEM", 14, 0, "cs_CZ", kDate, "24. 2. 2003"},
    {"NLDATE", 10, 0, "ar_DZ", kDate, "2003/02/24"},
    {"NLDATE", 30, 0, "ru_RU", kDate, "24 февраля 2003 г."},
    {"NLDATE", 20, 0, "ru_RU", kDate, "24.02.2003"},
    {"NLDATE", 20, 0, "pl_PL", kDate, "24 lutego 2003"},
    {"NLDATE", 20, 0, "fi_FI", kDate, "24. helmikuuta 2003"},
    {"NLDATE", 10, 0, "hi_IN", kDate, "24/2/03"},
    // An ORB_LOCALE that names no record: no patterns, no order and no
    // separator, so the short numeric form in month-day-year order, joined.
    {"NLDATE", 20, 0, "xx_YY", kDate, "02242003"},
    {"NLDATES", 10, 0, "xx_YY", kDate, "02242003"},
    {"NLDATEMDS", 6, 0, "xx_YY", kDate, "0224"},
    // NLDATM: fraction digits lost one by one, then the short pattern,
    // then the short datetime.
    {"NLDATM", 30, 0, "en_US", kDatetime, "19Nov2012:14:38:52"},
    {"NLDATM", 30, 3, "en_US", kDatetime + 0.5, "19Nov2012:14:38:52.500"},
    {"NLDATM", 20, 3, "en_US", kDatetime + 0.5, "19Nov2012:14:38:52.5"},
    {"NLDATM", 18, 3, "en_US", kDatetime + 0.5, "19Nov2012:14:38:53"},  // rounded to 0 places
    {"NLDATM", 30, 3, "en_US", kBeforeMidnight, "20Nov2012:00:00:00.000"},
    {"NLDATM", 17, 0, "en_US", kDatetime, "11/19/12 14:38:52"},
    {"NLDATM", 12, 0, "en_US", kDatetime, "111912 14:38"},
    {"NLDATM", 30, 0, "de_DE", kDatetime, "19. November 2012 14.38 Uhr"},
    {"NLDATM", 20, 0, "de_DE", kDatetime, "19.11.12 14.38 Uhr"},
    {"NLDATM", 30, 0, "fr_FR", kDatetime, "19 novembre 2012 14:38:52"},
    {"NLDATM", 30, 0, "es_MX", kDatetime, "19/11/12 14:38:52"},
    {"NLDATM", 30, 0, "ja_JP", kDatetime, "2012/11/19 14時38分52秒"},
    {"NLDATM", 30, 0, "zh_TW", kDatetime, "2012年11月19日 14:38:52"},
    {"NLDATM", 30, 0, "ru_RU", kDatetime, "19.11.2012 14:38:52"},
    {"NLDATM", 30, 0, "fi_FI", kDatetime, "19. marraskuuta 2012 14.38.52"},
    {"NLDATM", 30, 0, "en_US", 569318630400.0, "******************************"},
    // NLTIME: one day, the locale's time, the classic TIME.
    {"NLTIME", 10, 0, "en_US", kTime, "14:38:52"},
    {"NLTIME", 10, 0, "en_US", -1, "23:59:59"},
    {"NLTIME", 10, 0, "en_US", 86400, "00:00:00"},
    {"NLTIME", 10, 0, "en_US", 90000, "01:00:00"},
    {"NLTIME", 7, 0, "en_US", kTime, "14:38"},
    {"NLTIME", 10, 0, "de_DE", kTime, "14.38 Uhr"},
    // ja_JP's time is wider than 10 bytes: the classic TIME, whole or not.
    {"NLTIME", 10, 0, "ja_JP", kTime, "14:38:52"},
    {"NLTIME", 10, 0, "ja_JP", 32707, "9:05:07"},
    {"NLTIME", 10, 0, "ja_JP", kTime + 0.5, "14:38:53"},
    {"NLTIME", 10, 0, "fi_FI", kTime, "14.38.52"},
    {"NLTIME", 20, 2, "fr_FR", kTime + 0.25, "14:38:52,25"},
    // The component formats: long item, short item, "*".
    {"NLDATEYM", 16, 0, "en_US", kDate, "February 2003"},
    {"NLDATEYM", 8, 0, "en_US", kDate, "Feb 2003"},
    {"NLDATEYM", 7, 0, "en_US", kDate, "*******"},
    {"NLDATMYM", 16, 0, "en_US", kDatetime, "November 2012"},
    {"NLDATEMD", 16, 0, "en_US", kDate, "February 24"},
    {"NLDATEMD", 6, 0, "en_US", kDate, "Feb 24"},
    {"NLDATEYR", 16, 0, "en_US", kDate, "2003"},
    {"NLDATEYR", 2, 0, "en_US", kDate, "03"},
    {"NLDATEYR", 16, 0, "th_TH", kDate, "พ.ศ. 2546"},
    {"NLDATEYQ", 16, 0, "en_US", kDate, "1st quarter 2003"},
    {"NLDATEYQ", 7, 0, "en_US", kDate, "Q1 2003"},
    {"NLDATEYQ", 16, 0, "de_DE", kDate, "1. Quartal 2003"},
    {"NLDATEYQ", 16, 0, "zh_TW", kDate, "2003年第1季"},
    // Short items that fit the default width: numeric quarter and month where
    // every name is too long.
    {"NLDATEYQ", 16, 0, "ru_RU", kDate, "1 2003 г."},
    {"NLDATEYM", 16, 0, "ar_DZ", kDate, "2/2003"},
    {"NLDATMYQ", 16, 0, "en_US", -11928470401.0, "****************"},
    {"NLDATEYW", 16, 0, "en_US", kDate, "Week 08 2003"},
    {"NLDATEYW", 6, 0, "en_US", kDate, "W08 03"},
    // Zone, AM/PM and time of day.
    {"NLDATMZ", 40, 0, "en_US", kDatetime, "19Nov2012:14:38:52 +0000", U8, "UTC0"},
    {"NLDATMZ", 40, 0, "en_US", kDatetime, "19Nov2012:14:38:52 -0500", U8, "EST5"},
    {"NLDATMZ", 16, 0, "en_US", kDatetime, "111912 14:38:52", U8, "EST5"},
    {"NLDATMWZ", 40, 0, "en_US", kDatetime, "Mon, Nov 19, 2012 02:38:52 PM +0000", U8, "UTC0"},
    {"NLDATMWZ", 20, 0, "en_US", kDatetime, "********************", U8, "UTC0"},
    {"NLDATMAP", 32, 0, "en_US", kDatetime, "November 19, 2012 02:38:52 PM"},
    {"NLDATMAP", 32, 0, "de_DE", kDatetime, "19. November 2012 2:38:52 nachm."},  // item 44: 32 bytes
    {"NLDATMAP", 31, 0, "de_DE", kDatetime, "19.11.12 14.38 Uhr"},
    {"NLDATMTM", 16, 0, "en_US", 86399, "23:59:59"},
    {"NLDATMTZ", 32, 0, "de_DE", kDatetime, "14.38 Uhr +0000", U8, "UTC0"},
    {"NLTIMAP", 12, 0, "en_US", -1, "11:59:59 PM"},
    {"NLTIMAP", 10, 0, "en_US", -1, "11:59 PM"},
    {"NLTIMAP", 10, 0, "en_GB", kTime, "2:38:52 pm"},  // the unpadded hour of CLDR fits
    // The single-pattern formats: the first entry of the table that fits
    // whole (datetimes with as many fraction digits as fit), else "*".
    {"NLDATEL", 18, 0, "en_US", kDate, "February 24, 2003"},
    {"NLDATEL", 12, 0, "en_US", kDate, "Feb 24, 2003"},
    {"NLDATEL", 10, 0, "en_US", kDate, "02/24/2003"},
    {"NLDATEL", 2, 0, "en_US", kDate, "**"},
    {"NLDATEMN", 4, 0, "en_US", kDate, "Feb"},
    {"NLDATEWN", 4, 0, "en_US", kDate, "Mon"},
    {"NLDATEWN", 4, 0, "hi_IN", kDate, "****"},  // the walk ends before "uw"
    {"NLDATEW", 10, 0, "en_US", kDate, "Monday"},
    {"NLDATMW", 29, 0, "en_US", kDatetime - 20032, "Mon, Nov 19, 2012 09:05:00 AM"},
    {"NLDATML", 40, 3, "en_US", kDatetime + 0.25, "November 19, 2012 02:38:52.250 PM"},
    {"NLDATML", 32, 3, "en_US", kDatetime + 0.25, "November 19, 2012 02:38:52.25 PM"},
    {"NLDATML", 31, 3, "en_US", kDatetime + 0.25, "November 19, 2012 02:38:52.3 PM"},
    {"NLDATML", 30, 3, "en_US", kDatetime + 0.25, "November 19, 2012 02:38:52 PM"},
    {"NLDATML", 28, 3, "en_US", kDatetime + 0.25, "Nov 19, 2012 02:38:52.250 PM"},
    {"NLDATML", 22, 3, "en_US", kDatetime + 0.25, "11/19/2012 02:38:52 PM"},
    {"NLDATML", 19, 3, "en_US", kDatetime + 0.25, "11/19/2012 14:38:52"},
    {"NLDATEM", 14, 0, "en_US", kDate, "Feb 24, 2003"},
    {"NLDATEM", 26, 0, "th_TH", kDate, "24 ก.พ. พ.ศ. 2546"},
    {"NLDATEMN", 9, 0, "pl_PL", kDate, "luty"},
    {"NLDATEMN", 9, 0, "fi_FI", kDate, "helmikuu"},
    {"NLDATEWN", 9, 0, "de_DE", kDate, "Montag"},
    {"NLDATEW", 29, 0, "en_US", kDate, "Monday, February 24, 2003"},
    {"NLDATEYQM", 7, 0, "en_US", kDate, "Q1 2003"},
    {"NLDATMDT", 18, 0, "en_US", kDatetime, "November 19, 2012"},
    {"NLDATMS", 19, 0, "en_US", kDatetime, "11/19/2012 14:38:52"},
    {"NLDATMS", 10, 0, "en_US", kDatetime, "111912 14"},
    {"NLDATML", 30, 0, "fr_FR", kDatetime, "19 novembre 2012 14:38:52"},
    {"NLDATMW", 41, 0, "de_DE", kDatetime, "Montag, 19. November 2012 14.38 Uhr"},
    // The short numeric forms in each order and separator.
    {"NLDATES", 10, 0, "en_US", 19316, "11/19/2012"},
    {"NLDATES", 9, 0, "en_US", 19316, "11/19/12"},
    {"NLDATES", 7, 0, "en_US", 19316, "111912"},
    {"NLDATES", 5, 0, "en_US", 19316, "*****"},
    {"NLDATES", 10, 0, "de_DE", 19316, "19.11.2012"},
    {"NLDATES", 8, 0, "de_DE", 19316, "19.11.12"},
    {"NLDATES", 6, 0, "de_DE", 19316, "191112"},
    {"NLDATES", 10, 0, "ja_JP", 19316, "2012/11/19"},
    {"NLDATES", 8, 0, "zh_CN", 19316, "12/11/19"},
    {"NLDATES", 10, 0, "ar_DZ", 19316, "2012/11/19"},
    {"NLDATES", 10, 0, "fi_FI", 19316, "19.11.2012"},
    {"NLDATES", 10, 0, "fr_FR", 19316, "19/11/2012"},
    {"NLDATES", 10, 0, "fr_FR", 19316, "19/11/2012", U16},
    {"NLDATES", 10, 0, "fr_FR", 19316, "19/11/2012", L1},
    {"NLDATES", 11, 0, "en_US", 6589335, "12/31/20000"},
    {"NLDATES", 10, 0, "en_US", 6589335, "12/31/00"},
    {"NLDATES", 10, 0, "en_US", -138061, "01/01/1582"},
    {"NLDATEYMS", 7, 0, "en_US", 19316, "11/2012"},
    {"NLDATEYMS", 6, 0, "de_DE", 19316, "11.12"},
    {"NLDATEYMS", 7, 0, "ja_JP", 19316, "2012/11"},
    {"NLDATMYMS", 5, 0, "ja_JP", kDatetime, "12/11"},
    {"NLDATEMDS", 5, 0, "en_US", 19316, "11/19"},
    {"NLDATEMDS", 5, 0, "de_DE", 19316, "19.11"},
    {"NLDATEMDS", 5, 0, "ja_JP", 19316, "11/19"},
    {"NLDATMMDS", 5, 0, "fi_FI", kDatetime, "19.11"},
    {"NLDATEYQS", 6, 0, "en_US", 19316, "2012/4"},
    {"NLDATEYQS", 5, 0, "de_DE", 19316, "12.4"},
    {"NLDATMYQS", 4, 0, "ja_JP", kDatetime, "12/4"},
    {"NLDATMYQS", 3, 0, "ja_JP", kDatetime, "***"},
    {"NLDATMS", 19, 0, "en_US", kBeforeMidnight, "11/20/2012 00:00:00"},
    {"NLDATMS", 23, 3, "de_DE", kDatetime + 0.125, "19.11.2012 14:38:52,125"},
};

// A UTF-8 text as UTF-16 code units, low byte first.
std::string utf16le(const std::string &utf8) {
  std::string out;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto c = static_cast<unsigned char>(utf8[i]);
    const int extra = c < 0x80 ? 0 : c < 0xE0 ? 1 : c < 0xF0 ? 2 : 3;
    char32_t cp = extra == 0 ? c : c & (0x3F >> extra);
    for (int k = 1; k <= extra; ++k) cp = cp << 6 | (static_cast<unsigned char>(utf8[i + k]) & 0x3F);
    i += 1 + extra;
    out.push_back(static_cast<char>(cp & 0xFF));
    out.push_back(static_cast<char>(cp >> 8));
  }
  return out;
}

class DateGolden : public ::testing::TestWithParam<Row> {};

TEST_P(DateGolden, RendersTheLocalesText) {
  const Row &row = GetParam();
  const fmtdesc *format = frame::find_format(row.format);
  ASSERT_NE(format, nullptr);
  ScopedSessionLocale session(row.session == L1 ? kLatin1Locale : kUtf8Locale);
  ASSERT_TRUE(session.active());
  setenv("ORB_LOCALE", row.locale, 1);
  const char *saved_tz = std::getenv("TZ");
  const std::string old_tz = saved_tz != nullptr ? saved_tz : "";
  if (row.tz != nullptr) setenv("TZ", row.tz, 1);
  const int32_t capacity = row.session == U16 ? 2 * row.width : row.width;
  Request r(row.width, row.decimals, row.value, capacity);
  if (row.session == U16) r.set_output_encoding(CORVINEL_ENC_UTF16LE);
  const int32_t result = format->render(r.get());
  if (row.tz != nullptr) {
    if (saved_tz != nullptr) {
      setenv("TZ", old_tz.c_str(), 1);
    } else {
      unsetenv("TZ");
    }
  }
  unsetenv("ORB_LOCALE");
  EXPECT_EQ(result, 0);
  const std::string expected = row.session == U16 ? utf16le(row.expected) : row.expected;
  EXPECT_EQ(r.text(), expected);
  EXPECT_TRUE(r.guards_intact());
  EXPECT_TRUE(r.restored());
}

INSTANTIATE_TEST_SUITE_P(Formats, DateGolden, ::testing::ValuesIn(kRows));

// The checks of the limits, some stricter than the descriptor.
TEST(DateLimits, RefuseWhenAsked) {
  const struct {
    const char *format;
    int32_t width, decimals, result;
  } kRows[] = {
      {"NLDATEMN", 3, 0, 39}, {"NLDATEMN", 4, 0, 0},  {"NLDATMAP", 15, 0, 39}, {"NLTIMAP", 4, 0, 0},
      {"NLDATEYR", 2, 0, 0},  {"NLDATEYR", 1, 0, 39}, {"NLDATM", 20, 1, 42},   {"NLTIME", 20, 1, 42},
      {"NLDATML", 30, 3, 0},  {"NLDATML", 30, 4, 42}, {"NLDATE", 201, 0, 40},  {"NLDATES", 10, -1, 41},
  };
  for (const auto &row : kRows) {
    Request r(row.width, row.decimals, kDatetime, row.width);
    r->flags = FMTREQ_CHECK_LIMITS;
    EXPECT_EQ(frame::find_format(row.format)->render(r.get()), row.result) << row.format << row.width;
  }
}

// A value outside the range fills a single-pattern format's field with
// "*" as in every other family; a missing value shows its mark at the
// right edge.
TEST(DateFormats, OutOfRangeAndMissingValues) {
  Request out(18, 0, -138062, 18);
  EXPECT_EQ(frame::find_format("NLDATEL")->render(out.get()), 0);
  EXPECT_EQ(out.field(), std::string(18, '*'));
  for (const char *name : {"NLDATE", "NLDATM", "NLTIME", "NLDATEL", "NLDATES", "NLDATMS"}) {
    Request r(10, 2, missing('A'), 10);
    EXPECT_EQ(frame::find_format(name)->render(r.get()), 0);
    EXPECT_EQ(r.field(), "         A") << name;
    EXPECT_EQ(r->decimals, 2);
  }
}

}  // namespace
}  // namespace corvinel::testing

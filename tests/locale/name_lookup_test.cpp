#include <cctype>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "corvinel/names.h"
#include "locale/name_tables.h"

namespace {

using corvinel::locale::etable;
using corvinel::locale::table;

using LookupFn = int32_t (*)(char *, int32_t, uint32_t *);

struct Lookup {
  LookupFn lookup;
  std::string name;        // the caller's bytes (length = size)
  int32_t result;
  uint32_t id;
  std::string buffer_after;  // the caller's buffer after the call
};

void PrintTo(const Lookup &c, std::ostream *os) { *os << '"' << c.name << '"'; }

class NameLookup : public ::testing::TestWithParam<Lookup> {};

TEST_P(NameLookup, FindsTheNumberAndUpperCasesTheBuffer) {
  const Lookup &c = GetParam();
  std::string buffer = c.name;
  uint32_t id = 999;
  EXPECT_EQ(c.lookup(buffer.data(), static_cast<int32_t>(buffer.size()), &id), c.result);
  EXPECT_EQ(id, c.id);
  EXPECT_EQ(buffer, c.buffer_after);
}

Lookup locale(std::string name, int32_t result, uint32_t id, std::string after) {
  return {LocnameToID, std::move(name), result, id, std::move(after)};
}

Lookup encoding(std::string name, int32_t result, uint32_t id, std::string after) {
  return {EncnameToID, std::move(name), result, id, std::move(after)};
}

INSTANTIATE_TEST_SUITE_P(
    LocaleCodes, NameLookup,
    ::testing::Values(locale("en_us", 0, 53, "EN_US"), locale("EN_US", 0, 53, "EN_US"),
                      locale("AF_ZA", 0, 1, "AF_ZA"), locale("zh_xx", 0, 136, "ZH_XX"),
                      locale("pl_xx", 0, 135, "PL_XX"), locale("iw_il", 0, 71, "IW_IL"),
                      locale("HE_IL", 0, 71, "HE_IL"), locale("sh_yu", 0, 105, "SH_YU"),
                      locale("SH_RS", 0, 105, "SH_RS"), locale("SH_CS", 0, 105, "SH_CS"),
                      locale("SR_CS", 0, 101, "SR_CS"), locale("sr_rs", 0, 101, "SR_RS"),
                      locale("de_DE", 0, 64, "DE_DE"), locale("Ja_Jp", 0, 79, "JA_JP"),
                      // Same hash as EN_US (the separator is not hashed), no match.
                      locale("en-us", 5, 0, "EN-US"), locale("EN US", 5, 0, "EN US"),
                      locale("xx_yy", 5, 0, "XX_YY"), locale("US_EN", 5, 0, "US_EN"),
                      locale("\xE9n_us", 5, 0, "\xE9N_US"),
                      // Wrong lengths leave the buffer alone.
                      locale("en_u", 5, 0, "en_u"), locale("en_us_", 5, 0, "en_us_"),
                      locale("", 5, 0, "")));

INSTANTIATE_TEST_SUITE_P(
    EncodingNames, NameLookup,
    ::testing::Values(encoding("utf-8", 0, 20, "UTF-8"), encoding("UTF8", 0, 20, "UTF8"),
                      encoding("u16l", 0, 25, "U16L"), encoding("UTF-16BE", 0, 24, "UTF-16BE"),
                      encoding("utf-32le", 0, 27, "UTF-32LE"), encoding("ebcdic1047", 0, 97, "EBCDIC1047"),
                      encoding("Open_ed-1047", 0, 110, "OPEN_ED-1047"), encoding("THAI", 0, 39, "THAI"),
                      encoding("big5", 0, 123, "BIG5"), encoding("Shift-JIS", 0, 138, "SHIFT-JIS"),
                      encoding("SJS4", 0, 248, "SJS4"), encoding("etpc", 0, 77, "ETPC"),
                      encoding("USER", 0, 171, "USER"), encoding("939E", 0, 206, "939E"),
                      encoding("wlatin1", 0, 62, "WLATIN1"), encoding("EUC-CN", 0, 125, "EUC-CN"),
                      encoding("OPEN_ED-930E", 0, 241, "OPEN_ED-930E"),
                      // Near misses: another length, a prefix, a suffix.
                      encoding("UTF", 4, 0, "UTF"), encoding("utf-16", 4, 0, "UTF-16"),
                      encoding("UTF-8X", 4, 0, "UTF-8X"), encoding("latin 1", 4, 0, "LATIN 1"),
                      encoding("EBCDIC104", 4, 0, "EBCDIC104"), encoding("", 4, 0, "")));

TEST(NameLookup, NullNamesAreUnknown) {
  uint32_t id = 7;
  EXPECT_EQ(LocnameToID(nullptr, 5, &id), CORVINEL_LOCNAME_UNKNOWN);
  EXPECT_EQ(id, 0u);
  id = 7;
  EXPECT_EQ(EncnameToID(nullptr, 8, &id), CORVINEL_ENCNAME_UNKNOWN);
  EXPECT_EQ(id, 0u);
  char name[] = "en_us";
  EXPECT_EQ(LocnameToID(name, 5, nullptr), CORVINEL_LOCNAME_UNKNOWN);
  EXPECT_EQ(EncnameToID(name, 5, nullptr), CORVINEL_ENCNAME_UNKNOWN);
}

// Every entry must sit in the bucket its name hashes to, or the lookup
// cannot reach it; lower-case spellings must reach it too.
TEST(NameTables, EveryLocaleEntryIsReachable) {
  int32_t entries = 0;
  for (const locname_bucket &bucket : table) {
    EXPECT_LE(bucket.count, 5);
    for (int32_t i = 0; i < bucket.count; ++i, ++entries) {
      const locname_entry &entry = bucket.entries[i];
      std::string lower = entry.name;
      for (char &c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      uint32_t id = 0;
      EXPECT_EQ(LocnameToID(lower.data(), 5, &id), 0) << entry.name;
      EXPECT_EQ(id, entry.id) << entry.name;
      EXPECT_GE(entry.id, 1u);
      EXPECT_LE(entry.id, 136u);
    }
  }
  EXPECT_EQ(entries, 140);
}

TEST(NameTables, EveryEncodingEntryIsReachable) {
  int32_t entries = 0;
  for (const encname_bucket &bucket : etable) {
    EXPECT_LE(bucket.count, 9);
    for (int32_t i = 0; i < bucket.count; ++i, ++entries) {
      const encname_entry &entry = bucket.entries[i];
      EXPECT_EQ(entry.length, static_cast<int32_t>(std::strlen(entry.name))) << entry.name;
      std::string name = entry.name;
      uint32_t id = 0;
      EXPECT_EQ(EncnameToID(name.data(), entry.length, &id), 0) << entry.name;
      EXPECT_EQ(id, entry.id) << entry.name;
      EXPECT_LT(entry.id, static_cast<uint32_t>(CORVINEL_ENCODING_IDS));
    }
  }
  EXPECT_EQ(entries, 438);
}

}  // namespace

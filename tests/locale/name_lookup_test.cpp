#include <cctype>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/names.h"
#include "locale/name_tables.h"

namespace {

using corvinel::locale::etable;
using corvinel::locale::table;

struct Lookup {
  std::string name;        // the caller's bytes (length = size)
  int32_t result;
  uint32_t id;
  std::string buffer_after;  // the caller's buffer after the call
};

void PrintTo(const Lookup &c, std::ostream *os) { *os << '"' << c.name << '"'; }

class LocnameLookup : public ::testing::TestWithParam<Lookup> {};

TEST_P(LocnameLookup, FindsTheLocaleNumber) {
  const Lookup &c = GetParam();
  std::string buffer = c.name;
  uint32_t id = 999;
  EXPECT_EQ(LocnameToID(buffer.data(), static_cast<int32_t>(buffer.size()), &id), c.result);
  EXPECT_EQ(id, c.id);
  EXPECT_EQ(buffer, c.buffer_after);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, LocnameLookup,
    ::testing::Values(Lookup{"en_us", 0, 53, "EN_US"}, Lookup{"EN_US", 0, 53, "EN_US"},
                      Lookup{"AF_ZA", 0, 1, "AF_ZA"}, Lookup{"zh_xx", 0, 136, "ZH_XX"},
                      Lookup{"pl_xx", 0, 135, "PL_XX"}, Lookup{"iw_il", 0, 71, "IW_IL"},
                      Lookup{"HE_IL", 0, 71, "HE_IL"}, Lookup{"sh_yu", 0, 105, "SH_YU"},
                      Lookup{"SH_RS", 0, 105, "SH_RS"}, Lookup{"SH_CS", 0, 105, "SH_CS"},
                      Lookup{"SR_CS", 0, 101, "SR_CS"}, Lookup{"sr_rs", 0, 101, "SR_RS"},
                      Lookup{"de_DE", 0, 64, "DE_DE"}, Lookup{"Ja_Jp", 0, 79, "JA_JP"},
                      // Same hash as EN_US (the separator is not hashed), no match.
                      Lookup{"en-us", 5, 0, "EN-US"}, Lookup{"EN US", 5, 0, "EN US"},
                      Lookup{"xx_yy", 5, 0, "XX_YY"}, Lookup{"US_EN", 5, 0, "US_EN"},
                      Lookup{"\xE9n_us", 5, 0, "\xE9N_US"},
                      // Wrong lengths leave the buffer alone.
                      Lookup{"en_u", 5, 0, "en_u"}, Lookup{"en_us_", 5, 0, "en_us_"},
                      Lookup{"", 5, 0, ""}));

TEST(LocnameLookup, NullNameIsUnknown) {
  uint32_t id = 7;
  EXPECT_EQ(LocnameToID(nullptr, 5, &id), CORVINEL_LOCNAME_UNKNOWN);
  EXPECT_EQ(id, 0u);
}

class EncnameLookup : public ::testing::TestWithParam<Lookup> {};

TEST_P(EncnameLookup, FindsTheEncodingId) {
  const Lookup &c = GetParam();
  std::string buffer = c.name;
  uint32_t id = 999;
  EXPECT_EQ(EncnameToID(buffer.data(), static_cast<int32_t>(buffer.size()), &id), c.result);
  EXPECT_EQ(id, c.id);
  EXPECT_EQ(buffer, c.buffer_after);
}

INSTANTIATE_TEST_SUITE_P(
    Names, EncnameLookup,
    ::testing::Values(Lookup{"utf-8", 0, 20, "UTF-8"}, Lookup{"UTF8", 0, 20, "UTF8"},
                      Lookup{"u16l", 0, 25, "U16L"}, Lookup{"UTF-16BE", 0, 24, "UTF-16BE"},
                      Lookup{"utf-32le", 0, 27, "UTF-32LE"}, Lookup{"ebcdic1047", 0, 97, "EBCDIC1047"},
                      Lookup{"Open_ed-1047", 0, 110, "OPEN_ED-1047"}, Lookup{"THAI", 0, 39, "THAI"},
                      Lookup{"big5", 0, 123, "BIG5"}, Lookup{"Shift-JIS", 0, 138, "SHIFT-JIS"},
                      Lookup{"SJS4", 0, 248, "SJS4"}, Lookup{"etpc", 0, 77, "ETPC"},
                      Lookup{"USER", 0, 171, "USER"}, Lookup{"939E", 0, 206, "939E"},
                      Lookup{"wlatin1", 0, 62, "WLATIN1"}, Lookup{"EUC-CN", 0, 125, "EUC-CN"},
                      Lookup{"OPEN_ED-930E", 0, 241, "OPEN_ED-930E"},
                      // Near misses: another length, a prefix, a suffix.
                      Lookup{"UTF", 4, 0, "UTF"}, Lookup{"utf-16", 4, 0, "UTF-16"},
                      Lookup{"UTF-8X", 4, 0, "UTF-8X"}, Lookup{"latin 1", 4, 0, "LATIN 1"},
                      Lookup{"EBCDIC104", 4, 0, "EBCDIC104"}, Lookup{"", 4, 0, ""}));

TEST(EncnameLookup, NullNameIsUnknown) {
  uint32_t id = 7;
  EXPECT_EQ(EncnameToID(nullptr, 8, &id), CORVINEL_ENCNAME_UNKNOWN);
  EXPECT_EQ(id, 0u);
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

// LocnameToID and EncnameToID: the number of a locale or encoding name,
// and the caller's buffer upper-cased in place.
#include <cstdint>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/names.h"

namespace {

struct Lookup {
  bool encoding;     // EncnameToID, else LocnameToID
  std::string name;  // the caller's bytes
  int32_t result;
  uint32_t id;
  std::string after;  // the caller's buffer after the call
};

void PrintTo(const Lookup &c, std::ostream *os) { *os << '"' << c.name << '"'; }

class NameLookup : public ::testing::TestWithParam<Lookup> {};

// Deliberate: the caller's buffer is upper-cased in place when the length is right.
TEST_P(NameLookup, FindsTheNumberAndUpperCasesTheBuffer) {
  const Lookup &c = GetParam();
  std::string buffer = c.name;
  uint32_t id = 999;
  EXPECT_EQ((c.encoding ? EncnameToID : LocnameToID)(buffer.data(), static_cast<int32_t>(buffer.size()), &id), c.result);
  EXPECT_EQ(id, c.id);
  EXPECT_EQ(buffer, c.after);
}

constexpr bool kLocale = false, kEncoding = true;

INSTANTIATE_TEST_SUITE_P(
    Names, NameLookup,
    ::testing::Values(Lookup{kLocale, "en_us", 0, 53, "EN_US"}, Lookup{kLocale, "Ja_Jp", 0, 79, "JA_JP"},
                      // The separator is not hashed: EN-US shares the bucket of EN_US but is not found.
                      Lookup{kLocale, "en-us", 5, 0, "EN-US"}, Lookup{kLocale, "US_EN", 5, 0, "US_EN"},
                      Lookup{kLocale, "xx_yy", 5, 0, "XX_YY"}, Lookup{kLocale, "\xE9n_us", 5, 0, "\xE9N_US"},
                      Lookup{kLocale, "en_u", 5, 0, "en_u"}, Lookup{kLocale, "en_us_", 5, 0, "en_us_"},
                      Lookup{kLocale, "", 5, 0, ""}, Lookup{kEncoding, "utf-8", 0, 20, "UTF-8"},
                      Lookup{kEncoding, "u16l", 0, 25, "U16L"}, Lookup{kEncoding, "Open_ed-1047", 0, 110, "OPEN_ED-1047"},
                      Lookup{kEncoding, "THAI", 0, 39, "THAI"}, Lookup{kEncoding, "big5", 0, 123, "BIG5"},
                      Lookup{kEncoding, "Shift-JIS", 0, 138, "SHIFT-JIS"}, Lookup{kEncoding, "SJS4", 0, 248, "SJS4"},
                      Lookup{kEncoding, "USER", 0, 171, "USER"}, Lookup{kEncoding, "939E", 0, 206, "939E"},
                      // Another length, a prefix, a suffix.
                      Lookup{kEncoding, "UTF", 4, 0, "UTF"}, Lookup{kEncoding, "utf-16", 4, 0, "UTF-16"},
                      Lookup{kEncoding, "UTF-8X", 4, 0, "UTF-8X"}, Lookup{kEncoding, "latin 1", 4, 0, "LATIN 1"},
                      Lookup{kEncoding, "EBCDIC104", 4, 0, "EBCDIC104"}));

TEST(NameLookup, NullArgumentsAreUnknown) {
  uint32_t id = 7, id2 = 7;
  EXPECT_EQ(LocnameToID(nullptr, 5, &id), CORVINEL_LOCNAME_UNKNOWN);
  EXPECT_EQ(EncnameToID(nullptr, 8, &id2), CORVINEL_ENCNAME_UNKNOWN);
  EXPECT_EQ(id + id2, 0u);
  char name[] = "en_us";
  EXPECT_EQ(LocnameToID(name, 5, nullptr), CORVINEL_LOCNAME_UNKNOWN);
  EXPECT_EQ(EncnameToID(name, 5, nullptr), CORVINEL_ENCNAME_UNKNOWN);
}

}  // namespace

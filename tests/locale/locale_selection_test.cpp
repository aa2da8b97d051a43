// getORBLocDB: choice of the record by number or by ORB_LOCALE, and the
// copy into the caller's buffer.

#include <climits>
#include <cstring>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/locale_db.h"
#include "locale/orb_locale_env.h"

namespace {

using corvinel::testing::locale_item;
using corvinel::testing::ScopedOrbLocale;

constexpr const char *kUnset = nullptr;
constexpr const char *kNoRecord = nullptr;

struct EnvironmentCase {
  const char *label;
  const char *value;   // kUnset: the variable is not set
  const char *record;  // kNoRecord: every fetch fails
};

void PrintTo(const EnvironmentCase &c, std::ostream *out) { *out << c.label; }

const std::string kLongValue = "fr_CA" + std::string(600, 'x');

const EnvironmentCase kEnvironmentCases[] = {
    {"Unset", kUnset, "English_UnitedStates"},
    {"Empty", "", kNoRecord},
    {"Exact", "de_DE", "German_Germany"},
    {"CaseSwapped", "DE-de", "German_Germany"},
    {"DotSeparator", "de.DE", "German_Germany"},
    {"BlankSeparator", "fr CA", "French_Canada"},
    {"EncodingSuffix", "de_DE.UTF-8", "German_Germany"},
    {"ModifierSuffix", "sr_RS@latin", "Serbian_Serbia"},
    {"Japanese", "ja_JP", "Japanese_Japan"},
    {"TaiwanByItem4", "zh_TW", "Chinese_Taiwan"},
    {"SecondaryCodeIsNotMatched", "zt_TW", kNoRecord},
    {"PolishXX", "pl_XX", "Polish_XX"},
    {"ChineseXXUpperCase", "ZH_XX", "Chinese_XX"},
    {"SerbianLatin", "sh_RS", "SerbianLatin_Serbia"},
    {"Norwegian", "no_NO", "Norwegian_Norway"},
    {"Caribbean", "en_CB", "English_Caribbean"},
    {"UnknownCountry", "en_XX", kNoRecord},
    {"LanguageOnly", "en", kNoRecord},
    {"OneCharacter", "e", kNoRecord},
    {"FourCharacters", "en_U", kNoRecord},
    {"NonAsciiBytes", "\xC3\xA9n_US", kNoRecord},
    {"LongValue", kLongValue.c_str(), "French_Canada"},
};

class EnvironmentChoice : public ::testing::TestWithParam<EnvironmentCase> {};

TEST_P(EnvironmentChoice, SelectsTheRecordForEveryNonRecordNumber) {
  const EnvironmentCase &c = GetParam();
  ScopedOrbLocale locale(c.value);
  for (const int32_t number : {0, 137, -1, INT_MIN, INT_MAX}) {
    SCOPED_TRACE(number);
    const std::optional<std::string> name = locale_item(number, 0);
    if (c.record == kNoRecord) {
      EXPECT_EQ(name, std::nullopt);
    } else {
      EXPECT_EQ(name, c.record);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(LocaleSelection, EnvironmentChoice, ::testing::ValuesIn(kEnvironmentCases),
                         [](const auto &info) { return std::string(info.param.label); });

TEST(LocaleSelection, RecordNumbersIgnoreTheEnvironment) {
  ScopedOrbLocale locale("not a locale");
  for (int32_t number = 1; number <= CORVINEL_LOCALE_RECORDS; ++number) {
    EXPECT_EQ(locale_item(number, 0), ORBlocaleData[number - 1][0].text) << number;
  }
  EXPECT_EQ(locale_item(136, 0), "Chinese_XX");
}

TEST(LocaleSelection, TheEnvironmentIsReadOnEveryCall) {
  {
    ScopedOrbLocale locale("ja_JP");
    EXPECT_EQ(locale_item(0, 5), "JP");
  }
  {
    ScopedOrbLocale locale("de_DE");
    EXPECT_EQ(locale_item(0, 5), "DE");
  }
}

TEST(LocaleSelection, FailureLeavesTheBufferZeroFilled) {
  ScopedOrbLocale locale("xx_YY");
  std::vector<char> buffer(40, 'Z');
  EXPECT_EQ(getORBLocDB(buffer.data(), 32, 0, 0), -1);
  EXPECT_EQ(std::string(buffer.data(), 32), std::string(32, '\0'));
  EXPECT_EQ(std::string(buffer.data() + 32, 8), std::string(8, 'Z')) << "only outcap bytes are touched";
}

struct CapacityCase {
  const char *label;
  int32_t item;
  int32_t spare;     // outcap minus the item's length
  int32_t expected;  // result; -2 stands for "the item's length"
};

void PrintTo(const CapacityCase &c, std::ostream *out) { *out << c.label; }

constexpr int32_t kLength = -2;
const CapacityCase kCapacityCases[] = {
    {"ExactFitHasNoTerminator", 0, 0, kLength},
    {"OneShortFails", 0, -1, -1},
    {"RoomToSpareIsZeroFilled", 0, 5, kLength},
    {"AbsentItemFitsNoRoom", 9, 0, 0},
    {"NegativeCapacityFailsEvenForAbsentItems", 9, -1, -1},
    {"ItemCodeBelowRange", -1, 10, -1},
    {"ItemCodeAboveRange", 189, 10, -1},
};

class Capacity : public ::testing::TestWithParam<CapacityCase> {};

TEST_P(Capacity, CopiesWhatFitsAndNeverTruncates) {
  const CapacityCase &c = GetParam();
  constexpr int32_t kLocale = 53;  // English_UnitedStates
  const locitem *stored = c.item >= 0 && c.item < CORVINEL_LOCALE_ITEMS ? &ORBlocaleData[kLocale - 1][c.item] : nullptr;
  const int32_t length = stored != nullptr ? stored->length : 0;
  const int32_t outcap = length + c.spare;
  std::vector<char> buffer(static_cast<std::size_t>(std::max(outcap, 0)) + 8, 'Z');
  const int32_t result = getORBLocDB(buffer.data(), outcap, c.item, kLocale);
  EXPECT_EQ(result, c.expected == kLength ? length : c.expected);
  const std::size_t zeroed = static_cast<std::size_t>(std::max(outcap, 0));
  if (result > 0) {
    EXPECT_EQ(std::memcmp(buffer.data(), stored->text, static_cast<std::size_t>(result)), 0);
    EXPECT_EQ(std::string(buffer.data() + result, zeroed - result), std::string(zeroed - result, '\0'));
  } else {
    EXPECT_EQ(std::string(buffer.data(), zeroed), std::string(zeroed, '\0'));
  }
  EXPECT_EQ(std::string(buffer.data() + zeroed, 8), std::string(8, 'Z'));
}

INSTANTIATE_TEST_SUITE_P(LocaleSelection, Capacity, ::testing::ValuesIn(kCapacityCases),
                         [](const auto &info) { return std::string(info.param.label); });

TEST(LocaleSelection, NullBufferOnlyTakesAbsentItems) {
  EXPECT_EQ(getORBLocDB(nullptr, 0, 9, 53), 0);
  EXPECT_EQ(getORBLocDB(nullptr, 100, 0, 53), -1);
}

}  // namespace

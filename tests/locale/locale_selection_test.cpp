// getORBLocDB: choice of the record by number or by ORB_LOCALE, and the
// copy into the caller's buffer.

#include <algorithm>
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

constexpr const char *kUnset = nullptr, *kNoRecord = nullptr;

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
    {"BlankSeparator", "fr CA", "French_Canada"},
    {"EncodingSuffix", "de_DE.UTF-8", "German_Germany"},
    {"ModifierSuffix", "sr_RS@latin", "Serbian_Serbia"},
    {"SecondaryCodeIsNotMatched", "zt_TW", kNoRecord},
    {"UnknownCountry", "en_XX", kNoRecord},
    {"LanguageOnly", "en", kNoRecord},
    {"FourCharacters", "en_U", kNoRecord},
    {"NonAsciiBytes", "\xC3\xA9n_US", kNoRecord},
    {"LongValue", kLongValue.c_str(), "French_Canada"},
};

class EnvironmentChoice : public ::testing::TestWithParam<EnvironmentCase> {};

// Numbers outside 1..136 take the environment, read anew on every call;
// record numbers ignore it.
TEST_P(EnvironmentChoice, SelectsTheRecordForEveryNonRecordNumber) {
  const EnvironmentCase &c = GetParam();
  ScopedOrbLocale locale(c.value);
  for (const int32_t number : {0, 137, -1, INT_MIN, INT_MAX}) {
    EXPECT_EQ(locale_item(number, 0), c.record ? std::optional<std::string>(c.record) : std::nullopt) << number;
  }
  EXPECT_EQ(locale_item(1, 0), "Afrikaans_SouthAfrica");
  EXPECT_EQ(locale_item(136, 0), "Chinese_XX");
}

INSTANTIATE_TEST_SUITE_P(LocaleSelection, EnvironmentChoice, ::testing::ValuesIn(kEnvironmentCases),
                         [](const auto &info) { return std::string(info.param.label); });

struct CapacityCase {
  const char *label;
  int32_t locale;    // 0: ORB_LOCALE, set to a value no record matches
  int32_t item;
  int32_t spare;     // outcap minus the item's length
  int32_t expected;  // result; kLength stands for the item's length
};

void PrintTo(const CapacityCase &c, std::ostream *out) { *out << c.label; }

constexpr int32_t kLength = -2;
constexpr int32_t kEnglish = 53;
const CapacityCase kCapacityCases[] = {
    {"ExactFitHasNoTerminator", kEnglish, 0, 0, kLength},
    {"OneShortFails", kEnglish, 0, -1, -1},
    {"RoomToSpareIsZeroFilled", kEnglish, 0, 5, kLength},
    {"AbsentItemFitsNoRoom", kEnglish, 9, 0, 0},
    {"NegativeCapacityFailsEvenForAbsentItems", kEnglish, 9, -1, -1},
    {"ItemCodeBelowRange", kEnglish, -1, 10, -1},
    {"ItemCodeAboveRange", kEnglish, 189, 10, -1},
    {"NoRecordLeavesZeros", 0, 0, 32, -1},
};

class Capacity : public ::testing::TestWithParam<CapacityCase> {};

// The item is copied whole or not at all; exactly outcap bytes are zero-filled around it.
TEST_P(Capacity, CopiesWhatFitsAndNeverTruncates) {
  const CapacityCase &c = GetParam();
  ScopedOrbLocale environment("xx_YY");
  const bool valid = c.item >= 0 && c.item < CORVINEL_LOCALE_ITEMS;
  const locitem *stored = valid ? &ORBlocaleData[kEnglish - 1][c.item] : nullptr;
  const int32_t outcap = (stored ? stored->length : 0) + c.spare;
  const std::size_t zeroed = static_cast<std::size_t>(std::max(outcap, 0));
  std::vector<char> buffer(zeroed + 8, 'Z');
  const int32_t result = getORBLocDB(buffer.data(), outcap, c.item, c.locale);
  EXPECT_EQ(result, c.expected == kLength ? stored->length : c.expected);
  std::string expected(zeroed, '\0');
  if (result > 0) expected.replace(0, static_cast<std::size_t>(result), stored->text);
  EXPECT_EQ(std::string(buffer.data(), zeroed), expected);
  EXPECT_EQ(std::string(buffer.data() + zeroed, 8), std::string(8, 'Z'));
}

INSTANTIATE_TEST_SUITE_P(LocaleSelection, Capacity, ::testing::ValuesIn(kCapacityCases),
                         [](const auto &info) { return std::string(info.param.label); });

TEST(LocaleSelection, NullBufferOnlyTakesAbsentItems) {
  EXPECT_EQ(getORBLocDB(nullptr, 0, 9, kEnglish), 0);
  EXPECT_EQ(getORBLocDB(nullptr, 100, 0, kEnglish), -1);
}

}  // namespace

// Placing a date text: the shortcut that cuts a text too wide by whole
// units before expansion gives the result and bytes expansion gives for
// the whole text, over generated texts in three session encodings and in
// 16-bit units.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "encoding/output_expansion.h"
#include "nldate/date_placement.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace corvinel::testing {
namespace {

// A text of plain bytes and escapes: ASCII, Latin-1, CJK, the euro sign,
// surrogate halves and pairs (tag characters among them).
std::string random_text(std::mt19937 &random) {
  static const char *const kPieces[] = {"a", "Z", "1", " ", ":", "<", "<U00E9>", "<u00FC>", "<U20AC>",
                                        "<U5E74>", "<U0E04>", "<UD83D><UDE00>", "<UDB40><UDC41>",
                                        "<UD800>", "<Uzz12>", "<U00A4>", "%"};
  std::string text;
  const int pieces = static_cast<int>(random() % 60);
  for (int i = 0; i < pieces; ++i) text += kPieces[random() % std::size(kPieces)];
  return text;
}

TEST(DatePlacement, ShortcutGivesWhatExpansionGives) {
  std::mt19937 random(1989);
  for (const char *session_name : {kUtf8Locale, kLatin1Locale, kEucJpLocale}) {
    ScopedSessionLocale session(session_name);
    ASSERT_TRUE(session.active());
    for (int round = 0; round < 3000; ++round) {
      const std::string text = random_text(random);
      const int32_t width = 1 + static_cast<int32_t>(random() % 40);
      const int32_t capacity = width + static_cast<int32_t>(random() % 3) * width;
      const bool units = random() % 2 == 0;

      Request placed(width, 0, 0, capacity);
      if (units) placed.set_output_encoding(CORVINEL_ENC_UTF16LE);
      const int32_t result = nldate::place_at_start(*placed, text.data(), static_cast<int32_t>(text.size()));

      std::string work = text;
      work.resize(402);
      int32_t length = static_cast<int32_t>(text.size());
      int32_t encoding = 0;
      const int32_t expected = encoding::getExpResultFromNarrowCharBuf(
          0, units ? CORVINEL_ENC_UTF16LE : 0, &encoding, work.data(), &length, width, std::min(capacity, 402));
      ASSERT_EQ(result, expected) << session_name << " " << text << " width " << width << " capacity " << capacity;
      if (expected <= 0) {
        ASSERT_EQ(placed.text(), work.substr(0, static_cast<std::size_t>(length))) << text;
      }
      ASSERT_TRUE(placed.guards_intact());
    }
  }
}

}  // namespace
}  // namespace corvinel::testing

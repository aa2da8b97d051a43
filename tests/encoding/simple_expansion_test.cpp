// The expansion shortcut of the common session codesets against the general
// output expansion, over generated texts.
#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/fmtreq.h"
#include "encoding/output_expansion.h"
#include "encoding/simple_expansion.h"
#include "support/session_locales.h"

namespace {

using namespace corvinel;
using namespace corvinel::testing;

// Generated texts: escapes of every kind, raw bytes, surrogate halves,
// texts past 200 units and past the 402-byte step, every width and room.
class SimpleExpansion : public ::testing::TestWithParam<const char *> {};

TEST_P(SimpleExpansion, MatchesTheGeneralExpansion) {
  ScopedSessionLocale session(GetParam());
  ASSERT_TRUE(session.active());
  const encoding::SessionCodeset codeset = encoding::read_session_codeset();
  constexpr const char *kPieces[] = {"1",       "-",       " ",       "<U20AC>", "<u00a4>",
                                     "<U00A0>", "<U00E9>", "<UFFE5>", "<U0142>", "<UD83D>",
                                     "<UDE00>", "<UG0A0>", "<U00e",   "<",       "\xE9",
                                     "<U0041>", "<U007F>", "<U0800>"};
  std::mt19937 random(7);
  int failures = 0;
  for (int n = 0; n < 3000; ++n) {
    std::string text;
    const bool long_euros = n % 50 == 25;
    const int pieces =
        static_cast<int>(long_euros ? 120 + random() % 80 : random() % (n % 50 == 0 ? 260 : 14));
    for (int p = 0; p < pieces; ++p)
      text += long_euros ? "<U20AC>" : kPieces[random() % std::size(kPieces)];
    const int32_t width = long_euros ? 600 : static_cast<int32_t>(random() % 42) - 1;
    const int32_t room =
        std::array{0, std::max(width, 0), 2 * std::max(width, 0), 1200}[random() % 4];
    for (const int32_t outenc : {0, CORVINEL_ENC_UTF16LE}) {
      std::string expected = text + std::string(1200, '#'), actual = expected;
      int32_t expected_len = static_cast<int32_t>(text.size()), actual_len = expected_len;
      int32_t expected_enc = 7, actual_enc = 7;
      const int32_t b = corvinel::encoding::getExpResultFromNarrowCharBuf(
          0, outenc, &expected_enc, expected.data(), &expected_len, width, room);
      const int32_t a =
          encoding::expand_output(codeset, outenc, &actual_enc, actual.data(), &actual_len, width, room);
      if ((a != b || actual_len != expected_len || actual != expected ||
           actual_enc != expected_enc) &&
          ++failures <= 5) {
        ADD_FAILURE() << "\"" << text << "\" width " << width << " room " << room << " outenc "
                      << outenc << ": " << a << " against " << b;
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(Sessions, SimpleExpansion,
                         ::testing::Values(kUtf8Locale, kLatin1Locale, kAsciiLocale, kEucJpLocale));

}  // namespace

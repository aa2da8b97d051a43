// Every number, currency and name format at every width from 0 to 40, with
// and without the limit check, over a spread of values and every missing
// value, in the locales of the database, in the session encoding and with
// 16-bit delivery.  Only promises every correct rendering keeps are checked:
// nothing written outside the buffer, the request handed back, a limit code
// only when asked for and then nothing written, outlen inside the buffer, a
// missing value shown by its mark alone.
//
// Sampling, to stay within seconds under the sanitizers:
//   - the general number and name formats run in all 136 locales; each
//     currency format in 3, spread so that the 80 of them meet every locale;
//   - every present value runs at every width; the missing values take
//     turns, one per width and locale, so that each format meets every
//     missing value at several widths;
//   - the limit check (on, off), delivery (session encoding, 16-bit units),
//     capacity (the width, 5 more, twice and 3 more) and decimals take turns
//     call by call: all four combinations of check and delivery come every 4
//     calls, and as a locale's calls are 615, each value meets each width
//     with and without the check in neighbouring locales;
//   - the session encoding turns locale by locale between UTF-8, ISO-8859-1
//     and EUC-JP.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/locale_db.h"
#include "frame/format_catalogue.h"
#include "frame/guarded_request.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace {

using corvinel::testing::all_formats;
using corvinel::testing::FormatCase;
using corvinel::testing::GuardedRequest;

constexpr int32_t kMaxWidth = 40;
constexpr int32_t kEngineWidthLimit = 32;  // the engine may clamp wider fields to this
constexpr int kLocalesPerCurrencyFormat = 3;
constexpr int kCurrencyLocaleStride = 46;  // 80 formats x 3 locales, 46 apart, meet all 136
constexpr int64_t kHostHighHalf = int64_t{0x5A5A} << 32;  // xcode_state bits the host owns

constexpr double kInf = std::numeric_limits<double>::infinity();
const std::array kPresentValues = {
    0.0, -0.0, 5e-324, 1e-7, 2.7, 12.0, -1234.5678, 123456.789, 1e15, 1e300, -1e300,
    std::nan(""), kInf, -kInf};

// The 28 missing values and the one whose code shows no mark.
std::vector<std::pair<double, char>> missing_values() {
  std::vector<std::pair<double, char>> values;
  for (const char mark : std::string("_.ABCDEFGHIJKLMNOPQRSTUVWXYZ")) {
    values.emplace_back(corvinel::testing::missing(mark), mark);
  }
  values.emplace_back(std::bit_cast<double>(0xFFFF000000000000ull), ' ');
  return values;
}

bool is_limit_code(int32_t result) {
  return result >= CORVINEL_WIDTH_TOO_SMALL && result <= CORVINEL_DECIMALS_TOO_LARGE;
}

bool uses_engine(const FormatCase &c) {
  return c.family == "number" || c.family == "percent" || c.family == "currency";
}

// The first broken promise of one call, or an empty text.  `sent` is the
// request as it went in; `mark` is the missing value's mark, or 0.
std::string violation(const FormatCase &c, const GuardedRequest &r, const fmtreq &sent,
                      int32_t result, char mark) {
  const fmtreq &back = *r;
  if (!r.guards_intact()) return "wrote outside the buffer";
  const bool width_back =
      back.width == sent.width ||
      (uses_engine(c) && sent.width > kEngineWidthLimit && back.width == kEngineWidthLimit);
  if (!width_back || back.decimals != sent.decimals || back.value != sent.value ||
      back.reserved != sent.reserved || back.output != sent.output ||
      back.host_private[0] != sent.host_private[0] ||
      back.host_private[1] != sent.host_private[1] || back.locale != sent.locale ||
      back.xcode_a != sent.xcode_a || back.xcode_b != sent.xcode_b) {
    return "request not restored";
  }
  const int32_t delivered = static_cast<int32_t>(back.xcode_state);
  if ((back.xcode_state & ~int64_t{0xFFFFFFFF}) != kHostHighHalf ||
      (delivered != static_cast<int32_t>(sent.xcode_state) &&
       !(delivered == CORVINEL_ENC_UTF16LE && sent.xcode_b == CORVINEL_ENC_UTF16LE))) {
    return "delivered encoding wrong";
  }
  if (is_limit_code(result)) {
    if ((sent.flags & FMTREQ_CHECK_LIMITS) == 0) return "limit result without the check";
    if (!r.buffer_untouched() || back.outlen != sent.outlen) return "limit result wrote";
    if (back.capacity != sent.capacity || back.flags != sent.flags) return "limit result changed";
    return {};
  }
  const bool classic = c.calls_classic_rendering();
  if (result != CORVINEL_OK && !(classic && result == CORVINEL_DOES_NOT_FIT)) {
    return "unexpected result";
  }
  const int32_t capacity =
      c.narrows_capacity() ? std::min(sent.capacity, sent.width) : sent.capacity;
  if (back.capacity != capacity) return "capacity wrong";
  const uint8_t flags = classic ? sent.flags | FMTREQ_LOCALE_CALLER : sent.flags;
  if (back.flags != flags) return "flags wrong";
  if (back.outlen < 0 || back.outlen > sent.capacity) return "outlen outside the buffer";
  if (mark != 0 && sent.xcode_b != CORVINEL_ENC_UTF16LE) {
    std::string field = r.field();
    std::erase(field, ' ');
    if (field.size() > 1 || (field.size() == 1 && field[0] != mark)) {
      return "missing value shows " + field;
    }
  }
  return {};
}

// A format and the locale numbers it runs in.
struct StressCase {
  FormatCase format;
  std::vector<int32_t> locales;
};

void PrintTo(const StressCase &c, std::ostream *os) { *os << c.format.name; }

std::vector<StressCase> number_and_name_formats() {
  std::vector<int32_t> every_locale(CORVINEL_LOCALE_RECORDS);
  std::iota(every_locale.begin(), every_locale.end(), 1);
  std::vector<StressCase> cases;
  int32_t currency = 0;
  for (const FormatCase &c : all_formats()) {
    if (c.family == "currency") {
      std::vector<int32_t> locales;
      for (int j = 0; j < kLocalesPerCurrencyFormat; ++j) {
        locales.push_back(1 + (currency + j * kCurrencyLocaleStride) % CORVINEL_LOCALE_RECORDS);
      }
      cases.push_back({c, locales});
      ++currency;
    } else if (uses_engine(c) || c.calls_classic_rendering() || c.family == "month" ||
               c.family == "quarter" || c.family == "weekday") {
      cases.push_back({c, every_locale});
    }
  }
  return cases;
}

class FormatStress : public ::testing::TestWithParam<StressCase> {};

TEST_P(FormatStress, EveryCallKeepsItsPromises) {
  const FormatCase &c = GetParam().format;
  constexpr std::array kSessions = {corvinel::testing::kUtf8Locale,
                                    corvinel::testing::kLatin1Locale,
                                    corvinel::testing::kEucJpLocale};
  const std::array decimals_turns = {c.defd, 0, 2, c.maxd, c.maxd + 1, -1, 99};
  const auto missing = missing_values();
  int failures = 0;
  uint32_t turn = 0;
  for (const int32_t locale : GetParam().locales) {
    corvinel::testing::ScopedSessionLocale session(kSessions[locale % kSessions.size()]);
    ASSERT_TRUE(session.active());
    for (int32_t width = 0; width <= kMaxWidth; ++width) {
      const auto &[missing_value, missing_mark] = missing[(width + locale) % missing.size()];
      for (std::size_t v = 0; v <= kPresentValues.size(); ++v) {
        const bool is_missing = v == kPresentValues.size();
        const double value = is_missing ? missing_value : kPresentValues[v];
        ++turn;
        const auto flags = static_cast<uint8_t>(turn % 2 != 0 ? FMTREQ_CHECK_LIMITS : 0);
        const bool units = (turn / 2) % 2 != 0;
        const std::array capacities = {width, width + 5, 2 * width + 3};
        const int32_t decimals = decimals_turns[turn % decimals_turns.size()];
        GuardedRequest r(width, decimals, value, capacities[turn % capacities.size()], flags);
        fmtreq *request = r.get();
        request->locale = locale;
        request->xcode_a = 7;
        request->xcode_b = units ? CORVINEL_ENC_UTF16LE : 0;
        request->xcode_state = kHostHighHalf;
        request->host_private[0] = 0x1111;
        request->host_private[1] = 0x2222;
        request->reserved = request;
        const fmtreq sent = *request;
        const int32_t result = c.render(request);
        const std::string broken = violation(c, r, sent, result, is_missing ? missing_mark : 0);
        if (!broken.empty() && ++failures <= 5) {
          ADD_FAILURE() << broken << ": locale " << locale << " width " << width << " capacity "
                        << sent.capacity << " decimals " << decimals << " value " << value
                        << " flags " << int{flags} << " xcode_b " << sent.xcode_b << " result "
                        << result;
        }
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(NumberAndNameFormats, FormatStress,
                         ::testing::ValuesIn(number_and_name_formats()),
                         [](const auto &info) { return info.param.format.name; });

}  // namespace

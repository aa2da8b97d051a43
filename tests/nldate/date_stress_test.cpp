// Every date, datetime and time format at widths 0 to 40 and 200, with and
// without the limit check, over values inside, at and past both ends of
// their range, every missing value, NaN and infinities, in all 136 locales
// under UTF-8, ISO-8859-1 and EUC-JP sessions and in 16-bit units: nothing
// written outside the buffer, the request handed back, a limit code only
// when asked for, outlen inside the buffer, no result a format may not give.
// The optimised build runs the whole sweep; under the sanitizers a
// deterministic third of the locales.
#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/locale_db.h"
#include "frame/format_catalogue.h"
#include "frame/guarded_request.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace {

using namespace corvinel::testing;

constexpr int64_t kHostHighHalf = int64_t{0x5A5A} << 32;
constexpr double kInf = std::numeric_limits<double>::infinity();
const std::array kValues = {
    0.0,          15760.0,       -138061.0,    6589335.0,    -138062.0,      6589336.0,
    1668955132.5, 86399.9995,    -1.0,         -11928470400.0, 569318630399.9995, 569318630400.0,
    1e300,        -1e300,        5e-324,       std::nan(""),  kInf,            -kInf};
constexpr std::string_view kMarks = "_.ABCDEFGHIJKLMNOPQRSTUVWXYZ";

#if defined(__SANITIZE_ADDRESS__)
constexpr int32_t kLocaleStep = 3;
#else
constexpr int32_t kLocaleStep = 1;
#endif

auto kept_fields(const fmtreq &q) {
  return std::tie(q.width, q.decimals, q.value, q.reserved, q.output, q.host_private[0],
                  q.host_private[1], q.locale, q.xcode_a, q.xcode_b, q.flags, q.capacity);
}

std::string violation(const GuardedRequest &r, const fmtreq &sent, int32_t result) {
  const fmtreq &back = *r;
  if (!r.guards_intact()) return "wrote outside the buffer";
  if (kept_fields(back) != kept_fields(sent)) return "request not restored";
  const bool units = sent.xcode_b == CORVINEL_ENC_UTF16LE;
  if (back.xcode_state != kHostHighHalf && !(units && back.xcode_state == (kHostHighHalf | CORVINEL_ENC_UTF16LE))) {
    return "delivered encoding wrong";
  }
  if (result >= CORVINEL_WIDTH_TOO_SMALL && result <= CORVINEL_DECIMALS_TOO_LARGE) {
    if ((sent.flags & FMTREQ_CHECK_LIMITS) == 0) return "limit result without the check";
    return r.buffer_untouched() && back.outlen == sent.outlen ? "" : "limit result wrote";
  }
  if (result != CORVINEL_OK) return "unexpected result";
  const bool untouched = back.outlen == GuardedRequest::kUnsetOutlen && r.buffer_untouched();
  if (!untouched && (back.outlen < 0 || back.outlen > std::max(sent.capacity, 0))) return "outlen";
  return {};
}

std::vector<FormatCase> date_formats() {
  std::vector<FormatCase> cases;
  for (const FormatCase &c : all_formats()) {
    if (c.family.starts_with("date") || c.family.starts_with("time") || c.family.starts_with("single-")) {
      cases.push_back(c);
    }
  }
  return cases;
}

class DateStress : public ::testing::TestWithParam<FormatCase> {};

TEST_P(DateStress, EveryCallKeepsItsPromises) {
  const FormatCase &c = GetParam();
  constexpr std::array kSessions = {kUtf8Locale, kLatin1Locale, kEucJpLocale};
  const std::array decimals_turns = {0, 3, 1, -1, 99, INT_MAX};
  std::vector<int32_t> widths;
  for (int32_t w = 0; w <= 40; ++w) widths.push_back(w);
  widths.push_back(200);
  int failures = 0;
  uint32_t turn = 0;
  for (int32_t locale = 1; locale <= CORVINEL_LOCALE_RECORDS; locale += kLocaleStep) {
    ScopedSessionLocale session(kSessions[locale % kSessions.size()]);
    ASSERT_TRUE(session.active());
    for (const int32_t width : widths) {
      for (std::size_t v = 0; v <= kValues.size(); ++v) {
        const double value = v < kValues.size() ? kValues[v] : missing(kMarks[(width + locale) % kMarks.size()]);
        ++turn;
        const auto flags = static_cast<uint8_t>(turn % 2 != 0 ? FMTREQ_CHECK_LIMITS : 0);
        const int32_t capacity = std::array{width, width + 5, 2 * width + 3}[turn % 3];
        GuardedRequest r(width, decimals_turns[turn % decimals_turns.size()], value, capacity, flags);
        fmtreq *request = r.get();
        request->locale = locale;
        request->xcode_a = 7;
        request->xcode_b = (turn / 2) % 2 != 0 ? CORVINEL_ENC_UTF16LE : 0;
        request->xcode_state = kHostHighHalf;
        request->host_private[0] = 0x1111;
        request->reserved = request;
        const fmtreq sent = *request;
        const int32_t result = c.render(request);
        const std::string broken = violation(r, sent, result);
        if (!broken.empty() && ++failures <= 5) {
          ADD_FAILURE() << broken << ": locale " << locale << " width " << width << " capacity " << capacity
                        << " decimals " << sent.decimals << " value " << value << " flags " << int{flags}
                        << " xcode_b " << sent.xcode_b << " result " << result;
        }
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(DateFormats, DateStress, ::testing::ValuesIn(date_formats()),
                         [](const auto &info) { return info.param.name; });

}  // namespace

// Every number, currency, percent and name format at widths 0 to 40, with
// and without the limit check, over a spread of values and every missing
// value, in the locales of the database, in the session encoding and in
// 16-bit units: nothing written outside the buffer, the request handed back,
// a limit code only when asked for and then nothing written, every byte of
// the field written, outlen inside the buffer, a missing value shown by its
// mark alone.  Every format runs in
// every locale; to stay fast under the sanitizers the missing values, the
// limit check, delivery, capacity, decimals and the session (UTF-8,
// ISO-8859-1, EUC-JP) take turns.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>
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

constexpr int32_t kMaxWidth = 40;
constexpr int32_t kRecords = CORVINEL_LOCALE_RECORDS;
// The engine answers a field wider than this with this many "*".
constexpr int32_t kClamp = 32;
constexpr int64_t kHostHighHalf = int64_t{0x5A5A} << 32;  // xcode_state bits the host owns
constexpr int64_t kUnitsState = kHostHighHalf | CORVINEL_ENC_UTF16LE;
constexpr double kInf = std::numeric_limits<double>::infinity();
const std::array kPresentValues = {0.0,        -0.0, 5e-324, 1e-7,   2.7,          12.0, -1234.5678,
                                   123456.789, 1e15, 1e300,  -1e300, std::nan(""), kInf, -kInf};
// The marks of the 28 missing values; ' ' for the code that shows none.
constexpr std::string_view kMarks = "_.ABCDEFGHIJKLMNOPQRSTUVWXYZ ";

double missing_value(char mark) {
  return mark == ' ' ? std::bit_cast<double>(0xFFFF000000000000ull) : missing(mark);
}

// The fields every call hands back as they were (the width apart).
auto kept_fields(const fmtreq &q) {
  return std::tie(q.decimals, q.value, q.reserved, q.output, q.host_private[0], q.host_private[1],
                  q.locale, q.xcode_a, q.xcode_b);
}

// The first broken promise of one call, or an empty text.  `sent` is the
// request as it went in; `mark` is the missing value's mark, or 0.
std::string violation(const FormatCase &c, const GuardedRequest &r, const fmtreq &sent,
                      int32_t result, char mark) {
  const fmtreq &back = *r;
  if (!r.guards_intact()) return "wrote outside the buffer";
  const bool clamped = c.clamps_width() && sent.width > kClamp && back.width == kClamp;
  if (!(back.width == sent.width || clamped) || kept_fields(back) != kept_fields(sent)) {
    return "request not restored";
  }
  const bool units = sent.xcode_b == CORVINEL_ENC_UTF16LE;
  if (back.xcode_state != kHostHighHalf && !(units && back.xcode_state == kUnitsState)) {
    return "delivered encoding wrong";
  }
  if (result >= CORVINEL_WIDTH_TOO_SMALL && result <= CORVINEL_DECIMALS_TOO_LARGE) {
    if ((sent.flags & FMTREQ_CHECK_LIMITS) == 0) return "limit result without the check";
    const auto rest = [](const fmtreq &q) { return std::tie(q.outlen, q.capacity, q.flags); };
    return r.buffer_untouched() && rest(back) == rest(sent) ? "" : "limit result wrote";
  }
  const bool classic = c.calls_classic_rendering();
  if (result != CORVINEL_OK && !(classic && result == CORVINEL_DOES_NOT_FIT)) {
    return "unexpected result";
  }
  const int32_t room = c.narrows_capacity() ? std::min(sent.capacity, sent.width) : sent.capacity;
  if (back.capacity != room) return "capacity wrong";
  if (back.flags != (classic ? sent.flags | FMTREQ_LOCALE_CALLER : sent.flags)) {
    return "flags wrong";
  }
  if (back.outlen < 0 || back.outlen > sent.capacity) return "outlen outside the buffer";
  // The buffer came filled with "~": a byte of the field left so was never written.
  if (r.field().find('~') != std::string::npos) return "field not wholly written";
  std::string field = r.field();
  std::erase(field, ' ');
  // The classic-based formats swap "." for the locale's one-byte decimal
  // separator anywhere in the field, in the mark "." too.
  char shown = mark;
  if (mark == '.' && classic) {
    char decimal[CORVINEL_LOCALE_TEXT];
    if (getORBLocDB(decimal, sizeof decimal, 172, sent.locale) == 1) shown = decimal[0];
  }
  if (mark != 0 && !units && !field.empty() && field != std::string(1, shown)) {
    return "missing value shows " + field;
  }
  return {};
}

std::vector<FormatCase> number_and_name_formats() {
  constexpr std::array kFamilies = {"number", "currency", "percent", "classic",
                                    "best",   "month",    "quarter", "weekday"};
  std::vector<FormatCase> cases;
  for (const FormatCase &c : all_formats()) {
    if (std::ranges::find(kFamilies, c.family) != kFamilies.end()) cases.push_back(c);
  }
  return cases;
}

class FormatStress : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatStress, EveryCallKeepsItsPromises) {
  const FormatCase &c = GetParam();
  constexpr std::array kSessions = {kUtf8Locale, kLatin1Locale, kEucJpLocale};
  const std::array decimals_turns = {c.defd, 0, 2, c.maxd, c.maxd + 1, -1, 99};
  int failures = 0;
  uint32_t turn = 0;
  for (int32_t locale = 1; locale <= kRecords; ++locale) {
    ScopedSessionLocale session(kSessions[locale % kSessions.size()]);
    ASSERT_TRUE(session.active());
    for (int32_t width = 0; width <= kMaxWidth; ++width) {
      for (std::size_t v = 0; v <= kPresentValues.size(); ++v) {
        // The last value is missing: a different one at each width and locale.
        const char mark = v < kPresentValues.size() ? 0 : kMarks[(width + locale) % kMarks.size()];
        ++turn;
        const auto flags = static_cast<uint8_t>(turn % 2 != 0 ? FMTREQ_CHECK_LIMITS : 0);
        const int32_t capacity = std::array{width, width + 5, 2 * width + 3}[turn % 3];
        const int32_t decimals = decimals_turns[turn % decimals_turns.size()];
        const double value = mark != 0 ? missing_value(mark) : kPresentValues[v];
        GuardedRequest r(width, decimals, value, capacity, flags);
        fmtreq *request = r.get();
        request->locale = locale;
        request->xcode_a = 7;
        request->xcode_b = (turn / 2) % 2 != 0 ? CORVINEL_ENC_UTF16LE : 0;
        request->xcode_state = kHostHighHalf;
        request->host_private[0] = 0x1111;
        request->host_private[1] = 0x2222;
        request->reserved = request;
        const fmtreq sent = *request;
        const int32_t result = c.render(request);
        const std::string broken = violation(c, r, sent, result, mark);
        if (!broken.empty() && ++failures <= 5) {
          ADD_FAILURE() << broken << ": locale " << locale << " width " << width << " capacity "
                        << capacity << " decimals " << decimals << " value " << value << " flags "
                        << int{flags} << " xcode_b " << sent.xcode_b << " result " << result;
        }
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(NumberAndNameFormats, FormatStress,
                         ::testing::ValuesIn(number_and_name_formats()),
                         [](const auto &info) { return info.param.name; });

}  // namespace

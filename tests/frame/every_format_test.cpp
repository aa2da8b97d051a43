// Every format through the frame: the limit check, missing values, values out
// of range, and requests that test the buffer's bounds (not present values' text).
#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/missing.h"
#include "frame/format_catalogue.h"
#include "frame/guarded_request.h"
#include "support/request_builder.h"

namespace {

using corvinel::testing::FormatCase;
using corvinel::testing::missing;
using Request = corvinel::testing::GuardedRequest;

constexpr double kInf = std::numeric_limits<double>::infinity();
const double kNoMark = std::bit_cast<double>(0xFFFF000000000000ull);  // missing, code byte 0
constexpr uint8_t kCheck = FMTREQ_CHECK_LIMITS;

class EveryFormat : public ::testing::TestWithParam<FormatCase> {};

std::set<int32_t> around(std::initializer_list<int32_t> limits) {
  std::set<int32_t> values{INT_MIN, -1, 0, 99, INT_MAX};
  for (int32_t limit : limits) values.insert({limit - 1, limit, limit + 1});
  return values;
}

TEST_P(EveryFormat, RefusesBadLimitsInOrderOnlyWhenAsked) {
  const FormatCase &c = GetParam();
  const int32_t maxd = c.family.ends_with("-d0") ? 0 : c.maxd;
  for (const uint8_t flags : {uint8_t{0}, kCheck}) {
    for (const int32_t width : around({c.minw, c.maxw})) {
      for (const int32_t decimals : around({c.mind, maxd, c.maxd})) {
        const int32_t capacity = (width > 0 && width <= 300) ? width : 8;
        Request r(width, decimals, missing('.'), capacity, flags);
        const int32_t want = flags == 0          ? CORVINEL_OK
                             : width < c.minw    ? CORVINEL_WIDTH_TOO_SMALL
                             : width > c.maxw    ? CORVINEL_WIDTH_TOO_LARGE
                             : decimals < c.mind ? CORVINEL_DECIMALS_TOO_SMALL
                             : decimals > maxd   ? CORVINEL_DECIMALS_TOO_LARGE
                                                 : CORVINEL_OK;
        SCOPED_TRACE(::testing::Message() << "w" << width << " d" << decimals << " f" << +flags);
        ASSERT_EQ(c.render(r.get()), want);
        EXPECT_TRUE(r.guards_intact() && r.restored());
        if (want != CORVINEL_OK) {
          EXPECT_TRUE(r.buffer_untouched() && r->outlen == Request::kUnsetOutlen);
          EXPECT_TRUE(r->capacity == capacity && r->flags == flags);
        }
      }
    }
  }
}

// The mark stands at the units place of a number with `decimals` places
// (the right edge for decimals outside the field), two places further left
// for percents, at the right edge for the rest; not at all before the field.
std::string expected_field(const FormatCase &c, int32_t width, int32_t decimals, char mark) {
  std::string field(static_cast<std::size_t>(width), ' ');
  const int32_t units = width - 1 - (decimals >= 0 && decimals < width ? decimals : 0);
  const int32_t at = c.family == "number" ? units : c.family == "percent" ? units - 2 : width - 1;
  if (at >= 0) field[static_cast<std::size_t>(at)] = mark;
  return field;
}

TEST_P(EveryFormat, ShowsAMissingValueByItsMarkAlone) {
  const FormatCase &c = GetParam();
  for (const auto &[mark, value] : {std::pair{'.', missing('.')}, {'_', missing('_')},
                                    {'A', missing('A')}, {'Z', missing('Z')}, {' ', kNoMark}}) {
    for (const int32_t width : std::set{c.minw, c.defw, std::min(c.maxw, 40), c.minw + 3}) {
      for (const int32_t decimals :
           std::set{0, 1, 2, width - 4, width - 3, width - 2, width - 1, width, 31, 98, 99, -7}) {
        Request r(width, decimals, value, width + 5);
        SCOPED_TRACE(::testing::Message() << "'" << mark << "' w" << width << " d" << decimals);
        ASSERT_EQ(c.render(r.get()), CORVINEL_OK);
        EXPECT_TRUE(r.guards_intact() && r.restored());
        EXPECT_EQ(r->outlen, width);
        EXPECT_EQ(r->capacity, c.narrows_capacity() ? width : width + 5);
        EXPECT_EQ(r->flags, c.calls_classic_rendering() ? FMTREQ_LOCALE_CALLER : 0);
        std::string shown = r.buffer();
        if (c.family != "classic") {  // the whole buffer is cleared, not only the field
          EXPECT_EQ(shown, expected_field(c, width, decimals, mark) + "     ");
        } else {  // the classic rendering places it: blanks and at most the mark
          std::erase(shown.erase(static_cast<std::size_t>(width)), ' ');
          EXPECT_TRUE(shown.empty() || shown == std::string(1, mark)) << shown;
        }
      }
    }
  }
}

// Values just outside and inside the ends of a format's range; NaNs,
// infinities and huge values lie outside every range.  The date families
// show "*" (which they may also show in range, when nothing fits), the name
// formats a blank buffer.
TEST_P(EveryFormat, ShowsAValueOutOfRangeAsItsFamilyDoes) {
  const FormatCase &c = GetParam();
  std::vector<double> outside{std::nan(""), -std::nan(""), kInf, -kInf, 1e300, -1e300}, inside;
  const bool names = c.family == "month" || c.family == "quarter" || c.family == "weekday";
  if (c.family.ends_with("date")) {
    outside.insert(outside.end(), {-138062, -138061.5, 6589336, 6589336.5, 1e7});
    inside = {-138061, 0, 6589335.9999};
  } else if (c.family.find("datetime") != std::string::npos) {
    outside.insert(outside.end(), {-11928470400.5, -11928470401, 569318630400, 569318630400.5});
    inside = {-11928470400, 1e9, 569318630399.999};
  } else if (names) {
    const double last = c.family == "month" ? 12 : c.family == "quarter" ? 4 : 7;
    outside.insert(outside.end(), {0, 0.999, -1, -0.0, last + 0.001, last + 1});
    inside = {1, 1.5, last - 0.25, last};
  } else {
    return;  // no range
  }
  const bool stars = !names;
  for (const bool out : {true, false}) {
    for (const double value : out ? outside : inside) {
      for (const int32_t width : {c.minw, c.defw}) {
        const auto w = static_cast<std::size_t>(width);
        Request r(width, 0, value, width + 4);
        SCOPED_TRACE(::testing::Message() << value << " w" << width);
        ASSERT_EQ(c.render(r.get()), CORVINEL_OK);
        EXPECT_TRUE(r.guards_intact() && r.restored());
        const bool shows_out_of_range =
            stars ? r.field() == std::string(w, '*') && r->outlen == width
                  : r.buffer() == std::string(w + 4, ' ') && r->outlen == width;
        if (out || !stars) { EXPECT_EQ(shows_out_of_range, out); }
      }
    }
  }
}

const std::vector<double> kSweepValues{
    0.0, -0.0, 1.0, -1.0, 0.5, 12.0, 13.0, 86399.5, -3723.5, 1e300, -1e300, 5e-324,
    std::nan(""), kInf, -kInf, -138062, 6589335, 569318630400.0, missing('.'), missing('_'),
    missing('Z'), kNoMark, std::bit_cast<double>(0xFFFFFE0000000001ull) /* NaN, not missing */};

// The first broken promise of one call, or an empty text.
std::string violation(const FormatCase &c, const Request &r, int32_t result) {
  const fmtreq &sent = r.before();
  if (!r.guards_intact()) return "wrote outside the buffer";
  const bool clamped = c.clamps_width() && sent.width > 32 && r->width == 32 &&
                       r.field().find_first_not_of('*') == std::string::npos;
  if (!r.restored(!clamped)) return "request not restored";
  const bool limit_code =
      result >= CORVINEL_WIDTH_TOO_SMALL && result <= CORVINEL_DECIMALS_TOO_LARGE;
  if ((limit_code || (zmiss(*sent.value) && result != CORVINEL_OK)) && !(sent.flags & kCheck)) {
    return "refused without the check";
  }
  const bool untouched = r->outlen == Request::kUnsetOutlen && r.buffer_untouched();
  if (!untouched && (r->outlen < 0 || r->outlen > std::max(sent.capacity, 0))) return "outlen";
  // Narrowed once the limits pass, also when the classic rendering's own
  // code comes back because its text could not be expanded.
  const bool narrowed = c.narrows_capacity() && !limit_code;
  const int32_t capacity = narrowed ? std::min(sent.capacity, r->width) : sent.capacity;
  return r->capacity == capacity ? "" : "capacity changed";
}

// Fields that fit their buffer and fields that overhang it, and requests
// that break the host's contract: no room, a negative width or capacity,
// extreme decimals, locale numbers that name no record, encodings that are
// no encoding.  The check is on for every other call (an odd number of
// decimals a turn, so that each decimals meets both); locale and transcoding
// context take turns of their own.
TEST_P(EveryFormat, StaysInsideItsBufferForAnyRequest) {
  const FormatCase &c = GetParam();
  std::vector<std::pair<int32_t, int32_t>> shapes{{-5, 10}, {20, -1}, {INT_MAX, 16}, {INT_MIN, 16}};
  for (int32_t w = 0; w <= 40; ++w) shapes.insert(shapes.end(), {{w, w}, {w, w + 3}, {w, w / 2}});
  // Seven decimals, five locales and three contexts a turn: every pairing meets.
  const int32_t locales[] = {0, 136, 137, -1, INT_MIN};
  const std::pair<int32_t, int64_t> contexts[] = {
      {0, 0}, {CORVINEL_ENC_UTF16LE, 0}, {INT_MAX, CORVINEL_ENC_UTF16BE}};
  unsigned turn = 0;
  for (const auto &[width, capacity] : shapes) {
    for (const double value : kSweepValues) {
      for (const int32_t decimals : {0, 3, 31, 99, -1, INT_MIN, INT_MAX}) {
        const uint8_t flags = ++turn % 2 ? kCheck : 0;
        const int32_t locale = locales[turn % std::size(locales)];
        const auto [xcode_b, xcode_state] = contexts[turn % std::size(contexts)];
        Request r(width, decimals, value, capacity, flags);
        r.set_context(locale, xcode_b, xcode_state);
        const int32_t result = c.render(r.get());
        ASSERT_EQ(violation(c, r, result), "")
            << "w" << width << " capacity " << capacity << " d" << decimals << " value " << value
            << " f" << +flags << " locale " << locale << " xcode_b " << xcode_b << " xcode_state "
            << xcode_state;
      }
    }
  }
}

// No buffer: nothing written; no value: the standard missing value.
TEST_P(EveryFormat, AcceptsANullBufferOrValue) {
  const FormatCase &c = GetParam();
  Request r(c.defw, c.defd, 0.0, c.defw);
  for (const double &value : kSweepValues) {
    fmtreq request = *r;
    request.value = &value;
    request.output = nullptr;
    EXPECT_EQ(c.render(&request), CORVINEL_OK);
    EXPECT_TRUE(request.outlen == 0 || request.outlen == Request::kUnsetOutlen) << value;
  }
  fmtreq request = *r;
  request.value = nullptr;
  EXPECT_EQ(c.render(&request), CORVINEL_OK);
  EXPECT_EQ(request.value, nullptr);
  if (c.family != "classic") { EXPECT_EQ(r.buffer(), expected_field(c, c.defw, c.defd, '.')); }
  EXPECT_TRUE(r.guards_intact());
}

INSTANTIATE_TEST_SUITE_P(All, EveryFormat, ::testing::ValuesIn(corvinel::testing::all_formats()),
                         [](const auto &info) { return info.param.name; });

}  // namespace

// Safety of every format over a wide sweep of requests: nothing written
// outside the buffer, the request handed back, outlen within the buffer.
// Present values are not checked for their text here.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/missing.h"
#include "frame/format_catalogue.h"
#include "frame/guarded_request.h"
#include "support/request_builder.h"

namespace {

using corvinel::testing::all_formats;
using corvinel::testing::FormatCase;
using corvinel::testing::GuardedRequest;
using corvinel::testing::missing;

std::vector<double> sweep_values() {
  constexpr double inf = std::numeric_limits<double>::infinity();
  return {0.0,
          -0.0,
          1.0,
          -1.0,
          0.5,
          12.0,
          13.0,
          86399.5,
          -3723.5,
          1e300,
          -1e300,
          5e-324,
          std::nan(""),
          inf,
          -inf,
          -138062,
          6589335,
          569318630400.0,
          missing('.'),
          missing('_'),
          missing('Z'),
          std::bit_cast<double>(0xFFFF000000000000ull),  // missing, no mark
          std::bit_cast<double>(0xFFFFFE0000000001ull),  // a NaN that is not missing
  };
}

// The first broken promise of one call, or an empty text.
std::string violation(const FormatCase &c, const GuardedRequest &r, int32_t result,
                      bool was_missing) {
  if (!r.guards_intact()) return "wrote outside the buffer";
  const bool clamped = c.clamps_width() && r.before().width > 32 && r->width == 32 &&
                       r.field().find_first_not_of('*') == std::string::npos;
  if (!(clamped ? r.restored_apart_from_width() : r.restored())) return "request not restored";
  const bool checked = (r.before().flags & FMTREQ_CHECK_LIMITS) != 0;
  if (result >= CORVINEL_WIDTH_TOO_SMALL && result <= CORVINEL_DECIMALS_TOO_LARGE && !checked) {
    return "limit result without the check";
  }
  if (was_missing && result != CORVINEL_OK && !checked) return "missing value not rendered";
  const int32_t capacity = r.before().capacity;
  const bool untouched = r->outlen == GuardedRequest::kUnsetOutlen && r.buffer_untouched();
  if (!untouched && (r->outlen < 0 || r->outlen > capacity)) return "outlen outside the buffer";
  const int32_t expected_capacity =
      c.narrows_capacity() && result == CORVINEL_OK ? std::min(capacity, r->width) : capacity;
  if (r->capacity != expected_capacity) return "capacity changed";
  return {};
}

class RequestSweep : public ::testing::TestWithParam<FormatCase> {};

TEST_P(RequestSweep, EveryCallStaysInsideItsBuffer) {
  const FormatCase &c = GetParam();
  int failures = 0;
  for (int32_t width = 0; width <= 40; ++width) {
    for (const int32_t extra : {0, 3}) {
      for (const double value : sweep_values()) {
        for (const int32_t decimals : {0, 2, 3, 31, 99, -1}) {
          for (const uint8_t flags : {uint8_t{0}, uint8_t{FMTREQ_CHECK_LIMITS}}) {
            GuardedRequest r(width, decimals, value, width + extra, flags);
            const int32_t result = c.render(r.get());
            const std::string broken = violation(c, r, result, zmiss(value) != 0);
            if (!broken.empty() && ++failures <= 5) {
              ADD_FAILURE() << broken << ": width " << width << " capacity " << width + extra
                            << " decimals " << decimals << " value " << value << " flags "
                            << int{flags} << " result " << result;
            }
          }
        }
      }
    }
  }
  EXPECT_EQ(failures, 0);
}

// Requests that break the host's contract: no buffer, a negative capacity, a
// field wider than the buffer, a negative width.  Nothing may be written
// outside the buffer, and outlen never claims more than it holds.
TEST_P(RequestSweep, BrokenRequestsWriteNothingOutsideTheBuffer) {
  const FormatCase &c = GetParam();
  struct Shape {
    int32_t width, capacity;
  };
  for (const Shape shape : {Shape{20, 5}, Shape{20, 0}, Shape{20, -1}, Shape{-5, 10},
                            Shape{INT32_MAX, 16}, Shape{INT32_MIN, 16}}) {
    for (const double value : sweep_values()) {
      GuardedRequest r(shape.width, 0, value, shape.capacity);
      ASSERT_EQ(c.render(r.get()), 0);
      EXPECT_TRUE(r.guards_intact()) << shape.width << "/" << shape.capacity << " " << value;
      const bool untouched = r->outlen == GuardedRequest::kUnsetOutlen;
      if (!untouched) {
        EXPECT_GE(r->outlen, 0);
        EXPECT_LE(r->outlen, std::max(shape.capacity, 0));
      }
    }
  }
}

TEST_P(RequestSweep, NullBuffersAndValuesAreNotDereferenced) {
  const FormatCase &c = GetParam();
  for (const double value : sweep_values()) {
    fmtreq request{};
    request.width = c.defw;
    request.decimals = c.defd;
    request.value = &value;
    request.output = nullptr;
    request.capacity = c.defw;
    EXPECT_EQ(c.render(&request), 0);
    EXPECT_EQ(request.outlen, 0);
  }
  // No value at all reads as the standard missing value.
  GuardedRequest r(c.defw, 0, 0.0, c.defw);
  fmtreq request = *r;
  request.value = nullptr;
  EXPECT_EQ(c.render(&request), 0);
  EXPECT_EQ(request.value, nullptr);
  EXPECT_TRUE(r.guards_intact());
  const std::string buffer = r.buffer();
  const auto marks = std::count(buffer.begin(), buffer.end(), '.');
  if (c.mark_rule() == corvinel::testing::MarkRule::ClassicChoice) {
    EXPECT_LE(marks, 1) << buffer;
  } else {
    EXPECT_EQ(marks, 1) << buffer;
  }
}

INSTANTIATE_TEST_SUITE_P(AllFormats, RequestSweep, ::testing::ValuesIn(all_formats()),
                         [](const auto &info) { return info.param.name; });

}  // namespace

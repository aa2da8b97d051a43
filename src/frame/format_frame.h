// Steps every format takes before it renders a present value: the limit
// check, reading the value, missing values, and the "*" field.
//
// Requests that break the host's contract are answered without writing
// outside the buffer:
//   - a null `output` is never written to; a negative `capacity` counts as 0;
//   - every fill is cut to the bytes of the field that lie in the buffer
//     (min(width, capacity), nothing for a width of 0 or below), and `outlen`
//     then reports that many bytes, never more than the buffer holds;
//   - a null `value` pointer reads as the standard missing value.
// Present values reach the renderers only through `field_fits_buffer`, so a
// renderer may rely on 1 <= width <= capacity and a non-null `output`.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#include "corvinel/fmtinfo.h"
#include "corvinel/fmtreq.h"
#include "corvinel/missing.h"

namespace corvinel::frame {

// Width and decimals a format accepts when the host asks for the check.
struct Limits {
  int32_t min_width;
  int32_t max_width;
  int32_t min_decimals;
  int32_t max_decimals;
};

constexpr Limits limits_of(const fmtdesc &descriptor) {
  return {descriptor.minw, descriptor.maxw, descriptor.mind, descriptor.maxd};
}

// The checks of check_limits, made whatever the flags say.
int32_t check_limits_of(const fmtreq &request, const Limits &limits);

// With flags bit 0 set: the first failing check in the order 39 (width too
// small), 40 (too large), 41 (decimals too small), 42 (too large); else 0.
// Without the bit: 0, the host is trusted.
inline int32_t check_limits(const fmtreq &request, const Limits &limits) {
  if ((request.flags & FMTREQ_CHECK_LIMITS) == 0) return CORVINEL_OK;
  return check_limits_of(request, limits);
}

// The value the request points at (read once per call by the caller).
inline double read_value(const fmtreq &request) {
  return request.value != nullptr ? *request.value : std_miss_val;
}

// One of the host's missing values: a NaN whose top 16 bits are all ones and
// whose low 40 bits are zero (zmiss).  Inline, as every format asks it.
inline bool is_missing(double value) {
  const auto bits = std::bit_cast<uint64_t>(value);
  return (bits & 0xFFFF000000000000ull) == 0xFFFF000000000000ull &&
         (bits & 0x000000FFFFFFFFFFull) == 0;
}

// Bytes of the field that may be written: min(width, capacity), at least 0,
// and 0 without a buffer.
int32_t writable_field_length(const fmtreq &request);
// True when the whole field lies in the buffer and is at least one byte wide.
inline bool field_fits_buffer(const fmtreq &request) {
  return request.output != nullptr && request.width >= 1 && request.width <= request.capacity;
}

// Sets outlen to the field width and fills the field with blanks; the
// common case, a field inside the buffer, inline.
void blank_field_cut_to_buffer(fmtreq &request);
inline void blank_field(fmtreq &request) {
  if (field_fits_buffer(request)) {
    std::memset(request.output, ' ', static_cast<std::size_t>(request.width));
    request.outlen = request.width;
    return;
  }
  blank_field_cut_to_buffer(request);
}
// Fills the field with "*" and sets outlen to its width; returns 0 (CORVINEL_OK),
// the result of every format that shows an overflowing value.
int32_t fill_stars(fmtreq &request);

// The missing-value renderings; each returns 0 and leaves `decimals` as the
// caller passed it.
//
// Number formats: the mark stands where the units digit of a number with
// `decimals` places would stand, or at the right edge when `decimals` is
// outside 0 .. width-1.
int32_t render_missing_number(fmtreq &request);
// Date, time, name and currency formats: the mark at the right edge.
int32_t render_missing_at_right_edge(fmtreq &request);
// Percent formats: the number rule in a field narrowed to width - 3 and moved
// one byte right, so the mark stands at width - 3 - decimals (width - 3 for
// decimals outside 0 .. width-1), leaving two places for the percent suffix.
// Positions before the field show no mark.
int32_t render_missing_percent(fmtreq &request);

}  // namespace corvinel::frame

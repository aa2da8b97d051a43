#include "frame/format_frame.h"

#include <algorithm>
#include <cstring>

#include "corvinel/missing.h"
#include "frame/missing_mark.h"

namespace corvinel::frame {
namespace {

// Bytes of `output` that may be written at all.
int32_t buffer_length(const fmtreq &request) {
  if (request.output == nullptr) return 0;
  return std::max(request.capacity, 0);
}

void fill_field_with(fmtreq &request, char byte) {
  const int32_t length = writable_field_length(request);
  if (length > 0) std::memset(request.output, byte, static_cast<std::size_t>(length));
  request.outlen = length;
}

// zfmmiss reports the width as outlen; a field that overhangs the buffer
// reports only the bytes the buffer holds.
void cut_outlen_to_buffer(fmtreq &request) {
  request.outlen = std::clamp(request.outlen, 0, buffer_length(request));
}

// Runs zfmmiss with `decimals` in place of the caller's, then puts the
// caller's back.
int32_t render_missing_with(fmtreq &request, int32_t decimals) {
  const int32_t caller_decimals = request.decimals;
  request.decimals = decimals;
  const int32_t result = zfmmiss(&request);
  request.decimals = caller_decimals;
  cut_outlen_to_buffer(request);
  return result;
}

// The decimals a number format hands to zfmmiss: its own when they name a
// place inside the field, else 99 (the right edge).
int32_t number_mark_decimals(const fmtreq &request) {
  const int32_t decimals = request.decimals;
  return (decimals >= 0 && decimals < request.width) ? decimals : 99;
}

}  // namespace

int32_t check_limits_of(const fmtreq &request, const Limits &limits) {
  if (request.width < limits.min_width) return CORVINEL_WIDTH_TOO_SMALL;
  if (request.width > limits.max_width) return CORVINEL_WIDTH_TOO_LARGE;
  if (request.decimals < limits.min_decimals) return CORVINEL_DECIMALS_TOO_SMALL;
  if (request.decimals > limits.max_decimals) return CORVINEL_DECIMALS_TOO_LARGE;
  return CORVINEL_OK;
}

int32_t writable_field_length(const fmtreq &request) {
  return std::clamp(request.width, 0, buffer_length(request));
}

void blank_field_cut_to_buffer(fmtreq &request) { fill_field_with(request, ' '); }

int32_t fill_stars(fmtreq &request) {
  fill_field_with(request, '*');
  return CORVINEL_OK;
}

int32_t render_missing_number(fmtreq &request) {
  return render_missing_with(request, number_mark_decimals(request));
}

int32_t render_missing_at_right_edge(fmtreq &request) {
  return render_missing_with(request, 0);
}

int32_t render_missing_percent(fmtreq &request) {
  // zfmmiss over the narrowed field output + 1 .. capacity, width - 3: it
  // blank-fills from the second byte on (the first is already blank), and the
  // mark lands one byte right of where the narrowed field puts it.  Written
  // out here because the narrowed field may start its mark one byte before
  // itself, on the first byte of the real field, which zfmmiss would refuse.
  const int32_t length = buffer_length(request);
  if (length > 1) std::memset(request.output + 1, ' ', static_cast<std::size_t>(length - 1));
  const int64_t position =
      1 + missing_mark_position(int64_t{request.width} - 3, number_mark_decimals(request));
  if (position >= 0 && position < length) {
    request.output[position] = missing_mark(read_value(request));
  }
  request.outlen = writable_field_length(request);
  return CORVINEL_OK;
}

}  // namespace corvinel::frame

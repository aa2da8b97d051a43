// Helpers the classic date and time renderings share: the request gate, the
// missing-value rendering they all use, and a field that is laid out from
// its right end and cut at its left edge.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include "corvinel/fmtreq.h"

namespace corvinel::calendar {

// A field that the request's buffer can hold: 0 <= width <= capacity.
// Every classic rendering refuses any other request with
// CORVINEL_DOES_NOT_FIT before it writes anything.
inline bool field_fits_buffer(const fmtreq &request) {
  return request.width >= 0 && request.width <= request.capacity;
}

// The start every classic rendering shares: a request whose field does not
// lie in its buffer is refused (CORVINEL_DOES_NOT_FIT), then zdatrng runs
// with `kind`.  True when the value is to be rendered; otherwise *result
// holds what the rendering returns (0 after a missing value,
// CORVINEL_OUT_OF_RANGE after the field of "*").
bool begin_rendering(fmtreq *request, int32_t kind, int32_t *result);

// A date split into four-digit year, month and day.
struct DateParts {
  double year = 0;
  double month = 0;
  double day = 0;
};

// begin_rendering for a date value, then outlen := width and the split of
// the date.  Every date inside the range splits; should one ever fail, the
// field is filled with "*" and CORVINEL_OUT_OF_RANGE is the result.
bool begin_date_rendering(fmtreq *request, DateParts &parts, int32_t *result);

// Renders the missing value `value` in the request's field as the date
// gate does: decimals 0 for the call (the mark at the right edge), the
// request's value and decimals put back afterwards.  Returns zfmmiss's
// result.
int32_t render_missing_value(fmtreq *request, double value);

// Fills the first `width` bytes of the request's output with c and sets
// outlen to the width.
void fill_field(fmtreq *request, char c);

// Places `length` bytes of text in the `width` bytes at out: right-aligned
// after blanks when shorter, else its first `width` bytes.
void place_right_aligned(char *out, int64_t width, const char *text, int64_t length);

// A whole number as the text the integer writer gives it in `length`
// positions (right-justified, blanks on the left).  A number with more
// digits than positions leaves them all blank: deliberate, so that the year
// 20000 in a four-digit year, or a part squeezed by a width nobody should
// use, shows blanks rather than a cut number or the asterisks that mean
// "out of range".  Fractions are truncated; magnitudes of 1e18 and more
// (and NaNs) count as too long.
void put_whole_number(char *positions, int32_t length, double value);

// The same, with a blank in the first of two positions replaced by "0".
void put_two_digits(char *positions, double value);

// A field of `width` positions composed by position, where positions left
// of 0 are dropped (a layout wider than the field is cut on its left) and
// only the last kWindow positions are kept: everything to the left of them
// is blank in every layout that uses this.
class RightAnchoredField {
 public:
  static constexpr int64_t kWindow = 48;

  explicit RightAnchoredField(int64_t width) : width_(width) {
    std::memset(window_, ' ', sizeof window_);
  }

  int64_t width() const { return width_; }
  void put(int64_t position, char c) {
    const int64_t slot = slot_of(position);
    if (slot >= 0) window_[slot] = c;
  }
  char get(int64_t position) const {
    const int64_t slot = slot_of(position);
    return slot >= 0 ? window_[slot] : ' ';
  }
  void put_text(int64_t position, std::string_view text) {
    for (char c : text) put(position++, c);
  }
  // put_whole_number into positions [start, start + length).
  void put_number(int64_t start, int64_t length, double value);
  // Writes exactly width bytes to out.
  void copy_to(char *out) const;

 private:
  // Index in window_ of a position, or -1 when it is not kept.
  int64_t slot_of(int64_t position) const {
    const int64_t slot = position - (width_ - kWindow);
    return (position < 0 || position >= width_ || slot < 0) ? -1 : slot;
  }

  int64_t width_;
  char window_[kWindow];
};

}  // namespace corvinel::calendar

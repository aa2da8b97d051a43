#include "calendar/classic_field.h"

#include <algorithm>
#include <cstring>

#include "corvinel/classic_dates.h"
#include "corvinel/missing.h"
#include "corvinel/text.h"

namespace corvinel::calendar {

bool begin_rendering(fmtreq *request, int32_t kind, int32_t *result) {
  if (!field_fits_buffer(*request)) {
    *result = CORVINEL_DOES_NOT_FIT;
    return false;
  }
  switch (zdatrng(request, kind)) {
    case CORVINEL_GATE_GO_ON: return true;
    case CORVINEL_GATE_MISSING: *result = CORVINEL_OK; return false;
    default: *result = CORVINEL_OUT_OF_RANGE; return false;
  }
}

bool begin_date_rendering(fmtreq *request, DateParts &parts, int32_t *result) {
  if (!begin_rendering(request, CORVINEL_GATE_DATE, result)) return false;
  request->outlen = request->width;
  if (zfmcymd(&parts.year, &parts.month, &parts.day, *request->value) > 0) return true;
  fill_field(request, '*');
  *result = CORVINEL_OUT_OF_RANGE;
  return false;
}

int32_t render_missing_value(fmtreq *request, double value) {
  const double *saved_value = request->value;
  const int32_t saved_decimals = request->decimals;
  request->value = &value;
  request->decimals = 0;
  const int32_t result = zfmmiss(request);
  request->value = saved_value;
  request->decimals = saved_decimals;
  return result;
}

void fill_field(fmtreq *request, char c) {
  std::memset(request->output, c, static_cast<size_t>(request->width));
  request->outlen = request->width;
}

void place_right_aligned(char *out, int64_t width, const char *text, int64_t length) {
  if (width <= 0) return;
  if (length >= width) {
    std::memcpy(out, text, static_cast<size_t>(width));
    return;
  }
  const int64_t lead = width - std::max<int64_t>(length, 0);
  std::memset(out, ' ', static_cast<size_t>(lead));
  std::memcpy(out + lead, text, static_cast<size_t>(width - lead));
}

void put_whole_number(char *positions, int32_t length, double value) {
  if (length <= 0) return;
  // Twenty positions hold every int64 with its sign; wider parts are blanks
  // followed by those twenty.
  constexpr int32_t kDigitRoom = 20;
  const int32_t room = std::min(length, kDigitRoom);
  std::memset(positions, ' ', static_cast<size_t>(length));
  if (!(value > -1e18 && value < 1e18)) return;  // NaNs too
  char digits[kDigitRoom];
  if (wzclchr(static_cast<int64_t>(value), digits, room) != 0) return;
  std::memcpy(positions + (length - room), digits, static_cast<size_t>(room));
}

void put_two_digits(char *positions, double value) {
  // 0 to 99, the parts of a clock: the two digits straight away.
  if (value >= 0 && value < 100) {
    const auto whole = static_cast<int>(value);
    positions[0] = static_cast<char>('0' + whole / 10);
    positions[1] = static_cast<char>('0' + whole % 10);
    return;
  }
  put_whole_number(positions, 2, value);
  if (positions[0] == ' ' && positions[1] != ' ') positions[0] = '0';
}

void RightAnchoredField::put_number(int64_t start, int64_t length, double value) {
  if (length <= 0) return;
  // Only the part's last kWindow positions can be kept.
  const int64_t kept = std::min(length, kWindow);
  char text[kWindow];
  put_whole_number(text, static_cast<int32_t>(kept), value);
  const int64_t first_kept = std::max(start, width_ - kWindow);
  for (int64_t position = first_kept; position < start + length - kept; ++position) {
    put(position, ' ');
  }
  put_text(start + length - kept, std::string_view(text, static_cast<size_t>(kept)));
}

void RightAnchoredField::copy_to(char *out) const {
  if (width_ <= 0) return;
  if (width_ > kWindow) {
    std::memset(out, ' ', static_cast<size_t>(width_ - kWindow));
    std::memcpy(out + (width_ - kWindow), window_, static_cast<size_t>(kWindow));
  } else {
    std::memcpy(out, window_ + (kWindow - width_), static_cast<size_t>(width_));
  }
}

}  // namespace corvinel::calendar

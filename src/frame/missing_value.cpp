// The host's missing values.  A missing value is a NaN whose top 16 bits are
// all ones and whose low 40 bits are zero; bits 47..40 hold the negated index
// of its mark in misscoll.
#include <bit>
#include <cstdint>
#include <cstring>

#include "corvinel/missing.h"
#include "frame/format_frame.h"
#include "frame/missing_mark.h"

namespace {

constexpr uint64_t kTopMask = 0xFFFF000000000000ull;
constexpr uint64_t kStandardMissingBits = 0xFFFFFE0000000000ull;
constexpr int kMarkCount = 29;

uint64_t bits_of(double value) { return std::bit_cast<uint64_t>(value); }

// Index into misscoll of the value's mark: the code byte negated, or 0 when
// the top word is not all ones.
int mark_index(double value) {
  const uint64_t bits = bits_of(value);
  if ((bits & kTopMask) != kTopMask) return 0;
  const auto code = static_cast<int8_t>((bits >> 40) & 0xFF);
  return -static_cast<int>(code);
}

}  // namespace

extern "C" {

const double std_miss_val = std::bit_cast<double>(kStandardMissingBits);
const char misscoll[30] = " _.ABCDEFGHIJKLMNOPQRSTUVWXYZ";

}  // extern "C"

namespace corvinel::frame {

char missing_mark(double value) {
  const int index = mark_index(value);
  // The host only produces codes 0 .. -28; anything else has no mark.
  const char mark = (index >= 0 && index < kMarkCount) ? misscoll[index] : ' ';
  return mark == '-' ? '_' : mark;
}

int64_t missing_mark_position(int64_t width, int32_t decimals) {
  if (decimals == 98 || decimals == 99) return width - 1;
  return width - 1 - decimals;
}

}  // namespace corvinel::frame

extern "C" {

int32_t zmiss(double value) { return corvinel::frame::is_missing(value) ? 1 : 0; }

// Without a buffer (null output) only outlen is set; a null value pointer
// renders as the standard missing value.
int32_t zfmmiss(fmtreq *request) {
  request->outlen = request->width;
  if (request->output == nullptr) return 0;
  const int32_t capacity = request->capacity > 0 ? request->capacity : 0;
  std::memset(request->output, ' ', static_cast<size_t>(capacity));

  const double value = request->value != nullptr ? *request->value : std_miss_val;
  const int64_t position =
      corvinel::frame::missing_mark_position(request->width, request->decimals);
  if (position >= 0 && position < capacity) {
    request->output[position] = corvinel::frame::missing_mark(value);
  }
  return 0;
}

}  // extern "C"

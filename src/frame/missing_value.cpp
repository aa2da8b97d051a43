// The host's missing values.  A missing value is a NaN whose top 16 bits are
// all ones and whose low 40 bits are zero; bits 47..40 hold the negated index
// of its mark in misscoll.
#include <bit>
#include <cstdint>
#include <cstring>

#include "corvinel/missing.h"

namespace {

constexpr uint64_t kTopMask = 0xFFFF000000000000ull;
constexpr uint64_t kLowMask = 0x000000FFFFFFFFFFull;
constexpr uint64_t kStandardMissingBits = 0xFFFFFE0000000000ull;

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

int32_t zmiss(double value) {
  const uint64_t bits = bits_of(value);
  return ((bits & kTopMask) == kTopMask && (bits & kLowMask) == 0) ? 1 : 0;
}

int32_t zfmmiss(fmtreq *request) {
  request->outlen = request->width;
  const int32_t capacity = request->capacity > 0 ? request->capacity : 0;
  std::memset(request->output, ' ', static_cast<size_t>(capacity));

  const int index = mark_index(*request->value);
  // The host only produces codes 0 .. -28; anything else has no mark.
  char mark = (index >= 0 && index < 29) ? misscoll[index] : ' ';
  if (mark == '-') mark = '_';

  const int64_t decimals = request->decimals;
  const int64_t position = (decimals == 98 || decimals == 99)
                               ? int64_t{request->width} - 1
                               : int64_t{request->width} - 1 - decimals;
  if (position >= 0 && position < capacity) request->output[position] = mark;
  return 0;
}

}  // extern "C"

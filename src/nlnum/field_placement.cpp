#include "nlnum/field_placement.h"

#include <cstring>

#include "encoding/output_expansion.h"
#include "encoding/request_expansion.h"
#include "nlnum/number_assembly.h"

namespace corvinel::nlnum {
namespace {

// Expansion reads the whole composed text from its buffer and writes at most
// one 402-byte step back.
constexpr int32_t kExpansionBuffer = kComposedCapacity;
static_assert(kExpansionBuffer >= 402);

void blank_fill_units(char *output, int32_t capacity, bool high_byte_first) {
  for (int32_t i = 0; i < capacity; ++i) {
    output[i] = ((i % 2 == 0) != high_byte_first) ? ' ' : '\0';
  }
}

}  // namespace

Placement place_right_aligned(fmtreq &request, encoding::SessionCodeset codeset, char *output,
                              int32_t width, const char *text, int32_t length,
                              int32_t expansion_capacity) {
  if (length < 0 || length > kExpansionBuffer) return Placement::kFailed;
  char buffer[kExpansionBuffer];
  std::memcpy(buffer, text, static_cast<std::size_t>(length));
  int32_t expanded = length;
  int32_t encoding = encoding::delivered_encoding(request);
  const int32_t result = encoding::expand_output(codeset, request.xcode_b, &encoding, buffer, &expanded,
                                      width, expansion_capacity);
  encoding::set_delivered_encoding(request, encoding);
  if (result == encoding::kExpansionShortened) return Placement::kTooWide;
  if (result > encoding::kExpansionShortened) return Placement::kFailed;

  const int32_t shortfall = -result;
  const int32_t capacity = request.capacity;
  if (encoding == CORVINEL_ENC_UTF16BE || encoding == CORVINEL_ENC_UTF16LE) {
    const int32_t offset = 2 * shortfall;
    if (offset > capacity - expanded) return Placement::kFailed;
    blank_fill_units(output, capacity, encoding == CORVINEL_ENC_UTF16BE);
    std::memcpy(output + offset, buffer, static_cast<std::size_t>(expanded));
    request.outlen = offset + expanded;
  } else {
    if (shortfall > capacity - expanded) return Placement::kFailed;
    std::memset(output, ' ', static_cast<std::size_t>(capacity));
    std::memcpy(output + shortfall, buffer, static_cast<std::size_t>(expanded));
    request.outlen = width;
  }
  return Placement::kPlaced;
}

int32_t expand_field_in_place(fmtreq &request) {
  return encoding::expand_for_request(request, request.output, &request.outlen, request.capacity);
}

int32_t fill_overflow(fmtreq &request, char *output, int32_t width) {
  std::memset(output, ' ', static_cast<std::size_t>(request.capacity));
  std::memset(output, '*', static_cast<std::size_t>(width));
  request.outlen = width;
  return CORVINEL_OK;
}

}  // namespace corvinel::nlnum

// Trailing-blank length and in-place justification of a blank-padded field.
#include <cstring>

#include "corvinel/text.h"
#include "text/byte_text.h"

namespace corvinel::text {
namespace {

// Content of a field: from its first to its last non-blank byte.
struct Content {
  std::size_t start = 0;
  std::size_t length = 0;
};

std::size_t length_without_trailing_blanks(const unsigned char *b, std::size_t len) {
  while (len > 0 && b[len - 1] == kBlank) --len;
  return len;
}

Content find_content(const unsigned char *b, std::size_t len) {
  std::size_t first = 0;
  while (first < len && b[first] == kBlank) ++first;
  if (first == len) return {};
  return {first, length_without_trailing_blanks(b, len) - first};
}

// Where the content starts after justification; where it is now for a mode
// that moves nothing.
std::size_t justified_start(char mode, std::size_t field, const Content &content) {
  switch (mode) {
    case 'L':
    case 'l':
      return 0;
    case 'R':
    case 'r':
      return field - content.length;
    case 'C':
    case 'c':
      // The odd blank of an uneven split goes to the right.
      return field - (field + content.length + 1) / 2;
    default:
      return content.start;
  }
}

}  // namespace
}  // namespace corvinel::text

using namespace corvinel::text;

extern "C" int32_t wzstrip(const char *s, int32_t n) {
  return position(length_without_trailing_blanks(bytes(s), counted_or_terminated_length(s, n)));
}

extern "C" void wzstjls(char *s, int32_t n, char mode, int32_t *len, int32_t *start) {
  const std::size_t field = counted_length(s, n);
  unsigned char *b = bytes(s);
  const Content content = find_content(b, field);
  const std::size_t to = content.length == 0 ? 0 : justified_start(mode, field, content);
  if (to != content.start) {
    std::memmove(b + to, b + content.start, content.length);
    // Outside the content the field held only blanks, so blanking all of it
    // clears exactly the bytes the move vacated.
    std::memset(b, kBlank, to);
    std::memset(b + to + content.length, kBlank, field - to - content.length);
  }
  if (len != nullptr) *len = position(content.length);
  if (start != nullptr) *start = position(to);
}

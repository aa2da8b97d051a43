// Searching fixed-length texts: all-equal tests, byte and substring
// positions, first byte in or out of a set.
#include <cstring>
#include <string_view>

#include "corvinel/text.h"
#include "text/byte_text.h"

namespace corvinel::text {
namespace {

bool all_bytes_equal(unsigned char c, const void *buf, std::size_t len) {
  const unsigned char *b = bytes(buf);
  for (std::size_t i = 0; i < len; ++i)
    if (b[i] != c) return false;
  return true;
}

int32_t first_byte_other_than(unsigned char c, const char *s, std::size_t len) {
  const unsigned char *b = bytes(s);
  for (std::size_t i = 0; i < len; ++i)
    if (b[i] != c) return position(i);
  return -1;
}

}  // namespace
}  // namespace corvinel::text

using namespace corvinel::text;

extern "C" int32_t vzabl(char c, const void *buf, int64_t n) {
  return all_bytes_equal(static_cast<unsigned char>(c), buf, counted_length(buf, n)) ? 1 : 0;
}

extern "C" int32_t ATL(char c, const void *buf, int32_t n) { return vzabl(c, buf, n); }

extern "C" int32_t wzstpos(const char *s, int32_t n, char c) {
  const std::size_t len = counted_or_terminated_length(s, n);
  if (len == 0) return -1;
  const void *hit = std::memchr(s, static_cast<unsigned char>(c), len);
  return hit == nullptr ? -1 : position(static_cast<const char *>(hit) - s);
}

extern "C" int32_t wzstndx(const char *s, int32_t n, const char *sub, int32_t nsub) {
  // Null pointers become empty views; string_view::find is byte-exact.
  const std::string_view text(s == nullptr ? "" : s, counted_length(s, n));
  const std::string_view pattern(sub == nullptr ? "" : sub, counted_length(sub, nsub));
  const std::size_t at = text.find(pattern);
  return at == std::string_view::npos ? -1 : position(at);
}

extern "C" int32_t wzstver(const char *s, int32_t n, const char *set, int32_t nset) {
  return find_membership(s, counted_length(s, n), ByteSet::of_counted(set, nset), false);
}

extern "C" int32_t wzstnot(const char *s, int32_t n, char c) {
  return first_byte_other_than(static_cast<unsigned char>(c), s, counted_length(s, n));
}

extern "C" int32_t STQX(const char *s, int32_t n, const char *set) {
  return find_membership(s, counted_length(s, n), ByteSet::of_terminated(set), true);
}

extern "C" int32_t STQXN(const char *s, int32_t n, const char *set) {
  return find_membership(s, counted_length(s, n), ByteSet::of_terminated(set), false);
}

// Deleting a set of bytes from a text, and byte-for-byte replacement.
#include <array>

#include "corvinel/text.h"
#include "text/byte_text.h"

using namespace corvinel::text;

extern "C" int32_t wzstdel(char *s, int32_t n, const char *set, int32_t nset) {
  // Compacting in place writes each kept byte at or before the place it is
  // read from, so it gives what gathering the kept bytes into a scratch
  // buffer and copying them back would give -- bytes past the kept count
  // untouched, s unchanged when nothing is kept -- for texts of any length.
  const ByteSet deleted = ByteSet::of_counted(set, nset);
  unsigned char *b = bytes(s);
  std::size_t kept = 0;
  for (std::size_t i = 0, len = counted_length(s, n); i < len; ++i)
    if (!deleted.contains(b[i])) b[kept++] = b[i];
  return position(kept);
}

extern "C" void wzstrnc(char *s, int32_t n, char new_byte, char old_byte) {
  unsigned char *b = bytes(s);
  const auto from = static_cast<unsigned char>(old_byte);
  const auto to = static_cast<unsigned char>(new_byte);
  for (std::size_t i = 0, len = counted_length(s, n); i < len; ++i)
    if (b[i] == from) b[i] = to;
}

extern "C" int32_t wzstrns(char *s, int32_t n, const char *to, const char *from, int32_t nfrom) {
  // One table for the whole text: a byte is translated once, and for a byte
  // listed twice in `from` its first listing wins (filled last).
  const std::size_t pairs = to == nullptr ? 0 : counted_length(from, nfrom);
  std::array<unsigned char, 256> table;
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<unsigned char>(i);
  for (std::size_t k = pairs; k-- > 0;) table[bytes(from)[k]] = bytes(to)[k];

  unsigned char *b = bytes(s);
  for (std::size_t i = 0, len = counted_length(s, n); i < len; ++i) b[i] = table[b[i]];
  return 0;
}

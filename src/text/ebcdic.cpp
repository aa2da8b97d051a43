// ISO-8859-1 <-> IBM-1047 translation in place through the generated tables.
#include "corvinel/ebcdic.h"
#include "text/byte_text.h"

extern "C" {
#include "text/data/ebcdic_tables.inc"
}

namespace corvinel::text {
namespace {

void translate(const unsigned char (&table)[256], void *buf, int32_t n) {
  unsigned char *b = bytes(buf);
  for (std::size_t i = 0, len = counted_length(buf, n); i < len; ++i) b[i] = table[b[i]];
}

}  // namespace
}  // namespace corvinel::text

using corvinel::text::translate;

extern "C" int32_t wztxatoe(void *buf, int32_t n) {
  translate(as2eb, buf, n);
  return 0;
}

extern "C" int32_t wztxetoa(void *buf, int32_t n) {
  translate(eb2as, buf, n);
  return 0;
}

extern "C" void zas2eb(void *buf, int32_t n) { translate(as2eb, buf, n); }

extern "C" void zeb2as(void *buf, int32_t n) { translate(eb2as, buf, n); }

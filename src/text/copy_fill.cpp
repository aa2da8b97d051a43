// Copying, moving and filling byte buffers.  Every copy goes through
// memmove: overlapping source and destination are always safe, which costs
// nothing measurable against memcpy, and the routines that promise a copy
// through a scratch buffer (vzni) give the same bytes without needing one.
#include <algorithm>
#include <cstring>

#include "corvinel/text.h"
#include "text/byte_text.h"

namespace corvinel::text {
namespace {

// memmove and memset must not see a null pointer even for 0 bytes.
void move_bytes(const void *src, void *dst, std::size_t len) {
  if (len != 0) std::memmove(dst, src, len);
}

void fill_bytes(void *buf, unsigned char c, std::size_t len) {
  if (len != 0) std::memset(buf, c, len);
}

// min(nsrc, ndst) bytes of src into dst; the rest of dst blank when padded.
int32_t copy_into_field(const void *src, int64_t nsrc, void *dst, int64_t ndst, bool padded) {
  const std::size_t field = counted_length(dst, ndst);
  const std::size_t copied = std::min(counted_length(src, nsrc), field);
  move_bytes(src, dst, copied);
  if (padded) fill_bytes(bytes(dst) + copied, kBlank, field - copied);
  return 0;
}

void fill(unsigned char c, void *buf, int64_t n) { fill_bytes(buf, c, counted_length(buf, n)); }

}  // namespace
}  // namespace corvinel::text

using namespace corvinel::text;

extern "C" int32_t wzstmov(const void *src, int32_t nsrc, void *dst, int32_t ndst) {
  return copy_into_field(src, nsrc, dst, ndst, true);
}

extern "C" int32_t vzmp(const void *src, int32_t nsrc, void *dst, int32_t ndst) {
  return copy_into_field(src, nsrc, dst, ndst, true);
}

extern "C" int32_t vzMP(const void *src, int32_t nsrc, void *dst, int32_t ndst) {
  return copy_into_field(src, nsrc, dst, ndst, true);
}

extern "C" void vzni(const void *src, void *dst, int32_t nsrc, int32_t ndst) {
  copy_into_field(src, nsrc, dst, ndst, false);
}

extern "C" void vzmi(const void *src, void *dst, int32_t nsrc, int32_t ndst) {
  copy_into_field(src, nsrc, dst, ndst, false);
}

extern "C" void MBL_OPT(const void *src, void *dst, int32_t n) {
  copy_into_field(src, n, dst, n, false);
}

extern "C" void vznl(const void *src, void *dst, int32_t n) {
  copy_into_field(src, n, dst, n, false);
}

extern "C" void vzzl(void *buf, int64_t n, int64_t m) { fill(0, buf, std::min(n, m)); }

extern "C" void vzzi(void *buf, int32_t n, int32_t m) { fill(0, buf, std::min(n, m)); }

extern "C" void vzftl(char c, void *buf, int64_t n) { fill(static_cast<unsigned char>(c), buf, n); }

extern "C" void vzfbl(char c, void *buf, int64_t n) { fill(static_cast<unsigned char>(c), buf, n); }

extern "C" void wzbfcl(char c, void *buf, int32_t n) { fill(static_cast<unsigned char>(c), buf, n); }

extern "C" void vzbtl(void *buf, int32_t n, ...) { fill(kBlank, buf, n); }

extern "C" void vzBL(void *buf, int32_t n) { fill(kBlank, buf, n); }

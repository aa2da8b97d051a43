// A stand-in module for the tool's tests: a registry of a few formats that
// report the request they were given, and stand-ins for the locale item and
// output expansion routines, so that the tests see exactly what the tool
// passes to a module.
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "corvinel/fmtinfo.h"

namespace {

// Writes what the request holds into its buffer (cut to the capacity) and
// reports the written length.
int32_t echo(fmtreq *request) {
  char text[256];
  const char *locale = std::getenv("ORB_LOCALE");
  const int length = std::snprintf(
      text, sizeof text, "w%d d%d c%d f%d l%d x%d o%d v%016llx e=%s", request->width,
      request->decimals, request->capacity, request->flags, request->locale, request->xcode_b,
      request->outlen, static_cast<unsigned long long>(std::bit_cast<uint64_t>(*request->value)),
      locale ? locale : "-");
  const int kept = length < request->capacity ? length : request->capacity;
  std::memcpy(request->output, text, static_cast<std::size_t>(kept));
  request->outlen = kept;
  return 0;
}

// Fails with 7 for negative values.
int32_t flaky(fmtreq *request) { return *request->value < 0 ? 7 : echo(request); }

// Writes one byte past its buffer.
int32_t overrun(fmtreq *request) {
  std::memset(request->output, '#', static_cast<std::size_t>(request->capacity) + 1);
  request->outlen = request->capacity;
  return 0;
}

// Claims more text than its buffer holds.
int32_t overlong(fmtreq *request) {
  request->outlen = request->capacity + 1;
  return 0;
}

int32_t classic_failure(fmtreq *) { return static_cast<int32_t>(0x8001D827u); }

constexpr fmtdesc row(const char (&name)[16], int32_t namelen, fmt_render_fn render) {
  fmtdesc d{};
  for (int i = 0; i < 16; ++i) d.name[i] = name[i];
  d.namelen = namelen;
  d.minw = 1;
  d.maxw = 60;
  d.defw = 20;
  d.kind = 1;
  d.maxd = 9;
  d.defd = 2;
  d.render = render;
  return d;
}

constexpr fmtdesc kRows[] = {
    row("NLECHO         ", 6, echo),       row("NLFLAKY        ", 7, flaky),
    row("NLOVERLONG     ", 10, overlong),  row("NLOVERRUN      ", 9, overrun),
};
constexpr struct fmtinfo kRegistry = {4, kRows, {nullptr, nullptr}};

}  // namespace

extern "C" {

CORVINEL_API const struct fmtinfo *corvinel_entry(void) { return &kRegistry; }

// Classic routines: zfmt reports its request, zfmpval fails as a classic
// rendering does.
CORVINEL_API int32_t zfmt(fmtreq *request) { return echo(request); }
CORVINEL_API int32_t zfmecho(fmtreq *request) { return echo(request); }
CORVINEL_API int32_t zfmpval(fmtreq *request) { return classic_failure(request); }

// Item 9 is absent; any other item reads "item N of locale L".
CORVINEL_API int32_t getORBLocDB(char *out, int32_t outcap, int32_t item, int32_t locale) {
  std::memset(out, 0, static_cast<std::size_t>(outcap));
  if (item == 9) return -1;
  const int length = std::snprintf(out, static_cast<std::size_t>(outcap), "item %d of locale %d",
                                   item, locale);
  return length;
}

// Appends what it was asked, or fails with 4 for the text of item 13;
// 16-bit output delivers the single unit "A".
CORVINEL_API int32_t getExpResultFromNarrowCharBuf(int32_t reserved, int32_t outenc,
                                                   int32_t *encout, char *buf, int32_t *len,
                                                   int32_t width, int32_t capacity) {
  if (std::strncmp(buf, "item 13 ", 8) == 0) return 4;
  if (outenc == 25) {
    buf[0] = 'A';
    buf[1] = '\0';
    *len = 2;
    *encout = 25;
    return -1;
  }
  char tail[96];
  const int extra = std::snprintf(tail, sizeof tail, " [reserved %d width %d capacity %d]",
                                  reserved, width, capacity);
  std::memcpy(buf + *len, tail, static_cast<std::size_t>(extra));
  *len += extra;
  return *len - width;
}

}  // extern "C"

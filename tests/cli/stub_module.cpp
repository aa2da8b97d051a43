// A stand-in module: formats that report the request they were given or break
// their promises, and stand-ins for the locale item and expansion routines.
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "corvinel/fmtinfo.h"

namespace {

// Writes what the request holds, cut to the capacity.
int32_t echo(fmtreq *r) {
  const char *locale = std::getenv("ORB_LOCALE");
  char text[256];
  const int length = std::snprintf(
      text, sizeof text, "w%d d%d c%d f%d l%d x%d o%d v%016llx e=%s", r->width, r->decimals,
      r->capacity, r->flags, r->locale, r->xcode_b, r->outlen,
      static_cast<unsigned long long>(std::bit_cast<uint64_t>(*r->value)), locale ? locale : "-");
  r->outlen = length < r->capacity ? length : r->capacity;
  std::memcpy(r->output, text, static_cast<std::size_t>(r->outlen));
  return 0;
}

int32_t flaky(fmtreq *r) { return *r->value < 0 ? 7 : echo(r); }
int32_t overlong(fmtreq *r) {
  r->outlen = r->capacity + 1;
  return 0;
}
int32_t overrun(fmtreq *r) {
  std::memset(r->output, '#', static_cast<std::size_t>(r->capacity) + 1);
  r->outlen = r->capacity;
  return 0;
}

constexpr fmtdesc kRows[] = {
    {"NLECHO         ", 6, 1, 60, 20, 1, 0, 9, 2, 0, echo},
    {"NLFLAKY        ", 7, 1, 60, 20, 1, 0, 9, 2, 0, flaky},
    {"NLOVERLONG     ", 10, 1, 60, 20, 1, 0, 9, 2, 0, overlong},
    {"NLOVERRUN      ", 9, 1, 60, 20, 1, 0, 9, 2, 0, overrun},
};
constexpr struct fmtinfo kRegistry = {4, kRows, {nullptr, nullptr}};

}  // namespace

extern "C" {

CORVINEL_API const struct fmtinfo *corvinel_entry(void) { return &kRegistry; }

// Classic routines: zfmt reports its request, zfmpval fails as a classic
// rendering does; there is no zfmcma.
CORVINEL_API int32_t zfmt(fmtreq *r) { return echo(r); }
CORVINEL_API int32_t zfmpval(fmtreq *) { return static_cast<int32_t>(0x8001D827u); }

// Item 9 is absent; the language and country codes (items 4 and 5) name
// de_DE, ja_JP and fr_FR for locales 1 to 3 and zz_ZZ for the others; any
// other reads "item N of locale L".
CORVINEL_API int32_t getORBLocDB(char *out, int32_t outcap, int32_t item, int32_t locale) {
  if (item == 9) return -1;
  if (item == 4 || item == 5) {
    static const char *const kCodes[][2] = {{"de", "DE"}, {"ja", "JP"}, {"fr", "FR"}, {"zz", "ZZ"}};
    const int row = locale >= 1 && locale <= 3 ? locale - 1 : 3;
    return std::snprintf(out, static_cast<std::size_t>(outcap), "%s", kCodes[row][item - 4]);
  }
  return std::snprintf(out, static_cast<std::size_t>(outcap), "item %d of locale %d", item, locale);
}

// Appends what it was asked, or fails with 4 for the text of item 13;
// 16-bit output delivers the single unit "A".
CORVINEL_API int32_t getExpResultFromNarrowCharBuf(int32_t reserved, int32_t outenc,
                                                   int32_t *encout, char *buf, int32_t *len,
                                                   int32_t width, int32_t capacity) {
  if (std::strncmp(buf, "item 13 ", 8) == 0) return 4;
  if (outenc == CORVINEL_ENC_UTF16LE) {
    std::memcpy(buf, "A", 2);
    *len = 2;
    *encout = outenc;
    return -1;
  }
  *len +=
      std::sprintf(buf + *len, " [reserved %d width %d capacity %d]", reserved, width, capacity);
  return *len - width;
}

}  // extern "C"

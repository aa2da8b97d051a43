// The registry: one descriptor per format, and the module entry.
#include "frame/registry.h"

#include <algorithm>
#include <clocale>
#include <cstring>
#include <string_view>

#include "corvinel/fmtinfo.h"
#include "corvinel/formats.h"
#include "frame/currency_format_list.h"

namespace corvinel::frame {
namespace {

constexpr std::size_t kNameField = sizeof(fmtdesc::name);  // 15 + NUL
constexpr std::size_t kNameChars = kNameField - 1;

// A descriptor whose name is `prefix` followed by `suffix`, blank-padded to
// 15 characters and NUL-terminated; namelen counts the characters before the
// padding.  Evaluated at compile time, so a name that is too long or holds a
// blank fails the build instead of producing a bad row.
consteval fmtdesc descriptor(std::string_view prefix, std::string_view suffix,
                             fmt_render_fn render, int16_t minw, int16_t maxw,
                             int16_t defw, int16_t kind, int16_t mind,
                             int16_t maxd, int32_t defd) {
  const std::size_t length = prefix.size() + suffix.size();
  if (length == 0 || length > kNameChars) throw "a format name has 1 to 15 characters";
  fmtdesc d{};
  for (std::size_t i = 0; i < kNameChars; ++i) {
    const char c = i < prefix.size()  ? prefix[i]
                   : i < length       ? suffix[i - prefix.size()]
                                      : ' ';
    if (i < length && !(c >= 'A' && c <= 'Z')) throw "format names are upper-case letters";
    d.name[i] = c;
  }
  d.name[kNameChars] = '\0';
  d.namelen = static_cast<int32_t>(length);
  d.minw = minw;
  d.maxw = maxw;
  d.defw = defw;
  d.kind = kind;
  d.mind = mind;
  d.maxd = maxd;
  d.defd = defd;
  d.spare = 0;
  d.render = render;
  return d;
}

consteval fmtdesc general(std::string_view name, fmt_render_fn render, int16_t minw,
                          int16_t maxw, int16_t defw, int16_t mind, int16_t maxd,
                          int32_t defd) {
  return descriptor(name, "", render, minw, maxw, defw, 1, mind, maxd, defd);
}

// Every currency-code format: width 8..32 (default 12), decimals 0..28, kind 0.
consteval fmtdesc currency(std::string_view prefix, std::string_view code,
                           fmt_render_fn render, int32_t defd) {
  return descriptor(prefix, code, render, 8, 32, 12, 0, 0, 28, defd);
}

bool name_less(const fmtdesc &a, const fmtdesc &b) {
  return std::memcmp(a.name, b.name, kNameField) < 0;
}

}  // namespace
}  // namespace corvinel::frame

using corvinel::frame::currency;
using corvinel::frame::general;

#define CORVINEL_INTERNATIONAL_ROW(CODE, code, decimals) \
  currency("NLMNI", #CODE, nlmni##code, decimals),
#define CORVINEL_LOCAL_ROW(CODE, code, decimals) \
  currency("NLMNL", #CODE, nlmnl##code, decimals),

extern "C" {

// Two runs, each sorted by name in byte order: the general formats, then the
// currency-code formats (all NLMNI<ccy> in code order, then all NLMNL<ccy>).
constexpr fmtdesc fmtinfo_eachfmt[CORVINEL_FORMAT_COUNT] = {
    //       name         function   minw maxw defw mind maxd defd
    general("NLBEST",    nlbest,      1,  32, 12, 0, 31, 0),
    general("NLD",       nldfmt,      1,  32, 12, 0, 16, 3),
    general("NLDATE",    nldate,     10, 200, 20, 0,  0, 0),
    general("NLDATEL",   nldatel,     2, 200, 18, 0,  0, 0),
    general("NLDATEM",   nldatem,     2, 200, 14, 0,  0, 0),
    general("NLDATEMD",  nldatemd,    6, 200, 16, 0,  0, 0),
    general("NLDATEMDL", nldatemdl,   5, 200, 12, 0,  0, 0),
    general("NLDATEMDM", nldatemdm,   5, 200,  9, 0,  0, 0),
    general("NLDATEMDS", nldatemds,   5, 200,  5, 0,  0, 0),
    general("NLDATEMN",  nldatemn,    4, 200,  9, 0,  0, 0),
    general("NLDATES",   nldates,     2, 200,  8, 0,  0, 0),
    general("NLDATEW",   nldatew,    10, 200, 29, 0,  0, 0),
    general("NLDATEWN",  nldatewn,    4, 200,  9, 0,  0, 0),
    general("NLDATEYM",  nldateym,    6, 200, 16, 0,  0, 0),
    general("NLDATEYML", nldateyml,   5, 200, 14, 0,  0, 0),
    general("NLDATEYMM", nldateymm,   5, 200, 11, 0,  0, 0),
    general("NLDATEYMS", nldateyms,   5, 200,  7, 0,  0, 0),
    general("NLDATEYQ",  nldateyq,    4, 200, 16, 0,  0, 0),
    general("NLDATEYQL", nldateyql,   4, 200, 18, 0,  0, 0),
    general("NLDATEYQM", nldateyqm,   4, 200,  7, 0,  0, 0),
    general("NLDATEYQS", nldateyqs,   4, 200,  6, 0,  0, 0),
    general("NLDATEYR",  nldateyr,    2, 200, 16, 0,  0, 0),
    general("NLDATEYW",  nldateyw,    5, 200, 16, 0,  0, 0),
    general("NLDATM",    nldatm,     10, 200, 30, 0,  3, 0),
    general("NLDATMAP",  nldatmap,   16, 200, 32, 0,  3, 0),
    general("NLDATMDT",  nldatmdt,   10, 200, 18, 0,  0, 0),
    general("NLDATML",   nldatml,    19, 200, 30, 0,  3, 0),
    general("NLDATMM",   nldatmm,    19, 200, 24, 0,  3, 0),
    general("NLDATMMD",  nldatmmd,    6, 200, 16, 0,  0, 0),
    general("NLDATMMDL", nldatmmdl,   5, 200, 12, 0,  0, 0),
    general("NLDATMMDM", nldatmmdm,   5, 200,  9, 0,  0, 0),
    general("NLDATMMDS", nldatmmds,   5, 200,  5, 0,  0, 0),
    general("NLDATMMN",  nldatmmn,    4, 200,  9, 0,  0, 0),
    general("NLDATMS",   nldatms,    19, 200, 19, 0,  3, 0),
    general("NLDATMTM",  nldatmtm,   16, 200, 16, 0,  3, 0),
    general("NLDATMTZ",  nldatmtz,   16, 200, 32, 0,  3, 0),
    general("NLDATMW",   nldatmw,    16, 200, 41, 0,  3, 0),
    general("NLDATMWN",  nldatmwn,    4, 200,  9, 0,  0, 0),
    general("NLDATMWZ",  nldatmwz,   16, 200, 40, 0,  3, 0),
    general("NLDATMYM",  nldatmym,    6, 200, 16, 0,  0, 0),
    general("NLDATMYML", nldatmyml,   5, 200, 14, 0,  0, 0),
    general("NLDATMYMM", nldatmymm,   5, 200, 11, 0,  0, 0),
    general("NLDATMYMS", nldatmyms,   5, 200,  7, 0,  0, 0),
    general("NLDATMYQ",  nldatmyq,    4, 200, 16, 0,  0, 0),
    general("NLDATMYQL", nldatmyql,   4, 200, 18, 0,  0, 0),
    general("NLDATMYQM", nldatmyqm,   4, 200,  7, 0,  0, 0),
    general("NLDATMYQS", nldatmyqs,   4, 200,  6, 0,  0, 0),
    general("NLDATMYR",  nldatmyr,    2, 200, 16, 0,  0, 0),
    general("NLDATMYW",  nldatmyw,    5, 200, 16, 0,  0, 0),
    general("NLDATMZ",   nldatmz,    16, 200, 40, 0,  3, 0),
    general("NLMNY",     nlmny,       1,  32,  9, 0, 31, 0),
    general("NLMNYI",    nlmnyi,      1,  32,  9, 0, 31, 0),
    general("NLNUM",     nlnum,       1,  32,  6, 0, 31, 0),
    general("NLNUMI",    nlnumi,      1,  32,  6, 0, 31, 0),
    general("NLPCT",     nlpct,       4,  32,  6, 0, 31, 0),
    general("NLPCTI",    nlpcti,      4,  32,  6, 0, 31, 0),
    general("NLPCTN",    nlpctn,      4,  32,  6, 0, 31, 0),
    general("NLPCTP",    nlpctp,      4,  32,  6, 0, 31, 0),
    general("NLPVALUE",  nlpvalue,    3,  32,  6, 1, 30, 4),
    general("NLSTRMON",  nlstrmon,    1, 200, 20, 0,  3, 0),
    general("NLSTRQTR",  nlstrqtr,    1, 200, 20, 0,  3, 0),
    general("NLSTRWK",   nlstrwk,     1, 200, 20, 0,  3, 0),
    general("NLTIMAP",   nltimeap,    4, 200, 10, 0,  3, 0),
    general("NLTIME",    nltime,     10, 200, 20, 0,  3, 0),
    CORVINEL_CURRENCY_FORMATS(CORVINEL_INTERNATIONAL_ROW)
    CORVINEL_CURRENCY_FORMATS(CORVINEL_LOCAL_ROW)
};

constexpr struct fmtinfo fmtinfo = {CORVINEL_FORMAT_COUNT, fmtinfo_eachfmt, {nullptr, nullptr}};

const struct fmtinfo *corvinel_entry(void) {
  std::setlocale(LC_ALL, "");
  return &fmtinfo;
}

}  // extern "C"

#undef CORVINEL_INTERNATIONAL_ROW
#undef CORVINEL_LOCAL_ROW

namespace corvinel::frame {
namespace {

consteval bool names_ascending(std::size_t begin, std::size_t end) {
  for (std::size_t i = begin + 1; i < end; ++i) {
    const fmtdesc &a = fmtinfo_eachfmt[i - 1];
    const fmtdesc &b = fmtinfo_eachfmt[i];
    for (std::size_t k = 0; k < kNameField; ++k) {
      const auto x = static_cast<unsigned char>(a.name[k]);
      const auto y = static_cast<unsigned char>(b.name[k]);
      if (x != y) {
        if (x > y) return false;
        break;
      }
      if (k + 1 == kNameField) return false;  // duplicate name
    }
  }
  return true;
}

static_assert(kGeneralFormatCount + 2 * kCurrencyFormatCount == CORVINEL_FORMAT_COUNT);
static_assert(names_ascending(0, kGeneralFormatCount), "general formats out of order");
static_assert(names_ascending(kGeneralFormatCount, CORVINEL_FORMAT_COUNT),
              "currency-code formats out of order");

// Binary search of one sorted run.
const fmtdesc *find_in_run(const fmtdesc *begin, const fmtdesc *end, const fmtdesc &key) {
  const fmtdesc *found = std::lower_bound(begin, end, key, name_less);
  return (found != end && !name_less(key, *found)) ? found : nullptr;
}

}  // namespace

const fmtdesc *find_format(std::string_view name) {
  if (name.empty() || name.size() > kNameChars) return nullptr;
  // Only letters: a trailing blank would otherwise match the padding.
  for (const char c : name) {
    if (c < 'A' || c > 'Z') return nullptr;
  }
  fmtdesc key{};
  std::memset(key.name, ' ', kNameChars);
  std::memcpy(key.name, name.data(), name.size());
  const fmtdesc *general_end = fmtinfo_eachfmt + kGeneralFormatCount;
  if (const fmtdesc *found = find_in_run(fmtinfo_eachfmt, general_end, key)) return found;
  return find_in_run(general_end, fmtinfo_eachfmt + CORVINEL_FORMAT_COUNT, key);
}

}  // namespace corvinel::frame

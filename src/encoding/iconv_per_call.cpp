// The straightforward converter: iconv opened and closed for every step.
#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <cerrno>
#include <cstring>

#include "encoding/transcode_steps.h"

namespace corvinel::encoding {

namespace {

const iconv_t kNoConverter = reinterpret_cast<iconv_t>(-1);

CodesetStep convert_once(const char *to, const char *from, const char *in, int32_t n, char *out,
                         int32_t cap, int32_t *len) {
  iconv_t cd = iconv_open(to, from);
  if (cd == kNoConverter) return CodesetStep::kCannotOpen;
  const CodesetStep step = run_iconv(cd, in, n, out, cap, len);
  iconv_close(cd);
  return step;
}

}  // namespace


CodesetStep run_iconv(void *cd, const char *in, int32_t n, char *out, int32_t cap, int32_t *len) {
  constexpr size_t kFailure = static_cast<size_t>(-1);
  auto *converter = static_cast<iconv_t>(cd);
  char *in_next = const_cast<char *>(in);
  size_t in_left = n > 0 ? static_cast<size_t>(n) : 0;
  char *out_next = out;
  size_t out_left = cap > 0 ? static_cast<size_t>(cap) : 0;
  CodesetStep step = CodesetStep::kConverted;
  if (iconv(converter, &in_next, &in_left, &out_next, &out_left) == kFailure || in_left != 0) {
    step = errno == E2BIG ? CodesetStep::kNoRoom : CodesetStep::kUnconvertible;
  } else if (iconv(converter, nullptr, nullptr, &out_next, &out_left) == kFailure) {
    step = CodesetStep::kNoRoom;  // no room to close a shift state
  }
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  *len = static_cast<int32_t>(out_next - out);
  return step;
}

void PerCallIconv::read_session_encoding(SessionEncoding &encoding) {
  setlocale(LC_ALL, nullptr);  // the query the first version made; its answer is not used
  name_session_encoding(nl_langinfo(CODESET), encoding);
}

bool PerCallIconv::units_to_utf8(const unsigned char *units, int32_t n, char *out, int32_t cap,
                                 int32_t *len) {
  // The units are stored low byte first, so the converter is told so: an
  // unmarked "UTF-16" would be read in the converter's own default order.
  return convert_once("UTF-8", "UTF-16LE", reinterpret_cast<const char *>(units), n, out, cap,
                      len) == CodesetStep::kConverted;
}

CodesetStep PerCallIconv::utf8_to_codeset(const SessionEncoding &encoding, const char *in,
                                          int32_t n, char *out, int32_t cap, int32_t *len) {
  return convert_once(encoding.name, "UTF-8", in, n, out, cap, len);
}

}  // namespace corvinel::encoding

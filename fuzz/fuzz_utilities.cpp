// Raw bytes into every exported routine that takes text, buffers or
// doubles: name lookup, the Unicode conversions and case mapping,
// transcoding and output expansion, the string helpers, EBCDIC
// translation, week numbering and the calendar routines.  Every output is
// a heap block of exactly the size the routine is told, so that a write
// past it stops the run.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "corvinel/calendar.h"
#include "corvinel/ebcdic.h"
#include "corvinel/fmtreq.h"
#include "corvinel/locale_db.h"
#include "corvinel/names.h"
#include "corvinel/text.h"
#include "corvinel/transcode.h"
#include "corvinel/unicode.h"
#include "corvinel/weeks.h"
#include "fuzz_sessions.h"

namespace {

// A heap block of exactly `size` bytes holding `bytes` (cut or zero-filled).
std::unique_ptr<unsigned char[]> block(const std::string &bytes, size_t size) {
  auto out = std::make_unique<unsigned char[]>(size);
  std::copy_n(bytes.begin(), std::min(size, bytes.size()), out.get());
  return out;
}

char *chars(const std::unique_ptr<unsigned char[]> &b) { return reinterpret_cast<char *>(b.get()); }

double any_double(FuzzedDataProvider &in) {
  constexpr double kEdges[] = {-138061, 6589335, 6589336, -138062, 0, -0.5, 1e300, -11928470400.0};
  return in.ConsumeBool() ? in.PickValueInArray(kEdges) + in.ConsumeIntegralInRange(-400, 400)
                          : std::bit_cast<double>(in.ConsumeIntegral<uint64_t>());
}

constexpr const char *kEncodings[] = {"UTF-8", "utf8", "ISO-8859-1", "ANSI_X3.4-1968",
                                      "EUC-JP", "CP1252", "ISO-2022-JP", "X-NONE"};

void names(FuzzedDataProvider &in) {
  const std::string text = in.ConsumeRandomLengthString(24);
  auto name = block(text, text.size());
  uint32_t id = 0;
  const auto length = static_cast<int32_t>(text.size());
  if (in.ConsumeBool()) {
    LocnameToID(chars(name), length, &id);
  } else {
    EncnameToID(chars(name), length, &id);
  }
}

void unicode(FuzzedDataProvider &in) {
  const int which = in.ConsumeIntegralInRange(0, 5);
  const int32_t outcap = in.ConsumeIntegralInRange(0, 64);
  const std::string text = in.ConsumeRandomLengthString(64);
  auto input = block(text, text.size() + 1);
  const auto n = static_cast<int32_t>(text.size());
  auto out = block({}, static_cast<size_t>(outcap) + 1);
  auto *units = reinterpret_cast<uint16_t *>(input.get());
  int32_t a = 0, b = 0;
  switch (which) {
    case 0:
      LATIN1ToUNICODE(input.get(), n, reinterpret_cast<uint16_t *>(out.get()), outcap, &a);
      break;
    case 1:
      UTF8ToUNICODE(input.get(), n, reinterpret_cast<uint16_t *>(out.get()), outcap, &a, &b);
      break;
    case 2:
      UNICODEToUTF8(units, n & ~1, out.get(), outcap, &a, &b);
      break;
    case 3:
      UPCASE(units, n / 2);
      break;
    case 4:
      LOWCASE(units, n / 2);
      break;
    default:
      NLSNUMCHAR(units, static_cast<uint32_t>(n / 2), in.ConsumeIntegralInRange(-2, 250),
                 static_cast<uint32_t>(outcap));
      break;
  }
}

void transcoding(FuzzedDataProvider &in) {
  const bool expansion = in.ConsumeBool();
  const int32_t capacity = in.ConsumeIntegralInRange(-4, 500);
  const int32_t width = in.ConsumeIntegralInRange(-4, 500);
  const int32_t outenc = in.ConsumeBool() ? CORVINEL_ENC_UTF16LE : in.ConsumeIntegralInRange(-1, 30);
  const std::string encoding = in.ConsumeBool() ? in.PickValueInArray(kEncodings) : in.ConsumeRandomLengthString(16);
  const std::string text = in.ConsumeRandomLengthString(400);
  if (expansion) {
    // The buffer holds the text and is `capacity` bytes long, as a format's is.
    const auto size = static_cast<size_t>(std::max({capacity, 0, static_cast<int32_t>(text.size())}));
    auto buf = block(text, size);
    int32_t len = static_cast<int32_t>(text.size());
    int32_t encout = 0;
    getExpResultFromNarrowCharBuf(0, outenc, &encout, chars(buf), &len, width,
                                  std::max(capacity, len));
  } else {
    auto units = block(text, text.size());
    auto out = block({}, static_cast<size_t>(std::max(capacity, 0)));
    int32_t outlen = 0;
    obnlsTranscodeUnicode(encoding.c_str(), units.get(), static_cast<int32_t>(text.size()),
                          chars(out), capacity, &outlen);
  }
}

void strings(FuzzedDataProvider &in) {
  const int which = in.ConsumeIntegralInRange(0, 9);
  const std::string text = in.ConsumeRandomLengthString(80);
  const std::string other = in.ConsumeRandomLengthString(8);
  auto s = block(text, text.size());
  const auto n = static_cast<int32_t>(text.size());
  const auto m = static_cast<int32_t>(other.size());
  int32_t len = 0, start = 0;
  switch (which) {
    case 0:
      wzstrip(chars(s), n);
      break;
    case 1:
      wzstjls(chars(s), n, in.ConsumeIntegral<char>(), &len, &start);
      break;
    case 2:
      wzstndx(chars(s), n, other.data(), m);
      break;
    case 3:
      wzstdel(chars(s), n, other.data(), m);
      break;
    case 4:
      if (other.size() >= 2) {
        wzstrns(chars(s), n, other.data(), other.data() + other.size() / 2,
                static_cast<int32_t>(other.size() / 2));
      }
      break;
    case 5:
      wzclchr(in.ConsumeIntegral<int64_t>(), chars(s), n);
      break;
    case 6:
      wzctint(in.ConsumeIntegral<int64_t>(), s.get(), n);
      break;
    case 7:
      wzctdbl(s.get(), n, any_double(in));
      break;
    case 8:
      in.ConsumeBool() ? wztxatoe(s.get(), n) : wztxetoa(s.get(), n);
      break;
    default:
      wzstver(chars(s), n, other.data(), m);
      wzsteqn(chars(s), n, other.data(), m);
      break;
  }
}

void calendar(FuzzedDataProvider &in) {
  const double a = any_double(in), b = any_double(in), c = any_double(in);
  double year = 0, month = 0, day = 0;
  zymdjul(&year, &month, &day, a);
  zjulymd(a, b, c);
  zdatjul(a);
  zjuldat(a);
  zmdy(a, b, c);
  zyyq(a, b);
  zday(a), zmonth(a), zyear(a), zqtr(a), zwekday(a);
  zhour(a), zminute(a), zsecond(a), zdatprt(a), ztimprt(a);
  const char styles[] = {'U', 'W', 'V', 'X', '\0'};
  char style[2] = {in.PickValueInArray(styles), '\0'};
  get_yywwdd(style, nullptr, &year, &month, &day, a);
  int32_t width = in.ConsumeIntegralInRange(-3, 16);
  auto out = block({}, static_cast<size_t>(std::max(width, 2)));
  zkfweek(chars(out), &width, style, nullptr, a);
  const int32_t digits = in.ConsumeIntegralInRange(-2, 24);
  auto field = block({}, static_cast<size_t>(std::max(digits, 0)));
  i2s(in.ConsumeIntegral<int32_t>(), chars(field), digits, in.ConsumeBool() ? '0' : ' ');
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) { return corvinel::fuzzing::prepare_sessions(); }

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  FuzzedDataProvider in(data, size);
  corvinel::fuzzing::enter_session(in);  // output expansion writes its bytes
  switch (in.ConsumeIntegralInRange(0, 4)) {
    case 0:
      names(in);
      break;
    case 1:
      unicode(in);
      break;
    case 2:
      transcoding(in);
      break;
    case 3:
      strings(in);
      break;
    default:
      calendar(in);
      break;
  }
  return 0;
}

// The fast paths against the straightforward ones they replace, given the
// same input under a session encoding drawn from the input: output
// expansion and transcoding (converters kept per thread against iconv opened
// for every step) and the locale number engine (digit texts written
// directly against snprintf and localeconv).  Any difference stops the run.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <bit>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "corvinel/fmtreq.h"
#include "corvinel/transcode.h"
#include "locale/output_expansion.h"
#include "nlnum/number_engine.h"
#include "support/session_locales.h"

namespace {

constexpr const char *kSessions[] = {corvinel::testing::kUtf8Locale, corvinel::testing::kLatin1Locale,
                                     corvinel::testing::kEucJpLocale, corvinel::testing::kAsciiLocale};

[[noreturn]] void differ(const char *what) {
  std::fprintf(stderr, "fast and straightforward paths differ: %s\n", what);
  std::abort();
}

void output_expansion(FuzzedDataProvider &in) {
  const int32_t width = in.ConsumeIntegralInRange(-2, 420);
  const int32_t capacity = in.ConsumeIntegralInRange(0, 420);
  const int32_t outenc = in.ConsumeBool() ? CORVINEL_ENC_UTF16LE : 0;
  const std::string text = in.ConsumeRandomLengthString(300);
  const size_t size = std::max<size_t>(static_cast<size_t>(capacity), text.size());
  std::vector<char> fast(size), reference(size);
  std::copy(text.begin(), text.end(), fast.begin());
  std::copy(text.begin(), text.end(), reference.begin());
  int32_t fast_len = static_cast<int32_t>(text.size()), reference_len = fast_len;
  int32_t fast_enc = 0, reference_enc = 0;
  const int32_t room = std::max(capacity, fast_len);
  const int32_t a = corvinel::locale::getExpResultFromNarrowCharBuf(0, outenc, &fast_enc, fast.data(),
                                                                   &fast_len, width, room);
  const int32_t b = corvinel::locale::expand_output_per_call(0, outenc, &reference_enc, reference.data(),
                                                            &reference_len, width, room);
  if (a != b || fast_len != reference_len || fast_enc != reference_enc || fast != reference) {
    differ("output expansion");
  }
}

void transcoding(FuzzedDataProvider &in) {
  constexpr const char *kEncodings[] = {"UTF-8", "ISO-8859-1", "ANSI_X3.4-1968", "EUC-JP", "CP1252",
                                        "ISO-2022-JP", "GB18030", "X-NONE"};
  const char *encoding = in.PickValueInArray(kEncodings);
  const int32_t outcap = in.ConsumeIntegralInRange(-2, 450);
  const std::string units = in.ConsumeRandomLengthString(500);
  const size_t size = static_cast<size_t>(std::max(outcap, 0));
  std::vector<char> fast(size), reference(size);
  int32_t fast_len = -7, reference_len = -7;
  const auto *bytes = reinterpret_cast<const unsigned char *>(units.data());
  const auto n = static_cast<int32_t>(units.size());
  const int32_t a = obnlsTranscodeUnicode(encoding, bytes, n, fast.data(), outcap, &fast_len);
  const int32_t b = corvinel::locale::transcode_unicode_per_call(encoding, bytes, n, reference.data(), outcap,
                                                                 &reference_len);
  const auto used = static_cast<size_t>(std::clamp(fast_len, 0, static_cast<int32_t>(size)));
  if (a != b || fast_len != reference_len ||
      !std::equal(fast.begin(), fast.begin() + static_cast<std::ptrdiff_t>(used), reference.begin())) {
    differ("transcoding");
  }
}

void number_engine(FuzzedDataProvider &in) {
  constexpr int32_t kItems[] = {170, 171, 183, 184, 185, 186};
  const int32_t item = in.PickValueInArray(kItems);
  const int32_t width = in.ConsumeIntegralInRange(0, 40);
  fmtreq request{};
  request.width = width;
  request.decimals = in.ConsumeBool() ? in.ConsumeIntegralInRange(-1, 32) : in.ConsumeIntegral<int32_t>();
  request.locale = in.ConsumeIntegralInRange(0, 137);
  request.capacity = 402;
  request.xcode_b = in.ConsumeBool() ? CORVINEL_ENC_UTF16LE : 0;
  const double value = std::bit_cast<double>(in.ConsumeIntegral<uint64_t>());
  request.value = &value;
  fmtreq reference = request;
  std::vector<char> fast_out(402, '~'), reference_out(402, '~');
  request.output = fast_out.data();
  reference.output = reference_out.data();
  const int32_t a = corvinel::nlnum::zkfnum(request.output, request.width, 0, item, &request);
  const int32_t b = corvinel::nlnum::zkfnum_reference(reference.output, reference.width, 0, item, &reference);
  if (a != b || request.outlen != reference.outlen || request.width != reference.width ||
      fast_out != reference_out) {
    differ("number engine");
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  return corvinel::testing::prepare_session_locales(CORVINEL_FUZZ_LOCPATH) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  FuzzedDataProvider in(data, size);
  std::setlocale(LC_ALL, in.PickValueInArray(kSessions));
  switch (in.ConsumeIntegralInRange(0, 2)) {
    case 0:
      output_expansion(in);
      break;
    case 1:
      transcoding(in);
      break;
    default:
      number_engine(in);
      break;
  }
  return 0;
}

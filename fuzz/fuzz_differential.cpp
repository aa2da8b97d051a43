// The fast paths against the straightforward ones they replace, given the
// same input under a session encoding drawn from the input: output
// expansion and transcoding (converters kept per thread against iconv opened
// for every step), the locale number engine (digit texts written directly
// against snprintf and localeconv) and a date format's attempt at a pattern
// (the compiled pattern laid into the field against the interpreted text
// through output expansion).  Any difference stops the run.
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
#include "encoding/output_expansion.h"
#include "locale/locale_records.h"
#include "nldate/field_attempt.h"
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
  const int32_t a = corvinel::encoding::getExpResultFromNarrowCharBuf(0, outenc, &fast_enc, fast.data(),
                                                                   &fast_len, width, room);
  const int32_t b = corvinel::encoding::expand_output_per_call(0, outenc, &reference_enc, reference.data(),
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
  const int32_t b = corvinel::encoding::transcode_unicode_per_call(encoding, bytes, n, reference.data(), outcap,
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

void date_attempt(FuzzedDataProvider &in) {
  constexpr corvinel::nldate::ValueKind kKinds[] = {corvinel::nldate::ValueKind::Date,
                                                    corvinel::nldate::ValueKind::Datetime,
                                                    corvinel::nldate::ValueKind::Time};
  const corvinel::nldate::ValueKind kind = in.PickValueInArray(kKinds);
  const locitem *record = corvinel::locale::select_record(in.ConsumeIntegralInRange(0, 137));
  const int32_t width = in.ConsumeIntegralInRange(1, 60);
  const int32_t capacity = width + in.ConsumeIntegralInRange(0, 140);
  const int32_t digits = in.ConsumeIntegralInRange(-1, 12);
  in.ConsumeBool();  // once the acceptance of a cut text; kept so the corpus reads as before
  const int32_t encoding = in.ConsumeBool() ? CORVINEL_ENC_UTF16LE : 0;
  const double value = in.ConsumeBool() ? std::bit_cast<double>(in.ConsumeIntegral<uint64_t>())
                                        : in.ConsumeFloatingPointInRange(-2e10, 6e11);
  // An item of the record, or a pattern of the input's own.
  const bool own = in.ConsumeBool();
  const int32_t selector = in.ConsumeIntegralInRange(0, 5000);
  const std::string pattern = in.ConsumeRandomLengthString(250);
  std::vector<char> out[2] = {std::vector<char>(static_cast<size_t>(capacity), '~'),
                              std::vector<char>(static_cast<size_t>(capacity), '~')};
  fmtreq request[2];
  int32_t result[2];
  bool placed[2] = {false, false};
  for (int path = 0; path < 2; ++path) {
    fmtreq &r = request[path];
    r = fmtreq{};
    r.width = width;
    r.capacity = capacity;
    r.decimals = digits;
    r.xcode_b = encoding;
    r.value = &value;
    r.output = out[path].data();
    corvinel::nldate::EntryExpansion entry;
    result[path] = entry.prepare(kind, record, own ? pattern.data() : nullptr,
                                 own ? static_cast<int32_t>(pattern.size()) : selector, digits, value);
    if (result[path] != 0) continue;
    result[path] = path == 0 ? corvinel::nldate::attempt_in_field(
                                   r, entry, corvinel::nldate::read_attempt_session(r), placed[0])
                             : corvinel::nldate::attempt_in_field_interpreted(r, entry, placed[1]);
  }
  if (result[0] != result[1] || placed[0] != placed[1] || request[0].outlen != request[1].outlen ||
      request[0].xcode_state != request[1].xcode_state || out[0] != out[1]) {
    for (int path = 0; path < 2; ++path) {
      std::fprintf(stderr, "%s: result %d placed %d outlen %d field [%.*s]\n",
                   path == 0 ? "compiled" : "interpreted", result[path], placed[path] ? 1 : 0,
                   request[path].outlen, capacity, out[path].data());
    }
    std::fprintf(stderr, "session %s capacity %d record %ld kind %d digits %d encoding %d\n", std::setlocale(LC_ALL, nullptr), capacity, record ? static_cast<long>((record - ORBlocaleData[0]) / CORVINEL_LOCALE_ITEMS) : -1L, static_cast<int>(kind), digits, encoding);
    std::fprintf(stderr, "pattern [");
    for (const char c : own ? pattern : std::string("(item)")) {
      const auto byte = static_cast<unsigned char>(c);
      if (byte >= 0x20 && byte < 0x7F) {
        std::fputc(byte, stderr);
      } else {
        std::fprintf(stderr, "\\x%02X", byte);
      }
    }
    std::fprintf(stderr, "] selector %d width %d value %.17g\n", selector, width, value);
    differ("date attempt");
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  return corvinel::testing::prepare_session_locales(CORVINEL_FUZZ_LOCPATH) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  FuzzedDataProvider in(data, size);
  std::setlocale(LC_ALL, in.PickValueInArray(kSessions));
  switch (in.ConsumeIntegralInRange(0, 3)) {
    case 0:
      output_expansion(in);
      break;
    case 1:
      transcoding(in);
      break;
    case 2:
      date_attempt(in);
      break;
    default:
      number_engine(in);
      break;
  }
  return 0;
}

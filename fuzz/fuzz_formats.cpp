// Every format of the registry with a whole request drawn from the input:
// width, decimals, the value as raw bits, flags, locale number, the three
// transcoding words and ORB_LOCALE.  The output is a heap block of exactly
// `capacity` bytes, so a write past it stops the run under the address
// sanitizer; afterwards the fields a format must hand back are compared.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <tuple>

#include "corvinel/fmtreq.h"
#include "frame/format_catalogue.h"

namespace {

using corvinel::testing::FormatCase;

constexpr const char *kLocaleNames[] = {"en_US", "de_DE", "ja_JP", "th_TH", "zh_TW", "ar_EG",
                                        "fr_CA", "he_IL", "xx_YY", "",      "e"};

// Values the formats treat specially, as raw bits: missing values, the
// edges of the date and datetime ranges, NaNs, infinities, subnormals.
constexpr uint64_t kEdgeBits[] = {
    0xFFFFFE0000000000ull,               0xFFFFFF0000000000ull, 0xFFFFE40000000000ull,
    0xFFFF000000000000ull,               0x7FF8000000000000ull, 0x7FF0000000000000ull,
    0xFFF0000000000000ull,               0x0000000000000001ull, 0x8000000000000000ull,
    std::bit_cast<uint64_t>(-138061.0),  std::bit_cast<uint64_t>(6589335.0),
    std::bit_cast<uint64_t>(-11928470400.0), std::bit_cast<uint64_t>(569318630399.999),
    std::bit_cast<uint64_t>(86399.9999), std::bit_cast<uint64_t>(1e300)};

void set_orb_locale(FuzzedDataProvider &in) {
  switch (in.ConsumeIntegralInRange(0, 3)) {
    case 0:
      unsetenv("ORB_LOCALE");
      break;
    case 1:
      setenv("ORB_LOCALE", in.PickValueInArray(kLocaleNames), 1);
      break;
    default:
      setenv("ORB_LOCALE", in.ConsumeRandomLengthString(12).c_str(), 1);
      break;
  }
}

void print_request(const char *label, const fmtreq &q) {
  std::fprintf(stderr,
               "  %s: width %d decimals %d value %a capacity %d outlen %d flags %u locale %d "
               "xcode_a %d xcode_b %d xcode_state %lld\n",
               label, q.width, q.decimals, *q.value, q.capacity, q.outlen, q.flags, q.locale, q.xcode_a,
               q.xcode_b, static_cast<long long>(q.xcode_state));
}

void check(const FormatCase &c, const fmtreq &sent, const fmtreq &back, int32_t result) {
  const auto fail = [&](const char *what) {
    const char *orb_locale = std::getenv("ORB_LOCALE");
    std::fprintf(stderr, "%s: %s (result %d, ORB_LOCALE %s)\n", c.name.c_str(), what, result,
                 orb_locale != nullptr ? orb_locale : "unset");
    print_request("sent", sent);
    print_request("back", back);
    std::abort();
  };
  const auto kept = [](const fmtreq &q) {
    return std::tie(q.decimals, q.value, q.reserved, q.output, q.host_private[0], q.host_private[1],
                    q.locale, q.xcode_a, q.xcode_b);
  };
  if (kept(back) != kept(sent)) fail("request not restored");
  const bool clamped = c.clamps_width() && back.width == 32 && sent.width > 32;
  if (back.width != sent.width && !clamped) fail("width not restored");
  const bool narrowed = c.narrows_capacity() && back.capacity == std::min(sent.capacity, sent.width);
  if (back.capacity != sent.capacity && !narrowed) fail("capacity changed");
  const bool marked = c.calls_classic_rendering() && back.flags == (sent.flags | FMTREQ_LOCALE_CALLER);
  if (back.flags != sent.flags && !marked) fail("flags changed");
  // A format that sets outlen sets it inside the buffer; some leave it as
  // the host passed it (a limit result).
  const bool outlen_set = back.outlen != sent.outlen;
  if (result == CORVINEL_OK && outlen_set && (back.outlen < 0 || back.outlen > sent.capacity)) {
    fail("outlen outside the buffer");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  FuzzedDataProvider in(data, size);
  const auto &formats = corvinel::testing::all_formats();
  const FormatCase &c = formats[in.ConsumeIntegralInRange<size_t>(0, formats.size() - 1)];

  fmtreq sent{};
  sent.width = in.ConsumeBool() ? in.ConsumeIntegralInRange(-4, 64) : in.ConsumeIntegralInRange(-70000, 1200);
  sent.decimals = in.ConsumeBool() ? in.ConsumeIntegralInRange(-2, 40) : in.ConsumeIntegral<int32_t>();
  sent.capacity = std::max(sent.width, 0) + in.ConsumeIntegralInRange(0, 600);
  sent.flags = in.ConsumeIntegral<uint8_t>();
  sent.locale = in.ConsumeBool() ? in.ConsumeIntegralInRange(-1, 137) : in.ConsumeIntegral<int32_t>();
  sent.xcode_a = in.ConsumeIntegral<int32_t>();
  constexpr int32_t kEncodings[] = {0, CORVINEL_ENC_UTF8, CORVINEL_ENC_UTF16BE, CORVINEL_ENC_UTF16LE, -1};
  sent.xcode_b = in.ConsumeBool() ? in.PickValueInArray(kEncodings) : in.ConsumeIntegral<int32_t>();
  sent.xcode_state = in.ConsumeIntegral<int64_t>();
  sent.outlen = in.ConsumeIntegral<int32_t>();
  sent.host_private[0] = in.ConsumeIntegral<intptr_t>();
  set_orb_locale(in);
  const uint64_t bits = in.ConsumeBool() ? in.PickValueInArray(kEdgeBits) : in.ConsumeIntegral<uint64_t>();
  const auto value = std::make_unique<double>(std::bit_cast<double>(bits));
  const auto output = std::make_unique<char[]>(static_cast<size_t>(sent.capacity));
  sent.value = value.get();
  sent.output = output.get();

  fmtreq back = sent;
  const int32_t result = c.render(&back);
  check(c, sent, back, result);
  return 0;
}

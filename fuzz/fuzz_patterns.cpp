// Patterns and values straight into the date pattern expander, through the
// in-place item reads and through the lookup path at once: any difference
// in result, length or bytes stops the run, as does a write past the field.
#include <fuzzer/FuzzedDataProvider.h>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "nldate/pattern_expander.h"

namespace {

double part(FuzzedDataProvider &in, double typical_low, double typical_high) {
  switch (in.ConsumeIntegralInRange(0, 3)) {
    case 0:
      return std::bit_cast<double>(0xFFFFFE0000000000ull);  // missing
    case 1:
      return std::bit_cast<double>(in.ConsumeIntegral<uint64_t>());
    default:
      return in.ConsumeFloatingPointInRange(typical_low, typical_high);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  FuzzedDataProvider in(data, size);
  const int32_t locale = in.ConsumeIntegralInRange(-1, 137);
  const int32_t width = in.ConsumeIntegralInRange(-300, 300);
  const int32_t digits = in.ConsumeIntegralInRange(-2, 40);
  const bool length_only = in.ConsumeIntegralInRange(0, 7) == 0;
  const double date = part(in, -140000, 6600000);
  const double hour = part(in, 0, 30), minute = part(in, 0, 60), second = part(in, 0, 61);
  const std::string pattern = in.ConsumeRemainingBytesAsString();

  const auto field = static_cast<size_t>(width < 0 ? -static_cast<int64_t>(width) : width);
  auto fast = std::make_unique<char[]>(field), reference = std::make_unique<char[]>(field);
  std::memset(fast.get(), '~', field);
  std::memset(reference.get(), '~', field);
  int32_t fast_width = width, reference_width = width;
  const auto n = static_cast<int32_t>(pattern.size());
  const int32_t a = corvinel::nldate::expand(locale, pattern.data(), n, length_only ? nullptr : fast.get(),
                                             &fast_width, digits, date, hour, minute, second);
  const int32_t b = corvinel::nldate::expand_reference(locale, pattern.data(), n,
                                                       length_only ? nullptr : reference.get(),
                                                       &reference_width, digits, date, hour, minute, second);
  if (a != b || fast_width != reference_width || std::memcmp(fast.get(), reference.get(), field) != 0) {
    std::fprintf(stderr, "expand and expand_reference differ: %d/%d widths %d/%d\n", a, b, fast_width,
                 reference_width);
    std::abort();
  }
  return 0;
}

// How close NLNUM12.2 in de_DE comes to the floor: beside corvinel, a
// hand-written routine that does only what such a call must (read
// ORB_LOCALE and the session codeset, round to two places, write
// "1.234.567,89" right-aligned into 12 bytes, "*" when it does not fit),
// and ICU's strict side doing the same per-call work (the two reads,
// unum_formatDouble with a formatter opened once, the UTF-16 result
// converted to UTF-8, padded, "*" when too wide).  Before timing, each side
// is checked to write exactly corvinel's bytes for every value.
//
//   cmake --preset bench && cmake --build --preset bench --target run-floor-bench
// Repetitions are on by default; the table at the end uses the medians.
#include <benchmark/benchmark.h>
#include <langinfo.h>
#include <unicode/unum.h>
#include <unicode/ustring.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "corvinel/formats.h"
#include "support/run_times_reporter.h"
#include "support/session_locales.h"

namespace {

constexpr int32_t kWidth = 12;
constexpr double kValues[] = {1234.5, -98765.4321, 0.125, 7.0, -0.5, 42.42, 123456.789, -3.14159};
constexpr std::size_t kValueMask = std::size(kValues) - 1;
static_assert((std::size(kValues) & kValueMask) == 0);

void fill_stars(char *out) {
  std::memset(out, ' ', kWidth);
  std::memset(out, '*', kWidth);
}

// The floor: German grouping and decimal comma, two places rounded as
// printf rounds (to even on ties of the binary value), right-aligned.
void floor_nlnum(double value, char *out) {
  volatile const char *locale = std::getenv("ORB_LOCALE");
  volatile const char *codeset = nl_langinfo(CODESET);
  (void)locale;
  (void)codeset;
  const double scaled = std::nearbyint(std::fabs(value) * 100);
  if (!(scaled < 1e15)) return fill_stars(out);
  auto units = static_cast<uint64_t>(scaled);
  char text[32];
  char *p = text + sizeof text;
  *--p = static_cast<char>('0' + units % 10);
  units /= 10;
  *--p = static_cast<char>('0' + units % 10);
  units /= 10;
  *--p = ',';
  int digits = 0;
  do {
    if (digits > 0 && digits % 3 == 0) *--p = '.';
    *--p = static_cast<char>('0' + units % 10);
    units /= 10;
    ++digits;
  } while (units != 0);
  if (std::signbit(value) && scaled != 0) *--p = '-';
  const auto length = static_cast<int32_t>(text + sizeof text - p);
  if (length > kWidth) return fill_stars(out);
  std::memset(out, ' ', static_cast<std::size_t>(kWidth - length));
  std::memcpy(out + (kWidth - length), p, static_cast<std::size_t>(length));
}

struct IcuSide {
  UNumberFormat *format = nullptr;

  IcuSide() {
    UErrorCode status = U_ZERO_ERROR;
    format = unum_open(UNUM_DECIMAL, nullptr, 0, "de_DE", nullptr, &status);
    unum_setAttribute(format, UNUM_MIN_FRACTION_DIGITS, 2);
    unum_setAttribute(format, UNUM_MAX_FRACTION_DIGITS, 2);
    unum_setAttribute(format, UNUM_ROUNDING_MODE, UNUM_ROUND_HALFEVEN);
  }
  ~IcuSide() { unum_close(format); }

  void render(double value, char *out) const {
    volatile const char *locale = std::getenv("ORB_LOCALE");
    volatile const char *codeset = nl_langinfo(CODESET);
    (void)locale;
    (void)codeset;
    UChar units[64];
    UErrorCode status = U_ZERO_ERROR;
    const int32_t count = unum_formatDouble(format, value, units, 64, nullptr, &status);
    char text[64];
    int32_t length = 0;
    u_strToUTF8(text, sizeof text, &length, units, count, &status);
    if (U_FAILURE(status) || length > kWidth) return fill_stars(out);
    std::memset(out, ' ', static_cast<std::size_t>(kWidth - length));
    std::memcpy(out + (kWidth - length), text, static_cast<std::size_t>(length));
  }
};

void corvinel_nlnum(double value, char *out) {
  fmtreq request{};
  request.width = kWidth;
  request.decimals = 2;
  request.value = &value;
  request.output = out;
  request.capacity = kWidth;
  nlnum(&request);
}

// Each side against corvinel over every value; false (and a message) on
// the first difference.
template <typename Render>
bool writes_corvinel_bytes(const char *side, Render render) {
  for (const double value : kValues) {
    char expected[kWidth], actual[kWidth];
    corvinel_nlnum(value, expected);
    render(value, actual);
    if (std::memcmp(expected, actual, kWidth) != 0) {
      std::fprintf(stderr, "%s writes \"%.12s\" for %g, corvinel \"%.12s\"\n", side, actual, value,
                   expected);
      return false;
    }
  }
  return true;
}

template <typename Render>
void run(benchmark::State &state, Render render) {
  char output[kWidth];
  std::size_t i = 0;
  for (auto _ : state) {
    render(kValues[i++ & kValueMask], output);
    benchmark::DoNotOptimize(output);
  }
}

class FloorReporter : public corvinel::bench::RunTimesReporter {
 public:
  void Finalize() override {
    ConsoleReporter::Finalize();
    const double floor = nanoseconds("NLNUM12.2/de_DE/floor");
    const double corvinel = nanoseconds("NLNUM12.2/de_DE/corvinel");
    const double icu = nanoseconds("NLNUM12.2/de_DE/icu");
    if (floor <= 0 || corvinel <= 0 || icu <= 0) return;
    std::printf("\nNLNUM12.2 de_DE, medians: floor %.1f ns, corvinel %.1f ns, ICU %.1f ns\n", floor,
                corvinel, icu);
    std::printf("corvinel / floor %.2f (target at most 2), ICU / corvinel %.2f (target at least 4)\n",
                corvinel / floor, icu / corvinel);
  }
};

}  // namespace

int main(int argc, char **argv) {
  if (!corvinel::testing::prepare_session_locales(CORVINEL_BENCH_LOCPATH)) return 1;
  if (std::setlocale(LC_ALL, corvinel::testing::kUtf8Locale) == nullptr) return 1;
  setenv("ORB_LOCALE", "de_DE", 1);
  static const IcuSide icu;
  const auto icu_render = [](double value, char *out) { icu.render(value, out); };
  if (!writes_corvinel_bytes("floor", floor_nlnum) || !writes_corvinel_bytes("ICU", icu_render)) {
    return 1;
  }
  benchmark::RegisterBenchmark("NLNUM12.2/de_DE/floor", [](benchmark::State &s) { run(s, floor_nlnum); });
  benchmark::RegisterBenchmark("NLNUM12.2/de_DE/corvinel", [](benchmark::State &s) { run(s, corvinel_nlnum); });
  benchmark::RegisterBenchmark("NLNUM12.2/de_DE/icu", [&](benchmark::State &s) { run(s, icu_render); });
  // Repetitions unless the command line says otherwise.
  std::string repetitions = "--benchmark_repetitions=9";
  std::string aggregates = "--benchmark_report_aggregates_only=true";
  std::vector<char *> args(argv, argv + argc);
  args.push_back(repetitions.data());
  args.push_back(aggregates.data());
  int count = static_cast<int>(args.size());
  benchmark::Initialize(&count, args.data());
  if (benchmark::ReportUnrecognizedArguments(count, args.data())) return 1;
  FloorReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}

// NLNUM12.2, NLMNY12.2, NLPCT8.1 and NLMNIEUR14.2 in en_US, de_DE and ja_JP
// under a UTF-8 session, side by side with ICU's unum_formatDouble set up
// with the same locale, pattern (the locale's pattern in canonical symbols:
// items 184, 171, 186; "¤¤" and EUR for the currency code) and fraction
// digits, and with snprintf("%*.*f").  A table of the ratios to ICU
// follows the usual output.
//
// What each side does per call: ICU's formatter is opened once, outside the
// timed loop, and each call formats into a UTF-16 buffer that is neither
// converted to UTF-8 nor padded to the field.  corvinel's time is a whole
// format call: limit check, locale lookup through ORB_LOCALE, fitting, and
// the field blank-padded and transcoded into the UTF-8 session's bytes.  So
// the comparison leaves ICU the lighter work.
//
//   cmake --preset bench && cmake --build --preset bench --target run-nlnum-bench
// (or run ./build/bench/bench/nlnum/nlnum_bench with benchmark options).
#include <benchmark/benchmark.h>
#include <unicode/unum.h>

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "corvinel/formats.h"
#include "corvinel/locale_db.h"
#include "support/run_times_reporter.h"
#include "support/session_locales.h"

namespace {

struct FormatCase {
  const char *name;
  fmt_render_fn render;
  int32_t width, decimals;
  int32_t canonical_pattern;  // locale item of the same convention for ICU
  const UChar *currency_code;  // ICU: an ISO code shown instead of the symbol
};

const FormatCase kCases[] = {
    {"NLNUM12.2", nlnum, 12, 2, 184, nullptr},
    {"NLMNY12.2", nlmny, 12, 2, 171, nullptr},
    {"NLPCT8.1", nlpct, 8, 1, 186, nullptr},
    {"NLMNIEUR14.2", nlmnieur, 14, 2, 171, u"EUR"},
};

constexpr const char *kLocales[] = {"en_US", "de_DE", "ja_JP"};

// Values of different lengths and signs, taken in turn.
constexpr double kValues[] = {1234.5, -98765.4321, 0.125, 7.0, -0.5, 42.42, 123456.789, -3.14159};
constexpr std::size_t kValueMask = std::size(kValues) - 1;
static_assert((std::size(kValues) & kValueMask) == 0);

void corvinel_format(benchmark::State &state, const FormatCase &c, const char *locale) {
  setenv("ORB_LOCALE", locale, 1);
  char output[64];
  std::size_t i = 0;
  for (auto _ : state) {
    const double value = kValues[i++ & kValueMask];
    fmtreq request{};
    request.width = c.width;
    request.decimals = c.decimals;
    request.value = &value;
    request.output = output;
    request.capacity = sizeof output;
    benchmark::DoNotOptimize(c.render(&request));
    benchmark::DoNotOptimize(output);
  }
}

// The locale item as an ICU pattern: "<Uxxxx>" escapes become their unit.
std::u16string icu_pattern(int32_t item, bool code) {
  char text[CORVINEL_LOCALE_TEXT];
  const int32_t length = getORBLocDB(text, sizeof text, item, 0);
  std::u16string pattern;
  for (int32_t i = 0; i < length;) {
    if (i + 7 <= length && text[i] == '<' && (text[i + 1] | 0x20) == 'u' && text[i + 6] == '>') {
      pattern.push_back(static_cast<char16_t>(std::strtoul(std::string(text + i + 2, 4).c_str(), nullptr, 16)));
      i += 7;
    } else {
      pattern.push_back(static_cast<char16_t>(text[i++]));
    }
    if (code && pattern.back() == u'\u00A4') pattern.push_back(u'\u00A4');
  }
  return pattern;
}

void icu_format(benchmark::State &state, const FormatCase &c, const char *locale) {
  setenv("ORB_LOCALE", locale, 1);
  const std::u16string pattern = icu_pattern(c.canonical_pattern, c.currency_code != nullptr);
  UErrorCode status = U_ZERO_ERROR;
  UNumberFormat *format = unum_open(UNUM_PATTERN_DECIMAL, pattern.data(),
                                    static_cast<int32_t>(pattern.size()), locale, nullptr, &status);
  if (c.currency_code != nullptr) unum_setTextAttribute(format, UNUM_CURRENCY_CODE, c.currency_code, 3, &status);
  unum_setAttribute(format, UNUM_MIN_FRACTION_DIGITS, c.decimals);
  unum_setAttribute(format, UNUM_MAX_FRACTION_DIGITS, c.decimals);
  if (U_FAILURE(status)) {
    state.SkipWithError(u_errorName(status));
    unum_close(format);
    return;
  }
  UChar output[64];
  std::size_t i = 0;
  for (auto _ : state) {
    UErrorCode error = U_ZERO_ERROR;
    benchmark::DoNotOptimize(unum_formatDouble(format, kValues[i++ & kValueMask], output,
                                               std::size(output), nullptr, &error));
    benchmark::DoNotOptimize(output);
  }
  unum_close(format);
}

void snprintf_format(benchmark::State &state, const FormatCase &c) {
  char output[64];
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::snprintf(output, sizeof output, "%*.*f", c.width, c.decimals,
                                           kValues[i++ & kValueMask]));
    benchmark::DoNotOptimize(output);
  }
}

// The console output, then each corvinel and snprintf time against ICU's.
class RatioReporter : public corvinel::bench::RunTimesReporter {
 public:
  void Finalize() override {
    ConsoleReporter::Finalize();
    std::printf("\nICU output stays UTF-16, unpadded; corvinel's is the padded UTF-8 field.");
    std::printf("\n%-22s %12s %12s %12s %10s %10s\n", "format/locale", "corvinel ns", "icu ns",
                "snprintf ns", "corv/icu", "icu/corv");
    for (const FormatCase &c : kCases) {
      for (const char *locale : kLocales) {
        const std::string key = std::string(c.name) + "/" + locale + "/";
        const double corvinel = nanoseconds(key + "corvinel");
        const double icu = nanoseconds(key + "icu");
        const double snprintf_ns = nanoseconds(std::string(c.name) + "/snprintf");
        if (corvinel <= 0 || icu <= 0) continue;
        std::printf("%-22s %12.1f %12.1f %12.1f %10.2f %10.2f\n", (key.substr(0, key.size() - 1)).c_str(),
                    corvinel, icu, snprintf_ns, corvinel / icu, icu / corvinel);
      }
    }
  }
};

}  // namespace

int main(int argc, char **argv) {
  if (!corvinel::testing::prepare_session_locales(CORVINEL_BENCH_LOCPATH)) return 1;
  if (std::setlocale(LC_ALL, corvinel::testing::kUtf8Locale) == nullptr) return 1;
  for (const FormatCase &c : kCases) {
    for (const char *locale : kLocales) {
      const std::string name = std::string(c.name) + "/" + locale;
      benchmark::RegisterBenchmark((name + "/corvinel").c_str(), corvinel_format, c, locale);
      benchmark::RegisterBenchmark((name + "/icu").c_str(), icu_format, c, locale);
    }
    benchmark::RegisterBenchmark((std::string(c.name) + "/snprintf").c_str(), snprintf_format, c);
  }
  RatioReporter reporter;
  return corvinel::bench::run_benchmarks(argc, argv, reporter);
}

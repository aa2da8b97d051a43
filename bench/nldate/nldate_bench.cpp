// NLDATE20., NLDATM30., NLTIME10., NLDATEW29. and NLDATMZ40. in en_US, de_DE
// and ja_JP under a UTF-8 session, side by side with ICU's udat_format and
// with strftime, each given the pattern that writes the same text.  A table
// of ns per call and ratios follows the usual output.
//
// What each side does per call: ICU's formatter is opened once, outside the
// timed loop (zone UTC, the locale's names); each call formats into UTF-16
// and converts the result to UTF-8.  strftime runs under the C.UTF-8 session
// (English names, the same pattern shape) on a struct tm split beforehand
// with gmtime_r, so it is charged with neither the calendar nor the zone;
// a second strftime side calls gmtime_r on the instant first.  (For "%z"
// strftime reads the offset the struct tm carries; corvinel works out the
// machine's offset now, as its formats must.)
// corvinel's time is a whole format call: limit check, locale lookup
// through ORB_LOCALE, calendar arithmetic, every attempt at a pattern until
// the field fits, and the field transcoded into the UTF-8 session's bytes.
//
//   cmake --preset bench && cmake --build --preset bench --target run-nldate-bench
// (or run ./build/bench/bench/nldate/nldate_bench with benchmark options).
#include <benchmark/benchmark.h>
#include <unicode/udat.h>
#include <unicode/ustring.h>

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "corvinel/formats.h"
#include "support/run_times_reporter.h"
#include "support/session_locales.h"

namespace {

enum class Kind { kDate, kDatetime, kTime };

// The same text three ways: corvinel's format, ICU's pattern, strftime's.
struct Patterns {
  const char16_t *icu;
  const char *strftime;
};

struct FormatCase {
  const char *name;
  fmt_render_fn render;
  int32_t width;
  Kind kind;
  Patterns en_US, de_DE, ja_JP;
};

const FormatCase kCases[] = {
    {"NLDATE20.", nldate, 20, Kind::kDate,
     {u"MMMM dd, y", "%B %d, %Y"},
     {u"dd. MMMM y", "%d. %B %Y"},
     {u"y年MM月dd日", "%Y年%m月%d日"}},
    {"NLDATM30.", nldatm, 30, Kind::kDatetime,
     {u"ddMMMy:HH:mm:ss", "%d%b%Y:%H:%M:%S"},
     {u"dd. MMMM y HH.mm 'Uhr'", "%d. %B %Y %H.%M Uhr"},
     {u"y/MM/dd HH時mm分ss秒", "%Y/%m/%d %H時%M分%S秒"}},
    {"NLTIME10.", nltime, 10, Kind::kTime,
     {u"HH:mm:ss", "%H:%M:%S"},
     {u"HH.mm 'Uhr'", "%H.%M Uhr"},
     {u"HH:mm:ss", "%H:%M:%S"}},
    {"NLDATEW29.", nldatew, 29, Kind::kDate,
     {u"EEEE, MMMM dd, y", "%A, %B %d, %Y"},
     {u"EEEE, dd. MMMM y", "%A, %d. %B %Y"},
     {u"y年M月dd日 EEEE", "%Y年%_m月%d日 %A"}},
    {"NLDATMZ40.", nldatmz, 40, Kind::kDatetime,
     {u"ddMMMy:HH:mm:ss xx", "%d%b%Y:%H:%M:%S %z"},
     {u"dd. MMMM y HH.mm 'Uhr' xx", "%d. %B %Y %H.%M Uhr %z"},
     {u"y年MM月dd日 HH時mm分ss秒 xx", "%Y年%m月%d日 %H時%M分%S秒 %z"}},
};

constexpr const char *kLocales[] = {"en_US", "de_DE", "ja_JP"};

const Patterns &patterns_of(const FormatCase &c, const char *locale) {
  const std::string name(locale);
  return name == "en_US" ? c.en_US : name == "de_DE" ? c.de_DE : c.ja_JP;
}

// Datetimes of different months, weekdays and lengths, taken in turn.
constexpr double kDatetimes[] = {1361709583.0, 0.0, 1577836799.0, 1234567890.0,
                                 1393632000.0, 45583.0, 2000000000.0, 987654321.0};
constexpr std::size_t kValueMask = std::size(kDatetimes) - 1;
static_assert((std::size(kDatetimes) & kValueMask) == 0);

constexpr double kSecondsPerDay = 86400;
constexpr double kEpoch1970 = 3653 * kSecondsPerDay;  // 1 January 1970 in host seconds

// The host's value of the i-th datetime for a format of `kind`.
double host_value(Kind kind, std::size_t i) {
  const double seconds = kDatetimes[i & kValueMask];
  switch (kind) {
    case Kind::kDate:
      return static_cast<double>(static_cast<int64_t>(seconds / kSecondsPerDay));
    case Kind::kTime:
      return seconds - kSecondsPerDay * static_cast<double>(static_cast<int64_t>(seconds / kSecondsPerDay));
    case Kind::kDatetime:
      break;
  }
  return seconds;
}

// The same instant for ICU and the C library: Unix seconds.
time_t unix_seconds(Kind kind, std::size_t i) {
  const double value = host_value(kind, i);
  switch (kind) {
    case Kind::kDate:
      return static_cast<time_t>(value * kSecondsPerDay - kEpoch1970);
    case Kind::kTime:
      return static_cast<time_t>(value);
    case Kind::kDatetime:
      break;
  }
  return static_cast<time_t>(value - kEpoch1970);
}

void corvinel_format(benchmark::State &state, const FormatCase &c, const char *locale) {
  setenv("ORB_LOCALE", locale, 1);
  double values[std::size(kDatetimes)];
  for (std::size_t i = 0; i < std::size(values); ++i) values[i] = host_value(c.kind, i);
  char output[256];
  std::size_t i = 0;
  for (auto _ : state) {
    const double value = values[i++ & kValueMask];
    fmtreq request{};
    request.width = c.width;
    request.value = &value;
    request.output = output;
    request.capacity = sizeof output;
    benchmark::DoNotOptimize(c.render(&request));
    benchmark::DoNotOptimize(output);
  }
}

void icu_format(benchmark::State &state, const FormatCase &c, const char *locale) {
  const std::u16string pattern = patterns_of(c, locale).icu;
  UErrorCode status = U_ZERO_ERROR;
  UDateFormat *format = udat_open(UDAT_PATTERN, UDAT_PATTERN, locale, u"UTC", -1, pattern.data(),
                                  static_cast<int32_t>(pattern.size()), &status);
  if (U_FAILURE(status)) {
    state.SkipWithError(u_errorName(status));
    udat_close(format);
    return;
  }
  UDate instants[std::size(kDatetimes)];
  for (std::size_t i = 0; i < std::size(instants); ++i) {
    instants[i] = static_cast<UDate>(unix_seconds(c.kind, i)) * 1000.0;
  }
  UChar units[128];
  char output[256];
  std::size_t i = 0;
  for (auto _ : state) {
    UErrorCode error = U_ZERO_ERROR;
    const int32_t length = udat_format(format, instants[i++ & kValueMask], units,
                                       std::size(units), nullptr, &error);
    int32_t bytes = 0;
    u_strToUTF8(output, sizeof output, &bytes, units, length, &error);
    benchmark::DoNotOptimize(bytes);
    benchmark::DoNotOptimize(output);
  }
  udat_close(format);
}

void strftime_format(benchmark::State &state, const FormatCase &c, const char *locale) {
  const char *pattern = patterns_of(c, locale).strftime;
  std::tm times[std::size(kDatetimes)];
  for (std::size_t i = 0; i < std::size(times); ++i) {
    const time_t seconds = unix_seconds(c.kind, i);
    gmtime_r(&seconds, &times[i]);
  }
  char output[256];
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::strftime(output, sizeof output, pattern, &times[i++ & kValueMask]));
    benchmark::DoNotOptimize(output);
  }
}

// gmtime_r of the instant, then strftime: the C library's whole way from a
// number to the text, as corvinel's call goes from the host's number.
void gmtime_strftime_format(benchmark::State &state, const FormatCase &c, const char *locale) {
  const char *pattern = patterns_of(c, locale).strftime;
  time_t instants[std::size(kDatetimes)];
  for (std::size_t i = 0; i < std::size(instants); ++i) instants[i] = unix_seconds(c.kind, i);
  char output[256];
  std::size_t i = 0;
  for (auto _ : state) {
    std::tm parts{};
    gmtime_r(&instants[i++ & kValueMask], &parts);
    benchmark::DoNotOptimize(std::strftime(output, sizeof output, pattern, &parts));
    benchmark::DoNotOptimize(output);
  }
}

// The console output, then a table of each locale's times and ratios.
class RatioReporter : public corvinel::bench::RunTimesReporter {
 public:
  void Finalize() override {
    ConsoleReporter::Finalize();
    std::printf("\n%-18s %10s %10s %10s %10s %9s %9s %9s\n", "format/locale", "corvinel",
                "icu", "strftime", "gmtime", "icu/corv", "corv/strf", "corv/gmt");
    for (const FormatCase &c : kCases) {
      for (const char *locale : kLocales) {
        const std::string key = std::string(c.name) + "/" + locale;
        const double corvinel = nanoseconds(key + "/corvinel");
        const double icu = nanoseconds(key + "/icu");
        const double strftime_ns = nanoseconds(key + "/strftime");
        const double gmtime_ns = nanoseconds(key + "/gmtime+strftime");
        if (corvinel <= 0 || icu <= 0 || strftime_ns <= 0 || gmtime_ns <= 0) continue;
        std::printf("%-18s %10.1f %10.1f %10.1f %10.1f %9.2f %9.2f %9.2f\n", key.c_str(),
                    corvinel, icu, strftime_ns, gmtime_ns, icu / corvinel,
                    corvinel / strftime_ns, corvinel / gmtime_ns);
      }
    }
    std::printf("(ns per call; icu/corv above 1 means corvinel is faster)\n");
  }
};

}  // namespace

int main(int argc, char **argv) {
  if (!corvinel::testing::prepare_session_locales(CORVINEL_BENCH_LOCPATH)) return 1;
  if (std::setlocale(LC_ALL, corvinel::testing::kUtf8Locale) == nullptr) return 1;
  setenv("TZ", "UTC", 1);
  tzset();
  for (const FormatCase &c : kCases) {
    for (const char *locale : kLocales) {
      const std::string name = std::string(c.name) + "/" + locale;
      benchmark::RegisterBenchmark((name + "/corvinel").c_str(), corvinel_format, c, locale);
      benchmark::RegisterBenchmark((name + "/icu").c_str(), icu_format, c, locale);
      benchmark::RegisterBenchmark((name + "/strftime").c_str(), strftime_format, c, locale);
      benchmark::RegisterBenchmark((name + "/gmtime+strftime").c_str(), gmtime_strftime_format, c,
                                   locale);
    }
  }
  RatioReporter reporter;
  return corvinel::bench::run_benchmarks(argc, argv, reporter);
}

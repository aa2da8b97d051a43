// getExpResultFromNarrowCharBuf on short texts that formats typically hand
// it, under a UTF-8, an ISO-8859-1 and an EUC-JP session, through the straightforward
// converter (iconv opened for every step) and through the fast converters.
//
//   cmake --preset bench && cmake --build --preset bench --target transcode_bench
//   ./build/bench/bench/transcode/transcode_bench
#include <benchmark/benchmark.h>

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "encoding/output_expansion.h"
#include "support/session_locales.h"

namespace {

using ExpandFn = int32_t (*)(int32_t, int32_t, int32_t *, char *, int32_t *, int32_t, int32_t);

struct Text {
  const char *name;
  const char *narrow;
};

constexpr Text kTexts[] = {
    {"ascii", "1,234,567.89"},
    {"german_date", "Freitag, 1. M<U00E4>rz 2024"},
    {"japanese_date", "2024<U5E74>3<U6708>1<U65E5>"},
};

void expand(benchmark::State &state, const char *locale, const Text &text, ExpandFn fn) {
  if (std::setlocale(LC_ALL, locale) == nullptr) {
    state.SkipWithError("session locale missing");
    return;
  }
  const int32_t length = static_cast<int32_t>(std::strlen(text.narrow));
  char buf[128];
  for (auto _ : state) {
    std::memcpy(buf, text.narrow, static_cast<std::size_t>(length));
    int32_t len = length;
    int32_t encout = 0;
    benchmark::DoNotOptimize(fn(0, 0, &encout, buf, &len, 40, sizeof buf));
    benchmark::DoNotOptimize(buf);
  }
  std::setlocale(LC_ALL, "C");
}

}  // namespace

int main(int argc, char **argv) {
  if (!corvinel::testing::prepare_session_locales(CORVINEL_BENCH_LOCPATH)) return 1;
  struct Session {
    const char *name;
    const char *locale;
  };
  // EUC-JP goes through the per-thread iconv descriptor, not a converter in code.
  constexpr Session kSessions[] = {{"utf8", corvinel::testing::kUtf8Locale},
                                   {"latin1", corvinel::testing::kLatin1Locale},
                                   {"eucjp", corvinel::testing::kEucJpLocale}};
  struct Path {
    const char *name;
    ExpandFn fn;
  };
  constexpr Path kPaths[] = {{"per_call_iconv", corvinel::encoding::expand_output_per_call},
                             {"fast", corvinel::encoding::getExpResultFromNarrowCharBuf}};
  for (const Session &session : kSessions) {
    for (const Text &text : kTexts) {
      for (const Path &path : kPaths) {
        const std::string name =
            std::string("expand/") + session.name + "/" + text.name + "/" + path.name;
        benchmark::RegisterBenchmark(name.c_str(), expand, session.locale, text, path.fn);
      }
    }
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

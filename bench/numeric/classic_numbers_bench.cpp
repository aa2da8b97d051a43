// The classic number renderings per call, beside printf doing the nearest
// equivalent job.  Values cycle through a spread of magnitudes so that no
// single branch is measured alone.
#include <cstdio>
#include <cstring>

#include <benchmark/benchmark.h>

#include "corvinel/classic_numbers.h"

namespace {

constexpr double kValues[] = {23.45,     -1234.0,   22026.465795, 0.049787068, 2.7182818,
                              -0.001234, 65659969.1, 1257000.0,    0.125,       -12.3456789,
                              1e-7,      98765.4321, 0.5,          -3.0,        123456789.0,
                              7.25};
constexpr int kValueCount = sizeof kValues / sizeof kValues[0];

void run_format(benchmark::State &state, fmt_render_fn format, int width, int decimals) {
  char buffer[64];
  double value = 0;
  fmtreq request{};
  request.width = width;
  request.decimals = decimals;
  request.value = &value;
  request.output = buffer;
  request.capacity = sizeof buffer;
  int next = 0;
  for (auto _ : state) {
    value = kValues[next];
    next = (next + 1) % kValueCount;
    benchmark::DoNotOptimize(format(&request));
    benchmark::ClobberMemory();
  }
}

void BM_WdFixed(benchmark::State &state) { run_format(state, zfmt, 12, 2); }
void BM_Best(benchmark::State &state) { run_format(state, zfmt, 10, 99); }
void BM_Comma(benchmark::State &state) { run_format(state, zfmcma, 14, 2); }
void BM_Dollar(benchmark::State &state) { run_format(state, zfmdlr, 15, 2); }
void BM_Percent(benchmark::State &state) { run_format(state, zfmpct, 12, 1); }
void BM_Pvalue(benchmark::State &state) { run_format(state, zfmpval, 8, 4); }
void BM_D(benchmark::State &state) { run_format(state, zfmd, 12, 4); }

// printf's "%12.2f" and "%10g" on the same values, for scale.
void BM_PrintfFixed(benchmark::State &state) {
  char buffer[64];
  int next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::snprintf(buffer, sizeof buffer, "%12.2f", kValues[next]));
    next = (next + 1) % kValueCount;
  }
}
void BM_PrintfGeneral(benchmark::State &state) {
  char buffer[64];
  int next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::snprintf(buffer, sizeof buffer, "%10g", kValues[next]));
    next = (next + 1) % kValueCount;
  }
}

BENCHMARK(BM_WdFixed);
BENCHMARK(BM_Best);
BENCHMARK(BM_Comma);
BENCHMARK(BM_Dollar);
BENCHMARK(BM_Percent);
BENCHMARK(BM_Pvalue);
BENCHMARK(BM_D);
BENCHMARK(BM_PrintfFixed);
BENCHMARK(BM_PrintfGeneral);

}  // namespace

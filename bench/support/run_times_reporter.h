// The console reporter that also keeps each run's real time per iteration
// (in the unit of the run, nanoseconds here) by benchmark name, for the
// tables of ratios the benchmarks print after the usual output.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace corvinel::bench {

class RunTimesReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run> &runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run &run : runs) {
      if (!run.error_occurred) nanoseconds_[run.benchmark_name()] = run.GetAdjustedRealTime();
    }
  }

 protected:
  // 0 for a benchmark that did not run or failed.  With repetitions, the
  // median of its runs (what the tables should show, and all there is when
  // only aggregates are reported).
  double nanoseconds(const std::string &name) const {
    for (const std::string &key : {name + "_median", name}) {
      const auto found = nanoseconds_.find(key);
      if (found != nanoseconds_.end()) return found->second;
    }
    return 0;
  }

 private:
  std::map<std::string, double> nanoseconds_;
};

// The benchmarks registered so far, reported through `reporter`: the body
// of a benchmark program's main.
inline int run_benchmarks(int argc, char **argv, benchmark::BenchmarkReporter &reporter) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}

}  // namespace corvinel::bench

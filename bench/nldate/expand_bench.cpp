// The date pattern expander beside strftime on the same patterns: the long
// date, the short date and the datetime representation (items 28, 29, 46)
// of en_US, de_DE and ja_JP.  A table of ns per call and ratios follows the
// usual output.
//
// What each side does per call:
//   expand       the value already split into day number, hour, minute and
//                second, the locale given by its record number (as
//                strftime's locale is set beforehand); the text in the
//                symbolic notation, placed in a 64-byte field;
//   expand/env   the same with the locale named by ORB_LOCALE, read on
//                every call as the formats read it;
//   strftime     the pattern with its escapes turned into UTF-8, on a
//                struct tm split beforehand (C.UTF-8, English names);
//   gmtime       gmtime_r of the instant, then strftime: the C library's
//                whole way from a number to the text.
//
//   cmake --preset bench && cmake --build --preset bench --target run-expand-bench
#include <benchmark/benchmark.h>

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "corvinel/locale_db.h"
#include "nldate/pattern_expander.h"
#include "support/run_times_reporter.h"

namespace {

constexpr const char *kLocales[] = {"en_US", "de_DE", "ja_JP"};
struct Item {
  const char *name;
  int32_t code;
};
constexpr Item kItems[] = {{"long-date", 28}, {"short-date", 29}, {"datetime", 46}};

// Instants of different months, weekdays and lengths, taken in turn.
constexpr time_t kInstants[] = {1046090383, 0, 1577836799, 1234567890,
                                1393632000, 45583, 2000000000, 987654321};
constexpr std::size_t kMask = std::size(kInstants) - 1;
static_assert((std::size(kInstants) & kMask) == 0);
constexpr int64_t kDaysFrom1960To1970 = 3653;

struct Split {
  double day, hour, minute, second;
};

Split split(time_t instant) {
  const int64_t days = instant / 86400, seconds = instant % 86400;
  return {static_cast<double>(days + kDaysFrom1960To1970), static_cast<double>(seconds / 3600),
          static_cast<double>(seconds % 3600 / 60), static_cast<double>(seconds % 60)};
}

// The record number (1..136) of a locale name such as "de_DE".
int32_t record_number(const std::string &name) {
  for (int32_t r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
    const locitem *record = ORBlocaleData[r];
    if (record[4].text != nullptr && record[5].text != nullptr &&
        name == std::string(record[4].text) + "_" + record[5].text) {
      return r + 1;
    }
  }
  return 0;
}

std::string item_text(int32_t record, int32_t item) {
  const locitem &entry = ORBlocaleData[record - 1][item];
  return std::string(entry.text, static_cast<std::size_t>(entry.length));
}

// The pattern for strftime: every "<Uxxxx>" escape as its UTF-8 bytes.
std::string as_utf8(const std::string &pattern) {
  std::string out;
  for (std::size_t i = 0; i < pattern.size();) {
    if (pattern[i] == '<' && i + 7 <= pattern.size() && (pattern[i + 1] | 0x20) == 'u' &&
        pattern[i + 6] == '>') {
      const auto unit = static_cast<uint32_t>(std::stoul(pattern.substr(i + 2, 4), nullptr, 16));
      if (unit < 0x80) {
        out += static_cast<char>(unit);
      } else if (unit < 0x800) {
        out += static_cast<char>(0xC0 | (unit >> 6));
        out += static_cast<char>(0x80 | (unit & 0x3F));
      } else {
        out += static_cast<char>(0xE0 | (unit >> 12));
        out += static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (unit & 0x3F));
      }
      i += 7;
    } else {
      out += pattern[i++];
    }
  }
  return out;
}

void expand_case(benchmark::State &state, int32_t locale, std::string pattern) {
  Split parts[std::size(kInstants)];
  for (std::size_t i = 0; i < std::size(parts); ++i) parts[i] = split(kInstants[i]);
  char output[64];
  std::size_t i = 0;
  for (auto _ : state) {
    const Split &p = parts[i++ & kMask];
    int32_t width = static_cast<int32_t>(sizeof output);
    benchmark::DoNotOptimize(corvinel::nldate::expand(
        locale, pattern.data(), static_cast<int32_t>(pattern.size()), output, &width, 0, p.day,
        p.hour, p.minute, p.second));
    benchmark::DoNotOptimize(output);
  }
}

void strftime_case(benchmark::State &state, std::string pattern) {
  std::tm times[std::size(kInstants)];
  for (std::size_t i = 0; i < std::size(times); ++i) gmtime_r(&kInstants[i], &times[i]);
  char output[64];
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::strftime(output, sizeof output, pattern.c_str(), &times[i++ & kMask]));
    benchmark::DoNotOptimize(output);
  }
}

void gmtime_strftime_case(benchmark::State &state, std::string pattern) {
  char output[64];
  std::size_t i = 0;
  for (auto _ : state) {
    std::tm parts{};
    gmtime_r(&kInstants[i++ & kMask], &parts);
    benchmark::DoNotOptimize(std::strftime(output, sizeof output, pattern.c_str(), &parts));
    benchmark::DoNotOptimize(output);
  }
}

class RatioReporter : public corvinel::bench::RunTimesReporter {
 public:
  void Finalize() override {
    ConsoleReporter::Finalize();
    std::printf("\n%-22s %9s %11s %9s %9s %10s %10s %10s\n", "locale/item", "expand", "expand/env",
                "strftime", "gmtime", "exp/strf", "env/strf", "exp/gmtime");
    for (const char *locale : kLocales) {
      for (const Item &item : kItems) {
        const std::string key = std::string(locale) + "/" + item.name;
        const double expand = nanoseconds(key + "/expand");
        const double env = nanoseconds(key + "/expand/env");
        const double strf = nanoseconds(key + "/strftime");
        const double gm = nanoseconds(key + "/gmtime+strftime");
        if (expand <= 0 || env <= 0 || strf <= 0 || gm <= 0) continue;
        std::printf("%-22s %9.1f %11.1f %9.1f %9.1f %10.2f %10.2f %10.2f\n", key.c_str(), expand,
                    env, strf, gm, expand / strf, env / strf, expand / gm);
      }
    }
    std::printf("(ns per call; a ratio below 1 means the expander is faster)\n");
  }
};

}  // namespace

int main(int argc, char **argv) {
  if (std::setlocale(LC_ALL, "C.UTF-8") == nullptr) return 1;
  for (const char *locale : kLocales) {
    const int32_t record = record_number(locale);
    if (record == 0) return 1;
    for (const Item &item : kItems) {
      const std::string pattern = item_text(record, item.code);
      const std::string name = std::string(locale) + "/" + item.name;
      benchmark::RegisterBenchmark((name + "/expand").c_str(), expand_case, record, pattern);
      benchmark::RegisterBenchmark((name + "/expand/env").c_str(),
                                   [locale, pattern](benchmark::State &state) {
                                     setenv("ORB_LOCALE", locale, 1);
                                     expand_case(state, 0, pattern);
                                   });
      benchmark::RegisterBenchmark((name + "/strftime").c_str(), strftime_case, as_utf8(pattern));
      benchmark::RegisterBenchmark((name + "/gmtime+strftime").c_str(), gmtime_strftime_case,
                                   as_utf8(pattern));
    }
  }
  RatioReporter reporter;
  return corvinel::bench::run_benchmarks(argc, argv, reporter);
}

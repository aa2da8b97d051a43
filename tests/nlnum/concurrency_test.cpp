// Formats share no mutable state: the same requests rendered on several
// threads at once give exactly what one thread alone gives.  Locales are
// chosen by number, so no thread touches the environment.
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/fmtinfo.h"
#include "corvinel/formats.h"
#include "corvinel/missing.h"
#include "corvinel/locale_db.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace {

using corvinel::testing::Request;

const double kMissing = std_miss_val;

struct Call {
  fmt_render_fn render;
  int32_t width, decimals;
  double value;
  int32_t locale;
};

// Every format of the registry at its default width and decimals, with
// numbers, a date, a datetime, a time and a missing value, each in a spread
// of locales chosen by number.
std::vector<Call> calls() {
  const double values[] = {-1234567.891, 15760, 1668955132.125, 52732.5, 1e18, kMissing};
  constexpr int32_t kLocalesPerValue = 8;
  std::vector<Call> all;
  for (int32_t f = 0; f < CORVINEL_FORMAT_COUNT; ++f) {
    const fmtdesc &d = fmtinfo_eachfmt[f];
    for (std::size_t v = 0; v < std::size(values); ++v) {
      for (int32_t k = 0; k < kLocalesPerValue; ++k) {
        const auto locale = static_cast<int32_t>(1 + (f * 7 + v * 31 + k * 17) % CORVINEL_LOCALE_RECORDS);
        all.push_back({d.render, d.defw, d.defd, values[v], locale});
      }
    }
  }
  return all;
}

std::string render(const Call &c) {
  Request r(c.width, c.decimals, c.value);
  r->locale = c.locale;
  c.render(r.get());
  return r.text();
}

TEST(Concurrency, ThreadsRenderWhatOneThreadRenders) {
  corvinel::testing::ScopedSessionLocale session(corvinel::testing::kUtf8Locale);
  ASSERT_TRUE(session.active());
  const std::vector<Call> work = calls();
  std::vector<std::string> expected;
  for (const Call &c : work) expected.push_back(render(c));

  constexpr int kThreads = 4;
  std::vector<int> mismatches(kThreads, 0);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      // Each thread walks the calls from its own starting point.
      for (std::size_t i = 0; i < work.size(); ++i) {
        const std::size_t k = (i + t * work.size() / kThreads) % work.size();
        if (render(work[k]) != expected[k]) ++mismatches[t];
      }
    });
  }
  for (std::thread &thread : threads) thread.join();
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(mismatches[t], 0) << "thread " << t;
}

}  // namespace

// Formats share no mutable state: the same requests rendered on several
// threads at once give exactly what one thread alone gives.  Locales are
// chosen by number, so no thread touches the environment.
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/formats.h"
#include "corvinel/locale_db.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace {

using corvinel::testing::Request;

struct Call {
  fmt_render_fn render;
  int32_t width, decimals;
  double value;
  int32_t locale;
};

std::vector<Call> calls() {
  const fmt_render_fn formats[] = {nlnum, nlmny, nlpct, nlmnieur, nlmnljpy, nlbest, nlstrmon};
  const double values[] = {-1234567.891, 0.125, 3, 1e18};
  // Dates, datetimes and times, one of them with the zone offset ("%z").
  const fmt_render_fn date_formats[] = {nldate, nldatm, nltime, nldatmz, nldatel, nldates, nldatms};
  const double date_values[] = {15760, 1668955132.125, 52732.5, -138061};
  std::vector<Call> all;
  for (int32_t locale = 1; locale <= CORVINEL_LOCALE_RECORDS; ++locale) {
    for (const fmt_render_fn f : formats) {
      for (const double v : values) all.push_back({f, 14, 2, v, locale});
    }
    for (const fmt_render_fn f : date_formats) {
      for (const double v : date_values) all.push_back({f, 40, 2, v, locale});
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

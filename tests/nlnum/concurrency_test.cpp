// Formats share no mutable state: the same requests rendered on several
// threads at once give exactly what one thread alone gives.  Locales are
// chosen by number, or by ORB_LOCALE changed between batches (each thread
// remembers its last locale and convention, and must notice the change).
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/fmtinfo.h"
#include "corvinel/formats.h"
#include "corvinel/missing.h"
#include "corvinel/locale_db.h"
#include "locale/orb_locale_env.h"
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

// Renders `work` on four threads at once, each from its own starting point,
// while a fifth thread only reads the locale (the variable and an item);
// returns the mismatches against `expected`.
int render_on_threads(const std::vector<Call> &work, const std::vector<std::string> &expected) {
  constexpr int kThreads = 4;
  std::vector<int> mismatches(kThreads, 0);
  std::atomic<bool> done = false;
  std::thread reader([&] {
    char item[CORVINEL_LOCALE_TEXT];
    while (!done) {
      const char *value = std::getenv("ORB_LOCALE");
      (void)value;
      getORBLocDB(item, sizeof item, 156, 0);
    }
  });
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (std::size_t i = 0; i < work.size(); ++i) {
        const std::size_t k = (i + t * work.size() / kThreads) % work.size();
        if (render(work[k]) != expected[k]) ++mismatches[t];
      }
    });
  }
  for (std::thread &thread : threads) thread.join();
  done = true;
  reader.join();
  int total = 0;
  for (const int m : mismatches) total += m;
  return total;
}

std::vector<std::string> rendered_on_this_thread(const std::vector<Call> &work) {
  std::vector<std::string> texts;
  for (const Call &c : work) texts.push_back(render(c));
  return texts;
}

TEST(Concurrency, ThreadsRenderWhatOneThreadRenders) {
  corvinel::testing::ScopedSessionLocale session(corvinel::testing::kUtf8Locale);
  ASSERT_TRUE(session.active());
  const std::vector<Call> work = calls();
  EXPECT_EQ(render_on_threads(work, rendered_on_this_thread(work)), 0);
}

// Locale 0 on every call: ORB_LOCALE is unset, set and changed between
// batches, and every batch renders what one thread renders under it.
TEST(Concurrency, ThreadsFollowOrbLocaleBetweenBatches) {
  corvinel::testing::ScopedSessionLocale session(corvinel::testing::kUtf8Locale);
  ASSERT_TRUE(session.active());
  std::vector<Call> work = calls();
  for (Call &c : work) c.locale = 0;
  for (const char *name : {"de_DE", static_cast<const char *>(nullptr), "fr_FR", "ja_JP.UTF-8",
                           "xx_YY", "de_DE", static_cast<const char *>(nullptr)}) {
    corvinel::testing::ScopedOrbLocale orb(name);
    EXPECT_EQ(render_on_threads(work, rendered_on_this_thread(work)), 0)
        << "ORB_LOCALE " << (name != nullptr ? name : "unset");
  }
}

}  // namespace

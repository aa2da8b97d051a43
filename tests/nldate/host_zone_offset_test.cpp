// The zone offset a host sets for one thread: what "%z" writes while it is
// set, in the expander and in the zone formats, on several threads at once,
// and the machine's offset again once it is cleared.
#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <string>
#include <thread>
#include <vector>

#include "corvinel/formats.h"
#include "corvinel/zone_offset.h"
#include "nldate/expander_support.h"

namespace corvinel::testing {
namespace {

struct OffsetCase {
  int32_t seconds_east;
  const char *text;
};
constexpr OffsetCase kOffsets[] = {
    {0, "+0000"},      {3600, "+0100"},     {-18000, "-0500"},   {19800, "+0530"},
    {20700, "+0545"},  {-12600, "-0330"},   {-9000, "-0230"},    {50400, "+1400"},
    {-75, "-0001"},    {3659, "+0100"},     {359999, "+9959"},   {-400000, "-9959"},
};

// The offset the zone format NLDATMZ puts at the end of its field.
std::string zone_format_offset(int32_t locale) {
  double value = 1365000000.0;  // a datetime in 2003
  char field[402];
  fmtreq request{};
  request.width = 40;
  request.value = &value;
  request.output = field;
  request.capacity = static_cast<int32_t>(sizeof field);
  request.locale = locale;
  if (nldatmz(&request) != 0 || request.outlen < 5) return "(failed)";
  return std::string(field + request.outlen - 5, 5);
}

std::string expanded_offset() { return expand_text(1, "%z", std_miss_val).text; }

TEST(HostZoneOffset, WrittenWhileSetAndTheMachinesOnceCleared) {
  const SavedZone saved;
  setenv("TZ", "EST5", 1);
  const int32_t en_us = record_number("en", "US");
  for (const OffsetCase &c : kOffsets) {
    corvinel_set_zone_offset(&c.seconds_east);
    EXPECT_EQ(expanded_offset(), c.text) << c.seconds_east;
    EXPECT_EQ(zone_format_offset(en_us), c.text) << c.seconds_east;
    corvinel_set_zone_offset(nullptr);
    EXPECT_EQ(expanded_offset(), "-0500") << c.seconds_east;
    EXPECT_EQ(zone_format_offset(en_us), "-0500") << c.seconds_east;
  }
}

// Each thread sets its own offset and sees only that one, also while the
// others change theirs; a thread that sets none sees the machine's.
TEST(HostZoneOffset, ThreadsSeeOnlyTheirOwn) {
  const SavedZone saved;
  setenv("TZ", "UTC0", 1);
  tzset();
  const int32_t en_us = record_number("en", "US");
  constexpr int kRounds = 200;
  const std::size_t threads = std::size(kOffsets) + 1;
  std::vector<int> mismatches(threads, 0);
  std::vector<std::thread> workers;
  for (std::size_t t = 0; t < threads; ++t) {
    workers.emplace_back([&, t] {
      const bool own = t < std::size(kOffsets);
      const char *expected = own ? kOffsets[t].text : "+0000";
      for (int round = 0; round < kRounds; ++round) {
        if (own) corvinel_set_zone_offset(&kOffsets[t].seconds_east);
        if (zone_format_offset(en_us) != expected) ++mismatches[t];
        if (own && round % 2 == 1) corvinel_set_zone_offset(nullptr);
        if (own && round % 2 == 1 && zone_format_offset(en_us) != "+0000") ++mismatches[t];
      }
      corvinel_set_zone_offset(nullptr);
    });
  }
  for (std::thread &worker : workers) worker.join();
  for (std::size_t t = 0; t < threads; ++t) EXPECT_EQ(mismatches[t], 0) << "thread " << t;
}

}  // namespace
}  // namespace corvinel::testing

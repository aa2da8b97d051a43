// Fraction digits against exact decimal rounding over many values: the
// same cases as the fraction test (datetimes across the range, on both
// sides of 1960 and at both ends, on and beside half units, just below
// whole seconds; times), as many as asked for (default ten million).
//   cmake --preset bench && cmake --build --preset bench --target run-fraction-check
//   build/bench/bench/nldate/fraction_check 10000000
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

#include "corvinel/calendar.h"
#include "nldate/entry_routines.h"
#include "nldate/fraction_test_values.h"

namespace {

using corvinel::nldate::ValueKind;
using corvinel::testing::ExactRounding;

// The expander's "%j%Y %H:%M:%S" with the fraction, and the same text
// written from the exact rounding (the day of the year and the year from
// the calendar routines).
std::string ours(ValueKind kind, double value, int digits, int32_t &result) {
  static constexpr std::string_view kDatetime = "%Y%j %H:%M:%S", kTime = "%H:%M:%S";
  const std::string_view pattern = kind == ValueKind::Time ? kTime : kDatetime;
  char field[80];
  int32_t width = sizeof field;
  const auto length = static_cast<int32_t>(pattern.size());
  result = kind == ValueKind::Time
               ? corvinel::nldate::zkftime(1, field, &width, pattern.data(), length, digits, value)
               : corvinel::nldate::zkfdttm(1, field, &width, pattern.data(), length, digits, value);
  return result == 0 ? std::string(field, static_cast<std::size_t>(width)) : std::string();
}

std::string theirs(ValueKind kind, const ExactRounding &r, int digits) {
  char text[80];
  int n = 0;
  int64_t into_day = r.seconds;
  if (kind != ValueKind::Time) {
    const double julian = zjuldat(static_cast<double>(r.day()));
    const auto year = static_cast<int64_t>(julian / 1000);
    n = std::snprintf(text, sizeof text, "%04lld%03lld ", static_cast<long long>(year % 10000),
                      static_cast<long long>(static_cast<int64_t>(julian) % 1000));
    into_day = r.seconds - r.day() * 86400;
  }
  n += std::snprintf(text + n, sizeof text - static_cast<std::size_t>(n),
                     "%02lld:%02lld:%02lld.%0*llu", static_cast<long long>(into_day / 3600),
                     static_cast<long long>(into_day / 60 % 60),
                     static_cast<long long>(into_day % 60), digits,
                     static_cast<unsigned long long>(r.units));
  return std::string(text, static_cast<std::size_t>(n));
}

}  // namespace

int main(int argc, char **argv) {
  const uint64_t count = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 10000000;
  std::mt19937_64 random(argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 20260226);
  uint64_t agree = 0, out_of_range = 0, wrong = 0;
  const auto start = std::chrono::steady_clock::now();
  for (uint64_t i = 0; i < count; ++i) {
    const auto c = corvinel::testing::fraction_case(random, i);
    const ExactRounding exact = corvinel::testing::exact_rounding(c.value, c.digits);
    int32_t result = 0;
    const std::string text = ours(c.kind, c.value, c.digits, result);
    if (c.kind == ValueKind::Datetime && exact.seconds >= 569318630400) {
      if (result == corvinel::nldate::kValueRejected) {
        ++out_of_range;
        continue;
      }
    }
    const std::string want = theirs(c.kind, exact, c.digits);
    if (result == 0 && text == want) {
      ++agree;
    } else if (++wrong <= 10) {
      std::printf("differs: %.17g digits %d: %s, exactly %s\n", c.value, c.digits, text.c_str(),
                  want.c_str());
    }
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::printf("%llu values (1 to 3 digits): %llu agree with exact rounding, %llu rounded past "
              "the end of the range (all \"*\"), %llu differ; %.1f s\n",
              static_cast<unsigned long long>(count), static_cast<unsigned long long>(agree),
              static_cast<unsigned long long>(out_of_range), static_cast<unsigned long long>(wrong),
              seconds);
  return wrong == 0 ? 0 : 1;
}

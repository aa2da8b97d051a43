// Datetimes and times with fraction digits, and their exact decimal
// rounding worked out apart from the module: the C library prints a
// double's exact binary value in decimal, and the digits are rounded as
// text.  Shared by the fraction test and the sweep tool in bench/.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>

#include "nldate/date_value.h"

namespace corvinel::testing {

// A value rounded to `digits` places: `seconds` (the floor) and `units` of
// 10^-digits after it.
struct ExactRounding {
  int64_t seconds;
  uint64_t units;
  int64_t day() const { return seconds >= 0 ? seconds / 86400 : -((-seconds + 86399) / 86400); }
};

// |value| rounded half up at `digits` (1..9) places from its exact decimal
// expansion, the sign applied after.
inline ExactRounding exact_rounding(double value, int digits) {
  char text[1200];
  // Down to 2^-80 every binary digit of a datetime's fraction shows in 90
  // places; smaller magnitudes print in full.
  const double magnitude = std::fabs(value);
  std::snprintf(text, sizeof text, magnitude >= 0x1p-20 ? "%.90f" : "%.1100f", magnitude);
  std::string s(text);
  const std::size_t point = s.find('.');
  uint64_t scale = 1;
  for (int i = 0; i < digits; ++i) scale *= 10;
  uint64_t total = std::stoull(s.substr(0, point));
  for (int i = 1; i <= digits; ++i) total = total * 10 + static_cast<uint64_t>(s[point + i] - '0');
  if (s[point + static_cast<std::size_t>(digits) + 1] >= '5') ++total;
  if (!(value < 0) || total == 0) {
    return {static_cast<int64_t>(total / scale), total % scale};
  }
  const auto whole = static_cast<int64_t>(total / scale);
  const uint64_t rest = total % scale;
  if (rest == 0) return {-whole, 0};
  return {-whole - 1, scale - rest};
}

struct FractionCase {
  nldate::ValueKind kind;
  double value;
  int digits;  // 1..3
};

// Case i of a sweep: datetimes across the range, around 1 January 1960
// on both sides, at both ends of the range, on and beside the halves of a
// unit, a hair below whole seconds; times of the first days.
inline FractionCase fraction_case(std::mt19937_64 &random, uint64_t i) {
  using nldate::ValueKind;
  const int digits = static_cast<int>(i % 3) + 1;
  const double unit = digits == 1 ? 0.1 : digits == 2 ? 0.01 : 0.001;
  auto uniform = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  auto whole = [&](double low, double high) { return std::floor(uniform(low, high)); };
  constexpr double kFirst = nldate::kFirstDatetime, kEnd = nldate::kEndDatetime;
  switch (i / 3 % 10) {
    case 0:
      return {ValueKind::Datetime, uniform(kFirst, kEnd), digits};
    case 1:
      return {ValueKind::Datetime, uniform(-2e9, 2e9), digits};
    case 2:
      return {ValueKind::Datetime, uniform(-100, 100), digits};
    case 3:
      return {ValueKind::Datetime, kFirst + uniform(0, 1e6), digits};
    case 4:
      return {ValueKind::Datetime, kEnd - uniform(0, i % 2 == 0 ? 1e6 : 2 * unit), digits};
    case 5: {
      // On a half unit, or one double either side of it.
      const double base = whole(kFirst, kEnd) + (whole(0, 1 / unit) + 0.5) * unit;
      const double side = uniform(-1, 1);
      const double value = side < -0.3 ? std::nextafter(base, -INFINITY)
                           : side > 0.3 ? std::nextafter(base, INFINITY)
                                        : base;
      return {ValueKind::Datetime, value, digits};
    }
    case 6: {
      // Just below the end of a day or of a minute.
      const double end = i % 2 == 0 ? 86400 * whole(-138060, 6589336)
                                    : 60 * whole(kFirst / 60 + 1, kEnd / 60);
      return {ValueKind::Datetime, end - uniform(0, unit), digits};
    }
    case 7:
      return {ValueKind::Time, uniform(0, 3 * 86400), digits};
    case 8:
      return {ValueKind::Time, 86400 * whole(1, 4) - uniform(0, unit), digits};
    default:
      return {ValueKind::Time, uniform(0, 1), digits};
  }
}

}  // namespace corvinel::testing

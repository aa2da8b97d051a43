// Calling a classic number rendering on a guarded buffer, for the tests.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>

#include "corvinel/classic_numbers.h"
#include "support/request_builder.h"

namespace corvinel::numeric::testing {

// A rendering and the name the tests print for it.
struct ClassicFormat {
  const char *name;
  fmt_render_fn render;
};

inline constexpr ClassicFormat kWd{"w.d", zfmt};
inline constexpr ClassicFormat kComma{"COMMA", zfmcma};
inline constexpr ClassicFormat kDollar{"DOLLAR", zfmdlr};
inline constexpr ClassicFormat kPercent{"PERCENT", zfmpct};
inline constexpr ClassicFormat kPvalue{"PVALUE", zfmpval};
inline constexpr ClassicFormat kD{"D", zfmd};
inline constexpr ClassicFormat kAllFormats[] = {kWd, kComma, kDollar, kPercent, kPvalue, kD};

// Decimals that make zfmt render BEST.
inline constexpr int32_t kBest = 99;

struct Rendered {
  std::string field;   // the first `width` bytes of the buffer
  int32_t result = 0;
  int32_t outlen = 0;
  bool guards_intact = false;
  bool restored = false;
};

inline Rendered render(fmt_render_fn format, int32_t width, int32_t decimals, double value,
                       int32_t capacity = -1, uint8_t flags = 0) {
  corvinel::testing::Request request(width, decimals, value, capacity);
  request->flags = flags;
  Rendered out;
  out.result = format(request.get());
  out.field = request.field();
  out.outlen = request->outlen;
  out.guards_intact = request.guards_intact();
  out.restored = request.restored();
  return out;
}

// The value as the tests print it: shortest round-trip text.
inline std::string show_value(double value) {
  char text[40];
  const auto end = std::to_chars(text, text + sizeof text, value).ptr;
  return std::string(text, end);
}

}  // namespace corvinel::numeric::testing

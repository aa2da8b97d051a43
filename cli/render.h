// One request per value, and how corvinel-fmt prints what came back.
#pragma once

#include <cstdint>
#include <string>

#include "arguments.h"
#include "corvinel/fmtreq.h"
#include "module.h"

namespace corvinel::cli {

struct Rendering {
  fmt_render_fn render = nullptr;
  int32_t width = 0;
  int32_t decimals = 0;
};

// Prints bytes on one line: raw, or as hexadecimal bytes separated by
// blanks; between "|" and "|" when asked.
struct Printer {
  bool bars = false;
  bool hex = false;
  void print(const char *bytes, int32_t length) const;
};

// Renders one value with the request's locale number `locale_number` and
// prints `prefix` and the field it left.  On a result other than 0 (or a
// format that broke its buffer) prints nothing on stdout, reports on stderr
// with the result's meaning and returns false.
bool render_value(const Rendering &rendering, double value, const Options &options,
                  const Printer &printer, int32_t locale_number, const std::string &prefix = "");

// Prints locale item options.item of the current locale, raw or (with
// --expand) through output expansion.  Reports on stderr and returns false
// when the lookup or the expansion fails.
bool show_locale_item(const Module &module, const Options &options, const Printer &printer);

}  // namespace corvinel::cli

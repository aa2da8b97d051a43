// The 144 formats written down independently of the registry source: the
// descriptor columns, and the family from which the tests know the limits
// the check applies, where a missing value's mark goes and what a value out
// of range shows.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "corvinel/fmtreq.h"

namespace corvinel::testing {

struct FormatCase {
  std::string name;
  int32_t minw, maxw, defw, kind, mind, maxd, defd;
  // number, percent, currency; best (NLBEST) and classic (the other formats
  // built on a classic rendering); month, quarter, weekday; date and datetime
  // (patterns tried in turn), single-date and single-datetime (their own
  // pattern tables);
  // time.  "-d0": the check refuses decimals above 0 whatever maxd says.
  std::string family;
  fmt_render_fn render;  // the registry's function for `name`

  bool calls_classic_rendering() const { return family == "classic" || family == "best"; }
  // The classic-based number formats narrow capacity to the width and leave it so.
  bool narrows_capacity() const { return family == "classic"; }
  // The locale number engine shows a width above 32 as 32 "*" and leaves it at 32.
  bool clamps_width() const { return family == "number" || family == "percent"; }
};

inline void PrintTo(const FormatCase &c, std::ostream *os) { *os << c.name; }

// All 144, in registry order.
const std::vector<FormatCase> &all_formats();

}  // namespace corvinel::testing

// What the tests expect of each of the 144 formats, written down here
// independently of the registry source: the descriptor columns and the
// family, from which follow the limits the check applies, where a missing
// value's mark goes and what an out-of-range value shows.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "corvinel/fmtreq.h"

namespace corvinel::testing {

// Where a missing value's mark stands.
enum class MarkRule {
  UnitsPlace,     // width-1-decimals for decimals in 0..width-1, else the right edge
  PercentField,   // width-3-decimals for decimals in 0..width-1, else width-3
  RightEdge,      // always width-1
  ClassicChoice,  // wherever the classic rendering puts it: at most one mark
};

// What a present value outside the format's range shows.
enum class OutOfRange {
  NotApplicable,  // the format has no range gate
  Stars,          // the field is "*"
  Untouched,      // output and outlen stay as the host passed them
  Blank,          // a blank field
};

struct FormatCase {
  std::string name;
  int32_t minw, maxw, defw, kind, mind, maxd, defd;
  std::string family;
  fmt_render_fn render;  // the registry's function for `name`

  // The largest decimals the check accepts (datetime and time families
  // refuse decimals above 0 although their descriptors allow 3).
  int32_t checked_max_decimals() const;
  MarkRule mark_rule() const;
  OutOfRange out_of_range() const;
  // Values just outside and inside the range, for formats with a gate.
  std::vector<double> values_out_of_range() const;
  // The classic-based number formats narrow `capacity` to the width and set
  // flags bit 4, and leave both so.
  bool calls_classic_rendering() const;
  bool narrows_capacity() const;
  // The formats of the locale number engine answer a width above 32 (when
  // the check is off) with 32 "*" and leave the request's width at 32.
  bool clamps_width() const;
};

void PrintTo(const FormatCase &c, std::ostream *os);

// All 144, in registry order.
const std::vector<FormatCase> &all_formats();

// Expected mark position for a field of `width` with `decimals`; -1 when no
// mark is shown.  Not meaningful for ClassicChoice.
int64_t expected_mark_position(MarkRule rule, int32_t width, int32_t decimals);

}  // namespace corvinel::testing

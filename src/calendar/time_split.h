// The parts of a seconds count that zdatprt, zhour, zminute and zsecond
// give, at once: the remainder by the day is taken once for all four.
#pragma once

namespace corvinel::calendar {

struct ClockParts {
  double date;  // zdatprt
  double hour, minute, second;  // zhour, zminute, zsecond
};

// Exactly the four routines' results for `seconds` (all the standard
// missing value when they would be).
ClockParts split_seconds(double seconds);

}  // namespace corvinel::calendar

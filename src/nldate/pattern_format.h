// The frame shared by the date, datetime and time formats that try the
// locale's patterns in turn (NLDATE, NLDATM, NLTIME, the component formats
// and the zone, AM/PM and time-of-datetime formats).
#pragma once

#include <cstdint>

#include "corvinel/fmtreq.h"
#include "frame/format_frame.h"
#include "nldate/date_value.h"
#include "nldate/entry_routines.h"

namespace corvinel::nldate {

// A second pass that is not there.
inline constexpr int32_t kNoPattern = 0;

// What a format shows when none of its patterns fits.
enum class Fallback {
  None,             // the "*" field
  ShortDate,        // NLDATES
  ShortDatetime,    // NLDATMS
  ClassicTime,      // TIME of the time brought into one day
  ClassicTimeOfDay, // TOD
  ClassicTimeAmPm,  // TIMEAMPM of the time brought into one day
};

struct PatternFormat {
  frame::Limits limits;     // as checked, which may be stricter than the descriptor
  ValueKind kind;
  int32_t first_selector;   // locale item, plus kAppendZoneOffset / kSelectorMark
  int32_t second_selector;  // tried when the first pass did not fit, or kNoPattern
  Fallback fallback;
};

// settle_before_rendering (date_frame.h), then the patterns.
int32_t pattern_format_frame(fmtreq *request, const PatternFormat &format);

}  // namespace corvinel::nldate

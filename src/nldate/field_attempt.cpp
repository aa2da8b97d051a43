#include "nldate/field_attempt.h"

#include <cstring>

#include "encoding/output_expansion.h"
#include "encoding/request_expansion.h"
#include "encoding/transcode_steps.h"
#include "nldate/pattern_expander.h"

namespace corvinel::nldate {
namespace {

int32_t general_attempt(fmtreq &request, const EntryExpansion &entry, bool interpreted,
                        bool &placed) noexcept {
  char work[kWorkAreaSize];
  int32_t length = kWorkAreaSize;
  const int32_t expanded =
      interpreted ? expand_interpreted(entry.record(), entry.pattern(), entry.pattern_length(), work,
                                       &length, entry.fraction_digits(), entry.date(), entry.hour(),
                                       entry.minute(), entry.second())
                  : entry.expand(work, &length);
  placed = false;
  // A text too long for the work area (result 1) is not shown.
  if (expanded != kExpandFits) return expanded;
  const int32_t result = place_at_start(request, work, length);
  placed = result <= 0;
  return result;
}

}  // namespace

int32_t attempt_expanded(fmtreq &request, const EntryExpansion &entry, bool &placed) noexcept {
  return general_attempt(request, entry, false, placed);
}

int32_t attempt_in_field_interpreted(fmtreq &request, const EntryExpansion &entry,
                                     bool &placed) noexcept {
  return general_attempt(request, entry, true, placed);
}

}  // namespace corvinel::nldate

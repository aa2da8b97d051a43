// One attempt of a date, datetime or time format at a pattern: the prepared
// expansion expanded into the 320-byte work area and placed at the start of
// the field through output expansion.
//
// Under a session codeset that the expansion shortcut takes, and when the
// request asks for session bytes rather than 16-bit units, the pattern
// compiled for that codeset lays the text straight into the field: its
// pieces are already in the session's bytes, and the measures render keeps
// (symbolic length, units, UTF-8 length) tell whether output expansion
// would take the text as it is, cut it, or refuse it.  Where they cannot
// tell, the attempt takes the general path.  The tests compare the two over
// every pattern item of every locale.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "corvinel/fmtreq.h"
#include "encoding/output_expansion.h"
#include "encoding/transcode_steps.h"
#include "frame/exact_copy.h"
#include "nldate/compiled_pattern.h"
#include "nldate/date_placement.h"
#include "nldate/entry_routines.h"
#include "nldate/pattern_expander.h"

namespace corvinel::nldate {

// What the attempts of one format call share: read once per call.
struct AttemptSession {
  bool compiled = false;  // the compiled path may lay the text
  PieceEncoding encoding = PieceEncoding::kSymbolic;
  ZoneReading zone;       // TZ, when the call read it with ORB_LOCALE
  encoding::SessionCodeset codeset = encoding::SessionCodeset::kOther;
  CompiledPatternMemo *patterns = nullptr;  // this thread's, when `compiled`
};

inline AttemptSession read_attempt_session(const fmtreq &request,
                                           const ZoneReading &zone = {}) noexcept {
  AttemptSession session;
  session.zone = zone;
  session.codeset = encoding::read_session_codeset();
  // 16-bit units are left to output expansion.
  session.compiled = request.xcode_b != CORVINEL_ENC_UTF16LE &&
                     piece_encoding_of(session.codeset, session.encoding);
  if (session.compiled) session.patterns = &this_threads_patterns();
  return session;
}

// The general path for a prepared entry: expand into the work area, then
// place_at_start.  Returns the expansion's result when it is not 0 (1: too
// long for the work area, -2: an unknown directive), else place_at_start's;
// `placed` says whether the whole text stands in the field (its result 0
// or less).  A text that does not fit whole is never shown cut.
int32_t attempt_expanded(fmtreq &request, const EntryExpansion &entry, bool &placed) noexcept;

// Blank-fills the buffer, copies the text to the start of the field.
inline void lay(fmtreq &request, const char *text, int32_t length) noexcept {
  std::memset(request.output, ' ', static_cast<std::size_t>(request.capacity));
  frame::copy_exactly(request.output, text, static_cast<std::size_t>(length));
  request.outlen = length;
}

// One attempt: the compiled pattern laid straight into the field where the
// session and the program allow it, else attempt_expanded; the same
// results and bytes either way.  In line: the formats make one or a few
// attempts per call.
[[gnu::always_inline]] inline int32_t attempt_in_field(fmtreq &request,
                                                      const EntryExpansion &entry,
                                                      const AttemptSession &session,
                                                      bool &placed) noexcept {
  if (session.compiled) {
    if (const CompiledPattern *program =
            compiled_pattern(*session.patterns, entry.record(), entry.pattern(),
                             entry.pattern_length(), session.encoding, entry.pattern_is_item())) {
      placed = false;
      const ProgramHead &head = head_of(*program);
      // A clock run is written straight into the field when it fits it.
      if (head.clock_run && entry.fraction_digits() == 0) {
        const RenderedText clock =
            entry.whole_clock() >= 0
                ? render_clock_run(*program, static_cast<uint32_t>(entry.whole_clock()),
                                   request.output, request.width)
                : render_clock_run(*program, entry.hour(), entry.minute(), entry.second(),
                                   request.output, request.width);
        if (clock.outcome == RenderOutcome::kRendered) {
          if (clock.length > request.width) return encoding::kExpansionShortened;
          std::memset(request.output + clock.length, ' ',
                      static_cast<std::size_t>(request.capacity - clock.length));
          request.outlen = clock.length;
          placed = true;
          return clock.length - request.width;
        }
      }
      if (head.least_bytes + int64_t{std::max(entry.fraction_digits(), 0)} * head.fraction_steps >
              request.width &&
          certainly_too_long(*program, entry.date(), entry.hour(), entry.minute(), entry.second(),
                             entry.fraction_digits(), request.width)) {
        return encoding::kExpansionShortened;
      }
      char text[kRenderBufferSize];
      const RenderedText rendered =
          render(*program, entry.date(), entry.hour(), entry.minute(), entry.second(),
                 entry.fraction_digits(), text, session.zone);
      placed = false;
      if (rendered.outcome == RenderOutcome::kUnknownDirective) return kExpandUnknownDirective;
      // Output expansion converts at most kMaxUnits units and keeps a result
      // within one step; past either the general path decides.  A text
      // longer than the work area is cut there, possibly inside an escape.
      const bool measured = rendered.outcome == RenderOutcome::kRendered &&
                            rendered.units <= encoding::kMaxUnits &&
                            rendered.utf8 <= encoding::kStepCapacity;
      if (measured && rendered.symbolic > kWorkAreaSize) {
        return kExpandTooLong;  // the expansion did not fit the work area
      }
      if (measured) {
        if (rendered.length > request.width) return encoding::kExpansionShortened;
        lay(request, text, rendered.length);
        placed = true;
        return rendered.length - request.width;
      }
    }
  }
  return attempt_expanded(request, entry, placed);
}

// The same without the compiled patterns at all: the pattern interpreted
// and the text through output expansion.  The reference of the tests.
int32_t attempt_in_field_interpreted(fmtreq &request, const EntryExpansion &entry,
                                     bool &placed) noexcept;

}  // namespace corvinel::nldate

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

#include <cstdint>

#include "corvinel/fmtreq.h"
#include "nldate/compiled_pattern.h"
#include "nldate/date_placement.h"
#include "nldate/entry_routines.h"

namespace corvinel::nldate {

// What the attempts of one format call share: read once per call.
struct AttemptSession {
  bool compiled = false;  // the compiled path may lay the text
  PieceEncoding encoding = PieceEncoding::kSymbolic;
  ZoneReading zone;       // TZ, when the call read it with ORB_LOCALE
  nlnum::SessionCodeset codeset = nlnum::SessionCodeset::kOther;
};

inline AttemptSession read_attempt_session(const fmtreq &request,
                                           const ZoneReading &zone = {}) noexcept {
  AttemptSession session;
  session.zone = zone;
  session.codeset = nlnum::read_session_codeset();
  // 16-bit units are left to output expansion.
  session.compiled = request.xcode_b != CORVINEL_ENC_UTF16LE &&
                     piece_encoding_of(session.codeset, session.encoding);
  return session;
}

// The general path's pair for a prepared entry: expand into the work area,
// then place_at_start with `accept`.  Returns the expansion's result when
// it is not 0 (1: too long for the work area, -2: an unknown directive),
// else place_at_start's; `placed` says whether the text stands in the
// field (its result 0 or less, or 1 or less when a shortened text counts).
int32_t attempt_in_field(fmtreq &request, const EntryExpansion &entry, Accept accept,
                         const AttemptSession &session, bool &placed) noexcept;

// The same without the compiled patterns at all: the pattern interpreted
// and the text through output expansion.  The reference of the tests.
int32_t attempt_in_field_interpreted(fmtreq &request, const EntryExpansion &entry, Accept accept,
                                     bool &placed) noexcept;

}  // namespace corvinel::nldate

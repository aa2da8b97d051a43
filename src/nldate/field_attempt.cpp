#include "nldate/field_attempt.h"

#include <cstring>

#include "locale/output_expansion.h"
#include "locale/transcode_steps.h"
#include "nldate/pattern_expander.h"
#include "nlnum/request_expansion.h"

namespace corvinel::nldate {
namespace {

int32_t general_attempt(fmtreq &request, const EntryExpansion &entry, Accept accept, bool interpreted,
                        bool &placed) noexcept {
  char work[kWorkAreaSize];
  int32_t length = kWorkAreaSize;
  const int32_t expanded =
      interpreted ? expand_interpreted(entry.record(), entry.pattern(), entry.pattern_length(), work,
                                       &length, entry.fraction_digits(), entry.date(), entry.hour(),
                                       entry.minute(), entry.second())
                  : entry.expand(work, &length);
  placed = false;
  // A text too long for the work area is cut to it (result 1); a format
  // that shows a shortened text places that cut text too.
  if (expanded != kExpandFits && !(expanded == kExpandTooLong && accept == Accept::kShortened)) {
    return expanded;
  }
  const int32_t result = place_at_start(request, work, length, accept);
  placed = result <= (accept == Accept::kWhole ? 0 : locale::kExpansionShortened);
  return result;
}

// Blank-fills the buffer, copies the text to the start of the field.
void lay(fmtreq &request, const char *text, int32_t length) noexcept {
  std::memset(request.output, ' ', static_cast<std::size_t>(request.capacity));
  std::memcpy(request.output, text, static_cast<std::size_t>(length));
  request.outlen = length;
}

}  // namespace

int32_t attempt_in_field(fmtreq &request, const EntryExpansion &entry, Accept accept,
                         const AttemptSession &session, bool &placed) noexcept {
  if (session.compiled) {
    if (const CompiledPattern *program = compiled_pattern(entry.record(), entry.pattern(),
                                                          entry.pattern_length(), session.encoding,
                                                          entry.pattern_is_item())) {
      placed = false;
      if (accept == Accept::kWhole &&
          certainly_too_long(*program, entry.date(), entry.hour(), entry.minute(), entry.second(),
                             entry.fraction_digits(), request.width)) {
        return locale::kExpansionShortened;
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
                            rendered.units <= locale::kMaxUnits &&
                            rendered.utf8 <= locale::kStepCapacity;
      if (measured && rendered.symbolic > kWorkAreaSize && accept == Accept::kWhole) {
        return kExpandTooLong;  // the expansion did not fit the work area
      }
      if (measured && rendered.symbolic <= kWorkAreaSize) {
        if (rendered.length <= request.width) {
          lay(request, text, rendered.length);
          placed = true;
          return rendered.length - request.width;
        }
        if (accept == Accept::kWhole) return locale::kExpansionShortened;
        // Cut back a character at a time until the text fits: in UTF-8 to
        // the start of the character that would cross the width.
        int32_t cut = request.width;
        if (session.encoding == PieceEncoding::kUtf8) {
          while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80) --cut;
        }
        lay(request, text, cut);
        placed = true;
        return locale::kExpansionShortened;
      }
    }
  }
  return general_attempt(request, entry, accept, false, placed);
}

int32_t attempt_in_field_interpreted(fmtreq &request, const EntryExpansion &entry, Accept accept,
                                     bool &placed) noexcept {
  return general_attempt(request, entry, accept, true, placed);
}

}  // namespace corvinel::nldate

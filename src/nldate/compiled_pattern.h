// Date patterns compiled once per thread, locale record and encoding.
//
// Expanding a pattern means the same work on every call for everything but
// the value: substituting "%x" and "%X", reading the directives and their
// flags, fetching the names of the record, measuring the widest names,
// resolving the era of the region and, for a format, expanding the names'
// "<Uxxxx>" escapes into the session encoding.  A compiled pattern has all
// of that done: a list of steps, each a fixed text (already in the
// encoding), a table of names chosen by a part of the value, or a number.
// A call only derives the value's parts and walks the steps.
//
// The bytes are those the interpreting expander (expand_with) writes,
// followed, for a session encoding, by output expansion: where the compiled
// form could differ it declines and the caller interprets the pattern.  The
// tests compare the two over every directive in every locale.
//
// The parts: compiled_pattern.cpp compiles, compiled_program.h holds the
// program's layout, pattern_memo.cpp the per-thread memo, program_run.cpp
// runs a program and clock_run.cpp the clock-run fast path.
#pragma once

#include <cstdint>

#include "corvinel/locale_db.h"
#include "encoding/simple_expansion.h"
#include "nldate/expansion_steps.h"

namespace corvinel::nldate {

// What the fixed texts of a compiled pattern hold: the symbolic text that
// expand returns, or the bytes output expansion makes of it in a session
// codeset that the expansion shortcut takes.
enum class PieceEncoding : uint8_t { kSymbolic, kUtf8, kLatin1, kAscii };

// The encoding of a session codeset; false for one the shortcut does not take.
inline bool piece_encoding_of(encoding::SessionCodeset codeset, PieceEncoding &encoding) noexcept {
  switch (codeset) {
    case encoding::SessionCodeset::kUtf8:
      encoding = PieceEncoding::kUtf8;
      return true;
    case encoding::SessionCodeset::kLatin1:
      encoding = PieceEncoding::kLatin1;
      return true;
    case encoding::SessionCodeset::kAscii:
      encoding = PieceEncoding::kAscii;
      return true;
    case encoding::SessionCodeset::kOther:
      break;
  }
  return false;
}

struct CompiledPattern;

// What callers read of a program in line, before they call into it.
struct ProgramHead {
  // One run of fixed text with numbers of the clock only (no date, no
  // names, no 12-hour clock), within the render capacity and with measures
  // output expansion takes as they are: render_clock_run writes it.
  bool clock_run = false;
  // The fewest bytes of a text with every part present, fraction digits
  // aside, and the seconds that take a fraction: a field of at least
  // least_bytes + digits * fraction_steps bytes is never certainly too
  // narrow for it.
  int32_t least_bytes = 0;
  int32_t fraction_steps = 0;
};

// The program's head (its first member).
inline const ProgramHead &head_of(const CompiledPattern &program) noexcept {
  return *reinterpret_cast<const ProgramHead *>(&program);
}

// The pattern (`length` bytes; null or 0 or less is the empty pattern)
// compiled for `record` (null: no record, every item unfetchable) in
// `encoding`, from this thread's memo of the last few, compiled on a miss.
// `constant_text`: the pattern is a compiled-in item text, which never
// changes, so the memo may know it by its address.
// Null when the pattern is beyond the compiled form's bounds (a longer
// pattern, more steps or name bytes than it holds): the caller interprets
// it.  Valid until the thread's next call.
const CompiledPattern *compiled_pattern(const locitem *record, const char *pattern,
                                        int32_t length, PieceEncoding encoding,
                                        bool constant_text = false) noexcept;

// The same from `memo`, this thread's memo as this_threads_patterns gives
// it: a format call reaches its thread-local memo once, however many
// attempts it makes.
struct CompiledPatternMemo;
CompiledPatternMemo &this_threads_patterns() noexcept;
const CompiledPattern *compiled_pattern(CompiledPatternMemo &memo, const locitem *record,
                                        const char *pattern, int32_t length,
                                        PieceEncoding encoding, bool constant_text) noexcept;

// True when every text the program can write for a value with these parts
// present or missing (and these fraction digits) has more bytes than
// `width` in the program's session encoding, and every character of it is
// one the session has and few enough units that output expansion would
// convert it and report it too long (result 1) rather than refuse it: the
// attempt fails without rendering.
bool certainly_too_long(const CompiledPattern &program, double date, double hour, double minute,
                        double second, int32_t fraction_digits, int32_t width) noexcept;

// The longest text render writes, and the room it needs for it: pieces are
// copied in blocks that may run 15 bytes past the text.
inline constexpr int32_t kRenderCapacity = 1024;
inline constexpr int32_t kRenderBufferSize = kRenderCapacity + 16;

enum class RenderOutcome {
  kRendered,
  kUnknownDirective,  // expand returns -2
  kDeclined,          // the compiled form cannot vouch for the bytes: interpret
};

struct RenderedText {
  RenderOutcome outcome;
  int32_t length;    // bytes written, in the program's encoding
  int32_t symbolic;  // the length of the symbolic text these bytes stand for
  int32_t units;     // its UTF-16 units, as output expansion counts them
  int32_t utf8;      // its length in UTF-8
};

// The text of the pattern for the value split as expand takes it (each part
// may be missing), into `out` (kRenderBufferSize bytes).
// `zone`: TZ when the caller read it already.
RenderedText render(const CompiledPattern &program, double date, double hour, double minute,
                    double second, int32_t fraction_digits, char *out,
                    const ZoneReading &zone = {}) noexcept;

// The text of a program of one run of fixed text and clock numbers (no
// date, no names, no 12-hour clock) at no fraction digits, the same bytes
// and measures render gives: written at `out` only when its length is at
// most `room`, exactly that many bytes (so `out` may be the field).  Its
// measures are within what output expansion takes as they are.
// kDeclined for another program or an hour above 99.
RenderedText render_clock_run(const CompiledPattern &program, double hour, double minute,
                              double second, char *out, int32_t room) noexcept;
// The same for the time of day `seconds_into_day` (below 86400) in whole
// seconds.
RenderedText render_clock_run(const CompiledPattern &program, uint32_t seconds_into_day,
                              char *out, int32_t room) noexcept;

// Whether render may write the program's text by its layout (runs of
// fixed text with two-character numbers dropped in) rather than a step at
// a time; the tests make sure they reach it.
bool has_layout(const CompiledPattern &program) noexcept;

// The same text walked a step at a time, without the layout: the way render
// takes for the programs and values the layout does not hold.  The tests
// hold render to it.
RenderedText render_stepwise(const CompiledPattern &program, double date, double hour,
                             double minute, double second, int32_t fraction_digits, char *out,
                             const ZoneReading &zone = {}) noexcept;

}  // namespace corvinel::nldate

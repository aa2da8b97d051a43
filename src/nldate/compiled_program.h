// The compiled program of a date pattern as its parts share it: the bounds,
// the steps and pieces, the layout of runs and slots, the small helpers of
// the compile step and the run, and those that fill the two-digit slots
// (read by the run and by the clock run).
// Included only by compiled_pattern.cpp (the compile step),
// pattern_memo.cpp, program_run.cpp and clock_run.cpp; nothing outside them
// reads a program's members.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

#include "nldate/compiled_pattern.h"
#include "nldate/entry_routines.h"

namespace corvinel::nldate {

// Bounds of one compiled pattern.  Locale patterns use a handful of steps
// and a few hundred bytes of names; a pattern past any bound is left to the
// interpreting expander.
constexpr int32_t kKeyCapacity = 192;   // pattern bytes remembered as the key
constexpr int32_t kMaxSteps = 64;
constexpr int32_t kMaxPieces = 96;
constexpr int32_t kPoolCapacity = 1536;  // texts that are not read in place
constexpr int32_t kMemoEntries = 8;      // compiled patterns kept per thread
constexpr int32_t kEscapeTail = 6;       // bytes an escape "<Uxxxx>" runs on after its "<"
constexpr int32_t kMostDigits = 20;      // digits of a 64-bit magnitude
constexpr int32_t kMaxSlots = 2 * kMaxSteps;  // a year takes two
constexpr int32_t kLayoutCapacity = 512;      // the runs' fixed texts

// The measures of a text packed in one word, 16 bits each, so that a call
// sums them with one addition per piece: the symbolic text's length, its
// UTF-16 units, its UTF-8 length and the bytes written.  Texts are at most
// kRenderCapacity bytes, escapes 7 bytes a unit: no field overflows.
constexpr uint64_t measures_of(int32_t symbolic, int32_t units, int32_t utf8, int32_t bytes) {
  return static_cast<uint64_t>(symbolic) | static_cast<uint64_t>(units) << 16 |
         static_cast<uint64_t>(utf8) << 32 | static_cast<uint64_t>(bytes) << 48;
}

// A fixed text in the program's encoding, in the program's pool, with the
// measures of the symbolic text it stands for.  Null bytes: the text has
// no bytes in the encoding that output expansion would certainly give (a
// character the codeset lacks, a surrogate half, a "<" that an escape
// could join with what follows); a call that needs it declines.
struct Piece {
  const char *bytes;
  uint64_t measures;
  uint16_t length;
};

// Pieces are copied in whole 16-byte blocks: the pool and the text a call
// writes keep this much room past their last byte.
constexpr int32_t kCopyBlock = kRenderBufferSize - kRenderCapacity;

enum class Op : uint8_t {
  kPiece,          // the piece
  kWeekdayName,    // the table of 7 from the piece, by weekday
  kMonthName,      // the table of 12, by month
  kQuarterName,    // the table of 4, by quarter
  kMarker,         // morning and afternoon, by hour
  kDay,            // numbers: width and pad as read
  kMonth,
  kDaysInHour,     // "%n"
  kDayOfYear,
  kYear,           // two groups; detail: the Era
  kYearOfCentury,  // detail: the Era
  kHour,           // "%H"; above 99 in full
  kHourMidnight24, // "%K"
  kClock12,        // "%I": 0 shown as 12
  kClock12AsIs,    // "%L"
  kMinute,
  kSecond,         // detail 1: the fraction follows, after the piece (the separator)
  kSundayWeek,     // "%U"
  kWeekdayFromMonday,  // "%u"
  kWeekdayFromSunday,  // "%w"
  kMondayWeek,     // "%W"
  kIsoWeek,        // "%V"
  kIsoYear,        // "%G"
  kIsoYearOfCentury,   // "%g"
  kZoneOffset,     // "%z"
};

constexpr uint16_t kNoPiece = 0xFFFF;

struct Step {
  Op op;
  char pad;
  uint8_t width;
  uint8_t detail;
  uint16_t piece;
  uint16_t suffix;  // a fixed text written right after, or kNoPiece
};

constexpr std::string_view kMissingMark = "**";

// The layout: most locale patterns are fixed texts, names and numbers that
// always take two digits (or "**" when their part is missing).  Such a
// program is also kept as runs, each an optional name followed by one fixed
// text with the numbers' places in it (slots).  A call copies each run's
// text whole and drops the two characters of each number into its slot,
// instead of walking the steps one by one.

// What a slot shows: two characters worked out once per call.
enum class Source : uint8_t {
  kDay,
  kDayBlank,    // a leading zero shown as a blank
  kMonth,
  kMonthBlank,
  kYearHigh,    // a Gregorian year's two groups
  kYearLow,
  kHour,        // "%H", when below 100
  kHourMidnight24,
  kClock12,
  kClock12AsIs,
  kMinute,
  kSecond,
  kCount,
};

struct Slot {
  uint16_t offset;  // from the start of its run's fixed text
  Source source;
};

struct Run {
  uint16_t name;    // the name step that opens the run, or kNoPiece
  uint16_t start;   // the fixed text in the layout
  uint16_t length;
  uint8_t first_slot, end_slot;
};


struct CompiledPattern {
  ProgramHead head;  // first: read in line through head_of
  // The key.
  bool filled;
  bool beyond_bounds;  // remembered too: such a pattern is interpreted
  PieceEncoding encoding;
  const locitem *record;
  const char *source;  // the compiled-in text compiled, or null
  int32_t key_length;
  char key[kKeyCapacity];
  // The program.
  bool unknown_directive;
  bool declines;    // a fixed piece or separator has no bytes in the encoding
  bool reads_date;  // a step reads the date's parts
  int32_t step_count, piece_count, pool_used;
  int32_t fixed_bound;     // the longest text without fraction digits
  int32_t fraction_steps;  // seconds that take a fraction
  // Bounds of the text in the program's encoding, fraction digits aside:
  // the fewest bytes when every part of the value is present and when any
  // may be missing, the most UTF-16 units and UTF-8 bytes.
  int32_t least_bytes_present, least_bytes, most_units, most_utf8;
  int32_t separator_bytes;  // the decimal separators of the seconds with a fraction
  bool all_encodable;       // every piece has its bytes in the encoding
  bool reads_weekday;   // a step reads the weekday
  bool reads_day_of_year;  // a step reads the day of the year
  Step steps[kMaxSteps];
  Piece pieces[kMaxPieces];
  char pool[kPoolCapacity + kCopyBlock];
  // The layout, when every step fits it.
  bool laid_out;
  bool slots_year;     // a year slot: "**" for a missing date is narrower
  bool slots_clock;    // hour, minute or second slots
  bool slots_clock12;  // 12-hour clock slots
  bool slots_blank;    // blank-padded day or month slots
  RenderedText clock_measures;  // when head.clock_run: the same for every time
  uint32_t sources;    // bit set of the sources the slots read
  int32_t run_count, slot_count, layout_used;
  uint64_t layout_measures;  // of every fixed text of the runs
  Run runs[kMaxSteps];
  Slot slots[kMaxSlots];
  char layout[kLayoutCapacity + kCopyBlock];
};

static_assert(std::is_standard_layout_v<CompiledPattern> && offsetof(CompiledPattern, head) == 0,
              "head_of reads the head through a pointer to the program");

// Compiles `length` bytes of `pattern` (null: the empty pattern) for
// `record` into `program`, whose key the caller has set.  False when the
// pattern is beyond the program's bounds.
bool compile_program(CompiledPattern &program, const locitem *record, const char *pattern,
                     int32_t length) noexcept;

namespace {

inline encoding::SessionCodeset codeset_of(PieceEncoding encoding) {
  switch (encoding) {
    case PieceEncoding::kUtf8:
      return encoding::SessionCodeset::kUtf8;
    case PieceEncoding::kLatin1:
      return encoding::SessionCodeset::kLatin1;
    case PieceEncoding::kAscii:
      return encoding::SessionCodeset::kAscii;
    case PieceEncoding::kSymbolic:
      break;
  }
  return encoding::SessionCodeset::kOther;
}

inline bool is_plain(std::string_view text) {
  for (const char c : text) {
    if (c == '<' || static_cast<unsigned char>(c) >= 0x80) return false;
  }
  return true;
}

// Whether a step reads the date's parts.
inline bool reads_the_date(Op op) noexcept {
  switch (op) {
    case Op::kPiece:
    case Op::kMarker:
    case Op::kDaysInHour:
    case Op::kHour:
    case Op::kHourMidnight24:
    case Op::kClock12:
    case Op::kClock12AsIs:
    case Op::kMinute:
    case Op::kSecond:
    case Op::kZoneOffset:
      return false;
    default:
      return true;
  }
}

// The measures of a text of `length` bytes whose pieces sum to `pieces`:
// every byte not from a piece is ASCII, one unit and one byte in every
// encoding.
constexpr RenderedText measured_length(int32_t length, uint64_t pieces) noexcept {
  const auto field = [pieces](int shift) {
    return static_cast<int32_t>((pieces >> shift) & 0xFFFF);
  };
  const int32_t ascii = length - field(48);
  return {RenderOutcome::kRendered, length, field(0) + ascii, field(16) + ascii, field(32) + ascii};
}

constexpr RenderedText kDeclined{RenderOutcome::kDeclined, 0, 0, 0, 0};

// Two digits of 0..99, for the slots.
constexpr char kDigitPairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

using Pairs = char[static_cast<int>(Source::kCount)][2];

// The pair of 0..99.
inline void put_pair(Pairs &pairs, Source source, uint32_t value) noexcept {
  std::memcpy(pairs[static_cast<int>(source)], kDigitPairs + 2 * value, 2);
}

// The last two digits of a part that may be missing, as put_part writes them.
[[gnu::always_inline]] inline void put_part_pair(Pairs &pairs, Source source,
                                                 double value) noexcept {
  if (is_missing(value)) {
    std::memcpy(pairs[static_cast<int>(source)], kMissingMark.data(), 2);
  } else {
    const uint64_t shown = magnitude(value);
    put_pair(pairs, source, static_cast<uint32_t>(shown < 100 ? shown : shown % 100));
  }
}

// The two characters of the clock's sources the program's slots read.
// False when one would take more (an hour past 99).
[[gnu::always_inline]] inline bool fill_clock_pairs(const CompiledPattern &program, double hour,
                                                    double minute, double second,
                                                    Pairs &pairs) noexcept {
  if (!program.slots_clock) return true;
  const auto reads = [&program](Source source) {
    return (program.sources & (1u << static_cast<int>(source))) != 0;
  };
  if (is_missing(hour)) {
    std::memcpy(pairs[static_cast<int>(Source::kHour)], kMissingMark.data(), 2);
    std::memcpy(pairs[static_cast<int>(Source::kHourMidnight24)], kMissingMark.data(), 2);
  } else {
    const uint64_t shown = magnitude(hour);
    if (shown > 99) return false;  // in full
    put_pair(pairs, Source::kHour, static_cast<uint32_t>(shown));
    put_pair(pairs, Source::kHourMidnight24, shown == 0 ? 24 : static_cast<uint32_t>(shown));
  }
  if (program.slots_clock12) {
    const uint64_t shown = magnitude(clock12_of(hour));
    put_pair(pairs, Source::kClock12, shown == 0 ? 12 : static_cast<uint32_t>(shown % 100));
    put_pair(pairs, Source::kClock12AsIs, static_cast<uint32_t>(shown % 100));
  }
  if (reads(Source::kMinute)) put_part_pair(pairs, Source::kMinute, minute);
  if (reads(Source::kSecond)) put_part_pair(pairs, Source::kSecond, second);
  return true;
}

}  // namespace

}  // namespace corvinel::nldate

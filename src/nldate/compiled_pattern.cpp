#include "nldate/compiled_pattern.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

#include "corvinel/weeks.h"
#include "frame/exact_copy.h"
#include "encoding/transcode_steps.h"
#include "nldate/entry_routines.h"
#include "nldate/week_numbering.h"

namespace corvinel::nldate {
namespace {

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

}  // namespace

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
  bool names_weekdays;  // a weekday name step (zwekday's odd weekdays before 1600)
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

namespace {

encoding::SessionCodeset codeset_of(PieceEncoding encoding) {
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

bool is_plain(std::string_view text) {
  for (const char c : text) {
    if (c == '<' || static_cast<unsigned char>(c) >= 0x80) return false;
  }
  return true;
}

// Whether a step reads the date's parts.
bool reads_the_date(Op op) noexcept {
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

// Builds one program in place; every add fails past the program's bounds.
class Compiler {
 public:
  Compiler(CompiledPattern &program, const locitem *record) noexcept
      : program_(program), items_(record) {}

  // False when the pattern is beyond the program's bounds.
  bool compile(const char *pattern, int32_t length) noexcept {
    CompiledPattern &p = program_;
    p.unknown_directive = false;
    p.declines = p.reads_date = false;
    p.step_count = p.piece_count = p.pool_used = 0;
    p.fixed_bound = p.fraction_steps = 0;
    p.least_bytes_present = p.least_bytes = p.most_units = p.most_utf8 = p.separator_bytes = 0;
    p.all_encodable = true;
    p.names_weekdays = p.reads_weekday = p.reads_day_of_year = false;
    p.laid_out = false;
    p.head = {};
    char work[kPatternBound];
    const int32_t work_length = length <= 0 ? 0 : substitute_representations(items_, pattern, length, work);
    if (work_length < 0) return unknown();
    for (int32_t i = 0; i < work_length; ++i) {
      if (work[i] != '%') {
        if (!add_fixed({work + i, 1})) return false;
        continue;
      }
      Directive d{};
      if (!read_directive(work, work_length, i, era_, d)) return unknown();
      const int result = add_directive(d);
      if (result < 0) return unknown();
      if (result == 0) return false;
    }
    if (!flush_fixed()) return false;
    lay_out();
    p.head.least_bytes = p.least_bytes_present + p.separator_bytes;
    p.head.fraction_steps = p.fraction_steps;
    return true;
  }

 private:
  // The slot source of a number step, or kCount for one of another width.
  static Source source_of(const Step &step) noexcept {
    if (step.pad == ' ') {
      if (step.op == Op::kDay) return Source::kDayBlank;
      return step.op == Op::kMonth ? Source::kMonthBlank : Source::kCount;
    }
    if (step.pad != '0') return Source::kCount;  // as many digits as the number has
    switch (step.op) {
      case Op::kDay: return Source::kDay;
      case Op::kMonth: return Source::kMonth;
      case Op::kYearOfCentury:
        return static_cast<Era>(step.detail) == Era::kGregorian ? Source::kYearLow : Source::kCount;
      case Op::kHour: return Source::kHour;
      case Op::kHourMidnight24: return Source::kHourMidnight24;
      case Op::kClock12: return Source::kClock12;
      case Op::kClock12AsIs: return Source::kClock12AsIs;
      case Op::kMinute: return Source::kMinute;
      case Op::kSecond: return Source::kSecond;
      default: return Source::kCount;
    }
  }

  // Appends a fixed text to the open run.
  bool lay_piece(Run &run, uint16_t index) noexcept {
    CompiledPattern &p = program_;
    const Piece &piece = p.pieces[index];
    if (p.layout_used + piece.length > kLayoutCapacity) return false;
    std::memcpy(p.layout + p.layout_used, piece.bytes, piece.length);
    p.layout_used += piece.length;
    run.length = static_cast<uint16_t>(run.length + piece.length);
    p.layout_measures += piece.measures;
    return true;
  }

  // Appends the two places of a number to the open run.
  bool lay_slot(Run &run, Source source) noexcept {
    CompiledPattern &p = program_;
    if (p.slot_count == kMaxSlots || p.layout_used + 2 > kLayoutCapacity) return false;
    p.slots[p.slot_count++] = {run.length, source};
    p.sources |= 1u << static_cast<int>(source);
    run.end_slot = static_cast<uint8_t>(p.slot_count);
    p.layout[p.layout_used++] = '0';
    p.layout[p.layout_used++] = '0';
    run.length = static_cast<uint16_t>(run.length + 2);
    return true;
  }

  // The runs of a program whose every step is a fixed text, a name or a
  // two-character number; laid_out stays false for any other.
  void lay_out() noexcept {
    CompiledPattern &p = program_;
    p.laid_out = p.slots_year = p.slots_clock = p.slots_clock12 = p.slots_blank = false;
    p.sources = 0;
    p.run_count = p.slot_count = p.layout_used = 0;
    p.layout_measures = 0;
    if (p.unknown_directive || p.declines) return;  // render never gets to the steps
    Run *run = nullptr;
    for (int32_t s = 0; s < p.step_count; ++s) {
      const Step &step = p.steps[s];
      const bool name = step.op == Op::kWeekdayName || step.op == Op::kMonthName ||
                        step.op == Op::kQuarterName || step.op == Op::kMarker;
      if (name || run == nullptr) {
        run = &p.runs[p.run_count++];
        *run = {name ? static_cast<uint16_t>(s) : kNoPiece, static_cast<uint16_t>(p.layout_used), 0,
                static_cast<uint8_t>(p.slot_count), static_cast<uint8_t>(p.slot_count)};
      }
      bool laid = true;
      if (step.op == Op::kPiece) {
        laid = lay_piece(*run, step.piece);
      } else if (step.op == Op::kYear) {
        if (static_cast<Era>(step.detail) != Era::kGregorian) return;
        p.slots_year = true;
        laid = lay_slot(*run, Source::kYearHigh) && lay_slot(*run, Source::kYearLow);
      } else if (!name) {
        const Source source = source_of(step);
        if (source == Source::kCount) return;
        p.slots_clock = p.slots_clock || source >= Source::kHour;
        p.slots_clock12 = p.slots_clock12 || source == Source::kClock12 ||
                          source == Source::kClock12AsIs;
        p.slots_blank = p.slots_blank || source == Source::kDayBlank ||
                        source == Source::kMonthBlank;
        laid = lay_slot(*run, source);
      }
      if (laid && step.suffix != kNoPiece) laid = lay_piece(*run, step.suffix);
      if (!laid) return;
    }
    p.laid_out = true;
    bool clock_run = p.run_count <= 1 && (p.run_count == 0 || p.runs[0].name == kNoPiece) &&
                     !p.reads_date && !p.slots_clock12 && p.fixed_bound <= kRenderCapacity;
    if (clock_run) {
      const int32_t length = p.run_count == 0 ? 0 : p.runs[0].length;
      p.clock_measures = measured_length(length, p.layout_measures);
      clock_run = p.clock_measures.units <= encoding::kMaxUnits &&
                  p.clock_measures.utf8 <= encoding::kStepCapacity &&
                  p.clock_measures.symbolic <= kWorkAreaSize;
    }
    p.head.clock_run = clock_run;
  }

  bool unknown() noexcept {
    program_.unknown_directive = true;
    return true;
  }

  // Fixed text gathers until a step that depends on the value.
  bool add_fixed(std::string_view text) noexcept {
    if (fixed_length_ + static_cast<int32_t>(text.size()) > kPatternBound) return false;
    std::memcpy(fixed_ + fixed_length_, text.data(), text.size());
    fixed_length_ += static_cast<int32_t>(text.size());
    return true;
  }

  bool flush_fixed() noexcept {
    if (fixed_length_ == 0) return true;
    const int32_t piece = add_piece({fixed_, static_cast<std::size_t>(fixed_length_)});
    fixed_length_ = 0;
    return piece >= 0 && add_step({Op::kPiece, 0, 0, 0, static_cast<uint16_t>(piece), kNoPiece},
                                  program_.pieces[piece].length);
  }

  bool add_step(Step step, int32_t bound) noexcept {
    if (!flush_fixed()) return false;
    CompiledPattern &p = program_;
    // A fixed text after a step that has none rides on that step: one step
    // fewer to walk on every call.
    if (step.op == Op::kPiece && p.step_count > 0 && p.steps[p.step_count - 1].op != Op::kPiece &&
        p.steps[p.step_count - 1].suffix == kNoPiece) {
      p.steps[p.step_count - 1].suffix = step.piece;
    } else {
      if (p.step_count == kMaxSteps) return false;
      p.steps[p.step_count++] = step;
    }
    if (reads_the_date(step.op)) p.reads_date = true;
    if (step.op == Op::kWeekdayName || step.op == Op::kWeekdayFromMonday ||
        step.op == Op::kWeekdayFromSunday) {
      p.reads_weekday = true;
    }
    if (step.op == Op::kDayOfYear || step.op == Op::kSundayWeek) p.reads_day_of_year = true;
    // A fixed text or separator is written on every call that reaches it.
    if (step.op == Op::kPiece && p.pieces[step.piece].bytes == nullptr) p.declines = true;
    if (step.op == Op::kSecond && step.piece != kNoPiece && p.pieces[step.piece].bytes == nullptr) {
      p.declines = true;
    }
    p.fixed_bound += bound;
    add_bounds(step);
    return true;
  }

  // The fewest bytes and the most units a step writes.
  void add_bounds(const Step &step) noexcept {
    CompiledPattern &p = program_;
    const auto units = [](const Piece &piece) { return static_cast<int32_t>((piece.measures >> 16) & 0xFFFF); };
    const auto utf8 = [](const Piece &piece) { return static_cast<int32_t>((piece.measures >> 32) & 0xFFFF); };
    const int32_t mark = static_cast<int32_t>(kMissingMark.size());
    int32_t least_present = 0, least = 0, most_units = 0, most_utf8 = 0;
    int32_t table = 0;  // the entries of a name step
    switch (step.op) {
      case Op::kPiece: {
        const Piece &piece = p.pieces[step.piece];
        least_present = least = piece.length;
        most_units = units(piece);
        most_utf8 = utf8(piece);
        break;
      }
      case Op::kWeekdayName:
        table = 7;
        p.names_weekdays = true;
        break;
      case Op::kMonthName:
        table = 12;
        break;
      case Op::kQuarterName:
        table = 4;
        break;
      case Op::kMarker:
        table = 2;
        break;
      case Op::kZoneOffset:
        least_present = least = most_units = most_utf8 = kZoneOffsetLength;
        break;
      default: {
        // Numbers: digits as wide as the pad asks for (all of them without
        // one), "**" for a missing part; the year always in four digits,
        // the day of year in three.  Hours past 99 only get longer.
        const bool padded = step.pad != 0;
        int32_t digits = padded ? step.width : 1;
        if (step.op == Op::kYear || step.op == Op::kIsoYear) digits = 4;
        if (step.op == Op::kDaysInHour) digits = 1;
        least_present = digits;
        least = std::min(digits, mark);
        most_units = most_utf8 = kMostDigits;
        if (step.op == Op::kSecond && step.piece != kNoPiece) {
          // The separator shows only with fraction digits: counted at the
          // call, and here only towards the most.
          const Piece &separator = p.pieces[step.piece];
          p.separator_bytes += separator.length;
          most_units += units(separator);
          most_utf8 += utf8(separator);
        }
        break;
      }
    }
    if (table > 0) {
      least_present = least = mark;
      most_units = most_utf8 = mark;
      for (int32_t i = 0; i < table; ++i) {
        const Piece &name = p.pieces[step.piece + i];
        least_present = least = std::min<int32_t>(least, name.length);
        most_units = std::max(most_units, units(name));
        most_utf8 = std::max(most_utf8, utf8(name));
      }
    }
    p.least_bytes_present += least_present;
    p.least_bytes += least;
    p.most_units += most_units;
    p.most_utf8 += most_utf8;
  }

  bool add_number(Op op, int32_t width, char pad, uint8_t detail = 0) noexcept {
    return add_step({op, pad, static_cast<uint8_t>(width), detail, kNoPiece, kNoPiece},
                    kMostDigits);
  }

  // A piece for `text` (symbolic notation), its bytes in the pool.
  // Returns its index, or -1 past the bounds.
  int32_t add_piece(std::string_view text) noexcept {
    CompiledPattern &p = program_;
    if (p.piece_count == kMaxPieces || text.size() > kRenderCapacity) return -1;
    const auto length = static_cast<int32_t>(text.size());
    int32_t units = length, utf8 = length;
    bool encodable = true;
    if (p.encoding != PieceEncoding::kSymbolic) {
      const encoding::SessionCodeset codeset = codeset_of(p.encoding);
      units = utf8 = 0;
      for (int32_t i = 0; i < length;) {
        uint16_t unit = 0;
        if (text[i] == '<' && i >= length - kEscapeTail) encodable = false;  // could join the next text
        i += encoding::next_symbolic_unit(text.data() + i, length - i, unit);
        // A NUL ends the text for some converters: left to output expansion.
        if (unit == 0 || !encoding::session_has(codeset, unit)) encodable = false;
        ++units;
        utf8 += encoding::utf8_length(unit);
      }
    }
    // A text without bytes in the encoding still counts its units towards
    // the program's bounds.
    Piece piece{nullptr, measures_of(length, units, utf8, 0), 0};
    if (!encodable) p.all_encodable = false;
    if (encodable) {
      char *at = p.pool + p.pool_used;
      const int32_t room = kPoolCapacity - p.pool_used;
      int32_t written = 0;
      if (p.encoding == PieceEncoding::kSymbolic || is_plain(text)) {
        if (length > room) return -1;
        if (length > 0) std::memcpy(at, text.data(), text.size());
        written = length;
      } else {
        written = encoding::encode_in_session(codeset_of(p.encoding), text, at, room);
        if (written < 0) return -1;  // every character converts: only the room can fail
      }
      piece.bytes = at;
      piece.length = static_cast<uint16_t>(written);
      piece.measures = measures_of(length, units, utf8, written);
      p.pool_used += written;
    }
    p.pieces[p.piece_count] = piece;
    return p.piece_count++;
  }

  // The names base .. base + count - 1, each padded with blanks to the
  // longest of them when `widest`; "**" for a name that cannot be fetched.
  // Returns the first piece, or -1 past the bounds.
  int32_t add_names(int32_t base, int32_t count, bool widest, int32_t &longest) noexcept {
    std::size_t widest_length = 0;
    if (widest) {
      for (int32_t i = 0; i < count; ++i) {
        if (const auto name = items_.get(base + i)) widest_length = std::max(widest_length, name->size());
      }
    }
    const int32_t first = program_.piece_count;
    longest = 0;
    for (int32_t i = 0; i < count; ++i) {
      const auto name = items_.get(base + i);
      int32_t piece = -1;
      if (!name) {
        piece = add_piece(kMissingMark);
      } else if (widest && name->size() < widest_length) {
        char padded[2 * CORVINEL_LOCALE_TEXT];
        std::memcpy(padded, name->data(), name->size());
        std::memset(padded + name->size(), ' ', widest_length - name->size());
        piece = add_piece({padded, widest_length});
      } else {
        piece = add_piece(*name);
      }
      if (piece < 0) return -1;
      longest = std::max<int32_t>(longest, program_.pieces[piece].length);
    }
    return first;
  }

  bool add_name_step(Op op, int32_t base, int32_t count, bool widest) noexcept {
    if (!flush_fixed()) return false;
    int32_t longest = 0;
    const int32_t first = add_names(base, count, widest, longest);
    return first >= 0 &&
           add_step({op, 0, 0, 0, static_cast<uint16_t>(first), kNoPiece},
                    std::max<int32_t>(longest, static_cast<int32_t>(kMissingMark.size())));
  }

  // The step or fixed text of one directive: 1 added, 0 past the bounds,
  // -1 unknown.
  int add_directive(const Directive &d) noexcept {
    const char blank_pad = d.pad == 0 ? 0 : ' ';
    switch (d.letter) {
      case '%':
        return add_fixed("%");
      case 'A':
      case 'F': {
        const int32_t base = weekday_names(d);
        if (!items_.get(base)) return add_fixed(kMissingMark);
        return add_name_step(Op::kWeekdayName, base, 7, d.letter == 'F');
      }
      case 'B':
        return add_name_step(Op::kMonthName, month_names(d), 12, false);
      case 'C':
        return add_name_step(Op::kMonthName, full_month_names(d), 12, true);
      case 'D':
        return add_number(Op::kDay, 2, d.pad);
      case 'E':
        return add_number(Op::kDay, 2, blank_pad);
      case 'N':
        if (d.lower) return add_number(Op::kDaysInHour, 1, 0);
        return add_number(Op::kMonth, 2, d.pad);
      case 'O':
        return add_number(Op::kMonth, 2, blank_pad);
      case 'J':
        return add_number(Op::kDayOfYear, 3, d.pad);
      case 'Y': {
        const auto era = static_cast<uint8_t>(era_ ? era_of_region(items_.get(kRegionCode)) : Era::kGregorian);
        return add_number(d.lower ? Op::kYearOfCentury : Op::kYear, 2, d.pad, era);
      }
      case 'H':
        return add_number(Op::kHour, 2, d.pad);
      case 'K':
        return add_number(Op::kHourMidnight24, 2, d.pad);
      case 'I':
        return add_number(Op::kClock12, 2, d.pad);
      case 'L':
        return add_number(Op::kClock12AsIs, 2, d.pad);
      case 'M':
        return add_number(Op::kMinute, 2, d.pad);
      case 'S':
        return add_second(d.pad, d.exact_second);
      case 'T':
        if (d.lower) return 1;
        return add_number(Op::kHour, 2, d.pad) && add_fixed(":") &&
               add_number(Op::kMinute, 2, d.pad) && add_fixed(":") && add_second(d.pad, false);
      case 'P': {
        if (!flush_fixed()) return 0;
        const int32_t first = program_.piece_count;
        const auto morning = items_.get(kMorning);
        const auto afternoon = items_.get(kAfternoon);
        if (add_piece(morning ? *morning : "AM") < 0) return 0;
        if (add_piece(afternoon ? *afternoon : "PM") < 0) return 0;
        const int32_t longest = std::max<int32_t>(
            {program_.pieces[first].length, program_.pieces[first + 1].length, 2});
        return add_step({Op::kMarker, 0, 0, 0, static_cast<uint16_t>(first), kNoPiece}, longest);
      }
      case 'Q': {
        const int32_t base = quarter_names(d);
        if (!items_.get(base)) return add_fixed(kMissingMark);
        return add_name_step(Op::kQuarterName, base, 4, false);
      }
      case 'U':
        if (d.lower) return add_number(Op::kWeekdayFromMonday, 1, '0');
        return add_number(Op::kSundayWeek, 2, d.pad);
      case 'W':
        if (d.lower) return add_number(Op::kWeekdayFromSunday, 1, '0');
        return add_number(Op::kMondayWeek, 2, d.pad);
      case 'V':
        if (d.lower) return 1;
        return add_number(Op::kIsoWeek, 2, d.pad);
      case 'G':
        return add_number(d.lower ? Op::kIsoYearOfCentury : Op::kIsoYear, 2, d.pad);
      case 'Z':
        if (d.lower) {
          return add_step({Op::kZoneOffset, 0, 0, 0, kNoPiece, kNoPiece}, kZoneOffsetLength);
        }
        return add_fixed("XST");
      default:
        return -1;  // "%R", "%r", a "%x" or "%X" in pass 2, any other byte
    }
  }

  // The second; with `fraction` the decimal separator (when it can be
  // fetched) and the fraction digits follow when a call asks for them.
  bool add_second(char pad, bool fraction) noexcept {
    uint16_t separator = kNoPiece;
    int32_t bound = kMostDigits;
    if (fraction) {
      if (!flush_fixed()) return false;
      if (const auto text = items_.get(kDecimalSeparator)) {
        const int32_t piece = add_piece(*text);
        if (piece < 0) return false;
        separator = static_cast<uint16_t>(piece);
        bound += program_.pieces[piece].length;
      }
      ++program_.fraction_steps;
    }
    return add_step(
        {Op::kSecond, pad, 2, static_cast<uint8_t>(fraction ? 1 : 0), separator, kNoPiece}, bound);
  }

  CompiledPattern &program_;
  RecordItems items_;
  bool era_ = false;
  int32_t fixed_length_ = 0;
  char fixed_[kPatternBound];
};

// Writing the text: each helper takes the cursor and returns it moved
// past what it wrote, so that the cursor stays in a register through the
// walk.  A piece is copied in 16-byte blocks, which may write up to
// kCopyBlock - 1 bytes past it: render's output has that room.
void put_blocks(char *at, const char *text, int32_t length) noexcept {
  for (int32_t done = 0; done < length; done += kCopyBlock) {
    std::memcpy(at + done, text + done, kCopyBlock);
  }
}

char *put_piece(char *at, const Piece &piece) noexcept {
  put_blocks(at, piece.bytes, piece.length);
  return at + piece.length;
}

char *put_missing(char *at) noexcept {
  at[0] = at[1] = '*';
  return at + 2;
}

char *put_two_digits(char *at, uint64_t value) noexcept {
  at[0] = static_cast<char>('0' + value / 10);
  at[1] = static_cast<char>('0' + value % 10);
  return at + 2;
}

// Digits of a magnitude, as i2s writes them.
char *put_number(char *at, uint64_t value, int32_t width, char pad) noexcept {
  if (width == 2 && pad == '0' && value < 100) return put_two_digits(at, value);
  return at + write_digits(value, at, std::min(width, kMostDigits), pad);
}

// A year as two groups of two digits with "0" padding, whatever the pad.
char *put_two_groups(char *at, int64_t year) noexcept {
  at = put_number(at, static_cast<uint64_t>(std::llabs(year / 100)), 2, '0');
  return put_number(at, static_cast<uint64_t>(std::llabs(year % 100)), 2, '0');
}

// A part of the value that may be missing ("**").
char *put_part(char *at, double value, int32_t width, char pad) noexcept {
  if (is_missing(value)) return put_missing(at);
  return put_number(at, magnitude(value), width, pad);
}

// The measures of the text: every byte not from a piece is ASCII, one unit
// and one byte in every encoding.
RenderedText measured(const char *out, const char *at, uint64_t pieces) noexcept {
  return measured_length(static_cast<int32_t>(at - out), pieces);
}

constexpr RenderedText kDeclined{RenderOutcome::kDeclined, 0, 0, 0, 0};

// The date's parts as the steps read them: integers where the date lies
// in the years the integer calendar splits, or missing.
struct DayParts {
  bool present;
  int64_t year, month, day, day_of_year, weekday;
  double date;  // 0 when missing, for the week numbers
};

// False for a date that is not missing but lies outside those years: its
// parts come from the host's routines, and the interpreter renders it.
// The weekday and the day of the year are worked out only for a program
// that reads them.
inline bool day_parts_of(double date, const CompiledPattern &program, DayParts &parts) noexcept {
  CivilDay civil{};
  if (civil_day_of(date, civil)) {
    parts = {true,
             civil.year,
             civil.month,
             civil.day,
             program.reads_day_of_year ? civil.day_of_year : 0,
             program.reads_weekday ? weekday_of(date) : 0,
             date};
    return true;
  }
  parts = {false, 0, 0, 0, 0, -1, 0};
  return is_missing(date);
}

// A week style's number or year, "**" when get_yywwdd has none.
char *put_week(char *at, const Step &step, const DayParts &day, char style) noexcept {
  double year = -1, week = -1, weekday = -1;
  get_yywwdd(&style, nullptr, &year, &week, &weekday, day.date);
  if (year < 0 || week < 0) return put_missing(at);
  if (step.op == Op::kMondayWeek || step.op == Op::kIsoWeek) {
    return put_number(at, magnitude(week), 2, step.pad);
  }
  const int64_t y = whole(year);
  if (step.op == Op::kIsoYearOfCentury) return put_number(at, static_cast<uint64_t>(y % 100), 2, step.pad);
  return put_two_groups(at, y);
}

// The fraction of a second after its separator.
char *put_fraction(char *at, double second, int32_t digits) noexcept {
  put_fraction_digits(second, digits, [&at](char c) { *at++ = c; });
  return at;
}

char *put_zone_offset(char *at, const ZoneReading &zone) noexcept {
  write_zone_offset(at, zone);
  return at + kZoneOffsetLength;
}

// The name a name step chooses, "**" (missing) when the part it depends on
// is missing, or declined.
enum class NameChoice { kName, kMissing, kDeclined };

NameChoice choose_name(const CompiledPattern &program, const Step &step, const DayParts &day,
                       double hour, const Piece *&name) noexcept {
  const Piece *table = program.pieces + step.piece;
  int64_t index = -1;
  switch (step.op) {
    case Op::kWeekdayName:
      if (!day.present) return NameChoice::kMissing;
      // zwekday's weekdays before 1600 run below Sunday: interpreted.
      if (day.weekday < 0) return NameChoice::kDeclined;
      index = day.weekday;
      break;
    case Op::kMonthName:
      if (!day.present) return NameChoice::kMissing;
      index = day.month - 1;
      break;
    case Op::kQuarterName:
      if (!day.present) return NameChoice::kMissing;
      index = (day.month - 1) / 3;
      break;
    default:  // Op::kMarker
      if (is_missing(hour)) return NameChoice::kMissing;
      index = magnitude(hour) % 24 >= 12 ? 1 : 0;
      break;
  }
  name = table + index;
  return name->bytes != nullptr ? NameChoice::kName : NameChoice::kDeclined;
}

// The name of a name step at the cursor, its measures added; false when
// the step declines.
bool put_name(const CompiledPattern &program, const Step &step, const DayParts &day, double hour,
              char *&at, uint64_t &pieces) noexcept {
  const Piece *name = nullptr;
  switch (choose_name(program, step, day, hour, name)) {
    case NameChoice::kName:
      at = put_piece(at, *name);
      pieces += name->measures;
      return true;
    case NameChoice::kMissing:
      at = put_missing(at);
      return true;
    case NameChoice::kDeclined:
      break;
  }
  return false;
}


}  // namespace

// This thread's compiled patterns; the last one found is looked at first.
struct CompiledPatternMemo {
  CompiledPattern entries[kMemoEntries];
  int32_t last_found;
  int32_t next_victim;
};

namespace {

using Memo = CompiledPatternMemo;

bool is_key(const CompiledPattern &entry, const locitem *record, const char *pattern,
            int32_t length, PieceEncoding encoding, bool constant_text) noexcept {
  return entry.filled && entry.key_length == length && entry.record == record &&
         entry.encoding == encoding &&
         ((constant_text && entry.source == pattern) || length == 0 ||
          std::memcmp(entry.key, pattern, static_cast<std::size_t>(length)) == 0);
}

}  // namespace

namespace {

thread_local Memo thread_memo;

// The memo past its last find: another entry, or the pattern compiled.
[[gnu::noinline]] const CompiledPattern *find_or_compile(Memo &memo, const locitem *record,
                                                         const char *pattern, int32_t length,
                                                         PieceEncoding encoding,
                                                         bool constant_text) noexcept {
  if (pattern == nullptr || length < 0) length = 0;
  if (length > kKeyCapacity) return nullptr;
  for (int32_t i = 0; i < kMemoEntries; ++i) {
    if (is_key(memo.entries[i], record, pattern, length, encoding, constant_text)) {
      memo.last_found = i;
      return memo.entries[i].beyond_bounds ? nullptr : &memo.entries[i];
    }
  }
  memo.last_found = memo.next_victim;
  CompiledPattern &entry = memo.entries[memo.next_victim];
  memo.next_victim = (memo.next_victim + 1) % kMemoEntries;
  entry.filled = false;
  entry.encoding = encoding;
  entry.record = record;
  entry.source = constant_text ? pattern : nullptr;
  entry.key_length = length;
  if (length > 0) std::memcpy(entry.key, pattern, static_cast<std::size_t>(length));
  Compiler compiler(entry, record);
  entry.beyond_bounds = !compiler.compile(pattern, length);
  entry.filled = true;
  return entry.beyond_bounds ? nullptr : &entry;
}

}  // namespace

CompiledPatternMemo &this_threads_patterns() noexcept { return thread_memo; }

const CompiledPattern *compiled_pattern(CompiledPatternMemo &memo, const locitem *record,
                                        const char *pattern, int32_t length,
                                        PieceEncoding encoding, bool constant_text) noexcept {
  // A compiled-in item text (never null, never past the key) is known by
  // its address: no bytes compared.  The arguments go on untouched to the
  // search otherwise.
  const CompiledPattern &last = memo.entries[memo.last_found];
  if (constant_text && last.filled && last.source == pattern && pattern != nullptr &&
      last.key_length == length && last.record == record && last.encoding == encoding) {
    return last.beyond_bounds ? nullptr : &last;
  }
  return find_or_compile(memo, record, pattern, length, encoding, constant_text);
}

const CompiledPattern *compiled_pattern(const locitem *record, const char *pattern,
                                        int32_t length, PieceEncoding encoding,
                                        bool constant_text) noexcept {
  return compiled_pattern(this_threads_patterns(), record, pattern, length, encoding,
                          constant_text);
}

bool certainly_too_long(const CompiledPattern &program, double date, double hour, double minute,
                        double second, int32_t fraction_digits, int32_t width) noexcept {
  // No text is shorter than the fewest bytes with every part present: a
  // field that holds them settles it at once.
  const int64_t digits = std::max(fraction_digits, 0) * int64_t{program.fraction_steps};
  if (program.least_bytes_present + digits + program.separator_bytes <= width) return false;
  // A character the session lacks may make output expansion refuse the
  // text rather than report it too long.
  if (program.unknown_directive || !program.all_encodable) return false;
  // Before 2 January 1600 zwekday's weekdays run below Sunday and name
  // other items.
  if (program.names_weekdays && !is_missing(date) && !(date >= -131486)) return false;
  const bool present =
      !is_missing(date) && !is_missing(hour) && !is_missing(minute) && !is_missing(second);
  const int64_t least = (present ? program.least_bytes_present : program.least_bytes) + digits +
                        (digits > 0 ? program.separator_bytes : 0);
  return least > width && program.most_units + digits <= encoding::kMaxUnits &&
         program.most_utf8 + digits <= encoding::kStepCapacity;
}

namespace {

// The walk over the steps, one at a time: every program.
RenderedText render_steps(const CompiledPattern &program, const DayParts &day, double hour,
                          double minute, double second, int32_t digits, char *out,
                          const ZoneReading &zone) noexcept {
  char *at = out;
  uint64_t pieces = 0;  // the measures of the pieces written, summed
  for (int32_t s = 0; s < program.step_count; ++s) {
    const Step &step = program.steps[s];
    switch (step.op) {
      case Op::kPiece: {
        const Piece &piece = program.pieces[step.piece];
        at = put_piece(at, piece);
        pieces += piece.measures;
        break;
      }
      case Op::kWeekdayName:
      case Op::kMonthName:
      case Op::kQuarterName:
      case Op::kMarker:
        if (!put_name(program, step, day, hour, at, pieces)) return kDeclined;
        break;
      case Op::kDay:
      case Op::kMonth:
        if (!day.present) {
          at = put_missing(at);
        } else {
          at = put_number(at, static_cast<uint64_t>(step.op == Op::kDay ? day.day : day.month),
                          step.width, step.pad);
        }
        break;
      case Op::kDaysInHour:
        at = is_missing(hour) ? put_missing(at) : put_number(at, magnitude(hour / 24), 1, 0);
        break;
      case Op::kDayOfYear:
        at = !day.present ? put_missing(at)
                          : put_number(at, static_cast<uint64_t>(day.day_of_year), 3, step.pad);
        break;
      case Op::kYear:
      case Op::kYearOfCentury: {
        if (!day.present) {
          at = put_missing(at);
          break;
        }
        const auto era = static_cast<Era>(step.detail);
        if (era == Era::kGregorian && step.op == Op::kYear) {
          // 1582..3999 here: two groups of two digits, unsigned.
          const auto year = static_cast<uint32_t>(day.year);
          at = put_two_digits(put_two_digits(at, year / 100), year % 100);
          break;
        }
        const int64_t year =
            era == Era::kGregorian
                ? day.year
                : whole(era_year(era, static_cast<double>(day.year), day.date));
        if (step.op == Op::kYearOfCentury) {
          at = put_number(at, static_cast<uint64_t>(std::llabs(year % 100)), 2, step.pad);
        } else {
          at = put_two_groups(at, year);
        }
        break;
      }
      case Op::kHour:
      case Op::kHourMidnight24: {
        if (is_missing(hour)) {
          at = put_missing(at);
          break;
        }
        uint64_t shown = magnitude(hour);
        if (step.op == Op::kHourMidnight24 && shown == 0) shown = 24;
        // Above 99 in full.
        at = shown > 99 ? put_number(at, shown, 1, 0) : put_number(at, shown, 2, step.pad);
        break;
      }
      case Op::kClock12:
      case Op::kClock12AsIs: {
        uint64_t shown = magnitude(clock12_of(hour));
        if (step.op == Op::kClock12 && shown == 0) shown = 12;
        at = put_number(at, shown, 2, step.pad);
        break;
      }
      case Op::kMinute:
        at = put_part(at, minute, 2, step.pad);
        break;
      case Op::kSecond:
        at = put_part(at, second, 2, step.pad);
        if (step.detail == 0 || digits == 0) break;
        if (step.piece != kNoPiece) {
          at = put_piece(at, program.pieces[step.piece]);
          pieces += program.pieces[step.piece].measures;
        }
        at = put_fraction(at, second, digits);
        break;
      case Op::kSundayWeek:
        at = put_number(at, magnitude(static_cast<double>(sunday_week(day.date, day.day_of_year))),
                        2, step.pad);
        break;
      case Op::kWeekdayFromMonday:
      case Op::kWeekdayFromSunday: {
        if (!day.present) {
          at = put_missing(at);
          break;
        }
        int64_t digit = day.weekday;
        if (step.op == Op::kWeekdayFromMonday && digit == 0) digit = 7;
        at = put_number(at, static_cast<uint64_t>(std::llabs(digit)), 1, '0');
        break;
      }
      case Op::kMondayWeek:
        at = put_week(at, step, day, 'W');
        break;
      case Op::kIsoWeek:
      case Op::kIsoYear:
      case Op::kIsoYearOfCentury:
        at = put_week(at, step, day, 'V');
        break;
      case Op::kZoneOffset:
        at = put_zone_offset(at, zone);
        break;
    }
    if (step.suffix != kNoPiece) {
      const Piece &piece = program.pieces[step.suffix];
      at = put_piece(at, piece);
      pieces += piece.measures;
    }
  }
  return measured(out, at, pieces);
}

// Two digits of 0..99, for the slots.
constexpr char kDigitPairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

using Pairs = char[static_cast<int>(Source::kCount)][2];

// The pair of 0..99.
void put_pair(Pairs &pairs, Source source, uint32_t value) noexcept {
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

// The two characters of every source the program's slots read, as the
// steps write them.  False when one would take more (an hour past 99).
bool fill_pairs(const CompiledPattern &program, const DayParts &day, double hour, double minute,
                double second, Pairs &pairs) noexcept {
  if (program.reads_date) {
    if (day.present) {
      // 1582..3999 here: two groups of two digits.
      const auto year = static_cast<uint32_t>(day.year);
      put_pair(pairs, Source::kDay, static_cast<uint32_t>(day.day));
      put_pair(pairs, Source::kMonth, static_cast<uint32_t>(day.month));
      put_pair(pairs, Source::kYearHigh, year / 100);
      put_pair(pairs, Source::kYearLow, year % 100);
    } else {
      for (const Source source : {Source::kDay, Source::kMonth, Source::kYearLow}) {
        std::memcpy(pairs[static_cast<int>(source)], kMissingMark.data(), 2);
      }
    }
    if (program.slots_blank) {
      // The blank pad stands for a leading zero only.
      for (const auto &[padded, blank] : {std::pair{Source::kDay, Source::kDayBlank},
                                         std::pair{Source::kMonth, Source::kMonthBlank}}) {
        char *pair = pairs[static_cast<int>(blank)];
        std::memcpy(pair, pairs[static_cast<int>(padded)], 2);
        if (pair[0] == '0') pair[0] = ' ';
      }
    }
  }
  return fill_clock_pairs(program, hour, minute, second, pairs);
}

// The runs: a name, the fixed text copied whole, the numbers dropped into
// their slots.
RenderedText render_runs(const CompiledPattern &program, const DayParts &day, double hour,
                         const Pairs &pairs, char *out) noexcept {
  char *at = out;
  uint64_t pieces = program.layout_measures;
  for (int32_t r = 0; r < program.run_count; ++r) {
    const Run &run = program.runs[r];
    if (run.name != kNoPiece &&
        !put_name(program, program.steps[run.name], day, hour, at, pieces)) {
      return kDeclined;
    }
    put_blocks(at, program.layout + run.start, run.length);
    for (int32_t k = run.first_slot; k < run.end_slot; ++k) {
      const Slot &slot = program.slots[k];
      std::memcpy(at + slot.offset, pairs[static_cast<int>(slot.source)], 2);
    }
    at += run.length;
  }
  return measured(out, at, pieces);
}

// The text by the layout where `runs` allows it and the program and value
// take it, else a step at a time.
[[gnu::always_inline]] inline RenderedText render_with(const CompiledPattern &program, double date,
                                                       double hour, double minute, double second,
                                                       int32_t fraction_digits, char *out,
                                                       const ZoneReading &zone, bool runs) noexcept {
  if (program.unknown_directive) return {RenderOutcome::kUnknownDirective, 0, 0, 0, 0};
  const int32_t digits = std::max(fraction_digits, 0);
  if (program.declines || digits > kRenderCapacity ||
      program.fixed_bound + program.fraction_steps * digits > kRenderCapacity) {
    return kDeclined;
  }
  DayParts day{false, 0, 0, 0, 0, -1, 0};
  if (program.reads_date && !day_parts_of(date, program, day)) return kDeclined;
  // The layout holds every second without its fraction, and every year in
  // four digits, where the steps show a missing date's year as "**".
  if (runs && program.laid_out && (digits == 0 || program.fraction_steps == 0) &&
      (day.present || !program.slots_year)) {
    Pairs pairs;
    if (fill_pairs(program, day, hour, minute, second, pairs)) {
      return render_runs(program, day, hour, pairs, out);
    }
  }
  return render_steps(program, day, hour, minute, second, digits, out, zone);
}

}  // namespace

RenderedText render(const CompiledPattern &program, double date, double hour, double minute,
                    double second, int32_t fraction_digits, char *out,
                    const ZoneReading &zone) noexcept {
  return render_with(program, date, hour, minute, second, fraction_digits, out, zone, true);
}

namespace {

// The clock run's fixed text with the pairs in their slots, exactly its
// bytes: `out` may be the field itself.
void lay_clock_run(const CompiledPattern &program, const Pairs &pairs, char *out) noexcept {
  const Run &run = program.runs[0];
  frame::copy_exactly(out, program.layout + run.start, static_cast<std::size_t>(run.length));
  for (int32_t k = 0; k < program.slot_count; ++k) {
    const Slot &slot = program.slots[k];
    std::memcpy(out + slot.offset, pairs[static_cast<int>(slot.source)], 2);
  }
}

// The clock run's text when it fits `room`, its pairs from `fill`.
template <typename Fill>
[[gnu::always_inline]] inline RenderedText render_clock_run_with(const CompiledPattern &program,
                                                                 char *out, int32_t room,
                                                                 Fill fill) noexcept {
  const RenderedText text = program.clock_measures;
  if (text.length > room || text.length == 0) return text;
  Pairs pairs;
  fill(pairs);
  lay_clock_run(program, pairs, out);
  return text;
}

}  // namespace

RenderedText render_clock_run(const CompiledPattern &program, double hour, double minute,
                              double second, char *out, int32_t room) noexcept {
  // An hour above 99 is shown in full by the steps.
  if (!program.head.clock_run || std::fabs(hour) >= 100) return kDeclined;
  return render_clock_run_with(program, out, room, [&](Pairs &pairs) {
    fill_clock_pairs(program, hour, minute, second, pairs);
  });
}

RenderedText render_clock_run(const CompiledPattern &program, uint32_t seconds_into_day,
                              char *out, int32_t room) noexcept {
  if (!program.head.clock_run) return kDeclined;
  // The pairs fill_clock_pairs makes of present parts below 100.
  return render_clock_run_with(program, out, room, [seconds_into_day](Pairs &pairs) {
    const uint32_t hour = seconds_into_day / 3600;
    put_pair(pairs, Source::kHour, hour);
    put_pair(pairs, Source::kHourMidnight24, hour == 0 ? 24 : hour);
    put_pair(pairs, Source::kMinute, seconds_into_day % 3600 / 60);
    put_pair(pairs, Source::kSecond, seconds_into_day % 60);
  });
}

bool has_layout(const CompiledPattern &program) noexcept { return program.laid_out; }

RenderedText render_stepwise(const CompiledPattern &program, double date, double hour,
                             double minute, double second, int32_t fraction_digits, char *out,
                             const ZoneReading &zone) noexcept {
  return render_with(program, date, hour, minute, second, fraction_digits, out, zone, false);
}

}  // namespace corvinel::nldate

// Compiling a date pattern: the directives read once, their flags, the
// record's names fetched and measured, the era resolved and every fixed
// text encoded, into the steps, pieces and layout of a CompiledPattern
// (compiled_program.h).  Writes only the program it is handed; runs on a
// memo miss (pattern_memo.cpp), never on the path of a call that finds its
// program.  Running it: program_run.cpp and clock_run.cpp.
#include "nldate/compiled_program.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

#include "corvinel/weeks.h"
#include "encoding/transcode_steps.h"
#include "frame/exact_copy.h"
#include "nldate/entry_routines.h"
#include "nldate/week_numbering.h"

namespace corvinel::nldate {
namespace {

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
    p.reads_weekday = p.reads_day_of_year = false;
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

}  // namespace

bool compile_program(CompiledPattern &program, const locitem *record, const char *pattern,
                     int32_t length) noexcept {
  Compiler compiler(program, record);
  return compiler.compile(pattern, length);
}

}  // namespace corvinel::nldate

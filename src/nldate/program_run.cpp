// Running a compiled program: the value's parts derived once, then the
// text written by the layout (runs of fixed text with two-digit slots) or
// a step at a time, and the early verdict of certainly_too_long.  Reads
// the program, writes only the caller's buffer.
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

bool certainly_too_long(const CompiledPattern &program, double date, double hour, double minute,
                        double second, int32_t fraction_digits, int32_t width) noexcept {
  // No text is shorter than the fewest bytes with every part present: a
  // field that holds them settles it at once.
  const int64_t digits = std::max(fraction_digits, 0) * int64_t{program.fraction_steps};
  if (program.least_bytes_present + digits + program.separator_bytes <= width) return false;
  // A character the session lacks may make output expansion refuse the
  // text rather than report it too long.
  if (program.unknown_directive || !program.all_encodable) return false;
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

bool has_layout(const CompiledPattern &program) noexcept { return program.laid_out; }

RenderedText render_stepwise(const CompiledPattern &program, double date, double hour,
                             double minute, double second, int32_t fraction_digits, char *out,
                             const ZoneReading &zone) noexcept {
  return render_with(program, date, hour, minute, second, fraction_digits, out, zone, false);
}

}  // namespace corvinel::nldate

// The clock-run fast path: a program that is one run of fixed text and
// clock numbers (no date, no names, no 12-hour clock) laid straight into
// the field, its measures known at compile time.  Reads the program,
// writes only the caller's buffer.
#include "nldate/compiled_program.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "frame/exact_copy.h"

namespace corvinel::nldate {
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

}  // namespace corvinel::nldate

// Compiled patterns against the interpreting expander: every directive with
// every flag in every locale, as symbolic text; and every pattern item of
// every locale laid into a format's field under four session codesets and
// 16-bit delivery, against expansion of the interpreted text.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include "corvinel/missing.h"
#include "locale/locale_records.h"
#include "nldate/expander_support.h"
#include "nldate/compiled_pattern.h"
#include "nldate/entry_routines.h"
#include "nldate/expansion_steps.h"
#include "nldate/field_attempt.h"
#include "nldate/pattern_expander.h"
#include "support/request_builder.h"
#include "support/session_locales.h"

namespace corvinel::testing {
namespace {

const double kMissing = std_miss_val;

// Every letter the expander knows, each behind the same flags.
std::string every_directive(const std::string &flags) {
  std::string pattern = "<U00E9>|";
  for (const char letter : std::string("aAbBcCdDeEfFgGhHiIjJkKlLmMnNoOpPqQsStTuUvVwWyYzZ%")) {
    pattern += "%" + flags + letter + "|";
  }
  return pattern;
}

struct Clock {
  double hour, minute, second;
};

// Dates where the parts change shape: before 1600 (weekdays below Sunday),
// era boundaries, ISO week edges, the years the integer calendar leaves to
// the host's routines, a fraction of a day, outside the range, missing.
const double kDates[] = {
    day_number(2003, 2, 24), day_number(1582, 1, 1),  day_number(1599, 12, 31),
    day_number(2021, 1, 1),  day_number(1989, 1, 7), day_number(1989, 1, 8),
    day_number(1911, 6, 1),  day_number(3999, 12, 31), day_number(4000, 3, 1),
    6589335,                 day_number(2003, 2, 24) + 0.75, -138062,
    kMissing};
const Clock kClocks[] = {{0, 0, 0},        {12, 30, 5.996}, {13, 7, 9.125},
                         {105, 59, 59.9995}, {23, 59, 0.5},  {kMissing, kMissing, kMissing},
                         {99.5, 9, 9}};

TEST(CompiledPattern, SymbolicTextIsTheInterpretersText) {
  std::vector<std::string> patterns;
  for (const char *flags : {"", "#", "0", "5", "+", "?", "#?", "#5+?"}) {
    patterns.push_back(every_directive(flags));
  }
  // Substitution, trailing blanks, escapes cut by the end, unknown directives.
  for (const char *pattern : {"%x %X", "%Ec %x%X   ", "<U5E74", "%d <U", "", "   ", "%R", "%d%",
                              "%#x", "%xx", "%k%+y%y %z"}) {
    patterns.emplace_back(pattern);
  }
  // A null pattern is the empty one, as often as it is asked for (found by
  // the differential fuzzer: the memo compared zero bytes from a null pointer).
  for (int round = 0; round < 2; ++round) {
    int32_t width = 10;
    char field[10];
    EXPECT_EQ(nldate::expand_in_record(ORBlocaleData[0], nullptr, 0, field, &width, 0, 0, 0, 0, 0), 0);
    EXPECT_EQ(width, 0);
  }
  char compiled[400], interpreted[400];
  for (int32_t locale = 0; locale <= CORVINEL_LOCALE_RECORDS + 1; ++locale) {
    const locitem *record = locale::select_record(locale);
    for (const std::string &pattern : patterns) {
      const auto length = static_cast<int32_t>(pattern.size());
      for (std::size_t d = 0; d < std::size(kDates); ++d) {
        const Clock &clock = kClocks[d % std::size(kClocks)];
        for (const int32_t digits : {0, 3}) {
          for (const int32_t width : {400, 11, -40, 0}) {
            std::memset(compiled, '~', sizeof compiled);
            std::memset(interpreted, '~', sizeof interpreted);
            int32_t compiled_width = width, interpreted_width = width;
            const bool length_only = width == 0;
            const int32_t a = nldate::expand_in_record(
                record, pattern.data(), length, length_only ? nullptr : compiled, &compiled_width,
                digits, kDates[d], clock.hour, clock.minute, clock.second);
            const int32_t b = nldate::expand_interpreted(
                record, pattern.data(), length, length_only ? nullptr : interpreted,
                &interpreted_width, digits, kDates[d], clock.hour, clock.minute, clock.second);
            const auto where = [&] {
              return "locale " + std::to_string(locale) + " pattern " + pattern + " date " +
                     std::to_string(kDates[d]) + " width " + std::to_string(width);
            };
            ASSERT_EQ(a, b) << where();
            ASSERT_EQ(compiled_width, interpreted_width) << where();
            ASSERT_EQ(std::string(compiled, sizeof compiled),
                      std::string(interpreted, sizeof interpreted))
                << where();
          }
        }
      }
    }
  }
}

// Patterns of fixed texts, names and two-character numbers, which render
// lays out in runs, beside every pattern item: the runs write the bytes and
// measures of the step-by-step walk in every encoding, for parts present,
// missing, past 99 hours or with fraction digits.  A clock run written
// straight into a field of just its length has render's bytes and measures
// and writes nothing past them; with a byte less it writes nothing at all.
bool expect_clock_run_is_render(const nldate::CompiledPattern &program, const Clock &clock,
                                const nldate::RenderedText &rendered, const char *text) {
  char field[nldate::kRenderBufferSize + 1];
  std::memset(field, '~', sizeof field);
  const nldate::RenderedText direct = nldate::render_clock_run(
      program, clock.hour, clock.minute, clock.second, field, rendered.length);
  if (direct.outcome != nldate::RenderOutcome::kRendered) return false;
  EXPECT_EQ(direct.length, rendered.length);
  EXPECT_EQ(direct.symbolic, rendered.symbolic);
  EXPECT_EQ(direct.units, rendered.units);
  EXPECT_EQ(direct.utf8, rendered.utf8);
  const auto length = static_cast<std::size_t>(rendered.length);
  EXPECT_EQ(std::string(field, length), std::string(text, length));
  EXPECT_EQ(std::string(field + length, 4), "~~~~");
  // A time of day in whole seconds, given as such, lays the same text.
  if (!std::isnan(clock.hour) && !std::isnan(clock.minute) && !std::isnan(clock.second) &&
      clock.hour < 24) {
    const auto seconds = static_cast<uint32_t>(std::trunc(clock.hour) * 3600 +
                                               std::trunc(clock.minute) * 60 +
                                               std::trunc(clock.second));
    std::memset(field, '~', sizeof field);
    const nldate::RenderedText whole =
        nldate::render_clock_run(program, seconds, field, rendered.length);
    EXPECT_EQ(whole.length, rendered.length);
    EXPECT_EQ(std::string(field, length), std::string(text, length));
    EXPECT_EQ(std::string(field + length, 4), "~~~~");
  }
  if (rendered.length > 0) {
    std::memset(field, '~', sizeof field);
    const nldate::RenderedText narrow = nldate::render_clock_run(
        program, clock.hour, clock.minute, clock.second, field, rendered.length - 1);
    EXPECT_EQ(narrow.length, rendered.length);
    EXPECT_EQ(std::string(field, length + 1), std::string(length + 1, '~'));
  }
  return true;
}

TEST(CompiledPattern, LayoutIsTheStepByStepWalk) {
  std::vector<std::string> patterns = {
      "%d.%m.%Y %H:%M:%S", "%e/%o/%y %I:%M:%s %p", "%A, %B %d, %Y", "%a %b %e %K:%M|",
      "%q %Y", "%l%L %i%I %k%K %h%H", "<U00E9>%B|%S", "%T", "%d%b%Y:%H:%M:%S",
      "%Y<U5E74>%m<U6708>%d<U65E5>", "%+Y %+y %p", "%#d %#B %H"};
  for (int32_t item = 28; item <= 53; ++item) patterns.push_back("%x" + std::to_string(item));
  int32_t laid_out = 0, clock_runs = 0;
  char steps[nldate::kRenderBufferSize], runs[nldate::kRenderBufferSize];
  for (int32_t locale = 0; locale <= CORVINEL_LOCALE_RECORDS + 1; ++locale) {
    const locitem *record = locale::select_record(locale);
    for (std::string pattern : patterns) {
      // "%xNN" stands for item NN's own text.
      if (pattern.rfind("%x", 0) == 0 && pattern.size() > 2) {
        const int32_t item = std::stoi(pattern.substr(2));
        const locitem *entry = record != nullptr ? &record[item] : nullptr;
        pattern = entry != nullptr && entry->text != nullptr
                      ? std::string(entry->text, static_cast<size_t>(std::max(entry->length, 0)))
                      : std::string();
      }
      for (const auto encoding : {nldate::PieceEncoding::kSymbolic, nldate::PieceEncoding::kUtf8,
                                  nldate::PieceEncoding::kLatin1, nldate::PieceEncoding::kAscii}) {
        const nldate::CompiledPattern *program = nldate::compiled_pattern(
            record, pattern.data(), static_cast<int32_t>(pattern.size()), encoding);
        if (program == nullptr) continue;
        if (nldate::has_layout(*program)) ++laid_out;
        for (const double date : kDates) {
          for (const Clock &clock : kClocks) {
            for (const int32_t digits : {0, 3}) {
              const nldate::RenderedText a = nldate::render_stepwise(
                  *program, date, clock.hour, clock.minute, clock.second, digits, steps);
              const nldate::RenderedText b = nldate::render(
                  *program, date, clock.hour, clock.minute, clock.second, digits, runs);
              const auto where = [&] {
                return "locale " + std::to_string(locale) + " pattern " + pattern + " encoding " +
                       std::to_string(static_cast<int>(encoding)) + " date " +
                       std::to_string(date) + " hour " + std::to_string(clock.hour);
              };
              ASSERT_EQ(a.outcome, b.outcome) << where();
              ASSERT_EQ(a.length, b.length) << where();
              ASSERT_EQ(a.symbolic, b.symbolic) << where();
              ASSERT_EQ(a.units, b.units) << where();
              ASSERT_EQ(a.utf8, b.utf8) << where();
              ASSERT_EQ(std::string(steps, static_cast<size_t>(a.length)),
                        std::string(runs, static_cast<size_t>(b.length)))
                  << where();
              if (digits == 0) {
                const bool taken = expect_clock_run_is_render(*program, clock, b, runs);
                if (::testing::Test::HasFatalFailure()) FAIL() << where();
                clock_runs += taken ? 1 : 0;
              }
            }
          }
        }
      }
    }
  }
  // Most programs of most locales take the layout; the time items of most
  // locales are clock runs.
  EXPECT_GT(laid_out, 5000);
  EXPECT_GT(clock_runs, 2000);
}

struct Kind {
  nldate::ValueKind kind;
  std::vector<int32_t> selectors;
  std::vector<double> values;
};

// The pattern items the formats expand, with the zone suffix where a format
// asks for it, for values of each kind.
std::vector<Kind> kinds() {
  const double day = day_number(2003, 2, 24);
  std::vector<int32_t> date_items;
  for (int32_t item = 28; item <= 43; ++item) date_items.push_back(item);
  return {
      {nldate::ValueKind::Date, date_items, {day, day_number(1599, 6, 1), day_number(12345, 9, 30)}},
      {nldate::ValueKind::Datetime,
       {44, 46, 47, 48, 49, 50, 51, 53, 46 + 256, 50 + 256 + 4096, 53 + 256, 31, 36},
       {day * 86400 + 45296.1256, day * 86400 + 86399.9996, -11928470400.0}},
      {nldate::ValueKind::Time, {52, 53, 53 + 256}, {45296.125, 0.0, 200000.5}},
  };
}

struct Attempt {
  int32_t result;
  bool placed;
  int32_t outlen;
  int64_t xcode_state;
  std::string bytes;  // the whole buffer with its guards
  bool guards_intact;
};

// A prepared entry's attempt in the request's field, compiled or interpreted.
int32_t attempt_either(bool compiled, Request &request, const nldate::EntryExpansion &entry,
                       bool &placed) {
  return compiled ? nldate::attempt_in_field(*request, entry,
                                             nldate::read_attempt_session(*request), placed)
                  : nldate::attempt_in_field_interpreted(*request, entry, placed);
}

Attempt attempt(bool compiled, nldate::ValueKind kind, const locitem *record, int32_t selector,
                int32_t digits, double value, int32_t width, int32_t capacity, int32_t encoding) {
  Request request(width, digits, value, capacity);
  request.set_output_encoding(encoding);
  nldate::EntryExpansion entry;
  Attempt a{};
  a.result = entry.prepare(kind, record, nullptr, selector, digits, value);
  if (a.result == 0) {
    a.result = attempt_either(compiled, request, entry, a.placed);
  }
  a.outlen = request->outlen;
  a.xcode_state = request->xcode_state;
  a.bytes.assign(request->output, static_cast<std::size_t>(capacity) + Request::kGuard);
  a.guards_intact = request.guards_intact();
  return a;
}

// The widths where a text's fate changes: one byte short, exact, one byte
// over, the narrowest field and the work area's.
std::vector<int32_t> telling_widths(int32_t length) {
  std::vector<int32_t> widths{1, 320};
  for (const int32_t w : {length - 1, length, length + 1}) {
    if (w > 1 && w < 320) widths.push_back(w);
  }
  return widths;
}

// One pattern item of one record for one value: at each telling width,
// with either delivery, both paths leave the same.
void expect_same_attempts(const char *session_name, int32_t locale, nldate::ValueKind kind,
                          int32_t selector, double value, int32_t digits) {
  const locitem *record = locale::select_record(locale);
  // The length of the text where it fits, to find the telling widths.
  const Attempt wide =
      attempt(false, kind, record, selector, digits, value, 320, 320, 0);
  for (const int32_t width : telling_widths(wide.placed ? wide.outlen : 40)) {
    for (const int32_t encoding : {0, CORVINEL_ENC_UTF16LE}) {
      const int32_t capacity = encoding == 0 ? width : 2 * width + 7;
      const Attempt a =
          attempt(true, kind, record, selector, digits, value, width, capacity, encoding);
      const Attempt b =
          attempt(false, kind, record, selector, digits, value, width, capacity, encoding);
      const std::string where = std::string(session_name) + " locale " + std::to_string(locale) +
                                " digits " + std::to_string(digits) + " selector " +
                                std::to_string(selector) + " value " + std::to_string(value) +
                                " width " + std::to_string(width);
      ASSERT_EQ(a.result, b.result) << where;
      ASSERT_EQ(a.placed, b.placed) << where;
      ASSERT_EQ(a.outlen, b.outlen) << where;
      ASSERT_EQ(a.xcode_state, b.xcode_state) << where;
      ASSERT_EQ(a.bytes, b.bytes) << where;
      ASSERT_TRUE(a.guards_intact) << where;
    }
  }
}

TEST(FieldAttempt, LaysWhatOutputExpansionOfTheInterpretedTextGives) {
  const SavedZone saved;
  setenv("TZ", "UTC0", 1);  // "%z" stays the same between the two paths
  tzset();
  for (const char *session_name : {kUtf8Locale, kLatin1Locale, kAsciiLocale, kEucJpLocale}) {
    ScopedSessionLocale session(session_name);
    ASSERT_TRUE(session.active()) << session_name;
    for (int32_t locale = 1; locale <= CORVINEL_LOCALE_RECORDS; ++locale) {
      for (const Kind &kind : kinds()) {
        for (const int32_t selector : kind.selectors) {
          for (const double value : kind.values) {
            // Fraction digits, with their separator, or none.
            for (const int32_t digits : {0, 3}) {
              expect_same_attempts(session_name, locale, kind.kind, selector, value, digits);
              if (HasFatalFailure()) return;
            }
          }
        }
      }
    }
  }
}

// A record whose names end inside an escape that the pattern closes: the
// pieces cannot be encoded one by one, and the text is what expansion makes
// of the whole.
TEST(FieldAttempt, EscapeSplitAcrossPiecesIsLeftToExpansion) {
  std::vector<locitem> record(ORBlocaleData[0], ORBlocaleData[0] + CORVINEL_LOCALE_ITEMS);
  for (int32_t month = 0; month < 12; ++month) record[71 + month] = {7, "Feb<U00"};
  const std::string pattern = "%BE9>|%d";
  const double day = day_number(2003, 2, 24);
  for (const char *session_name : {kUtf8Locale, kLatin1Locale}) {
    ScopedSessionLocale session(session_name);
    ASSERT_TRUE(session.active()) << session_name;
    for (const int32_t width : {3, 4, 8, 30}) {
      std::string laid[2];
      for (const bool compiled : {true, false}) {
        Request request(width, 0, day);
        nldate::EntryExpansion entry;
        ASSERT_EQ(entry.prepare(nldate::ValueKind::Date, record.data(), pattern.data(),
                                static_cast<int32_t>(pattern.size()), 0, day),
                  0);
        bool placed = false;
        attempt_either(compiled, request, entry, placed);
        laid[compiled ? 1 : 0] = request.text();
      }
      EXPECT_EQ(laid[1], laid[0]) << session_name << " " << width;
    }
    if (std::string(session_name) == kUtf8Locale) {
      Request request(30, 0, day);
      nldate::EntryExpansion entry;
      entry.prepare(nldate::ValueKind::Date, record.data(), pattern.data(),
                    static_cast<int32_t>(pattern.size()), 0, day);
      bool placed = false;
      nldate::attempt_in_field(*request, entry, nldate::read_attempt_session(*request), placed);
      EXPECT_EQ(request.text(), "Feb\xC3\xA9|24");
    }
  }
}

// A text too wide for the field holding bytes the C locale's ASCII lacks
// and NULs: output expansion refuses it (4) rather than report it too long,
// so the width alone must not decide (the differential fuzzer's input).
TEST(FieldAttempt, BytesTheSessionLacksAreLeftToExpansion) {
  ScopedSessionLocale session(kAsciiLocale);
  ASSERT_TRUE(session.active());
  static const char kPattern[] =
      "A\x03::<:ja_JP<U5E774>U 0Aded74>U 0Aded%%F\xAC \x00%#e\x02 \x0A%%%F\xAC `\x00" "B%%\x00"
      "%k-1\x00'\xC0\xFE'\xC8\x98%%\x8B%%%%%%%5F\x03::<"
      "ggggggggggggggg<Ugggggggg";
  // 59 shift-out bytes stand between the last "<" and the g's.
  std::string pattern(kPattern, sizeof kPattern - 1);
  pattern.insert(pattern.size() - 25, 59, '\x0E');
  const int32_t be_by = record_number("be", "BY");
  ASSERT_GT(be_by, 0);
  const double value = 527058823529.41174;
  for (const int32_t width : {1, 33}) {
    Attempt a{}, b{};
    for (const bool compiled : {true, false}) {
      Request request(width, 1, value);
      nldate::EntryExpansion entry;
      ASSERT_EQ(entry.prepare(nldate::ValueKind::Datetime, locale::select_record(be_by),
                              pattern.data(), static_cast<int32_t>(pattern.size()), 1, value),
                0);
      Attempt &out = compiled ? a : b;
      out.result = attempt_either(compiled, request, entry, out.placed);
      out.bytes = request.field();
    }
    EXPECT_EQ(a.result, b.result) << width;
    EXPECT_EQ(a.placed, b.placed) << width;
    EXPECT_EQ(a.bytes, b.bytes) << width;
  }
}

// An empty item without a text, asked for with the zone suffix: the pattern
// is the suffix " %z" alone, its leading blank kept (found by the
// differential fuzzer, where the copy of the missing text was undefined).
TEST(FieldAttempt, EmptyItemWithZoneSuffixIsTheOffsetAlone) {
  const SavedZone saved;
  setenv("TZ", "EST5", 1);
  std::vector<locitem> record(ORBlocaleData[0], ORBlocaleData[0] + CORVINEL_LOCALE_ITEMS);
  record[46] = {0, nullptr};
  ScopedSessionLocale session(kUtf8Locale);
  ASSERT_TRUE(session.active());
  for (const bool compiled : {true, false}) {
    Request request(20, 0, 1.0e9);
    nldate::EntryExpansion entry;
    ASSERT_EQ(entry.prepare(nldate::ValueKind::Datetime, record.data(), nullptr,
                            46 + nldate::kAppendZoneOffset, 0, 1.0e9),
              0);
    bool placed = false;
    attempt_either(compiled, request, entry, placed);
    EXPECT_TRUE(placed);
    EXPECT_EQ(request.text(), " -0500") << compiled;
  }
}

// The zone offset remembered per thread is the one worked out afresh, under
// zones set and changed between calls, unset, and longer than the memo keeps.
TEST(ZoneOffset, RememberedOffsetFollowsTz) {
  const SavedZone saved;
  const std::string long_zone = "<" + std::string(80, 'A') + ">-3";
  for (const char *zone : {"UTC0", "EST5", "EST5EDT,M3.2.0,M11.1.0", "IST-5:30", "NST3:30", "",
                           static_cast<const char *>(nullptr), long_zone.c_str(), "EST5"}) {
    if (zone != nullptr) {
      setenv("TZ", zone, 1);
    } else {
      unsetenv("TZ");
    }
    for (int i = 0; i < 3; ++i) {
      char remembered[nldate::kZoneOffsetLength], passed[nldate::kZoneOffsetLength],
          afresh[nldate::kZoneOffsetLength];
      nldate::write_zone_offset(remembered);
      nldate::write_zone_offset(passed, {true, std::getenv("TZ")});
      nldate::write_zone_offset_uncached(afresh);
      const std::string expected(afresh, sizeof afresh);
      ASSERT_EQ(std::string(remembered, sizeof remembered), expected) << (zone != nullptr ? zone : "(unset)");
      ASSERT_EQ(std::string(passed, sizeof passed), expected) << (zone != nullptr ? zone : "(unset)");
    }
  }
}

}  // namespace
}  // namespace corvinel::testing

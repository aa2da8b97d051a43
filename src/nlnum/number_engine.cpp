#include "nlnum/number_engine.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "corvinel/locale_db.h"
#include "corvinel/missing.h"
#include "frame/format_frame.h"
#include "frame/thread_memo.h"
#include "locale/locale_records.h"
#include "locale/pattern_convention.h"
#include "nlnum/currency_layouts.h"
#include "nlnum/digit_texts.h"
#include "nlnum/field_placement.h"
#include "nlnum/number_assembly.h"
#include "nlnum/one_pass_layout.h"
#include "nlnum/one_pass_placement.h"

namespace corvinel::nlnum {
namespace {

// What the attempts have learnt so far.  The fixed texts come first, with
// fewer and fewer decimals; only when even the integer part does not fit
// do the exponent texts follow, from the first decimals again: plain digits
// keep more of the value than an exponent text of the same width.
struct FittingState {
  int decimals;
  const int requested_decimals = decimals;
  bool exponent = false;          // the fixed texts are done: exponent texts only
  bool grouping_allowed = true;
  bool grouped = false;           // some attempt wrote a group separator
  bool leading_zero = false;      // some text with decimals began "0."
  bool two_byte_decimal = false;  // some exponent text got a two-byte decimal mark
  int shrink = 0;                 // narrows the field of the exponent text

  // The next attempt after one whose text was `result_length` bytes for a
  // field of `width`; false when there is none (overflow).
  bool adjust(int result_length, int width) {
    if (grouping_allowed && grouped) {
      grouping_allowed = false;
      return true;
    }
    if (!exponent) {
      if (decimals > 0) {
        // A fixed text with d decimals has at least d + 2 bytes ("0." and
        // the digits): wider ones are passed over.
        decimals = std::min(decimals - 1, std::max(width - 2, 0));
      } else {
        exponent = true;
        decimals = requested_decimals;
      }
      return true;
    }
    if (decimals > 0) {
      if (!leading_zero || shrink > 0) {
        --decimals;
      } else {
        shrink = 1;
      }
      return true;
    }
    if (shrink == 0) {
      shrink = result_length - width;
      if (two_byte_decimal && shrink > 1) --shrink;
      return shrink > 0 && shrink < width;
    }
    if (width - shrink < 2) return false;
    ++shrink;
    return true;
  }
};

int32_t render_missing(fmtreq &request) {
  const int32_t decimals = request.decimals;
  request.decimals = 0;
  zfmmiss(&request);
  request.decimals = decimals;
  return CORVINEL_OK;
}

// The two ways of running the engine: the reference asks wzssglc for the
// convention, snprintf for the digits and getExpResultFromNarrowCharBuf for
// every expansion, as the engine was first written; the fast one takes the
// convention compiled for the record and session codeset (read in place
// from the record, the values wzssglc copies), generates the digits itself,
// tries the first attempt in one pass and expands simple texts itself.
struct ReferenceSources {
  using Texts = PrintfNumberTexts;
  static constexpr bool kOnePass = false;
  static encoding::SessionCodeset session_codeset() { return encoding::SessionCodeset::kOther; }
  // The convention, or null when it cannot be fetched; `storage` and
  // `convention` hold it for the call.
  static const locale::PatternConvention *fetch(int32_t locale, int32_t item,
                                                encoding::SessionCodeset /*codeset*/, patsyms &storage,
                                                locale::PatternConvention &convention,
                                                const OnePassLayout *&one_pass) {
    one_pass = nullptr;
    locbuf buffer{};
    buffer.symbols = &storage;
    locbuf *handle = &buffer;
    if (wzssglc(locale, item, &handle) != 0) return nullptr;
    convention.symbol = storage.symbol;
    convention.decimal = storage.decimal;
    convention.separator = storage.separator;
    convention.grouping = storage.grouping;
    convention.positive = storage.positive;
    convention.negative = storage.negative;
    convention.p_cs_precedes = storage.p_cs_precedes;
    convention.p_sep_by_space = storage.p_sep_by_space;
    convention.p_sign_posn = storage.p_sign_posn;
    convention.n_cs_precedes = storage.n_cs_precedes;
    convention.n_sep_by_space = storage.n_sep_by_space;
    convention.n_sign_posn = storage.n_sign_posn;
    return &convention;
  }
};

// A pattern item's convention and its one pass, for one record and session
// codeset: both follow from those two alone.
struct CompiledConvention {
  bool filled = false;
  const locitem *record = nullptr;
  encoding::SessionCodeset codeset = encoding::SessionCodeset::kOther;
  locale::PatternConvention convention;
  OnePassLayout one_pass;
};

const char *layout_of(const locale::PatternConvention &c, bool negative) {
  return negative ? layout_for(c.n_cs_precedes, c.n_sep_by_space, c.n_sign_posn)
                  : layout_for(c.p_cs_precedes, c.p_sep_by_space, c.p_sign_posn);
}

// The six pattern items each keep the last convention this thread used: a
// format called over and over in one locale and session compiles it once.
// The record and the codeset are still chosen on every call; a different
// one recompiles.
const CompiledConvention &compiled_convention(const locitem *record, int32_t item,
                                              encoding::SessionCodeset codeset) {
  thread_local CompiledConvention memo[6];
  CompiledConvention &entry = frame::pinned(memo)[item <= 171 ? item - 170 : item - 183 + 2];
  if (!entry.filled || entry.record != record || entry.codeset != codeset) {
    const locale::PatternConvention c = locale::read_pattern_convention(record, item);
    entry.convention = c;
    entry.one_pass = compile_one_pass({c.symbol, c.positive, c.negative, c.decimal, c.separator,
                                       c.grouping, layout_of(c, false), layout_of(c, true),
                                       c.n_sign_posn == 0},
                                      codeset);
    entry.record = record;
    entry.codeset = codeset;
    entry.filled = true;
  }
  return entry;
}

struct FastSources {
  using Texts = FastNumberTexts;
  static constexpr bool kOnePass = true;
  static encoding::SessionCodeset session_codeset() { return encoding::read_session_codeset(); }
  static const locale::PatternConvention *fetch(int32_t locale, int32_t item,
                                                encoding::SessionCodeset codeset, patsyms & /*storage*/,
                                                locale::PatternConvention & /*convention*/,
                                                const OnePassLayout *&one_pass) {
    const CompiledConvention &compiled =
        compiled_convention(locale::select_record(locale), item, codeset);
    one_pass = compiled.one_pass.usable ? &compiled.one_pass : nullptr;
    return compiled.convention.complete ? &compiled.convention : nullptr;
  }
};

// What general_attempt reports besides the length of a text too wide, and
// what the one pass of an exponent text reports when it leaves the attempt
// to general_attempt.
constexpr int kPlacedAttempt = -1;
constexpr int kFailedAttempt = -2;
constexpr int kDeclinedAttempt = -3;

// general_attempt for a "%G" text in exponent form, laid out by the one pass:
// the same result and the same state learnt, or kDeclinedAttempt when the
// text is not one the one pass takes.  An exponent text is never grouped,
// so the attempt learns at most that the decimal mark of an exponent text
// was two bytes.  Out of line, like general_attempt.
int exponent_attempt(const FastNumberTexts &texts, const OnePassLayout &layout, double value,
                     FittingState &state, fmtreq &request, char *output, int w) {
  const char point = texts.decimal_point();
  SignificantDigits number;
  if ((point != '.' && point != ',') || !texts.significant(value, state.decimals, number) ||
      !number.exponent_form) {
    return kDeclinedAttempt;
  }
  if (number.exponent_text_length() > w) return w + 1;  // the digit text alone is too wide
  const OnePassAttempt attempt = place_exponent_one_pass(layout, number, request, output, w);
  switch (attempt.outcome) {
    case OnePass::kPlaced: return kPlacedAttempt;
    case OnePass::kDeclined: return kDeclinedAttempt;
    case OnePass::kTooWide: break;
  }
  // assemble_number takes a text as an exponent text only by its ".".
  if (number.count > 1 && point == '.' && layout.decimal.symbolic == 2) {
    state.two_byte_decimal = true;
  }
  return attempt.symbolic_length;
}

// One attempt that writes the digit text, assembles and composes it and
// hands it to output expansion: kPlacedAttempt when the text stands in the
// field, kFailedAttempt when the field must show overflow, else the length
// the adjustment narrows the exponent field by.  Out of line: most calls
// are settled by the one pass and need none of its buffers.
template <typename Texts>
[[gnu::noinline]] int general_attempt(const Texts &texts,
                                      const locale::PatternConvention &convention,
                                      encoding::SessionCodeset codeset, bool fixed_too_wide, double value,
                                      FittingState &state, fmtreq &request, char *output, int w) {
  char digits[kDigitTextCapacity];
  // The fixed text is not written for nothing: once the exponent texts have
  // begun only they count, and a fixed text whose scaled form is already
  // known to be too wide does not fit.
  int n = fixed_too_wide ? w + 1 : texts.fixed(value, state.decimals, digits);
  if (n > w) {
    if (!state.exponent) return w + 1;
    n = texts.general(value, w - state.shrink, state.decimals, digits);
  }
  if (n <= 0) return kFailedAttempt;
  if (state.decimals > 0 && digits[0] == '0' && digits[1] == '.') state.leading_zero = true;

  // The length the adjustment narrows the exponent field by: w + 1 for a
  // digit text wider than the field, the number's own length past 256
  // bytes, else the composed text's length in the symbolic notation (so a
  // symbol such as "<U20AC>" counts its seven bytes: the expanded length
  // is not known once expansion has cut the text).
  int result_length = w + 1;
  if (n <= w && std::strchr(digits, '*') == nullptr) {
    const NumberMarks marks{convention.decimal, convention.separator, convention.grouping};
    AssembledNumber number;
    assemble_number(digits, state.decimals, marks, state.grouping_allowed,
                    texts.mon_decimal_point(), number);
    state.grouped = state.grouped || number.grouped;
    state.two_byte_decimal = state.two_byte_decimal || number.two_byte_decimal;
    result_length = number.length;
    if (number.length <= kMaxAssembledNumber) {
      const bool negative = value < 0;
      const std::string_view sign = negative ? convention.negative : convention.positive;
      const bool bracket_blank = value > 0 && convention.n_sign_posn == 0;
      char composed[kComposedCapacity];
      result_length = compose_layout(layout_of(convention, negative), convention.symbol, sign,
                                     negative, number.view(), bracket_blank, composed);
      switch (place_right_aligned(request, codeset, output, w, composed, result_length,
                                  request.capacity)) {
        case Placement::kPlaced: return kPlacedAttempt;
        case Placement::kFailed: return kFailedAttempt;
        case Placement::kTooWide: break;
      }
    }
  }
  return result_length;
}

// The decimals of the first attempt: the request's, within 0 ..
// kMaxPrecision, none where the convention has no decimal mark.
int first_decimals(const locale::PatternConvention &convention, const fmtreq &request) {
  return convention.decimal.empty() ? 0 : std::clamp(request.decimals, 0, kMaxPrecision);
}

// What the caller learnt making the first attempt in one pass: the fixed
// text as a number for `decimals` (when `taken`), and the attempt's outcome
// when it was made.
struct FirstOnePass {
  ScaledDecimal scaled;
  int decimals = -1;
  bool taken = false;
  std::optional<OnePassAttempt> attempt;
  // Even the integer part does not fit: the exponent texts start at once.
  bool integer_too_wide = false;
};

// Whether the integer digits of `number`, a value of 1 or more, with what
// stands around them in the layout, are wider than the field, so that no
// fixed text fits.  Rounding to fewer decimals never takes a digit away.
// Such fixed texts teach the attempts nothing the exponent texts use: they
// do not begin "0.", and an exponent text is never grouped.
bool integer_part_too_wide(const OnePassLayout &layout, const ScaledDecimal &number, double value,
                           int32_t w) {
  if (!layout.within_limits || number.zero_integer) return false;
  const int integer = number.digit_count - number.precision;
  const int sign_class = value < 0 ? one_pass::kNegative : one_pass::kPositive;
  return integer + layout.around_length[sign_class] > w;
}

// The attempts from the first: each learns why the one before did not fit
// and the next is narrower, until a text stands in the field or the field
// shows overflow.  Every way out writes the whole field.  What `first`
// holds is not worked out again.
template <typename Sources>
[[gnu::noinline]] int32_t fit_by_attempts(const typename Sources::Texts &texts,
                                          const locale::PatternConvention &convention,
                                          encoding::SessionCodeset codeset, const OnePassLayout *one_pass,
                                          FirstOnePass first, double value, fmtreq &request,
                                          char *output, const int32_t w) {
  FittingState state{first_decimals(convention, request)};
  if (first.integer_too_wide) {
    state.exponent = true;
    state.grouping_allowed = false;
  }
  // The fixed text as a number is kept while the decimals stay (an attempt
  // without group separators takes the same one).
  ScaledDecimal &scaled = first.scaled;
  int &scaled_decimals = first.decimals;
  bool &scaled_taken = first.taken;
  for (;;) {
    if constexpr (Sources::kOnePass) {
      // The fixed text as a number, laid out without being written first.
      if (one_pass != nullptr && !state.exponent && scaled_decimals != state.decimals) {
        scaled_decimals = state.decimals;
        scaled_taken = texts.scaled(value, state.decimals, scaled);
      }
      if (one_pass != nullptr && !state.exponent && scaled_taken && scaled.text_length() <= w) {
        if (scaled.starts_zero_point(texts.decimal_point())) state.leading_zero = true;
        const OnePassAttempt attempt =
            first.attempt ? *first.attempt
                          : place_one_pass(*one_pass, scaled, state.grouping_allowed, value,
                                           request, output, w);
        first.attempt.reset();
        if (attempt.outcome == OnePass::kPlaced) [[likely]] return CORVINEL_OK;
        if (attempt.outcome == OnePass::kTooWide) {
          state.grouped = state.grouped || attempt.grouped;
          if (!state.adjust(attempt.symbolic_length, w)) return fill_overflow(request, output, w);
          // The next attempt, the same text without group separators, is
          // known to be too wide too: it would learn nothing but its length.
          if (attempt.ungrouped_symbolic_length > 0 &&
              !state.adjust(attempt.ungrouped_symbolic_length, w)) {
            return fill_overflow(request, output, w);
          }
          continue;
        }
      }
    }
    const bool fixed_too_wide =
        state.exponent ||
        (scaled_taken && scaled_decimals == state.decimals && scaled.text_length() > w);
    int result_length = kDeclinedAttempt;
    if constexpr (Sources::kOnePass) {
      // Only the exponent text counts: laid out in one pass where it can be.
      if (one_pass != nullptr && state.exponent) [[unlikely]] {
        result_length = exponent_attempt(texts, *one_pass, value, state, request, output, w);
      }
    }
    if (result_length == kDeclinedAttempt) {
      result_length = general_attempt(texts, convention, codeset, fixed_too_wide, value, state,
                                      request, output, w);
    }
    if (result_length == kPlacedAttempt) return CORVINEL_OK;
    if (result_length == kFailedAttempt) return fill_overflow(request, output, w);
    if (!state.adjust(result_length, w)) return fill_overflow(request, output, w);
  }
}

// The engine for a pattern item and the value to render (the request's
// value is not read).
template <typename Sources>
int32_t run_engine_on(char *output, int32_t width, int32_t item, fmtreq &request,
                      const double value) {
  const encoding::SessionCodeset codeset = Sources::session_codeset();
  patsyms storage;
  locale::PatternConvention fetched;
  const OnePassLayout *one_pass;
  const locale::PatternConvention *const found =
      Sources::fetch(request.locale, item, codeset, storage, fetched, one_pass);
  if (found == nullptr) return kNoConvention;
  const locale::PatternConvention &convention = *found;

  const int32_t w = width;
  if (w <= 0) return CORVINEL_OK;
  if (w > kWidestNumberField) {
    request.width = kWidestNumberField;
    std::memset(output, '*', kWidestNumberField);
    request.outlen = kWidestNumberField;
    return CORVINEL_OK;
  }
  request.outlen = w;
  if (frame::is_missing(value)) return render_missing(request);

  const typename Sources::Texts texts;
  // The one pass lays fixed texts out as numbers only where the general
  // attempt splits them at their decimal point.
  if (!delivers_session_bytes(request)) one_pass = nullptr;
  if constexpr (Sources::kOnePass) {
    if (!texts.splits_at_decimal_point()) one_pass = nullptr;
    // The first attempt, the fixed text grouped, settles most calls: made
    // here, with nothing else live, it needs no state.  When it does not
    // settle the call it has written nothing, and the attempts go on from
    // what it found.
    if (one_pass != nullptr) {
      const int decimals = first_decimals(convention, request);
      ScaledDecimal scaled;
      const bool taken = texts.scaled(value, decimals, scaled);
      std::optional<OnePassAttempt> attempt;
      bool integer_too_wide = false;
      if (taken && scaled.text_length() <= w) {
        attempt = place_one_pass(*one_pass, scaled, true, value, request, output, w);
        if (attempt->outcome == OnePass::kPlaced) return CORVINEL_OK;
      } else if (taken) {
        integer_too_wide = integer_part_too_wide(*one_pass, scaled, value, w);
      }
      return fit_by_attempts<Sources>(texts, convention, codeset, one_pass,
                                      {scaled, decimals, taken, attempt, integer_too_wide}, value,
                                      request, output, w);
    }
  }
  return fit_by_attempts<Sources>(texts, convention, codeset, one_pass, {}, value, request, output,
                                  w);
}

template <typename Sources>
int32_t run_engine(char *output, int32_t width, int32_t mode, int32_t item, fmtreq &request) {
  if (mode != 0 || !locale::is_pattern_item(item)) return kNoConvention;
  const double value = request.value != nullptr ? *request.value : std_miss_val;
  return run_engine_on<Sources>(output, width, item, request, value);
}

}  // namespace

int32_t zkfnum(char *output, int32_t width, int32_t mode, int32_t item, fmtreq *request) {
  return run_engine<FastSources>(output, width, mode, item, *request);
}

int32_t zkfnum_value(char *output, int32_t width, int32_t item, fmtreq *request, double value) {
  if (!locale::is_pattern_item(item)) return kNoConvention;
  return run_engine_on<FastSources>(output, width, item, *request, value);
}

int32_t zkfnum_reference(char *output, int32_t width, int32_t mode, int32_t item,
                         fmtreq *request) {
  return run_engine<ReferenceSources>(output, width, mode, item, *request);
}

}  // namespace corvinel::nlnum

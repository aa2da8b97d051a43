// nlmnyint and nlmnyloc: an amount in one named currency, shown with its
// international code or its local symbol and laid out by the monetary
// conventions of the request's locale.
//
// Attempts, until one fits the field:
//   1. the fixed text with the request's decimals, grouped, with the symbol;
//   2. ungrouped, with the symbol;
//   3. ungrouped, without the symbol; then the same with one decimal fewer
//      at a time, down to none (a fixed text wider than the field is
//      skipped, and what an attempt gave up stays given up).  Plain digits
//      keep more of the value than an exponent text of the same width;
//   4. only when even the integer part does not fit: exponent notation
//      ("%G" with `decimals` significant digits), with the symbol when no
//      fixed text could be tried;
//   5. exponent notation without the symbol, first with `decimals`
//      significant digits.  Every exponent attempt that does not fit records
//      its excess (the narrow text's length minus the width) and the next
//      one keeps that many fewer digits, so a wide request converges in a
//      few steps instead of one digit at a time.  (The excess of the fixed
//      attempts and of attempt 4 is not used: it was measured with the
//      symbol or on a fixed text.)  An exponent text that is wider than the
//      field on its own gives up its own excess in digits; one that is wider
//      even with one digit gives the "*" field.  When the attempt with one
//      digit does not fit either, the exponent attempts end;
//   6. the fixed text alone, right-justified in the field ("%*.*f"), without
//      separators, symbol or sign layout;
// then the "*" field.
#include <algorithm>
#include <climits>
#include <cstring>

#include "corvinel/currency.h"
#include "encoding/output_expansion.h"
#include "frame/format_frame.h"
#include "frame/thread_memo.h"
#include "locale/locale_records.h"
#include "nlnum/currency_amounts.h"
#include "nlnum/currency_layouts.h"
#include "nlnum/digit_texts.h"
#include "nlnum/field_placement.h"
#include "nlnum/monetary_convention.h"
#include "nlnum/number_assembly.h"
#include "nlnum/one_pass_layout.h"
#include "nlnum/one_pass_placement.h"

namespace corvinel::nlnum {
namespace {

enum class CurrencySymbol { InternationalCode, LocalSymbol };

constexpr frame::Limits kCurrencyLimits{8, 32, 0, 28};

// Room in which the local symbol is tried in the session encoding.
constexpr int32_t kSymbolRoom = 160;

std::string_view text_or_empty(const char *text) { return text != nullptr ? text : ""; }

// The local symbol, or the international code when the session encoding
// cannot show the symbol (its expansion holds a "?").  16-bit units show
// every character, so a request for them keeps the symbol.
std::string_view shown_local_symbol(const fmtreq &request, const monetary_conventions &currency) {
  const std::string_view symbol = text_or_empty(currency.currency_symbol);
  if (request.xcode_b == CORVINEL_ENC_UTF16LE) return symbol;
  if (symbol.size() > static_cast<std::size_t>(kSymbolRoom)) return text_or_empty(currency.int_curr_symbol);
  char expanded[kSymbolRoom];
  std::memcpy(expanded, symbol.data(), symbol.size());
  int32_t length = static_cast<int32_t>(symbol.size());
  int32_t encoding = 0;
  encoding::getExpResultFromNarrowCharBuf(request.xcode_a, 0, &encoding, expanded, &length,
                                        kSymbolRoom, kSymbolRoom);
  if (std::memchr(expanded, '?', static_cast<std::size_t>(length)) != nullptr) {
    return text_or_empty(currency.int_curr_symbol);
  }
  return symbol;
}

// One amount being fitted into the request's field.
class AmountFitting {
 public:
  AmountFitting(fmtreq &request, const MonetaryConvention &convention, std::string_view symbol,
                const OnePassLayout *one_pass, const OnePassLayout *one_pass_without_symbol,
                encoding::SessionCodeset codeset, double value)
      : request_(request), value_(value), symbol_(symbol), convention_(convention),
        one_pass_(one_pass), one_pass_without_symbol_(one_pass_without_symbol), codeset_(codeset),
        negative_(value < 0) {}

  int32_t render() {
    const int32_t width = request_.width;
    // Digit texts are kept up to kDigitTextCapacity - 1 bytes; a longer one
    // does not fit any field the texts are compared with.
    const int fitting = std::min(width, kDigitTextCapacity - 1);
    // Every attempt keeps the request's decimals, even under a convention
    // without a decimal mark (a locale ORB_LOCALE does not name), where the
    // fraction digits then follow the integer digits directly.
    const int decimals = std::clamp(request_.decimals, 0, kMaxPrecision);
    // The fixed texts, with fewer and fewer decimals: each that fits the
    // field as digits is tried grouped with the symbol, then without the
    // separators, then without the symbol; what one of them gave up stays
    // given up.
    bool grouping = true;
    bool with_symbol = true;
    for (int d = decimals; d >= 0; --d) {
      const int fixed_length = prepare_fixed(d);
      if (fixed_length <= 0) return frame::fill_stars(request_);
      if (fixed_length > fitting) continue;
      for (;;) {
        if (attempt(kFixedText, d, grouping, with_symbol)) return done_;
        if (grouping && number_.grouped) {
          grouping = false;
        } else if (with_symbol) {
          with_symbol = false;  // without separators the text is the same
        } else {
          break;
        }
      }
    }
    // Even the integer part does not fit: exponent texts.  When no fixed
    // text was tried, the first keeps the symbol.
    char exponent[kDigitTextCapacity];
    if (with_symbol && texts_.general(value_, 0, decimals, exponent) <= fitting &&
        attempt(exponent, decimals, false, true)) {
      return done_;
    }

    for (int precision = decimals;;) {
      int length = texts_.general(value_, 0, precision, exponent);
      while (length > fitting && precision > 0) {
        precision = std::max(0, precision - (length - fitting));
        length = texts_.general(value_, 0, precision, exponent);
      }
      if (length <= 0 || length > fitting) return frame::fill_stars(request_);
      if (attempt(exponent, precision, false, false)) return done_;
      if (precision == 0) return last_resort(decimals);
      precision = std::max(0, precision - excess_);
    }
  }

 private:
  // Lays the digit text out and places it; true when that settled the
  // result (placed, or the "*" field), false when the text was too wide.
  // `digits` is kFixedText for the fixed text with `decimals` places.
  bool attempt(const char *digits, int decimals, bool grouping, bool with_symbol) {
    const OnePassLayout *one_pass = with_symbol ? one_pass_ : one_pass_without_symbol_;
    if (digits == kFixedText && scaled_ != nullptr && one_pass != nullptr) {
      const OnePassAttempt tried = place_one_pass(*one_pass, *scaled_, grouping, value_, request_,
                                                  request_.output, request_.width);
      if (tried.outcome == OnePass::kPlaced) {
        done_ = CORVINEL_OK;
        return true;
      }
      if (tried.outcome == OnePass::kTooWide) {
        number_.grouped = tried.grouped;
        excess_ = std::max(1, tried.symbolic_length - request_.width);
        return false;
      }
    }
    if (digits == kFixedText) {
      if (!fixed_written_) texts_.fixed(value_, decimals, fixed_);
      fixed_written_ = true;
      digits = fixed_;
    }
    // What the general attempt needs beyond the one pass, worked out here
    // because most calls never get this far.
    const MonetaryConvention &c = convention_;
    const NumberMarks marks{c.decimal, c.separator, c.grouping};
    assemble_number(digits, decimals, marks, grouping, texts_.mon_decimal_point(), number_);
    int length = number_.length;
    if (number_.length <= kMaxAssembledNumber) {
      const char *layout = negative_ ? layout_for(c.n_cs_precedes, c.n_sep_by_space, c.n_sign_posn)
                                     : layout_for(c.p_cs_precedes, c.p_sep_by_space, c.p_sign_posn);
      const std::string_view sign = negative_ ? c.negative : c.positive;
      const bool bracket_blank = value_ > 0 && c.n_sign_posn == 0;
      char composed[kComposedCapacity];
      length = compose_layout(layout, with_symbol ? symbol_ : std::string_view(), sign, negative_,
                              number_.view(), bracket_blank, composed);
      switch (place_right_aligned(request_, codeset_, request_.output, request_.width, composed,
                                  length, request_.capacity)) {
        case Placement::kPlaced: done_ = CORVINEL_OK; return true;
        case Placement::kFailed: done_ = frame::fill_stars(request_); return true;
        case Placement::kTooWide: break;
      }
    }
    excess_ = std::max(1, length - request_.width);
    return false;
  }

  // The fixed text with `decimals` places for the attempts that follow:
  // as a number where the one pass can lay it out (written only when an
  // attempt needs it as text), else written.  Returns its length.
  int prepare_fixed(int decimals) {
    scaled_ = nullptr;
    if ((one_pass_ != nullptr || one_pass_without_symbol_ != nullptr) &&
        texts_.splits_at_decimal_point() && texts_.scaled(value_, decimals, scaled_storage_)) {
      scaled_ = &scaled_storage_;
      fixed_written_ = false;
      return scaled_storage_.text_length();
    }
    fixed_written_ = true;
    return texts_.fixed(value_, decimals, fixed_);
  }

  // The value alone, right-justified in the field by "%*.*f"; expansion may
  // use twice the capacity (16-bit units of a full field).
  int32_t last_resort(int decimals) {
    const int32_t width = request_.width;
    char fixed[kDigitTextCapacity];
    const int length = texts_.fixed(value_, decimals, fixed);
    if (length <= 0 || length > width || length >= kDigitTextCapacity || width > kComposedCapacity) {
      return frame::fill_stars(request_);
    }
    char justified[kComposedCapacity];
    std::memset(justified, ' ', static_cast<std::size_t>(width - length));
    std::memcpy(justified + (width - length), fixed, static_cast<std::size_t>(length));
    const int32_t room = static_cast<int32_t>(std::min<int64_t>(2 * int64_t{request_.capacity}, INT32_MAX));
    if (place_right_aligned(request_, codeset_, request_.output, width, justified, width, room) ==
        Placement::kPlaced) {
      return CORVINEL_OK;
    }
    return frame::fill_stars(request_);
  }

  fmtreq &request_;
  const double value_;
  const std::string_view symbol_;
  const MonetaryConvention &convention_;
  // The one pass of the attempts with and without the symbol; null: they
  // compose and expand.
  const OnePassLayout *one_pass_;
  const OnePassLayout *one_pass_without_symbol_;
  const encoding::SessionCodeset codeset_;
  const FastNumberTexts texts_;
  const bool negative_;
  AssembledNumber number_;
  static constexpr const char *kFixedText = nullptr;
  ScaledDecimal scaled_storage_;
  const ScaledDecimal *scaled_ = nullptr;  // the fixed text as a number, when the one pass can use it
  char fixed_[kDigitTextCapacity];
  bool fixed_written_ = false;
  int excess_ = 1;
  int32_t done_ = CORVINEL_OK;
};

// The convention of a record and the one pass of a symbol under it, in one
// session codeset; each of the two formats keeps its last one per thread.
// The symbol is compared by content: a host may pass its own currency
// record and change it between calls.
struct CompiledAmount {
  static constexpr std::size_t kSymbolCapacity = 64;

  bool filled = false;
  const locitem *record = nullptr;
  encoding::SessionCodeset codeset = encoding::SessionCodeset::kOther;
  std::size_t symbol_length = 0;
  char symbol[kSymbolCapacity] = {};
  MonetaryConvention convention;
  OnePassLayout one_pass;
  OnePassLayout one_pass_without_symbol;

  bool matches(const locitem *r, encoding::SessionCodeset c, std::string_view s) const {
    if (!filled || record != r || codeset != c || s.size() != symbol_length) return false;
    // Symbols are a few bytes: a loop is cheaper than a call.
    for (std::size_t i = 0; i < symbol_length; ++i) {
      if (s[i] != symbol[i]) return false;
    }
    return true;
  }

  // matches() for a NUL-terminated symbol, read no further than the kept
  // symbol's length and one byte: no measuring of the text first.
  bool matches(const locitem *r, encoding::SessionCodeset c, const char *text) const {
    if (!filled || record != r || codeset != c) return false;
    for (std::size_t i = 0; i < symbol_length; ++i) {
      if (text[i] != symbol[i]) return false;  // also stops at the text's NUL
    }
    return text[symbol_length] == '\0';
  }
};

// The last amount layout of each kind of symbol this thread used: the
// international code first, the local symbol second.
thread_local CompiledAmount amount_memo[2];

const CompiledAmount &compiled_amount(CurrencySymbol kind, const locitem *record,
                                      encoding::SessionCodeset codeset, std::string_view shown) {
  CompiledAmount &entry = frame::pinned(amount_memo)[kind == CurrencySymbol::LocalSymbol ? 1 : 0];
  if (!entry.matches(record, codeset, shown)) {
    const MonetaryConvention c = read_monetary_convention(record);
    entry.convention = c;
    LayoutParts parts{shown, c.positive, c.negative, c.decimal, c.separator, c.grouping,
                      layout_for(c.p_cs_precedes, c.p_sep_by_space, c.p_sign_posn),
                      layout_for(c.n_cs_precedes, c.n_sep_by_space, c.n_sign_posn),
                      c.n_sign_posn == 0};
    entry.one_pass = OnePassLayout{};
    entry.filled = false;  // a symbol too long to keep is compiled again next time
    if (shown.size() <= CompiledAmount::kSymbolCapacity) {
      entry.one_pass = compile_one_pass(parts, codeset);
      entry.symbol_length = shown.size();
      if (!shown.empty()) std::memcpy(entry.symbol, shown.data(), shown.size());
      entry.filled = true;
    }
    parts.symbol = {};
    entry.one_pass_without_symbol = compile_one_pass(parts, codeset);
    entry.record = record;
    entry.codeset = codeset;
  }
  return entry;
}

// A compiled amount layout with the symbol it shows.
struct ShownAmount {
  const CompiledAmount &compiled;
  std::string_view shown;
};

// compiled_amount for the currency's international code.
ShownAmount compiled_code_amount(const locitem *record, encoding::SessionCodeset codeset, const char *code) {
  const CompiledAmount &kept = frame::pinned(amount_memo)[0];
  if (code != nullptr && kept.matches(record, codeset, code)) {
    return {kept, std::string_view(code, kept.symbol_length)};
  }
  const std::string_view shown = text_or_empty(code);
  return {compiled_amount(CurrencySymbol::InternationalCode, record, codeset, shown), shown};
}

// How the attempts that lay out the fixed text run: in one pass where it
// can, or always composed and expanded (the reference the tests hold the
// one pass to).
enum class Attempts { kOnePass, kGeneral };

int32_t render_amount(fmtreq &request, const monetary_conventions &currency,
                      CurrencySymbol symbol, double value, Attempts attempts) {
  const locitem *record = locale::select_record(request.locale);
  const encoding::SessionCodeset codeset = encoding::read_session_codeset();
  // The general attempts measure the code as it stands: the reference for
  // the memo's match.
  const ShownAmount amount =
      symbol == CurrencySymbol::InternationalCode && attempts == Attempts::kOnePass
          ? compiled_code_amount(record, codeset, currency.int_curr_symbol)
          : [&] {
              const std::string_view shown = symbol == CurrencySymbol::InternationalCode
                                                 ? text_or_empty(currency.int_curr_symbol)
                                                 : shown_local_symbol(request, currency);
              return ShownAmount{compiled_amount(symbol, record, codeset, shown), shown};
            }();
  const CompiledAmount &compiled = amount.compiled;
  const std::string_view shown = amount.shown;
  const bool one_pass = attempts == Attempts::kOnePass && delivers_session_bytes(request);
  const auto usable = [&](const OnePassLayout &layout) {
    return one_pass && layout.usable ? &layout : nullptr;
  };
  return AmountFitting(request, compiled.convention, shown, usable(compiled.one_pass),
                       usable(compiled.one_pass_without_symbol), codeset, value)
      .render();
}

int32_t currency_frame(fmtreq *request, const monetary_conventions *currency,
                       CurrencySymbol symbol, Attempts attempts = Attempts::kOnePass) {
  fmtreq &r = *request;
  if (const int32_t code = frame::check_limits(r, kCurrencyLimits)) return code;
  const double value = frame::read_value(r);
  r.outlen = r.width;
  if (frame::is_missing(value)) return frame::render_missing_at_right_edge(r);
  // Without a currency record there is no symbol to show.
  if (currency == nullptr || !frame::field_fits_buffer(r)) return frame::fill_stars(r);
  // Every way out of render_amount writes the whole field: it is not
  // blanked first.
  return render_amount(r, *currency, symbol, value, attempts);
}

}  // namespace

int32_t nlmnyint_general(fmtreq *request, const monetary_conventions *currency) {
  return currency_frame(request, currency, CurrencySymbol::InternationalCode, Attempts::kGeneral);
}

int32_t nlmnyloc_general(fmtreq *request, const monetary_conventions *currency) {
  return currency_frame(request, currency, CurrencySymbol::LocalSymbol, Attempts::kGeneral);
}

}  // namespace corvinel::nlnum

extern "C" {

int32_t nlmnyint(fmtreq *request, const struct monetary_conventions *currency) {
  return corvinel::nlnum::currency_frame(request, currency,
                                         corvinel::nlnum::CurrencySymbol::InternationalCode);
}

int32_t nlmnyloc(fmtreq *request, const struct monetary_conventions *currency) {
  return corvinel::nlnum::currency_frame(request, currency,
                                         corvinel::nlnum::CurrencySymbol::LocalSymbol);
}

}  // extern "C"

// NLBEST, NLD, NLPVALUE, NLPCTN and NLPCTP: the host's classic renderings
// with the locale's decimal and group separators put in afterwards.
#include <algorithm>
#include <cstddef>
#include <span>

#include "corvinel/classic_numbers.h"
#include "corvinel/formats.h"
#include "corvinel/locale_db.h"
#include "corvinel/missing.h"
#include "encoding/request_expansion.h"
#include "frame/format_frame.h"

namespace corvinel::nlnum {
namespace {

enum class ClassicRendering {
  Best,              // zfmt with decimals 99
  D,                 // zfmd
  PValue,            // zfmpval
  PercentWithMinus,  // pctn: PERCENT with a minus sign instead of brackets
  Percent,           // zfmpct
};

struct ClassicBasedFormat {
  frame::Limits limits;
  ClassicRendering classic;
};

constexpr ClassicBasedFormat kNlbest{{1, 32, 0, 31}, ClassicRendering::Best};
constexpr ClassicBasedFormat kNld{{1, 32, 0, 16}, ClassicRendering::D};
constexpr ClassicBasedFormat kNlpvalue{{3, 32, 1, 30}, ClassicRendering::PValue};
constexpr ClassicBasedFormat kNlpctn{{4, 32, 0, 31}, ClassicRendering::PercentWithMinus};
constexpr ClassicBasedFormat kNlpctp{{4, 32, 0, 31}, ClassicRendering::Percent};

// Item codes of the locale's decimal and group separators.
constexpr int32_t kDecimalSeparatorItem = 172;
constexpr int32_t kGroupSeparatorItem = 173;

// PERCENT with a minus sign in place of the brackets: the first ")" and the
// first "(" become blanks and "-" goes directly before the first character,
// while the digits stay where PERCENT put them.  Every negative value gets
// the sign, so one that PERCENT shows as a plain zero reads "-0%".  PERCENT's
// results other than 0 and 2 are handed on untouched.
int32_t pctn(fmtreq &request) {
  const int32_t result = zfmpct(&request);
  if (result != CORVINEL_OK && result != 2) return result;
  const double value = frame::read_value(request);
  if (frame::is_missing(value) || !(value < 0)) return result;
  char *const begin = request.output;
  char *const end = begin + std::clamp(request.outlen, 0, request.width);
  if (char *const close = std::find(begin, end, ')'); close != end) *close = ' ';
  if (char *const open = std::find(begin, end, '('); open != end) *open = ' ';
  char *const first = std::find_if(begin, end, [](char c) { return c != ' '; });
  // A field that begins with its first character (all "*") has no byte before it.
  if (first != begin && first != end) first[-1] = '-';
  return result;
}

int32_t render_classic(fmtreq &request, ClassicRendering classic) {
  switch (classic) {
    case ClassicRendering::Best:
      return zfmt(&request);
    case ClassicRendering::D:
      return zfmd(&request);
    case ClassicRendering::PValue:
      return zfmpval(&request);
    case ClassicRendering::PercentWithMinus:
      return pctn(request);
    case ClassicRendering::Percent:
      break;
  }
  return zfmpct(&request);
}

// Puts the locale's separators in place of the classic "." and "," in one
// pass over the field, so that a swapped character is never swapped back.
// Only a decimal separator of exactly one byte other than "." is put in; a
// longer one (an escape such as "<U066B>") leaves the classic text as it is.
// The group separator is taken when it is one byte too.  Deliberate: where
// it is an escape ("<U202F>", a narrow no-break space) or empty (no
// grouping), a blank stands for it; its first byte alone would show "<" or
// a NUL inside the number.  (BEST, D, PVALUE and PERCENT group no digits
// today, so only the decimal separator shows; the "," case keeps the swap
// right for a classic text that does.)
void put_locale_separators(fmtreq &request) {
  char decimal[CORVINEL_LOCALE_TEXT];
  if (getORBLocDB(decimal, CORVINEL_LOCALE_TEXT, kDecimalSeparatorItem, request.locale) != 1 ||
      decimal[0] == '.') {
    return;
  }
  char group[CORVINEL_LOCALE_TEXT];
  const bool one_byte_group =
      getORBLocDB(group, CORVINEL_LOCALE_TEXT, kGroupSeparatorItem, request.locale) == 1;
  const char group_mark = one_byte_group ? group[0] : ' ';
  for (char &c : std::span(request.output, static_cast<std::size_t>(request.width))) {
    if (c == '.') {
      c = decimal[0];
    } else if (c == ',') {
      c = group_mark;
    }
  }
}

// The classic rendering of the request, the locale's separators, then
// output expansion with the caller's capacity.  The swap walks the whole
// field whatever it holds, so the mark of the ordinary missing value, ".",
// shows as the locale's decimal separator too.  When expansion fails the
// field shows "*" and the classic rendering's result is returned.
int32_t render_with_locale_separators(fmtreq &request, const ClassicBasedFormat &format,
                                      int32_t caller_capacity) {
  const int32_t classic_result = render_classic(request, format.classic);
  put_locale_separators(request);
  if (encoding::expand_for_request(request, request.output, &request.outlen, caller_capacity) <= 0) {
    return CORVINEL_OK;
  }
  frame::fill_stars(request);
  return classic_result;
}

int32_t classic_based_frame(fmtreq *request, const ClassicBasedFormat &format) {
  fmtreq &r = *request;
  if (const int32_t code = frame::check_limits(r, format.limits)) return code;
  const double value = frame::read_value(r);
  r.outlen = r.width;
  const int32_t caller_capacity = r.capacity;
  const bool best = format.classic == ClassicRendering::Best;
  // Deliberately not put back: the classic rendering sees no more room than
  // the field, and the host finds the request so afterwards.  Expansion is
  // still given the caller's capacity.
  if (!best) r.capacity = std::min(r.capacity, r.width);
  // Tells the classic rendering that a locale-aware format called it; left set.
  r.flags |= FMTREQ_LOCALE_CALLER;

  // The classic renderings read the value through the request: a request
  // without one gets the missing value read_value stands in for.
  const double *caller_value = r.value;
  if (caller_value == nullptr) r.value = &std_miss_val;
  const int32_t caller_decimals = r.decimals;
  if (best) r.decimals = 99;  // BEST: the most precise text that fits
  // A field the buffer cannot hold is never handed to a classic rendering.
  int32_t result = CORVINEL_OK;
  if (frame::field_fits_buffer(r)) {
    result = render_with_locale_separators(r, format, caller_capacity);
  } else if (frame::is_missing(value)) {
    result = frame::render_missing_number(r);
  } else {
    result = frame::fill_stars(r);
  }
  r.decimals = caller_decimals;
  r.value = caller_value;
  return result;
}

}  // namespace
}  // namespace corvinel::nlnum

using corvinel::nlnum::classic_based_frame;

extern "C" {

int32_t nlbest(fmtreq *request) { return classic_based_frame(request, corvinel::nlnum::kNlbest); }
int32_t nldfmt(fmtreq *request) { return classic_based_frame(request, corvinel::nlnum::kNld); }
int32_t nlpvalue(fmtreq *request) {
  return classic_based_frame(request, corvinel::nlnum::kNlpvalue);
}
int32_t nlpctn(fmtreq *request) { return classic_based_frame(request, corvinel::nlnum::kNlpctn); }
int32_t nlpctp(fmtreq *request) { return classic_based_frame(request, corvinel::nlnum::kNlpctp); }

}  // extern "C"

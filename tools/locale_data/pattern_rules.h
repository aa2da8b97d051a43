// Conversion of CLDR date and number patterns into the texts of the locale
// records. Pure functions over UTF-16 text; the caller escapes the result.
#pragma once

#include <string>
#include <string_view>

namespace corvinel::locale_data {

// How the fields of a date pattern become directives of the date pattern
// expander. The rules, one pattern letter run at a time:
//   y, yyy, yyyy, u, r    "%Y"        yy            "%y"
//   Y (week-based year)   "%G"        YY            "%g"
//   M, L (numeric month)  "%#m"       MM, LL        "%m"
//   MMM / MMMMM           "%b", or "%#b" when months stand alone
//   MMMM                  "%B", or "%#B" when months stand alone
//   LLL / LLLLL, LLLL     "%#b", "%#B"
//   d                     "%#d"       dd            "%d"
//   D (day of year)       "%j"
//   E, EE, EEE, EEEEE, e, eee, eeeee, EEEEEE     "%a"
//   EEEE, eeee            "%A"
//   c, ccc, ccccc         "%#a"       cccc          "%#A"
//   Q, QQ, QQQ, QQQQQ     "%q"        QQQQ          "%Q"
//   q, qq, qqq, qqqqq     "%#q"       qqqq          "%#Q"
//   h, hh                 "%#I", "%I" K, KK         "%#L", "%L"
//   H, HH                 "%#H", "%H" k, kk         "%#K", "%K"
//   m, mm                 "%M"        s, ss         "%S"
//   a, b, B (day periods) "%p"
//   z, Z, O, v, V, X, x   "%Z"        (the expander writes no zone names)
//   G (era)               the era's name, given by the caller (dates of the
//                         records are always of the common era)
//   'text'                text; '' is one apostrophe
//   %                     "%%"
//   U+00A0, U+202F        " " (no-break spaces become blanks)
//   U+200E, U+200F, U+061C  dropped (bidirectional marks)
// A number field keeps CLDR's padding: one letter writes as many digits as
// the number has ("%#d" shows 5, not " 5" or "05"), two letters pad with a
// zero. No pattern gets a blank-padded directive ("%e", "%o"): a blank in
// the middle of a date reads as two blanks after a word.
// Any other letter is an error: the generator stops rather than guess.
struct DateFieldStyle {
  bool standalone_month = false;  // MMMM, MMM: standalone names
};

// A mark of the number and currency conventions (decimal mark, group
// separator, sign, currency symbol) as the records keep it: the narrow
// no-break space U+202F, which glibc writes as the group separator of about
// thirty locales (French, Polish, Russian, Swedish, Czech, ...), becomes the
// no-break space U+00A0.  No single-byte session encoding has U+202F, so
// under ISO-8859-1 or a Windows code page such numbers would show "?"
// between their groups; U+00A0 is in all of them and looks the same.
// Likewise the right single quotation mark U+2019, glibc's group separator
// for Switzerland and Liechtenstein, becomes the apostrophe that Swiss
// numbers were always written with and that every encoding has.  The
// localised number patterns take their separator from these marks.
std::u16string legacy_mark(std::u16string_view mark);

// Throws std::runtime_error for a letter without a rule.
std::u16string convert_date_pattern(std::u16string_view pattern, const DateFieldStyle &style,
                                    std::u16string_view era_name);

// The parts of a short numeric date pattern: the order of its year, month
// and day fields ("DMY", "MDY" or "YMD") and the separator between the
// first two ("/", "." or "-"; empty when it is none of these). Literal
// blanks and bidirectional marks around a separator are skipped.
struct NumericDateShape {
  std::string order;
  std::string separator;
};
NumericDateShape numeric_date_shape(std::u16string_view pattern);

// The same for a POSIX date format such as "%d/%m/%Y" (glibc's d_fmt),
// which also reads the directives of the records' own patterns.
NumericDateShape posix_date_shape(std::u16string_view format);

// A CLDR combination pattern such as "{1}, {0}" with the date as "%x" and
// the time as "%X". The record item joins the two forms with punctuation
// only, so quoted words that make a phrase of them (Finnish "{1} 'klo' {0}",
// Macedonian "{1}, 'во' {0}": "at") are dropped with the blank before them.
std::u16string convert_combination_pattern(std::u16string_view pattern);

// Number patterns (decimal, currency, percent) as ICU prints them: "." and
// "," are the decimal and grouping marks of the pattern language, U+00A4 the
// currency placeholder. Both forms below write a no-break or narrow
// no-break space of the pattern as a blank and drop bidirectional marks.

// In the locale's own symbols: the marks replaced by the given texts.
std::u16string localise_number_pattern(std::u16string_view pattern, std::u16string_view decimal,
                                       std::u16string_view group);

// In canonical symbols: "." and "," kept, and the fraction part of every
// subpattern replaced by ".#" (added where the pattern has none).
std::u16string canonical_number_pattern(std::u16string_view pattern);

// Position of the sign in the negative form of a number pattern, in the
// coding of the lconv sign positions: 0 brackets, 1 before the number,
// 2 after it. A pattern without a negative subpattern has the sign before.
int negative_sign_position(std::u16string_view pattern);

}  // namespace corvinel::locale_data

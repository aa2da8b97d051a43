#include "pattern_rules.h"

#include <stdexcept>

#include "unicode_text.h"

namespace corvinel::locale_data {
namespace {

bool is_letter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

bool is_bidi_mark(char16_t c) { return c == 0x200E || c == 0x200F || c == 0x061C; }

bool is_wide_blank(char16_t c) { return c == 0x00A0 || c == 0x202F; }

// Appends a literal character of a date pattern: "%" doubled for the
// expander, a no-break space written as a blank (the blank is what the
// formats strip and what a reader of a pattern expects), bidirectional
// marks dropped (they only steer display, and most session encodings
// cannot show them).
void append_literal(std::u16string &out, char16_t c) {
  if (is_bidi_mark(c)) return;
  out.push_back(is_wide_blank(c) ? u' ' : c);
  if (c == u'%') out.push_back(u'%');
}

std::u16string directive_for(char16_t letter, std::size_t count, const DateFieldStyle &style,
                             std::u16string_view era_name) {
  switch (letter) {
    case u'y':
    case u'u':
    case u'r':
      return count == 2 ? u"%y" : u"%Y";
    case u'Y':
      return count == 2 ? u"%g" : u"%G";
    case u'M':
      if (count == 1) return u"%#m";
      if (count == 2) return u"%m";
      if (count == 4) return style.standalone_month ? u"%#B" : u"%B";
      return style.standalone_month ? u"%#b" : u"%b";
    case u'L':
      if (count == 1) return u"%#m";
      if (count == 2) return u"%m";
      return count == 4 ? u"%#B" : u"%#b";
    case u'd':
      return count == 1 ? u"%#d" : u"%d";
    case u'D':
      return u"%j";
    case u'E':
    case u'e':
      return count == 4 ? u"%A" : u"%a";
    case u'c':
      return count == 4 ? u"%#A" : u"%#a";
    case u'Q':
      return count == 4 ? u"%Q" : u"%q";
    case u'q':
      return count == 4 ? u"%#Q" : u"%#q";
    case u'h':
      return count == 1 ? u"%#I" : u"%I";
    case u'K':
      return count == 1 ? u"%#L" : u"%L";
    case u'H':
      return count == 1 ? u"%#H" : u"%H";
    case u'k':
      return count == 1 ? u"%#K" : u"%K";
    case u'm':
      return u"%M";
    case u's':
      return u"%S";
    case u'a':
    case u'b':
    case u'B':
      return u"%p";
    case u'z':
    case u'Z':
    case u'O':
    case u'v':
    case u'V':
    case u'X':
    case u'x':
      return u"%Z";
    case u'G':
      return std::u16string(era_name);
    default:
      break;
  }
  std::string run(count, static_cast<char>(letter));
  throw std::runtime_error("no directive for the date pattern field \"" + run + "\"");
}

// Reads a quoted literal starting at pattern[i] == '\''; returns its text
// and leaves i after the closing quote.
std::u16string read_quoted(std::u16string_view pattern, std::size_t &i) {
  std::u16string text;
  if (i + 1 < pattern.size() && pattern[i + 1] == u'\'') {
    i += 2;
    return u"'";
  }
  for (++i; i < pattern.size(); ++i) {
    if (pattern[i] != u'\'') {
      text.push_back(pattern[i]);
    } else if (i + 1 < pattern.size() && pattern[i + 1] == u'\'') {
      text.push_back(u'\'');
      ++i;
    } else {
      ++i;
      break;
    }
  }
  return text;
}

char order_letter(char16_t field) {
  switch (field) {
    case u'y':
    case u'u':
    case u'r':
    case u'Y':
      return 'Y';
    case u'M':
    case u'L':
      return 'M';
    case u'd':
      return 'D';
    default:
      return 0;
  }
}

// The separator between two date fields: the literal text between them,
// without blanks and bidirectional marks, if it is one of "/", "." or "-".
std::string separator_of(std::u16string_view literal) {
  std::u16string kept;
  for (const char16_t c : literal) {
    if (c != u' ' && !is_wide_blank(c) && !is_bidi_mark(c)) kept.push_back(c);
  }
  if (kept == u"/" || kept == u"." || kept == u"-") return std::string(1, static_cast<char>(kept[0]));
  return {};
}

bool is_number_char(char16_t c) {
  return c == u'#' || c == u'0' || (c >= u'1' && c <= u'9') || c == u',' || c == u'.' || c == u'@';
}

// Splits a number pattern at ";" outside quotes.
std::pair<std::u16string_view, std::u16string_view> split_subpatterns(std::u16string_view pattern) {
  bool quoted = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == u'\'') quoted = !quoted;
    if (!quoted && pattern[i] == u';') return {pattern.substr(0, i), pattern.substr(i + 1)};
  }
  return {pattern, {}};
}

std::u16string canonical_subpattern(std::u16string_view pattern) {
  std::u16string out;
  bool quoted = false;
  bool number_done = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char16_t c = pattern[i];
    if (c == u'\'') quoted = !quoted;
    if (!quoted && !number_done && is_number_char(c)) {
      std::size_t end = i;
      while (end < pattern.size() && is_number_char(pattern[end])) ++end;
      const std::u16string_view number = pattern.substr(i, end - i);
      out += number.substr(0, number.find(u'.'));
      out += u".#";
      number_done = true;
      i = end - 1;
      continue;
    }
    if (is_bidi_mark(c)) continue;
    out.push_back(is_wide_blank(c) ? u' ' : c);
  }
  return out;
}

}  // namespace

std::u16string convert_date_pattern(std::u16string_view pattern, const DateFieldStyle &style,
                                    std::u16string_view era_name) {
  std::u16string out;
  for (std::size_t i = 0; i < pattern.size();) {
    const char16_t c = pattern[i];
    if (c == u'\'') {
      for (const char16_t literal : read_quoted(pattern, i)) append_literal(out, literal);
      continue;
    }
    if (is_letter(c)) {
      std::size_t count = 1;
      while (i + count < pattern.size() && pattern[i + count] == c) ++count;
      out += directive_for(c, count, style, era_name);
      i += count;
      continue;
    }
    append_literal(out, c);
    ++i;
  }
  return out;
}

NumericDateShape numeric_date_shape(std::u16string_view pattern) {
  NumericDateShape shape;
  std::u16string literal_after_first;
  for (std::size_t i = 0; i < pattern.size();) {
    const char16_t c = pattern[i];
    if (c == u'\'') {
      const std::u16string text = read_quoted(pattern, i);
      if (shape.order.size() == 1) literal_after_first += text;
      continue;
    }
    if (is_letter(c)) {
      std::size_t count = 1;
      while (i + count < pattern.size() && pattern[i + count] == c) ++count;
      const char letter = order_letter(c);
      if (letter != 0 && shape.order.find(letter) == std::string::npos) {
        shape.order.push_back(letter);
        if (shape.order.size() == 2) shape.separator = separator_of(literal_after_first);
      }
      i += count;
      continue;
    }
    if (shape.order.size() == 1) literal_after_first.push_back(c);
    ++i;
  }
  return shape;
}

NumericDateShape posix_date_shape(std::u16string_view format) {
  NumericDateShape shape;
  std::u16string literal_after_first;
  for (std::size_t i = 0; i < format.size(); ++i) {
    if (format[i] != u'%' || i + 1 == format.size()) {
      if (shape.order.size() == 1) literal_after_first.push_back(format[i]);
      continue;
    }
    std::size_t letter_at = i + 1;
    while (letter_at < format.size() && !is_letter(format[letter_at])) ++letter_at;
    if (letter_at == format.size()) break;
    char letter = 0;
    switch (format[letter_at]) {
      case u'd':
      case u'e':
        letter = 'D';
        break;
      case u'm':
      case u'o':
      case u'b':
      case u'B':
        letter = 'M';
        break;
      case u'y':
      case u'Y':
        letter = 'Y';
        break;
      default:
        break;
    }
    if (letter != 0 && shape.order.find(letter) == std::string::npos) {
      shape.order.push_back(letter);
      if (shape.order.size() == 2) shape.separator = separator_of(literal_after_first);
    }
    i = letter_at;
  }
  return shape;
}

std::u16string convert_combination_pattern(std::u16string_view pattern) {
  std::u16string out;
  for (std::size_t i = 0; i < pattern.size();) {
    if (pattern[i] == u'\'') {
      read_quoted(pattern, i);
      if (!out.empty() && out.back() == u' ') out.pop_back();
      continue;
    }
    if (pattern.substr(i, 3) == u"{1}" || pattern.substr(i, 3) == u"{0}") {
      out += pattern[i + 1] == u'1' ? u"%x" : u"%X";
      i += 3;
      continue;
    }
    append_literal(out, pattern[i]);
    ++i;
  }
  return out;
}

std::u16string legacy_mark(std::u16string_view mark) {
  std::u16string out(mark);
  for (char16_t &c : out) {
    if (c == 0x202F) c = 0x00A0;
    if (c == 0x2019) c = u'\'';
  }
  return out;
}

std::u16string localise_number_pattern(std::u16string_view pattern, std::u16string_view decimal,
                                       std::u16string_view group) {
  std::u16string out;
  bool quoted = false;
  for (const char16_t c : pattern) {
    if (c == u'\'') quoted = !quoted;
    if (is_bidi_mark(c)) continue;
    if (!quoted && c == u'.') {
      out += decimal;
    } else if (!quoted && c == u',') {
      out += group;
    } else {
      out.push_back(is_wide_blank(c) ? u' ' : c);
    }
  }
  return out;
}

std::u16string canonical_number_pattern(std::u16string_view pattern) {
  const auto [positive, negative] = split_subpatterns(pattern);
  std::u16string out = canonical_subpattern(positive);
  if (negative.data() != nullptr) {
    out.push_back(u';');
    out += canonical_subpattern(negative);
  }
  return out;
}

int negative_sign_position(std::u16string_view pattern) {
  const std::u16string_view negative = split_subpatterns(pattern).second;
  if (negative.empty()) return 1;
  if (negative.find(u'(') != std::u16string_view::npos) return 0;
  const std::size_t sign = negative.find(u'-');
  std::size_t number = 0;
  while (number < negative.size() && !is_number_char(negative[number])) ++number;
  return sign != std::u16string_view::npos && sign > number ? 2 : 1;
}

}  // namespace corvinel::locale_data

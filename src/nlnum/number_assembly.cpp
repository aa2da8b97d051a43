#include "nlnum/number_assembly.h"

#include <cstring>

#include "corvinel/text.h"

namespace corvinel::nlnum {
namespace {

// Appends to a fixed buffer, counting what does not fit.
class Appender {
 public:
  Appender(char *out, int capacity) : out_(out), capacity_(capacity) {}

  void append(std::string_view text) {
    for (const char c : text) append(c);
  }
  void append(char c) {
    if (length_ < capacity_) out_[length_] = c;
    ++length_;
  }
  int length() const { return length_; }

 private:
  char *out_;
  int capacity_;
  int length_ = 0;
};

void append_grouped(Appender &out, std::string_view integer, std::string_view separator,
                    int32_t grouping, bool &grouped) {
  const std::size_t group = static_cast<std::size_t>(grouping);
  std::size_t first = integer.size() % group;
  if (first == 0) first = group;
  out.append(integer.substr(0, first));
  for (std::size_t at = first; at < integer.size(); at += group) {
    out.append(separator);
    out.append(integer.substr(at, group));
    if (!separator.empty()) grouped = true;
  }
}

}  // namespace

void assemble_number(const char *digits, int decimals, const NumberMarks &marks,
                     bool grouping_allowed, const char *mon_decimal_point,
                     AssembledNumber &number) {
  std::string_view text(digits);
  if (!text.empty() && text.front() == '-') text.remove_prefix(1);
  number.grouped = false;
  number.two_byte_decimal = false;
  Appender out(number.text, kMaxAssembledNumber);

  if (text.find('E') != std::string_view::npos) {
    // An exponent text: never grouped, its padding blanks no part of it.
    // Its point is "."; a process locale with another decimal point writes
    // that one, found as a fixed text's point is (there is none without
    // decimals: "%.0G" keeps one digit).
    text = text.substr(0, static_cast<std::size_t>(wzstrip(text.data(), static_cast<int32_t>(text.size()))));
    std::size_t point = text.find('.');
    std::size_t point_size = 1;
    const bool dot = point != std::string_view::npos;
    if (!dot && decimals > 0 && *mon_decimal_point != '\0') {
      point = text.find(mon_decimal_point);
      point_size = std::strlen(mon_decimal_point);
    }
    if (point == std::string_view::npos) {
      out.append(text);
    } else {
      out.append(text.substr(0, point));
      out.append(marks.decimal);
      out.append(text.substr(point + point_size));
      if (dot && marks.decimal.size() == 2) number.two_byte_decimal = true;
    }
    number.length = out.length();
    return;
  }

  std::string_view integer = text;
  std::string_view fraction;
  bool has_fraction = false;
  bool group = grouping_allowed;
  if (decimals > 0) {
    const std::string_view mark = *mon_decimal_point != '\0' ? mon_decimal_point : ".";
    const std::size_t at = text.find(mark);
    if (at != std::string_view::npos) {
      integer = text.substr(0, at);
      fraction = text.substr(at + mark.size());
      has_fraction = true;
    } else {
      group = false;
    }
  }
  if (group && marks.grouping > 0 && static_cast<std::size_t>(marks.grouping) < integer.size()) {
    append_grouped(out, integer, marks.separator, marks.grouping, number.grouped);
  } else {
    out.append(integer);
  }
  if (has_fraction) {
    out.append(marks.decimal);
    out.append(fraction);
  }
  number.length = out.length();
}

int compose_layout(const char *layout, std::string_view symbol, std::string_view sign,
                   bool negative, std::string_view number, bool bracket_blank, char *out) {
  const std::string_view digits =
      number.substr(0, static_cast<std::size_t>(wzstrip(number.data(), static_cast<int32_t>(number.size()))));
  Appender text(out, kComposedCapacity);
  for (const char *c = layout; *c != '\0'; ++c) {
    switch (*c) {
      case '$': text.append(symbol); break;
      case '-': text.append(sign); break;
      case 'V': text.append(digits); break;
      case '(':
      case ')':
        if (negative) text.append(*c);
        break;
      default: text.append(*c); break;
    }
  }
  // Both cuts are within the kept bytes: every part fits kComposedCapacity.
  int length = text.length() < kComposedCapacity ? text.length() : kComposedCapacity;
  int start = 0;
  while (start < length && out[start] == ' ') ++start;
  length = start + wzstrip(out + start, length - start);
  if (start > 0) std::memmove(out, out + start, static_cast<std::size_t>(length - start));
  length -= start;
  if (bracket_blank && length < kComposedCapacity) out[length++] = ' ';
  return length;
}

}  // namespace corvinel::nlnum

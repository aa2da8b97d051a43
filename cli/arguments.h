// Command line of corvinel-fmt: options, the format written as the host's
// users write it (NAME, NAMEw., NAMEw.d, NAME.d), and values.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "value_literals.h"

namespace corvinel::cli {

// A problem with the command line; main reports it on one line and exits 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Options {
  std::string module_path;  // empty: libcorvinel.so beside the tool
  std::optional<std::string> locale_name;
  int32_t locale_number = 0;  // 0: the locale comes from ORB_LOCALE
  std::optional<int32_t> capacity;
  std::optional<int32_t> item;
  bool check = false;
  bool no_check = false;     // no note on a width or decimals outside the limits
  bool all_locales = false;  // render in every compiled-in locale
  bool items = false;        // list the locale item codes
  bool utf16 = false;
  bool bars = false;
  bool classic = false;
  bool expand = false;
  bool list = false;
  bool help = false;
  bool version = false;
  std::string format;
  std::vector<std::string> values;
};

// An argument as error messages show it: control and escape bytes written
// as \xNN, and cut after about kShownArgumentLength bytes with the whole
// length said, so that a message stays one short line of plain text.
inline constexpr std::size_t kShownArgumentLength = 60;
std::string shown_argument(std::string_view text);

// Refuses a buffer smaller than the field: every format may write `width`
// bytes, so a host never hands over less.
void check_capacity(const std::optional<int32_t> &capacity, int32_t width);

// Throws UsageError naming the first problem.
Options parse_arguments(const std::vector<std::string> &arguments);

struct ParsedFormat {
  std::string name;  // upper case
  std::optional<int32_t> width;
  std::optional<int32_t> decimals;
};

// Widths above this are refused: no host field is that wide, and the tool
// allocates the buffer.
inline constexpr int32_t kMaxWidth = 65535;
inline constexpr int32_t kMaxCapacity = 1 << 20;

ParsedFormat parse_format(std::string_view text);

// A decimal number as strtod reads it, "inf", "-inf", "infinity" or "nan"
// (any case), a missing value (".", "._", ".A" .. ".Z", letters in either
// case), or a date, datetime or time literal converted to what a format of
// `kind` reads (parse_literal).  A number too large for a double and a
// hexadecimal number are refused rather than read as infinity or in base 16.
double parse_value(std::string_view text, ValueKind kind = ValueKind::kNumber);

}  // namespace corvinel::cli

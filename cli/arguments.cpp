#include "arguments.h"

#include <bit>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>

namespace corvinel::cli {
namespace {

std::string quoted(std::string_view text) { return "\"" + shown_argument(text) + "\""; }

// A whole decimal number in [low, high]; `what` names it in the message.
int32_t parse_int(std::string_view text, std::string_view what, int64_t low, int64_t high) {
  int64_t number = 0;
  const char *end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || error != std::errc() || stop != end) {
    throw UsageError(std::string(what) + " is not a number: " + quoted(text));
  }
  if (number < low || number > high) {
    throw UsageError(std::string(what) + " " + shown_argument(text) + " is out of range (" +
                     std::to_string(low) + ".." + std::to_string(high) + ")");
  }
  return static_cast<int32_t>(number);
}

bool is_letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

// The host's missing values are NaNs with the top 16 bits set, the negated
// index of their mark in " _.ABC..Z" in bits 47..40, and zero below.
double missing_value(int index) {
  const auto code = static_cast<uint8_t>(-index);
  return std::bit_cast<double>(0xFFFF000000000000ull | (uint64_t{code} << 40));
}

// "inf", "infinity" and "nan" with an optional sign, in any case: the
// non-finite values written as such.
std::optional<double> special_value(std::string_view text) {
  const bool negative = !text.empty() && text[0] == '-';
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) text.remove_prefix(1);
  std::string word;
  for (const char c : text) word.push_back(static_cast<char>(c | 0x20));
  if (word == "inf" || word == "infinity") {
    return negative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
  }
  if (word == "nan") return negative ? -std::numeric_limits<double>::quiet_NaN() : std::numeric_limits<double>::quiet_NaN();
  return std::nullopt;
}

bool is_hexadecimal(std::string_view text) {
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) text.remove_prefix(1);
  return text.size() >= 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

struct OptionTakingValue {
  std::string_view name;
  void (*apply)(Options &, std::string_view);
};

constexpr int32_t kInt32Max = INT32_MAX;
constexpr int32_t kLocaleNumbers = 136;
constexpr int32_t kLastItem = 188;

const OptionTakingValue kOptionsTakingValue[] = {
    {"--module", [](Options &o, std::string_view v) { o.module_path = v; }},
    {"--locale", [](Options &o, std::string_view v) { o.locale_name = std::string(v); }},
    {"--locale-number",
     [](Options &o, std::string_view v) {
       o.locale_number = parse_int(v, "--locale-number", 1, kLocaleNumbers);
     }},
    {"--capacity",
     [](Options &o, std::string_view v) {
       o.capacity = parse_int(v, "--capacity", 0, kMaxCapacity);
     }},
    {"--item",
     [](Options &o, std::string_view v) { o.item = parse_int(v, "--item", 0, kLastItem); }},
};

struct Flag {
  std::string_view name;
  bool Options::*member;
};

const Flag kFlags[] = {
    {"--check", &Options::check}, {"--no-check", &Options::no_check},
    {"--all-locales", &Options::all_locales}, {"--items", &Options::items},
    {"--utf16", &Options::utf16},
    {"--bars", &Options::bars},   {"--classic", &Options::classic},
    {"--expand", &Options::expand}, {"--list", &Options::list},
    {"--help", &Options::help},   {"-h", &Options::help},
    {"--version", &Options::version},
};

// Applies the option at arguments[i]; returns the index of its last word.
std::size_t apply_option(Options &options, const std::vector<std::string> &arguments,
                         std::size_t i) {
  const std::string_view word = arguments[i];
  for (const Flag &flag : kFlags) {
    if (word == flag.name) {
      options.*flag.member = true;
      return i;
    }
  }
  const std::size_t equals = word.find('=');
  const std::string_view name = word.substr(0, equals);
  for (const OptionTakingValue &option : kOptionsTakingValue) {
    if (name != option.name) continue;
    if (equals != std::string_view::npos) {
      option.apply(options, word.substr(equals + 1));
      return i;
    }
    if (i + 1 >= arguments.size()) throw UsageError(std::string(name) + " needs a value");
    option.apply(options, arguments[i + 1]);
    return i + 1;
  }
  throw UsageError("unknown option " + quoted(word));
}

// Options start with "--" (or are "-h"); a lone "--" ends them.  Values such
// as "-1.5" are not options.
bool looks_like_option(std::string_view word) {
  return word.starts_with("--") || word == "-h";
}

void check_mode(const Options &options) {
  if (options.help || options.version) return;
  const bool listing = options.list || options.item.has_value() || options.items;
  if (options.list + options.item.has_value() + options.items > 1) {
    throw UsageError("--list, --item and --items exclude each other");
  }
  if (options.check && options.no_check) throw UsageError("--check and --no-check exclude each other");
  if (options.all_locales && (options.locale_name || options.locale_number != 0)) {
    throw UsageError("--all-locales excludes --locale and --locale-number");
  }
  if (options.expand && !options.item) throw UsageError("--expand needs --item");
  if (listing) {
    if (!options.format.empty()) throw UsageError("unexpected argument " + quoted(options.format));
    return;
  }
  if (options.format.empty()) throw UsageError("missing FORMAT (try --help)");
  if (options.values.empty()) throw UsageError("missing VALUE after " + shown_argument(options.format));
}

}  // namespace

std::string shown_argument(std::string_view text) {
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (shown.size() >= kShownArgumentLength) {
      shown += "... (" + std::to_string(text.size()) + " bytes)";
      break;
    }
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte < 0x20 || byte == 0x7F) {
      constexpr char kHex[] = "0123456789abcdef";
      shown += {'\\', 'x', kHex[byte >> 4], kHex[byte & 15]};
    } else {
      shown.push_back(static_cast<char>(byte));
    }
  }
  return shown;
}

void check_capacity(const std::optional<int32_t> &capacity, int32_t width) {
  if (capacity && *capacity < width) {
    throw UsageError("--capacity " + std::to_string(*capacity) + " is below the width " +
                     std::to_string(width) + ": a format may fill the whole field");
  }
}

Options parse_arguments(const std::vector<std::string> &arguments) {
  Options options;
  bool options_ended = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string &word = arguments[i];
    if (!options_ended && word == "--") {
      options_ended = true;
    } else if (!options_ended && looks_like_option(word)) {
      i = apply_option(options, arguments, i);
    } else if (options.format.empty()) {
      options.format = word;
      if (word.empty()) throw UsageError("empty FORMAT");
    } else {
      options.values.push_back(word);
    }
  }
  check_mode(options);
  return options;
}

ParsedFormat parse_format(std::string_view text) {
  ParsedFormat parsed;
  std::size_t i = 0;
  while (i < text.size() && is_letter(text[i])) {
    parsed.name.push_back(upper(text[i]));
    ++i;
  }
  if (parsed.name.empty()) throw UsageError("FORMAT does not start with a name: " + quoted(text));
  const std::string_view rest = text.substr(i);
  const std::size_t dot = rest.find('.');
  const std::string_view width = rest.substr(0, dot);
  if (!width.empty()) parsed.width = parse_int(width, "width in " + quoted(text), 0, kMaxWidth);
  if (dot != std::string_view::npos) {
    const std::string_view decimals = rest.substr(dot + 1);
    if (!decimals.empty()) {
      parsed.decimals = parse_int(decimals, "decimals in " + quoted(text), 0, kInt32Max);
    }
  }
  return parsed;
}

double parse_value(std::string_view text, ValueKind kind) {
  if (text == ".") return missing_value(2);
  if (text.size() == 2 && text[0] == '.') {
    if (text[1] == '_') return missing_value(1);
    if (is_letter(text[1])) {
      return missing_value(3 + (upper(text[1]) - 'A'));
    }
  }
  const std::string copy(text);
  if (copy.empty() || std::isspace(static_cast<unsigned char>(copy[0]))) {
    throw UsageError("VALUE is not a number: " + quoted(text));
  }
  if (const auto special = special_value(text)) return *special;
  char *end = nullptr;
  errno = 0;
  const double value = std::strtod(copy.c_str(), &end);
  if (end == copy.c_str() + copy.size()) {
    if (is_hexadecimal(text)) throw UsageError("VALUE is hexadecimal, write it in decimal: " + quoted(text));
    if (std::isinf(value)) throw UsageError("VALUE is too large for a double: " + quoted(text));
    if (std::isnan(value)) throw UsageError("VALUE is not a number: " + quoted(text));
    return value;  // an underflow gives the nearest double, 0 or a subnormal
  }
  if (const auto literal = parse_literal(text, kind)) return *literal;
  throw UsageError("VALUE is not a number, date or time: " + quoted(text));
}

}  // namespace corvinel::cli

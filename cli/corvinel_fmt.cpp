// corvinel-fmt: renders values with the module's formats the way a host does
// (dlopen, the entry, a registry lookup, one request per value) and prints
// what each format left in its buffer.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "arguments.h"
#include "classic_names.h"
#include "item_codes.h"
#include "locale_names.h"
#include "module.h"
#include "render.h"

namespace corvinel::cli {
namespace {

constexpr int kExitUsage = 2;
constexpr int kExitFailed = 3;

constexpr const char *kHelp =
    "usage: corvinel-fmt [options] FORMAT VALUE...\n"
    "       corvinel-fmt [options] --list\n"
    "       corvinel-fmt [options] --item N [--expand]\n"
    "       corvinel-fmt --items\n"
    "\n"
    "Renders each VALUE with FORMAT and prints the outlen bytes the format left,\n"
    "one line per value.  FORMAT is NAME, NAMEw., NAMEw.d or NAME.d (any case);\n"
    "a missing width or decimals takes the format's default.  The width counts\n"
    "bytes of the session encoding (LANG), as the host counts them.  VALUE is a\n"
    "decimal number (15760, -1.5e3, inf, -inf, nan), a missing value (., ._,\n"
    ".A .. .Z), or a date, datetime or time as 2003-02-24,\n"
    "2003-02-24T12:39:43.25, 16:24:43, 24FEB2003 or 24FEB2003:12:39:43, given to\n"
    "the format as the days, seconds or seconds since midnight it reads (a date\n"
    "to a datetime format is its midnight).\n"
    "\n"
    "The name formats NLSTRMON (VALUE 1..12), NLSTRQTR (1..4) and NLSTRWK (1..7)\n"
    "take decimals as a selector: 0 the full name, 1 the abbreviated name, 2 the\n"
    "full name in upper case, 3 the abbreviated name in upper case.\n"
    "\n"
    "A locale is chosen by name (--locale, which sets ORB_LOCALE) or by its\n"
    "number, 1..136, the position of its record in the module (--locale-number,\n"
    "which the request carries); without either ORB_LOCALE decides, en_US when\n"
    "it is unset.\n"
    "\n"
    "example: corvinel-fmt --locale de_DE NLDATE20. 2003-02-24   prints\n"
    "         24. Februar 2003\n"
    "\n"
    "options:\n"
    "  --module PATH        load this module (default: libcorvinel.so beside the tool)\n"
    "  --locale NAME        set ORB_LOCALE for the run; NAME must name one of the\n"
    "                       136 compiled-in locales (de_DE, ja_JP, ...)\n"
    "  --locale-number N    the request's locale number, 1..136\n"
    "  --all-locales        render each VALUE in every locale, one line per locale\n"
    "  --check              ask the format to check width and decimals\n"
    "  --no-check           no note when width or decimals lie outside the format's\n"
    "                       limits (the format renders them as it would unchecked)\n"
    "  --utf16              ask for 16-bit units; printed as hexadecimal bytes\n"
    "  --capacity N         size of the output buffer (default: width, at least 402)\n"
    "  --bars               print each result between | and |\n"
    "  --classic            FORMAT names a classic rendering (COMMA10.2, zfmdate9.;\n"
    "                       a bare w.d such as 6.3 is w.d, zfmt)\n"
    "  --list               print the registry: name, width and decimals limits\n"
    "                       with defaults in brackets, kind (1 formats of a value,\n"
    "                       0 the currency-code formats)\n"
    "  --item N             print locale item N (0..188) of the current locale:\n"
    "                       its raw text, escapes such as <U20AC> included\n"
    "  --expand             with --item: pass the item through output expansion\n"
    "  --items              list the locale item codes and what each holds\n"
    "  --help               this text\n"
    "  --version            print the version\n"
    "\n"
    "exit status: 0 success, 2 bad arguments, 3 a format or lookup failed\n";

void print_registry(const struct fmtinfo &registry) {
  for (int32_t i = 0; i < registry.count; ++i) {
    const fmtdesc &d = registry.descriptors[i];
    std::printf("%-15.*s width %d..%d (%d)  decimals %d..%d (%d)  kind %d\n", d.namelen, d.name,
                d.minw, d.maxw, d.defw, d.mind, d.maxd, static_cast<int>(d.defd), d.kind);
  }
}

const fmtdesc *find_descriptor(const struct fmtinfo &registry, const std::string &name) {
  for (int32_t i = 0; i < registry.count; ++i) {
    const fmtdesc &d = registry.descriptors[i];
    if (static_cast<std::size_t>(d.namelen) == name.size() &&
        std::memcmp(d.name, name.data(), name.size()) == 0) {
      return &d;
    }
  }
  return nullptr;
}

// Whether FORMAT is a bare w.d ("6.3", "12.", ".2"), which names w.d itself.
bool is_bare_width_and_decimals(const std::string &format) {
  return !format.empty() && (format[0] == '.' || (format[0] >= '0' && format[0] <= '9'));
}

void print_item_codes() {
  for (int32_t i = 0; i < kItemCodeRows; ++i) {
    const ItemCodes &row = kItemCodes[i];
    if (row.first == row.last) {
      std::printf("%7d  %.*s\n", row.first, static_cast<int>(row.meaning.size()), row.meaning.data());
    } else {
      std::printf("%3d-%3d  %.*s\n", row.first, row.last, static_cast<int>(row.meaning.size()),
                  row.meaning.data());
    }
  }
}

// One line on stderr for a width or decimals outside the descriptor's
// limits: the format renders them as it does unchecked, which the host's
// users rely on, but they should learn the limits.
void note_limits(const fmtdesc &d, const std::string &name, const Rendering &rendering) {
  const auto note = [&](const char *what, int32_t value, const char *side, int32_t limit) {
    std::fprintf(stderr, "corvinel-fmt: note: %s: %s %d is %s the %s %d\n", name.c_str(), what,
                 static_cast<int>(value), side, side[0] == 'a' ? "maximum" : "minimum",
                 static_cast<int>(limit));
  };
  if (rendering.width > d.maxw) note("width", rendering.width, "above", d.maxw);
  if (rendering.width < d.minw) note("width", rendering.width, "below", d.minw);
  if (rendering.decimals > d.maxd) note("decimals", rendering.decimals, "above", d.maxd);
  if (rendering.decimals < d.mind) note("decimals", rendering.decimals, "below", d.mind);
}

// The routine, width and decimals FORMAT names.
Rendering resolve_rendering(const Module &module, const Options &options) {
  const bool bare = options.classic && is_bare_width_and_decimals(options.format);
  const ParsedFormat parsed = parse_format(bare ? "zfmt" + options.format : options.format);
  Rendering rendering;
  if (options.classic) {
    const auto classic = find_classic(parsed.name);
    if (!classic) throw UsageError("unknown classic rendering " + parsed.name);
    rendering.render = module.require<fmt_render_fn>(classic->symbol, "classic routine");
    rendering.width = parsed.width.value_or(classic->default_width);
    rendering.decimals = classic->best ? 99 : parsed.decimals.value_or(classic->default_decimals);
    return rendering;
  }
  const fmtdesc *descriptor = find_descriptor(module.registry(), parsed.name);
  if (descriptor == nullptr) {
    throw UsageError("unknown format \"" + parsed.name + "\" (corvinel-fmt --list shows the formats)");
  }
  rendering.render = descriptor->render;
  rendering.width = parsed.width.value_or(descriptor->defw);
  rendering.decimals = parsed.decimals.value_or(descriptor->defd);
  if (!options.no_check) note_limits(*descriptor, parsed.name, rendering);
  return rendering;
}

// What FORMAT reads its values as, so that date and time literals become
// the right numbers.  Formats the tool does not know read numbers; the
// lookup that follows reports them.
ValueKind value_kind(const Options &options) {
  if (options.format.empty()) return ValueKind::kNumber;
  const bool bare = options.classic && is_bare_width_and_decimals(options.format);
  if (bare) return ValueKind::kNumber;
  const std::string name = parse_format(options.format).name;
  if (!options.classic) return value_kind_of_format(name);
  const auto classic = find_classic(name);
  return classic ? classic->kind : ValueKind::kNumber;
}

int run(const std::vector<std::string> &arguments) {
  const Options options = parse_arguments(arguments);
  if (options.help) {
    std::fputs(kHelp, stdout);
    return 0;
  }
  if (options.version) {
    std::printf("corvinel-fmt %s\n", CORVINEL_VERSION);
    return 0;
  }
  if (options.items) {
    print_item_codes();
    return 0;
  }
  const ValueKind kind = value_kind(options);
  std::vector<double> values;
  for (const std::string &text : options.values) values.push_back(parse_value(text, kind));

  const Module module(options.module_path);
  const LocaleNames locales(module);
  if (options.locale_name) {
    locales.require(*options.locale_name);
    setenv("ORB_LOCALE", options.locale_name->c_str(), 1);
  }
  if (options.list) {
    print_registry(module.registry());
    return 0;
  }
  const Printer printer{options.bars, options.utf16};
  if (options.item) return show_locale_item(module, options, printer) ? 0 : kExitFailed;

  const Rendering rendering = resolve_rendering(module, options);
  bool all_succeeded = true;
  for (const double value : values) {
    if (!options.all_locales) {
      all_succeeded &= render_value(rendering, value, options, printer, options.locale_number);
      continue;
    }
    for (int32_t number = 1; number <= kLocaleRecords; ++number) {
      const std::string prefix = locales.code(number) + "  ";
      all_succeeded &= render_value(rendering, value, options, printer, number, prefix);
    }
  }
  return all_succeeded ? 0 : kExitFailed;
}

}  // namespace
}  // namespace corvinel::cli

int main(int argc, char **argv) {
  try {
    return corvinel::cli::run(std::vector<std::string>(argv + 1, argv + argc));
  } catch (const corvinel::cli::UsageError &error) {
    std::fprintf(stderr, "corvinel-fmt: %s\n", error.what());
    return corvinel::cli::kExitUsage;
  }
}

// Writes the seed corpus of every fuzz target: inputs that decode, through
// FuzzedDataProvider, into the calls of the golden test rows (formats,
// locales, values and sessions the golden tests check) and into typical
// calls of each utility.  Deterministic: run it and commit the result.
//   build/fuzz/fuzz/seed_corpus fuzz/corpus
#include <bit>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "corvinel/fmtinfo.h"
#include "corvinel/fmtreq.h"
#include "fuzz_sessions.h"

namespace {

// Builds an input the way FuzzedDataProvider takes it apart: integers from
// the end (the most significant byte consumed first), strings from the front.
class FuzzInput {
 public:
  template <typename T>
  FuzzInput &integer(T value, T min, T max) {
    const uint64_t range = static_cast<uint64_t>(max) - static_cast<uint64_t>(min);
    const uint64_t offset = static_cast<uint64_t>(value) - static_cast<uint64_t>(min);
    int bytes = 0;
    while (bytes < 8 && (range >> (8 * bytes)) > 0) ++bytes;
    for (int i = bytes - 1; i >= 0; --i) back_.push_back(static_cast<char>(offset >> (8 * i)));
    return *this;
  }
  template <typename T>
  FuzzInput &integer(T value) {
    return integer<T>(value, std::numeric_limits<T>::min(), std::numeric_limits<T>::max());
  }
  FuzzInput &flag(bool value) { return integer<uint8_t>(value ? 1 : 0); }
  FuzzInput &pick(std::size_t index, std::size_t count) {
    return integer<std::size_t>(index, 0, count - 1);
  }
  FuzzInput &bits(double value) { return integer<uint64_t>(std::bit_cast<uint64_t>(value)); }
  // A string ConsumeRandomLengthString reads back: backslashes doubled, a
  // backslash and another byte end it.
  FuzzInput &text(std::string_view s) {
    for (const char c : s) {
      front_.push_back(c);
      if (c == '\\') front_.push_back('\\');
    }
    front_ += "\\ ";
    return *this;
  }
  // What ConsumeRemainingBytes reads: the whole front.
  FuzzInput &rest(std::string_view s) {
    front_ += s;
    return *this;
  }
  std::string bytes() const { return front_ + std::string(back_.rbegin(), back_.rend()); }

 private:
  std::string front_, back_;
};

class Corpus {
 public:
  Corpus(const std::filesystem::path &root, const char *target) : dir_(root / target) {
    std::filesystem::remove_all(dir_);
    std::filesystem::create_directories(dir_);
  }
  void add(const FuzzInput &input) {
    char name[16];
    std::snprintf(name, sizeof name, "seed-%03d", count_++);
    std::ofstream(dir_ / name, std::ios::binary) << input.bytes();
  }

 private:
  std::filesystem::path dir_;
  int count_ = 0;
};

int format_index(std::string_view name) {
  for (int i = 0; i < CORVINEL_FORMAT_COUNT; ++i) {
    const fmtdesc &d = fmtinfo_eachfmt[i];
    if (name == std::string_view(d.name, static_cast<std::size_t>(d.namelen))) return i;
  }
  std::fprintf(stderr, "no format %.*s\n", static_cast<int>(name.size()), name.data());
  std::exit(1);
}

struct FormatRow {
  const char *format;
  int32_t width, decimals;
  double value;
  const char *locale;
  bool units;  // 16-bit delivery
};

// Rows of the golden tests of the number, currency, name, date, datetime
// and time formats.
constexpr double kMissing = std::bit_cast<double>(0xFFFFFE0000000000ull);
const FormatRow kFormatRows[] = {
    {"NLNUM", 12, 2, 1234567.891, "en_US", false},  {"NLNUM", 12, 2, 1234567.891, "pl_PL", false},
    {"NLNUM", 8, 2, 1234567.891, "de_DE", false},   {"NLNUM", 10, 1, -1234.5, "ar_DZ", true},
    {"NLNUM", 32, 31, 0.1, "en_US", false},         {"NLNUM", 6, 2, -0.001, "en_US", false},
    {"NLMNY", 12, 2, -1234.5, "en_US", false},      {"NLMNY", 8, 2, -std::numeric_limits<double>::infinity(), "en_US", false},
    {"NLMNY", 5, 2, 0.05, "en_US", false},          {"NLPCT", 8, 1, 0.125, "en_XX", false},
    {"NLNUMI", 10, 1, -1234.5, "ar_DZ", false},     {"NLMNIEUR", 14, 2, 1234.5, "de_DE", false},
    {"NLMNLJPY", 12, 0, -98765, "ja_JP", true},     {"NLBEST", 12, 0, 1234.5678, "fr_FR", false},
    {"NLD", 12, 3, 1234.5678, "de_DE", false},      {"NLPVALUE", 6, 4, 0.00001, "en_US", false},
    {"NLSTRMON", 12, 0, 8, "fr_FR", false},         {"NLSTRWK", 20, 1, 3, "ru_RU", true},
    {"NLSTRQTR", 20, 0, 4, "zh_CN", false},         {"NLNUM", 8, 2, kMissing, "en_US", false},
    {"NLDATE", 20, 0, 15760, "en_US", false},       {"NLDATE", 20, 0, 15760, "ja_JP", true},
    {"NLDATE", 9, 0, 15760, "en_US", false},        {"NLDATE", 12, 0, -138062, "en_US", false},
    {"NLDATE", 10, 0, 15760, "th_TH", false},       {"NLDATE", 30, 0, 15760, "ru_RU", false},
    {"NLDATM", 30, 3, 1668955132.5, "en_US", false}, {"NLDATM", 12, 0, 1668955132, "en_US", false},
    {"NLDATM", 30, 0, 1668955132, "de_DE", false},  {"NLDATMZ", 40, 0, 1668955132, "en_US", false},
    {"NLDATMAP", 30, 0, 1668955132, "ko_KR", false}, {"NLTIME", 10, 0, 52732, "en_US", false},
    {"NLTIME", 20, 2, 52732.25, "de_DE", false},    {"NLTIMAP", 11, 0, 52732, "zh_TW", true},
    {"NLDATEW", 29, 0, 15760, "ja_JP", false},      {"NLDATEYQ", 16, 0, 15760, "zh_CN", false},
    {"NLDATEWN", 10, 0, 15760, "fi_FI", false},     {"NLDATES", 10, 0, 15760, "xx_YY", false},
    {"NLDATMYMS", 7, 0, 1668955132, "de_DE", false}, {"NLDATMS", 19, 2, 1668955132.25, "en_US", false},
    {"NLDATEYW", 8, 0, 15760, "en_US", false},      {"NLDATMTZ", 20, 0, 52732, "ja_JP", false},
};

using corvinel::fuzzing::kSessionCount;

void format_seeds(const std::filesystem::path &root) {
  Corpus corpus(root, "fuzz_formats");
  std::size_t session = 0;
  for (const FormatRow &row : kFormatRows) {
    FuzzInput in;
    in.pick(session++ % kSessionCount, kSessionCount);  // each row in the next session
    in.pick(static_cast<std::size_t>(format_index(row.format)), CORVINEL_FORMAT_COUNT);
    in.flag(true).integer<int32_t>(row.width, -4, 64);
    in.flag(true).integer<int32_t>(row.decimals, -2, 40);
    in.integer<int32_t>(402 - row.width, 0, 600);       // capacity: the host's usual 402
    in.integer<uint8_t>(FMTREQ_CHECK_LIMITS);
    in.flag(true).integer<int32_t>(0, -1, 137);          // the locale from ORB_LOCALE
    in.integer<int32_t>(0);                              // xcode_a
    in.flag(true).pick(row.units ? 3 : 0, 5);            // xcode_b
    in.integer<int64_t>(0).integer<int32_t>(0).integer<intptr_t>(0);
    in.integer<int>(2, 0, 3).text(row.locale);           // ORB_LOCALE as raw bytes
    in.flag(false).bits(row.value);
    corpus.add(in);
  }
}

struct PatternRow {
  const char *pattern;
  double date, hour, minute, second;
  int32_t digits;
};

const PatternRow kPatternRows[] = {
    {"%B %d, %Y", 15760, kMissing, kMissing, kMissing, 0},
    {"%d%b%Y:%H:%M:%S", 19316, 14, 38, 52.5, 3},
    {"%A, %e. %B %Y %H.%M Uhr", 19316, 14, 38, 52, 0},
    {"%Y<U5E74>%m<U6708>%d<U65E5> %A", 15760, kMissing, kMissing, kMissing, 0},
    {"%+Y/%m/%d", 10600, kMissing, kMissing, kMissing, 0},
    {"%#a %#A %#b %#B %f %F %c %C", 15760, 0, 0, 0, 0},
    {"%q %Q %#q %#Q %U %W %V %G %g %u %w %j", -138061, kMissing, kMissing, kMissing, 0},
    {"%I:%M %p %L %P %k %n %T %Z %z %%", 15760, 23, 59, 59.9995, 2},
    {"%x %X", 6589335, 12, 0, 0, 0},
    {"%?S %3S %s %0e %_d", 15760, 1, 2, 3.25, 4},
};

void pattern_seeds(const std::filesystem::path &root) {
  Corpus corpus(root, "fuzz_patterns");
  for (const int32_t locale : {0, 1, 60, 120}) {
    for (const PatternRow &row : kPatternRows) {
      FuzzInput in;
      in.integer<int32_t>(locale, -1, 137).integer<int32_t>(120, -300, 300);
      in.integer<int32_t>(row.digits, -2, 40).integer<int>(1, 0, 7);
      for (const double part : {row.date, row.hour, row.minute, row.second}) {
        in.integer<int>(1, 0, 3).bits(part);
      }
      in.rest(row.pattern);
      corpus.add(in);
    }
  }
}

void utility_seeds(const std::filesystem::path &root) {
  Corpus corpus(root, "fuzz_utilities");
  std::size_t session = 0;
  const auto next_session = [&](FuzzInput &in) -> FuzzInput & {
    return in.pick(session++ % kSessionCount, kSessionCount);
  };
  for (const char *name : {"en_US", "de_de", "utf-8", "EBCDIC1047", "ISO-8859-15", "zh_TW"}) {
    FuzzInput in;
    next_session(in).integer<int>(0, 0, 4).text(name).flag(name[2] == '_');
    corpus.add(in);
  }
  for (int which = 0; which <= 5; ++which) {
    FuzzInput in;
    next_session(in).integer<int>(1, 0, 4).integer<int>(which, 0, 5).integer<int32_t>(32, 0, 64);
    in.text(which == 2 || which >= 3 ? std::string("A\0\xAC\x20\x3B\x04", 6) : "caf\xC3\xA9 \xE2\x82\xAC");
    in.integer<int32_t>(20, -2, 250);
    corpus.add(in);
  }
  for (const char *text : {"24. Februar 2003 <U20AC>", "<U00A4>1.234,50", "<u00e9>t<U00E9>", "abc"}) {
    for (const bool expansion : {true, false}) {
      FuzzInput in;
      next_session(in).integer<int>(2, 0, 4).flag(expansion).integer<int32_t>(402, -4, 500).integer<int32_t>(20, -4, 500);
      in.flag(false).integer<int32_t>(0, -1, 30).flag(true).pick(0, 8);
      in.text(text);
      corpus.add(in);
    }
  }
  for (int which = 0; which <= 9; ++which) {
    FuzzInput in;
    next_session(in).integer<int>(3, 0, 4).integer<int>(which, 0, 9).text("  Hello, world  ").text("lo");
    in.integer<char>('L').integer<int64_t>(-19807);
    corpus.add(in);
  }
  for (const double date : {15760.0, -138061.0, 6589335.0, 14669.0, -1.0}) {
    FuzzInput in;
    next_session(in).integer<int>(4, 0, 4);
    for (int i = 0; i < 3; ++i) in.flag(false).bits(i == 0 ? date : 2.0);
    in.pick(static_cast<std::size_t>(date < 0 ? -date : date) % 4, 5).integer<int32_t>(11, -3, 16);
    in.integer<int32_t>(4, -2, 24).integer<int32_t>(2003).flag(true);
    corpus.add(in);
  }
}

void differential_seeds(const std::filesystem::path &root) {
  Corpus corpus(root, "fuzz_differential");
  for (std::size_t session = 0; session < kSessionCount; ++session) {
    for (const char *text : {"1.234,50 <U20AC>", "2003<U5E74>02<U6708>", "f<U00E9>vrier", "<U0001>12"}) {
      FuzzInput in;
      in.pick(session, kSessionCount).integer<int>(0, 0, 2).integer<int32_t>(12, -2, 420);
      in.integer<int32_t>(402, 0, 420).flag(session == 3).text(text);
      corpus.add(in);
    }
    for (std::size_t encoding = 0; encoding < 8; ++encoding) {
      FuzzInput in;
      in.pick(session, kSessionCount).integer<int>(1, 0, 2).pick(encoding, 8).integer<int32_t>(40, -2, 450);
      in.text(std::string("A\0\xAC\x20\xE9\0\x42\x30", 8));
      corpus.add(in);
    }
    for (std::size_t item = 0; item < 6; ++item) {
      FuzzInput in;
      in.pick(session, kSessionCount).integer<int>(2, 0, 2).pick(item, 6).integer<int32_t>(12, 0, 40);
      in.flag(true).integer<int32_t>(2, -1, 32).integer<int32_t>(static_cast<int32_t>(1 + 20 * item), 0, 137);
      in.flag(session == 1).bits(-1234567.891);
      corpus.add(in);
    }
  }
}

// Host-made records: the monetary texts of a few real currencies, each
// record used for rounds with both symbols rewritten.
void currency_seeds(const std::filesystem::path &root) {
  Corpus corpus(root, "fuzz_currency");
  struct Record {
    const char *decimal, *separator, *grouping, *positive, *negative;
    char digits, layout[6];
    const char *symbols[3][2];
  };
  const Record kRecords[] = {
      {",", ".", "\3", "", "-", 2, {0, 1, 0, 1, 1, 1}, {{"EUR ", "\xE2\x82\xAC"}, {"EUR", "<U20AC>"}, {"DEM ", "DM"}}},
      {".", ",", "\3\3", "", "-", 2, {1, 0, 1, 0, 1, 0}, {{"USD ", "$"}, {"CAD ", "CA$"}, {"USD ", "US$"}}},
      {"\xD9\xAB", "\xD9\xAC", "\3", "", "-", 2, {1, 1, 1, 1, 1, 1}, {{"AFN ", "\xD8\x8B"}, {"AFN ", "Af"}, {"", ""}}},
      {".", ",", "\3", "", "\xE2\x88\x92", 0, {1, 0, 1, 0, 4, 4}, {{"JPY ", "\xEF\xBF\xA5"}, {"JPY ", "<U00A5>"}, {"JPY ", "\\"}}},
  };
  std::size_t session = 0;
  for (const Record &r : kRecords) {
    for (std::size_t path = 0; path < 2; ++path) {
      FuzzInput in;
      in.pick(session++ % kSessionCount, kSessionCount);
      in.text(r.decimal).text(r.separator).text(r.grouping).text(r.positive).text(r.negative);
      in.flag(true).integer<char>(r.digits, 0, 4).flag(true).integer<char>(r.digits, 0, 4);
      for (const char layout : r.layout) in.flag(true).integer<char>(layout, 0, 4);
      in.integer<int>(3, 1, 4);
      for (const auto &symbols : r.symbols) {
        in.text(symbols[0]).text(symbols[1]).pick(path, 2).flag(false).bits(-1234567.891);
        in.integer<int32_t>(20, 1, 48).flag(true).integer<int32_t>(2, -1, 12).flag(true);
        in.integer<int32_t>(static_cast<int32_t>(1 + 30 * path), 0, 137).flag(false);
      }
      corpus.add(in);
    }
  }
}

// A few calls each, for both destructors, warm and cold.
void teardown_seeds(const std::filesystem::path &root) {
  Corpus corpus(root, "fuzz_teardown");
  const struct {
    int format;  // a registry index, or -1 for transcoding
    double value;
  } kCalls[] = {{format_index("NLDATEW"), 15760}, {format_index("NLMNY"), -1234.5},
                {format_index("NLDATMZ"), 1.36e9}, {-1, 0}, {format_index("NLNUM"), 0.5}};
  for (std::size_t session = 0; session < kSessionCount; ++session) {
    for (const bool key : {false, true}) {
      FuzzInput in;
      in.pick(session, kSessionCount).flag(session % 2 == 0).flag(key);
      in.integer<int>(5, 1, 6);
      int locale = 60;
      for (const auto &call : kCalls) {
        in.integer<int>(call.format, -1, CORVINEL_FORMAT_COUNT - 1).integer<int32_t>(30, 1, 64);
        in.integer<int32_t>(2, 0, 12).integer<int32_t>(locale, 1, 136).integer<int>(1, 0, 3);
        in.flag(false).bits(call.value).pick(session % 6, 6);
        in.text(std::string("A\0\xAC\x20\xE9\0\xE5\x65", 8));
        locale = locale % 136 + 19;
      }
      corpus.add(in);
    }
  }
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: seed_corpus CORPUS_DIRECTORY\n");
    return 2;
  }
  const std::filesystem::path root = argv[1];
  format_seeds(root);
  pattern_seeds(root);
  utility_seeds(root);
  differential_seeds(root);
  currency_seeds(root);
  teardown_seeds(root);
  return 0;
}

#include "frame/format_catalogue.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <sstream>
#include <string_view>

#include "corvinel/fmtinfo.h"

namespace corvinel::testing {
namespace {

// name, minw, maxw, defw, kind, mind, maxd, defd, family
constexpr std::string_view kGeneralFormats = R"(
NLBEST      1  32 12 1 0 31 0  best
NLD         1  32 12 1 0 16 3  classic
NLDATE     10 200 20 1 0  0 0  date
NLDATEL     2 200 18 1 0  0 0  single-date
NLDATEM     2 200 14 1 0  0 0  single-date
NLDATEMD    6 200 16 1 0  0 0  date
NLDATEMDL   5 200 12 1 0  0 0  single-date
NLDATEMDM   5 200  9 1 0  0 0  single-date
NLDATEMDS   5 200  5 1 0  0 0  date
NLDATEMN    4 200  9 1 0  0 0  single-date
NLDATES     2 200  8 1 0  0 0  date
NLDATEW    10 200 29 1 0  0 0  single-date
NLDATEWN    4 200  9 1 0  0 0  single-date
NLDATEYM    6 200 16 1 0  0 0  date
NLDATEYML   5 200 14 1 0  0 0  single-date
NLDATEYMM   5 200 11 1 0  0 0  single-date
NLDATEYMS   5 200  7 1 0  0 0  date
NLDATEYQ    4 200 16 1 0  0 0  date
NLDATEYQL   4 200 18 1 0  0 0  single-date
NLDATEYQM   4 200  7 1 0  0 0  single-date
NLDATEYQS   4 200  6 1 0  0 0  date
NLDATEYR    2 200 16 1 0  0 0  date
NLDATEYW    5 200 16 1 0  0 0  date
NLDATM     10 200 30 1 0  3 0  datetime-checked-d0
NLDATMAP   16 200 32 1 0  3 0  datetime-checked-d0
NLDATMDT   10 200 18 1 0  0 0  single-datetime
NLDATML    19 200 30 1 0  3 0  single-datetime
NLDATMM    19 200 24 1 0  3 0  single-datetime
NLDATMMD    6 200 16 1 0  0 0  datetime
NLDATMMDL   5 200 12 1 0  0 0  single-datetime
NLDATMMDM   5 200  9 1 0  0 0  single-datetime
NLDATMMDS   5 200  5 1 0  0 0  datetime
NLDATMMN    4 200  9 1 0  0 0  single-datetime
NLDATMS    19 200 19 1 0  3 0  single-datetime
NLDATMTM   16 200 16 1 0  3 0  datetime-checked-d0
NLDATMTZ   16 200 32 1 0  3 0  datetime-checked-d0
NLDATMW    16 200 41 1 0  3 0  single-datetime
NLDATMWN    4 200  9 1 0  0 0  single-datetime
NLDATMWZ   16 200 40 1 0  3 0  datetime-checked-d0
NLDATMYM    6 200 16 1 0  0 0  datetime
NLDATMYML   5 200 14 1 0  0 0  single-datetime
NLDATMYMM   5 200 11 1 0  0 0  single-datetime
NLDATMYMS   5 200  7 1 0  0 0  datetime
NLDATMYQ    4 200 16 1 0  0 0  datetime
NLDATMYQL   4 200 18 1 0  0 0  single-datetime
NLDATMYQM   4 200  7 1 0  0 0  single-datetime
NLDATMYQS   4 200  6 1 0  0 0  datetime
NLDATMYR    2 200 16 1 0  0 0  datetime
NLDATMYW    5 200 16 1 0  0 0  datetime
NLDATMZ    16 200 40 1 0  3 0  datetime-checked-d0
NLMNY       1  32  9 1 0 31 0  number
NLMNYI      1  32  9 1 0 31 0  number
NLNUM       1  32  6 1 0 31 0  number
NLNUMI      1  32  6 1 0 31 0  number
NLPCT       4  32  6 1 0 31 0  percent
NLPCTI      4  32  6 1 0 31 0  percent
NLPCTN      4  32  6 1 0 31 0  classic
NLPCTP      4  32  6 1 0 31 0  classic
NLPVALUE    3  32  6 1 1 30 4  classic
NLSTRMON    1 200 20 1 0  3 0  month
NLSTRQTR    1 200 20 1 0  3 0  quarter
NLSTRWK     1 200 20 1 0  3 0  weekday
NLTIMAP     4 200 10 1 0  3 0  time-checked-d0
NLTIME     10 200 20 1 0  3 0  time-checked-d0
)";

// Currency code and default decimals, in registry order.
constexpr std::string_view kCurrencies =
    "AED 3 AUD 2 BGN 2 BRL 2 CAD 2 CHF 2 CNY 2 CZK 4 DKK 2 EEK 4 EGP 3 EUR 2 GBP 2 HKD 2 "
    "HRK 2 HUF 2 IDR 2 ILS 4 INR 2 JPY 0 KRW 0 LTL 4 LVL 4 MOP 2 MXN 2 MYR 2 NOK 2 NZD 2 "
    "PLN 2 ROL 4 RUB 2 RUR 2 SEK 2 SGD 2 SKK 4 THB 2 TRY 4 TWD 2 USD 2 ZAR 2";

fmt_render_fn registry_function(const std::string &name) {
  for (const fmtdesc &d : fmtinfo_eachfmt) {
    if (static_cast<std::size_t>(d.namelen) == name.size() &&
        std::memcmp(d.name, name.data(), name.size()) == 0) {
      return d.render;
    }
  }
  return nullptr;
}

std::vector<FormatCase> build_catalogue() {
  std::vector<FormatCase> cases;
  std::istringstream general{std::string(kGeneralFormats)};
  FormatCase c{};
  while (general >> c.name >> c.minw >> c.maxw >> c.defw >> c.kind >> c.mind >> c.maxd >> c.defd >>
         c.family) {
    c.render = registry_function(c.name);
    cases.push_back(c);
  }
  for (const char *prefix : {"NLMNI", "NLMNL"}) {
    std::istringstream currencies{std::string(kCurrencies)};
    std::string code;
    int32_t decimals = 0;
    while (currencies >> code >> decimals) {
      const std::string name = prefix + code;
      cases.push_back({name, 8, 32, 12, 0, 0, 28, decimals, "currency", registry_function(name)});
    }
  }
  return cases;
}

bool family_is(const FormatCase &c, std::initializer_list<std::string_view> families) {
  for (std::string_view f : families) {
    if (c.family == f) return true;
  }
  return false;
}

}  // namespace

int32_t FormatCase::checked_max_decimals() const {
  return family_is(*this, {"datetime-checked-d0", "time-checked-d0"}) ? 0 : maxd;
}

MarkRule FormatCase::mark_rule() const {
  if (family == "number") return MarkRule::UnitsPlace;
  if (family == "percent") return MarkRule::PercentField;
  if (family == "classic") return MarkRule::ClassicChoice;
  return MarkRule::RightEdge;  // BEST asks its classic rendering for decimals 99
}

OutOfRange FormatCase::out_of_range() const {
  if (family_is(*this, {"date", "datetime", "datetime-checked-d0"})) return OutOfRange::Stars;
  if (family_is(*this, {"single-date", "single-datetime"})) return OutOfRange::Untouched;
  if (family_is(*this, {"month", "quarter", "weekday"})) return OutOfRange::Blank;
  return OutOfRange::NotApplicable;
}

std::vector<double> FormatCase::values_out_of_range() const {
  constexpr double inf = std::numeric_limits<double>::infinity();
  const double nan = std::nan("");
  std::vector<double> values{nan, -nan, inf, -inf, 1e300, -1e300};
  if (family_is(*this, {"date", "single-date"})) {
    values.insert(values.end(), {-138062, -138061.5, 6589336, 6589336.5, 1e7});
  } else if (family_is(*this, {"datetime", "datetime-checked-d0", "single-datetime"})) {
    values.insert(values.end(), {-11928470400.5, -11928470401, 569318630400, 569318630400.5});
  } else if (family_is(*this, {"month", "quarter", "weekday"})) {
    const double last = family == "month" ? 12 : family == "quarter" ? 4 : 7;
    values.insert(values.end(), {0, 0.999, -1, last + 0.001, last + 1, -0.0});
  }
  return values;
}

bool FormatCase::calls_classic_rendering() const { return family_is(*this, {"classic", "best"}); }
bool FormatCase::narrows_capacity() const { return family == "classic"; }
bool FormatCase::clamps_width() const { return family_is(*this, {"number", "percent"}); }

void PrintTo(const FormatCase &c, std::ostream *os) { *os << c.name; }

const std::vector<FormatCase> &all_formats() {
  static const std::vector<FormatCase> catalogue = build_catalogue();
  return catalogue;
}

int64_t expected_mark_position(MarkRule rule, int32_t width, int32_t decimals) {
  const bool inside = decimals >= 0 && decimals < width;
  int64_t position = -1;
  switch (rule) {
    case MarkRule::UnitsPlace:
      position = inside ? int64_t{width} - 1 - decimals : int64_t{width} - 1;
      break;
    case MarkRule::PercentField:
      position = inside ? int64_t{width} - 3 - decimals : int64_t{width} - 3;
      break;
    case MarkRule::RightEdge:
    case MarkRule::ClassicChoice:
      position = int64_t{width} - 1;
      break;
  }
  return position >= 0 ? position : -1;
}

}  // namespace corvinel::testing

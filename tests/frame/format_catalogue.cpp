#include "frame/format_catalogue.h"

#include <sstream>

#include "corvinel/fmtinfo.h"

namespace corvinel::testing {
namespace {

// name, minw, maxw, defw, kind, mind, maxd, defd, family; two formats a line
constexpr const char *kGeneralFormats = R"(
NLBEST      1  32 12 1 0 31 0 best              NLD         1  32 12 1 0 16 3 classic
NLDATE     10 200 20 1 0  0 0 date              NLDATEL     2 200 18 1 0  0 0 single-date
NLDATEM     2 200 14 1 0  0 0 single-date       NLDATEMD    6 200 16 1 0  0 0 date
NLDATEMDL   5 200 12 1 0  0 0 single-date       NLDATEMDM   5 200  9 1 0  0 0 single-date
NLDATEMDS   5 200  5 1 0  0 0 date              NLDATEMN    4 200  9 1 0  0 0 single-date
NLDATES     2 200  8 1 0  0 0 date              NLDATEW    10 200 29 1 0  0 0 single-date
NLDATEWN    4 200  9 1 0  0 0 single-date       NLDATEYM    6 200 16 1 0  0 0 date
NLDATEYML   5 200 14 1 0  0 0 single-date       NLDATEYMM   5 200 11 1 0  0 0 single-date
NLDATEYMS   5 200  7 1 0  0 0 date              NLDATEYQ    4 200 16 1 0  0 0 date
NLDATEYQL   4 200 18 1 0  0 0 single-date       NLDATEYQM   4 200  7 1 0  0 0 single-date
NLDATEYQS   4 200  6 1 0  0 0 date              NLDATEYR    2 200 16 1 0  0 0 date
NLDATEYW    5 200 16 1 0  0 0 date              NLDATM     10 200 30 1 0  3 0 datetime-d0
NLDATMAP   16 200 32 1 0  3 0 datetime-d0       NLDATMDT   10 200 18 1 0  0 0 single-datetime
NLDATML    19 200 30 1 0  3 0 single-datetime   NLDATMM    19 200 24 1 0  3 0 single-datetime
NLDATMMD    6 200 16 1 0  0 0 datetime          NLDATMMDL   5 200 12 1 0  0 0 single-datetime
NLDATMMDM   5 200  9 1 0  0 0 single-datetime   NLDATMMDS   5 200  5 1 0  0 0 datetime
NLDATMMN    4 200  9 1 0  0 0 single-datetime   NLDATMS    19 200 19 1 0  3 0 single-datetime
NLDATMTM   16 200 16 1 0  3 0 datetime-d0       NLDATMTZ   16 200 32 1 0  3 0 datetime-d0
NLDATMW    16 200 41 1 0  3 0 single-datetime   NLDATMWN    4 200  9 1 0  0 0 single-datetime
NLDATMWZ   16 200 40 1 0  3 0 datetime-d0       NLDATMYM    6 200 16 1 0  0 0 datetime
NLDATMYML   5 200 14 1 0  0 0 single-datetime   NLDATMYMM   5 200 11 1 0  0 0 single-datetime
NLDATMYMS   5 200  7 1 0  0 0 datetime          NLDATMYQ    4 200 16 1 0  0 0 datetime
NLDATMYQL   4 200 18 1 0  0 0 single-datetime   NLDATMYQM   4 200  7 1 0  0 0 single-datetime
NLDATMYQS   4 200  6 1 0  0 0 datetime          NLDATMYR    2 200 16 1 0  0 0 datetime
NLDATMYW    5 200 16 1 0  0 0 datetime          NLDATMZ    16 200 40 1 0  3 0 datetime-d0
NLMNY       1  32  9 1 0 31 0 number            NLMNYI      1  32  9 1 0 31 0 number
NLNUM       1  32  6 1 0 31 0 number            NLNUMI      1  32  6 1 0 31 0 number
NLPCT       4  32  6 1 0 31 0 percent           NLPCTI      4  32  6 1 0 31 0 percent
NLPCTN      4  32  6 1 0 31 0 classic           NLPCTP      4  32  6 1 0 31 0 classic
NLPVALUE    3  32  6 1 1 30 4 classic           NLSTRMON    1 200 20 1 0  3 0 month
NLSTRQTR    1 200 20 1 0  3 0 quarter           NLSTRWK     1 200 20 1 0  3 0 weekday
NLTIMAP     4 200 10 1 0  3 0 time-d0           NLTIME     10 200 20 1 0  3 0 time-d0
)";

// Currency code and default decimals, in registry order: an NLMNI and an
// NLMNL format each, width 8..32 (12), decimals 0..28, kind 0.
constexpr const char *kCurrencies =
    "AED 3 AUD 2 BGN 2 BRL 2 CAD 2 CHF 2 CNY 2 CZK 4 DKK 2 EEK 4 EGP 3 EUR 2 GBP 2 HKD 2 "
    "HRK 2 HUF 2 IDR 2 ILS 4 INR 2 JPY 0 KRW 0 LTL 4 LVL 4 MOP 2 MXN 2 MYR 2 NOK 2 NZD 2 "
    "PLN 2 ROL 4 RUB 2 RUR 2 SEK 2 SGD 2 SKK 4 THB 2 TRY 4 TWD 2 USD 2 ZAR 2";

// Looked up by the blank-padded name field alone, so that a wrong namelen
// cannot hide a row.
fmt_render_fn registry_function(const std::string &name) {
  const std::string padded = name + std::string(15 - name.size(), ' ');
  for (const fmtdesc &d : fmtinfo_eachfmt) {
    if (std::string(d.name, 15) == padded) return d.render;
  }
  return nullptr;
}

std::vector<FormatCase> build_catalogue() {
  std::vector<FormatCase> cases;
  std::istringstream general(kGeneralFormats);
  for (FormatCase c{}; general >> c.name >> c.minw >> c.maxw >> c.defw >> c.kind >> c.mind >>
                       c.maxd >> c.defd >> c.family;) {
    cases.push_back(c);
  }
  for (const std::string prefix : {"NLMNI", "NLMNL"}) {
    std::istringstream currencies(kCurrencies);
    std::string code;
    for (int32_t defd = 0; currencies >> code >> defd;) {
      cases.push_back({prefix + code, 8, 32, 12, 0, 0, 28, defd, "currency", nullptr});
    }
  }
  for (FormatCase &c : cases) c.render = registry_function(c.name);
  return cases;
}

}  // namespace

const std::vector<FormatCase> &all_formats() {
  static const std::vector<FormatCase> catalogue = build_catalogue();
  return catalogue;
}

}  // namespace corvinel::testing

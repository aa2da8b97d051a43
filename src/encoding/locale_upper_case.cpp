#include "encoding/locale_upper_case.h"

#include <algorithm>

#include "corvinel/unicode.h"
#include "encoding/unicode_tables.h"

namespace corvinel::encoding {
namespace {

constexpr uint16_t kCapitalIota = 0x0399, kCapitalUpsilon = 0x03A5;
constexpr uint16_t kIotaWithDialytika = 0x03AA, kUpsilonWithDialytika = 0x03AB;

uint16_t simple_upper(uint16_t unit) {
  UPCASE(&unit, 1);
  return unit;
}

// The capital of one Greek letter and what it carries.
struct GreekLetter {
  uint16_t capital;
  uint8_t flags;
};

GreekLetter greek_letter(uint16_t unit) {
  const GreekCapital *const end = skz_greek_capitals + skz_greek_capital_count;
  const GreekCapital *const found = std::lower_bound(
      skz_greek_capitals, end, unit, [](const GreekCapital &g, uint16_t u) { return g.from < u; });
  if (found != end && found->from == unit) return {found->capital, found->flags};
  const uint16_t capital = simple_upper(unit);
  const bool letter = (unit >= 0x0391 && unit <= 0x03A9) || (unit >= 0x03B1 && unit <= 0x03C9);
  switch (letter ? capital : 0) {
    case 0x0391: case 0x0395: case 0x0397: case kCapitalIota: case 0x039F: case kCapitalUpsilon:
    case 0x03A9:
      return {capital, kGreekVowel};
    default:
      return {capital, 0};
  }
}

// Greek capitals carry no accents.  An iota or upsilon after a vowel whose
// accent went gains a dialytika, so that the two are still read apart
// (Μάιος: ΜΑΪΟΣ), unless that vowel had or gained a dialytika itself.
void upper_case_greek(uint16_t *units, int32_t n) {
  bool after_accented_vowel = false;
  for (int32_t i = 0; i < n; ++i) {
    GreekLetter letter = greek_letter(units[i]);
    if ((letter.flags & kGreekVowel) != 0 && after_accented_vowel) {
      if (letter.capital == kCapitalIota) {
        letter = {kIotaWithDialytika, static_cast<uint8_t>(letter.flags | kGreekDialytika)};
      } else if (letter.capital == kCapitalUpsilon) {
        letter = {kUpsilonWithDialytika, static_cast<uint8_t>(letter.flags | kGreekDialytika)};
      }
    }
    after_accented_vowel = (letter.flags & (kGreekVowel | kGreekAccent | kGreekDialytika)) ==
                           (kGreekVowel | kGreekAccent);
    units[i] = letter.capital;
  }
}

}  // namespace

CaseRules case_rules_of(std::string_view language) {
  if (language == "tr" || language == "az") return CaseRules::kTurkic;
  if (language == "el") return CaseRules::kGreek;
  return CaseRules::kPlain;
}

void upper_case_units(uint16_t *units, int32_t n, CaseRules rules) {
  switch (rules) {
    case CaseRules::kGreek:
      upper_case_greek(units, n);
      return;
    case CaseRules::kTurkic:
      for (int32_t i = 0; i < n; ++i) {
        const uint16_t unit = units[i];
        units[i] = unit == u'i' ? u'\u0130' : unit == u'\u0131' ? u'I' : simple_upper(unit);
      }
      return;
    case CaseRules::kPlain:
      UPCASE(units, n);
      return;
  }
}

}  // namespace corvinel::encoding

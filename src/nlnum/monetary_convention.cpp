#include "nlnum/monetary_convention.h"

#include <cstdlib>

#include "locale/locale_records.h"

namespace corvinel::nlnum {
namespace {

std::string_view text_of(const locitem *record, int item) {
  if (record == nullptr || record[item].text == nullptr) return {};
  return {record[item].text, static_cast<std::size_t>(record[item].length)};
}

// Digit items are read as atol reads them; a missing item is 0.
int32_t number_of(const locitem *record, int item) {
  if (record == nullptr || record[item].text == nullptr) return 0;
  return static_cast<int32_t>(std::atol(record[item].text));
}

// The digits per group: the first character's digit value, 0 for an empty
// item and for a text that does not start with a digit.
int32_t grouping_of(const locitem *record, int item) {
  const std::string_view text = text_of(record, item);
  if (text.empty() || text.front() < '0' || text.front() > '9') return 0;
  return text.front() - '0';
}

}  // namespace

MonetaryConvention read_monetary_convention(int32_t locale) {
  return read_monetary_convention(locale::select_record(locale));
}

MonetaryConvention read_monetary_convention(const locitem *record) {
  MonetaryConvention convention;
  convention.decimal = text_of(record, 157);
  convention.separator = text_of(record, 158);
  convention.grouping = grouping_of(record, 159);
  convention.positive = text_of(record, 160);
  convention.negative = text_of(record, 161);
  convention.p_cs_precedes = number_of(record, 164);
  convention.p_sep_by_space = number_of(record, 165);
  convention.n_cs_precedes = number_of(record, 166);
  convention.n_sep_by_space = number_of(record, 167);
  convention.p_sign_posn = number_of(record, 168);
  convention.n_sign_posn = number_of(record, 169);
  return convention;
}

}  // namespace corvinel::nlnum

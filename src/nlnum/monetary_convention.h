// The monetary conventions of the request's locale (items 157..169) that the
// currency-code formats lay an amount out by.
#pragma once

#include <cstdint>
#include <string_view>

#include "corvinel/locale_db.h"

namespace corvinel::nlnum {

// Items that are missing (a locale that ORB_LOCALE does not name) read as
// empty texts and 0.  The texts point into the locale database.
struct MonetaryConvention {
  std::string_view decimal;    // 157
  std::string_view separator;  // 158
  int32_t grouping = 0;        // 159: its first character's digit ("3;2" gives 3)
  std::string_view positive;   // 160
  std::string_view negative;   // 161
  int32_t p_cs_precedes = 0;   // 164
  int32_t p_sep_by_space = 0;  // 165
  int32_t n_cs_precedes = 0;   // 166
  int32_t n_sep_by_space = 0;  // 167
  int32_t p_sign_posn = 0;     // 168
  int32_t n_sign_posn = 0;     // 169
};

// The convention of `locale` (a locale number, see getORBLocDB).  The record
// is chosen once and its items read in place: the same values as fetching
// each item with wzssglc, which would choose the same record every time.
// Items 155, 156, 162 and 163 belong to the convention too but change no
// output, so they are not read.
MonetaryConvention read_monetary_convention(int32_t locale);
// The same for a record already chosen (null: a locale ORB_LOCALE does not
// name).
MonetaryConvention read_monetary_convention(const locitem *record);

}  // namespace corvinel::nlnum

// zkfdate, zkfdttm, zkftime: from a format's value and pattern (or locale
// item) to the parts the expander takes.
#include "nldate/entry_routines.h"

#include <cmath>
#include <cstring>

#include "calendar/time_split.h"
#include "corvinel/calendar.h"
#include "corvinel/missing.h"
#include "corvinel/rounding.h"
#include "locale/locale_records.h"
#include "nldate/pattern_expander.h"

namespace corvinel::nldate {
int32_t EntryExpansion::expand(char *buffer, int32_t *field_width) const noexcept {
  return expand_in_record(record_, pattern_, length_, buffer, field_width, digits_, date_, hour_,
                          minute_, second_);
}

namespace {

int32_t enter(ValueKind kind, int32_t locale, char *buffer, int32_t *field_width,
              const char *pattern, int32_t selector, int32_t fraction_digits, double value) {
  EntryExpansion entry;
  const int32_t prepared =
      entry.prepare(kind, locale::select_record(locale), pattern, selector, fraction_digits, value);
  return prepared != 0 ? prepared : entry.expand(buffer, field_width);
}

}  // namespace

int32_t zkfdate(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, double date) {
  return enter(ValueKind::Date, locale, buffer, field_width, pattern, selector, 0, date);
}

int32_t zkfdttm(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, int32_t fraction_digits, double datetime) {
  return enter(ValueKind::Datetime, locale, buffer, field_width, pattern, selector,
               fraction_digits, datetime);
}

int32_t zkftime(int32_t locale, char *buffer, int32_t *field_width, const char *pattern,
                int32_t selector, int32_t fraction_digits, double time) {
  return enter(ValueKind::Time, locale, buffer, field_width, pattern, selector, fraction_digits,
               time);
}

}  // namespace corvinel::nldate

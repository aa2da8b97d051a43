#include "nlnum/currency_layouts.h"

#include "corvinel/currency.h"

// Indexed by (cs_precedes + 2 * sep_by_space) * 5 + sign_posn.  Note that
// sign_posn 4 repeats 2 when the symbol follows the number, and 3 repeats 1
// when it precedes.
extern "C" const char *const CurrencyFormatPatterns[CORVINEL_CURRENCY_LAYOUTS] = {
    // sep_by_space 0, symbol after the number
    "(V$)", "-V$", "V$-", "V-$", "V$-",
    // sep_by_space 0, symbol before the number
    "($V)", "-$V", "$V-", "-$V", "$-V",
    // sep_by_space 1, symbol after the number
    "(V $)", "-V $", "V $-", "V- $", "V $-",
    // sep_by_space 1, symbol before the number
    "($ V)", "-$ V", "$ V-", "-$ V", "$ -V",
};

namespace corvinel::nlnum {

const char *layout_for(int32_t cs_precedes, int32_t sep_by_space, int32_t sign_posn) {
  const int32_t precedes = cs_precedes != 0 ? 1 : 0;
  const int32_t blank = sep_by_space != 0 ? 1 : 0;
  const int32_t position = (sign_posn >= 0 && sign_posn <= 4) ? sign_posn : 1;
  return CurrencyFormatPatterns[(precedes + 2 * blank) * 5 + position];
}

}  // namespace corvinel::nlnum

// Case-insensitive comparison and upper-casing through the process locale's
// toupper (a Latin-1 locale folds the accented letters too, C folds a-z).
#include <cctype>

#include "corvinel/text.h"
#include "text/byte_text.h"

using namespace corvinel::text;

extern "C" int32_t wzsteqn(const char *a, int32_t na, const char *b, int32_t nb) {
  const std::size_t len = counted_length(a, na);
  if (len != counted_length(b, nb)) return 0;
  const unsigned char *x = bytes(a);
  const unsigned char *y = bytes(b);
  for (std::size_t i = 0; i < len; ++i)
    if (x[i] != y[i] && std::toupper(x[i]) != std::toupper(y[i])) return 0;
  return 1;
}

extern "C" void wzstrup(char *s, int32_t n) {
  unsigned char *b = bytes(s);
  for (std::size_t i = 0, len = counted_or_terminated_length(s, n); i < len; ++i)
    b[i] = static_cast<unsigned char>(std::toupper(b[i]));
}

#include "nldate/entry_routines.h"

namespace corvinel::nldate {

// Not built yet: every pattern counts as one whose item cannot be fetched.
int32_t zkfdate(int32_t, char *, int32_t *, const char *, int32_t, double) {
  return kItemNotFetched;
}
int32_t zkfdttm(int32_t, char *, int32_t *, const char *, int32_t, int32_t, double) {
  return kItemNotFetched;
}
int32_t zkftime(int32_t, char *, int32_t *, const char *, int32_t, int32_t, double) {
  return kItemNotFetched;
}

}  // namespace corvinel::nldate

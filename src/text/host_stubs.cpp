// Entry points the host links against that have little or nothing to do on
// this platform.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "corvinel/text.h"

extern "C" const char *wztxlit(const char *x) { return x; }

extern "C" int32_t wzmisc(double x) {
  std::fputs("in wzmisc in mvsextra...\n", stdout);
  std::fflush(stdout);
  uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  return static_cast<int32_t>(bits & 0xFF);
}

extern "C" void vaterm(void) {}

// At once: no exit handlers, no flushing of buffered output.  The status is
// deliberately 0, not a failure status.
extern "C" void vacrash(void) { std::_Exit(0); }

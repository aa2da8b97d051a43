// The module's version, from the build's one place for it (CMake's project
// version).
#include "corvinel/version.h"

extern "C" const char corvinel_version[] = CORVINEL_VERSION;

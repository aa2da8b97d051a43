/* The module's version. */
#ifndef CORVINEL_VERSION_H
#define CORVINEL_VERSION_H

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* "major.minor.patch", the version the module was built as; a host can
   compare it with the headers it was compiled against. */
CORVINEL_API extern const char corvinel_version[];

CORVINEL_EXTERN_C_END

#endif

// nlmnyint and nlmnyloc with every attempt composed in the symbolic
// notation and passed through output expansion, as the formats were first
// written: the reference the tests compare the formats' one pass with.
#pragma once

#include <cstdint>

#include "corvinel/currency.h"
#include "corvinel/fmtreq.h"

namespace corvinel::nlnum {

int32_t nlmnyint_general(fmtreq *request, const monetary_conventions *currency);
int32_t nlmnyloc_general(fmtreq *request, const monetary_conventions *currency);

}  // namespace corvinel::nlnum

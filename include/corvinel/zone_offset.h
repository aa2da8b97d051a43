/* The zone offset "%z" writes, chosen by the host for one thread. */
#ifndef CORVINEL_ZONE_OFFSET_H
#define CORVINEL_ZONE_OFFSET_H

#include <stdint.h>

#include "corvinel/export.h"

CORVINEL_EXTERN_C_BEGIN

/* With a pointer, "%z" writes *seconds_east_of_utc (3600: "+0100", -12600:
   "-0330"; seconds are dropped, hours beyond 99 shown as 99) in every
   format the calling thread runs until it calls again; with NULL it writes
   the machine's own offset again.  Other threads are not affected.  A
   database host sets the offset of its session's zone at the value being
   shown before a call and clears it afterwards. */
CORVINEL_API void corvinel_set_zone_offset(const int32_t *seconds_east_of_utc);

CORVINEL_EXTERN_C_END

#endif

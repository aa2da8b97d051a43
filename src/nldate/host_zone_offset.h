// The zone offset a host chose for the calling thread, which "%z" writes in
// place of the machine's.
#pragma once

namespace corvinel::nldate {

// Writes the host's offset as "+hhmm" or "-hhmm" into out[0..4] and returns
// true, or returns false when the thread has none.
bool write_host_zone_offset(char *out) noexcept;

}  // namespace corvinel::nldate

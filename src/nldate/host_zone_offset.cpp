#include "nldate/host_zone_offset.h"

#include <cstdint>
#include <cstdlib>

#include "corvinel/zone_offset.h"

namespace corvinel::nldate {
namespace {

struct HostZone {
  bool set;
  int32_t seconds_east;
};

thread_local HostZone host_zone{};

}  // namespace

bool write_host_zone_offset(char *out) noexcept {
  const HostZone zone = host_zone;
  if (!zone.set) return false;
  const int64_t magnitude = std::llabs(static_cast<int64_t>(zone.seconds_east));
  int64_t hours = magnitude / 3600;
  int64_t minutes = magnitude % 3600 / 60;
  if (hours > 99) {
    hours = 99;
    minutes = 59;
  }
  out[0] = zone.seconds_east < 0 ? '-' : '+';
  out[1] = static_cast<char>('0' + hours / 10);
  out[2] = static_cast<char>('0' + hours % 10);
  out[3] = static_cast<char>('0' + minutes / 10);
  out[4] = static_cast<char>('0' + minutes % 10);
  return true;
}

}  // namespace corvinel::nldate

extern "C" void corvinel_set_zone_offset(const int32_t *seconds_east_of_utc) {
  corvinel::nldate::host_zone = seconds_east_of_utc != nullptr
                                    ? corvinel::nldate::HostZone{true, *seconds_east_of_utc}
                                    : corvinel::nldate::HostZone{false, 0};
}

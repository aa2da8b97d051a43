// Per-thread memos reached once per call.
//
// In a module loaded with dlopen, the address of a thread_local object is
// worked out by a call to __tls_get_addr, and the compiler may work it out
// again at every use rather than keep it in a register.  `pinned` hands
// the compiler an address it cannot work out again, so a routine that takes
// it once pays for one such call.
//
// A memo's type has no destructor (teardown_safe): a thread_local object of
// a trivially destructible type is never destroyed, so the formats a host
// calls from its own destructors during a thread's cleanup, or from atexit
// handlers, still find the memo whole.
#pragma once

#include <type_traits>

namespace corvinel::frame {

template <typename T>
inline constexpr bool teardown_safe = std::is_trivially_destructible_v<T>;

template <typename T>
inline T *pinned(T *address) {
  asm("" : "+r"(address));
  return address;
}

}  // namespace corvinel::frame

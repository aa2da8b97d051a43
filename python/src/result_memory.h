// Memory for large results.  A fresh array of a million fields is tens of
// megabytes the kernel must fault in and clear page by page before the
// threads write it, and two threads faulting at once slow each other down:
// on a two-core machine that took a quarter of the work.  Every byte of a
// result is written anyway (text, then NUL padding), so the memory of the
// last large result Python freed is kept, already faulted in, for the next
// one.  At most one such buffer is kept idle.  Fresh buffers are asked to
// use transparent huge pages.
#pragma once

#include <cstddef>

namespace corvinel::python {

// Results smaller than this come from numpy's own allocation.
inline constexpr std::size_t kKeptResultBytes = std::size_t{1} << 20;

struct ResultMemory {
  void *data = nullptr;
  std::size_t capacity = 0;  // bytes mapped
};

// Memory for at least `bytes` (from kKeptResultBytes on): the idle buffer
// when it is large enough and not more than twice as large, fresh memory
// otherwise; data is null when the system has none.
ResultMemory take_result_memory(std::size_t bytes);

// Called when the array that used `memory` is freed: it becomes the idle
// buffer, and the buffer idle until then is unmapped.
void give_back_result_memory(ResultMemory memory);

}  // namespace corvinel::python

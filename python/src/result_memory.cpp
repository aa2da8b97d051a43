#include "result_memory.h"

#include <sys/mman.h>

#include <mutex>
#include <utility>

namespace corvinel::python {
namespace {

std::mutex idle_lock;
ResultMemory idle;  // guarded by idle_lock

}  // namespace

ResultMemory take_result_memory(std::size_t bytes) {
  {
    const std::lock_guard<std::mutex> hold(idle_lock);
    if (idle.data != nullptr && idle.capacity >= bytes && idle.capacity / 2 <= bytes) {
      return std::exchange(idle, ResultMemory{});
    }
  }
  void *data = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (data == MAP_FAILED) return {};
  // Transparent huge pages where the kernel gives them on request: a fault
  // per 2 MiB instead of per 4 KiB when the threads first write the result.
  madvise(data, bytes, MADV_HUGEPAGE);
  return {data, bytes};
}

void give_back_result_memory(ResultMemory memory) {
  ResultMemory unneeded;
  {
    const std::lock_guard<std::mutex> hold(idle_lock);
    unneeded = std::exchange(idle, memory);
  }
  if (unneeded.data != nullptr) munmap(unneeded.data, unneeded.capacity);
}

}  // namespace corvinel::python

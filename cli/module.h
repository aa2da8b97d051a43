// The module as a host sees it: loaded with dlopen, entered through
// `corvinel`, other routines found by name.
#pragma once

#include <string>

#include "corvinel/fmtinfo.h"

namespace corvinel::cli {

class Module {
 public:
  // Loads the module at `path`, or libcorvinel.so beside this executable when
  // `path` is empty.  Throws UsageError when it cannot be loaded or has no
  // entry.
  explicit Module(const std::string &path);
  ~Module();
  Module(const Module &) = delete;
  Module &operator=(const Module &) = delete;

  // The registry the entry returned.
  const struct fmtinfo &registry() const { return *registry_; }

  // The module's routine called `name`, or nullptr.
  void *find(const std::string &name) const;

  // The routine called `name`; throws UsageError naming `what` when absent.
  template <typename Function>
  Function require(const std::string &name, const std::string &what) const {
    return reinterpret_cast<Function>(find_or_throw(name, what));
  }

 private:
  void *find_or_throw(const std::string &name, const std::string &what) const;

  void *handle_ = nullptr;
  const struct fmtinfo *registry_ = nullptr;
};

}  // namespace corvinel::cli

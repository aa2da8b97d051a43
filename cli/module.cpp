#include "module.h"

#include <dlfcn.h>
#include <unistd.h>

#include <array>

#include "arguments.h"

namespace corvinel::cli {
namespace {

constexpr const char *kModuleFile = "libcorvinel.so";

// libcorvinel.so in the directory of the running executable (the build
// tree), else in the library directory of the installation the executable
// belongs to, else wherever dlopen finds it.
std::string default_module() {
  std::array<char, 4096> path{};
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size() - 1);
  if (length <= 0) return kModuleFile;
  std::string directory(path.data(), static_cast<std::size_t>(length));
  directory.erase(directory.find_last_of('/') + 1);
  for (const std::string &candidate :
       {directory + kModuleFile, directory + CORVINEL_MODULE_FROM_BIN + "/" + kModuleFile}) {
    if (access(candidate.c_str(), R_OK) == 0) return candidate;
  }
  return kModuleFile;
}

using EntryFunction = const struct fmtinfo *(*)();

}  // namespace

Module::Module(const std::string &path) {
  const std::string file = path.empty() ? default_module() : path;
  handle_ = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle_ == nullptr) {
    // The loader's reason starts with the file name, shown once and cut.
    const char *error = dlerror();
    std::string_view reason = error != nullptr ? error : "unknown error";
    if (reason.starts_with(file + ": ")) reason.remove_prefix(file.size() + 2);
    throw UsageError("cannot load module " + shown_argument(file) + ": " + shown_argument(reason));
  }
  try {
    const auto entry = require<EntryFunction>("corvinel", "module entry");
    registry_ = entry();
    if (registry_ == nullptr) throw UsageError("the module entry returned no registry");
  } catch (...) {
    dlclose(handle_);
    throw;
  }
}

Module::~Module() {
  if (handle_ != nullptr) dlclose(handle_);
}

void *Module::find(const std::string &name) const { return dlsym(handle_, name.c_str()); }

void *Module::find_or_throw(const std::string &name, const std::string &what) const {
  void *symbol = find(name);
  if (symbol == nullptr) throw UsageError("the module has no " + what + " " + name);
  return symbol;
}

}  // namespace corvinel::cli

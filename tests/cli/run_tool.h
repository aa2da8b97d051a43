// Runs corvinel-fmt (the path in CORVINEL_FMT) as a separate process.
#pragma once

#include <string>
#include <vector>

namespace corvinel::testing {

struct ToolRun {
  int exit_status = -1;  // -1 when the tool did not exit normally
  std::string out;
  std::string err;
};

// Runs the tool with `arguments` in this process's environment without
// ORB_LOCALE, plus `environment` ("NAME=value" entries).
ToolRun run_tool(const std::vector<std::string> &arguments,
                 const std::vector<std::string> &environment = {});

}  // namespace corvinel::testing

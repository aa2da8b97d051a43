#include "run_tool.h"

#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>

extern char **environ;

namespace corvinel::testing {
namespace {

std::vector<char *> pointers(std::vector<std::string> &texts) {
  std::vector<char *> out;
  for (std::string &text : texts) out.push_back(text.data());
  out.push_back(nullptr);
  return out;
}

// Reads both pipes until each is closed, so that neither can fill and block
// the tool.
void drain(int out_fd, int err_fd, std::string *out, std::string *err) {
  std::array<pollfd, 2> fds{{{out_fd, POLLIN, 0}, {err_fd, POLLIN, 0}}};
  std::array<std::string *, 2> sinks{out, err};
  int open_count = 2;
  while (open_count > 0) {
    if (poll(fds.data(), fds.size(), -1) < 0) break;
    for (std::size_t i = 0; i < fds.size(); ++i) {
      if (fds[i].fd < 0 || fds[i].revents == 0) continue;
      char chunk[4096];
      const ssize_t n = read(fds[i].fd, chunk, sizeof chunk);
      if (n > 0) {
        sinks[i]->append(chunk, static_cast<std::size_t>(n));
      } else {
        close(fds[i].fd);
        fds[i].fd = -1;
        --open_count;
      }
    }
  }
}

}  // namespace

ToolRun run_tool(const std::vector<std::string> &arguments,
                 const std::vector<std::string> &environment) {
  ToolRun run;
  const char *tool = std::getenv("CORVINEL_FMT");
  if (tool == nullptr) {
    run.err = "CORVINEL_FMT is not set";
    return run;
  }
  std::vector<std::string> argv{tool};
  argv.insert(argv.end(), arguments.begin(), arguments.end());
  std::vector<std::string> envp;
  for (char **e = environ; *e != nullptr; ++e) {
    if (std::strncmp(*e, "ORB_LOCALE=", 11) != 0) envp.emplace_back(*e);
  }
  envp.insert(envp.end(), environment.begin(), environment.end());

  int out_pipe[2], err_pipe[2];
  if (pipe(out_pipe) != 0 || pipe(err_pipe) != 0) return run;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, out_pipe[1], 1);
  posix_spawn_file_actions_adddup2(&actions, err_pipe[1], 2);
  for (int fd : {out_pipe[0], out_pipe[1], err_pipe[0], err_pipe[1]}) {
    posix_spawn_file_actions_addclose(&actions, fd);
  }
  std::vector<char *> argv_pointers = pointers(argv);
  std::vector<char *> envp_pointers = pointers(envp);
  pid_t pid = -1;
  const int spawned =
      posix_spawn(&pid, tool, &actions, nullptr, argv_pointers.data(), envp_pointers.data());
  posix_spawn_file_actions_destroy(&actions);
  close(out_pipe[1]);
  close(err_pipe[1]);
  if (spawned != 0) {
    close(out_pipe[0]);
    close(err_pipe[0]);
    run.err = std::string("cannot start the tool: ") + std::strerror(spawned);
    return run;
  }
  drain(out_pipe[0], err_pipe[0], &run.out, &run.err);
  int status = 0;
  waitpid(pid, &status, 0);
  if (WIFEXITED(status)) run.exit_status = WEXITSTATUS(status);
  return run;
}

}  // namespace corvinel::testing

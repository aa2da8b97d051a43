// What the module keeps per thread.  Its size: the thread-local storage the
// C library sets up for each thread that formats, within the bound the host
// guide states.  Its teardown: formats called while a thread is torn down
// (teardown_host), each of the
// four ways a host gets there, in a session whose codeset goes through a
// kept iconv converter, with the pattern's thread formatting before its
// cleanup and without; directly and under valgrind's memcheck, which sees
// a use of freed memory and a converter that is never closed in the
// optimised build the address sanitizer does not look at.
#include <elf.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "support/session_locales.h"

namespace {

using corvinel::testing::kEucJpLocale;
using corvinel::testing::kLatin9Locale;

// The memory size of the module's PT_TLS segment, or -1.
long thread_local_bytes(const std::string &module) {
  std::ifstream in(module, std::ios::binary);
  const std::string image{std::istreambuf_iterator<char>(in), {}};
  Elf64_Ehdr header;
  if (image.size() < sizeof header) return -1;
  image.copy(reinterpret_cast<char *>(&header), sizeof header);
  for (int i = 0; i < header.e_phnum; ++i) {
    Elf64_Phdr segment;
    const std::size_t at = header.e_phoff + static_cast<std::size_t>(i) * header.e_phentsize;
    if (at + sizeof segment > image.size()) return -1;
    image.copy(reinterpret_cast<char *>(&segment), sizeof segment, at);
    if (segment.p_type == PT_TLS) return static_cast<long>(segment.p_memsz);
  }
  return 0;
}

// The bound the host guide gives hosts: "at most N bytes of thread-local storage".
long stated_bound() {
  std::ifstream in(CORVINEL_HOST_GUIDE);
  const std::string guide{std::istreambuf_iterator<char>(in), {}};
  std::smatch match;
  const std::regex sentence("at most\\s+([0-9]+)\\s+bytes\\s+of\\s+thread-local\\s+storage");
  return std::regex_search(guide, match, sentence) ? std::stol(match[1]) : -1;
}

TEST(ThreadState, StaysWithinTheFootprintTheHostGuideStates) {
  const long bound = stated_bound();
  ASSERT_GT(bound, 0) << "the host guide states no bound";
  const long bytes = thread_local_bytes(CORVINEL_MODULE_FILE);
  ASSERT_GE(bytes, 0);
  EXPECT_LE(bytes, bound);
}

// No per-thread state has a destructor: such state would be destroyed in
// the thread's cleanup, before the calls hosts make from their own
// destructors.  The module would import the C++ runtime's registration of
// thread_local destructors for it.
TEST(ThreadState, RegistersNoThreadLocalDestructor) {
  FILE *nm = popen(CORVINEL_NM " -D -j --undefined-only '" CORVINEL_MODULE_FILE "'", "r");
  ASSERT_NE(nm, nullptr);
  char name[512];
  bool registers = false;
  while (std::fscanf(nm, "%511s", name) == 1) registers |= std::string(name).starts_with("__cxa_thread_atexit");
  EXPECT_EQ(pclose(nm), 0);
  EXPECT_FALSE(registers);
}

enum class Run { kDirect, kMemcheck };

using Case = std::tuple<const char * /*pattern*/, const char * /*session*/, bool /*cold*/, Run>;

class Teardown : public ::testing::TestWithParam<Case> {};

TEST_P(Teardown, CallsGiveWhatTheyGaveBeforeWithNothingLeftOpen) {
  const auto [pattern, session, cold, run] = GetParam();
  std::string command = CORVINEL_TEARDOWN_HOST;
  if (run == Run::kMemcheck) {
    if (std::string(CORVINEL_VALGRIND).empty()) GTEST_SKIP() << "valgrind is not in this build";
    // Only the module's own leaks count: definitely lost blocks, the kind a
    // converter nobody closes leaves when its thread ends.
    command = std::string(CORVINEL_VALGRIND) +
              " -q --error-exitcode=9 --leak-check=full --errors-for-leak-kinds=definite "
              "--show-leak-kinds=definite --suppressions=" CORVINEL_VALGRIND_SUPPRESSIONS " " + command;
  }
  command += std::string(" ") + pattern + " " + session + (cold ? " cold" : "");
  const int status = std::system(command.c_str());
  ASSERT_TRUE(WIFEXITED(status)) << command << ": killed by signal " << WTERMSIG(status);
  EXPECT_EQ(WEXITSTATUS(status), 0) << command;
}

std::string name_of(const ::testing::TestParamInfo<Case> &info) {
  const auto [pattern, session, cold, run] = info.param;
  std::string name = pattern == std::string("thread_local") ? "ThreadLocal" : pattern;
  name += std::string(session == kEucJpLocale ? "EucJp" : "Latin9") +
          (cold ? "Cold" : "Warm") + (run == Run::kMemcheck ? "Memcheck" : "");
  return name;
}

INSTANTIATE_TEST_SUITE_P(
    HostPatterns, Teardown,
    ::testing::Combine(::testing::Values("atexit", "global", "key", "thread_local"),
                       ::testing::Values(kEucJpLocale, kLatin9Locale), ::testing::Bool(),
                       ::testing::Values(Run::kDirect)),
    name_of);

// Under memcheck the four patterns share a process: valgrind's start costs
// more than the calls.
INSTANTIATE_TEST_SUITE_P(
    AllPatterns, Teardown,
    ::testing::Combine(::testing::Values("all"), ::testing::Values(kEucJpLocale, kLatin9Locale),
                       ::testing::Bool(), ::testing::Values(Run::kMemcheck)),
    name_of);

}  // namespace

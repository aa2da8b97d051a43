// The module's dynamic symbol table, as nm reads it, against the names the
// subsystems list in tests/<subsystem>/*exported_symbols*.txt: nothing
// missing, nothing internal leaking.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace {

// The defined external names, without their symbol versions.
std::set<std::string> exported_names(const std::string &module) {
  std::set<std::string> names;
  FILE *nm = popen((CORVINEL_NM " -D -g -j --defined-only '" + module + "'").c_str(), "r");
  char name[512];
  while (nm != nullptr && std::fscanf(nm, "%511s", name) == 1) names.insert(strtok(name, "@"));
  EXPECT_TRUE(nm != nullptr && pclose(nm) == 0) << "nm failed on " << module;
  return names;
}

// The union of the lists, one name a line; "#" starts a comment.
std::set<std::string> listed_names() {
  std::set<std::string> names;
  for (const auto &entry : std::filesystem::recursive_directory_iterator(CORVINEL_TESTS_DIR)) {
    const std::string file = entry.path().filename().string();
    if (file.find("exported_symbols") == std::string::npos || !file.ends_with(".txt")) continue;
    std::ifstream in(entry.path());
    for (std::string line, name; std::getline(in, line);) {
      if (std::istringstream(line.substr(0, line.find('#'))) >> name) names.insert(name);
    }
  }
  return names;
}

TEST(ExportedSymbols, MatchTheSubsystemLists) {
  const std::set<std::string> listed = listed_names();
  const std::set<std::string> exported = exported_names(std::getenv("CORVINEL_MODULE"));
  ASSERT_GT(listed.size(), 100u);
  std::string missing, unexpected;
  for (const std::string &name : listed) {
    if (!exported.contains(name)) missing += " " + name;
  }
  for (const std::string &name : exported) {
    // The address sanitizer adds an ODR indicator beside each exported object.
    if (!listed.contains(name) && !name.starts_with("__odr_asan.")) unexpected += " " + name;
  }
  EXPECT_EQ(missing, "") << "listed but not exported";
  EXPECT_EQ(unexpected, "") << "exported but not listed";
}

}  // namespace

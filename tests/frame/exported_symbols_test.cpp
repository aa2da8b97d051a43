// The module's dynamic symbol table against the names the subsystems list
// in tests/<subsystem>/*exported_symbols*.txt: nothing missing, nothing
// internal leaking.
#include <elf.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

std::vector<char> read_file(const std::string &path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Reads a T at `offset`, or fails the test when the file is too short.
template <typename T>
bool read_at(const std::vector<char> &file, uint64_t offset, T *out) {
  if (offset > file.size() || file.size() - offset < sizeof(T)) return false;
  std::memcpy(out, file.data() + offset, sizeof(T));
  return true;
}

// Names the module defines and exports: global or weak, default or
// protected visibility, not undefined.
std::set<std::string> exported_names(const std::string &path) {
  const std::vector<char> file = read_file(path);
  Elf64_Ehdr header{};
  EXPECT_TRUE(read_at(file, 0, &header)) << path;
  EXPECT_EQ(std::memcmp(header.e_ident, ELFMAG, SELFMAG), 0) << "not an ELF file: " << path;
  EXPECT_EQ(header.e_ident[EI_CLASS], ELFCLASS64);

  std::vector<Elf64_Shdr> sections(header.e_shnum);
  for (std::size_t i = 0; i < sections.size(); ++i) {
    EXPECT_TRUE(read_at(file, header.e_shoff + i * header.e_shentsize, &sections[i]));
  }
  std::set<std::string> names;
  for (const Elf64_Shdr &section : sections) {
    if (section.sh_type != SHT_DYNSYM || section.sh_link >= sections.size()) continue;
    const Elf64_Shdr &strings = sections[section.sh_link];
    for (uint64_t at = sizeof(Elf64_Sym); at + sizeof(Elf64_Sym) <= section.sh_size;
         at += sizeof(Elf64_Sym)) {
      Elf64_Sym symbol{};
      if (!read_at(file, section.sh_offset + at, &symbol)) break;
      const unsigned bind = ELF64_ST_BIND(symbol.st_info);
      const unsigned type = ELF64_ST_TYPE(symbol.st_info);
      const unsigned visibility = ELF64_ST_VISIBILITY(symbol.st_other);
      if (symbol.st_shndx == SHN_UNDEF) continue;
      if (bind != STB_GLOBAL && bind != STB_WEAK && bind != STB_GNU_UNIQUE) continue;
      if (visibility != STV_DEFAULT && visibility != STV_PROTECTED) continue;
      if (type == STT_SECTION || type == STT_FILE) continue;
      const uint64_t name_at = strings.sh_offset + symbol.st_name;
      if (name_at >= file.size()) continue;
      const char *name = file.data() + name_at;
      names.emplace(name, strnlen(name, file.size() - name_at));
    }
  }
  return names;
}

// The union of every list under tests/, one name a line; "#" starts a comment.
std::set<std::string> listed_names(std::vector<std::string> *lists) {
  std::set<std::string> names;
  for (const fs::directory_entry &directory : fs::directory_iterator(CORVINEL_TESTS_DIR)) {
    if (!directory.is_directory()) continue;
    for (const fs::directory_entry &entry : fs::directory_iterator(directory.path())) {
      const std::string file = entry.path().filename().string();
      if (file.find("exported_symbols") == std::string::npos || !file.ends_with(".txt")) continue;
      lists->push_back(entry.path().string());
      std::ifstream in(entry.path());
      std::string line;
      while (std::getline(in, line)) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::string name;
        if (words >> name) names.insert(name);
      }
    }
  }
  return names;
}

std::string joined(const std::vector<std::string> &names) {
  std::string out;
  for (const std::string &name : names) out += (out.empty() ? "" : " ") + name;
  return out;
}

TEST(ExportedSymbols, MatchTheSubsystemLists) {
  const char *module = std::getenv("CORVINEL_MODULE");
  ASSERT_NE(module, nullptr) << "CORVINEL_MODULE is not set";
  std::vector<std::string> lists;
  const std::set<std::string> expected = listed_names(&lists);
  ASSERT_FALSE(lists.empty()) << "no exported_symbols lists under " << CORVINEL_TESTS_DIR;
  const std::set<std::string> exported = exported_names(module);

  std::vector<std::string> missing, unexpected;
  for (const std::string &name : expected) {
    if (!exported.contains(name)) missing.push_back(name);
  }
  for (const std::string &name : exported) {
    // The address sanitizer adds an ODR indicator beside each exported object.
    if (name.starts_with("__odr_asan.")) continue;
    if (!expected.contains(name)) unexpected.push_back(name);
  }
  EXPECT_TRUE(missing.empty()) << "listed but not exported: " << joined(missing);
  EXPECT_TRUE(unexpected.empty()) << "exported but not listed: " << joined(unexpected);
}

}  // namespace

#include <dlfcn.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "corvinel/fmtinfo.h"
#include "frame/format_catalogue.h"
#include "frame/registry.h"

namespace {

using corvinel::testing::all_formats;
using corvinel::testing::FormatCase;

std::string padded(const std::string &name) { return name + std::string(15 - name.size(), ' '); }

TEST(Registry, HeaderPointsAtAllDescriptors) {
  EXPECT_EQ(fmtinfo.count, 144);
  EXPECT_EQ(fmtinfo.descriptors, fmtinfo_eachfmt);
  EXPECT_EQ(fmtinfo.unused[0], nullptr);
  EXPECT_EQ(fmtinfo.unused[1], nullptr);
  ASSERT_EQ(all_formats().size(), 144u);
}

class RegistryRow : public ::testing::TestWithParam<std::size_t> {};

TEST_P(RegistryRow, MatchesTheCatalogue) {
  const std::size_t i = GetParam();
  const FormatCase &want = all_formats()[i];
  const fmtdesc &got = fmtinfo_eachfmt[i];
  EXPECT_EQ(std::string(got.name, 15), padded(want.name));
  EXPECT_EQ(got.name[15], '\0');
  EXPECT_EQ(got.namelen, static_cast<int32_t>(want.name.size()));
  EXPECT_EQ(got.minw, want.minw);
  EXPECT_EQ(got.maxw, want.maxw);
  EXPECT_EQ(got.defw, want.defw);
  EXPECT_EQ(got.kind, want.kind);
  EXPECT_EQ(got.mind, want.mind);
  EXPECT_EQ(got.maxd, want.maxd);
  EXPECT_EQ(got.defd, want.defd);
  EXPECT_EQ(got.spare, 0);
  EXPECT_NE(got.render, nullptr);
}

INSTANTIATE_TEST_SUITE_P(AllRows, RegistryRow, ::testing::Range<std::size_t>(0, 144),
                         [](const auto &info) { return all_formats()[info.param].name; });

TEST(Registry, RunsAreSortedInByteOrder) {
  const auto before = [](const fmtdesc &a, const fmtdesc &b) {
    return std::memcmp(a.name, b.name, sizeof a.name) < 0;
  };
  for (int i = 1; i < 144; ++i) {
    if (i == 64) continue;  // the currency-code run starts afresh
    EXPECT_TRUE(before(fmtinfo_eachfmt[i - 1], fmtinfo_eachfmt[i]))
        << fmtinfo_eachfmt[i - 1].name << " / " << fmtinfo_eachfmt[i].name;
  }
  EXPECT_EQ(std::string(fmtinfo_eachfmt[63].name, 6), "NLTIME");
  EXPECT_EQ(std::string(fmtinfo_eachfmt[64].name, 8), "NLMNIAED");
  EXPECT_EQ(std::string(fmtinfo_eachfmt[104].name, 8), "NLMNLAED");
}

TEST(Registry, EveryFormatHasAFunctionOfItsOwn) {
  std::set<fmt_render_fn> functions;
  for (const fmtdesc &d : fmtinfo_eachfmt) functions.insert(d.render);
  EXPECT_EQ(functions.size(), 144u);
}

// The module's exported function for each format is the one its registry
// row names, under the format's name in lower case (NLD and NLTIMAP aside).
TEST(Registry, ModuleExportsEachFunctionUnderItsFormatName) {
  const char *path = std::getenv("CORVINEL_MODULE");
  ASSERT_NE(path, nullptr);
  void *module = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr) << dlerror();
  const auto *rows = static_cast<const fmtdesc *>(dlsym(module, "fmtinfo_eachfmt"));
  ASSERT_NE(rows, nullptr);
  for (int i = 0; i < 144; ++i) {
    std::string function = all_formats()[i].name;
    for (char &c : function) c = static_cast<char>(c - 'A' + 'a');
    if (function == "nld") function = "nldfmt";
    if (function == "nltimap") function = "nltimeap";
    EXPECT_EQ(reinterpret_cast<void *>(rows[i].render), dlsym(module, function.c_str()))
        << function;
  }
  dlclose(module);
}

TEST(Registry, EntrySetsTheProcessLocaleFromTheEnvironment) {
  const char *saved = std::getenv("LC_ALL");
  const std::string saved_value = saved ? saved : "";
  setenv("LC_ALL", "C.UTF-8", 1);
  EXPECT_EQ(corvinel_entry(), &fmtinfo);
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C.UTF-8");
  setenv("LC_ALL", "C", 1);
  EXPECT_EQ(corvinel_entry(), &fmtinfo);  // every call repeats setlocale
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
  if (saved) {
    setenv("LC_ALL", saved_value.c_str(), 1);
  } else {
    unsetenv("LC_ALL");
  }
  std::setlocale(LC_ALL, "C");
}

TEST(FindFormat, FindsEveryDescriptorByItsName) {
  for (const fmtdesc &d : fmtinfo_eachfmt) {
    const std::string name(d.name, static_cast<std::size_t>(d.namelen));
    EXPECT_EQ(corvinel::frame::find_format(name), &d) << name;
  }
}

TEST(FindFormat, RefusesWhatIsNotAName) {
  for (const char *name : {"", "nldatel", "NLDATEX", "NLDATEL ", "NLMNIXXX", "NLDATELXXXXXXXXXX",
                           "NL", "ZZZZ", "A"}) {
    EXPECT_EQ(corvinel::frame::find_format(name), nullptr) << '"' << name << '"';
  }
}

}  // namespace

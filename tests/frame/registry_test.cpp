// The registry against the catalogue, the module's exported name of each
// format, the entry, and lookup by name.
#include <dlfcn.h>

#include <clocale>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvinel/fmtinfo.h"
#include "frame/format_catalogue.h"
#include "frame/registry.h"

namespace {

using corvinel::frame::find_format;
using corvinel::testing::all_formats;

TEST(Registry, EveryRowMatchesTheCatalogue) {
  ASSERT_EQ(fmtinfo.count, 144);
  ASSERT_EQ(all_formats().size(), 144u);
  EXPECT_EQ(fmtinfo.descriptors, fmtinfo_eachfmt);
  EXPECT_TRUE(fmtinfo.unused[0] == nullptr && fmtinfo.unused[1] == nullptr);
  std::set<fmt_render_fn> functions{nullptr};
  for (int i = 0; i < 144; ++i) {
    const auto &want = all_formats()[i];
    const fmtdesc &got = fmtinfo_eachfmt[i];
    const std::string padding(15 - want.name.size(), ' ');
    EXPECT_EQ(std::string(got.name, 16), want.name + padding + '\0');
    EXPECT_EQ((std::vector<int32_t>{got.namelen, got.minw, got.maxw, got.defw, got.kind, got.mind,
                                    got.maxd, got.defd, got.spare}),
              (std::vector<int32_t>{static_cast<int32_t>(want.name.size()), want.minw, want.maxw,
                                    want.defw, want.kind, want.mind, want.maxd, want.defd, 0}))
        << want.name;
    EXPECT_TRUE(functions.insert(got.render).second) << want.name << ": no function of its own";
  }
}

// Each row's function is the one the module exports under the format's name
// in lower case (NLD and NLTIMAP aside).
TEST(Registry, ModuleExportsEachFunctionUnderItsFormatName) {
  void *module = dlopen(std::getenv("CORVINEL_MODULE"), RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr) << dlerror();
  const auto *rows = static_cast<const fmtdesc *>(dlsym(module, "fmtinfo_eachfmt"));
  ASSERT_NE(rows, nullptr);
  for (int i = 0; i < 144; ++i) {
    std::string function = all_formats()[i].name;
    for (char &c : function) c = static_cast<char>(c - 'A' + 'a');
    function = function == "nld" ? "nldfmt" : function == "nltimap" ? "nltimeap" : function;
    EXPECT_EQ(reinterpret_cast<void *>(rows[i].render), dlsym(module, function.c_str()))
        << function;
  }
  dlclose(module);
}

TEST(Registry, EveryEntryCallSetsTheProcessLocaleFromTheEnvironment) {
  for (const char *locale : {"C.UTF-8", "C"}) {
    setenv("LC_ALL", locale, 1);
    EXPECT_EQ(corvinel_entry(), &fmtinfo);
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), locale);
  }
  unsetenv("LC_ALL");
}

TEST(FindFormat, FindsEveryNameAndNothingElse) {
  for (const fmtdesc &d : fmtinfo_eachfmt) {
    EXPECT_EQ(find_format(std::string(d.name, static_cast<std::size_t>(d.namelen))), &d) << d.name;
  }
  for (const char *name : {"", "nldatel", "NLDATEX", "NLDATEL ", "NLMNIXXX", "NLDATELXXXXXXXXXX"}) {
    EXPECT_EQ(find_format(name), nullptr) << '"' << name << '"';
  }
}

}  // namespace

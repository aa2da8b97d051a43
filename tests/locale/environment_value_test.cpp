// The environment reads every format makes against getenv: after every step
// of long random sequences of setenv, putenv, unsetenv and clearenv, on
// several threads between the steps, and over environment arrays laid out
// by hand (duplicates, entries without "=", names that only begin alike).
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <deque>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "locale/environment_value.h"

namespace corvinel::testing {
namespace {

// Names that share a prefix or a first byte with the ones the module reads.
const char *const kNames[] = {"ORB_LOCALE", "ORB_LOCAL", "ORB_LOCALEX", "ORB", "OR", "O",
                              "TZ", "T", "TZZ", "PATH", "TRB_LOCALE"};

// Saves the environment and puts it back, whatever a test did to it.
class SavedEnvironment {
 public:
  SavedEnvironment() {
    for (char **e = environ; e != nullptr && *e != nullptr; ++e) saved_.emplace_back(*e);
  }
  ~SavedEnvironment() {
    clearenv();
    for (const std::string &entry : saved_) {
      const auto equals = entry.find('=');
      if (equals == std::string::npos) continue;
      setenv(entry.substr(0, equals).c_str(), entry.substr(equals + 1).c_str(), 1);
    }
  }

 private:
  std::vector<std::string> saved_;
};

// Every name read both ways; the first difference, or "" when they agree.
std::string disagreement() {
  for (const char *name : kNames) {
    const std::string equals = std::string(name) + "=";
    const char *ours = locale::environment_value(equals.c_str(), equals.size());
    const char *theirs = std::getenv(name);
    if (ours != theirs) return name;
  }
  // The walks compiled for the names the formats read.
  if (locale::orb_locale_value() != std::getenv("ORB_LOCALE")) return "orb_locale_value";
  if (locale::zone_value() != std::getenv("TZ")) return "zone_value";
  const locale::EnvironmentPair read = locale::orb_locale_and_zone_values();
  if (read.first != std::getenv("ORB_LOCALE") || read.second != std::getenv("TZ")) {
    return "orb_locale_and_zone_values";
  }
  // Two names in one walk, also names that share their first bytes.
  const char *const kPairs[][2] = {{"ORB_LOCALE", "TZ"}, {"TZ", "TZZ"}, {"O", "OR"},
                                   {"ORB_LOCAL", "ORB_LOCALE"}, {"PATH", "T"},
                                   {"ORB_LOCALE", "TRB_LOCALE"}, {"TRB_LOCALE", "ORB_LOCALE"}};
  for (const auto &pair : kPairs) {
    const std::string a = std::string(pair[0]) + "=", b = std::string(pair[1]) + "=";
    const locale::EnvironmentPair both = locale::environment_values(a.c_str(), a.size(), b.c_str(), b.size());
    if (both.first != std::getenv(pair[0]) || both.second != std::getenv(pair[1])) {
      return std::string(pair[0]) + "+" + pair[1];
    }
  }
  return "";
}

TEST(EnvironmentValue, AgreesWithGetenvOverRandomChanges) {
  SavedEnvironment saved;
  std::mt19937 random(20261125);
  std::deque<std::string> put_strings;  // putenv keeps the caller's string
  const char *const kValues[] = {"de_DE", "en_US.UTF-8", "", "x", "=", "ja_JP"};
  for (int step = 0; step < 3000; ++step) {
    const char *name = kNames[random() % std::size(kNames)];
    const char *value = kValues[random() % std::size(kValues)];
    switch (random() % 9) {
      case 0:
      case 1:
      case 2:
        setenv(name, value, static_cast<int>(random() % 2));
        break;
      case 3:
      case 4:
        put_strings.push_back(std::string(name) + "=" + value);
        putenv(put_strings.back().data());
        break;
      case 5:
        put_strings.push_back(name);  // no "=": glibc removes the variable
        putenv(put_strings.back().data());
        break;
      case 6:
      case 7:
        unsetenv(name);
        break;
      default:
        if (random() % 8 == 0) clearenv();
        break;
    }
    ASSERT_EQ(disagreement(), "") << "after step " << step;
    if (step % 100 == 0) {
      // Between changes, readers on several threads see the same.
      std::vector<std::thread> readers;
      std::vector<std::string> seen(4);
      for (std::size_t t = 0; t < seen.size(); ++t) {
        readers.emplace_back([&seen, t] {
          for (int i = 0; i < 200 && seen[t].empty(); ++i) seen[t] = disagreement();
        });
      }
      for (std::thread &reader : readers) reader.join();
      for (const std::string &s : seen) ASSERT_EQ(s, "") << "on a thread after step " << step;
    }
  }
}

TEST(EnvironmentValue, AgreesWithGetenvOverArraysLaidOutByHand) {
  SavedEnvironment saved;
  char **own = environ;
  char e1[] = "ORB_LOCALE";  // no "=": not the variable
  char e2[] = "ORB_LOCALEX=no";
  char e3[] = "ORB_LOCALE=first";
  char e4[] = "ORB_LOCALE=second";
  char e5[] = "TZ=UTC0";
  char e6[] = "O";
  char e7[] = "";
  std::vector<std::vector<char *>> arrays = {
      {e1, e2, e3, e4, e5, nullptr}, {e4, e3, nullptr}, {e6, e7, e1, nullptr}, {nullptr}};
  for (std::vector<char *> &array : arrays) {
    environ = array.data();
    EXPECT_EQ(disagreement(), "");
  }
  environ = nullptr;
  EXPECT_EQ(disagreement(), "");
  environ = own;
}

}  // namespace
}  // namespace corvinel::testing

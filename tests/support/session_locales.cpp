#include "support/session_locales.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace corvinel::testing {
namespace {

struct LocaleRecipe {
  const char *name;
  const char *source;   // in /usr/share/i18n/locales
  const char *charmap;  // in /usr/share/i18n/charmaps, or empty for the unknown one
};

constexpr LocaleRecipe kRecipes[] = {
    {kUtf8Locale, "C", "UTF-8"},
    {kLatin1Locale, "de_DE", "ISO-8859-1"},
    {kEucJpLocale, "ja_JP", "EUC-JP"},
    {kUnknownCodesetLocale, "de_DE", ""},
};

constexpr const char *kCharmaps = "/usr/share/i18n/charmaps";

bool exists(const std::string &path) {
  struct stat info;
  return stat(path.c_str(), &info) == 0;
}

std::string shell_quoted(const std::string &text) { return "'" + text + "'"; }

// The character map of the unknown codeset: ISO-8859-1 renamed.
std::string unknown_charmap(const std::string &directory) {
  const std::string path = directory + "/unknown-codeset.charmap";
  const std::string gz = std::string(kCharmaps) + "/ISO-8859-1.gz";
  const std::string source = exists(gz) ? "zcat " + shell_quoted(gz)
                                        : "cat " + shell_quoted(std::string(kCharmaps) + "/ISO-8859-1");
  const std::string command = source +
                              " | sed 's/^<code_set_name> .*/<code_set_name> X-CORVINEL-UNKNOWN/' > " +
                              shell_quoted(path);
  return std::system(command.c_str()) == 0 ? path : std::string();
}

bool build(const std::string &directory, const LocaleRecipe &recipe) {
  const std::string target = directory + "/" + recipe.name;
  if (exists(target + "/LC_CTYPE")) return true;
  std::string charmap = recipe.charmap;
  if (charmap.empty()) charmap = unknown_charmap(directory);
  if (charmap.empty()) return false;
  // localedef may exit with 1 for warnings about the sources; what counts is
  // a complete locale, moved into place only when done.
  const std::string partial = target + ".partial";
  const std::string command = "rm -rf " + shell_quoted(partial) + " && localedef -i " +
                              shell_quoted(recipe.source) + " -f " + shell_quoted(charmap) + " " +
                              shell_quoted(partial) + " >/dev/null 2>&1; test -f " +
                              shell_quoted(partial + "/LC_CTYPE") + " && rm -rf " + shell_quoted(target) +
                              " && mv " + shell_quoted(partial) + " " + shell_quoted(target);
  if (std::system(command.c_str()) != 0) {
    std::fprintf(stderr, "could not compile locale %s with localedef\n", recipe.name);
    return false;
  }
  return true;
}

}  // namespace

bool prepare_session_locales(const char *directory) {
  setenv("LOCPATH", directory, 1);
  mkdir(directory, 0755);
  const std::string dir = directory;
  const int lock = open((dir + "/.lock").c_str(), O_CREAT | O_RDWR, 0644);
  if (lock < 0 || flock(lock, LOCK_EX) != 0) {
    std::perror("locking the test locale directory");
    if (lock >= 0) close(lock);
    return false;
  }
  bool complete = true;
  for (const LocaleRecipe &recipe : kRecipes) complete = build(dir, recipe) && complete;
  flock(lock, LOCK_UN);
  close(lock);
  return complete;
}

ScopedSessionLocale::ScopedSessionLocale(const char *name)
    : active_(std::setlocale(LC_ALL, name) != nullptr) {}

ScopedSessionLocale::~ScopedSessionLocale() { std::setlocale(LC_ALL, "C"); }

}  // namespace corvinel::testing

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
    {kTurkishUtf8Locale, "tr_TR", "UTF-8"},
    {kUnknownCodesetLocale, "de_DE", ""},
};

std::string quoted(const std::string &text) { return "'" + text + "'"; }

bool run(const std::string &command) { return std::system(command.c_str()) == 0; }

bool build(const std::string &directory, const LocaleRecipe &recipe) {
  const std::string target = directory + "/" + recipe.name, partial = target + ".partial";
  struct stat info;
  if (stat((target + "/LC_CTYPE").c_str(), &info) == 0) return true;
  std::string charmap = recipe.charmap;
  if (charmap.empty()) {  // the ISO-8859-1 character map under another name
    charmap = directory + "/unknown-codeset.charmap";
    const std::string latin1 = "/usr/share/i18n/charmaps/ISO-8859-1";
    if (!run("(zcat " + quoted(latin1 + ".gz") + " 2>/dev/null || cat " + quoted(latin1) +
             ") | sed 's/^<code_set_name> .*/<code_set_name> X-CORVINEL-UNKNOWN/' > " + quoted(charmap))) {
      return false;
    }
  }
  // localedef may exit with 1 for warnings about the sources; what counts is
  // a complete locale, moved into place only when done.
  if (run("rm -rf " + quoted(partial) + " && localedef -i " + quoted(recipe.source) + " -f " + quoted(charmap) + " " +
          quoted(partial) + " >/dev/null 2>&1; test -f " + quoted(partial + "/LC_CTYPE") + " && rm -rf " +
          quoted(target) + " && mv " + quoted(partial) + " " + quoted(target))) {
    return true;
  }
  std::fprintf(stderr, "could not compile locale %s with localedef\n", recipe.name);
  return false;
}

}  // namespace

bool prepare_session_locales(const char *directory) {
  setenv("LOCPATH", directory, 1);
  mkdir(directory, 0755);
  const int lock = open((std::string(directory) + "/.lock").c_str(), O_CREAT | O_RDWR, 0644);
  if (lock < 0 || flock(lock, LOCK_EX) != 0) {
    std::perror("locking the test locale directory");
    if (lock >= 0) close(lock);
    return false;
  }
  bool complete = true;
  for (const LocaleRecipe &recipe : kRecipes) complete = build(directory, recipe) && complete;
  flock(lock, LOCK_UN);
  close(lock);
  return complete;
}

ScopedSessionLocale::ScopedSessionLocale(const char *name) : active_(std::setlocale(LC_ALL, name) != nullptr) {}

ScopedSessionLocale::~ScopedSessionLocale() { std::setlocale(LC_ALL, "C"); }

}  // namespace corvinel::testing

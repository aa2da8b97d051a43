// Real session encodings for the tests and benchmarks of output expansion.
// Locales the machine may lack are compiled once with localedef, from the
// sources of the `locales` package, into a private directory that LOCPATH
// names; the system's locale directory is never touched.
#pragma once

namespace corvinel::testing {

inline constexpr const char *kUtf8Locale = "C.UTF-8";
inline constexpr const char *kLatin1Locale = "de_DE.ISO-8859-1";
inline constexpr const char *kEucJpLocale = "ja_JP.EUC-JP";
// A Turkish UTF-8 session: its towupper maps i to İ.
inline constexpr const char *kTurkishUtf8Locale = "tr_TR.UTF-8";
// A locale whose codeset iconv does not know (ISO-8859-1 under another name).
inline constexpr const char *kUnknownCodesetLocale = "de_DE.X-CORVINEL-UNKNOWN";
// The C locale: its codeset is ASCII ("ANSI_X3.4-1968").
inline constexpr const char *kAsciiLocale = "C";

// Points LOCPATH at `directory` and compiles the locales above not there yet,
// taking turns with other processes under a file lock.  False, with a
// message on stderr, when a locale could not be built.
bool prepare_session_locales(const char *directory);

// Sets the process locale for the lifetime of the object and restores "C".
class ScopedSessionLocale {
 public:
  explicit ScopedSessionLocale(const char *name);
  ~ScopedSessionLocale();
  ScopedSessionLocale(const ScopedSessionLocale &) = delete;
  ScopedSessionLocale &operator=(const ScopedSessionLocale &) = delete;
  bool active() const { return active_; }

 private:
  bool active_;
};

}  // namespace corvinel::testing

// The session encodings the fuzz targets rotate through, one picked per
// input: ASCII, UTF-8, Latin-1 (converted in code), EUC-JP and ISO-8859-15
// (through iconv converters kept per thread), and a UTF-8 locale whose
// decimal point takes two bytes.  The locales the machine lacks are
// compiled with localedef into the build directory once, before the first
// input.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <clocale>
#include <iterator>

#include "support/session_locales.h"

namespace corvinel::fuzzing {

inline constexpr const char *kSessions[] = {
    testing::kUtf8Locale,   testing::kLatin1Locale, testing::kEucJpLocale,
    testing::kAsciiLocale,  testing::kLatin9Locale, testing::kTwoByteDecimalLocale};
inline constexpr std::size_t kSessionCount = std::size(kSessions);

// Sets the process locale to the session the input's next integer picks.
inline const char *enter_session(FuzzedDataProvider &in) {
  const char *session = in.PickValueInArray(kSessions);
  std::setlocale(LC_ALL, session);
  return session;
}

#ifdef CORVINEL_FUZZ_LOCPATH
// For LLVMFuzzerInitialize: 0 when every session locale is there.
inline int prepare_sessions() { return testing::prepare_session_locales(CORVINEL_FUZZ_LOCPATH) ? 0 : 1; }
#endif

}  // namespace corvinel::fuzzing

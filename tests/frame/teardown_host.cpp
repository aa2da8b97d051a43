// A host that formats while its threads are being torn down, through the
// module's C interface only: from an atexit handler, a global destructor, a
// pthread_key_create destructor and a thread_local destructor of its own
// constructed before the thread's first format call.  Each of these runs
// after the module's own per-thread cleanup.
//
//   teardown_host PATTERN SESSION [cold]
//
// (PATTERN "all": the four, one after another, in one process)
// renders a fixed set of calls (dates and numbers through the kept
// converter, the number conventions, currency amounts with a record of the
// host's own, "%z", transcoding) on a thread of its own first, to know what
// they give, then again from PATTERN; "cold" leaves out the calls the
// pattern's thread makes before its cleanup, so that its first call comes
// during the cleanup.  Exit status 0 when every call gave the same result,
// 3 with a message on stderr when one did not, 2 on a usage error.
#include <langinfo.h>
#include <pthread.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "corvinel/currency.h"
#include "corvinel/fmtinfo.h"
#include "corvinel/fmtreq.h"
#include "corvinel/transcode.h"
#include "support/request_builder.h"

namespace {

// What one round of calls gave, kept in plain storage: it is read during
// the process's own teardown.
struct Results {
  char text[4096];
  int length;
};

Results expected;
bool cold = false;

const fmtdesc *find(const char *name) {
  for (int32_t i = 0; i < fmtinfo.count; ++i) {
    const fmtdesc &d = fmtinfo.descriptors[i];
    if (static_cast<std::size_t>(d.namelen) == std::strlen(name) &&
        std::memcmp(d.name, name, std::strlen(name)) == 0) {
      return &d;
    }
  }
  std::fprintf(stderr, "teardown_host: no format %s\n", name);
  std::_Exit(2);
}

void append(Results &r, const char *bytes, int length) {
  if (length < 0) length = 0;
  const int room = static_cast<int>(sizeof r.text) - r.length;
  if (length > room) length = room;
  std::memcpy(r.text + r.length, bytes, static_cast<std::size_t>(length));
  r.length += length;
}

void append_number(Results &r, long number) {
  char text[32];
  append(r, text, std::snprintf(text, sizeof text, "[%ld]", number));
}

constexpr int32_t kRoom = 402;

void append_call(Results &r, int32_t result, const corvinel::testing::Request &request) {
  append_number(r, result);
  const std::string text = result == CORVINEL_OK ? request.text() : std::string();
  append(r, text.data(), static_cast<int>(text.size()));
}

// A currency record the host made: its symbols rewritten between calls.
char local_symbol[8];
char international_code[8];
monetary_conventions host_currency = {international_code, local_symbol, ",", ".", "\3", "", "-",
                                      2, 2, 0, 1, 0, 1, 1, 1};

// One round of calls; every result and text goes into `r`.
void calls(Results &r) {
  r.length = 0;
  struct Call {
    const char *format;
    int32_t width, decimals, locale;
    double value;
  };
  // Locale numbers: 64 de_DE, 60 fr_FR, 79 ja_JP (names, symbols and
  // separators outside ASCII reach the session's converter).
  const Call kCalls[] = {
      {"NLDATEW", 40, 0, 79, 15760},  {"NLDATE", 30, 0, 60, 15760},   {"NLDATM", 40, 0, 60, 1.36e9},
      {"NLDATMZ", 40, 0, 60, 1.36e9}, {"NLNUM", 16, 2, 64, -1234.5},  {"NLMNY", 20, 2, 60, -1234.5},
      {"NLMNIEUR", 20, 2, 64, 98.7},  {"NLMNLJPY", 20, 0, 79, 1234}, {"NLPCT", 12, 1, 60, 0.25}};
  for (const Call &c : kCalls) {
    corvinel::testing::Request request(c.width, c.decimals, c.value, kRoom);
    request->locale = c.locale;
    append_call(r, find(c.format)->render(request.get()), request);
  }
  const char *kSymbols[][2] = {{"\xE2\x82\xAC", "EUR"}, {"<U00A3>", "GBP"}, {"Fr.", "CHF"}};
  for (const auto &symbols : kSymbols) {
    std::strcpy(local_symbol, symbols[0]);
    std::strcpy(international_code, symbols[1]);
    for (const auto routine : {nlmnyloc, nlmnyint}) {
      corvinel::testing::Request request(24, 2, -7654.32, kRoom);
      request->locale = 60;
      append_call(r, routine(request.get(), &host_currency), request);
    }
  }
  char out[kRoom];
  static const unsigned char kUnits[] = {0xE9, 0x00, 0xE5, 0x65, 0xAC, 0x20, 'A', 0};
  int32_t length = 0;
  const int32_t result = obnlsTranscodeUnicode(nl_langinfo(CODESET), kUnits, sizeof kUnits, out,
                                               sizeof out, &length);
  append_number(r, result);
  append(r, out, length);
  char buffer[402] = "<U00E9>t<U00E9> <U65E5>";
  int32_t buffer_length = static_cast<int32_t>(std::strlen(buffer)), encoding = 0;
  append_number(r, getExpResultFromNarrowCharBuf(0, 0, &encoding, buffer, &buffer_length, 30, 402));
  append(r, buffer, buffer_length);
}

void check(const char *pattern) {
  Results again;
  calls(again);
  if (again.length != expected.length || std::memcmp(again.text, expected.text, again.length) != 0) {
    std::fprintf(stderr, "teardown_host: %s: calls during teardown gave\n  %.*s\ninstead of\n  %.*s\n",
                 pattern, again.length, again.text, expected.length, expected.text);
    std::_Exit(3);
  }
}

void *first_round(void *) {
  calls(expected);
  return nullptr;
}

void *warm_up(void *) {
  if (!cold) {
    Results r;
    calls(r);
  }
  return nullptr;
}

void at_exit() { check("atexit handler"); }

struct GlobalObject {
  bool armed = false;
  ~GlobalObject() {
    if (armed) check("global destructor");
  }
} global_object;

void key_destructor(void *) { check("pthread key destructor"); }

void *with_key(void *) {
  pthread_key_t key;
  pthread_key_create(&key, key_destructor);
  pthread_setspecific(key, &key);
  return warm_up(nullptr);
}

struct HostLogger {
  bool armed = false;
  ~HostLogger() {
    if (armed) check("thread_local destructor");
  }
};
thread_local HostLogger host_logger;

void *with_thread_local(void *) {
  host_logger.armed = true;  // constructed before the thread's first format call
  return warm_up(nullptr);
}

void run_thread(void *(*body)(void *)) {
  pthread_t thread;
  if (pthread_create(&thread, nullptr, body, nullptr) != 0 || pthread_join(thread, nullptr) != 0) {
    std::fprintf(stderr, "teardown_host: cannot run a thread\n");
    std::_Exit(2);
  }
}

}  // namespace

int main(int argc, char **argv) {
  if (argc < 3 || std::setlocale(LC_ALL, argv[2]) == nullptr) {
    std::fprintf(stderr, "usage: teardown_host atexit|global|key|thread_local|all SESSION [cold]\n");
    return 2;
  }
  setenv("TZ", "UTC0", 1);
  cold = argc > 3 && std::strcmp(argv[3], "cold") == 0;
  run_thread(first_round);
  const std::string pattern = argv[1];
  const bool all = pattern == "all";
  if (all || pattern == "key") run_thread(with_key);
  if (all || pattern == "thread_local") run_thread(with_thread_local);
  if (all || pattern == "atexit") std::atexit(at_exit);
  if (all || pattern == "global") global_object.armed = true;
  if (all || pattern == "atexit" || pattern == "global") {
    warm_up(nullptr);
  } else if (pattern != "key" && pattern != "thread_local") {
    std::fprintf(stderr, "teardown_host: unknown pattern %s\n", argv[1]);
    return 2;
  }
  return 0;
}

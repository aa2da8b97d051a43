// Calls made after a thread's own cleanup has run, as a host's shutdown
// logging makes them: from the destructor of a thread_local object the
// host constructed before the thread's first format call, or from a
// pthread_key_create destructor.  A few calls drawn from the input (any
// format of the registry, transcoding to a codeset of the input's choice)
// run first on the fuzzer's thread, then on a new thread before its
// cleanup (or not at all, so that the first call comes during the
// cleanup), then from the destructor; all three must give the same.
#include <fuzzer/FuzzedDataProvider.h>
#include <pthread.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "corvinel/fmtinfo.h"
#include "corvinel/fmtreq.h"
#include "corvinel/transcode.h"
#include "fuzz_sessions.h"
#include "support/request_builder.h"

namespace {

struct Call {
  int format;  // index into the registry, or -1: transcoding
  int32_t width, decimals, locale, xcode_b;
  double value;
  const char *encoding;
  std::string units;
};

std::vector<Call> calls_from(FuzzedDataProvider &in) {
  constexpr const char *kEncodings[] = {"EUC-JP", "ISO-8859-15", "UTF-8", "ISO-8859-1", "CP1252", "GB18030"};
  std::vector<Call> calls(in.ConsumeIntegralInRange(1, 6));
  for (Call &c : calls) {
    c.format = in.ConsumeIntegralInRange(-1, CORVINEL_FORMAT_COUNT - 1);
    c.width = in.ConsumeIntegralInRange(1, 64);
    c.decimals = in.ConsumeIntegralInRange(0, 12);
    c.locale = in.ConsumeIntegralInRange(1, 136);
    c.xcode_b = in.ConsumeIntegralInRange(0, 3) == 0 ? CORVINEL_ENC_UTF16LE : 0;
    c.value = in.ConsumeBool() ? in.ConsumeFloatingPointInRange(-2e10, 6e11)
                               : std::bit_cast<double>(in.ConsumeIntegral<uint64_t>());
    c.encoding = in.PickValueInArray(kEncodings);
    c.units = in.ConsumeRandomLengthString(64);
  }
  return calls;
}

// Every result and text of the calls, one after another.
std::string run(const std::vector<Call> &calls) {
  std::string results;
  for (const Call &c : calls) {
    int32_t result = 0;
    std::string text;
    if (c.format < 0) {
      char out[402];
      int32_t length = 0;
      result = obnlsTranscodeUnicode(c.encoding, reinterpret_cast<const unsigned char *>(c.units.data()),
                                     static_cast<int32_t>(c.units.size()), out, sizeof out, &length);
      text.assign(out, static_cast<std::size_t>(std::clamp<int32_t>(length, 0, sizeof out)));
    } else {
      corvinel::testing::Request request(c.width, c.decimals, c.value, 402);
      request->locale = c.locale;
      request.set_output_encoding(c.xcode_b);
      result = fmtinfo_eachfmt[c.format].render(request.get());
      if (result == CORVINEL_OK) text = request.text();
    }
    results += "[" + std::to_string(result) + "]" + text;
  }
  return results;
}

struct Teardown {
  const std::vector<Call> *calls;
  bool warm;            // the thread formats before its cleanup
  bool key;             // a pthread key destructor rather than a thread_local one
  std::string before;   // what the thread's calls gave before its cleanup
  std::string during;   // and from the destructor
};

struct HostLogger {
  Teardown *teardown = nullptr;
  ~HostLogger() {
    if (teardown != nullptr) teardown->during = run(*teardown->calls);
  }
};
thread_local HostLogger host_logger;

void key_destructor(void *teardown) {
  static_cast<Teardown *>(teardown)->during = run(*static_cast<Teardown *>(teardown)->calls);
}

pthread_key_t key;

void *thread_body(void *argument) {
  auto &teardown = *static_cast<Teardown *>(argument);
  if (teardown.key) {
    pthread_setspecific(key, &teardown);
  } else {
    host_logger.teardown = &teardown;  // constructed before the first format call
  }
  if (teardown.warm) teardown.before = run(*teardown.calls);
  return nullptr;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  setenv("TZ", "UTC0", 1);  // "%z" the same on every thread and second
  return pthread_key_create(&key, key_destructor) == 0 ? corvinel::fuzzing::prepare_sessions() : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  FuzzedDataProvider in(data, size);
  corvinel::fuzzing::enter_session(in);
  Teardown teardown;
  teardown.warm = in.ConsumeBool();
  teardown.key = in.ConsumeBool();
  const std::vector<Call> calls = calls_from(in);
  teardown.calls = &calls;
  const std::string expected = run(calls);
  pthread_t thread;
  if (pthread_create(&thread, nullptr, thread_body, &teardown) != 0) return 0;
  pthread_join(thread, nullptr);
  if ((teardown.warm && teardown.before != expected) || teardown.during != expected) {
    std::fprintf(stderr, "session %s, %s destructor, %s: calls gave\n  [%s]\nbefore the cleanup [%s]\nduring it [%s]\n",
                 std::setlocale(LC_ALL, nullptr), teardown.key ? "pthread key" : "thread_local",
                 teardown.warm ? "warm" : "cold", expected.c_str(), teardown.before.c_str(),
                 teardown.during.c_str());
    std::abort();
  }
  return 0;
}

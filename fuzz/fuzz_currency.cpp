// nlmnyint and nlmnyloc with currency records the host makes itself: every
// text of the record drawn from the input, and the two symbols rewritten in
// place between calls, as a host reusing one record does.  Each call is
// made twice (the second finds what the first kept for its thread) and
// compared, result, outlen, field and request, with the general path that
// composes every attempt and expands it.  The output is a heap block of
// exactly `capacity` bytes: a write past it stops the run.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <tuple>

#include "corvinel/currency.h"
#include "corvinel/fmtreq.h"
#include "fuzz_sessions.h"
#include "nlnum/currency_amounts.h"

namespace {

using Routine = int32_t (*)(fmtreq *, const monetary_conventions *);

struct Path {
  Routine fast, general;
  const char *name;
};
constexpr Path kPaths[] = {{nlmnyint, corvinel::nlnum::nlmnyint_general, "nlmnyint"},
                           {nlmnyloc, corvinel::nlnum::nlmnyloc_general, "nlmnyloc"}};

// The host's symbol buffers, written over in place: the module may keep
// nothing that points into them past a call.
constexpr std::size_t kSymbolRoom = 96;
char international_code[kSymbolRoom];
char local_symbol[kSymbolRoom];

void rewrite(char *buffer, const std::string &text) {
  const std::size_t length = std::min(text.size(), kSymbolRoom - 1);
  std::memcpy(buffer, text.data(), length);
  buffer[length] = '\0';
}

struct Call {
  fmtreq request;
  int32_t result;
  std::unique_ptr<char[]> field;
};

Call call(Routine routine, const fmtreq &sent, const monetary_conventions &record) {
  Call c{sent, 0, std::make_unique<char[]>(static_cast<std::size_t>(sent.capacity))};
  std::memset(c.field.get(), '~', static_cast<std::size_t>(sent.capacity));
  c.request.output = c.field.get();
  c.result = routine(&c.request, &record);
  return c;
}

bool same(const Call &a, const Call &b, int32_t capacity) {
  const auto restored = [](const fmtreq &q) {
    return std::make_tuple(q.width, q.decimals, q.value, q.capacity, q.flags, q.locale, q.xcode_b,
                           q.xcode_state, q.outlen);
  };
  return a.result == b.result && restored(a.request) == restored(b.request) &&
         std::memcmp(a.field.get(), b.field.get(), static_cast<std::size_t>(capacity)) == 0;
}

[[noreturn]] void differ(const char *what, const Path &path, const fmtreq &sent, const Call &a,
                         const Call &b) {
  std::fprintf(stderr, "%s: %s differ in session %s (width %d decimals %d capacity %d locale %d xcode_b %d value %a)\n",
               path.name, what, std::setlocale(LC_ALL, nullptr), sent.width, sent.decimals, sent.capacity,
               sent.locale, sent.xcode_b, *sent.value);
  std::fprintf(stderr, "  symbols [%s] [%s]\n", international_code, local_symbol);
  for (const Call *c : {&a, &b}) {
    std::fprintf(stderr, "  result %d outlen %d field [%.*s]\n", c->result, c->request.outlen, sent.capacity,
                 c->field.get());
  }
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) { return corvinel::fuzzing::prepare_sessions(); }

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  FuzzedDataProvider in(data, size);
  corvinel::fuzzing::enter_session(in);
  const std::string decimal = in.ConsumeRandomLengthString(8), separator = in.ConsumeRandomLengthString(8),
                    grouping = in.ConsumeRandomLengthString(6), positive = in.ConsumeRandomLengthString(8),
                    negative = in.ConsumeRandomLengthString(8);
  monetary_conventions record{international_code, local_symbol, decimal.c_str(), separator.c_str(),
                              grouping.c_str(), positive.c_str(), negative.c_str(), 0, 0, 0, 0, 0, 0, 0, 0};
  for (char *digits_and_layout : {&record.int_frac_digits, &record.frac_digits, &record.p_cs_precedes,
                                  &record.p_sep_by_space, &record.n_cs_precedes, &record.n_sep_by_space,
                                  &record.p_sign_posn, &record.n_sign_posn}) {
    *digits_and_layout = in.ConsumeBool() ? in.ConsumeIntegralInRange<char>(0, 4) : in.ConsumeIntegral<char>();
  }
  // Calls one after another on the one record, its symbols rewritten in
  // place before each.
  const int rounds = in.ConsumeIntegralInRange(1, 4);
  for (int round = 0; round < rounds && in.remaining_bytes() > 0; ++round) {
    rewrite(international_code, in.ConsumeRandomLengthString(kSymbolRoom));
    rewrite(local_symbol, in.ConsumeRandomLengthString(kSymbolRoom));
    const Path &path = in.PickValueInArray(kPaths);
    const double value = in.ConsumeBool() ? in.ConsumeFloatingPointInRange(-1e12, 1e12)
                                          : std::bit_cast<double>(in.ConsumeIntegral<uint64_t>());
    fmtreq sent{};
    sent.width = in.ConsumeIntegralInRange(1, 48);
    sent.decimals = in.ConsumeBool() ? in.ConsumeIntegralInRange(-1, 12) : in.ConsumeIntegral<int32_t>();
    sent.capacity = sent.width + (in.ConsumeBool() ? 0 : in.ConsumeIntegralInRange(0, 402));
    sent.locale = in.ConsumeIntegralInRange(0, 137);
    sent.xcode_b = in.ConsumeBool() ? CORVINEL_ENC_UTF16LE : 0;
    sent.value = &value;
    const Call cold = call(path.fast, sent, record);
    const Call warm = call(path.fast, sent, record);
    const Call general = call(path.general, sent, record);
    if (!same(cold, warm, sent.capacity)) differ("first and second call", path, sent, cold, warm);
    if (!same(cold, general, sent.capacity)) differ("one pass and general path", path, sent, cold, general);
  }
  return 0;
}

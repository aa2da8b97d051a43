// The program's home: the compiled-pattern memo of each thread (the last
// few programs, known by record, encoding and pattern text or address) and
// the lookups compiled_pattern.h declares.  Writes only the calling
// thread's memo; a miss hands an entry to compile_program
// (compiled_pattern.cpp).
#include "nldate/compiled_program.h"

#include <cstddef>
#include <cstring>

namespace corvinel::nldate {

// This thread's compiled patterns; the last one found is looked at first.
struct CompiledPatternMemo {
  CompiledPattern entries[kMemoEntries];
  int32_t last_found;
  int32_t next_victim;
};

namespace {

using Memo = CompiledPatternMemo;

bool is_key(const CompiledPattern &entry, const locitem *record, const char *pattern,
            int32_t length, PieceEncoding encoding, bool constant_text) noexcept {
  return entry.filled && entry.key_length == length && entry.record == record &&
         entry.encoding == encoding &&
         ((constant_text && entry.source == pattern) || length == 0 ||
          std::memcmp(entry.key, pattern, static_cast<std::size_t>(length)) == 0);
}

}  // namespace

namespace {

thread_local Memo thread_memo;

// The memo past its last find: another entry, or the pattern compiled.
[[gnu::noinline]] const CompiledPattern *find_or_compile(Memo &memo, const locitem *record,
                                                         const char *pattern, int32_t length,
                                                         PieceEncoding encoding,
                                                         bool constant_text) noexcept {
  if (pattern == nullptr || length < 0) length = 0;
  if (length > kKeyCapacity) return nullptr;
  for (int32_t i = 0; i < kMemoEntries; ++i) {
    if (is_key(memo.entries[i], record, pattern, length, encoding, constant_text)) {
      memo.last_found = i;
      return memo.entries[i].beyond_bounds ? nullptr : &memo.entries[i];
    }
  }
  memo.last_found = memo.next_victim;
  CompiledPattern &entry = memo.entries[memo.next_victim];
  memo.next_victim = (memo.next_victim + 1) % kMemoEntries;
  entry.filled = false;
  entry.encoding = encoding;
  entry.record = record;
  entry.source = constant_text ? pattern : nullptr;
  entry.key_length = length;
  if (length > 0) std::memcpy(entry.key, pattern, static_cast<std::size_t>(length));
  entry.beyond_bounds = !compile_program(entry, record, pattern, length);
  entry.filled = true;
  return entry.beyond_bounds ? nullptr : &entry;
}

}  // namespace

CompiledPatternMemo &this_threads_patterns() noexcept { return thread_memo; }

const CompiledPattern *compiled_pattern(CompiledPatternMemo &memo, const locitem *record,
                                        const char *pattern, int32_t length,
                                        PieceEncoding encoding, bool constant_text) noexcept {
  // A compiled-in item text (never null, never past the key) is known by
  // its address: no bytes compared.  The arguments go on untouched to the
  // search otherwise.
  const CompiledPattern &last = memo.entries[memo.last_found];
  if (constant_text && last.filled && last.source == pattern && pattern != nullptr &&
      last.key_length == length && last.record == record && last.encoding == encoding) {
    return last.beyond_bounds ? nullptr : &last;
  }
  return find_or_compile(memo, record, pattern, length, encoding, constant_text);
}

const CompiledPattern *compiled_pattern(const locitem *record, const char *pattern,
                                        int32_t length, PieceEncoding encoding,
                                        bool constant_text) noexcept {
  return compiled_pattern(this_threads_patterns(), record, pattern, length, encoding,
                          constant_text);
}

}  // namespace corvinel::nldate

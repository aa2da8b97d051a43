// getORBLocDB: an item of the locale chosen by number or by ORB_LOCALE.

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "locale/locale_records.h"

namespace corvinel::locale {
namespace {

struct KeyedRecord {
  uint32_t key;
  uint32_t record;  // 0-based
};

// The record keys in key order, for a binary search instead of a walk over
// all records.  No two records share a key, so the record found is the
// first that matches in record order.  Built once from the constant keys
// and never changed.
const std::array<KeyedRecord, CORVINEL_LOCALE_RECORDS> &records_by_key() {
  static const auto sorted = [] {
    std::array<KeyedRecord, CORVINEL_LOCALE_RECORDS> records{};
    for (uint32_t r = 0; r < records.size(); ++r) records[r] = {kRecordKeys[r], r};
    std::sort(records.begin(), records.end(),
              [](const KeyedRecord &a, const KeyedRecord &b) { return a.key < b.key; });
    return records;
  }();
  return sorted;
}

struct LastLookup {
  bool filled = false;
  uint32_t key = 0;
  const locitem *record = nullptr;
};

}  // namespace

const locitem *select_record(int32_t locale) noexcept {
  if (locale >= 1 && locale <= CORVINEL_LOCALE_RECORDS) return ORBlocaleData[locale - 1];

  // Only the first five characters take part in the match (the third, the
  // separator, is never looked at); a shorter value is read as if padded
  // with NULs, which no code matches. Everything after the fifth character
  // (an encoding, a modifier) is ignored.
  const char *value = std::getenv("ORB_LOCALE");
  if (value == nullptr) value = kDefaultLocale;
  char chosen[5] = {};
  for (std::size_t i = 0; i < sizeof chosen && value[i] != '\0'; ++i) chosen[i] = value[i];
  const uint32_t key = record_key(chosen[0], chosen[1], chosen[3], chosen[4]);
  // The record of the last key this thread looked up: ORB_LOCALE seldom
  // changes between calls, and the key is all the search depends on.
  thread_local LastLookup last;
  if (last.filled && last.key == key) return last.record;
  const auto &by_key = records_by_key();
  const auto found = std::lower_bound(by_key.begin(), by_key.end(), key,
                                      [](const KeyedRecord &r, uint32_t k) { return r.key < k; });
  const locitem *record =
      (found != by_key.end() && found->key == key) ? ORBlocaleData[found->record] : nullptr;
  last = {true, key, record};
  return record;
}

int32_t copy_item(const locitem *record, int32_t item, char *out, int32_t outcap) noexcept {
  if (out == nullptr) outcap = 0;
  if (outcap > 0) std::memset(out, 0, static_cast<std::size_t>(outcap));
  if (record == nullptr || item < 0 || item >= CORVINEL_LOCALE_ITEMS) return -1;
  const locitem &entry = record[item];
  if (entry.length > outcap) return -1;
  if (entry.length > 0) std::memcpy(out, entry.text, static_cast<std::size_t>(entry.length));
  return entry.length;
}

}  // namespace corvinel::locale

extern "C" int32_t getORBLocDB(char *out, int32_t outcap, int32_t item, int32_t locale) {
  using namespace corvinel::locale;
  return copy_item(select_record(locale), item, out, outcap);
}

// getORBLocDB: an item of the locale chosen by number or by ORB_LOCALE.

#include <array>
#include <cstdlib>
#include <cstring>

#include "locale/environment_scan.h"
#include "locale/environment_value.h"
#include "locale/locale_records.h"

namespace corvinel::locale {
namespace {

// The records by key in an open-addressed table, for a lookup in a few
// instructions instead of a search: 256 slots for 136 keys, probed
// linearly from a multiplicative hash.  No two records share a key, so the
// record found is the first that matches in record order.  Built once from
// the constant keys and never changed.
constexpr uint32_t kKeySlots = 256;

struct KeySlot {
  uint32_t key = 0;
  uint32_t record = 0;  // 1-based; 0 marks an empty slot
};

constexpr uint32_t slot_of(uint32_t key) { return (key * 0x9E3779B1u) >> 24; }

struct KeyTable {
  std::array<KeySlot, kKeySlots> slots{};

  KeyTable() {
    for (uint32_t r = 0; r < CORVINEL_LOCALE_RECORDS; ++r) {
      uint32_t slot = slot_of(kRecordKeys[r]);
      while (slots[slot].record != 0 && slots[slot].key != kRecordKeys[r]) {
        slot = (slot + 1) % kKeySlots;
      }
      if (slots[slot].record == 0) slots[slot] = {kRecordKeys[r], r + 1};
    }
  }

  const locitem *find(uint32_t key) const {
    for (uint32_t slot = slot_of(key);; slot = (slot + 1) % kKeySlots) {
      if (slots[slot].record == 0) return nullptr;
      if (slots[slot].key == key) return ORBlocaleData[slots[slot].record - 1];
    }
  }
};
static_assert(CORVINEL_LOCALE_RECORDS < kKeySlots, "the table needs an empty slot");

// Built when the module is loaded, before any call can reach it, so a
// lookup needs no check that it has been built.
const KeyTable kKeyTable;

// The record ORB_LOCALE's value names; `orb_locale` null: the default.
[[gnu::always_inline]] inline const locitem *record_named_by(const char *orb_locale) noexcept {
  // Only the first five characters take part in the match (the third, the
  // separator, is never looked at); a shorter value is read as if padded
  // with NULs, which no code matches. Everything after the fifth character
  // (an encoding, a modifier) is ignored.
  const char *value = orb_locale != nullptr ? orb_locale : kDefaultLocale;
  // The characters up to the first NUL, NULs after it.
  char c1 = '\0', c3 = '\0', c4 = '\0';
  const char c0 = value[0];
  if (c0 != '\0' && (c1 = value[1]) != '\0' && value[2] != '\0' && (c3 = value[3]) != '\0') {
    c4 = value[4];
  }
  return kKeyTable.find(record_key(c0, c1, c3, c4));
}

}  // namespace

const locitem *select_record(int32_t locale) noexcept {
  if (locale >= 1 && locale <= CORVINEL_LOCALE_RECORDS) return ORBlocaleData[locale - 1];
  return record_named_by(scan_for(kOrbLocaleName, sizeof kOrbLocaleName - 1));
}

const locitem *select_record_with(int32_t locale, const char *orb_locale) noexcept {
  if (locale >= 1 && locale <= CORVINEL_LOCALE_RECORDS) return ORBlocaleData[locale - 1];
  return record_named_by(orb_locale);
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

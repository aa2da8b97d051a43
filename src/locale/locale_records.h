// Choice of a locale record: by number, or by the ORB_LOCALE environment
// variable.
#pragma once

#include <array>
#include <cstdint>

#include "corvinel/locale_db.h"

namespace corvinel::locale {

// Packs the four characters that select a record (language code at
// positions 1-2, country code at 4-5 of a locale string), folding ASCII
// letters to lower case: c0 | c1 << 8 | c3 << 16 | c4 << 24. Folding by
// setting bit 5 maps exactly the letters of either case onto the
// lower-case letters, and nothing else onto a letter.
constexpr uint32_t record_key(char c0, char c1, char c3, char c4) noexcept {
  const auto byte = [](char c) { return static_cast<uint32_t>(static_cast<unsigned char>(c)); };
  // Each byte with its 0x20 bit set: case folded for letters.
  return (byte(c0) | byte(c1) << 8 | byte(c3) << 16 | byte(c4) << 24) | 0x20202020u;
}

// record_key of each record's language (item 4) and country (item 5), in
// record order; generated with the records.
extern const std::array<uint32_t, CORVINEL_LOCALE_RECORDS> kRecordKeys;

// The locale string used when ORB_LOCALE is unset.
inline constexpr char kDefaultLocale[] = "en_US";

// The record (its 189 items) chosen by a locale number: 1..136 by
// position, any other number by ORB_LOCALE, read now. nullptr when the
// variable is set but names no record.
const locitem *select_record(int32_t locale) noexcept;

// select_record with ORB_LOCALE's value already read (null: unset).
const locitem *select_record_with(int32_t locale, const char *orb_locale) noexcept;

// Copies an item of `record` into out (outcap bytes, zero-filled first):
// the text's length, or -1 when record is null, the item code is outside
// 0..188 or the text does not fit.
int32_t copy_item(const locitem *record, int32_t item, char *out, int32_t outcap) noexcept;

}  // namespace corvinel::locale

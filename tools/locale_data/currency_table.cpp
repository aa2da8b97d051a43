#include "currency_table.h"

#include <algorithm>
#include <set>
#include <stdexcept>

#include "cldr_source.h"
#include "pattern_rules.h"
#include "record_builder.h"
#include "unicode_text.h"

namespace corvinel::locale_data {

const std::vector<std::string> kFormatCurrencies = {
    "AED", "AUD", "BGN", "BRL", "CAD", "CHF", "CNY", "CZK", "DKK", "EEK", "EGP", "EUR", "GBP", "HKD",
    "HRK", "HUF", "IDR", "ILS", "INR", "JPY", "KRW", "LTL", "LVL", "MOP", "MXN", "MYR", "NOK", "NZD",
    "PLN", "ROL", "RUB", "RUR", "SEK", "SGD", "SKK", "THB", "TRY", "TWD", "USD", "ZAR",
};

namespace {

// Homes that the code itself does not name: the euro's central bank sits in
// Germany.
struct Home {
  const char *code;
  const char *record;
};
constexpr Home kHomes[] = {{"EUR", "German_Germany"}};

// Values of the table that its users rely on.
struct FixedField {
  const char *code;
  const char *field;
  const char16_t *text;
};
constexpr FixedField kFixedFields[] = {
    {"AED", "positive_sign", u" "},
    {"AUD", "currency_symbol", u"AU$"},
    {"BGN", "currency_symbol", u"\u043B\u0432"},
    {"BGN", "mon_thousands_sep", u" "},
};

std::u16string &text_field(MonetaryFields &fields, const std::string &name) {
  if (name == "currency_symbol") return fields.currency_symbol;
  if (name == "mon_decimal_point") return fields.mon_decimal_point;
  if (name == "mon_thousands_sep") return fields.mon_thousands_sep;
  if (name == "positive_sign") return fields.positive_sign;
  if (name == "negative_sign") return fields.negative_sign;
  throw std::runtime_error("no text field " + name);
}

std::u16string without_bidi_marks(std::u16string text) {
  std::erase_if(text, [](char16_t c) { return c == 0x200E || c == 0x200F || c == 0x061C; });
  return text;
}

// The home record of a currency. A national currency's code begins with
// its country's code (ISO 4217), so its home is that country's record in
// the country's main language, or its first record; a code that names no
// record's country (XCD) has its home in the first record that uses it.
std::size_t home_record(const std::string &code, const std::vector<LocaleRecord> &records) {
  for (const Home &home : kHomes) {
    if (code == home.code) return record_index(home.record);
  }
  const std::string country = code.substr(0, 2);
  const std::string language = likely_language(country);
  std::size_t first = kRecordCount;
  for (std::size_t i = 0; i < kRecordCount; ++i) {
    if (kRecordSources[i].country != country) continue;
    if (kRecordSources[i].language == language) return i;
    first = std::min(first, i);
  }
  if (first < kRecordCount) return first;
  for (std::size_t i = 0; i < kRecordCount; ++i) {
    if (records[i][item::kCurrencyCode] == code) return i;
  }
  throw std::runtime_error("no home record for currency " + code);
}

}  // namespace

CurrencyTable build_currency_table(const std::vector<LocaleRecord> &records, GlibcLocales &glibc) {
  // The currencies with formats, and every currency of the records that is
  // still in use (glibc keeps a few withdrawn codes, such as BYR and VEF).
  CurrencyTable table;
  std::set<std::string> codes(kFormatCurrencies.begin(), kFormatCurrencies.end());
  std::set<std::string> withdrawn;
  for (std::size_t i = 0; i < kRecordCount; ++i) {
    const ItemText &code = records[i][item::kCurrencyCode];
    if (!code || codes.contains(*code)) continue;
    (currency_withdrawn(*code, kRecordSources[i].region) ? withdrawn : codes).insert(*code);
  }
  table.withdrawn.assign(withdrawn.begin(), withdrawn.end());
  for (const std::string &code : codes) {
    const RecordSource &home = kRecordSources[home_record(code, records)];
    CurrencyRecord currency;
    currency.code = code;
    currency.home_record = home.name;
    currency.home_glibc = home.glibc;
    currency.fields = read_monetary_fields(glibc, home.glibc);
    currency.fields.int_curr_symbol = std::u16string(code.begin(), code.end());
    currency.fields.currency_symbol = legacy_mark(without_bidi_marks(currency_symbol(home.cldr, code)));
    table.records.push_back(std::move(currency));
  }

  for (const FixedField &fixed : kFixedFields) {
    auto found = std::find_if(table.records.begin(), table.records.end(),
                              [&](const CurrencyRecord &r) { return r.code == fixed.code; });
    if (found == table.records.end()) throw std::runtime_error(std::string("no currency ") + fixed.code);
    std::u16string &slot = text_field(found->fields, fixed.field);
    if (slot != fixed.text) {
      table.overrides.push_back({fixed.code, fixed.field, escape_text(slot, EscapeForm::kUpper),
                                 escape_text(fixed.text, EscapeForm::kUpper)});
      slot = fixed.text;
    }
  }
  return table;
}

}  // namespace corvinel::locale_data

// Compile-time position of a currency in lconv_monetary.
#pragma once

#include <array>
#include <string_view>

#include "corvinel/currency.h"

namespace corvinel::locale {

// The international codes of lconv_monetary, in table order.
inline constexpr std::array<std::string_view, CORVINEL_CURRENCY_RECORDS>
    kCurrencyCodes = {
#include "locale/data/currency_codes.inc"
};

// Index of `code` in lconv_monetary; not a constant expression (so a
// compile error where used in one) when the code is not in the table.
consteval int currency_index(std::string_view code) {
  for (std::size_t i = 0; i < kCurrencyCodes.size(); ++i) {
    if (kCurrencyCodes[i] == code) return static_cast<int>(i);
  }
  throw "currency code not in lconv_monetary";
}

// The record of a currency, resolved at compile time.
template <std::size_t N>
consteval const monetary_conventions *currency_record(const char (&code)[N]) {
  return &lconv_monetary[currency_index(std::string_view(code, N - 1))];
}

}  // namespace corvinel::locale

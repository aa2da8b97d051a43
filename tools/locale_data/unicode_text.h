// Text helpers of the locale data generator: UTF-8 decoding and the
// symbolic "<Uxxxx>" notation of the compiled-in locale texts.
#pragma once

#include <string>
#include <string_view>

namespace corvinel::locale_data {

// How a text writes its non-ASCII code units.
enum class EscapeForm {
  kUpper,          // "<U20AC>"
  kLowerU,         // "<u20AC>": lower-case u, upper-case digits
  kLowerUAndHex,   // "<u20ac>": lower-case u and digits
};

// Appends the UTF-16 form of one code point.
void append_code_point(std::u16string &out, char32_t code_point);

// Decodes UTF-8; throws std::runtime_error on malformed input.
std::u16string utf8_to_utf16(std::string_view text);

// The 7-bit form of a UTF-16 text: ASCII code units stay, every other code
// unit (surrogate halves included) becomes a seven-character escape.
std::string escape_text(std::u16string_view text, EscapeForm form);

// UTF-8 form of a UTF-16 text, for messages of the generator.
std::string utf16_to_utf8(std::u16string_view text);

}  // namespace corvinel::locale_data

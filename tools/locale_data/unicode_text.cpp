#include "unicode_text.h"

#include <cstdio>
#include <stdexcept>

namespace corvinel::locale_data {

void append_code_point(std::u16string &out, char32_t code_point) {
  if (code_point < 0x10000) {
    out.push_back(static_cast<char16_t>(code_point));
    return;
  }
  code_point -= 0x10000;
  out.push_back(static_cast<char16_t>(0xD800 + (code_point >> 10)));
  out.push_back(static_cast<char16_t>(0xDC00 + (code_point & 0x3FF)));
}

std::u16string utf8_to_utf16(std::string_view text) {
  std::u16string out;
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    int extra = 0;
    char32_t code_point = 0;
    if (lead < 0x80) {
      code_point = lead;
    } else if ((lead & 0xE0) == 0xC0) {
      extra = 1;
      code_point = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
      extra = 2;
      code_point = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
      extra = 3;
      code_point = lead & 0x07;
    } else {
      throw std::runtime_error("malformed UTF-8 in \"" + std::string(text) + "\"");
    }
    if (i + extra >= text.size() && extra > 0) {
      throw std::runtime_error("truncated UTF-8 in \"" + std::string(text) + "\"");
    }
    for (int k = 1; k <= extra; ++k) {
      const auto next = static_cast<unsigned char>(text[i + k]);
      if ((next & 0xC0) != 0x80) {
        throw std::runtime_error("malformed UTF-8 in \"" + std::string(text) + "\"");
      }
      code_point = (code_point << 6) | (next & 0x3F);
    }
    append_code_point(out, code_point);
    i += 1 + extra;
  }
  return out;
}

std::string escape_text(std::u16string_view text, EscapeForm form) {
  std::string out;
  for (const char16_t unit : text) {
    if (unit < 0x80) {
      out.push_back(static_cast<char>(unit));
      continue;
    }
    char escape[8];
    const char *format = form == EscapeForm::kUpper    ? "<U%04X>"
                         : form == EscapeForm::kLowerU ? "<u%04X>"
                                                       : "<u%04x>";
    std::snprintf(escape, sizeof escape, format, static_cast<unsigned>(unit));
    out += escape;
  }
  return out;
}

std::string utf16_to_utf8(std::u16string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code_point = text[i];
    if (code_point >= 0xD800 && code_point < 0xDC00 && i + 1 < text.size()) {
      code_point = 0x10000 + ((code_point - 0xD800) << 10) + (text[i + 1] - 0xDC00);
      ++i;
    }
    if (code_point < 0x80) {
      out.push_back(static_cast<char>(code_point));
    } else if (code_point < 0x800) {
      out.push_back(static_cast<char>(0xC0 | (code_point >> 6)));
      out.push_back(static_cast<char>(0x80 | (code_point & 0x3F)));
    } else if (code_point < 0x10000) {
      out.push_back(static_cast<char>(0xE0 | (code_point >> 12)));
      out.push_back(static_cast<char>(0x80 | ((code_point >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (code_point & 0x3F)));
    } else {
      out.push_back(static_cast<char>(0xF0 | (code_point >> 18)));
      out.push_back(static_cast<char>(0x80 | ((code_point >> 12) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | ((code_point >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (code_point & 0x3F)));
    }
  }
  return out;
}

}  // namespace corvinel::locale_data

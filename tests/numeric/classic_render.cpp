#include "classic_render.h"

#include <charconv>

namespace corvinel::numeric::testing {

std::string show_value(double value) {
  char text[40];
  const auto end = std::to_chars(text, text + sizeof text, value).ptr;
  return std::string(text, end);
}

}  // namespace corvinel::numeric::testing

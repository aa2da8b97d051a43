#include "render.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <vector>

namespace corvinel::cli {
namespace {

// Room every step of output expansion may use; the default capacity, so
// that 16-bit units and multibyte text fit behind a narrow field.
constexpr int32_t kExpansionRoom = 402;
constexpr std::size_t kGuardBytes = 64;
constexpr char kGuardByte = '\x5A';

constexpr int32_t kItemBuffer = 160;
constexpr int32_t kExpansionBuffer = 1024;

using GetItemFunction = int32_t (*)(char *out, int32_t outcap, int32_t item, int32_t locale);
using ExpandFunction = int32_t (*)(int32_t reserved, int32_t outenc, int32_t *encout, char *buf,
                                   int32_t *len, int32_t width, int32_t capacity);

// `capacity` bytes of blanks followed by guard bytes that no format may touch.
class GuardedBuffer {
 public:
  explicit GuardedBuffer(int32_t capacity)
      : capacity_(capacity), bytes_(static_cast<std::size_t>(capacity) + kGuardBytes, kGuardByte) {
    std::fill_n(bytes_.begin(), capacity, ' ');
  }
  char *data() { return bytes_.data(); }
  bool guards_intact() const {
    return std::all_of(bytes_.begin() + capacity_, bytes_.end(),
                       [](char c) { return c == kGuardByte; });
  }

 private:
  int32_t capacity_;
  std::vector<char> bytes_;
};

// What a result other than 0 means, for the results the formats and the
// classic renderings give.
const char *result_meaning(int32_t result) {
  switch (result) {
    case CORVINEL_WIDTH_TOO_SMALL:
      return "width below the format's minimum";
    case CORVINEL_WIDTH_TOO_LARGE:
      return "width above the format's maximum";
    case CORVINEL_DECIMALS_TOO_SMALL:
      return "decimals below the format's minimum";
    case CORVINEL_DECIMALS_TOO_LARGE:
      return "decimals above the format's maximum";
    case CORVINEL_OUT_OF_RANGE:
      return "value out of range";
    case CORVINEL_HOURS_TOO_LARGE:
      return "hours too large";
    case CORVINEL_DOES_NOT_FIT:
      return "number does not fit";
    default:
      return nullptr;
  }
}

void report_result(int32_t result) {
  const char *meaning = result_meaning(result);
  if (result < 0) {
    std::fprintf(stderr, "corvinel-fmt: %s (result %d, 0x%08x)\n", meaning ? meaning : "failed",
                 static_cast<int>(result), static_cast<unsigned>(result));
  } else if (meaning != nullptr) {
    std::fprintf(stderr, "corvinel-fmt: %s (result %d)\n", meaning, static_cast<int>(result));
  } else {
    std::fprintf(stderr, "corvinel-fmt: result %d\n", static_cast<int>(result));
  }
}

}  // namespace

void Printer::print(const char *bytes, int32_t length) const {
  if (bars) std::fputc('|', stdout);
  for (int32_t i = 0; i < length; ++i) {
    if (hex) {
      std::printf(i == 0 ? "%02x" : " %02x", static_cast<unsigned char>(bytes[i]));
    } else {
      std::fputc(bytes[i], stdout);
    }
  }
  if (bars) std::fputc('|', stdout);
  std::fputc('\n', stdout);
}

bool render_value(const Rendering &rendering, double value, const Options &options,
                  const Printer &printer, int32_t locale_number, const std::string &prefix) {
  check_capacity(options.capacity, rendering.width);
  const int32_t capacity = options.capacity.value_or(std::max(rendering.width, kExpansionRoom));
  GuardedBuffer buffer(capacity);
  fmtreq request{};
  request.width = rendering.width;
  request.decimals = rendering.decimals;
  request.value = &value;
  request.output = buffer.data();
  request.capacity = capacity;
  request.outlen = 0;
  request.flags = options.check ? FMTREQ_CHECK_LIMITS : 0;
  request.locale = locale_number;
  request.xcode_b = options.utf16 ? CORVINEL_ENC_UTF16LE : 0;

  const int32_t result = rendering.render(&request);
  if (!buffer.guards_intact()) {
    std::fprintf(stderr, "corvinel-fmt: the format wrote past its buffer of %d bytes\n",
                 static_cast<int>(capacity));
    return false;
  }
  // A result other than 0 is reported, not printed: whatever the routine left
  // in the field (a classic rendering's "*") is not a rendering of the value.
  if (result != 0) {
    report_result(result);
    return false;
  }
  if (request.outlen < 0 || request.outlen > capacity) {
    std::fprintf(stderr, "corvinel-fmt: outlen %d lies outside the buffer of %d bytes\n",
                 static_cast<int>(request.outlen), static_cast<int>(capacity));
    return false;
  }
  std::fputs(prefix.c_str(), stdout);
  printer.print(buffer.data(), request.outlen);
  return true;
}

bool show_locale_item(const Module &module, const Options &options, const Printer &printer) {
  const auto get_item = module.require<GetItemFunction>("getORBLocDB", "locale item routine");
  std::array<char, kExpansionBuffer> text{};
  const int32_t length = get_item(text.data(), kItemBuffer, *options.item, options.locale_number);
  if (length < 0 || length > kItemBuffer) {
    std::fprintf(stderr, "corvinel-fmt: locale item %d: result %d (no matching locale)\n",
                 static_cast<int>(*options.item), static_cast<int>(length));
    return false;
  }
  if (!options.expand) {
    Printer{printer.bars, false}.print(text.data(), length);
    return true;
  }
  const auto expand =
      module.require<ExpandFunction>("getExpResultFromNarrowCharBuf", "output expansion routine");
  int32_t expanded_length = length;
  int32_t encoding = 0;
  const int32_t result = expand(0, options.utf16 ? CORVINEL_ENC_UTF16LE : 0, &encoding,
                                text.data(), &expanded_length, kExpansionRoom, kExpansionRoom);
  if (result >= 2) {
    std::fprintf(stderr, "corvinel-fmt: expansion result %d\n", static_cast<int>(result));
    return false;
  }
  if (expanded_length < 0 || expanded_length > kExpansionRoom) {
    std::fprintf(stderr, "corvinel-fmt: expansion length %d out of bounds\n",
                 static_cast<int>(expanded_length));
    return false;
  }
  printer.print(text.data(), expanded_length);
  return true;
}

}  // namespace corvinel::cli

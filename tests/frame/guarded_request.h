// A request over an output buffer with guard bytes on both sides, so that a
// write before the field shows as well as one after it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "corvinel/fmtreq.h"

namespace corvinel::testing {

class GuardedRequest {
 public:
  static constexpr int32_t kUnsetOutlen = -12345;

  GuardedRequest(int32_t width, int32_t decimals, double value, int32_t capacity, uint8_t flags = 0)
      : value_(value), room_(static_cast<std::size_t>(std::max(capacity, 0))),
        storage_(kGuard + std::string(room_, '~') + kGuard) {
    req_.width = width;
    req_.decimals = decimals;
    req_.value = &value_;
    req_.output = storage_.data() + kGuard.size();
    req_.capacity = capacity;
    req_.outlen = kUnsetOutlen;
    req_.flags = flags;
    sent_ = req_;
  }

  // Locale number and transcoding context from the start: restored()
  // expects the locale and the requested encoding back.
  void set_context(int32_t locale, int32_t xcode_b, int64_t xcode_state) {
    req_.locale = sent_.locale = locale;
    req_.xcode_b = sent_.xcode_b = xcode_b;
    req_.xcode_state = sent_.xcode_state = xcode_state;
  }

  fmtreq *get() { return &req_; }
  const fmtreq &operator*() const { return req_; }
  const fmtreq *operator->() const { return &req_; }
  const fmtreq &before() const { return sent_; }

  // The whole buffer, and its first `width` bytes.
  std::string buffer() const { return storage_.substr(kGuard.size(), room_); }
  std::string field() const {
    return buffer().substr(0, static_cast<std::size_t>(std::max(req_.width, 0)));
  }
  bool buffer_untouched() const { return buffer() == std::string(room_, '~'); }
  bool guards_intact() const {
    return storage_.size() == room_ + 2 * kGuard.size() && storage_.starts_with(kGuard) &&
           storage_.ends_with(kGuard);
  }
  // The fields every format hands back (capacity and flags differ by family).
  bool restored(bool width_too = true) const {
    return (!width_too || req_.width == sent_.width) && req_.decimals == sent_.decimals &&
           req_.value == sent_.value && req_.output == sent_.output &&
           req_.locale == sent_.locale && req_.xcode_a == sent_.xcode_a &&
           req_.xcode_b == sent_.xcode_b && req_.reserved == sent_.reserved;
  }

 private:
  inline static const std::string kGuard = std::string(16, 'Z');
  double value_;
  std::size_t room_;
  std::string storage_;
  fmtreq req_{};
  fmtreq sent_{};
};

}  // namespace corvinel::testing

// A request over an output buffer with guard bytes on both sides, for tests
// that must also see writes before the field.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "corvinel/fmtreq.h"

namespace corvinel::testing {

class GuardedRequest {
 public:
  static constexpr std::size_t kGuard = 16;
  static constexpr char kGuardByte = '\x5A';
  static constexpr char kFillByte = '~';  // what the field holds before the call
  static constexpr int32_t kUnsetOutlen = -12345;

  GuardedRequest(int32_t width, int32_t decimals, double value, int32_t capacity, uint8_t flags = 0)
      : value_(value) {
    const std::size_t room = static_cast<std::size_t>(std::max(capacity, 0));
    storage_.assign(room + 2 * kGuard, kGuardByte);
    std::fill_n(storage_.begin() + kGuard, room, kFillByte);
    std::memset(&req_, 0, sizeof req_);
    req_.width = width;
    req_.decimals = decimals;
    req_.value = &value_;
    req_.output = storage_.data() + kGuard;
    req_.capacity = capacity;
    req_.outlen = kUnsetOutlen;
    req_.flags = flags;
    req_.locale = 0;
    before_ = req_;
    buffer_before_ = buffer();
  }

  GuardedRequest(const GuardedRequest &) = delete;
  GuardedRequest &operator=(const GuardedRequest &) = delete;

  fmtreq *get() { return &req_; }
  const fmtreq &operator*() const { return req_; }
  const fmtreq *operator->() const { return &req_; }
  const fmtreq &before() const { return before_; }

  // The whole buffer (capacity bytes) as it is now.
  std::string buffer() const {
    return std::string(storage_.data() + kGuard, storage_.size() - 2 * kGuard);
  }
  // The first min(width, capacity) bytes.
  std::string field() const {
    const auto n = static_cast<std::size_t>(std::clamp(req_.width, 0, std::max(req_.capacity, 0)));
    return buffer().substr(0, n);
  }
  bool buffer_untouched() const { return buffer() == buffer_before_; }
  bool guards_intact() const {
    const auto is_guard = [](char c) { return c == kGuardByte; };
    return std::all_of(storage_.begin(), storage_.begin() + kGuard, is_guard) &&
           std::all_of(storage_.end() - kGuard, storage_.end(), is_guard);
  }
  // Fields no format may leave changed (capacity and flags differ by family).
  bool restored() const { return req_.width == before_.width && restored_apart_from_width(); }
  bool restored_apart_from_width() const {
    return req_.decimals == before_.decimals &&
           req_.value == before_.value && req_.output == before_.output &&
           req_.locale == before_.locale && req_.xcode_a == before_.xcode_a &&
           req_.xcode_b == before_.xcode_b && req_.reserved == before_.reserved;
  }

 private:
  double value_;
  std::vector<char> storage_;
  fmtreq req_;
  fmtreq before_;
  std::string buffer_before_;
};

}  // namespace corvinel::testing

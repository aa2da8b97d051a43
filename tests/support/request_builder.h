// A fmtreq over a guarded buffer, for tests that call formats directly.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

#include "corvinel/fmtreq.h"

namespace corvinel::testing {

// Owns the value and an output buffer with guard bytes after `capacity`;
// checks afterwards that the guards and the fields to restore are untouched.
class Request {
 public:
  static constexpr std::size_t kGuard = 16;
  static constexpr char kGuardByte = '\x5A';

  Request(int32_t width, int32_t decimals, double value, int32_t capacity = -1) : value_(value) {
    if (capacity < 0) capacity = std::max(width, 0);
    storage_.assign(static_cast<std::size_t>(capacity) + kGuard, kGuardByte);
    std::memset(&req_, 0, sizeof req_);
    req_.width = width;
    req_.decimals = decimals;
    req_.value = &value_;
    req_.output = storage_.data();
    req_.capacity = capacity;
    req_.outlen = -12345;
    before_ = req_;
  }

  // Output encoding `encoding` (xcode_b) from the start: restored() expects it back.
  void set_output_encoding(int32_t encoding) { req_.xcode_b = before_.xcode_b = encoding; }

  fmtreq *get() { return &req_; }
  fmtreq &operator*() { return req_; }
  fmtreq *operator->() { return &req_; }

  // The `outlen` bytes the format left, and the first `width` bytes whatever outlen says.
  std::string text() const { return prefix(req_.outlen); }
  std::string field() const { return prefix(req_.width); }
  bool guards_intact() const {
    return std::all_of(storage_.end() - kGuard, storage_.end(), [](char c) { return c == kGuardByte; });
  }
  // Fields every format must hand back as it found them.
  bool restored() const {
    return req_.width == before_.width && req_.decimals == before_.decimals &&
           req_.value == before_.value && req_.output == before_.output &&
           req_.locale == before_.locale && req_.xcode_b == before_.xcode_b;
  }

 private:
  // The first n bytes, cut to the buffer (a negative capacity counts as 0).
  std::string prefix(int32_t n) const {
    const int32_t length = std::max(0, std::min(n, req_.capacity));
    return storage_.substr(0, static_cast<std::size_t>(length));
  }

  double value_;
  std::string storage_;
  fmtreq req_;
  fmtreq before_;
};

// The missing value with the given mark: '.', '_' or 'A'..'Z'.
double missing(char mark);

}  // namespace corvinel::testing

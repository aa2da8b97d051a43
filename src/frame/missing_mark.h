// The two rules of the missing-value rendering, shared by zfmmiss and the
// formats that place the mark in a narrowed field.
#pragma once

#include <cstdint>

namespace corvinel::frame {

// The byte written for a missing value: its mark from misscoll ("_", ".",
// "A".."Z"), or a blank for code byte 0 and for values whose top 16 bits are
// not all ones.
char missing_mark(double value);

// Zero-based position of the mark in a field of `width` bytes: width - 1 -
// decimals, or width - 1 when decimals is 98 or 99.  May lie outside the field.
int64_t missing_mark_position(int64_t width, int32_t decimals);

}  // namespace corvinel::frame

// Table rows shared by the string helper tests: a call that answers with a
// number, and a call that edits a buffer.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace corvinel::text::testing {

// A call and the number it must answer.
struct Answer {
  const char *call;
  int32_t (*run)();
  int32_t expected;
};

// A call on a buffer holding `before` (followed by guard bytes), the buffer
// it must leave, and its result (0 for routines without one).
struct Edit {
  const char *call;
  std::string before;
  int32_t (*run)(char *buf);
  std::string after;
  int32_t result = 0;
};

inline void PrintTo(const Answer &a, std::ostream *os) { *os << a.call; }
inline void PrintTo(const Edit &e, std::ostream *os) { *os << e.call; }

class Answers : public ::testing::TestWithParam<Answer> {};
class Edits : public ::testing::TestWithParam<Edit> {};

}  // namespace corvinel::text::testing

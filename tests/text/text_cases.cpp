#include "text/text_cases.h"

namespace corvinel::text::testing {
namespace {

TEST_P(Answers, GiveTheExpectedNumber) { EXPECT_EQ(GetParam().run(), GetParam().expected); }

TEST_P(Edits, LeaveTheExpectedBytesAndNothingBeyond) {
  const Edit &e = GetParam();
  const std::string guard(8, '#');
  std::string buf = e.before + guard;
  EXPECT_EQ(e.run(buf.data()), e.result);
  EXPECT_EQ(buf, e.after + guard);
}

}  // namespace
}  // namespace corvinel::text::testing

#include <gtest/gtest.h>

#include "calendar/render_helpers.h"

namespace corvinel::testing {

TEST_P(ClassicRendering, FillsTheField) {
  const RenderCase &c = GetParam();
  const Rendered r = render(c.renderer, c.width, c.decimals, c.value);
  EXPECT_EQ(r.field, c.expected);
  EXPECT_EQ(r.result, c.result);
  EXPECT_EQ(r.outlen, c.width);
  EXPECT_TRUE(r.guards_intact);
  EXPECT_TRUE(r.restored);
}

}  // namespace corvinel::testing

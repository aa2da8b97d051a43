// Compiles the session locales once, before the first test of the run.
#include <gtest/gtest.h>

#include "support/session_locales.h"

namespace {

struct SessionLocales : ::testing::Environment {
  void SetUp() override { ASSERT_TRUE(corvinel::testing::prepare_session_locales(CORVINEL_TEST_LOCPATH)); }
};

::testing::Environment *const kSessionLocales = ::testing::AddGlobalTestEnvironment(new SessionLocales);

}  // namespace

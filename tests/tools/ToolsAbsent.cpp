// When the project is configured without the tools, tools_tests says so instead of failing to build.
#include <gtest/gtest.h>

#ifdef ZEMSUB_TOOLS_ABSENT
TEST(Tools, AreNotBuiltInThisConfiguration)
{
    GTEST_SKIP() << "configured with ZEMSUB_BUILD_TOOLS=OFF";
}
#endif

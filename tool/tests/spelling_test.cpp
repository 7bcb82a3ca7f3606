// What somebody who mistyped a word may have meant.
#include "tool/spelling.h"

#include <gtest/gtest.h>

TEST(Spelling, FindsTheNearestWordIfOneIsNear)
{
    constexpr std::string_view known[] {"list", "show", "SetRoute", "GetRoutes"};
    EXPECT_EQ(tool::nearest("lst", known), "; did you mean 'list'?");
    EXPECT_EQ(tool::nearest("getroute", known), "; did you mean 'GetRoutes'?");
    EXPECT_EQ(tool::nearest("GetRoute", known), "; did you mean 'GetRoutes'?");
    EXPECT_EQ(tool::nearest("xyzzy", known), "");
    EXPECT_EQ(tool::nearest("lst", {}), "");
}

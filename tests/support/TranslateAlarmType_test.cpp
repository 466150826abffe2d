#include <gtest/gtest.h>

#include <climits>

#include "vkprotocolstack/support/support.h"

namespace {

TEST(TranslateAlarmType, GivesItsArgumentBack) {
    for (const int type : {0, 1, -1, 0x2175, INT_MAX, INT_MIN}) EXPECT_EQ(TranslateAlarmType(type), type);
}

}  // namespace

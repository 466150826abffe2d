#include "vkprotocolstack/foundation/box.h"

#include <gtest/gtest.h>

#include "testing/json.h"

namespace {

using jsonparser::BoxOf;
using jsonparser::Node;
using jsonparser::PointOf;
using testing_tools::HostileValues;
using testing_tools::Json;

TEST(BoxOf, TakesTheFirstFourElements) {
    const Json::Value node = Json("[1, -2, 2147483648, 4.9, 5]");
    const VK_RECT box = BoxOf(Node(node));
    EXPECT_EQ(box.nLeft, 1);
    EXPECT_EQ(box.nTop, -2);
    EXPECT_EQ(box.nRight, -2147483648LL);
    EXPECT_EQ(box.nBottom, 4);
}

TEST(PointOf, TakesTheLowBitsOfTheFirstTwoElements) {
    const Json::Value node = Json("[70000, -1, 9]");
    const VK_POINT point = PointOf(Node(node));
    EXPECT_EQ(point.nx, 4464);
    EXPECT_EQ(point.ny, -1);
}

TEST(BoxOf, ElementsThatAreMissingReadAsZero) {
    for (const Json::Value& value : HostileValues()) {
        const VK_RECT box = BoxOf(Node(value));
        const VK_POINT point = PointOf(Node(value));
        if (value.isArray()) continue;
        EXPECT_EQ(box.nLeft | box.nTop | box.nRight | box.nBottom, 0);
        EXPECT_EQ(point.nx | point.ny, 0);
    }
}

}  // namespace

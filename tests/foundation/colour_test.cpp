#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "testing/json.h"
#include "vkprotocolstack/JsonParser.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Text;

TEST(GetJsonColor, PlacesElementIInByteIFromTheLowest) {
    unsigned color = 0xA5A5A5A5U;
    EXPECT_EQ(GetJsonColor(Json("[1, 2, 3, 4]"), color), 1);
    EXPECT_EQ(color, 67305985U);
}

TEST(GetJsonColor, AComponentOf256WrapsTo0) {
    unsigned color = 0xA5A5A5A5U;
    EXPECT_EQ(GetJsonColor(Json("[256, 0, 0, 0]"), color), 1);
    EXPECT_EQ(color, 0U);
}

TEST(GetJsonColor, KeepsTheLow8BitsOfEachComponent) {
    struct Row {
        Json::Value component;
        unsigned byte;
    };
    const Row rows[] = {
        {255,                          255U},
        {257,                          1U  },
        {-1,                           255U},
        {-256,                         0U  },
        {-255,                         1U  },
        {128,                          128U},
        {Json("2147483647"),           255U},
        {Json("-2147483648"),          0U  },
        {Json("4294967295"),           255U},
        {Json("4294967296"),           0U  },
        {Json("4294967426"),           130U},
        {Json("18446744073709551615"), 255U},
        {254.9,                        254U},
        {-1.9,                         255U},
        {1e10,                         255U}, // the low byte of the limit of 32 bits
        {-1e10,                        0U  },
        {HUGE_VAL,                     255U},
        {std::nan(""),                 0U  },
        {true,                         1U  },
        {false,                        0U  },
        {Json::Value(),                0U  },
        {"7",                          0U  },
        {Json("[7]"),                  0U  },
        {Json(R"({"x": 7})"),          0U  },
    };
    for (const Row& row : rows) {
        for (Json::ArrayIndex i = 0; i < 4; ++i) {
            Json::Value array = Json("[17, 34, 51, 68]");
            array[i] = row.component;
            unsigned expected = 0x44332211U;
            expected = (expected & ~(0xFFU << (8 * i))) | row.byte << (8 * i);
            unsigned color = 0xA5A5A5A5U;
            EXPECT_EQ(GetJsonColor(array, color), 1);
            EXPECT_EQ(color, expected) << Text(array);
        }
    }
}

TEST(GetJsonColor, AnyOtherShapeReturns0AndLeavesTheColourUnchanged) {
    std::vector<Json::Value> shapes = HostileValues();
    for (const char* text : {"[]", "[1, 2, 3]", "[1, 2, 3, 4, 5]", "[[1, 2, 3, 4]]", "67305985", "\"#01020304\"",
                             R"({"0": 1, "1": 2, "2": 3, "3": 4})"}) {
        shapes.push_back(Json(text));
    }
    for (const Json::Value& value : shapes) {
        if (value.isArray() && value.size() == 4) continue;
        unsigned color = 0xA5A5A5A5U;
        EXPECT_EQ(GetJsonColor(value, color), 0);
        EXPECT_EQ(color, 0xA5A5A5A5U);
    }
}

TEST(GetJsonColor, AnyComponentIsRead) {
    for (const Json::Value& value : HostileValues()) {
        Json::Value array(Json::arrayValue);
        for (int i = 0; i < 4; ++i) array.append(value);
        unsigned color = 0xA5A5A5A5U;
        EXPECT_EQ(GetJsonColor(array, color), 1);
        EXPECT_EQ(color, (color & 0xFFU) * 0x01010101U);
    }
}

std::string Written(unsigned color, Json::Value node = {}) {
    EXPECT_EQ(SetJsonColor(node, color), 1);
    return Text(node);
}

TEST(SetJsonColor, WritesTheBytesFromTheLowestUp) {
    EXPECT_EQ(Written(2164195329U), "[1,0,255,128]");
    EXPECT_EQ(Written(67305985U), "[1,2,3,4]");
}

TEST(SetJsonColor, WritesEachComponentIn0To255) {
    EXPECT_EQ(Written(0U), "[0,0,0,0]");
    EXPECT_EQ(Written(4294967295U), "[255,255,255,255]");
    EXPECT_EQ(Written(0x80000000U), "[0,0,0,128]");
    EXPECT_EQ(Written(0x0000FF00U), "[0,255,0,0]");
}

TEST(SetJsonColor, ComponentsAreIntegers) {
    Json::Value node;
    SetJsonColor(node, 4294967295U);
    for (const Json::Value& component : node) EXPECT_EQ(component.type(), Json::intValue);
}

TEST(SetJsonColor, ALongerArrayKeepsItsElementsFromIndex4On) {
    EXPECT_EQ(Written(67305985U, Json(R"([9, "x", null, {}, "kept", [6], null])")), R"([1,2,3,4,"kept",[6],null])");
}

TEST(SetJsonColor, AShorterArrayGrows) { EXPECT_EQ(Written(67305985U, Json("[9]")), "[1,2,3,4]"); }

TEST(SetJsonColor, AnyValueButAnArrayIsReplaced) {
    for (const Json::Value& value : HostileValues()) {
        if (!value.isArray()) {
            EXPECT_EQ(Written(67305985U, value), "[1,2,3,4]");
        }
    }
}

TEST(SetJsonColor, AnyArrayHoldsTheComponentsAndItsOwnTail) {
    for (const Json::Value& value : HostileValues()) {
        if (!value.isArray()) continue;
        Json::Value node = value;
        EXPECT_EQ(SetJsonColor(node, 67305985U), 1);
        ASSERT_EQ(node.size(), std::max<Json::ArrayIndex>(value.size(), 4));
        for (Json::ArrayIndex i = 0; i < 4; ++i) EXPECT_EQ(node[i], Json::Value(static_cast<int>(i) + 1));
        for (Json::ArrayIndex i = 4; i < value.size(); ++i) EXPECT_EQ(Text(node[i]), Text(value[i]));
    }
}

}  // namespace

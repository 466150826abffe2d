#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cmath>
#include <string>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;
using testing_tools::Text;

/// Everything that is no array of four elements; of two, where that is asked for.
std::vector<Json::Value> OtherShapes(Json::ArrayIndex size) {
    std::vector<Json::Value> shapes;
    for (const Json::Value& value : HostileValues()) {
        if (!value.isArray() || value.size() != size) shapes.push_back(value);
    }
    for (const char* text :
         {"[]", "[1]", "[1, 2, 3]", "[1, 2, 3, 4, 5]", "[[1, 2, 3, 4]]", "[[1, 2]]", "\"[1, 2]\"",
          R"({"0": 1, "1": 2})", R"({"0": 1, "1": 2, "2": 3, "3": 4})", R"({"a": 1, "b": 2, "c": 3, "d": 4})"}) {
        shapes.push_back(Json(text));
    }
    shapes.push_back(Json(size == 4 ? "[1, 2]" : "[1, 2, 3, 4]"));
    return shapes;
}

struct Element {
    Json::Value value;
    int expected;
};

/// Elements with the int that each reads as.
std::vector<Element> Elements() {
    return {
        {Json("null"),                 0         },
        {Json("true"),                 1         },
        {Json("false"),                0         },
        {Json("\"7\""),                0         },
        {Json("[7]"),                  0         },
        {Json(R"({"x": 7})"),          0         },
        {Json("-1"),                   -1        },
        {Json("2147483647"),           INT_MAX   },
        {Json("-2147483648"),          INT_MIN   },
        {Json("2147483648"),           INT_MIN   },
        {Json("-2147483649"),          INT_MAX   },
        {Json("4026990592"),           -267976704},
        {Json("4294967295"),           -1        },
        {Json("4294967296"),           0         },
        {Json("4294967303"),           7         },
        {Json("9223372036854775807"),  -1        },
        {Json("-9223372036854775808"), 0         },
        {Json("18446744073709551615"), -1        },
        {Json("2.9"),                  2         },
        {Json("-2.9"),                 -2        },
        {Json("-0.0"),                 0         },
        {Json("2147483647.5"),         INT_MAX   },
        {Json("2147483648.0"),         INT_MAX   },
        {Json("-2147483648.9"),        INT_MIN   },
        {Json("1e308"),                INT_MAX   },
        {Json("-1e308"),               INT_MIN   },
        {HUGE_VAL,                     INT_MAX   },
        {-HUGE_VAL,                    INT_MIN   },
        {std::nan(""),                 0         },
    };
}

Json::Value Array(std::initializer_list<int> elements) {
    Json::Value array(Json::arrayValue);
    for (const int element : elements) array.append(element);
    return array;
}

// ---- GetJsonRect

std::array<long long, 4> Edges(const VK_RECT& rect) { return {rect.nLeft, rect.nTop, rect.nRight, rect.nBottom}; }
std::array<int, 4> Edges(const tagNET_RECT& rect) { return {rect.nLeft, rect.nTop, rect.nRight, rect.nBottom}; }

TEST(GetJsonRect, ReadsTheEdgesInOrder) {
    Placed<VK_RECT> rect;
    EXPECT_EQ(GetJsonRect(Json("[1, 2, 3, 4]"), *rect), 1);
    EXPECT_EQ(Edges(*rect), (std::array<long long, 4>{1, 2, 3, 4}));
}

TEST(GetJsonRect, StoresNegativeEdgesAsNegative64BitValues) {
    Placed<VK_RECT> rect;
    EXPECT_EQ(GetJsonRect(Json("[10, -20, 30, 40]"), *rect), 1);
    EXPECT_EQ(Edges(*rect), (std::array<long long, 4>{10, -20, 30, 40}));
}

TEST(GetJsonRect, AnArrayOf5NumbersReturns0AndClearsAllFields) {
    Placed<VK_RECT> rect;
    EXPECT_EQ(GetJsonRect(Json("[1, 2, 3, 4, 5]"), *rect), 0);
    EXPECT_EQ(Edges(*rect), (std::array<long long, 4>{0, 0, 0, 0}));
}

TEST(GetJsonRect, AnyOtherShapeReturns0AndClearsAllFields) {
    for (const Json::Value& value : OtherShapes(4)) {
        Placed<VK_RECT> rect;
        EXPECT_EQ(GetJsonRect(value, *rect), 0);
        EXPECT_EQ(Edges(*rect), (std::array<long long, 4>{0, 0, 0, 0}));
    }
}

TEST(GetJsonRect, ReadsEachElementAsASignExtendedInt) {
    for (const Element& element : Elements()) {
        for (Json::ArrayIndex i = 0; i < 4; ++i) {
            Json::Value array = Array({1, 2, 3, 4});
            std::array<long long, 4> expected{1, 2, 3, 4};
            array[i] = element.value;
            expected[i] = element.expected;
            Placed<VK_RECT> rect;
            EXPECT_EQ(GetJsonRect(array, *rect), 1);
            EXPECT_EQ(Edges(*rect), expected) << Text(array);
        }
    }
}

TEST(GetJsonRect, ElementsThatAreNotThereReadAs0) {
    Json::Value sparse;
    sparse[3] = 4;
    Placed<VK_RECT> rect;
    EXPECT_EQ(GetJsonRect(sparse, *rect), 1);
    EXPECT_EQ(Edges(*rect), (std::array<long long, 4>{0, 0, 0, 4}));
}

TEST(GetJsonRect, AnyElementIsRead) {
    for (const Json::Value& value : HostileValues()) {
        Json::Value array(Json::arrayValue);
        for (int i = 0; i < 4; ++i) array.append(value);
        Placed<VK_RECT> rect;
        EXPECT_EQ(GetJsonRect(array, *rect), 1);
        EXPECT_TRUE(rect->nLeft == rect->nTop && rect->nTop == rect->nRight && rect->nRight == rect->nBottom);
    }
}

// ---- JsonRect::parse

TEST(JsonRectParse, ReadsTheEdgesInOrder) {
    Placed<tagNET_RECT> rect;
    EXPECT_TRUE(JsonRect::parse<tagNET_RECT>(Json("[10, -20, 30, 40]"), *rect));
    EXPECT_EQ(Edges(*rect), (std::array<int, 4>{10, -20, 30, 40}));
}

TEST(JsonRectParse, AnArrayOf5NumbersReturnsFalseAndKeepsTheFields) {
    Placed<tagNET_RECT> rect;
    EXPECT_FALSE(JsonRect::parse<tagNET_RECT>(Json("[1, 2, 3, 4, 5]"), *rect));
    EXPECT_EQ(rect.changedFields(), Fields{});
}

TEST(JsonRectParse, AnyOtherShapeReturnsFalseAndKeepsTheFields) {
    for (const Json::Value& value : OtherShapes(4)) {
        Placed<tagNET_RECT> rect;
        EXPECT_FALSE(JsonRect::parse(value, *rect));
        EXPECT_EQ(rect.changedFields(), Fields{});
    }
}

TEST(JsonRectParse, ReadsEachElementAsAnInt) {
    for (const Element& element : Elements()) {
        for (Json::ArrayIndex i = 0; i < 4; ++i) {
            Json::Value array = Array({1, 2, 3, 4});
            std::array<int, 4> expected{1, 2, 3, 4};
            array[i] = element.value;
            expected[i] = element.expected;
            Placed<tagNET_RECT> rect(4);
            EXPECT_TRUE(JsonRect::parse(array, *rect));
            EXPECT_EQ(Edges(*rect), expected) << Text(array);
        }
    }
}

TEST(JsonRectParse, AnyElementIsRead) {
    for (const Json::Value& value : HostileValues()) {
        Json::Value array(Json::arrayValue);
        for (int i = 0; i < 4; ++i) array.append(value);
        Placed<tagNET_RECT> rect(4);
        EXPECT_TRUE(JsonRect::parse(array, *rect));
        EXPECT_TRUE(rect->nLeft == rect->nTop && rect->nTop == rect->nRight && rect->nRight == rect->nBottom);
    }
}

// ---- SetJsonRect

std::string Written(const VK_RECT& rect, Json::Value node = {}) {
    EXPECT_EQ(SetJsonRect(node, rect), 1);
    return Text(node);
}

TEST(SetJsonRect, WritesTheEdgesInOrder) { EXPECT_EQ(Written({10, -20, 30, 40}), "[10,-20,30,40]"); }

TEST(SetJsonRect, WritesTheLow32BitsOfARightEdgeOf4294967303As7) {
    EXPECT_EQ(Written({0, 0, 4294967296 + 7, 0}), "[0,0,7,0]");
}

TEST(SetJsonRect, WritesTheLow32BitsOfEveryEdge) {
    EXPECT_EQ(Written({INT_MAX, INT_MIN, 2147483648, -2147483649}), "[2147483647,-2147483648,-2147483648,2147483647]");
    EXPECT_EQ(Written({4294967295, -4294967297, LLONG_MAX, LLONG_MIN}), "[-1,-1,-1,0]");
}

TEST(SetJsonRect, ElementsAreIntegers) {
    Json::Value node;
    SetJsonRect(node, {1, 2, 3, 4});
    for (const Json::Value& element : node) EXPECT_EQ(element.type(), Json::intValue);
}

TEST(SetJsonRect, ALongerArrayKeepsItsElementsFromIndex4On) {
    EXPECT_EQ(Written({1, 2, 3, 4}, Json(R"([9, "x", null, {"a": 1}, "kept", [6], null])")),
              R"([1,2,3,4,"kept",[6],null])");
}

TEST(SetJsonRect, AShorterArrayGrows) {
    EXPECT_EQ(Written({1, 2, 3, 4}, Json("[]")), "[1,2,3,4]");
    EXPECT_EQ(Written({1, 2, 3, 4}, Json("[7, 8]")), "[1,2,3,4]");
}

TEST(SetJsonRect, AnyValueButAnArrayIsReplaced) {
    for (const Json::Value& value : HostileValues()) {
        if (!value.isArray()) {
            EXPECT_EQ(Written({1, 2, 3, 4}, value), "[1,2,3,4]");
        }
    }
}

TEST(SetJsonRect, AnyArrayHoldsTheEdgesAndItsOwnTail) {
    for (const Json::Value& value : HostileValues()) {
        if (!value.isArray()) continue;
        Json::Value node = value;
        EXPECT_EQ(SetJsonRect(node, {1, 2, 3, 4}), 1);
        ASSERT_EQ(node.size(), std::max<Json::ArrayIndex>(value.size(), 4));
        for (Json::ArrayIndex i = 0; i < 4; ++i) EXPECT_EQ(node[i], Json::Value(static_cast<int>(i) + 1));
        for (Json::ArrayIndex i = 4; i < value.size(); ++i) EXPECT_EQ(Text(node[i]), Text(value[i]));
    }
}

// ---- GetJsonPoint

std::array<int, 2> Coordinates(const VK_POINT& point) { return {point.nx, point.ny}; }

TEST(GetJsonPoint, ReadsTheCoordinatesInOrder) {
    Placed<VK_POINT> point;
    EXPECT_EQ(GetJsonPoint(Json("[100, -200]"), *point), 1);
    EXPECT_EQ(Coordinates(*point), (std::array<int, 2>{100, -200}));
}

TEST(GetJsonPoint, Truncates70000To4464) {
    Placed<VK_POINT> point;
    EXPECT_EQ(GetJsonPoint(Json("[70000, 1]"), *point), 1);
    EXPECT_EQ(Coordinates(*point), (std::array<int, 2>{4464, 1}));
}

TEST(GetJsonPoint, TruncatesEachCoordinateTo16Bits) {
    struct Row {
        const char* element;
        short expected;
    };
    const Row rows[] = {
        {"32767",                32767 },
        {"32768",                -32768},
        {"-32768",               -32768},
        {"-32769",               32767 },
        {"65535",                -1    },
        {"65536",                0     },
        {"-65537",               -1    },
        {"4294967295",           -1    },
        {"4295032831",           -1    },
        {"18446744073709551615", -1    },
        {"-9223372036854775807", 1     },
        {"-2.9",                 -2    },
        {"70000.9",              4464  },
        {"1e10",                 -1    }, // the low half of the limit of 32 bits
        {"-1e10",                0     },
        {"true",                 1     },
        {"null",                 0     },
        {"\"7\"",                0     },
        {"[7]",                  0     },
        {"{}",                   0     },
    };
    for (const Row& row : rows) {
        Placed<VK_POINT> x;
        Placed<VK_POINT> y;
        EXPECT_EQ(GetJsonPoint(Json("[" + std::string(row.element) + ", 5]"), *x), 1);
        EXPECT_EQ(GetJsonPoint(Json("[5, " + std::string(row.element) + "]"), *y), 1);
        EXPECT_EQ(Coordinates(*x), (std::array<int, 2>{row.expected, 5})) << row.element;
        EXPECT_EQ(Coordinates(*y), (std::array<int, 2>{5, row.expected})) << row.element;
    }
}

TEST(GetJsonPoint, AnyOtherShapeReturns0AndKeepsTheFields) {
    for (const Json::Value& value : OtherShapes(2)) {
        Placed<VK_POINT> point;
        EXPECT_EQ(GetJsonPoint(value, *point), 0);
        EXPECT_EQ(point.changedFields(), Fields{});
    }
}

TEST(GetJsonPoint, AnyElementIsRead) {
    for (const Json::Value& value : HostileValues()) {
        Json::Value array(Json::arrayValue);
        array.append(value);
        array.append(value);
        Placed<VK_POINT> point(4);
        EXPECT_EQ(GetJsonPoint(array, *point), 1);
        EXPECT_EQ(point->nx, point->ny);
    }
}

// ---- SetJsonPoint

std::string Written(const VK_POINT& point, Json::Value node = {}) {
    EXPECT_EQ(SetJsonPoint(node, point), 1);
    return Text(node);
}

TEST(SetJsonPoint, WritesTheCoordinatesInOrder) { EXPECT_EQ(Written(VK_POINT{100, -200}), "[100,-200]"); }

TEST(SetJsonPoint, SignExtendsFrom16Bits) { EXPECT_EQ(Written(VK_POINT{-32768, 32767}), "[-32768,32767]"); }

TEST(SetJsonPoint, ElementsAreIntegers) {
    Json::Value node;
    SetJsonPoint(node, {1, 2});
    for (const Json::Value& element : node) EXPECT_EQ(element.type(), Json::intValue);
}

TEST(SetJsonPoint, ResizesTheNodeTo2Elements) {
    for (const char* text : {"null", "[]", "[7]", "[7, 8]", "[7, 8, 9]", R"([{"a": 1}, [2], "x", null, 5])"}) {
        EXPECT_EQ(Written(VK_POINT{1, 2}, Json(text)), "[1,2]") << text;
    }
}

TEST(SetJsonPoint, AnyValueBecomesThePoint) {
    for (const Json::Value& value : HostileValues()) EXPECT_EQ(Written(VK_POINT{1, 2}, value), "[1,2]");
}

TEST(SetJsonPoint, AnArrayThatHoldsOnlyItsLastElementBecomesThePoint) {
    Json::Value sparse;
    sparse[7] = 1;
    EXPECT_EQ(Written(VK_POINT{1, 2}, sparse), "[1,2]");
}

}  // namespace

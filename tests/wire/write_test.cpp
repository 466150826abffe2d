#include "vkprotocolstack/wire/write.h"

#include <gtest/gtest.h>
#include <json/value.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <utility>

#include "testing/json.h"

namespace {

using jsonparser::AsArray;
using jsonparser::AsObject;
using jsonparser::Element;
using jsonparser::InsertNulls;
using jsonparser::Member;
using jsonparser::NumberFormat;
using jsonparser::Printed;
using jsonparser::Put;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Text;
using namespace std::string_view_literals;

/// How many elements a walk over the array meets.
std::size_t Walked(const Json::Value& array) {
    return static_cast<std::size_t>(std::distance(array.begin(), array.end()));
}

TEST(AsObject, KeepsObjectsAndNullAndReplacesAllElse) {
    for (const Json::Value& value : HostileValues()) {
        Json::Value node = value;
        EXPECT_EQ(&AsObject(node), &node);
        if (value.isObject() || value.isNull()) {
            EXPECT_EQ(Text(node), Text(value));
        } else {
            EXPECT_EQ(Text(node), "{}");
        }
    }
}

TEST(AsArray, KeepsArraysAndNullAndReplacesAllElse) {
    for (const Json::Value& value : HostileValues()) {
        Json::Value node = value;
        EXPECT_EQ(&AsArray(node), &node);
        if (value.isArray() || value.isNull()) {
            EXPECT_EQ(Text(node), Text(value));
        } else {
            EXPECT_EQ(Text(node), "[]");
        }
    }
}

TEST(Member, IsCreatedAsNullWhereMissingAndFoundWhereNot) {
    const struct {
        const char* before;
        const char* after;
    } rows[] = {
        {"null",                   R"({"a":null})"               },
        {"{}",                     R"({"a":null})"               },
        {R"({"a": 7})",            R"({"a":7})"                  },
        {R"({"A": 7, "aa": [1]})", R"({"A":7,"a":null,"aa":[1]})"},
        {"[1, 2]",                 R"({"a":null})"               },
        {"7",                      R"({"a":null})"               },
        {"false",                  R"({"a":null})"               },
        {R"("a")",                 R"({"a":null})"               },
    };
    for (const auto& row : rows) {
        Json::Value node = Json(row.before);
        Json::Value& member = Member(node, "a");
        EXPECT_EQ(Text(node), row.after) << row.before;
        EXPECT_EQ(&member, &node["a"]) << row.before;
    }
}

TEST(Member, HasTheWholeName) {
    Json::Value node;
    Member(node, "a\0b"sv) = 1;
    Member(node, "a"sv) = 2;
    Member(node, "abc"sv.substr(0, 2)) = 3;
    Member(node, "") = 4;
    EXPECT_EQ(Text(node), R"({"":4,"a":2,"a\u0000b":1,"ab":3})");
}

TEST(Member, ANameOfNoBytesIsTheEmptyNameWhereverItPoints) {
    Json::Value node;
    Member(node, "") = 1;
    Member(node, std::string_view()) = 2;
    EXPECT_EQ(Text(node), R"({"":2})");
}

TEST(Element, IsCreatedAsNullWhereMissingAndFoundWhereNot) {
    const struct {
        const char* before;
        const char* after;
    } rows[] = {
        {"null",         "[null,null,null]"},
        {"[]",           "[null,null,null]"},
        {"[1]",          "[1,null,null]"   },
        {"[1, 2]",       "[1,2,null]"      },
        {"[1, 2, [3]]",  "[1,2,[3]]"       },
        {"[1, 2, 3, 4]", "[1,2,3,4]"       },
        {R"({"a": 1})",  "[null,null,null]"},
        {"7",            "[null,null,null]"},
        {R"("text")",    "[null,null,null]"},
    };
    for (const auto& row : rows) {
        Json::Value node = Json(row.before);
        Json::Value& element = Element(node, 2);
        EXPECT_EQ(Text(node), row.after) << row.before;
        EXPECT_EQ(&element, &node[2]) << row.before;
        EXPECT_EQ(Walked(node), node.size()) << row.before;
    }
}

TEST(Element, TheFirstOfNothingIsTheOnlyOne) {
    Json::Value node;
    EXPECT_TRUE(Element(node, 0).isNull());
    EXPECT_EQ(Text(node), "[null]");
}

TEST(Element, ElementsThatTheArrayLackedBeforeItsEndStayAsTheyAre) {
    Json::Value sparse;
    sparse[5] = 1;
    Element(sparse, 8) = 2;
    EXPECT_EQ(Text(sparse), "[null,null,null,null,null,1,null,null,2]");
    EXPECT_EQ(Walked(sparse), 4U);
    EXPECT_TRUE(Element(sparse, 3).isNull());
    EXPECT_EQ(Walked(sparse), 5U);
}

TEST(Put, SetsAMemberAndKeepsTheOthers) {
    Json::Value node = Json(R"({"a": [1, 2], "b": 3})");
    Put(node, "a", "text");
    Put(node, "c", 1.5);
    Put(node, "d", Json(R"({"x": [true]})"));
    Put(node, "e", Json::Value());
    EXPECT_EQ(Text(node), R"({"a":"text","b":3,"c":1.5,"d":{"x":[true]},"e":null})");
}

TEST(Put, SetsAnElementAndKeepsTheOthers) {
    Json::Value node = Json("[1, 2]");
    Put(node, 1, "text");
    Put(node, 3, true);
    EXPECT_EQ(Text(node), R"([1,"text",null,true])");
    EXPECT_EQ(Walked(node), 4U);
}

TEST(Put, ReplacesWhatIsNoContainerOfItsKind) {
    for (const Json::Value& value : HostileValues()) {
        Json::Value object = value;
        Put(object, "a", 1);
        EXPECT_EQ(object["a"], Json::Value(1));
        EXPECT_EQ(object.size(), value.isObject() ? value.size() + 1 : 1);
        Json::Value array = value;
        Put(array, 0, 1);
        EXPECT_EQ(array[0], Json::Value(1));
        EXPECT_EQ(array.size(), value.isArray() ? std::max(value.size(), 1U) : 1);
    }
}

TEST(Put, TakesAPartOfTheNodeThatItReplaces) {
    Json::Value node = Json(R"({"a": {"b": [1]}})");
    Put(node, "a", node["a"]["b"]);
    EXPECT_EQ(Text(node), R"({"a":[1]})");
    Json::Value text = "text";
    Put(text, "a", text);
    EXPECT_EQ(Text(text), R"({"a":"text"})");
}

TEST(InsertNulls, InsertsWhatIsMissingInNullAndInObjectsAndLeavesAllElse) {
    constexpr std::string_view kNames[] = {"b", "a", ""};
    const struct {
        const char* before;
        const char* after;
    } rows[] = {
        {"null",                       R"({"":null,"a":null,"b":null})"         },
        {"{}",                         R"({"":null,"a":null,"b":null})"         },
        {R"({"a": 7, "c": {"a": 1}})", R"({"":null,"a":7,"b":null,"c":{"a":1}})"},
        {R"({"a": null})",             R"({"":null,"a":null,"b":null})"         },
        {"[]",                         "[]"                                     },
        {"[{}]",                       "[{}]"                                   },
        {"7",                          "7"                                      },
        {"true",                       "true"                                   },
        {R"("a")",                     R"("a")"                                 },
    };
    for (const auto& row : rows) {
        Json::Value node = Json(row.before);
        InsertNulls(node, kNames);
        EXPECT_EQ(Text(node), row.after) << row.before;
    }
}

TEST(InsertNulls, InsertsWhatAsManyNamesAsItTakesAreMissing) {
    constexpr std::array<std::string_view, 48> kMany = [] {
        constexpr std::string_view kDigits = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKL";
        std::array<std::string_view, 48> names{};
        for (std::size_t i = 0; i < names.size(); ++i) names[i] = std::string_view(kDigits.data() + i, 1);
        return names;
    }();
    for (std::size_t missing = 0; missing < kMany.size(); ++missing) {
        Json::Value node;
        for (std::size_t i = 0; i < kMany.size(); ++i) {
            if (i % (missing + 1) != 0) node[std::string(kMany[i])] = static_cast<int>(i);
        }
        node["another"] = true;
        Json::Value expected = node;
        for (const std::string_view name : kMany) expected[std::string(name)];
        InsertNulls(node, kMany);
        EXPECT_EQ(Text(node), Text(expected)) << missing;
    }
}

// ---- printing

constexpr unsigned kBorders[] = {0,          1,          9,          10,         11,         99,         100,
                                 101,        999,        1000,       9999,       10000,      99999,      999999999,
                                 1000000000, 2147483646, 2147483647, 2147483648, 2147483649, 4294967195, 4294967196,
                                 4294967197, 4294967285, 4294967286, 4294967287, 4294967294, 4294967295};

/// By snprintf.
template <std::size_t N>
std::string Formatted(const NumberFormat<N>& format, const std::array<unsigned, N>& numbers) {
    char text[256];
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        std::snprintf(text, sizeof text, format.text().data(), numbers[I]...);
    }
    (std::make_index_sequence<N>());
    return text;
}

template <std::size_t N>
void ExpectPrintedAlike(const NumberFormat<N>& format, const std::array<unsigned, N>& numbers) {
    const Json::Value printed = Printed(format.steps(), numbers.data());
    ASSERT_TRUE(printed.isString());
    ASSERT_EQ(printed.asString(), Formatted(format, numbers)) << format.text();
}

TEST(Printed, PrintsBordersAsSnprintfDoes) {
    for (const unsigned number : kBorders) {
        ExpectPrintedAlike(NumberFormat<1>("%d"), {number});
        ExpectPrintedAlike(NumberFormat<1>("%u"), {number});
        ExpectPrintedAlike(NumberFormat<1>("%01d"), {number});
        ExpectPrintedAlike(NumberFormat<1>("%02d"), {number});
        ExpectPrintedAlike(NumberFormat<1>("%04d"), {number});
        ExpectPrintedAlike(NumberFormat<1>("%09d"), {number});
        ExpectPrintedAlike(NumberFormat<1>("%02u"), {number});
        ExpectPrintedAlike(NumberFormat<1>("%04u"), {number});
        ExpectPrintedAlike(NumberFormat<1>(" %09u"), {number});
        ExpectPrintedAlike(NumberFormat<7>("%d %02d:%02d:%02d-%02d:%02d:%02d"),
                           {number, number, number, number, number, number, number});
    }
}

TEST(Printed, PrintsRandomNumbersAsSnprintfDoes) {
    std::mt19937 random{20240105};  // NOLINT(cert-msc51-cpp): repeatable on purpose
    const auto number = [&] {
        const auto bits = static_cast<unsigned>(random());
        return random() % 8 == 0 ? kBorders[bits % std::size(kBorders)] : bits >> random() % 32;
    };
    for (int round = 0; round < 50000; ++round) {
        ExpectPrintedAlike(NumberFormat<3>("%04u-%02u-%02u"), {number(), number(), number()});
        ExpectPrintedAlike(NumberFormat<7>("%04d-%02d-%02d %02d:%02d:%02d.%d"),
                           {number(), number(), number(), number(), number(), number(), number()});
    }
}

TEST(Printed, TakesNumbersOfAnyIntegerTypeOfAtMost32Bits) {
    EXPECT_EQ(Printed("%d %d %d %u %d", short{-1}, static_cast<unsigned char>(255), 4294967295U, -1, 7).asString(),
              "-1 255 -1 4294967295 7");
}

}  // namespace

#include "vkprotocolstack/wire/place.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "taken.h"
#include "testing/json.h"
#include "testing/locale.h"
#include "vkprotocolstack/wire/copied_text.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::NameIndex;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::Place;
using jsonparser::TextEntry;
using jsonparser::TextType;
using testing_tools::Json;
using testing_tools::Taken;

// A place tells the two kinds of addresses apart by the lowest bit, and keeps what it knows in the next two.
static_assert(alignof(TextEntry) >= 2 && alignof(Json::Value) >= 8);
static_assert(sizeof(Place) == sizeof(void*));

const char* const kTexts[] = {
    "null",
    "true",
    "false",
    "0",
    "-0",
    "1",
    "-1",
    "127",
    "128",
    "-128",
    "-129",
    "255",
    "256",
    "32767",
    "32768",
    "-32768",
    "-32769",
    "65535",
    "65536",
    "2147483647",
    "2147483648",
    "-2147483648",
    "-2147483649",
    "4294967295",
    "4294967296",
    "4611686293305294849",
    "9223372036854775807",
    "9223372036854775808",
    "-9223372036854775808",
    "-9223372036854775809",
    "18446744073709551615",
    "18446744073709551616",
    "0.0",
    "-0.0",
    "0.5",
    "-0.5",
    "1.0",
    "255.0",
    "2147483647.0",
    "2147483647.5",
    "2147483648.0",
    "-2147483648.0",
    "-2147483649.0",
    "4294967295.0",
    "4294967295.5",
    "4294967296.0",
    "1e99",
    "-1e99",
    "1e-99",
    "9223372036854775808.0",
    "18446744073709551616.0",
    "\"\"",
    "\"1\"",
    "\"true\"",
    "\"\\u8def\"",
    "\"a\\nb\"",
    "[]",
    "[1]",
    "[[1]]",
    "{}",
    "{\"a\":1}",
};

class PlaceOnATape : public testing::TestWithParam<TextType> {};

INSTANTIATE_TEST_SUITE_P(WithTextsThatAre, PlaceOnATape, testing::Values(TextType::Text, TextType::CopiedText));

TEST_P(PlaceOnATape, IsWhatItIsInATree) {
    for (const char* text : kTexts) {
        const Taken taken(std::string("[") + text + ']', 128, GetParam());
        const Json::Value value = Json(text);
        const Place tape(&taken.first());
        const Place tree(&value);
        EXPECT_TRUE(tape.isOnTape()) << text;
        EXPECT_FALSE(tree.isOnTape()) << text;
        EXPECT_FALSE(tape.isWatched()) << text;
        EXPECT_TRUE(tape.exists() && tree.exists()) << text;
        EXPECT_EQ(tape.isPresent(), tree.isPresent()) << text;
        EXPECT_EQ(tape.type(), tree.type()) << text;
        EXPECT_EQ(tape.type(), value.type()) << text;
        EXPECT_EQ(tape.isArray(), tree.isArray()) << text;
        EXPECT_EQ(tape.isString(), tree.isString()) << text;
        EXPECT_EQ(tape.isBool(), tree.isBool()) << text;
        EXPECT_EQ(tape.isInt(), tree.isInt()) << text;
        EXPECT_EQ(tape.isUInt(), tree.isUInt()) << text;
        EXPECT_EQ(tree.isInt(), value.isInt()) << text;
        EXPECT_EQ(tree.isUInt(), value.isUInt()) << text;
        EXPECT_EQ(tape.asInt(), tree.asInt()) << text;
        EXPECT_EQ(tape.asUInt(), tree.asUInt()) << text;
        EXPECT_EQ(tape.asDouble(), tree.asDouble()) << text;
        EXPECT_EQ(Node(tape).asFloat(), static_cast<float>(tree.asDouble())) << text;
        EXPECT_EQ(tape.asBool(), tree.asBool()) << text;
        EXPECT_EQ(tape.is32Bits(), tree.is32Bits()) << text;
        EXPECT_EQ(tape.size(), tree.size()) << text;
        std::string onTape;
        std::string inTree;
        EXPECT_EQ(tape.text(onTape), tree.text(inTree)) << text;
        for (const int size : {1, 2, 5, 100}) {
            std::vector<char> first(static_cast<std::size_t>(size));
            std::vector<char> second(static_cast<std::size_t>(size));
            EXPECT_EQ(tape.stringTo(first.data(), size), tree.stringTo(second.data(), size)) << text;
            EXPECT_EQ(first, second) << text;
            tape.renderTo(first.data(), size);
            tree.renderTo(second.data(), size);
            EXPECT_EQ(first, second) << text;
        }
    }
}

TEST(Place, OfAMemberReadsAsItsValueByItself) {
    static constexpr NameList kNames{"a"};
    for (const char* text : kTexts) {
        const Json::Value object = Json(std::string("{\"a\":") + text + '}');
        const Json::Value& value = object["a"];
        Place member;
        Place(&object).members(kNames.index(), &member);
        const Place alone(&value);
        EXPECT_EQ(member.isOnTape(), value.isBool()) << text;
        EXPECT_TRUE(value.isBool() || member.address() == &value) << text;
        EXPECT_EQ(member.isPresent(), alone.isPresent()) << text;
        EXPECT_EQ(member.type(), value.type()) << text;
        EXPECT_EQ(member.isArray(), value.isArray()) << text;
        EXPECT_EQ(member.isString(), value.isString()) << text;
        EXPECT_EQ(member.isBool(), value.isBool()) << text;
        EXPECT_EQ(member.isInt(), value.isInt()) << text;
        EXPECT_EQ(member.isUInt(), value.isUInt()) << text;
        EXPECT_EQ(member.asInt(), alone.asInt()) << text;
        EXPECT_EQ(member.asUInt(), alone.asUInt()) << text;
        EXPECT_EQ(member.asDouble(), alone.asDouble()) << text;
        EXPECT_EQ(member.asBool(), alone.asBool()) << text;
        EXPECT_EQ(member.is32Bits(), alone.is32Bits()) << text;
        EXPECT_EQ(member.size(), alone.size()) << text;
        std::string ofMember;
        std::string ofAlone;
        EXPECT_EQ(member.text(ofMember), alone.text(ofAlone)) << text;
        EXPECT_EQ(member.plainText(), alone.plainText()) << text;
        EXPECT_EQ(member.isCopiedInTree(), value.isString() && jsonparser::CopiesTexts()) << text;
        for (const int size : {-1, 0, 1, 2, 5, 100}) {
            std::vector<char> first(100, 'x');
            std::vector<char> second(100, 'x');
            EXPECT_EQ(member.stringTo(first.data(), size), alone.stringTo(second.data(), size)) << text;
            EXPECT_EQ(first, second) << text;
            member.renderTo(first.data(), size);
            alone.renderTo(second.data(), size);
            EXPECT_EQ(first, second) << text;
        }
    }
}

/// What all operations on texts make of a place, as one text.
std::string TextsOf(Place place) {
    const Node node(place);
    std::string all;
    for (const int size : {0, 1, 2, 5, 50}) {
        std::vector<char> field(100, 'x');
        node.utf8To(field.data(), size);
        all.append(field.data(), field.size());
        node.rawTo(field.data(), static_cast<std::size_t>(size));
        all.append(field.data(), field.size());
        all += node.stringTo(field.data(), size) ? '+' : '-';
        all.append(field.data(), field.size());
        node.renderTo(field.data(), size);
        all.append(field.data(), field.size());
        all += std::to_string(node.textSize(size));
    }
    const std::size_t length = static_cast<std::size_t>(node.textSize(1000));
    for (char* const text : {node.heapUtf8(), node.heapString()}) {
        all.append(text, length);
        delete[] text;
    }
    return all;
}

TEST(Place, UnderAMemberReadsAsItsValueByItselfInEveryLocale) {
    static constexpr NameList kNames{"a"};
    std::vector<std::string> texts(std::begin(kTexts), std::end(kTexts));
    texts.insert(texts.end(),
                 {R"("a\u0000b")", R"("\u0000")", R"("\u8def\u8def\u8def")", R"("longer than eight")",
                  R"("longer than sixteen\u0000, with a NUL")", R"("more than thirty-two bytes, all of them")"});
    for (const char* name : {"C", "C.UTF-8", "zh_CN.GBK"}) {
        const testing_tools::ThreadLocale locale(name);
        for (const std::string& text : texts) {
            const Json::Value object = Json(R"({"a":[)" + text + R"(,{"b":)" + text + R"(}]})");
            Place array;
            Place(&object).members(kNames.index(), &array);
            std::vector<Place> places{array.element(0), array.first<1>()[0], array.element(1).member("b")};
            array.allElements(1, [&](Place element, std::size_t) {
                places.push_back(element);
                return true;
            });
            const Place alone(&object["a"][0U]);
            for (const Place place : places) {
                EXPECT_EQ(place.isPresent(), alone.isPresent()) << text;
                EXPECT_EQ(place.type(), alone.type()) << text;
                EXPECT_EQ(place.isString(), alone.isString()) << text;
                EXPECT_EQ(place.asInt(), alone.asInt()) << text;
                EXPECT_EQ(TextsOf(place), TextsOf(alone)) << text << ' ' << name;
            }
        }
    }
}

TEST(Place, OfNothingReadsAsNull) {
    for (const Place place : {Place(), Place(static_cast<const Json::Value*>(nullptr))}) {
        EXPECT_FALSE(place.exists());
        EXPECT_FALSE(place.isPresent());
        EXPECT_EQ(place.type(), Json::nullValue);
        EXPECT_EQ(place.asInt(), 0);
        EXPECT_EQ(place.asDouble(), 0.0);
        EXPECT_EQ(place.size(), 0U);
        EXPECT_FALSE(place.element(0).exists());
        EXPECT_FALSE(place.member("a").exists());
        std::string storage;
        EXPECT_EQ(place.text(storage), "");
    }
}

/// What stands at each element by each way to get there.
template <std::size_t N>
void ExpectElements(const Place& array, const int (&expected)[N]) {
    ASSERT_EQ(array.size(), N);
    const auto numberAt = [](Place place) { return place.isArray() ? -static_cast<int>(place.size()) : place.asInt(); };
    const auto first = array.first<N + 2>();
    for (std::size_t i = 0; i < N; ++i) {
        EXPECT_EQ(numberAt(array.element(i)), expected[i]) << i;
        EXPECT_EQ(numberAt(first[i]), expected[i]) << i;
    }
    EXPECT_FALSE(array.element(N).exists());
    EXPECT_FALSE(first[N].exists());
    EXPECT_FALSE(first[N + 1].exists());
    const auto all = array.first<N>();
    const auto allButLast = array.first<N - 1>();
    for (std::size_t i = 0; i < N; ++i) EXPECT_EQ(numberAt(all[i]), expected[i]) << i;
    for (std::size_t i = 0; i + 1 < N; ++i) EXPECT_EQ(numberAt(allButLast[i]), expected[i]) << i;
    std::size_t walked = 0;
    EXPECT_TRUE(array.allElements(N, [&](Place element, std::size_t) {
        EXPECT_EQ(numberAt(element), expected[walked]) << walked;
        ++walked;
        return true;
    }));
    EXPECT_EQ(walked, N);
    std::size_t left = 3;
    EXPECT_FALSE(array.allElements(N, [&left](Place /*element*/, std::size_t /*index*/) { return --left > 0; }));
    EXPECT_EQ(left, 0U);
}

TEST(Place, ElementsAreTheSameByIndexTogetherAndOneAfterTheOther) {
    const struct {
        const char* text;
        int expected[5];
    } rows[] = {
        {"[1,2,3,4,5]",                        {1, 2, 3, 4, 5}   },
        {"[[],2,[1,2,3],4,[[[1]],2]]",         {0, 2, -3, 4, -2} },
        {"[1,[[2]],[[],[],[[]]],[[[[9]]]],5]", {1, -1, -3, -1, 5}},
    };
    for (const auto& row : rows) {
        const Taken taken(row.text);
        const Json::Value value = Json(row.text);
        ExpectElements(Place(&taken.root()), row.expected);
        ExpectElements(Place(&value), row.expected);
    }
}

TEST(Place, WhatIsNoArrayHasNoElements) {
    for (const char* text : {"null", "1", "\"[1]\"", "{\"0\":1}"}) {
        const Taken taken(std::string("[") + text + ']');
        const Place place(&taken.first());
        EXPECT_FALSE(place.element(0).exists()) << text;
        EXPECT_FALSE(place.first<2>()[0].exists()) << text;
        EXPECT_TRUE(place.allElements(0, [](Place, std::size_t) { return false; })) << text;
    }
}

TEST(Place, MembersAreTheSameByNameAndTogether) {
    static constexpr NameList kNames{"c", "missing", "a", "", "long name of more than 16"};
    const char* const text =
        R"({"x":[1,{"a":9}],"a":[[7]],"b":{"c":8},"c":3,"":4,"long name of more than 16":5,"a":6,"y":[[]]})";
    const Taken taken(text);
    const Json::Value value = Json(text);
    for (const Place place : {Place(&taken.root()), Place(&value)}) {
        Place found[5];
        place.members(kNames.index(), found);
        const int expected[] = {3, 0, 6, 4, 5};
        for (std::size_t i = 0; i < 5; ++i) {
            EXPECT_EQ(found[i].exists(), i != 1) << i;
            EXPECT_EQ(found[i].asInt(), expected[i]) << i;
            EXPECT_EQ(place.member(kNames.names[i]).exists(), i != 1) << i;
            EXPECT_EQ(place.member(kNames.names[i]).asInt(), expected[i]) << i;
        }
        EXPECT_EQ(place.member("b").member("c").asInt(), 8);
        EXPECT_FALSE(place.member("x").member("a").exists());
    }
}

TEST(Place, OfEveryNameIsSetWhateverItWas) {
    static constexpr NameList kNames{"a", "b"};
    constexpr NameIndex kIndex = kNames.index();
    std::string large = R"({"b":2)";
    for (int i = 0; i < 30; ++i) large += ",\"x" + std::to_string(i) + "\":0";
    const std::string text = R"([{}, {"x":1}, {"b":2}, )" + large +
                             R"(}, [3], [0,1,2,3,4,5,6,7,8,9,0,1,2,3,4,5,6,7,8,9], "text", 4, 5.5, true, null])";
    const Taken taken(text);
    const Taken matched(large + '}', 128, TextType::Text, &kIndex);
    const Json::Value tree = Json(text);
    std::vector<Place> places{Place(), Place(&Json::Value::nullSingleton()), Place(&matched.root())};
    for (const Place array : {Place(&taken.root()), Place(&tree)}) {
        ASSERT_EQ(array.size(), 11U);
        for (std::size_t i = 0; i < array.size(); ++i) places.push_back(array.element(i));
    }
    std::size_t found = 0;
    for (const Place place : places) {
        Place members[] = {Place(&tree), Place(&taken.root())};
        place.members(kIndex, members);
        EXPECT_FALSE(members[0].exists());
        if (!members[1].exists()) continue;
        EXPECT_EQ(members[1].asInt(), 2);
        ++found;
    }
    EXPECT_EQ(found, 5U);
}

TEST(CopyText, WritesTheTextAndATerminatorAndNoMore) {
    for (std::size_t size = 0; size <= 100; ++size) {
        std::string text(size, '\0');
        for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>('!' + i % 90);
        std::string field(size + 2, '\xA5');
        jsonparser::CopyText(text, field.data());
        EXPECT_EQ(field, text + '\0' + '\xA5');
    }
}

TEST(UpToNul, EndsBeforeTheFirstNulWhereverItIs) {
    for (std::size_t size = 0; size <= 70; ++size) {
        const std::string text(size, '\x80');  // a byte of which one less, and its complement, have other highest bits
        EXPECT_EQ(jsonparser::UpToNul(text), text);
        for (std::size_t first = 0; first < size; ++first) {
            std::string withNuls = text;
            withNuls[first] = withNuls[first + (size - first) / 2] = '\0';
            EXPECT_EQ(jsonparser::UpToNul(withNuls).data(), withNuls.data());
            EXPECT_EQ(jsonparser::UpToNul(withNuls).size(), first) << size;
        }
        EXPECT_EQ(jsonparser::UpToNul(std::string(size, '\x01')).size(), size);
        EXPECT_EQ(jsonparser::UpToNul(std::string(size, '\xFF')).size(), size);
    }
}

}  // namespace

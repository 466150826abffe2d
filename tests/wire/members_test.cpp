#include <gtest/gtest.h>
#include <json/value.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::HashOfName;
using jsonparser::Members;
using jsonparser::NameIndex;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::Place;
using jsonparser::SortedName;
using testing_tools::HostileValues;
using testing_tools::Json;

constexpr NameList kNames{"Lane", "b", "", "B", "bb", "路", "\x7F", "\xFF", "La", "Lanes"};

/// Expects that every name of the list is found where jsoncpp finds it.
void ExpectLikeFind(const Json::Value& value) {
    std::array<Place, 10> found{};
    Place(&value).members(kNames.index(), found.data());
    for (std::size_t i = 0; i < found.size(); ++i) {
        const std::string_view name = kNames.names[i];
        const Json::Value* expected = value.isObject() ? value.find(name.data(), name.data() + name.size()) : nullptr;
        EXPECT_EQ(found[i].address(), expected) << name << " in " << testing_tools::Text(value);
    }
}

// A member remembers that its value is a text, and that such texts are only copied here.
TEST(Members, TextsAreReadAsByThemselves) {
    constexpr std::size_t kRoom = 1000;
    const std::string texts[] = {"",
                                 "a",
                                 "路口",
                                 std::string("abc\0def", 7),
                                 std::string("\0abc", 4),
                                 std::string(31, 'x'),
                                 std::string(32, 'x'),
                                 std::string(33, 'x'),
                                 std::string(600, 'x') + std::string(2, '\0')};
    for (const std::string& text : texts) {
        Json::Value object;
        object["b"] = text;
        const Node member = Members<kNames>(Node(object))["b"];
        const Node alone(object["b"]);
        const auto expectSame = [&text](auto readOne, auto readOther) {
            std::vector<char> one(kRoom, '#');
            std::vector<char> other(kRoom, '#');
            readOne(one.data());
            readOther(other.data());
            EXPECT_EQ(one, other) << text;
        };
        for (const int size : {0, 1, 2, 3, 4, 7, 32, 33, 600, 700}) {
            const auto each = [&](auto read) {
                expectSame([&](char* field) { read(member, field); }, [&](char* field) { read(alone, field); });
            };
            each([size](Node node, char* field) { node.rawTo(field, static_cast<std::size_t>(size)); });
            each([size](Node node, char* field) { node.utf8To(field, size - 1); });
            each([size](Node node, char* field) { EXPECT_TRUE(node.stringTo(field, size)); });
            each([size](Node node, char* field) { node.renderTo(field, size); });
            EXPECT_EQ(member.textSize(size), alone.textSize(size)) << text;
        }
        for (char* (Node::*const read)() const : {&Node::heapUtf8, &Node::heapString}) {
            const std::unique_ptr<char[]> one((member.*read)());
            const std::unique_ptr<char[]> other((alone.*read)());
            EXPECT_EQ(std::string(one.get(), text.size() + 1), std::string(other.get(), text.size() + 1));
        }
    }
}

TEST(Members, AreThoseOfTheObjectWhateverTheOrderOfTheList) {
    const Json::Value value = Json(R"({"": 3, "B": 4, "La": 9, "Lane": 1, "Lanes": 10, "b": 2, "bb": 5, "路": 6})");
    const Members<kNames> in{Node(value)};
    EXPECT_EQ(in["Lane"].asInt(), 1);
    EXPECT_EQ(in["b"].asInt(), 2);
    EXPECT_EQ(in[""].asInt(), 3);
    EXPECT_EQ(in["B"].asInt(), 4);
    EXPECT_EQ(in["bb"].asInt(), 5);
    EXPECT_EQ(in["路"].asInt(), 6);
    EXPECT_EQ(in["La"].asInt(), 9);
    EXPECT_EQ(in["Lanes"].asInt(), 10);
    EXPECT_FALSE(in["\x7F"].isMember());
    EXPECT_FALSE(in["\xFF"].isMember());
    EXPECT_EQ(in["Lane"].asInt(), 1);
}

TEST(Members, OfAnArrayAreNone) {
    Json::Value array(Json::arrayValue);
    ExpectLikeFind(array);
    for (int i = 0; i < 100; ++i) {  // few and many: the ways of looking differ
        array.append("b");
        ExpectLikeFind(array);
    }
    Json::Value sparse;
    sparse[Json::Value::maxInt] = 1;
    ExpectLikeFind(sparse);
}

TEST(Members, TellNullFromMissing) {
    const Json::Value value = Json(R"({"b": null})");
    const Members<kNames> in{Node(value)};
    EXPECT_TRUE(in["b"].isMember());
    EXPECT_FALSE(in["b"]);
    EXPECT_FALSE(in["B"].isMember());
}

TEST(Members, MayBeTakenByTheirIndexInTheList) {
    const Json::Value value = Json(R"({"Lane": 1, "b": null, "Lanes": 10})");
    const Members<kNames> in{Node(value)};
    for (std::size_t i = 0; i < kNames.names.size(); ++i) {
        const std::string name(kNames.names[i]);
        EXPECT_EQ(in.found(i), value.isMember(name)) << name;
        EXPECT_EQ(in.at(i).isMember(), value.isMember(name)) << name;
        EXPECT_EQ(in.at(i).asInt(), value.get(name, 0).asInt()) << name;
    }
}

TEST(Members, AreFoundAmongNamesBeforeBetweenBehindAndPrefixingThem) {
    for (const char* json : {
             R"({})",
             R"({"": 1})",
             R"({"b": 1})",
             R"({"A": 1, "L": 2, "Lan": 3, "Lane": 4, "Lane ": 5, "Lanes": 6, "Laness": 7})",
             R"({"B": 1, "BB": 2, "Ba": 3, "b": 4, "ba": 5, "bb": 6, "bbb": 7, "c": 8})",
             R"({"\u0000": 1, "b\u0000": 2, "b": 3, "bb\u0000b": 4, "\u0000b": 5, "Lane\u0000": 6})",
             R"({"\u0001": 1, "~": 2, "\u007F": 3, "\u0080": 4, "é": 5, "路": 6, "路路": 7, "😀": 8})",
             R"({"0": 1, "zz": 2})",
         }) {
        ExpectLikeFind(Json(json));
    }
    Json::Value bytes;
    for (int byte = 0; byte < 256; ++byte) bytes[std::string(1, static_cast<char>(byte))] = byte;
    ExpectLikeFind(bytes);
    bytes[""] = 0;
    ExpectLikeFind(bytes);
}

TEST(Members, AreFoundInObjectsOfAnySize) {
    Json::Value object(Json::objectValue);
    for (int members = 0; members < 200; ++members) {
        ExpectLikeFind(object);
        object["m" + std::to_string(members)] = members;
        if (members == 50) object["Lanes"] = members;
        if (members == 150) object[""] = members;
    }
}

TEST(Members, OfWhatIsNoObjectAreMissing) {
    for (const Json::Value& value : HostileValues()) ExpectLikeFind(value);
    const Members<kNames> in{Node(Place())};
    EXPECT_FALSE(in["Lane"].isMember());
    EXPECT_FALSE(in[""].isMember());
}

TEST(Members, ALaterEntryOfTheSameNameCounts) {
    const Json::Value value = Json(R"({"b": 1, "b": 2})");
    EXPECT_EQ(Members<kNames>(Node(value))["b"].asInt(), 2);
}

constexpr NameList kOne{"only"};

TEST(Members, MayBeASingleOne) {
    const Json::Value value = Json(R"({"o": 1, "only": 2, "onlys": 3})");
    EXPECT_EQ(Members<kOne>(Node(value))["only"].asInt(), 2);
}

TEST(NameList, KeepsTheOrderAndSortsByBytes) {
    static_assert(kNames.indexOf("Lane") == 0);
    static_assert(kNames.indexOf("Lanes") == 9);
    std::vector<std::string_view> sorted;
    for (const SortedName& name : kNames.sorted) {
        sorted.emplace_back(name.text, name.size);
        EXPECT_EQ(sorted.back(), kNames.names[name.index]);
    }
    EXPECT_EQ(sorted, (std::vector<std::string_view>{"", "B", "La", "Lane", "Lanes", "b", "bb", "\x7F", "路", "\xFF"}));
}

TEST(Members, FindInRandomObjectsWhatFindFinds) {
    std::mt19937 random{20240105};  // NOLINT(cert-msc51-cpp): repeatable on purpose
    const auto below = [&](unsigned limit) { return static_cast<unsigned>(random()) % limit; };
    const auto name = [&] {
        static constexpr char kBytes[] = {'a', 'b', '\0', '\x7F', '\x80', '\xFF'};
        std::string bytes;
        for (auto length = below(4); length > 0; --length) bytes += kBytes[below(6)];
        return bytes;
    };
    std::size_t hits = 0;
    for (int round = 0; round < 20000; ++round) {
        Json::Value object(Json::objectValue);
        for (auto count = below(30); count > 0; --count) object[name()] = round;
        std::vector<std::string> wanted;
        for (auto count = 1 + below(20); count > 0; --count) wanted.push_back(name());
        std::sort(wanted.begin(), wanted.end());
        wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
        std::shuffle(wanted.begin(), wanted.end(), random);
        const std::vector<std::string_view> names(wanted.begin(), wanted.end());
        std::vector<SortedName> sorted;
        for (const std::string_view each : names) {
            sorted.push_back(
                {each.data(), static_cast<std::uint8_t>(each.size()), static_cast<std::uint8_t>(sorted.size())});
        }
        std::sort(sorted.begin(), sorted.end(),
                  [&](const SortedName& a, const SortedName& b) { return names[a.index] < names[b.index]; });
        std::vector<Place> found(names.size());
        std::array<std::uint8_t, 64> slots{};
        for (std::size_t i = 0; i < names.size(); ++i) {
            std::size_t slot = HashOfName(names[i].data(), names[i].size()) % slots.size();
            while (slots[slot] != 0) slot = (slot + 1) % slots.size();
            slots[slot] = static_cast<std::uint8_t>(i + 1);
        }
        const NameIndex index{names.data(), sorted.data(), nullptr, names.size(), slots.data(), slots.size() - 1};
        Place(&object).members(index, found.data());
        for (std::size_t i = 0; i < names.size(); ++i) {
            ASSERT_EQ(found[i].address(), object.find(names[i].data(), names[i].data() + names[i].size()));
            if (found[i].exists()) ++hits;
        }
    }
    EXPECT_GT(hits, 10000U);
}

}  // namespace

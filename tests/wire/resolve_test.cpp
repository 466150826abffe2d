#include "vkprotocolstack/wire/resolve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::FindElement;
using jsonparser::FindMember;
using jsonparser::ForElements;
using jsonparser::Node;
using jsonparser::Resolve;
using testing_tools::Json;

Json::Value Numbers(Json::ArrayIndex count) {
    Json::Value array(Json::arrayValue);
    for (Json::ArrayIndex i = 0; i < count; ++i) array.append(i);
    return array;
}

/// An array whose tree has only some of its elements.
Json::Value Sparse(Json::ArrayIndex size) {
    Json::Value array;
    for (Json::ArrayIndex i = 1; i < size; i += 3) array[i] = i;
    array[size - 1] = size - 1;
    return array;
}

TEST(FindElement, FindsWhatIsInTheArrayAndNullWhereItsTreeLacksAnElement) {
    for (const Json::Value& array : {Numbers(0), Numbers(1), Numbers(9), Numbers(100), Sparse(5), Sparse(100)}) {
        const Json::ArrayIndex size = array.size();
        for (Json::ArrayIndex i = 0; i < size; ++i) EXPECT_EQ(FindElement(array, i), &array[i]) << i;
        for (const std::size_t behind : {std::size_t{size}, std::size_t{size} + 1, std::size_t{4294967295},
                                         std::size_t{4294967296}, std::size_t{4294967297}, ~std::size_t{0}}) {
            EXPECT_EQ(FindElement(array, behind), nullptr) << behind;
        }
    }
}

TEST(ForElements, VisitsTheFirstOnesInOrder) {
    for (const Json::Value& array : {Numbers(0), Numbers(1), Numbers(6), Numbers(64), Numbers(65), Numbers(1000),
                                     Sparse(2), Sparse(6), Sparse(64), Sparse(65), Sparse(1000)}) {
        for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{5}, std::size_t{array.size()}}) {
            const std::size_t visits = std::min(count, std::size_t{array.size()});
            std::vector<const Json::Value*> visited;
            EXPECT_TRUE(ForElements(array, visits, [&](const Json::Value& element) {
                visited.push_back(&element);
                return true;
            }));
            std::vector<const Json::Value*> expected;
            for (Json::ArrayIndex i = 0; i < visits; ++i) expected.push_back(&array[i]);
            EXPECT_EQ(visited, expected) << array.size() << ' ' << count;
        }
    }
}

TEST(ForElements, EndsWhereItIsTold) {
    for (const Json::Value& array : {Numbers(6), Numbers(100), Sparse(6), Sparse(100)}) {
        int visits = 0;
        EXPECT_FALSE(ForElements(array, 6, [&](const Json::Value&) { return ++visits < 3; }));
        EXPECT_EQ(visits, 3);
    }
}

TEST(NodeForElements, VisitsAtMostSoManyWithTheirIndexes) {
    const Json::Value array = Numbers(4);
    for (const std::size_t most : {0U, 1U, 3U, 4U, 5U, 1000U}) {
        std::vector<std::size_t> visited;
        EXPECT_TRUE(Node(array).forElements(most, [&](Node element, std::size_t index) {
            EXPECT_EQ(element.asInt(), static_cast<int>(index));
            visited.push_back(index);
            return true;
        }));
        EXPECT_EQ(visited.size(), std::min<std::size_t>(most, 4));
    }
}

TEST(NodeForElements, OfWhatIsNoArrayAreNone) {
    for (const Json::Value& value : testing_tools::HostileValues()) {
        if (value.isArray()) continue;
        EXPECT_TRUE(Node(value).forElements(5, [](Node, std::size_t) {
            ADD_FAILURE();
            return true;
        }));
    }
}

TEST(FindMember, TakesAnEmptyNameForTheEmptyName) {
    const Json::Value object = Json(R"({"": 1, "a": 2})");
    EXPECT_EQ(FindMember(object, {}), &object[""]);
    EXPECT_EQ(FindMember(object, "a"), &object["a"]);
    EXPECT_EQ(FindMember(object, "b"), nullptr);
}

/// Expects of each name that it is found where jsoncpp finds it, and in the order of the names.
void ExpectLikeFind(const Json::Value& object, std::vector<std::string> names) {
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    std::vector<const Json::Value*> found(names.size(), nullptr);
    std::size_t next = 0;
    Resolve(
        object, names.size(), [&](std::size_t i) { return std::string_view(names[i]); },
        [&](std::size_t i, const Json::Value& member) {
            EXPECT_GE(i, next);
            next = i + 1;
            found[i] = &member;
        });
    for (std::size_t i = 0; i < names.size(); ++i) {
        ASSERT_EQ(found[i], object.find(names[i].data(), names[i].data() + names[i].size())) << names[i];
    }
}

TEST(Resolve, FindsAFewNamesInObjectsOfAnySize) {
    for (int members = 0; members < 200; ++members) {
        Json::Value object(Json::objectValue);
        for (int i = 0; i < members; ++i) object["m" + std::to_string(i)] = i;
        ExpectLikeFind(object, {"m3"});
        ExpectLikeFind(object, {"", "m0", "m17", "m199", "mm", "z"});
        ExpectLikeFind(object, {});
    }
}

TEST(Resolve, TellsNamesThatDifferInCaseLengthAndHighBytes) {
    const Json::Value object = Json(R"({"Lane": 1, "lane": 2, "La": 3, "Lanes": 4, "路": 5, "~": 6, "\u0000": 7})");
    ExpectLikeFind(object, {"Lane", "LANE", "lane", "L", "La", "Lan", "Lanes", "Laness", "路", "路路", "\xE8", "~",
                            "\x7F", "\xFF", std::string(1, '\0'), std::string(2, '\0'), ""});
}

}  // namespace

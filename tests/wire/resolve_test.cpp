#include "vkprotocolstack/wire/resolve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

/// Every array[index] of this program, in the place of jsoncpp's; the linker gives both functions these names.
const Json::Value& CountedSearch(const Json::Value* array, Json::ArrayIndex index) asm("__wrap__ZNK4Json5ValueixEj");
const Json::Value& JsoncppSearch(const Json::Value* array, Json::ArrayIndex index) asm("__real__ZNK4Json5ValueixEj");

namespace {

int searches = 0;

}  // namespace

const Json::Value& CountedSearch(const Json::Value* array, Json::ArrayIndex index) {
    ++searches;
    return JsoncppSearch(array, index);
}

namespace {

using jsonparser::AllElements;
using jsonparser::FindElement;
using jsonparser::FindFirst;
using jsonparser::FindMember;
using jsonparser::Node;
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

TEST(FindFirst, FindsWhatFindElementFindsAtEachIndex) {
    Json::Value holeBehind = Numbers(4);
    holeBehind[9] = 9;
    for (const Json::Value& array : {Numbers(0), Numbers(1), Numbers(3), Numbers(4), Numbers(5), Numbers(100),
                                     Sparse(1), Sparse(2), Sparse(4), Sparse(5), Sparse(100), holeBehind}) {
        for (const std::size_t count : {1U, 2U, 4U, 6U, 12U}) {
            std::vector<const Json::Value*> found(count, &array);
            const std::size_t there = FindFirst(array, count, found.data());
            EXPECT_EQ(there, std::min<std::size_t>(count, array.size()));
            for (std::size_t i = 0; i < there; ++i) {
                EXPECT_EQ(found[i], FindElement(array, i)) << array.size() << ' ' << count << ' ' << i;
            }
        }
    }
}

TEST(NodeFirst, IsWhatAtIsOnEveryValue) {
    for (const Json::Value& value : testing_tools::HostileValues()) {
        const auto first = Node(value).first<3>();
        for (std::size_t i = 0; i < first.size(); ++i) {
            EXPECT_EQ(first[i].isMember(), Node(value).at(i).isMember());
            EXPECT_EQ(first[i].asInt(), Node(value).at(i).asInt());
        }
    }
    const Json::Value numbers = Numbers(5);
    const auto [a, b, c] = Node(numbers).first<3>();
    EXPECT_EQ(a.asInt(), 0);
    EXPECT_EQ(b.asInt(), 1);
    EXPECT_EQ(c.asInt(), 2);
}

TEST(AllElements, VisitsTheFirstOnesInOrder) {
    for (const Json::Value& array : {Numbers(0), Numbers(1), Numbers(6), Numbers(64), Numbers(65), Numbers(1000),
                                     Sparse(2), Sparse(6), Sparse(64), Sparse(65), Sparse(1000)}) {
        for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{5}, std::size_t{array.size()}}) {
            const std::size_t visits = std::min(count, std::size_t{array.size()});
            std::vector<const Json::Value*> visited;
            EXPECT_TRUE(AllElements(array, visits, [&](const Json::Value& element) {
                visited.push_back(&element);
                return true;
            }));
            std::vector<const Json::Value*> expected;
            for (Json::ArrayIndex i = 0; i < visits; ++i) expected.push_back(&array[i]);
            EXPECT_EQ(visited, expected) << array.size() << ' ' << count;
        }
    }
}

/// A search takes longer the more elements there are.
TEST(AllElements, WalksALongArrayWithoutSearchingInIt) {
    const Json::Value array = Numbers(1000);
    searches = 0;
    EXPECT_EQ(array[999U].asUInt(), 999U);
    EXPECT_EQ(searches, 1);
    Json::ArrayIndex visits = 0;
    const auto visit = [&visits](const Json::Value& element) { return element.asUInt() == visits++; };
    EXPECT_TRUE(AllElements(array, 1000, visit));
    EXPECT_EQ(visits, 1000U);
    EXPECT_EQ(searches, 1);
}

TEST(AllElements, EndsInALongArrayWhereItIsTold) {
    Json::Value array(Json::arrayValue);
    array[99] = 1;
    int visits = 0;
    EXPECT_FALSE(AllElements(array, 100, [&](const Json::Value&) { return ++visits < 70; }));
    EXPECT_EQ(visits, 70);
}

TEST(AllElements, EndsWhereItIsTold) {
    for (const Json::Value& array : {Numbers(6), Numbers(100), Sparse(6), Sparse(100)}) {
        int visits = 0;
        EXPECT_FALSE(AllElements(array, 6, [&](const Json::Value&) { return ++visits < 3; }));
        EXPECT_EQ(visits, 3);
    }
}

TEST(NodeForElements, VisitsAtMostSoManyWithTheirIndexes) {
    const Json::Value array = Numbers(4);
    for (const std::size_t most : {0U, 1U, 3U, 4U, 5U, 1000U}) {
        std::vector<std::size_t> visited;
        const std::size_t count = Node(array).forElements(most, [&](Node element, std::size_t index) {
            EXPECT_EQ(element.asInt(), static_cast<int>(index));
            EXPECT_EQ(index, visited.size());
            visited.push_back(index);
        });
        EXPECT_EQ(count, visited.size());
        EXPECT_EQ(count, std::min<std::size_t>(most, 4));
    }
}

TEST(NodeForElements, SaysHowManyThereWereInAnyArray) {
    for (const Json::ArrayIndex size : {1U, 5U, 63U, 64U, 65U, 100U}) {
        const Json::Value sparse = Sparse(size + 1);
        for (const std::size_t most :
             {std::size_t{1}, std::size_t{size}, std::size_t{size} + 1, std::size_t{4294967295}}) {
            std::size_t visits = 0;
            const auto visit = [&visits](Node, std::size_t index) { EXPECT_EQ(index, visits++); };
            EXPECT_EQ(Node(sparse).forElements(most, visit), std::min<std::size_t>(most, size + 1));
            EXPECT_EQ(visits, std::min<std::size_t>(most, size + 1));
            visits = 0;
            EXPECT_EQ(Node(Numbers(size)).forElements(most, visit), std::min<std::size_t>(most, size));
        }
    }
}

TEST(NodeAllElements, EndsWhereItIsTold) {
    for (const Json::Value& array : {Numbers(6), Numbers(100), Sparse(6), Sparse(100)}) {
        int visits = 0;
        EXPECT_FALSE(Node(array).allElements(6, [&visits](Node, std::size_t) { return ++visits < 3; }));
        EXPECT_EQ(visits, 3);
        EXPECT_TRUE(Node(array).allElements(2, [&visits](Node, std::size_t) { return ++visits < 6; }));
        EXPECT_EQ(visits, 5);
    }
}

TEST(NodeForElements, OfWhatIsNoArrayAreNone) {
    for (const Json::Value& value : testing_tools::HostileValues()) {
        if (value.isArray()) continue;
        EXPECT_EQ(Node(value).forElements(5, [](Node, std::size_t) { ADD_FAILURE(); }), 0U);
        EXPECT_TRUE(Node(value).allElements(5, [](Node, std::size_t) { return false; }));
    }
}

TEST(FindMember, TakesAnEmptyNameForTheEmptyName) {
    const Json::Value object = Json(R"({"": 1, "a": 2})");
    EXPECT_EQ(FindMember(object, {}), &object[""]);
    EXPECT_EQ(FindMember(object, "a"), &object["a"]);
    EXPECT_EQ(FindMember(object, "b"), nullptr);
}

}  // namespace

#include <gtest/gtest.h>
#include <pthread.h>

#include <climits>
#include <cstdlib>
#include <map>
#include <new>
#include <random>
#include <set>
#include <string>
#include <utility>

#include "testing/json.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/message_text.h"

namespace {

thread_local bool memoryIsGone = false;
thread_local int allocations = 0;
thread_local std::size_t bytesAllocated = 0;

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    bytesAllocated += size;
    void* const memory = memoryIsGone ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Text;

// ---- literal values

TEST(JsonDimension, WithShift0OnlyTheFirstElementCounts) {
    const Json_dimension measure(0);
    EXPECT_EQ(measure(Json("5")), 0);
    EXPECT_EQ(measure(Json("[]")), 1);
    EXPECT_EQ(measure(Json("[[1], 2]")), 2);
    EXPECT_EQ(measure(Json("[1, [2]]")), 1);
    EXPECT_EQ(measure(Json("[[[]], 1]")), 3);
}

TEST(JsonDimension, WithShift31EveryElementCounts) {
    const Json_dimension measure(31);
    EXPECT_EQ(measure(Json("[[1], 2]")), 1);
    EXPECT_EQ(measure(Json("[[[1]], [2]]")), 2);
    EXPECT_EQ(measure(Json("[[[1]], [[2]], [[3]]]")), 3);
    EXPECT_EQ(measure(Json("[[[1]], [[2]], [3]]")), 2);
    EXPECT_EQ(measure(Json("[[[1]], [[2]], 3]")), 1);
    EXPECT_EQ(measure(Json("[[[1], 2], [[3]]]")), 2);
}

TEST(JsonDimension, ANegativeShiftMeasuresEveryValueAsMinus1) {
    for (const int shift : {-1, -2, -31, -32, INT_MIN}) {
        const Json_dimension measure(shift);
        for (const char* text : {"5", "null", "[]", "[[1], 2]", "{}", "\"x\""}) EXPECT_EQ(measure(Json(text)), -1);
        for (const Json::Value& value : HostileValues()) EXPECT_EQ(measure(value), -1);
    }
}

TEST(JsonDimension, WhatIsNoArrayMeasures0) {
    for (const Json::Value& value : HostileValues()) {
        if (value.isArray()) continue;
        for (const int shift : {0, 1, 31, 32, INT_MAX}) EXPECT_EQ(Json_dimension(shift)(value), 0);
    }
    EXPECT_EQ(Json_dimension(31)(Json(R"({"a": [[1]]})")), 0);
    EXPECT_EQ(Json_dimension(31)(Json(R"([{"a": [[1]]}])")), 1);
}

TEST(JsonDimension, AnEmptyArrayMeasures1AndEndsItsBranch) {
    EXPECT_EQ(Json_dimension(31)(Json("[[], [[]]]")), 2);
    EXPECT_EQ(Json_dimension(31)(Json("[[[]], []]")), 2);
    EXPECT_EQ(Json_dimension(0)(Json("[[[]], []]")), 3);
}

TEST(JsonDimension, ElementsThatAreNotThereMeasure0) {
    Json::Value sparse;
    sparse[3] = Json("[1]");
    EXPECT_EQ(Json_dimension(0)(sparse), 1);
    sparse[0] = Json("[1]");
    EXPECT_EQ(Json_dimension(0)(sparse), 2);
    EXPECT_EQ(Json_dimension(31)(sparse), 1);
}

// ---- which elements are sampled

/// The elements of an array of size that decide about its depth: those that make it flat when they alone are scalars.
std::set<int> Sampled(int shift, int size) {
    std::set<int> sampled;
    for (int scalar = 0; scalar < size; ++scalar) {
        Json::Value array(Json::arrayValue);
        for (int i = 0; i < size; ++i) array.append(i == scalar ? Json::Value(1) : Json("[1]"));
        const long long depth = Json_dimension(shift).do_recursion(array);
        EXPECT_TRUE(depth == 1 || depth == 2);
        if (depth == 1) sampled.insert(scalar);
    }
    return sampled;
}

TEST(JsonDimension, SamplesEveryStepthElement) {
    EXPECT_EQ(Sampled(0, 8), (std::set<int>{0}));
    EXPECT_EQ(Sampled(1, 8), (std::set<int>{0, 5}));
    EXPECT_EQ(Sampled(2, 8), (std::set<int>{0, 3, 6}));
    EXPECT_EQ(Sampled(3, 8), (std::set<int>{0, 2, 4, 6}));
    EXPECT_EQ(Sampled(4, 8), (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Sampled(31, 8), (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Sampled(1, 7), (std::set<int>{0, 4}));
    EXPECT_EQ(Sampled(2, 7), (std::set<int>{0, 2, 4, 6}));
    EXPECT_EQ(Sampled(1, 1), (std::set<int>{0}));
    EXPECT_EQ(Sampled(1, 2), (std::set<int>{0}));
    EXPECT_EQ(Sampled(1, 3), (std::set<int>{0, 2}));
    EXPECT_EQ(Sampled(2, 2), (std::set<int>{0, 1}));
    EXPECT_EQ(Sampled(3, 20), (std::set<int>{0, 3, 6, 9, 12, 15, 18}));
}

TEST(JsonDimension, TheShiftCountsModulo32) {
    EXPECT_EQ(Sampled(32, 8), Sampled(0, 8));
    EXPECT_EQ(Sampled(33, 8), (std::set<int>{0, 5}));
    EXPECT_EQ(Sampled(34, 8), (std::set<int>{0, 3, 6}));
    EXPECT_EQ(Sampled(63, 8), (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Sampled(64, 8), (std::set<int>{0}));
    EXPECT_EQ(Sampled(INT_MAX, 8), (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Json_dimension(32)(Json("[[1], 2]")), 2);
    EXPECT_EQ(Json_dimension(INT_MAX)(Json("[[1], 2]")), 1);
}

TEST(JsonDimension, KeepsItsShift) {
    for (const int shift : {0, 31, 32, -1, INT_MIN}) EXPECT_EQ(Json_dimension(shift).nShift, shift);
}

TEST(JsonDimension, DoRecursionTakesANegativeShiftModulo32Too) {
    EXPECT_EQ(Sampled(-1, 8), (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Sampled(-28, 8), (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Sampled(-29, 8), (std::set<int>{0, 2, 4, 6}));
    EXPECT_EQ(Sampled(-30, 8), (std::set<int>{0, 3, 6}));
    EXPECT_EQ(Sampled(-31, 8), (std::set<int>{0, 5}));
    EXPECT_EQ(Sampled(-32, 8), (std::set<int>{0}));
    EXPECT_EQ(Sampled(INT_MIN, 8), (std::set<int>{0}));
    EXPECT_EQ(Json_dimension(-1).do_recursion(Json("5")), 0);
}

// ---- random values against the plain recursion

long long Depth(const Json::Value& value, int shift) {
    if (!value.isArray()) return 0;
    const auto count = static_cast<int>(value.size());
    const int step = (count >> (shift & 31)) + 1;
    long long depth = Depth(count == 0 ? Json::Value() : value[0], shift);
    if (step >= count) return depth + 1;
    for (int i = step; i < count; i += step) {
        const long long element = Depth(value[i], shift);
        if (element == 0) return 1;
        if (element < depth) depth = element;
    }
    return depth + 1;
}

using Random = std::mt19937;

int Below(Random& random, int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

/// An array in which scalars are the rarer, the smaller scalarPercent is.
Json::Value RandomValue(Random& random, int levels, int scalarPercent) {
    if (levels == 0 || Below(random, 100) < scalarPercent) {
        static const Json::Value scalars[] = {1, Json::Value(), "x", true, 2.5, Json("{}"), Json(R"({"a": [[1]]})")};
        return scalars[Below(random, 7)];
    }
    Json::Value array(Json::arrayValue);
    const int size = Below(random, levels > 3 ? 4 : 9);
    for (int i = 0; i < size; ++i) array.append(RandomValue(random, levels - 1, scalarPercent));
    return array;
}

TEST(JsonDimension, AgreesWithThePlainRecursionOnRandomArrays) {
    Random random(20240105);
    std::map<long long, int> depths;
    for (int i = 0; i < 6000; ++i) {
        const Json::Value value = RandomValue(random, 1 + i % 6, i % 3 == 0 ? 0 : 2);
        const int shift = Below(random, 72) - 4;
        const Json_dimension measure(shift);
        const long long expected = Depth(value, shift);
        ASSERT_EQ(measure.do_recursion(value), expected) << shift << ' ' << Text(value);
        ASSERT_EQ(measure(value), shift < 0 ? -1 : expected) << shift << ' ' << Text(value);
        ++depths[expected];
    }
    for (long long depth = 0; depth <= 5; ++depth) EXPECT_GT(depths[depth], 20) << depth;
}

TEST(JsonDimension, AgreesWithThePlainRecursionOnEveryShift) {
    Random random(5);
    for (int shift = -40; shift <= 80; ++shift) {
        for (int i = 0; i < 20; ++i) {
            const Json::Value value = RandomValue(random, 3, 1);
            ASSERT_EQ(Json_dimension(shift).do_recursion(value), Depth(value, shift)) << shift << ' ' << Text(value);
        }
    }
}

TEST(JsonDimension, AgreesWithThePlainRecursionOnHostileValues) {
    for (const Json::Value& value : HostileValues()) {
        for (const int shift : {0, 1, 2, 5, 31, 32, -1}) {
            EXPECT_EQ(Json_dimension(shift).do_recursion(value), Depth(value, shift));
        }
    }
}

// ---- depth

TEST(JsonDimension, NeedsNoStackThatGrowsWithTheDepth) {
    constexpr int kLevels = 5000;
    struct Work {
        Json::Value value{Json::arrayValue};
        long long first = 0;
        long long all = 0;
    } work;
    for (int i = 1; i < kLevels; ++i) {
        Json::Value outer(Json::arrayValue);
        outer.append(std::move(work.value));
        if (i == kLevels - 1) outer.append(Json("[[1]]"));
        work.value = std::move(outer);
    }
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 128 * 1024), 0);  // 26 bytes a level
    pthread_t thread;
    const auto measure = [](void* argument) -> void* {
        auto& task = *static_cast<Work*>(argument);
        task.first = Json_dimension(0)(task.value);
        task.all = Json_dimension(31)(task.value);
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, measure, &work), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    EXPECT_EQ(work.first, kLevels);
    EXPECT_EQ(work.all, 3);
}

TEST(JsonDimension, ANegativeShiftMeasuresAPlaceInATextAsMinus1) {
    jsonparser::MessageText text("[1, 2]");
    EXPECT_EQ(Json_dimension(-1)(text.at("")), -1);
    EXPECT_EQ(Json_dimension(0)(text.at("")), 1);
}

/// Growing by steps takes more than twice the time for twice the elements.
TEST(JsonDimension, TakesTheMemoryForTheElementsOfAnArrayAtOnce) {
    const auto allocationsFor = [](int shift, const Json::Value& value) {
        allocations = 0;
        bytesAllocated = 0;
        EXPECT_EQ(Json_dimension(shift)(value), 1);
        return allocations;
    };
    Json::Value longer(Json::arrayValue);
    longer.resize(1000);
    const int ofOne = allocationsFor(31, Json("[1]"));
    EXPECT_GT(ofOne, 0);
    EXPECT_EQ(allocationsFor(31, longer), ofOne);
    EXPECT_EQ(allocationsFor(1, longer), ofOne);  // two elements count
    EXPECT_LT(bytesAllocated, 1000U);
}

TEST(JsonDimension, IsMinus1WithoutMemoryToKeepTrackOfTheArrays) {
    const Json::Value value = Json("[[1], 2]");
    memoryIsGone = true;
    const long long depth = Json_dimension(1)(value);
    memoryIsGone = false;
    EXPECT_EQ(depth, -1);
    EXPECT_EQ(Json_dimension(1)(value), 2);
}

}  // namespace

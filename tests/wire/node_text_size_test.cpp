#include <gtest/gtest.h>

#include <climits>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::Node;
using testing_tools::HostileValues;
using testing_tools::Json;

TEST(NodeTextSize, IsTheTextsBytesAndATerminatorUpToTheLimit) {
    struct Row {
        const char* text;
        int limit;
        int size;
    };
    const Row rows[] = {
        {R"("abc")",      5,       4},
        {R"("abc")",      4,       4},
        {R"("abc")",      3,       3},
        {R"("abc")",      1,       1},
        {R"("abc")",      0,       0},
        {R"("")",         8,       1},
        {R"("京A")",     8,       5},
        {R"("a\u0000b")", 8,       4},
        {"17",            8,       3},
        {"true",          8,       5},
        {"null",          8,       1},
        {"[1, 2]",        8,       1},
        {"{}",            8,       1},
        {R"("abc")",      INT_MAX, 4},
    };
    for (const Row& row : rows) {
        const Json::Value value = Json(row.text);
        EXPECT_EQ(Node(value).textSize(row.limit), row.size) << row.text << ' ' << row.limit;
    }
}

TEST(NodeTextSize, OfAnyValueIsWithinTheLimit) {
    for (const Json::Value& value : HostileValues()) {
        const int size = Node(value).textSize(64);
        EXPECT_GE(size, 1);
        EXPECT_LE(size, 64);
    }
}

}  // namespace

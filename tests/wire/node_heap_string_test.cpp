#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::Node;
using testing_tools::HostileValues;
using testing_tools::Json;

std::unique_ptr<char[]> HeapString(const Json::Value& value) {
    return std::unique_ptr<char[]>(Node(value).heapString());
}

TEST(NodeHeapString, HoldsAWholeText) {
    for (const std::size_t length : {0U, 1U, 63U, 64U, 100U, 70000U}) {
        const std::string text(length, 'p');
        EXPECT_EQ(HeapString(text).get(), text);
    }
    EXPECT_STREQ(HeapString("路径/照片.jpg").get(), "路径/照片.jpg");
}

TEST(NodeHeapString, BytesBehindAnEmbeddedNulAreZero) {
    const auto text = HeapString(std::string("a\0bc", 4));
    EXPECT_EQ(std::memcmp(text.get(), "a\0\0\0\0", 5), 0);
}

TEST(NodeHeapString, OfWhatIsNoTextIsEmpty) {
    for (const char* json : {"null", "17", "true", "2.5", "[1]", R"({"a": 1})"}) {
        EXPECT_STREQ(HeapString(Json(json)).get(), "") << json;
    }
    EXPECT_STREQ(std::unique_ptr<char[]>(Node(Json("{}"))["missing"].heapString()).get(), "");
}

TEST(NodeHeapString, TakesAnyValue) {
    for (const Json::Value& value : HostileValues()) EXPECT_NE(HeapString(value), nullptr);
}

}  // namespace

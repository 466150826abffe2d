#include <gtest/gtest.h>
#include <json/value.h>

#include <climits>
#include <string_view>

#include "testing/buffer.h"
#include "testing/json.h"
#include "testing/locale.h"
#include "vkprotocolstack/support/support.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Unterminated;
using testing_tools::Utf8Texts;
using namespace std::string_view_literals;

TEST(packetStrToJsonNode, ReadsAtMostSizeBytesAndStopsAtANul) {
    const Utf8Texts utf8;
    const struct {
        std::string_view text;
        int size;
        const char* expected;
    } rows[] = {
        {"abc"sv,    3,       "abc"},
        {"abc"sv,    2,       "ab" },
        {"abc"sv,    1,       "a"  },
        {"abc\0"sv,  4,       "abc"},
        {"abc\0"sv,  64,      "abc"},
        {"abc\0"sv,  INT_MAX, "abc"},
        {"ab\0cd"sv, 5,       "ab" },
        {"\0abc"sv,  4,       ""   },
        {"路\0"sv,  4,       "路"},
    };
    for (const auto& row : rows) {
        Unterminated text(row.text);
        Json::Value node;
        packetStrToJsonNode(node, text.get(), row.size);
        EXPECT_EQ(node, Json::Value(row.expected)) << row.size;
    }
}

TEST(packetStrToJsonNode, ASizeOfZeroOrLessOrANullTextStoresTheEmptyText) {
    for (const int size : {0, -1, INT_MIN}) {
        Json::Value node = 7;
        packetStrToJsonNode(node, "abc", size);
        EXPECT_EQ(node, Json::Value("")) << size;
    }
    Json::Value node = 7;
    packetStrToJsonNode(node, nullptr, 64);
    EXPECT_EQ(node, Json::Value(""));
}

TEST(packetStrToJsonNode, ReplacesWhateverTheNodeHeld) {
    for (Json::Value node : HostileValues()) {
        packetStrToJsonNode(node, "x", 1);
        EXPECT_EQ(node, Json::Value("x"));
    }
}

}  // namespace

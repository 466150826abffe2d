#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "testing/json.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/message_text.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Text;

struct Row {
    int type;
    const char* keyword;
};

constexpr Row kRows[] = {
    {1, "HistoryDB"  },
    {2, "BlackListDB"},
    {3, "WhiteListDB"},
    {4, "AlarmDB"    },
};

TEST(PacketFaceDBType, WritesEveryKeyword) {
    for (const Row& row : kRows) {
        Json::Value node;
        EXPECT_TRUE(PacketFaceDBType(node, row.type));
        EXPECT_EQ(node, Json::Value(row.keyword));
    }
}

TEST(PacketFaceDBType, TypeWithoutAKeywordFailsAndLeavesTheNode) {
    for (const int type : {0, 5, -1, 256 + 1, INT_MAX, INT_MIN, INT_MIN + 1}) {
        Json::Value node = "before";
        EXPECT_FALSE(PacketFaceDBType(node, type)) << type;
        EXPECT_EQ(node, Json::Value("before")) << type;
    }
    Json::Value node = "before";
    EXPECT_TRUE(PacketFaceDBType(node, 3));
    EXPECT_EQ(node, Json::Value("WhiteListDB"));
}

TEST(PacketFaceDBType, ReplacesWhateverTheNodeHeld) {
    for (const char* text : {"null", "7", "[1, 2]", R"({"Type": 1})"}) {
        Json::Value node = Json(text);
        EXPECT_TRUE(PacketFaceDBType(node, 4));
        EXPECT_EQ(Text(node), R"("AlarmDB")") << text;
    }
}

TEST(ParseFaceDBType, ReadsEveryKeywordInEitherCase) {
    for (const Row& row : kRows) {
        std::string lower(row.keyword);
        for (char& c : lower) c = static_cast<char>(c | 0x20);
        std::string upper(row.keyword);
        for (char& c : upper) c = static_cast<char>(c & ~0x20);
        for (const std::string& text : {std::string(row.keyword), lower, upper}) {
            int type = -7;
            EXPECT_TRUE(ParseFaceDBType(text, type)) << text;
            EXPECT_EQ(type, row.type) << text;
        }
    }
}

TEST(ParseFaceDBType, LowerCaseKeywordIsFoundAndItsBeginningIsNot) {
    int type = -7;
    EXPECT_TRUE(ParseFaceDBType("blacklistdb", type));
    EXPECT_EQ(type, 2);
    type = -7;
    EXPECT_FALSE(ParseFaceDBType("BlackList", type));
    EXPECT_EQ(type, -7);
}

TEST(ParseFaceDBType, UnknownTextFailsAndLeavesTheType) {
    for (const Json::Value& value : HostileValues()) {
        int type = -7;
        EXPECT_FALSE(ParseFaceDBType(value, type));
        EXPECT_EQ(type, -7);
    }
    for (const char* text : {"HistoryDB ", " HistoryDB", "History", "AlarmDBs"}) {
        int type = -7;
        EXPECT_FALSE(ParseFaceDBType(text, type)) << text;
        EXPECT_EQ(type, -7);
    }
}

TEST(ParseFaceDBType, PackedAgainGivesTheKeywordInItsOwnSpelling) {
    for (const char* text : {"historydb", "BLACKLISTDB", "whitelistDB", "aLARMdb"}) {
        int type = 0;
        ASSERT_TRUE(ParseFaceDBType(text, type));
        Json::Value node = text;
        ASSERT_TRUE(PacketFaceDBType(node, type));
        EXPECT_EQ(node, Json::Value(kRows[type - 1].keyword));
    }
}

TEST(ParseFaceDBType, OfAMessageTextIsThatOfTheValue) {
    jsonparser::MessageText text(R"(["BlackListDB", "no type"])");
    int type = 77;
    int expected = 77;
    EXPECT_EQ(ParseFaceDBType(text.at("/0"), type), ParseFaceDBType(Json::Value("BlackListDB"), expected));
    EXPECT_EQ(type, expected);
    EXPECT_FALSE(ParseFaceDBType(text.at("/1"), type));
}

}  // namespace

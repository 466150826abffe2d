#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "testing/json.h"
#include "testing/record.h"
#include "vkprotocolstack/message_text.h"
#include "vkprotocolstack/wire/observer.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::kPattern;
using testing_tools::Text;

using WordArray = std::array<int, 7>;
constexpr int kPatternWord = static_cast<int>(0xA5A5A5A5U);
constexpr WordArray kUntouched{kPatternWord, kPatternWord, kPatternWord, kPatternWord,
                               kPatternWord, kPatternWord, kPatternWord};

template <class Section>
WordArray Words(const Section& section) {
    WordArray words;
    std::memcpy(words.data(), &section, sizeof words);
    return words;
}

template <class Section>
class TimeGroupOf : public testing::Test {
  public:
    /// A group of four, prefilled, and one behind it.
    TimeGroupOf() { refill(); }
    void refill() { std::memset(sections, kPattern, sizeof sections); }
    Section sections[5];
};
using Sections = testing::Types<tagCFG_TIME_SECTION, tagNET_TIME_SECTION>;
TYPED_TEST_SUITE(TimeGroupOf, Sections, );

TYPED_TEST(TimeGroupOf, ReadsEverySegment) {
    const Json::Value group = Json(R"(["1 02:03:04-05:06:07", "8 09:10:11-12:13:14", "15 16:17:18-19:20:21",
                                       "22 23:24:25-26:27:28"])");
    EXPECT_EQ(GetJsonTimeGroup(group, this->sections, 4), 1);
    EXPECT_EQ(Words(this->sections[0]), (WordArray{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Words(this->sections[1]), (WordArray{8, 9, 10, 11, 12, 13, 14}));
    EXPECT_EQ(Words(this->sections[2]), (WordArray{15, 16, 17, 18, 19, 20, 21}));
    EXPECT_EQ(Words(this->sections[3]), (WordArray{22, 23, 24, 25, 26, 27, 28}));
    EXPECT_EQ(Words(this->sections[4]), kUntouched);
}

TYPED_TEST(TimeGroupOf, AnArrayOfTwoForFourLeavesTheOtherTwo) {
    EXPECT_EQ(GetJsonTimeGroup(Json(R"(["1 02:03:04-05:06:07", "8 09:10:11-12:13:14"])"), this->sections, 4), 1);
    EXPECT_EQ(Words(this->sections[0]), (WordArray{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Words(this->sections[1]), (WordArray{8, 9, 10, 11, 12, 13, 14}));
    EXPECT_EQ(Words(this->sections[2]), kUntouched);
    EXPECT_EQ(Words(this->sections[3]), kUntouched);
}

TYPED_TEST(TimeGroupOf, SegmentsBeyondTheCountAreIgnored) {
    EXPECT_EQ(GetJsonTimeGroup(Json(R"(["1 02:03:04-05:06:07", "8 09:10:11-12:13:14"])"), this->sections, 1), 1);
    EXPECT_EQ(Words(this->sections[0]), (WordArray{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Words(this->sections[1]), kUntouched);
}

TYPED_TEST(TimeGroupOf, ABadSegmentDoesNotEndTheReading) {
    EXPECT_EQ(GetJsonTimeGroup(Json(R"(["closed", null, "3 closed", "1 008:00:00-17:30:00"])"), this->sections, 4), 1);
    EXPECT_EQ(Words(this->sections[0]), kUntouched);
    EXPECT_EQ(Words(this->sections[1]), kUntouched);
    WordArray partly = Words(this->sections[2]);
    partly[0] = kPatternWord;  // the number in front may be written
    EXPECT_EQ(partly, kUntouched);
    EXPECT_EQ(Words(this->sections[3]), (WordArray{1, 8, 0, 0, 17, 30, 0}));
}

TYPED_TEST(TimeGroupOf, AMaskIsReadWhole) {
    EXPECT_EQ(GetJsonTimeGroup(Json(R"(["-2147483391 00:00:00-23:59:59"])"), this->sections, 1), 1);
    EXPECT_EQ(this->sections[0].dwRecordMask, 0x80000101U);
}

TYPED_TEST(TimeGroupOf, ANodeThatIsNoArrayReadsNothingAndIsNoError) {
    for (const char* text : {"null", "[]", "{}", "7", R"("1 02:03:04-05:06:07")", R"({"0": "1 02:03:04-05:06:07"})"}) {
        EXPECT_EQ(GetJsonTimeGroup(Json(text), this->sections, 4), 1) << text;
        for (const TypeParam& section : this->sections) EXPECT_EQ(Words(section), kUntouched) << text;
    }
}

TYPED_TEST(TimeGroupOf, ReadingWithoutSectionsOrCountFails) {
    TypeParam* const none = nullptr;
    const Json::Value group = Json(R"(["1 02:03:04-05:06:07"])");
    EXPECT_EQ(GetJsonTimeGroup(group, none, 4), 0);
    EXPECT_EQ(GetJsonTimeGroup(group, this->sections, 0), 0);
    EXPECT_EQ(GetJsonTimeGroup(group, this->sections, -1), 0);
    EXPECT_EQ(Words(this->sections[0]), kUntouched);
}

TYPED_TEST(TimeGroupOf, ReadingIsDefinedForEveryValue) {
    for (const Json::Value& hostile : HostileValues()) {
        EXPECT_NO_THROW(EXPECT_EQ(GetJsonTimeGroup(hostile, this->sections, 4), 1));
        Json::Value group;
        group[0] = hostile;
        group[1] = "1 02:03:04-05:06:07";
        this->refill();
        EXPECT_NO_THROW(EXPECT_EQ(GetJsonTimeGroup(group, this->sections, 4), 1));
        EXPECT_EQ(Words(this->sections[1]), (WordArray{1, 2, 3, 4, 5, 6, 7}));
        EXPECT_EQ(Words(this->sections[4]), kUntouched);
    }
}

TYPED_TEST(TimeGroupOf, WritesEverySegment) {
    const WordArray words[] = {
        {1,  2, 3, 4, 5, 6, 7},
        {8, 9, 10, 11, 12, 13, 14},
        {}
    };
    for (int i = 0; i < 3; ++i) std::memcpy(&this->sections[i], &words[i], sizeof words[i]);
    Json::Value node;
    EXPECT_EQ(SetJsonTimeGroup(node, this->sections, 3), 1);
    EXPECT_EQ(Text(node), R"(["1 02:03:04-05:06:07","8 09:10:11-12:13:14","0 00:00:00-00:00:00"])");
}

TYPED_TEST(TimeGroupOf, WritingKeepsFurtherElements) {
    this->sections[0] = {};
    Json::Value node = Json(R"([1, 2])");
    EXPECT_EQ(SetJsonTimeGroup(node, this->sections, 1), 1);
    EXPECT_EQ(Text(node), R"(["0 00:00:00-00:00:00",2])");
}

TYPED_TEST(TimeGroupOf, WritingWithoutSectionsOrCountLeavesTheNode) {
    const TypeParam* const none = nullptr;
    for (Json::Value node : {Json("null"), Json("7"), Json(R"(["x"])")}) {
        const std::string before = Text(node);
        EXPECT_EQ(SetJsonTimeGroup(node, none, 4), 0);
        EXPECT_EQ(SetJsonTimeGroup(node, this->sections, 0), 0);
        EXPECT_EQ(SetJsonTimeGroup(node, this->sections, -1), 0);
        EXPECT_EQ(Text(node), before);
    }
}

TYPED_TEST(TimeGroupOf, WritingIsDefinedForEveryNode) {
    this->sections[0] = {};
    for (Json::Value node : HostileValues()) {
        EXPECT_NO_THROW(EXPECT_EQ(SetJsonTimeGroup(node, this->sections, 1), 1));
        EXPECT_EQ(Text(node[0]), R"("0 00:00:00-00:00:00")");
    }
}

struct Row {
    unsigned mask;
    const char* whole;
    const char* lowByte;
};

TEST(SetJsonTimeGroup, WritesTheWholeMaskOrOnlyItsLowByte) {
    for (const Row& row : {
             Row{255,        R"(["255 00:00:00-00:00:00"])",         R"(["255 00:00:00-00:00:00"])"},
             Row{256,        R"(["256 00:00:00-00:00:00"])",         R"(["0 00:00:00-00:00:00"])"  },
             Row{257,        R"(["257 00:00:00-00:00:00"])",         R"(["1 00:00:00-00:00:00"])"  },
             Row{0x80000080, R"(["-2147483520 00:00:00-00:00:00"])", R"(["128 00:00:00-00:00:00"])"},
             Row{0xFFFFFFFF, R"(["-1 00:00:00-00:00:00"])",          R"(["255 00:00:00-00:00:00"])"},
    }) {
        const tagCFG_TIME_SECTION configuration{row.mask, 0, 0, 0, 0, 0, 0};
        tagNET_TIME_SECTION network{};
        network.dwRecordMask = row.mask;
        Json::Value node;
        EXPECT_EQ(SetJsonTimeGroup(node, &configuration, 1), 1);
        EXPECT_EQ(Text(node), row.whole);
        EXPECT_EQ(SetJsonTimeGroup(node, &network, 1), 1);
        EXPECT_EQ(Text(node), row.lowByte);
    }
}

TEST(GetJsonTimeGroup, LeavesTheBytesBehindASection) {
    tagNET_TIME_SECTION sections[2];
    std::memset(sections, kPattern, sizeof sections);
    EXPECT_EQ(GetJsonTimeGroup(Json(R"(["1 02:03:04-05:06:07", "8 09:10:11-12:13:14"])"), sections, 2), 1);
    for (const tagNET_TIME_SECTION& section : sections) {
        for (const unsigned char byte : section.byReserved) EXPECT_EQ(byte, kPattern);
    }
}

class ScannedPaths : public jsonparser::Observer {
  public:
    void look(const jsonparser::Look& look) override {
        if (look.operation.starts_with("scanned")) paths.push_back(look.path);
    }
    std::vector<std::string> paths;
};

template <class Section>
std::vector<std::string> PathsOfFourInAnArrayOfTwo() {
    Section sections[4];
    ScannedPaths observer;
    const jsonparser::ObserverScope scope(observer);
    GetJsonTimeGroup(Json(R"(["1 02:03:04-05:06:07", "8 09:10:11-12:13:14"])"), sections, 4);
    return observer.paths;
}

TEST(GetJsonTimeGroup, OneFormEndsWithTheArrayTheOtherWithTheCount) {
    EXPECT_EQ(PathsOfFourInAnArrayOfTwo<tagCFG_TIME_SECTION>(), (std::vector<std::string>{"/0", "/1"}));
    EXPECT_EQ(PathsOfFourInAnArrayOfTwo<tagNET_TIME_SECTION>(), (std::vector<std::string>{"/0", "/1", "/2", "/3"}));
}

TEST(GetJsonTimeGroup, OfAMessageTextNeedsSectionsAndACount) {
    jsonparser::MessageText text(R"(["1 01:02:03-04:05:06"])");
    tagCFG_TIME_SECTION section = {};
    EXPECT_EQ(GetJsonTimeGroup(text.at(""), static_cast<tagCFG_TIME_SECTION*>(nullptr), 1), 0);
    EXPECT_EQ(GetJsonTimeGroup(text.at(""), &section, 0), 0);
    EXPECT_EQ(section.nEndSec, 0);
    EXPECT_EQ(GetJsonTimeGroup(text.at(""), &section, 1), 1);
    EXPECT_EQ(section.nEndSec, 6);
    tagNET_TIME_SECTION other = {};
    EXPECT_EQ(GetJsonTimeGroup(text.at(""), static_cast<tagNET_TIME_SECTION*>(nullptr), 1), 0);
    EXPECT_EQ(GetJsonTimeGroup(text.at(""), &other, 0), 0);
}

}  // namespace

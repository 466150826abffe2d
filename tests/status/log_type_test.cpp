#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/JsonParser.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Text;

constexpr int kUntouched = -777;

/// The codes stored for names. Elements that must stay as they were are checked here.
std::vector<int> Types(const Json::Value& names, int capacity, std::size_t elements = 16) {
    std::vector<int> types(elements, kUntouched);
    int count = kUntouched;
    GetJsonLogType(names, types.data(), capacity, count);
    EXPECT_GE(count, 0);
    for (std::size_t i = static_cast<std::size_t>(count); i < elements; ++i) EXPECT_EQ(types[i], kUntouched) << i;
    types.resize(static_cast<std::size_t>(count));
    return types;
}

std::vector<int> Types(const char* text, int capacity) { return Types(Json(text), capacity); }

using Codes = std::vector<int>;

TEST(GetJsonLogType, KnowsEveryKeyword) {
    EXPECT_EQ(Types(R"(["System"])", 8), Codes{1});
    EXPECT_EQ(Types(R"(["Config"])", 8), Codes{2});
    EXPECT_EQ(Types(R"(["Storage"])", 8), Codes{3});
    EXPECT_EQ(Types(R"(["Event"])", 8), Codes{4});
    EXPECT_EQ(Types(R"(["Record"])", 8), Codes{5});
    EXPECT_EQ(Types(R"(["Account"])", 8), Codes{6});
    EXPECT_EQ(Types(R"(["Log"])", 8), Codes{7});
    EXPECT_EQ(Types(R"(["Playback"])", 8), Codes{8});
    EXPECT_EQ(Types(R"(["RemoteDevice"])", 8), Codes{9});
}

TEST(GetJsonLogType, StoresEachCodeOnceInTheOrderOfFirstOccurrence) {
    EXPECT_EQ(Types(R"(["System", "Config", "System"])", 8), (Codes{1, 2}));
    EXPECT_EQ(Types(R"(["Playback", "Account", "RemoteDevice", "Log", "Record", "Event", "Storage", "Config", "System",
                        "Playback", "System"])",
                    16),
              (Codes{8, 6, 9, 7, 5, 4, 3, 2, 1}));
}

TEST(GetJsonLogType, FindsKeywordsInsideNames) {
    EXPECT_EQ(Types(R"(["System.Reboot", "SaveConfig", "xStoragey", "MyEvent!"])", 8), (Codes{1, 2, 3, 4}));
}

TEST(GetJsonLogType, LaterGroupsOverrideEarlierOnes) {
    EXPECT_EQ(Types(R"(["EventLog"])", 8), Codes{7});
    EXPECT_EQ(Types(R"(["LogEvent"])", 8), Codes{7});
    EXPECT_EQ(Types(R"(["RecordPlayback"])", 8), Codes{8});
    EXPECT_EQ(Types(R"(["SystemRecord"])", 8), Codes{5});
    EXPECT_EQ(Types(R"(["RecordSystem"])", 8), Codes{5});
}

/// Each keyword with each weaker one, in both orders.
TEST(GetJsonLogType, TheStrongerOfTwoKeywordsWins) {
    const struct {
        const char* keyword;
        int code;
    } strongestFirst[] = {
        {"Playback",     8},
        {"Record",       5},
        {"Log",          7},
        {"RemoteDevice", 9},
        {"Storage",      3},
        {"Event",        4},
        {"Account",      6},
        {"System",       1},
        {"Config",       2},
    };
    for (std::size_t i = 0; i < std::size(strongestFirst); ++i) {
        for (std::size_t j = i + 1; j < std::size(strongestFirst); ++j) {
            Json::Value names;
            names[0] = std::string(strongestFirst[i].keyword) + strongestFirst[j].keyword;
            EXPECT_EQ(Types(names, 8), Codes{strongestFirst[i].code}) << Text(names);
            names[0] = std::string(strongestFirst[j].keyword) + strongestFirst[i].keyword;
            EXPECT_EQ(Types(names, 8), Codes{strongestFirst[i].code}) << Text(names);
        }
    }
}

TEST(GetJsonLogType, TellsUpperAndLowerCaseApart) {
    EXPECT_EQ(Types(R"(["system"])", 8), Codes{});
    EXPECT_EQ(Types(R"(["SYSTEM", "playBack", "Remotedevice", "log"])", 8), Codes{});
}

TEST(GetJsonLogType, ANameWithoutAKeywordAddsNothing) {
    EXPECT_EQ(Types(R"(["", "Other", "Sys tem", "Config"])", 8), Codes{2});
}

TEST(GetJsonLogType, CapacityLimitsTheElementsThatAreLookedAt) {
    EXPECT_EQ(Types(R"(["Storage", "Storage", "Event"])", 2), Codes{3});
    EXPECT_EQ(Types(R"(["Storage", "Storage", "Event"])", 3), (Codes{3, 4}));
    EXPECT_EQ(Types(R"(["Storage", "Storage", "Event"])", 4), (Codes{3, 4}));
    EXPECT_EQ(Types(R"(["Other", "Event"])", 1), Codes{});
    EXPECT_EQ(Types(R"(["Event"])", 0), Codes{});
}

TEST(GetJsonLogType, ANegativeCapacityLooksAtEveryElement) {
    EXPECT_EQ(Types(R"(["Storage", "Storage", "Event"])", -1), (Codes{3, 4}));
    EXPECT_EQ(Types(R"(["Storage", "Storage", "Event"])", INT_MIN), (Codes{3, 4}));
    EXPECT_EQ(Types("[]", -1), Codes{});
}

TEST(GetJsonLogType, ANullNodeLeavesTheCountUntouched) {
    int types[2] = {kUntouched, kUntouched};
    int count = kUntouched;
    GetJsonLogType(Json::Value(), types, 2, count);
    EXPECT_EQ(count, kUntouched);
    EXPECT_EQ(types[0], kUntouched);
}

TEST(GetJsonLogType, NoArrayOfCodesLeavesTheCountUntouched) {
    int count = kUntouched;
    GetJsonLogType(Json(R"(["System"])"), nullptr, 2, count);
    EXPECT_EQ(count, kUntouched);
}

TEST(GetJsonLogType, AnEmptyArraySetsTheCountToZero) { EXPECT_EQ(Types("[]", 8), Codes{}); }

TEST(GetJsonLogType, ANodeThatIsNoArraySetsTheCountToZero) {
    for (const char* text : {R"("System")", R"({"System": "System"})", "{}", "7", "0.5", "true"}) {
        EXPECT_EQ(Types(text, 8), Codes{}) << text;
    }
}

TEST(GetJsonLogType, ElementsThatAreNoTextHoldNoKeyword) {
    EXPECT_EQ(Types(R"([null, true, 7, 0.5, ["System"], {"System": "System"}, "System"])", 8), Codes{1});
}

TEST(GetJsonLogType, SearchesANameUpToItsFirstNul) {
    Json::Value names;
    names[0] = std::string("System\0Playback", 15);
    names[1] = std::string("\0Event", 6);
    EXPECT_EQ(Types(names, 8), Codes{1});
}

TEST(GetJsonLogType, TheOutputNeedsNoMoreElementsThanItsCapacity) {
    Json::Value names;
    for (int i = 0; i < 100; ++i) names.append("Log");
    for (const char* name : {"Record", "Event"}) names.append(name);
    EXPECT_EQ(Types(names, 1, 1), Codes{7});
    EXPECT_EQ(Types(names, 101, 101), (Codes{7, 5}));
}

TEST(GetJsonLogType, TakesEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        if (value.isNull()) continue;
        EXPECT_EQ(Types(value, 16), Codes{});
        Json::Value names;
        names.append(value);
        names.append("System");
        EXPECT_EQ(Types(names, 16), Codes{1});
    }
}

}  // namespace

#include <gtest/gtest.h>

#include <string>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;

constexpr const char* kMembers[] = {"ID", "Name", "Current", "Worst", "Threshold", "Raw", "Predict", "Sync"};

TEST(ParseSyncStateInfo, ReadsEveryMember) {
    Placed<tagNET_HDDSMART_INFO> info;
    ParseSyncStateInfo(Json(R"({"ID": 5, "Name": "Reallocated Sector Count", "Current": 100, "Worst": 98,
                                "Threshold": 36, "Raw": "000000000012", "Predict": -1, "Sync": 3})"),
                       info.get());
    EXPECT_EQ(info->nID, 5);
    EXPECT_EQ(info->nCurrent, 100);
    EXPECT_STREQ(info->szName, "Reallocated Sector Count");
    EXPECT_EQ(info->nWorst, 98);
    EXPECT_EQ(info->nThreshold, 36);
    EXPECT_STREQ(info->szRaw, "000000000012");
    EXPECT_EQ(info->nPredict, -1);
    EXPECT_EQ(info->nSync, 3);
}

TEST(ParseSyncStateInfo, WithoutMembersWritesSyncOnly) {
    for (const char* text : {"{}", "null", "[]", "7", R"("ID")", R"({"id": 1, "name": "x", "sync": 1})",
                             R"({"ID": null, "Name": null, "Current": null, "Worst": null, "Threshold": null,
                                 "Raw": null, "Predict": null, "Sync": null})"}) {
        Placed<tagNET_HDDSMART_INFO> info;
        ParseSyncStateInfo(Json(text), info.get());
        EXPECT_EQ(info.changedFields(), Fields{"nSync"}) << text;
        EXPECT_EQ(info->nSync, -1) << text;
    }
}

TEST(ParseSyncStateInfo, EachMemberIsReadByItself) {
    const struct {
        const char* text;
        Fields changed;
    } rows[] = {
        {R"({"ID": 0})",        {"nID", "nSync"}       },
        {R"({"Current": 0})",   {"nCurrent", "nSync"}  },
        {R"({"Name": "x"})",    {"szName", "nSync"}    },
        {R"({"Worst": 0})",     {"nWorst", "nSync"}    },
        {R"({"Threshold": 0})", {"nThreshold", "nSync"}},
        {R"({"Raw": "x"})",     {"szRaw", "nSync"}     },
        {R"({"Predict": 0})",   {"nPredict", "nSync"}  },
        {R"({"Sync": 0})",      {"nSync"}              },
    };
    for (const auto& row : rows) {
        Placed<tagNET_HDDSMART_INFO> info;
        ParseSyncStateInfo(Json(row.text), info.get());
        EXPECT_EQ(info.changedFields(), row.changed) << row.text;
    }
}

TEST(ParseSyncStateInfo, ANegativeSyncLeavesMinusOne) {
    const struct {
        const char* sync;
        int expected;
    } rows[] = {
        {"-3",          -1        },
        {"-1",          -1        },
        {"0",           0         },
        {"1",           1         },
        {"2147483647",  2147483647},
        {"2147483648",  -1        },
        {"-2147483648", -1        },
        {"4294967296",  0         },
        {"4294967299",  3         },
        {"1e300",       2147483647},
        {"-0.9",        0         },
        {"-1.9",        -1        },
        {"true",        1         },
        {R"("3")",      0         },
        {"[3]",         0         },
        {"null",        -1        },
    };
    for (const auto& row : rows) {
        Placed<tagNET_HDDSMART_INFO> info;
        ParseSyncStateInfo(Json(R"({"Sync": )" + std::string(row.sync) + "}"), info.get());
        EXPECT_EQ(info->nSync, row.expected) << row.sync;
    }
}

TEST(ParseSyncStateInfo, WithoutSyncOverwritesWhatTheCallerHadSet) {
    Placed<tagNET_HDDSMART_INFO> info;
    info->nSync = 7;
    ParseSyncStateInfo(Json(R"({"ID": 1})"), info.get());
    EXPECT_EQ(info->nSync, -1);
}

TEST(ParseSyncStateInfo, TextsAreCutToTheirFieldsTerminatorsIncluded) {
    const struct {
        std::size_t length, name, raw;
    } rows[] = {
        {30,   30, 30},
        {31,   31, 31},
        {32,   32, 31},
        {33,   33, 31},
        {62,   62, 31},
        {63,   63, 31},
        {64,   63, 31},
        {65,   63, 31},
        {5000, 63, 31},
    };
    for (const auto& row : rows) {
        Placed<tagNET_HDDSMART_INFO> info;
        Json::Value attribute;
        attribute["Name"] = std::string(row.length, 'n');
        attribute["Raw"] = std::string(row.length, 'r');
        ParseSyncStateInfo(attribute, info.get());
        EXPECT_EQ(info->szName, std::string(row.name, 'n')) << row.length;
        EXPECT_EQ(info->szRaw, std::string(row.raw, 'r')) << row.length;
        EXPECT_EQ(info.changedFields(), (Fields{"szName", "szRaw", "nSync"})) << row.length;
    }
}

TEST(ParseSyncStateInfo, ARawValueThatIsNoTextEmptiesTheField) {
    Placed<tagNET_HDDSMART_INFO> info;
    ParseSyncStateInfo(Json(R"({"Raw": 12, "Name": {}})"), info.get());
    EXPECT_STREQ(info->szRaw, "");
    EXPECT_STREQ(info->szName, "");
}

TEST(ParseSyncStateInfo, TakesEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        Placed<tagNET_HDDSMART_INFO> whole;
        ParseSyncStateInfo(value, whole.get());
        EXPECT_EQ(whole.changedFields(), Fields{"nSync"});
        for (const char* name : kMembers) {
            Placed<tagNET_HDDSMART_INFO> info;
            Json::Value attribute;
            attribute[name] = value;
            ParseSyncStateInfo(attribute, info.get());
            EXPECT_GE(info->nSync, -1) << name;
        }
    }
}

}  // namespace

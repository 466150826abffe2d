#include <gtest/gtest.h>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;

struct Row {
    const char* json;
    int code;
};

TEST(ParseTalkingCallerType, OnlyThePlatformIsOneInWhateverCase) {
    for (const Row& row : {
             Row{R"({"Caller": "Platform"})",        1},
             Row{R"({"Caller": "PLATFORM"})",        1},
             Row{R"({"Caller": "platform"})",        1},
             Row{R"({"Caller": "Platform\u0000x"})", 1},
             Row{R"({"Caller": ""})",                0},
             Row{R"({"Caller": "Platfor"})",         0},
             Row{R"({"Caller": "Platform1"})",       0},
             Row{R"({"Caller": "Door station"})",    0},
             Row{R"({"Caller": 1})",                 0},
             Row{R"({"Caller": true})",              0},
             Row{R"({"Caller": ["Platform"]})",      0},
             Row{R"({"Caller": null})",              0},
             Row{R"({"caller": "Platform"})",        0},
             Row{"{}",                               0},
             Row{"null",                             0},
             Row{R"("Platform")",                    0},
             Row{R"(["Platform"])",                  0},
    }) {
        Placed<tagALARM_TALKING_INVITE_INFO> info;
        ParseTalkingCallerType(Json(row.json), info.get());
        EXPECT_EQ(info->emCallerType, row.code) << row.json;
        EXPECT_EQ(info.changedFields(), Fields{"emCallerType"}) << row.json;
    }
}

TEST(ParseTalkingCallerType, IsDefinedForEveryValue) {
    for (const Json::Value& hostile : HostileValues()) {
        Json::Value invitation;
        invitation["Caller"] = hostile;
        for (const Json::Value& value : {hostile, invitation}) {
            Placed<tagALARM_TALKING_INVITE_INFO> info;
            EXPECT_NO_THROW(ParseTalkingCallerType(value, info.get()));
            EXPECT_EQ(info->emCallerType, 0);
        }
    }
}

TEST(ParseConfirmAction, ReadsYesAndNoInWhateverCase) {
    for (const Row& row : {
             Row{R"("Yes")",           1},
             Row{R"("yes")",           1},
             Row{R"("YES")",           1},
             Row{R"("No")",            2},
             Row{R"("NO")",            2},
             Row{R"("no")",            2},
             Row{R"("yes\u0000, no")", 1},
             Row{R"("")",              0},
             Row{R"("Y")",             0},
             Row{R"("Yes ")",          0},
             Row{R"("Maybe")",         0},
             Row{"null",               0},
             Row{"true",               0},
             Row{"1",                  0},
             Row{R"(["Yes"])",         0},
             Row{R"({"Yes": "Yes"})",  0},
    }) {
        auto type = static_cast<tagNET_MISSION_CONFIRM_TYPE>(7);
        EXPECT_EQ(ParseConfirmAction(Json(row.json), type), row.code == 0 ? 0 : 1) << row.json;
        EXPECT_EQ(type, row.code) << row.json;
    }
}

TEST(ParseConfirmAction, IsDefinedForEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        auto type = NET_MISSION_CONFIRM_NO;
        EXPECT_NO_THROW(EXPECT_EQ(ParseConfirmAction(value, type), 0));
        EXPECT_EQ(type, NET_MISSION_CONFIRM_UNKNOWN);
    }
}

}  // namespace

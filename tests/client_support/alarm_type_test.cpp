// The status of a positioning receiver under a client's own translation of alarm types.
#include <gtest/gtest.h>

#include <vector>

#include "testing/json.h"
#include "testing/record.h"

namespace {

std::vector<int> translated;

}  // namespace

int TranslateAlarmType(int deviceAlarmType) {
    translated.push_back(deviceAlarmType);
    return 10000 - deviceAlarmType;
}

namespace {

using testing_tools::Json;
using testing_tools::Placed;

TEST(ClientAlarmTypes, AreStoredAsTheClientTranslatesThem) {
    translated.clear();
    Placed<_NET_GPS_STATUS_INFO> info;
    ParseGPSStatusInfo(Json(R"({"AlarmPoints": [7, -8, "9", 4294967297]})"), info.get());
    EXPECT_EQ(translated, (std::vector<int>{7, -8, 0, 1}));
    EXPECT_EQ(info->nAlarmCount, 4);
    EXPECT_EQ(info->nAlarmTypes[0], 9993);
    EXPECT_EQ(info->nAlarmTypes[1], 10008);
    EXPECT_EQ(info->nAlarmTypes[2], 10000);
    EXPECT_EQ(info->nAlarmTypes[3], 9999);
}

TEST(ClientAlarmTypes, NoAlarmPointsAreTranslatedWhenThereAreNone) {
    for (const char* text :
         {"{}", R"({"AlarmPoints": null})", R"({"AlarmPoints": []})", R"({"AlarmPoints": {"0": 7}})"}) {
        translated.clear();
        Placed<_NET_GPS_STATUS_INFO> info;
        ParseGPSStatusInfo(Json(text), info.get());
        EXPECT_EQ(translated, std::vector<int>{}) << text;
    }
}

TEST(ClientAlarmTypes, OnlyTheFirst128AlarmPointsAreTranslated) {
    translated.clear();
    Json::Value status;
    for (int i = 0; i < 200; ++i) status["AlarmPoints"].append(i);
    Placed<_NET_GPS_STATUS_INFO> info;
    ParseGPSStatusInfo(status, info.get());
    ASSERT_EQ(translated.size(), 128U);
    EXPECT_EQ(translated.back(), 127);
    EXPECT_EQ(info->nAlarmTypes[127], 9873);
}

}  // namespace

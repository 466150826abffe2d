#include <gtest/gtest.h>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;

TEST(ParseCustomInfo, ReadsEveryWeight) {
    Placed<tagEVENT_JUNCTION_CUSTOM_INFO> info;
    EXPECT_TRUE(ParseCustomInfo(Json(R"({"WeighInfo": {"Rough": 4294967295, "Tare": 11, "Net": 12}})"), *info));
    EXPECT_EQ(info->stuWeighInfo.dwRough, 4294967295U);
    EXPECT_EQ(info->stuWeighInfo.dwTare, 11U);
    EXPECT_EQ(info->stuWeighInfo.dwNet, 12U);
}

TEST(ParseCustomInfo, MissingWeightsReadAsZero) {
    Placed<tagEVENT_JUNCTION_CUSTOM_INFO> info;
    EXPECT_TRUE(ParseCustomInfo(Json(R"({"WeighInfo": {"Tare": 11}})"), *info));
    EXPECT_EQ(info->stuWeighInfo.dwRough, 0U);
    EXPECT_EQ(info->stuWeighInfo.dwTare, 11U);
    EXPECT_EQ(info->stuWeighInfo.dwNet, 0U);
}

TEST(ParseCustomInfo, WithoutWeighInfoLeavesTheRecordUntouchedAndReturnsTrue) {
    for (const char* text : {"{}", R"({"WeighInfo": null})", "null", "[]", "7", R"("WeighInfo")"}) {
        Placed<tagEVENT_JUNCTION_CUSTOM_INFO> info;
        EXPECT_TRUE(ParseCustomInfo(Json(text), *info)) << text;
        EXPECT_EQ(info.changedFields(), Fields{}) << text;
    }
}

TEST(ParseCustomInfo, AWeighInfoThatIsNoObjectReadsAsZeros) {
    Placed<tagEVENT_JUNCTION_CUSTOM_INFO> info;
    EXPECT_TRUE(ParseCustomInfo(Json(R"({"WeighInfo": [1, 2, 3]})"), *info));
    EXPECT_EQ(info->stuWeighInfo.dwRough, 0U);
    EXPECT_EQ(info->stuWeighInfo.dwTare, 0U);
    EXPECT_EQ(info->stuWeighInfo.dwNet, 0U);
}

TEST(ParseCustomInfo, TakesAnyJson) {
    for (const Json::Value& value : HostileValues()) {
        Placed<tagEVENT_JUNCTION_CUSTOM_INFO> info;
        EXPECT_NO_THROW(ParseCustomInfo(value, *info));
        Json::Value event;
        event["WeighInfo"] = value;
        EXPECT_NO_THROW(ParseCustomInfo(event, *info));
        Json::Value weights;
        weights["WeighInfo"]["Rough"] = value;
        EXPECT_NO_THROW(ParseCustomInfo(weights, *info));
    }
}

}  // namespace

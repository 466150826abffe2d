#include <gtest/gtest.h>

#include <string>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;

TEST(ParseSrcInfo, ReadsEveryMember) {
    Placed<tagDEV_SRC_INFO> info;
    ParseSrcInfo(
        Json(R"({"SrcEvent": "VideoMotion", "SrcTime": "2024-01-05 09:30:07.250", "SrcChannel": -3, "Other": 1})"),
        info.get());
    EXPECT_STREQ(info->szSrcEvent, "VideoMotion");
    EXPECT_EQ(info->stuSrcTime.dwYear, 2024U);
    EXPECT_EQ(info->stuSrcTime.dwMonth, 1U);
    EXPECT_EQ(info->stuSrcTime.dwDay, 5U);
    EXPECT_EQ(info->stuSrcTime.dwHour, 9U);
    EXPECT_EQ(info->stuSrcTime.dwMinute, 30U);
    EXPECT_EQ(info->stuSrcTime.dwSecond, 7U);
    EXPECT_EQ(info->stuSrcTime.dwMillisecond, 250U);
    EXPECT_EQ(info->stuSrcTime.dwUTC, 0xA5A5A5A5U);
    EXPECT_EQ(info->stuSrcTime.dwReserved, 0xA5A5A5A5U);
    EXPECT_EQ(info->nSrcChannel, -3);
}

TEST(ParseSrcInfo, WithoutAnyMemberLeavesTheRecordUntouched) {
    for (const char* text :
         {"{}", "null", "[]", "7", R"("SrcEvent")", R"({"SrcEvent": null, "SrcTime": null, "SrcChannel": null})",
          R"({"srcEvent": "x", "Srctime": "2024-01-05 09:30:07.250", "Channel": 1})"}) {
        Placed<tagDEV_SRC_INFO> info;
        ParseSrcInfo(Json(text), info.get());
        EXPECT_EQ(info.changedFields(), Fields{}) << text;
    }
}

TEST(ParseSrcInfo, EachMemberIsReadByItself) {
    const struct {
        const char* text;
        Fields changed;
    } rows[] = {
        {R"({"SrcEvent": "x"})",                      {"szSrcEvent"} },
        {R"({"SrcTime": "2024-01-05 09:30:07.250"})",
         {"stuSrcTime.dwYear", "stuSrcTime.dwMonth", "stuSrcTime.dwDay", "stuSrcTime.dwHour", "stuSrcTime.dwMinute",
          "stuSrcTime.dwSecond", "stuSrcTime.dwMillisecond"}         },
        {R"({"SrcChannel": 0})",                      {"nSrcChannel"}},
    };
    for (const auto& row : rows) {
        Placed<tagDEV_SRC_INFO> info;
        ParseSrcInfo(Json(row.text), info.get());
        EXPECT_EQ(info.changedFields(), row.changed) << row.text;
    }
}

TEST(ParseSrcInfo, TheEventIsCutTo32BytesTerminatorIncluded) {
    for (const std::size_t length : {30U, 31U, 32U, 33U, 5000U}) {
        Placed<tagDEV_SRC_INFO> info;
        Json::Value source;
        source["SrcEvent"] = std::string(length, 'e');
        ParseSrcInfo(source, info.get());
        EXPECT_EQ(info->szSrcEvent, std::string(length < 31 ? length : 31, 'e')) << length;
        EXPECT_EQ(info.changedFields(), Fields{"szSrcEvent"}) << length;
    }
}

TEST(ParseSrcInfo, AnEventThatIsNoTextEmptiesTheField) {
    for (const char* text : {R"({"SrcEvent": 7})", R"({"SrcEvent": []})", R"({"SrcEvent": true})"}) {
        Placed<tagDEV_SRC_INFO> info;
        ParseSrcInfo(Json(text), info.get());
        EXPECT_STREQ(info->szSrcEvent, "") << text;
    }
}

TEST(ParseSrcInfo, ATimeThatFailsPartWayLeavesTheRestUntouched) {
    Placed<tagDEV_SRC_INFO> info;
    ParseSrcInfo(Json(R"({"SrcTime": "2024-01-05 09"})"), info.get());
    EXPECT_EQ(info.changedFields(),
              (Fields{"stuSrcTime.dwYear", "stuSrcTime.dwMonth", "stuSrcTime.dwDay", "stuSrcTime.dwHour"}));
}

TEST(ParseSrcInfo, TakesEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        Placed<tagDEV_SRC_INFO> whole;
        ParseSrcInfo(value, whole.get());
        EXPECT_EQ(whole.changedFields(), Fields{});
        for (const char* name : {"SrcEvent", "SrcTime", "SrcChannel"}) {
            Placed<tagDEV_SRC_INFO> info;
            Json::Value source;
            source[name] = value;
            ParseSrcInfo(source, info.get());
            if (value.isNull()) {
                EXPECT_EQ(info.changedFields(), Fields{}) << name;
            }
        }
    }
}

}  // namespace

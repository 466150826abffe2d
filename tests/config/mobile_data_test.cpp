#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "testing/json.h"
#include "testing/locale.h"
#include "testing/record.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::kPattern;
using testing_tools::Placed;
using testing_tools::Text;

using Record = tagNET_NETAPP_WIRELESS;

/// The field that the one member given by the message fills.
template <class Field>
Field Read(Field Record::*field, const std::string& message) {
    Placed<Record> info;
    ParseWirelessInfo(Json(message), *info);
    return (*info).*field;
}

struct Row {
    const char* json;
    int code;
};

TEST(ParseWirelessInfo, ReadsEveryMember) {
    Placed<Record> info;
    ParseWirelessInfo(Json(R"({
        "Enable": true, "Index": 11, "KeepAlive": -12, "APN": "CMNET", "AuthMode": "CHAP", "UserName": "user",
        "Password": "secret", "AutoDial": true, "TimeSection": [["1 02:03:04-05:06:07"]], "3GFluxTactic": 1,
        "3GFluxUp": 4294967295, "3GFlux": 14, "Day3GFluxTactic": "ByFlux", "Day3GFluxUp": 15, "Day3GFluxUse": 16,
        "Day3GFluxAction": "3GNetDown", "WorkMode": "TDD-LTE", "DailNumber": "*99#", "Activate": true})"),
                      *info);
    EXPECT_TRUE(info->bEnable);
    EXPECT_EQ(info->nIndex, 11);
    EXPECT_EQ(info->nKeepAlive, -12);
    EXPECT_EQ(info->emAPN, 2);
    EXPECT_STREQ(info->szAPN, "CMNET");
    EXPECT_EQ(info->emAuthMode, 3);
    EXPECT_STREQ(info->szUserName, "user");
    EXPECT_STREQ(info->szPassword, "secret");
    EXPECT_TRUE(info->bAutoDial);
    const tagVK_TSECT& section = info->stuTimeSection[0][0];
    EXPECT_EQ(section.bEnable, 1);
    EXPECT_EQ(section.nBeginHour, 2);
    EXPECT_EQ(section.nBeginMin, 3);
    EXPECT_EQ(section.nBeginSec, 4);
    EXPECT_EQ(section.nEndHour, 5);
    EXPECT_EQ(section.nEndMin, 6);
    EXPECT_EQ(section.nEndSec, 7);
    EXPECT_EQ(info->em3GFluxTactic, 2);
    EXPECT_EQ(info->dw3GFluxUp, 4294967295U);
    EXPECT_EQ(info->dw3GFlux, 14U);
    EXPECT_EQ(info->emDay3GFluxTactic, 1);
    EXPECT_EQ(info->dwDay3GFluxUp, 15U);
    EXPECT_EQ(info->dwDay3GFluxUse, 16U);
    EXPECT_EQ(info->emDay3GFluxAction, 2);
    EXPECT_EQ(info->emWorkMode, 6);
    EXPECT_STREQ(info->szDailNumber, "*99#");
    EXPECT_TRUE(info->bActivate);
}

TEST(ParseWirelessInfo, EveryFlagIsReadFromItsOwnMember) {
    for (const char* name : {"Enable", "AutoDial", "Activate"}) {
        Placed<Record> info;
        Json::Value message;
        message[name] = true;
        ParseWirelessInfo(message, *info);
        EXPECT_EQ(info->bEnable, std::string(name) == "Enable");
        EXPECT_EQ(info->bAutoDial, std::string(name) == "AutoDial");
        EXPECT_EQ(info->bActivate, std::string(name) == "Activate");
    }
}

TEST(ParseWirelessInfo, ANullNodeLeavesTheRecord) {
    Placed<Record> info;
    ParseWirelessInfo(Json::Value(), *info);
    EXPECT_EQ(info.changedFields(), Fields{});
}

TEST(ParseWirelessInfo, MissingMembersReadAsNothingButTheAccessPointsTextAndTheSegmentsStay) {
    for (const char* text : {"{}", "[]", "7", R"("APN")", "true", R"({"APN": null, "TimeSection": null})"}) {
        Placed<Record> info;
        ParseWirelessInfo(Json(text), *info);
        EXPECT_EQ(info.changedFields(),
                  (Fields{"bEnable", "nIndex", "nKeepAlive", "emAPN", "emAuthMode", "szUserName", "szPassword",
                          "bAutoDial", "em3GFluxTactic", "dw3GFluxUp", "dw3GFlux", "emDay3GFluxTactic", "dwDay3GFluxUp",
                          "dwDay3GFluxUse", "emDay3GFluxAction", "emWorkMode", "szDailNumber", "bActivate"}))
            << text;
        EXPECT_FALSE(info->bEnable) << text;
        EXPECT_EQ(info->nIndex, 0) << text;
        EXPECT_EQ(info->nKeepAlive, 0) << text;
        EXPECT_EQ(info->emAPN, -1) << text;
        EXPECT_EQ(info->emAuthMode, 0) << text;
        EXPECT_STREQ(info->szUserName, "") << text;
        EXPECT_STREQ(info->szPassword, "") << text;
        EXPECT_FALSE(info->bAutoDial) << text;
        EXPECT_EQ(info->em3GFluxTactic, 1) << text;
        EXPECT_EQ(info->dw3GFluxUp, 0U) << text;
        EXPECT_EQ(info->dw3GFlux, 0U) << text;
        EXPECT_EQ(info->emDay3GFluxTactic, 0) << text;
        EXPECT_EQ(info->dwDay3GFluxUp, 0U) << text;
        EXPECT_EQ(info->dwDay3GFluxUse, 0U) << text;
        EXPECT_EQ(info->emDay3GFluxAction, 0) << text;
        EXPECT_EQ(info->emWorkMode, 0) << text;
        EXPECT_STREQ(info->szDailNumber, "") << text;
        EXPECT_FALSE(info->bActivate) << text;
    }
}

TEST(ParseWirelessInfo, MemberNamesAreExact) {
    Placed<Record> info;
    ParseWirelessInfo(Json(R"({"enable": true, "DialNumber": "*99#", "3gFluxUp": 5, "FluxUp": 5, "Apn": "CTNET"})"),
                      *info);
    EXPECT_FALSE(info->bEnable);
    EXPECT_STREQ(info->szDailNumber, "");
    EXPECT_EQ(info->dw3GFluxUp, 0U);
    EXPECT_EQ(info->emAPN, -1);
}

TEST(ParseWirelessInfo, AnAccessPointIsANameOrACustomText) {
    struct Apn {
        const char* json;
        int code;
        const char* text;
    };
    for (const Apn& row : {
             Apn{R"({"APN": "CTNET"})",    1, "CTNET"   },
             Apn{R"({"APN": "CMNET"})",    2, "CMNET"   },
             Apn{R"({"APN": "UNINET"})",   3, "UNINET"  },
             Apn{R"({"APN": ""})",         0, ""        },
             Apn{R"({"APN": "internet"})", 0, "internet"},
             Apn{R"({"APN": "cmnet"})",    0, "cmnet"   },
             Apn{R"({"APN": "CMNET "})",   0, "CMNET "  },
             Apn{R"({"APN": 3})",          0, ""        },
             Apn{R"({"APN": ["CMNET"]})",  0, ""        },
    }) {
        Placed<Record> info;
        ParseWirelessInfo(Json(row.json), *info);
        EXPECT_EQ(info->emAPN, row.code) << row.json;
        EXPECT_STREQ(info->szAPN, row.text) << row.json;
    }
}

TEST(ParseWirelessInfo, WithoutAnAccessPointTheCodeIsMinusOneAndTheTextStays) {
    for (const char* text : {"{}", R"({"APN": null})"}) {
        Placed<Record> info;
        std::strcpy(info->szAPN, "internet");
        ParseWirelessInfo(Json(text), *info);
        EXPECT_EQ(info->emAPN, -1) << text;
        EXPECT_STREQ(info->szAPN, "internet") << text;
    }
}

TEST(ParseWirelessInfo, ReadsEveryAuthenticationMode) {
    for (const Row& row : {
             Row{R"({"AuthMode": ""})",     0},
             Row{R"({"AuthMode": "No"})",   1},
             Row{R"({"AuthMode": "PAP"})",  2},
             Row{R"({"AuthMode": "CHAP"})", 3},
             Row{R"({"AuthMode": "pap"})",  0},
             Row{R"({"AuthMode": "NO"})",   0},
             Row{R"({"AuthMode": "PAP "})", 0},
             Row{R"({"AuthMode": 2})",      0},
    }) {
        EXPECT_EQ(Read(&Record::emAuthMode, row.json), row.code) << row.json;
    }
}

TEST(ParseWirelessInfo, ReadsEveryDailyPolicy) {
    for (const Row& row : {
             Row{R"({"Day3GFluxTactic": ""})",       0},
             Row{R"({"Day3GFluxTactic": "ByFlux"})", 1},
             Row{R"({"Day3GFluxTactic": "ByTime"})", 2},
             Row{R"({"Day3GFluxTactic": "bytime"})", 0},
             Row{R"({"Day3GFluxTactic": 1})",        0},
    }) {
        EXPECT_EQ(Read(&Record::emDay3GFluxTactic, row.json), row.code) << row.json;
    }
}

TEST(ParseWirelessInfo, ReadsEveryActionAtTheCeiling) {
    for (const Row& row : {
             Row{R"({"Day3GFluxAction": ""})",          0},
             Row{R"({"Day3GFluxAction": "Nothing"})",   1},
             Row{R"({"Day3GFluxAction": "3GNetDown"})", 2},
             Row{R"({"Day3GFluxAction": "3GnetDown"})", 0},
    }) {
        EXPECT_EQ(Read(&Record::emDay3GFluxAction, row.json), row.code) << row.json;
    }
}

TEST(ParseWirelessInfo, ReadsEveryWorkMode) {
    for (const Row& row : {
             Row{R"({"WorkMode": ""})",         0},
             Row{R"({"WorkMode": "CDMA1x"})",   1},
             Row{R"({"WorkMode": "EVDO"})",     2},
             Row{R"({"WorkMode": "TD-SCDMA"})", 3},
             Row{R"({"WorkMode": "WCDMA"})",    4},
             Row{R"({"WorkMode": "EDGE"})",     5},
             Row{R"({"WorkMode": "TDD-LTE"})",  6},
             Row{R"({"WorkMode": "FDD-LTE"})",  7},
             Row{R"({"WorkMode": "CDMA1X"})",   0},
             Row{R"({"WorkMode": "NR"})",       0},
    }) {
        EXPECT_EQ(Read(&Record::emWorkMode, row.json), row.code) << row.json;
    }
}

TEST(ParseWirelessInfo, AnOverallPolicyCountsFromOne) {
    for (const Row& row : {
             Row{R"({"3GFluxTactic": 0})",          1},
             Row{R"({"3GFluxTactic": 1})",          2},
             Row{R"({"3GFluxTactic": 2})",          0},
             Row{R"({"3GFluxTactic": 5})",          0},
             Row{R"({"3GFluxTactic": -1})",         0},
             Row{R"({"3GFluxTactic": 4294967295})", 0},
             Row{R"({"3GFluxTactic": 4294967297})", 2},
             Row{R"({"3GFluxTactic": 1.9})",        2},
             Row{R"({"3GFluxTactic": -5.5})",       1},
             Row{R"({"3GFluxTactic": 1e300})",      0},
             Row{R"({"3GFluxTactic": true})",       2},
             Row{R"({"3GFluxTactic": "1"})",        1},
             Row{R"({"3GFluxTactic": null})",       1},
    }) {
        EXPECT_EQ(Read(&Record::em3GFluxTactic, row.json), row.code) << row.json;
    }
}

TEST(ParseWirelessInfo, TextsAreCutToTheirFieldsTerminatorIncluded) {
    struct Capacity {
        const char* member;
        std::size_t offset;
        std::size_t capacity;
    };
    for (const Capacity& row : {
             Capacity{"APN",        20,   32},
             Capacity{"UserName",   56,   64},
             Capacity{"Password",   120,  64},
             Capacity{"DailNumber", 1396, 32},
    }) {
        for (const std::size_t length : {row.capacity - 2, row.capacity - 1, row.capacity, row.capacity + 1}) {
            Placed<Record> info;
            Json::Value message;
            message[row.member] = std::string(length, 'x');
            ParseWirelessInfo(message, *info);
            const char* text = reinterpret_cast<const char*>(info.bytes()) + row.offset;
            EXPECT_EQ(std::string(text), std::string(std::min(length, row.capacity - 1), 'x'))
                << row.member << ' ' << length;
        }
    }
}

TEST(ParseWirelessInfo, ATextFilledToItsLastByteLeavesTheFieldBehindIt) {
    Placed<Record> info;
    ParseWirelessInfo(Json("{\"APN\": \"" + std::string(32, 'x') + "\", \"AuthMode\": \"PAP\"}"), *info);
    EXPECT_EQ(info->emAuthMode, 2);
    EXPECT_EQ(info->szAPN[31], '\0');
}

/// A week of segments with words that no other has, d and s counted from 0.
std::string SegmentText(int day, int segment) {
    return std::to_string(day * 10 + segment + 1) + " 0" + std::to_string(day) + ":0" + std::to_string(segment) +
           ":59-1" + std::to_string(day) + ":2" + std::to_string(segment) + ":58";
}

Json::Value Week(int days, int segments) {
    Json::Value week(Json::arrayValue);
    for (int d = 0; d < days; ++d) {
        for (int s = 0; s < segments; ++s) week[static_cast<Json::ArrayIndex>(d)].append(SegmentText(d, s));
    }
    return week;
}

std::vector<int> Words(const tagVK_TSECT& section) {
    return {section.bEnable,  section.nBeginHour, section.nBeginMin, section.nBeginSec,
            section.nEndHour, section.nEndMin,    section.nEndSec};
}

void ExpectWeek(Record& info, int days, int segments) {
    for (int d = 0; d < 7; ++d) {
        for (int s = 0; s < 6; ++s) {
            const std::vector<int> words{d * 10 + s + 1, d, s, 59, 10 + d, 20 + s, 58};
            const std::vector<int> untouched(7, static_cast<int>(0xA5A5A5A5U));
            EXPECT_EQ(Words(info.stuTimeSection[d][s]), d < days && s < segments ? words : untouched) << d << ' ' << s;
        }
    }
}

TEST(ParseWirelessInfo, ReadsSevenDaysOfSixSegments) {
    Placed<Record> info;
    Json::Value message;
    message["TimeSection"] = Week(7, 6);
    ParseWirelessInfo(message, *info);
    ExpectWeek(*info, 7, 6);
}

TEST(ParseWirelessInfo, AnEighthDayAndASeventhSegmentAreIgnored) {
    Placed<Record> info;
    Json::Value message;
    message["TimeSection"] = Week(8, 7);
    ParseWirelessInfo(message, *info);
    ExpectWeek(*info, 7, 6);
}

TEST(ParseWirelessInfo, ASeventhSegmentIsNotTheFirstOfTheNextDay) {
    Placed<Record> info;
    Json::Value message;
    message["TimeSection"] = Week(1, 7);
    ParseWirelessInfo(message, *info);
    ExpectWeek(*info, 1, 6);
}

TEST(ParseWirelessInfo, ThreeDaysFillTheirRowsAndLeaveTheOthers) {
    Placed<Record> info;
    Json::Value message;
    message["TimeSection"] = Week(3, 6);
    ParseWirelessInfo(message, *info);
    ExpectWeek(*info, 3, 6);
}

TEST(ParseWirelessInfo, DaysOfFewerSegmentsLeaveTheRestOfTheirRows) {
    Placed<Record> info;
    Json::Value message;
    message["TimeSection"] = Week(7, 4);
    ParseWirelessInfo(message, *info);
    ExpectWeek(*info, 7, 4);
}

TEST(ParseWirelessInfo, ABadSegmentDoesNotEndTheReading) {
    for (const char* bad : {R"("")", "null", R"("closed")", "[]", R"(["1 02:03:04-05:06:07"])"}) {
        Placed<Record> info;
        Json::Value message;
        message["TimeSection"] = Week(7, 6);
        message["TimeSection"][2][3] = Json(bad);
        ParseWirelessInfo(message, *info);
        EXPECT_EQ(Words(info->stuTimeSection[2][3]), std::vector<int>(7, static_cast<int>(0xA5A5A5A5U))) << bad;
        EXPECT_EQ(Words(info->stuTimeSection[2][4]), (std::vector<int>{25, 2, 4, 59, 12, 24, 58})) << bad;
    }
}

TEST(ParseWirelessInfo, ATimeTakesTwoDigits) {
    Placed<Record> info;
    ParseWirelessInfo(Json(R"({"TimeSection": [["1 008:00:00-17:30:00", "1 8:0:0-17:30:0"]]})"), *info);
    EXPECT_EQ(info->stuTimeSection[0][0].nEndSec, static_cast<int>(0xA5A5A5A5U));
    EXPECT_EQ(Words(info->stuTimeSection[0][1]), (std::vector<int>{1, 8, 0, 0, 17, 30, 0}));
}

const char* const kMembers[] = {"Enable",          "Index",    "KeepAlive",       "APN",         "AuthMode",
                                "UserName",        "Password", "AutoDial",        "TimeSection", "3GFluxTactic",
                                "3GFluxUp",        "3GFlux",   "Day3GFluxTactic", "Day3GFluxUp", "Day3GFluxUse",
                                "Day3GFluxAction", "WorkMode", "DailNumber",      "Activate"};

TEST(ParseWirelessInfo, IsDefinedForEveryValue) {
    for (const Json::Value& hostile : HostileValues()) {
        Placed<Record> root;
        EXPECT_NO_THROW(ParseWirelessInfo(hostile, *root));
        for (const char* member : kMembers) {
            Placed<Record> info;
            Json::Value message;
            message[member] = hostile;
            EXPECT_NO_THROW(ParseWirelessInfo(message, *info)) << member;
        }
        Placed<Record> day;
        Placed<Record> segment;
        Json::Value message;
        message["TimeSection"] = Week(7, 6);
        message["TimeSection"][1] = hostile;
        EXPECT_NO_THROW(ParseWirelessInfo(message, *day));
        message["TimeSection"][2][1] = hostile;
        EXPECT_NO_THROW(ParseWirelessInfo(message, *segment));
        EXPECT_EQ(Words(segment->stuTimeSection[2][2]), (std::vector<int>{23, 2, 2, 59, 12, 22, 58}));
    }
}

// ---- writing

/// Collects the trace messages of the default trace pair.
class Traces {
  public:
    Traces() { jsonparser::SetTraceSink(Collect, this); }
    ~Traces() { jsonparser::SetTraceSink(nullptr, nullptr); }
    Traces(const Traces&) = delete;
    Traces& operator=(const Traces&) = delete;

    std::vector<std::string> messages;
    std::vector<int> lines;

  private:
    static void Collect(const jsonparser::TraceMessage& trace, void* context) {
        auto& traces = *static_cast<Traces*>(context);
        EXPECT_STREQ(trace.sourceFile, "../vkprotocolstack/JsonParser");
        EXPECT_EQ(trace.level, 1);
        EXPECT_EQ(trace.code, 0);
        traces.messages.emplace_back(trace.message);
        traces.lines.push_back(trace.line);
    }
};

using Messages = std::vector<std::string>;

/// A record of which every member can be written.
Record Expressible() {
    Record info{};
    info.bEnable = true;
    info.nIndex = 11;
    info.nKeepAlive = -12;
    info.emAPN = 2;
    std::strcpy(info.szAPN, "internet");
    info.emAuthMode = 3;
    std::strcpy(info.szUserName, "user");
    std::strcpy(info.szPassword, "secret");
    info.bAutoDial = true;
    for (int d = 0; d < 7; ++d) {
        for (int s = 0; s < 6; ++s) info.stuTimeSection[d][s] = {d * 10 + s + 1, d, s, 59, 10 + d, 20 + s, 58};
    }
    info.em3GFluxTactic = 2;
    info.dw3GFluxUp = 4294967295U;
    info.dw3GFlux = 14;
    info.emDay3GFluxTactic = 1;
    info.dwDay3GFluxUp = 15;
    info.dwDay3GFluxUse = 16;
    info.emDay3GFluxAction = 2;
    info.emWorkMode = 6;
    std::strcpy(info.szDailNumber, "*99#");
    info.bActivate = true;
    return info;
}

/// What PacketWirelessInfo makes of the record in a fresh node.
Json::Value Packed(const Record& info) {
    Json::Value node;
    EXPECT_EQ(PacketWirelessInfo(info, node), 1);
    return node;
}

TEST(PacketWirelessInfo, WritesEveryMemberButTheIndex) {
    Traces traces;
    Json::Value node = Packed(Expressible());
    EXPECT_EQ(Text(node["TimeSection"]), Text(Week(7, 6)));
    node.removeMember("TimeSection");
    EXPECT_EQ(Text(node), R"({"3GFlux":14,"3GFluxTactic":1,"3GFluxUp":4294967295,"APN":"CMNET","Activate":true,)"
                          R"("AuthMode":"CHAP","AutoDial":true,"DailNumber":"*99#","Day3GFluxAction":"3GNetDown",)"
                          R"("Day3GFluxTactic":"ByFlux","Day3GFluxUp":15,"Day3GFluxUse":16,"Enable":true,)"
                          R"("KeepAlive":-12,"Password":"secret","UserName":"user","WorkMode":"TDD-LTE"})");
    EXPECT_EQ(traces.messages, Messages{});
}

TEST(PacketWirelessInfo, WritesAClearedRecordWithoutWhatIsUnknown) {
    Traces traces;
    Json::Value node = Packed(Record{});
    const std::string day = R"(["0 00:00:00-00:00:00","0 00:00:00-00:00:00","0 00:00:00-00:00:00",)"
                            R"("0 00:00:00-00:00:00","0 00:00:00-00:00:00","0 00:00:00-00:00:00"])";
    EXPECT_EQ(Text(node["TimeSection"]),
              '[' + day + ',' + day + ',' + day + ',' + day + ',' + day + ',' + day + ',' + day + ']');
    node.removeMember("TimeSection");
    EXPECT_EQ(Text(node), R"({"3GFlux":0,"3GFluxUp":0,"APN":"","Activate":false,"AutoDial":false,"DailNumber":"",)"
                          R"("Day3GFluxUp":0,"Day3GFluxUse":0,"Enable":false,"KeepAlive":0,"Password":"",)"
                          R"("UserName":"","WorkMode":""})");
    EXPECT_EQ(traces.messages, (Messages{"emAuthMode is unknown!", "3GFluxTactic is unknown!",
                                         "Day3GFluxTactic is unknown!", "Day3GFluxAction is unknown!"}));
}

TEST(PacketWirelessInfo, EachUnknownEnumerationIsTracedInOrderFromItsOwnLineAndItsMemberLeft) {
    Traces traces;
    Record info = Expressible();
    info.emAPN = -1;
    info.emAuthMode = 0;
    info.em3GFluxTactic = 0;
    info.emDay3GFluxTactic = 0;
    info.emDay3GFluxAction = 0;
    info.emWorkMode = -1;
    Json::Value node = Packed(info);
    EXPECT_EQ(traces.messages,
              (Messages{"APN is unknown!", "emAuthMode is unknown!", "3GFluxTactic is unknown!",
                        "Day3GFluxTactic is unknown!", "Day3GFluxAction is unknown!", "emWorkMode is unknown!"}));
    for (std::size_t i = 1; i < traces.lines.size(); ++i) EXPECT_LT(traces.lines[i - 1], traces.lines[i]);
    node.removeMember("TimeSection");
    EXPECT_EQ(Text(node), R"({"3GFlux":14,"3GFluxUp":4294967295,"Activate":true,"AutoDial":true,)"
                          R"("DailNumber":"*99#","Day3GFluxUp":15,"Day3GFluxUse":16,"Enable":true,"KeepAlive":-12,)"
                          R"("Password":"secret","UserName":"user"})");
    Json::Value held = Json(R"({"APN": 1, "AuthMode": 2, "3GFluxTactic": 3, "Day3GFluxTactic": 4,
                                "Day3GFluxAction": 5, "WorkMode": 6, "Index": 7, "Extra": 8})");
    EXPECT_EQ(PacketWirelessInfo(info, held), 1);
    const Json::Value& kept = held;
    EXPECT_EQ(kept["APN"], 1);
    EXPECT_EQ(kept["AuthMode"], 2);
    EXPECT_EQ(kept["3GFluxTactic"], 3);
    EXPECT_EQ(kept["Day3GFluxTactic"], 4);
    EXPECT_EQ(kept["Day3GFluxAction"], 5);
    EXPECT_EQ(kept["WorkMode"], 6);
    EXPECT_EQ(kept["Index"], 7);
    EXPECT_EQ(kept["Extra"], 8);
}

/// A code, what it writes (null for nothing), what it traces.
struct Written {
    int code;
    const char* json;
    Messages traced;
};

void ExpectWritten(int Record::*field, const char* member, const std::vector<Written>& rows) {
    for (const Written& row : rows) {
        Traces traces;
        Record info = Expressible();
        info.*field = row.code;
        const Json::Value node = Packed(info);
        EXPECT_EQ(node.isMember(member), row.json != nullptr) << member << ' ' << row.code;
        if (row.json != nullptr) {
            EXPECT_EQ(Text(node[member]), row.json) << member << ' ' << row.code;
        }
        EXPECT_EQ(traces.messages, row.traced) << member << ' ' << row.code;
        EXPECT_TRUE(node.isMember("Activate")) << member << ' ' << row.code;
    }
}

TEST(PacketWirelessInfo, WritesEveryAccessPoint) {
    ExpectWritten(&Record::emAPN, "APN",
                  {
                      {-1,      nullptr,         {"APN is unknown!"}},
                      {0,       R"("internet")", {}                 },
                      {1,       R"("CTNET")",    {}                 },
                      {2,       R"("CMNET")",    {}                 },
                      {3,       R"("UNINET")",   {}                 },
                      {4,       R"("")",         {}                 },
                      {7,       R"("")",         {}                 },
                      {-2,      R"("")",         {}                 },
                      {INT_MAX, R"("")",         {}                 },
                      {INT_MIN, R"("")",         {}                 },
    });
}

TEST(PacketWirelessInfo, WritesEveryAuthenticationMode) {
    ExpectWritten(&Record::emAuthMode, "AuthMode",
                  {
                      {0,       nullptr,     {"emAuthMode is unknown!"}},
                      {1,       R"("No")",   {}                        },
                      {2,       R"("PAP")",  {}                        },
                      {3,       R"("CHAP")", {}                        },
                      {4,       R"("")",     {}                        },
                      {-1,      R"("")",     {}                        },
                      {INT_MAX, R"("")",     {}                        },
                      {INT_MIN, R"("")",     {}                        },
    });
}

TEST(PacketWirelessInfo, WritesEveryOverallPolicy) {
    ExpectWritten(&Record::em3GFluxTactic, "3GFluxTactic",
                  {
                      {0,       nullptr,      {"3GFluxTactic is unknown!"}},
                      {1,       "0",          {}                          },
                      {2,       "1",          {}                          },
                      {3,       "2",          {}                          },
                      {INT_MAX, "2147483646", {}                          },
                      {-1,      "0",          {}                          },
                      {INT_MIN, "0",          {}                          },
    });
}

TEST(PacketWirelessInfo, WritesEveryDailyPolicy) {
    ExpectWritten(&Record::emDay3GFluxTactic, "Day3GFluxTactic",
                  {
                      {0,       nullptr,       {"Day3GFluxTactic is unknown!"}},
                      {1,       R"("ByFlux")", {}                             },
                      {2,       R"("ByTime")", {}                             },
                      {3,       R"("")",       {}                             },
                      {-1,      R"("")",       {}                             },
                      {INT_MIN, R"("")",       {}                             },
    });
}

TEST(PacketWirelessInfo, WritesEveryActionAtTheCeiling) {
    ExpectWritten(&Record::emDay3GFluxAction, "Day3GFluxAction",
                  {
                      {0,       nullptr,          {"Day3GFluxAction is unknown!"}},
                      {1,       R"("Nothing")",   {}                             },
                      {2,       R"("3GNetDown")", {}                             },
                      {3,       R"("")",          {}                             },
                      {-1,      R"("")",          {}                             },
                      {INT_MAX, R"("")",          {}                             },
    });
}

TEST(PacketWirelessInfo, WritesEveryWorkMode) {
    ExpectWritten(&Record::emWorkMode, "WorkMode",
                  {
                      {-1,      nullptr,         {"emWorkMode is unknown!"}},
                      {0,       R"("")",         {}                        },
                      {1,       R"("CDMA1x")",   {}                        },
                      {2,       R"("EVDO")",     {}                        },
                      {3,       R"("TD-SCDMA")", {}                        },
                      {4,       R"("WCDMA")",    {}                        },
                      {5,       R"("EDGE")",     {}                        },
                      {6,       R"("TDD-LTE")",  {}                        },
                      {7,       R"("FDD-LTE")",  {}                        },
                      {8,       R"("")",         {}                        },
                      {-2,      R"("")",         {}                        },
                      {INT_MAX, R"("")",         {}                        },
                      {INT_MIN, R"("")",         {}                        },
    });
}

TEST(PacketWirelessInfo, NumbersHaveTheTypeOfTheirFields) {
    const Json::Value node = Packed(Expressible());
    for (const char* member : {"KeepAlive", "3GFluxTactic"}) {
        EXPECT_EQ(node[member].type(), Json::intValue) << member;
    }
    for (const char* member : {"3GFluxUp", "3GFlux", "Day3GFluxUp", "Day3GFluxUse"}) {
        EXPECT_EQ(node[member].type(), Json::uintValue) << member;
    }
}

TEST(PacketWirelessInfo, NeverWritesTheIndex) { EXPECT_FALSE(Packed(Expressible()).isMember("Index")); }

TEST(PacketWirelessInfo, EveryFlagGoesToItsOwnMemberWhateverItsByte) {
    for (const int byte : {0, 1, 2, 0x80, 0xFF}) {
        for (bool Record::*flag : {&Record::bEnable, &Record::bAutoDial, &Record::bActivate}) {
            Record info = Expressible();
            info.bEnable = info.bAutoDial = info.bActivate = false;
            std::memset(&(info.*flag), byte, 1);
            const Json::Value node = Packed(info);
            EXPECT_EQ(node["Enable"], flag == &Record::bEnable && byte != 0) << byte;
            EXPECT_EQ(node["AutoDial"], flag == &Record::bAutoDial && byte != 0) << byte;
            EXPECT_EQ(node["Activate"], flag == &Record::bActivate && byte != 0) << byte;
        }
    }
}

TEST(PacketWirelessInfo, ATextWithoutTerminatorEndsWithItsField) {
    Record info = Expressible();
    info.emAPN = 0;
    std::memset(info.szAPN, 'a', sizeof info.szAPN);
    std::memset(info.szUserName, 'b', sizeof info.szUserName);
    std::memset(info.szPassword, 'c', sizeof info.szPassword);
    std::memset(info.szDailNumber, 'd', sizeof info.szDailNumber);
    const Json::Value node = Packed(info);
    EXPECT_EQ(node["APN"], std::string(32, 'a'));
    EXPECT_EQ(node["UserName"], std::string(64, 'b'));
    EXPECT_EQ(node["Password"], std::string(64, 'c'));
    EXPECT_EQ(node["DailNumber"], std::string(32, 'd'));
}

TEST(PacketWirelessInfo, TextsAreTakenFromTheLocalEncoding) {
    const testing_tools::ThreadLocale locale("zh_CN.GBK");
    Record info = Expressible();
    info.emAPN = 0;
    for (char* field : {info.szAPN, info.szUserName, info.szPassword, info.szDailNumber}) {
        std::strcpy(field, "\xC2\xB7");
    }
    const Json::Value node = Packed(info);
    for (const char* member : {"APN", "UserName", "Password", "DailNumber"}) EXPECT_EQ(node[member], "路") << member;
}

TEST(PacketWirelessInfo, OverwritesTheMembersItWrites) {
    Json::Value node;
    for (const char* member : kMembers) node[member] = "held";
    const Json::Value fresh = Packed(Expressible());
    EXPECT_EQ(PacketWirelessInfo(Expressible(), node), 1);
    EXPECT_EQ(Text(node["Index"]), R"("held")");
    node.removeMember("Index");
    EXPECT_EQ(Text(node), Text(fresh));
}

TEST(PacketWirelessInfo, KeepsFurtherDaysAndSegments) {
    Json::Value node = Json(R"({"TimeSection": [[1, 2, 3, 4, 5, 6, 7], 2, 3, 4, 5, 6, 7, ["8"]]})");
    EXPECT_EQ(PacketWirelessInfo(Expressible(), node), 1);
    Json::Value week = Week(7, 6);
    week[0].append(7);
    week.append(Json(R"(["8"])"));
    EXPECT_EQ(Text(node["TimeSection"]), Text(week));
}

TEST(PacketWirelessInfo, ANodeThatIsNoObjectIsReplaced) {
    const std::string fresh = Text(Packed(Expressible()));
    for (const char* text : {"7", "[1, 2]", R"("text")", "true"}) {
        Json::Value node = Json(text);
        EXPECT_EQ(PacketWirelessInfo(Expressible(), node), 1) << text;
        EXPECT_EQ(Text(node), fresh) << text;
    }
}

TEST(PacketWirelessInfo, IsDefinedForEveryNode) {
    for (const Json::Value& hostile : HostileValues()) {
        Json::Value root = hostile;
        EXPECT_NO_THROW(EXPECT_EQ(PacketWirelessInfo(Expressible(), root), 1));
        EXPECT_EQ(root["APN"], "CMNET");
        Json::Value node;
        node["TimeSection"] = hostile;
        EXPECT_NO_THROW(EXPECT_EQ(PacketWirelessInfo(Expressible(), node), 1));
        EXPECT_EQ(node["TimeSection"][6][5], "66 06:05:59-16:25:58");
    }
}

TEST(WirelessInfo, WhatIsWrittenReadsBack) {
    Placed<Record> info;
    ParseWirelessInfo(Packed(Expressible()), *info);
    EXPECT_EQ(Text(Packed(*info)), Text(Packed(Expressible())));
}

}  // namespace

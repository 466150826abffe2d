// A message, its record, and a message again: what differs is what the contracts say, and nothing else.

#include <gtest/gtest.h>
#include <json/value.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "testing/json.h"
#include "tools/jsonparser/catalogue.h"
#include "tools/jsonparser/finding.h"
#include "tools/jsonparser/record_buffer.h"
#include "tools/jsonparser/record_form.h"
#include "tools/jsonparser/record_input.h"
#include "tools/jsonparser/strict_reader.h"

namespace {

using testing_tools::Json;
using testing_tools::Text;
using tool::CatalogueEntry;
using tool::Finding;
using tool::RecordBuffer;

struct RoundTrip {
    std::string_view entry;
    std::string message;
    std::vector<std::string> differences;  ///< path: sent -> written, in the order of the paths
};

/// Rows of six segments, the first of them as given.
std::string Rows(std::size_t count, const std::string& first) {
    std::string rows;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string segment = "\"1 0" + std::to_string(i) + ":00:00-17:30:59\"";
        rows += (i == 0 ? "[" : ", [") + (i == 0 ? first : segment);
        for (int more = 0; more < 5; ++more) rows += ", " + segment;
        rows += ']';
    }
    return '[' + rows + ']';
}

const std::string kDays = Rows(7, R"("1 8:0:0-17:30:0")");
const std::string kDaysAndHoliday = Rows(8, R"("257 08:00:00-17:30:00")");
const std::string kMobileData =
    R"({"TimeSection": )" + Rows(7, R"("0 00:00:00-24:00:00")") +
    R"(, "Enable": true, "Index": 2, "KeepAlive": 60, "APN": "fleet.m2m", "AuthMode": "CHAP", "UserName": "bus",
         "Password": "8d", "AutoDial": true, "3GFluxTactic": 0, "3GFluxUp": 3, "3GFlux": 1,
         "Day3GFluxTactic": "ByFlux", "Day3GFluxUp": 15, "Day3GFluxUse": 4, "Day3GFluxAction": "3GNetDown",
         "WorkMode": "TDD-LTE", "DailNumber": "*98*1#", "Activate": true, "SignalStrength": 71})";

const RoundTrip kRoundTrips[] = {
    {"VK_RECT",                          "[1, -2, 3000000000, 4]",                                                         {"/2: 3000000000 -> -1294967296"}                                                                     },
    {"VK_POINT",                         "[1, -2]",                                                                        {}                                                                                                    },
    {"tagRANGE",                         R"({"Max": 10.5, "Min": -2, "Default": 3, "Step": 0.5})",                         {"/Max: 10.5 -> 10", "/Step: 0.5 -> 0"}                                                               },
    {"tagRANGE",                         R"({"Max": 10})",                                                                 {"/Min: nothing -> 0"}                                                                                },
    {"tagRANGE/float",                   R"({"Max": 10.5, "Min": -2.5, "Default": 3.25, "Step": 0.5})",                    {}                                                                                                    },
    {"Color",                            "[1, 2, 3, 300]",                                                                 {"/3: 300 -> 44"}                                                                                     },
    {"tagNET_TIME/compact",              R"("20240105 093007")",                                                           {}                                                                                                    },
    {"tagNET_TIME/date",                 R"("2024-01-05")",                                                                {}                                                                                                    },
    {"tagNET_TIME_EX",                   R"("2024-01-05 09:30:07.025")",                                                   {R"(: "2024-01-05 09:30:07.025" -> "2024-01-05 09:30:07.25")"}                                        },
    {"tagCFG_NET_TIME_EX",               R"("2024-01-05 09:30:07.250")",                                                   {}                                                                                                    },
    {"tagCFG_TIME",                      R"("09:30:07")",                                                                  {}                                                                                                    },
    {"tagVK_TSECT",                      R"("1 08:00:00-17:30:00")",                                                       {}                                                                                                    },
    {"tagNET_CFG_TIME_SCHEDULE",         kDays,                                                                            {R"(/0/0: "1 8:0:0-17:30:0" -> "1 08:00:00-17:30:00")"}                                               },
    {"tagCFG_TIME_SCHEDULE",             kDaysAndHoliday,                                                                  {}                                                                                                    },
    {"tagCFG_TIME_SECTION",
     R"(["257 08:00:00-17:30:00", "1 18:00:00-19:00:00"])",                                                                {R"(/1: "1 18:00:00-19:00:00" -> nothing)"}                                                           },
    {"tagNET_TIME_SECTION",
     R"(["257 08:00:00-17:30:00", "1 18:00:00-19:00:00"])",                                                                {R"(/0: "257 08:00:00-17:30:00" -> "1 08:00:00-17:30:00")", R"(/1: "1 18:00:00-19:00:00" -> nothing)"}},
    {"tagFACERECOGNITION_PERSON_INFO",
     R"({"Name": "王", "Sex": "male", "Birthday": "1990-05-03", "Province": "浙江", "City": "杭州", "Country": "CN",
         "CertificateType": "IC", "ID": "33", "UID": "41", "Important": 8, "IsCustomType": 1, "Type": "访客",
         "Comment": "来", "GroupID": "17", "GroupName": "一", "FeatureValue": "q8", "Glasses": 1, "Age": 33,
         "Emotion": "Smile",
         "Image": [{"Offset": 1, "Length": 2, "Width": 3, "Height": 4, "FilePath": "/1.jpg", "IsDetected": true}]})",
     {"/Age: 33 -> nothing", R"(/Birthday: "1990-05-03" -> "1990-5-3")", R"(/Emotion: "Smile" -> nothing)",
      R"(/Image/0/FilePath: "/1.jpg" -> nothing)", "/Image/0/IsDetected: true -> 1", R"(/Sex: "male" -> "Male")"}                                                                                                                },
    {"tagFACERECOGNITION_PERSON_INFOEX",
     R"({"Name": "王", "Sex": "Male", "Birthday": "1990-10-13", "Province": "浙江", "City": "杭州", "Country": "CN",
         "CertificateType": "IC", "ID": "33", "UID": "41", "Important": 0, "IsCustomType": 0, "Type": "VIP",
         "Comment": "来", "GroupID": "17", "GroupName": "一", "FeatureValue": "q8", "Glasses": 1, "Age": 33,
         "Emotion": "Smile", "HomeAddress": "西", "GlassesType": "Glasses", "Race": 1, "Eye": 2, "Mouth": 1, "Mask": 1,
         "Beard": -1, "Attractive": 72, "FeatureState": 1, "CustomPersonInfo": ["1", "2"],
         "Image": [{"Offset": 1, "Length": 2, "Width": 3, "Height": 4, "FilePath": "/1.jpg", "IsDetected": false}]})",
     {"/Age: 33 -> nothing", "/Beard: -1 -> nothing", R"(/CustomPersonInfo/0: "1" -> {"PersonInfo":"1"})",
      R"(/CustomPersonInfo/1: "2" -> {"PersonInfo":"2"})", R"(/Emotion: "Smile" -> nothing)",
      R"(/FeatureValue: "q8" -> nothing)", R"(/Image/0/FilePath: "/1.jpg" -> nothing)",
      "/Image/0/IsDetected: false -> 0", "/Important: 0 -> nothing"}                                                                                                                                                             },
    {"FaceDBType",                       R"("blacklistdb")",                                                               {R"(: "blacklistdb" -> "BlackListDB")"}                                                               },
    {"Coordinate",                       "[120, 30, 36.0]",                                                                {"/0: 120 -> 120510000", "/1: 30 -> 0", "/2: 36.0 -> 0.0"}                                            },
    {"VK_COMM_PROP",                     R"([115200, 8, "None", "1"])",                                                    {}                                                                                                    },
    {"VK_COMM_PROP",                     R"([115201, 8, "none", "1"])",                                                    {"/0: 115201 -> 300", R"(/2: "none" -> "None")"}                                                      },
    {"tagCFG_COMM_PROP",                 R"([2400, 7, "Even", "1.5"])",                                                    {}                                                                                                    },
    {"tagNET_NETAPP_WIRELESS",           kMobileData,                                                                      {"/Index: 2 -> nothing", "/SignalStrength: 71 -> nothing"}                                            },
};

/// What stands in one value and not in the other: path: sent -> written.
void Compare(const Json::Value* sent, const Json::Value* written, const std::string& path,
             std::vector<std::string>& differences) {
    const bool objects = sent != nullptr && written != nullptr && sent->isObject() && written->isObject();
    const bool arrays = sent != nullptr && written != nullptr && sent->isArray() && written->isArray();
    if (objects) {
        std::set<std::string> names;
        for (const Json::Value* value : {sent, written}) {
            for (const std::string& name : value->getMemberNames()) names.insert(name);
        }
        for (const std::string& name : names) {
            Compare(sent->find(name.data(), name.data() + name.size()),
                    written->find(name.data(), name.data() + name.size()), path + '/' + name, differences);
        }
    } else if (arrays) {
        for (Json::ArrayIndex i = 0; i < std::max(sent->size(), written->size()); ++i) {
            Compare(sent->isValidIndex(i) ? &(*sent)[i] : nullptr, written->isValidIndex(i) ? &(*written)[i] : nullptr,
                    path + '/' + std::to_string(i), differences);
        }
    } else {
        const std::string before = sent == nullptr ? "nothing" : Text(*sent);
        const std::string after = written == nullptr ? "nothing" : Text(*written);
        if (before != after) differences.push_back(path + ": " + before + " -> " + after);
    }
}

/// The message goes into a record, the record through its form, and the record into a message.
Json::Value ThereAndBack(const CatalogueEntry& entry, Json::Value message) {
    RecordBuffer record(*entry.layout);
    record.lendBuffers();
    entry.decode(message, record.bytes());
    const std::string text = tool::RecordAsJson(*entry.layout, record.bytes());
    Json::Value form;
    EXPECT_FALSE(tool::ReadStrictly(text, 64, form)) << text;
    RecordBuffer again(*entry.layout);
    std::vector<Finding> findings;
    EXPECT_TRUE(tool::ReadRecord(form, text, again, findings)) << text;
    Json::Value written;
    EXPECT_TRUE(entry.encode(again.bytes(), written)) << text;
    return written;
}

TEST(MessageRoundTrip, DiffersAsTheContractsSay) {
    for (const RoundTrip& trip : kRoundTrips) {
        std::vector<std::string> alternatives;
        const CatalogueEntry* entry = tool::FindEntry(trip.entry, alternatives);
        ASSERT_NE(entry, nullptr) << trip.entry;
        const Json::Value sent = Json(trip.message);
        const Json::Value written = ThereAndBack(*entry, sent);
        std::vector<std::string> differences;
        Compare(&sent, &written, "", differences);
        EXPECT_EQ(differences, trip.differences) << trip.entry << ' ' << Text(written);
    }
}

TEST(MessageRoundTrip, IsTriedOfEveryEntryWithBothWays) {
    for (const CatalogueEntry& entry : tool::Catalogue()) {
        const bool tried = std::any_of(std::begin(kRoundTrips), std::end(kRoundTrips),
                                       [&entry](const RoundTrip& trip) { return trip.entry == entry.name; });
        EXPECT_EQ(tried, entry.decode != nullptr && entry.encode != nullptr) << entry.name;
    }
}

}  // namespace

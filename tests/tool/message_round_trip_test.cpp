// A message, its record, and a message again: what differs is what the contracts say, and nothing else.

#include <gtest/gtest.h>
#include <json/value.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "testing/json.h"
#include "testing/locale.h"
#include "tools/jsonparser/catalogue.h"
#include "tools/jsonparser/encode.h"
#include "tools/jsonparser/finding.h"
#include "tools/jsonparser/input.h"
#include "tools/jsonparser/record_buffer.h"
#include "tools/jsonparser/record_form.h"
#include "tools/jsonparser/record_input.h"
#include "tools/jsonparser/strict_reader.h"
#include "tools/jsonparser/trace_collector.h"

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
    {"tagFACERECOGNITION_PERSON_INFO",
     R"({"Sex": "unknown", "CertificateType": "Passports", "Type": "Guest", "Important": 0, "Emotion": "Bored"})",         {R"(/CertificateType: "Passports" -> nothing)", R"(/City: nothing -> "")", R"(/Comment: nothing -> "")",
      R"(/Country: nothing -> "")", R"(/Emotion: "Bored" -> nothing)", R"(/FeatureValue: nothing -> "")",
      "/Glasses: nothing -> 0", R"(/GroupID: nothing -> "")", R"(/GroupName: nothing -> "")", R"(/ID: nothing -> "")",
      "/Important: 0 -> nothing", "/IsCustomType: nothing -> 0", R"(/Name: nothing -> "")",
      R"(/Province: nothing -> "")", R"(/Sex: "unknown" -> nothing)", R"(/Type: "Guest" -> nothing)",
      R"(/UID: nothing -> "")"}                                                                                },
    {"tagFACERECOGNITION_PERSON_INFOEX",
     R"({"Name": "A", "GlassesType": "Monocle", "IsCustomType": 1, "Type": "Guest", "CustomPersonInfo": []})",             {R"(/City: nothing -> "")", R"(/Comment: nothing -> "")", R"(/Country: nothing -> "")",
      "/CustomPersonInfo: [] -> nothing", "/Glasses: nothing -> 0", R"(/GlassesType: "Monocle" -> nothing)",
      R"(/GroupID: nothing -> "")", R"(/GroupName: nothing -> "")", R"(/HomeAddress: nothing -> "")",
      R"(/ID: nothing -> "")", R"(/Province: nothing -> "")", R"(/UID: nothing -> "")"}                            },
    {"FaceDBType",                       R"("blacklistdb")",                                                               {R"(: "blacklistdb" -> "BlackListDB")"}                                                               },
    {"Coordinate",                       "[120, 30, 36.0]",                                                                {"/0: 120 -> 120510000", "/1: 30 -> 0", "/2: 36.0 -> 0.0"}                                            },
    {"VK_COMM_PROP",                     R"([115200, 8, "None", "1"])",                                                    {}                                                                                                    },
    {"VK_COMM_PROP",                     R"([115201, 8, "none", "1"])",                                                    {"/0: 115201 -> 300", R"(/2: "none" -> "None")"}                                                      },
    {"tagCFG_COMM_PROP",                 R"([2400, 7, "Even", "1.5"])",                                                    {}                                                                                                    },
    {"tagCFG_COMM_PROP",                 R"([null, 9, "Odd", "3"])",                                                       {"/0: null -> 300", "/1: 9 -> 5", R"(/3: "3" -> "1")"}                                                },
    {"tagNET_NETAPP_WIRELESS",
     R"({"Enable": true, "KeepAlive": 60, "AuthMode": "Kerberos", "Day3GFluxTactic": "", "3GFluxTactic": 7,
         "3GFluxUp": 3, "3GFlux": 1, "AutoDial": false, "Activate": false, "UserName": "", "Password": "",
         "DailNumber": "", "Day3GFluxUp": 0, "Day3GFluxUse": 0, "WorkMode": "GSM",
         "TimeSection": )" +
         Rows(7,                                                                                                           R"("no segment")") + "}",
     {"/3GFluxTactic: 7 -> nothing", R"(/AuthMode: "Kerberos" -> nothing)", R"(/Day3GFluxTactic: "" -> nothing)",
      R"(/TimeSection/0/0: "no segment" -> "0 00:00:00-00:00:00")", R"(/WorkMode: "GSM" -> "")"}},
    {"tagNET_NETAPP_WIRELESS",                                  kMobileData,                                                                                           {"/Index: 2 -> nothing", "/SignalStrength: 71 -> nothing"}                                                                                                                                                    },
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

const CatalogueEntry& EntryOf(std::string_view name) {
    std::vector<std::string> alternatives;
    const CatalogueEntry* entry = tool::FindEntry(name, alternatives);
    if (entry == nullptr) throw std::logic_error("there is no entry " + std::string(name));
    return *entry;
}

Json::Value FormOf(const CatalogueEntry& entry, Json::Value message, bool& isWhole) {
    RecordBuffer record(*entry.layout);
    record.lendBuffers();
    isWhole = entry.decode(message, record.bytes());
    const std::string text = tool::RecordAsJson(*entry.layout, record.bytes());
    Json::Value form;
    EXPECT_FALSE(tool::ReadStrictly(text, 64, form)) << text;
    return form;
}

/// The message that the record of that form becomes.
Json::Value Written(const CatalogueEntry& entry, const Json::Value& form) {
    RecordBuffer record(*entry.layout);
    std::vector<Finding> findings;
    EXPECT_TRUE(tool::ReadRecord(form, "", record, findings)) << Text(form);
    const tool::TraceCollector quiet;
    Json::Value written;
    EXPECT_TRUE(entry.encode(record.bytes(), written)) << Text(form);
    return written;
}

/// The message goes into a record, the record through its form, and the record into a message.
Json::Value ThereAndBack(const CatalogueEntry& entry, const Json::Value& message) {
    bool isWhole = false;
    return Written(entry, FormOf(entry, message, isWhole));
}

TEST(MessageRoundTrip, DiffersAsTheContractsSay) {
    const testing_tools::Utf8Texts utf8;
    for (const RoundTrip& trip : kRoundTrips) {
        const Json::Value sent = Json(trip.message);
        const Json::Value written = ThereAndBack(EntryOf(trip.entry), sent);
        std::vector<std::string> differences;
        Compare(&sent, &written, "", differences);
        EXPECT_EQ(differences, trip.differences) << trip.entry << ' ' << Text(written);
    }
}

// ---- what encode makes of the records that decode prints

/// What encode says of the record that decode prints.
struct Encoded {
    Json::Value form;
    bool isWhole = false;  ///< as decode says
    bool isWritten = false;
    Json::Value message;
    std::vector<Finding> findings;
};

Encoded EncodedAgain(const CatalogueEntry& entry, const Json::Value& message) {
    Encoded encoded;
    encoded.form = FormOf(entry, message, encoded.isWhole);
    Json::Value form = encoded.form;
    encoded.isWritten = EncodeWithFindings(entry, {Text(form), form, ""}, encoded.message, encoded.findings);
    return encoded;
}

std::vector<std::string> PathsOf(const std::vector<Finding>& findings) {
    std::vector<std::string> paths;
    for (const Finding& finding : findings) {
        if (!finding.isRemark) paths.push_back(finding.path);
    }
    return paths;
}

TEST(MessageRoundTrip, IsRefusedByEncodeWhereTheMessageLosesWhatTheRecordHas) {
    const std::pair<std::string_view, std::pair<std::string, std::vector<std::string>>> rows[] = {
        {"tagRANGE",                       {R"({"Max": 10.5, "Min": -2, "Default": 3, "Step": 0.5})", {"/fMax", "/fStep"}}},
        {"tagRANGE/float",                 {R"({"Max": 1e300})", {"/fMax"}}                                               },
        {"tagNET_TIME_SECTION",            {R"(["257 08:00:00-17:30:00"])", {"/dwRecordMask"}}                            },
        {"tagFACERECOGNITION_PERSON_INFO", {R"({"Birthday": "1990-00-03"})", {"/wYear", "/byDay"}}                        },
        {"tagFACERECOGNITION_PERSON_INFO", {R"({"Comment": ")" + std::string(101, 'c') + R"("})", {"/pszComment"}}        },
        {"FaceDBType",                     {R"("x")", {"/nCode"}}                                                         },
    };
    for (const auto& [name, row] : rows) {
        const Encoded encoded = EncodedAgain(EntryOf(name), Json(row.first));
        EXPECT_FALSE(encoded.isWritten) << name;
        EXPECT_EQ(PathsOf(encoded.findings), row.second) << name << ' ' << row.first;
    }
}

TEST(MessageRoundTrip, IsTakenByEncodeForAllOthers) {
    for (const RoundTrip& trip : kRoundTrips) {
        const Encoded encoded = EncodedAgain(EntryOf(trip.entry), Json(trip.message));
        const bool loses =
            trip.message.find("10.5, \"Min\": -2,") != std::string::npos || trip.entry == "tagNET_TIME_SECTION";
        EXPECT_EQ(encoded.isWritten, !loses) << trip.entry << ' ' << trip.message;
    }
}

/// A message without each of its members, with each of its values, and itself, replaced by each of the values.
void ForHostile(const Json::Value& message, const std::vector<Json::Value>& values,
                const std::function<void(const Json::Value&)>& use) {
    for (const Json::Value& value : values) use(value);
    Json::Value hostile = message;
    if (message.isObject()) {
        for (const std::string& name : message.getMemberNames()) {
            const auto replace = [&](const Json::Value& value) {
                hostile[name] = value;
                use(hostile);
            };
            hostile.removeMember(name);
            use(hostile);
            ForHostile(message[name], values, replace);
            hostile[name] = message[name];
        }
    } else if (message.isArray()) {
        // Of elements of elements the first: the others are like it.
        const bool isNested = message.size() > 0 && message[0].isArray();
        for (Json::ArrayIndex i = 0; i < (isNested ? 1U : std::min(message.size(), 4U)); ++i) {
            const auto replace = [&](const Json::Value& value) {
                hostile[i] = value;
                use(hostile);
            };
            ForHostile(message[i], values, replace);
            hostile[i] = message[i];
        }
    }
}

std::vector<Json::Value> Values() {
    std::vector<Json::Value> values;
    for (const Json::Value& value : testing_tools::HostileValues()) {
        if (Text(value).size() < 300) values.push_back(value);
    }
    for (const char* text :
         {"Male", "VIP", "Kerberos", "CMNET", "1990-00-03", "300 08:00:00-17:30:00", "1 8:0:0-17:30:0", "-001-02-03",
          "2024-01-05 09:30:00.025", "20240105 093007", "1 123:00:00-17:30:00"}) {
        values.emplace_back(text);
    }
    return values;
}

/// Expects encode to take the record that decode prints of a message, or to name only what no message has.
void ExpectTaken(const CatalogueEntry& entry, const Json::Value& message, std::size_t& taken) {
    const Encoded encoded = EncodedAgain(entry, message);
    taken += encoded.isWritten ? 1 : 0;
    if (encoded.isWritten) return;
    ASSERT_FALSE(PathsOf(encoded.findings).empty());
    for (const Finding& finding : encoded.findings) {
        std::vector<Finding> none;
        Json::Value form = encoded.form;
        const Json::Value* stated = tool::ValueAt(form, finding.path, none);
        ASSERT_NE(stated, nullptr) << finding.path << finding.text;
        if (finding.text.find("one of the codes") != std::string::npos) {
            ASSERT_FALSE(encoded.isWhole) << Text(message);
        } else if (finding.text.find("expected a value that the message carries") != std::string::npos) {
            bool isWhole = false;
            Json::Value back = FormOf(entry, Written(entry, encoded.form), isWhole);
            ASSERT_NE(Text(*stated), Text(*tool::ValueAt(back, finding.path, none)))
                << finding.path << finding.text << Text(message);
        } else {  // numbers that JSON has not, bytes that are not UTF-8
            ASSERT_TRUE(*stated == "Infinity" || *stated == "-Infinity" || *stated == "NaN" || stated->isMember("hex"))
                << finding.path << finding.text << Text(message);
        }
    }
}

class WhateverIsDecoded : public testing::TestWithParam<const CatalogueEntry*> {};

TEST_P(WhateverIsDecoded, IsTakenByEncodeOrReallyLost) {
    const CatalogueEntry& entry = *GetParam();
    const std::vector<Json::Value> values = Values();
    std::size_t taken = 0;
    for (const RoundTrip& trip : kRoundTrips) {
        if (trip.entry != entry.name) continue;
        ExpectTaken(entry, Json(trip.message), taken);
        ForHostile(Json(trip.message), values, [&](const Json::Value& message) {
            if (!testing::Test::HasFatalFailure()) ExpectTaken(entry, message, taken);
        });
    }
    EXPECT_GT(taken, 0U);
}

std::vector<const CatalogueEntry*> EntriesWithBothWays() {
    std::vector<const CatalogueEntry*> entries;
    for (const CatalogueEntry& entry : tool::Catalogue()) {
        if (entry.decode != nullptr && entry.encode != nullptr) entries.push_back(&entry);
    }
    return entries;
}

std::string NameOf(const testing::TestParamInfo<const CatalogueEntry*>& entry) {
    std::string name(entry.param->name);
    std::replace(name.begin(), name.end(), '/', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Catalogue, WhateverIsDecoded, testing::ValuesIn(EntriesWithBothWays()), NameOf);

TEST(MessageRoundTrip, IsTriedOfEveryEntryWithBothWays) {
    for (const CatalogueEntry& entry : tool::Catalogue()) {
        const bool tried = std::any_of(std::begin(kRoundTrips), std::end(kRoundTrips),
                                       [&entry](const RoundTrip& trip) { return trip.entry == entry.name; });
        EXPECT_EQ(tried, entry.decode != nullptr && entry.encode != nullptr) << entry.name;
    }
}

}  // namespace

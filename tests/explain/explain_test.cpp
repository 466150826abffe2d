#include "vkprotocolstack/explain.h"

#include <gtest/gtest.h>
#include <json/value.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "testing/json.h"
#include "testing/locale.h"
#include "testing/record.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::Explain;
using jsonparser::Explanation;
using jsonparser::IsFinding;
using jsonparser::Node;
using jsonparser::Outcome;
using jsonparser::OutcomeName;
using jsonparser::Reading;
using testing_tools::Json;
using testing_tools::ThreadLocale;

using Car = jsonparser::Owned<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO>;

Explanation OfCar(const std::string& text) {
    Json::Value message = Json(text);
    Car car;
    return Explain(message, [&] { ParseStrtoTrafficCar(message, car.get()); });
}

/// The readings at a path, "outcome: remark" each; "expected" behind it where there is one.
std::vector<std::string> At(const Explanation& explanation, std::string_view path) {
    std::vector<std::string> all;
    for (const Reading& reading : explanation.readings) {
        if (reading.path != path) continue;
        const std::string expected = reading.expected.empty() ? "" : " | " + reading.expected;
        all.push_back(std::string(OutcomeName(reading.outcome)) + ": " + reading.remark + expected);
    }
    return all;
}

using Lines = std::vector<std::string>;

std::string Text(std::size_t size) { return '"' + std::string(size, 'x') + '"'; }

TEST(Explain, SaysWhatBecameOfEachMember) {
    const struct {
        const char* path;
        std::string value;
        std::string became;
    } rows[] = {
        {"/Speed",            "87",                   "kept: kept"                                                                    },
        {"/Speed",            "87.0",                 "kept: kept"                                                                    },
        {"/Speed",            "true",                 "kept: kept"                                                                    },
        {"/Speed",            "null",                 "default: written by default"                                                   },
        {"/Speed",            "87.5",                 "fraction: fraction cut | a whole number"                                       },
        {"/Speed",            "-0.5",                 "fraction: fraction cut | a whole number"                                       },
        {"/Speed",            "4294967295",           "wrapped: wrapped to the low 32 bits | -2147483648 to 2147483647"               },
        {"/Speed",            "18446744073709551615", "wrapped: wrapped to the low 32 bits | -2147483648 to 2147483647"               },
        {"/Speed",            "3e9",                  "limited: beyond the range, the nearest limit taken | -2147483648 to 2147483647"},
        {"/Speed",            R"("87")",              "wrong type: wrong type, read as 0 | a number"                                  },
        {"/Speed",            "[87]",                 "wrong type: wrong type, read as 0 | a number"                                  },
        {"/Speed",            "{}",                   "wrong type: wrong type, read as 0 | a number"                                  },
        {"/RecNo",            "-1",                   "wrapped: wrapped to the low 32 bits | 0 to 4294967295"                         },
        {"/RecNo",            "-1.5",                 "limited: beyond the range, the nearest limit taken | 0 to 4294967295"          },
        {"/ActualGain",       "255",                  "kept: kept"                                                                    },
        {"/ActualGain",       "256",                  "wrapped: wrapped to the low 8 bits | 0 to 255"                                 },
        {"/ActualGain",       "-1",                   "wrapped: wrapped to the low 8 bits | 0 to 255"                                 },
        {"/ActualGain",       "300.5",                "wrapped: wrapped to the low 8 bits | 0 to 255"                                 },
        {"/ActualGain",       "1e300",                "limited: beyond the range, the nearest limit taken | 0 to 255"                 },
        {"/VehicleLength",    "4.62",                 "kept: kept"                                                                    },
        {"/VehicleLength",    "1e300",                "limited: beyond the range of the field | at most 3.4e38"                       },
        {"/PlateNumber",      Text(31),               "kept: kept"                                                                    },
        {"/PlateNumber",      "7",                    "kept: kept"                                                                    },
        {"/PlateNumber",      Text(32),
         "full: fills all 32 bytes, its terminator is in the byte behind the field | at most 31 bytes"                                },
        {"/PlateNumber",      Text(300),
         "cut: cut from 300 to 32 bytes; its terminator is in the byte behind the field | at most 32 bytes"                           },
        {"/PlateNumber",      R"("ab\u0000cd")",      "cut: cut from 5 to 2 bytes | a text without NUL"                               },
        {"/PlateNumber",      "[]",                   "wrong type: wrong type, read as the empty text | a text"                       },
        {"/PlateNumber",      "null",                 "left: left as it was"                                                          },
        {"/PlateType",        Text(31),               "kept: kept"                                                                    },
        {"/PlateType",        Text(32),               "cut: cut from 32 to 31 bytes | at most 31 bytes"                               },
        {"/CustomParkNo",     Text(32),               "kept: kept"                                                                    },
        {"/CustomParkNo",     Text(33),               "cut: cut from 33 to 32 bytes | at most 32 bytes"                               },
        {"/CustomParkNo",     R"("ab\u0000cd")",      "cut: cut from 5 to 2 bytes | a text without NUL"                               },
        {"/CustomParkNo",     "7",                    "wrong type: wrong type, read as the empty text | a text"                       },
        {"/DefendCode",       Text(63),               "kept: kept"                                                                    },
        {"/DefendCode",       Text(64),               "cut: cut from 64 to 63 bytes | at most 63 bytes"                               },
        {"/DefendCode",       "[" + Text(9000) + "]", "cut: cut from 9004 to 63 bytes | at most 63 bytes"                             },
        {"/DefendCode",       R"("ab\u0000cd")",      "cut: cut from 5 to 2 bytes | a text without NUL"                               },
        {"/DeviceAddress",    Text(5000),             "kept: kept"                                                                    },
        {"/DeviceAddress",    R"("ab\u0000cd")",      "cut: cut from 5 to 2 bytes | a text without NUL"                               },
        {"/VehicleSize",      R"("Medium")",          "kept: kept"                                                                    },
        {"/VehicleSize",      R"("Meduim")",
         R"(unknown keyword: keyword unknown; did you mean "Medium"? | "Medium" or another keyword)"                                  },
        {"/VehicleSize",      "{}",                   "wrong type: wrong type, read as the empty text | a text"                       },
        {"/Weight",           "1530",                 "kept: kept"                                                                    },
        {"/Weight",           R"("1530")",            "refused: refused by isInt, left as it was | an integer of 32 bits"             },
        {"/MovingDirection",  "-1",                   "refused: refused by isUInt, left as it was | an integer of 32 bits, 0 or more" },
        {"/VehicleColorRGB",  "[1, 2, 3]",            "refused: refused for its size, left as it was | another number of elements"    },
        {"/VehicleColorRGB",  "{}",                   "refused: refused by isArray, left as it was | an array"                        },
        {"/VehicleColorRGB",  "[1, 2, 3, 4]",         "kept: kept"                                                                    },
        {"/Redundance",       "[]",                   "left: no elements"                                                             },
        {"/Redundance",       "7",                    "wrong type: wrong type, read as no elements | an array"                        },
        {"/DrivingDirection", R"("Approach")",        "wrong type: wrong type, read as no elements | an array"                        },
        {"/StereoGarage",     "[1, 2]",               "wrong type: wrong type, read as no members | an object"                        },
        {"/StereoGarage",     "{}",                   "kept: kept"                                                                    },
        {"/StereoGarage",     "null",                 "left: left as it was"                                                          },
        {"/EleTagInfoUTC",    "[1]",                  "left: only tested"                                                             },
        {"/Unknown",          "7",                    "unread: nothing reads this | nothing here"                                     },
    };
    for (const auto& row : rows) {
        const Explanation why = OfCar("{\"" + std::string(row.path + 1) + "\": " + row.value + "}");
        EXPECT_EQ(At(why, row.path), Lines{row.became}) << row.path << ' ' << row.value;
        const bool good =
            row.became.starts_with("kept") || row.became.starts_with("default") || row.became.starts_with("left");
        EXPECT_EQ(why.findings(), good ? 0U : 1U) << row.path << ' ' << row.value;
    }
}

TEST(Explain, SaysWhatBecameOfOtherConversions) {
    tagCFG_TIME_SCHEDULE schedule;
    const Json::Value rows = Json(R"([["1 08:00:00-12:00:00", "1 08:00"], [], [], [], [], [], []])");
    const Explanation ofSchedule = Explain(rows, [&] { GetJsonTimeSchedule(rows, schedule); });
    EXPECT_EQ(At(ofSchedule, "/0/0"), Lines{"kept: kept"});
    EXPECT_EQ(At(ofSchedule, "/0/1"),
              Lines{"not converted: 3 of 7 numbers converted | a text like %d %d:%d:%d-%d:%d:%d"});
    EXPECT_EQ(At(ofSchedule, "/1"), Lines{"unread: elements 1 to 6: nothing reads these | nothing here"});

    VK_COMM_PROP port;
    const Json::Value attributes = Json(R"([9601, "8", "odd", "1"])");
    const Explanation ofPort = Explain(attributes, [&] { ParseCommAttr(attributes, port); });
    EXPECT_EQ(At(ofPort, "/0"),
              Lines{"unknown keyword: not in the table | 300, 600, 1200, 2400, 4800, 9600, 19200, 38400, 57600 or "
                    "115200"});
    EXPECT_EQ(At(ofPort, "/1"), Lines{"wrong type: wrong type, read as 0 | a number"});
    EXPECT_EQ(At(ofPort, "/2"),
              Lines{R"(unknown keyword: keyword unknown; did you mean "Odd"? | "Odd" or another keyword)"});

    VK_POINT point;
    const Json::Value corner = Json("[-5, 70000]");
    const Explanation ofPoint = Explain(corner, [&] { GetJsonPoint(corner, point); });
    EXPECT_EQ(At(ofPoint, "/0"), Lines{"kept: kept, as the 16 bits of -5"});
    EXPECT_EQ(At(ofPoint, "/1"), Lines{"wrapped: wrapped to the low 16 bits | 0 to 65535"});

    const Json::Value notAnObject = "text";
    Explanation ofText = Explain(notAnObject, [&] { ParseErrorCode(notAnObject); });
    EXPECT_EQ(At(ofText, ""), Lines{"wrong type: wrong type, read as no members | an object"});
    EXPECT_EQ(ofText.findings(), 1U);
}

TEST(Explain, ShowsWhatTheRecordGetsForACodeOfAReply) {
    const struct {
        const char* code;
        const char* value;
        Lines became;
    } rows[] = {
        {"268632080",      "2147483727", {"kept: kept"}                                                            },
        {"0",              "0",          {"kept: kept"}                                                            },
        {"268959743",      "2147483669", {"unknown keyword: not in the table | a known device error code"}         },
        {R"("268632080")", "2147483669", {"wrong type: wrong type, read as no usable code | an integer of 32 bits"}},
        {"4563599376",     "2147483669", {"wrong type: wrong type, read as no usable code | an integer of 32 bits"}},
        {"null",           "2147483669", {"default: written by default"}                                           },
    };
    for (const auto& row : rows) {
        const Json::Value reply = Json(R"({"error": {"code": )" + std::string(row.code) + "}}");
        unsigned library = 1;
        const Explanation why = Explain(reply, [&] { library = ParseErrorCode(reply); });
        EXPECT_EQ(At(why, "/error/code"), row.became) << row.code;
        EXPECT_EQ(std::to_string(library), row.value) << row.code;
        for (const Reading& reading : why.readings) {
            if (reading.path != "/error/code") continue;
            EXPECT_EQ(reading.value, row.value) << row.code;
        }
    }
}

TEST(Explain, SaysWhichCharactersTheLocalEncodingLacks) {
    const ThreadLocale locale("zh_CN.GBK");
    const Explanation why = OfCar(R"({"PlateNumber": "京A?😀", "CustomParkNo": "😀😀", "DefendCode": "é😀",
                                      "DeviceAddress": "路😀", "ChannelName": "路口"})");
    EXPECT_EQ(At(why, "/PlateNumber"),
              Lines{"replaced: 1 character replaced by \"?\" | characters of the local encoding"});
    EXPECT_EQ(At(why, "/CustomParkNo"),
              Lines{"replaced: 2 characters replaced by \"?\" | characters of the local encoding"});
    EXPECT_EQ(At(why, "/DefendCode").size(), 1U);
    EXPECT_EQ(At(why, "/DeviceAddress"),
              Lines{"replaced: 1 character replaced by \"?\" | characters of the local encoding"});
    EXPECT_EQ(At(why, "/ChannelName"), Lines{"kept: kept"});
    for (const Reading& reading : why.readings) {
        if (reading.path != "/PlateNumber") continue;
        EXPECT_EQ(reading.value, R"("京A??")");
    }
}

TEST(Explain, ProposesTheMissingNameThatIsNearest) {
    const Explanation why = OfCar(R"({"PlateNumer": "A1", "speed": 5, "Lane": 1, "Lanes": 2, "Zzz": 3, "DeckNo": 4,
                                      "StereoGarage": {"DekNo": 1, "FreeDeckCount": 2}})");
    EXPECT_EQ(At(why, "/PlateNumer"), Lines{"unread: nothing reads this; did you mean PlateNumber? | PlateNumber"});
    EXPECT_EQ(At(why, "/speed"), Lines{"unread: nothing reads this; did you mean Speed? | Speed"});
    EXPECT_EQ(At(why, "/Lanes"), Lines{"unread: nothing reads this | nothing here"}) << "Lane is there";
    EXPECT_EQ(At(why, "/Zzz"), Lines{"unread: nothing reads this | nothing here"});
    EXPECT_EQ(At(why, "/StereoGarage/DekNo"), Lines{"unread: nothing reads this; did you mean DeckNo? | DeckNo"});
    EXPECT_EQ(At(why, "/DeckNo"),
              Lines{"unread: nothing reads this; did you mean /StereoGarage/DeckNo? | /StereoGarage/DeckNo"});
}

TEST(Explain, AWordThatAnotherFieldTakesAsItIsIsNoFinding) {
    tagNET_NETAPP_WIRELESS info{};
    const Json::Value own = Json(R"({"APN": "fleet.m2m"})");
    const Explanation why = Explain(own, [&] { ParseWirelessInfo(own, info); });
    EXPECT_EQ(At(why, "/APN"), (Lines{"default: no keyword, kept as a text", "kept: kept"}));
    EXPECT_EQ(why.findings(), 0U);
}

TEST(Explain, AccountsForEachLookAtAValue) {
    EXPECT_EQ(At(OfCar(R"({"UTC": "7", "EleTagInfoUTC": 1})"), "/UTC"),
              (Lines{"refused: refused by isInt, left as it was | an integer of 32 bits",
                     "wrong type: wrong type, read as 0 | a number"}));
    EXPECT_EQ(At(OfCar(R"({"UTC": 7, "EleTagInfoUTC": 1})"), "/UTC"), (Lines{"kept: kept", "kept: kept"}));
}

TEST(Explain, ListsReadingsInTheOrderOfTheReader) {
    const Explanation why = OfCar(R"({"UTC": 1, "EleTagInfoUTC": 1, "Sped": 2, "CarWindow": {"BoundingBox": [1]}})");
    Lines paths;
    for (const Reading& reading : why.readings) paths.push_back(reading.path);
    ASSERT_EQ(paths.size(), 46U);
    EXPECT_EQ((Lines{paths.begin(), paths.begin() + 6}),
              (Lines{"/PlateNumber", "/PlateType", "/PlateColor", "/VehicleColor", "/Speed", "/Event"}));
    EXPECT_EQ((Lines{paths.end() - 5, paths.end()}),
              (Lines{"/EleTagInfoUTC", "/UTC", "/CarWindow", "/CarWindow/BoundingBox", "/Sped"}));
}

TEST(Explain, GivesTypeTestsConversionAndValue) {
    Explanation why = OfCar(R"({"PlateNumber": "京A", "Weight": "heavy", "Redundance": [1, 2], "Speed": 1.5})");
    const auto one = [&why](std::string_view path) {
        for (const Reading& r : why.readings) {
            if (r.path == path) return r.type + '|' + r.found + '|' + r.test + '|' + r.conversion + '|' + r.value;
        }
        return std::string();
    };
    EXPECT_EQ(one("/PlateNumber"), R"(text|"京A"|present|text from UTF-8, limit 32|"京A")");
    EXPECT_EQ(one("/Weight"), R"(text|"heavy"|not isInt||)");
    EXPECT_EQ(one("/Redundance"), "array|array of 2|present, size 2|elements|");
    EXPECT_EQ(one("/Redundance/1"), "integer|2||unsigned, low 8 bits|2");
    EXPECT_EQ(one("/Speed"), "real|1.5||int|1");
    EXPECT_EQ(one("/Lane"), "missing|||int|0");
    EXPECT_EQ(one("/Event"), "missing||not present||");
    why = OfCar(R"({"PlateNumber": null})");
    EXPECT_EQ(one("/PlateNumber"), "null|null|not present||");
}

TEST(Explain, ShortensLongTextsBetweenCharacters) {
    std::string text;
    for (int i = 0; i < 30; ++i) text += "路";
    const Explanation why = OfCar("{\"DeviceAddress\": \"x" + text + "\"}");
    for (const Reading& reading : why.readings) {
        if (reading.path != "/DeviceAddress") continue;
        EXPECT_EQ(reading.found, "\"x" + text.substr(0, 57) + "\"...");
        EXPECT_EQ(reading.value, "\"x" + text + "\"");
    }
}

TEST(Explain, WatchesReadersThatTakeTheirNodeByValue) {
    const Json::Value message = Json(R"({"Similarity": 300, "Person": {"Sex": "male", "Nam": "x"}, "Extra": 1})");
    jsonparser::Owned<tagCANDIDATE_INFOEX> candidate;
    const Explanation why = Explain(message, [&] { ParseCandidate(message, *candidate.get()); });
    EXPECT_EQ(At(why, "/Similarity"), Lines{"wrapped: wrapped to the low 8 bits | 0 to 255"});
    EXPECT_EQ(At(why, "/Person/Sex"), Lines{"kept: kept"});
    EXPECT_EQ(At(why, "/Person/Nam"), Lines{"unread: nothing reads this; did you mean Name? | Name"});
    EXPECT_EQ(At(why, "/Extra"), Lines{"unread: nothing reads this | nothing here"});
}

TEST(Explain, MembersThatTheReaderInsertsAreNotUnread) {
    Json::Value message = Json("{}");
    Car car;
    const Explanation why = Explain(message, [&] { ParseStrtoTrafficCar(message, car.get()); });
    EXPECT_TRUE(message.isMember("PlateNumber"));
    EXPECT_EQ(why.findings(), 0U);
}

TEST(Explain, PathsAreJsonPointers) {
    const Explanation why = OfCar(R"({"a/b~c": 1})");
    EXPECT_EQ(At(why, "/a~1b~0c"), Lines{"unread: nothing reads this | nothing here"});
}

TEST(Explain, OfAReaderThatReadsNothingIsThatNothingReadsTheMessage) {
    const Json::Value message = Json(R"({"a": 1})");
    const Explanation why = Explain(message, [] {});
    ASSERT_EQ(why.readings.size(), 1U);
    EXPECT_EQ(At(why, ""), Lines{"unread: nothing reads this | nothing here"});
}

TEST(Explain, WatchesItsOwnThreadAndItsOwnCall) {
    const Json::Value message = Json("[1, 2, 3, 4]");
    VK_RECT rect;
    Explanation inner;
    const Explanation outer = Explain(message, [&] {
        std::thread([&] { GetJsonRect(message, rect); }).join();
        inner = Explain(message, [&] { GetJsonRect(message, rect); });
    });
    EXPECT_EQ(inner.readings.size(), 5U);
    EXPECT_EQ(outer.readings.size(), 1U);
    GetJsonRect(message, rect);
}

TEST(Explain, PassesOnWhatTheCallThrows) {
    const Json::Value message = 7;
    EXPECT_THROW(Explain(message, [] { throw std::runtime_error("x"); }), std::runtime_error);
    tagRANGE range;
    EXPECT_EQ(deserialize_range(message, range), 1);  // nobody watches any more
}

TEST(Explain, SummarisesElementsThatNothingReads) {
    Json::Value message = Json("{}");
    for (int i = 0; i < 10000; ++i) message["Redundance"].append(i % 256);
    Car car;
    const Explanation why = Explain(message, [&] { ParseStrtoTrafficCar(message, car.get()); });
    EXPECT_EQ(At(why, "/Redundance/8"), Lines{"unread: elements 8 to 9999: nothing reads these | nothing here"});
    EXPECT_EQ(why.findings(), 1U);
}

TEST(OutcomeName, IsDifferentForEach) {
    std::vector<std::string_view> names;
    for (int i = 0; i <= static_cast<int>(Outcome::kUnread); ++i) names.push_back(OutcomeName(Outcome{i}));
    EXPECT_EQ(names, (std::vector<std::string_view>{"kept", "default", "left", "cut", "full", "replaced", "wrapped",
                                                    "limited", "fraction", "unknown keyword", "wrong type", "refused",
                                                    "not converted", "unread"}));
    for (int i = 0; i <= static_cast<int>(Outcome::kUnread); ++i) EXPECT_EQ(IsFinding(Outcome{i}), i >= 3) << i;
}

TEST(LogLine, HasAllOfAReading) {
    const Explanation why = OfCar(R"({"Speed": "x", "Weight": "heavy", "Line\nEnd": 1})");
    Lines lines;
    for (const Reading& reading : why.readings) {
        if (IsFinding(reading.outcome)) lines.push_back(LogLine(reading));
    }
    EXPECT_EQ(lines, (Lines{R"(/Speed: "x"; int: 0; wrong type, read as 0)",
                            R"(/Weight: "heavy"; not isInt; refused by isInt, left as it was)",
                            R"(/Line\x0aEnd: 1; nothing reads this)"}));
    EXPECT_EQ(LogLine(why.readings[0]), "/PlateNumber: missing; not present; left as it was");
}

TEST(Explain, ShortensATextWithoutABeginningOfACharacterToNothing) {
    Json::Value message;
    message["PlateNumber"] = std::string(1000, '\x80');
    Car car;
    const Explanation explanation = Explain(message, [&] { ParseStrtoTrafficCar(message, car.get()); });
    for (const Reading& reading : explanation.readings) {
        if (reading.path == "/PlateNumber") {
            EXPECT_EQ(reading.found, R"(""...)");
        }
    }
}

TEST(Explain, SummarisesElementsBetweenThoseThatAreRead) {
    const Json::Value message = Json("[[1], [2], [3], [4]]");
    const Explanation explanation = Explain(message, [&] { Json_dimension(1)(message); });  // the first and the last
    EXPECT_EQ(At(explanation, "/1"), Lines{"unread: elements 1 to 2: nothing reads these | nothing here"});
}

TEST(LogLine, NamesTheMessageItselfAndShowsWhatATerminalWouldObey) {
    Reading reading;
    reading.type = "text";
    reading.found = "\x7F";
    EXPECT_EQ(LogLine(reading).substr(0, 7), "/: \\x7f");
}

TEST(Explain, NamesTheFirstOfTheTestsThatRefuseAValue) {
    const Json::Value message = Json(R"({"list": "x"})");
    const Explanation explanation = Explain(message, [&] {
        const Node list = Node(message)["list"];
        list.isArray();
        list.isInt();
    });
    EXPECT_EQ(At(explanation, "/list"), Lines{"refused: refused by isArray, left as it was | an array"});
}

TEST(Explain, ARefusalOfWhatWasConvertedIsAnAccountOfItsOwn) {
    const Json::Value message = Json(R"({"a": 1, "b": 2})");
    const Explanation explanation = Explain(message, [&] {
        const Node a = Node(message)["a"];
        a.asInt();
        a.isBool();
        const Node b = Node(message)["b"];
        b.asInt();
        b.isInt();
    });
    EXPECT_EQ(At(explanation, "/a"),
              (Lines{"kept: kept", "refused: refused by isBool, left as it was | true or false"}));
    EXPECT_EQ(At(explanation, "/b"), Lines{"kept: kept"});
}

TEST(Explain, WhatIsNoArrayHasNoElementsWhateverWasTested) {
    const Json::Value message = Json(R"({"a": "x", "b": "x"})");
    const Explanation explanation = Explain(message, [&] {
        const Node a = Node(message)["a"];
        a.isArray();
        a.at(0).asInt();
        const Node b = Node(message)["b"];
        b.isArray();
        b.size();
    });
    const Lines noElements{"wrong type: wrong type, read as no elements | an array"};
    EXPECT_EQ(At(explanation, "/a"), noElements);
    EXPECT_EQ(At(explanation, "/b"), noElements);
}

}  // namespace

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/message_text.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;

constexpr int kBefore = -77;

std::string Upper(std::string word) {
    std::transform(word.begin(), word.end(), word.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return word;
}

std::string Lower(std::string word) {
    std::transform(word.begin(), word.end(), word.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return word;
}

using Reader = void (*)(const Json::Value&, int&);

int Code(Reader read, const Json::Value& value) {
    int code = kBefore;
    read(value, code);
    return code;
}

struct Row {
    int code;
    const char* word;
};

void ExpectRows(Reader read, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(Code(read, row.word), row.code) << row.word;
        EXPECT_EQ(Code(read, Upper(row.word)), row.code) << row.word;
        EXPECT_EQ(Code(read, Lower(row.word)), row.code) << row.word;
        EXPECT_EQ(Code(read, std::string(row.word) + std::string("\0behind", 7)), row.code) << row.word;
        EXPECT_EQ(Code(read, std::string(row.word) + " "), kBefore) << row.word;
        EXPECT_EQ(Code(read, std::string(" ") + row.word), kBefore) << row.word;
        EXPECT_EQ(Code(read, std::string(row.word).substr(1)), kBefore) << row.word;
    }
}

void ExpectUntouched(Reader read, const std::vector<Json::Value>& values) {
    for (const Json::Value& value : values) {
        EXPECT_NO_THROW(EXPECT_EQ(Code(read, value), kBefore));
    }
}

// ---- colour of a plate

TEST(GetJsonPlateColorType, ReadsEveryWordInAnyCase) {
    ExpectRows(GetJsonPlateColorType, {
                                          {0, "Other"                },
                                          {1, "Blue"                 },
                                          {2, "Yellow"               },
                                          {3, "White"                },
                                          {4, "Black"                },
                                          {5, "YellowbottomBlackText"},
                                          {6, "BluebottomWhiteText"  },
                                          {7, "BlackBottomWhiteText" },
                                          {8, "ShadowGreen"          },
                                          {9, "YellowGreen"          }
    });
}

TEST(GetJsonPlateColorType, BlueInAnyMixOfLettersGives1) {
    for (const char* word : {"Blue", "blue", "BLUE", "bLuE", "BlUe"}) {
        EXPECT_EQ(Code(GetJsonPlateColorType, word), 1) << word;
    }
}

TEST(GetJsonPlateColorType, BlueFollowedByABlankLeavesTheOutputAsItWas) {
    EXPECT_EQ(Code(GetJsonPlateColorType, "Blue "), kBefore);
}

TEST(GetJsonPlateColorType, WordsOfOtherVocabulariesLeaveTheOutputAsItWas) {
    ExpectUntouched(GetJsonPlateColorType, {"Gray", "Normal", "Motor", "Unknown", "Green", "Yellow Green", "ＢＬＵＥ"});
}

TEST(GetJsonPlateColorType, ValuesThatAreNoWordLeaveTheOutputAsItWas) {
    ExpectUntouched(GetJsonPlateColorType, HostileValues());
}

TEST(GetJsonPlateColorType, ANodeThatHoldsTheWordDeeperLeavesTheOutputAsItWas) {
    ExpectUntouched(GetJsonPlateColorType, {Json(R"(["Blue"])"), Json(R"({"Blue": "Blue"})")});
}

// ---- kind of a vehicle

TEST(GetJsonVehicleType, ReadsEveryWordInAnyCase) {
    ExpectRows(GetJsonVehicleType, {
                                       {0,  "Unknown"                 },
                                       {1,  "Motor"                   },
                                       {2,  "Non-Motor"               },
                                       {3,  "Bus"                     },
                                       {4,  "Bicycle"                 },
                                       {5,  "Motorcycle"              },
                                       {6,  "UnlicensedMotor"         },
                                       {7,  "LargeCar"                },
                                       {8,  "MicroCar"                },
                                       {9,  "EmbassyCar"              },
                                       {10, "MarginalCar"             },
                                       {11, "AreaoutCar"              },
                                       {12, "ForeignCar"              },
                                       {13, "DualTriWheelMotorcycle"  },
                                       {14, "LightMotorcycle"         },
                                       {15, "EmbassyMotorcycle"       },
                                       {16, "MarginalMotorcycle"      },
                                       {17, "AreaoutMotorcycle"       },
                                       {18, "ForeignMotorcycle"       },
                                       {19, "FarmTransmitCar"         },
                                       {20, "Tractor"                 },
                                       {21, "Trailer"                 },
                                       {22, "CoachCar"                },
                                       {23, "CoachMotorcycle"         },
                                       {24, "TrialCar"                },
                                       {25, "TrialMotorcycle"         },
                                       {26, "TemporaryEntryCar"       },
                                       {27, "TemporaryEntryMotorcycle"},
                                       {28, "TemporarySteerCar"       },
                                       {29, "PassengerCar"            },
                                       {30, "LargeTruck"              },
                                       {31, "MidTruck"                },
                                       {32, "SaloonCar"               },
                                       {33, "Microbus"                },
                                       {34, "MicroTruck"              },
                                       {35, "Tricycle"                },
                                       {36, "Passerby"                }
    });
}

TEST(GetJsonVehicleType, PasserbyGives36InSmallLettersToo) {
    EXPECT_EQ(Code(GetJsonVehicleType, "Passerby"), 36);
    EXPECT_EQ(Code(GetJsonVehicleType, "passerby"), 36);
}

TEST(GetJsonVehicleType, WordsOfOtherVocabulariesLeaveTheOutputAsItWas) {
    ExpectUntouched(GetJsonVehicleType, {"Other", "Blue", "NonMotor", "Non Motor", "Moto", "Car"});
}

TEST(GetJsonVehicleType, ValuesThatAreNoWordLeaveTheOutputAsItWas) {
    ExpectUntouched(GetJsonVehicleType, HostileValues());
}

// ---- colour of a body

TEST(GetJsonVehicleColorType, ReadsEveryWordInAnyCase) {
    ExpectRows(GetJsonVehicleColorType, {
                                            {0,  "Other" },
                                            {1,  "White" },
                                            {2,  "Black" },
                                            {3,  "Red"   },
                                            {4,  "Yellow"},
                                            {5,  "Gray"  },
                                            {6,  "Blue"  },
                                            {7,  "Green" },
                                            {8,  "Pink"  },
                                            {9,  "Purple"},
                                            {10, "Brown" }
    });
}

TEST(GetJsonVehicleColorType, WordsOfOtherVocabulariesLeaveTheOutputAsItWas) {
    ExpectUntouched(GetJsonVehicleColorType, {"ShadowGreen", "YellowGreen", "Grey", "Unknown", "Normal"});
}

TEST(GetJsonVehicleColorType, ValuesThatAreNoWordLeaveTheOutputAsItWas) {
    ExpectUntouched(GetJsonVehicleColorType, HostileValues());
}

// ---- kind of a plate

TEST(GetJsonPlateType, ReadsEveryWordInAnyCase) {
    ExpectRows(GetJsonPlateType, {
                                     {0,  "Other"                 },
                                     {1,  "Normal"                },
                                     {2,  "Yellow"                },
                                     {3,  "DoubleYellow"          },
                                     {4,  "Police"                },
                                     {5,  "Armed"                 },
                                     {6,  "Military"              },
                                     {7,  "DoubleMilitary"        },
                                     {8,  "SAR"                   },
                                     {9,  "Trainning"             },
                                     {10, "Personal"              },
                                     {11, "Agri"                  },
                                     {12, "Embassy"               },
                                     {13, "Moto"                  },
                                     {14, "Tractor"               },
                                     {15, "OfficialCar"           },
                                     {16, "PersonalCar"           },
                                     {17, "WarCar"                },
                                     {19, "Civilaviation"         },
                                     {20, "Black"                 },
                                     {21, "PureNewEnergyMicroCar" },
                                     {22, "MixedNewEnergyMicroCar"},
                                     {23, "PureNewEnergyLargeCar" },
                                     {24, "MixedNewEnergyLargeCar"}
    });
}

TEST(GetJsonPlateType, OtherGives0AndNever18) {
    for (const char* word : {"Other", "other", "OTHER", "oTHER"}) EXPECT_EQ(Code(GetJsonPlateType, word), 0) << word;
}

TEST(GetJsonPlateType, TrainningKeepsItsSpelling) {
    EXPECT_EQ(Code(GetJsonPlateType, "Trainning"), 9);
    EXPECT_EQ(Code(GetJsonPlateType, "Training"), kBefore);
}

TEST(GetJsonPlateType, WordsOfOtherVocabulariesLeaveTheOutputAsItWas) {
    ExpectUntouched(GetJsonPlateType, {"Blue", "White", "Motor", "Unknown", "CivilAviation ", "Double Yellow"});
}

TEST(GetJsonPlateType, ValuesThatAreNoWordLeaveTheOutputAsItWas) { ExpectUntouched(GetJsonPlateType, HostileValues()); }

// ---- whether the data are live

static_assert(std::is_same_v<std::underlying_type_t<tagEM_VEHICLE_DATA_TYPE>, int>);

int DataType(const Json::Value& object) {
    auto type = static_cast<tagEM_VEHICLE_DATA_TYPE>(kBefore);
    ParseVehicleDataType(object, type);
    return type;
}

int DataTypeOf(const Json::Value& word) {
    Json::Value object;
    object["DataType"] = word;
    return DataType(object);
}

TEST(ParseVehicleDataType, ReadsEveryWordInAnyCase) {
    EXPECT_EQ(DataTypeOf(""), EM_VEHICLE_DATA_TYPE_UNKNOWN);
    for (const char* word : {"RealTime", "realtime", "REALTIME", "rEALtIME"}) {
        EXPECT_EQ(DataTypeOf(word), EM_VEHICLE_DATA_TYPE_REALTIME) << word;
    }
    for (const char* word : {"History", "history", "HISTORY", "hISTORY"}) {
        EXPECT_EQ(DataTypeOf(word), EM_VEHICLE_DATA_TYPE_HISTORY) << word;
    }
}

TEST(ParseVehicleDataType, TheCodesAre0To2) {
    EXPECT_EQ(EM_VEHICLE_DATA_TYPE_UNKNOWN, 0);
    EXPECT_EQ(EM_VEHICLE_DATA_TYPE_REALTIME, 1);
    EXPECT_EQ(EM_VEHICLE_DATA_TYPE_HISTORY, 2);
}

TEST(ParseVehicleDataType, WithoutDataTypeGives0) {
    EXPECT_EQ(DataType(Json("{}")), 0);
    EXPECT_EQ(DataType(Json(R"({"DataType": null})")), 0);
    EXPECT_EQ(DataType(Json(R"({"datatype": "History"})")), 0);
}

TEST(ParseVehicleDataType, HistoryInSmallLettersGives2) { EXPECT_EQ(DataType(Json(R"({"DataType": "history"})")), 2); }

TEST(ParseVehicleDataType, TheEmptyTextGives0) { EXPECT_EQ(DataType(Json(R"({"DataType": ""})")), 0); }

TEST(ParseVehicleDataType, AnUnknownWordGives0) {
    for (const char* word : {"Historic", "History ", " History", "Real-Time", "RealTimeHistory", "1", "2"}) {
        EXPECT_EQ(DataTypeOf(word), 0) << word;
    }
}

TEST(ParseVehicleDataType, AWordIsTakenUpToItsFirstNul) {
    EXPECT_EQ(DataTypeOf(std::string("History\0RealTime", 16)), 2);
    EXPECT_EQ(DataTypeOf(std::string("\0History", 8)), 0);
}

TEST(ParseVehicleDataType, ATextThatIsCutMatchesNothing) {
    for (const std::size_t length : {62U, 63U, 64U, 65U, 1000U}) {
        std::string word = "History";
        word.resize(length, ' ');
        EXPECT_EQ(DataTypeOf(word), 0) << length;
        EXPECT_EQ(DataTypeOf(std::string(length, '\xE8')), 0) << length;
    }
}

TEST(ParseVehicleDataType, AnyValueThatIsNoSuchWordGives0) {
    for (const Json::Value& value : HostileValues()) {
        EXPECT_NO_THROW(EXPECT_EQ(DataType(value), 0));
        EXPECT_NO_THROW(EXPECT_EQ(DataTypeOf(value), 0));
    }
    EXPECT_EQ(DataTypeOf(Json(R"(["History"])")), 0);
    EXPECT_EQ(DataTypeOf(Json(R"({"DataType": "History"})")), 0);
}

// ---- strobe light

using StateReader = bool (*)(const Json::Value&, unsigned char&);

/// The state, after making sure that the reader returns true.
int State(StateReader read, const Json::Value& value) {
    unsigned char state = 0xA5;
    EXPECT_TRUE(read(value, state));
    return state;
}

TEST(ParseStrobeState, ReadsEveryWordInAnyCase) {
    for (const char* word : {"Close", "close", "CLOSE", "cLOSE"}) EXPECT_EQ(State(ParseStrobeState, word), 1) << word;
    for (const char* word : {"Auto", "auto", "AUTO", "aUTO"}) EXPECT_EQ(State(ParseStrobeState, word), 2) << word;
    for (const char* word : {"Manual", "manual", "MANUAL", "mANUAL"}) {
        EXPECT_EQ(State(ParseStrobeState, word), 3) << word;
    }
}

TEST(ParseStrobeState, AutoInSmallLettersGives2AndTrue) {
    unsigned char state = 0;
    EXPECT_TRUE(ParseStrobeState("auto", state));
    EXPECT_EQ(state, 2);
}

TEST(ParseStrobeState, AnyOtherWordGives0AndTrue) {
    for (const char* word : {"", "Closed", "Open", "Aut", "Automatic", "Manual ", " Manual", "2"}) {
        EXPECT_EQ(State(ParseStrobeState, word), 0) << word;
    }
}

TEST(ParseStrobeState, AWordIsTakenUpToItsFirstNul) {
    EXPECT_EQ(State(ParseStrobeState, std::string("Manual\0x", 8)), 3);
}

TEST(ParseStrobeState, ValuesThatAreNoWordGive0AndTrue) {
    for (const Json::Value& value : HostileValues()) EXPECT_NO_THROW(EXPECT_EQ(State(ParseStrobeState, value), 0));
    EXPECT_EQ(State(ParseStrobeState, Json(R"(["Auto"])")), 0);
}

// ---- seat belt

TEST(ParseSeatBelt, ReadsEveryWordInAnyCase) {
    for (const char* word : {"WithSafeBelt", "withsafebelt", "WITHSAFEBELT", "wITHsAFEbELT"}) {
        EXPECT_EQ(State(ParseSeatBelt, word), 1) << word;
    }
    for (const char* word : {"WithoutSafeBelt", "withoutsafebelt", "WITHOUTSAFEBELT", "wITHOUTsAFEbELT"}) {
        EXPECT_EQ(State(ParseSeatBelt, word), 2) << word;
    }
}

TEST(ParseSeatBelt, AnyOtherWordGives0AndTrue) {
    for (const char* word : {"", "WithSafeBel", "WithSafeBelt ", " WithoutSafeBelt", "WithSeatBelt", "Without", "1"}) {
        EXPECT_EQ(State(ParseSeatBelt, word), 0) << word;
    }
}

TEST(ParseSeatBelt, AWordIsTakenUpToItsFirstNul) {
    EXPECT_EQ(State(ParseSeatBelt, std::string("WithSafeBelt\0x", 14)), 1);
}

TEST(ParseSeatBelt, ValuesThatAreNoWordGive0AndTrue) {
    for (const Json::Value& value : HostileValues()) EXPECT_NO_THROW(EXPECT_EQ(State(ParseSeatBelt, value), 0));
    EXPECT_EQ(State(ParseSeatBelt, Json(R"({"WithSafeBelt": 1})")), 0);
}

static_assert(std::is_same_v<decltype(&ParseSafeBeltStatue), int (*)(std::string)>);

TEST(ParseSafeBeltStatue, ReadsBothWords) {
    EXPECT_EQ(ParseSafeBeltStatue("WithSafeBelt"), 1);
    EXPECT_EQ(ParseSafeBeltStatue("WithoutSafeBelt"), 2);
}

TEST(ParseSafeBeltStatue, CaseCountsUnlikeInParseSeatBelt) {
    EXPECT_EQ(ParseSafeBeltStatue("withsafebelt"), 0);
    EXPECT_EQ(State(ParseSeatBelt, "withsafebelt"), 1);
    EXPECT_EQ(ParseSafeBeltStatue("WithoutSafebelt"), 0);
    EXPECT_EQ(State(ParseSeatBelt, "WithoutSafebelt"), 2);
}

TEST(ParseSafeBeltStatue, LengthCountsBeyondANulToo) {
    for (const std::string& word :
         {std::string("WithSafeBelt\0", 13), std::string("WithSafeBelt\0xx", 15), std::string("WithoutSafeBelt\0", 16),
          std::string("WithSafeBelt "), std::string("WithSafeBel"), std::string(" WithSafeBelt"), std::string()}) {
        EXPECT_EQ(ParseSafeBeltStatue(word), 0) << word;
    }
}

TEST(WordsOfText, AreReadAsThoseOfAValue) {
    using Read = void (*)(const jsonparser::MessagePlace&, int&);
    const struct {
        Read read;
        const char* word;
        int code;
    } rows[] = {
        {GetJsonPlateColorType,   "yellow",  2 },
        {GetJsonVehicleType,      "tractor", 20},
        {GetJsonVehicleColorType, "yellow",  4 },
        {GetJsonPlateType,        "tractor", 14}
    };
    for (const auto& [read, word, code] : rows) {
        const std::string message = "[\"" + std::string(word) + "\",\"no word\"]";
        jsonparser::MessageText text(message);
        int type = kBefore;
        read(text.at("/1"), type);
        EXPECT_EQ(type, kBefore) << word;
        read(text.at("/0"), type);
        EXPECT_EQ(type, code) << word;
    }
}

TEST(StatesOfText, AreLeftAsTheyWereWhereTheMessageIsRefused) {
    jsonparser::MessageText text(R"(["no word"])");
    jsonparser::MessageText refused("[");
    for (const auto read : {static_cast<bool (*)(const jsonparser::MessagePlace&, unsigned char&)>(ParseStrobeState),
                            static_cast<bool (*)(const jsonparser::MessagePlace&, unsigned char&)>(ParseSeatBelt)}) {
        unsigned char state = 77;
        EXPECT_FALSE(read(refused.at(""), state));
        EXPECT_EQ(state, 77);
        EXPECT_TRUE(read(text.at("/0"), state));
        EXPECT_EQ(state, 0);
    }
}

}  // namespace

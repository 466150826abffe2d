#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "testing/json.h"
#include "testing/locale.h"
#include "testing/record.h"
#include "vkprotocolstack/message_text.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::kPattern;
using testing_tools::Placed;
using testing_tools::Utf8Texts;

// Both generations begin with the same fields, so these tests hold for both.

int Parse(const Json::Value& node, tagVK_TRAFFICFLOWSTAT* info) { return ParseTrafficStatInfo(node, info); }
int Parse(const Json::Value& node, tagNET_TRAFFICFLOWSTATINFO* info) { return ParseTrafficStatInfoEx(node, info); }

template <class Record>
constexpr bool kExtended = std::is_same_v<Record, tagNET_TRAFFICFLOWSTATINFO>;

/// The fields that a message changes in Record; the rank is always written.
template <class Record>
Fields Changed(Fields fields) {
    if (kExtended<Record>) fields.emplace_back("emRank");
    return fields;
}

/// The bytes of a prefilled record that has been read from a message without "Rank", with texts put in by hand.
template <class Record>
class Bytes {
  public:
    Bytes() : bytes_(sizeof(Record), static_cast<char>(kPattern)) {
        if (kExtended<Record>) put(720, std::string(4, '\0'));
    }
    Bytes& put(std::size_t offset, const std::string& bytes) {
        bytes_.replace(offset, bytes.size(), bytes);
        return *this;
    }
    testing::AssertionResult areIn(Placed<Record>& record) const {
        for (std::size_t i = 0; i < bytes_.size(); ++i) {
            const auto expected = static_cast<unsigned char>(bytes_[i]);
            if (record.bytes()[i] == expected) continue;
            return testing::AssertionFailure()
                   << "byte " << i << " is " << int{record.bytes()[i]} << ", not " << int{expected};
        }
        return testing::AssertionSuccess();
    }

  private:
    std::string bytes_;
};

std::string Times(std::size_t count, char letter) { return std::string(count, letter); }
const std::string kNul(1, '\0');

Json::Value With(const std::string& name, const Json::Value& value) {
    Json::Value message;
    message[name] = value;
    return message;
}

/// A message with these driving directions only.
Json::Value WithDirections(const std::vector<Json::Value>& directions) {
    Json::Value message;
    Json::Value& array = message["DrivingDirection"] = Json::Value(Json::arrayValue);
    for (const Json::Value& direction : directions) array.append(direction);
    return message;
}

template <class Record>
class FlowStatistics : public testing::Test {};

using Generations = testing::Types<tagVK_TRAFFICFLOWSTAT, tagNET_TRAFFICFLOWSTATINFO>;
TYPED_TEST_SUITE(FlowStatistics, Generations);

constexpr const char* kEveryMember = R"({
    "MachineAddress": "高架路 1", "MachineName": "ITC-0042", "DrivingDirection": ["Approach", "南京路", "人民广场"],
    "Lane": 2, "UTC": 1704447000, "UTCMS": 250, "Period": 3, "Vehicles": 4, "AverageSpeed": 55.5,
    "AverageLength": 4.25, "TimeOccupyRatio": 0.5, "SpaceOccupyRatio": 0.25, "SpaceHeadway": 21.5, "TimeHeadway": 1.75,
    "Density": 17.125, "OverSpeedVehicles": 5, "UnderSpeedVehicles": 6, "LargeVehicles": 7, "MediumVehicles": 8,
    "SmallVehicles": 9, "MotoVehicles": 10, "LongVehicles": 11, "BackOfQueue": 120.25, "Rank": "Branch", "State": 12})";

TYPED_TEST(FlowStatistics, ReadsEveryMember) {
    const Utf8Texts utf8;
    Placed<TypeParam> info;
    EXPECT_EQ(Parse(Json(kEveryMember), info.get()), 0);
    EXPECT_STREQ(info->szMachineAddress, "高架路 1");
    EXPECT_STREQ(info->szMachineName, "ITC-0042");
    EXPECT_STREQ(info->szDrivingDirection[0], "Approach");
    EXPECT_STREQ(info->szDrivingDirection[1], "南京路");
    EXPECT_STREQ(info->szDrivingDirection[2], "人民广场");
    EXPECT_EQ(info->nLane, 2);
    EXPECT_EQ(info->stuTime.dwYear, 2024U);
    EXPECT_EQ(info->stuTime.dwMonth, 1U);
    EXPECT_EQ(info->stuTime.dwDay, 5U);
    EXPECT_EQ(info->stuTime.dwHour, 9U);
    EXPECT_EQ(info->stuTime.dwMinute, 30U);
    EXPECT_EQ(info->stuTime.dwSecond, 0U);
    EXPECT_EQ(info->stuTime.dwMillisecond, 250U);
    EXPECT_EQ(info->stuTime.dwUTC, 0U);
    EXPECT_EQ(info->stuTime.dwReserved, 0U);
    EXPECT_EQ(info->nPeriod, 3);
    EXPECT_EQ(info->nVehicles, 4);
    EXPECT_EQ(info->fAverageSpeed, 55.5F);
    EXPECT_EQ(info->fAverageLength, 4.25F);
    EXPECT_EQ(info->fTimeOccupyRatio, 0.5F);
    EXPECT_EQ(info->fSpaceOccupyRatio, 0.25F);
    EXPECT_EQ(info->fSpaceHeadway, 21.5F);
    EXPECT_EQ(info->fTimeHeadway, 1.75F);
    EXPECT_EQ(info->fDensity, 17.125F);
    EXPECT_EQ(info->nOverSpeedVehicles, 5);
    EXPECT_EQ(info->nUnderSpeedVehicles, 6);
    EXPECT_EQ(info->nLargeVehicles, 7);
    EXPECT_EQ(info->nMediumVehicles, 8);
    EXPECT_EQ(info->nSmallVehicles, 9);
    EXPECT_EQ(info->nMotoVehicles, 10);
    EXPECT_EQ(info->nLongVehicles, 11);
    if constexpr (kExtended<TypeParam>) {
        EXPECT_EQ(info->dBackOfQueue, 120.25);
        EXPECT_EQ(info->emRank, 4);
        EXPECT_EQ(info->nState, 12);
    }
}

TYPED_TEST(FlowStatistics, ANullRecordGivesMinus1) {
    EXPECT_EQ(Parse(Json(kEveryMember), static_cast<TypeParam*>(nullptr)), -1);
    EXPECT_EQ(Parse(Json("null"), static_cast<TypeParam*>(nullptr)), -1);
}

TYPED_TEST(FlowStatistics, VehiclesAloneChangesNothingElse) {
    Placed<TypeParam> info;
    EXPECT_EQ(Parse(Json(R"({"Vehicles": 12})"), info.get()), 0);
    EXPECT_EQ(info->nVehicles, 12);
    EXPECT_EQ(info.changedFields(), Changed<TypeParam>({"nVehicles"}));
}

TYPED_TEST(FlowStatistics, AMessageWithoutMembersLeavesTheRecordUntouched) {
    for (const char* text : {"{}", "null", "[]", "[1, 2]", "7", "1.5", "true", R"("Lane")", R"({"lane": 1})"}) {
        Placed<TypeParam> info;
        EXPECT_EQ(Parse(Json(text), info.get()), 0) << text;
        EXPECT_EQ(info.changedFields(), Changed<TypeParam>({})) << text;
    }
}

TYPED_TEST(FlowStatistics, EachMemberAloneChangesItsOwnFieldOnly) {
    const struct {
        const char* member;
        const char* value;
        const char* field;
    } rows[] = {
        {"MachineAddress",     R"("a")",   "szMachineAddress"   },
        {"MachineName",        R"("a")",   "szMachineName"      },
        {"DrivingDirection",   R"(["a"])", "szDrivingDirection" },
        {"Lane",               "1",        "nLane"              },
        {"UTCMS",              "1",        "stuTime"            },
        {"Period",             "1",        "nPeriod"            },
        {"Vehicles",           "1",        "nVehicles"          },
        {"AverageSpeed",       "1",        "fAverageSpeed"      },
        {"AverageLength",      "1",        "fAverageLength"     },
        {"TimeOccupyRatio",    "1",        "fTimeOccupyRatio"   },
        {"SpaceOccupyRatio",   "1",        "fSpaceOccupyRatio"  },
        {"SpaceHeadway",       "1",        "fSpaceHeadway"      },
        {"TimeHeadway",        "1",        "fTimeHeadway"       },
        {"Density",            "1",        "fDensity"           },
        {"OverSpeedVehicles",  "1",        "nOverSpeedVehicles" },
        {"UnderSpeedVehicles", "1",        "nUnderSpeedVehicles"},
        {"LargeVehicles",      "1",        "nLargeVehicles"     },
        {"MediumVehicles",     "1",        "nMediumVehicles"    },
        {"SmallVehicles",      "1",        "nSmallVehicles"     },
        {"MotoVehicles",       "1",        "nMotoVehicles"      },
        {"LongVehicles",       "1",        "nLongVehicles"      },
    };
    for (const auto& row : rows) {
        Placed<TypeParam> info;
        Parse(With(row.member, Json(row.value)), info.get());
        const std::string field = std::string(row.field) == "stuTime" ? "stuTime.dwMillisecond" : row.field;
        EXPECT_EQ(info.changedFields(), Changed<TypeParam>({field})) << row.member;

        Placed<TypeParam> untouched;
        Parse(With(row.member, Json::Value()), untouched.get());
        EXPECT_EQ(untouched.changedFields(), Changed<TypeParam>({})) << row.member;
    }
}

TYPED_TEST(FlowStatistics, IntegersKeepTheirLow32BitsAndWhatIsNoNumberReadsAs0) {
    const struct {
        const char* json;
        int value;
    } rows[] = {
        {"0",            0              },
        {"-1",           -1             },
        {"2147483647",   2147483647     },
        {"-2147483648",  -2147483647 - 1},
        {"2147483648",   -2147483647 - 1},
        {"4294967295",   -1             },
        {"4294967297",   1              },
        {"4026990592",   -267976704     },
        {"2.9",          2              },
        {"-2.9",         -2             },
        {"1e300",        2147483647     },
        {"-1e300",       -2147483647 - 1},
        {"true",         1              },
        {"false",        0              },
        {R"("12")",      0              },
        {"[12]",         0              },
        {R"({"a": 12})", 0              }
    };
    const struct {
        const char* member;
        int TypeParam::*field;
    } members[] = {
        {"Lane",               &TypeParam::nLane              },
        {"Period",             &TypeParam::nPeriod            },
        {"Vehicles",           &TypeParam::nVehicles          },
        {"OverSpeedVehicles",  &TypeParam::nOverSpeedVehicles },
        {"UnderSpeedVehicles", &TypeParam::nUnderSpeedVehicles},
        {"LargeVehicles",      &TypeParam::nLargeVehicles     },
        {"MediumVehicles",     &TypeParam::nMediumVehicles    },
        {"SmallVehicles",      &TypeParam::nSmallVehicles     },
        {"MotoVehicles",       &TypeParam::nMotoVehicles      },
        {"LongVehicles",       &TypeParam::nLongVehicles      },
    };
    for (const auto& member : members) {
        for (const auto& row : rows) {
            Placed<TypeParam> info;
            Parse(With(member.member, Json(row.json)), info.get());
            EXPECT_EQ((*info).*member.field, row.value) << member.member << ' ' << row.json;
        }
    }
}

TYPED_TEST(FlowStatistics, RealsAreNarrowedToFloats) {
    const struct {
        const char* json;
        float value;
    } rows[] = {
        {"55.5",        55.5F                                 },
        {"0.1",         0.1F                                  },
        {"-3",          -3.0F                                 },
        {"16777217",    16777216.0F                           },
        {"1e300",       std::numeric_limits<float>::infinity()},
        {"true",        1.0F                                  },
        {R"("55.5")",   0.0F                                  },
        {"[55.5]",      0.0F                                  },
        {R"({"a": 1})", 0.0F                                  }
    };
    const struct {
        const char* member;
        float TypeParam::*field;
    } members[] = {
        {"AverageSpeed",     &TypeParam::fAverageSpeed    },
        {"AverageLength",    &TypeParam::fAverageLength   },
        {"TimeOccupyRatio",  &TypeParam::fTimeOccupyRatio },
        {"SpaceOccupyRatio", &TypeParam::fSpaceOccupyRatio},
        {"SpaceHeadway",     &TypeParam::fSpaceHeadway    },
        {"TimeHeadway",      &TypeParam::fTimeHeadway     },
        {"Density",          &TypeParam::fDensity         },
    };
    for (const auto& member : members) {
        for (const auto& row : rows) {
            Placed<TypeParam> info;
            Parse(With(member.member, Json(row.json)), info.get());
            EXPECT_EQ((*info).*member.field, row.value) << member.member << ' ' << row.json;
        }
    }
}

TYPED_TEST(FlowStatistics, AverageSpeed55AndAHalfIsStoredAsFloat) {
    Placed<TypeParam> info;
    Parse(Json(R"({"AverageSpeed": 55.5})"), info.get());
    EXPECT_EQ(info->fAverageSpeed, 55.5F);
}

// ---- time

TYPED_TEST(FlowStatistics, Utc0AndUtcms250Give1970To250Milliseconds) {
    Placed<TypeParam> info;
    Parse(Json(R"({"UTC": 0, "UTCMS": 250})"), info.get());
    EXPECT_EQ(info->stuTime.dwYear, 1970U);
    EXPECT_EQ(info->stuTime.dwMonth, 1U);
    EXPECT_EQ(info->stuTime.dwDay, 1U);
    EXPECT_EQ(info->stuTime.dwHour, 0U);
    EXPECT_EQ(info->stuTime.dwMinute, 0U);
    EXPECT_EQ(info->stuTime.dwSecond, 0U);
    EXPECT_EQ(info->stuTime.dwMillisecond, 250U);
}

TYPED_TEST(FlowStatistics, UtcReplacesTheWholeTime) {
    Placed<TypeParam> info;
    Parse(Json(R"({"UTC": 1704447001})"), info.get());
    EXPECT_EQ(info->stuTime.dwSecond, 1U);
    EXPECT_EQ(info->stuTime.dwMillisecond, 0U);
    EXPECT_EQ(info->stuTime.dwUTC, 0U);
    EXPECT_EQ(info->stuTime.dwReserved, 0U);
    EXPECT_EQ(
        info.changedFields(),
        Changed<TypeParam>({"stuTime.dwYear", "stuTime.dwMonth", "stuTime.dwDay", "stuTime.dwHour", "stuTime.dwMinute",
                            "stuTime.dwSecond", "stuTime.dwMillisecond", "stuTime.dwUTC", "stuTime.dwReserved"}));
}

TYPED_TEST(FlowStatistics, UtcmsAloneChangesTheMillisecondsOnly) {
    Placed<TypeParam> info;
    Parse(Json(R"({"UTCMS": 999})"), info.get());
    EXPECT_EQ(info->stuTime.dwMillisecond, 999U);
    EXPECT_EQ(info.changedFields(), Changed<TypeParam>({"stuTime.dwMillisecond"}));
}

TYPED_TEST(FlowStatistics, UtcIsReadUnsigned) {
    const struct {
        const char* json;
        unsigned year, month, day, hour, minute, second;
    } rows[] = {
        {"2147483647", 2038, 1, 19, 3, 14, 7 },
        {"2147483648", 2038, 1, 19, 3, 14, 8 },
        {"4294967295", 2106, 2, 7,  6, 28, 15},
        {"4294967296", 1970, 1, 1,  0, 0,  0 },
        {"-1",         2106, 2, 7,  6, 28, 15},
        {"-0.5",       1970, 1, 1,  0, 0,  0 },
        {"-7.0",       1970, 1, 1,  0, 0,  0 },
        {"86400.9",    1970, 1, 2,  0, 0,  0 },
        {"1e300",      2106, 2, 7,  6, 28, 15},
        {"true",       1970, 1, 1,  0, 0,  1 },
        {R"("86400")", 1970, 1, 1,  0, 0,  0 },
        {"[]",         1970, 1, 1,  0, 0,  0 }
    };
    for (const auto& row : rows) {
        Placed<TypeParam> info;
        Parse(With("UTC", Json(row.json)), info.get());
        EXPECT_EQ(info->stuTime.dwYear, row.year) << row.json;
        EXPECT_EQ(info->stuTime.dwMonth, row.month) << row.json;
        EXPECT_EQ(info->stuTime.dwDay, row.day) << row.json;
        EXPECT_EQ(info->stuTime.dwHour, row.hour) << row.json;
        EXPECT_EQ(info->stuTime.dwMinute, row.minute) << row.json;
        EXPECT_EQ(info->stuTime.dwSecond, row.second) << row.json;
    }
}

TYPED_TEST(FlowStatistics, UtcmsIsReadUnsigned) {
    const struct {
        const char* json;
        unsigned milliseconds;
    } rows[] = {
        {"0",          0          },
        {"1000",       1000       },
        {"4294967295", 4294967295U},
        {"4294967296", 0          },
        {"-1",         4294967295U},
        {"-2.5",       0          },
        {"2.5",        2          },
        {"1e300",      4294967295U},
        {R"("7")",     0          }
    };
    for (const auto& row : rows) {
        Placed<TypeParam> info;
        Parse(With("UTCMS", Json(row.json)), info.get());
        EXPECT_EQ(info->stuTime.dwMillisecond, row.milliseconds) << row.json;
    }
}

// ---- driving directions

TYPED_TEST(FlowStatistics, OneDirectionFillsTheFirstSlotAndLeavesTheOthers) {
    Placed<TypeParam> info;
    Parse(WithDirections({"Approach"}), info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(512, "Approach" + kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, TwoDirectionsLeaveTheThirdSlot) {
    Placed<TypeParam> info;
    Parse(WithDirections({"Approach", "east"}), info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(512, "Approach" + kNul).put(544, "east" + kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, DirectionsBeyondTheThirdAreNotRead) {
    Placed<TypeParam> info;
    Parse(WithDirections({"a", "b", "c", "d", "e"}), info.get());
    EXPECT_STREQ(info->szDrivingDirection[0], "a");
    EXPECT_STREQ(info->szDrivingDirection[1], "b");
    EXPECT_STREQ(info->szDrivingDirection[2], "c");
    EXPECT_EQ(info.changedFields(), Changed<TypeParam>({"szDrivingDirection"}));
}

TYPED_TEST(FlowStatistics, NullDirectionsEmptyTheFirstSlotAndLeaveTheOthers) {
    Placed<TypeParam> info;
    Parse(WithDirections({Json::Value(), Json::Value(), Json::Value()}), info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(512, kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, DirectionsThatAreNoArrayOrAnEmptyOneEmptyTheFirstSlotAndLeaveTheOthers) {
    for (const char* text : {"[]", "{}", R"({"0": "a"})", R"("Approach")", "7", "true"}) {
        Placed<TypeParam> info;
        Parse(With("DrivingDirection", Json(text)), info.get());
        EXPECT_TRUE(Bytes<TypeParam>().put(512, kNul).areIn(info)) << text;
    }
}

TYPED_TEST(FlowStatistics, DirectionsThatAreNoTextsReadAsTheirText) {
    Placed<TypeParam> info;
    Parse(Json(R"({"DrivingDirection": [7, true, [1]]})"), info.get());
    EXPECT_STREQ(info->szDrivingDirection[0], "7");
    EXPECT_STREQ(info->szDrivingDirection[1], "true");
    EXPECT_STREQ(info->szDrivingDirection[2], "");
}

TYPED_TEST(FlowStatistics, TextsAreTakenUpToTheirFirstNul) {
    Placed<TypeParam> info;
    Json::Value message = WithDirections({std::string("a\0x", 3), std::string("b\0x", 3), std::string("c\0x", 3)});
    message["MachineAddress"] = std::string("d\0x", 3);
    message["MachineName"] = std::string("\0x", 2);
    Parse(message, info.get());
    EXPECT_TRUE(Bytes<TypeParam>()
                    .put(0, "d" + kNul)
                    .put(256, kNul)
                    .put(512, "a" + kNul)
                    .put(544, "b" + kNul)
                    .put(576, "c" + kNul)
                    .areIn(info));
}

// ---- texts at the borders of their fields, byte for byte: the address is at 0, the name at 256, the directions at
// 512, 544 and 576, the lane at 608

TYPED_TEST(FlowStatistics, AMachineAddressOf255BytesStaysInItsField) {
    Placed<TypeParam> info;
    Parse(With("MachineAddress", Times(255, 'a')), info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(0, Times(255, 'a') + kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, AMachineAddressOf256BytesErasesTheMachineNameThatIsMissing) {
    for (const std::size_t length : {256U, 257U, 5000U}) {
        Placed<TypeParam> info;
        Parse(With("MachineAddress", Times(length, 'a')), info.get());
        EXPECT_TRUE(Bytes<TypeParam>().put(0, Times(256, 'a') + kNul).areIn(info)) << length;
    }
}

TYPED_TEST(FlowStatistics, AMachineAddressOf256BytesRunsOnIntoTheMachineNameThatIsReadLater) {
    Placed<TypeParam> info;
    Json::Value message = With("MachineAddress", Times(256, 'a'));
    message["MachineName"] = "name";
    Parse(message, info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(0, Times(256, 'a') + "name" + kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, AMachineNameOf255BytesStaysInItsField) {
    Placed<TypeParam> info;
    Parse(With("MachineName", Times(255, 'b')), info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(256, Times(255, 'b') + kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, AMachineNameOf256BytesErasesTheFirstDirection) {
    for (const std::size_t length : {256U, 257U, 5000U}) {
        Placed<TypeParam> info;
        Json::Value message = WithDirections({"Approach"});
        message["MachineName"] = Times(length, 'b');
        Parse(message, info.get());
        EXPECT_TRUE(Bytes<TypeParam>().put(256, Times(256, 'b') + kNul + "pproach" + kNul).areIn(info)) << length;
    }
}

TYPED_TEST(FlowStatistics, AMachineNameOf256BytesErasesAFirstDirectionThatIsMissing) {
    Placed<TypeParam> info;
    Parse(With("MachineName", Times(256, 'b')), info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(256, Times(256, 'b') + kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, AFirstDirectionIsCutTo31Bytes) {
    for (const std::size_t length : {31U, 32U, 33U, 5000U}) {
        Placed<TypeParam> info;
        Parse(WithDirections({Times(length, 'c')}), info.get());
        EXPECT_TRUE(Bytes<TypeParam>().put(512, Times(31, 'c') + kNul).areIn(info)) << length;
    }
    Placed<TypeParam> info;
    Parse(WithDirections({Times(30, 'c')}), info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(512, Times(30, 'c') + kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, ASecondDirectionOf31BytesStaysInItsSlot) {
    Placed<TypeParam> info;
    Parse(WithDirections({"", Times(31, 'd')}), info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(512, kNul).put(544, Times(31, 'd') + kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, ASecondDirectionOf32BytesErasesAThirdThatIsMissing) {
    for (const std::size_t length : {32U, 33U, 5000U}) {
        Placed<TypeParam> info;
        Parse(WithDirections({"", Times(length, 'd')}), info.get());
        EXPECT_TRUE(Bytes<TypeParam>().put(512, kNul).put(544, Times(32, 'd') + kNul).areIn(info)) << length;

        Placed<TypeParam> withNull;
        Parse(WithDirections({"", Times(length, 'd'), Json::Value()}), withNull.get());
        EXPECT_TRUE(Bytes<TypeParam>().put(512, kNul).put(544, Times(32, 'd') + kNul).areIn(withNull)) << length;
    }
}

TYPED_TEST(FlowStatistics, ASecondDirectionOf32BytesRunsOnIntoTheThirdThatIsReadLater) {
    Placed<TypeParam> info;
    Parse(WithDirections({"", Times(32, 'd'), "to"}), info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(512, kNul).put(544, Times(32, 'd') + "to" + kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, AThirdDirectionOf31BytesStaysInItsSlot) {
    Placed<TypeParam> info;
    Parse(WithDirections({"", Json::Value(), Times(31, 'e')}), info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(512, kNul).put(576, Times(31, 'e') + kNul).areIn(info));
}

TYPED_TEST(FlowStatistics, AThirdDirectionOf32BytesZeroesTheLowByteOfALaneThatIsMissing) {
    for (const std::size_t length : {32U, 33U, 5000U}) {
        Placed<TypeParam> info;
        Parse(WithDirections({"", Json::Value(), Times(length, 'e')}), info.get());
        EXPECT_TRUE(Bytes<TypeParam>().put(512, kNul).put(576, Times(32, 'e') + kNul).areIn(info)) << length;
        EXPECT_EQ(static_cast<unsigned>(info->nLane), 0xA5A5A500U) << length;
    }
}

TYPED_TEST(FlowStatistics, AThirdDirectionOf32BytesRunsOnIntoTheLaneThatIsReadLater) {
    Placed<TypeParam> info;
    Json::Value message = WithDirections({"", Json::Value(), Times(32, 'e')});
    message["Lane"] = 0x01020304;
    Parse(message, info.get());
    EXPECT_TRUE(Bytes<TypeParam>().put(512, kNul).put(576, Times(32, 'e') + "\x04\x03\x02\x01").areIn(info));
}

TYPED_TEST(FlowStatistics, TextsThatAllFillTheirFieldsKeepOneTerminator) {
    Placed<TypeParam> info;
    Json::Value message = WithDirections({Times(32, 'c'), Times(32, 'd'), Times(32, 'e')});
    message["MachineAddress"] = Times(256, 'a');
    message["MachineName"] = Times(256, 'b');
    message["Lane"] = 0x04030201;
    Parse(message, info.get());
    EXPECT_TRUE(Bytes<TypeParam>()
                    .put(0, Times(256, 'a') + Times(256, 'b') + kNul + Times(30, 'c') + kNul + Times(32, 'd') +
                                Times(32, 'e') + "\x01\x02\x03\x04")
                    .areIn(info));
}

TYPED_TEST(FlowStatistics, TextsAreCutBetweenBytesNotCharacters) {
    const Utf8Texts utf8;
    Placed<TypeParam> info;
    std::string road;
    for (int i = 0; i < 100; ++i) road += "路";
    Json::Value message = WithDirections({road, road, road});
    message["MachineAddress"] = road;
    message["MachineName"] = road;
    message["Lane"] = 0x04030201;
    Parse(message, info.get());
    EXPECT_TRUE(Bytes<TypeParam>()
                    .put(0, road.substr(0, 256) + road.substr(0, 256) + kNul + road.substr(1, 30) + kNul +
                                road.substr(0, 32) + road.substr(0, 32) + "\x01\x02\x03\x04")
                    .areIn(info));
}

// ---- any value

TYPED_TEST(FlowStatistics, AnyValueIsReadInsideTheRecord) {
    const char* const members[] = {
        "MachineAddress",
        "MachineName",
        "DrivingDirection",
        "Lane",
        "UTC",
        "UTCMS",
        "Period",
        "Vehicles",
        "AverageSpeed",
        "AverageLength",
        "TimeOccupyRatio",
        "SpaceOccupyRatio",
        "SpaceHeadway",
        "TimeHeadway",
        "Density",
        "OverSpeedVehicles",
        "UnderSpeedVehicles",
        "LargeVehicles",
        "MediumVehicles",
        "SmallVehicles",
        "MotoVehicles",
        "LongVehicles",
        "BackOfQueue",
        "Rank",
        "State",
    };
    for (const Json::Value& value : HostileValues()) {
        Placed<TypeParam> root;
        EXPECT_NO_THROW(EXPECT_EQ(Parse(value, root.get()), 0));
        Json::Value all;
        for (const char* member : members) {
            Placed<TypeParam> info;
            EXPECT_NO_THROW(EXPECT_EQ(Parse(With(member, value), info.get()), 0)) << member;
            all[member] = value;
        }
        Placed<TypeParam> info;
        EXPECT_NO_THROW(EXPECT_EQ(Parse(all, info.get()), 0));
        for (std::size_t slot = 0; slot < 3; ++slot) {
            Placed<TypeParam> directions;
            std::vector<Json::Value> array(3);
            array[slot] = value;
            EXPECT_NO_THROW(EXPECT_EQ(Parse(WithDirections(array), directions.get()), 0)) << slot;
        }
    }
}

// ---- the fields that only the extended record has

TEST(ParseTrafficStatInfoEx, BeginsLikeTheOtherRecord) {
    // What a record of the one kind holds, one of the other holds at the same place.
    for (const char* text : {kEveryMember, "{}", R"({"UTC": 1, "DrivingDirection": ["a", "b", "c"]})"}) {
        Placed<tagVK_TRAFFICFLOWSTAT> info;
        Placed<tagNET_TRAFFICFLOWSTATINFO> extended;
        EXPECT_EQ(ParseTrafficStatInfo(Json(text), info.get()), 0);
        EXPECT_EQ(ParseTrafficStatInfoEx(Json(text), extended.get()), 0);
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(info.bytes()), 712),
                  std::string(reinterpret_cast<const char*>(extended.bytes()), 712))
            << text;
    }
}

int Rank(const Json::Value& message) {
    Placed<tagNET_TRAFFICFLOWSTATINFO> info;
    EXPECT_EQ(ParseTrafficStatInfoEx(message, info.get()), 0);
    return info->emRank;
}

TEST(ParseTrafficStatInfoEx, ReadsEveryRank) {
    EXPECT_EQ(Rank(With("Rank", "")), 0);
    EXPECT_EQ(Rank(With("Rank", "Rapid")), 1);
    EXPECT_EQ(Rank(With("Rank", "Trunk")), 2);
    EXPECT_EQ(Rank(With("Rank", "SubTrunk")), 3);
    EXPECT_EQ(Rank(With("Rank", "Branch")), 4);
}

TEST(ParseTrafficStatInfoEx, RankMustBeExact) {
    for (const char* word :
         {"subtrunk", "SUBTRUNK", "Subtrunk", "SubTrunk ", " SubTrunk", "SubTrun", "rapid", "Other"}) {
        EXPECT_EQ(Rank(With("Rank", word)), 0) << word;
    }
    EXPECT_EQ(Rank(With("Rank", std::string("SubTrunk\0", 9))), 0);
    EXPECT_EQ(Rank(With("Rank", std::string("\0SubTrunk", 9))), 0);
}

TEST(ParseTrafficStatInfoEx, RankIs0WhenItIsMissing) {
    for (const char* text : {"{}", "null", R"({"Rank": null})", R"({"rank": "Rapid"})", "[]", R"("Rapid")"}) {
        EXPECT_EQ(Rank(Json(text)), 0) << text;
    }
}

TEST(ParseTrafficStatInfoEx, ARankThatIsNoTextGives0) {
    for (const Json::Value& value : HostileValues()) EXPECT_EQ(Rank(With("Rank", value)), 0);
    EXPECT_EQ(Rank(With("Rank", Json(R"(["Rapid"])"))), 0);
}

TEST(ParseTrafficStatInfoEx, RankAloneChangesItsOwnFieldOnly) {
    Placed<tagNET_TRAFFICFLOWSTATINFO> info;
    ParseTrafficStatInfoEx(With("Rank", "Trunk"), info.get());
    EXPECT_EQ(info->emRank, 2);
    EXPECT_EQ(info.changedFields(), Fields{"emRank"});
}

TEST(ParseTrafficStatInfoEx, BackOfQueueIsStoredAsADouble) {
    const struct {
        const char* json;
        double value;
    } rows[] = {
        {"120.25",    120.25  },
        {"0.1",       0.1     },
        {"16777217",  16777217},
        {"-1e300",    -1e300  },
        {"true",      1       },
        {R"("12.5")", 0       },
        {"[12.5]",    0       }
    };
    for (const auto& row : rows) {
        Placed<tagNET_TRAFFICFLOWSTATINFO> info;
        ParseTrafficStatInfoEx(With("BackOfQueue", Json(row.json)), info.get());
        EXPECT_EQ(info->dBackOfQueue, row.value) << row.json;
        EXPECT_EQ(info.changedFields(), (Fields{"dBackOfQueue", "emRank"})) << row.json;
    }
}

TEST(ParseTrafficStatInfoEx, StateAloneChangesItsOwnFieldAndTheRank) {
    const struct {
        const char* json;
        int value;
    } rows[] = {
        {"5",          5         },
        {"-1",         -1        },
        {"4294967298", 2         },
        {"2.9",        2         },
        {"1e300",      2147483647},
        {R"("5")",     0         }
    };
    for (const auto& row : rows) {
        Placed<tagNET_TRAFFICFLOWSTATINFO> info;
        ParseTrafficStatInfoEx(With("State", Json(row.json)), info.get());
        EXPECT_EQ(info->nState, row.value) << row.json;
        EXPECT_EQ(info.changedFields(), (Fields{"emRank", "nState"})) << row.json;
    }
}

TEST(FlowStatisticsOfText, ANullRecordGivesMinus1) {
    jsonparser::MessageText text("{}");
    EXPECT_EQ(ParseTrafficStatInfo(text.at(""), nullptr), -1);
    EXPECT_EQ(ParseTrafficStatInfoEx(text.at(""), nullptr), -1);
}

}  // namespace

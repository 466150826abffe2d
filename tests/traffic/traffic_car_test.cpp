#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "testing/json.h"
#include "testing/locale.h"
#include "testing/record.h"
#include "vkprotocolstack/message_text.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Text;
using testing_tools::Utf8Texts;

using Info = tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO;

/// A placed record that releases its heap texts.
class Car : public testing_tools::Placed<Info> {
  public:
    Car() = default;
    explicit Car(const std::string& json) { read(json); }
    ~Car() {
        if (filled_) jsonparser::ReleaseTexts(**this);
    }

    int read(const std::string& json) {
        Json::Value node = Json(json);
        return read(node);
    }
    int read(Json::Value& node) {
        if (filled_) jsonparser::ReleaseTexts(**this);
        filled_ = true;
        return ParseStrtoTrafficCar(node, get());
    }

  private:
    bool filled_ = false;
};

Json::Value With(const char* name, const Json::Value& value) {
    Json::Value node;
    node[name] = value;
    return node;
}

constexpr const char* kFull = R"({
    "PlateNumber": "plate", "PlateType": "type", "PlateColor": "plate colour", "VehicleColor": "body colour", "Speed": 101,
    "Event": "event", "ViolationCode": "code", "ViolationDesc": "description", "ViolationName": "violation",
    "LowerSpeedLimit": 102, "UpperSpeedLimit": 103, "OverSpeedMargin": 104, "UnderSpeedMargin": 105, "Lane": 106,
    "CustomParkNo": "park", "VehicleSize": "Minisize", "VehicleLength": 4.5, "DrivingDirection": ["a", "b", "c"],
    "SnapshotMode": 107, "ChannelName": "channel", "MachineName": "machine", "MachineGroup": "group", "RoadwayNo": "road",
    "CustomRoadwayDirection": "roadway direction", "DeviceAddress": "device address",
    "DetailedAddress": "detailed address", "VehicleSign": "sign", "Redundance": [11, 12, 13, 14, 15, 16, 17, 18],
    "MachineAddress": "machine address", "ActualShutter": 2.25, "ActualGain": 51, "Direction": 3, "DefendCode": "defend",
    "TrafficBlackListID": 108, "VehicleColorRGB": [21, 22, 23, 24], "UTC": 1704447000, "RecNo": 4000000000,
    "StereoGarage": {"DeckNo": 31, "FreeDeckCount": 32, "FullDeckCount": 33, "TotalDeckCount": 34}, "Weight": 109,
    "PhysicalLane": 52, "MovingDirection": 4000000001, "EleTagInfoUTC": 1,
    "CarWindow": {"BoundingBox": [41, -42, 43, 44]}})";

TEST(ParseStrtoTrafficCar, ReadsEveryMember) {
    Car car;
    EXPECT_EQ(car.read(kFull), 0);
    EXPECT_STREQ(car->szPlateNumber, "plate");
    EXPECT_STREQ(car->szPlateTypeText, "type");
    EXPECT_STREQ(car->szPlateColor, "plate colour");
    EXPECT_STREQ(car->szVehicleColor, "body colour");
    EXPECT_EQ(car->nSpeed, 101);
    EXPECT_STREQ(car->szEvent, "event");
    EXPECT_STREQ(car->szViolationCode, "code");
    EXPECT_STREQ(car->szViolationDesc, "description");
    EXPECT_EQ(car->nLowerSpeedLimit, 102);
    EXPECT_EQ(car->nUpperSpeedLimit, 103);
    EXPECT_EQ(car->nOverSpeedMargin, 104);
    EXPECT_EQ(car->nUnderSpeedMargin, 105);
    EXPECT_EQ(car->nLane, 106);
    EXPECT_EQ(car->nVehicleSize, 8);
    EXPECT_EQ(car->fVehicleLength, 4.5F);
    EXPECT_EQ(car->nSnapshotMode, 107);
    EXPECT_STREQ(car->szChannelName, "channel");
    EXPECT_STREQ(car->szMachineName, "machine");
    EXPECT_STREQ(car->szMachineGroup, "group");
    EXPECT_STREQ(car->szRoadwayNo, "road");
    EXPECT_STREQ(car->szDrivingDirection[0], "a");
    EXPECT_STREQ(car->szDrivingDirection[1], "b");
    EXPECT_STREQ(car->szDrivingDirection[2], "c");
    EXPECT_STREQ(car->pszDeviceAddress, "device address");
    EXPECT_STREQ(car->szVehicleSign, "sign");
    for (int i = 0; i < 8; ++i) EXPECT_EQ(car->byRedundance[i], 11 + i);
    EXPECT_STREQ(car->pszMachineAddress, "machine address");
    EXPECT_EQ(car->fActualShutter, 2.25F);
    EXPECT_EQ(car->byActualGain, 51);
    EXPECT_EQ(car->byDirection, 3);
    EXPECT_STREQ(car->pszDetailedAddress, "detailed address");
    EXPECT_STREQ(car->szDefendCode, "defend");
    EXPECT_EQ(car->nTrafficBlackListID, 108);
    for (unsigned i = 0; i < 4; ++i) EXPECT_EQ(car->dwVehicleColorRGB[i], 21 + i);
    EXPECT_EQ(car->stuUTC.dwYear, 2024U);
    EXPECT_EQ(car->stuUTC.dwMonth, 1U);
    EXPECT_EQ(car->stuUTC.dwDay, 5U);
    EXPECT_EQ(car->stuUTC.dwHour, 9U);
    EXPECT_EQ(car->stuUTC.dwMinute, 30U);
    EXPECT_EQ(car->stuUTC.dwSecond, 0U);
    EXPECT_EQ(car->dwRecNo, 4000000000U);
    EXPECT_STREQ(car->szCustomParkNo, "park");
    EXPECT_EQ(car->stuStereoGarage.nDeckNo, 31);
    EXPECT_EQ(car->stuStereoGarage.nFreeDeckCount, 32);
    EXPECT_EQ(car->stuStereoGarage.nFullDeckCount, 33);
    EXPECT_EQ(car->stuStereoGarage.nTotalDeckCount, 34);
    EXPECT_STREQ(car->szViolationName, "violation");
    EXPECT_EQ(car->nWeight, 109);
    EXPECT_STREQ(car->szCustomRoadwayDirection, "roadway direction");
    EXPECT_EQ(car->byPhysicalLane, 52);
    EXPECT_EQ(car->emMovingDirection, 4000000001U);
    EXPECT_EQ(std::memcmp(&car->stuEleTagInfoUTC, &car->stuUTC, sizeof car->stuUTC), 0);
    EXPECT_EQ(car->stuCarWindowBox.nLeft, 41);
    EXPECT_EQ(car->stuCarWindowBox.nTop, -42);
    EXPECT_EQ(car->stuCarWindowBox.nRight, 43);
    EXPECT_EQ(car->stuCarWindowBox.nBottom, 44);
}

TEST(ParseStrtoTrafficCar, AnEmptyObjectGivesZerosButForSizeAndDirection) {
    for (const char* empty : {"{}", "null", "[]", "7", R"("text")", "true", R"({"plateNumber": "wrong case"})"}) {
        Car car;
        EXPECT_EQ(car.read(empty), 0) << empty;
        Info expected;
        std::memset(&expected, 0, sizeof expected);
        expected.nVehicleSize = -1;
        expected.byDirection = 8;
        EXPECT_EQ(std::memcmp(car.bytes(), &expected, sizeof expected), 0) << empty;
        EXPECT_EQ(car->pszDeviceAddress, nullptr);
        EXPECT_EQ(car->pszMachineAddress, nullptr);
        EXPECT_EQ(car->pszDetailedAddress, nullptr);
    }
}

TEST(ParseStrtoTrafficCar, ClearsTheReservedBytesAndThePadding) {
    Car car(kFull);
    const auto isZero = [&car](std::size_t begin, std::size_t size) {
        return std::all_of(car.bytes() + begin, car.bytes() + begin + size, [](unsigned char b) { return b == 0; });
    };
    EXPECT_TRUE(isZero(1752, 120));
    EXPECT_TRUE(isZero(2208, 536));
    EXPECT_TRUE(isZero(1700, 4));
    EXPECT_TRUE(isZero(1886, 2));
    EXPECT_TRUE(isZero(2041, 3));
    EXPECT_TRUE(isZero(2161, 3));
}

TEST(ParseStrtoTrafficCar, ANullRecordGives1AndReadsAndInsertsNothing) {
    Json::Value node = Json(R"({"Speed": 1})");
    EXPECT_EQ(ParseStrtoTrafficCar(node, nullptr), 1);
    EXPECT_EQ(Text(node), R"({"Speed":1})");
    Json::Value null;
    EXPECT_EQ(ParseStrtoTrafficCar(null, nullptr), 1);
    EXPECT_TRUE(null.isNull());
}

TEST(ParseStrtoTrafficCar, InsertsWhatItLooksForButNotWhatItAsksIsMemberOf) {
    const std::vector<std::string> inserted{"ActualGain",
                                            "ActualShutter",
                                            "CarWindow",
                                            "ChannelName",
                                            "CustomParkNo",
                                            "CustomRoadwayDirection",
                                            "DefendCode",
                                            "DeviceAddress",
                                            "Direction",
                                            "DrivingDirection",
                                            "EleTagInfoUTC",
                                            "Event",
                                            "Lane",
                                            "LowerSpeedLimit",
                                            "MachineGroup",
                                            "MachineName",
                                            "MovingDirection",
                                            "OverSpeedMargin",
                                            "PhysicalLane",
                                            "PlateColor",
                                            "PlateNumber",
                                            "PlateType",
                                            "RecNo",
                                            "Redundance",
                                            "RoadwayNo",
                                            "SnapshotMode",
                                            "Speed",
                                            "StereoGarage",
                                            "TrafficBlackListID",
                                            "UTC",
                                            "UnderSpeedMargin",
                                            "UpperSpeedLimit",
                                            "VehicleColor",
                                            "VehicleColorRGB",
                                            "VehicleLength",
                                            "VehicleSize",
                                            "ViolationCode",
                                            "ViolationDesc",
                                            "ViolationName",
                                            "Weight"};
    ASSERT_EQ(inserted.size(), 40U);
    for (const char* empty : {"{}", "null"}) {
        Json::Value node = Json(empty);
        Car car;
        car.read(node);
        EXPECT_EQ(node.getMemberNames(), inserted);
        for (const std::string& name : inserted) EXPECT_TRUE(node[name].isNull()) << name;
    }
}

TEST(ParseStrtoTrafficCar, InsertsNothingBelowTheObjectAndKeepsWhatIsThere) {
    Json::Value node = Json(
        R"({"Speed": 5, "Other": [1], "StereoGarage": {}, "CarWindow": {}, "DrivingDirection": ["a"], "Redundance": [1]})");
    Car car;
    car.read(node);
    EXPECT_EQ(Text(node["Speed"]), "5");
    EXPECT_EQ(Text(node["Other"]), "[1]");
    EXPECT_EQ(Text(node["StereoGarage"]), "{}");
    EXPECT_EQ(Text(node["CarWindow"]), "{}");
    EXPECT_EQ(Text(node["DrivingDirection"]), R"(["a"])");
    EXPECT_EQ(Text(node["Redundance"]), "[1]");
    EXPECT_EQ(node.size(), 41U);
}

TEST(ParseStrtoTrafficCar, ARootOfAnotherTypeStaysAsItIs) {
    for (const char* text : {"[]", "[1,{}]", "7", R"("text")", "true", "1.5"}) {
        Json::Value node = Json(text);
        Car car;
        car.read(node);
        EXPECT_EQ(node, Json(text)) << text;
    }
}

TEST(ParseStrtoTrafficCar, VehicleSizeIsOneBitForEachKeyword) {
    const std::pair<const char*, int> rows[] = {
        {R"("Light-duty")", 1 },
        {R"("Medium")",     2 },
        {R"("Oversize")",   4 },
        {R"("Minisize")",   8 },
        {R"("Largesize")",  16}
    };
    for (const auto& [json, size] : rows) {
        EXPECT_EQ(Car(std::string(R"({"VehicleSize": )") + json + "}")->nVehicleSize, size) << json;
    }
}

TEST(ParseStrtoTrafficCar, VehicleSizeComparesExactly) {
    for (const char* json : {R"("oversize")", R"("Medium ")", R"("LightDuty")", R"("Light-duty\u0000")", R"("")",
                             "null", "2", "[]", "{}", "true"}) {
        EXPECT_EQ(Car(std::string(R"({"VehicleSize": )") + json + "}")->nVehicleSize, -1) << json;
    }
}

TEST(ParseStrtoTrafficCar, DrivingDirectionWithFiveElementsFillsThreeSlots) {
    Car car(R"({"DrivingDirection": ["1", "2", "3", "a fourth one", "5"]})");
    EXPECT_STREQ(car->szDrivingDirection[0], "1");
    EXPECT_STREQ(car->szDrivingDirection[1], "2");
    EXPECT_STREQ(car->szDrivingDirection[2], "3");
    EXPECT_EQ(car->pszDeviceAddress, nullptr);
}

TEST(ParseStrtoTrafficCar, DrivingDirectionWithOneElementFillsOnlyTheFirstSlot) {
    Car car(R"({"DrivingDirection": ["1"]})");
    EXPECT_STREQ(car->szDrivingDirection[0], "1");
    EXPECT_STREQ(car->szDrivingDirection[1], "");
    EXPECT_STREQ(car->szDrivingDirection[2], "");
}

TEST(ParseStrtoTrafficCar, DrivingDirectionElementsOfAnyTypeAreTheirText) {
    Car car(R"({"DrivingDirection": [1.5, true, -3]})");
    EXPECT_STREQ(car->szDrivingDirection[0], "1.5");
    EXPECT_STREQ(car->szDrivingDirection[1], "true");
    EXPECT_STREQ(car->szDrivingDirection[2], "-3");
    car.read(R"({"DrivingDirection": [null, null, "3"]})");
    EXPECT_STREQ(car->szDrivingDirection[0], "");
    EXPECT_STREQ(car->szDrivingDirection[1], "");
    EXPECT_STREQ(car->szDrivingDirection[2], "3");
    car.read(R"({"DrivingDirection": "north"})");
    EXPECT_STREQ(car->szDrivingDirection[0], "");
}

TEST(ParseStrtoTrafficCar, TheFirstDirectionIsCutTo255BytesAsItStands) {
    Json::Value node = With("DrivingDirection", Json::Value(Json::arrayValue));
    node["DrivingDirection"].append(std::string(254, 'x') + "\xE8\xB7\xAF");
    Car car;
    car.read(node);
    EXPECT_EQ(std::string(car->szDrivingDirection[0]), std::string(254, 'x') + "\xE8");
}

TEST(ParseStrtoTrafficCar, ASecondDirectionOf256BytesEndsInTheThirdWhichOverwritesTheTerminator) {
    Json::Value node = With("DrivingDirection", Json::Value(Json::arrayValue));
    for (const char letter : {'x', 'y', 'z'}) node["DrivingDirection"].append(std::string(300, letter));
    Car car;
    car.read(node);
    EXPECT_EQ(std::string(car->szDrivingDirection[0]), std::string(255, 'x'));
    EXPECT_EQ(std::string(car->szDrivingDirection[1], 256), std::string(256, 'y'));
    EXPECT_EQ(std::string(car->szDrivingDirection[2], 256), std::string(256, 'z'));
    EXPECT_EQ(car.bytes()[1700], 0);  // the padding behind the third
    EXPECT_EQ(car->pszDeviceAddress, nullptr);
}

TEST(ParseStrtoTrafficCar, ASecondDirectionOf256BytesIsTerminatedInTheThirdSlotWhenThatIsNull) {
    Json::Value node = Json(R"({"DrivingDirection": ["x", "", null]})");
    node["DrivingDirection"][1] = std::string(256, 'y');
    Car car;
    car.read(node);
    EXPECT_EQ(std::string(car->szDrivingDirection[1]), std::string(256, 'y'));
}

TEST(ParseStrtoTrafficCar, RedundanceKeepsTheLowByteOfEachElement) {
    Car car(R"({"Redundance": [1, 2, 300]})");
    const unsigned char expected[8] = {1, 2, 44};
    EXPECT_EQ(std::memcmp(car->byRedundance, expected, 8), 0);
    car.read(R"({"Redundance": [-1, 1e10, -5.5, "7", true, 4294967297, null, 8, 9]})");
    const unsigned char hostile[8] = {255, 255, 0, 0, 1, 1, 0, 8};
    EXPECT_EQ(std::memcmp(car->byRedundance, hostile, 8), 0);
    car.read(R"({"Redundance": []})");
    const unsigned char nothing[8] = {};
    EXPECT_EQ(std::memcmp(car->byRedundance, nothing, 8), 0);
}

TEST(ParseStrtoTrafficCar, VehicleColorNeedsExactlyFourElements) {
    for (const char* json :
         {"[10, 20, 30]", "[10, 20, 30, 40, 50]", "[]", "7", R"({"a": 1, "b": 2, "c": 3, "d": 4})"}) {
        Car car(std::string(R"({"VehicleColorRGB": )") + json + "}");
        for (const unsigned component : car->dwVehicleColorRGB) EXPECT_EQ(component, 0U) << json;
    }
    Car car(R"({"VehicleColorRGB": [10, -1, 4294967296, 40.9]})");
    EXPECT_EQ(car->dwVehicleColorRGB[0], 10U);
    EXPECT_EQ(car->dwVehicleColorRGB[1], 4294967295U);
    EXPECT_EQ(car->dwVehicleColorRGB[2], 0U);
    EXPECT_EQ(car->dwVehicleColorRGB[3], 40U);
}

TEST(ParseStrtoTrafficCar, UtcZeroIsTheEpochAndATextIsNoTime) {
    Car car(R"({"UTC": 0})");
    EXPECT_EQ(car->stuUTC.dwYear, 1970U);
    EXPECT_EQ(car->stuUTC.dwMonth, 1U);
    EXPECT_EQ(car->stuUTC.dwDay, 1U);
    for (const char* json : {R"("0")", "null", "1.5", "2147483648", "true", "[0]"}) {
        car.read(std::string(R"({"UTC": )") + json + "}");
        EXPECT_EQ(car->stuUTC.dwYear, 0U) << json;
    }
    car.read(R"({"UTC": 86400.0})");  // an integer to jsoncpp
    EXPECT_EQ(car->stuUTC.dwDay, 2U);
    car.read(R"({"UTC": -1})");
    EXPECT_EQ(car->stuUTC.dwYear, 1969U);
    EXPECT_EQ(car->stuUTC.dwSecond, 59U);
}

TEST(ParseStrtoTrafficCar, TheElectronicTagHasTheTimeOfUtc) {
    Car car(R"({"EleTagInfoUTC": 5, "UTC": 86400})");
    EXPECT_EQ(car->stuEleTagInfoUTC.dwYear, 1970U);
    EXPECT_EQ(car->stuEleTagInfoUTC.dwMonth, 1U);
    EXPECT_EQ(car->stuEleTagInfoUTC.dwDay, 2U);
    car.read(R"({"EleTagInfoUTC": 5})");
    EXPECT_EQ(car->stuEleTagInfoUTC.dwYear, 1970U);
    EXPECT_EQ(car->stuEleTagInfoUTC.dwDay, 1U);
    EXPECT_EQ(car->stuUTC.dwYear, 0U);
    car.read(R"({"EleTagInfoUTC": "x", "UTC": 86400.9})");  // no test of the type on this road
    EXPECT_EQ(car->stuEleTagInfoUTC.dwDay, 2U);
    EXPECT_EQ(car->stuUTC.dwYear, 0U);
    car.read(R"({"EleTagInfoUTC": null, "UTC": 86400})");
    EXPECT_EQ(car->stuEleTagInfoUTC.dwYear, 0U);
}

TEST(ParseStrtoTrafficCar, AnEmptyAddressIsAnEmptyText) {
    for (const char* name : {"DeviceAddress", "DetailedAddress", "MachineAddress"}) {
        Json::Value node = With(name, "");
        Car car;
        car.read(node);
        const char* addresses[] = {car->pszDeviceAddress, car->pszDetailedAddress, car->pszMachineAddress};
        EXPECT_EQ(std::count(std::begin(addresses), std::end(addresses), nullptr), 2) << name;
        for (const char* address : addresses) {
            if (address != nullptr) {
                EXPECT_STREQ(address, "") << name;
            }
        }
    }
}

TEST(ParseStrtoTrafficCar, ANullAddressIsMissingButAnEmptyTextWhereIsMemberIsAsked) {
    Car car(R"({"DeviceAddress": null, "DetailedAddress": null, "MachineAddress": null, "VehicleSign": null})");
    EXPECT_EQ(car->pszDeviceAddress, nullptr);
    EXPECT_STREQ(car->pszDetailedAddress, "");
    EXPECT_STREQ(car->pszMachineAddress, "");
    EXPECT_STREQ(car->szVehicleSign, "");
}

TEST(ParseStrtoTrafficCar, AddressesOfAnyLengthAreKeptWhole) {
    const Utf8Texts utf8;
    Json::Value node;
    node["DeviceAddress"] = std::string(5000, 'd') + "路";
    node["DetailedAddress"] = 12.5;
    node["MachineAddress"] = Json(R"(["no text"])");
    Car car;
    car.read(node);
    EXPECT_EQ(std::string(car->pszDeviceAddress), std::string(5000, 'd') + "路");
    EXPECT_STREQ(car->pszDetailedAddress, "12.5");
    EXPECT_STREQ(car->pszMachineAddress, "");
}

TEST(ParseStrtoTrafficCar, AnAddressEndsAtItsFirstNul) {
    Json::Value node = With("DeviceAddress", std::string("a\0b", 3));
    Car car;
    car.read(node);
    EXPECT_EQ(std::memcmp(car->pszDeviceAddress, "a\0\0\0", 4), 0);
}

TEST(ParseStrtoTrafficCar, DirectionMissingIs8AndZeroIsZero) {
    EXPECT_EQ(Car("{}")->byDirection, 8);
    EXPECT_EQ(Car(R"({"Direction": null})")->byDirection, 8);
    EXPECT_EQ(Car(R"({"Direction": 0})")->byDirection, 0);
    EXPECT_EQ(Car(R"({"Direction": 264})")->byDirection, 8);
    EXPECT_EQ(Car(R"({"Direction": -1})")->byDirection, 255);
    EXPECT_EQ(Car(R"({"Direction": "1"})")->byDirection, 0);
}

TEST(ParseStrtoTrafficCar, DefendCodeIsTheTextFormOfAnyValue) {
    const Utf8Texts utf8;
    EXPECT_STREQ(Car(R"({"DefendCode": 17})")->szDefendCode, "17");
    EXPECT_STREQ(Car(R"({"DefendCode": true})")->szDefendCode, "true");
    EXPECT_STREQ(Car(R"({"DefendCode": [1, {"a": "路"}]})")->szDefendCode, R"([1,{"a":"路"}])");
    EXPECT_STREQ(Car(R"({"DefendCode": {}})")->szDefendCode, "{}");
}

TEST(ParseStrtoTrafficCar, TypeTestsRefuseOtherTypes) {
    for (const char* json : {R"("5")", "5.5", "1e10", "2147483648", "[5]", "true", "null"}) {
        Car car(std::string(R"({"Weight": )") + json + R"(, "PhysicalLane": )" + json + "}");
        EXPECT_EQ(car->nWeight, 0) << json;
        EXPECT_EQ(car->byPhysicalLane, 0) << json;
    }
    for (const char* json : {R"("5")", "5.5", "-1", "4294967296", "[5]", "true", "null"}) {
        EXPECT_EQ(Car(std::string(R"({"MovingDirection": )") + json + "}")->emMovingDirection, 0U) << json;
    }
    EXPECT_EQ(Car(R"({"Weight": -5})")->nWeight, -5);
    EXPECT_EQ(Car(R"({"PhysicalLane": 258})")->byPhysicalLane, 2);
}

TEST(ParseStrtoTrafficCar, NumbersAreReadWithoutATestOfTheirType) {
    const std::pair<const char*, int> rows[] = {
        {"2.9",        2                              },
        {"-2.9",       -2                             },
        {"1e308",      std::numeric_limits<int>::max()},
        {"\"87\"",     0                              },
        {"true",       1                              },
        {"null",       0                              },
        {"4294967297", 1                              },
        {"4026990592", static_cast<int>(0xF0070000U)  },
        {"[1]",        0                              },
        {"-1e308",     std::numeric_limits<int>::min()}
    };
    for (const auto& [json, value] : rows) {
        Car car(std::string(R"({"Speed": )") + json + R"(, "Lane": )" + json + "}");
        EXPECT_EQ(car->nSpeed, value) << json;
        EXPECT_EQ(car->nLane, value) << json;
    }
    EXPECT_EQ(Car(R"({"RecNo": -1})")->dwRecNo, 4294967295U);
    EXPECT_EQ(Car(R"({"RecNo": -1.5})")->dwRecNo, 0U);
    EXPECT_EQ(Car(R"({"VehicleLength": 0.1})")->fVehicleLength, 0.1F);
}

TEST(ParseStrtoTrafficCar, TheGarageReadsEachMemberThatIsNotNull) {
    Car car(R"({"StereoGarage": {"DeckNo": 1, "FreeDeckCount": null, "TotalDeckCount": "x"}})");
    EXPECT_EQ(car->stuStereoGarage.nDeckNo, 1);
    EXPECT_EQ(car->stuStereoGarage.nFreeDeckCount, 0);
    EXPECT_EQ(car->stuStereoGarage.nTotalDeckCount, 0);
    EXPECT_EQ(Car(R"({"StereoGarage": [1, 2, 3, 4]})")->stuStereoGarage.nDeckNo, 0);
}

TEST(ParseStrtoTrafficCar, TheCarWindowNeedsABoxOfExactlyFour) {
    for (const char* json :
         {R"({"BoundingBox": [1, 2, 3]})", R"({"BoundingBox": [1, 2, 3, 4, 5]})", "[1, 2, 3, 4]", "{}"}) {
        Car car(std::string(R"({"CarWindow": )") + json + "}");
        EXPECT_EQ(car->stuCarWindowBox.nLeft, 0) << json;
        EXPECT_EQ(car->stuCarWindowBox.nBottom, 0) << json;
    }
}

/// A UTF-8 text field of the record: member, place, capacity.
struct TextField {
    const char* name;
    std::size_t offset;
    std::size_t capacity;
};

constexpr TextField kUtf8Fields[] = {
    {"PlateNumber",            0,    32 },
    {"PlateColor",             64,   32 },
    {"VehicleColor",           96,   32 },
    {"ViolationDesc",          228,  64 },
    {"ViolationName",          2060, 64 },
    {"ChannelName",            324,  32 },
    {"MachineName",            356,  256},
    {"MachineGroup",           612,  256},
    {"RoadwayNo",              868,  64 },
    {"CustomRoadwayDirection", 2128, 32 }
};

TEST(ParseStrtoTrafficCar, Utf8TextsFillTheirFieldAndLeaveTheRestOfTheRecordZero) {
    for (const TextField& field : kUtf8Fields) {
        for (const std::size_t length :
             {field.capacity - 1, field.capacity, field.capacity + 1, field.capacity + 500}) {
            Json::Value node = With(field.name, std::string(length, 'x'));
            Car car;
            car.read(node);
            Info expected;
            std::memset(&expected, 0, sizeof expected);
            expected.nVehicleSize = -1;
            expected.byDirection = 8;
            std::memset(reinterpret_cast<unsigned char*>(&expected) + field.offset, 'x',
                        std::min(length, field.capacity));
            EXPECT_EQ(std::memcmp(car.bytes(), &expected, sizeof expected), 0) << field.name << ' ' << length;
        }
    }
}

TEST(ParseStrtoTrafficCar, APlateNumberOf32BytesIsTerminatedByAnEmptyPlateTypeOrRunsIntoIt) {
    Json::Value node = With("PlateNumber", std::string(40, 'x'));
    Car car;
    car.read(node);
    EXPECT_EQ(std::string(car->szPlateNumber), std::string(32, 'x'));
    node["PlateType"] = "type";
    car.read(node);
    EXPECT_EQ(std::string(car->szPlateNumber, 36), std::string(32, 'x') + "type");
    EXPECT_STREQ(car->szPlateTypeText, "type");
}

TEST(ParseStrtoTrafficCar, APlateColourOf32BytesRunsIntoTheVehicleColour) {
    Json::Value node = With("PlateColor", std::string(32, 'x'));
    node["VehicleColor"] = "Red";
    Car car;
    car.read(node);
    EXPECT_EQ(std::string(car->szPlateColor, 36), std::string(32, 'x') + std::string("Red\0", 4));
}

TEST(ParseStrtoTrafficCar, AVehicleColourOf32BytesLeavesTheSpeedThatIsReadAfterIt) {
    Json::Value node = With("VehicleColor", std::string(32, 'x'));
    node["Speed"] = 0x01020304;
    Car car;
    car.read(node);
    EXPECT_EQ(car->nSpeed, 0x01020304);
}

TEST(ParseStrtoTrafficCar, AViolationDescriptionOf64BytesLeavesTheLowerSpeedLimit) {
    Json::Value node = With("ViolationDesc", std::string(64, 'x'));
    node["LowerSpeedLimit"] = 0x01020304;
    Car car;
    car.read(node);
    EXPECT_EQ(car->nLowerSpeedLimit, 0x01020304);
}

TEST(ParseStrtoTrafficCar, AViolationNameOf64BytesLeavesTheWeight) {
    Json::Value node = With("ViolationName", std::string(64, 'x'));
    node["Weight"] = 0x01020304;
    Car car;
    car.read(node);
    EXPECT_EQ(car->nWeight, 0x01020304);
}

TEST(ParseStrtoTrafficCar, ChannelMachineAndGroupNamesRunIntoTheNextName) {
    Json::Value node;
    node["ChannelName"] = std::string(32, 'c');
    node["MachineName"] = std::string(256, 'm');
    node["MachineGroup"] = std::string(256, 'g');
    node["RoadwayNo"] = "road";
    Car car;
    car.read(node);
    EXPECT_EQ(std::string(car->szChannelName, 32 + 256 + 256 + 5),
              std::string(32, 'c') + std::string(256, 'm') + std::string(256, 'g') + std::string("road\0", 5));
}

TEST(ParseStrtoTrafficCar, ARoadwayNumberOf64BytesErasesTheStartOfTheFirstDirection) {
    for (const std::size_t length : {63U, 64U, 65U}) {
        Json::Value node = With("RoadwayNo", std::string(length, 'r'));
        node["DrivingDirection"] = Json(R"(["north", "from", "to"])");
        Car car;
        car.read(node);
        const bool erased = length >= 64;
        EXPECT_EQ(std::string(car->szDrivingDirection[0], 6), std::string(erased ? "\0orth\0" : "north\0", 6))
            << length;
        EXPECT_EQ(std::string(car->szRoadwayNo), std::string(std::min<std::size_t>(length, 64), 'r'));
        EXPECT_STREQ(car->szDrivingDirection[1], "from");
    }
}

TEST(ParseStrtoTrafficCar, ACustomRoadwayDirectionOf32BytesLeavesThePhysicalLane) {
    Json::Value node = With("CustomRoadwayDirection", std::string(32, 'x'));
    node["PhysicalLane"] = 7;
    Car car;
    car.read(node);
    EXPECT_EQ(car->byPhysicalLane, 7);
}

TEST(ParseStrtoTrafficCar, RawTextsAreCutByteForByteOneBelowTheirField) {
    const TextField rows[] = {
        {"PlateType",     32,  32},
        {"Event",         132, 64},
        {"ViolationCode", 196, 32}
    };
    for (const TextField& field : rows) {
        const std::size_t limit = field.capacity - 1;
        for (const std::size_t length : {limit - 1, limit, limit + 1, limit + 500}) {
            Json::Value node = With(field.name, std::string(length, 'x'));
            Car car;
            car.read(node);
            EXPECT_EQ(std::string(reinterpret_cast<char*>(car.bytes()) + field.offset),
                      std::string(std::min(length, limit), 'x'))
                << field.name;
        }
        Json::Value node = With(field.name, std::string(limit - 1, 'x') + "路");
        Car car;
        car.read(node);
        EXPECT_EQ(std::string(reinterpret_cast<char*>(car.bytes()) + field.offset),
                  std::string(limit - 1, 'x') + "\xE8");
    }
}

TEST(ParseStrtoTrafficCar, BoundedTextsAreCutAtWholeCharactersWithinTheirField) {
    const Utf8Texts utf8;
    const TextField rows[] = {
        {"CustomParkNo", 2008, 33},
        {"VehicleSign",  1712, 32},
        {"DefendCode",   1896, 64}
    };
    for (const TextField& field : rows) {
        const std::size_t limit = field.capacity - 1;
        for (const std::size_t length : {limit - 1, limit, limit + 1, limit + 500}) {
            Json::Value node = With(field.name, std::string(length, 'x'));
            Car car;
            car.read(node);
            EXPECT_EQ(std::string(reinterpret_cast<char*>(car.bytes()) + field.offset),
                      std::string(std::min(length, limit), 'x'))
                << field.name;
        }
        for (const std::size_t kept : {limit - 1, limit - 2}) {  // and the rest of the cleared field stays zero
            Json::Value node = With(field.name, std::string(kept, 'x') + "路");
            Car car;
            car.read(node);
            std::string expected(kept, 'x');
            expected.resize(field.capacity, '\0');
            EXPECT_EQ(std::string(reinterpret_cast<char*>(car.bytes()) + field.offset, field.capacity), expected)
                << field.name;
        }
    }
}

TEST(ParseStrtoTrafficCar, OnlyTextsReachTheFieldsThatTakeStrings) {
    Car car(R"({"CustomParkNo": 17, "VehicleSign": 18})");
    EXPECT_STREQ(car->szCustomParkNo, "");
    EXPECT_STREQ(car->szVehicleSign, "");
}

TEST(ParseStrtoTrafficCar, OtherTextsTakeTheTextOfANumber) {
    Car car(
        R"({"PlateNumber": 17, "PlateType": 18, "ViolationName": true, "RoadwayNo": 1.5, "MachineName": {"a": 1}})");
    EXPECT_STREQ(car->szPlateNumber, "17");
    EXPECT_STREQ(car->szPlateTypeText, "18");
    EXPECT_STREQ(car->szViolationName, "true");
    EXPECT_STREQ(car->szRoadwayNo, "1.5");
    EXPECT_STREQ(car->szMachineName, "");
}

TEST(ParseStrtoTrafficCar, TakesAnyJson) {
    for (const Json::Value& value : HostileValues()) {
        Json::Value root = value;
        Car car;
        EXPECT_NO_THROW(car.read(root));
    }
    for (const std::string& name : Json(kFull).getMemberNames()) {
        for (const Json::Value& value : HostileValues()) {
            Json::Value node = Json(kFull);
            node[name] = value;
            Car car;
            EXPECT_NO_THROW(EXPECT_EQ(car.read(node), 0)) << name;
        }
    }
    for (const char* name : {"DeckNo", "FreeDeckCount", "FullDeckCount", "TotalDeckCount", "BoundingBox"}) {
        for (const Json::Value& value : HostileValues()) {
            Json::Value node;
            node["StereoGarage"][name] = value;
            node["CarWindow"][name] = value;
            Car car;
            EXPECT_NO_THROW(car.read(node)) << name;
        }
    }
}

TEST(ParseStrtoTrafficCar, ANullRecordOfAMessageTextGives1) {
    jsonparser::MessageText text("{}");
    EXPECT_EQ(ParseStrtoTrafficCar(text.at(""), nullptr), 1);
}

}  // namespace

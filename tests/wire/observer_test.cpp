#include "vkprotocolstack/wire/observer.h"

#include <gtest/gtest.h>
#include <json/value.h>

#include <functional>
#include <limits>
#include <memory>
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

using jsonparser::Keyword;
using jsonparser::Look;
using jsonparser::Members;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::Observer;
using jsonparser::ObserverScope;
using jsonparser::Signs;
using testing_tools::Json;
using testing_tools::Placed;
using namespace std::string_literals;

const char* TypeName(const Json::Value* value) {
    if (value == nullptr) return "missing";
    switch (value->type()) {
        case Json::nullValue:
            return "null";
        case Json::intValue:
            return "int";
        case Json::uintValue:
            return "uint";
        case Json::realValue:
            return "real";
        case Json::stringValue:
            return "string";
        case Json::booleanValue:
            return "bool";
        case Json::arrayValue:
            return "array";
        default:
            return "object";
    }
}

/// Writes a line for each look: path, JSON type, operation, result, and of conversions that did not keep the value,
/// what became of it.
class Listing : public Observer {
  public:
    void look(const Look& look) override {
        text +=
            look.path + " | " + TypeName(look.value) + " | " + std::string(look.operation) + " | [" + look.result + ']';
        if (look.kind == Look::kConversion && look.remark != "kept") text += ' ' + look.remark;
        text += '\n';
    }

    std::string text;
};

TEST(Observer, SeesAllThatTheTrafficCarConverterReads) {
    const testing_tools::Utf8Texts utf8;
    Json::Value message = Json(R"({
        "PlateNumber": "沪A12345", "PlateType": "Normal", "Speed": 61.9, "ViolationCode": null,
        "Lane": -2, "CustomParkNo": "P-7", "VehicleSize": "Small", "VehicleLength": 4.5,
        "DrivingDirection": ["Approach", "北", 3], "RoadwayNo": 12, "DeviceAddress": "桥", "DetailedAddress": null,
        "VehicleSign": "VW", "Redundance": [1, 300], "ActualGain": 257, "Direction": "x", "DefendCode": {"a": [1]},
        "VehicleColorRGB": [255, 128, 0, -1], "UTC": 1700000000, "RecNo": 4294967295,
        "StereoGarage": {"DeckNo": 3, "TotalDeckCount": true}, "Weight": "heavy", "PhysicalLane": 1,
        "MovingDirection": -1, "EleTagInfoUTC": 0, "CarWindow": {"BoundingBox": [1, 2, 3, 4]}})");
    Placed<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
    Listing listing;
    {
        const ObserverScope scope(listing);
        EXPECT_EQ(ParseStrtoTrafficCar(message, car.get()), 0);
    }
    const std::unique_ptr<char[]> deviceAddress(car->pszDeviceAddress);
    const std::unique_ptr<char[]> detailedAddress(car->pszDetailedAddress);
    const std::unique_ptr<char[]> machineAddress(car->pszMachineAddress);
    EXPECT_EQ(listing.text, R"(/PlateNumber | string | present | [true]
/PlateNumber | string | text from UTF-8, limit 32 | ["沪A12345"]
/PlateType | string | present | [true]
/PlateType | string | text as it stands, at most 31 bytes | ["Normal"]
/PlateColor | missing | present | [false]
/VehicleColor | missing | present | [false]
/Speed | real | int | [61] fraction cut
/Event | missing | present | [false]
/ViolationCode | null | present | [false]
/ViolationDesc | missing | present | [false]
/ViolationName | missing | text from UTF-8, limit 64 | [] left as it was
/LowerSpeedLimit | missing | int | [0] written by default
/UpperSpeedLimit | missing | int | [0] written by default
/OverSpeedMargin | missing | int | [0] written by default
/UnderSpeedMargin | missing | int | [0] written by default
/Lane | int | int | [-2]
/CustomParkNo | string | present | [true]
/CustomParkNo | string | string, size 33 | ["P-7"]
/VehicleSize | string | present | [true]
/VehicleSize | string | keyword, exact | [-1] keyword unknown
/VehicleLength | real | float | [4.5]
/DrivingDirection | array | present | [true]
/DrivingDirection | array | size | [3]
/DrivingDirection/0 | string | present | [true]
/DrivingDirection/0 | string | text as it stands, at most 255 bytes | ["Approach"]
/DrivingDirection/1 | string | text from UTF-8, limit 256 | ["北"]
/DrivingDirection/2 | int | text from UTF-8, limit 256 | ["3"]
/SnapshotMode | missing | int | [0] written by default
/ChannelName | missing | present | [false]
/MachineName | missing | present | [false]
/MachineGroup | missing | present | [false]
/RoadwayNo | int | present | [true]
/RoadwayNo | int | text from UTF-8, limit 64 | ["12"]
/CustomRoadwayDirection | missing | present | [false]
/DeviceAddress | string | present | [true]
/DeviceAddress | string | text from UTF-8, of any length | ["桥"]
/DetailedAddress | null | isMember | [true]
/DetailedAddress | null | text from UTF-8, of any length | [""] written by default
/VehicleSign | string | isMember | [true]
/VehicleSign | string | string, size 32 | ["VW"]
/Redundance | array | present | [true]
/Redundance | array | size | [2]
/Redundance/0 | int | unsigned, low 8 bits | [1]
/Redundance/1 | int | unsigned, low 8 bits | [44] wrapped to the low 8 bits
/MachineAddress | missing | isMember | [false]
/ActualShutter | missing | present | [false]
/ActualGain | int | present | [true]
/ActualGain | int | int, low 8 bits | [1] wrapped to the low 8 bits
/Direction | string | present | [true]
/Direction | string | int, low 8 bits | [0] wrong type, read as 0
/DefendCode | object | present | [true]
/DefendCode | object | rendered, size 64 | ["{\"a\":[1]}"]
/TrafficBlackListID | missing | present | [false]
/VehicleColorRGB | array | isArray | [true]
/VehicleColorRGB | array | size | [4]
/VehicleColorRGB/0 | int | unsigned | [255]
/VehicleColorRGB/1 | int | unsigned | [128]
/VehicleColorRGB/2 | int | unsigned | [0]
/VehicleColorRGB/3 | int | unsigned | [4294967295] wrapped to the low 32 bits
/UTC | int | isInt | [true]
/UTC | int | int, UTC seconds | [1700000000]
/RecNo | int | unsigned | [4294967295]
/StereoGarage | object | present | [true]
/StereoGarage/DeckNo | int | present | [true]
/StereoGarage/DeckNo | int | int | [3]
/StereoGarage/FreeDeckCount | missing | present | [false]
/StereoGarage/FullDeckCount | missing | present | [false]
/StereoGarage/TotalDeckCount | bool | present | [true]
/StereoGarage/TotalDeckCount | bool | int | [1]
/Weight | string | isInt | [false]
/PhysicalLane | int | isInt | [true]
/PhysicalLane | int | int, low 8 bits | [1]
/MovingDirection | int | isUInt | [false]
/EleTagInfoUTC | int | present | [true]
/UTC | int | int, UTC seconds | [1700000000]
/CarWindow | object | present | [true]
/CarWindow/BoundingBox | array | isArray | [true]
/CarWindow/BoundingBox | array | size | [4]
/CarWindow/BoundingBox/0 | int | int | [1]
/CarWindow/BoundingBox/1 | int | int | [2]
/CarWindow/BoundingBox/2 | int | int | [3]
/CarWindow/BoundingBox/3 | int | int | [4]
)");
}

/// Reports every operation of a node once.
constexpr NameList kNames{"m"};
constexpr Keyword kWords[] = {
    {1, "one"},
    {2, "7"  }
};

void ReadAll(Node node) {
    char field[8] = {};
    int word = 0;
    static_cast<void>(static_cast<bool>(node));
    node.isMember();
    node.isArray();
    node.isString();
    node.isInt();
    node.isUInt();
    node.isBool();
    node.size();
    node.asInt();
    node.asUInt();
    node.asDouble();
    node.asFloat();
    node.asBool();
    node.intLow8();
    node.uintLow8();
    node.intLow16();
    node.uintLow16();
    node.intPlusOne();
    node.realToInt64();
    node.utcSeconds();
    node.unsignedUtcSeconds();
    node.rawTo(field, 7);
    node.utf8To(field, 7);
    node.stringTo(field, 8);
    node.renderTo(field, 8);
    delete[] node.heapUtf8();
    node.scan("%d:%d", Signs::Allowed, word, word);
    node.firstExact(kWords, -1);
    node.firstIgnoringCase(kWords, -1);
    node.lastIgnoringCase(kWords, -1);
}

std::string Observed(const Json::Value& value, void (*read)(Node)) {
    Listing listing;
    const ObserverScope scope(listing);
    read(Node(value));
    return listing.text;
}

TEST(Observer, SeesEveryOperationWithItsResult) {
    EXPECT_EQ(Observed(Json("-7"), ReadAll), R"( | int | present | [true]
 | int | isMember | [true]
 | int | isArray | [false]
 | int | isString | [false]
 | int | isInt | [true]
 | int | isUInt | [false]
 | int | isBool | [false]
 | int | size | [0]
 | int | int | [-7]
 | int | unsigned | [4294967289] wrapped to the low 32 bits
 | int | double | [-7.0]
 | int | float | [-7.0]
 | int | bool | [true]
 | int | int, low 8 bits | [249] wrapped to the low 8 bits
 | int | unsigned, low 8 bits | [249] wrapped to the low 8 bits
 | int | int, low 16 bits | [65529] kept, as the 16 bits of -7
 | int | unsigned, low 16 bits | [65529] wrapped to the low 16 bits
 | int | int plus one | [-6]
 | int | double, cut to 64-bit integer | [-7]
 | int | int, UTC seconds | [-7]
 | int | unsigned, UTC seconds | [4294967289] wrapped to the low 32 bits
 | int | text as it stands, at most 7 bytes | ["-7"]
 | int | text from UTF-8, limit 7 | ["-7"]
 | int | string, size 8 | [""] wrong type, read as the empty text
 | int | rendered, size 8 | ["-7"]
 | int | text from UTF-8, of any length | ["-7"]
 | int | scanned by %d:%d | [1 of 2] 1 of 2 numbers converted
 | int | keyword, exact | [-1] keyword unknown; did you mean "7"?
 | int | keyword, ignoring case | [-1] keyword unknown; did you mean "7"?
 | int | keyword, ignoring case, last match | [-1] keyword unknown; did you mean "7"?
)");
    EXPECT_EQ(Observed(Json(R"("One")"), ReadAll), R"( | string | present | [true]
 | string | isMember | [true]
 | string | isArray | [false]
 | string | isString | [true]
 | string | isInt | [false]
 | string | isUInt | [false]
 | string | isBool | [false]
 | string | size | [0]
 | string | int | [0] wrong type, read as 0
 | string | unsigned | [0] wrong type, read as 0
 | string | double | [0.0] wrong type, read as 0.0
 | string | float | [0.0] wrong type, read as 0.0
 | string | bool | [false] wrong type, read as false
 | string | int, low 8 bits | [0] wrong type, read as 0
 | string | unsigned, low 8 bits | [0] wrong type, read as 0
 | string | int, low 16 bits | [0] wrong type, read as 0
 | string | unsigned, low 16 bits | [0] wrong type, read as 0
 | string | int plus one | [1] wrong type, read as 1
 | string | double, cut to 64-bit integer | [0] wrong type, read as 0
 | string | int, UTC seconds | [0] wrong type, read as 0
 | string | unsigned, UTC seconds | [0] wrong type, read as 0
 | string | text as it stands, at most 7 bytes | ["One"]
 | string | text from UTF-8, limit 7 | ["One"]
 | string | string, size 8 | ["One"]
 | string | rendered, size 8 | ["One"]
 | string | text from UTF-8, of any length | ["One"]
 | string | scanned by %d:%d | [0 of 2] 0 of 2 numbers converted
 | string | keyword, exact | [-1] keyword unknown; did you mean "one"?
 | string | keyword, ignoring case | [1]
 | string | keyword, ignoring case, last match | [1]
)");
}

TEST(Observer, SeesWhatIsMissing) {
    const auto read = [](Node node) {
        node["a"].at(3)["b"].asInt();
        node["b"].utf8To(nullptr, 8);
        static_cast<void>(static_cast<bool>(Members<kNames>(node)["m"]));
    };
    EXPECT_EQ(Observed(Json(R"({"a": {}})"), read),
              "/a/3/b | missing | int | [0] written by default\n"
              "/b | missing | text from UTF-8, limit 8 | [] left as it was\n"
              "/m | missing | present | [false]\n");
}

TEST(Observer, SeesNumbersBeyondAllLimits) {
    const auto read = [](Node node) {
        for (std::size_t i = 0; i < node.size(); ++i) {
            node.at(i).asDouble();
            node.at(i).asFloat();
            node.at(i).realToInt64();
        }
    };
    Json::Value value;
    value.append(1e308);
    value.append(std::numeric_limits<double>::quiet_NaN());
    value.append(-0.0);
    EXPECT_EQ(Observed(value, read), R"( | array | size | [3]
/0 | real | double | [1e+308]
/0 | real | float | [inf] beyond the range of the field
/0 | real | double, cut to 64-bit integer | [9223372036854775807] beyond the range, the nearest limit taken
 | array | size | [3]
/1 | real | double | [nan]
/1 | real | float | [nan]
/1 | real | double, cut to 64-bit integer | [0] not a number, read as 0
 | array | size | [3]
/2 | real | double | [-0.0]
/2 | real | float | [-0.0]
/2 | real | double, cut to 64-bit integer | [0]
 | array | size | [3]
)");
}

TEST(Observer, SeesThatAFieldHasNoRoom) {
    const auto read = [](Node node) {
        char field = 'x';
        node.utf8To(&field, 0);
        node.stringTo(&field, 0);
        node.renderTo(&field, 0);
        node.stringTo(&field, -1);
        node.renderTo(&field, -1);
    };
    EXPECT_EQ(Observed(Json(R"("abc")"), read),
              " | string | text from UTF-8, limit 0 | [\"\"] cut from 3 to 0 bytes\n"
              " | string | string, size 0 | [] no room, left as it was\n"
              " | string | rendered, size 0 | [] no room, left as it was\n"
              " | string | string, size -1 | [] no room, left as it was\n"
              " | string | rendered, size -1 | [] no room, left as it was\n");
}

TEST(Observer, SeesThatATextIsBothCutAndReplaced) {
    const testing_tools::ThreadLocale locale("zh_CN.GBK");
    const auto read = [](Node node) {
        char field[8] = {};
        node.stringTo(field, 4);
    };
    EXPECT_EQ(Observed(Json::Value("a\U0001F697bcde"), read),
              " | string | string, size 4 | [\"a?b\"] cut from 6 to 3 bytes; 1 character replaced by \"?\"\n");
}

TEST(Observer, SeesAnErrorCodeOfAReal) {
    const auto read = [](Node node) {
        const auto only7 = [](unsigned device, unsigned& library) {
            library = device == 7 ? 70 : library;
            return device == 7;
        };
        node.errorCode(only7, 1);
    };
    EXPECT_EQ(Observed(Json("7.5"), read), " | real | error code | [70] fraction cut\n");
    EXPECT_EQ(Observed(Json("7"), read), " | int | error code | [70]\n");
    EXPECT_EQ(Observed(Json("8.5"), read), " | real | error code | [1] not in the table\n");
}

TEST(Observer, SeesTheSizeOfWhatIsWalkedThroughOnce) {
    const auto read = [](Node node) { node.forElements(2, [](Node element, std::size_t) { element.asInt(); }); };
    EXPECT_EQ(Observed(Json("[5, 6, 7]"), read), " | array | size | [3]\n/0 | int | int | [5]\n/1 | int | int | [6]\n");
    const auto readUpTo6 = [](Node node) {
        EXPECT_FALSE(node.allElements(3, [](Node element, std::size_t) { return element.asInt() < 6; }));
    };
    EXPECT_EQ(Observed(Json("[5, 6, 7]"), readUpTo6),
              " | array | size | [3]\n/0 | int | int | [5]\n/1 | int | int | [6]\n");
    EXPECT_EQ(Observed(Json("[]"), read), " | array | size | [0]\n");
    EXPECT_EQ(Observed(Json("{}"), read), " | object | size | [0]\n");
    EXPECT_EQ(Observed(Json("null"), read), " | null | size | [0]\n");
}

TEST(Observer, PathsAreJsonPointers) {
    const auto read = [](Node node) {
        node.asInt();
        node[""].asInt();
        node["a/b"].asInt();
        node["~"].asInt();
        node["~1/~0"]["路"].at(12).asInt();
        node[std::string_view("n\0", 2)].asInt();
    };
    EXPECT_EQ(Observed(Json("{}"), read),
              " | object | int | [0] wrong type, read as 0\n"
              "/ | missing | int | [0] written by default\n"
              "/a~1b | missing | int | [0] written by default\n"
              "/~0 | missing | int | [0] written by default\n"
              "/~01~1~00/路/12 | missing | int | [0] written by default\n"
              "/n\0 | missing | int | [0] written by default\n"s);
}

TEST(Observer, SeesTheSameNodeAsOftenAsItIsRead) {
    const auto read = [](Node node) {
        const Node a = node["a"];
        a.asInt();
        a.asInt();
    };
    EXPECT_EQ(Observed(Json(R"({"a": 1})"), read), "/a | int | int | [1]\n/a | int | int | [1]\n");
}

TEST(ObserverScope, WithoutOneNothingIsReported) {
    const Json::Value value = 7;
    Listing listing;
    ReadAll(Node(value));
    { const ObserverScope scope(listing); }
    ReadAll(Node(value));
    EXPECT_EQ(listing.text, "");
    EXPECT_EQ(ObserverScope::Current(), nullptr);
}

TEST(ObserverScope, TheInnerOneOfTwoWinsAndTheOuterOneComesBack) {
    const Json::Value value = 7;
    Listing outer;
    Listing inner;
    {
        const ObserverScope outerScope(outer);
        const Node node(value);
        node.asInt();
        {
            const ObserverScope innerScope(inner);
            Node(value).asUInt();
            node.asDouble();  // a node reports to whoever observed when it was made
        }
        Node(value).isInt();
    }
    Node(value).isUInt();
    EXPECT_EQ(outer.text, " | int | int | [7]\n | int | double | [7.0]\n | int | isInt | [true]\n");
    EXPECT_EQ(inner.text, " | int | unsigned | [7]\n");
}

TEST(ObserverScope, MayOpenAgainForTheSameObserver) {
    const Json::Value value = 7;
    Listing listing;
    for (int i = 0; i < 2; ++i) {
        const ObserverScope scope(listing);
        const ObserverScope again(listing);
        Node(value)["a"].asInt();
    }
    EXPECT_EQ(listing.text,
              "/a | missing | int | [0] written by default\n/a | missing | int | [0] written by default\n");
}

TEST(ObserverScope, IsThatOfTheThread) {
    const auto observe = [](int number, std::string& text) {
        const Json::Value value = number;
        Listing listing;
        const ObserverScope scope(listing);
        for (int i = 0; i < 200; ++i) {
            Node(value)["a"].at(0).asInt();
            Node(value).asInt();
        }
        text = listing.text;
    };
    Listing outer;
    const ObserverScope scope(outer);
    std::string texts[2];
    std::thread first(observe, 1, std::ref(texts[0]));
    std::thread second(observe, 2, std::ref(texts[1]));
    std::thread([] {
        const Json::Value value = 3;
        Node(value).asInt();
    }).join();
    first.join();
    second.join();
    for (int i = 0; i < 2; ++i) {
        std::string expected;
        for (int j = 0; j < 200; ++j) {
            expected +=
                "/a/0 | missing | int | [0] written by default\n | int | int | [" + std::to_string(i + 1) + "]\n";
        }
        EXPECT_EQ(texts[i], expected);
    }
    EXPECT_EQ(outer.text, "");
}

}  // namespace

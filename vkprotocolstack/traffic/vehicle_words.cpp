#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/traffic/vehicle_words_keywords.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::FirstExact;
using jsonparser::kBodyColours;
using jsonparser::Keyword;
using jsonparser::kPlateColours;
using jsonparser::kPlateKinds;
using jsonparser::kSeatBeltStates;
using jsonparser::kStrobeStates;
using jsonparser::kVehicleDataTypes;
using jsonparser::kVehicleKinds;
using jsonparser::Members;
using jsonparser::NameList;
using jsonparser::Node;

namespace {

constexpr NameList kNames{"DataType"};

}  // namespace

void GetJsonPlateColorType(const Json::Value& value, int& type) {
    type = Node(value).lastIgnoringCase(kPlateColours, type);
}

void GetJsonVehicleType(const Json::Value& value, int& type) {
    type = Node(value).lastIgnoringCase(kVehicleKinds, type);
}

void GetJsonVehicleColorType(const Json::Value& value, int& type) {
    type = Node(value).lastIgnoringCase(kBodyColours, type);
}

void GetJsonPlateType(const Json::Value& value, int& type) {
    // The first match, unlike its siblings: "Other" stands twice.
    type = Node(value).firstIgnoringCase(kPlateKinds, type);
}

void ParseVehicleDataType(const Json::Value& object, tagEM_VEHICLE_DATA_TYPE& type) {
    const Members<kNames> in{Node(object)};
    type = EM_VEHICLE_DATA_TYPE_UNKNOWN;
    if (auto v = in["DataType"]) {
        type = static_cast<tagEM_VEHICLE_DATA_TYPE>(v.stringFirstIgnoringCase(kVehicleDataTypes, 0));
    }
}

bool ParseStrobeState(const Json::Value& value, unsigned char& state) {
    state = static_cast<unsigned char>(Node(value).firstIgnoringCase(kStrobeStates, 0));
    return true;
}

bool ParseSeatBelt(const Json::Value& value, unsigned char& state) {
    state = static_cast<unsigned char>(Node(value).firstIgnoringCase(kSeatBeltStates, 0));
    return true;
}

int ParseSafeBeltStatue(std::string word) {
    const Keyword* row = FirstExact(kSeatBeltStates, word);
    return row == nullptr ? 0 : row->code;
}

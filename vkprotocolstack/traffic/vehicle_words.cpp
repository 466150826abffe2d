#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/traffic/vehicle_words_keywords.h"
#include "vkprotocolstack/wire/message_node.h"
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
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

constexpr NameList kNames{"DataType"};

int PlateKind(Node word, int otherwise) {
    // The first match, unlike its siblings: "Other" stands twice.
    return word.firstIgnoringCase(kPlateKinds, otherwise);
}

void Read(Node node, tagEM_VEHICLE_DATA_TYPE& type) {
    const Members<kNames> in(node);
    type = EM_VEHICLE_DATA_TYPE_UNKNOWN;
    if (auto v = in["DataType"]) {
        type = static_cast<tagEM_VEHICLE_DATA_TYPE>(v.stringFirstIgnoringCase(kVehicleDataTypes, 0));
    }
}

bool ReadState(Node word, jsonparser::Keywords table, unsigned char& state) {
    state = static_cast<unsigned char>(word.firstIgnoringCase(table, 0));
    return true;
}

}  // namespace

void GetJsonPlateColorType(const Json::Value& value, int& type) {
    type = Node(value).lastIgnoringCase(kPlateColours, type);
}

void GetJsonPlateColorType(const MessagePlace& place, int& type) {
    if (const auto node = NodeAt(place)) type = node->lastIgnoringCase(kPlateColours, type);
}

void GetJsonVehicleType(const Json::Value& value, int& type) {
    type = Node(value).lastIgnoringCase(kVehicleKinds, type);
}

void GetJsonVehicleType(const MessagePlace& place, int& type) {
    if (const auto node = NodeAt(place)) type = node->lastIgnoringCase(kVehicleKinds, type);
}

void GetJsonVehicleColorType(const Json::Value& value, int& type) {
    type = Node(value).lastIgnoringCase(kBodyColours, type);
}

void GetJsonVehicleColorType(const MessagePlace& place, int& type) {
    if (const auto node = NodeAt(place)) type = node->lastIgnoringCase(kBodyColours, type);
}

void GetJsonPlateType(const Json::Value& value, int& type) { type = PlateKind(Node(value), type); }

void GetJsonPlateType(const MessagePlace& place, int& type) {
    if (const auto node = NodeAt(place)) type = PlateKind(*node, type);
}

void ParseVehicleDataType(const Json::Value& object, tagEM_VEHICLE_DATA_TYPE& type) { Read(Node(object), type); }

void ParseVehicleDataType(const MessagePlace& object, tagEM_VEHICLE_DATA_TYPE& type) {
    if (const auto node = NodeAt(object, kNames)) Read(*node, type);
}

bool ParseStrobeState(const Json::Value& value, unsigned char& state) {
    return ReadState(Node(value), kStrobeStates, state);
}

bool ParseStrobeState(const MessagePlace& place, unsigned char& state) {
    const auto node = NodeAt(place);
    return node && ReadState(*node, kStrobeStates, state);
}

bool ParseSeatBelt(const Json::Value& value, unsigned char& state) {
    return ReadState(Node(value), kSeatBeltStates, state);
}

bool ParseSeatBelt(const MessagePlace& place, unsigned char& state) {
    const auto node = NodeAt(place);
    return node && ReadState(*node, kSeatBeltStates, state);
}

int ParseSafeBeltStatue(std::string word) {
    const Keyword* row = FirstExact(kSeatBeltStates, word);
    return row == nullptr ? 0 : row->code;
}

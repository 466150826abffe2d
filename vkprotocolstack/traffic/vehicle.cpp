#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

constexpr NameList kNames{"Category"};

bool Read(Node node, tagEVENT_VEHICLE_INFO& info) {
    const Members<kNames> in(node);
    if (auto v = in["Category"]) return v.stringTo(info.szVehicleCategory, 64);
    return true;
}

}  // namespace

bool ParseStrtoVehicle(const Json::Value& vehicle, tagEVENT_VEHICLE_INFO* info) { return Read(Node(vehicle), *info); }

bool ParseStrtoVehicle(const MessagePlace& vehicle, tagEVENT_VEHICLE_INFO* info) {
    const auto node = NodeAt(vehicle, kNames);
    return node && Read(*node, *info);
}

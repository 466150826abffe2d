#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::NameList;
using jsonparser::Node;

namespace {

constexpr NameList kNames{"Category"};

}  // namespace

bool ParseStrtoVehicle(const Json::Value& vehicle, tagEVENT_VEHICLE_INFO* info) {
    const Members<kNames> in{Node(vehicle)};
    if (auto v = in["Category"]) return v.stringTo(info->szVehicleCategory, 64);
    return true;
}

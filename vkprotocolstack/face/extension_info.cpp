#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::NameList;
using jsonparser::Node;

namespace {

constexpr NameList kNames{"EventLongID"};
constexpr NameList kHumanTraitNames{"AdditionalCode"};

}  // namespace

bool ParseExtensionInfo(const Json::Value& event, tagNET_EXTENSION_INFO& info) {
    const Members<kNames> in{Node(event)};
    in["EventLongID"].stringTo(info.szEventLongID, 52);
    return true;
}

bool ParseHumanTraitExtensionInfo(const Json::Value& event, tagNET_HUMANTRAIT_EXTENSION_INFO& info) {
    const Members<kHumanTraitNames> in{Node(event)};
    in["AdditionalCode"].stringTo(info.szAdditionalCode, 36);
    return true;
}

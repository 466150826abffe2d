#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

constexpr NameList kNames{"EventLongID"};
constexpr NameList kHumanTraitNames{"AdditionalCode"};

void Read(Node node, tagNET_EXTENSION_INFO& info) {
    const Members<kNames> in(node);
    in["EventLongID"].stringTo(info.szEventLongID, 52);
}

void Read(Node node, tagNET_HUMANTRAIT_EXTENSION_INFO& info) {
    const Members<kHumanTraitNames> in(node);
    in["AdditionalCode"].stringTo(info.szAdditionalCode, 36);
}

}  // namespace

bool ParseExtensionInfo(const Json::Value& event, tagNET_EXTENSION_INFO& info) {
    Read(Node(event), info);
    return true;
}

bool ParseExtensionInfo(const MessagePlace& event, tagNET_EXTENSION_INFO& info) {
    const auto node = NodeAt(event, kNames);
    if (node) Read(*node, info);
    return node.isAccepted;
}

bool ParseHumanTraitExtensionInfo(const Json::Value& event, tagNET_HUMANTRAIT_EXTENSION_INFO& info) {
    Read(Node(event), info);
    return true;
}

bool ParseHumanTraitExtensionInfo(const MessagePlace& event, tagNET_HUMANTRAIT_EXTENSION_INFO& info) {
    const auto node = NodeAt(event, kHumanTraitNames);
    if (node) Read(*node, info);
    return node.isAccepted;
}

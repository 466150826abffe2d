#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/config/intercom_keywords.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::kCallerTypes;
using jsonparser::kMissionConfirmations;
using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

constexpr NameList kNames{"Caller"};

void Read(Node node, tagALARM_TALKING_INVITE_INFO* info) {
    const Members<kNames> in(node);
    info->emCallerType = in["Caller"].firstIgnoringCase(kCallerTypes, 0);
}

int Read(Node node, tagNET_MISSION_CONFIRM_TYPE& type) {
    const int code = node.firstIgnoringCase(kMissionConfirmations, NET_MISSION_CONFIRM_UNKNOWN);
    type = static_cast<tagNET_MISSION_CONFIRM_TYPE>(code);
    return type == NET_MISSION_CONFIRM_UNKNOWN ? 0 : 1;
}

}  // namespace

void ParseTalkingCallerType(const Json::Value& invitation, tagALARM_TALKING_INVITE_INFO* info) {
    Read(Node(invitation), info);
}

void ParseTalkingCallerType(const MessagePlace& invitation, tagALARM_TALKING_INVITE_INFO* info) {
    if (const auto node = NodeAt(invitation, kNames)) Read(*node, info);
}

int ParseConfirmAction(const Json::Value& value, tagNET_MISSION_CONFIRM_TYPE& type) { return Read(Node(value), type); }

int ParseConfirmAction(const MessagePlace& place, tagNET_MISSION_CONFIRM_TYPE& type) {
    const auto node = NodeAt(place);
    return node ? Read(*node, type) : 0;
}

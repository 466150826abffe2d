#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/config/intercom_keywords.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::kCallerTypes;
using jsonparser::kMissionConfirmations;
using jsonparser::Members;
using jsonparser::NameList;
using jsonparser::Node;

namespace {

constexpr NameList kNames{"Caller"};

}  // namespace

void ParseTalkingCallerType(const Json::Value& invitation, tagALARM_TALKING_INVITE_INFO* info) {
    const Members<kNames> in{Node(invitation)};
    info->emCallerType = in["Caller"].firstIgnoringCase(kCallerTypes, 0);
}

int ParseConfirmAction(const Json::Value& value, tagNET_MISSION_CONFIRM_TYPE& type) {
    const int code = Node(value).firstIgnoringCase(kMissionConfirmations, NET_MISSION_CONFIRM_UNKNOWN);
    type = static_cast<tagNET_MISSION_CONFIRM_TYPE>(code);
    return type == NET_MISSION_CONFIRM_UNKNOWN ? 0 : 1;
}

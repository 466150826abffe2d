#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/time/time_text.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

constexpr NameList kNames{"SrcEvent", "SrcTime", "SrcChannel"};

void Read(Node node, tagDEV_SRC_INFO* info) {
    const Members<kNames> in(node);
    if (auto v = in["SrcEvent"]) v.stringTo(info->szSrcEvent, 32);
    if (auto v = in["SrcTime"]) Read(v, info->stuSrcTime);
    if (auto v = in["SrcChannel"]) info->nSrcChannel = v.asInt();
}

}  // namespace

void ParseSrcInfo(const Json::Value& source, tagDEV_SRC_INFO* info) { Read(Node(source), info); }

void ParseSrcInfo(const MessagePlace& source, tagDEV_SRC_INFO* info) {
    if (const auto node = NodeAt(source, kNames)) Read(*node, info);
}

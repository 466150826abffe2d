#include <algorithm>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

constexpr NameList kNames{"ID", "Name", "Current", "Worst", "Threshold", "Raw", "Predict", "Sync"};

void Read(Node node, tagNET_HDDSMART_INFO* info) {
    const Members<kNames> in(node);
    if (auto v = in["ID"]) info->nID = v.asInt();
    if (auto v = in["Name"]) v.stringTo(info->szName, 64);
    if (auto v = in["Current"]) info->nCurrent = v.asInt();
    if (auto v = in["Worst"]) info->nWorst = v.asInt();
    if (auto v = in["Threshold"]) info->nThreshold = v.asInt();
    if (auto v = in["Raw"]) v.stringTo(info->szRaw, 32);
    if (auto v = in["Predict"]) info->nPredict = v.asInt();
    info->nSync = -1;
    if (auto v = in["Sync"]) info->nSync = std::max(v.asInt(), -1);
}

}  // namespace

void ParseSyncStateInfo(const Json::Value& attribute, tagNET_HDDSMART_INFO* info) { Read(Node(attribute), info); }

void ParseSyncStateInfo(const MessagePlace& attribute, tagNET_HDDSMART_INFO* info) {
    if (const auto node = NodeAt(attribute, kNames)) Read(*node, info);
}

#include <algorithm>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::NameList;
using jsonparser::Node;

namespace {

constexpr NameList kNames{"ID", "Name", "Current", "Worst", "Threshold", "Raw", "Predict", "Sync"};

}  // namespace

void ParseSyncStateInfo(const Json::Value& attribute, tagNET_HDDSMART_INFO* info) {
    const Members<kNames> in{Node(attribute)};
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

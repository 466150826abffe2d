#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/time/time_text.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::NameList;
using jsonparser::Node;

namespace {

constexpr NameList kNames{"SrcEvent", "SrcTime", "SrcChannel"};

}  // namespace

void ParseSrcInfo(const Json::Value& source, tagDEV_SRC_INFO* info) {
    const Members<kNames> in{Node(source)};
    if (auto v = in["SrcEvent"]) v.stringTo(info->szSrcEvent, 32);
    if (auto v = in["SrcTime"]) Read(v, info->stuSrcTime);
    if (auto v = in["SrcChannel"]) info->nSrcChannel = v.asInt();
}

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/foundation/box.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/record.h"

using jsonparser::BoxOf;
using jsonparser::Clear;
using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::PointOf;

namespace {

constexpr NameList kNames{"ObjectID", "ObjectType", "Sequence", "Score", "BoundingBox", "Center"};

void Read(Node node, tagNET_BULLET_HOLES_INFO& hole) {
    const Members<kNames> in(node);
    Clear(hole);
    if (auto v = in["ObjectID"]) hole.nObjectID = v.asInt();
    if (auto v = in["ObjectType"]) v.utf8To(hole.szObjectType, 128);
    if (auto v = in["Sequence"]) hole.nSequence = v.asInt();
    if (auto v = in["Score"]) hole.nScore = v.asInt();
    if (auto v = in["BoundingBox"]; v.size() >= 4) hole.stuBoundingBox = BoxOf(v);
    if (auto v = in["Center"]; v.size() >= 2) hole.stuCenter = PointOf(v);
}

}  // namespace

int ParseBulletHolesInfo(const Json::Value& node, tagNET_BULLET_HOLES_INFO* pInfo) {
    if (pInfo == nullptr) return 0;
    Read(Node(node), *pInfo);
    return 1;
}

int ParseBulletHolesInfo(const MessagePlace& place, tagNET_BULLET_HOLES_INFO* pInfo) {
    if (pInfo == nullptr) return 0;
    const auto node = NodeAt(place, kNames);
    if (!node) return 0;
    Read(*node, *pInfo);
    return 1;
}

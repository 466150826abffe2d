#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/face/person.h"
#include "vkprotocolstack/face/picture.h"
#include "vkprotocolstack/time/time_text.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

constexpr NameList kNames{"Similarity", "Channel", "Range", "Time", "Address", "Person", "IsHit", "SceneImage"};

template <class Candidate>
void ReadCandidate(Node node, Candidate& info) {
    const Members<kNames> in(node);
    if (auto v = in["Similarity"]) info.bySimilarity = v.intLow8();
    if (auto v = in["Channel"]) info.nChannelID = v.asInt();
    if (auto v = in["Range"]) info.byRange = v.intLow8();
    if (auto v = in["Time"]) Read(v, info.stuTime);
    if (auto v = in["Address"]) v.renderTo(info.szAddress, 260);
    if (auto v = in["Person"]) Read(v, info.stuPersonInfo);
    if (auto v = in["IsHit"]) info.bIsHit = v.asBool();
    if (auto v = in["SceneImage"]) Read(v, info.stuSceneImage);
}

void Read(Node node, tagCANDIDATE_INFO& info) { ReadCandidate(node, info); }

void Read(Node node, tagCANDIDATE_INFOEX& info) {
    ReadCandidate(node, info);
    if (auto v = node["SceneImage"]["FilePath"]) v.renderTo(info.szSceneImagePath, 256);
}

}  // namespace

void ParseCandidate(Json::Value candidate, tagCANDIDATE_INFO& info) { Read(Node(candidate), info); }

void ParseCandidate(const MessagePlace& candidate, tagCANDIDATE_INFO& info) {
    if (const auto node = NodeAt(candidate, kNames)) Read(*node, info);
}

void ParseCandidate(Json::Value candidate, tagCANDIDATE_INFOEX& info) { Read(Node(candidate), info); }

void ParseCandidate(const MessagePlace& candidate, tagCANDIDATE_INFOEX& info) {
    if (const auto node = NodeAt(candidate, kNames)) Read(*node, info);
}

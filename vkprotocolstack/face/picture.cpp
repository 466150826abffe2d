#include "vkprotocolstack/face/picture.h"

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"

namespace jsonparser {
namespace {

constexpr NameList kNames{"Offset", "Length", "Width", "Height", "FilePath", "IsDetected"};

void ReadPath(Node path, VK_PIC_INFO& info) {
    if (path.isString()) info.pszFilePath = path.heapString();
}

void ReadPath(Node path, VK_PIC_INFO_EX3& info) {
    if (path) path.renderTo(info.szFilePath, 64);
}

template <class Picture>
void ReadPicture(Node node, Picture& info) {
    const Members<kNames> in(node);
    if (auto v = in["Offset"]) info.dwOffset = static_cast<unsigned>(v.asInt());
    if (auto v = in["Length"]) info.dwFileLength = static_cast<unsigned>(v.asInt());
    if (auto v = in["Width"]) info.wWidth = v.intLow16();
    if (auto v = in["Height"]) info.wHeight = v.intLow16();
    ReadPath(in["FilePath"], info);
    if (auto v = in["IsDetected"]; v.isBool()) info.bIsDetected = v.asBool();
}

}  // namespace

void Read(Node node, VK_PIC_INFO& info) { ReadPicture(node, info); }
void Read(Node node, VK_PIC_INFO_EX3& info) { ReadPicture(node, info); }

}  // namespace jsonparser

using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;

void ParseImageInfo(Json::Value image, VK_PIC_INFO& info) { Read(Node(image), info); }

void ParseImageInfo(const MessagePlace& image, VK_PIC_INFO& info) {
    if (const auto node = NodeAt(image, jsonparser::kNames)) Read(*node, info);
}

void ParseImageInfo(Json::Value image, VK_PIC_INFO_EX3& info) { Read(Node(image), info); }

void ParseImageInfo(const MessagePlace& image, VK_PIC_INFO_EX3& info) {
    if (const auto node = NodeAt(image, jsonparser::kNames)) Read(*node, info);
}

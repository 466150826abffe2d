#include "vkprotocolstack/foundation/geometry.h"

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/write.h"

namespace jsonparser {

int Read(Node node, VK_RECT& rect) {
    rect = {};
    if (!node.isArray() || node.size() != 4) return 0;
    rect.nLeft = node.at(0).asInt();
    rect.nTop = node.at(1).asInt();
    rect.nRight = node.at(2).asInt();
    rect.nBottom = node.at(3).asInt();
    return 1;
}

bool Read(Node node, tagNET_RECT& rect) {
    if (!node.isArray() || node.size() != 4) return false;
    rect.nLeft = node.at(0).asInt();
    rect.nTop = node.at(1).asInt();
    rect.nRight = node.at(2).asInt();
    rect.nBottom = node.at(3).asInt();
    return true;
}

int Read(Node node, VK_POINT& point) {
    if (!node.isArray() || node.size() != 2) return 0;
    point.nx = static_cast<short>(node.at(0).intLow16());
    point.ny = static_cast<short>(node.at(1).intLow16());
    return 1;
}

}  // namespace jsonparser

using jsonparser::AsArray;
using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::Put;

int GetJsonRect(const Json::Value& value, VK_RECT& rect) { return Read(Node(value), rect); }

int GetJsonRect(const MessagePlace& place, VK_RECT& rect) {
    const auto node = NodeAt(place);
    return node ? Read(*node, rect) : 0;
}

int SetJsonRect(Json::Value& value, const VK_RECT& rect) {
    Put(value, 0, static_cast<int>(rect.nLeft));
    Put(value, 1, static_cast<int>(rect.nTop));
    Put(value, 2, static_cast<int>(rect.nRight));
    Put(value, 3, static_cast<int>(rect.nBottom));
    return 1;
}

template <class Rect>
bool JsonRect::parse(const Json::Value& value, Rect& rect) {
    return Read(Node(value), rect);
}
template VK_API bool JsonRect::parse(const Json::Value& value, tagNET_RECT& rect);

template <class Rect>
bool JsonRect::parse(const MessagePlace& place, Rect& rect) {
    const auto node = NodeAt(place);
    return node && Read(*node, rect);
}
template VK_API bool JsonRect::parse(const MessagePlace& place, tagNET_RECT& rect);

int GetJsonPoint(const Json::Value& value, VK_POINT& point) { return Read(Node(value), point); }

int GetJsonPoint(const MessagePlace& place, VK_POINT& point) {
    const auto node = NodeAt(place);
    return node ? Read(*node, point) : 0;
}

int SetJsonPoint(Json::Value& value, const VK_POINT& point) {
    AsArray(value).clear();  // jsoncpp's resize throws on an array that holds only some of its elements
    Put(value, 0, point.nx);
    Put(value, 1, point.ny);
    return 1;
}

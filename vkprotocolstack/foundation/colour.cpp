#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/write.h"

using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::Put;

namespace {

int Read(Node node, unsigned int& color) {
    if (!node.isArray() || node.size() != 4) return 0;
    color = 0;
    for (unsigned i = 0; i < 4; ++i) color |= static_cast<unsigned>(node.at(i).intLow8()) << (8 * i);
    return 1;
}

}  // namespace

int GetJsonColor(const Json::Value& value, unsigned int& color) { return Read(Node(value), color); }

int GetJsonColor(const MessagePlace& place, unsigned int& color) {
    const auto node = NodeAt(place);
    return node ? Read(*node, color) : 0;
}

int SetJsonColor(Json::Value& value, unsigned int color) {
    for (unsigned i = 0; i < 4; ++i) Put(value, i, static_cast<int>((color >> (8 * i)) & 0xFFU));
    return 1;
}

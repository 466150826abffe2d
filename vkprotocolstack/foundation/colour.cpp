#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/write.h"

using jsonparser::Node;
using jsonparser::Put;

int GetJsonColor(const Json::Value& value, unsigned int& color) {
    const Node node(value);
    if (!node.isArray() || node.size() != 4) return 0;
    color = 0;
    for (unsigned i = 0; i < 4; ++i) color |= static_cast<unsigned>(node.at(i).intLow8()) << (8 * i);
    return 1;
}

int SetJsonColor(Json::Value& value, unsigned int color) {
    for (unsigned i = 0; i < 4; ++i) Put(value, i, static_cast<int>((color >> (8 * i)) & 0xFFU));
    return 1;
}

#include <algorithm>
#include <cstddef>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/status/log_type_keywords.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::kLogTypes;
using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

void Read(Node node, int* types, int capacity, int& count) {
    if (types == nullptr || !node) return;
    count = 0;
    node.forElements(static_cast<unsigned>(capacity), [&](Node name, std::size_t) {
        const int type = name.firstContained(kLogTypes, 0);
        const bool isNew = std::find(types, types + count, type) == types + count;
        if (type != 0 && isNew) types[count++] = type;
    });
}

}  // namespace

void GetJsonLogType(const Json::Value& names, int* types, int capacity, int& count) {
    Read(Node(names), types, capacity, count);
}

void GetJsonLogType(const MessagePlace& names, int* types, int capacity, int& count) {
    if (const auto node = NodeAt(names)) Read(*node, types, capacity, count);
}

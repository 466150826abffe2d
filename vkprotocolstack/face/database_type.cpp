#include <string>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/face/database_type_keywords.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::FirstWithCode;
using jsonparser::Keyword;
using jsonparser::kFaceDatabaseTypes;
using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

bool Read(Node word, int& type) {
    const int code = word.firstIgnoringCase(kFaceDatabaseTypes, 0);
    if (code == 0) return false;
    type = code;
    return true;
}

}  // namespace

bool PacketFaceDBType(Json::Value& node, int type) {
    const Keyword* row = FirstWithCode(kFaceDatabaseTypes, type);
    if (row == nullptr) return false;
    node = std::string(row->text);
    return true;
}

bool ParseFaceDBType(const Json::Value& node, int& type) { return Read(Node(node), type); }

bool ParseFaceDBType(const MessagePlace& place, int& type) {
    const auto node = NodeAt(place);
    return node && Read(*node, type);
}

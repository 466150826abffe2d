#include <string>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/face/database_type_keywords.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::FirstWithCode;
using jsonparser::Keyword;
using jsonparser::kFaceDatabaseTypes;
using jsonparser::Node;

bool PacketFaceDBType(Json::Value& node, int type) {
    const Keyword* row = FirstWithCode(kFaceDatabaseTypes, type);
    if (row == nullptr) return false;
    node = std::string(row->text);
    return true;
}

bool ParseFaceDBType(const Json::Value& node, int& type) {
    const int code = Node(node).firstIgnoringCase(kFaceDatabaseTypes, 0);
    if (code == 0) return false;
    type = code;
    return true;
}

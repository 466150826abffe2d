#include "vkprotocolstack/status/error_code.h"

#include <algorithm>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::ErrorCode;
using jsonparser::kErrorCodes;
using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;

namespace {

constexpr NameList kNames{"error"};
constexpr NameList kErrorNames{"code"};

constexpr unsigned kNoUsableCode = 0x80000015;

unsigned LibraryCodeOf(Node reply) {
    const Members<kNames> in(reply);
    const Members<kErrorNames> error(in["error"]);
    return error["code"].errorCode(ParseErrorCode, kNoUsableCode);
}

}  // namespace

unsigned int ParseErrorCode(const Json::Value& reply) { return LibraryCodeOf(Node(reply)); }

unsigned int ParseErrorCode(const MessagePlace& reply) {
    const auto node = NodeAt(reply, kNames);
    return node ? LibraryCodeOf(*node) : kNoUsableCode;
}

bool ParseErrorCode(unsigned int deviceCode, unsigned int& libraryCode) {
    const auto* row = std::find_if(std::begin(kErrorCodes), std::end(kErrorCodes),
                                   [deviceCode](const ErrorCode& code) { return code.device == deviceCode; });
    if (row == std::end(kErrorCodes)) return false;
    libraryCode = row->library;
    return true;
}

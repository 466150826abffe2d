#include <json/value.h>

#include <cstring>
#include <string_view>

#include "vkprotocolstack/support/charset.h"
#include "vkprotocolstack/support/support.h"

void packetStrToJsonNode(Json::Value& node, const char* text, int size) {
    const std::size_t length = text == nullptr || size <= 0 ? 0 : strnlen(text, static_cast<std::size_t>(size));
    node = jsonparser::support::Utf8Node(length == 0 ? "" : std::string_view(text, length));
}

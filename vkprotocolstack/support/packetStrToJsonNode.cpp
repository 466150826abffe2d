#include <json/value.h>

#include <cstring>

#include "vkprotocolstack/support/support.h"

void packetStrToJsonNode(Json::Value& node, const char* text, int size) {
    const std::size_t length = text == nullptr || size <= 0 ? 0 : strnlen(text, static_cast<std::size_t>(size));
    node = length == 0 ? Json::Value("") : Json::Value(text, text + length);
}

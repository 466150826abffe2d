#include <algorithm>
#include <climits>
#include <memory>
#include <new>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

void parseUtf8JasonToAssic(const Json::Value& value, char* destination, int limit) {
    jsonparser::Node(value).utf8To(destination, limit);
}

void parseUtf8JasonToAssic(const jsonparser::MessagePlace& place, char* destination, int limit) {
    if (const auto node = jsonparser::NodeAt(place)) node->utf8To(destination, limit);
}

void packetAssicToUtf8Jason(Json::Value& value, char* text, int length) {
    if (length < 0 || length > (INT_MAX - 2) / 2) return;
    const std::size_t size = 2 * static_cast<std::size_t>(length) + 2;
    const std::unique_ptr<char[]> buffer(new (std::nothrow) char[size]);
    if (buffer == nullptr) return;
    std::fill_n(buffer.get(), size, '\0');
    Change_Assic_UTF8(text, length, buffer.get(), static_cast<int>(size));
    value = Json::Value(buffer.get());
}

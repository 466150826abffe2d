#include <json/value.h>

#include "vkprotocolstack/support/charset.h"
#include "vkprotocolstack/support/support.h"

void SetJsonString(Json::Value& value, const char* text, bool convert) {
    if (text == nullptr) text = "";
    value = convert ? jsonparser::support::Utf8Node(text) : Json::Value(text);
}

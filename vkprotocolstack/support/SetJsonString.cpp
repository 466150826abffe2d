#include <json/value.h>

#include "vkprotocolstack/support/support.h"

void SetJsonString(Json::Value& value, const char* text, bool /*convert*/) {
    value = Json::Value(text == nullptr ? "" : text);
}

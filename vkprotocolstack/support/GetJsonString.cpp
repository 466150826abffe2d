#include <json/value.h>

#include <string_view>

#include "vkprotocolstack/support/charset.h"
#include "vkprotocolstack/support/defaults.h"
#include "vkprotocolstack/support/support.h"

using jsonparser::support::CopyCut;
using jsonparser::support::ToLocal;
using jsonparser::support::UpToNul;

bool GetJsonString(const Json::Value& value, char* buffer, int size, bool convert) {
    const char* begin = nullptr;
    const char* end = nullptr;
    const bool isText = value.isString() && value.getString(&begin, &end);
    const std::string_view text = isText ? std::string_view(begin, static_cast<std::size_t>(end - begin)) : "";
    if (size <= 0) return isText;
    if (convert) {
        ToLocal(UpToNul(text), buffer, static_cast<std::size_t>(size));
    } else {
        CopyCut(UpToNul(text), buffer, static_cast<std::size_t>(size));
    }
    return isText;
}

[[gnu::alias("_Z13GetJsonStringRKN4Json5ValueEPcib")]] bool jsonparser::support::DefaultGetJsonString(
    const Json::Value& value, char* buffer, int size, bool convert);

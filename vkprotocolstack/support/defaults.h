// The default text functions by names that no client defines. Where a function is at its default's address, the caller
// knows what it does.
#ifndef VKPROTOCOLSTACK_SUPPORT_DEFAULTS_H
#define VKPROTOCOLSTACK_SUPPORT_DEFAULTS_H

#include <json/forwards.h>

#include "vkprotocolstack/support/export.h"

namespace jsonparser::support {

// Null in a program whose linker took a client's function instead: asking does not make it take the default.
[[gnu::weak]] VK_API void DefaultChangeUtf8Assic(unsigned char* source, char* destination);
[[gnu::weak]] VK_API bool DefaultGetJsonString(const Json::Value& value, char* buffer, int size, bool convert);
[[gnu::weak]] VK_API void DefaultParseJsonNodeToStr(const Json::Value& node, char* buffer, int size);

}  // namespace jsonparser::support

#endif

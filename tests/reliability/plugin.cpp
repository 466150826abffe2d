// A library that a program loads and unloads, with the converters in it or below it.

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/message_text.h"

/// Reads a message's text, on the road that keeps memory for the next one, and converts a name to the thread's locale.
/// @return the first byte of that name
extern "C" __attribute__((visibility("default"))) int ReadName() {
    jsonparser::MessageText text(R"({"Category": "x"})");
    tagVK_MSG_OBJECT_EX2 record{};
    ParseStrtoObject(text.at(""), &record);
    if (record.szObjectCategory[0] != 'x') return 0;
    char name[8] = "";
    GetJsonString(Json::Value("路"), name, sizeof name, true);
    return static_cast<unsigned char>(name[0]);
}

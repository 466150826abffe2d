// A client's own definitions of all support functions. Each leaves a mark that the defaults would not.
#include "own_functions.h"

#include <json/value.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "vkprotocolstack/support/support.h"

std::vector<std::string>& OwnCalls() {
    static std::vector<std::string> calls;
    return calls;
}

bool GetJsonString(const Json::Value& /*value*/, char* buffer, int size, bool /*convert*/) {
    OwnCalls().emplace_back("GetJsonString");
    std::snprintf(buffer, static_cast<std::size_t>(size), "own");
    return true;
}

void SetJsonString(Json::Value& value, const char* /*text*/, bool /*convert*/) {
    OwnCalls().emplace_back("SetJsonString");
    value = "own";
}

void parseJsonNodeToStr(const Json::Value& /*node*/, char* buffer, int size) {
    OwnCalls().emplace_back("parseJsonNodeToStr");
    std::snprintf(buffer, static_cast<std::size_t>(size), "own");
}

void packetStrToJsonNode(Json::Value& node, const char* /*text*/, int /*size*/) {
    OwnCalls().emplace_back("packetStrToJsonNode");
    node = "own";
}

void Change_Utf8_Assic(unsigned char* /*source*/, char* destination) {
    OwnCalls().emplace_back("Change_Utf8_Assic");
    std::strcpy(destination, "own");
}

void Change_Assic_UTF8(const char* /*source*/, int /*sourceLength*/, char* destination, int destinationSize) {
    OwnCalls().emplace_back("Change_Assic_UTF8");
    std::snprintf(destination, static_cast<std::size_t>(destinationSize), "own");
}

int _stricmp(const char* a, const char* b) {
    OwnCalls().emplace_back("_stricmp");
    return std::strcmp(a, b);
}

int _snprintf(char* buffer, std::size_t count, const char* format, ...) {
    OwnCalls().emplace_back("_snprintf");
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, count, format, arguments);
    va_end(arguments);
    return length;
}

void SetBasicInfo(const char* /*sourceFile*/, int /*line*/, int /*level*/) { OwnCalls().emplace_back("SetBasicInfo"); }

void SDKLogTraceOut(int /*code*/, const char* /*message*/) { OwnCalls().emplace_back("SDKLogTraceOut"); }

int TranslateAlarmType(int deviceAlarmType) {
    OwnCalls().emplace_back("TranslateAlarmType");
    return deviceAlarmType + 1000;
}

// A client's own definition of one support function: the one of which OWN_<name> is defined. Each leaves a mark that
// the default would not.
#include <json/value.h>
#include <vkprotocolstack/support/support.h>

#include <cstddef>
#include <cstdio>
#include <cstring>

#if defined(OWN_GetJsonString)
bool GetJsonString(const Json::Value& /*value*/, char* buffer, int size, bool /*convert*/) {
    std::snprintf(buffer, static_cast<std::size_t>(size), "own");
    return true;
}
#elif defined(OWN_SetJsonString)
void SetJsonString(Json::Value& value, const char* /*text*/, bool /*convert*/) { value = "own"; }
#elif defined(OWN_parseJsonNodeToStr)
void parseJsonNodeToStr(const Json::Value& /*node*/, char* buffer, int size) {
    std::snprintf(buffer, static_cast<std::size_t>(size), "own");
}
#elif defined(OWN_packetStrToJsonNode)
void packetStrToJsonNode(Json::Value& node, const char* /*text*/, int /*size*/) { node = "own"; }
#elif defined(OWN_Change_Utf8_Assic)
void Change_Utf8_Assic(unsigned char* /*source*/, char* destination) { std::strcpy(destination, "own"); }
#elif defined(OWN_Change_Assic_UTF8)
void Change_Assic_UTF8(const char* /*source*/, int /*sourceLength*/, char* destination, int destinationSize) {
    std::snprintf(destination, static_cast<std::size_t>(destinationSize), "own");
}
#elif defined(OWN__stricmp)
int _stricmp(const char* /*a*/, const char* /*b*/) { return 1000; }
#elif defined(OWN__snprintf)
int _snprintf(char* /*buffer*/, std::size_t /*count*/, const char* /*format*/, ...) { return 1000; }
#elif defined(OWN_SetBasicInfo)
void SetBasicInfo(const char* /*sourceFile*/, int /*line*/, int /*level*/) {}
#elif defined(OWN_SDKLogTraceOut)
void SDKLogTraceOut(int /*code*/, const char* /*message*/) {}
#elif defined(OWN_TranslateAlarmType)
int TranslateAlarmType(int deviceAlarmType) { return deviceAlarmType + 1000; }
#else
#error "a support function that this test does not know"
#endif

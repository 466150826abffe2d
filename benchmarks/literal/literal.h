// Converters as they are written from their contracts without further thought: a look-up by name for every test and one
// more for every read, texts copied out by asString, times scanned by sscanf and printed by snprintf. What the
// library's own converters are measured against. They expect well-formed messages: jsoncpp throws on some others.
#ifndef BENCHMARKS_LITERAL_LITERAL_H
#define BENCHMARKS_LITERAL_LITERAL_H

#include <json/value.h>

#include "vkrecords/vkrecords.h"

namespace literal {

int ParseStrtoTrafficCar(Json::Value& node, tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO* car);

int ParseStrtoObject(const Json::Value& root, tagVK_MSG_OBJECT_EX2* object);

void ParsePersonInfo(Json::Value person, tagFACERECOGNITION_PERSON_INFOEX& info);

int GetJsonTimeSchedule(const Json::Value& value, tagCFG_TIME_SCHEDULE& schedule);
bool SetJsonTimeSchedule(Json::Value& value, const tagCFG_TIME_SCHEDULE& schedule);

/// Through Change_Utf8_Assic: at most limit bytes of the text.
void ReadText(const Json::Value& value, char* destination, int limit);

/// Seconds since 1970 as the calendar fields of the record.
template <class Time>
Time TimeOf(long seconds);

}  // namespace literal

#endif

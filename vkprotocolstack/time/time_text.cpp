#include "vkprotocolstack/time/time_text.h"

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/write.h"

namespace jsonparser {

bool Read(Node node, tagNET_TIME_EX& time) {
    return node.scan("%04d-%02d-%02d %02d:%02d:%02d.%d", Signs::Allowed, time.dwYear, time.dwMonth, time.dwDay,
                     time.dwHour, time.dwMinute, time.dwSecond, time.dwMillisecond);
}

bool Read(Node node, tagCFG_NET_TIME_EX& time) {
    return node.scan("%04d-%02d-%02d %02d:%02d:%02d.%d", Signs::Allowed, time.nYear, time.nMonth, time.nDay, time.nHour,
                     time.nMinute, time.nSecond, time.nMillisecond);
}

bool Read(Node node, tagNET_TIME& time) {
    return node.scan("%04d-%02d-%02d %02d:%02d:%02d", Signs::Allowed, time.dwYear, time.dwMonth, time.dwDay,
                     time.dwHour, time.dwMinute, time.dwSecond);
}

}  // namespace jsonparser

using jsonparser::Node;
using jsonparser::NumberFormat;
using jsonparser::Printed;
using jsonparser::Signs;

namespace {

/// Replaces value with the formatted text.
template <class... Number>
bool Write(Json::Value& value, const NumberFormat<sizeof...(Number)>& format, Number... numbers) {
    value = Printed(format, numbers...);
    return true;
}

bool Write(Json::Value& value, const tagNET_TIME_EX& time) {
    return Write(value, "%04d-%02d-%02d %02d:%02d:%02d.%d", time.dwYear, time.dwMonth, time.dwDay, time.dwHour,
                 time.dwMinute, time.dwSecond, time.dwMillisecond);
}

bool Write(Json::Value& value, const tagCFG_NET_TIME_EX& time) {
    return Write(value, "%04d-%02d-%02d %02d:%02d:%02d.%d", time.nYear, time.nMonth, time.nDay, time.nHour,
                 time.nMinute, time.nSecond, time.nMillisecond);
}

}  // namespace

template <class Time>
bool JsonTimeEx::parse(const Json::Value& value, Time& time) {
    return Read(Node(value), time);
}
template VK_API bool JsonTimeEx::parse(const Json::Value& value, tagNET_TIME_EX& time);
template VK_API bool JsonTimeEx::parse(const Json::Value& value, tagCFG_NET_TIME_EX& time);

template <class Time>
bool JsonTimeEx::pack(Json::Value& value, const Time& time) {
    return Write(value, time);
}
template VK_API bool JsonTimeEx::pack(Json::Value& value, const tagNET_TIME_EX& time);
template VK_API bool JsonTimeEx::pack(Json::Value& value, const tagCFG_NET_TIME_EX& time);

template <class Time>
bool JsonTime::parse(const Json::Value& value, Time& time) {
    return Read(Node(value), time);
}
template VK_API bool JsonTime::parse(const Json::Value& value, tagNET_TIME& time);

bool GetJsonTime(const Json::Value& value, tagNET_TIME_EX& time) { return JsonTimeEx::parse(value, time); }

bool GetJsonTime(const Json::Value& value, tagCFG_NET_TIME_EX& time) { return JsonTimeEx::parse(value, time); }

bool GetJsonTime(const Json::Value& value, tagCFG_TIME& time) {
    return Node(value).scan("%02d:%02d:%02d", Signs::Allowed, time.nHour, time.nMinute, time.nSecond);
}

bool GetJsonTimeB(const Json::Value& value, tagNET_TIME& time) {
    // A sign would be taken for a date's hyphen: 2024-01-05 would have month -0.
    return Node(value).scan("%04d%02d%02d %02d%02d%02d", Signs::Refused, time.dwYear, time.dwMonth, time.dwDay,
                            time.dwHour, time.dwMinute, time.dwSecond);
}

bool GetJsonDate(const Json::Value& value, tagNET_TIME& time) {
    return Node(value).scan("%04u-%02u-%02u", Signs::Allowed, time.dwYear, time.dwMonth, time.dwDay);
}

bool GetTimeStructFromStr(const Json::Value& value, tagNET_TIME& time) { return Read(Node(value), time); }

bool SetJsonTime(Json::Value& value, const tagNET_TIME_EX& time) { return JsonTimeEx::pack(value, time); }

bool SetJsonTime(Json::Value& value, const tagCFG_NET_TIME_EX& time) { return JsonTimeEx::pack(value, time); }

bool SetJsonTime(Json::Value& value, const tagCFG_TIME& time) {
    return Write(value, "%02d:%02d:%02d", time.nHour, time.nMinute, time.nSecond);
}

bool SetJsonTime(Json::Value& value, const _VKDEVTIME& time) {
    return Write(value, "%d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day, time.hour, time.minute,
                 time.second);
}

bool SetJsonTimeB(Json::Value& value, const tagNET_TIME& time) {
    return Write(value, "%04d%02d%02d %02d%02d%02d", time.dwYear, time.dwMonth, time.dwDay, time.dwHour, time.dwMinute,
                 time.dwSecond);
}

bool SetJsonDate(Json::Value& value, const tagNET_TIME& time) {
    return Write(value, "%04u-%02u-%02u", time.dwYear, time.dwMonth, time.dwDay);
}

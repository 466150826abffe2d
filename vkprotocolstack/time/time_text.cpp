#include "vkprotocolstack/time/time_text.h"

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"
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

using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::NumberFormat;
using jsonparser::Printed;
using jsonparser::Signs;

namespace {

bool Read(Node node, tagCFG_TIME& time) {
    return node.scan("%02d:%02d:%02d", Signs::Allowed, time.nHour, time.nMinute, time.nSecond);
}

bool ReadCompact(Node node, tagNET_TIME& time) {
    // A sign would be taken for a date's hyphen: 2024-01-05 would have month -0.
    return node.scan("%04d%02d%02d %02d%02d%02d", Signs::Refused, time.dwYear, time.dwMonth, time.dwDay, time.dwHour,
                     time.dwMinute, time.dwSecond);
}

bool ReadDate(Node node, tagNET_TIME& time) {
    return node.scan("%04u-%02u-%02u", Signs::Allowed, time.dwYear, time.dwMonth, time.dwDay);
}

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
bool JsonTimeEx::parse(const MessagePlace& place, Time& time) {
    const auto node = NodeAt(place);
    return node && Read(*node, time);
}
template VK_API bool JsonTimeEx::parse(const MessagePlace& place, tagNET_TIME_EX& time);
template VK_API bool JsonTimeEx::parse(const MessagePlace& place, tagCFG_NET_TIME_EX& time);

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

template <class Time>
bool JsonTime::parse(const MessagePlace& place, Time& time) {
    const auto node = NodeAt(place);
    return node && Read(*node, time);
}
template VK_API bool JsonTime::parse(const MessagePlace& place, tagNET_TIME& time);

bool GetJsonTime(const Json::Value& value, tagNET_TIME_EX& time) { return JsonTimeEx::parse(value, time); }

bool GetJsonTime(const MessagePlace& place, tagNET_TIME_EX& time) { return JsonTimeEx::parse(place, time); }

bool GetJsonTime(const Json::Value& value, tagCFG_NET_TIME_EX& time) { return JsonTimeEx::parse(value, time); }

bool GetJsonTime(const MessagePlace& place, tagCFG_NET_TIME_EX& time) { return JsonTimeEx::parse(place, time); }

bool GetJsonTime(const Json::Value& value, tagCFG_TIME& time) { return Read(Node(value), time); }

bool GetJsonTime(const MessagePlace& place, tagCFG_TIME& time) {
    const auto node = NodeAt(place);
    return node && Read(*node, time);
}

bool GetJsonTimeB(const Json::Value& value, tagNET_TIME& time) { return ReadCompact(Node(value), time); }

bool GetJsonTimeB(const MessagePlace& place, tagNET_TIME& time) {
    const auto node = NodeAt(place);
    return node && ReadCompact(*node, time);
}

bool GetJsonDate(const Json::Value& value, tagNET_TIME& time) { return ReadDate(Node(value), time); }

bool GetJsonDate(const MessagePlace& place, tagNET_TIME& time) {
    const auto node = NodeAt(place);
    return node && ReadDate(*node, time);
}

bool GetTimeStructFromStr(const Json::Value& value, tagNET_TIME& time) { return Read(Node(value), time); }

bool GetTimeStructFromStr(const MessagePlace& place, tagNET_TIME& time) { return JsonTime::parse(place, time); }

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

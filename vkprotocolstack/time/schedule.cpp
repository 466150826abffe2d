#include <algorithm>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/time/time_section.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/record.h"
#include "vkprotocolstack/wire/write.h"

using jsonparser::Clear;
using jsonparser::Element;
using jsonparser::Flag;
using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::Put;
using jsonparser::ReadLenient;
using jsonparser::Written;

namespace {

template <class Section>
bool Read(Node schedule, Section* sections, int maxRows, int maxSegments, int* rowsFound) {
    const std::size_t rows = std::min(schedule.size(), static_cast<std::size_t>(maxRows));
    if (rows == 0) return false;
    if (rowsFound != nullptr) *rowsFound = static_cast<int>(rows);
    const auto stride = static_cast<std::size_t>(maxSegments);
    return schedule.allElements(rows, [=](Node row, std::size_t r) {
        Section* const first = sections + r * stride;
        return row.allElements(stride, [first](Node segment, std::size_t s) { return ReadLenient(segment, first[s]); });
    });
}

template <class Schedule>
int Read(Node node, Schedule& schedule) {
    Clear(schedule);
    int rows = 0;
    if (!Read(node, schedule.stuTimeSection[0], 8, 6, &rows) || rows < 7) return 0;
    schedule.bEnableHoliday = rows == 8;
    return 1;
}

template <class Schedule>
int Read(const MessagePlace& place, Schedule& schedule) {
    const auto node = NodeAt(place);
    return node ? Read(*node, schedule) : 0;
}

template <class Schedule>
bool Write(Json::Value& value, const Schedule& schedule) {
    return SetJsonTimeSchedule(value, schedule.stuTimeSection[0], Flag(schedule.bEnableHoliday) ? 8 : 7, 6);
}

}  // namespace

template <class Section>
bool GetJsonTimeSchedule(const Json::Value& value, Section* sections, int maxRows, int maxSegments, int* rowsFound) {
    if (sections == nullptr || maxRows < 1 || maxSegments < 1) return false;
    return Read(Node(value), sections, maxRows, maxSegments, rowsFound);
}
template VK_API bool GetJsonTimeSchedule(const Json::Value&, tagVK_TSECT*, int, int, int*);
template VK_API bool GetJsonTimeSchedule(const Json::Value&, tagCFG_TIME_SECTION*, int, int, int*);

template <class Section>
bool GetJsonTimeSchedule(const MessagePlace& place, Section* sections, int maxRows, int maxSegments, int* rowsFound) {
    if (sections == nullptr || maxRows < 1 || maxSegments < 1) return false;
    const auto node = NodeAt(place);
    return node && Read(*node, sections, maxRows, maxSegments, rowsFound);
}
template VK_API bool GetJsonTimeSchedule(const MessagePlace&, tagVK_TSECT*, int, int, int*);
template VK_API bool GetJsonTimeSchedule(const MessagePlace&, tagCFG_TIME_SECTION*, int, int, int*);

int GetJsonTimeSchedule(const Json::Value& value, tagNET_CFG_TIME_SCHEDULE& schedule) {
    return Read(Node(value), schedule);
}

int GetJsonTimeSchedule(const MessagePlace& place, tagNET_CFG_TIME_SCHEDULE& schedule) { return Read(place, schedule); }

int GetJsonTimeSchedule(const Json::Value& value, tagCFG_TIME_SCHEDULE& schedule) {
    return Read(Node(value), schedule);
}

int GetJsonTimeSchedule(const MessagePlace& place, tagCFG_TIME_SCHEDULE& schedule) { return Read(place, schedule); }

template <class Section>
bool SetJsonTimeSchedule(Json::Value& value, const Section* sections, int rows, int segments) {
    if (sections == nullptr || rows < 1 || segments < 1) return false;
    for (Json::ArrayIndex r = 0; r < static_cast<Json::ArrayIndex>(rows); ++r) {
        Json::Value& texts = Element(value, r);
        for (Json::ArrayIndex s = 0; s < static_cast<Json::ArrayIndex>(segments); ++s) {
            Put(texts, s, Written(*sections++));
        }
    }
    return true;
}
template VK_API bool SetJsonTimeSchedule(Json::Value&, const tagVK_TSECT*, int, int);
template VK_API bool SetJsonTimeSchedule(Json::Value&, const tagCFG_TIME_SECTION*, int, int);

bool SetJsonTimeSchedule(Json::Value& value, const tagNET_CFG_TIME_SCHEDULE& schedule) {
    return Write(value, schedule);
}

bool SetJsonTimeSchedule(Json::Value& value, const tagCFG_TIME_SCHEDULE& schedule) { return Write(value, schedule); }

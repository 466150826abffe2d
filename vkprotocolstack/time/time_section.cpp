#include "vkprotocolstack/time/time_section.h"

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/message_node.h"

namespace {

constexpr jsonparser::NumberFormat<7> kStrictFormat = "%d %02d:%02d:%02d-%02d:%02d:%02d";

}  // namespace

namespace jsonparser {

bool Read(Node node, tagVK_TSECT& section) {
    return WithWords(section, [node](auto&... word) { return node.scan(kStrictFormat, Signs::Allowed, word...); });
}

}  // namespace jsonparser

using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::ScanInto;
using jsonparser::Signs;
using jsonparser::WithWords;
using jsonparser::Written;

template <class Section>
bool TimeSection::parse(const Json::Value& value, Section& section) {
    return Read(Node(value), section);
}
template VK_API bool TimeSection::parse(const Json::Value& value, tagVK_TSECT& section);

template <class Section>
bool TimeSection::parse(const MessagePlace& place, Section& section) {
    const auto node = NodeAt(place);
    return node && Read(*node, section);
}
template VK_API bool TimeSection::parse(const MessagePlace& place, tagVK_TSECT& section);

template <class Section>
bool TimeSection::pack(Json::Value& value, const Section& section) {
    value = Written(section);
    return true;
}
template VK_API bool TimeSection::pack(Json::Value& value, const tagVK_TSECT& section);

bool getTimeScheduleFromStr(tagVK_TSECT& section, const char* text) {
    if (text == nullptr) return false;
    return WithWords(section, [text](auto&... word) {
        return ScanInto(text, kStrictFormat, Signs::Allowed, word...) == sizeof...(word);
    });
}

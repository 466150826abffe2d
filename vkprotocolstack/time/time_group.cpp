#include <type_traits>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/time/time_section.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/write.h"

using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::Put;
using jsonparser::ReadLenient;
using jsonparser::Written;

namespace {

template <class Section>
int Write(Json::Value& value, const Section* sections, int count) {
    if (sections == nullptr || count < 1) return 0;
    for (int i = 0; i < count; ++i) Put(value, static_cast<Json::ArrayIndex>(i), Written(sections[i]));
    return 1;
}

template <class Section>
void Read(Node group, Section* sections, int count) {
    const auto most = static_cast<std::size_t>(count);
    const std::size_t found =
        group.forElements(most, [=](Node segment, std::size_t i) { ReadLenient(segment, sections[i]); });
    if constexpr (std::is_same_v<Section, tagNET_TIME_SECTION>) {
        // Elements that are missing are looked up too; they convert nothing.
        for (std::size_t i = found; i < most; ++i) ReadLenient(group.at(i), sections[i]);
    }
}

template <class Section>
int Read(const Json::Value& value, Section* sections, int count) {
    if (sections == nullptr || count < 1) return 0;
    Read(Node(value), sections, count);
    return 1;
}

template <class Section>
int Read(const MessagePlace& place, Section* sections, int count) {
    if (sections == nullptr || count < 1) return 0;
    const auto node = NodeAt(place);
    if (!node) return 0;
    Read(*node, sections, count);
    return 1;
}

}  // namespace

int GetJsonTimeGroup(const Json::Value& value, tagCFG_TIME_SECTION* sections, int count) {
    return Read(value, sections, count);
}

int GetJsonTimeGroup(const MessagePlace& place, tagCFG_TIME_SECTION* sections, int count) {
    return Read(place, sections, count);
}

int GetJsonTimeGroup(const Json::Value& value, tagNET_TIME_SECTION* sections, int count) {
    return Read(value, sections, count);
}

int GetJsonTimeGroup(const MessagePlace& place, tagNET_TIME_SECTION* sections, int count) {
    return Read(place, sections, count);
}

int SetJsonTimeGroup(Json::Value& value, const tagCFG_TIME_SECTION* sections, int count) {
    return Write(value, sections, count);
}

int SetJsonTimeGroup(Json::Value& value, const tagNET_TIME_SECTION* sections, int count) {
    return Write(value, sections, count);
}

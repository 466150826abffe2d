#include "vkprotocolstack/wire/write.h"

#include <utility>

namespace jsonparser {

Json::Value& AsObject(Json::Value& node) {
    if (!node.isNull() && !node.isObject()) node = Json::Value(Json::objectValue);
    return node;
}

Json::Value& AsArray(Json::Value& node) {
    if (!node.isNull() && !node.isArray()) node = Json::Value(Json::arrayValue);
    return node;
}

Json::Value& Member(Json::Value& object, std::string_view name) {
    const char* const begin = name.empty() ? "" : name.data();  // jsoncpp takes a null pointer for an index
    return *AsObject(object).demand(begin, begin + name.size());
}

Json::Value& Element(Json::Value& array, Json::ArrayIndex index) {
    // jsoncpp would leave the elements before a new one out of its tree, so that walking the array would miss them.
    for (Json::ArrayIndex i = AsArray(array).size(); i < index; ++i) array[i];
    return array[index];
}

void Put(Json::Value& object, std::string_view name, Json::Value value) { Member(object, name) = std::move(value); }

void Put(Json::Value& array, Json::ArrayIndex index, Json::Value value) { Element(array, index) = std::move(value); }

void InsertNulls(Json::Value& node, std::span<const std::string_view> names) {
    if (!node.isNull() && !node.isObject()) return;
    for (const std::string_view name : names) Member(node, name);
}

}  // namespace jsonparser

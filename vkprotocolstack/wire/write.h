// Writing into a JSON node totally: a node of another type gives way to the container that is written.
#ifndef VKPROTOCOLSTACK_WIRE_WRITE_H
#define VKPROTOCOLSTACK_WIRE_WRITE_H

#include <json/value.h>

#include <span>
#include <string_view>

namespace jsonparser {

/// node, replaced by an empty object when it is neither null nor an object.
Json::Value& AsObject(Json::Value& node);

/// node, replaced by an empty array when it is neither null nor an array.
Json::Value& AsArray(Json::Value& node);

/// The member of that name, created as null when missing.
Json::Value& Member(Json::Value& object, std::string_view name);

/// The element at index, created as null when missing, like those between the array's end and it.
Json::Value& Element(Json::Value& array, Json::ArrayIndex index);

/// Sets a member, replacing what it held.
void Put(Json::Value& object, std::string_view name, Json::Value value);

/// Sets an element, replacing what it held.
void Put(Json::Value& array, Json::ArrayIndex index, Json::Value value);

/// Creates the members that are missing as null. A null node becomes an object; any other that is no object stays.
void InsertNulls(Json::Value& node, std::span<const std::string_view> names);

}  // namespace jsonparser

#endif

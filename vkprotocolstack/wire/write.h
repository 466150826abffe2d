// Writing into a JSON node totally: a node of another type gives way to the container that is written.
#ifndef VKPROTOCOLSTACK_WIRE_WRITE_H
#define VKPROTOCOLSTACK_WIRE_WRITE_H

#include <json/value.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string_view>

#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/number_format.h"

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

/// Creates as null the members of node that in, which stands on it, did not find, but for those. A null node becomes an
/// object; any other that is no object stays.
template <const auto& List>
void InsertNulls(Json::Value& node, const Members<List>& in,
                 std::initializer_list<typename Members<List>::Name> butFor) {
    if (!node.isNull() && !node.isObject()) return;
    for (std::size_t i = 0; i < List.names.size(); ++i) {
        const auto isName = [i](typename Members<List>::Name name) { return name.index == i; };
        if (!in.found(i) && std::none_of(butFor.begin(), butFor.end(), isName)) Member(node, List.names[i]);
    }
}

/// Prints numbers, as their low 32 bits, with snprintf's results.
Json::Value Printed(std::span<const NumberStep> steps, const unsigned* numbers);

/// The text of numbers by a format, as snprintf prints it.
template <class... Number>
Json::Value Printed(const NumberFormat<sizeof...(Number)>& format, Number... numbers) {
    static_assert(((sizeof(Number) <= sizeof(unsigned)) && ...));
    const std::array<unsigned, sizeof...(Number)> words{static_cast<unsigned>(numbers)...};
    return Printed(format.steps(), words.data());
}

}  // namespace jsonparser

#endif

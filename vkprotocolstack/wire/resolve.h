// Finding elements and members of a Json::Value faster than one by one.
#ifndef VKPROTOCOLSTACK_WIRE_RESOLVE_H
#define VKPROTOCOLSTACK_WIRE_RESOLVE_H

#include <json/value.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace jsonparser {

/// Where the members or elements of value begin and end; the value is not changed. A constant one's iterator is put
/// together by jsoncpp in parts and then read as a whole, which the processor has to wait for: some 8 ns a walk.
inline Json::Value::iterator BeginOf(const Json::Value& value) { return const_cast<Json::Value&>(value).begin(); }
inline Json::Value::iterator EndOf(const Json::Value& value) { return const_cast<Json::Value&>(value).end(); }

/// The member of that name of object, an object; null when it has none.
inline const Json::Value* FindMember(const Json::Value& object, std::string_view name) {
    const char* const begin = name.empty() ? "" : name.data();  // jsoncpp takes a null pointer for an index
    return object.find(begin, begin + name.size());
}

/// The element at index of array, an array; null when it ends before. An element that is not in its tree is jsoncpp's
/// null.
const Json::Value* FindElement(const Json::Value& array, std::size_t index);

/// What FindElement finds at the first indexes of array, an array, at most so many.
/// @return how many there are
std::size_t FindFirst(const Json::Value& array, std::size_t most, const Json::Value** found);

/// Calls visit with the first count elements of array, an array of as many or more, until it returns false.
/// @return whether it never did
template <class Visit>
[[gnu::always_inline]] inline bool WalkElements(const Json::Value& array, std::size_t count, Visit& visit) {
    // The tree may lack elements: the next that it has then stands further on.
    auto element = BeginOf(array);
    for (Json::ArrayIndex i = 0; i < count; ++i) {
        const bool has = element.index() == i;
        if (!visit(has ? *element : Json::Value::nullSingleton())) return false;
        if (has) ++element;
    }
    return true;
}

/// The same with the first elements of array, at most so many.
template <class Visit>
bool AllElements(const Json::Value& array, std::size_t most, Visit visit) {
    constexpr std::size_t kFew = 64;  // elements that are found at one go
    if (most > kFew && array.size() > kFew) [[unlikely]]
        return WalkElements(array, std::min<std::size_t>(most, array.size()), visit);
    std::array<const Json::Value*, kFew> elements;
    const std::size_t count = FindFirst(array, std::min(most, kFew), elements.data());
    // Not std::all_of, which holds the call of visit four times: too often for it to be expanded there.
    for (std::size_t i = 0; i < count; ++i) {
        if (!visit(*elements[i])) return false;
    }
    return true;
}

}  // namespace jsonparser

#endif

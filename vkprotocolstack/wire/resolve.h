// Finding elements and members of a Json::Value faster than one by one.
#ifndef VKPROTOCOLSTACK_WIRE_RESOLVE_H
#define VKPROTOCOLSTACK_WIRE_RESOLVE_H

#include <json/value.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace jsonparser {

/// The member of that name of object, an object; null when it has none.
inline const Json::Value* FindMember(const Json::Value& object, std::string_view name) {
    const char* const begin = name.empty() ? "" : name.data();  // jsoncpp takes a null pointer for an index
    return object.find(begin, begin + name.size());
}

/// The element at index of array, an array; null when it ends before. An element that is not in its tree is jsoncpp's
/// null.
const Json::Value* FindElement(const Json::Value& array, std::size_t index);

/// What FindElement finds at the first count indexes.
void FindFirst(const Json::Value& array, std::size_t count, const Json::Value** found);

/// Calls visit with the first elements of array, an array, at most so many, until it returns false.
/// @return whether it never did
template <class Visit>
bool ForElements(const Json::Value& array, std::size_t most, Visit visit) {
    constexpr std::ptrdiff_t kFew = 64;  // elements that may be counted
    const Json::ArrayIndex size = array.size();
    std::size_t count = std::min<std::size_t>(size, most);
    if (count == 0) return true;
    auto element = array.begin();
    if (size > kFew || array.end() - element != static_cast<std::ptrdiff_t>(size)) {
        // The tree may lack elements: the next that it has then stands further on.
        for (Json::ArrayIndex i = 0; i < count; ++i) {
            const bool has = element.index() == i;
            if (!visit(has ? *element : Json::Value::nullSingleton())) return false;
            if (has) ++element;
        }
        return true;
    }
    // The tree lacks no element, so a walk meets all of them in order.
    for (; count > 0; --count, ++element) {
        if (!visit(*element)) return false;
    }
    return true;
}

}  // namespace jsonparser

#endif

// Finding elements and members of a Json::Value faster than one by one.
#ifndef VKPROTOCOLSTACK_WIRE_RESOLVE_H
#define VKPROTOCOLSTACK_WIRE_RESOLVE_H

#include <json/value.h>

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

/// Calls visit with the first elements of array, an array, until it returns false.
/// @param count elements to visit, at most the array's size
/// @return whether it never did
template <class Visit>
bool ForElements(const Json::Value& array, std::size_t count, Visit visit) {
    constexpr std::ptrdiff_t kFew = 64;  // elements that may be counted
    auto element = array.begin();
    const Json::ArrayIndex size = array.size();
    if (size > kFew || array.end() - element != static_cast<std::ptrdiff_t>(size)) {
        for (Json::ArrayIndex i = 0; i < count; ++i) {
            if (!visit(array[i])) return false;
        }
        return true;
    }
    // The tree lacks no element, so a walk meets all of them in order.
    for (; count > 0; --count, ++element) {
        if (!visit(*element)) return false;
    }
    return true;
}

/// Calls found(i, member) for each i below count of which object, an object, has the member nameAt(i). Names come in
/// the order of their bytes.
template <class NameAt, class Found>
void Resolve(const Json::Value& object, std::size_t count, NameAt nameAt, Found found) {
    constexpr std::size_t kMembersALookup = 8;  // that a walk visits while one name is looked up
    std::size_t left = object.size();
    if (left / kMembersALookup > count) {
        for (std::size_t i = 0; i < count; ++i) {
            if (const Json::Value* member = FindMember(object, nameAt(i))) found(i, *member);
        }
        return;
    }
    // jsoncpp keeps members in the order of their names' bytes, so one walk over both finds them all.
    std::size_t i = 0;
    for (auto member = object.begin(); left > 0 && i < count; --left, ++member) {
        const char* end = nullptr;
        const char* const begin = member.memberName(&end);
        const std::string_view name(begin, static_cast<std::size_t>(end - begin));
        while (i < count) {
            const std::string_view wanted = nameAt(i);
            if (wanted == name) {
                found(i++, *member);
                break;
            }
            if (name < wanted) break;
            ++i;
        }
    }
}

}  // namespace jsonparser

#endif

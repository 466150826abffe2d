#include "vkprotocolstack/wire/resolve.h"

#include <algorithm>

namespace jsonparser {

const Json::Value* FindElement(const Json::Value& array, std::size_t index) {
    const auto place = static_cast<Json::ArrayIndex>(index);
    if (place != index) return nullptr;
    // To say the size, jsoncpp looks for the last element: only what is not found needs that.
    const Json::Value& element = array[place];
    return &element != &Json::Value::nullSingleton() || index < array.size() ? &element : nullptr;
}

std::size_t FindFirst(const Json::Value& array, std::size_t most, const Json::Value** found) {
    const std::size_t size = array.size();
    const std::size_t count = std::min(most, size);
    if (count == 0) return 0;
    const auto end = EndOf(array);
    auto next = BeginOf(array);
    std::size_t met = 0;
    do {
        found[met++] = &*next;
    } while (met < count && ++next != end);
    // Where the tree lacks elements, fewer are met, or the last one is not at its place.
    if (met == size || (met == count && next.index() == met - 1)) return count;
    for (std::size_t i = 0; i < count; ++i) found[i] = FindElement(array, i);
    return count;
}

}  // namespace jsonparser

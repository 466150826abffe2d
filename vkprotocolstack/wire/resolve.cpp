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

void FindFirst(const Json::Value& array, std::size_t count, const Json::Value** found) {
    std::fill_n(found, count, nullptr);
    const auto end = array.end();
    auto next = array.begin();
    auto last = next;
    std::size_t met = 0;
    while (met < count && next != end) {
        last = next;
        found[met++] = &*next;
        if (met < count) ++next;
    }
    // Where the tree lacks elements, the last one that was met is not at its place.
    if (met == 0 || last.index() == met - 1) return;
    for (std::size_t i = 0; i < count; ++i) found[i] = FindElement(array, i);
}

}  // namespace jsonparser

#include "vkprotocolstack/wire/resolve.h"

namespace jsonparser {

const Json::Value* FindElement(const Json::Value& array, std::size_t index) {
    const auto place = static_cast<Json::ArrayIndex>(index);
    if (place != index) return nullptr;
    // To say the size, jsoncpp looks for the last element: only what is not found needs that.
    const Json::Value& element = array[place];
    return &element != &Json::Value::nullSingleton() || index < array.size() ? &element : nullptr;
}

}  // namespace jsonparser

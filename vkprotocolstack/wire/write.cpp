#include "vkprotocolstack/wire/write.h"

#include <climits>
#include <utility>

#include "vkprotocolstack/wire/resolve.h"

namespace jsonparser {
namespace {

/// @return behind the last character
char* Print(char* to, NumberStep step, unsigned number) {
    if (step.before != '\0') *to++ = step.before;
    std::size_t digits = step.width;
    if (step.isSigned && number > INT_MAX) {
        *to++ = '-';
        number = 0U - number;
        if (digits > 0) --digits;
    }
    std::size_t needed = 1;
    for (unsigned rest = number; rest >= 10; rest /= 10) ++needed;
    char* const end = to + std::max(digits, needed);
    for (char* digit = end; digit != to; number /= 10) *--digit = static_cast<char>('0' + number % 10);
    return end;
}

}  // namespace

Json::Value& AsObject(Json::Value& node) {
    const Json::ValueType type = node.type();
    if (type != Json::nullValue && type != Json::objectValue) node = Json::Value(Json::objectValue);
    return node;
}

Json::Value& AsArray(Json::Value& node) {
    const Json::ValueType type = node.type();
    if (type != Json::nullValue && type != Json::arrayValue) node = Json::Value(Json::arrayValue);
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

void Put(Json::Value& array, Json::ArrayIndex index, Json::Value value) {
    if (index == AsArray(array).size()) {
        array.append(std::move(value));
    } else {
        Element(array, index) = std::move(value);
    }
}

void InsertNulls(Json::Value& node, const SortedNames& names) {
    if (!node.isNull() && !node.isObject()) return;
    std::array<bool, SortedNames::kMost> isMember{};
    if (node.isObject()) {
        Resolve(
            node, names.size(), [&](std::size_t i) { return names[i]; },
            [&](std::size_t i, const Json::Value&) { isMember[i] = true; });
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (!isMember[i]) Member(node, names[i]);
    }
}

Json::Value Printed(std::span<const NumberStep> steps, const unsigned* numbers) {
    constexpr std::size_t kMostForANumber = 12;  // something before it, a sign, ten digits
    std::array<char, 16 * kMostForANumber> text;
    char* end = text.data();
    for (const NumberStep step : steps) end = Print(end, step, *numbers++);
    return {text.data(), end};
}

}  // namespace jsonparser

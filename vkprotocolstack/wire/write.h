// Writing into a JSON node totally: a node of another type gives way to the container that is written.
#ifndef VKPROTOCOLSTACK_WIRE_WRITE_H
#define VKPROTOCOLSTACK_WIRE_WRITE_H

#include <json/value.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

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

/// Up to 48 member names in the order of their bytes, sorted by the compiler.
class SortedNames {
  public:
    static constexpr std::size_t kMost = 48;

    template <class Names>
    consteval SortedNames(const Names& names) : names_{}, size_(std::size(names)) {
        if (size_ > kMost) throw "too many names";
        std::copy(std::begin(names), std::end(names), names_.begin());
        std::sort(names_.begin(), names_.begin() + size_);
    }

    std::size_t size() const { return size_; }
    std::string_view operator[](std::size_t i) const { return names_[i]; }

  private:
    std::array<std::string_view, kMost> names_;
    std::size_t size_;
};

/// Creates the members that are missing as null. A null node becomes an object; any other that is no object stays.
void InsertNulls(Json::Value& node, const SortedNames& names);

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

// A place in a message: what a node stands on. All reading of JSON is here.
#ifndef VKPROTOCOLSTACK_WIRE_PLACE_H
#define VKPROTOCOLSTACK_WIRE_PLACE_H

#include <json/value.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "vkprotocolstack/wire/names.h"
#include "vkprotocolstack/wire/resolve.h"
#include "vkprotocolstack/wire/text_tape.h"

namespace jsonparser {

/// A value in jsoncpp's tree or on the tape of a message text, or no value at all. What is missing reads as null.
class Place {
  public:
    Place() = default;
    explicit Place(const Json::Value* value) : bits_(reinterpret_cast<std::uintptr_t>(value)) {}
    explicit Place(const TextEntry* entry) : bits_(reinterpret_cast<std::uintptr_t>(entry) | kOnTape) {}

    bool exists() const { return bits_ != 0; }
    bool isNull() const {
        if (isOnTape()) return entry().type == TextType::Null;
        return bits_ == 0 || address()->type() == Json::nullValue;
    }
    Json::ValueType type() const {
        if (isOnTape()) return TypeOnTape(entry().type);
        return bits_ == 0 ? Json::nullValue : address()->type();
    }
    /// jsoncpp's tests: reals without a fraction count.
    bool isInt() const;
    bool isUInt() const;

    int asInt() const { return isInteger() ? static_cast<int>(entry().integer) : convertedToInt(); }
    unsigned asUInt() const { return isInteger() ? static_cast<unsigned>(entry().integer) : convertedToUInt(); }
    double asDouble() const { return isInteger() ? static_cast<double>(entry().integer) : convertedToDouble(); }
    bool asBool() const;
    /// Whether an integer, bool or real fits the bits of a signed or an unsigned 32-bit number; reals always do.
    bool is32Bits() const;
    /// The text; one that does not stand in the message as it is, is kept in storage.
    std::string_view text(std::string& storage) const;

    /// GetJsonString and parseJsonNodeToStr of the value. On the tape they are given a value of the same type; the
    /// first of them, in place of an array or an object, null, which is no text either.
    bool stringTo(char* field, int size) const;
    void renderTo(char* field, int size) const;

    /// Elements of an array, 0 for anything else.
    std::size_t size() const;
    Place element(std::size_t index) const;
    /// Calls visit with the first count elements, which is at most size(), until it returns false.
    /// @return whether it never did
    template <class Visit>
    bool forElements(std::size_t count, Visit visit) const {
        if (count == 0) return true;
        if (!isOnTape()) {
            return ForElements(*address(), count, [&](const Json::Value& element) { return visit(Place(&element)); });
        }
        const TextEntry* const elements = entry().children;
        return std::all_of(elements, elements + count,
                           [&](const TextEntry& element) { return visit(Place(&element)); });
    }
    Place member(std::string_view name) const;
    /// Looks up the names at one go.
    void members(const NameIndex& names, Place* found) const;

    /// The value in jsoncpp's tree, or null when missing. Not for places on a tape: nobody observes those.
    const Json::Value* address() const { return reinterpret_cast<const Json::Value*>(bits_); }

  private:
    static constexpr std::uintptr_t kOnTape = 1;

    bool isOnTape() const { return (bits_ & kOnTape) != 0; }
    bool isInteger() const { return isOnTape() && entry().type == TextType::Integer; }
    int convertedToInt() const;
    unsigned convertedToUInt() const;
    double convertedToDouble() const;
    const TextEntry& entry() const { return *reinterpret_cast<const TextEntry*>(bits_ - kOnTape); }
    static Json::ValueType TypeOnTape(TextType type) {
        constexpr Json::ValueType kTypes[] = {
            Json::nullValue, Json::booleanValue, Json::booleanValue, Json::intValue,   Json::uintValue,
            Json::realValue, Json::stringValue,  Json::stringValue,  Json::arrayValue, Json::objectValue};
        return kTypes[static_cast<std::size_t>(type)];
    }

    std::uintptr_t bits_ = 0;
};

}  // namespace jsonparser

#endif

// A place in a message: what a node stands on. All reading of JSON is here.
#ifndef VKPROTOCOLSTACK_WIRE_PLACE_H
#define VKPROTOCOLSTACK_WIRE_PLACE_H

#include <json/value.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "vkprotocolstack/wire/resolve.h"

namespace jsonparser {

/// A value in jsoncpp's tree, or no value at all. What is missing reads as null.
class Place {
  public:
    Place() = default;
    explicit Place(const Json::Value* value) : value_(value) {}

    bool exists() const { return value_ != nullptr; }
    Json::ValueType type() const { return value_ == nullptr ? Json::nullValue : value_->type(); }
    /// jsoncpp's tests: reals without a fraction count.
    bool isInt() const { return value_ != nullptr && value_->isInt(); }
    bool isUInt() const { return value_ != nullptr && value_->isUInt(); }

    int asInt() const;
    unsigned asUInt() const;
    double asDouble() const;
    bool asBool() const;
    /// Whether an integer, bool or real fits the bits of a signed or an unsigned 32-bit number; reals always do.
    bool is32Bits() const;
    /// The text; one that is not a text in the message is kept in storage.
    std::string_view text(std::string& storage) const;

    /// Elements of an array, 0 for anything else.
    std::size_t size() const;
    Place element(std::size_t index) const;
    /// Calls visit with the first count elements, which is at most size(), until it returns false.
    /// @return whether it never did
    template <class Visit>
    bool forElements(std::size_t count, Visit visit) const {
        return count == 0 ||
               ForElements(*value_, count, [&](const Json::Value& element) { return visit(Place(&element)); });
    }
    Place member(std::string_view name) const;
    /// Looks up names, given with their sorted order, at one go.
    void members(const std::string_view* names, const std::size_t* sorted, std::size_t count, Place* found) const;

    /// The value; null's for what is missing.
    const Json::Value& value() const { return value_ == nullptr ? Json::Value::nullSingleton() : *value_; }
    /// The value, or null when missing.
    const Json::Value* address() const { return value_; }

  private:
    const Json::Value* value_ = nullptr;
};

}  // namespace jsonparser

#endif

#include "vkprotocolstack/wire/place.h"

#include <algorithm>
#include <climits>

#include "vkprotocolstack/wire/numbers.h"

namespace jsonparser {
namespace {

/// Integer of 32 bits.
template <class Integer>
Integer IntegerOf(Json::ValueType type, const Json::Value* value) {
    switch (type) {
        case Json::intValue:
            return static_cast<Integer>(value->asLargestInt());
        case Json::uintValue:
            return static_cast<Integer>(value->asLargestUInt());
        case Json::realValue:
            return Truncate<Integer>(value->asDouble());
        case Json::booleanValue:
            return value->asBool() ? 1 : 0;
        default:
            return 0;
    }
}

}  // namespace

int Place::asInt() const { return IntegerOf<int>(type(), value_); }
unsigned Place::asUInt() const { return IntegerOf<unsigned>(type(), value_); }

double Place::asDouble() const {
    switch (type()) {
        case Json::intValue:
        case Json::uintValue:
        case Json::realValue:
        case Json::booleanValue:
            return value_->asDouble();
        default:
            return 0.0;
    }
}

bool Place::asBool() const {
    switch (type()) {
        case Json::intValue:
        case Json::uintValue:
        case Json::realValue:
        case Json::booleanValue:
            return value_->asBool();
        default:
            return false;
    }
}

bool Place::is32Bits() const {
    switch (type()) {
        case Json::intValue:
            return value_->asLargestInt() >= INT_MIN && value_->asLargestInt() <= Json::LargestInt{UINT_MAX};
        case Json::uintValue:
            return value_->asLargestUInt() <= UINT_MAX;
        case Json::realValue:
        case Json::booleanValue:
            return true;
        default:
            return false;
    }
}

std::string_view Place::text(std::string& storage) const {
    switch (type()) {
        case Json::stringValue: {
            const char* begin = nullptr;
            const char* end = nullptr;
            value_->getString(&begin, &end);
            return {begin, static_cast<std::size_t>(end - begin)};
        }
        case Json::intValue:
        case Json::uintValue:
        case Json::realValue:
        case Json::booleanValue:
            storage = value_->asString();
            return storage;
        default:
            return {};
    }
}

std::size_t Place::size() const { return type() == Json::arrayValue ? value_->size() : 0; }

Place Place::element(std::size_t index) const {
    return type() == Json::arrayValue ? Place(FindElement(*value_, index)) : Place();
}

Place Place::member(std::string_view name) const {
    return type() == Json::objectValue ? Place(FindMember(*value_, name)) : Place();
}

void Place::members(const std::string_view* names, const std::size_t* sorted, std::size_t count, Place* found) const {
    std::fill_n(found, count, Place());
    if (type() != Json::objectValue) return;
    Resolve(
        *value_, count, [=](std::size_t i) { return names[sorted[i]]; },
        [=](std::size_t i, const Json::Value& member) { found[sorted[i]] = Place(&member); });
}

}  // namespace jsonparser

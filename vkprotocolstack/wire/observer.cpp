#include "vkprotocolstack/wire/observer.h"

namespace jsonparser {
namespace {

/// A member name as a step of a JSON pointer.
std::string Escaped(std::string_view name) {
    std::string step = "/";
    for (const char byte : name) {
        if (byte == '~') {
            step += "~0";
        } else if (byte == '/') {
            step += "~1";
        } else {
            step += byte;
        }
    }
    return step;
}

}  // namespace

Observer::~Observer() = default;

const Trail* Trail::member(std::string_view name) const {
    return &observer_->trails_.emplace_back(*observer_, this, Escaped(name));
}

const Trail* Trail::element(std::size_t index) const {
    return &observer_->trails_.emplace_back(*observer_, this, '/' + std::to_string(index));
}

void Trail::report(const Json::Value* value, std::string_view operation, std::string result) const {
    observer_->look({path(), value, operation, std::move(result)});
}

std::string Trail::path() const { return parent_ == nullptr ? step_ : parent_->path() + step_; }

constinit thread_local const Trail* ObserverScope::current_ = nullptr;

ObserverScope::ObserverScope(Observer& observer) : previous_(current_) {
    current_ = &observer.trails_.emplace_back(observer, nullptr, "");
}

ObserverScope::~ObserverScope() { current_ = previous_; }

}  // namespace jsonparser

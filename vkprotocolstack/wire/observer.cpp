#include "vkprotocolstack/wire/observer.h"

namespace jsonparser {

Observer::~Observer() = default;

std::string PointerStep(std::string_view name) {
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

const Trail* Trail::member(std::string_view name) const {
    return &observer_->trails_.emplace_back(*observer_, this, kMember, name);
}

const Trail* Trail::element(std::size_t index) const {
    return &observer_->trails_.emplace_back(*observer_, this, kElement, std::to_string(index));
}

std::string Trail::path() const { return step_ == kRoot ? "" : parent_->path() + PointerStep(name_); }

constinit thread_local const Trail* ObserverScope::current_ = nullptr;

ObserverScope::ObserverScope(Observer& observer) : previous_(current_) {
    current_ = &observer.trails_.emplace_back(observer, nullptr, Trail::kRoot, "");
}

ObserverScope::~ObserverScope() { current_ = previous_; }

}  // namespace jsonparser

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

Trail::Trail(Observer& observer, const Trail* parent, Step step, std::string_view name, Place value)
    : observer_(&observer), parent_(parent), step_(step), name_(name), value_(value), entry_{} {
    entry_.trail = this;
    entry_.type = TextType::Watched;
}

Place Trail::next(Step step, std::string_view name, Place value) const {
    used_ = true;
    return Place(&observer_->trails_.emplace_back(*observer_, this, step, name, value).entry_);
}

Place Trail::member(std::string_view name) const { return next(kMember, name, value_.member(name)); }

Place Trail::element(std::size_t index) const { return next(kElement, std::to_string(index), value_.element(index)); }

std::string Trail::path() const { return step_ == kRoot ? "" : parent_->path() + PointerStep(name_); }

Place Observer::watch(Place root) {
    return Place(&trails_.emplace_back(*this, nullptr, Trail::kRoot, "", root).entry_);
}

constinit thread_local Observer* ObserverScope::current_ = nullptr;

ObserverScope::ObserverScope(Observer& observer) : previous_(current_) { current_ = &observer; }

ObserverScope::~ObserverScope() { current_ = previous_; }

}  // namespace jsonparser

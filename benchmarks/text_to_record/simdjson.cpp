#include <simdjson.h>

#include "benchmarks/text_to_record/peer.h"

namespace benchmarks {
namespace {

simdjson::padded_string_view Padded(const Message& message) {
    static_assert(Message::kPadding >= simdjson::SIMDJSON_PADDING);
    const std::string_view text = message.text();
    return simdjson::padded_string_view(text.data(), text.size(), text.size() + Message::kPadding);
}

#ifndef BENCHMARKS_NATIVE

class DomValue {
  public:
    explicit DomValue(simdjson::dom::element value) : value_(value) {}

    template <class Use>
    void members(Use use) const {
        for (const auto& [name, value] : value_.get_object()) use(name, DomValue(value));
    }
    template <class Use>
    void elements(Use use) const {
        for (const simdjson::dom::element value : value_.get_array()) use(DomValue(value));
    }
    long long integer() const { return value_.get_int64(); }
    double real() const { return value_.get_double(); }
    bool boolean() const { return value_.get_bool(); }
    std::string_view text() const { return value_.get_string(); }
    DomValue member(const char* name) const { return DomValue(value_[name]); }
    DomValue element(std::size_t index) const { return DomValue(value_.at(index)); }

  private:
    simdjson::dom::element value_;
};

class Dom {
  public:
    DomValue parse(const Message& message) { return DomValue(parser_.parse(Padded(message))); }

  private:
    simdjson::dom::parser parser_;
};

#endif

namespace ondemand = simdjson::ondemand;

/// A value that is read at once, in the order of the text.
class OnDemandValue {
  public:
    explicit OnDemandValue(ondemand::value value) : value_(value) {}

    template <class Use>
    void members(Use use) {
        for (ondemand::field member : value_.get_object()) {
            use(NameOf(member.key()), OnDemandValue(member.value()));
        }
    }
    template <class Use>
    void elements(Use use) {
        for (ondemand::value value : value_.get_array()) use(OnDemandValue(value));
    }
    long long integer() { return value_.get_int64(); }
    double real() { return value_.get_double(); }
    bool boolean() { return value_.get_bool(); }
    std::string_view text() { return value_.get_string(); }
    OnDemandValue member(const char* name) { return OnDemandValue(value_.find_field(name)); }
    OnDemandValue element(std::size_t index) { return OnDemandValue(value_.get_array().at(index)); }

  private:
    /// The name as it stands, up to its quote: as the library's own look-ups compare, and faster than unescaping it.
    static std::string_view NameOf(ondemand::raw_json_string name) {
        const char* const begin = name.raw();
        return {begin, static_cast<std::size_t>(std::strchr(begin, '"') - begin)};
    }

    ondemand::value value_;
};

class OnDemand {
  public:
    OnDemandValue parse(const Message& message) {
        document_ = parser_.iterate(Padded(message));
        return OnDemandValue(document_.get_value());
    }

  private:
    ondemand::parser parser_;
    ondemand::document document_;
};

}  // namespace

#ifdef BENCHMARKS_NATIVE
void AddSimdjsonNative(Roads& roads) {
    roads.push_back(std::make_unique<PeerRoad<OnDemand>>("simdjson On-Demand native", Road::Kind::Debian,
                                                         Road::Checks::WhatIsRead));
}
#else
void AddSimdjson(Roads& roads) {
    const auto kind = Road::Kind::Debian;
    roads.push_back(std::make_unique<PeerRoad<Dom>>("simdjson DOM", kind, Road::Checks::Everything));
    roads.push_back(std::make_unique<PeerRoad<OnDemand>>("simdjson On-Demand", kind, Road::Checks::WhatIsRead));
}
#endif

}  // namespace benchmarks

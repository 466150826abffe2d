#include <nlohmann/json.hpp>

#include "benchmarks/text_to_record/peer.h"

namespace benchmarks {
namespace {

using Json = nlohmann::json;

class NlohmannValue {
  public:
    explicit NlohmannValue(const Json& value) : value_(&value) {}

    template <class Use>
    void members(Use use) const {
        for (const auto& [name, value] : value_->get_ref<const Json::object_t&>()) use(name, NlohmannValue(value));
    }
    template <class Use>
    void elements(Use use) const {
        for (const Json& value : value_->get_ref<const Json::array_t&>()) use(NlohmannValue(value));
    }
    long long integer() const { return value_->get<long long>(); }
    double real() const { return value_->get<double>(); }
    bool boolean() const { return value_->get<bool>(); }
    std::string_view text() const { return value_->get_ref<const std::string&>(); }
    NlohmannValue member(const char* name) const { return NlohmannValue(value_->at(name)); }
    NlohmannValue element(std::size_t index) const { return NlohmannValue(value_->at(index)); }

  private:
    const Json* value_;
};

class Nlohmann {
  public:
    NlohmannValue parse(const Message& message) {
        root_ = Json::parse(message.text());
        return NlohmannValue(root_);
    }

  private:
    Json root_;
};

}  // namespace

void AddNlohmann(Roads& roads) {
    roads.push_back(std::make_unique<PeerRoad<Nlohmann>>("nlohmann", Road::Kind::Debian, Road::Checks::Everything));
}

}  // namespace benchmarks

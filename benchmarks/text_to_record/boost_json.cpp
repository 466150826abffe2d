#include <boost/json.hpp>

#include <array>
#include <optional>

#include "benchmarks/text_to_record/peer.h"

namespace benchmarks {
namespace {

namespace json = boost::json;

class BoostJsonValue {
  public:
    explicit BoostJsonValue(const json::value& value) : value_(&value) {}

    template <class Use>
    void members(Use use) const {
        for (const json::key_value_pair& member : value_->as_object()) {
            use(View(member.key()), BoostJsonValue(member.value()));
        }
    }
    template <class Use>
    void elements(Use use) const {
        for (const json::value& value : value_->as_array()) use(BoostJsonValue(value));
    }
    long long integer() const { return value_->as_int64(); }
    double real() const { return value_->to_number<double>(); }
    bool boolean() const { return value_->as_bool(); }
    std::string_view text() const { return View(value_->as_string()); }
    BoostJsonValue member(const char* name) const { return BoostJsonValue(value_->as_object().at(name)); }
    BoostJsonValue element(std::size_t index) const { return BoostJsonValue(value_->as_array().at(index)); }

  private:
    static std::string_view View(json::string_view text) { return {text.data(), text.size()}; }

    const json::value* value_;
};

/// A parser that is used again, and values in the default memory.
class BoostJson {
  public:
    BoostJsonValue parse(const Message& message) {
        parser_.reset();
        parser_.write(message.text());
        root_ = parser_.release();
        return BoostJsonValue(root_);
    }

  private:
    json::parser parser_;
    json::value root_;
};

/// The same with all values of a message in one piece of memory, which is used again.
class BoostJsonMonotonic {
  public:
    BoostJsonValue parse(const Message& message) {
        root_.reset();
        values_.release();
        parser_.reset(&values_);
        parser_.write(message.text());
        root_.emplace(parser_.release());  // assigning would copy it out of its memory
        return BoostJsonValue(*root_);
    }

  private:
    std::array<unsigned char, 1 << 16> buffer_;
    json::monotonic_resource values_{buffer_.data(), buffer_.size()};
    std::array<unsigned char, 1 << 16> temporary_;
    json::parser parser_{json::storage_ptr(), json::parse_options(), temporary_.data(), temporary_.size()};
    std::optional<json::value> root_;
};

}  // namespace

void AddBoostJson(Roads& roads) {
    const auto kind = Road::Kind::Debian;
    const auto checks = Road::Checks::Everything;
    roads.push_back(std::make_unique<PeerRoad<BoostJson>>("Boost.JSON", kind, checks));
    roads.push_back(std::make_unique<PeerRoad<BoostJsonMonotonic>>("Boost.JSON monotonic", kind, checks));
}

}  // namespace benchmarks

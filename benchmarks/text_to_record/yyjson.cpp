#include <yyjson.h>

#include <array>
#include <stdexcept>

#include "benchmarks/text_to_record/peer.h"

namespace benchmarks {
namespace {

class YyjsonValue {
  public:
    explicit YyjsonValue(yyjson_val* value) : value_(value) {}

    template <class Use>
    void members(Use use) const {
        std::size_t i = 0;
        std::size_t count = 0;
        yyjson_val* name = nullptr;
        yyjson_val* value = nullptr;
        yyjson_obj_foreach(value_, i, count, name, value) { use(YyjsonValue(name).text(), YyjsonValue(value)); }
    }
    template <class Use>
    void elements(Use use) const {
        std::size_t i = 0;
        std::size_t count = 0;
        yyjson_val* value = nullptr;
        yyjson_arr_foreach(value_, i, count, value) { use(YyjsonValue(value)); }
    }
    long long integer() const { return yyjson_get_sint(value_); }
    double real() const { return yyjson_is_real(value_) ? yyjson_get_real(value_) : static_cast<double>(integer()); }
    bool boolean() const { return yyjson_get_bool(value_); }
    std::string_view text() const { return {yyjson_get_str(value_), yyjson_get_len(value_)}; }
    YyjsonValue member(const char* name) const { return YyjsonValue(yyjson_obj_get(value_, name)); }
    YyjsonValue element(std::size_t index) const { return YyjsonValue(yyjson_arr_get(value_, index)); }

  private:
    yyjson_val* value_;
};

/// Trees in one piece of memory, which is used again.
class Yyjson {
  public:
    YyjsonValue parse(const Message& message) {
        yyjson_alc memory;
        yyjson_alc_pool_init(&memory, buffer_.data(), buffer_.size());
        // The text is copied, and so not changed, as long as it is not read in place.
        char* const text = const_cast<char*>(message.text().data());
        yyjson_doc* const tree = yyjson_read_opts(text, message.text().size(), 0, &memory, nullptr);
        if (tree == nullptr) throw std::runtime_error("no JSON");
        return YyjsonValue(yyjson_doc_get_root(tree));
    }

  private:
    std::array<char, 1 << 18> buffer_;
};

}  // namespace

void AddYyjson(Roads& roads) {
    roads.push_back(std::make_unique<PeerRoad<Yyjson>>("yyjson", Road::Kind::Other, Road::Checks::Everything));
}

}  // namespace benchmarks

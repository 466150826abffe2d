// The plain reader copies texts into its own memory; the one in place changes the message, which a program that has
// received it into a buffer may allow: so each time it gets a copy of the message.
#define RAPIDJSON_SSE2
#include <rapidjson/document.h>

#include <array>
#include <stdexcept>
#include <vector>

#include "benchmarks/text_to_record/peer.h"

namespace benchmarks {
namespace {

class RapidJsonValue {
  public:
    explicit RapidJsonValue(const rapidjson::Value& value) : value_(&value) {}

    template <class Use>
    void members(Use use) const {
        if (!value_->IsObject()) throw std::runtime_error("no object");
        for (const auto& [name, value] : value_->GetObject()) use(TextOf(name), RapidJsonValue(value));
    }
    template <class Use>
    void elements(Use use) const {
        if (!value_->IsArray()) throw std::runtime_error("no array");
        for (const rapidjson::Value& value : value_->GetArray()) use(RapidJsonValue(value));
    }
    long long integer() const {
        if (!value_->IsInt64()) throw std::runtime_error("no integer");
        return value_->GetInt64();
    }
    double real() const {
        if (!value_->IsNumber()) throw std::runtime_error("no number");
        return value_->GetDouble();
    }
    bool boolean() const {
        if (!value_->IsBool()) throw std::runtime_error("no bool");
        return value_->GetBool();
    }
    std::string_view text() const {
        if (!value_->IsString()) throw std::runtime_error("no text");
        return TextOf(*value_);
    }
    RapidJsonValue member(const char* name) const {
        const auto member = value_->FindMember(name);
        if (member == value_->MemberEnd()) throw std::runtime_error("no such member");
        return RapidJsonValue(member->value);
    }
    RapidJsonValue element(std::size_t index) const {
        return RapidJsonValue((*value_)[static_cast<rapidjson::SizeType>(index)]);
    }

  private:
    static std::string_view TextOf(const rapidjson::Value& text) { return {text.GetString(), text.GetStringLength()}; }

    const rapidjson::Value* value_;
};

/// Trees in memory that is used again, as RapidJSON's documentation advises.
class Trees {
  public:
    using Memory = rapidjson::MemoryPoolAllocator<>;
    using Document = rapidjson::GenericDocument<rapidjson::UTF8<>, Memory, Memory>;

    template <class Parse>
    RapidJsonValue make(Parse parse) {
        document_.SetNull();
        values_.Clear();
        stack_.Clear();
        parse(document_);
        if (document_.HasParseError()) throw std::runtime_error("no JSON");
        return RapidJsonValue(document_);
    }

  private:
    std::array<char, 1 << 16> valueBuffer_;
    std::array<char, 1 << 16> stackBuffer_;
    Memory values_{valueBuffer_.data(), valueBuffer_.size()};
    Memory stack_{stackBuffer_.data(), stackBuffer_.size()};
    Document document_{&values_, 1024, &stack_};
};

class RapidJson {
  public:
    RapidJsonValue parse(const Message& message) {
        return trees_.make([text = message.text()](Trees::Document& tree) { tree.Parse(text.data(), text.size()); });
    }

  private:
    Trees trees_;
};

class RapidJsonInSitu {
  public:
    RapidJsonValue parse(const Message& message) {
        text_.assign(message.text().begin(), message.text().end());
        text_.push_back('\0');
        return trees_.make([this](Trees::Document& tree) { tree.ParseInsitu(text_.data()); });
    }

  private:
    std::vector<char> text_;
    Trees trees_;
};

}  // namespace

void AddRapidJson(Roads& roads) {
    const auto kind = Road::Kind::Debian;
    const auto checks = Road::Checks::Everything;
    roads.push_back(std::make_unique<PeerRoad<RapidJson>>("RapidJSON", kind, checks));
    roads.push_back(std::make_unique<PeerRoad<RapidJsonInSitu>>("RapidJSON in situ", kind, checks));
}

}  // namespace benchmarks

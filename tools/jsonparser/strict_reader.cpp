#include "strict_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "utf8.h"

namespace tool {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
bool IsWordCharacter(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '+' || c == '-' ||
           c == '.';
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
    while (at < text.size() && IsBlank(text[at])) ++at;
    return at;
}

char CharacterAt(std::string_view text, std::size_t at) { return at < text.size() ? text[at] : '\0'; }

/// A number's text as far as it follows the grammar.
struct NumberText {
    std::size_t end;
    bool lacksDigit;  ///< a digit would have to stand at end
};

NumberText NumberAt(std::string_view text, std::size_t at) {
    const auto digits = [text, &at] {
        const std::size_t begin = at;
        while (IsDigit(CharacterAt(text, at))) ++at;
        return at > begin;
    };
    if (CharacterAt(text, at) == '-') ++at;
    if (CharacterAt(text, at) == '0') {
        ++at;
    } else if (!digits()) {
        return {at, true};
    }
    if (CharacterAt(text, at) == '.') {
        ++at;
        if (!digits()) return {at, true};
    }
    if (CharacterAt(text, at) == 'e' || CharacterAt(text, at) == 'E') {
        ++at;
        if (CharacterAt(text, at) == '+' || CharacterAt(text, at) == '-') ++at;
        if (!digits()) return {at, true};
    }
    return {at, false};
}

/// What stands at a place that something else was expected at.
std::string FoundAt(std::string_view text, std::size_t at) {
    if (at >= text.size()) return "the end of the document";
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte == '\n') return "a line end";
    if (byte < 0x20 || byte == 0x7F) return fmt::format("the control character U+{:04X}", byte);
    const std::size_t length = CharacterLength(text.substr(at));
    if (length == 0) return fmt::format("the byte 0x{:02X}, which is not UTF-8", byte);
    if (text.substr(at).starts_with("//") || text.substr(at).starts_with("/*")) return "a comment";
    if (text.substr(at).starts_with("\xEF\xBB\xBF")) return "a byte-order mark";
    if (byte == '"') return "a text";
    constexpr std::size_t kLongestWord = 40;
    std::size_t end = at;
    while (end < text.size() && end - at < kLongestWord && IsWordCharacter(text[end])) ++end;
    return fmt::format("'{}'", text.substr(at, end > at ? end - at : length));
}

struct Defect {
    std::size_t offset;
    std::string found;
    std::string expected;
};

/// What is wrong with a text that begins with the quote at begin.
Defect TextDefect(std::string_view text, std::size_t begin) {
    std::size_t at = begin + 1;
    bool wantsLowSurrogate = false;
    while (at < text.size()) {
        const char c = text[at];
        if (wantsLowSurrogate && text.substr(at, 2) != "\\u") break;
        if (static_cast<unsigned char>(c) < 0x20) {
            if (c == '\n' || c == '\r') return {at, "a line end", "the closing quote of the text"};
            return {at, FoundAt(text, at), fmt::format("it escaped, as \\u{:04x}", static_cast<unsigned char>(c))};
        }
        if (c == '"') break;
        if (c != '\\') {
            const std::size_t length = CharacterLength(text.substr(at));
            if (length == 0) return {at, FoundAt(text, at), "a character in UTF-8"};
            at += length;
            continue;
        }
        const char escaped = CharacterAt(text, at + 1);
        if (escaped != 'u') {
            if (at + 1 >= text.size()) break;
            if (std::string_view("\"\\/bfnrt").find(escaped) == std::string_view::npos) {
                return {at, fmt::format("a backslash before {}", FoundAt(text, at + 1)),
                        R"(one of \" \\ \/ \b \f \n \r \t \u)"};
            }
            at += 2;
            continue;
        }
        for (std::size_t i = at + 2; i < at + 6; ++i) {
            if (!IsHexDigit(CharacterAt(text, i))) return {i, FoundAt(text, i), "four hexadecimal digits after \\u"};
        }
        const unsigned long unit = std::stoul(std::string(text.substr(at + 2, 4)), nullptr, 16);
        const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
        if (isLow != wantsLowSurrogate) {
            return {at, fmt::format("'{}'", text.substr(at, 6)),
                    isLow ? "a character, not the second half of one"
                          : "the second half of the character, \\udc00 to \\udfff"};
        }
        wantsLowSurrogate = unit >= 0xD800 && unit <= 0xDBFF;
        at += 6;
    }
    if (wantsLowSurrogate) return {at, FoundAt(text, at), "the second half of the character, \\udc00 to \\udfff"};
    return {text.size(), FoundAt(text, text.size()), "the closing quote of the text"};
}

/// Takes the events of nlohmann's reader and builds the tree of jsoncpp. The events say neither where a value begins
/// nor what was expected, but both follow from the text behind the latest event.
class Builder {
  public:
    Builder(std::string_view text, int maximumDepth, Json::Value& document)
        : text_(text), maximumDepth_(static_cast<std::size_t>(maximumDepth)), document_(document) {}

    /// The text for nlohmann's reader, which tells the builder how far it has read.
    class Reader {
      public:
        using iterator_category = std::input_iterator_tag;
        using value_type = char;
        using difference_type = std::ptrdiff_t;
        using pointer = const char*;
        using reference = const char&;

        Reader(const char* at, Builder* builder) : at_(at), builder_(builder) {}
        reference operator*() const { return *at_; }
        Reader& operator++() {
            ++at_;
            builder_->read_ = static_cast<std::size_t>(at_ - builder_->text_.data());
            return *this;
        }
        Reader operator++(int) {
            const Reader before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Reader& other) const { return at_ == other.at_; }
        bool operator!=(const Reader& other) const { return at_ != other.at_; }

      private:
        const char* at_;
        Builder* builder_;
    };

    Reader begin() { return {text_.data(), this}; }
    Reader end() { return {text_.data() + text_.size(), this}; }

    /// The first defect, if there is one, once all has been read.
    std::optional<Finding> defect() {
        // nlohmann's reader takes a NUL for the end.
        if (!defect_ && read_ > 0 && text_[read_ - 1] == '\0')
            report(read_ - 1, "", FoundAt(text_, read_ - 1), expected());
        return std::move(defect_);
    }

    // ---- events
    bool null() { return scalar(Json::Value(), wordEnd(4)); }
    bool boolean(bool value) { return scalar(Json::Value(value), wordEnd(value ? 4 : 5)); }
    bool number_integer(std::int64_t value) { return scalar(Json::Value(Json::Int64{value}), numberEnd()); }
    bool number_unsigned(std::uint64_t value) {
        const bool isSigned = value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        return scalar(isSigned ? Json::Value(static_cast<Json::Int64>(value)) : Json::Value(Json::UInt64{value}),
                      numberEnd());
    }
    bool number_float(double value, const std::string&) { return scalar(Json::Value(value), numberEnd()); }
    bool string(std::string& value) { return scalar(Json::Value(value), read_); }
    bool binary(std::vector<std::uint8_t>&) { return false; }  // not in JSON

    bool start_object(std::size_t) { return open(Json::objectValue); }
    bool start_array(std::size_t) { return open(Json::arrayValue); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }
    bool key(std::string& name) {
        open_.back().name = std::move(name);
        state_ = State::AfterName;
        last_ = read_;
        return true;
    }

    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception& error) {
        constexpr int kNumberOutOfRange = 406;
        const std::size_t at = tokenBegin();
        if (error.id == kNumberOutOfRange) {
            report(at, valuePath(), FoundAt(text_, at), "a number within the range of a double");
        } else {
            diagnose();
        }
        return false;
    }

  private:
    enum class State { Start, AfterOpening, AfterName, AfterValue, End };

    struct Open {
        Json::Value* value;
        std::string name;  ///< of the latest member
    };

    std::size_t wordEnd(std::size_t length) const { return tokenBegin() + length; }
    std::size_t numberEnd() const { return NumberAt(text_, tokenBegin()).end; }

    /// Where the token behind the latest event begins: between the two are blanks and at most one separator.
    std::size_t tokenBegin() const {
        const std::size_t at = SkipBlanks(text_, last_);
        return separatorAt(at) ? SkipBlanks(text_, at + 1) : at;
    }

    bool separatorAt(std::size_t at) const {
        const char c = CharacterAt(text_, at);
        return (state_ == State::AfterName && c == ':') || (state_ == State::AfterValue && c == ',');
    }

    /// The place in the tree for the next value.
    Json::Value& slot() {
        if (open_.empty()) return document_;
        Open& open = open_.back();
        return open.value->isArray() ? open.value->append(Json::Value()) : (*open.value)[open.name];
    }

    bool scalar(Json::Value&& value, std::size_t limit) {
        const std::size_t begin = tokenBegin();
        Json::Value& place = slot();
        place = std::move(value);
        setOffsets(place, begin, limit);
        afterValue(limit);
        return true;
    }

    bool open(Json::ValueType type) {
        const std::size_t begin = tokenBegin();
        if (open_.size() == maximumDepth_) {
            report(
                begin, valuePath(),
                fmt::format("{} inside {} others", type == Json::arrayValue ? "an array" : "an object", maximumDepth_),
                fmt::format("at most {} levels (see --max-depth)", maximumDepth_));
            return false;
        }
        Json::Value& place = slot();
        place = Json::Value(type);
        setOffsets(place, begin, begin + 1);
        open_.push_back({&place, {}});
        last_ = begin + 1;
        state_ = State::AfterOpening;
        return true;
    }

    bool close() {
        const std::size_t limit = SkipBlanks(text_, last_) + 1;
        open_.back().value->setOffsetLimit(static_cast<std::ptrdiff_t>(limit));
        open_.pop_back();
        afterValue(limit);
        return true;
    }

    void afterValue(std::size_t limit) {
        last_ = limit;
        state_ = open_.empty() ? State::End : State::AfterValue;
    }

    static void setOffsets(Json::Value& value, std::size_t begin, std::size_t limit) {
        value.setOffsetStart(static_cast<std::ptrdiff_t>(begin));
        value.setOffsetLimit(static_cast<std::ptrdiff_t>(limit));
    }

    bool inArray() const { return !open_.empty() && open_.back().value->isArray(); }

    /// The path of the innermost container.
    std::string containerPath() const {
        std::string path;
        for (std::size_t i = 0; i + 1 < open_.size(); ++i) {
            const Open& open = open_[i];
            path += open.value->isArray() ? fmt::format("/{}", open.value->size() - 1) : PointerStep(open.name);
        }
        return path;
    }

    /// The path of the value that comes next.
    std::string valuePath() const {
        if (open_.empty()) return "";
        const Open& open = open_.back();
        return containerPath() + (inArray() ? fmt::format("/{}", open.value->size()) : PointerStep(open.name));
    }

    /// Whether a value has to come next: a value that is no container can then only be misspelt.
    bool wantsValue() const {
        switch (state_) {
            case State::Start:
                return true;
            case State::AfterOpening:
                return inArray();
            case State::AfterName:
                return separatorAt(SkipBlanks(text_, last_));
            case State::AfterValue:
                return inArray() && separatorAt(SkipBlanks(text_, last_));
            case State::End:
                return false;
        }
        return false;
    }

    bool wantsName() const {
        const bool separated = state_ == State::AfterValue && separatorAt(SkipBlanks(text_, last_));
        return !open_.empty() && !inArray() && (separated || state_ == State::AfterOpening);
    }

    /// What may stand behind the latest event and its separator.
    std::string expected() const {
        const bool first = state_ == State::AfterOpening;
        if (wantsValue()) return first ? "a value or ']'" : "a value";
        if (wantsName()) return first ? "a member's name in quotes or '}'" : "a member's name in quotes";
        if (state_ == State::AfterName) return "':'";
        if (state_ == State::End) return "the end of the document";
        return inArray() ? "',' or ']'" : "',' or '}'";
    }

    void diagnose() {
        const std::size_t at = tokenBegin();
        const char c = CharacterAt(text_, at);
        const std::string path = wantsValue() || state_ == State::AfterName ? valuePath() : containerPath();
        if (c == '"' && (wantsValue() || wantsName())) {
            Defect defect = TextDefect(text_, at);
            return report(defect.offset, path, std::move(defect.found), std::move(defect.expected));
        }
        if (wantsValue() && (c == '-' || IsDigit(c))) {
            const std::size_t end = NumberAt(text_, at).end;
            return report(end, path, FoundAt(text_, end), "a digit");
        }
        const bool afterZero = at == last_ && at > 0 && text_[at - 1] == '0' && IsDigit(c);
        if (afterZero) return report(at - 1, path, FoundAt(text_, at - 1), "a number without a zero before it");
        if (state_ == State::Start && at == text_.size()) return report(at, path, "an empty document", expected());
        report(at, path, FoundAt(text_, at), expected());
    }

    void report(std::size_t offset, std::string path, std::string found, std::string expected) {
        defect_ = Finding{offset, std::move(path), fmt::format("found {}, expected {}", found, expected)};
    }

    std::string_view text_;
    std::size_t maximumDepth_;
    Json::Value& document_;
    std::vector<Open> open_;
    State state_ = State::Start;
    std::size_t read_ = 0;  ///< bytes that nlohmann's reader has taken
    std::size_t last_ = 0;  ///< where the token of the latest event ends
    std::optional<Finding> defect_;
};

}  // namespace

std::optional<Finding> ReadStrictly(std::string_view text, int maximumDepth, Json::Value& document) {
    document = Json::Value();
    if (text.starts_with("\xEF\xBB\xBF")) {  // nlohmann's reader would skip it
        return Finding{0, "", "found a byte-order mark, expected a value"};
    }
    Builder builder(text, maximumDepth, document);
    nlohmann::json::sax_parse(builder.begin(), builder.end(), &builder);
    std::optional<Finding> defect = builder.defect();
    if (defect) document = Json::Value();
    return defect;
}

std::size_t NameOffset(std::string_view text, std::size_t offset) {
    std::size_t at = std::min(offset, text.size());
    const auto skipBlanksBefore = [text, &at] {
        while (at > 0 && IsBlank(text[at - 1])) --at;
    };
    skipBlanksBefore();
    if (at == 0 || text[at - 1] != ':') return offset;
    --at;
    skipBlanksBefore();
    if (at < 2 || text[at - 1] != '"') return offset;
    // Quotes inside the name stand behind an odd number of backslashes.
    for (std::size_t quote = at - 1; quote-- > 0;) {
        if (text[quote] != '"') continue;
        std::size_t backslashes = 0;
        while (backslashes < quote && text[quote - backslashes - 1] == '\\') ++backslashes;
        if (backslashes % 2 == 0) return quote;
    }
    return offset;
}

}  // namespace tool

#include "vkprotocolstack/wire/node.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>

#include "vkprotocolstack/support/support.h"
#include "vkprotocolstack/wire/numbers.h"

namespace jsonparser {
namespace {

std::string Shown(bool value) { return value ? "true" : "false"; }

template <class Number>
std::string Shown(Number value) {
    return Json::Value(value).asString();
}

std::string Shown(unsigned char value) { return std::to_string(value); }
std::string Shown(unsigned short value) { return std::to_string(value); }
std::string Shown(long value) { return std::to_string(value); }
std::string Shown(long long value) { return std::to_string(value); }
std::string Shown(std::size_t value) { return std::to_string(value); }

Json::ValueType TypeOf(const Json::Value* value) { return value == nullptr ? Json::nullValue : value->type(); }

const Json::Value& OrNull(const Json::Value* value) { return value == nullptr ? Json::Value::nullSingleton() : *value; }

/// Integer of 32 bits.
template <class Integer>
Integer IntegerOf(const Json::Value* value) {
    switch (TypeOf(value)) {
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

int IntOf(const Json::Value* value) { return IntegerOf<int>(value); }
unsigned UIntOf(const Json::Value* value) { return IntegerOf<unsigned>(value); }

double DoubleOf(const Json::Value* value) {
    switch (TypeOf(value)) {
        case Json::intValue:
        case Json::uintValue:
        case Json::realValue:
        case Json::booleanValue:
            return value->asDouble();
        default:
            return 0.0;
    }
}

std::string_view NameOf(const Json::Value::const_iterator& member) {
    const char* end = nullptr;
    const char* begin = member.memberName(&end);
    return {begin, static_cast<std::size_t>(end - begin)};
}

/// Zeroes from new char[] for a text of that length, whose size must be an int. Null when they cannot be had.
char* HeapText(std::size_t length) { return length >= INT_MAX ? nullptr : new (std::nothrow) char[length + 1](); }

}  // namespace

template <class Result>
Result Node::reported(std::string_view operation, Result result) const {
    if (trail_ != nullptr) trail_->report(value_, operation, Shown(result));
    return result;
}

Node::operator bool() const { return reported("present", TypeOf(value_) != Json::nullValue); }
bool Node::isMember() const { return reported("isMember", value_ != nullptr); }
bool Node::isArray() const { return reported("isArray", TypeOf(value_) == Json::arrayValue); }
bool Node::isString() const { return reported("isString", TypeOf(value_) == Json::stringValue); }
bool Node::isInt() const { return reported("isInt", value_ != nullptr && value_->isInt()); }
bool Node::isUInt() const { return reported("isUInt", value_ != nullptr && value_->isUInt()); }
bool Node::isBool() const { return reported("isBool", TypeOf(value_) == Json::booleanValue); }

std::size_t Node::size() const {
    return reported<std::size_t>("size", TypeOf(value_) == Json::arrayValue ? value_->size() : 0);
}

Node Node::at(std::size_t index) const {
    const bool inside = TypeOf(value_) == Json::arrayValue && index < value_->size();
    return {inside ? &(*value_)[static_cast<Json::ArrayIndex>(index)] : nullptr,
            trail_ == nullptr ? nullptr : trail_->element(index)};
}

Node Node::operator[](std::string_view name) const {
    const bool isObject = TypeOf(value_) == Json::objectValue;
    const char* const begin = name.empty() ? "" : name.data();  // jsoncpp takes a null pointer for an index
    return {isObject ? value_->find(begin, begin + name.size()) : nullptr,
            trail_ == nullptr ? nullptr : trail_->member(name)};
}

int Node::asInt() const { return reported("int", IntOf(value_)); }
unsigned Node::asUInt() const { return reported("unsigned", UIntOf(value_)); }
double Node::asDouble() const { return reported("double", DoubleOf(value_)); }
float Node::asFloat() const { return reported("float", static_cast<float>(DoubleOf(value_))); }

bool Node::asBool() const {
    switch (TypeOf(value_)) {
        case Json::intValue:
        case Json::uintValue:
        case Json::realValue:
        case Json::booleanValue:
            return reported("bool", value_->asBool());
        default:
            return reported("bool", false);
    }
}

unsigned char Node::intLow8() const { return reported("int, low 8 bits", static_cast<unsigned char>(IntOf(value_))); }
unsigned char Node::uintLow8() const {
    return reported("unsigned, low 8 bits", static_cast<unsigned char>(UIntOf(value_)));
}
unsigned short Node::intLow16() const {
    return reported("int, low 16 bits", static_cast<unsigned short>(IntOf(value_)));
}
unsigned short Node::uintLow16() const {
    return reported("unsigned, low 16 bits", static_cast<unsigned short>(UIntOf(value_)));
}
int Node::intPlusOne() const {
    return reported("int plus one", static_cast<int>(static_cast<unsigned>(IntOf(value_)) + 1U));
}

std::optional<unsigned> Node::asErrorCode() const {
    const auto hasCode = [this] {
        switch (TypeOf(value_)) {
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
    };
    std::optional<unsigned> code;
    if (hasCode()) code = static_cast<unsigned>(IntOf(value_));
    if (trail_ != nullptr) trail_->report(value_, "error code", code ? Shown(*code) : "(none)");
    return code;
}

long long Node::realToInt64() const {
    return reported("double, cut to 64-bit integer", Truncate<long long>(DoubleOf(value_)));
}
long Node::utcSeconds() const { return reported("int, UTC seconds", static_cast<long>(IntOf(value_))); }
long Node::unsignedUtcSeconds() const { return reported("unsigned, UTC seconds", static_cast<long>(UIntOf(value_))); }

std::string_view Node::text(std::string& storage) const {
    switch (TypeOf(value_)) {
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

void Node::rawTo(char* field, std::size_t count) const {
    std::string storage;
    const std::string_view whole = text(storage);
    const std::size_t length = std::min(std::min(whole.find('\0'), whole.size()), count);
    std::copy_n(whole.data(), length, field);
    field[length] = '\0';
    if (trail_ != nullptr) trail_->report(value_, "text as it stands, at most " + Shown(count) + " bytes", field);
}

void Node::utf8To(char* field, int limit) const {
    if (TypeOf(value_) == Json::nullValue || limit < 0) {
        if (trail_ != nullptr) trail_->report(value_, "text from UTF-8, limit " + std::to_string(limit), "");
        return;
    }
    std::string storage;
    const std::string_view whole = text(storage);
    const std::size_t length = std::min(whole.size(), static_cast<std::size_t>(limit));
    const std::unique_ptr<char[]> source(new (std::nothrow) char[length + 1]);
    if (source == nullptr) return;
    const std::size_t taken = std::min(whole.find('\0'), length);
    std::copy_n(whole.data(), taken, source.get());
    source[taken] = '\0';
    Change_Utf8_Assic(reinterpret_cast<unsigned char*>(source.get()), field);
    if (trail_ != nullptr) trail_->report(value_, "text from UTF-8, limit " + std::to_string(limit), field);
}

bool Node::stringTo(char* field, int size) const {
    const bool isText = GetJsonString(OrNull(value_), field, size, true);
    if (trail_ != nullptr) trail_->report(value_, "string, size " + std::to_string(size), size > 0 ? field : "");
    return isText;
}

int Node::textSize(int limit) const {
    std::string storage;
    const std::size_t size = std::min(text(storage).size() + 1, static_cast<std::size_t>(limit));
    return reported("text size, at most " + std::to_string(limit), static_cast<int>(size));
}

void Node::renderTo(char* field, int size) const {
    parseJsonNodeToStr(OrNull(value_), field, size);
    if (trail_ != nullptr) trail_->report(value_, "rendered, size " + std::to_string(size), size > 0 ? field : "");
}

char* Node::heapUtf8() const {
    std::string storage;
    const std::size_t length = text(storage).size();
    char* buffer = HeapText(length);
    if (buffer != nullptr) utf8To(buffer, static_cast<int>(length));
    return buffer;
}

char* Node::heapString() const {
    std::string storage;
    const std::size_t length = text(storage).size();
    char* buffer = HeapText(length);
    if (buffer != nullptr) stringTo(buffer, static_cast<int>(length + 1));
    return buffer;
}

int Node::lookedUp(std::string_view operation, const Keyword* row, int otherwise) const {
    const int code = row == nullptr ? otherwise : row->code;
    if (trail_ != nullptr) {
        trail_->report(value_, operation, Shown(code) + (row == nullptr ? " (no such keyword)" : ""));
    }
    return code;
}

int Node::firstExact(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, exact", FirstExact(table, text(storage)), otherwise);
}

int Node::firstExactUpToNul(Keywords table, int otherwise) const {
    constexpr std::string_view operation = "keyword, exact up to the first NUL";
    if (TypeOf(value_) != Json::stringValue) return lookedUp(operation, nullptr, otherwise);
    std::string storage;
    const std::string_view whole = text(storage);
    return lookedUp(operation, FirstExact(table, whole.substr(0, whole.find('\0'))), otherwise);
}

int Node::firstIgnoringCase(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, ignoring case", FirstIgnoringCase(table, text(storage)), otherwise);
}

int Node::lastIgnoringCase(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, ignoring case, last match", LastIgnoringCase(table, text(storage)), otherwise);
}

int Node::stringFirstIgnoringCase(Keywords table, int otherwise) const {
    char word[64] = {};
    GetJsonString(OrNull(value_), word, 64, true);
    return lookedUp("string, size 64, keyword, ignoring case", FirstIgnoringCase(table, word), otherwise);
}

int Node::firstContained(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, contained", FirstContained(table, text(storage)), otherwise);
}

int Node::foundAt(std::string_view operation, std::ptrdiff_t index, std::size_t size, int otherwise) const {
    const bool found = static_cast<std::size_t>(index) < size;
    const int place = found ? static_cast<int>(index) : otherwise;
    if (trail_ != nullptr) trail_->report(value_, operation, Shown(place) + (found ? "" : " (not in the table)"));
    return place;
}

int Node::firstExact(std::span<const std::string> texts, int otherwise) const {
    std::string storage;
    const auto found = std::find(texts.begin(), texts.end(), text(storage));
    return foundAt("place of the text in a table, exact", found - texts.begin(), texts.size(), otherwise);
}

int Node::firstEqual(std::span<const unsigned> numbers, int otherwise) const {
    const auto found = std::find(numbers.begin(), numbers.end(), UIntOf(value_));
    return foundAt("unsigned, place in a table", found - numbers.begin(), numbers.size(), otherwise);
}

void Node::reportScan(std::string_view format, std::size_t converted, std::size_t wanted) const {
    trail_->report(value_, "scanned by " + std::string(format), Shown(converted) + " of " + Shown(wanted));
}

void Resolve(const Json::Value* object, const std::string_view* names, const std::size_t* sorted, std::size_t count,
             const Json::Value** found) {
    std::fill_n(found, count, nullptr);
    if (TypeOf(object) != Json::objectValue) return;
    // jsoncpp keeps members in the order of their names' bytes, so one walk over both finds them all.
    auto member = object->begin();
    const auto end = object->end();
    for (std::size_t i = 0; i < count && member != end;) {
        const std::string_view name = names[sorted[i]];
        const int order = NameOf(member).compare(name);
        if (order == 0) found[sorted[i]] = &*member;
        if (order >= 0) ++i;
        if (order <= 0) ++member;
    }
}

}  // namespace jsonparser

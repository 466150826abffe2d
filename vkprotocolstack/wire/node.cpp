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

/// Zeroes from new char[] for a text of that length, whose size must be an int. Null when they cannot be had.
char* HeapText(std::size_t length) { return length >= INT_MAX ? nullptr : new (std::nothrow) char[length + 1](); }

}  // namespace

template <class Result>
Result Node::reported(std::string_view operation, Result result) const {
    if (trail_ != nullptr) trail_->report(place_.address(), operation, Shown(result));
    return result;
}

Node::operator bool() const { return reported("present", place_.type() != Json::nullValue); }
bool Node::isMember() const { return reported("isMember", place_.exists()); }
bool Node::isArray() const { return reported("isArray", place_.type() == Json::arrayValue); }
bool Node::isString() const { return reported("isString", place_.type() == Json::stringValue); }
bool Node::isInt() const { return reported("isInt", place_.isInt()); }
bool Node::isUInt() const { return reported("isUInt", place_.isUInt()); }
bool Node::isBool() const { return reported("isBool", place_.type() == Json::booleanValue); }

std::size_t Node::size() const { return reported("size", place_.size()); }

Node Node::at(std::size_t index) const {
    return {place_.element(index), trail_ == nullptr ? nullptr : trail_->element(index)};
}

Node Node::operator[](std::string_view name) const {
    return {place_.member(name), trail_ == nullptr ? nullptr : trail_->member(name)};
}

int Node::asInt() const { return reported("int", place_.asInt()); }
unsigned Node::asUInt() const { return reported("unsigned", place_.asUInt()); }
double Node::asDouble() const { return reported("double", place_.asDouble()); }
float Node::asFloat() const { return reported("float", static_cast<float>(place_.asDouble())); }

bool Node::asBool() const { return reported("bool", place_.asBool()); }

unsigned char Node::intLow8() const { return reported("int, low 8 bits", static_cast<unsigned char>(place_.asInt())); }
unsigned char Node::uintLow8() const {
    return reported("unsigned, low 8 bits", static_cast<unsigned char>(place_.asUInt()));
}
unsigned short Node::intLow16() const {
    return reported("int, low 16 bits", static_cast<unsigned short>(place_.asInt()));
}
unsigned short Node::uintLow16() const {
    return reported("unsigned, low 16 bits", static_cast<unsigned short>(place_.asUInt()));
}
int Node::intPlusOne() const {
    return reported("int plus one", static_cast<int>(static_cast<unsigned>(place_.asInt()) + 1U));
}

std::optional<unsigned> Node::asErrorCode() const {
    std::optional<unsigned> code;
    if (place_.is32Bits()) code = static_cast<unsigned>(place_.asInt());
    if (trail_ != nullptr) trail_->report(place_.address(), "error code", code ? Shown(*code) : "(none)");
    return code;
}

long long Node::realToInt64() const {
    return reported("double, cut to 64-bit integer", Truncate<long long>(place_.asDouble()));
}
long Node::utcSeconds() const { return reported("int, UTC seconds", static_cast<long>(place_.asInt())); }
long Node::unsignedUtcSeconds() const { return reported("unsigned, UTC seconds", static_cast<long>(place_.asUInt())); }

void Node::rawTo(char* field, std::size_t count) const {
    std::string storage;
    const std::string_view whole = place_.text(storage);
    const std::size_t length = std::min(std::min(whole.find('\0'), whole.size()), count);
    std::copy_n(whole.data(), length, field);
    field[length] = '\0';
    if (trail_ != nullptr)
        trail_->report(place_.address(), "text as it stands, at most " + Shown(count) + " bytes", field);
}

void Node::utf8To(char* field, int limit) const {
    if (place_.type() == Json::nullValue || limit < 0) {
        if (trail_ != nullptr) trail_->report(place_.address(), "text from UTF-8, limit " + std::to_string(limit), "");
        return;
    }
    std::string storage;
    const std::string_view whole = place_.text(storage);
    const std::size_t length = std::min(whole.size(), static_cast<std::size_t>(limit));
    const std::unique_ptr<char[]> source(new (std::nothrow) char[length + 1]);
    if (source == nullptr) return;
    const std::size_t taken = std::min(whole.find('\0'), length);
    std::copy_n(whole.data(), taken, source.get());
    source[taken] = '\0';
    Change_Utf8_Assic(reinterpret_cast<unsigned char*>(source.get()), field);
    if (trail_ != nullptr) trail_->report(place_.address(), "text from UTF-8, limit " + std::to_string(limit), field);
}

bool Node::stringTo(char* field, int size) const {
    const bool isText = place_.stringTo(field, size);
    if (trail_ != nullptr)
        trail_->report(place_.address(), "string, size " + std::to_string(size), size > 0 ? field : "");
    return isText;
}

int Node::textSize(int limit) const {
    std::string storage;
    const std::size_t size = std::min(place_.text(storage).size() + 1, static_cast<std::size_t>(limit));
    return reported("text size, at most " + std::to_string(limit), static_cast<int>(size));
}

void Node::renderTo(char* field, int size) const {
    place_.renderTo(field, size);
    if (trail_ != nullptr)
        trail_->report(place_.address(), "rendered, size " + std::to_string(size), size > 0 ? field : "");
}

char* Node::heapUtf8() const {
    std::string storage;
    const std::size_t length = place_.text(storage).size();
    char* buffer = HeapText(length);
    if (buffer != nullptr) utf8To(buffer, static_cast<int>(length));
    return buffer;
}

char* Node::heapString() const {
    std::string storage;
    const std::size_t length = place_.text(storage).size();
    char* buffer = HeapText(length);
    if (buffer != nullptr) stringTo(buffer, static_cast<int>(length + 1));
    return buffer;
}

int Node::lookedUp(std::string_view operation, const Keyword* row, int otherwise) const {
    const int code = row == nullptr ? otherwise : row->code;
    if (trail_ != nullptr) {
        trail_->report(place_.address(), operation, Shown(code) + (row == nullptr ? " (no such keyword)" : ""));
    }
    return code;
}

int Node::firstExact(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, exact", FirstExact(table, place_.text(storage)), otherwise);
}

int Node::firstExactUpToNul(Keywords table, int otherwise) const {
    constexpr std::string_view operation = "keyword, exact up to the first NUL";
    if (place_.type() != Json::stringValue) return lookedUp(operation, nullptr, otherwise);
    std::string storage;
    const std::string_view whole = place_.text(storage);
    return lookedUp(operation, FirstExact(table, whole.substr(0, whole.find('\0'))), otherwise);
}

int Node::firstIgnoringCase(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, ignoring case", FirstIgnoringCase(table, place_.text(storage)), otherwise);
}

int Node::lastIgnoringCase(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, ignoring case, last match", LastIgnoringCase(table, place_.text(storage)), otherwise);
}

int Node::stringFirstIgnoringCase(Keywords table, int otherwise) const {
    char word[64] = {};
    place_.stringTo(word, 64);
    return lookedUp("string, size 64, keyword, ignoring case", FirstIgnoringCase(table, word), otherwise);
}

int Node::firstContained(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, contained", FirstContained(table, place_.text(storage)), otherwise);
}

int Node::foundAt(std::string_view operation, std::ptrdiff_t index, std::size_t size, int otherwise) const {
    const bool found = static_cast<std::size_t>(index) < size;
    const int place = found ? static_cast<int>(index) : otherwise;
    if (trail_ != nullptr)
        trail_->report(place_.address(), operation, Shown(place) + (found ? "" : " (not in the table)"));
    return place;
}

int Node::firstExact(std::span<const std::string> texts, int otherwise) const {
    std::string storage;
    const auto found = std::find(texts.begin(), texts.end(), place_.text(storage));
    return foundAt("place of the text in a table, exact", found - texts.begin(), texts.size(), otherwise);
}

int Node::firstEqual(std::span<const unsigned> numbers, int otherwise) const {
    const auto found = std::find(numbers.begin(), numbers.end(), place_.asUInt());
    return foundAt("unsigned, place in a table", found - numbers.begin(), numbers.size(), otherwise);
}

void Node::reportScan(std::string_view format, std::size_t converted, std::size_t wanted) const {
    trail_->report(place_.address(), "scanned by " + std::string(format), Shown(converted) + " of " + Shown(wanted));
}

}  // namespace jsonparser

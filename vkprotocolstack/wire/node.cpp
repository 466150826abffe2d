#include "vkprotocolstack/wire/node.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>
#include <new>

#include "vkprotocolstack/support/support.h"
#include "vkprotocolstack/wire/numbers.h"
#include "vkprotocolstack/wire/report.h"

namespace jsonparser {
namespace {

/// Zeroes from new char[] for a text of that length, whose size must be an int. Null when they cannot be had.
char* HeapText(std::size_t length) { return length >= INT_MAX ? nullptr : new (std::nothrow) char[length + 1](); }

}  // namespace

Report Node::report() const { return {*trail_, place_.address()}; }

// The test for an observer comes first, and what is done for one stays out of line: so the unobserved road needs no
// frame and ends in a jump to the reading itself. The operations that are used most are inline for it.
template <class Read>
bool Node::watchedTest(std::string_view operation, Read read) const {
    const bool passed = read(place_);
    report().test(operation, passed);
    return passed;
}

template <class Read>
inline bool Node::test(std::string_view operation, Read read) const {
    if (trail_ != nullptr) return watchedTest(operation, read);
    return read(place_);
}

template <class Read>
auto Node::watchedNumber(std::string_view operation, Read read, int added) const {
    const auto result = read(place_);
    report().number(operation, result, added);
    return result;
}

template <class Read>
inline auto Node::number(std::string_view operation, Read read, int added) const {
    if (trail_ != nullptr) return watchedNumber(operation, read, added);
    return read(place_);
}

bool Node::watchedPresence() const {
    return watchedTest("present", [](const Place& place) { return place.type() != Json::nullValue; });
}
bool Node::isMember() const {
    return test("isMember", [](const Place& place) { return place.exists(); });
}
bool Node::isArray() const {
    return test("isArray", [](const Place& place) { return place.type() == Json::arrayValue; });
}
bool Node::isString() const {
    return test("isString", [](const Place& place) { return place.type() == Json::stringValue; });
}
bool Node::isInt() const {
    return test("isInt", [](const Place& place) { return place.isInt(); });
}
bool Node::isUInt() const {
    return test("isUInt", [](const Place& place) { return place.isUInt(); });
}
bool Node::isBool() const {
    return test("isBool", [](const Place& place) { return place.type() == Json::booleanValue; });
}

std::size_t Node::watchedSize() const {
    const std::size_t size = place_.size();
    report().size(size);
    return size;
}

Node Node::watchedAt(std::size_t index) const { return {place_.element(index), trail_->element(index)}; }

Node Node::watchedMember(std::string_view name) const { return {place_.member(name), trail_->member(name)}; }

Node Node::operator[](std::string_view name) const {
    if (trail_ != nullptr) return watchedMember(name);
    return {place_.member(name), nullptr};
}

int Node::watchedInt() const {
    return watchedNumber(
        "int", [](const Place& place) { return place.asInt(); }, 0);
}
unsigned Node::watchedUInt() const {
    return watchedNumber(
        "unsigned", [](const Place& place) { return place.asUInt(); }, 0);
}
double Node::asDouble() const {
    return number("double", [](const Place& place) { return place.asDouble(); });
}
float Node::asFloat() const {
    return number("float", [](const Place& place) { return static_cast<float>(place.asDouble()); });
}
bool Node::asBool() const {
    return number("bool", [](const Place& place) { return place.asBool(); });
}
unsigned char Node::intLow8() const {
    return number("int, low 8 bits", [](const Place& place) { return static_cast<unsigned char>(place.asInt()); });
}
unsigned char Node::uintLow8() const {
    return number("unsigned, low 8 bits",
                  [](const Place& place) { return static_cast<unsigned char>(place.asUInt()); });
}
unsigned short Node::intLow16() const {
    return number("int, low 16 bits", [](const Place& place) { return static_cast<unsigned short>(place.asInt()); });
}
unsigned short Node::uintLow16() const {
    return number("unsigned, low 16 bits",
                  [](const Place& place) { return static_cast<unsigned short>(place.asUInt()); });
}
int Node::intPlusOne() const {
    return number(
        "int plus one", [](const Place& place) { return static_cast<int>(static_cast<unsigned>(place.asInt()) + 1U); },
        1);
}

std::optional<unsigned> Node::asErrorCode() const {
    std::optional<unsigned> code;
    if (place_.is32Bits()) code = static_cast<unsigned>(place_.asInt());
    if (trail_ != nullptr) report().errorCode(code);
    return code;
}

long long Node::realToInt64() const {
    return number("double, cut to 64-bit integer",
                  [](const Place& place) { return Truncate<long long>(place.asDouble()); });
}
long Node::utcSeconds() const {
    return number("int, UTC seconds", [](const Place& place) { return place.asInt(); });
}
long Node::unsignedUtcSeconds() const {
    return number("unsigned, UTC seconds", [](const Place& place) { return place.asUInt(); });
}

void Node::rawTo(char* field, std::size_t count) const {
    std::string storage;
    const std::string_view whole = place_.text(storage);
    const std::size_t length = std::min(std::min(whole.find('\0'), whole.size()), count);
    std::copy_n(whole.data(), length, field);
    field[length] = '\0';
    if (trail_ != nullptr) report().rawText(count, field);
}

namespace {

/// @return whether field was written
bool CopyUtf8(const Place& place, char* field, int limit) {
    if (place.type() == Json::nullValue || limit < 0) return false;
    std::string storage;
    const std::string_view whole = place.text(storage);
    const std::size_t length = std::min(whole.size(), static_cast<std::size_t>(limit));
    const std::unique_ptr<char[]> source(new (std::nothrow) char[length + 1]);
    if (source == nullptr) return false;
    const std::size_t taken = std::min(whole.find('\0'), length);
    std::copy_n(whole.data(), taken, source.get());
    source[taken] = '\0';
    Change_Utf8_Assic(reinterpret_cast<unsigned char*>(source.get()), field);
    return true;
}

}  // namespace

void Node::utf8To(char* field, int limit) const {
    if (trail_ == nullptr) return static_cast<void>(CopyUtf8(place_, field, limit));
    const bool written = CopyUtf8(place_, field, limit);
    report().utf8Text(limit, written ? field : nullptr);
}

bool Node::stringTo(char* field, int size) const {
    const bool isText = place_.stringTo(field, size);
    if (trail_ != nullptr) report().string(size, field);
    return isText;
}

int Node::textSize(int limit) const {
    std::string storage;
    const auto size = static_cast<int>(std::min(place_.text(storage).size() + 1, static_cast<std::size_t>(limit)));
    if (trail_ != nullptr) report().textSize(limit, size);
    return size;
}

void Node::renderTo(char* field, int size) const {
    place_.renderTo(field, size);
    if (trail_ != nullptr) report().rendered(size, field);
}

char* Node::heapUtf8() const {
    std::string storage;
    const std::size_t length = place_.text(storage).size();
    char* buffer = HeapText(length);
    if (buffer != nullptr) Node(place_, nullptr).utf8To(buffer, static_cast<int>(length));
    if (trail_ != nullptr) report().heapUtf8(buffer);
    return buffer;
}

char* Node::heapString() const {
    std::string storage;
    const std::size_t length = place_.text(storage).size();
    char* buffer = HeapText(length);
    if (buffer != nullptr) Node(place_, nullptr).stringTo(buffer, static_cast<int>(length + 1));
    if (trail_ != nullptr) report().heapString(buffer);
    return buffer;
}

inline int Node::lookedUp(std::string_view operation, Keywords table, const Keyword* row, int otherwise,
                          bool isText) const {
    const int code = row == nullptr ? otherwise : row->code;
    if (trail_ != nullptr) report().keyword(operation, isText, table, row, code);
    return code;
}

int Node::firstExact(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, exact", table, FirstExact(table, place_.text(storage)), otherwise);
}

int Node::firstExactUpToNul(Keywords table, int otherwise) const {
    const Keyword* row = nullptr;
    if (place_.type() == Json::stringValue) {
        std::string storage;
        const std::string_view whole = place_.text(storage);
        row = FirstExact(table, whole.substr(0, whole.find('\0')));
    }
    return lookedUp("keyword, exact up to the first NUL", table, row, otherwise, true);
}

int Node::firstIgnoringCase(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, ignoring case", table, FirstIgnoringCase(table, place_.text(storage)), otherwise);
}

int Node::lastIgnoringCase(Keywords table, int otherwise) const {
    std::string storage;
    const Keyword* row = LastIgnoringCase(table, place_.text(storage));
    return lookedUp("keyword, ignoring case, last match", table, row, otherwise);
}

int Node::stringFirstIgnoringCase(Keywords table, int otherwise) const {
    char word[64] = {};
    place_.stringTo(word, 64);
    const Keyword* row = FirstIgnoringCase(table, word);
    return lookedUp("string, size 64, keyword, ignoring case", table, row, otherwise, true);
}

int Node::firstContained(Keywords table, int otherwise) const {
    std::string storage;
    return lookedUp("keyword, contained", table, FirstContained(table, place_.text(storage)), otherwise);
}

int Node::firstExact(std::span<const std::string> texts, int otherwise) const {
    std::string storage;
    const auto row = std::find(texts.begin(), texts.end(), place_.text(storage));
    const bool found = row != texts.end();
    const int place = found ? static_cast<int>(row - texts.begin()) : otherwise;
    if (trail_ != nullptr) report().place("place of the text in a table, exact", texts, place, found);
    return place;
}

int Node::firstEqual(std::span<const unsigned> numbers, int otherwise) const {
    const auto row = std::find(numbers.begin(), numbers.end(), place_.asUInt());
    const bool found = row != numbers.end();
    const int place = found ? static_cast<int>(row - numbers.begin()) : otherwise;
    if (trail_ != nullptr) report().place("unsigned, place in a table", numbers, place, found);
    return place;
}

void Node::reportScan(std::string_view format, std::size_t converted, std::size_t wanted) const {
    report().scan(format, converted, wanted);
}

}  // namespace jsonparser

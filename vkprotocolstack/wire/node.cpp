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

void Node::reportTest(std::string_view operation, bool passed) const { report().test(operation, passed); }

template <class Number>
void Node::reportNumber(std::string_view operation, Number result, int added) const {
    report().number(operation, result, added);
}
template void Node::reportNumber(std::string_view operation, int result, int added) const;
template void Node::reportNumber(std::string_view operation, unsigned result, int added) const;
template void Node::reportNumber(std::string_view operation, double result, int added) const;
template void Node::reportNumber(std::string_view operation, float result, int added) const;
template void Node::reportNumber(std::string_view operation, unsigned char result, int added) const;
template void Node::reportNumber(std::string_view operation, unsigned short result, int added) const;

std::size_t Node::size() const {
    const std::size_t size = place_.size();
    if (trail_ != nullptr) report().size(size);
    return size;
}

Node Node::at(std::size_t index) const {
    return {place_.element(index), trail_ == nullptr ? nullptr : trail_->element(index)};
}

Node Node::operator[](std::string_view name) const {
    return {place_.member(name), trail_ == nullptr ? nullptr : trail_->member(name)};
}

bool Node::asBool() const { return reported("bool", place_.asBool()); }

int Node::intPlusOne() const {
    return reported("int plus one", static_cast<int>(static_cast<unsigned>(place_.asInt()) + 1U), 1);
}

std::optional<unsigned> Node::asErrorCode() const {
    std::optional<unsigned> code;
    if (place_.is32Bits()) code = static_cast<unsigned>(place_.asInt());
    if (trail_ != nullptr) report().errorCode(code);
    return code;
}

long long Node::realToInt64() const {
    return reported("double, cut to 64-bit integer", Truncate<long long>(place_.asDouble()));
}
long Node::utcSeconds() const { return reported("int, UTC seconds", place_.asInt()); }
long Node::unsignedUtcSeconds() const { return reported("unsigned, UTC seconds", place_.asUInt()); }

void Node::rawTo(char* field, std::size_t count) const {
    std::string storage;
    const std::string_view whole = place_.text(storage);
    const std::string_view taken = whole.substr(0, count);
    const std::size_t length = std::min(taken.find('\0'), taken.size());
    taken.copy(field, length);
    field[length] = '\0';
    if (trail_ != nullptr) report().rawText(count, field);
}

void Node::utf8To(char* field, int limit) const {
    if (place_.type() == Json::nullValue || limit < 0) {
        if (trail_ != nullptr) report().utf8Text(limit, "");
        return;
    }
    std::string storage;
    const std::string_view whole = place_.text(storage);
    const std::size_t length = std::min(whole.size(), static_cast<std::size_t>(limit));
    char onStack[512];
    std::unique_ptr<char[]> onHeap;
    char* source = onStack;
    if (length >= sizeof onStack) {
        onHeap.reset(new (std::nothrow) char[length + 1]);
        if (onHeap == nullptr) return;
        source = onHeap.get();
    }
    whole.copy(source, length);
    source[length] = '\0';  // a NUL before this ends the text too
    Change_Utf8_Assic(reinterpret_cast<unsigned char*>(source), field);
    if (trail_ != nullptr) report().utf8Text(limit, field);
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

int Node::lookedUp(std::string_view operation, Keywords table, const Keyword* row, int otherwise, bool isText) const {
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

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

/// The text and a terminator from new char[]. Null when they cannot be had.
char* HeapCopy(std::string_view text) {
    char* const copy = new (std::nothrow) char[text.size() + 1];
    if (copy != nullptr) CopyText(text, copy);
    return copy;
}

/// @return whether field was written
[[gnu::always_inline]] inline bool CopyUtf8(Place place, char* field, int limit) {
    if (!place.isPresent() || limit < 0) return false;
    std::string storage;
    const std::string_view whole = place.text(storage);
    const std::size_t length = std::min(whole.size(), static_cast<std::size_t>(limit));
    char onStack[512];
    std::unique_ptr<char[]> onHeap;
    char* source = onStack;
    if (length >= sizeof onStack) {
        onHeap.reset(new (std::nothrow) char[length + 1]);
        if (onHeap == nullptr) return false;
        source = onHeap.get();
    }
    whole.copy(source, length);
    source[length] = '\0';  // a NUL before this ends the text too
    Change_Utf8_Assic(reinterpret_cast<unsigned char*>(source), field);
    return true;
}

}  // namespace

Place Node::valueOf(Place watched) { return watched.trail().value(); }

Report Node::report(Place watched) { return Report(watched.trail()); }

void Node::reportTest(Place watched, std::string_view test, bool passed) { report(watched).test(test, passed); }

template <class Number>
void Node::reportNumber(Place watched, std::string_view operation, Number number, int added) {
    report(watched).number(operation, number, added);
}
template void Node::reportNumber(Place, std::string_view, bool, int);
template void Node::reportNumber(Place, std::string_view, int, int);
template void Node::reportNumber(Place, std::string_view, unsigned, int);
template void Node::reportNumber(Place, std::string_view, double, int);
template void Node::reportNumber(Place, std::string_view, float, int);
template void Node::reportNumber(Place, std::string_view, unsigned char, int);
template void Node::reportNumber(Place, std::string_view, unsigned short, int);

std::size_t Node::reportedSize(Place watched) {
    const std::size_t size = valueOf(watched).size();
    report(watched).size(size);
    return size;
}

void Node::reportScan(Place watched, std::string_view format, std::size_t converted, std::size_t wanted) {
    report(watched).scan(format, converted, wanted);
}

int Node::intPlusOne() const {
    if (!place_.isInteger() && place_.isWatched()) [[unlikely]]
        return watchedIntPlusOne();
    return static_cast<int>(static_cast<unsigned>(place_.asInt()) + 1U);
}

int Node::watchedIntPlusOne() const {
    const int number = plain().intPlusOne();
    reportNumber(place_, "int plus one", number, 1);
    return number;
}

long long Node::realToInt64() const {
    if (!place_.isInteger() && place_.isWatched()) [[unlikely]]
        return watchedRealToInt64();
    return Truncate<long long>(place_.asDouble());
}

long long Node::watchedRealToInt64() const {
    const long long number = plain().realToInt64();
    reportNumber(place_, "double, cut to 64-bit integer", number);
    return number;
}

void Node::RawTo(Place place, char* field, std::size_t count) {
    if (place.isPlain()) return CopyText(place.plain().substr(0, count), field);
    if (place.isCopiedInTree()) return place.copyInTree(field, count);
    OtherRawTo(place, field, count);
}

void Node::OtherRawTo(Place place, char* field, std::size_t count) {
    std::string storage;
    const std::string_view taken = place.text(storage).substr(0, count);
    if (taken.empty() && place.isWatched()) [[unlikely]] {
        RawTo(valueOf(place), field, count);
        return report(place).rawText(count, field);
    }
    const std::size_t length = std::min(taken.find('\0'), taken.size());
    taken.copy(field, length);
    field[length] = '\0';
}

void Node::Utf8To(Place place, char* field, int limit) {
    if (place.isCopiedOnTape()) {
        if (limit >= 0) CopyText(place.plain().substr(0, static_cast<std::size_t>(limit)), field);
    } else if (place.isCopiedInTree()) {
        if (limit >= 0) place.copyInTree(field, static_cast<std::size_t>(limit));
    } else {
        OtherUtf8To(place, field, limit);
    }
}

void Node::OtherUtf8To(Place place, char* field, int limit) {
    if (const Place typed = place.typed(); typed.isCopiedInTree()) {
        Utf8To(typed, field, limit);
    } else if (place.isPresent()) {
        CopyUtf8(place, field, limit);
    } else if (place.isWatched()) {
        WatchedUtf8To(place, field, limit);
    }
}

void Node::WatchedUtf8To(Place watched, char* field, int limit) {
    const bool written = CopyUtf8(valueOf(watched), field, limit);
    report(watched).utf8Text(limit, written ? field : nullptr);
}

bool Node::WatchedStringTo(Place watched, char* field, int size) {
    const bool isText = valueOf(watched).stringTo(field, size);
    report(watched).string(size, field);
    return isText;
}

int Node::textSize(int limit) const {
    const auto sizeOf = [limit](std::string_view text) {
        return static_cast<int>(std::min(text.size() + 1, static_cast<std::size_t>(limit)));
    };
    if (place_.isCopiedInTree()) return sizeOf(place_.inTree());
    std::string storage;
    const std::string_view text = place_.text(storage);
    if (text.empty() && place_.isWatched()) [[unlikely]] {
        const int size = plain().textSize(limit);
        report(place_).textSize(limit, size);
        return size;
    }
    return sizeOf(text);
}

void Node::RenderTo(Place place, char* field, int size) {
    if (place.isWatched()) [[unlikely]]
        return WatchedRenderTo(place, field, size);
    place.renderTo(field, size);
}

void Node::WatchedRenderTo(Place watched, char* field, int size) {
    valueOf(watched).renderTo(field, size);
    report(watched).rendered(size, field);
}

char* Node::HeapUtf8(Place place) {
    if (place.isCopiedOnTape()) return HeapCopy(place.plain());
    return place.isCopiedInTree() ? CopiedHeap(place) : OtherHeapUtf8(place);
}

char* Node::OtherHeapUtf8(Place place) {
    std::string storage;
    const std::size_t length = place.text(storage).size();
    if (length == 0 && place.isWatched()) [[unlikely]] {
        char* const buffer = HeapUtf8(valueOf(place));
        report(place).heapUtf8(buffer);
        return buffer;
    }
    char* const buffer = HeapText(length);
    if (buffer != nullptr) Utf8To(place, buffer, static_cast<int>(length));
    return buffer;
}

char* Node::HeapString(Place place) {
    if (place.isCopiedOnTape()) return HeapCopy(place.plain());
    return place.isCopiedInTree() ? CopiedHeap(place) : OtherHeapString(place);
}

char* Node::CopiedHeap(Place place) {
    const std::string_view text = place.inTree();
    if (text.size() < INT_MAX && UpToNul(text).size() == text.size()) return HeapCopy(text);
    return OtherHeapString(place);  // which gives the same as OtherHeapUtf8 of a text that is copied
}

char* Node::OtherHeapString(Place place) {
    std::string storage;
    const std::size_t length = place.text(storage).size();
    if (length == 0 && place.isWatched()) [[unlikely]] {
        char* const buffer = HeapString(valueOf(place));
        report(place).heapString(buffer);
        return buffer;
    }
    char* const buffer = HeapText(length);
    if (buffer != nullptr) place.stringTo(buffer, static_cast<int>(length + 1));
    return buffer;
}

template <class Find>
inline int Node::lookedUp(const char* operation, Keywords table, int otherwise, Find find, bool isText) const {
    const Keyword* row = find(place_);
    // A watched place reads as the empty text.
    if ((row == nullptr || row->text.empty()) && place_.isWatched()) {
        row = find(valueOf(place_));
        report(place_).keyword(operation, isText, table, row, row == nullptr ? otherwise : row->code);
    }
    return row == nullptr ? otherwise : row->code;
}

int Node::firstExact(Keywords table, int otherwise) const {
    return lookedUp("keyword, exact", table, otherwise, [table](Place place) {
        std::string storage;
        return FirstExact(table, place.text(storage));
    });
}

int Node::firstExactUpToNul(Keywords table, int otherwise) const {
    const auto find = [table](Place place) -> const Keyword* {
        if (place.type() != Json::stringValue) return nullptr;
        std::string storage;
        const std::string_view whole = place.text(storage);
        return FirstExact(table, whole.substr(0, whole.find('\0')));
    };
    return lookedUp("keyword, exact up to the first NUL", table, otherwise, find, true);
}

int Node::firstIgnoringCase(Keywords table, int otherwise) const {
    return lookedUp("keyword, ignoring case", table, otherwise, [table](Place place) {
        std::string storage;
        return FirstIgnoringCase(table, place.text(storage));
    });
}

int Node::lastIgnoringCase(Keywords table, int otherwise) const {
    return lookedUp("keyword, ignoring case, last match", table, otherwise, [table](Place place) {
        std::string storage;
        return LastIgnoringCase(table, place.text(storage));
    });
}

int Node::stringFirstIgnoringCase(Keywords table, int otherwise) const {
    const auto find = [table](Place place) {
        char word[64] = {};
        place.stringTo(word, 64);
        return FirstIgnoringCase(table, word);
    };
    return lookedUp("string, size 64, keyword, ignoring case", table, otherwise, find, true);
}

int Node::firstContained(Keywords table, int otherwise) const {
    return lookedUp("keyword, contained", table, otherwise, [table](Place place) {
        std::string storage;
        return FirstContained(table, place.text(storage));
    });
}

int Node::firstExact(std::span<const std::string> texts, int otherwise) const {
    const Node node = plain();
    std::string storage;
    const auto row = std::find(texts.begin(), texts.end(), node.place_.text(storage));
    const bool found = row != texts.end();
    const int place = found ? static_cast<int>(row - texts.begin()) : otherwise;
    if (place_.isWatched()) report(place_).place("place of the text in a table, exact", texts, place, found);
    return place;
}

int Node::firstEqual(std::span<const unsigned> numbers, int otherwise) const {
    const auto row = std::find(numbers.begin(), numbers.end(), plain().place_.asUInt());
    const bool found = row != numbers.end();
    const int place = found ? static_cast<int>(row - numbers.begin()) : otherwise;
    if (place_.isWatched()) report(place_).place("unsigned, place in a table", numbers, place, found);
    return place;
}

unsigned Node::errorCode(bool (*translate)(unsigned device, unsigned& library), unsigned otherwise) const {
    const Place place = plain().place_;
    unsigned code = otherwise;
    const bool known = place.is32Bits() && translate(static_cast<unsigned>(place.asInt()), code);
    if (place_.isWatched()) report(place_).errorCode(code, known);
    return code;
}

}  // namespace jsonparser

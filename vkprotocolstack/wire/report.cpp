#include "vkprotocolstack/wire/report.h"

#include <json/writer.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

#include "vkprotocolstack/support/support.h"
#include "vkprotocolstack/wire/nearest.h"
#include "vkprotocolstack/wire/place.h"

namespace jsonparser {
namespace {

std::string Counted(std::size_t count, std::string_view noun) {
    return std::to_string(count) + ' ' + std::string(noun) + (count == 1 ? "" : "s");
}

std::string Quoted(std::string_view text) {
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    builder["emitUTF8"] = true;
    return Json::writeString(builder, Json::Value(text.data(), text.data() + text.size()));
}

template <class Real>
std::string DigitsOf(Real number) {
    char buffer[64] = {};
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), number).ptr;
    std::string digits(buffer, end);
    return digits.find_first_of(".en") == digits.npos ? digits + ".0" : digits;
}

template <class Number>
std::string Shown(Number number) {
    if constexpr (std::is_same_v<Number, bool>) {
        return number ? "true" : "false";
    } else if constexpr (std::is_floating_point_v<Number>) {
        return Digits(number);
    } else {
        return std::to_string(number);
    }
}

Became Kept() { return {Outcome::kKept, "kept", ""}; }
Became Default() { return {Outcome::kDefault, "written by default", ""}; }
Became WrongType(std::string_view readAs, std::string_view expected) {
    return {Outcome::kWrongType, "wrong type, read as " + std::string(readAs), std::string(expected)};
}

template <class Integer>
std::string RangeOf(int added) {
    return Shown(std::numeric_limits<Integer>::min()) + " to " +
           Shown(static_cast<Integer>(std::numeric_limits<Integer>::max() - static_cast<Integer>(added)));
}

template <class Integer>
Became Wrapped() {
    return {Outcome::kWrapped, "wrapped to the low " + std::to_string(sizeof(Integer) * CHAR_BIT) + " bits",
            RangeOf<Integer>(0)};
}

template <class Integer>
Became OfInteger(const Json::Value& value, std::string_view operation, Integer result, int added) {
    const long long taken = static_cast<long long>(result) - added;
    const bool same = value.isInt64() ? value.asLargestInt() == taken : std::cmp_equal(value.asLargestUInt(), taken);
    if (same) return Kept();
    // Signed fields of 16 bits, the coordinates of points, are read by this operation too.
    if (std::is_same_v<Integer, unsigned short> && operation.starts_with("int") && value.isInt64() &&
        value.asLargestInt() == static_cast<short>(result)) {
        return {Outcome::kKept, "kept, as the 16 bits of " + value.asString(), ""};
    }
    Became wrapped = Wrapped<Integer>();
    wrapped.expected = RangeOf<Integer>(added);
    return wrapped;
}

template <class Integer>
Became OfReal(double value, Integer result, int added) {
    const auto taken = static_cast<double>(static_cast<long long>(result) - added);
    if (std::isnan(value)) return {Outcome::kLimited, "not a number, read as 0", RangeOf<Integer>(added)};
    const double whole = std::trunc(value);
    if (whole == taken) {
        if (whole == value) return Kept();
        return {Outcome::kFraction, "fraction cut", "a whole number"};
    }
    const bool narrow = sizeof(Integer) < sizeof(int);
    if (narrow && whole >= INT_MIN && whole <= UINT_MAX) return Wrapped<Integer>();
    return {Outcome::kLimited, "beyond the range, the nearest limit taken", RangeOf<Integer>(added)};
}

template <class Number>
Became NumberBecame(const Json::Value* value, std::string_view operation, Number result, int added) {
    if (value == nullptr || value->isNull()) return Default();
    const bool isNumber = value->isNumeric() || value->isBool();
    if (!isNumber) return WrongType(Shown(result), std::is_same_v<Number, bool> ? "true or false" : "a number");
    if constexpr (std::is_same_v<Number, bool>) {
        return Kept();
    } else if constexpr (std::is_floating_point_v<Number>) {
        if (std::isfinite(static_cast<double>(result)) || !std::isfinite(value->asDouble())) return Kept();
        return {Outcome::kLimited, "beyond the range of the field", "at most 3.4e38"};
    } else {
        if (value->isBool()) return Kept();
        if (value->type() == Json::realValue) return OfReal(value->asDouble(), result, added);
        return OfInteger(*value, operation, result, added);
    }
}

std::string ListOf(const std::vector<std::string>& items, std::string_view noun) {
    constexpr std::size_t kMost = 10;
    if (items.size() > kMost) return "one of " + Counted(items.size(), noun);
    std::string list;
    for (std::size_t i = 0; i < items.size(); ++i)
        list += (i == 0 ? "" : i + 1 == items.size() ? " or " : ", ") + items[i];
    return list;
}

Became UnknownKeyword(std::string_view word, std::span<const std::string_view> table) {
    std::vector<std::string> quoted;
    std::transform(table.begin(), table.end(), std::back_inserter(quoted), Quoted);
    Became became{Outcome::kUnknownKeyword, "keyword unknown", ListOf(quoted, "keyword")};
    if (const auto nearest = Nearest(word, table)) {
        became.remark += "; did you mean " + Quoted(*nearest) + '?';
        became.expected = Quoted(*nearest) + " or another keyword";
    }
    return became;
}

/// Bytes that the value takes when its text is rendered whole. A cut may drop up to a character.
std::size_t RenderedSize(const Json::Value& value) {
    constexpr int kLargest = 1 << 28;
    constexpr std::size_t kCharacter = 8;
    for (int size = 4096;; size *= 4) {
        std::vector<char> buffer(static_cast<std::size_t>(size));
        parseJsonNodeToStr(value, buffer.data(), size);
        const std::size_t length = std::strlen(buffer.data());
        if (length + kCharacter < buffer.size() || size >= kLargest) return length;
    }
}

}  // namespace

std::string Digits(double number) { return DigitsOf(number); }
std::string Digits(float number) { return DigitsOf(number); }

std::string QuotedLocal(const char* text) {
    Json::Value value;
    SetJsonString(value, text, true);
    return value.isString() ? Quoted(value.asString()) : "\"\"";
}

std::string Report::text() const {
    std::string storage;
    return std::string(Place(value_).text(storage));
}

void Report::converted(std::string_view operation, std::string result, Became became) const {
    trail_.observer().look({trail_, trail_.path(), value_, Look::kConversion, operation, std::move(result),
                            became.outcome, std::move(became.remark), std::move(became.expected)});
}

void Report::test(std::string_view operation, bool passed) const {
    trail_.observer().look({trail_, trail_.path(), value_, Look::kTest, operation, Shown(passed),
                            passed ? Outcome::kKept : Outcome::kRefused, "", ""});
}

void Report::size(std::size_t size) const {
    trail_.observer().look({trail_, trail_.path(), value_, Look::kSize, "size", Shown(size), Outcome::kKept, "", ""});
}

void Report::textSize(int limit, int size) const {
    const std::string operation = "text size, at most " + std::to_string(limit);
    trail_.observer().look(
        {trail_, trail_.path(), value_, Look::kSize, operation, Shown(size), Outcome::kKept, "", ""});
}

template <class Number>
void Report::number(std::string_view operation, Number result, int added) const {
    converted(operation, Shown(result), NumberBecame(value_, operation, result, added));
}
template void Report::number(std::string_view, bool, int) const;
template void Report::number(std::string_view, int, int) const;
template void Report::number(std::string_view, unsigned, int) const;
template void Report::number(std::string_view, unsigned char, int) const;
template void Report::number(std::string_view, unsigned short, int) const;
template void Report::number(std::string_view, long long, int) const;
template void Report::number(std::string_view, float, int) const;
template void Report::number(std::string_view, double, int) const;

std::size_t Report::replacedIn(std::string_view local) const {
    const std::string source = text();
    const auto after = std::count(local.begin(), local.end(), '?');
    const auto before = std::count(source.begin(), source.end(), '?');
    return after > before ? static_cast<std::size_t>(after - before) : 0;
}

Became Report::textBecame(bool onlyTexts, std::size_t taken, std::size_t whole, std::size_t limit) const {
    if (isNull()) return Default();
    if (isContainer() || (onlyTexts && !value_->isString())) return WrongType("the empty text", "a text");
    if (taken >= whole) return Kept();
    return {Outcome::kCut, "cut from " + std::to_string(whole) + " to " + Counted(taken, "byte"),
            whole <= limit ? "a text without NUL" : "at most " + Counted(limit, "byte")};
}

namespace {

Became OrReplaced(Became became, std::size_t replaced) {
    if (replaced == 0) return became;
    const std::string remark = Counted(replaced, "character") + " replaced by \"?\"";
    if (IsFinding(became.outcome)) {
        became.remark += "; " + remark;
        return became;
    }
    return {Outcome::kReplaced, remark, "characters of the local encoding"};
}

}  // namespace

void Report::rawText(std::size_t count, const char* field) const {
    converted("text as it stands, at most " + std::to_string(count) + " bytes", Quoted(field),
              textBecame(false, std::strlen(field), text().size(), count));
}

void Report::utf8Text(int limit, const char* field) const {
    const std::string operation = "text from UTF-8, limit " + std::to_string(limit);
    if (field == nullptr) return converted(operation, "", {Outcome::kLeft, "left as it was", ""});
    const auto most = static_cast<std::size_t>(limit);
    const std::string source = text();
    const std::size_t taken = std::min({source.size(), source.find('\0'), most});
    Became became = OrReplaced(textBecame(false, taken, source.size(), most), replacedIn(field));
    if (std::strlen(field) == most && most > 0) {
        const std::string_view behind = "its terminator is in the byte behind the field";
        if (IsFinding(became.outcome)) {
            (became.remark += "; ") += behind;
        } else {
            became = {Outcome::kFull, "fills all " + Counted(most, "byte") + ", " + std::string(behind),
                      "at most " + Counted(most - 1, "byte")};
        }
    }
    converted(operation, QuotedLocal(field), std::move(became));
}

void Report::string(int size, const char* field) const {
    const std::string operation = "string, size " + std::to_string(size);
    if (size <= 0) return converted(operation, "", {Outcome::kLeft, "no room, left as it was", ""});
    const std::string source = text();
    std::vector<char> whole(source.size() + 1);
    GetJsonString(value_ == nullptr ? Json::Value::nullSingleton() : *value_, whole.data(),
                  static_cast<int>(std::min(whole.size(), std::size_t{INT_MAX})), true);
    const std::size_t wholeSize = source.find('\0') == source.npos ? std::strlen(whole.data()) : source.size();
    Became became = textBecame(true, std::strlen(field), wholeSize, static_cast<std::size_t>(size) - 1);
    converted(operation, QuotedLocal(field), OrReplaced(std::move(became), replacedIn(whole.data())));
}

void Report::rendered(int size, const char* field) const {
    const std::string operation = "rendered, size " + std::to_string(size);
    if (size <= 0) return converted(operation, "", {Outcome::kLeft, "no room, left as it was", ""});
    if (isNull()) return converted(operation, QuotedLocal(field), Default());
    const std::string source = text();
    const std::size_t whole = source.find('\0') == source.npos ? RenderedSize(*value_) : source.size();
    const std::size_t taken = std::strlen(field);
    Became became = Kept();
    if (taken < whole) {
        const auto limit = static_cast<std::size_t>(size) - 1;
        became = {Outcome::kCut, "cut from " + std::to_string(whole) + " to " + Counted(taken, "byte"),
                  whole <= limit ? "a text without NUL" : "at most " + Counted(limit, "byte")};
    }
    const std::size_t replaced = value_->isString() ? replacedIn(field) : 0;
    converted(operation, QuotedLocal(field), OrReplaced(std::move(became), replaced));
}

void Report::heapUtf8(const char* buffer) const {
    constexpr std::string_view operation = "text from UTF-8, of any length";
    if (buffer == nullptr) return converted(operation, "null", {Outcome::kLeft, "no memory for it", ""});
    const std::string source = text();
    const std::size_t taken = std::min(source.size(), source.find('\0'));
    converted(operation, QuotedLocal(buffer),
              OrReplaced(textBecame(false, taken, source.size(), source.size()), replacedIn(buffer)));
}

void Report::heapString(const char* buffer) const {
    constexpr std::string_view operation = "string, of any length";
    if (buffer == nullptr) return converted(operation, "null", {Outcome::kLeft, "no memory for it", ""});
    const std::string source = text();
    const std::size_t taken = std::min(source.size(), source.find('\0'));
    converted(operation, QuotedLocal(buffer),
              OrReplaced(textBecame(true, taken, source.size(), source.size()), replacedIn(buffer)));
}

void Report::scan(std::string_view format, std::size_t count, std::size_t wanted) const {
    const std::string counts = std::to_string(count) + " of " + std::to_string(wanted);
    Became became = Kept();
    if (count < wanted) {
        became = {Outcome::kUnconverted, counts + " numbers converted", "a text like " + std::string(format)};
        if (isNull()) became = {Outcome::kLeft, "left as it was", ""};
        if (isContainer()) became = WrongType("the empty text, " + counts + " numbers converted", became.expected);
    }
    converted("scanned by " + std::string(format), counts, std::move(became));
}

void Report::keyword(std::string_view operation, bool isText, Keywords table, const Keyword* row, int code) const {
    Became became = Kept();
    if (isNull()) {
        became = Default();
    } else if (isContainer() || (isText && !value_->isString())) {
        became = WrongType("the empty text", "a text");
    } else if (row == nullptr) {
        std::vector<std::string_view> words;
        for (const Keyword& known : table) words.push_back(known.text);
        became = UnknownKeyword(text(), words);
    }
    converted(operation, Shown(code), std::move(became));
}

void Report::place(std::string_view operation, std::span<const std::string> table, int place, bool found) const {
    Became became = Kept();
    if (isNull()) {
        became = Default();
    } else if (isContainer()) {
        became = WrongType("the empty text", "a text");
    } else if (!found) {
        const std::vector<std::string_view> words(table.begin(), table.end());
        became = UnknownKeyword(text(), words);
    }
    converted(operation, Shown(place), std::move(became));
}

void Report::place(std::string_view operation, std::span<const unsigned> table, int place, bool found) const {
    const unsigned number = Place(value_).asUInt();
    Became became = NumberBecame(value_, operation, number, 0);
    if (!isNull() && !found && became.outcome != Outcome::kWrongType) {
        std::vector<std::string> numbers;
        std::transform(table.begin(), table.end(), std::back_inserter(numbers), Shown<unsigned>);
        became = {Outcome::kUnknownKeyword, "not in the table", ListOf(numbers, "number")};
    }
    converted(operation, Shown(place), std::move(became));
}

void Report::errorCode(unsigned code, bool known) const {
    constexpr std::string_view operation = "error code";
    const Place device(value_);
    Became became = Kept();
    if (isNull()) {
        became = Default();
    } else if (!device.is32Bits()) {
        became = WrongType("no usable code", "an integer of 32 bits");
    } else if (!known) {
        became = {Outcome::kUnknownKeyword, "not in the table", "a known device error code"};
    } else if (value_->type() == Json::realValue) {
        became = NumberBecame(value_, operation, device.asInt(), 0);
    }
    converted(operation, Shown(code), std::move(became));
}

}  // namespace jsonparser

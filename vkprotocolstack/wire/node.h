// Reading a JSON node: every operation is defined for every JSON value, and none throws.
//
// A node that is missing reads as null. Numbers: null, text, array and object read as 0; integers keep their low bits;
// reals are cut toward zero, beyond the range to the nearest limit, NaN to 0. The text of null, array and object is
// empty, that of a bool or a number is jsoncpp's asString.
#ifndef VKPROTOCOLSTACK_WIRE_NODE_H
#define VKPROTOCOLSTACK_WIRE_NODE_H

#include <json/value.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "vkprotocolstack/wire/keywords.h"
#include "vkprotocolstack/wire/names.h"
#include "vkprotocolstack/wire/observer.h"
#include "vkprotocolstack/wire/place.h"
#include "vkprotocolstack/wire/scan.h"

namespace jsonparser {

class Node {
  public:
    /// The node that a converter was called with.
    explicit Node(const Json::Value& root) : Node(Place(&root), ObserverScope::Current()) {}
    Node(Place place, const Trail* trail) : place_(place), trail_(trail) {}

    // ---- tests
    /// Present: neither missing nor null.
    explicit operator bool() const { return tested("present", !place_.isNull()); }
    /// Part of its object, as null too.
    bool isMember() const { return tested("isMember", place_.exists()); }
    bool isArray() const { return tested("isArray", place_.type() == Json::arrayValue); }
    bool isString() const { return tested("isString", place_.type() == Json::stringValue); }
    bool isInt() const { return tested("isInt", place_.isInt()); }
    bool isUInt() const { return tested("isUInt", place_.isUInt()); }
    bool isBool() const { return tested("isBool", place_.type() == Json::booleanValue); }
    /// Elements of an array, 0 for anything else.
    std::size_t size() const;

    // ---- way down
    Node at(std::size_t index) const;
    /// Calls visit with the first elements, at most so many, and their indexes, until it returns false. Faster than at
    /// for each.
    /// @return whether it never did
    template <class Visit>
    bool forElements(std::size_t most, Visit visit) const {
        std::size_t index = 0;
        return place_.forElements(std::min(size(), most), [&](Place element) {
            const Node node(element, trail_ == nullptr ? nullptr : trail_->element(index));
            return visit(node, index++);
        });
    }
    Node operator[](std::string_view name) const;

    // ---- numbers
    int asInt() const { return reported("int", place_.asInt()); }
    unsigned asUInt() const { return reported("unsigned", place_.asUInt()); }
    double asDouble() const { return reported("double", place_.asDouble()); }
    float asFloat() const { return reported("float", static_cast<float>(place_.asDouble())); }
    bool asBool() const;
    /// The low bits of asInt or of asUInt: they differ on reals outside the type's range.
    unsigned char intLow8() const { return reported("int, low 8 bits", static_cast<unsigned char>(place_.asInt())); }
    unsigned char uintLow8() const {
        return reported("unsigned, low 8 bits", static_cast<unsigned char>(place_.asUInt()));
    }
    unsigned short intLow16() const {
        return reported("int, low 16 bits", static_cast<unsigned short>(place_.asInt()));
    }
    unsigned short uintLow16() const {
        return reported("unsigned, low 16 bits", static_cast<unsigned short>(place_.asUInt()));
    }
    /// asInt plus one; wraps at the limit.
    int intPlusOne() const;
    /// The 32-bit pattern of asInt. Nothing when it is null, a text, an array, an object, or an integer that is neither
    /// a signed nor an unsigned 32-bit number.
    std::optional<unsigned> asErrorCode() const;
    /// asDouble cut toward zero.
    long long realToInt64() const;
    /// asInt and asUInt of seconds since 1970-01-01 00:00:00 UTC.
    long utcSeconds() const;
    long unsignedUtcSeconds() const;

    // ---- text into a field
    /// As it stands: at most count bytes, up to the first NUL, and a terminator behind them.
    void rawTo(char* field, std::size_t count) const;
    /// Through Change_Utf8_Assic: at most limit bytes of UTF-8 are taken, and the whole result with its terminator is
    /// written, so a text of limit bytes or more puts its terminator at field[limit]. Null writes nothing.
    void utf8To(char* field, int limit) const;
    /// Through GetJsonString: at most size bytes, terminator included. What is no text empties the field.
    /// @return whether it is a text
    bool stringTo(char* field, int size) const;
    /// Bytes that the text takes with a terminator, at most limit (0 or more): a size for stringTo.
    int textSize(int limit) const;
    /// Through parseJsonNodeToStr: any value as text, at most size bytes, terminator included.
    void renderTo(char* field, int size) const;
    /// utf8To a buffer from new char[] of the text's length and a terminator. Null when that cannot be had.
    char* heapUtf8() const;
    /// stringTo a buffer from new char[] of the text's length and a terminator. Null when that cannot be had.
    char* heapString() const;

    // ---- text as such
    /// Scans the text (see Scan) into the words of a record; those that do not convert are left as they were.
    /// @return whether all converted
    template <class... Word>
    [[gnu::always_inline]] bool scan(NumberFormat<sizeof...(Word)> format, Signs signs, Word&... words) const {
        std::string storage;
        const std::size_t converted = ScanInto(place_.text(storage), format, signs, words...);
        if (trail_ != nullptr) reportScan(format.text(), converted, sizeof...(Word));
        return converted == sizeof...(Word);
    }
    /// The code of the first row with exactly this text, or otherwise.
    int firstExact(Keywords table, int otherwise) const;
    /// The same of the text up to its first NUL. What is no text matches no row.
    int firstExactUpToNul(Keywords table, int otherwise) const;
    /// The code of the first row with this text but for the case of ASCII letters, or otherwise.
    int firstIgnoringCase(Keywords table, int otherwise) const;
    /// The code of the last such row, or otherwise.
    int lastIgnoringCase(Keywords table, int otherwise) const;
    /// firstIgnoringCase of what stringTo gives in 64 bytes, so of the empty text for what is no text.
    int stringFirstIgnoringCase(Keywords table, int otherwise) const;
    /// The code of the first row whose text stands anywhere in this one, up to its first NUL, or otherwise.
    int firstContained(Keywords table, int otherwise) const;

    // ---- place in a table
    /// The index of the first text that is exactly this one, or otherwise.
    int firstExact(std::span<const std::string> texts, int otherwise) const;
    /// The index of the first number that equals asUInt, or otherwise.
    int firstEqual(std::span<const unsigned> numbers, int otherwise) const;

  private:
    template <const auto& List>
    friend class Members;

    /// Only for who is observed.
    class Report report() const;
    [[gnu::cold]] void reportScan(std::string_view format, std::size_t converted, std::size_t wanted) const;
    bool tested(std::string_view operation, bool passed) const {
        if (trail_ != nullptr) [[unlikely]]
            reportTest(operation, passed);
        return passed;
    }
    [[gnu::cold]] void reportTest(std::string_view operation, bool passed) const;
    template <class Number>
    Number reported(std::string_view operation, Number result, int added = 0) const {
        if (trail_ != nullptr) [[unlikely]]
            reportNumber(operation, result, added);
        return result;
    }
    template <class Number>
    [[gnu::cold]] void reportNumber(std::string_view operation, Number result, int added) const;
    int lookedUp(std::string_view operation, Keywords table, const Keyword* row, int otherwise,
                 bool isText = false) const;

    Place place_;
    [[no_unique_address]] TrailPointer trail_;  ///< null when nobody observes
};

/// The members of an object that a converter names up front in List, resolved at one go. Asking for a name that is not
/// on the list does not compile.
template <const auto& List>
class Members {
    static constexpr std::size_t kCount = List.names.size();

  public:
    struct Name {
        std::size_t index;
        template <std::size_t N>
        consteval Name(const char (&text)[N]) : index(List.indexOf(std::string_view(text))) {}
    };

    explicit Members(Node object) : trail_(object.trail_) { object.place_.members(List.index(), found_.data()); }

    Node operator[](Name name) const {
        return {found_[name.index], trail_ == nullptr ? nullptr : trail_->member(List.names[name.index])};
    }

  private:
    std::array<Place, kCount> found_;
    [[no_unique_address]] TrailPointer trail_;
};

}  // namespace jsonparser

#endif

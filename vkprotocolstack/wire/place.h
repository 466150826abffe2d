// A place in a message: what a node stands on. All reading of JSON is here.
#ifndef VKPROTOCOLSTACK_WIRE_PLACE_H
#define VKPROTOCOLSTACK_WIRE_PLACE_H

#include <json/value.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "vkprotocolstack/wire/names.h"
#include "vkprotocolstack/wire/resolve.h"
#include "vkprotocolstack/wire/text_tape.h"

namespace jsonparser {

#ifdef JSONPARSER_WITHOUT_OBSERVER
inline constexpr bool kWithObservers = false;  ///< for measuring what the tests for watched places cost
#else
inline constexpr bool kWithObservers = true;
#endif

/// The text and a terminator. Texts are short: this is faster than a call.
inline void CopyText(std::string_view text, char* field) {
    const char* const from = text.data();
    const std::size_t size = text.size();
    const auto ends = [=]<std::size_t Bytes>(std::array<char, Bytes> first) {
        std::array<char, Bytes> last;
        std::memcpy(first.data(), from, Bytes);
        std::memcpy(last.data(), from + size - Bytes, Bytes);
        std::memcpy(field, first.data(), Bytes);
        std::memcpy(field + size - Bytes, last.data(), Bytes);
    };
    if (size > 32) {
        std::memcpy(field, from, size);
    } else if (size >= 16) {
        ends(std::array<char, 16>());
    } else if (size >= 8) {
        ends(std::array<char, 8>());
    } else if (size >= 4) {
        ends(std::array<char, 4>());
    } else {
        for (std::size_t i = 0; i < size; ++i) field[i] = from[i];
    }
    field[size] = '\0';
}

/// The text before its first NUL. Texts are short: looking at all bytes at once is faster than a call.
inline std::string_view UpToNul(std::string_view text) {
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    const auto nuls = []<class Word>(const char* at, Word word) {
        constexpr Word kOnes = ~Word{0} / 0xFF;
        std::memcpy(&word, at, sizeof word);
        return (word - kOnes) & ~word & kOnes << 7;  // of the words that have no NUL: 0
    };
    if (text.size() >= 8 && text.size() <= 32) {
        constexpr std::uint64_t word = 0;
        std::uint64_t found = nuls(begin, word) | nuls(end - 8, word);
        if (text.size() > 16) found |= nuls(begin + 8, word) | nuls(end - 16, word);
        if (found == 0) return text;
    } else if (text.size() >= 4 && text.size() < 8) {
        if ((nuls(begin, std::uint32_t{}) | nuls(end - 4, std::uint32_t{})) == 0) return text;
    }
    return text.substr(0, text.find('\0'));
}

/// A value in jsoncpp's tree or on the tape of a message text, or no value at all. What is missing reads as null. So
/// does a watched place, but for its members and elements, which are watched places too.
class Place {
  public:
    /// What a place may remember of a value in a tree, so that jsoncpp is not asked again, by a call into another
    /// library: stored in the low bits of the value's address.
    enum Known : std::uint8_t {
        kNothing = 0,
        kInteger = 2,    ///< an intValue
        kCopying = 4,    ///< if it is a text or has texts in it, they are such ones:
        kCopiedText = 6  ///< one that converters may copy into fields up to its first NUL (see copied_text.h)
    };

    /// Missing, where it is written Place() or Place{}: else not set, so that arrays of places take no clearing.
    Place() = default;
    explicit Place(const Json::Value* value) : bits_(reinterpret_cast<std::uintptr_t>(value)) {}
    Place(const Json::Value& value, Known known) : bits_(reinterpret_cast<std::uintptr_t>(&value) | known) {}
    explicit Place(const TextEntry* entry) : bits_(Marked(entry)) {}

    bool isOnTape() const { return (bits_ & kOnTape) != 0; }
    bool isWatched() const { return kWithObservers && isOnTape() && entry().type == TextType::Watched; }
    const Trail& trail() const { return *entry().trail; }

    bool exists() const { return bits_ != 0; }
    /// Neither missing nor null.
    bool isPresent() const {
        if (isOnTape()) [[likely]]
            return entry().type > TextType::Watched;
        if (isTyped()) [[likely]]
            return true;
        return bits_ != 0 && address()->type() != Json::nullValue;
    }
    bool isArray() const { return isOf<Json::arrayValue>(TextType::Array, TextType::Array); }
    bool isString() const {
        return (!isOnTape() && isCopiedInTree()) || isOf<Json::stringValue>(TextType::Text, TextType::EscapedText);
    }
    bool isBool() const { return isOf<Json::booleanValue>(TextType::False, TextType::True); }
    Json::ValueType type() const {
        if (isOnTape()) return TypeOnTape(entry().type);
        return bits_ == 0 ? Json::nullValue : address()->type();
    }
    /// jsoncpp's tests: reals without a fraction count.
    bool isInt() const { return isInteger() ? integer() >= INT_MIN && integer() <= INT_MAX : otherIsInt(); }
    bool isUInt() const { return isInteger() ? integer() >= 0 && integer() <= UINT_MAX : otherIsUInt(); }

    /// An integer on the tape, which needs no conversion.
    bool isInteger() const {
        return __builtin_expect(isOnTape(), 1) && __builtin_expect(entry().type == TextType::Integer, 1);
    }
    std::int64_t integer() const { return entry().integer; }
    /// An integer in a tree that is known to be one.
    bool isKnownInteger() const { return known() == kInteger; }
    std::int64_t knownInteger() const { return address()->as<Json::LargestInt>(); }
    /// A real on the tape.
    bool isReal() const { return isOnTape() && entry().type == TextType::Real; }
    double real() const { return entry().real; }
    int asInt() const { return asNumber<int, &Place::ConvertedToInt>(); }
    unsigned asUInt() const { return asNumber<unsigned, &Place::ConvertedToUInt>(); }
    double asDouble() const { return isReal() ? real() : asNumber<double, &Place::ConvertedToDouble>(); }
    bool asBool() const;
    /// Whether an integer, bool or real fits the bits of a signed or an unsigned 32-bit number; reals always do.
    bool is32Bits() const;
    /// The text where it stands as it is; empty without a null pointer, and so is any other.
    std::string_view plainText() const {
        if (isOnTape()) return entry().isPlainText() ? plain() : std::string_view("");
        return bits_ == 0 ? std::string_view("") : TextOf(*address());
    }
    /// The text; one that does not stand as it is, is kept in storage. On the tape, one for which there is no memory is
    /// empty.
    std::string_view text(std::string& storage) const {
        if (isOnTape()) {
            if (entry().isPlainText()) return plain();
        } else if (isCopiedInTree() || type() == Json::stringValue) {
            return TextOf(*address());
        }
        return otherText(storage);
    }

    /// A text on the tape without escapes, and so without a NUL.
    bool isPlain() const { return isOnTape() && entry().isPlainText(); }
    /// A text that the text functions would copy up to its first NUL, byte for byte. In a tree, one that is known to be
    /// such a one.
    bool isCopiedOnTape() const { return isOnTape() && entry().type == TextType::CopiedText; }
    bool isCopiedInTree() const { return known() == kCopiedText; }
    /// The same place, known to be such a text if it is one.
    Place typed() const {
        return known() == kCopying && type() == Json::stringValue ? Place(*address(), kCopiedText) : *this;
    }
    /// The characters of a text on the tape without escapes.
    std::string_view plain() const { return {entry().text, entry().size}; }
    /// Those of a text in a tree.
    std::string_view inTree() const { return TextOf(*address()); }
    /// Copies them up to the first NUL, at most limit bytes, and a terminator.
    void copyInTree(char* field, std::size_t limit) const { CopyTextOf(*address(), field, limit); }

    /// GetJsonString and parseJsonNodeToStr of the value. On the tape they are given a value of the same type; the
    /// first of them, in place of an array or an object, null, which is no text either.
    bool stringTo(char* field, int size) const { return copiesTo(field, size) || convertedStringTo(field, size); }
    void renderTo(char* field, int size) const {
        if (isCopiedInTree()) return renderTextTo(field, size);
        if (!copiesTo(field, size)) convertedRenderTo(field, size);
    }

    /// Elements of an array, 0 for anything else.
    std::size_t size() const {
        if (isOnTape()) return entry().type == TextType::Array ? entry().size : 0;
        return type() == Json::arrayValue ? address()->size() : 0;
    }
    Place element(std::size_t index) const {
        if (isOnTape()) {
            if (entry().type == TextType::Array) return index < entry().size ? Place(entry().element(index)) : Place();
            return isWatched() ? WatchedElement(*this, index) : Place();
        }
        return type() == Json::arrayValue ? under(FindElement(*address(), index)) : Place();
    }
    /// The first N elements, each as an Element made of its place. Faster than one by one.
    template <std::size_t N, class Element = Place>
    [[gnu::always_inline]] std::array<Element, N> first() const {
        constexpr std::make_index_sequence<N> kIndexes;
        if (isOnTape() && entry().type == TextType::Array && entry().size >= N && entry().isFlat()) [[likely]]
            return [first = entry().first()]<std::size_t... I>(std::index_sequence<I...>) {
                return std::array{Element(Place(first + I))...};
            }
        (kIndexes);
        const std::array<Place, N> found = otherFirst<N>();
        return [&found]<std::size_t... I>(std::index_sequence<I...>) { return std::array{Element(found[I])...}; }
        (kIndexes);
    }
    /// Calls visit with the first elements of an array, at most so many, and their indexes, until it returns false.
    /// @return whether it never did
    template <class Visit>
    bool allElements(std::size_t most, Visit visit) const {
        if (isOnTape()) return AllElementsOnTape(*this, most, visit);
        std::size_t index = 0;
        return type() != Json::arrayValue ||
               AllElements(*address(), most, [&visit, &index, known = knownBelow()](const Json::Value& element) {
                   return visit(Place(element, known), index++);
               });
    }
    Place member(std::string_view name) const;
    /// Looks up the names at one go; found gets a missing place for what is not there. What is false or true may be a
    /// place on a tape also where this is one in a tree.
    void members(const NameIndex& names, Place* found) const;
    /// The same places, where the pass over the text has put them beside the object; else null.
    const Place* matched(const NameIndex& names) const {
        static_assert(sizeof(Place) == sizeof(MarkedEntry) && std::is_trivial_v<Place>);
        if (!isOnTape() || entry().type != TextType::Object || entry().matched != names.names) return nullptr;
        return reinterpret_cast<const Place*>(SlotsOf(&entry(), names.count));
    }

    /// The value in jsoncpp's tree, or null when missing. Not for places on a tape.
    const Json::Value* address() const { return reinterpret_cast<const Json::Value*>(bits_ & ~kKnown); }

  private:
    static constexpr std::uintptr_t kKnown = 6;
    static_assert(alignof(Json::Value) > (kKnown | kOnTape), "the low bits of an address are free");

    /// Of the type in a tree, or from one type on a tape to another.
    template <Json::ValueType Type>
    bool isOf(TextType first, TextType last) const {
        if (isOnTape()) return entry().type >= first && entry().type <= last;
        return bits_ != 0 && address()->type() == Type;
    }
    /// None of these for a place on a tape.
    Known known() const { return static_cast<Known>(bits_ & (kKnown | kOnTape)); }
    /// An integer or a text in a tree that is known to be one. Not for places on a tape.
    bool isTyped() const { return (bits_ & kInteger) != 0; }
    /// Of all that stands in this value in a tree.
    Known knownBelow() const { return static_cast<Known>(bits_ & kCopying); }
    /// The place of what stands there; null is missing.
    Place under(const Json::Value* value) const { return value == nullptr ? Place() : Place(*value, knownBelow()); }
    /// Of what is not a flat array on the tape.
    template <std::size_t N>
    std::array<Place, N> otherFirst() const {
        std::array<Place, N> found{};
        if (isWatched()) [[unlikely]] {
            for (std::size_t i = 0; i < N; ++i) found[i] = WatchedElement(*this, i);
        } else if (const std::size_t count = std::min(size(), N); count != 0 && isOnTape()) {
            const TextEntry* element = entry().first();
            for (std::size_t i = 0; i < count; ++i, element = element->next()) found[i] = Place(element);
        } else if (count != 0) {
            std::array<const Json::Value*, N> elements;
            FindFirst(*address(), N, elements.data());
            std::transform(elements.begin(), elements.begin() + count, found.begin(),
                           [known = knownBelow()](const Json::Value* element) { return Place(*element, known); });
        }
        return found;
    }
    /// Apart, and with visit expanded, which stands in too many walks for the compiler to do so by itself.
    template <class Visit>
    [[gnu::noinline, gnu::flatten]] static bool AllElementsOnTape(Place array, std::size_t most, Visit& visit) {
        const std::size_t count = std::min(array.size(), most);
        if (count == 0) return true;
        const TextEntry* element = array.entry().first();
        for (std::size_t i = 0; visit(Place(element), i); element = element->next()) {
            if (++i == count) return true;
        }
        return false;
    }
    /// An integer, wherever it is, or what convert makes of any other value.
    template <class Number, auto convert>
    Number asNumber() const {
        if (isInteger()) return static_cast<Number>(integer());
        if (isKnownInteger()) [[likely]]
            return static_cast<Number>(knownInteger());
        return convert(*this);
    }
    /// Empty for what is no text. Not of this place: its address would keep it out of a register.
    static std::string_view TextOf(const Json::Value& value);
    static void CopyTextOf(const Json::Value& value, char* field, std::size_t limit);
    /// A text that is only copied, and needs no cut.
    bool copiesTo(char* field, int size) const {
        if (!isCopiedOnTape()) return isCopiedInTree() && CopiesTextOf(*address(), field, size);
        if (std::int64_t{entry().size} >= size) return false;
        CopyText(plain(), field);
        return true;
    }
    static bool CopiesTextOf(const Json::Value& value, char* field, int size);
    bool convertedStringTo(char* field, int size) const;
    void renderTextTo(char* field, int size) const;
    void convertedRenderTo(char* field, int size) const;
    /// Of what is no integer on the tape.
    bool otherIsInt() const;
    bool otherIsUInt() const;
    [[gnu::cold]] static Place WatchedElement(Place watched, std::size_t index);
    [[gnu::cold]] void watchedMembers(const NameIndex& names, Place* found) const;
    /// Of what is no integer; to a double, no real on the tape either. Not of this place, as above.
    static int ConvertedToInt(Place place);
    static unsigned ConvertedToUInt(Place place);
    static double ConvertedToDouble(Place place);
    std::string_view otherText(std::string& storage) const;
    const TextEntry& entry() const { return *reinterpret_cast<const TextEntry*>(bits_ - kOnTape); }
    static Json::ValueType TypeOnTape(TextType type) {
        static constexpr Json::ValueType kTypes[] = {Json::nullValue,    Json::nullValue,   Json::booleanValue,
                                                     Json::booleanValue, Json::intValue,    Json::uintValue,
                                                     Json::realValue,    Json::stringValue, Json::stringValue,
                                                     Json::stringValue,  Json::arrayValue,  Json::objectValue};
        return kTypes[static_cast<std::size_t>(type)];
    }

    std::uintptr_t bits_;
};

}  // namespace jsonparser

#endif

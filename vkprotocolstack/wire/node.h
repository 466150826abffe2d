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
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "vkprotocolstack/wire/keywords.h"
#include "vkprotocolstack/wire/names.h"
#include "vkprotocolstack/wire/observer.h"
#include "vkprotocolstack/wire/place.h"
#include "vkprotocolstack/wire/scan.h"

namespace jsonparser {

class Node {
    // Operations, as an observer is told of them: no arguments, so that they take little room where they stand.
    static constexpr char kPresent[] = "present";
    static constexpr char kIsMember[] = "isMember";
    static constexpr char kIsArray[] = "isArray";
    static constexpr char kIsString[] = "isString";
    static constexpr char kIsBool[] = "isBool";
    static constexpr char kIsInt[] = "isInt";
    static constexpr char kIsUInt[] = "isUInt";
    static constexpr char kInt[] = "int";
    static constexpr char kUnsigned[] = "unsigned";
    static constexpr char kDouble[] = "double";
    static constexpr char kFloat[] = "float";
    static constexpr char kBool[] = "bool";
    static constexpr char kIntLow8[] = "int, low 8 bits";
    static constexpr char kUnsignedLow8[] = "unsigned, low 8 bits";
    static constexpr char kIntLow16[] = "int, low 16 bits";
    static constexpr char kUnsignedLow16[] = "unsigned, low 16 bits";
    static constexpr char kUtcSeconds[] = "int, UTC seconds";
    static constexpr char kUnsignedUtcSeconds[] = "unsigned, UTC seconds";

  public:
    /// The node that a converter was called with.
    explicit Node(const Json::Value& root) : Node(Root(Place(&root))) {}
    explicit Node(Place place) : place_(place) {}
    /// The same at a place.
    static Node Root(Place place) {
        Observer* const observer = ObserverScope::Current();
        return Node(observer == nullptr ? place : observer->watch(place));
    }

    // ---- tests
    /// Present: neither missing nor null.
    explicit operator bool() const { return passes<&Place::isPresent, kPresent>(); }
    /// Part of its object, as null too.
    bool isMember() const {
        return place_.exists() && (!place_.isWatched() || reportedTest<&Place::exists, kIsMember>(place_));
    }
    bool isArray() const { return passes<&Place::isArray, kIsArray>(); }
    bool isString() const { return passes<&Place::isString, kIsString>(); }
    bool isBool() const { return passes<&Place::isBool, kIsBool>(); }
    bool isInt() const { return passes<&Place::isInt, kIsInt>(); }
    bool isUInt() const { return passes<&Place::isUInt, kIsUInt>(); }
    /// Elements of an array, 0 for anything else.
    std::size_t size() const {
        if (place_.isOnTape() && !place_.isArray()) return place_.isWatched() ? reportedSize(place_) : 0;
        return place_.size();
    }

    // ---- way down
    Node at(std::size_t index) const { return Node(place_.element(index)); }
    /// at of the first N indexes, faster than one by one.
    template <std::size_t N>
    [[gnu::always_inline]] std::array<Node, N> first() const {
        return place_.first<N, Node>();
    }
    /// Calls visit with the first elements, at most so many, and their indexes. Faster than at for each. Reports size
    /// once, and of the elements what visit does with them.
    /// @return how many these are
    template <class Visit>
    std::size_t forElements(std::size_t most, Visit visit) const {
        static_assert(std::is_void_v<std::invoke_result_t<Visit&, Node, std::size_t>>, "allElements stops early");
        std::size_t count = 0;
        allElements(most, [&](Node element, std::size_t i) {
            visit(element, i);
            count = i + 1;
            return true;
        });
        return count;
    }
    /// The same until visit returns false.
    /// @return whether it never did
    template <class Visit>
    bool allElements(std::size_t most, Visit visit) const {
        if (place_.isWatched()) [[unlikely]]
            return eachElement(place_, most, visit);
        return place_.allElements(most, [&visit](Place element, std::size_t i) { return visit(Node(element), i); });
    }
    Node operator[](std::string_view name) const { return Node(place_.member(name)); }

    // ---- numbers
    int asInt() const { return number<int, &Place::asInt, kInt>(); }
    unsigned asUInt() const { return number<unsigned, &Place::asUInt, kUnsigned>(); }
    double asDouble() const { return number<double, &Place::asDouble, kDouble>(); }
    float asFloat() const { return number<float, &Place::asDouble, kFloat>(); }
    bool asBool() const {
        return place_.asBool() || (place_.isWatched() && reportedNumber<bool, &Place::asBool, kBool>(place_));
    }
    /// The low bits of asInt or of asUInt: they differ on reals outside the type's range.
    unsigned char intLow8() const { return number<unsigned char, &Place::asInt, kIntLow8>(); }
    unsigned char uintLow8() const { return number<unsigned char, &Place::asUInt, kUnsignedLow8>(); }
    unsigned short intLow16() const { return number<unsigned short, &Place::asInt, kIntLow16>(); }
    unsigned short uintLow16() const { return number<unsigned short, &Place::asUInt, kUnsignedLow16>(); }
    /// asInt plus one; wraps at the limit.
    int intPlusOne() const;
    /// asDouble cut toward zero.
    long long realToInt64() const;
    /// asInt and asUInt of seconds since 1970-01-01 00:00:00 UTC.
    long utcSeconds() const { return number<int, &Place::asInt, kUtcSeconds>(); }
    long unsignedUtcSeconds() const { return number<unsigned, &Place::asUInt, kUnsignedUtcSeconds>(); }

    // ---- text into a field
    /// As it stands: at most count bytes, up to the first NUL, and a terminator behind them.
    void rawTo(char* field, std::size_t count) const { RawTo(place_, field, count); }
    /// Through Change_Utf8_Assic: at most limit bytes of UTF-8 are taken, and the whole result with its terminator is
    /// written, so a text of limit bytes or more puts its terminator at field[limit]. Null writes nothing.
    void utf8To(char* field, int limit) const { Utf8To(place_, field, limit); }
    /// Through GetJsonString: at most size bytes, terminator included. What is no text empties the field.
    /// @return whether it is a text
    bool stringTo(char* field, int size) const {
        return place_.stringTo(field, size) || (place_.isWatched() && WatchedStringTo(place_, field, size));
    }
    /// Bytes that the text takes with a terminator, at most limit (0 or more): a size for stringTo.
    int textSize(int limit) const;
    /// Through parseJsonNodeToStr: any value as text, at most size bytes, terminator included.
    void renderTo(char* field, int size) const { RenderTo(place_, field, size); }
    /// utf8To a buffer from new char[] of the text's length and a terminator. Null when that cannot be had.
    char* heapUtf8() const { return HeapUtf8(place_); }
    /// stringTo a buffer from new char[] of the text's length and a terminator. Null when that cannot be had.
    char* heapString() const { return HeapString(place_); }

    // ---- text as such
    /// Scans the text (see Scan) into the words of a record; those that do not convert are left as they were.
    /// @return whether all converted
    template <class... Word>
    bool scan(const NumberFormat<sizeof...(Word)>& format, Signs signs, Word&... words) const {
        std::string storage;
        if (ScanInto(place_.text(storage), format, signs, words...) == sizeof...(Word)) return true;
        return place_.isWatched() && reportedScan(place_, format, signs, words...);
    }
    /// Scans a text that looks as most do; of any other it does nothing, and reports nothing.
    template <class... Word>
    [[gnu::always_inline]] bool scanPlain(const NumberFormat<sizeof...(Word)>& format, Word&... words) const {
        return ScanPlainInto(place_.plainText(), format, words...);
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
    /// What translate makes of the 32-bit pattern of asInt. Otherwise when translate gives false, which leaves its
    /// output alone, and for null, a text, an array, an object, or an integer that is neither a signed nor an unsigned
    /// 32-bit number: translate is not asked for these.
    unsigned errorCode(bool (*translate)(unsigned device, unsigned& library), unsigned otherwise) const;

  private:
    template <const auto& List, class File>
    friend class Members;
    template <const auto& List, class File>
    friend class MembersAt;

    template <auto Test, const char* Name>
    bool passes() const {
        if ((place_.*Test)()) [[likely]]
            return true;
        return place_.isWatched() && reportedTest<Test, Name>(place_);
    }
    template <class Number, auto Read, const char* Name>
    Number number() const {
        using Wide = decltype((place_.*Read)());
        if (!place_.isInteger()) [[unlikely]] {
            if constexpr (std::is_same_v<Wide, double>) {
                if (place_.isReal()) return static_cast<Number>(place_.real());
            }
            if (place_.isKnownInteger()) return static_cast<Number>(static_cast<Wide>(place_.knownInteger()));
            return otherNumber<Number, Read, Name>(place_);
        }
        return static_cast<Number>(static_cast<Wide>(place_.integer()));
    }
    template <class Number, auto Read, const char* Name>
    [[gnu::noinline]] static Number otherNumber(Place place) {
        if (!place.exists()) return 0;
        if (place.isWatched()) [[unlikely]]
            return reportedNumber<Number, Read, Name>(place);
        return static_cast<Number>((place.*Read)());
    }

    // ---- texts. Places are handed over by value: an address of one would keep it out of a register.
    static void RawTo(Place place, char* field, std::size_t count);
    static void Utf8To(Place place, char* field, int limit);
    static void RenderTo(Place place, char* field, int size);
    static char* HeapUtf8(Place place);
    static char* HeapString(Place place);
    // What is not only copied: apart, since it needs a frame of its own.
    [[gnu::noinline]] static void OtherRawTo(Place place, char* field, std::size_t count);
    [[gnu::noinline]] static void OtherUtf8To(Place place, char* field, int limit);
    [[gnu::noinline]] static char* CopiedHeap(Place place);
    [[gnu::noinline]] static char* OtherHeapUtf8(Place place);
    [[gnu::noinline]] static char* OtherHeapString(Place place);

    // ---- for an observer. A watched place reads as null: whoever finds something need not ask whether it is one.
    /// The node of a watched value; of others, this.
    Node plain() const { return place_.isWatched() ? Node(valueOf(place_)) : *this; }
    [[gnu::cold]] static Place valueOf(Place watched);
    [[gnu::cold]] static class Report report(Place watched);
    template <auto Test, const char* Name>
    [[gnu::cold, gnu::noinline]] static bool reportedTest(Place watched) {
        const bool passed = (valueOf(watched).*Test)();
        reportTest(watched, Name, passed);
        return passed;
    }
    template <class Number, auto Read, const char* Name>
    [[gnu::cold, gnu::noinline]] static Number reportedNumber(Place watched) {
        const auto number = static_cast<Number>((valueOf(watched).*Read)());
        reportNumber(watched, Name, number);
        return number;
    }
    template <class... Word>
    [[gnu::cold, gnu::noinline]] static bool reportedScan(Place watched, const NumberFormat<sizeof...(Word)>& format,
                                                          Signs signs, Word&... words) {
        std::string storage;
        const std::size_t converted = ScanInto(valueOf(watched).text(storage), format, signs, words...);
        reportScan(watched, format.text(), converted, sizeof...(Word));
        return converted == sizeof...(Word);
    }
    template <class Visit>
    [[gnu::cold, gnu::noinline]] static bool eachElement(Place watched, std::size_t most, Visit& visit) {
        const std::size_t size = std::min(reportedSize(watched), most);
        std::size_t index = 0;
        while (index < size && visit(Node(watched.element(index)), index)) ++index;
        return index == size;
    }
    [[gnu::cold]] static std::size_t reportedSize(Place watched);
    [[gnu::cold]] static void reportTest(Place watched, std::string_view test, bool passed);
    [[gnu::cold]] static void reportScan(Place watched, std::string_view format, std::size_t converted,
                                         std::size_t wanted);
    template <class Number>
    [[gnu::cold]] static void reportNumber(Place watched, std::string_view operation, Number number, int added = 0);
    [[gnu::cold]] static void WatchedUtf8To(Place watched, char* field, int limit);
    [[gnu::cold]] static bool WatchedStringTo(Place watched, char* field, int size);
    [[gnu::cold]] static void WatchedRenderTo(Place watched, char* field, int size);
    [[gnu::cold]] int watchedIntPlusOne() const;
    [[gnu::cold]] long long watchedRealToInt64() const;
    /// Looks the text up by find, which gives a row of the table or null.
    template <class Find>
    int lookedUp(const char* operation, Keywords table, int otherwise, Find find, bool isText = false) const;

    Place place_;
};

namespace {
struct ThisFile;  ///< another type in every file: GCC 14 takes files' own lists for one where they are called the same
}

/// The members of an object that a converter names up front in List, resolved at one go. Asking for a name that is not
/// on the list does not compile.
template <const auto& List, class File = ThisFile>
class Members {
  public:
    static constexpr NameIndex kIndex = List.index();

    struct Name {
        std::size_t index;
        template <std::size_t N>
        consteval Name(const char (&text)[N]) : index(List.indexOf(std::string_view(text))) {}
    };

    explicit Members(Node object) { object.place_.members(kIndex, found_.data()); }

    /// Whether the object has the name at this index of List.
    bool found(std::size_t index) const { return at(index).plain().place_.exists(); }
    /// The member whose name is at this index of List.
    Node at(std::size_t index) const { return Node(found_[index]); }

    Node operator[](Name name) const { return at(name.index); }

  private:
    std::array<Place, List.names.size()> found_;
};

}  // namespace jsonparser

#endif

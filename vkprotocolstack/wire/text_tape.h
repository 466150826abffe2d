// What the pass over a message text leaves behind: the values of the part that a reader was called for.
#ifndef VKPROTOCOLSTACK_WIRE_TEXT_TAPE_H
#define VKPROTOCOLSTACK_WIRE_TEXT_TAPE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace jsonparser {

enum class TextType : std::uint8_t {
    Null,
    Watched,  ///< no value of a message, but the end of a trail (see observer.h)
    False,
    True,
    Integer,
    Unsigned,
    Real,
    Text,
    CopiedText,  ///< one that converters may copy into fields as it stands (see copied_text.h)
    EscapedText,
    Array,  ///< this and what follows are containers
    Object
};

class Trail;

/// A value in a message text, and its name where it is a member. What stands in an array or an object follows it, in
/// the message's order.
struct TextEntry {
    union {
        std::int64_t integer;           ///< Integer
        std::uint64_t unsignedInteger;  ///< Unsigned: above the range of Integer
        double real;                    ///< Real
        const char* text;               ///< texts: what is between the quotes
        std::size_t span;               ///< Array, Object: bytes of the entries that it takes, this one included
        std::size_t parent;             ///< a container that is still open: bytes back to the one around it
        const Trail* trail;             ///< Watched
    };
    union {
        const char* name;
        const std::string_view* matched;  ///< the part itself: the list of names that its slots are of, or null
    };
    std::uint32_t size;  ///< bytes of text, or elements or members
    std::uint16_t nameSize;
    TextType type;

    bool isContainer() const { return type >= TextType::Array; }
    /// A text without escapes: it has no NUL.
    bool isPlainText() const { return type == TextType::Text || type == TextType::CopiedText; }
    /// Of an array or an object that is not empty.
    const TextEntry* first() const { return this + 1; }
    /// The element or member behind this one, where there is one more.
    const TextEntry* next() const {
        if (!isContainer()) [[likely]]
            return this + 1;
        return behind();
    }
    /// Of an array or an object: behind all that is in it.
    const TextEntry* behind() const {
        return reinterpret_cast<const TextEntry*>(reinterpret_cast<const char*>(this) + span);
    }
    /// Of an array: nothing in it has anything in it, so the next element is the next entry.
    bool isFlat() const { return span == (std::size_t{size} + 1) * sizeof(TextEntry); }
    /// The element at an index below size of an array.
    const TextEntry* element(std::size_t index) const {
        if (isFlat()) return this + 1 + index;
        const TextEntry* element = first();
        for (; index > 0; --index) element = element->next();
        return element;
    }
};

// What the forms of the pass call is always expanded (see text_pass_forms.h).

/// Between two entries of a tape, the first one before the second.
[[gnu::always_inline]] inline std::size_t BytesBetween(const TextEntry* first, const TextEntry* second) {
    return static_cast<std::size_t>(reinterpret_cast<const char*>(second) - reinterpret_cast<const char*>(first));
}
[[gnu::always_inline]] inline TextEntry* EntryBefore(TextEntry* entry, std::size_t bytes) {
    return reinterpret_cast<TextEntry*>(reinterpret_cast<char*>(entry) - bytes);
}

/// The address of an entry as a place has it: marked, so that it is told from one in a tree.
using MarkedEntry = std::uintptr_t;
inline constexpr MarkedEntry kOnTape = 1;
[[gnu::always_inline]] inline MarkedEntry Marked(const TextEntry* entry) {
    return reinterpret_cast<MarkedEntry>(std::assume_aligned<alignof(TextEntry)>(entry)) + kOnTape;
}

/// Before a part that was matched against a list of names stand the slots of these: the member of each name, the last
/// one of several, as a place has it, or 0, which is a missing one. They take so many entries.
[[gnu::always_inline]] constexpr std::size_t SlotEntries(std::size_t names) {
    constexpr std::size_t kSlots = sizeof(TextEntry) / sizeof(MarkedEntry);
    return (names + kSlots - 1) / kSlots;
}
inline const MarkedEntry* SlotsOf(const TextEntry* part, std::size_t names) {
    return reinterpret_cast<const MarkedEntry*>(part - SlotEntries(names));
}

/// The order in which messages had the members of a list of names, where it was not the list's.
struct MemberOrder {
    static constexpr std::size_t kMost = 63;  ///< names of a list that has one

    const std::string_view* names;  ///< the list's
    /// By the number of a name, the number of the one that followed it last; 0 is none. Names are counted from 1, and 0
    /// is what the object begins with.
    std::uint8_t next[kMost + 1];
};

/// Memory for entries. A tape takes the thread's last block and leaves it its own. A block knows the orders of members
/// that messages lately had: those of the same device have the same.
class TextTape {
  public:
    TextTape(TextEntry* memory, std::size_t size) : entries(memory), capacity(size) {}
    ~TextTape() { Release(entries, capacity); }
    TextTape(const TextTape&) = delete;
    TextTape& operator=(const TextTape&) = delete;

    /// Gives back the memory of a tape, which may be none.
    static void Release(TextEntry* memory, std::size_t size) {
        if (memory != nullptr) GiveBack(memory - kOrderEntries, size);
    }

    /// Makes room for more than the first used entries, which it keeps; they may move. False when there is no memory.
    bool grow(std::size_t used);

    /// What follows the names of a list, by their numbers, until the tape grows. Not for a tape that has no memory.
    [[gnu::always_inline]] std::uint8_t* nextOf(const std::string_view* names) const {
        const std::uint64_t address = reinterpret_cast<std::uintptr_t>(names);  // whose low bits most lists share
        MemberOrder& order = orders()[address * 0x9E3779B97F4A7C15U >> 62];
        if (order.names != names) [[unlikely]]
            forget(order, names);
        return order.next;
    }

    TextEntry* entries;
    std::size_t capacity;

  private:
    static constexpr std::size_t kOrders = 4;  ///< as many as two bits tell apart
    static constexpr std::size_t kOrderEntries = kOrders * sizeof(MemberOrder) / sizeof(TextEntry);
    static_assert(kOrderEntries * sizeof(TextEntry) == kOrders * sizeof(MemberOrder));

    static void GiveBack(TextEntry* block, std::size_t capacity);
    static void forget(MemberOrder& order, const std::string_view* names);
    static bool leaveAsSpare(TextEntry* block, std::size_t capacity);
    static TextEntry* takeSpare();
    [[gnu::always_inline]] TextEntry* block() const { return entries - kOrderEntries; }
    [[gnu::always_inline]] MemberOrder* orders() const { return reinterpret_cast<MemberOrder*>(block()); }
};

}  // namespace jsonparser

#endif

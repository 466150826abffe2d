// What the pass over a message text leaves behind: the values of the part that a reader was called for.
#ifndef VKPROTOCOLSTACK_WIRE_TEXT_TAPE_H
#define VKPROTOCOLSTACK_WIRE_TEXT_TAPE_H

#include <cstddef>
#include <cstdint>
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
    EscapedText,
    Array,
    Object
};

class Trail;

/// A value in a message text, and its name where it is a member.
struct TextEntry {
    union {
        std::int64_t integer;           ///< Integer
        std::uint64_t unsignedInteger;  ///< Unsigned: above the range of Integer
        const char* text;               ///< Real: the number; Text, EscapedText: what is between the quotes
        const TextEntry* children;      ///< Array, Object: its size entries, in the message's order
        std::size_t parent;             ///< a container that is still open: the index of the one around it
        const Trail* trail;             ///< Watched
    };
    union {
        const char* name;
        const std::string_view* matched;  ///< the part itself: the list of names whose slots its members have, or null
    };
    std::uint32_t size;  ///< bytes of text, or children; kStillOpen while they are not known
    std::uint16_t nameSize;
    std::uint8_t slot;  ///< the name's index plus one in the list that the object was matched against, or 0
    TextType type;

    static constexpr std::uint32_t kStillOpen = 0xFFFFFFFF;
};

/// Memory for entries, filled from both ends: at the front those whose container is still open, at the back those of
/// closed ones, each container's side by side. A tape takes the thread's last block and leaves it its own.
class TextTape {
  public:
    TextTape(TextEntry* memory, std::size_t size) : entries(memory), capacity(size), closed(size) {}
    ~TextTape();
    TextTape(const TextTape&) = delete;
    TextTape& operator=(const TextTape&) = delete;

    /// Forgets all entries.
    void clear() {
        open = 0;
        closed = capacity;
    }

    /// Makes room for one entry at least; children stay children, but entries move. False when there is no memory.
    bool grow();

    /// Moves the entries behind that of the open container to the back, as its children.
    void close(std::size_t container);

    TextEntry* entries;
    std::size_t capacity;
    std::size_t open = 0;  ///< entries at the front
    std::size_t closed;    ///< index of the first at the back
};

}  // namespace jsonparser

#endif

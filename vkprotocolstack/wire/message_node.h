// From a place in a message text to the node that converters read.
#ifndef VKPROTOCOLSTACK_WIRE_MESSAGE_NODE_H
#define VKPROTOCOLSTACK_WIRE_MESSAGE_NODE_H

#include <optional>

#include "vkprotocolstack/message_text.h"
#include "vkprotocolstack/wire/node.h"

namespace jsonparser {

class MessageReading {
  public:
    /// The place in the message; nothing when the message is not accepted. expected, which may be null, are the names
    /// that the place's object is likely to be asked for: they make the pass over it faster.
    static std::optional<Place> PlaceAt(const MessagePlace& place, const NameIndex* expected);

  private:
    static void Read(MessageText& text, std::string_view pointer, const NameIndex* expected);
    static void ReadTree(MessageText& text);
    static void Refuse(MessageText& text, std::size_t position, std::string_view what);
    static void RefuseAt(MessageText& text, std::size_t line, std::size_t column, std::string_view what);
};

/// The node at a place; nothing when the message is not accepted.
inline std::optional<Node> NodeAt(const MessagePlace& place) {
    const std::optional<Place> found = MessageReading::PlaceAt(place, nullptr);
    if (!found) return std::nullopt;
    return Node::Root(*found);
}

/// The same, for a converter that asks for these names first.
template <std::size_t N>
std::optional<Node> NodeAt(const MessagePlace& place, const NameList<N>& expected) {
    const NameIndex index = expected.index();
    const std::optional<Place> found = MessageReading::PlaceAt(place, &index);
    if (!found) return std::nullopt;
    return Node::Root(*found);
}

}  // namespace jsonparser

#endif

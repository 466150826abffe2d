// From a place in a message text to the node that converters read.
#ifndef VKPROTOCOLSTACK_WIRE_MESSAGE_NODE_H
#define VKPROTOCOLSTACK_WIRE_MESSAGE_NODE_H

#include <new>

#include "vkprotocolstack/message_text.h"
#include "vkprotocolstack/wire/node.h"

namespace jsonparser {

/// What reading a place gives: nothing when the message is not accepted. Not std::optional, which went to memory in two
/// parts and came back in one: that is a wait of more than 10 ns for each reader.
template <class T>
struct OfAccepted {
    T value{};
    bool isAccepted = false;

    explicit operator bool() const { return isAccepted; }
    const T& operator*() const { return value; }
    const T* operator->() const { return &value; }
};

class MessageReading {
  public:
    /// The place in the message. expected, which may be null, are the names that the place's object is likely to be
    /// asked for: they make the pass over it faster.
    static OfAccepted<Place> PlaceAt(const MessagePlace& place, const NameIndex* expected);

  private:
    static void Read(MessageText& text, std::string_view pointer, const NameIndex* expected);
    static void ReadTree(MessageText& text);
    static void Refuse(MessageText& text, std::size_t position, std::string_view what);
    static void RefuseAt(MessageText& text, std::size_t line, std::size_t column, std::string_view what);
};

/// The node at a place, for a converter that asks for the expected names first, where it has such.
inline OfAccepted<Node> NodeAt(const MessagePlace& place, const NameIndex* expected = nullptr) {
    const OfAccepted<Place> found = MessageReading::PlaceAt(place, expected);
    return {found ? Node::Root(*found) : Node(Place()), found.isAccepted};
}
template <std::size_t N>
OfAccepted<Node> NodeAt(const MessagePlace& place, const NameList<N>& expected) {
    const NameIndex index = expected.index();
    return NodeAt(place, &index);
}

/// The members of the object at a place, read where the pass over the text has put them, if it has: good while this and
/// the text are, and no other reader is called for the text.
template <const auto& List, class File = ThisFile>
class MembersAt {
  public:
    explicit MembersAt(const MessagePlace& place) {
        const OfAccepted<Node> object = NodeAt(place, &Members<List>::kIndex);
        if (!object) return;
        static_assert(sizeof *members_ == List.names.size() * sizeof(Place));
        const Place* const matched = object->place_.matched(Members<List>::kIndex);
        members_ =
            matched != nullptr ? reinterpret_cast<const Members<List>*>(matched) : new (&own_) Members<List>(*object);
    }
    MembersAt(const MembersAt&) = delete;
    MembersAt& operator=(const MembersAt&) = delete;

    /// Whether the message is accepted.
    explicit operator bool() const { return members_ != nullptr; }
    const Members<List>& operator*() const { return *members_; }

  private:
    const Members<List>* members_ = nullptr;
    union {
        Members<List> own_;  ///< of what is no object of a text, or was matched against other names
    };
};

}  // namespace jsonparser

#endif

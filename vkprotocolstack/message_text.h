// The text of a message, as a source that every reader takes in place of a Json::Value.
#ifndef VKPROTOCOLSTACK_MESSAGE_TEXT_H
#define VKPROTOCOLSTACK_MESSAGE_TEXT_H

#include <json/forwards.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "vkprotocolstack/support/export.h"

namespace jsonparser {

class MessageText;
class MessageReading;
struct TextEntry;

/// A place in a message text: what a reader is given. Good while the text, its MessageText and the pointer it was made
/// from are.
class VK_API MessagePlace {
  public:
    /// Whether the message is accepted and has this place.
    bool exists() const;

    /// Elements of an array; 0 for anything else, and when the message is not accepted.
    std::size_t size() const;

  private:
    friend class MessageText;
    friend class MessageReading;
    MessagePlace(MessageText& text, std::string_view pointer) : text_(&text), pointer_(pointer) {}

    MessageText* text_;
    std::string_view pointer_;
};

/// What is accepted as a message.
struct MessageTextOptions {
    /// Follow only quotes and brackets of what lies outside the place that the first reader is called for, and of what
    /// stands beside the way to it. Errors there may go unnoticed.
    bool skipOthers = false;

    /// Accept only what is strictly valid: RFC 8259, all texts and names in UTF-8, nothing behind the value. A few
    /// texts that are so are not accepted either: those with a number of more than 100 bytes or three digits of an
    /// exponent, with an escape in the name of a member that is looked at, and, where the program's C++ locale is not
    /// the classic one, with a real. They are for a slower reader of the caller's.
    bool strictOnly = false;

    /// How many levels of values a message may have; 1 allows no array or object but an empty one. At most 1000. A
    /// message that needs jsoncpp's reader takes some 550 bytes of stack a level: 128 levels are for threads with 128
    /// KiB, on one with 64 KiB set 64.
    int maxDepth = 128;
};

/// What is accepted unless it is said otherwise.
inline constexpr MessageTextOptions kDefaultMessageTextOptions;

/// Why a message is not accepted.
struct MessageTextError {
    std::size_t position;  ///< bytes before the place
    std::size_t line;      ///< from 1; ends at a line feed, a carriage return, or both
    std::size_t column;    ///< in bytes, from 1
    std::string what;      ///< what was found there, or expected
};

/// A message text: one value as JSON, as devices send it. The text needs no terminator and no padding.
///
/// The first reader that is called for one of its places reads the whole message, and checks it, before it touches its
/// record: a message that is not accepted leaves the record as the caller set it. What is accepted, and what it means,
/// is as with jsoncpp's reader in its default settings, but for the bound on depth. Further readers, for any places,
/// take no further look at the rest of the message.
///
/// For one thread at a time.
class VK_API MessageText {
  public:
    /// text must stay until the last reader is done.
    explicit MessageText(std::string_view text, const MessageTextOptions& options = kDefaultMessageTextOptions);
    /// A temporary would not stay.
    template <class Text, std::enable_if_t<std::is_same_v<Text, std::string>, int> = 0>
    explicit MessageText(Text&& text, const MessageTextOptions& options = kDefaultMessageTextOptions) = delete;
    /// The text stays the caller's.
    ~MessageText();
    MessageText(const MessageText&) = delete;
    MessageText& operator=(const MessageText&) = delete;

    /// The place that a JSON pointer (RFC 6901) names; "" is the whole message. A place that the message does not have,
    /// and one whose pointer is none, reads as missing.
    MessagePlace at(std::string_view pointer) { return {*this, pointer}; }

    /// Whether the message is accepted. Reads it when no reader has done so.
    bool accepted();

    /// Why it is not accepted; null when it is.
    const MessageTextError* error();

  private:
    friend class MessageReading;

    enum class State : unsigned char { Unread, Accepted, Refused };

    std::string_view text_;
    MessageTextOptions options_;
    State state_ = State::Unread;
    bool copiesTexts_ = false;      // on the tape, of texts without escapes
    TextEntry* entries_ = nullptr;  // the tape's memory
    std::size_t capacity_ = 0;
    const TextEntry* part_ = nullptr;  // what is on the tape; null when the message has no such part
    char partPointer_[64];             // its pointer
    std::size_t partPointerSize_ = 0;
    std::unique_ptr<Json::Value> tree_;  // in place of a tape
    std::unique_ptr<MessageTextError> error_;
};

}  // namespace jsonparser

#endif

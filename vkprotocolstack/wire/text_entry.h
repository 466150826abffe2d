// Reading single values on the tape of a message text. Each gives what jsoncpp's reader makes of the text.
#ifndef VKPROTOCOLSTACK_WIRE_TEXT_ENTRY_H
#define VKPROTOCOLSTACK_WIRE_TEXT_ENTRY_H

#include <json/value.h>

#include <string>

#include "vkprotocolstack/wire/text_tape.h"

namespace jsonparser {

/// Bytes of an EscapedText's characters as UTF-8, decoded to the beginning of a buffer of at least entry.size bytes.
/// @return how many there are
std::size_t Unescape(const TextEntry& entry, char* buffer);

/// Of anything but a text, an array and an object; null of these.
Json::Value ScalarOf(const TextEntry& entry);

/// Of anything. It needs no stack that grows with the value's depth.
Json::Value TreeOf(const TextEntry& entry);

}  // namespace jsonparser

#endif

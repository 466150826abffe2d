// What the default text functions share: the local encoding, and cuts at whole characters.
#ifndef VKPROTOCOLSTACK_SUPPORT_CHARSET_H
#define VKPROTOCOLSTACK_SUPPORT_CHARSET_H

#include <cstddef>
#include <string_view>

namespace jsonparser::support {

/// The part of text before its first NUL.
std::string_view UpToNul(std::string_view text);

/// The longest length of at most limit bytes at which UTF-8 text can be cut without leaving half of a character.
std::size_t WholeCharacters(std::string_view text, std::size_t limit);

/// Copies the whole characters of text that fit into size bytes (at least 1) with a terminator.
void CopyCut(std::string_view text, char* buffer, std::size_t size);

}  // namespace jsonparser::support

#endif

// Well-formed UTF-8.
#ifndef VKPROTOCOLSTACK_WIRE_TEXT_UTF8_H
#define VKPROTOCOLSTACK_WIRE_TEXT_UTF8_H

#include <cstddef>
#include <string_view>

namespace jsonparser {

/// Bytes before the first that is part of no well-formed character; all of them when there is none.
std::size_t WellFormedUtf8(std::string_view text);

}  // namespace jsonparser

#endif

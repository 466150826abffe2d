// Well-formed UTF-8, and what to do about the rest.
#ifndef TOOLS_JSONPARSER_UTF8_H
#define TOOLS_JSONPARSER_UTF8_H

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

/// Bytes of the well-formed character at the start of text, which is not empty; 0 when none begins there.
std::size_t CharacterLength(std::string_view text);

/// The number of a well-formed character.
char32_t CodePoint(std::string_view character);

bool IsUtf8(std::string_view text);

/// text in quotes for people: what is no well-formed UTF-8 as \xNN, control characters and quotes escaped.
std::string QuotedText(std::string_view text);

/// The same without the quotes around it.
std::string Harmless(std::string_view text);

/// text as a JSON string; text is UTF-8.
std::string QuotedJson(std::string_view text);

}  // namespace tool

#endif

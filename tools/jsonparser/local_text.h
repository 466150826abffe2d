// Texts between the local encoding of records and UTF-8.
#ifndef TOOLS_JSONPARSER_LOCAL_TEXT_H
#define TOOLS_JSONPARSER_LOCAL_TEXT_H

#include <string>
#include <string_view>

namespace tool {

/// Local text as UTF-8, as far as it is valid in the local encoding.
std::string ToUtf8(std::string_view local);

/// UTF-8 without NUL as local text.
std::string ToLocal(const std::string& utf8);

}  // namespace tool

#endif

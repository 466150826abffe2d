// Reading JSON as RFC 8259 has it, and nothing else.
#ifndef TOOLS_JSONPARSER_STRICT_READER_H
#define TOOLS_JSONPARSER_STRICT_READER_H

#include <json/value.h>

#include <optional>
#include <string_view>

#include "finding.h"

namespace tool {

/// Reads a document, however deep or malformed, without recursion. Integers of 64 bits stay integers, larger ones
/// become reals; of members with the same name the last one counts. Every value knows the offsets of its text's start
/// and end.
/// @param maximumDepth arrays and objects that may stand inside each other
/// @return nothing when text is one JSON value and blanks; otherwise the first defect, and document is null
std::optional<Finding> ReadStrictly(std::string_view text, int maximumDepth, Json::Value& document);

/// Where the name of the member begins whose value begins at offset of a text that was read; offset itself when no name
/// stands before it.
std::size_t NameOffset(std::string_view text, std::size_t offset);

}  // namespace tool

#endif

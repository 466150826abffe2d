// Documents from files and standard input: messages, and records as decode prints them.
#ifndef TOOLS_JSONPARSER_INPUT_H
#define TOOLS_JSONPARSER_INPUT_H

#include <json/value.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "finding.h"

namespace tool {

inline constexpr int kMaximumDepth = 64;
/// Both readers' trees are released recursively.
inline constexpr int kDeepestAllowed = 1000;
inline constexpr std::size_t kMaximumSize = std::size_t{64} << 20U;
inline constexpr std::size_t kMaximumLine = std::size_t{256} << 10U;  ///< of a document that is one line among many
inline constexpr std::size_t kLargestAllowed = std::size_t{1} << 40U;

/// How documents are read.
struct ReadingOptions {
    bool lenient = false;                    ///< as the client's own reader takes them
    int maximumDepth = kMaximumDepth;        ///< arrays and objects inside each other
    std::size_t maximumSize = kMaximumSize;  ///< in bytes
};

/// Reads a whole file, "-" being standard input, up to one byte more than most.
/// @return false when it cannot be read; error then says why, beginning with the file's name
bool ReadFile(const std::string& file, std::size_t most, std::string& text, std::string& error);

/// The encoding of a text that is not UTF-8, by its mark or by the zeros of its first characters; empty for others.
std::string_view ForeignEncoding(std::string_view text);

/// Parses a document; takes a UTF-8 byte-order mark off text first. Every value of the document then knows its offsets
/// in text.
/// @return false, with what is wrong in findings, when it is no document within the limits
bool ParseDocument(std::string& text, const ReadingOptions& options, Json::Value& document,
                   std::vector<Finding>& findings);

/// The value at a JSON pointer; null when there is none, with a finding.
Json::Value* ValueAt(Json::Value& document, std::string_view pointer, std::vector<Finding>& findings);

}  // namespace tool

#endif

// Message documents from files and standard input.
#ifndef TOOLS_JSONPARSER_INPUT_H
#define TOOLS_JSONPARSER_INPUT_H

#include <json/value.h>

#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Nesting that a document may have.
inline constexpr int kMaximumDepth = 64;

/// How messages to the user name a file: "-" is <stdin>.
std::string FileName(const std::string& file);

/// What a value is, for messages to the user.
std::string Shown(const Json::Value& value);

/// Reads a whole file, "-" being standard input.
/// @return false when it cannot be read; error then says why, beginning with the file's name
bool ReadFile(const std::string& file, std::string& text, std::string& error);

/// Parses a document. What is wrong with it goes to findings, each as file:line:column: found, expected.
bool ParseDocument(const std::string& file, const std::string& text, Json::Value& document,
                   std::vector<std::string>& findings);

/// The value at a JSON pointer; null when there is none, with a finding.
Json::Value* ValueAt(const std::string& file, Json::Value& document, std::string_view pointer,
                     std::vector<std::string>& findings);

}  // namespace tool

#endif

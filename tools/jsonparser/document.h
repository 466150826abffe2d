// The messages and record forms that commands work on, one file after another.
#ifndef TOOLS_JSONPARSER_DOCUMENT_H
#define TOOLS_JSONPARSER_DOCUMENT_H

#include <json/value.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "finding.h"
#include "input.h"

namespace tool {

/// A document that was read, and the place in it that the user named.
struct Document {
    std::string_view text;  ///< that the offsets of the values count in
    Json::Value& node;
    std::string_view path;  ///< JSON pointer to the node, "" for the whole document
};

/// The files that the user named; standard input when there are none.
std::vector<std::string> OrStandardInput(const std::vector<std::string>& files);

/// Reads one document; complains when it cannot be read. It goes to use, which adds its findings.
/// @return the exit code
int WithDocument(const std::string& file, const std::string& at, const ReadingOptions& options,
                 const std::function<void(const Document& document, std::vector<Finding>& findings)>& use);

}  // namespace tool

#endif

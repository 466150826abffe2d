// The messages and record forms that commands work on, one file after another.
#ifndef TOOLS_JSONPARSER_DOCUMENT_H
#define TOOLS_JSONPARSER_DOCUMENT_H

#include <json/value.h>

#include <functional>
#include <string>
#include <vector>

namespace tool {

/// The files that the user named; standard input when there are none.
std::vector<std::string> OrStandardInput(const std::vector<std::string>& files);

/// Reads one document; complains when it cannot be read. The node at the place in it that the user named goes to use,
/// which adds its findings.
/// @return the exit code
int WithDocument(const std::string& file, const std::string& at,
                 const std::function<void(Json::Value& node, std::vector<std::string>& findings)>& use);

}  // namespace tool

#endif

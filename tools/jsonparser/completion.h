// Completion of the tool's words in shells.
#ifndef TOOLS_JSONPARSER_COMPLETION_H
#define TOOLS_JSONPARSER_COMPLETION_H

#include <string>
#include <string_view>

#include "description.h"

namespace tool {

/// The script that completes commands, options, their values, names of records and vocabularies, and files.
/// @param shell bash, zsh or fish
std::string CompletionScript(std::string_view shell, const CommandDescription& tool);

}  // namespace tool

#endif

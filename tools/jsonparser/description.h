// The tool's command line as data, for what is made from it: completion and the manual.
#ifndef TOOLS_JSONPARSER_DESCRIPTION_H
#define TOOLS_JSONPARSER_DESCRIPTION_H

#include <string>
#include <vector>

namespace tool {

enum class ValueKind {
    kNone,           ///< a flag
    kRecord,         ///< the name of a record
    kReadRecord,     ///< that of one that is read
    kWrittenRecord,  ///< that of one that is written
    kVocabulary,     ///< the name of a vocabulary
    kFile,
    kChoice,  ///< one of ArgumentDescription::choices
    kOther,
};

/// An option or an operand of a command.
struct ArgumentDescription {
    std::vector<std::string> names;  ///< of an option, as -h and --help; none for an operand
    std::string value;               ///< what stands for the value in a synopsis: POINTER; empty for a flag
    ValueKind kind = ValueKind::kNone;
    std::vector<std::string> choices;
    std::string meaning;
    std::string standard;  ///< the value that is taken when none is given; may be empty
    bool isRequired = false;
    bool repeats = false;

    bool isOption() const { return !names.empty(); }
};

struct CommandDescription {
    std::string name;
    std::string meaning;
    std::vector<ArgumentDescription> arguments;  ///< operands in their order
    std::vector<CommandDescription> commands;    ///< below this one
};

}  // namespace tool

#endif

// What the tool does. Each command returns the tool's exit code.
#ifndef TOOLS_JSONPARSER_COMMANDS_H
#define TOOLS_JSONPARSER_COMMANDS_H

#include <optional>
#include <string>
#include <vector>

#include "input.h"

namespace tool {

enum ExitCode { kGood = 0, kFindings = 1, kUsage = 2, kCannotReadOrWrite = 3 };

struct DecodeOptions {
    std::string record;
    std::vector<std::string> files;  ///< "-" is standard input; none means standard input
    std::string at;                  ///< JSON pointer to the record in each document
    bool json = false;
    bool hex = false;
    bool strict = false;  ///< what the record has otherwise than the message is a finding
    ReadingOptions reading;
    bool lines = false;  ///< one document a line in, one a line out
    unsigned jobs = 0;   ///< threads for lines; 0 is one for each core
};

struct ExplainOptions {
    std::string record;
    std::string file = "-";  ///< "-" is standard input
    std::string at;          ///< JSON pointer to the record in the document
    bool json = false;
    ReadingOptions reading;
};

struct EncodeOptions {
    std::string record;
    std::vector<std::string> files;  ///< "-" is standard input; none means standard input
    ReadingOptions reading;
    bool lines = false;  ///< one document a line in, one a line out
    unsigned jobs = 0;   ///< threads for lines; 0 is one for each core
};

int Decode(const DecodeOptions& options);
int Explain(const ExplainOptions& options);
int Encode(const EncodeOptions& options);
int ListRecords(bool json);
/// One vocabulary, or all of them.
int ListKeywords(const std::optional<std::string>& table, bool json);
int ListFields(const std::string& record, bool json);
/// Maps a device error code, as the user typed it, to the library's.
int MapErrorCode(const std::string& code, bool json);

}  // namespace tool

#endif

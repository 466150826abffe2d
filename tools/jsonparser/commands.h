// What the tool does. Each command returns the tool's exit code.
#ifndef TOOLS_JSONPARSER_COMMANDS_H
#define TOOLS_JSONPARSER_COMMANDS_H

#include <string>
#include <vector>

namespace tool {

enum ExitCode { kGood = 0, kFindings = 1, kUsage = 2, kCannotReadOrWrite = 3 };

struct DecodeOptions {
    std::string record;
    std::vector<std::string> files;  ///< "-" is standard input; none means standard input
    std::string at;                  ///< JSON pointer to the record in each document
    bool json = false;
    bool hex = false;
};

int Decode(const DecodeOptions& options);
int Encode(const std::string& record, const std::vector<std::string>& files);
int ListRecords(bool json);
int ListFields(const std::string& record, bool json);

}  // namespace tool

#endif

// Standard output and standard error.
#ifndef TOOLS_JSONPARSER_CONSOLE_H
#define TOOLS_JSONPARSER_CONSOLE_H

#include <string>
#include <string_view>
#include <vector>

#include "finding.h"

namespace tool {

/// Prints text to standard output. Whether it arrived is for Flushed to say.
void Print(const std::string& text);

/// A line for standard error: who speaks, and what is wrong.
std::string Complaint(std::string_view what);

/// Prints whole lines to standard error, in place of a progress that is shown there.
void PrintError(const std::string& lines);

/// Prints one line to standard error.
void Complain(const std::string& line);

/// Prints the findings about a document to standard error, behind what was printed to standard output so far.
void PrintFindings(const std::string& file, std::string_view text, const std::vector<Finding>& findings);

/// Sends what was printed on its way.
/// @return false when it cannot be written, now or before
bool Flush();

/// What was printed must have arrived. A reader that went away has seen what it wanted: that is no complaint.
/// @return code, or that of an output that cannot be written
int Flushed(int code);

}  // namespace tool

#endif

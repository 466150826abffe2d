// Standard output and standard error.
#ifndef TOOLS_JSONPARSER_CONSOLE_H
#define TOOLS_JSONPARSER_CONSOLE_H

#include <string>

namespace tool {

/// Prints text to standard output. Whether it arrived is for Flushed to say.
void Print(const std::string& text);

/// Prints one line to standard error.
void Complain(const std::string& line);

/// What was printed must have arrived.
/// @return code, or that of an output that cannot be written, with a complaint
int Flushed(int code);

}  // namespace tool

#endif

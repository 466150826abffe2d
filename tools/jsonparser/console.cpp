#include "console.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "commands.h"
#include "style.h"

namespace tool {
namespace {

int writeError = 0;  // of the first write that failed

void NoteError(bool succeeded) {
    if (!succeeded && writeError == 0) writeError = errno;
}

}  // namespace

void Print(const std::string& text) { NoteError(std::fwrite(text.data(), 1, text.size(), stdout) == text.size()); }

void Complain(const std::string& line) {
    std::fprintf(stderr, "%s %s\n", StyleOf(stderr)(Style::kError, "jsonparser:").c_str(), line.c_str());
}

void PrintFindings(const std::string& file, std::string_view text, const std::vector<Finding>& findings) {
    if (findings.empty()) return;
    NoteError(std::fflush(stdout) == 0);
    const std::string lines = Described(file, text, findings);
    std::fwrite(lines.data(), 1, lines.size(), stderr);
}

int Flushed(int code) {
    NoteError(std::fflush(stdout) == 0);
    if (writeError == 0) return code;
    if (writeError != EPIPE) Complain(std::string("cannot write to standard output: ") + std::strerror(writeError));
    return kCannotReadOrWrite;
}

}  // namespace tool

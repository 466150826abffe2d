#include "console.h"

#include <fmt/format.h>

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

std::string Complaint(std::string_view what) {
    return fmt::format("{} {}\n", StyleOf(stderr)(Style::kError, "jsonparser:"), what);
}

void Complain(const std::string& line) { std::fputs(Complaint(line).c_str(), stderr); }

void PrintFindings(const std::string& file, std::string_view text, const std::vector<Finding>& findings) {
    if (findings.empty()) return;
    Flush();
    const std::string lines = Described(file, text, findings, 1, StyleOf(stderr));
    std::fwrite(lines.data(), 1, lines.size(), stderr);
}

bool Flush() {
    NoteError(std::fflush(stdout) == 0);
    return writeError == 0;
}

int Flushed(int code) {
    if (Flush()) return code;
    if (writeError != EPIPE) Complain(std::string("cannot write to standard output: ") + std::strerror(writeError));
    return kCannotReadOrWrite;
}

}  // namespace tool

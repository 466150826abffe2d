#include "console.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "commands.h"
#include "progress.h"
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

void PrintError(const std::string& lines) {
    if (lines.empty()) return;
    HideProgress();
    std::fwrite(lines.data(), 1, lines.size(), stderr);
}

void Complain(const std::string& line) { PrintError(Complaint(line)); }

void PrintFindings(const std::string& file, std::string_view text, const std::vector<Finding>& findings) {
    if (findings.empty()) return;
    Flush();
    PrintError(Described(file, text, findings, 1, StyleOf(stderr)));
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

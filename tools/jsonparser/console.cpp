#include "console.h"

#include <cstdio>

#include "commands.h"
#include "style.h"

namespace tool {

void Print(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void Complain(const std::string& line) {
    std::fprintf(stderr, "%s %s\n", StyleOf(stderr)(Style::kError, "jsonparser:").c_str(), line.c_str());
}

int Flushed(int code) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return code;
    Complain("cannot write to standard output");
    return kCannotReadOrWrite;
}

}  // namespace tool

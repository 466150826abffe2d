#include "console.h"

#include <cstdio>

#include "commands.h"

namespace tool {

void Print(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void Complain(const std::string& line) { std::fprintf(stderr, "jsonparser: %s\n", line.c_str()); }

int Flushed(int code) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return code;
    Complain("cannot write to standard output");
    return kCannotReadOrWrite;
}

}  // namespace tool

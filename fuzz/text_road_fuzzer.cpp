// Compares the two roads from a message's text to a record, for every reader. With libFuzzer, on what that makes up;
// without it, on the numbered cases from FIRST on:
//
//   jsonparser_text_road_fuzzer FIRST COUNT

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/text_road_case.h"

namespace {

void Check(const fuzz::Case& test) {
    const std::string difference = fuzz::DifferenceOf(test);
    if (difference.empty()) return;
    std::fprintf(stderr, "%s\n", difference.c_str());
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Check(fuzz::MakeCase(std::string_view(reinterpret_cast<const char*>(data), size)));
    return 0;
}

#ifndef FUZZ_WITHOUT_MAIN
int main(int argc, char** argv) {
    char* end = nullptr;
    const std::uint64_t first = argc == 3 ? std::strtoull(argv[1], &end, 10) : 0;
    const bool isFirst = end != nullptr && *end == '\0';
    const std::uint64_t count = isFirst ? std::strtoull(argv[2], &end, 10) : 0;
    if (!isFirst || *end != '\0') {
        std::fprintf(stderr, "usage: jsonparser_text_road_fuzzer FIRST COUNT, both whole numbers\n");
        return 2;
    }
    for (std::uint64_t number = first; number < first + count; ++number) Check(fuzz::MakeCase(number));
    std::printf("%llu cases: the roads agree\n", static_cast<unsigned long long>(count));
    return 0;
}
#endif

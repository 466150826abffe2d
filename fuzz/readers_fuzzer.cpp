// Any text to every reader, by both roads: the first byte chooses the reader, the others are the message.

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/text_road_case.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    constexpr fuzz::Way kRoot{"", "", ""};
    const auto readers = fuzz::Readers();
    const fuzz::Case test{&readers[data[0] % readers.size()],
                          &kRoot,
                          std::string(reinterpret_cast<const char*>(data) + 1, size - 1),
                          {},
                          data[0] / 86U,
                          false};
    const std::string difference = fuzz::DifferenceOf(test);
    if (difference.empty()) return 0;
    std::fprintf(stderr, "%s\n", difference.c_str());
    std::abort();
}

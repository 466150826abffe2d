#include "vkprotocolstack/wire/record.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

TEST(Clear, SetsEveryByteToZeroWithThePadding) {
    struct Padded {
        char first;
        double second;
        char third;
    };
    static_assert(sizeof(Padded) == 24);
    Padded records[3];
    std::memset(static_cast<void*>(records), 0x5A, sizeof records);
    jsonparser::Clear(records[1]);
    const std::string bytes(reinterpret_cast<const char*>(records), sizeof records);
    EXPECT_EQ(bytes, std::string(24, '\x5A') + std::string(24, '\0') + std::string(24, '\x5A'));
}

}  // namespace

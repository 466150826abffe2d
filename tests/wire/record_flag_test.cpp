#include <gtest/gtest.h>

#include <cstring>

#include "vkprotocolstack/wire/record.h"

namespace {

using jsonparser::Flag;

TEST(Flag, EveryByteButZeroSetsIt) {
    for (int byte = 0; byte <= 255; ++byte) {
        bool flag = false;
        std::memset(&flag, byte, sizeof flag);
        EXPECT_EQ(Flag(flag), byte != 0) << byte;
    }
}

}  // namespace

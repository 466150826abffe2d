#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "testing/buffer.h"
#include "vkprotocolstack/support/support.h"

namespace {

using testing_tools::Buffer;
using testing_tools::Holding;

TEST(_snprintf, CutsWhatDoesNotFitAndGivesTheWholeLength) {
    const struct {
        std::size_t count;
        const char* expected;
    } rows[] = {
        {1,  ""          },
        {2,  "2"         },
        {10, "2024-01-0" },
        {11, "2024-01-05"},
        {12, "2024-01-05"},
    };
    for (const auto& row : rows) {
        Buffer buffer(16);
        EXPECT_EQ(_snprintf(buffer.get(), row.count, "%04d-%02d-%02d", 2024, 1, 5), 10) << row.count;
        EXPECT_EQ(buffer.all(), Holding(row.expected, 16)) << row.count;
    }
}

TEST(_snprintf, ACountOfZeroWritesNothing) {
    Buffer buffer(4);
    EXPECT_EQ(_snprintf(buffer.get(), 0, "%s", "abc"), 3);
    EXPECT_TRUE(buffer.untouched());
}

TEST(_snprintf, ATextOfMoreThan255CharactersInAZeroedBufferOf256IsTerminated) {
    char buffer[256] = {};
    EXPECT_EQ(_snprintf(buffer, 255, "%0300d", 7), 300);
    EXPECT_EQ(std::string(buffer), std::string(254, '0'));
}

TEST(_snprintf, TakesEveryKindOfArgument) {
    Buffer buffer(64);
    EXPECT_EQ(_snprintf(buffer.get(), 64, "%d %u %s %c %.2f %ld %%", -1, 4294967295U, "路", 'x', 1.5, -5L), 29);
    EXPECT_EQ(buffer.text(), std::string("-1 4294967295 路 x 1") + std::localeconv()->decimal_point + "50 -5 %");
}

}  // namespace

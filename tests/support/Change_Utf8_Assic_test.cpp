#include <gtest/gtest.h>

#include <string>

#include "testing/buffer.h"
#include "testing/locale.h"
#include "vkprotocolstack/support/support.h"

namespace {

using testing_tools::Buffer;
using testing_tools::Holding;
using testing_tools::Utf8Texts;

TEST(Change_Utf8_Assic, CopiesTheSourceAndItsTerminatorAndNothingBehind) {
    const Utf8Texts utf8;
    for (std::string source : {"", "a", "abc", "沪A·12345", "😀", "\xFF\xFE\x80", "路\xE8\xB7"}) {
        Buffer destination(source.size() + 4);
        Change_Utf8_Assic(reinterpret_cast<unsigned char*>(source.data()), destination.get());
        EXPECT_EQ(destination.all(), Holding(source, source.size() + 4));
    }
}

TEST(Change_Utf8_Assic, StopsAtTheFirstNul) {
    unsigned char source[] = "abc\0def";
    Buffer destination(8);
    Change_Utf8_Assic(source, destination.get());
    EXPECT_EQ(destination.all(), Holding("abc", 8));
}

TEST(Change_Utf8_Assic, WritesNoMoreThanTheSourceHas) {
    const Utf8Texts utf8;
    unsigned char source[] = "沪A";
    Buffer destination(sizeof source);
    Change_Utf8_Assic(source, destination.get());
    EXPECT_EQ(destination.text(), "沪A");
}

}  // namespace

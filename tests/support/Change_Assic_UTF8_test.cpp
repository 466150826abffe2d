#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>
#include <vector>

#include "testing/buffer.h"
#include "testing/locale.h"
#include "vkprotocolstack/support/support.h"

namespace {

using testing_tools::Buffer;
using testing_tools::Unterminated;
using testing_tools::Utf8Texts;
using namespace std::string_view_literals;

TEST(Change_Assic_UTF8, ConvertsSoManyBytesOrThoseBeforeANul) {
    const Utf8Texts utf8;
    const struct {
        std::string_view source;
        int length;
        const char* expected;
    } rows[] = {
        {"abc"sv,     3,       "abc"    },
        {"abc"sv,     2,       "ab"     },
        {"abc"sv,     0,       ""       },
        {"abc"sv,     -1,      ""       },
        {"abc"sv,     INT_MIN, ""       },
        {"ab\0cd"sv,  5,       "ab"     },
        {"\0abc"sv,   4,       ""       },
        {"沪A·1"sv, 7,       "沪A·1"},
    };
    for (const auto& row : rows) {
        Unterminated source(row.source);
        Buffer destination(64);
        Change_Assic_UTF8(source.get(), row.length, destination.get(), 64);
        EXPECT_EQ(destination.text(), row.expected) << row.length;
    }
}

TEST(Change_Assic_UTF8, ANullSourceOfNoLengthGivesTheEmptyText) {
    Buffer destination(4);
    Change_Assic_UTF8(nullptr, 0, destination.get(), 4);
    EXPECT_EQ(destination.text(), "");
}

TEST(Change_Assic_UTF8, CutsBehindAWholeCharacterAtEverySize) {
    const Utf8Texts utf8;
    const std::string source = "aé路😀z";
    const std::vector<std::string> expected = {"",     "a",    "a",    "aé",    "aé",     "aé",    "aé路",
                                               "aé路", "aé路", "aé路", "aé路😀", "aé路😀z", "aé路😀z"};
    for (std::size_t size = 1; size <= expected.size(); ++size) {
        Unterminated bytes(source);
        Buffer destination(size);
        Change_Assic_UTF8(bytes.get(), static_cast<int>(source.size()), destination.get(), static_cast<int>(size));
        EXPECT_EQ(destination.text(), expected[size - 1]) << size;
    }
}

TEST(Change_Assic_UTF8, ADestinationOfZeroOrLessWritesNothing) {
    for (const int size : {0, -1, INT_MIN}) {
        Buffer destination(8);
        Change_Assic_UTF8("abc", 3, destination.get(), size);
        EXPECT_TRUE(destination.untouched()) << size;
    }
}

}  // namespace

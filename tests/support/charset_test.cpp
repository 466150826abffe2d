#include "vkprotocolstack/support/charset.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "testing/buffer.h"

namespace {

using jsonparser::support::CopyCut;
using jsonparser::support::UpToNul;
using jsonparser::support::WholeCharacters;
using testing_tools::Buffer;
using testing_tools::Holding;
using testing_tools::Unterminated;
using namespace std::string_view_literals;

TEST(UpToNul, EndsBeforeTheFirstNul) {
    EXPECT_EQ(UpToNul(""), "");
    EXPECT_EQ(UpToNul({}), "");
    EXPECT_EQ(UpToNul("abc"), "abc");
    EXPECT_EQ(UpToNul("\0"sv), "");
    EXPECT_EQ(UpToNul("a\0b\0c"sv), "a");
    EXPECT_EQ(UpToNul("abc\0"sv), "abc");
}

TEST(WholeCharacters, EndsBeforeACharacterThatDoesNotFit) {
    const struct {
        std::string_view text;
        std::size_t limit;
        std::size_t expected;
    } rows[] = {
        {"",       0, 0},
        {"",       5, 0},
        {"abc",    0, 0},
        {"abc",    2, 2},
        {"abc",    3, 3},
        {"abc",    4, 3},
        {"aé",    1, 1},
        {"aé",    2, 1},
        {"aé",    3, 3},
        {"路a",   0, 0},
        {"路a",   1, 0},
        {"路a",   2, 0},
        {"路a",   3, 3},
        {"a😀b", 1, 1},
        {"a😀b", 2, 1},
        {"a😀b", 3, 1},
        {"a😀b", 4, 1},
        {"a😀b", 5, 5},
        {"a😀b", 6, 6},
        {"a\0b"sv, 2, 2},
    };
    for (const auto& row : rows) EXPECT_EQ(WholeCharacters(row.text, row.limit), row.expected) << row.text << row.limit;
}

TEST(WholeCharacters, CutsWhatIsNoUtf8AtTheLimitUnlessACharacterBeginsThatTheLimitSplits) {
    const struct {
        std::string_view text;
        std::size_t limit;
        std::size_t expected;
    } rows[] = {
        {"\x80\x80\x80\x80\x80", 4, 4},
        {"\x80\x80",             1, 1},
        {"é\x80\x80\x80",       2, 2},
        {"é\x80\x80\x80",       3, 3},
        {"\xE8\xB7",             1, 0},
        {"\xE8z",                1, 1},
        {"\xFF\x80\x80\x80\x80", 3, 0},
        {"\xFF\x80\x80\x80\x80", 4, 4},
    };
    for (const auto& row : rows) EXPECT_EQ(WholeCharacters(row.text, row.limit), row.expected) << row.text << row.limit;
}

TEST(WholeCharacters, ReadsNoFurtherThanTheText) {
    for (const std::string text : {"\xF0", "a\xF0\x9F", "路", "\x80"}) {
        Unterminated bytes(text);
        for (std::size_t limit = 0; limit <= text.size() + 1; ++limit) {
            EXPECT_LE(WholeCharacters({bytes.get(), text.size()}, limit), limit);
        }
        EXPECT_EQ(WholeCharacters({bytes.get(), text.size()}, text.size()), text.size());
    }
}

TEST(CopyCut, WritesTheCharactersThatFitAndATerminatorAndNothingElse) {
    const struct {
        std::string_view text;
        std::size_t size;
        std::string_view expected;
    } rows[] = {
        {"abc",  1, ""    },
        {"abc",  3, "ab"  },
        {"abc",  4, "abc" },
        {"abc",  8, "abc" },
        {"",     1, ""    },
        {"a路", 4, "a"   },
        {"a路", 5, "a路"},
    };
    for (const auto& row : rows) {
        Buffer buffer(row.size);
        CopyCut(row.text, buffer.get(), row.size);
        EXPECT_EQ(buffer.all(), Holding(row.expected, row.size)) << row.text << " in " << row.size;
    }
}

}  // namespace

#include "vkprotocolstack/wire/keywords.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using jsonparser::CodesAreIndexes;
using jsonparser::EqualIgnoringCase;
using jsonparser::FirstExact;
using jsonparser::FirstIgnoringCase;
using jsonparser::FirstWithCode;
using jsonparser::Keyword;
using jsonparser::Keywords;
using jsonparser::LastIgnoringCase;
using namespace std::string_view_literals;

constexpr Keyword kTable[] = {
    {0,  ""     },
    {1,  "Rapid"},
    {2,  "rapid"},
    {3,  "RAPID"},
    {4,  "Rapid"},
    {5,  "Other"},
    {5,  "路Ä"},
    {-1, "Minus"},
};

/// The row's place in the table; -1 for none.
std::ptrdiff_t Row(const Keyword* row) { return row == nullptr ? -1 : row - kTable; }

TEST(Keywords, AreLookedUpByTheRuleThatTheNameSays) {
    const struct {
        std::string_view text;
        int firstExact;
        int firstIgnoringCase;
        int lastIgnoringCase;
    } rows[] = {
        {"",            0,  0,  0 },
        {{},            0,  0,  0 },
        {"Rapid",       1,  1,  4 },
        {"rapid",       2,  1,  4 },
        {"RAPID",       3,  1,  4 },
        {"rAPID",       -1, 1,  4 },
        {"Other",       5,  5,  5 },
        {"OTHER",       -1, 5,  5 },
        {"路Ä",       6,  6,  6 },
        {"路ä",       -1, -1, -1},
        {"Rapi",        -1, -1, -1},
        {"Rapidly",     -1, -1, -1},
        {" Rapid",      -1, -1, -1},
        {"Rapid\0"sv,   -1, 1,  4 },
        {"Rapid\0ly"sv, -1, 1,  4 },
        {"\0Rapid"sv,   -1, 0,  0 },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Row(FirstExact(kTable, row.text)), row.firstExact) << row.text;
        EXPECT_EQ(Row(FirstIgnoringCase(kTable, row.text)), row.firstIgnoringCase) << row.text;
        EXPECT_EQ(Row(LastIgnoringCase(kTable, row.text)), row.lastIgnoringCase) << row.text;
    }
}

TEST(Keywords, TheFirstRowOfACodeCounts) {
    EXPECT_EQ(Row(FirstWithCode(kTable, 0)), 0);
    EXPECT_EQ(Row(FirstWithCode(kTable, 4)), 4);
    EXPECT_EQ(Row(FirstWithCode(kTable, 5)), 5);
    EXPECT_EQ(Row(FirstWithCode(kTable, -1)), 7);
    EXPECT_EQ(Row(FirstWithCode(kTable, 6)), -1);
}

TEST(Keywords, AnEmptyTableHoldsNothing) {
    EXPECT_EQ(FirstExact({}, ""), nullptr);
    EXPECT_EQ(FirstIgnoringCase({}, ""), nullptr);
    EXPECT_EQ(LastIgnoringCase({}, ""), nullptr);
    EXPECT_EQ(FirstWithCode({}, 0), nullptr);
}

TEST(CodesAreIndexes, HoldsForRowsCountedFromZero) {
    static constexpr Keyword kCounted[] = {
        {0, "a"},
        {1, "b"},
        {2, "b"}
    };
    static constexpr Keyword kGap[] = {
        {0, "a"},
        {2, "b"}
    };
    static constexpr Keyword kFromOne[] = {
        {1, "a"},
        {2, "b"}
    };
    static constexpr Keyword kTwice[] = {
        {0, "a"},
        {0, "b"}
    };
    EXPECT_TRUE(CodesAreIndexes({}));
    EXPECT_TRUE(CodesAreIndexes(kCounted));
    EXPECT_FALSE(CodesAreIndexes(kGap));
    EXPECT_FALSE(CodesAreIndexes(kFromOne));
    EXPECT_FALSE(CodesAreIndexes(kTwice));
}

TEST(EqualIgnoringCase, FoldsAsciiLettersAndNothingElse) {
    for (int x = 1; x < 256; ++x) {
        for (int y = 1; y < 256; ++y) {
            const auto isLetter = [](int c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
            const bool equal = x == y || (isLetter(x) && isLetter(y) && (x ^ y) == 0x20);
            const char a = static_cast<char>(x);
            const char b = static_cast<char>(y);
            ASSERT_EQ(EqualIgnoringCase({&a, 1}, {&b, 1}), equal) << x << ' ' << y;
        }
    }
}

TEST(EqualIgnoringCase, ComparesUpToTheFirstNulOfEach) {
    EXPECT_TRUE(EqualIgnoringCase("", {}));
    EXPECT_TRUE(EqualIgnoringCase("a\0b"sv, "A"));
    EXPECT_TRUE(EqualIgnoringCase("a\0b"sv, "A\0c"sv));
    EXPECT_TRUE(EqualIgnoringCase("\0b"sv, ""));
    EXPECT_FALSE(EqualIgnoringCase("a\0b"sv, "ab"));
    EXPECT_FALSE(EqualIgnoringCase("a", "ab"));
    EXPECT_FALSE(EqualIgnoringCase("ab", "a"));
    EXPECT_FALSE(EqualIgnoringCase("", "a"));
}

}  // namespace

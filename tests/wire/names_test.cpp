#include "vkprotocolstack/wire/names.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using jsonparser::HashOfName;
using jsonparser::NameIndex;
using jsonparser::NameList;
using jsonparser::SameBytes;

constexpr NameList kNames{"",          "a",
                          "b",         "ab",
                          "ba",        "abc",
                          "abcd",      "abcdefg",
                          "abcdefgh",  "abcdefghi",
                          "bbcdefghi", "BeginSequence",
                          "路",        "Begin123456789012345678901"};

TEST(NameIndex, FindsEachNameAndNoOther) {
    const NameIndex index = kNames.index();
    for (std::size_t i = 0; i < kNames.names.size(); ++i) {
        const std::string name(kNames.names[i]);
        EXPECT_EQ(index.find(name.data(), name.size()), i + 1) << name;
    }
    for (const std::string name : {"c", "A", "abd", "abcdefgx", "xbcdefgh", "BeginSequencf", "Begin"}) {
        EXPECT_EQ(index.find(name.data(), name.size()), 0U) << name;
    }
    EXPECT_EQ(index.find("a\0", 2), 0U);
}

TEST(NameIndex, QuotesNames) {
    for (std::size_t i = 0; i < kNames.names.size(); ++i) {
        const std::string quoted = '"' + std::string(kNames.names[i]) + "\":";
        const jsonparser::QuotedName& found = kNames.quoted[i];
        EXPECT_EQ(std::string_view(found.bytes, quoted.size()), quoted);
        EXPECT_EQ(found.size, kNames.names[i].size());
        EXPECT_EQ(found.toText, 2 + quoted.size() + 1);
        EXPECT_EQ(found.bits + 1, std::uint64_t{1} << quoted.size());
    }
}

TEST(NameIndex, HasBehindTheNamesOneThatNoBlockMatches) {
    EXPECT_EQ(kNames.quoted[kNames.names.size()].bits, std::uint64_t{1} << jsonparser::QuotedName::kBlock);
}

TEST(HashOfName, IsTheSameWhenCompilingAndWhenRunning) {
    static constexpr std::uint64_t kCompiled = HashOfName("OriginalBoundingBox", 19);
    const std::string name = "OriginalBoundingBox";
    EXPECT_EQ(HashOfName(name.data(), name.size()), kCompiled);
    static constexpr std::uint64_t kShort = HashOfName("UTC", 3);
    EXPECT_EQ(HashOfName(std::string("UTC").data(), 3), kShort);
}

TEST(SameBytes, SeesEveryByte) {
    for (std::size_t size = 0; size < 40; ++size) {
        const std::string text(size, 'x');
        EXPECT_TRUE(SameBytes(text.data(), std::string(size, 'x').data(), size));
        for (std::size_t i = 0; i < size; ++i) {
            std::string other = text;
            other[i] = 'y';
            EXPECT_FALSE(SameBytes(text.data(), other.data(), size)) << i << " of " << size;
        }
    }
}

}  // namespace

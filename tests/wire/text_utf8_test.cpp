#include "vkprotocolstack/wire/text_utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using jsonparser::WellFormedUtf8;

constexpr char32_t kLastCharacter = 0x10FFFF;

bool IsSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }

std::string Utf8(char32_t code) {
    const auto last = [code](int shift) { return static_cast<char>(0x80 + code / (1U << shift) % 64); };
    if (code < 0x80) return {static_cast<char>(code)};
    if (code < 0x800) return {static_cast<char>(0xC0 + code / 64), last(0)};
    if (code < 0x10000) return {static_cast<char>(0xE0 + code / 4096), last(6), last(0)};
    return {static_cast<char>(0xF0 + code / 262144), last(12), last(6), last(0)};
}

/// Whether these bytes are those of a character: of the number that their bits make.
bool IsCharacter(const std::string& bytes) {
    char32_t code = static_cast<unsigned char>(bytes[0]);
    if (bytes.size() > 1) code &= 0x7FU >> bytes.size();
    for (std::size_t i = 1; i < bytes.size(); ++i) code = code * 64 + static_cast<unsigned char>(bytes[i]) % 64;
    return code <= kLastCharacter && !IsSurrogate(code) && Utf8(code) == bytes;
}

/// By taking one character after the other.
std::size_t Expected(const std::string& text) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        std::size_t length = 1;
        while (length <= 4 && !IsCharacter(text.substr(begin, length))) ++length;
        if (length > 4) break;
        begin += length;
    }
    return begin;
}

TEST(WellFormedUtf8, TakesEveryCharacter) {
    for (char32_t code = 0; code <= kLastCharacter; ++code) {
        const std::string character = Utf8(code);
        ASSERT_EQ(WellFormedUtf8(character), IsSurrogate(code) ? 0 : character.size()) << static_cast<unsigned>(code);
    }
}

TEST(WellFormedUtf8, TakesOfEveryTwoBytesTheCharacters) {
    for (unsigned first = 0; first < 256; ++first) {
        ASSERT_EQ(WellFormedUtf8(std::string(1, static_cast<char>(first))), first < 0x80 ? 1U : 0U) << first;
        for (unsigned second = 0; second < 256; ++second) {
            const std::string text{static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(WellFormedUtf8(text), Expected(text)) << std::hex << first << ' ' << second;
        }
    }
}

TEST(WellFormedUtf8, TakesOfEveryLeadAndBordersOfThreeMoreBytesTheCharacters) {
    constexpr unsigned char kBorders[] = {0x00, 0x7F, 0x80, 0x81, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC2, 0xFF};
    for (unsigned lead = 0x80; lead < 256; ++lead) {
        for (const unsigned char second : kBorders) {
            for (const unsigned char third : kBorders) {
                const std::string three{static_cast<char>(lead), static_cast<char>(second), static_cast<char>(third)};
                ASSERT_EQ(WellFormedUtf8(three), Expected(three)) << testing::PrintToString(three);
                for (const unsigned char fourth : kBorders) {
                    const std::string four = three + static_cast<char>(fourth);
                    ASSERT_EQ(WellFormedUtf8(four), Expected(four)) << testing::PrintToString(four);
                }
            }
        }
    }
}

TEST(WellFormedUtf8, EndsBeforeWhatIsMalformedWhereverItStands) {
    const std::string malformed[] = {"\x80",
                                     "\xC0\x80",
                                     "\xC3",
                                     "\xE0\x9F\xBF",
                                     "\xED\xA0\x80",
                                     "\xE8\xB7",
                                     "\xF0\x9F\x98",
                                     "\xF0\x8F\xBF\xBF",
                                     "\xF4\x90\x80\x80",
                                     "\xF8\x88\x80\x80\x80",
                                     "\xFF"};
    for (std::size_t before = 0; before < 50; ++before) {
        for (std::size_t behind = 0; behind < 40; behind += 13) {
            const std::string text(before, 'x');
            for (const std::string& bytes : malformed) {
                EXPECT_EQ(WellFormedUtf8(text + bytes + std::string(behind, 'y')), before) << bytes << behind;
            }
            for (const char* character : {"\x7F", "é", "路", "😀"}) {
                const std::string whole = text + character + std::string(behind, 'y');
                EXPECT_EQ(WellFormedUtf8(whole), whole.size()) << before << character << behind;
            }
        }
    }
}

TEST(WellFormedUtf8, ReadsNothingBehindTheText) {
    for (const std::string text : {"é", "路", "😀"}) {
        for (std::size_t size = 1; size < text.size(); ++size) {
            const std::vector<char> bytes(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(size));
            EXPECT_EQ(WellFormedUtf8({bytes.data(), bytes.size()}), 0U) << text << size;
            EXPECT_EQ(WellFormedUtf8(std::string_view(text).substr(0, size)), 0U) << text << size;
        }
    }
    EXPECT_EQ(WellFormedUtf8(""), 0U);
    EXPECT_EQ(WellFormedUtf8({}), 0U);
}

}  // namespace

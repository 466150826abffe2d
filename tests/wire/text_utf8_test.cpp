#include "vkprotocolstack/wire/text_utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using jsonparser::WellFormedUtf8;

std::string Encoded(char32_t code) {
    const auto tail = [code](unsigned shift) { return static_cast<char>(0x80U | (code >> shift & 0x3FU)); };
    if (code < 0x80) return {static_cast<char>(code)};
    if (code < 0x800) return {static_cast<char>(0xC0U | code >> 6), tail(0)};
    if (code < 0x10000) return {static_cast<char>(0xE0U | code >> 12), tail(6), tail(0)};
    return {static_cast<char>(0xF0U | code >> 18), tail(12), tail(6), tail(0)};
}

TEST(WellFormedUtf8, TakesEveryCharacterWhole) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
        const std::string text = "a" + Encoded(code) + "b";
        ASSERT_EQ(WellFormedUtf8(text), isSurrogate ? 1 : text.size()) << std::hex << static_cast<unsigned>(code);
    }
}

TEST(WellFormedUtf8, EndsBeforeACharacterThatIsNotComplete) {
    for (const char32_t code : {U'é', U'路', U'🚗'}) {
        const std::string character = Encoded(code);
        for (std::size_t size = 1; size < character.size(); ++size) {
            for (const char* behind : {"", "x"}) {
                EXPECT_EQ(WellFormedUtf8("ab" + character.substr(0, size) + behind), 2U) << character << ' ' << size;
            }
        }
    }
}

TEST(WellFormedUtf8, EndsBeforeAFormThatIsTooLongOrBeyondUnicode) {
    using namespace std::string_view_literals;
    for (const std::string_view bytes : {"\xC0\x80"sv, "\xC1\xBF"sv, "\xE0\x9F\xBF"sv, "\xF0\x8F\xBF\xBF"sv,
                                         "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xFF"sv, "\x80"sv}) {
        EXPECT_EQ(WellFormedUtf8("x" + std::string(bytes)), 1U) << bytes;
    }
}

TEST(WellFormedUtf8, EndsWhereverBlocksOfAsciiDo) {
    for (std::size_t before = 0; before < 40; ++before) {
        const std::string ascii(before, 'x');
        EXPECT_EQ(WellFormedUtf8(ascii), before);
        EXPECT_EQ(WellFormedUtf8(ascii + "\x80" + ascii), before);
        EXPECT_EQ(WellFormedUtf8(ascii + "路" + ascii), 2 * before + 3);
    }
}

}  // namespace

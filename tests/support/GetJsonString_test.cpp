#include <gtest/gtest.h>
#include <json/value.h>

#include <climits>
#include <string>
#include <vector>

#include "testing/buffer.h"
#include "testing/json.h"
#include "testing/locale.h"
#include "vkprotocolstack/support/support.h"

namespace {

using testing_tools::Buffer;
using testing_tools::Json;
using testing_tools::Unterminated;
using testing_tools::Utf8Texts;

TEST(GetJsonString, CopiesATextWhateverTheFlagSays) {
    const Utf8Texts utf8;
    for (const bool convert : {true, false}) {
        Buffer buffer(33);
        EXPECT_TRUE(GetJsonString("沪A·12345", buffer.get(), 33, convert));
        EXPECT_EQ(buffer.text(), "沪A·12345");
    }
}

TEST(GetJsonString, TheEmptyTextIsAText) {
    Buffer buffer(4);
    EXPECT_TRUE(GetJsonString("", buffer.get(), 4, true));
    EXPECT_EQ(buffer.text(), "");
}

TEST(GetJsonString, WhatIsNoTextGivesTheEmptyTextAndFalse) {
    for (const char* json : {"null", "true", "false", "0", "-7", "18446744073709551615", "1.5", "[]", R"(["text"])",
                             "{}", R"({"": "text"})"}) {
        Buffer buffer(8);
        EXPECT_FALSE(GetJsonString(Json(json), buffer.get(), 8, true)) << json;
        EXPECT_EQ(buffer.text(), "") << json;
    }
}

TEST(GetJsonString, ASizeOfZeroOrLessWritesNothing) {
    for (const int size : {0, -1, -33, INT_MIN}) {
        Buffer buffer(8);
        EXPECT_TRUE(GetJsonString("text", buffer.get(), size, true)) << size;
        EXPECT_FALSE(GetJsonString(7, buffer.get(), size, true)) << size;
        EXPECT_TRUE(buffer.untouched()) << size;
        EXPECT_TRUE(GetJsonString("text", nullptr, size, true)) << size;
    }
}

TEST(GetJsonString, ASizeOfOneGivesTheEmptyText) {
    Buffer buffer(1);
    EXPECT_TRUE(GetJsonString("text", buffer.get(), 1, true));
    EXPECT_EQ(buffer.text(), "");
}

TEST(GetJsonString, CutsBehindAWholeCharacterAtEverySize) {
    const Utf8Texts utf8;
    const Json::Value value = "aé路😀z";  // characters of 1, 2, 3, 4 and 1 bytes
    const std::vector<std::string> expected = {"",     "a",    "a",    "aé",    "aé",     "aé",    "aé路",
                                               "aé路", "aé路", "aé路", "aé路😀", "aé路😀z", "aé路😀z"};
    for (std::size_t size = 1; size <= expected.size(); ++size) {
        Buffer buffer(size);
        EXPECT_TRUE(GetJsonString(value, buffer.get(), static_cast<int>(size), true));
        EXPECT_EQ(buffer.text(), expected[size - 1]) << size;
    }
}

TEST(GetJsonString, CutsCharactersOfEveryLengthAtEveryPlace) {
    const Utf8Texts utf8;
    for (const std::string character : {"x", "é", "\u07FF", "\u0800", "路", "\uFFFD", "\U00010000", "😀"}) {
        for (const std::string prefix : {"", "a", "ab", "abc"}) {
            std::string text = prefix;
            for (int i = 0; i < 5; ++i) text += character;
            for (std::size_t size = prefix.size() + 1; size <= text.size() + 2; ++size) {
                std::string whole = prefix;
                while (whole.size() + character.size() < size && whole.size() < text.size()) whole += character;
                Buffer buffer(size);
                EXPECT_TRUE(GetJsonString(text, buffer.get(), static_cast<int>(size), true));
                EXPECT_EQ(buffer.text(), whole) << text << " in " << size;
            }
        }
    }
}

TEST(GetJsonString, TakesATextUpToItsFirstNul) {
    for (const int size : {3, 4, 5, 8}) {
        Buffer buffer(8);
        EXPECT_TRUE(GetJsonString(std::string("abc\0def", 7), buffer.get(), size, true));
        EXPECT_EQ(buffer.text(), size == 3 ? "ab" : "abc") << size;
    }
}

TEST(GetJsonString, BytesThatAreNoUtf8AreCopiedAndCutWithoutLookingBeyondThem) {
    const Utf8Texts utf8;
    Buffer buffer(16);
    EXPECT_TRUE(GetJsonString("\xFF\xFE\x80", buffer.get(), 16, true));
    EXPECT_EQ(buffer.text(), "\xFF\xFE\x80");
    EXPECT_TRUE(GetJsonString("\x80\x80\x80\x80\x80\x80", buffer.get(), 5, true));
    EXPECT_EQ(buffer.text(), "\x80\x80\x80\x80");
    EXPECT_TRUE(GetJsonString("\x80\x80\x80", buffer.get(), 2, true));
    EXPECT_EQ(buffer.text(), "\x80");
    EXPECT_TRUE(GetJsonString("路\xE8\xB7", buffer.get(), 16, true));
    EXPECT_EQ(buffer.text(), "路\xE8\xB7");
}

TEST(GetJsonString, ReadsNoFurtherThanTheText) {
    const Utf8Texts utf8;
    Unterminated bytes("abc路");
    const Json::Value value(Json::StaticString("abc"));
    Buffer buffer(64);
    EXPECT_TRUE(GetJsonString(value, buffer.get(), 64, true));
    EXPECT_EQ(buffer.text(), "abc");
    EXPECT_TRUE(GetJsonString(Json::Value(bytes.get(), bytes.get() + 6), buffer.get(), 6, true));
    EXPECT_EQ(buffer.text(), "abc");
}

}  // namespace

#include "vkprotocolstack/wire/text_entry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include "taken.h"
#include "testing/json.h"

namespace {

using jsonparser::ScalarOf;
using jsonparser::TextEntry;
using jsonparser::TextType;
using jsonparser::TreeOf;
using jsonparser::Unescape;
using testing_tools::Json;
using testing_tools::Taken;

std::string InArray(const std::string& text) { return '[' + text + ']'; }

TEST(TextEntry, HoldsIntegersOf64BitsAndRealsBeyond) {
    const struct {
        const char* text;
        TextType type;
    } rows[] = {
        {"0",                     TextType::Integer },
        {"-0",                    TextType::Integer },
        {"255",                   TextType::Integer },
        {"256",                   TextType::Integer },
        {"-129",                  TextType::Integer },
        {"65535",                 TextType::Integer },
        {"65536",                 TextType::Integer },
        {"-32769",                TextType::Integer },
        {"2147483647",            TextType::Integer },
        {"2147483648",            TextType::Integer },
        {"-2147483648",           TextType::Integer },
        {"-2147483649",           TextType::Integer },
        {"4294967295",            TextType::Integer },
        {"4294967296",            TextType::Integer },
        {"9223372036854775807",   TextType::Integer },
        {"-9223372036854775807",  TextType::Integer },
        {"-9223372036854775808",  TextType::Integer },
        {"9223372036854775808",   TextType::Unsigned},
        {"18446744073709551615",  TextType::Unsigned},
        {"-9223372036854775809",  TextType::Real    },
        {"18446744073709551616",  TextType::Real    },
        {"100000000000000000000", TextType::Real    },
        {"0.0",                   TextType::Real    },
        {"-0.0",                  TextType::Real    },
        {"1e2",                   TextType::Real    },
    };
    for (const auto& row : rows) {
        const Taken taken(InArray(row.text));
        EXPECT_EQ(taken.first().type, row.type) << row.text;
        EXPECT_EQ(taken.pass().hasReal, row.type == TextType::Real) << row.text;
        const Json::Value expected = Json(row.text);
        const Json::Value value = ScalarOf(taken.first());
        EXPECT_EQ(value.type(), expected.type()) << row.text;
        EXPECT_EQ(value, expected) << row.text;
        EXPECT_EQ(TreeOf(taken.first()), expected) << row.text;
    }
}

TEST(TextEntry, GivesRealsToTheLastBit) {
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"0.1",                                           0x1.999999999999ap-4  },
        {"-1.5e-7",                                       -0x1.421f5f40d8376p-23},
        {"9007199254740993.0",                            0x1p53                },
        {"9007199254740993.0000000000000000000000000001", 0x1.0000000000001p53  },
        {"1.7976931348623157e99",                         1.7976931348623157e99 },
        {"2.2250738585072014e-99",                        2.2250738585072014e-99},
        {"0.30000000000000004",                           0x1.3333333333334p-2  },
    };
    for (const auto& row : rows) {
        const Taken taken(InArray(row.text));
        ASSERT_EQ(taken.first().type, TextType::Real) << row.text;
        EXPECT_EQ(taken.first().real, row.value) << row.text;
    }
    const Taken negativeZero("[-0.0]");
    EXPECT_TRUE(std::signbit(negativeZero.first().real));
}

TEST(TextEntry, WhatIsNeitherNumberNorBoolIsNoScalar) {
    EXPECT_EQ(ScalarOf(Taken("[true]").first()), Json::Value(true));
    EXPECT_EQ(ScalarOf(Taken("[false]").first()), Json::Value(false));
    for (const char* text : {"null", "\"\"", "\"1\"", "\"\\n\"", "[]", "[1]", "{}", "{\"a\":1}"}) {
        EXPECT_TRUE(ScalarOf(Taken(InArray(text)).first()).isNull()) << text;
    }
}

/// Into a buffer of just the bytes that it may take, under the address sanitizer.
std::string Unescaped(const std::string& text) {
    const Taken taken('"' + text + '"');
    EXPECT_EQ(taken.root().type, TextType::EscapedText) << text;
    EXPECT_EQ(taken.root().size, text.size()) << text;
    std::vector<char> buffer(taken.root().size);
    const std::size_t size = Unescape(taken.root(), buffer.data());
    EXPECT_LE(size, buffer.size());
    return {buffer.data(), size};
}

TEST(Unescape, DecodesEveryEscape) {
    EXPECT_EQ(Unescaped(R"(\"\\\/\b\f\n\r\t)"), "\"\\/\b\f\n\r\t");
    EXPECT_EQ(Unescaped(R"(a\\n)"), "a\\n");
    EXPECT_EQ(Unescaped(R"(\\\\)"), "\\\\");
    EXPECT_EQ(Unescaped(R"(路\/口)"), "路/口");
    EXPECT_EQ(Unescaped(R"(\u0041B\u004a\u004A)"), "ABJJ");
    EXPECT_EQ(Unescaped(R"(\u00001)"), std::string("\0001", 2));
}

TEST(Unescape, DecodesNumberedCharactersAtTheBordersOfTheirLengths) {
    const struct {
        const char* text;
        const char* utf8;
    } rows[] = {
        {R"(\u0001)",       "\x01"            },
        {R"(\u007F)",       "\x7F"            },
        {R"(\u0080)",       "\xC2\x80"        },
        {R"(\u07FF)",       "\xDF\xBF"        },
        {R"(\u0800)",       "\xE0\xA0\x80"    },
        {R"(\uD7FF)",       "\xED\x9F\xBF"    },
        {R"(\uE000)",       "\xEE\x80\x80"    },
        {R"(\uFFFF)",       "\xEF\xBF\xBF"    },
        {R"(\uD800\uDC00)", "\xF0\x90\x80\x80"},
        {R"(\uD800\uDFFF)", "\xF0\x90\x8F\xBF"},
        {R"(\ud83d\ude00)", "😀"            },
        {R"(\uDBFF\uDC00)", "\xF4\x8F\xB0\x80"},
        {R"(\uDBFF\uDFFF)", "\xF4\x8F\xBF\xBF"},
    };
    for (const auto& row : rows) EXPECT_EQ(Unescaped(row.text), row.utf8) << row.text;
}

TEST(TreeOf, IsTheTreeThatJsoncppMakesOfTheText) {
    for (const char* text : {
             "null",
             "\"\"",
             "\"a\"",
             "\"a\\u00e9\\n\"",
             "[]",
             "{}",
             "[[]]",
             "[{}]",
             "{\"a\":[]}",
             "{\"\":{}}",
             "[1,[2,[3,[4,{\"a\":[5,{\"b\":6}]}]]],7]",
             "{\"b\":1,\"a\":2,\"c\":{\"b\":[true,null,\"x\",1.5]}}",
             "{\"a\":1,\"b\":2,\"a\":[3]}",
             "{\"a\":[1,2],\"a\":{\"b\":[]}}",
             "[\"\\\"\",\"\\\\\",\"\"]",
         }) {
        EXPECT_EQ(testing_tools::Text(TreeOf(Taken(InArray(text)).first())), testing_tools::Text(Json(text))) << text;
    }
}

TEST(TreeOf, TakesNoStackForDepth) {
    const std::string text = std::string(999, '[') + std::string(999, ']');
    Json::Value tree = TreeOf(Taken(text, 1000).root());
    for (int depth = 1; depth < 999; ++depth) {
        ASSERT_EQ(tree.size(), 1U);
        Json::Value inner;
        inner.swap(tree[0]);
        tree.swap(inner);
    }
    EXPECT_EQ(tree, Json("[]"));
}

TEST(TreeOf, HasTextsWithNulsWhole) {
    const Json::Value tree = TreeOf(Taken(R"(["a\u0000b", "\u0000"])").root());
    EXPECT_EQ(tree[0].asString(), std::string("a\0b", 3));
    EXPECT_EQ(tree[1].asString(), std::string(1, '\0'));
}

// Short ones are quotients of integers, others go through the standard library.
TEST(TextEntry, DecimalsOfAnyLengthAreTheNearestDouble) {
    unsigned long random = 12345;
    for (int i = 0; i < 20000; ++i) {
        std::string text = i % 3 == 0 ? "-" : "";
        const int whole = 1 + i % 7;
        const int fraction = 1 + i / 7 % 16;
        for (int digit = 0; digit < whole + fraction; ++digit) {
            if (digit == whole) text += '.';
            random = random * 6364136223846793005U + 1442695040888963407U;
            const bool isFirst = digit == 0 && whole > 1;
            text += static_cast<char>('0' + (isFirst ? 1 + (random >> 33) % 9 : (random >> 33) % 10));
        }
        const Taken taken(InArray(text));
        ASSERT_EQ(taken.first().type, TextType::Real) << text;
        double expected = 0;
        std::istringstream stream(text);
        stream.imbue(std::locale::classic());  // strtod would go by the program's
        stream >> expected;
        ASSERT_EQ(taken.first().real, expected) << text;
        ASSERT_EQ(std::signbit(taken.first().real), std::signbit(expected)) << text;
    }
}

}  // namespace

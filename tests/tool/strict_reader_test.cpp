#include "tools/jsonparser/strict_reader.h"

#include <gtest/gtest.h>
#include <json/reader.h>

#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "testing/json.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using testing_tools::HostileValues;
using testing_tools::Text;
using tool::Finding;
using tool::NameOffset;
using tool::ReadStrictly;

constexpr int kDepth = 64;

/// The value of a text that must be read.
Json::Value Read(std::string_view text) {
    Json::Value value = "not read";
    const std::optional<Finding> defect = ReadStrictly(text, kDepth, value);
    EXPECT_FALSE(defect) << text << ": " << defect->text;
    return value;
}

/// The text that a value's offsets name.
std::string_view Source(std::string_view text, const Json::Value& value) {
    const auto start = static_cast<std::size_t>(value.getOffsetStart());
    return text.substr(start, static_cast<std::size_t>(value.getOffsetLimit()) - start);
}

TEST(ReadStrictly, ReadsEveryKindOfValue) {
    EXPECT_EQ(Read("null"), Json::Value());
    EXPECT_EQ(Read(" true\n"), Json::Value(true));
    EXPECT_EQ(Read("false"), Json::Value(false));
    EXPECT_EQ(Read("\"\""), Json::Value(""));
    EXPECT_EQ(Read("{}"), Json::Value(Json::objectValue));
    EXPECT_EQ(Read("[]"), Json::Value(Json::arrayValue));
    EXPECT_EQ(Text(Read(R"({"b": [1, {"c": null}], "a": "x"})")), R"({"a":"x","b":[1,{"c":null}]})");
}

TEST(ReadStrictly, ReadsTextsWithEscapesAndNul) {
    EXPECT_EQ(Read(R"("\"\\\/\b\f\n\r\t\u0041\u4eac\ud83d\ude97")"), Json::Value("\"\\/\b\f\n\r\tA京🚗"));
    EXPECT_EQ(Read(R"("a\u0000b")").asString(), "a\0b"s);
    EXPECT_EQ(Read(R"({"a\u0000b": 1})").getMemberNames(), std::vector<std::string>{"a\0b"s});
    EXPECT_EQ(Read("\"\x7F\"").asString(), "\x7F");
}

TEST(ReadStrictly, KeepsIntegersOf64BitsAndMakesRealsOfLargerOnes) {
    const struct {
        std::string_view text;
        Json::Value value;
    } cases[] = {
        {"0",                    Json::Value(0)                                       },
        {"-0",                   Json::Value(0)                                       },
        {"2147483648",           Json::Value(Json::Int64{2147483648})                 },
        {"9223372036854775807",  Json::Value(std::numeric_limits<Json::Int64>::max()) },
        {"-9223372036854775808", Json::Value(std::numeric_limits<Json::Int64>::min()) },
        {"9223372036854775808",  Json::Value(Json::UInt64{9223372036854775808U})      },
        {"18446744073709551615", Json::Value(std::numeric_limits<Json::UInt64>::max())},
        {"18446744073709551616", Json::Value(18446744073709551616.0)                  },
        {"-9223372036854775809", Json::Value(-9223372036854775809.0)                  },
        {"1.0",                  Json::Value(1.0)                                     },
        {"1e2",                  Json::Value(100.0)                                   },
        {"-1.5E-3",              Json::Value(-0.0015)                                 },
        {"1e-400",               Json::Value(0.0)                                     }
    };
    for (const auto& [text, value] : cases) {
        const Json::Value read = Read(text);
        EXPECT_EQ(read.type(), value.type()) << text;
        EXPECT_EQ(read, value) << text;
    }
    EXPECT_TRUE(std::signbit(Read("-0.0").asDouble()));
}

TEST(ReadStrictly, TakesTheLastOfMembersWithTheSameName) {
    EXPECT_EQ(Text(Read(R"({"a": {"b": 1, "c": 2}, "a": {"b": 3}})")), R"({"a":{"b":3}})");
    EXPECT_EQ(Text(Read(R"({"a": [1, 2, 3], "a": [4]})")), R"({"a":[4]})");
    EXPECT_EQ(Text(Read(R"({"a": {"b": 1}, "a": 5, "\u0061": null})")), R"({"a":null})");
}

/// What jsoncpp's own reader makes of a text.
Json::Value ReadByJsoncpp(const std::string& text) {
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    Json::Value value;
    std::string errors;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    EXPECT_TRUE(reader->parse(text.data(), text.data() + text.size(), &value, &errors)) << text << errors;
    return value;
}

void ExpectSameTypes(const Json::Value& a, const Json::Value& b, const std::string& text) {
    ASSERT_EQ(a.type(), b.type()) << text;
    ASSERT_EQ(a.size(), b.size()) << text;
    if (a.isArray()) {
        for (Json::ArrayIndex i = 0; i < a.size(); ++i) ExpectSameTypes(a[i], b[i], text);
    } else if (a.isObject()) {
        for (const std::string& name : a.getMemberNames()) ExpectSameTypes(a[name], b[name], text);
    }
}

TEST(ReadStrictly, BuildsTheTreeThatJsoncppsReaderBuilds) {
    std::size_t read = 0;
    for (const Json::Value& value : HostileValues()) {
        const std::string text = Text(value);
        Json::Value strict;
        if (ReadStrictly(text, 1000, strict)) continue;  // not UTF-8, NaN
        const Json::Value other = ReadByJsoncpp(text);
        EXPECT_EQ(strict, other) << text;
        ExpectSameTypes(strict, other, text);
        ++read;
    }
    EXPECT_GT(read, HostileValues().size() / 2);
}

TEST(ReadStrictly, GivesEveryValueThePlaceOfItsText) {
    constexpr std::string_view kText =
        "\n{ \"a\" : [ 1 ,-2.5e3, \"x\\\"\" ,null],\"b\":{}, \"c\":{\"d\":true,\"e\":[ ]} ,\"f\":0}\n";
    const Json::Value root = Read(kText);
    EXPECT_EQ(Source(kText, root), kText.substr(1, kText.size() - 2));
    EXPECT_EQ(Source(kText, root["a"]), "[ 1 ,-2.5e3, \"x\\\"\" ,null]");
    EXPECT_EQ(Source(kText, root["a"][0]), "1");
    EXPECT_EQ(Source(kText, root["a"][1]), "-2.5e3");
    EXPECT_EQ(Source(kText, root["a"][2]), "\"x\\\"\"");
    EXPECT_EQ(Source(kText, root["a"][3]), "null");
    EXPECT_EQ(Source(kText, root["b"]), "{}");
    EXPECT_EQ(Source(kText, root["c"]), "{\"d\":true,\"e\":[ ]}");
    EXPECT_EQ(Source(kText, root["c"]["d"]), "true");
    EXPECT_EQ(Source(kText, root["c"]["e"]), "[ ]");
    EXPECT_EQ(Source(kText, root["f"]), "0");
    for (const std::string_view number : {"0"sv, "12"sv, "-1.5e-7"sv}) EXPECT_EQ(Source(number, Read(number)), number);
}

TEST(ReadStrictly, LeavesNullWhereTextIsNoDocument) {
    Json::Value value = 1;
    EXPECT_TRUE(ReadStrictly("[1, 2", kDepth, value));
    EXPECT_TRUE(value.isNull());
}

TEST(ReadStrictly, BoundsTheDepthWithoutRecursion) {
    Json::Value value;
    EXPECT_FALSE(ReadStrictly("[{\"a\": [1]}, [[]]]", 3, value));
    const std::optional<Finding> defect = ReadStrictly("[{\"a\": [1]}, [[], {\"~/\": {\"b\": {}}}]]", 4, value);
    ASSERT_TRUE(defect);
    EXPECT_EQ(defect->path, "/1/1/~0~1/b");
    EXPECT_EQ(defect->offset, 31U);
    EXPECT_EQ(defect->text, "found an object inside 4 others, expected at most 4 levels (see --max-depth)");
    EXPECT_TRUE(ReadStrictly(std::string(10'000'000, '['), 1000, value));
}

TEST(ReadStrictly, DoesNotReadBehindTheText) {
    // Every beginning of a document in memory of exactly its size: a sanitizer sees one byte more.
    constexpr std::string_view kText =
        "\xEF\xBB\xBF{\"a\\u00e4\\ud83d\\ude97京\": [-1.5e+7, true, false, null, \"\\n\"]} ";
    for (std::size_t begin = 0; begin < kText.size(); ++begin) {
        for (std::size_t size = 0; size <= kText.size() - begin; ++size) {
            const std::vector<char> memory(kText.begin() + begin, kText.begin() + begin + size);
            Json::Value value;
            const std::optional<Finding> defect = ReadStrictly({memory.data(), memory.size()}, kDepth, value);
            EXPECT_TRUE(!defect || defect->offset <= size) << size;
        }
    }
}

TEST(ReadStrictly, NamesPlacePathAndDefectOfEveryOneByteChange) {
    constexpr std::string_view kText = R"({"a": [1.5, "x\u0041"], "b": {"c": null}})";
    for (std::size_t at = 0; at < kText.size(); ++at) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string text(kText);
            text[at] = static_cast<char>(byte);
            Json::Value value;
            const std::optional<Finding> defect = ReadStrictly(text, kDepth, value);
            if (!defect) continue;
            EXPECT_TRUE(defect->text.starts_with("found ")) << text;
            EXPECT_NE(defect->text.find(", expected "), std::string::npos) << text;
            EXPECT_LE(defect->offset, text.size()) << text;
            EXPECT_TRUE(defect->path.empty() || defect->path.front() == '/') << text;
        }
    }
}

TEST(NameOffset, FindsTheNameInFrontOfAValue) {
    constexpr std::string_view kText = R"({"a": 1, "b\"\\" :  [2], "\\\"": 3})";
    const Json::Value root = Read(kText);
    const auto nameOf = [&](const char* name) {
        return NameOffset(kText, static_cast<std::size_t>(root[name].getOffsetStart()));
    };
    EXPECT_EQ(nameOf("a"), 1U);
    EXPECT_EQ(nameOf("b\"\\"), 9U);
    EXPECT_EQ(nameOf("\\\""), 25U);
}

TEST(NameOffset, IsTheValuesOwnWhereNoNameIs) {
    EXPECT_EQ(NameOffset("[1, 2]", 4), 4U);
    EXPECT_EQ(NameOffset("1", 0), 0U);
    EXPECT_EQ(NameOffset("", 0), 0U);
    EXPECT_EQ(NameOffset("", 7), 7U);
    EXPECT_EQ(NameOffset(R"({'a': 1})", 6), 6U);
    EXPECT_EQ(NameOffset(R"(" : 1)", 4), 4U);
    EXPECT_EQ(NameOffset(R"({"a": /* one */ 1})", 16), 16U);
}

}  // namespace

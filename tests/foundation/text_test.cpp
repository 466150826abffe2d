#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <new>
#include <string>

#include "testing/json.h"
#include "testing/locale.h"
#include "vkprotocolstack/JsonParser.h"

namespace {

thread_local bool outOfMemory = false;

/// While it lives, the calling thread gets no memory from non-throwing array allocations.
struct OutOfMemory {
    OutOfMemory() { outOfMemory = true; }
    ~OutOfMemory() { outOfMemory = false; }
    OutOfMemory(const OutOfMemory&) = delete;
    OutOfMemory& operator=(const OutOfMemory&) = delete;
};

}  // namespace

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return outOfMemory ? nullptr : ::operator new[](size);
}

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Text;
using testing_tools::Utf8Texts;

/// What a destination of size bytes, filled with '#', holds after the reader. Nothing is written beyond it.
std::string Read(const Json::Value& value, int limit, std::size_t size) {
    const std::unique_ptr<char[]> destination(new char[size]);  // of that size exactly: guarded by the sanitizer
    std::string before(size, '#');
    before.copy(destination.get(), size);
    parseUtf8JasonToAssic(value, destination.get(), limit);
    return {destination.get(), size};
}

TEST(ParseUtf8JasonToAssic, TakesTheFirst32BytesOf40AndATerminator) {
    EXPECT_EQ(Read("0123456789abcdefghijklmnopqrstuvwxyzABCD", 32, 40),
              std::string("0123456789abcdefghijklmnopqrstuv\0#######", 40));
}

TEST(ParseUtf8JasonToAssic, WritesTextAndTerminatorAndNoByteMore) {
    struct Row {
        const char* text;
        int limit;
        std::string after;
    };
    const Row rows[] = {
        {"",      4, std::string("\0#######", 8)},
        {"a",     4, std::string("a\0######", 8)},
        {"abc",   4, std::string("abc\0####", 8)},
        {"abcd",  4, std::string("abcd\0###", 8)},
        {"abcde", 4, std::string("abcd\0###", 8)},
        {"abcde", 1, std::string("a\0######", 8)},
        {"abcde", 0, std::string("\0#######", 8)},
        {"",      0, std::string("\0#######", 8)},
    };
    for (const Row& row : rows) EXPECT_EQ(Read(row.text, row.limit, 8), row.after) << row.text << ' ' << row.limit;
}

TEST(ParseUtf8JasonToAssic, TheLimitCountsBytesOfUtf8) {
    const Utf8Texts utf8;
    EXPECT_EQ(Read("京A路", 6, 8), std::string("京A\xE8\xB7\0#", 8));
    EXPECT_EQ(Read("京A路", 7, 8), std::string("京A路\0", 8));
}

TEST(ParseUtf8JasonToAssic, AMissingMemberLeavesTheDestinationUntouched) {
    const Json::Value event = Json(R"({"PlateColor": null})");
    EXPECT_EQ(Read(event["PlateNumber"], 4, 8), "########");
    EXPECT_EQ(Read(event["PlateColor"], 4, 8), "########");
}

TEST(ParseUtf8JasonToAssic, ANegativeLimitLeavesTheDestinationUntouched) {
    EXPECT_EQ(Read("text", -1, 8), "########");
    EXPECT_EQ(Read("text", INT_MIN, 8), "########");
}

TEST(ParseUtf8JasonToAssic, WithoutMemoryForALongTextTheDestinationStaysUntouched) {
    const OutOfMemory scope;
    EXPECT_EQ(Read(std::string(600, 'x'), 600, 601), std::string(601, '#'));
}

TEST(ParseUtf8JasonToAssic, NeedsNoMemoryForAShortText) {
    const OutOfMemory scope;
    EXPECT_EQ(Read("text", 4, 8), std::string("text\0###", 8));
}

TEST(ParseUtf8JasonToAssic, StopsAtAnEmbeddedNul) {
    EXPECT_EQ(Read(std::string("ab\0cd", 5), 5, 8), std::string("ab\0#####", 8));
    EXPECT_EQ(Read(std::string("\0cd", 3), 5, 8), std::string("\0#######", 8));
    EXPECT_EQ(Read(std::string("abcd\0e", 6), 4, 8), std::string("abcd\0###", 8));
}

TEST(ParseUtf8JasonToAssic, OtherValuesAreTakenByTheirText) {
    struct Row {
        const char* json;
        const char* text;
    };
    const Row rows[] = {
        {"true",                 "true"                },
        {"false",                "false"               },
        {"0",                    "0"                   },
        {"-12",                  "-12"                 },
        {"18446744073709551615", "18446744073709551615"},
        {"2.5",                  "2.5"                 },
        {"[\"x\"]",              ""                    },
        {"{\"x\": \"y\"}",       ""                    },
    };
    for (const Row& row : rows) EXPECT_STREQ(Read(Json(row.json), 63, 64).c_str(), row.text) << row.json;
    EXPECT_EQ(Read(-12345, 4, 8), std::string("-123\0###", 8));
}

TEST(ParseUtf8JasonToAssic, NoValueWritesMoreThanLimitBytesAndATerminator) {
    const Utf8Texts utf8;
    for (const Json::Value& value : HostileValues()) {
        for (const int limit : {0, 1, 31, 32, 64, 256}) {
            const auto size = static_cast<std::size_t>(limit) + 1;
            const std::string after = Read(value, limit, size);
            std::string expected(size, '#');
            if (!value.isNull()) {
                const std::string whole = value.isArray() || value.isObject() ? "" : value.asString();
                const std::string taken = whole.substr(0, static_cast<std::size_t>(limit)).c_str();
                expected.replace(0, taken.size() + 1, taken.c_str(), taken.size() + 1);
            }
            ASSERT_EQ(after, expected) << limit;
        }
    }
}

/// The node as JSON text after length bytes of text were written to it.
std::string Written(std::string text, int length, Json::Value node = {}) {
    packetAssicToUtf8Jason(node, text.data(), length);
    return Text(node);
}

TEST(PacketAssicToUtf8Jason, StoresAnEmptyTextForLength0) {
    EXPECT_EQ(Written("text", 0), R"("")");
    EXPECT_EQ(Written("", 0, 7), R"("")");
}

TEST(PacketAssicToUtf8Jason, StoresLengthBytes) {
    const Utf8Texts utf8;
    EXPECT_EQ(Written("text", 1), R"("t")");
    EXPECT_EQ(Written("text", 3), R"("tex")");
    EXPECT_EQ(Written("text", 4), R"("text")");
    EXPECT_EQ(Written("京A·路", 9), R"("京A·路")");
    EXPECT_EQ(Written(std::string(1000, 'x'), 1000), '"' + std::string(1000, 'x') + '"');
}

TEST(PacketAssicToUtf8Jason, StopsAtANul) {
    EXPECT_EQ(Written(std::string("te\0xt", 5), 5), R"("te")");
    EXPECT_EQ(Written(std::string("\0text", 5), 5), R"("")");
    EXPECT_EQ(Written(std::string("text\0\0\0\0", 8), 8), R"("text")");
}

TEST(PacketAssicToUtf8Jason, ReadsNoByteBehindLength) {
    const std::unique_ptr<char[]> field(new char[4]{'f', 'u', 'l', 'l'});
    Json::Value node;
    packetAssicToUtf8Jason(node, field.get(), 4);
    EXPECT_EQ(node, Json::Value("full"));
}

TEST(PacketAssicToUtf8Jason, ReplacesWhateverTheNodeHeld) {
    for (const Json::Value& value : HostileValues()) ASSERT_EQ(Written("text", 4, value), R"("text")");
}

TEST(PacketAssicToUtf8Jason, TakesTheTextOfItsOwnNode) {
    Json::Value node("text of the node itself, longer than any short string");
    std::string alias = node.asString();
    packetAssicToUtf8Jason(node, const_cast<char*>(node.asCString()), static_cast<int>(alias.size()));
    EXPECT_EQ(node, Json::Value(alias));
}

TEST(PacketAssicToUtf8Jason, ANegativeLengthLeavesTheNodeUnchanged) {
    EXPECT_EQ(Written("text", -1, Json("[1]")), "[1]");
    EXPECT_EQ(Written("text", INT_MIN, Json("[1]")), "[1]");
}

TEST(PacketAssicToUtf8Jason, WithoutMemoryTheNodeStaysUnchanged) {
    const OutOfMemory scope;
    EXPECT_EQ(Written("text", 4, Json("[1]")), "[1]");
    EXPECT_EQ(Written("text", 0, Json("[1]")), "[1]");
    EXPECT_EQ(Written("text", (INT_MAX - 2) / 2, Json("[1]")), "[1]");
}

TEST(PacketAssicToUtf8Jason, ALengthOfWhichNoBufferCanBeHadLeavesTheNodeUnchanged) {
    EXPECT_EQ(Written("text", (INT_MAX - 2) / 2 + 1, Json("[1]")), "[1]");
    EXPECT_EQ(Written("text", INT_MAX, Json("[1]")), "[1]");
}

TEST(PacketAssicToUtf8Jason, TheResultTakesAtMostTwiceTheLengthAndAByteMore) {
    const testing_tools::ThreadLocale locale("de_DE.ISO-8859-15");  // one byte for three of UTF-8
    EXPECT_EQ(Written("\xA4\xA4\xA4\xA4", 4), R"("€€€")");
    EXPECT_EQ(Written("\xA4\xA4\xA4\xA4\xA4", 5), R"("€€€")");
    EXPECT_EQ(Written("\xA4\xA4\xA4\xA4\xA4\xA4\xA4", 7), R"("€€€€€")");
}

}  // namespace

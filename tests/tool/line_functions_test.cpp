#include "tools/jsonparser/line_functions.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "tools/jsonparser/explain.h"
#include "tools/jsonparser/finding.h"
#include "tools/jsonparser/record_buffer.h"
#include "tools/jsonparser/record_form.h"
#include "vkprotocolstack/support/support.h"

namespace {

using tool::CatalogueEntry;

/// What a line becomes: its output and its findings.
struct Result {
    std::string output;
    std::string findings;
    bool good = true;

    bool operator==(const Result&) const = default;
};

void PrintTo(const Result& result, std::ostream* out) {
    *out << (result.good ? "good: " : "bad: ") << result.output << result.findings;
}

Result FromLines(const CatalogueEntry& entry, const std::string& at, bool strict, const tool::ReadingOptions& reading,
                 const std::string& line) {
    static const std::string kFile = "-";
    Result result;
    const tool::LineFunction decode = DecodeLine(entry, at, strict, reading);
    result.good = (decode.attempt && decode.attempt(line, result.output)) ||
                  decode.convert({kFile, 7}, line, result.output, result.findings);
    return result;
}

/// The same as plain decode makes it: by way of a tree.
Result FromTree(const CatalogueEntry& entry, const std::string& at, bool strict, const tool::ReadingOptions& reading,
                const std::string& line) {
    Result result;
    std::string text = line;
    std::vector<tool::Finding> findings;
    Json::Value root;
    Json::Value* node = ParseDocument(text, reading, root, findings) ? ValueAt(root, at, findings) : nullptr;
    if (node != nullptr) {
        tool::RecordBuffer record(*entry.layout);
        record.lendBuffers();
        if (DecodeWithFindings(entry, {text, *node, at}, strict, record.bytes(), findings)) {
            tool::AppendRecordLine(result.output, *entry.layout, record.bytes());
        }
    }
    result.good = findings.empty();
    for (tool::Finding& finding : findings) {
        if (finding.offset == tool::Finding::kNowhere) finding.offset = 0;
    }
    result.findings = tool::Described("-", text, findings, 7);
    return result;
}

std::string Repeated(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

/// A file of the sample messages on one line.
std::string Sample(const std::string& file) {
    std::ifstream in(JSONPARSER_MESSAGES "/" + file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(in), {}};
    EXPECT_FALSE(text.empty()) << file;
    for (char& c : text) {
        if (c == '\n') c = ' ';
    }
    return text;
}

/// Messages that readers could take in different ways.
std::vector<std::string> HostileLines() {
    using namespace std::string_literals;
    std::vector<std::string> lines = {
        // values of every type, and borders of numbers
        "null",
        "true",
        "0",
        "-0",
        "-0.0",
        "1e5",
        "1e99",
        "1e100",
        "1e-99",
        "1e-400",
        "1e400",
        "1.5",
        "2147483648",
        "-2147483649",
        "9223372036854775807",
        "9223372036854775808",
        "18446744073709551615",
        "18446744073709551616",
        Repeated(90, "9"),
        Repeated(110, "9"),
        "0." + Repeated(200, "3"),
        "[]",
        "{}",
        R"("")",
        R"("Blue")",
        R"("2024-01-05 09:30:00")",
        "[1, 2]",
        "[1, 2, 3, 4]",
        "[1, 2, 3]",
        R"([1, "2"])",
        R"(["1 08:00:00-17:30:00"])",
        // no JSON
        "",
        "[",
        "{",
        "]",
        "[1, 2",
        "[1, 2,]",
        R"({"Speed": })",
        R"({"Speed": 1,})",
        "01",
        "+1",
        "1.",
        ".5",
        "1e",
        "nul",
        "NaN",
        "'a'",
        R"("a)",
        R"("\x")",
        R"("\u12")",
        "\"\x01\"",
        "\"\t\"",
        "[1] 2",
        "[1, 2] // no",
        "/* no */ [1, 2]",
        "[1, 2]\0"s,
        "\0[1, 2]"s,
        "\xEF\xBB\xBF[1, 2]",
        "\xEF\xBB\xBF",
        "\xFF\xFE[\0"s,
        "[\0001\0]\0"s,
        "\0[\0]"s,
        // texts
        "\"\xFF\"",
        "\"\xC3\"",
        "\"\xED\xA0\x80\"",
        R"("\ud800")",
        R"("\udc00")",
        R"("\ud83d\ude00")",
        R"("\u0000")",
        "{\"\xFF\": 1}",
        R"({"a\u0000b": 1})",
        R"({"Pl\u0061teNumber": "A"})",
        R"({"PlateNumber": "\u0041"})",
        R"({"PlateNumber": "a\u0000b"})",
        R"({"PlateNumber": "京A"})",
        // duplicates
        R"({"Speed": 1, "Speed": 2})",
        R"({"Speed": 2, "Speed": "x"})",
        R"({"Speed": 1, "Sp\u0065ed": 3})",
        R"({"Speed": {"a": 1}, "Speed": 4})",
        // wrong types
        R"({"PlateNumber": 5, "Speed": "87", "Lane": [1], "PlateColor": {"a": 1}, "UTC": 1e30})",
        R"({"Image": {"FilePath": 3}, "Rect": [1], "Center": "x", "Age": -1, "Birthday": "1990"})",
        // deep and wide
        Repeated(63, "[") + Repeated(63, "]"),
        Repeated(64, "[") + Repeated(64, "]"),
        Repeated(65, "[") + Repeated(65, "]"),
        Repeated(64, "[") + '1' + Repeated(64, "]"),
        Repeated(63, "[") + '1' + Repeated(63, "]"),
        Repeated(63, R"({"a":)") + "1" + Repeated(63, "}"),
        Repeated(64, R"({"a":)") + "{}" + Repeated(64, "}"),
        Repeated(100, "["),
        '[' + Repeated(1000, "[],") + "1]",
        '[' + Repeated(1000, "1,") + "1]",
        '{' + Repeated(300, R"("a":1,)") + R"("Speed":3})",
        '"' + Repeated(1000, "x") + '"',
        R"({")" + Repeated(70000, "n") + R"(": 1, "Speed": 5})",
        // --at
        R"({"a": {"b~/": [[1, 2], [3, 4]]}})",
        R"({"a": {"b~/": 5}})",
        R"({"a": {"b~/": []}, "a": 3})",
        R"({"": {"": [1, 2]}})",
    };
    std::ifstream index(JSONPARSER_MESSAGES "/index.txt");
    std::set<std::string> files;
    for (std::string row; std::getline(index, row);) {
        if (!row.starts_with('#')) files.insert(row.substr(0, row.find(' ')));
    }
    for (const std::string& file : files) {
        const std::string line = Sample(file);
        lines.push_back(line);
        lines.push_back(line.substr(0, line.size() / 2));
        lines.push_back(line + "x");
        lines.push_back("/* */" + line);
    }
    return lines;
}

void ExpectTheSame(const CatalogueEntry& entry, const std::string& at, const std::string& line, bool strict = false,
                   int depth = tool::kMaximumDepth) {
    for (const bool lenient : {false, true}) {
        const tool::ReadingOptions reading = {.lenient = lenient, .maximumDepth = depth};
        ASSERT_EQ(FromLines(entry, at, strict, reading, line), FromTree(entry, at, strict, reading, line))
            << entry.name << " at " << at << (strict ? ", strict" : "") << (lenient ? ", lenient" : "") << ", depth "
            << depth << ": " << line;
    }
}

TEST(DecodeLine, GivesWhatPlainDecodeGivesForEverySample) {
    std::ifstream index(JSONPARSER_MESSAGES "/index.txt");
    std::size_t samples = 0;
    for (std::string row; std::getline(index, row);) {
        if (row.starts_with('#')) continue;
        std::istringstream columns(row);
        std::string file;
        std::string record;
        std::string at;
        columns >> file >> record >> at;
        std::vector<std::string> alternatives;
        const CatalogueEntry* entry = tool::FindEntry(record, alternatives);
        ASSERT_NE(entry, nullptr) << record;
        const std::string line = Sample(file);
        EXPECT_FALSE(FromLines(*entry, at, false, {}, line).output.empty()) << row;
        // Numbers of 10 to the 100 and more are for the slower reader.
        std::string output;
        EXPECT_EQ(DecodeLine(*entry, at, false, {}).attempt(line, output), file != "traffic_violation.json") << row;
        for (const bool strict : {false, true}) {
            for (const int depth : {1, 4, 64, 1000}) ExpectTheSame(*entry, at, line, strict, depth);
        }
        ++samples;
    }
    EXPECT_GE(samples, 30U);
}

TEST(DecodeLine, GivesWhatPlainDecodeGivesForHostileLines) {
    const std::vector<std::string> lines = HostileLines();
    for (const CatalogueEntry& entry : tool::Catalogue()) {
        if (entry.decode == nullptr) continue;
        for (const std::string& line : lines) ExpectTheSame(entry, "", line);
    }
}

TEST(DecodeLine, GivesWhatPlainDecodeGivesAtAnyPlace) {
    std::vector<std::string> alternatives;
    const CatalogueEntry* entry = tool::FindEntry("VK_POINT", alternatives);
    ASSERT_NE(entry, nullptr);
    std::string deep;
    for (int i = 0; i < 70; ++i) deep += "/a";
    for (const std::string& at :
         {std::string("/a"), std::string("/a/b~0~1/1"), std::string("/a/b~0~1/01"), std::string("/a/b~0~1/2"),
          std::string("/a/b~0~1/-"), std::string("//"), std::string("/"), std::string("/a/b"), std::string("/0"),
          std::string("/1/0"), deep}) {
        for (const std::string& line : HostileLines()) ExpectTheSame(*entry, at, line);
    }
}

TEST(DecodeLine, GivesWhatPlainDecodeGivesAtAnyDepth) {
    std::vector<std::string> alternatives;
    const CatalogueEntry* entry = tool::FindEntry("trafficcar", alternatives);
    ASSERT_NE(entry, nullptr);
    for (const std::string& line : HostileLines()) {
        for (const int depth : {1, 2, 63, 64, 65, 1000}) ExpectTheSame(*entry, "", line, false, depth);
    }
}

TEST(DecodeLine, TakesEveryRecordFromTheTextAlone) {
    for (const CatalogueEntry& entry : tool::Catalogue()) {
        // A word's converter takes the word, and no node.
        const std::set<std::string_view> words = {"SeatBelt/exact", "ObjectAction", "StorageError", "RaidError",
                                                  "Resolution"};
        EXPECT_EQ(entry.decodeText != nullptr, entry.decode != nullptr && !words.contains(entry.name)) << entry.name;
    }
}

// ---- what converters tell the trace

void Trace(const char* message) {
    SetBasicInfo("source.cpp", 7, 1);
    SDKLogTraceOut(0, message);
}

/// An entry whose converters say something of each record.
CatalogueEntry Talkative() {
    std::vector<std::string> alternatives;
    CatalogueEntry entry = *tool::FindEntry("VK_POINT", alternatives);
    static const CatalogueEntry kPoint = entry;
    entry.decode = [](Json::Value& node, void* record) {
        Trace("read \x1b");
        return kPoint.decode(node, record);
    };
    entry.decodeText = [](const jsonparser::MessagePlace& place, void* record) {
        Trace("read \x1b");
        return kPoint.decodeText(place, record);
    };
    entry.encode = [](const void* record, Json::Value& node) {
        for (const char* message : {"written", "twice", "written"}) Trace(message);
        return kPoint.encode(record, node);
    };
    return entry;
}

/// What DecodeLine or EncodeLine makes of a line, and what reaches standard error.
Result Converted(const tool::LineFunction& function, const std::string& line) {
    static const std::string kFile = "-";
    Result result;
    testing::internal::CaptureStderr();
    result.good = (function.attempt && function.attempt(line, result.output)) ||
                  function.convert({kFile, 7}, line, result.output, result.findings);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    return result;
}

TEST(TraceOfConverters, IsARemarkOnALineThatIsDecoded) {
    const CatalogueEntry entry = Talkative();
    for (const bool strict : {false, true}) {
        EXPECT_EQ(Converted(DecodeLine(entry, "", strict, {}), "[1, 2]"),
                  (Result{"{\"nx\":1,\"ny\":2}\n", "jsonparser: <stdin>:7: remark: read \\x1b\n", true}));
    }
}

TEST(TraceOfConverters, StandsBesideTheFindingsOfALineThatIsDecoded) {
    const CatalogueEntry entry = Talkative();
    const Result result = Converted(DecodeLine(entry, "", false, {}), "[1]");
    EXPECT_FALSE(result.good);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.findings,
              "jsonparser: <stdin>:7:1: /: found an array of 1, expected a whole VK_POINT\n"
              "    7 | [1]\n      | ^\n"
              "jsonparser: <stdin>:7: remark: read \\x1b\n");
}

TEST(TraceOfConverters, IsARemarkOnALineThatIsEncodedEachMessageOnce) {
    const CatalogueEntry entry = Talkative();
    EXPECT_EQ(
        Converted(EncodeLine(entry, {}), R"({"nx": 1, "ny": 2})"),
        (Result{"[1,2]\n", "jsonparser: <stdin>:7: remark: written\njsonparser: <stdin>:7: remark: twice\n", true}));
}

TEST(TraceOfConverters, IsCollectedByEachThreadForItself) {
    const CatalogueEntry entry = Talkative();
    const tool::LineFunction encode = EncodeLine(entry, {});
    const tool::LineFunction decode = DecodeLine(entry, "", false, {});
    const Result encoded = Converted(encode, "{}");
    const Result decoded = Converted(decode, "[1, 2]");
    static const std::string kFile = "-";
    std::vector<std::thread> threads;
    std::atomic<int> wrong = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&, i] {
            for (int line = 0; line < 500; ++line) {
                Result result;
                if (i % 2 == 0) {
                    encode.convert({kFile, 7}, "{}", result.output, result.findings);
                } else {
                    decode.convert({kFile, 7}, "[1, 2]", result.output, result.findings);
                }
                wrong += result == (i % 2 == 0 ? encoded : decoded) ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_NE(encoded, decoded);
}

}  // namespace

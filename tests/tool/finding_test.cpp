#include "tools/jsonparser/finding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "testing/json.h"

namespace {

using namespace std::string_literals;
using testing_tools::HostileValues;
using tool::Described;
using tool::Finding;
using tool::PointerStep;
using tool::PointerSteps;
using tool::Shown;

/// The finding's excerpt: the two lines below it.
std::string ExcerptAt(std::string_view text, std::size_t offset) {
    const std::string all = Described("f", text,
                                      {
                                          {offset, "", "found"}
    });
    return all.substr(all.find('\n') + 1);
}

TEST(Described, NamesFileLineColumnAndPath) {
    EXPECT_EQ(Described("m.json", "{\n  \"a\": x}",
                        {
                            {9, "/a", "found 'x', expected a value"}
    }),
              "jsonparser: m.json:2:8: /a: found 'x', expected a value\n"
              "    2 |   \"a\": x}\n"
              "      |        ^\n");
    EXPECT_EQ(Described("-", "",
                        {
                            {Finding::kNowhere, "", "found more"}
    }),
              "jsonparser: <stdin>: found more\n");
}

TEST(Described, SortsByPlace) {
    const std::string all = Described("f", "ab\ncd",
                                      {
                                          {4, "", "three"},
                                          {0, "", "one"  },
                                          {1, "", "two"  },
                                          {0, "", "uno"  }
    });
    std::vector<std::size_t> at;
    for (const char* text : {": one\n", ": uno\n", ": two\n", ": three\n"}) at.push_back(all.find(text));
    EXPECT_TRUE(std::is_sorted(at.begin(), at.end()));
    EXPECT_NE(at.back(), std::string::npos);
}

TEST(Described, GivesARemarkOneLine) {
    const std::vector<Finding> findings = {
        {Finding::kNowhere, "",                  "remark: of the document", true},
        {4,                 "/a",                "found"                  },
        {0,               "", "remark: of a line",                      true    }
    };
    EXPECT_EQ(Described("a.json", "{\n\n\n1}", findings, 10),
              "jsonparser: a.json:10: remark: of a line\n"
              "jsonparser: a.json:13:1: /a: found\n"
              "   13 | 1}\n"
              "      | ^\n"
              "jsonparser: a.json: remark: of the document\n");
}

TEST(HasDefects, CountsNoRemarks) {
    EXPECT_FALSE(tool::HasDefects({}));
    EXPECT_FALSE(tool::HasDefects({
        {0, "", "remark", true}
    }));
    EXPECT_TRUE(tool::HasDefects({
        {0, "", "remark", true},
        {0, "",   "found"        }
    }));
}

TEST(Described, EscapesWhatATerminalWouldObey) {
    const std::string all = Described("f\x1B[2J\n", "\x1B[31m\x07\x9B",
                                      {
                                          {0, "/\x1B]0;x\n", "found"}
    });
    EXPECT_EQ(all.find('\x1B'), std::string::npos);
    EXPECT_EQ(all.find('\x07'), std::string::npos);
    EXPECT_EQ(all.find('\x9B'), std::string::npos);
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 3);
    EXPECT_NE(all.find(R"(| \x1b[31m\x07\x9b)"), std::string::npos) << all;
}

TEST(Described, PointsAtCharactersOfEveryWidth) {
    EXPECT_EQ(ExcerptAt("\t\tx", 2), "    1 |                 x\n      |                 ^\n");
    EXPECT_EQ(ExcerptAt("a\tx", 2), "    1 | a       x\n      |         ^\n");
    EXPECT_EQ(ExcerptAt("京Ax", 4), "    1 | 京Ax\n      |    ^\n");
    EXPECT_EQ(ExcerptAt("e\xCC\x81x", 3), "    1 | e\xCC\x81x\n      |  ^\n");
    EXPECT_EQ(ExcerptAt("\xFFx", 1), "    1 | \\xffx\n      |     ^\n");
    EXPECT_EQ(ExcerptAt("\"\\x", 2), "    1 | \"\\x\n      |   ^\n");
}

TEST(Described, PointsBehindTheEndOfALine) {
    EXPECT_EQ(ExcerptAt("[1", 2), "    1 | [1\n      |   ^\n");
    EXPECT_EQ(ExcerptAt("[1\n", 3), "    2 | \n      | ^\n");
    EXPECT_EQ(ExcerptAt("[1\r\n2", 2), "    1 | [1\n      |   ^\n");
    EXPECT_EQ(ExcerptAt("", 0), "    1 | \n      | ^\n");
    EXPECT_EQ(ExcerptAt("x", 99), "    1 | x\n      |  ^\n");
}

TEST(Described, ShowsAWindowOfALongLine) {
    const std::string line = std::string(100, 'a') + 'X' + std::string(100, 'b');
    EXPECT_EQ(ExcerptAt(line, 100), "    1 | ..." + std::string(40, 'a') + "X" + std::string(35, 'b') +
                                        "...\n      | " + std::string(43, ' ') + "^\n");
    EXPECT_EQ(ExcerptAt(line, 0), "    1 | " + std::string(76, 'a') + "...\n      | ^\n");
    EXPECT_EQ(ExcerptAt(line, 200), "    1 | ..." + std::string(41, 'b') + "\n      | " + std::string(43, ' ') + "^\n");
    EXPECT_EQ(ExcerptAt(std::string(76, 'a'), 75),
              "    1 | " + std::string(76, 'a') + "\n      | " + std::string(75, ' ') + "^\n");
}

TEST(Described, NeverShowsMoreThanTheWindow) {
    std::string text;
    for (int i = 0; i < 400; ++i) text += i % 3 == 0 ? "京" : i % 3 == 1 ? "\t" : "\xF0\x9F";
    for (std::size_t offset = 0; offset <= text.size(); offset += 7) {
        const std::string excerpt = ExcerptAt(text, offset);
        const std::string caret = excerpt.substr(excerpt.find('\n') + 1);
        EXPECT_LE(caret.size(), 8U + 3 + 76 + 2) << offset;
        EXPECT_EQ(caret.back(), '\n');
        EXPECT_EQ(caret[caret.size() - 2], '^');
    }
}

TEST(Described, TakesOneWalkForManyFindings) {
    const std::string text(10'000'000, 'a');  // one line
    std::vector<Finding> findings;
    for (std::size_t i = 0; i < 10'000; ++i) findings.push_back({i * 1000, "", "found"});
    const std::string all = Described("f", text, findings);
    EXPECT_NE(all.find("f:1:9999001: "), std::string::npos);
}

TEST(PlacesOf, TakesOneWalkForManyOffsetsInAnyOrder) {
    const std::string text = "\n" + std::string(1'000'000, 'a');
    std::vector<std::size_t> offsets;
    for (std::size_t i = text.size(); i > 0; --i) offsets.push_back(i);
    const std::vector<tool::Place> places = tool::PlacesOf(text, offsets);
    ASSERT_EQ(places.size(), offsets.size());
    for (std::size_t i = 0; i < offsets.size(); i += 1000) {
        ASSERT_EQ(places[i].line, 2U);
        ASSERT_EQ(places[i].column, offsets[i]);
    }
}

TEST(PlacesOf, CountsLinesAndCharacters) {
    const auto expectPlace = [](std::string_view text, std::size_t offset, std::size_t line, std::size_t column) {
        const std::vector<tool::Place> places = tool::PlacesOf(text, {offset});
        ASSERT_EQ(places.size(), 1U);
        EXPECT_EQ(places[0].line, line) << text << ' ' << offset;
        EXPECT_EQ(places[0].column, column) << text << ' ' << offset;
    };
    expectPlace("", 0, 1, 1);
    expectPlace("ab", 2, 1, 3);
    expectPlace("a\nb", 1, 1, 2);
    expectPlace("a\nb", 2, 2, 1);
    expectPlace("a\r\nb", 3, 2, 1);
    expectPlace("京\n京b", 7, 2, 2);
    expectPlace(
        "\xFF\xFF"
        "b",
        2, 1, 3);
    expectPlace("ab", 99, 1, 3);
}

TEST(Pointer, StepsAreEscapedAndBack) {
    EXPECT_EQ(PointerStep("a/b~c"), "/a~1b~0c");
    EXPECT_EQ(PointerSteps("/a~1b~0c/0//~01"), (std::vector<std::string>{"a/b~c", "0", "", "~1"}));
    EXPECT_EQ(PointerSteps(""), std::vector<std::string>());
    EXPECT_EQ(PointerSteps("/~2~"), std::vector<std::string>{"~2~"});
}

TEST(Shown, IsShortAndOneLineForEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        const std::string shown = Shown(value);
        EXPECT_FALSE(shown.empty());
        EXPECT_LE(shown.size(), 60U * 4 + 30) << shown;
        EXPECT_EQ(shown.find('\n'), std::string::npos);
    }
    EXPECT_EQ(Shown(Json::Value(1.0)), "1.0");
    EXPECT_EQ(Shown(Json::Value(1e300)), "1e+300");
    EXPECT_EQ(Shown(Json::Value(std::string(60, 'a'))), '"' + std::string(60, 'a') + '"');
    EXPECT_EQ(Shown(Json::Value(std::string(61, 'a'))), '"' + std::string(60, 'a') + "\"... (61 bytes)");
    EXPECT_EQ(Shown(Json::Value(std::string(59, 'a') + "京")), '"' + std::string(59, 'a') + "\"... (62 bytes)");
}

}  // namespace

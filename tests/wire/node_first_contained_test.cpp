#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::Keyword;
using jsonparser::Node;
using testing_tools::HostileValues;
using testing_tools::Json;

constexpr Keyword kTable[] = {
    {5, "Record"},
    {7, "Log"   },
    {8, "Log"   },
    {9, "true"  },
    {3, "12"    },
};

int FirstContained(const Json::Value& value) { return Node(value).firstContained(kTable, -7); }

TEST(NodeFirstContained, FindsAKeywordAnywhereInTheText) {
    for (const char* text : {"Record", "RecordPlan", "NewRecord", "NewRecordPlan", "ReRecord"}) {
        EXPECT_EQ(FirstContained(text), 5) << text;
    }
}

TEST(NodeFirstContained, TheFirstRowOfTheTableWinsNotTheFirstWordOfTheText) {
    EXPECT_EQ(FirstContained("LogRecord"), 5);
    EXPECT_EQ(FirstContained("LogLog"), 7);
}

TEST(NodeFirstContained, WithoutAKeywordGivesOtherwise) {
    for (const char* text : {"", "record", "Recor", "R ecord", "text"}) EXPECT_EQ(FirstContained(text), -7) << text;
}

TEST(NodeFirstContained, LooksUpToTheFirstNulOnly) {
    EXPECT_EQ(FirstContained(std::string("Log\0Record", 10)), 7);
    EXPECT_EQ(FirstContained(std::string("\0Record", 7)), -7);
    EXPECT_EQ(FirstContained(std::string("Rec\0ord", 7)), -7);
}

TEST(NodeFirstContained, ReadsBoolsAndNumbersAsJsoncppWritesThem) {
    EXPECT_EQ(FirstContained(true), 9);
    EXPECT_EQ(FirstContained(false), -7);
    EXPECT_EQ(FirstContained(-3127), 3);
    EXPECT_EQ(FirstContained(0.125), 3);
}

TEST(NodeFirstContained, NullArraysAndObjectsHoldNoKeyword) {
    for (const char* text : {"null", R"(["Log"])", R"({"Log": "Log"})"})
        EXPECT_EQ(FirstContained(Json(text)), -7) << text;
    EXPECT_EQ(Node(Json("{}"))["Log"].firstContained(kTable, -7), -7);
}

TEST(NodeFirstContained, TakesEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        const int code = FirstContained(value);
        EXPECT_TRUE(code == -7 || code == 3 || code == 9) << code;
    }
}

TEST(NodeFirstContained, TellsTheObserverWhatItFound) {
    struct : jsonparser::Observer {
        std::vector<std::string> seen;
        void look(const jsonparser::Look& look) override {
            seen.push_back(std::string(look.operation) + ": " + look.result + ", " + look.remark);
        }
    } observer;
    const jsonparser::ObserverScope scope(observer);
    FirstContained("Log");
    FirstContained("log");
    EXPECT_EQ(observer.seen,
              (std::vector<std::string>{"keyword, contained: 7, kept",
                                        R"(keyword, contained: -7, keyword unknown; did you mean "Log"?)"}));
}

}  // namespace

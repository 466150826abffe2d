#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::Keyword;
using jsonparser::Node;
using testing_tools::HostileValues;

constexpr Keyword kWords[] = {
    {1, "one" },
    {2, "two" },
    {3, "two" },
    {4, ""    },
    {5, "7"   },
    {6, "true"}
};

TEST(NodeFirstExactUpToNul, IsTheFirstRowWithTheTextBeforeItsNul) {
    const std::tuple<std::string, int> rows[] = {
        {"one",                   1 },
        {"two",                   2 },
        {"",                      4 },
        {"7",                     5 },
        {std::string("one\0tail", 8), 1},
        {std::string("\0one",                       4),       4},
        {"One",                      -1                 },
        {"ones",-1},
        {"on",                      -1                                       },
        {"one ",-1}
    };
    for (const auto& [text, code] : rows)
        EXPECT_EQ(Node(Json::Value(text)).firstExactUpToNul(kWords, -1), code) << text;
}

TEST(NodeFirstExactUpToNul, WhatIsNoTextMatchesNoRow) {
    for (const Json::Value& value : HostileValues()) {
        if (value.isString()) continue;
        EXPECT_EQ(Node(value).firstExactUpToNul(kWords, -1), -1);
    }
    EXPECT_EQ(Node(Json::Value(7)).firstExactUpToNul(kWords, -1), -1);
    EXPECT_EQ(Node(jsonparser::Place()).firstExactUpToNul(kWords, -1), -1);
}

TEST(NodeFirstExactUpToNul, ReportsToTheObserver) {
    struct : jsonparser::Observer {
        void look(const jsonparser::Look& look) override { results.push_back(look.result + ", " + look.remark); }
        std::vector<std::string> results;
    } observer;
    const jsonparser::ObserverScope scope(observer);
    const Json::Value values[] = {"one", "three", 7};
    for (const Json::Value& value : values) Node(value).firstExactUpToNul(kWords, -1);
    EXPECT_EQ(observer.results,
              (std::vector<std::string>{"1, kept", "-1, keyword unknown", "-1, wrong type, read as the empty text"}));
}

}  // namespace

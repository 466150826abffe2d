#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::Keyword;
using jsonparser::Look;
using jsonparser::Node;
using jsonparser::Observer;
using jsonparser::ObserverScope;
using testing_tools::HostileValues;
using testing_tools::Json;

constexpr int kOtherwise = -7;
constexpr Keyword kWords[] = {
    {1, "One"  },
    {2, "two"  },
    {3, "ONE"  },
    {4, "a-b_c"}
};
constexpr Keyword kWordsWithEmpty[] = {
    {5, ""   },
    {6, "One"}
};

int Code(const Json::Value& value) { return Node(value).stringFirstIgnoringCase(kWords, kOtherwise); }

TEST(NodeStringFirstIgnoringCase, FindsTheFirstRowInAnyCase) {
    EXPECT_EQ(Code("One"), 1);
    EXPECT_EQ(Code("oNE"), 1);
    EXPECT_EQ(Code("ONE"), 1);
    EXPECT_EQ(Code("Two"), 2);
    EXPECT_EQ(Code("A-B_C"), 4);
}

TEST(NodeStringFirstIgnoringCase, AnUnknownWordGivesOtherwise) {
    for (const char* text : {"", "On", "One ", " One", "three", "a-b-c"}) EXPECT_EQ(Code(text), kOtherwise) << text;
}

TEST(NodeStringFirstIgnoringCase, ATextCountsUpToItsFirstNul) {
    EXPECT_EQ(Code(std::string("two\0x", 5)), 2);
    EXPECT_EQ(Code(std::string("\0two", 4)), kOtherwise);
}

TEST(NodeStringFirstIgnoringCase, MatchesOfATextAtMost63Bytes) {
    const std::string word(63, 'w');
    const Keyword table[] = {
        {9, word}
    };
    const auto code = [&](std::size_t length) {
        return Node(Json::Value(std::string(length, 'w'))).stringFirstIgnoringCase(table, kOtherwise);
    };
    EXPECT_EQ(code(62), kOtherwise);
    EXPECT_EQ(code(63), 9);
    EXPECT_EQ(code(64), 9);
}

TEST(NodeStringFirstIgnoringCase, WhatIsNoTextIsTheEmptyText) {
    for (const Json::Value& value : HostileValues()) {
        if (value.isString()) continue;
        EXPECT_EQ(Code(value), kOtherwise);
        EXPECT_EQ(Node(value).stringFirstIgnoringCase(kWordsWithEmpty, kOtherwise), 5);
    }
    const Json::Value object = Json(R"({"other": "One"})");
    EXPECT_EQ(Node(object)["missing"].stringFirstIgnoringCase(kWordsWithEmpty, kOtherwise), 5);
}

TEST(NodeStringFirstIgnoringCase, ReportsTheCodeAndWhetherTheWordIsKnown) {
    class Notes : public Observer {
      public:
        void look(const Look& look) override { all.push_back(look.path + ": " + look.result + ", " + look.remark); }
        std::vector<std::string> all;
    } notes;
    const Json::Value object = Json(R"({"known": "TWO", "unknown": "six"})");
    {
        const ObserverScope scope(notes);
        const Node node(object);
        node["known"].stringFirstIgnoringCase(kWords, kOtherwise);
        node["unknown"].stringFirstIgnoringCase(kWords, kOtherwise);
    }
    EXPECT_EQ(notes.all, (std::vector<std::string>{"/known: 2, kept", "/unknown: -7, keyword unknown"}));
}

}  // namespace

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::Look;
using jsonparser::Node;
using jsonparser::Observer;
using jsonparser::ObserverScope;
using testing_tools::HostileValues;
using testing_tools::Json;

const std::string kTexts[] = {"", "1", "True", "1.5", "1", "true"};
constexpr unsigned kNumbers[] = {7, 0, 300, 7, 4294967295};
constexpr int kOtherwise = -9;

struct Row {
    const char* json;
    int place;
};

TEST(NodeFirstExact, GivesTheIndexOfTheFirstEqualTextOfATable) {
    for (const Row& row : {
             Row{R"("1")",       1         },
             Row{R"("1.5")",     3         },
             Row{R"("true")",    5         },
             Row{R"("TRUE")",    kOtherwise},
             Row{R"("1 ")",      kOtherwise},
             Row{R"("1\u0000")", kOtherwise},
             Row{R"("")",        0         },
             Row{"null",         0         },
             Row{"[]",           0         },
             Row{R"(["1"])",     0         },
             Row{R"({"1": 1})",  0         },
             Row{"1",            1         },
             Row{"1.5",          3         },
             Row{"true",         5         },
             Row{"2",            kOtherwise},
    }) {
        const Json::Value value = Json(row.json);
        EXPECT_EQ(Node(value).firstExact(kTexts, kOtherwise), row.place) << row.json;
    }
}

TEST(NodeFirstEqual, GivesTheIndexOfTheFirstEqualNumberOfATable) {
    for (const Row& row : {
             Row{"7",           0         },
             Row{"300",         2         },
             Row{"300.9",       2         },
             Row{"4294967596",  2         },
             Row{"-1",          4         },
             Row{"4294967295",  4         },
             Row{"1e300",       4         },
             Row{"-5.5",        1         },
             Row{"false",       1         },
             Row{"null",        1         },
             Row{R"("7")",      1         },
             Row{"[7]",         1         },
             Row{R"({"a": 7})", 1         },
             Row{"true",        kOtherwise},
             Row{"301",         kOtherwise},
    }) {
        const Json::Value value = Json(row.json);
        EXPECT_EQ(Node(value).firstEqual(kNumbers, kOtherwise), row.place) << row.json;
    }
}

TEST(NodeTablePlace, AnEmptyTableHoldsNothing) {
    const Json::Value value = Json("7");
    EXPECT_EQ(Node(value).firstExact(std::span<const std::string>(), kOtherwise), kOtherwise);
    EXPECT_EQ(Node(value).firstEqual({}, kOtherwise), kOtherwise);
}

TEST(NodeTablePlace, AMissingNodeIsTheEmptyTextAndZero) {
    const Json::Value value = Json("{}");
    EXPECT_EQ(Node(value)["Parity"].firstExact(kTexts, kOtherwise), 0);
    EXPECT_EQ(Node(value)["Baud"].firstEqual(kNumbers, kOtherwise), 1);
}

TEST(NodeTablePlace, IsDefinedForEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        EXPECT_NO_THROW(Node(value).firstExact(kTexts, kOtherwise));
        EXPECT_NO_THROW(Node(value).firstEqual(kNumbers, kOtherwise));
    }
}

class Results : public Observer {
  public:
    void look(const Look& look) override {
        results.push_back(std::string(look.operation) + ": " + look.result + ", " + look.remark);
    }
    std::vector<std::string> results;
};

TEST(NodeTablePlace, ReportsWhereItFoundWhat) {
    const Json::Value value = Json(R"([300, "Odd"])");
    Results observer;
    {
        const ObserverScope scope(observer);
        const Node node(value);
        node.at(0).firstEqual(kNumbers, kOtherwise);
        node.at(1).firstExact(kTexts, kOtherwise);
    }
    EXPECT_EQ(observer.results, (std::vector<std::string>{"unsigned, place in a table: 2, kept",
                                                          "place of the text in a table, exact: -9, keyword unknown"}));
}

}  // namespace

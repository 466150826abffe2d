#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::Node;
using testing_tools::Json;

std::optional<unsigned> ErrorCode(const Json::Value& value) { return Node(value).asErrorCode(); }

TEST(NodeAsErrorCode, IntegersOf32BitsGiveTheirPattern) {
    const struct {
        Json::Int64 value;
        unsigned code;
    } rows[] = {
        {0,           0         },
        {1,           1         },
        {-1,          0xFFFFFFFF},
        {268632080,   0x10030010},
        {-267976704,  0xF0070000},
        {4026990592,  0xF0070000},
        {2147483647,  0x7FFFFFFF},
        {2147483648,  0x80000000},
        {-2147483648, 0x80000000},
        {4294967295,  0xFFFFFFFF},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ErrorCode(Json::Value(row.value)), row.code) << row.value;
        if (row.value < 0) continue;
        EXPECT_EQ(ErrorCode(Json::Value(static_cast<Json::UInt64>(row.value))), row.code) << row.value;
    }
}

TEST(NodeAsErrorCode, IntegersBeyond32BitsAreNoCode) {
    EXPECT_EQ(ErrorCode(Json::Value(Json::Int64{-2147483649})), std::nullopt);
    EXPECT_EQ(ErrorCode(Json::Value(Json::Int64{4294967296})), std::nullopt);
    EXPECT_EQ(ErrorCode(Json::Value(Json::UInt64{4294967296})), std::nullopt);
    EXPECT_EQ(ErrorCode(Json::Value(std::numeric_limits<Json::Int64>::min())), std::nullopt);
    EXPECT_EQ(ErrorCode(Json::Value(std::numeric_limits<Json::Int64>::max())), std::nullopt);
    EXPECT_EQ(ErrorCode(Json::Value(std::numeric_limits<Json::UInt64>::max())), std::nullopt);
}

TEST(NodeAsErrorCode, BoolsAndRealsReadAsInt) {
    EXPECT_EQ(ErrorCode(Json::Value(false)), 0U);
    EXPECT_EQ(ErrorCode(Json::Value(true)), 1U);
    EXPECT_EQ(ErrorCode(Json::Value(0.0)), 0U);
    EXPECT_EQ(ErrorCode(Json::Value(5.9)), 5U);
    EXPECT_EQ(ErrorCode(Json::Value(-5.9)), 0xFFFFFFFBU);
    EXPECT_EQ(ErrorCode(Json::Value(2147483647.5)), 0x7FFFFFFFU);
    EXPECT_EQ(ErrorCode(Json::Value(4294967295.0)), 0x7FFFFFFFU);
    EXPECT_EQ(ErrorCode(Json::Value(1e300)), 0x7FFFFFFFU);
    EXPECT_EQ(ErrorCode(Json::Value(-1e300)), 0x80000000U);
    EXPECT_EQ(ErrorCode(Json::Value(std::nan(""))), 0U);
}

TEST(NodeAsErrorCode, WhatIsNoNumberIsNoCode) {
    for (const char* text : {"null", R"("")", R"("0")", R"("268632080")", "[]", "[0]", "{}", R"({"code": 0})"}) {
        EXPECT_EQ(ErrorCode(Json(text)), std::nullopt) << text;
    }
    EXPECT_EQ(Node(Json("{}"))["code"].asErrorCode(), std::nullopt);
}

TEST(NodeAsErrorCode, TellsTheObserverWhatItGave) {
    struct : jsonparser::Observer {
        std::vector<std::string> seen;
        void look(const jsonparser::Look& look) override {
            seen.push_back(std::string(look.operation) + ": " + look.result);
        }
    } observer;
    const jsonparser::ObserverScope scope(observer);
    ErrorCode(Json::Value(-1));
    ErrorCode(Json::Value("0"));
    EXPECT_EQ(observer.seen, (std::vector<std::string>{"error code: 4294967295", "error code: (none)"}));
}

}  // namespace

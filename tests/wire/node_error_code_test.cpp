#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "testing/json.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::Node;
using testing_tools::Json;

constexpr unsigned kNoCode = 0x12345678;

/// Knows every code, as itself.
bool Same(unsigned device, unsigned& library) {
    library = device;
    return true;
}

/// Knows no code but 16.
bool Only16(unsigned device, unsigned& library) {
    if (device != 16) return false;
    library = 7;
    return true;
}

unsigned ErrorCode(const Json::Value& value) { return Node(value).errorCode(Same, kNoCode); }

TEST(NodeErrorCode, IntegersOf32BitsGiveTheirPattern) {
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

TEST(NodeErrorCode, IntegersBeyond32BitsAreNoCode) {
    EXPECT_EQ(ErrorCode(Json::Value(Json::Int64{-2147483649})), kNoCode);
    EXPECT_EQ(ErrorCode(Json::Value(Json::Int64{4294967296})), kNoCode);
    EXPECT_EQ(ErrorCode(Json::Value(Json::UInt64{4294967296})), kNoCode);
    EXPECT_EQ(ErrorCode(Json::Value(std::numeric_limits<Json::Int64>::min())), kNoCode);
    EXPECT_EQ(ErrorCode(Json::Value(std::numeric_limits<Json::Int64>::max())), kNoCode);
    EXPECT_EQ(ErrorCode(Json::Value(std::numeric_limits<Json::UInt64>::max())), kNoCode);
}

TEST(NodeErrorCode, BoolsAndRealsReadAsInt) {
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

TEST(NodeErrorCode, WhatIsNoNumberIsNoCode) {
    for (const char* text : {"null", R"("")", R"("0")", R"("268632080")", "[]", "[0]", "{}", R"({"code": 0})"}) {
        EXPECT_EQ(ErrorCode(Json(text)), kNoCode) << text;
    }
    EXPECT_EQ(Node(Json("{}"))["code"].errorCode(Same, kNoCode), kNoCode);
}

TEST(NodeErrorCode, IsTheTranslationOfAKnownCodeOnly) {
    EXPECT_EQ(Node(Json::Value(16)).errorCode(Only16, kNoCode), 7U);
    EXPECT_EQ(Node(Json::Value(16.5)).errorCode(Only16, kNoCode), 7U);
    EXPECT_EQ(Node(Json::Value(17)).errorCode(Only16, kNoCode), kNoCode);
    EXPECT_EQ(Node(Json::Value(7)).errorCode(Only16, kNoCode), kNoCode);
}

TEST(NodeErrorCode, TellsTheObserverWhatItGave) {
    struct : jsonparser::Observer {
        std::vector<std::string> seen;
        void look(const jsonparser::Look& look) override {
            seen.push_back(std::string(look.operation) + ": " + look.result + ", " + look.remark);
        }
    } observer;
    const jsonparser::ObserverScope scope(observer);
    for (const char* text : {"16", "17", "4294967312", R"("16")", "null"}) {
        const Json::Value value = Json(text);
        Node(value).errorCode(Only16, kNoCode);
    }
    EXPECT_EQ(observer.seen, (std::vector<std::string>{
                                 "error code: 7, kept",
                                 "error code: 305419896, not in the table",
                                 "error code: 305419896, wrong type, read as no usable code",
                                 "error code: 305419896, wrong type, read as no usable code",
                                 "error code: 305419896, written by default",
                             }));
}

}  // namespace
